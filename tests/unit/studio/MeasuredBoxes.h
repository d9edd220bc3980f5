#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QRectF>

#include <cmath>

/** Scene pixels of a length in mm, by the figures that the library starts with. */
inline double px(double mm) { return mm * 900.0 / 193.0; }

/** A box as a failing test tells it. */
inline QByteArray told(const QRectF &rect)
{
    return QStringLiteral("%1 %2 %3 x %4")
        .arg(rect.x(), 0, 'g', 12)
        .arg(rect.y(), 0, 'g', 12)
        .arg(rect.width(), 0, 'g', 12)
        .arg(rect.height(), 0, 'g', 12)
        .toLocal8Bit();
}

inline bool isNear(const QRectF &a, const QRectF &b, double by)
{
    return std::abs(a.x() - b.x()) <= by && std::abs(a.y() - b.y()) <= by &&
           std::abs(a.width() - b.width()) <= by && std::abs(a.height() - b.height()) <= by;
}
