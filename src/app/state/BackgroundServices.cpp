#include "app/state/BackgroundServices.h"

#include "app/state/AppState.h"

#include <chrono>

namespace brimlet {

namespace {
constexpr std::chrono::seconds tickInterval{300};
}

BackgroundServices::BackgroundServices(const Volumes& volumes, PreferencesStore& store, QObject* parent)
    : QObject(parent)
    , m_volumes(volumes)
    , m_preferences(store)
    , m_volume(volumes.volumeInfo("/"))
    , m_lastAutoClean(m_preferences.lastAutoClean())
    , m_lastAutoCleanBytes(m_preferences.lastAutoCleanBytes()) {
    m_timer.setInterval(tickInterval);
    connect(&m_timer, &QTimer::timeout, this, &BackgroundServices::refreshVolume);
}

void BackgroundServices::start(AppState& state) {
    m_state = &state;
    refreshVolume();
    m_timer.start();
}

void BackgroundServices::refreshVolume() {
    m_volume = m_volumes.volumeInfo("/");
    emit changed();
}

} // namespace brimlet
