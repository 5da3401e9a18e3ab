#include "views/DiskSpace.h"

#include <algorithm>

namespace brimlet {

DiskSpace::DiskSpace(QObject* parent)
    : QObject(parent) {}

void DiskSpace::setState(AppState* state) {
    if (m_state == state)
        return;
    if (m_state)
        m_state->disconnect(this);
    m_state = state;
    if (m_state)
        connect(m_state, &AppState::volumeChanged, this, &DiskSpace::changed);
    emit stateChanged();
    emit changed();
}

const std::optional<VolumeInfo>& DiskSpace::volume() const {
    static const std::optional<VolumeInfo> none;
    return m_state ? m_state->volume() : none;
}

double DiskSpace::usedFraction() const {
    if (total() < 1)
        return 0;
    return std::clamp(1 - free() / total(), 0.0, 1.0);
}

bool DiskSpace::low() const {
    return total() > 0 && free() / total() < 0.1;
}

} // namespace brimlet
