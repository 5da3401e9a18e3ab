#include "tables/macos/MacosTables.h"

namespace brimlet {

const SystemTables& macosTables() {
    static const SystemTables tables = {
        .name = "macos",
        .folders = FolderRules(macos::folders),
        .safety = macos::safety,
        .junk = macos::junk(),
        .words = macos::words,
        .bucketExplanations = macos::bucketExplanations,
    };
    return tables;
}

} // namespace brimlet
