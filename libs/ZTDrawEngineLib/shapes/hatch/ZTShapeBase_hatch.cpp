#include <ZTDrawEngineLib/shapes/ZTShapeBase.h>

#include <ZTDrawEngineLib/document/ZTCoord.h>
#include <ZTDrawEngineLib/shapes/ZTShapeBase_p.h>
#include <ZTDrawEngineLib/shapes/hatch/LateHatch_p.h>

void ZTShapeBase::fill()
{
    const ZTFillParam &param = m_d->fillParam;
    if (param.fillType == FillType::None || qFuzzyCompare(param.spac, 0.0))
        return;
    // Kept: the spacing is converted as it stands, also one that the property grid has converted
    // before; existing drawings hold spacings of both kinds.
    fillULine(param.fillType, ZTCoord::getInstance()->mm2pix(param.spac), param.angle);
}

void ZTShapeBase::fillULine(FillType type, double spac, double angle)
{
    m_d->fillLines.set(zthatch::HatchOrder{getLines(), type, spac, angle});
}
