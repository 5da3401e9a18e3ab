// The AppState that QML hands to an object of the screens: taken over, watched and let go in one place.
#pragma once

#include "app/state/AppState.h"

#include <QPointer>

namespace brimlet {

class AppStateLink {
public:
    AppState* state() const { return m_state; }

    /// Takes over another state. `reader` is a QObject that befriends this class: it gets `stateChanged`, and
    /// with a state `watch`, which connects to what it reads, followed by `read`.
    template <typename Reader>
    void replace(AppState* state, Reader& reader) {
        if (m_state == state)
            return;
        if (m_state)
            m_state->disconnect(&reader);
        m_state = state;
        emit reader.stateChanged();
        if (m_state) {
            reader.watch(*m_state);
            reader.read();
        }
    }

private:
    QPointer<AppState> m_state;
};

} // namespace brimlet
