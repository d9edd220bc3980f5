#pragma once

#include <QtCore/QPointF>
#include <QtCore/QPointer>
#include <QtCore/QString>
#include <QtCore/Qt>

#include <functional>

QT_BEGIN_NAMESPACE
class QGraphicsView;
class QMenu;
class QWindow;
QT_END_NAMESPACE

namespace testsupport {

/**
 * Plays a user before a graphics view: scene positions in, events of the window system out.
 *
 * Events enter at the view's window, so that everything between it and the scene takes part: the
 * choice of widget and item, grabs, double clicks, popups. Scene positions are rounded to pixels
 * of the viewport; at scale 1 whole positions arrive exactly.
 */
class SceneDriver
{
public:
    /** Shows the view and waits until it is on screen. Owner: the caller keeps the view. */
    explicit SceneDriver(QGraphicsView &view);

    void press(const QPointF &scenePos, Qt::MouseButton button = Qt::LeftButton,
               Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void move(const QPointF &scenePos, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void release(const QPointF &scenePos, Qt::MouseButton button = Qt::LeftButton,
                 Qt::KeyboardModifiers modifiers = Qt::NoModifier);

    void click(const QPointF &scenePos, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void doubleClick(const QPointF &scenePos);

    /** Press, two moves, release; all with the left button. */
    void drag(const QPointF &fromPx, const QPointF &toPx,
              Qt::KeyboardModifiers modifiers = Qt::NoModifier);

    /** Turns the wheel by `angleDelta` eighths of a degree. */
    void wheel(const QPointF &scenePos, int angleDelta,
               Qt::KeyboardModifiers modifiers = Qt::NoModifier);

    void key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

    /**
     * Opens the context menu with the right button and lets `act` use it once it is on screen;
     * closes it afterwards if it is still open. False if no menu came up.
     */
    bool contextMenu(const QPointF &scenePos, const std::function<void(QMenu *)> &act);

    /** Chooses the entry of that text from the context menu. False if there is none to choose. */
    bool chooseFromMenu(const QPointF &scenePos, const QString &text);

    /** Opens the context menu and leaves it with Escape. */
    bool escapeMenu(const QPointF &scenePos);

    /** Position of a scene point in the view's window. */
    QPoint windowPos(const QPointF &scenePos) const;

private:
    void sendMove(const QPointF &scenePos, Qt::KeyboardModifiers modifiers);

    QGraphicsView &view;
    QPointer<QWindow> window;
    Qt::MouseButtons held;
};

} // namespace testsupport
