// The Explorer's radial map: draws the current folder, and answers pointer and keys. It changes nothing
// itself but what is hovered; where to go leaves through signals. Main thread.
#pragma once

#include "core/ScanResult.h"
#include "views/base/AppStateLink.h"
#include "views/map/SunburstRaster.h"

#include <optional>
#include <QQuickItem>
#include <QtQml/qqmlregistration.h>
#include <QVariantAnimation>
#include <vector>

namespace brimlet {

class SunburstView : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT

    Q_PROPERTY(brimlet::AppState* state READ state WRITE setState NOTIFY stateChanged REQUIRED)
    Q_PROPERTY(int zoomDuration MEMBER m_zoomDuration) ///< milliseconds; 0 for no transitions

    // The centre's three lines, about what is hovered or else about the folder.
    Q_PROPERTY(QString title READ title NOTIFY focusChanged)
    Q_PROPERTY(double size READ size NOTIFY focusChanged)
    Q_PROPERTY(QString share READ share NOTIFY focusChanged) ///< of the folder; empty when nothing is hovered
    Q_PROPERTY(bool canGoUp READ canGoUp NOTIFY focusChanged)
    Q_PROPERTY(bool isHovering READ isHovering NOTIFY focusChanged)
    Q_PROPERTY(double ringWidth READ ringWidth NOTIFY ringWidthChanged)

public:
    static constexpr int maxDepth = 5;

    explicit SunburstView(QQuickItem* parent = nullptr);
    ~SunburstView() override;

    AppState* state() const { return m_link.state(); }
    void setState(AppState* state) { m_link.replace(state, *this); }

    QString title() const;
    double size() const; ///< bytes, never negative
    QString share() const;
    bool canGoUp() const { return m_root != nullptr && m_root->parent != nullptr; }
    bool isHovering() const { return m_hovered != nullptr; }
    double ringWidth() const { return geometry().ringWidth(); }

    QString folderTitle() const; ///< of what lies in the centre, whatever is hovered
    const std::vector<Arc>& arcs() const { return m_arcs; }
    FileNode* root() const { return m_root; }
    FileNode* hovered() const { return m_hovered; }
    SunburstGeometry geometry() const { return {width(), height(), maxDepth}; }

    /// Hovers a segment, as the pointer would; null for none.
    void hover(const Arc* arc);
    /// Goes into a folder that is no package; anything else is left alone.
    void open(const Arc& arc);

signals:
    void stateChanged();
    void focusChanged();
    void ringWidthChanged();
    void opened();
    void upWanted();

protected:
    QSGNode* updatePaintNode(QSGNode* oldNode, UpdatePaintNodeData* data) override;
    void geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) override;
    void hoverEnterEvent(QHoverEvent* event) override;
    void hoverMoveEvent(QHoverEvent* event) override;
    void hoverLeaveEvent(QHoverEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;

private:
    friend class AppStateLink;

    /// What a click is about.
    struct Target {
        FileNode* node = nullptr;
        bool isCentre = false;
        bool operator==(const Target&) const = default;
    };

    void watch(AppState& state);
    void read();
    const Arc* arcAt(const QPointF& position) const;
    Target targetAt(const QPointF& position) const;
    SunburstLens lensFrom(const FileNode* previousRoot, const std::vector<Arc>& previousArcs) const;
    void startZoom(const SunburstLens& from);
    const Arc* hoveredArc() const;
    const Arc* alongRing(const Arc* from, int step) const;
    const Arc* inwards(const Arc* from) const;
    const Arc* outwards(const Arc* from) const;
    void redraw();

    AppStateLink m_link;
    std::shared_ptr<const ScanResult> m_scan; ///< keeps the nodes
    FileNode* m_root = nullptr;
    FileNode* m_hovered = nullptr;
    std::optional<QPointF> m_pointer; ///< where it last was on the screen, while over the map
    Target m_pressed;
    std::vector<Arc> m_arcs;
    QVariantAnimation m_zoom;
    SunburstLens m_zoomStart;
    SunburstLens m_lens;
    int m_zoomDuration = 0;
    QImage m_image;
    bool m_imageIsOld = true;
};

} // namespace brimlet
