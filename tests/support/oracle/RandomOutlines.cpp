#include <support/oracle/RandomOutlines.h>

#include <QtCore/QtMath>
#include <QtGui/QTransform>

#include <cmath>
#include <limits>

namespace testsupport {

namespace {

QPointF onCircle(double radius, double turn)
{
    return {radius * std::cos(2 * M_PI * turn), radius * std::sin(2 * M_PI * turn)};
}

QPolygonF closed(QPolygonF polygon)
{
    polygon.append(polygon.first());
    return polygon;
}

} // namespace

double RandomOutlines::between(double low, double high)
{
    return low + (high - low) * random.generateDouble();
}

int RandomOutlines::between(int low, int high)
{
    return low + static_cast<int>(random.bounded(static_cast<quint32>(high - low + 1)));
}

QPolygonF RandomOutlines::convex(int corners, double radius)
{
    const double start = between(0.0, 1.0);
    const double squeeze = between(0.2, 1.0);
    QPolygonF polygon;
    for (int i = 0; i < corners; ++i) {
        const QPointF point = onCircle(radius, start + double(i) / corners);
        polygon.append({point.x(), point.y() * squeeze});
    }
    return closed(polygon);
}

QPolygonF RandomOutlines::star(int spikes)
{
    const double inner = between(5.0, 45.0);
    const double start = chance(0.5) ? 0.0 : between(0.0, 1.0);
    QPolygonF polygon;
    for (int i = 0; i < 2 * spikes; ++i)
        polygon.append(onCircle(i % 2 ? inner : between(30.0, 50.0), start + i / (2.0 * spikes)));
    return closed(polygon);
}

QPolygonF RandomOutlines::lattice(int corners, int cells)
{
    QPolygonF polygon;
    const double step = 100.0 / cells;
    for (int i = 0; i < corners; ++i)
        polygon.append({between(0, cells) * step - 50.0, between(0, cells) * step - 50.0});
    return closed(polygon);
}

QPolygonF RandomOutlines::scattered(int corners)
{
    QPolygonF polygon;
    for (int i = 0; i < corners; ++i)
        polygon.append({between(-50.0, 50.0), between(-50.0, 50.0)});
    return closed(polygon);
}

/** Turned a little, so that its many sides are nearly but not quite parallel or in line. */
QPolygonF RandomOutlines::comb(int teeth)
{
    QPolygonF polygon;
    for (int i = 0; i < teeth; ++i) {
        const double x = i * 100.0 / teeth - 50.0;
        const double half = 50.0 / teeth;
        for (const QPointF &point : {QPointF(x, -50.0), QPointF(x + half, -50.0),
                                     QPointF(x + half, 40.0), QPointF(x + 2 * half, 40.0)})
            polygon.append(point);
    }
    polygon.append({50.0, 50.0});
    polygon.append({-50.0, 50.0});
    return QTransform().rotate(between(-90.0, 90.0)).map(closed(polygon));
}

QPolygonF RandomOutlines::large(Large kind)
{
    switch (kind) {
    case LargeStar:
        return star(between(100, 250));
    case LargeTangle:
        return scattered(between(60, 150));
    case LargeLattice:
        return lattice(between(60, 150), between(5, 20));
    default:
        return comb(between(40, 90));
    }
}

QPolygonF RandomOutlines::retraced()
{
    QPolygonF polygon = chance(0.5) ? lattice(between(2, 8), 6) : scattered(between(2, 8));
    const int from = between(0, polygon.size() - 1);
    for (int i = polygon.size() - 2; i >= from; --i)
        polygon.append(polygon[i]);
    return closed(polygon);
}

QPolygonF RandomOutlines::nearlyInLine()
{
    const QPolygonF sides = chance(0.5) ? convex(between(3, 5), 50.0) : scattered(between(3, 6));
    QPolygonF polygon;
    for (int i = 0; i + 1 < sides.size(); ++i) {
        const int pieces = between(1, 12);
        for (int j = 0; j < pieces; ++j)
            polygon.append(sides[i] + (sides[i + 1] - sides[i]) * (double(j) / pieces));
        if (chance(0.3)) // a step aside and back onto the same line
            polygon.append({between(-50.0, 50.0), between(-50.0, 50.0)});
    }
    return closed(polygon);
}

QPolygonF RandomOutlines::withTinyGaps()
{
    QPolygonF polygon = lattice(between(3, 20), between(1, 3));
    for (QPointF &point : polygon) {
        point *= 1.0 / 64; // fine enough for the gaps not to be rounded away
        point += QPointF(between(-2, 2) * 4e-13, between(-2, 2) * 4e-13);
    }
    return chance(0.5) ? closed(polygon) : polygon;
}

QList<QPolygonF> RandomOutlines::polygons(Kind kind)
{
    QList<QPolygonF> list;
    switch (kind) {
    case Convex:
        return {convex(between(3, 40), 50.0)};
    case ConcaveStar:
        return {star(between(2, 30))};
    case SelfCrossing:
        return {scattered(between(3, 60))};
    case Touching:
        for (int i = between(1, 3); i > 0; --i)
            list.append(lattice(between(3, 40), between(1, 10)));
        return list;
    case Retraced:
        return {retraced()};
    case NearlyInLine:
        return {nearlyInLine()};
    case Ring:
        return {convex(between(3, 30), 50.0), convex(between(3, 30), between(2.0, 30.0))};
    case Letters:
        for (int i = between(2, 12); i > 0; --i) {
            const QPointF at(between(-4, 4) * 10.0, between(-4, 4) * 10.0);
            list.append(convex(between(3, 12), between(2.0, 8.0)).translated(at));
        }
        return list;
    case Open:
        for (int i = between(1, 5); i > 0; --i) {
            list.append(scattered(between(1, 6)));
            list.last().removeLast();
        }
        return list;
    case TinyGaps:
        return {withTinyGaps()};
    default:
        break;
    }
    for (int i = between(1, 3); i > 0; --i)
        list.append(polygons(static_cast<Kind>(between(0, NotFinite - 1))));
    const double odd[] = {std::numeric_limits<double>::quiet_NaN(),
                          std::numeric_limits<double>::infinity(),
                          -std::numeric_limits<double>::infinity(), 1e300};
    QPolygonF &victim = list[between(0, list.size() - 1)];
    victim[between(0, victim.size() - 1)].rx() = odd[between(0, 3)];
    return list;
}

QPainterPath RandomOutlines::outline(Kind kind, double scale, const QPointF &offset)
{
    QList<QPolygonF> list = polygons(kind);
    for (QPolygonF &polygon : list) {
        for (QPointF &point : polygon)
            point = point * scale + offset;
    }
    return pathOf(list);
}

QPainterPath pathOf(const QList<QPolygonF> &polygons)
{
    QPainterPath path;
    for (const QPolygonF &polygon : polygons) {
        if (polygon.isEmpty())
            continue;
        path.moveTo(0.0, 0.0);
        const int first = path.elementCount() - 1;
        for (int i = 1; i < polygon.size(); ++i)
            path.lineTo(i, i); // never the point before, which the path would drop
        // Set afterwards: a path refuses coordinates that are not finite, but can come to hold
        // them.
        for (int i = 0; i < polygon.size(); ++i)
            path.setElementPositionAt(first + i, polygon[i].x(), polygon[i].y());
    }
    return path;
}

} // namespace testsupport
