#include <studio/commands/PlacementCommand.h>

namespace studio {

namespace {

ShapeItems itemsOf(const QVector<Placement> &placements)
{
    ShapeItems items;
    items.reserve(placements.size());
    for (const Placement &placement : placements)
        items.append(placement.item);
    return items;
}

} // namespace

PlacementCommand::PlacementCommand(ZTGraphicsScene *scene, const QVector<Placement> &placements,
                                   const QString &text, int shapesInAll)
    : ItemGeometryCommand(scene, itemsOf(placements), text, shapesInAll)
{
    m_places.reserve(placements.size());
    for (const Placement &placement : placements)
        m_places.append({placement.item, placement.posPx, placement.transform});
}

void PlacementCommand::change(ZTGraphicsScene &)
{
    for (const Place &place : qAsConst(m_places)) {
        if (!place.item)
            continue;
        if (place.item->getTransformParam() != place.transform)
            place.item->setTransformParam(place.transform);
        place.item->setPos(place.posPx);
    }
    m_places = {};
}

} // namespace studio
