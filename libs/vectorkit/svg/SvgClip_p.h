#pragma once

#include <vectorkit/VectorPath.h>

namespace vectorkit {

/**
 * What may be seen of a drawing: the inside of closed outlines, in millimetres.
 *
 * Kept as areas that do not overlap, within 0.002 mm of curves.
 */
class SvgClip
{
public:
    /** Everything inside these outlines is seen; open ones count as closed. */
    void add(const QVector<VectorPath> &outlines, Qt::FillRule rule);

    /** Nothing but what is also inside `other` is seen. */
    void intersect(const SvgClip &other);

    enum class Cover : quint8 { Whole, Part, None };

    /** How much of a box is seen; `Part` where a box alone cannot tell. */
    Cover coverOf(const QRectF &boxMm) const;

    /** The parts of lines that are seen; curves become straight pieces. */
    QVector<VectorPath> lines(const QVector<VectorPath> &paths) const;

    /** The part of an area that is seen, as closed outlines to fill by even-odd. */
    QVector<VectorPath> area(const QVector<VectorPath> &outlines, Qt::FillRule rule) const;

private:
    QVector<QPolygonF> m_polygons;
    QRectF m_bounds;
    bool m_isRectangle = false;

    void settle();
};

} // namespace vectorkit
