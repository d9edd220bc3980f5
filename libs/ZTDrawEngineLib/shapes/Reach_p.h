#pragma once

#include <QtCore/QList>
#include <QtCore/QRectF>
#include <QtGui/QPolygonF>

#include <algorithm>
#include <cmath>

// Limit: how far a shape may reach, in millimetres or in pixels: far more than anything can mark
// or show. Beyond it, and where a coordinate is no number, there is nothing to draw.

constexpr double kMaxReach = 1e9;

/** False also for what is no number. */
inline bool isWithinReach(double coordinate) { return std::abs(coordinate) <= kMaxReach; }

inline bool isWithinReach(const QPointF &point)
{
    return isWithinReach(point.x()) && isWithinReach(point.y());
}

inline bool isWithinReach(const QRectF &rect)
{
    return isWithinReach(rect.topLeft()) && isWithinReach(rect.width()) &&
           isWithinReach(rect.height());
}

inline bool isWithinReach(const QPolygonF &polygon)
{
    return std::all_of(polygon.cbegin(), polygon.cend(),
                       [](const QPointF &point) { return isWithinReach(point); });
}

inline bool isWithinReach(const QList<QPolygonF> &polygons)
{
    return std::all_of(polygons.cbegin(), polygons.cend(),
                       [](const QPolygonF &polygon) { return isWithinReach(polygon); });
}
