#include "SceneDriver.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QTimer>
#include <QtGui/QWindow>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QGraphicsView>
#include <QtWidgets/QMenu>

namespace testsupport {

namespace {

constexpr int kMenuWaitMs = 5000;
constexpr int kMenuPollMs = 1;

/**
 * Waits for a menu, in the event loop that the menu itself runs or in its own, then acts on the
 * menu and closes it.
 */
class MenuUser : public QObject
{
public:
    explicit MenuUser(std::function<void(QMenu *)> whatToDo) : act(std::move(whatToDo))
    {
        connect(&timer, &QTimer::timeout, this, [this] { look(); });
        timer.start(kMenuPollMs);
    }

    bool hasSeenMenu() const
    {
        while (timer.isActive())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        return seen;
    }

private:
    void look()
    {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        waitedMs += kMenuPollMs;
        if (menu == nullptr && waitedMs < kMenuWaitMs)
            return;
        timer.stop();
        if (menu == nullptr)
            return;
        seen = true;
        const QPointer<QMenu> guard(menu);
        act(menu);
        if (guard && guard->isVisible())
            guard->close();
    }

    std::function<void(QMenu *)> act;
    QTimer timer;
    int waitedMs = 0;
    bool seen = false;
};

QPoint centerOf(const QMenu *menu, QAction *action)
{
    return menu->actionGeometry(action).center();
}

} // namespace

SceneDriver::SceneDriver(QGraphicsView &shownView) : view(shownView)
{
    view.show();
    if (!QTest::qWaitForWindowExposed(&view))
        qFatal("the view did not come up");
    window = view.window()->windowHandle();
}

QPoint SceneDriver::windowPos(const QPointF &scenePos) const
{
    return view.viewport()->mapTo(view.window(), view.mapFromScene(scenePos));
}

void SceneDriver::press(const QPointF &scenePos, Qt::MouseButton button,
                        Qt::KeyboardModifiers modifiers)
{
    if (held == Qt::NoButton)
        sendMove(scenePos, modifiers);
    held |= button;
    QTest::mousePress(window, button, modifiers, windowPos(scenePos));
}

void SceneDriver::move(const QPointF &scenePos, Qt::KeyboardModifiers modifiers)
{
    sendMove(scenePos, modifiers);
}

void SceneDriver::sendMove(const QPointF &scenePos, Qt::KeyboardModifiers modifiers)
{
    const QPoint pos = windowPos(scenePos);
    qt_handleMouseEvent(window, pos, window->mapToGlobal(pos), held, Qt::NoButton,
                        QEvent::MouseMove, modifiers, ++QTest::lastMouseTimestamp);
    QApplication::processEvents();
}

void SceneDriver::release(const QPointF &scenePos, Qt::MouseButton button,
                          Qt::KeyboardModifiers modifiers)
{
    held &= ~Qt::MouseButtons(button);
    QTest::mouseRelease(window, button, modifiers, windowPos(scenePos));
    QApplication::processEvents();
}

void SceneDriver::click(const QPointF &scenePos, Qt::KeyboardModifiers modifiers)
{
    press(scenePos, Qt::LeftButton, modifiers);
    release(scenePos, Qt::LeftButton, modifiers);
}

void SceneDriver::doubleClick(const QPointF &scenePos)
{
    QTest::mouseDClick(window, Qt::LeftButton, Qt::NoModifier, windowPos(scenePos));
    QApplication::processEvents();
}

void SceneDriver::drag(const QPointF &fromPx, const QPointF &toPx, Qt::KeyboardModifiers modifiers)
{
    press(fromPx, Qt::LeftButton, modifiers);
    move((fromPx + toPx) / 2, modifiers);
    move(toPx, modifiers);
    release(toPx, Qt::LeftButton, modifiers);
}

void SceneDriver::wheel(const QPointF &scenePos, int angleDelta, Qt::KeyboardModifiers modifiers)
{
    const QPoint pos = windowPos(scenePos);
    QWheelEvent event(pos, window->mapToGlobal(pos), QPoint(), QPoint(0, angleDelta), Qt::NoButton,
                      modifiers, Qt::NoScrollPhase, false);
    QApplication::sendEvent(window, &event);
    QApplication::processEvents();
}

void SceneDriver::key(int key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyClick(window, static_cast<Qt::Key>(key), modifiers);
    QApplication::processEvents();
}

bool SceneDriver::contextMenu(const QPointF &scenePos, const std::function<void(QMenu *)> &act)
{
    const MenuUser user(act);
    press(scenePos, Qt::RightButton);
    release(scenePos, Qt::RightButton);
    return user.hasSeenMenu();
}

bool SceneDriver::chooseFromMenu(const QPointF &scenePos, const QString &text)
{
    bool isChosen = false;
    contextMenu(scenePos, [&](QMenu *menu) {
        const QList<QAction *> actions = menu->actions();
        for (QAction *action : actions) {
            if (action->text() != text || !menu->isEnabled() || !action->isEnabled())
                continue;
            isChosen = true;
            QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier, centerOf(menu, action));
            return;
        }
    });
    return isChosen;
}

bool SceneDriver::escapeMenu(const QPointF &scenePos)
{
    return contextMenu(scenePos, [](QMenu *menu) { QTest::keyClick(menu, Qt::Key_Escape); });
}

} // namespace testsupport
