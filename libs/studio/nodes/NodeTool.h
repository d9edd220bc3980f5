#pragma once

#include <studio/ShapeItems.h>

#include <vectorkit/edit/NodePaths.h>

#include <QtCore/QObject>

#include <functional>
#include <memory>
#include <optional>

QT_BEGIN_NAMESPACE
class QKeyEvent;
class QMouseEvent;
QT_END_NAMESPACE

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
class NodeTool : public QObject
{
    Q_OBJECT

public:
    /** The id of its command. */
    static constexpr const char *kId = "tool.nodes";

    /** Where a place of the mouse comes to; scene pixels. */
    using Snap = std::function<QPointF(const QPointF &placePx, Qt::KeyboardModifiers keys)>;

    /** `document` is borrowed and outlives this. */
    explicit NodeTool(ZTGraphicsDocument &document, QObject *parent = nullptr);
    ~NodeTool() override;

    void setActive(bool isActive);
    bool isActive() const { return m_isActive; }

    /** What dragged nodes go through; `done` is told when no more come. None at first. */
    void setSnap(const Snap &snap, const std::function<void()> &done);

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

Q_SIGNALS:
    /** What the tool does now or cannot do; empty when there is nothing to say. */
    void told(const QString &words);

    /** Esc, and there was nothing to give up. */
    void left();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /** What the mouse holds. */
    enum class Grip { Nothing, Nodes, ControlIn, ControlOut, Band };

    bool viewEvent(QEvent *event);
    bool viewportEvent(QEvent *event);
    bool keyPress(const QKeyEvent &event);
    bool isOurKey(const QKeyEvent &event) const;
    bool press(const QMouseEvent &event);
    bool move(const QMouseEvent &event);
    bool release(const QMouseEvent &event);
    bool doubleClick(const QMouseEvent &event);
    void grip(const QPointF &placePx, Qt::KeyboardModifiers keys);
    void goOverTo(const QPointF &placePx);
    void selectBand(Qt::KeyboardModifiers keys);
    void giveUp();
    void follow();
    void show();
    void record(const vectorkit::NodePaths &edited, const QString &text);
    bool edit(const std::function<bool(vectorkit::NodePaths &)> &change, const QString &text);
    QVector<vectorkit::NodeRef> selectedPieces() const;
    std::optional<vectorkit::NodeRef> nodeAt(const QPointF &placePx) const;
    QPointF placeOf(const QMouseEvent &event) const;
    double reachPx() const;

    ZTGraphicsDocument &m_document;
    Snap m_snap;
    std::function<void()> m_snapDone;
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
