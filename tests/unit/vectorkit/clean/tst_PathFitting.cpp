#include <vectorkit/clean/PathFitting.h>

#include <QtCore/QtMath>
#include <QtGui/QPolygonF>
#include <QtTest/QTest>

#include <random>

using vectorkit::arcFittedPath;
using vectorkit::PieceKind;
using vectorkit::simplifiedPath;
using vectorkit::VectorPath;

namespace {

double distanceTo(const QPolygonF &polygon, const QPointF &point)
{
    double nearest = 1e300;
    for (int i = 1; i < polygon.size(); ++i) {
        const QPointF along = polygon[i] - polygon[i - 1];
        const double square = QPointF::dotProduct(along, along);
        const double t =
            square > 0.0
                ? qBound(0.0, QPointF::dotProduct(point - polygon[i - 1], along) / square, 1.0)
                : 0.0;
        const QPointF off = point - (polygon[i - 1] + along * t);
        nearest = std::min(nearest, std::hypot(off.x(), off.y()));
    }
    return nearest;
}

QVector<QPointF> onCircle(double radius, double fromDeg, double toDeg, int steps)
{
    QVector<QPointF> points;
    for (int i = 0; i <= steps; ++i) {
        const double angle = qDegreesToRadians(fromDeg + (toDeg - fromDeg) * i / steps);
        points.append(QPointF(radius * std::cos(angle), -radius * std::sin(angle)));
    }
    return points;
}

QVector<PieceKind> kindsOf(const VectorPath &path)
{
    QVector<PieceKind> kinds;
    path.forEach([&](const VectorPath::Piece &piece) { kinds.append(piece.kind); });
    return kinds;
}

} // namespace

class tst_PathFitting : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void simplified_pointsInLine_go()
    {
        const VectorPath path =
            VectorPath::polyline({{0, 0}, {1, 0.001}, {2, 0}, {3, 0}, {3, 1}, {3, 2}});
        QCOMPARE(simplifiedPath(path, 0.01).polylinePoints(),
                 (QVector<QPointF>{{0, 0}, {3, 0}, {3, 2}}));
    }

    void simplified_closedAndCurves_stay()
    {
        VectorPath path(QPointF(0, 0));
        path.lineTo(QPointF(1, 0));
        path.lineTo(QPointF(2, 0));
        path.arcAbout(QPointF(2, 1), 90.0);
        path.close();
        const VectorPath simpler = simplifiedPath(path, 0.01);
        QVERIFY(simpler.isClosed());
        QCOMPARE(kindsOf(simpler),
                 (QVector<PieceKind>{PieceKind::Line, PieceKind::Arc, PieceKind::Line}));
        QVERIFY(simplifiedPath(VectorPath(), 0.01).isEmpty());
    }

    void simplified_randomWalks_stayWithinTheTolerance()
    {
        std::mt19937 random(1);
        std::uniform_real_distribution<double> step(-1.0, 1.0);
        for (int run = 0; run < 20; ++run) {
            QVector<QPointF> points{{0, 0}};
            for (int i = 0; i < 3000; ++i)
                points.append(points.last() + QPointF(step(random) + 0.5, step(random)));
            const QPolygonF simpler =
                simplifiedPath(VectorPath::polyline(points), 0.5).flattened(1.0);
            QVERIFY(simpler.size() < points.size());
            QCOMPARE(simpler.last(), points.last());
            for (int i = 0; i < points.size(); i += 7)
                QVERIFY(distanceTo(simpler, points[i]) <= 0.5 + 1e-9);
        }
    }

    void fitted_polygonOfACircle_isThatCircle()
    {
        QVector<QPointF> points = onCircle(10.0, 0.0, 360.0, 180);
        points.last() = points.first();
        const VectorPath fitted = arcFittedPath(VectorPath::polyline(points, true), 0.01);
        QCOMPARE(fitted.pieceCount(), 1);
        QVERIFY(fitted.isClosed());
        QVERIFY(qAbs(fitted.lengthMm() - 20.0 * M_PI) < 1e-6);
        const QRectF box = fitted.boundsMm();
        QVERIFY(qAbs(box.left() + 10.0) < 1e-9 && qAbs(box.top() + 10.0) < 1e-9);
    }

    void fitted_roundedCorner_isLineArcLine()
    {
        QVector<QPointF> points{{10, 30}};
        points += onCircle(10.0, 0.0, 90.0, 45);
        points.append(QPointF(-20, -10));
        const VectorPath fitted = arcFittedPath(VectorPath::polyline(points), 0.005);
        QCOMPARE(kindsOf(fitted),
                 (QVector<PieceKind>{PieceKind::Line, PieceKind::Arc, PieceKind::Line}));
        fitted.forEach([](const VectorPath::Piece &piece) {
            if (piece.kind != PieceKind::Arc)
                return;
            QVERIFY(qAbs(piece.sweepDeg - 90.0) < 1e-6);
            QVERIFY(std::hypot(piece.control1.x(), piece.control1.y()) < 1e-6);
        });
    }

    void fitted_polygons_stayPolygons()
    {
        const VectorPath square = VectorPath::polyline({{0, 0}, {9, 0}, {9, 9}, {0, 9}}, true);
        QCOMPARE(arcFittedPath(square, 0.01), square);
        QVector<QPointF> eight = onCircle(10.0, 0.0, 360.0, 8);
        eight.last() = eight.first();
        QVERIFY(arcFittedPath(VectorPath::polyline(eight, true), 0.01).isPolyline());
        const VectorPath straight =
            VectorPath::polyline({{0, 0}, {1, 0}, {2, 0}, {3, 0}, {4, 0}, {5, 0}});
        QVERIFY(arcFittedPath(straight, 0.01).isPolyline());
    }

    void fitted_randomCurves_stayWithinTheTolerance()
    {
        std::mt19937 random(2);
        std::uniform_real_distribution<double> place(-50.0, 50.0);
        for (int run = 0; run < 30; ++run) {
            VectorPath curve(QPointF(place(random), place(random)));
            for (int i = 0; i < 3; ++i)
                curve.cubicTo({place(random), place(random)}, {place(random), place(random)},
                              {place(random), place(random)});
            const QPolygonF fine = curve.flattened(0.001);
            const VectorPath fitted = arcFittedPath(VectorPath::polyline(fine), 0.01);
            QVERIFY(fitted.pieceCount() < fine.size() / 2);
            const QPolygonF back = fitted.flattened(0.0005);
            for (int i = 0; i < fine.size(); i += 5)
                QVERIFY(distanceTo(back, fine[i]) < 0.0115);
            for (int i = 0; i < back.size(); i += 5)
                QVERIFY(distanceTo(fine, back[i]) < 0.0215);
        }
    }
};

QTEST_GUILESS_MAIN(tst_PathFitting)
#include "tst_PathFitting.moc"
