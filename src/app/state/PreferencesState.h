// The settings that other parts and screens follow while the application runs. Main thread.
#pragma once

#include "app/Preferences.h"
#include "app/state/StatePart.h"

#include <cstddef>
#include <QtQml/qqmlregistration.h>
#include <string>

namespace brimlet {

class NoticeState;

class PreferencesState : public StatePart {
    Q_OBJECT
    QML_ANONYMOUS

    Q_PROPERTY(
        bool permanentDelete READ permanentDelete WRITE setPermanentDelete NOTIFY permanentDeleteChanged)

public:
    PreferencesState(PreferencesStore& store, NoticeState& notice);

    Preferences& stored() { return m_stored; }

    const std::string& excludedRaw() const { return m_excludedRaw; }
    void setExcludedRaw(const std::string& raw);

    /// A node path or a plain one; counts from the next scan. What can't be excluded is told in a notice.
    void excludeFolder(const std::string& folder);
    void includeFolderAgain(std::size_t position); ///< by its place in the list

    bool permanentDelete() const { return m_permanentDelete; }
    void setPermanentDelete(bool on);

signals:
    void excludedRawChanged();
    void permanentDeleteChanged();

private:
    Preferences m_stored;
    NoticeState& m_notice;
    std::string m_excludedRaw;
    bool m_permanentDelete = false;
};

} // namespace brimlet
