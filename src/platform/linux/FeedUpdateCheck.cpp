#include "platform/linux/FeedUpdateCheck.h"

#include "core/Localized.h"
#include "json/Json.h"

#include <chrono>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTimer>
#include <QUrl>
#include <QVersionNumber>

namespace brimlet {

namespace {

constexpr std::chrono::seconds patience{15};

QVersionNumber versionNumber(const std::string& text) {
    return QVersionNumber::fromString(QString::fromStdString(text));
}

std::optional<std::string> textAt(const Json& document, const char* key) {
    if (!document.is_object() || !document.contains(key) || !document[key].is_string())
        return std::nullopt;
    return bytesOf(document[key]);
}

} // namespace

UpdateOutcome updateOutcome(const std::string& document, const std::string& currentVersion) {
    const Json feed = readJson(document).value_or(Json());
    const auto version = textAt(feed, "version");
    const auto page = textAt(feed, "page");
    // Only a plain web page is ever opened for the user, whatever a feed says.
    if (!version || versionNumber(*version).isNull() || !page || !page->starts_with("https://"))
        return UpdateCheckFailed{localized("The update feed could not be understood.")};
    if (versionNumber(*version) <= versionNumber(currentVersion))
        return UpToDate{};
    return NewerVersion{*version, *page};
}

FeedUpdateCheck::FeedUpdateCheck(std::string feedUrl, std::string currentVersion)
    : m_feedUrl(std::move(feedUrl))
    , m_currentVersion(std::move(currentVersion)) {}

FeedUpdateCheck::~FeedUpdateCheck() = default;

void FeedUpdateCheck::checkForUpdates(std::function<void(const UpdateOutcome&)> answer) {
    if (m_feedUrl.empty()) {
        QTimer::singleShot(0, [answer = std::move(answer)] {
            answer(UpdateCheckFailed{
                localized("This copy of Brimlet is kept up to date by whoever installed it.")});
        });
        return;
    }
    if (!m_network)
        m_network = std::make_unique<QNetworkAccessManager>();
    QNetworkRequest request{QUrl(QString::fromStdString(m_feedUrl))};
    request.setTransferTimeout(static_cast<int>(std::chrono::milliseconds(patience).count()));
    QNetworkReply* reply = m_network->get(request);
    QObject::connect(reply, &QNetworkReply::finished, reply, [this, reply, answer = std::move(answer)] {
        reply->deleteLater();
        if (reply->error() != QNetworkReply::NoError)
            answer(UpdateCheckFailed{localized("The update feed could not be reached.")});
        else
            answer(updateOutcome(reply->readAll().toStdString(), m_currentVersion));
    });
}

} // namespace brimlet
