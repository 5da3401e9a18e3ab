// What the application asks of the world around it, handed over in one piece at creation.
#pragma once

#include "app/StageClock.h"
#include "core/Scanner.h"
#include "junk/JunkFinder.h"
#include "platform/AccessProbe.h"
#include "platform/Panels.h"
#include "platform/PreferencesStore.h"
#include "platform/SystemOpener.h"
#include "platform/Volumes.h"
#include "safety/DeletionExecutor.h"
#include "safety/DeletionHistory.h"
#include "safety/DeletionRecords.h"
#include "safety/SafetyPolicy.h"

#include <functional>
#include <memory>
#include <string>
#include <unordered_set>
#include <vector>

namespace brimlet {

/// Runs one scan on the calling thread, as Scanner::scan does.
using ScanWalk = std::function<std::shared_ptr<ScanResult>(Scanner& scanner, const std::string& rootPath,
                                                           const std::unordered_set<std::string>& excluded,
                                                           const Scanner::Progress& progress)>;

/// Searches the disk for all junk on the calling thread, as JunkFinder::scan does.
using JunkSearch = std::function<std::vector<JunkFinding>()>;

/// Carries requests out on the calling thread, as DeletionExecutor::execute does.
using DeletionRun = std::function<ExecutedRun(const std::vector<DeletionRequest>&)>;

/// All references outlive the AppState that is given them.
struct AppServices {
    std::string homeFolder; ///< absolute, without a trailing slash
    const Volumes& volumes;
    const AccessProbe& accessProbe;
    SystemOpener& opener;
    PreferencesStore& preferences;
    Panels& panels;
    const SafetyPolicy& policy; ///< for what is shown and planned; `deletionRun` asks its own
    StageClock& clock;
    JunkSearch junkSearch;
    DeletionRun deletionRun;
    DeletionHistory& history;
    ScanWalk scanWalk = [](Scanner& scanner, const auto& rootPath, const auto& excluded,
                           const auto& progress) { return scanner.scan(rootPath, excluded, progress); };
};

} // namespace brimlet
