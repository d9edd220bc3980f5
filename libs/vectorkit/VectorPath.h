#pragma once

#include <QtCore/QMetaType>
#include <QtCore/QPointF>
#include <QtCore/QRectF>
#include <QtCore/QVector>
#include <QtGui/QColor>
#include <QtGui/QTransform>

QT_BEGIN_NAMESPACE
class QPainterPath;
class QPolygonF;
QT_END_NAMESPACE

namespace vectorkit {

/** What one piece of a path is. The values are written nowhere. */
enum class PieceKind : quint8 { Line, Cubic, Arc };

/**
 * One run of pieces without a jump: straight lines, cubic curves and exact arcs of circles, each
 * beginning where the last one ended.
 *
 * Frame: millimetres, x to the right, y down, as on the screen.
 */
class VectorPath
{
public:
    VectorPath() = default;
    explicit VectorPath(const QPointF &startMm) : m_points{startMm} {}

    /** A straight run through these points; fewer than two give an empty path. */
    static VectorPath polyline(const QVector<QPointF> &pointsMm, bool closed = false);

    /** A whole circle, run counter-clockwise on the screen from three o'clock. */
    static VectorPath circle(const QPointF &centreMm, double radiusMm);

    /** Adds a straight line, from where the path stands. */
    void lineTo(const QPointF &endMm);

    /** Adds a cubic curve, from where the path stands. */
    void cubicTo(const QPointF &control1Mm, const QPointF &control2Mm, const QPointF &endMm);

    /**
     * An arc about a centre, from where the path stands.
     *
     * Range: `sweepDeg` other than 0; positive runs counter-clockwise on the screen; 360 or more in
     * size is a whole circle, once.
     */
    void arcAbout(const QPointF &centreMm, double sweepDeg);

    /** The same to an end that is known to the last bit; it is the caller's to be on the circle. */
    void arcTo(const QPointF &centreMm, double sweepDeg, const QPointF &endMm);

    /** Moves the end of the last line or curve; from an arc, a line leads there. */
    void setEnd(const QPointF &endMm);

    /** Joins the end to the start; a straight line is added when they differ. */
    void close();

    /** The same; an end at most this far from the start is put onto it. */
    void close(double withinMm);

    /** Whether it has no piece; a start alone is none. */
    bool isEmpty() const { return pieceCount() == 0; }

    /** Whether it was closed: its end is its start. */
    bool isClosed() const { return m_closed; }

    /** Whether all its pieces are straight. */
    bool isPolyline() const { return m_kinds.isEmpty(); }

    /** How many lines, curves and arcs it has; the one that closed it counts. */
    int pieceCount() const;

    /** Where it begins, millimetres; (0, 0) of a path without a start. */
    QPointF start() const { return m_points.isEmpty() ? QPointF() : m_points.first(); }

    /** Where its last piece ends, millimetres; its start where it has none. */
    QPointF end() const;

    /** The points of a path of straight pieces alone; empty for any other. */
    const QVector<QPointF> &polylinePoints() const;

    /** One piece, for a walk over the path. */
    struct Piece
    {
        PieceKind kind = PieceKind::Line;
        QPointF from;
        QPointF to;
        QPointF control1;      ///< Cubic: first control point; Arc: the centre
        QPointF control2;      ///< Cubic: second control point
        double sweepDeg = 0.0; ///< Arc alone; positive is counter-clockwise on the screen
    };

    /** Adds another path's pieces; its first one begins where this path stands. */
    void append(const VectorPath &other);

    /** Whether both have the same pieces, bit for bit. */
    bool operator==(const VectorPath &other) const;
    bool operator!=(const VectorPath &other) const { return !(*this == other); }

    /** Calls `visit(const Piece &)` for each piece in order. */
    template <class Visit>
    void forEach(Visit visit) const;

    /** Points on the path no farther than `toleranceMm` (greater than 0) from it, ends included. */
    QPolygonF flattened(double toleranceMm) const;

    /** Box of the true curves, not of their control points. */
    QRectF boundsMm() const;

    /** Length of lines and arcs exactly, of curves within a millionth. */
    double lengthMm() const;

    /** The same path run the other way round. */
    VectorPath reversed() const;

    /** Moved, scaled, turned. Arcs stay arcs under a similarity and become cubics under any other.
     */
    VectorPath transformed(const QTransform &transform) const;

    /** Curves as Qt knows them: arcs as cubics. */
    void addTo(QPainterPath *path) const;

private:
    void needKinds();

    QVector<QPointF>
        m_points; ///< start, then 1 point a line, 3 a cubic, 3 an arc (centre, sweep in x, end)
    QVector<PieceKind> m_kinds; ///< empty while all pieces are lines
    bool m_closed = false;
};

template <class Visit>
void VectorPath::forEach(Visit visit) const
{
    if (m_points.isEmpty())
        return;
    Piece piece;
    piece.to = m_points.first();
    int at = 1;
    for (int index = 0; at < m_points.size(); ++index) {
        piece.from = piece.to;
        piece.kind = m_kinds.isEmpty() ? PieceKind::Line : m_kinds[index];
        if (piece.kind == PieceKind::Line) {
            piece.to = m_points[at++];
        } else {
            piece.control1 = m_points[at];
            if (piece.kind == PieceKind::Cubic)
                piece.control2 = m_points[at + 1];
            else
                piece.sweepDeg = m_points[at + 1].x();
            piece.to = m_points[at + 2];
            at += 3;
        }
        visit(static_cast<const Piece &>(piece));
    }
}

} // namespace vectorkit

Q_DECLARE_TYPEINFO(vectorkit::VectorPath, Q_MOVABLE_TYPE);
