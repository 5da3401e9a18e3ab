#include "views/AppStateListModel.h"

namespace brimlet {

void AppStateListModel::setState(AppState* state) {
    if (m_state == state)
        return;
    if (m_state)
        m_state->disconnect(this);
    m_state = state;
    emit stateChanged();
    if (m_state) {
        watch(*m_state);
        read();
    }
}

} // namespace brimlet
