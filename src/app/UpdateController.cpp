#include "app/UpdateController.h"

#include "app/EngineSingleton.h"

#include <QPointer>

namespace brimlet {

UpdateController::UpdateController(UpdateCheck& check, SystemOpener& opener, QString currentVersion,
                                   QObject* parent)
    : QObject(parent)
    , m_check(check)
    , m_opener(opener)
    , m_currentVersion(std::move(currentVersion)) {}

UpdateController* UpdateController::create(QQmlEngine* engine, QJSEngine*) {
    return engineSingleton<UpdateController>(engine);
}

void UpdateController::checkForUpdates() {
    m_visible = true;
    if (!m_checking) {
        m_checking = true;
        m_heading = tr("Checking for updates…");
        m_message.clear();
        m_pageUrl.clear();
        m_check.checkForUpdates([self = QPointer(this)](const UpdateOutcome& outcome) {
            if (self)
                self->show(outcome);
        });
    }
    emit changed();
}

void UpdateController::show(const UpdateOutcome& outcome) {
    m_checking = false;
    if (const auto* newer = std::get_if<NewerVersion>(&outcome)) {
        m_heading = tr("Brimlet %1 is available").arg(QString::fromStdString(newer->version));
        m_message = tr("You have version %1.").arg(m_currentVersion);
        m_pageUrl = newer->pageUrl;
    } else if (const auto* failed = std::get_if<UpdateCheckFailed>(&outcome)) {
        m_heading = tr("Updates can’t be checked");
        m_message = QString::fromStdString(failed->reason);
    } else {
        m_heading = tr("You’re up to date");
        m_message = tr("Brimlet %1 is the newest version.").arg(m_currentVersion);
    }
    emit changed();
}

void UpdateController::openPage() {
    m_opener.openUrl(m_pageUrl);
    close();
}

void UpdateController::close() {
    m_visible = false;
    emit changed();
}

} // namespace brimlet
