#include <studio/arrange/ShapeCopies.h>

#include <hostkit/items/ItemExtras.h>

#include <cmath>

namespace studio {

namespace {

/** Turns a shape about a place of the scene, clockwise for positive angles. */
void turnAbout(ShapeItem &item, const QPointF &placePx, double angleDeg)
{
    const QPointF placeMm = item.mapFromScene(placePx) * ZTCoord::getInstance()->pix2mm(1.0);
    QTransform turn;
    turn.translate(placeMm.x(), placeMm.y());
    turn.rotate(angleDeg);
    turn.translate(-placeMm.x(), -placeMm.y());
    item.setTransformParam(item.getTransformParam() * turn);
}

QPointF turned(const QPointF &placePx, const QPointF &centrePx, double angleDeg)
{
    return QTransform().rotate(angleDeg).map(placePx - centrePx) + centrePx;
}

} // namespace

ShapeItems copiesOf(const ShapeItems &sources, ZTShapeManager &manager, const QPointF &byPx)
{
    ShapeItems copies;
    copies.reserve(sources.size());
    for (ShapeItem *source : sources) {
        ShapeItem *copy = manager.addShape(source->getShapeType(), {0, 0, 10, 10});
        if (copy == nullptr)
            continue;
        copy->copy(source);
        hostkit::copyItemExtras(*source, *copy);
        copy->setPos(source->pos() + byPx);
        copies.append(copy);
    }
    return copies;
}

double CircleArray::stepDeg() const
{
    const bool isWholeTurn = std::abs(std::fmod(totalDeg, 360.0)) < 1e-9;
    return totalDeg / (isWholeTurn ? count : count - 1);
}

ShapeItems copiesAround(const ShapeItems &sources, ZTShapeManager &manager,
                        const CircleArray &circle)
{
    const QPointF middlePx = sceneBox(sources).center();
    ShapeItems all;
    for (int place = 1; place < circle.count; ++place) {
        // Screens count angles clockwise, for their y points down.
        const double angleDeg = -place * circle.stepDeg();
        const QPointF wayPx = turned(middlePx, circle.centrePx, angleDeg) - middlePx;
        const ShapeItems copies = copiesOf(sources, manager, wayPx);
        for (ShapeItem *copy : copies) {
            if (circle.turns)
                turnAbout(*copy, middlePx + wayPx, angleDeg);
        }
        all += copies;
    }
    return all;
}

} // namespace studio
