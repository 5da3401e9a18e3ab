// The scan: its target, its progress, its result and the space on the disk.
//
// Main thread. The walk runs in the background; one that has been replaced or cancelled is told by its
// Scanner's identity and changes nothing any more.
#pragma once

#include "app/background/PathUpdates.h"
#include "app/background/TreeUpdates.h"
#include "app/state/StatePart.h"
#include "core/ScanResult.h"
#include "platform/Volumes.h"

#include <memory>
#include <optional>
#include <QString>
#include <QtQml/qqmlregistration.h>
#include <string>
#include <unordered_set>

namespace brimlet {

class AccessState;
class BackgroundWork;
class NoticeState;
class PreferencesState;
class Scanner;
struct AppServices;

class ScanState : public StatePart, public PathList {
    Q_OBJECT
    QML_ANONYMOUS

    Q_PROPERTY(QString scanTargetLabel READ scanTargetLabel NOTIFY scanTargetChanged)
    Q_PROPERTY(bool isScanning READ isScanning NOTIFY isScanningChanged)
    Q_PROPERTY(double progressFiles READ progressFiles NOTIFY progressChanged)
    Q_PROPERTY(double progressBytes READ progressBytes NOTIFY progressChanged)
    Q_PROPERTY(QString progressPath READ progressPath NOTIFY progressChanged)
    Q_PROPERTY(bool hasScan READ hasScan NOTIFY scanChanged)
    Q_PROPERTY(int revision READ revision NOTIFY revisionChanged)

public:
    /// Looks at the volume at once. All may be created later than this object, and is used by calls only.
    ScanState(const AppServices& services, BackgroundWork& work, AccessState& access,
              PreferencesState& preferences, NoticeState& notice);
    ~ScanState() override;

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

    /// Brings tree and volume up to date, in pieces.
    void forget(const SharedPaths& gone, std::function<void()> then) override;
    void takeBack(const SharedPaths& back, std::function<void()> then) override;

signals:
    void scanTargetChanged();
    void isScanningChanged();
    void progressChanged();
    void scanChanged(); ///< another tree, or other nodes in it
    void revisionChanged();
    void volumeChanged();

private:
    void dropScanner();
    void beginWalk();
    void finishWalk(const std::shared_ptr<Scanner>& scanner, std::shared_ptr<ScanResult> result);
    void takeResult(std::shared_ptr<ScanResult> result);
    void publishTree();
    void refreshVolume();

    const AppServices& m_services;
    BackgroundWork& m_work;
    AccessState& m_access;
    PreferencesState& m_preferences;
    NoticeState& m_notice;
    ScanTarget m_scanTarget = ScanTarget::wholeDisk();
    bool m_isScanning = false;
    ScanProgressSnapshot m_progress;
    std::shared_ptr<ScanResult> m_scan;
    int m_revision = 0;
    std::optional<VolumeInfo> m_volume;
    std::shared_ptr<Scanner> m_scanner; ///< the running scan's; null when none runs
    std::unordered_set<std::string> m_deletedWhileScanning;
    TreeUpdates m_treeUpdates; // Goes first: it hands back to the members above.
};

} // namespace brimlet
