#include <ZTDrawEngineLib/shapes/ZTShapeBase.h>

#include <ZTDrawEngineLib/document/ZTCoord.h>
#include <ZTDrawEngineLib/shapes/ZTShapeBase_p.h>
#include <ZTDrawEngineLib/shapes/hatch/LateHatch_p.h>

#include <vector>

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
    const QPainterPath &outline = getLines();
    const bool isNew = m_d->fillLines.set(zthatch::HatchOrder{outline, type, spac, angle});
    // Painted as before, the shape need not keep a second outline beside that of its hatch.
    if (!isNew && &outline == &m_d->lines)
        m_d->lines = *m_d->fillLines.outline();
}

// What is looked at is a copy that shares its lines: the shapes themselves, some of which are of a
// host's own making, are asked for nothing in other threads.
void ZTShapeBase::layOutHatches(const QVector<const ZTShapeBase *> &shapes, int budgetMs)
{
    std::vector<zthatch::LateHatch> waiting;
    for (const ZTShapeBase *shape : shapes) {
        const bool isUpToDate = shape != nullptr && shape->m_d->update == 0;
        if (isUpToDate && shape->m_d->fillLines.isWaiting())
            waiting.push_back(shape->m_d->fillLines);
    }
    zthatch::lookTogether(waiting, budgetMs);
}
