#pragma once

#include <QtCore/QLineF>
#include <QtCore/QPointF>
#include <QtCore/QRectF>

#include <cmath>
#include <vector>

namespace zthatch {

/** Direction of a hatch, brought once towards -90 to 90 degrees; 180 is 0. */
double normalisedAngle(double angleDeg);

/**
 * Parallel scan lines over a rectangle, wide enough to cover it at any angle.
 *
 * The lines are laid out level, in the square over the diagonal of the longer side, and turned
 * about the rectangle's centre.
 */
class ScanLineLayout
{
public:
    enum class State {
        Complete,
        NoSpacing, ///< the spacing is not a positive finite number
        TooFine,   ///< the ordinate no longer grows by the spacing
        TooMany    ///< more than `kMostScanLines`
    };

    /** A layout that is not complete has no scan lines. `angleDeg` is normalised already. */
    ScanLineLayout(const QRectF &boundsPx, double spacPx, double angleDeg);

    State state() const { return m_outcome; }
    int count() const { return static_cast<int>(m_ordinates.size()); }

    /** Scan line from its left to its right end. */
    QLineF scanLine(int number) const;

    /** Ordinates of the scan lines before they are turned, growing. */
    const std::vector<double> &levels() const { return m_ordinates; }

    /** Ordinate that a point has when the turn is undone, up to rounding. */
    double levelOf(const QPointF &point) const
    {
        if (!m_isTurned)
            return point.y();
        return (point.y() - m_centre.y()) * m_cosine - (point.x() - m_centre.x()) * m_sine +
               m_centre.y();
    }

    /**
     * Largest size of a coordinate that the layout computes with, for rounding errors to be
     * measured by.
     */
    double magnitude() const;

    /** Whether a point lies beside all scan lines, between their left and right ends. */
    bool covers(const QPointF &point) const
    {
        return std::fabs(point.x() - m_centre.x()) <= m_covered &&
               std::fabs(point.y() - m_centre.y()) <= m_covered;
    }

    /** Whether the scan lines are so long that rounding does not change their direction. */
    bool isSteady() const;

private:
    void layOut(double spac, double end);
    QPointF turned(double x, double y) const;

    QPointF m_centre;
    double m_covered = 0.0; ///< from the centre, along x and y: beside all scan lines
    double m_left = 0.0;
    double m_right = 0.0;
    double m_bottom = 0.0;
    double m_cosine = 1.0;
    double m_sine = 0.0;
    bool m_isTurned = false;
    std::vector<double> m_ordinates;
    State m_outcome = State::Complete;
};

} // namespace zthatch
