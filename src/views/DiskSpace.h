// What the sidebar's foot says about the disk.
#pragma once

#include "app/AppState.h"

#include <QObject>
#include <QPointer>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace brimlet {

class DiskSpace : public QObject {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(brimlet::AppState* state READ state WRITE setState NOTIFY stateChanged REQUIRED)
    Q_PROPERTY(bool known READ known NOTIFY changed)
    Q_PROPERTY(QString name READ name NOTIFY changed)
    Q_PROPERTY(double free READ free NOTIFY changed)
    Q_PROPERTY(double total READ total NOTIFY changed)
    Q_PROPERTY(double usedFraction READ usedFraction NOTIFY changed)
    Q_PROPERTY(bool low READ low NOTIFY changed)

public:
    explicit DiskSpace(QObject* parent = nullptr);

    AppState* state() const { return m_state; }
    void setState(AppState* state);

    bool known() const { return volume().has_value(); }
    QString name() const { return known() ? QString::fromStdString(volume()->name) : QString(); }
    double free() const { return known() ? static_cast<double>(volume()->availableForImportantUsage) : 0; }
    double total() const { return known() ? static_cast<double>(volume()->total) : 0; }
    double usedFraction() const; ///< 0 to 1
    bool low() const;            ///< less than a tenth is free

signals:
    void stateChanged();
    void changed();

private:
    const std::optional<VolumeInfo>& volume() const;

    QPointer<AppState> m_state;
};

} // namespace brimlet
