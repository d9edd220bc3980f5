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
    : centre(boundsPx.x() + boundsPx.width() / 2, boundsPx.y() + boundsPx.height() / 2)
{
    const double side = std::max(boundsPx.height(), boundsPx.width());
    const double diagonal = std::sqrt(side * side + side * side);
    reach = side / 2;
    left = (centre.x() - diagonal / 2) - kMarginPx;
    right = ((centre.x() - diagonal / 2) + diagonal) + kMarginPx;
    bottom = (centre.y() - diagonal / 2) - kMarginPx;
    isTurned = angleDeg != 0.0 && angleDeg != 360.0;
    if (isTurned) {
        const double radians = angleDeg * kPi / 180.0;
        cosine = std::cos(radians);
        sine = std::sin(radians);
    }
    layOut(spacPx, ((centre.y() - diagonal / 2) + diagonal) + kMarginPx);
}

void ScanLineLayout::layOut(double spac, double end)
{
    if (!(spac > 0.0) || !std::isfinite(spac)) {
        outcome = State::NoSpacing;
        return;
    }
    const double expected = (end - bottom) / spac;
    // An ordinate that grows at all grows by less than twice the spacing, so no need to count.
    if (expected > 3.0 * kMostScanLines) {
        outcome = bottom + spac == bottom ? State::TooFine : State::TooMany;
        return;
    }
    if (expected > 0.0)
        ordinates.reserve(static_cast<std::size_t>(expected) + 2);
    for (double y = bottom; y < end; y += spac) {
        if (y + spac == y)
            outcome = State::TooFine;
        else if (count() == kMostScanLines)
            outcome = State::TooMany;
        if (outcome != State::Complete) {
            ordinates = {};
            return;
        }
        ordinates.push_back(y);
    }
}

QPointF ScanLineLayout::turned(double x, double y) const
{
    if (!isTurned)
        return {x, y};
    const double dx = x - centre.x();
    const double dy = y - centre.y();
    return {dx * cosine - dy * sine + centre.x(), dx * sine + dy * cosine + centre.y()};
}

QLineF ScanLineLayout::scanLine(int number) const
{
    const double y = ordinates[static_cast<std::size_t>(number)];
    return {turned(left, y), turned(right, y)};
}

double ScanLineLayout::levelOf(const QPointF &point) const
{
    if (!isTurned)
        return point.y();
    return (point.y() - centre.y()) * cosine - (point.x() - centre.x()) * sine + centre.y();
}

double ScanLineLayout::magnitude() const
{
    return std::fabs(centre.x()) + std::fabs(centre.y()) + (right - left);
}

bool ScanLineLayout::covers(const QPointF &point) const
{
    // The ends lie 10 pixels beyond half the diagonal, so this much slack stays between them.
    const double slack = 1.0 + std::ldexp(reach, -20);
    return std::fabs(point.x() - centre.x()) <= reach + slack &&
           std::fabs(point.y() - centre.y()) <= reach + slack;
}

bool ScanLineLayout::isSteady() const
{
    return magnitude() < 1e100 && std::isfinite(cosine) &&
           magnitude() <= std::ldexp(right - left, 37);
}

} // namespace zthatch
