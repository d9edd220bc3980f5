#include <ZTDrawEngineLib/shx/ZTPathGlyphCallback.h>

#include <cmath>
#include <utility>

ZTPathGlyphCallback::ZTPathGlyphCallback() = default;
ZTPathGlyphCallback::ZTPathGlyphCallback(const ZTPathGlyphCallback &) = default;
ZTPathGlyphCallback::ZTPathGlyphCallback(ZTPathGlyphCallback &&) noexcept = default;
ZTPathGlyphCallback &ZTPathGlyphCallback::operator=(const ZTPathGlyphCallback &) = default;
ZTPathGlyphCallback &ZTPathGlyphCallback::operator=(ZTPathGlyphCallback &&) noexcept = default;
ZTPathGlyphCallback::~ZTPathGlyphCallback() = default;

const QVector<QPainterPath> &ZTPathGlyphCallback::getPath() const { return m_paths; }

void ZTPathGlyphCallback::glBegin() { m_firstPoint = true; }

void ZTPathGlyphCallback::glVertex2d(double x, double y)
{
    const double mirroredY = m_mirrorY - (y - m_mirrorY);
    if (!std::isfinite(x) || !std::isfinite(mirroredY))
        return;
    if (m_firstPoint) {
        m_firstPoint = false;
        m_path.moveTo(x, mirroredY);
    } else {
        m_path.lineTo(x, mirroredY);
    }
}

void ZTPathGlyphCallback::glEnd() {}

void ZTPathGlyphCallback::next()
{
    m_paths.append(std::move(m_path));
    m_path = QPainterPath();
}
