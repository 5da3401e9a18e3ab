#include "support/DeletionStage.h"

#include "core/Paths.h"
#include "platform/linux/LinuxEntryLookup.h"
#include "platform/ScratchName.h"
#include "safety/HistoryFormat.h"
#include "tables/SystemTables.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace brimlet::test {

namespace fs = std::filesystem;

DeletionStage::DeletionStage()
    : calls(tree.directory("home"))
    , removal(home(), calls)
    , store(home("Library/Application Support/Brimlet"), calls)
    , executor(
          macosTables().safety, removal, store, [this](std::string_view path) { return verdict(path); },
          [this] { return ProtectedPlaces(places, LinuxEntryLookup()); }) {
    tree.directory("outside");
}

SafetyVerdict DeletionStage::verdict(std::string_view path) const {
    if (!protectedFolder.empty() && (path == protectedFolder || isBelow(path, protectedFolder)))
        return {Risk::protected_, "Out of bounds."};
    const auto found = verdicts.find(std::string(path));
    return found == verdicts.end() ? SafetyVerdict{Risk::safe, "Made for this test."} : found->second;
}

std::string DeletionStage::home(std::string_view relative) const {
    return tree.path(relative.empty() ? "home" : "home/" + std::string(relative));
}

std::string DeletionStage::trash(std::string_view name) const {
    return home(name.empty() ? ".Trash" : ".Trash/" + std::string(name));
}

DeletionRequest DeletionStage::request(std::string path, Removal removal, std::int64_t size) {
    const auto found = LinuxEntryLookup().find(path);
    DeletionRequest request{Uuid::random(), std::move(path), size, removal};
    if (found)
        request.identity = found->identity;
    return request;
}

ExecutedRun DeletionStage::run(const std::string& path, Removal how) {
    ExecutedRun run = executor.execute({request(path, how)});
    DeletionHistory(store, removal).record(run);
    return run;
}

std::vector<std::string> DeletionStage::trashNames() const {
    std::vector<std::string> names;
    std::error_code error;
    for (const fs::directory_entry& entry : fs::directory_iterator(trash(), error))
        names.push_back(entry.path().filename().native());
    std::sort(names.begin(), names.end());
    return names;
}

bool DeletionStage::hasScratch() const {
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(home())) {
        if (isScratchName(entry.path().filename().native()))
            return true;
    }
    return false;
}

std::vector<HistoryEntry> DeletionStage::historyOnDisk() const {
    std::ifstream file(store.folder() + "/history.json", std::ios::binary);
    if (!file)
        return {};
    std::ostringstream text;
    text << file.rdbuf();
    auto entries = historyFromText(text.str());
    EXPECT_TRUE(entries) << text.str();
    return entries.value_or(std::vector<HistoryEntry>());
}

} // namespace brimlet::test
