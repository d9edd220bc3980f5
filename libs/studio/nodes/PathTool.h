#pragma once

#include <studio/canvas/CanvasTool.h>

#include <vectorkit/edit/NodePaths.h>

#include <QtCore/QPointer>

#include <memory>

namespace studio {

class PointerLabel;
class ToolPreview;

/**
 * Draws a new path on the canvas, point by point.
 *
 * Each click is a point; with the curve tool a drag from it pulls the curve. Shift keeps to steps
 * of 15 degrees; Backspace takes the last point back; a click on the first point closes the path,
 * Return or a double click end it; Esc gives it up, or else the tool.
 */
class PathTool : public CanvasTool
{
    Q_OBJECT

public:
    /** The ids of its commands. */
    static constexpr const char *kPolyline = "tool.polyline";
    static constexpr const char *kCurve = "tool.curve";

    /** What is drawn. */
    enum class Kind { None, Polyline, Curve };

    /** `drawing` is borrowed and outlives this. */
    explicit PathTool(ZTGraphicsDocument &drawing, QObject *parent = nullptr);
    ~PathTool() override;

    /** Chooses what to draw; what is being drawn is given up. */
    void choose(Kind kind);

    /** Makes a shape of the points so far; of fewer than two there is none. */
    void finish(bool isClosed);

protected:
    bool isAtWork() const override { return m_kind != Kind::None; }
    bool isOurKey(const QKeyEvent &event) const override;
    bool keyPress(const QKeyEvent &event) override;
    bool press(const QMouseEvent &event) override;
    bool doubleClick(const QMouseEvent &event) override;
    bool move(const QMouseEvent &event) override;
    bool release(const QMouseEvent &event) override;

private:
    void giveUp();
    void show();
    QPointF pointAt(const QMouseEvent &event) const;
    bool isOnFirst(const QPointF &placePx) const;
    vectorkit::VectorPath drawn(const QVector<vectorkit::PathNode> &nodes, bool isClosed) const;

    Kind m_kind = Kind::None;
    QVector<vectorkit::PathNode> m_nodes; ///< millimetres on the scene
    QPointF m_mousePx;
    QPoint m_mouse;           ///< viewport pixels
    bool m_isPulling = false; ///< the button is down since the last point
    bool m_closes = false;    ///< the point that is pulled is the first one
    std::unique_ptr<ToolPreview> m_preview;
    QPointer<PointerLabel> m_label; ///< child of the canvas
};

} // namespace studio
