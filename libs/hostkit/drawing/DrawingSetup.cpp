#include <hostkit/drawing/DrawingSetup.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <cmath>
#include <tuple>

namespace hostkit {

namespace {

auto fieldsOf(const DrawingSetup &s)
{
    return std::tie(s.width, s.height, s.physicalWidth, s.physicalHeight, s.displayRatio,
                    s.distance, s.sortKind, s.workAreaMm, s.markScaleX, s.markScaleY,
                    s.curveToleranceMm);
}

bool isScale(double factor)
{
    constexpr double kLargest = 1e6;
    return std::abs(factor) >= 1.0 / kLargest && std::abs(factor) <= kLargest;
}

} // namespace

bool DrawingSetup::isUsable() const
{
    const double pxPerMm = height / physicalHeight * displayRatio;
    const double others = width + physicalWidth + double(markScaleX) + double(markScaleY);
    return isScale(pxPerMm) && isScale(distance) && std::isfinite(others);
}

DrawingSetup DrawingSetup::of(const ZTGraphicsDocument &document)
{
    const ZTCoord &coord = *ZTCoord::getInstance();
    DrawingSetup setup;
    setup.width = coord.getWidth();
    setup.height = coord.getHeight();
    setup.physicalWidth = coord.getPhysicalWidth();
    setup.physicalHeight = coord.getPhysicalHeight();
    setup.displayRatio = coord.getDisplayRatio();
    setup.distance = coord.getDistance();
    setup.curveToleranceMm = ZTCurveTolerance::toleranceMm();
    setup.sortKind = ZTPointSort::getInstance()->getShapeMarkSort();
    setup.workAreaMm = document.view()->getWorkArea();
    std::tie(setup.markScaleX, setup.markScaleY) = document.itemMag()->getScale();
    return setup;
}

void DrawingSetup::applyToProcess() const
{
    ZTCoord &coord = *ZTCoord::getInstance();
    coord.setWidth(width);
    coord.setHeight(height);
    coord.setPhysicalWidth(physicalWidth);
    coord.setPhysicalHeight(physicalHeight);
    coord.setDisplayRatio(displayRatio);
    coord.setDistance(distance);
    ZTCurveTolerance::setToleranceMm(curveToleranceMm);
    ZTPointSort::getInstance()->setShapeMarkSort(sortKind);
}

void DrawingSetup::applyTo(ZTGraphicsDocument &document) const
{
    applyToProcess();
    document.view()->setWorkArea(workAreaMm);
    document.itemMag()->setScale(markScaleX, markScaleY);
}

bool operator==(const DrawingSetup &a, const DrawingSetup &b) { return fieldsOf(a) == fieldsOf(b); }

bool operator!=(const DrawingSetup &a, const DrawingSetup &b) { return !(a == b); }

} // namespace hostkit
