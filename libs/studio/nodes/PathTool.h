#pragma once

#include <studio/ShapeItems.h>

#include <vectorkit/edit/NodePaths.h>

#include <QtCore/QObject>
#include <QtCore/QPointer>

#include <functional>
#include <memory>

QT_BEGIN_NAMESPACE
class QKeyEvent;
class QMouseEvent;
QT_END_NAMESPACE

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
class PathTool : public QObject
{
    Q_OBJECT

public:
    /** The ids of its commands. */
    static constexpr const char *kPolyline = "tool.polyline";
    static constexpr const char *kCurve = "tool.curve";

    /** What is drawn. */
    enum class Kind { None, Polyline, Curve };

    /** Where a place of the mouse comes to; scene pixels. */
    using Snap = std::function<QPointF(const QPointF &placePx, Qt::KeyboardModifiers keys)>;

    /** `document` is borrowed and outlives this. */
    explicit PathTool(ZTGraphicsDocument &document, QObject *parent = nullptr);
    ~PathTool() override;

    /** Chooses what to draw; what is being drawn is given up. */
    void choose(Kind kind);

    /** What places of the mouse go through; `done` is told when no more come. None at first. */
    void setSnap(const Snap &snap, const std::function<void()> &done);

    /** Makes a shape of the points so far; of fewer than two there is none. */
    void finish(bool isClosed);

Q_SIGNALS:
    /** What the tool does now; empty when there is nothing to say. */
    void told(const QString &words);

    /** A path was made, or Esc had nothing to give up. */
    void left();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool viewEvent(QEvent *event);
    bool viewportEvent(QEvent *event);
    bool keyPress(const QKeyEvent &event);
    bool isOurKey(const QKeyEvent &event) const;
    bool press(const QMouseEvent &event);
    bool move(const QMouseEvent &event);
    bool release(const QMouseEvent &event);
    void giveUp();
    void show();
    QPointF placeOf(const QMouseEvent &event) const;
    bool isOnFirst(const QPointF &placePx) const;
    vectorkit::VectorPath drawn(const QVector<vectorkit::PathNode> &nodes, bool isClosed) const;

    ZTGraphicsDocument &m_document;
    Kind m_kind = Kind::None;
    Snap m_snap;
    std::function<void()> m_snapDone;
    QVector<vectorkit::PathNode> m_nodes; ///< millimetres on the scene
    QPointF m_mousePx;
    QPoint m_mouse;           ///< viewport pixels
    bool m_isPulling = false; ///< the button is down since the last point
    bool m_closes = false;    ///< the point that is pulled is the first one
    std::unique_ptr<ToolPreview> m_preview;
    QPointer<PointerLabel> m_label; ///< child of the canvas
};

} // namespace studio
