#include <ZTDrawEngineLib/shapes/hatch/ScanLineLayout_p.h>

#include <ZTDrawEngineLib/shapes/hatch/HatchLimits_p.h>

#include <algorithm>
#include <cmath>

namespace zthatch {

namespace {

/** Scan lines reach this far beyond the square on every side, in scene pixels. */
constexpr double kMarginPx = 10.0;

/** Kept: pi to ten digits; full precision would move the ends of existing hatches. */
constexpr double kPi = 3.1415926535;

} // namespace

double normalisedAngle(double angleDeg)
{
    if (angleDeg < -90)
        angleDeg += 180;
    else if (angleDeg > 90)
        angleDeg -= 180;
    return angleDeg == 180.0 ? 0.0 : angleDeg;
}

ScanLineLayout::ScanLineLayout(const QRectF &boundsPx, double spacPx, double angleDeg)
    : m_centre(boundsPx.x() + boundsPx.width() / 2, boundsPx.y() + boundsPx.height() / 2)
{
    const double side = std::max(boundsPx.height(), boundsPx.width());
    const double diagonal = std::sqrt(side * side + side * side);
    // The ends lie 10 pixels beyond half the diagonal, so this much slack stays between them.
    m_covered = side / 2 + (1.0 + std::ldexp(side / 2, -20));
    m_left = (m_centre.x() - diagonal / 2) - kMarginPx;
    m_right = ((m_centre.x() - diagonal / 2) + diagonal) + kMarginPx;
    m_bottom = (m_centre.y() - diagonal / 2) - kMarginPx;
    m_isTurned = angleDeg != 0.0 && angleDeg != 360.0;
    if (m_isTurned) {
        const double radians = angleDeg * kPi / 180.0;
        m_cosine = std::cos(radians);
        m_sine = std::sin(radians);
    }
    layOut(spacPx, ((m_centre.y() - diagonal / 2) + diagonal) + kMarginPx);
}

void ScanLineLayout::layOut(double spac, double end)
{
    if (!(spac > 0.0) || !std::isfinite(spac)) {
        m_outcome = State::NoSpacing;
        return;
    }
    const double expected = (end - m_bottom) / spac;
    // An ordinate that grows at all grows by less than twice the spacing, so no need to count.
    if (expected > 3.0 * kMostScanLines) {
        m_outcome = m_bottom + spac == m_bottom ? State::TooFine : State::TooMany;
        return;
    }
    if (expected > 0.0)
        m_ordinates.reserve(static_cast<std::size_t>(expected) + 2);
    for (double y = m_bottom; y < end; y += spac) {
        if (y + spac == y)
            m_outcome = State::TooFine;
        else if (count() == kMostScanLines)
            m_outcome = State::TooMany;
        if (m_outcome != State::Complete) {
            m_ordinates = {};
            return;
        }
        m_ordinates.push_back(y);
    }
}

QPointF ScanLineLayout::turned(double x, double y) const
{
    if (!m_isTurned)
        return {x, y};
    const double dx = x - m_centre.x();
    const double dy = y - m_centre.y();
    return {dx * m_cosine - dy * m_sine + m_centre.x(), dx * m_sine + dy * m_cosine + m_centre.y()};
}

QLineF ScanLineLayout::scanLine(int number) const
{
    const double y = m_ordinates[static_cast<std::size_t>(number)];
    return {turned(m_left, y), turned(m_right, y)};
}

double ScanLineLayout::magnitude() const
{
    return std::fabs(m_centre.x()) + std::fabs(m_centre.y()) + (m_right - m_left);
}

bool ScanLineLayout::isSteady() const
{
    return magnitude() < 1e100 && std::isfinite(m_cosine) &&
           magnitude() <= std::ldexp(m_right - m_left, 37);
}

} // namespace zthatch
