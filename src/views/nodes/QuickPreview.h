// The quick look at one file: what it is at once, what is in it as soon as that has been read. Main thread.
#pragma once

#include "views/nodes/NodeActions.h"
#include "views/nodes/PreviewContent.h"

#include <atomic>
#include <memory>

#include <QObject>
#include <QPointer>
#include <QtQml/qqmlregistration.h>

namespace brimlet {

class QuickPreview : public QObject {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(bool isOpen READ isOpen NOTIFY changed)
    Q_PROPERTY(QString name READ name NOTIFY changed)
    Q_PROPERTY(bool directory READ directory NOTIFY changed)
    Q_PROPERTY(QString details READ details NOTIFY changed) ///< kind, size and date in one line
    Q_PROPERTY(QString path READ path NOTIFY changed)
    Q_PROPERTY(QString text READ text NOTIFY changed)
    Q_PROPERTY(bool cut READ cut NOTIFY changed)
    Q_PROPERTY(bool hasImage READ hasImage NOTIFY changed)

public:
    explicit QuickPreview(QObject* parent = nullptr)
        : QObject(parent) {}
    ~QuickPreview() override;

    bool isOpen() const { return m_isOpen; }
    QString name() const { return m_name; }
    bool directory() const { return m_directory; }
    QString details() const { return m_details; }
    QString path() const { return m_shownPath; }
    QString text() const { return m_content.text; }
    bool cut() const { return m_content.cut; }
    const QImage& image() const { return m_content.image; }
    bool hasImage() const { return !m_content.image.isNull(); }

    /// Opens on the first selected row, or closes. Returns whether there was anything to do.
    Q_INVOKABLE bool toggle(brimlet::NodeTableModel* table);
    /// While open, goes with the selection; closes when nothing is selected any more.
    Q_INVOKABLE void followSelection(brimlet::NodeTableModel* table);
    Q_INVOKABLE void showFirst(brimlet::NodeActions* actions);
    Q_INVOKABLE void close();

signals:
    void changed();

private:
    void show(const FileNode& node, const std::string& homeFolder);
    void read();
    void forget();
    void take(const PreviewContent& content);

    bool m_isOpen = false;
    std::string m_path; ///< as scanned
    QString m_shownPath;
    QString m_name;
    bool m_directory = false;
    QString m_details;
    PreviewContent m_content;
    std::shared_ptr<std::atomic<bool>> m_isWanted; ///< of what is being read
};

} // namespace brimlet
