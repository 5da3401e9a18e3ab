// The one central object of the application: every screen reads it, every action of the user goes through it.
//
// Main thread only. Long work runs in the background and is handed back here; a scan that has been replaced
// or cancelled is told by its Scanner's identity and changes nothing any more. The parts stand in files of
// their own: AppStateScan.cpp, AppStateDeletion.cpp, AppStateJunk.cpp.
#pragma once

#include "app/AppSection.h"
#include "app/AppServices.h"
#include "app/BackgroundServices.h"
#include "app/BackgroundWork.h"
#include "app/PlanProposals.h"
#include "app/Preferences.h"
#include "app/Removals.h"
#include "app/SearchedList.h"
#include "app/Toast.h"
#include "app/TreeUpdates.h"
#include "core/FileFilter.h"
#include "core/ScanResult.h"
#include "junk/JunkFinder.h"
#include "junk/JunkPlan.h"
#include "junk/QuickClean.h"
#include "safety/DeletionPlanning.h"
#include "safety/history/DeletionHistory.h"
#include "safety/history/DeletionRecords.h"

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>
#include <string>
#include <unordered_set>
#include <vector>

class QJSEngine;
class QQmlEngine;

namespace brimlet {

/// Whether the user is told what a run did.
enum class RunNotice { shown, quiet };

class AppState : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(App)
    QML_SINGLETON

    Q_PROPERTY(QString section READ sectionRaw WRITE setSectionRaw NOTIFY sectionChanged)
    Q_PROPERTY(QString scanTargetLabel READ scanTargetLabel NOTIFY scanTargetChanged)
    Q_PROPERTY(bool isScanning READ isScanning NOTIFY isScanningChanged)
    Q_PROPERTY(double progressFiles READ progressFiles NOTIFY progressChanged)
    Q_PROPERTY(double progressBytes READ progressBytes NOTIFY progressChanged)
    Q_PROPERTY(QString progressPath READ progressPath NOTIFY progressChanged)
    Q_PROPERTY(bool hasScan READ hasScan NOTIFY scanChanged)
    Q_PROPERTY(int revision READ revision NOTIFY revisionChanged)
    Q_PROPERTY(bool hasPlan READ hasPlan NOTIFY planChanged)
    Q_PROPERTY(bool isFinishing READ isFinishing NOTIFY isFinishingChanged)
    Q_PROPERTY(bool hasFullDiskAccess READ hasFullDiskAccess NOTIFY hasFullDiskAccessChanged)
    Q_PROPERTY(
        bool permanentDelete READ permanentDelete WRITE setPermanentDelete NOTIFY permanentDeleteChanged)
    Q_PROPERTY(bool showAccessOnboarding READ showAccessOnboarding NOTIFY showAccessOnboardingChanged)
    Q_PROPERTY(bool junkLoading READ junkLoading NOTIFY junkLoadingChanged)
    Q_PROPERTY(QString smartPhase READ smartPhaseRaw WRITE setSmartPhaseRaw NOTIFY smartPhaseChanged)

public:
    /// Takes the steps of start-up in their order; the last of them may begin a scan.
    explicit AppState(AppServices services, QObject* parent = nullptr);
    ~AppState() override;

    /// The instance that the engine's owner handed over; see engineSingleton.
    static AppState* create(QQmlEngine* engine, QJSEngine*);

    // Navigation
    AppSection section() const { return m_section; }
    void setSection(AppSection section);
    QString sectionRaw() const;
    void setSectionRaw(const QString& raw); ///< a text that names no section is ignored
    const std::vector<FileNode*>& explorerStack() const { return m_explorerStack; }
    void setExplorerStack(std::vector<FileNode*> stack);

    const FileFilter& largeFilter() const { return m_largeFilter; }
    void setLargeFilter(FileFilter filter);

    // Scan
    const ScanTarget& scanTarget() const { return m_scanTarget; }
    QString scanTargetLabel() const;
    bool isScanning() const { return m_isScanning; }
    const ScanProgressSnapshot& progress() const { return m_progress; }
    double progressFiles() const { return static_cast<double>(m_progress.files); }
    double progressBytes() const { return static_cast<double>(m_progress.bytes); }
    QString progressPath() const;
    const std::shared_ptr<ScanResult>& scan() const { return m_scan; } ///< null before the first result
    bool hasScan() const { return m_scan != nullptr; }
    int revision() const { return m_revision; }
    const std::optional<VolumeInfo>& volume() const { return m_volume; }

    /// Scans `target`, or the current target. Without Full Disk Access a whole disk or a home folder raises
    /// the onboarding sheet instead, until the user has skipped it. A running scan is replaced.
    void startScan(std::optional<ScanTarget> target = std::nullopt);

    /// Ends the running scan. The previous result stays.
    Q_INVOKABLE void cancelScan();

    Q_INVOKABLE void scanWholeDisk() { startScan(ScanTarget::wholeDisk()); }
    Q_INVOKABLE void scanHome() { startScan(ScanTarget::home()); }
    Q_INVOKABLE void rescan() { startScan(); }
    Q_INVOKABLE void chooseFolderToScan();

    /// Marks what is gone from the disk everywhere. An empty set does nothing.
    /// paths  node paths
    /// then   called when tree and lists are right
    void removeDeleted(const TreeUpdates::Paths& paths, std::function<void()> then);

    // Full Disk Access
    bool hasFullDiskAccess() const { return m_hasFullDiskAccess; }
    bool showAccessOnboarding() const { return m_showAccessOnboarding; }
    bool accessOnboardingSkipped() const { return m_accessOnboardingSkipped; }
    Q_INVOKABLE void openFullDiskAccessSettings();
    Q_INVOKABLE void probeFullDiskAccess();
    Q_INVOKABLE void scanWithoutAccess(); ///< from the onboarding sheet: never ask again, and scan
    Q_INVOKABLE void closeAccessOnboarding();

    // Removal
    SafetyVerdict verdict(std::string_view path) const { return m_services.judge(path); }
    const ItemReview& review() const { return m_services.review; } ///< any thread; blocks on the disk
    const std::optional<Toast>& toast() const { return m_toast; }
    void setToast(std::optional<Toast> toast);
    const std::vector<DeletionFailure>& failures() const { return *m_failures; }

    /// What the confirmation sheet is about; without a plan while that is put together and judged.
    const std::optional<Proposal>& proposal() const { return m_proposals.current(); }
    const DeletionPlan* plan() const; ///< null until it has been judged
    bool hasPlan() const { return proposal().has_value(); }

    /// Opens the sheet, and publishes a plan of the items that lie in no other item as soon as all are
    /// judged. Does nothing without items.
    void proposePlan(PlanDraft draft) { m_proposals.propose(std::move(draft)); }
    void proposePlan(std::vector<PlanItem> items, std::string title); ///< of items that are judged already
    void cancelPlan() { m_proposals.cancel(); }

    /// Closes the plan and removes what it holds; what is protected, or wants a look and was not accepted,
    /// stays.
    void executePlan(std::shared_ptr<const DeletionPlan> plan, ReviewItems review);

    /// Removes in the background, after what was asked for before, then brings history, tree, lists, volume
    /// and, unless quiet, the notice up to date.
    /// requests  put together in the background
    /// then      called after all that; may be empty
    void runDeletion(std::function<std::vector<DeletionRequest>()> requests, RunNotice notice,
                     std::function<void(const FinishedRemovalPtr&)> then);

    /// Newest first; empty until the file has been read.
    const std::vector<HistoryEntry>& history() const { return m_removals.history(); }
    const Removals& removals() const { return m_removals; }

    /// Finds out anew which entries can be restored, as `removals` tells.
    Q_INVOKABLE void lookForRestorable() { m_removals.lookForRestorable(); }

    /// Puts entries back where they were, as far as that is possible, and says how many.
    void restoreEntries(std::shared_ptr<const std::vector<HistoryEntry>> entries);

    /// Puts one entry back. What can't be is left as it was, without a word.
    void restoreEntry(const HistoryEntry& entry);

    Q_INVOKABLE void clearHistory() { m_removals.clearHistory(); }

    // The end
    bool isFinishing() const { return m_isFinishing; }

    /// Asked before the last window closes. While a removal or a restore is at work the answer is no: it ends
    /// with the item at hand, and `quitReady` follows. Nothing more is removed either way.
    Q_INVOKABLE bool readyToQuit();

    /// Ends all that can be ended, and waits a moment for the rest. What hangs still runs afterwards, so the
    /// process may end now but nothing may be destroyed.
    void endWork(std::chrono::milliseconds patience);

    /// Runs what outlives the screen that began it. `work` owns all that it touches; it is waited for at the
    /// end of the application.
    void runInBackground(std::function<void()> work);

    // Junk and Quick Clean
    const std::vector<JunkFinding>& junk() const { return m_junk; } ///< a finding may have lost all its items
    bool junkLoading() const { return m_junkSearch.isLoading(); }
    SmartPhase smartPhase() const { return m_smartPhase; }
    void setSmartPhase(SmartPhase phase);
    QString smartPhaseRaw() const;
    void setSmartPhaseRaw(const QString& raw); ///< a text that names no phase is ignored
    const RuleSelection& smartSelection() const { return m_smartSelection; }
    std::int64_t smartSelectedSize() const { return selectedSize(m_junk, m_smartSelection); }
    const DeletionReport* lastReport() const {
        return m_lastRun ? &m_lastRun->report : nullptr;
    } ///< of Quick Clean

    /// Searches for junk in the background and publishes what is found, as SearchedList tells.
    Q_INVOKABLE void loadJunk() { m_junkSearch.load(); }

    /// From `scanning`, which the caller has set, to `review`; takes at least 1.6 seconds.
    Q_INVOKABLE void startSmartScan();

    /// From `review` to `done`, by way of `cleaning` for at least 1.2 seconds. Without anything to remove, or
    /// while a clean runs, nothing happens.
    Q_INVOKABLE void startSmartClean();

    Q_INVOKABLE void setRuleSelected(const QString& ruleId, bool selected);

    /// Judges chosen items in the background and proposes the plan "Clean Junk".
    void proposeJunkPlan(std::vector<ChosenJunk> chosen);

    // Preferences
    Preferences& preferences() { return m_preferences; }
    const std::string& excludedRaw() const { return m_excludedRaw; }
    void setExcludedRaw(const std::string& raw);
    /// A node path or a plain one; counts from the next scan. What can't be excluded is told in a notice.
    void excludeFolder(const std::string& folder);
    void includeFolderAgain(std::size_t position); ///< by its place in the list
    bool permanentDelete() const { return m_permanentDelete; }
    void setPermanentDelete(bool on);

    BackgroundServices& background() { return *m_background; }
    SystemOpener& opener() { return m_services.opener; }
    Panels& panels() { return m_services.panels; }
    const SystemTables& system() const { return m_services.system; }
    const std::string& homeFolder() const { return m_services.homeFolder; }

signals:
    void sectionChanged();
    void explorerStackChanged();
    void largeFilterChanged();
    void scanTargetChanged();
    void isScanningChanged();
    void progressChanged();
    void scanChanged();
    void revisionChanged();
    void volumeChanged();
    void hasFullDiskAccessChanged();
    void showAccessOnboardingChanged();
    void planChanged();
    void isFinishingChanged();
    void quitReady(); ///< after readyToQuit has said no: now nothing is at work
    void toastChanged();
    void failuresChanged();
    void historyChanged();
    void junkChanged();
    void junkLoadingChanged();
    void smartPhaseChanged();
    void smartSelectionChanged();
    void lastReportChanged();
    void excludedRawChanged();
    void permanentDeleteChanged();

private:
    template <typename Value>
    void change(Value& field, Value value, void (AppState::*changed)()) {
        if (field == value)
            return;
        field = std::move(value);
        (this->*changed)();
    }

    bool mustOnboardFirst() const;
    void dropScanner();
    void beginWalk();
    void finishWalk(const std::shared_ptr<Scanner>& scanner, std::shared_ptr<ScanResult> result);
    void raiseRevision();
    void say(const QString& sentence);
    void tell(const FinishedRemovalPtr& outcome);
    void addRestored(const TreeUpdates::Paths& paths, std::function<void()> then);
    void publishTree();
    SearchedList<std::vector<JunkFinding>>::Owner junkOwner();
    void removeDeletedJunk(const std::unordered_set<std::string>& paths);
    void finishSmartClean(const FinishedRemovalPtr& outcome);
    void callAtEarliest(StageClock::Time earliest, std::function<void()> action);

    AppServices m_services;
    Preferences m_preferences;
    Removals m_removals;
    PlanProposals m_proposals;
    TreeUpdates m_treeUpdates;
    SearchedList<std::vector<JunkFinding>> m_junkSearch;
    AppSection m_section = AppSection::smartClean;
    ScanTarget m_scanTarget = ScanTarget::wholeDisk();
    bool m_isScanning = false;
    ScanProgressSnapshot m_progress;
    std::shared_ptr<ScanResult> m_scan;
    int m_revision = 0;
    std::optional<VolumeInfo> m_volume;
    std::vector<FileNode*> m_explorerStack;
    FileFilter m_largeFilter;
    std::shared_ptr<Scanner> m_scanner; // the running scan's; null when none runs
    std::unordered_set<std::string> m_deletedWhileScanning;
    std::optional<Toast> m_toast;
    std::shared_ptr<const std::vector<DeletionFailure>> m_failures =
        std::make_shared<const std::vector<DeletionFailure>>();
    bool m_isFinishing = false;
    std::vector<JunkFinding> m_junk;
    SmartPhase m_smartPhase = SmartPhase::idle;
    RuleSelection m_smartSelection;
    int m_smartRun = 0;           // the newest scan of Quick Clean
    FinishedRemovalPtr m_lastRun; // of Quick Clean
    std::string m_excludedRaw;
    bool m_permanentDelete = false;
    bool m_hasFullDiskAccess = false;
    bool m_showAccessOnboarding = false;
    std::unique_ptr<BackgroundServices> m_background;
    bool m_accessOnboardingSkipped = false;
    BackgroundWork m_work; // Goes first: what runs hands back to the members above.
};

} // namespace brimlet
