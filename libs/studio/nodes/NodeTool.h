#pragma once

#include <studio/canvas/CanvasTool.h>
#include <studio/shapes/ShapeItems.h>

#include <vectorkit/edit/NodePaths.h>

#include <memory>
#include <optional>

namespace studio {

class NodeOverlay;

/**
 * Edits the nodes of the selected path on the canvas.
 *
 * A click selects a node, Shift adds one, a drag over nothing a box of them; a drag moves what is
 * selected, or a control point; a double click on the line makes a node. Del deletes, the arrow
 * keys nudge as they do shapes. Each edit is one undo step. A click on another shape goes over to
 * it; Esc lets go of the nodes, then of the tool.
 */
class NodeTool : public CanvasTool
{
    Q_OBJECT

public:
    /** The id of its command. */
    static constexpr const char *kId = "tool.nodes";

    /** `drawing` is borrowed and outlives this. Dragged nodes are snapped. */
    explicit NodeTool(ZTGraphicsDocument &drawing, QObject *parent = nullptr);
    ~NodeTool() override;

    void setActive(bool isActive);
    bool isActive() const { return m_isActive; }

    /** The nodes of the selected path; none while there is none or the tool rests. */
    const vectorkit::NodePaths &nodes() const { return m_nodes; }
    const QVector<vectorkit::NodeRef> &selected() const { return m_selected; }

    void addBetween(); ///< a node midway on each piece between selected nodes
    void remove();     ///< the selected nodes
    void breakApart(); ///< at the selected nodes
    void join();       ///< the two selected ends, or those of the path's one open run
    void toLine();     ///< the pieces between selected nodes
    void toCurve();    ///< the same
    void smooth();     ///< the selected nodes
    void corner();     ///< the same

protected:
    bool isAtWork() const override { return m_isActive; }
    bool isOurKey(const QKeyEvent &event) const override;
    bool keyPress(const QKeyEvent &event) override;
    bool press(const QMouseEvent &event) override;
    bool doubleClick(const QMouseEvent &event) override;
    bool move(const QMouseEvent &event) override;
    bool release(const QMouseEvent &event) override;

private:
    /** What the mouse holds. */
    enum class Grip { Nothing, Nodes, ControlIn, ControlOut, Band };

    void grip(const QPointF &placePx, Qt::KeyboardModifiers keys);
    void goOverTo(const QPointF &placePx);
    void selectBand(Qt::KeyboardModifiers keys);
    void giveUp();
    void follow();
    void show();
    void record(const vectorkit::NodePaths &edited, const QString &text);
    void keepCorners(const vectorkit::NodePaths &edited, const QString &text);
    bool edit(const std::function<bool(vectorkit::NodePaths &)> &change, const QString &text);
    QVector<vectorkit::NodeRef> selectedPieces() const;
    std::optional<vectorkit::NodeRef> nodeAt(const QPointF &placePx) const;
    double reachPx() const;

    bool m_isActive = false;
    bool m_isRecording = false; ///< the stack moves because of an edit of this
    QPointer<ShapeItem> m_item; ///< whose nodes these are
    vectorkit::NodePaths m_nodes;
    vectorkit::NodePaths m_before; ///< while something is dragged
    QVector<vectorkit::NodeRef> m_selected;
    std::unique_ptr<NodeOverlay> m_overlay;
    Grip m_grip = Grip::Nothing;
    vectorkit::NodeRef m_held;
    QPointF m_fromPx; ///< where the drag began, as the held one is placed
    QPointF m_toPx;
    bool m_isDragged = false;
};

} // namespace studio
