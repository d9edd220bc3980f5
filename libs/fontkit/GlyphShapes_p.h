#pragma once

#include <QtCore/QPointF>
#include <QtCore/QString>
#include <QtCore/QVector>

/** Strokes as characters are drawn of, and what is done with them. Frame: as in `RecipePiece`. */
namespace fontkit {

using Strokes = QVector<QVector<QPointF>>;

/** What strokes reach; all 0 for none. */
struct StrokeBox
{
    double left = 0.0;
    double right = 0.0;
    double bottom = 0.0;
    double top = 0.0;
};

StrokeBox boxOf(const Strokes &strokes);

QVector<QPointF> smoothCurve(const QVector<QPointF> &points);
QVector<QPointF> ellipse(const QPointF &middle, const QPointF &radii);
QVector<QPointF> diamond(const QPointF &middle);

/** Lines of a table: see `RecipePiece::arms`. */
Strokes boxLines(const QString &arms);

Strokes moved(Strokes strokes, const QPointF &by);
Strokes scaled(Strokes strokes, const QPointF &by);
Strokes flipped(Strokes strokes, double width);
Strokes quarterTurned(Strokes strokes, const QPointF &about); ///< clockwise

} // namespace fontkit
