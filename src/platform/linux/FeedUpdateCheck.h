// Reads a small JSON document, {"version": "1.2.0", "page": "https://…"}, from the address of the feed.
#pragma once

#include "platform/UpdateCheck.h"

#include <memory>

class QNetworkAccessManager;

namespace brimlet {

class FeedUpdateCheck final : public UpdateCheck {
public:
    /// feedUrl         empty for a build that has no feed: each check then says so
    /// currentVersion  dotted numbers
    FeedUpdateCheck(std::string feedUrl, std::string currentVersion);
    ~FeedUpdateCheck() override;

    void checkForUpdates(std::function<void(const UpdateOutcome&)> answer) override;

private:
    std::string m_feedUrl;
    std::string m_currentVersion;
    std::unique_ptr<QNetworkAccessManager> m_network;
};

/// What a feed's document means to this version.
UpdateOutcome updateOutcome(const std::string& document, const std::string& currentVersion);

} // namespace brimlet
