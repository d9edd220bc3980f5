#include <ZTDrawEngineLib/shapes/ZTShapeBase.h>

#include <ZTDrawEngineLib/document/ZTCoord.h>
#include <ZTDrawEngineLib/shapes/ZTShapeBase_p.h>

void ZTShapeBase::fill()
{
    const ZTFillParam &param = d->fillParam;
    if (param.fillType == FillType::None || qFuzzyCompare(param.spac, 0.0))
        return;
    fillULine(param.fillType, ZTCoord::getInstance()->mm2pix(param.spac), param.angle);
}

void ZTShapeBase::fillULine(FillType, double, double) { setFillLines({}); }

void ZTShapeBase::fillLine() {}
