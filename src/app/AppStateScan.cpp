// The scanning side of AppState.
#include "app/AppState.h"

#include "app/Exclusions.h"
#include "core/Paths.h"
#include "platform/HomeFolder.h"

#include <utility>

namespace brimlet {

QString AppState::scanTargetLabel() const {
    return QString::fromStdString(m_scanTarget.label());
}

QString AppState::progressPath() const {
    return QString::fromStdString(displayPath(m_progress.currentPath, m_services.homeFolder));
}

bool AppState::mustOnboardFirst() const {
    return !m_scanTarget.isFolder() && !m_services.accessProbe.hasFullDiskAccess() &&
           !accessOnboardingSkipped();
}

void AppState::startScan(std::optional<ScanTarget> target) {
    if (target)
        change(m_scanTarget, std::move(*target), &AppState::scanTargetChanged);
    if (mustOnboardFirst()) {
        change(m_showAccessOnboarding, true, &AppState::showAccessOnboardingChanged);
        return;
    }
    dropScanner();
    m_scanner = std::make_shared<Scanner>(m_services.system.folders);
    m_deletedWhileScanning.clear();
    change(m_isScanning, true, &AppState::isScanningChanged);
    change(m_progress, {}, &AppState::progressChanged);
    probeFullDiskAccess();
    beginWalk();
}

void AppState::beginWalk() {
    const std::shared_ptr<Scanner> scanner = m_scanner;
    const Scanner::Progress progress = [this, scanner](std::int64_t files, std::int64_t bytes,
                                                       std::string_view currentPath) {
        m_work.handBack(
            [this, scanner, snapshot = ScanProgressSnapshot{files, bytes, std::string(currentPath)}] {
                if (m_scanner == scanner)
                    change(m_progress, snapshot, &AppState::progressChanged);
            });
    };
    m_work.run(
        [scanner, walk = m_services.scanWalk, target = m_scanTarget, home = m_services.homeFolder,
         excluded = excludedSet(m_excludedRaw), progress] {
            // A home folder may itself be a link, which no walk follows.
            const std::string path = target.path(home);
            return walk(*scanner, target.isHome() ? pathWithoutLinks(path) : path, excluded, progress);
        },
        [this, scanner](std::shared_ptr<ScanResult> result) { finishWalk(scanner, std::move(result)); });
}

void AppState::finishWalk(const std::shared_ptr<Scanner>& scanner, std::shared_ptr<ScanResult> result) {
    if (m_scanner != scanner)
        return;
    m_scanner.reset();
    change(m_isScanning, false, &AppState::isScanningChanged);
    if (result) {
        // The old tree stays until every reader has heard of the new one.
        const std::shared_ptr<ScanResult> previous = std::exchange(m_scan, std::move(result));
        m_explorerStack = {m_scan->root};
        emit scanChanged();
        emit explorerStackChanged();
        raiseRevision();
        if (!m_deletedWhileScanning.empty())
            removeDeleted(std::make_shared<const std::unordered_set<std::string>>(
                              std::exchange(m_deletedWhileScanning, {})),
                          [] {});
    } else {
        say(tr("“%1” couldn’t be scanned. It may be gone, or Brimlet isn’t allowed to open it.")
                .arg(scanTargetLabel()));
    }
    change(m_volume, m_services.volumes.volumeInfo("/"), &AppState::volumeChanged);
}

void AppState::dropScanner() {
    if (m_scanner)
        m_scanner->cancel();
    m_scanner.reset();
}

void AppState::cancelScan() {
    dropScanner();
    change(m_isScanning, false, &AppState::isScanningChanged);
}

void AppState::chooseFolderToScan() {
    m_services.panels.chooseFolder(tr("Scan").toStdString(), [this](std::optional<std::string> folder) {
        if (folder)
            startScan(ScanTarget::folder(std::move(*folder)));
    });
}

void AppState::raiseRevision() {
    ++m_revision;
    emit revisionChanged();
}

} // namespace brimlet
