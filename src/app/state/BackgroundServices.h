// What goes on while nobody looks: keeps the space figures fresh. Main thread; lives as long as AppState.
#pragma once

#include "app/Preferences.h"
#include "platform/Volumes.h"

#include <optional>
#include <QObject>
#include <QPointer>
#include <QTimer>

namespace brimlet {

class AppState;

class BackgroundServices : public QObject {
    Q_OBJECT

public:
    /// Reads the figures of "/" and the last automatic clean at once. Both references outlive this object.
    BackgroundServices(const Volumes& volumes, PreferencesStore& store, QObject* parent = nullptr);

    /// Attaches the state and begins the repeating tick. Called when the main window first shows; a second
    /// call restarts the tick.
    void start(AppState& state);

    const std::optional<VolumeInfo>& volume() const { return m_volume; }
    std::optional<PreferenceDate> lastAutoClean() const { return m_lastAutoClean; }
    std::int64_t lastAutoCleanBytes() const { return m_lastAutoCleanBytes; }

    void refreshVolume();

signals:
    void changed();

private:
    const Volumes& m_volumes;
    Preferences m_preferences;
    std::optional<VolumeInfo> m_volume;
    std::optional<PreferenceDate> m_lastAutoClean;
    std::int64_t m_lastAutoCleanBytes = 0;
    QTimer m_timer;
    QPointer<AppState> m_state;
};

} // namespace brimlet
