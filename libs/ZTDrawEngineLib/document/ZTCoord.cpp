#include <ZTDrawEngineLib/document/ZTCoord.h>

template class ZTSingletonTemplate<ZTCoord>;

ZTCoord::ZTCoord() { setDistance(131070.0); }

double ZTCoord::getWidth() const { return width; }
void ZTCoord::setWidth(double newWidth) { width = newWidth; }
double ZTCoord::getHeight() const { return height; }
void ZTCoord::setHeight(double newHeight) { height = newHeight; }
double ZTCoord::getPhysicalWidth() const { return physicalWidth; }
void ZTCoord::setPhysicalWidth(double mm) { physicalWidth = mm; }
double ZTCoord::getPhysicalHeight() const { return physicalHeight; }
void ZTCoord::setPhysicalHeight(double mm) { physicalHeight = mm; }
double ZTCoord::getDisplayRatio() const { return displayRatio; }
void ZTCoord::setDisplayRatio(double ratio) { displayRatio = ratio; }
double ZTCoord::getDistance() const { return distance; }

void ZTCoord::setDistance(double distanceMark)
{
    distance = distanceMark;
    markRatio = distance / fieldUnits;
    speedRatio = distance / fieldExtent * 1000.0;
}

double ZTCoord::mm2pix(double mm) const { return height / physicalHeight * mm * displayRatio; }

double ZTCoord::pix2mm(double pix) const
{
    const double pixPerMm = mm2pix(1.0);
    return pixPerMm == 0.0 ? 1e-08 : pix / pixPerMm;
}

QTransform ZTCoord::getMm2pixTransform() const
{
    const double pixPerMm = mm2pix(1.0);
    return QTransform::fromScale(pixPerMm, pixPerMm);
}

QTransform ZTCoord::getPix2MmTransform() const
{
    const double pixPerMm = mm2pix(1.0);
    return QTransform::fromScale(1 / pixPerMm, 1 / pixPerMm);
}

double ZTCoord::speed2ratio(double v) const { return v / speedRatio; }

double ZTCoord::screen2mark() const
{
    return (1000.0 / markRatio) / (height / physicalHeight) / displayRatio;
}
