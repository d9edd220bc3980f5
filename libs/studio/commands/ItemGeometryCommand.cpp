#include <studio/commands/ItemGeometryCommand.h>

#include <studio/commands/FramePause.h>

#include <array>
#include <cstring>

namespace studio {

namespace {

/** To the last bit: a 0 that has become a negative one is equal, and saved as another number. */
bool isSame(const QTransform &a, const QTransform &b)
{
    const auto numbers = [](const QTransform &t) {
        return std::array<double, 9>{t.m11(), t.m12(), t.m13(), t.m21(), t.m22(),
                                     t.m23(), t.m31(), t.m32(), t.m33()};
    };
    const auto one = numbers(a);
    const auto other = numbers(b);
    return std::memcmp(one.data(), other.data(), sizeof one) == 0;
}

} // namespace

ItemGeometryCommand::ItemGeometryCommand(ZTGraphicsScene *changedScene,
                                         const ShapeItems &changedItems, const QString &text)
    : QUndoCommand(text), m_drawing(changedScene), m_items(guarded(changedItems)),
      m_before(states())
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
    for (int i = 0; i < m_items.size(); ++i) {
        if (!m_items[i])
            continue;
        if (!isSame(m_items[i]->getTransformParam(), states[i].transform))
            m_items[i]->setTransformParam(states[i].transform);
        m_items[i]->setPos(states[i].posPx);
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
        change(*m_drawing);
    }
    m_after = states();
}

MirrorCommand::MirrorCommand(ZTGraphicsScene *scene, Kind mirrorKind, const QString &text)
    : ItemGeometryCommand(scene, selectedShapeItems(*scene), text), m_kind(mirrorKind)
{
}

void MirrorCommand::change(ZTGraphicsScene &scene) { scene.setMirror(m_kind); }

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
