// What the application asks of the world around it, handed over in one piece at creation.
#pragma once

#include "app/background/Removals.h"
#include "app/background/StageClock.h"
#include "core/walk/Scanner.h"
#include "junk/JunkFinder.h"
#include "platform/AccessProbe.h"
#include "platform/Panels.h"
#include "platform/PreferencesStore.h"
#include "platform/SystemOpener.h"
#include "platform/Volumes.h"
#include "safety/ItemReview.h"
#include "safety/PathJudge.h"
#include "tables/SystemTables.h"

#include <functional>
#include <memory>
#include <stop_token>
#include <string>
#include <unordered_set>
#include <vector>

namespace brimlet {

/// Runs one scan on the calling thread, as Scanner::scan does.
using ScanWalk = std::function<std::shared_ptr<ScanResult>(Scanner& scanner, const std::string& rootPath,
                                                           const std::unordered_set<std::string>& excluded,
                                                           const Scanner::Progress& progress)>;

/// Searches the disk for all junk on the calling thread, as JunkFinder::scan does.
using JunkSearch = std::function<std::vector<JunkFinding>(const std::stop_token&)>;

/// All references outlive the AppState that is given them.
struct AppServices {
    const SystemTables& system;
    std::string homeFolder; ///< absolute, without a trailing slash
    const Volumes& volumes;
    const AccessProbe& accessProbe;
    SystemOpener& opener;
    PreferencesStore& preferences;
    Panels& panels;
    PathJudge judge;          ///< for what is shown; `review` and `deletionRun` ask their own
    const ItemReview& review; ///< for what is planned
    StageClock& clock;
    JunkSearch junkSearch;
    DeletionRun deletionRun;
    HistoryOpening openHistory;
    ScanWalk scanWalk = [](Scanner& scanner, const auto& rootPath, const auto& excluded,
                           const auto& progress) { return scanner.scan(rootPath, excluded, progress); };
};

} // namespace brimlet
