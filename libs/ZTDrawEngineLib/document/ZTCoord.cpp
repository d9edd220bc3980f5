#include <ZTDrawEngineLib/document/ZTCoord.h>

template class ZTSingletonTemplate<ZTCoord>;

ZTCoord::ZTCoord() { setDistance(131070.0); }

double ZTCoord::getWidth() const { return m_width; }
void ZTCoord::setWidth(double newWidth) { m_width = newWidth; }
double ZTCoord::getHeight() const { return m_height; }
void ZTCoord::setHeight(double newHeight) { m_height = newHeight; }
double ZTCoord::getPhysicalWidth() const { return m_physicalWidth; }
void ZTCoord::setPhysicalWidth(double mm) { m_physicalWidth = mm; }
double ZTCoord::getPhysicalHeight() const { return m_physicalHeight; }
void ZTCoord::setPhysicalHeight(double mm) { m_physicalHeight = mm; }
double ZTCoord::getDisplayRatio() const { return m_displayRatio; }
void ZTCoord::setDisplayRatio(double ratio) { m_displayRatio = ratio; }
double ZTCoord::getDistance() const { return m_distance; }

void ZTCoord::setDistance(double distanceMark)
{
    m_distance = distanceMark;
    m_markRatio = m_distance / m_fieldUnits;
    m_speedRatio = m_distance / m_fieldExtent * 1000.0;
}

double ZTCoord::mm2pix(double mm) const
{
    return m_height / m_physicalHeight * mm * m_displayRatio;
}

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

double ZTCoord::speed2ratio(double v) const { return v / m_speedRatio; }

double ZTCoord::screen2mark() const
{
    return (1000.0 / m_markRatio) / (m_height / m_physicalHeight) / m_displayRatio;
}
