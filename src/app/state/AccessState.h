// Full Disk Access: whether the application has it, and the sheet that asks for it. Main thread.
#pragma once

#include "app/Preferences.h"
#include "app/state/StatePart.h"

#include <QtQml/qqmlregistration.h>
#include <string>

namespace brimlet {

class AccessProbe;
class SystemOpener;
struct AppServices;

class AccessState : public StatePart {
    Q_OBJECT
    QML_ANONYMOUS

    Q_PROPERTY(bool hasFullDiskAccess READ hasFullDiskAccess NOTIFY hasFullDiskAccessChanged)
    Q_PROPERTY(bool showAccessOnboarding READ showAccessOnboarding NOTIFY showAccessOnboardingChanged)

public:
    /// Asks the system at once.
    explicit AccessState(const AppServices& services);

    bool hasFullDiskAccess() const { return m_hasFullDiskAccess; }
    bool showAccessOnboarding() const { return m_showAccessOnboarding; }
    bool accessOnboardingSkipped() const { return m_accessOnboardingSkipped; }

    /// Whether the sheet has to come before a scan of all that is the user's; raises it then.
    bool onboardsFirst();

    Q_INVOKABLE void openFullDiskAccessSettings();
    Q_INVOKABLE void probeFullDiskAccess();
    Q_INVOKABLE void scanWithoutAccess(); ///< from the sheet: never ask again, and scan
    Q_INVOKABLE void closeAccessOnboarding();

signals:
    void hasFullDiskAccessChanged();
    void showAccessOnboardingChanged();
    void scanWanted(); ///< the user goes on without access

private:
    const AccessProbe& m_probe;
    SystemOpener& m_opener;
    std::string m_settings;
    Preferences m_preferences;
    bool m_accessOnboardingSkipped = false;
    bool m_hasFullDiskAccess = false;
    bool m_showAccessOnboarding = false;
};

} // namespace brimlet
