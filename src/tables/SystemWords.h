// The sentences that differ from one operating system to another. English keys of the translation look-up.
#pragma once

#include <string_view>

namespace brimlet {

struct SystemWords {
    std::string_view diskName; ///< a disk without a label
    std::string_view showInFileManager;
    std::string_view nothingFound;
    std::string_view spaceBeforeCleaning; ///< %1, %2: sizes
    std::string_view cleaningCovers;
    std::string_view staysHere;
    std::string_view scanPromptOfOverview;
    std::string_view scanPromptOfExplorer;
    std::string_view unreadableFolder;
    std::string_view accessBanner;
    std::string_view accessReason;
    std::string_view accessRestart;
    std::string_view onlyNamesAndSizes;
};

} // namespace brimlet
