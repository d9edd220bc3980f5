#include "RoughUse.h"

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtGui/QImage>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QGraphicsView>

namespace {

void send(QGraphicsView &view, QEvent::Type type, const QPoint &pos, Qt::MouseButtons buttons)
{
    const auto button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, pos, view.viewport()->mapToGlobal(pos), button, buttons,
                      Qt::NoModifier);
    QApplication::sendEvent(view.viewport(), &event);
}

} // namespace

namespace testsupport {

RoughUser::RoughUser(ZTGraphicsScene &scene_) : scene(scene_), view(&scene_)
{
    view.resize(120, 120);
    image = QImage(view.size(), QImage::Format_RGB32);
}

void RoughUser::use()
{
    view.setSceneRect(scene.itemsBoundingRect());
    paint();
    QPainterPath everywhere;
    everywhere.addRect(scene.sceneRect());
    scene.setSelectionArea(everywhere);
    send(view, QEvent::MouseButtonPress, {60, 60}, Qt::LeftButton);
    send(view, QEvent::MouseMove, {70, 75}, Qt::LeftButton);
    send(view, QEvent::MouseButtonRelease, {70, 75}, Qt::NoButton);
    scene.setMirror(1);
    const QList<QGraphicsItem *> items = scene.items();
    for (QGraphicsItem *candidate : items) {
        if (auto *item = dynamic_cast<ZTAbstractGraphicsItem *>(candidate)) {
            item->scale(2.0, 0.5);
            item->moveBy(3, 4);
        }
    }
    paint();
}

void RoughUser::paint() { view.viewport()->render(&image); }

void useRoughly(ZTGraphicsScene &scene) { RoughUser(scene).use(); }

} // namespace testsupport
