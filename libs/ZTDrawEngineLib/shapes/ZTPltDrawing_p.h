#pragma once

#include <ZTDrawEngineLib/common/ZTDrawEngineGlobal.h>

#include <QtCore/QPoint>
#include <QtCore/QRectF>
#include <QtGui/QPainterPath>

#include <vector>

struct PltLine;

/**
 * The polylines of a plotter file while it is read, in plotter units, y upward.
 *
 * Holds what a `QPainterPath` of the same polylines would hold: a polyline of one point gives way
 * to the next one, and a last one of one point is not drawn but counts in the extent.
 */
class ZTDRAWENGINELIB_PRIVATE_EXPORT ZTPltDrawing
{
public:
    /** Limit: more points than any plotter drawing has, and no more than a path can hold. */
    static constexpr std::size_t kMaxPoints = 50'000'000;

    explicit ZTPltDrawing(std::size_t limit = kMaxPoints) : m_maxPoints(limit) {}

    /** Follows one line of the file. Returns false, and changes nothing, at the limit. */
    bool add(const PltLine &line);

    /** Whether there is no polyline of two points; they may be equal. */
    bool isEmpty() const { return m_points.size() < 2; }

    /** Around all points, a last polyline of one point included; null when there is none. */
    QRectF extent() const;

    /** Polylines of two points or more. */
    int polylineCount() const;

    /**
     * The drawing 20 high in its own proportions, left edge at x = 0, y from 0 downward to 20.
     * A drawing of height 0 cannot be made so: it gives an empty path.
     */
    QPainterPath normalised() const;

private:
    void startPolyline(const QPoint &point);

    /** Whether the last polyline is a single point, which draws nothing. */
    std::size_t drawnCount() const;
    std::size_t endOf(std::size_t polyline) const;

    bool endsInSinglePoint() const
    {
        return !m_starts.empty() && m_starts.back() + 1 == m_points.size();
    }

    std::size_t m_maxPoints;
    std::vector<QPoint> m_points;
    std::vector<std::size_t> m_starts; ///< index of each polyline's first point
    bool m_isOpen = false;             ///< the next point continues the last polyline
};
