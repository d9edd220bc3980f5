#include <hostkit/items/ItemHatches.h>

namespace hostkit {

namespace {

bool isOfFillParam(const ShapeHatch &hatch)
{
    return isPlain(hatch) && hatch.pen == 0 && hatch.passes == 1 &&
           hatch.moment == HatchMoment::Any;
}

} // namespace

LayeredHatch::~LayeredHatch() = default;

QVector<ShapeHatch> hatchesOf(const ZTFillParam &fill, const ItemExtras &extras)
{
    if (fill.fillType == FillType::None)
        return {};
    QVector<ShapeHatch> hatches = extras.hatches;
    if (hatches.isEmpty())
        hatches.append(ShapeHatch());
    ShapeHatch &first = hatches.first();
    // Somebody who knows of the fill parameters alone may have changed them since.
    const bool isLines = first.kind == HatchKind::Lines || first.kind == HatchKind::Zigzag;
    if (fill.fillType == FillType::ULine)
        first.kind = HatchKind::Zigzag;
    else if (isLines)
        first.kind = HatchKind::Lines;
    first.spacingMm = fill.spac;
    first.angleDeg = 0.0 - fill.angle; // the record counts clockwise
    return hatches;
}

QVector<ShapeHatch> hatchesOf(const ZTAbstractGraphicsItem &item)
{
    return hatchesOf(item.getFillParam(), itemExtras(item));
}

void setHatches(const QVector<ShapeHatch> &hatches, ZTFillParam *fill, ItemExtras *extras)
{
    extras->hatches.clear();
    if (hatches.isEmpty()) {
        fill->fillType = FillType::None;
        return;
    }
    const ShapeHatch &first = hatches.first();
    fill->fillType = first.kind == HatchKind::Zigzag ? FillType::ULine : FillType::Line;
    fill->spac = first.spacingMm;
    fill->angle = 0.0 - first.angleDeg;
    if (hatches.size() == 1 && isOfFillParam(first))
        return;
    extras->hatches = hatches;
    // Said by the fill parameters, whatever is there.
    extras->hatches.first().spacingMm = ShapeHatch().spacingMm;
    extras->hatches.first().angleDeg = ShapeHatch().angleDeg;
}

QVector<HatchLayer> hatchLayersOf(const ZTAbstractGraphicsItem &item)
{
    ZTShapeBase *shape = item.getShapeBase();
    if (shape == nullptr || shape->getFillParam().fillType == FillType::None)
        return {};
    const int lines = shape->getFillLines().size();
    if (const auto *layered = dynamic_cast<const LayeredHatch *>(shape)) {
        const QVector<HatchLayer> layers = layered->hatchLayers();
        if (!layers.isEmpty())
            return layers;
    }
    HatchLayer all;
    all.pen = shape->getPenId();
    all.lines = lines;
    return {all};
}

} // namespace hostkit
