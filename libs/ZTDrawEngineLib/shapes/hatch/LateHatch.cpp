#include <ZTDrawEngineLib/shapes/hatch/LateHatch_p.h>

#include <ZTDrawEngineLib/shapes/hatch/HatchFill_p.h>
#include <ZTDrawEngineLib/shapes/hatch/HatchLimits_p.h>

#include <QtCore/QRectF>
#include <QtCore/QtGlobal>

#include <cmath>
#include <mutex>

namespace zthatch {

namespace {

/**
 * Limit: scan lines times edges, below what a hatch is refused for. An edge meets a scan line once
 * at most, two meetings make a line, and a line has one joint.
 */
constexpr double kMostMeetingsLater = 10000000.0;

/** More than scan lines reach beyond an outline. */
constexpr double kMarginPx = 40.0;

/** Limit: share of the farthest ordinate that a spacing must reach to be added to it in full. */
constexpr double kLeastSpacingShare = 1e-6;

double farthestOrdinate(const QRectF &rectPx)
{
    return std::abs(rectPx.left()) + std::abs(rectPx.right()) + std::abs(rectPx.top()) +
           std::abs(rectPx.bottom()) + kMarginPx;
}

/** Whether no limit of the hatch can meet the order, so that it has no warning to tell. */
bool isSurelyGranted(const HatchOrder &order)
{
    const QRectF rectPx = order.outline.controlPointRect();
    if (!std::isfinite(order.spac) || order.spac <= 0.0 || !std::isfinite(order.angleDeg))
        return false;
    if (!(order.spac > kLeastSpacingShare * farthestOrdinate(rectPx)))
        return false;
    const double mostScanLines =
        (2.0 * (rectPx.width() + rectPx.height()) + kMarginPx) / order.spac;
    return mostScanLines <= kMostScanLines &&
           mostScanLines * order.outline.elementCount() <= kMostMeetingsLater;
}

QVector<QLineF> laidOut(const HatchOrder &order)
{
    return hatchLines(order.outline, order.type, order.spac, order.angleDeg);
}

} // namespace

/** An order, and its lines once they were looked at. */
class LateHatch::Layout
{
public:
    explicit Layout(const HatchOrder &order) : m_order(order) {}

    const QVector<QLineF> &lines()
    {
        std::call_once(m_once, [this] {
            m_lines = laidOut(m_order);
            m_order.outline = QPainterPath();
        });
        return m_lines;
    }

private:
    std::once_flag m_once;
    HatchOrder m_order;
    QVector<QLineF> m_lines;
};

void LateHatch::set(const QVector<QLineF> &lines)
{
    m_lines = lines;
    m_layout.reset();
}

void LateHatch::set(const HatchOrder &order)
{
    if (!isSurelyGranted(order)) {
        set(laidOut(order));
        return;
    }
    m_layout = std::make_shared<Layout>(order);
    m_lines = {};
}

const QVector<QLineF> &LateHatch::lines() const
{
    return m_layout != nullptr ? m_layout->lines() : m_lines;
}

} // namespace zthatch
