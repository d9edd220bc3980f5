#include <studio/commands/ItemGeometryCommand.h>

#include <studio/commands/FramePause.h>
#include <studio/commands/IndexPause.h>

#include <hostkit/items/ShapeItems.h>

#include <cmath>

namespace studio {

namespace {

/** To the bit: a flat shape's 0 is -0 once it was mirrored, and a file tells the two apart. */
bool areSame(const QTransform &a, const QTransform &b)
{
    const double elements[][2] = {{a.m11(), b.m11()}, {a.m12(), b.m12()}, {a.m13(), b.m13()},
                                  {a.m21(), b.m21()}, {a.m22(), b.m22()}, {a.m23(), b.m23()},
                                  {a.m31(), b.m31()}, {a.m32(), b.m32()}, {a.m33(), b.m33()}};
    for (const auto &[one, other] : elements) {
        if (one != other || std::signbit(one) != std::signbit(other))
            return false;
    }
    return true;
}

} // namespace

ItemGeometryCommand::ItemGeometryCommand(ZTGraphicsScene *changedScene,
                                         const ShapeItems &changedItems, const QString &text,
                                         int shapesInAll)
    : QUndoCommand(text), m_drawing(changedScene), m_items(guarded(changedItems)),
      m_shapesInAll(shapesInAll), m_before(states())
{
}

QVector<ItemGeometryCommand::State> ItemGeometryCommand::states() const
{
    QVector<State> now;
    now.reserve(m_items.size());
    for (const QPointer<ShapeItem> &item : m_items)
        now.append(item ? State{item->pos(), item->getTransformParam()} : State());
    return now;
}

void ItemGeometryCommand::restore(const QVector<State> &states)
{
    if (!m_drawing)
        return;
    const FramePause pause(*m_drawing);
    const IndexPause indexPause(*m_drawing, m_items.size(), m_shapesInAll);
    for (int i = 0; i < m_items.size(); ++i) {
        if (!m_items[i])
            continue;
        if (!areSame(m_items[i]->getTransformParam(), states[i].transform))
            m_items[i]->setTransformParam(states[i].transform);
        hostkit::setPosExactly(*m_items[i], states[i].posPx);
    }
}

void ItemGeometryCommand::undo() { restore(m_before); }

void ItemGeometryCommand::redo()
{
    if (!m_after.isEmpty()) {
        restore(m_after);
        return;
    }
    if (!m_drawing)
        return;
    {
        const FramePause pause(*m_drawing);
        const IndexPause indexPause(*m_drawing, m_items.size(), m_shapesInAll);
        change(*m_drawing);
    }
    m_after = states();
}

MirrorCommand::MirrorCommand(ZTGraphicsScene *scene, Kind kind, const QString &text,
                             const std::optional<QPointF> &aboutPx)
    : ItemGeometryCommand(scene, selectedShapeItems(*scene), text), m_kind(kind), m_aboutPx(aboutPx)
{
}

void MirrorCommand::change(ZTGraphicsScene &scene)
{
    const ShapeItems items = selectedShapeItems(scene);
    const QPointF middlePx = sceneBox(items).center();
    scene.setMirror(m_kind);
    if (!m_aboutPx)
        return;
    // Mirrored about its own middle it only has to change sides.
    QPointF wayPx = 2.0 * (*m_aboutPx - middlePx);
    (m_kind == LeftToRight ? wayPx.ry() : wayPx.rx()) = 0.0;
    for (ShapeItem *item : items)
        item->setPos(item->pos() + wayPx);
}

RotateCommand::RotateCommand(ZTGraphicsScene *scene, double angle, const QString &text)
    : ItemGeometryCommand(scene, selectedShapeItems(*scene), text), m_angleDeg(angle)
{
}

void RotateCommand::change(ZTGraphicsScene &scene)
{
    if (ZTGraphicsResizeItem *frame = scene.getGraphicsResizeItem())
        frame->setRotation(m_angleDeg);
}

} // namespace studio
