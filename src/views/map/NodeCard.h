// What the panel beside the map tells about one node: the hovered one, or else the current folder. Main
// thread.
#pragma once

#include "views/map/SunburstView.h"

#include <QObject>
#include <QPointer>
#include <QtQml/qqmlregistration.h>
#include <QVariantList>

namespace brimlet {

class NodeCard : public QObject {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(brimlet::SunburstView* map READ map WRITE setMap NOTIFY mapChanged REQUIRED)
    Q_PROPERTY(bool isEmpty READ isEmpty NOTIFY changed)
    Q_PROPERTY(QString name READ name NOTIFY changed)
    Q_PROPERTY(bool directory READ directory NOTIFY changed)
    Q_PROPERTY(QString category READ category NOTIFY changed)
    Q_PROPERTY(double size READ size NOTIFY changed)
    Q_PROPERTY(QString path READ path NOTIFY changed)
    Q_PROPERTY(int risk READ risk NOTIFY changed)
    Q_PROPERTY(QString riskReason READ riskReason NOTIFY changed)
    Q_PROPERTY(
        QVariantList largest READ largest NOTIFY changed) ///< name, size and color of the largest inside

public:
    explicit NodeCard(QObject* parent = nullptr)
        : QObject(parent) {}

    SunburstView* map() const { return m_map; }
    void setMap(SunburstView* map);
    bool isEmpty() const { return node() == nullptr; }
    QString name() const;
    bool directory() const { return !isEmpty() && node()->isDirectory; }
    QString category() const;
    double size() const;
    QString path() const;
    int risk() const { return static_cast<int>(m_verdict.risk); }
    QString riskReason() const { return QString::fromStdString(m_verdict.reason); }
    QVariantList largest() const;

signals:
    void mapChanged();
    void changed();

private:
    const FileNode* node() const;
    void readNode();

    QPointer<SunburstView> m_map;
    SafetyVerdict m_verdict;
};

} // namespace brimlet
