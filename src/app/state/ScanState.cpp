#include "app/state/ScanState.h"

#include "app/Exclusions.h"
#include "app/state/AccessState.h"
#include "app/state/AppServices.h"
#include "app/state/NoticeState.h"
#include "app/state/PreferencesState.h"
#include "core/Paths.h"
#include "core/walk/Scanner.h"
#include "platform/HomeFolder.h"

#include <utility>

namespace brimlet {

ScanState::ScanState(const AppServices& services, BackgroundWork& work, AccessState& access,
                     PreferencesState& preferences, NoticeState& notice)
    : m_services(services)
    , m_work(work)
    , m_access(access)
    , m_preferences(preferences)
    , m_notice(notice)
    , m_volume(services.volumes.volumeInfo("/")) {}

ScanState::~ScanState() {
    dropScanner();
}

QString ScanState::scanTargetLabel() const {
    return QString::fromStdString(m_scanTarget.label());
}

QString ScanState::progressPath() const {
    return QString::fromStdString(displayPath(m_progress.currentPath, m_services.homeFolder));
}

void ScanState::startScan(std::optional<ScanTarget> target) {
    if (target)
        change(m_scanTarget, std::move(*target), &ScanState::scanTargetChanged);
    if (!m_scanTarget.isFolder() && m_access.onboardsFirst())
        return;
    dropScanner();
    m_scanner = std::make_shared<Scanner>(m_services.system.folders);
    m_deletedWhileScanning.clear();
    change(m_isScanning, true, &ScanState::isScanningChanged);
    change(m_progress, {}, &ScanState::progressChanged);
    m_access.probeFullDiskAccess();
    beginWalk();
}

void ScanState::beginWalk() {
    const std::shared_ptr<Scanner> scanner = m_scanner;
    const Scanner::Progress progress = [this, scanner](std::int64_t files, std::int64_t bytes,
                                                       std::string_view currentPath) {
        m_work.handBack(
            [this, scanner, snapshot = ScanProgressSnapshot{files, bytes, std::string(currentPath)}] {
                if (m_scanner == scanner)
                    change(m_progress, snapshot, &ScanState::progressChanged);
            });
    };
    m_work.run(
        [scanner, walk = m_services.scanWalk, target = m_scanTarget, home = m_services.homeFolder,
         excluded = excludedSet(m_preferences.excludedRaw()), progress] {
            // A home folder may itself be a link, which no walk follows.
            const std::string path = target.path(home);
            return walk(*scanner, target.isHome() ? pathWithoutLinks(path) : path, excluded, progress);
        },
        [this, scanner](std::shared_ptr<ScanResult> result) { finishWalk(scanner, std::move(result)); });
}

void ScanState::finishWalk(const std::shared_ptr<Scanner>& scanner, std::shared_ptr<ScanResult> result) {
    if (m_scanner != scanner)
        return;
    m_scanner.reset();
    change(m_isScanning, false, &ScanState::isScanningChanged);
    if (result)
        takeResult(std::move(result));
    else
        m_notice.say(tr("“%1” couldn’t be scanned. It may be gone, or Brimlet isn’t allowed to open it.")
                         .arg(scanTargetLabel()));
    refreshVolume();
}

void ScanState::takeResult(std::shared_ptr<ScanResult> result) {
    // The old tree stays until every reader has heard of the new one.
    const std::shared_ptr<ScanResult> previous = std::exchange(m_scan, std::move(result));
    publishTree();
    const auto gone =
        std::make_shared<const std::unordered_set<std::string>>(std::exchange(m_deletedWhileScanning, {}));
    if (!gone->empty())
        m_treeUpdates.markDeleted(m_scan, gone, [this] { publishTree(); });
}

void ScanState::publishTree() {
    if (m_scan)
        emit scanChanged();
    ++m_revision;
    emit revisionChanged();
}

void ScanState::refreshVolume() {
    change(m_volume, m_services.volumes.volumeInfo("/"), &ScanState::volumeChanged);
}

void ScanState::forget(const SharedPaths& gone, std::function<void()> then) {
    if (gone->empty()) {
        refreshVolume();
        then();
        return;
    }
    if (m_scanner)
        m_deletedWhileScanning.insert(gone->begin(), gone->end());
    m_treeUpdates.markDeleted(m_scan, gone, [this, then = std::move(then)] {
        publishTree();
        refreshVolume();
        then();
    });
}

void ScanState::takeBack(const SharedPaths& back, std::function<void()> then) {
    for (const std::string& path : *back)
        m_deletedWhileScanning.erase(path);
    refreshVolume();
    if (back->empty()) {
        then();
        return;
    }
    m_treeUpdates.markRestored(m_scan, back, [this, then = std::move(then)] {
        publishTree();
        then();
    });
}

void ScanState::dropScanner() {
    if (m_scanner)
        m_scanner->cancel();
    m_scanner.reset();
}

void ScanState::cancelScan() {
    dropScanner();
    change(m_isScanning, false, &ScanState::isScanningChanged);
}

void ScanState::chooseFolderToScan() {
    m_services.panels.chooseFolder(tr("Scan").toStdString(), [this](std::optional<std::string> folder) {
        if (folder)
            startScan(ScanTarget::folder(std::move(*folder)));
    });
}

} // namespace brimlet
