// Checks for a newer version when the user asks, and keeps what the small update dialog shows.
#pragma once

#include "platform/SystemOpener.h"
#include "platform/UpdateCheck.h"

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

class QJSEngine;
class QQmlEngine;

namespace brimlet {

class UpdateController : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(Updates)
    QML_SINGLETON

    Q_PROPERTY(bool visible READ visible NOTIFY changed)
    Q_PROPERTY(bool checking READ checking NOTIFY changed)
    Q_PROPERTY(QString heading READ heading NOTIFY changed)
    Q_PROPERTY(QString message READ message NOTIFY changed)
    Q_PROPERTY(bool hasPage READ hasPage NOTIFY changed)

public:
    /// Both references outlive this object.
    UpdateController(UpdateCheck& check, SystemOpener& opener, QString currentVersion,
                     QObject* parent = nullptr);

    static UpdateController* create(QQmlEngine* engine, QJSEngine*);

    bool visible() const { return m_visible; }
    bool checking() const { return m_checking; }
    QString heading() const { return m_heading; }
    QString message() const { return m_message; }
    bool hasPage() const { return !m_pageUrl.empty(); }

    /// Opens the dialog and asks the feed; a check that still runs is not asked twice.
    Q_INVOKABLE void checkForUpdates();
    Q_INVOKABLE void openPage();
    Q_INVOKABLE void close();

signals:
    void changed();

private:
    void show(const UpdateOutcome& outcome);

    UpdateCheck& m_check;
    SystemOpener& m_opener;
    QString m_currentVersion;
    bool m_visible = false;
    bool m_checking = false;
    QString m_heading;
    QString m_message;
    std::string m_pageUrl;
};

} // namespace brimlet
