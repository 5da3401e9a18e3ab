#include "platform/linux/LinuxSystemOpener.h"

#include <QByteArray>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QFile>
#include <QProcess>
#include <QStringList>
#include <QUrl>

namespace brimlet {

namespace {

void launch(const QString& what) {
    QProcess::startDetached(QStringLiteral("xdg-open"), {what});
}

/// A file address of a path of any bytes.
QString fileUrl(const std::string& path) {
    return QStringLiteral("file://") +
           QString::fromLatin1(QByteArray::fromStdString(path).toPercentEncoding("/"));
}

} // namespace

void LinuxSystemOpener::openUrl(const std::string& url) {
    launch(QString::fromStdString(url));
}

void LinuxSystemOpener::openPath(const std::string& path) {
    launch(fileUrl(path));
}

void LinuxSystemOpener::revealPath(const std::string& path) {
    QDBusMessage show = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("/org/freedesktop/FileManager1"),
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowItems"));
    show << QStringList{fileUrl(path)} << QString();
    const std::string folder = path.substr(0, path.rfind('/') + 1);
    auto* answer = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(show));
    QObject::connect(answer, &QDBusPendingCallWatcher::finished, answer, [answer, folder] {
        if (answer->isError())
            launch(fileUrl(folder));
        answer->deleteLater();
    });
}

} // namespace brimlet
