#include "views/map/SunburstAccessible.h"

#include "app/Formats.h"
#include "views/map/SunburstView.h"
#include "views/nodes/NodeLook.h"

#include <algorithm>
#include <cmath>
#include <QAccessibleObject>
#include <QCoreApplication>
#include <QQuickWindow>

namespace brimlet {

namespace {

QRect onScreen(const SunburstView& map, const QRectF& rect) {
    const QRectF scene = map.mapRectToScene(rect);
    return map.window() == nullptr
               ? QRect()
               : QRect(map.window()->mapToGlobal(scene.topLeft().toPoint()), scene.size().toSize());
}

class MapElement;

/// One segment, known by its place in the list; it says nothing once the list has become shorter.
class SegmentElement final : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    SegmentElement(MapElement& map, SunburstView& view, std::size_t index)
        : m_map(map)
        , m_view(view)
        , m_index(index) {}

    bool isValid() const override { return m_index < m_view.arcs().size(); }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return m_view.window(); }
    QAccessibleInterface* parent() const override;
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QAccessible::Role role() const override { return QAccessible::Button; }
    void setText(QAccessible::Text, const QString&) override {}

    QString text(QAccessible::Text kind) const override {
        if (!isValid() || kind != QAccessible::Name)
            return {};
        const FileNode& node = *arc().node;
        return QStringLiteral("%1, %2, %3")
            .arg(displayName(node), bytesText(node.size, QLocale()),
                 percentText(node.size, m_view.root()->size, QLocale()));
    }

    /// A small square at the segment's middle: what lies around it may belong to others.
    QRect rect() const override {
        if (!isValid())
            return {};
        const SunburstGeometry geometry = m_view.geometry();
        const double angle = (arc().start + arc().end) / 2;
        const double radius = (geometry.innerRadius(arc().depth) + geometry.outerRadius(arc().depth)) / 2;
        const double half = geometry.ringWidth() / 4;
        return onScreen(m_view,
                        QRectF(geometry.centreX() + radius * std::sin(angle) - half,
                               geometry.centreY() - radius * std::cos(angle) - half, 2 * half, 2 * half));
    }

    QAccessible::State state() const override {
        QAccessible::State state;
        state.invalid = !isValid();
        state.selectable = true;
        state.selected = isValid() && arc().node == m_view.hovered();
        state.focusable = true;
        state.focused = state.selected && m_view.hasActiveFocus();
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }
    QStringList actionNames() const override { return {pressAction()}; }
    void doAction(const QString& action) override {
        if (isValid() && action == pressAction())
            m_view.open(arc());
    }
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    const Arc& arc() const { return m_view.arcs()[m_index]; }

    MapElement& m_map;
    SunburstView& m_view;
    std::size_t m_index;
};

class MapElement final : public QAccessibleObject {
public:
    explicit MapElement(SunburstView& view)
        : QAccessibleObject(&view)
        , m_view(view) {}

    ~MapElement() override {
        for (const QAccessible::Id id : m_segments)
            QAccessible::deleteAccessibleInterface(id);
    }

    QWindow* window() const override { return m_view.window(); }
    QRect rect() const override { return onScreen(m_view, m_view.boundingRect()); }
    QAccessible::Role role() const override { return QAccessible::Chart; }
    int childCount() const override { return static_cast<int>(m_view.arcs().size()); }

    QAccessibleInterface* parent() const override {
        for (QQuickItem* up = m_view.parentItem(); up != nullptr; up = up->parentItem()) {
            QAccessibleInterface* element = QAccessible::queryAccessibleInterface(up);
            if (element != nullptr && element->isValid())
                return element;
        }
        return QAccessible::queryAccessibleInterface(m_view.window());
    }

    QAccessibleInterface* child(int index) const override {
        if (index < 0 || index >= childCount())
            return nullptr;
        while (m_segments.size() <= static_cast<std::size_t>(index)) {
            auto* segment = new SegmentElement(const_cast<MapElement&>(*this), m_view, m_segments.size());
            m_segments.push_back(QAccessible::registerAccessibleInterface(segment));
        }
        return QAccessible::accessibleInterface(m_segments[static_cast<std::size_t>(index)]);
    }

    QAccessibleInterface* focusChild() const override {
        const auto& arcs = m_view.arcs();
        const auto hovered = std::ranges::find(arcs, m_view.hovered(), &Arc::node);
        return m_view.hasActiveFocus() && hovered != arcs.end()
                   ? child(static_cast<int>(hovered - arcs.begin()))
                   : nullptr;
    }

    int indexOfChild(const QAccessibleInterface* element) const override {
        for (int index = 0; index < childCount(); ++index) {
            if (child(index) == element)
                return index;
        }
        return -1;
    }

    QAccessibleInterface* childAt(int x, int y) const override {
        if (m_view.window() == nullptr)
            return nullptr;
        const QPointF at = m_view.mapFromScene(m_view.window()->mapFromGlobal(QPoint(x, y)));
        const Arc* arc = m_view.geometry().hit(m_view.arcs(), at.x(), at.y());
        return arc != nullptr ? child(static_cast<int>(arc - m_view.arcs().data())) : nullptr;
    }

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name
                   ? QCoreApplication::translate("SunburstView", "Map of %1").arg(m_view.folderTitle())
                   : QString();
    }

    QAccessible::State state() const override {
        QAccessible::State state;
        state.focusable = true;
        state.focused = m_view.hasActiveFocus();
        state.invisible = !m_view.isVisible();
        return state;
    }

private:
    SunburstView& m_view;
    mutable std::vector<QAccessible::Id> m_segments; ///< made as they are asked for
};

QAccessibleInterface* SegmentElement::parent() const {
    return &m_map;
}

} // namespace

QAccessibleInterface* sunburstAccessible(const QString&, QObject* object) {
    auto* map = qobject_cast<SunburstView*>(object);
    return map != nullptr ? new MapElement(*map) : nullptr;
}

void announceFocus(SunburstView& map, int segment) {
    if (!QAccessible::isActive())
        return;
    if (QAccessibleInterface* element = QAccessible::queryAccessibleInterface(&map)) {
        QAccessibleEvent event(element->child(segment), QAccessible::Focus);
        QAccessible::updateAccessibility(&event);
    }
}

void announceSegments(SunburstView& map) {
    if (!QAccessible::isActive())
        return;
    QAccessibleEvent event(&map, QAccessible::ObjectReorder);
    QAccessible::updateAccessibility(&event);
}

} // namespace brimlet
