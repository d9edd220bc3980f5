#pragma once

#include <QtCore/QRectF>
#include <QtGui/QPainterPath>

#include <cmath>

// Equality to the bit: the operators of Qt's classes take nearly equal ones for equal, and -0 for
// 0. What is no number is like nothing, itself included.

inline bool isExactly(double a, double b) { return a == b && std::signbit(a) == std::signbit(b); }

inline bool isExactly(const QRectF &a, const QRectF &b)
{
    return isExactly(a.x(), b.x()) && isExactly(a.y(), b.y()) && isExactly(a.width(), b.width()) &&
           isExactly(a.height(), b.height());
}

inline bool isExactly(const QPainterPath::Element &a, const QPainterPath::Element &b)
{
    return a.type == b.type && isExactly(a.x, b.x) && isExactly(a.y, b.y);
}

inline bool isExactly(const QPainterPath &a, const QPainterPath &b)
{
    if (a.elementCount() != b.elementCount() || a.fillRule() != b.fillRule())
        return false;
    for (int i = 0; i < a.elementCount(); ++i) {
        if (!isExactly(a.elementAt(i), b.elementAt(i)))
            return false;
    }
    return true;
}
