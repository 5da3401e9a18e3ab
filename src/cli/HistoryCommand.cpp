#include "cli/Commands.h"
#include "cli/DeletionEngine.h"
#include "cli/StopSignals.h"
#include "cli/Terminal.h"
#include "core/ByteFormat.h"
#include "core/WholeNumber.h"
#include "platform/HomeFolder.h"
#include "safety/HistoryFormat.h"
#include "json/Json.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <memory>
#include <string>
#include <vector>

namespace brimlet {

namespace {

struct RestoreOptions {
    std::vector<std::string> ids;
    bool last = false;
};

std::string localTime(double secondsSince2001) {
    constexpr double secondsFrom1970To2001 = 978307200;
    const auto seconds = wholeNumber<std::time_t>(std::floor(secondsSince2001 + secondsFrom1970To2001));
    std::tm parts{};
    std::array<char, 32> text{};
    if (localtime_r(&seconds, &parts) == nullptr ||
        std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M", &parts) == 0)
        return "?";
    return text.data();
}

ExitStatus showHistory(bool json, const SystemTables& system) {
    if (const auto refusal = refusalOfHome())
        return fail(*refusal);
    PathAssessor assessor(system);
    LinuxRecordStore records(historyFolder(homeFolder(), system.safety), assessor.calls,
                             MissingFolders::fail);
    const DeletionHistory history(records, assessor.removal, HistoryStart::fileOnly);
    if (json) {
        std::puts(historyText(history.entries()).c_str());
        return ExitStatus::done;
    }
    constexpr std::size_t sizeColumns = 10;
    constexpr std::size_t stateColumns = 9;
    for (const HistoryEntry& entry : history.entries()) {
        const char* const state = entry.restored ? "restored" : entry.trashPath ? "in Trash" : "deleted";
        std::puts((entry.id.text() + "  " + localTime(entry.date) + "  " +
                   padded(formatBytes(entry.size), sizeColumns, Align::right) + "  " +
                   padded(state, stateColumns) + printable(entry.originalPath))
                      .c_str());
    }
    return ExitStatus::done;
}

/// The entry that --last means: the newest that has a way back.
const HistoryEntry* lastRestorable(const std::vector<HistoryEntry>& entries) {
    const auto found = std::find_if(entries.begin(), entries.end(), [](const HistoryEntry& entry) {
        return entry.trashPath && !entry.restored;
    });
    return found == entries.end() ? nullptr : &*found;
}

const HistoryEntry* entryOf(const std::vector<HistoryEntry>& entries, const std::string& id) {
    const auto uuid = Uuid::fromText(id);
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [&](const HistoryEntry& entry) { return entry.id == uuid; });
    return found == entries.end() ? nullptr : &*found;
}

ExitStatus restore(const RestoreOptions& options, const SystemTables& system) {
    if (options.last == !options.ids.empty())
        return fail("Name entries of the history, or give --last.");
    if (const auto refusal = refusalOfHome())
        return fail(*refusal);
    PathAssessor assessor(system);
    DeletionEngine engine(assessor);
    const std::vector<HistoryEntry> known = engine.history.entries();
    std::vector<HistoryEntry> wanted;
    if (const HistoryEntry* entry = options.last ? lastRestorable(known) : nullptr)
        wanted.push_back(*entry);
    for (const std::string& id : options.ids) {
        if (const HistoryEntry* entry = entryOf(known, id))
            wanted.push_back(*entry);
        else
            fail("There is no entry " + id + " in the history.");
    }
    const std::size_t asked = options.last ? 1 : options.ids.size();
    const RestoreOutcome outcome = [&] {
        const StopSignals signals;
        return engine.history.restoring(wanted)(signals.token());
    }();
    for (const RefusedRestore& refused : outcome.refused)
        fail(refused.entry.originalPath + ": " + DeletionExecutor::reason(refused.error, system.safety));
    for (const HistoryEntry& entry : outcome.restored)
        std::puts(("Restored " + printable(entry.originalPath)).c_str());
    for (const DeletionFailure& remark : outcome.remarks)
        fail(remark.path + ": " + remark.reason);
    if (!outcome.isSaved)
        fail("The history could not be written. It is completed at the next start.");
    if (outcome.restored.empty())
        return fail("Nothing was restored.");
    return outcome.restored.size() == asked && outcome.isSaved ? ExitStatus::done : ExitStatus::partly;
}

} // namespace

void addHistoryCommand(CLI::App& app, Invocation& invocation) {
    const auto json = std::make_shared<bool>(false);
    CLI::App* command = app.add_subcommand("history", "List what was deleted, newest first");
    command->add_flag("--json", *json, "Print the history in its file's format");
    command->footer("Example:\n  brimlet-cli history");
    command->callback([json, &invocation] { invocation.status = showHistory(*json, *invocation.system); });
}

void addRestoreCommand(CLI::App& app, Invocation& invocation) {
    const auto options = std::make_shared<RestoreOptions>();
    CLI::App* command = app.add_subcommand("restore", "Put back what was moved to the Trash");
    command->add_option("ids", options->ids, "Entries, as history lists them")->type_name("ID");
    command->add_flag("--last", options->last, "The newest entry that is in the Trash");
    command->footer("Nothing is ever overwritten.\n\nExample:\n  brimlet-cli restore --last");
    command->callback([options, &invocation] { invocation.status = restore(*options, *invocation.system); });
}

} // namespace brimlet
