#pragma once

#include <studio/commands/ItemGeometryCommand.h>
#include <studio/shapes/ShapeMeasures.h>

namespace studio {

/** Gives shapes other places and transforms. Undo and redo are exact, to the last bit. */
class PlacementCommand : public ItemGeometryCommand
{
public:
    /** `shapesInAll`: how many the scene has. */
    PlacementCommand(ZTGraphicsScene *scene, const QVector<Placement> &placements,
                     const QString &text, int shapesInAll);

protected:
    void change(ZTGraphicsScene &scene) override;

private:
    struct Place
    {
        QPointer<ShapeItem> item;
        QPointF posPx;
        QTransform transform;
    };

    QVector<Place> m_places; ///< empty once they are given
};

} // namespace studio
