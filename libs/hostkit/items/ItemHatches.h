#pragma once

#include <hostkit/items/ItemExtras.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

namespace hostkit {

// The first hatch of a shape stands in the library's fill parameters, as far as they go: any host
// shows it. What they cannot say, and the further hatches, stand in the item's extras. The spacing
// and the angle of the first are always those of the fill parameters.

/** The hatches that fill parameters and extras come to together; none with `FillType::None`. */
QVector<ShapeHatch> hatchesOf(const ZTFillParam &fill, const ItemExtras &extras);

/** The hatches of an item, whoever draws them. */
QVector<ShapeHatch> hatchesOf(const ZTAbstractGraphicsItem &item);

/** Says hatches by fill parameters and extras. Range: up to `kMostHatches`, each in its range. */
void setHatches(const QVector<ShapeHatch> &hatches, ZTFillParam *fill, ItemExtras *extras);

/** A stretch of a shape's fill lines that belongs to one hatch, and to one pass of it. */
struct HatchLayer
{
    int hatch = 1;         ///< counted from 1
    qint32 pen = 1;        ///< never 0
    qint32 passes = 1;     ///< how often the stretch is marked, times the passes of the pen
    qint32 turn = 1;       ///< of a hatch that is turned: which pass the stretch is
    int firstLine = 0;     ///< among the shape's fill lines
    int lines = 0;         ///< how many, from `firstLine` on
    bool isOneWay = false; ///< every line in its own direction; otherwise to and fro
    HatchMoment moment = HatchMoment::Any; ///< before or after the outlines
};

/**
 * What a shape class implements beside the library's base if its `fill()` draws all hatches of its
 * item. Other classes draw the first alone.
 */
class LayeredHatch
{
public:
    virtual ~LayeredHatch();

    /** Which fill lines are whose, after `paint()`: all of them, in their order. */
    virtual QVector<HatchLayer> hatchLayers() const = 0;
};

/** The layers of an item's fill lines; one for all of them where the shape knows of no others. */
QVector<HatchLayer> hatchLayersOf(const ZTAbstractGraphicsItem &item);

} // namespace hostkit
