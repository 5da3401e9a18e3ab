#include "views/map/SunburstView.h"

#include "app/Formats.h"
#include "app/state/NavigationState.h"
#include "app/state/ScanState.h"
#include "core/WholeNumber.h"
#include "views/map/SunburstAccessible.h"
#include "views/nodes/NodeLook.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <QHoverEvent>
#include <QKeyEvent>
#include <QQuickWindow>
#include <QSGImageNode>

namespace brimlet {

SunburstView::SunburstView(QQuickItem* parent)
    : QQuickItem(parent) {
    setFlag(ItemHasContents);
    setAcceptHoverEvents(true);
    setAcceptedMouseButtons(Qt::LeftButton);
    setActiveFocusOnTab(true);
    m_zoom.setStartValue(0.0);
    m_zoom.setEndValue(1.0);
    m_zoom.setEasingCurve(QEasingCurve::OutCubic);
    connect(&m_zoom, &QVariantAnimation::valueChanged, this, [this](const QVariant& progress) {
        m_lens = SunburstLens::between(m_zoomStart, {}, progress.toDouble());
        redraw();
    });
}

SunburstView::~SunburstView() = default;

void SunburstView::watch(AppState& state) {
    connect(state.navigation(), &NavigationState::explorerStackChanged, this, &SunburstView::read);
    connect(state.scan(), &ScanState::revisionChanged, this, &SunburstView::read);
}

void SunburstView::read() {
    const std::vector<FileNode*>& way = state()->navigation()->explorerStack();
    FileNode* previousRoot = std::exchange(m_root, way.empty() ? nullptr : way.back());
    const auto previousScan = std::exchange(m_scan, state()->scan()->scan());
    const std::vector<Arc> previousArcs =
        std::exchange(m_arcs, m_root != nullptr ? collectArcs(*m_root, maxDepth) : std::vector<Arc>());
    if (previousRoot != m_root || hoveredArc() == nullptr)
        m_hovered = nullptr;
    if (previousRoot != m_root && previousScan == m_scan && m_zoomDuration > 0)
        startZoom(lensFrom(previousRoot, previousArcs));
    emit focusChanged();
    announceSegments(*this);
    redraw();
}

SunburstLens SunburstView::lensFrom(const FileNode* previousRoot,
                                    const std::vector<Arc>& previousArcs) const {
    const auto into = std::ranges::find(previousArcs, m_root, &Arc::node);
    if (into != previousArcs.end())
        return {into->start, (into->end - into->start) / fullCircle, static_cast<double>(into->depth)};
    const auto outOf = std::ranges::find(m_arcs, previousRoot, &Arc::node);
    if (outOf == m_arcs.end())
        return {};
    const double scale = fullCircle / (outOf->end - outOf->start);
    return {-outOf->start * scale, scale, -static_cast<double>(outOf->depth)};
}

void SunburstView::startZoom(const SunburstLens& from) {
    m_zoomStart = from;
    m_zoom.stop();
    m_zoom.setDuration(m_zoomDuration);
    m_zoom.start();
}

QString SunburstView::title() const {
    const FileNode* node = m_hovered != nullptr ? m_hovered : m_root;
    return node != nullptr ? displayName(*node) : QString();
}

QString SunburstView::folderTitle() const {
    return m_root != nullptr ? displayName(*m_root) : QString();
}

double SunburstView::size() const {
    const FileNode* node = m_hovered != nullptr ? m_hovered : m_root;
    return node != nullptr ? static_cast<double>(std::max<std::int64_t>(node->size, 0)) : 0;
}

QString SunburstView::share() const {
    return m_hovered != nullptr ? percentText(m_hovered->size, m_root->size, QLocale()) : QString();
}

void SunburstView::hover(const Arc* arc) {
    FileNode* node = arc != nullptr ? arc->node : nullptr;
    if (node == m_hovered)
        return;
    m_hovered = node;
    emit focusChanged();
    if (arc != nullptr && hasActiveFocus())
        announceFocus(*this, static_cast<int>(arc - m_arcs.data()));
    redraw();
}

void SunburstView::open(const Arc& arc) {
    if (state() == nullptr || !arc.node->isDirectory || arc.node->isPackage)
        return;
    std::vector<FileNode*> stack = state()->navigation()->explorerStack();
    stack.push_back(arc.node);
    state()->navigation()->setExplorerStack(std::move(stack));
    emit opened();
}

void SunburstView::redraw() {
    m_imageIsOld = true;
    update();
}

QSGNode* SunburstView::updatePaintNode(QSGNode* oldNode, UpdatePaintNodeData*) {
    if (width() < 1 || height() < 1) {
        delete oldNode;
        return nullptr;
    }
    const double ratio = window()->effectiveDevicePixelRatio();
    const QSize pixels(wholeNumber<int>(std::ceil(width() * ratio)),
                       wholeNumber<int>(std::ceil(height() * ratio)));
    if (m_image.size() != pixels) {
        m_image = QImage(pixels, QImage::Format_ARGB32_Premultiplied);
        m_imageIsOld = true;
    }
    auto* node = static_cast<QSGImageNode*>(oldNode);
    if (node == nullptr) {
        node = window()->createImageNode();
        node->setOwnsTexture(true);
        m_imageIsOld = true;
    }
    if (std::exchange(m_imageIsOld, false)) {
        m_image.setDevicePixelRatio(ratio);
        std::vector<double> opacities;
        opacities.reserve(m_arcs.size());
        for (const Arc& arc : m_arcs)
            opacities.push_back(arcOpacity(arc, m_hovered));
        SunburstRaster(m_arcs, opacities, maxDepth).draw(m_image, m_lens);
        node->setTexture(window()->createTextureFromImage(m_image, QQuickWindow::TextureHasAlphaChannel));
    }
    node->setRect(0, 0, pixels.width() / ratio, pixels.height() / ratio);
    return node;
}

void SunburstView::geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) {
    QQuickItem::geometryChange(newGeometry, oldGeometry);
    emit ringWidthChanged();
    redraw();
}

/// Comes too when the layout moves the map below a pointer that rests.
void SunburstView::hoverEnterEvent(QHoverEvent* event) {
    if (hasActiveFocus() && m_hovered != nullptr)
        m_pointer = event->globalPosition();
    else
        hoverMoveEvent(event);
}

/// Comes with every new picture too; the keys' place must not be taken by a pointer that rests.
void SunburstView::hoverMoveEvent(QHoverEvent* event) {
    if (std::exchange(m_pointer, event->globalPosition()) != event->globalPosition())
        hover(arcAt(event->position()));
}

void SunburstView::hoverLeaveEvent(QHoverEvent*) {
    m_pointer.reset();
    hover(nullptr);
}

const Arc* SunburstView::arcAt(const QPointF& position) const {
    return geometry().hit(m_arcs, position.x(), position.y());
}

/// What lies under the pointer, unless the picture is on its way to another folder.
SunburstView::Target SunburstView::targetAt(const QPointF& position) const {
    if (m_zoom.state() == QAbstractAnimation::Running || !contains(position))
        return {};
    const Arc* arc = arcAt(position);
    return {arc != nullptr ? arc->node : nullptr, geometry().isInCentre(position.x(), position.y())};
}

void SunburstView::mousePressEvent(QMouseEvent* event) {
    forceActiveFocus(Qt::MouseFocusReason);
    m_pressed = targetAt(event->position());
    event->accept();
}

/// A second press within a double click opens nothing more.
void SunburstView::mouseDoubleClickEvent(QMouseEvent* event) {
    m_pressed = {};
    event->accept();
}

void SunburstView::mouseReleaseEvent(QMouseEvent* event) {
    const Target target = targetAt(event->position());
    if (target != std::exchange(m_pressed, {}))
        return;
    if (target.isCentre)
        emit upWanted();
    else if (target.node != nullptr)
        open(*arcAt(event->position()));
}

void SunburstView::focusInEvent(QFocusEvent* event) {
    QQuickItem::focusInEvent(event);
    if (m_hovered == nullptr && !m_arcs.empty() && event->reason() != Qt::MouseFocusReason)
        hover(&m_arcs.front());
}

void SunburstView::keyPressEvent(QKeyEvent* event) {
    const Arc* at = hoveredArc();
    switch (event->key()) {
    case Qt::Key_Right:
        return hover(alongRing(at, 1));
    case Qt::Key_Left:
        return hover(alongRing(at, -1));
    case Qt::Key_Up:
        return hover(outwards(at));
    case Qt::Key_Down:
        return hover(inwards(at));
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (at != nullptr)
            open(*at);
        return;
    case Qt::Key_Backspace:
        emit upWanted();
        return;
    default:
        event->ignore();
    }
}

const Arc* SunburstView::hoveredArc() const {
    const auto found = std::ranges::find(m_arcs, m_hovered, &Arc::node);
    return m_hovered != nullptr && found != m_arcs.end() ? &*found : nullptr;
}

const Arc* SunburstView::alongRing(const Arc* from, int step) const {
    if (m_arcs.empty())
        return nullptr;
    if (from == nullptr)
        return &m_arcs.front();
    const auto count = static_cast<std::ptrdiff_t>(m_arcs.size());
    std::ptrdiff_t at = from - m_arcs.data();
    do {
        at = (at + step + count) % count;
    } while (m_arcs[static_cast<std::size_t>(at)].depth != from->depth);
    return &m_arcs[static_cast<std::size_t>(at)];
}

const Arc* SunburstView::inwards(const Arc* from) const {
    if (from == nullptr)
        return alongRing(nullptr, 1);
    for (const Arc* arc = from; arc >= m_arcs.data(); --arc) {
        if (arc->depth == from->depth - 1)
            return arc;
        if (arc == m_arcs.data())
            break;
    }
    return from;
}

const Arc* SunburstView::outwards(const Arc* from) const {
    if (from == nullptr)
        return alongRing(nullptr, 1);
    const bool hasNext = from + 1 < m_arcs.data() + m_arcs.size();
    return hasNext && (from + 1)->depth == from->depth + 1 ? from + 1 : from;
}

} // namespace brimlet
