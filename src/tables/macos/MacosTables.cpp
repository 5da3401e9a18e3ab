#include "tables/macos/MacosTables.h"

namespace brimlet {

const SystemTables& macosTables() {
    static const SystemTables tables = {
        .name = "macos",
        .folders = FolderRules(macos::folders),
        .safety = macos::safety,
        .junk = macos::junk(),
        .words = macos::words,
        .access = {.database = "/Library/Application Support/com.apple.TCC/TCC.db",
                   .homeFolder = "Library/Safari",
                   .settings = "x-apple.systempreferences:com.apple.preference.security?Privacy_AllFiles"},
        .preferencesFile = "Library/Preferences/com.brimlet.mac.json",
        .bucketExplanations = macos::bucketExplanations,
    };
    return tables;
}

} // namespace brimlet
