#pragma once

#include "unit/studio/StudioTest.h"

#include "support/SceneDriver.h"

#include <studio/edit/DocumentActions.h>
#include <studio/window/CommandTable.h>
#include <studio/window/Editor.h>
#include <studio/window/MainWindow.h>
#include <studio/window/ViewNavigation.h>

#include <QtCore/QMimeData>
#include <QtGui/QDropEvent>
#include <QtTest/QTest>
#include <QtWidgets/QAction>
#include <QtWidgets/QApplication>

/** The studio's window on screen, with a user before it. */
class StudioWindow : public StudioTest
{
public:
    StudioWindow()
    {
        auto recorded = std::make_unique<RecordedMessages>();
        messages = recorded.get();
        window = std::make_unique<studio::MainWindow>(std::move(recorded));
        window->resize(1200, 800);
        window->show();
        if (!QTest::qWaitForWindowExposed(window.get()))
            qFatal("the window did not come up");
        window->activateWindow();
        window->navigation().home();
        view().setFocus();
        driver = std::make_unique<testsupport::SceneDriver>(view());
    }

    /** Triggers a command as a menu does; false if it is greyed. */
    bool run(const char *id)
    {
        QAction *action = window->commands().named(id);
        QCoreApplication::processEvents();
        if (!action->isEnabled())
            return false;
        action->trigger();
        QCoreApplication::processEvents();
        return true;
    }

    bool isEnabled(const char *id)
    {
        QCoreApplication::processEvents();
        return window->commands().named(id)->isEnabled();
    }

    /** Presses a key in the drawing. */
    void key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QCoreApplication::processEvents();
        view().setFocus();
        QTest::keyClick(&view(), static_cast<Qt::Key>(key), modifiers);
        QCoreApplication::processEvents();
    }

    /** Enters, moves and drops as the window system does; false if the data is refused. */
    bool drop(const QMimeData &data, const QPoint &pos)
    {
        QWidget *viewport = view().viewport();
        QDragEnterEvent enter(pos, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(viewport, &enter);
        QDragMoveEvent move(pos, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(viewport, &move);
        if (!enter.isAccepted() || !move.isAccepted())
            return false;
        QDropEvent drop(pos, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(viewport, &drop);
        return drop.isAccepted();
    }

    ZTGraphicsDocument &document() { return window->document(); }
    ZTGraphicsView &view() { return *document().view(); }
    QUndoStack &stack() { return *document().undoStack(); }
    studio::Editor &editor() { return window->editor(); }
    studio::DocumentActions &edit() { return window->editor().actions(); }
    DrawingSnapshot snapshot() { return snapshotOf(document()); }
    QVector<int> ids() { return idsOf(snapshot()); }
    QVector<int> selected() { return selectedIds(document()); }

    /** A rectangle with its corner at a place on the scene, not recorded for undo. */
    studio::ShapeItem *addRect(double xPx, double yPx)
    {
        studio::ShapeItem *item = document().itemMag()->addShape(ShapeType::Rect, {0, 0, 10, 10});
        item->setPos(xPx, yPx);
        return item;
    }

    void select(const studio::ShapeItems &items) { studio::selectOnly(*document().scene(), items); }

    /** Whether the selection frame stands exactly around the selected shapes. */
    bool frameFits()
    {
        const ZTGraphicsResizeItem *frame = document().scene()->getGraphicsResizeItem();
        const QRectF frameBox = frame->rect().translated(frame->pos());
        const QRectF box = document().scene()->getSelectionItemRect();
        return (frameBox.topLeft() - box.topLeft()).manhattanLength() < 1e-6 &&
               (frameBox.bottomRight() - box.bottomRight()).manhattanLength() < 1e-3;
    }

    std::unique_ptr<studio::MainWindow> window;
    RecordedMessages *messages = nullptr; ///< the window's
    std::unique_ptr<testsupport::SceneDriver> driver;
};
