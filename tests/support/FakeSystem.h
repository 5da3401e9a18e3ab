// The services of AppState as a test needs them: nothing leaves the process, and time stands still until told.
#pragma once

#include "app/AppServices.h"
#include "junk/JunkCatalogue.h"
#include "support/FakeAccessProbe.h"
#include "support/FakeBundles.h"

#include <chrono>
#include <functional>
#include <map>
#include <optional>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QObject>
#include <QPointer>
#include <string>
#include <utility>
#include <vector>

namespace brimlet::test {

class FakeVolumes final : public Volumes {
public:
    std::optional<VolumeInfo> volumeInfo(const std::string&) const override { return info; }

    std::optional<VolumeInfo> info = VolumeInfo{"Macintosh HD", 500'000'000'000, 120'000'000'000, 120'000'000'000};
};

class FakeOpener final : public SystemOpener {
public:
    void openUrl(const std::string& url) override { opened.push_back(url); }
    void openPath(const std::string& path) override { opened.push_back(path); }
    void revealPath(const std::string& path) override { revealed.push_back(path); }

    std::vector<std::string> opened;
    std::vector<std::string> revealed;
};

class MemoryPreferences final : public PreferencesStore {
public:
    std::optional<PreferenceValue> value(std::string_view key) const override {
        const auto found = values.find(key);
        return found != values.end() ? std::optional(found->second) : std::nullopt;
    }
    void setValue(std::string_view key, const PreferenceValue& value) override {
        values.insert_or_assign(std::string(key), value);
    }
    void removeValue(std::string_view key) override { values.erase(std::string(key)); }

    std::map<std::string, PreferenceValue, std::less<>> values;
};

class NoPanels final : public Panels {
public:
    void chooseFolder(const std::string&, Answer answer) override { answer(std::nullopt); }
    void chooseFileToSave(const std::string&, Answer answer) override { answer(std::nullopt); }
};

/// Moves only when told; what is due then runs.
class FakeStageClock final : public StageClock {
public:
    Time now() const override { return m_now; }
    void callAfter(std::chrono::milliseconds delay, QObject& context, std::function<void()> action) override {
        m_waiting.emplace(m_now + delay, Call{&context, std::move(action)});
    }
    void advance(std::chrono::milliseconds by) {
        m_now += by;
        while (!m_waiting.empty() && m_waiting.begin()->first <= m_now) {
            const Call call = m_waiting.extract(m_waiting.begin()).mapped();
            if (call.context)
                call.action();
        }
    }

private:
    struct Call {
        QPointer<QObject> context;
        std::function<void()> action;
    };
    Time m_now{};
    std::multimap<Time, Call> m_waiting;
};

/// Lets the event loop run until `reached` holds. Returns whether it came to hold in time.
template <typename Condition>
bool waitFor(Condition reached) {
    const QDeadlineTimer deadline(std::chrono::seconds(10));
    while (!reached() && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents, 20);
    return reached();
}

} // namespace brimlet::test
