#include <ZTDrawEngineLib/shapes/hatch/LateHatch_p.h>

#include <ZTDrawEngineLib/common/Exactly_p.h>
#include <ZTDrawEngineLib/shapes/hatch/HatchFill_p.h>
#include <ZTDrawEngineLib/shapes/hatch/HatchLimits_p.h>

#include <QtCore/QRectF>
#include <QtCore/QtGlobal>

#include <atomic>
#include <cmath>
#include <mutex>
#include <utility>

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

bool isSame(const HatchOrder &a, const HatchOrder &b)
{
    return a.type == b.type && isExactly(a.spac, b.spac) && isExactly(a.angleDeg, b.angleDeg) &&
           isExactly(a.outline, b.outline);
}

} // namespace

/** An order, and its lines once they were looked at. */
class LateHatch::Layout
{
public:
    explicit Layout(const HatchOrder &order) : m_order(order)
    {
        s_waiting.fetch_add(1, std::memory_order_relaxed);
    }

    ~Layout()
    {
        if (isWaiting())
            s_waiting.fetch_sub(1, std::memory_order_relaxed);
    }

    Layout(const Layout &) = delete;
    Layout &operator=(const Layout &) = delete;

    const QVector<QLineF> &lines()
    {
        std::call_once(m_once, [this] {
            m_lines = laidOut(m_order);
            m_isWaiting = false;
            s_waiting.fetch_sub(1, std::memory_order_relaxed);
        });
        return m_lines;
    }

    bool isOf(const HatchOrder &order) const { return isSame(m_order, order); }
    const QPainterPath &outline() const { return m_order.outline; }
    bool isWaiting() const { return m_isWaiting; }
    static int waitingCount() { return s_waiting; }

private:
    inline static std::atomic<int> s_waiting{0};

    std::once_flag m_once;
    const HatchOrder m_order;
    QVector<QLineF> m_lines;
    std::atomic<bool> m_isWaiting{true};
};

void LateHatch::set(const QVector<QLineF> &lines)
{
    m_lines = lines;
    m_layout.reset();
}

bool LateHatch::set(const HatchOrder &order)
{
    if (m_layout != nullptr && m_layout->isOf(order))
        return false;
    auto layout = std::make_shared<Layout>(order);
    // One without lines may have told why there are none, and is to tell it again next time.
    if (!isSurelyGranted(order) && layout->lines().isEmpty())
        layout.reset();
    m_layout = std::move(layout);
    m_lines = {};
    return true;
}

const QPainterPath *LateHatch::outline() const
{
    return m_layout != nullptr ? &m_layout->outline() : nullptr;
}

const QVector<QLineF> &LateHatch::lines() const
{
    return m_layout != nullptr ? m_layout->lines() : m_lines;
}

bool LateHatch::isWaiting() const { return m_layout != nullptr && m_layout->isWaiting(); }

int LateHatch::waitingCount() { return Layout::waitingCount(); }

} // namespace zthatch
