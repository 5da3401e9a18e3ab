#include "app/state/AccessState.h"

#include "app/state/AppServices.h"

namespace brimlet {

AccessState::AccessState(const AppServices& services)
    : m_probe(services.accessProbe)
    , m_opener(services.opener)
    , m_settings(services.system.access.settings)
    , m_preferences(services.preferences)
    , m_accessOnboardingSkipped(m_preferences.accessOnboardingSkipped())
    , m_hasFullDiskAccess(m_probe.hasFullDiskAccess()) {}

bool AccessState::onboardsFirst() {
    if (m_accessOnboardingSkipped || m_probe.hasFullDiskAccess())
        return false;
    change(m_showAccessOnboarding, true, &AccessState::showAccessOnboardingChanged);
    return true;
}

void AccessState::openFullDiskAccessSettings() {
    m_opener.openUrl(m_settings);
}

void AccessState::probeFullDiskAccess() {
    change(m_hasFullDiskAccess, m_probe.hasFullDiskAccess(), &AccessState::hasFullDiskAccessChanged);
}

void AccessState::scanWithoutAccess() {
    m_preferences.setAccessOnboardingSkipped(true);
    m_accessOnboardingSkipped = true;
    closeAccessOnboarding();
    emit scanWanted();
}

void AccessState::closeAccessOnboarding() {
    change(m_showAccessOnboarding, false, &AccessState::showAccessOnboardingChanged);
}

} // namespace brimlet
