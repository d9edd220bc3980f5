#pragma once

#include <QtCore/QRandomGenerator>
#include <QtGui/QPainterPath>
#include <QtGui/QPolygonF>

namespace testsupport {

/** Outlines of many kinds for comparing hatches, equal for equal seeds on every machine. */
class RandomOutlines
{
public:
    explicit RandomOutlines(quint32 seed) : random(seed) {}

    enum Kind {
        Convex,
        ConcaveStar,
        SelfCrossing, ///< random corners
        Touching,     ///< corners on a coarse lattice, many of them shared
        Retraced,     ///< goes out and comes back the same way
        NearlyInLine, ///< turned sides, each of many pieces: rounding decides who meets whom
        Ring,         ///< two subpaths, one within the other
        Letters,      ///< many small subpaths
        Open,         ///< not closed, short ones too
        TinyGaps,     ///< corners that differ by about the tolerance of the hatch
        NotFinite,    ///< some corners are not numbers or infinite
        KindCount
    };

    /** An outline about 100 wide around the origin, times `scale`, moved by `offset`. */
    QPainterPath outline(Kind kind, double scale, const QPointF &offset);

    enum Large { LargeStar, LargeTangle, LargeLattice, LargeComb };

    /** A polygon of some hundred edges, about 100 wide around the origin. */
    QPolygonF large(Large kind);

    double between(double low, double high);
    int between(int low, int high); ///< both included
    bool chance(double share) { return between(0.0, 1.0) < share; }

private:
    QList<QPolygonF> polygons(Kind kind);
    QPolygonF convex(int corners, double radius);
    QPolygonF star(int spikes);
    QPolygonF lattice(int corners, int cells);
    QPolygonF scattered(int corners);
    QPolygonF comb(int teeth);
    QPolygonF retraced();
    QPolygonF nearlyInLine();
    QPolygonF withTinyGaps();

    QRandomGenerator random;
};

/** The same outline as a path of straight segments, one subpath a polygon. */
QPainterPath pathOf(const QList<QPolygonF> &polygons);

} // namespace testsupport
