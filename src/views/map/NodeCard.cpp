#include "views/map/NodeCard.h"

#include "app/Texts.h"
#include "core/Paths.h"
#include "views/nodes/NodeLook.h"
#include "views/nodes/NodePlans.h"

namespace brimlet {

namespace {
constexpr std::size_t largestCount = 10;
}

void NodeCard::setMap(SunburstView* map) {
    if (m_map == map)
        return;
    if (m_map)
        m_map->disconnect(this);
    m_map = map;
    if (m_map)
        connect(m_map, &SunburstView::focusChanged, this, &NodeCard::readNode);
    emit mapChanged();
    readNode();
}

const FileNode* NodeCard::node() const {
    if (!m_map)
        return nullptr;
    return m_map->hovered() != nullptr ? m_map->hovered() : m_map->root();
}

void NodeCard::readNode() {
    m_verdict = isEmpty() || !m_map->state() ? SafetyVerdict() : m_map->state()->verdict(node()->path());
    emit changed();
}

QString NodeCard::name() const {
    return isEmpty() ? QString() : displayName(*node());
}

QString NodeCard::category() const {
    return isEmpty() ? QString() : translatedText(look(node()->bucket).title);
}

double NodeCard::size() const {
    return isEmpty() ? 0 : static_cast<double>(node()->size);
}

QString NodeCard::path() const {
    return isEmpty() || !m_map->state()
               ? QString()
               : shownText(displayPath(node()->path(), m_map->state()->homeFolder()));
}

QVariantList NodeCard::largest() const {
    QVariantList rows;
    if (isEmpty())
        return rows;
    for (const FileNode* child : largestChildren(*node(), largestCount)) {
        rows << QVariantMap{{QStringLiteral("name"), displayName(*child)},
                            {QStringLiteral("size"), static_cast<qint64>(child->size)},
                            {QStringLiteral("color"), QColor::fromRgb(look(child->bucket).color)}};
    }
    return rows;
}

} // namespace brimlet
