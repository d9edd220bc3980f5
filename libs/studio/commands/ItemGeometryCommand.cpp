#include <studio/commands/ItemGeometryCommand.h>

#include <studio/commands/FramePause.h>

namespace studio {

ItemGeometryCommand::ItemGeometryCommand(ZTGraphicsScene *changedScene,
                                         const ShapeItems &changedItems, const QString &text)
    : QUndoCommand(text), drawing(changedScene), items(guarded(changedItems)), before(states())
{
}

QVector<ItemGeometryCommand::State> ItemGeometryCommand::states() const
{
    QVector<State> now;
    now.reserve(items.size());
    for (const QPointer<ShapeItem> &item : items)
        now.append(item ? State{item->pos(), item->getTransformParam()} : State());
    return now;
}

void ItemGeometryCommand::restore(const QVector<State> &states)
{
    if (!drawing)
        return;
    const FramePause pause(*drawing);
    for (int i = 0; i < items.size(); ++i) {
        if (!items[i])
            continue;
        if (items[i]->getTransformParam() != states[i].transform)
            items[i]->setTransformParam(states[i].transform);
        items[i]->setPos(states[i].posPx);
    }
}

void ItemGeometryCommand::undo() { restore(before); }

void ItemGeometryCommand::redo()
{
    if (!after.isEmpty()) {
        restore(after);
        return;
    }
    if (!drawing)
        return;
    {
        const FramePause pause(*drawing);
        change(*drawing);
    }
    after = states();
}

MirrorCommand::MirrorCommand(ZTGraphicsScene *scene, Kind mirrorKind, const QString &text)
    : ItemGeometryCommand(scene, selectedShapeItems(*scene), text), kind(mirrorKind)
{
}

void MirrorCommand::change(ZTGraphicsScene &scene) { scene.setMirror(kind); }

RotateCommand::RotateCommand(ZTGraphicsScene *scene, double angle, const QString &text)
    : ItemGeometryCommand(scene, selectedShapeItems(*scene), text), angleDeg(angle)
{
}

void RotateCommand::change(ZTGraphicsScene &scene)
{
    if (ZTGraphicsResizeItem *frame = scene.getGraphicsResizeItem())
        frame->setRotation(angleDeg);
}

} // namespace studio
