// Stand-ins for what the application asks of the system. All of them write what they were asked into one
// CallLog, so that a test can see the order across services.
#pragma once

#include "platform/AccessProbe.h"
#include "platform/Panels.h"
#include "platform/PreferencesStore.h"
#include "platform/SystemOpener.h"
#include "platform/UpdateCheck.h"
#include "platform/Volumes.h"

#include <functional>
#include <map>
#include <utility>
#include <vector>

namespace brimlet::test {

using CallLog = std::vector<std::string>;

class FakeVolumes final : public Volumes {
public:
    explicit FakeVolumes(CallLog& log)
        : m_log(log) {}

    std::optional<VolumeInfo> volumeInfo(const std::string& path) const override {
        m_log.push_back("volume " + path);
        return info;
    }

    std::optional<VolumeInfo> info = VolumeInfo{"Macintosh HD", 1'000, 400, 500};

private:
    CallLog& m_log;
};

class LoggingAccessProbe final : public AccessProbe {
public:
    explicit LoggingAccessProbe(CallLog& log)
        : m_log(log) {}

    bool hasFullDiskAccess() const override {
        m_log.emplace_back("probe");
        return granted;
    }

    bool granted = true;

private:
    CallLog& m_log;
};

class FakeOpener final : public SystemOpener {
public:
    explicit FakeOpener(CallLog& log)
        : m_log(log) {}

    void openUrl(const std::string& url) override { m_log.push_back("open " + url); }
    void openPath(const std::string& path) override { m_log.push_back("open " + path); }
    void revealPath(const std::string& path) override { m_log.push_back("reveal " + path); }

private:
    CallLog& m_log;
};

/// Keeps values in memory.
class FakePreferences final : public PreferencesStore {
public:
    explicit FakePreferences(CallLog& log)
        : m_log(log) {}

    std::optional<PreferenceValue> value(std::string_view key) const override {
        m_log.push_back("read " + std::string(key));
        const auto found = values.find(key);
        return found == values.end() ? std::nullopt : std::optional(found->second);
    }

    void setValue(std::string_view key, const PreferenceValue& value) override {
        values.insert_or_assign(std::string(key), value);
    }

    void removeValue(std::string_view key) override { values.erase(std::string(key)); }

    std::map<std::string, PreferenceValue, std::less<>> values;

private:
    CallLog& m_log;
};

/// Answers at once with what it was told.
class FakePanels final : public Panels {
public:
    void chooseFolder(const std::string& /*prompt*/, Answer answer) override { answer(choice); }
    void chooseFileToSave(const std::string& /*suggestedName*/, Answer answer) override { answer(choice); }

    std::optional<std::string> choice;
};

/// Keeps the question until the test answers it.
class FakeUpdateCheck final : public UpdateCheck {
public:
    void checkForUpdates(std::function<void(const UpdateOutcome&)> answer) override {
        pending.push_back(std::move(answer));
    }

    std::vector<std::function<void(const UpdateOutcome&)>> pending;
};

} // namespace brimlet::test
