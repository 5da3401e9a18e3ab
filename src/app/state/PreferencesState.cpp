#include "app/state/PreferencesState.h"

#include "app/Exclusions.h"
#include "app/state/NoticeState.h"

namespace brimlet {

PreferencesState::PreferencesState(PreferencesStore& store, NoticeState& notice)
    : m_stored(store)
    , m_notice(notice)
    , m_excludedRaw(m_stored.excludedPaths())
    , m_permanentDelete(m_stored.permanentDelete()) {}

void PreferencesState::setExcludedRaw(const std::string& raw) {
    m_stored.setExcludedPaths(raw);
    change(m_excludedRaw, raw, &PreferencesState::excludedRawChanged);
}

void PreferencesState::excludeFolder(const std::string& folder) {
    if (canBeExcluded(folder))
        setExcludedRaw(withExcludedPath(m_excludedRaw, folder));
    else
        m_notice.say(tr("This folder can’t be excluded: its path has a line break in it."));
}

void PreferencesState::includeFolderAgain(std::size_t position) {
    setExcludedRaw(withoutExcludedPath(m_excludedRaw, position));
}

void PreferencesState::setPermanentDelete(bool on) {
    m_stored.setPermanentDelete(on);
    change(m_permanentDelete, on, &PreferencesState::permanentDeleteChanged);
}

} // namespace brimlet
