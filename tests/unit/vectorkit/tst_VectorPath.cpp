#include <vectorkit/VectorPath.h>

#include <QtCore/QtMath>
#include <QtGui/QPainterPath>
#include <QtGui/QPolygonF>
#include <QtTest/QTest>

#include <random>

using vectorkit::PieceKind;
using vectorkit::VectorPath;

namespace {

double distance(const QPointF &a, const QPointF &b)
{
    return std::hypot(a.x() - b.x(), a.y() - b.y());
}

double distanceToSegment(const QPointF &point, const QPointF &a, const QPointF &b)
{
    const QPointF along = b - a;
    const double square = QPointF::dotProduct(along, along);
    const double t =
        square > 0.0 ? qBound(0.0, QPointF::dotProduct(point - a, along) / square, 1.0) : 0.0;
    return distance(point, a + along * t);
}

double distanceToPolygon(const QPointF &point, const QPolygonF &polygon)
{
    double nearest = 1e300;
    for (int i = 1; i < polygon.size(); ++i)
        nearest = std::min(nearest, distanceToSegment(point, polygon[i - 1], polygon[i]));
    return nearest;
}

/** Points on the true curve, by its definition. */
QVector<QPointF> samplesOf(const VectorPath &path, int each)
{
    QVector<QPointF> samples;
    path.forEach([&](const VectorPath::Piece &piece) {
        for (int i = 0; i <= each; ++i) {
            const double t = double(i) / each;
            const double s = 1.0 - t;
            if (piece.kind == PieceKind::Line) {
                samples << piece.from * s + piece.to * t;
            } else if (piece.kind == PieceKind::Cubic) {
                samples << piece.from * (s * s * s) + piece.control1 * (3 * s * s * t) +
                               piece.control2 * (3 * s * t * t) + piece.to * (t * t * t);
            } else {
                const QPointF ray = piece.from - piece.control1;
                const double angle =
                    std::atan2(-ray.y(), ray.x()) + qDegreesToRadians(piece.sweepDeg * t);
                samples << piece.control1 + std::hypot(ray.x(), ray.y()) *
                                                QPointF(std::cos(angle), -std::sin(angle));
            }
        }
    });
    return samples;
}

VectorPath randomPath(std::mt19937 &random)
{
    std::uniform_real_distribution<double> place(-100.0, 100.0);
    const auto point = [&] { return QPointF(place(random), place(random)); };
    VectorPath path(point());
    const int pieces = 1 + static_cast<int>(random() % 6);
    for (int i = 0; i < pieces; ++i) {
        switch (random() % 3) {
        case 0:
            path.lineTo(point());
            break;
        case 1:
            path.cubicTo(point(), point(), point());
            break;
        default:
            path.arcAbout(point(), place(random) * 3.5);
        }
    }
    if (random() % 2 == 0)
        path.close();
    return path;
}

bool isSame(const VectorPath &a, const VectorPath &b)
{
    QVector<VectorPath::Piece> left;
    QVector<VectorPath::Piece> right;
    a.forEach([&](const VectorPath::Piece &piece) { left.append(piece); });
    b.forEach([&](const VectorPath::Piece &piece) { right.append(piece); });
    if (left.size() != right.size() || a.isClosed() != b.isClosed())
        return false;
    for (int i = 0; i < left.size(); ++i) {
        const VectorPath::Piece &l = left[i];
        const VectorPath::Piece &r = right[i];
        if (l.kind != r.kind || l.from != r.from || l.to != r.to || l.control1 != r.control1 ||
            l.control2 != r.control2 || l.sweepDeg != r.sweepDeg)
            return false;
    }
    return true;
}

/** From (0, 0) down the screen and round to the right: a quarter about (10, 0). */
VectorPath quarter()
{
    VectorPath path(QPointF(0, 0));
    path.arcAbout(QPointF(10, 0), 90.0);
    return path;
}

} // namespace

class tst_VectorPath : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void close_nearlyClosedRun_putsItsEndOntoItsStart();
    void polyline_keepsItsPoints()
    {
        const VectorPath path = VectorPath::polyline({{0, 0}, {3, 0}, {3, 4}});
        QCOMPARE(path.pieceCount(), 2);
        QVERIFY(path.isPolyline());
        QVERIFY(!path.isClosed());
        QCOMPARE(path.lengthMm(), 7.0);
        QCOMPARE(path.boundsMm(), QRectF(0, 0, 3, 4));
        QCOMPARE(path.polylinePoints().size(), 3);
        QCOMPARE(path.end(), QPointF(3, 4));
    }

    void polyline_closed_runsBackToItsStart()
    {
        const VectorPath path = VectorPath::polyline({{0, 0}, {3, 0}, {3, 4}}, true);
        QVERIFY(path.isClosed());
        QCOMPARE(path.pieceCount(), 3);
        QCOMPARE(path.lengthMm(), 12.0);
        QCOMPARE(path.end(), path.start());
    }

    void polyline_closedOnItself_getsNoLineMore()
    {
        QCOMPARE(VectorPath::polyline({{0, 0}, {3, 0}, {0, 0}}, true).pieceCount(), 2);
    }

    void polyline_ofFewerThanTwoPoints_isEmpty()
    {
        QVERIFY(VectorPath::polyline({}).isEmpty());
        QVERIFY(VectorPath::polyline({{1, 1}}).isEmpty());
        QVERIFY(VectorPath().isEmpty());
        VectorPath nothing;
        nothing.close();
        QVERIFY(!nothing.isClosed());
    }

    void circle_isOneExactArc()
    {
        const VectorPath circle = VectorPath::circle(QPointF(5, 7), 2.0);
        QCOMPARE(circle.pieceCount(), 1);
        QVERIFY(circle.isClosed());
        QCOMPARE(circle.start(), QPointF(7, 7));
        QCOMPARE(circle.end(), QPointF(7, 7));
        QCOMPARE(circle.lengthMm(), 4.0 * M_PI);
        const QRectF box = circle.boundsMm();
        QCOMPARE(box, QRectF(3, 5, 4, 4));
    }

    void arcAbout_positiveSweep_runsCounterClockwiseOnTheScreen()
    {
        // From the left of the centre, counter-clockwise is downwards, where y grows.
        const VectorPath path = quarter();
        QVERIFY(distance(path.end(), QPointF(10, 10)) < 1e-12);
        QCOMPARE(path.lengthMm(), 5.0 * M_PI);
        QVERIFY(!path.isPolyline());
        QVERIFY(path.polylinePoints().isEmpty());
    }

    void arcAbout_moreThanAWholeTurn_isOneWholeTurn()
    {
        VectorPath path(QPointF(1, 0));
        path.arcAbout(QPointF(0, 0), -1000.0);
        QCOMPARE(path.end(), path.start());
        QCOMPARE(path.lengthMm(), 2.0 * M_PI);
    }

    void lineTo_afterCurves_keepsTheirOrder()
    {
        VectorPath path(QPointF(0, 0));
        path.lineTo(QPointF(1, 0));
        path.cubicTo(QPointF(2, 0), QPointF(2, 1), QPointF(1, 1));
        path.lineTo(QPointF(0, 1));
        QVector<PieceKind> kinds;
        path.forEach([&](const VectorPath::Piece &piece) { kinds.append(piece.kind); });
        QCOMPARE(kinds, (QVector<PieceKind>{PieceKind::Line, PieceKind::Cubic, PieceKind::Line}));
    }

    void lengthMm_ofACubic()
    {
        VectorPath straight(QPointF(0, 0)); // runs from 0 out to x = 5 / 9 and back to 0
        straight.cubicTo(QPointF(1, 0), QPointF(0.5, 0), QPointF(0, 0));
        // x = 3 s² t + 1.5 s t²; x' = 0 where 4.5 t² - 9 t + 3 = 0, t = 1 - 1/√3.
        const double t = 1.0 - 1.0 / std::sqrt(3.0);
        const double out = 3.0 * (1 - t) * (1 - t) * t + 1.5 * (1 - t) * t * t;
        QVERIFY(std::abs(straight.lengthMm() - 2.0 * out) < 2e-6 * out);
    }

    void transformed_similarity_keepsArcs()
    {
        const VectorPath path =
            quarter().transformed(QTransform().translate(5, 5).rotate(30).scale(2, 2));
        path.forEach([](const VectorPath::Piece &piece) {
            QCOMPARE(piece.kind, PieceKind::Arc);
            QCOMPARE(piece.sweepDeg, 90.0);
        });
        QCOMPARE(path.lengthMm(), 10.0 * M_PI);
    }

    void transformed_mirrored_turnsTheSenseOfArcs()
    {
        const VectorPath path = quarter().transformed(QTransform::fromScale(1, -1));
        path.forEach([](const VectorPath::Piece &piece) { QCOMPARE(piece.sweepDeg, -90.0); });
        QVERIFY(distance(path.end(), QPointF(10, -10)) < 1e-12);
        QVERIFY(distance(path.flattened(0.01).at(1), QPointF(0, 0)) > 0.0);
        QVERIFY(path.boundsMm().bottom() < 1e-12);
    }

    void transformed_stretched_makesCubicsOfArcs()
    {
        const VectorPath path =
            VectorPath::circle(QPointF(0, 0), 10.0).transformed(QTransform::fromScale(2, 1));
        QVERIFY(path.isClosed());
        for (const QPointF &point : samplesOf(path, 50)) {
            const double radius = std::hypot(point.x() / 2.0, point.y());
            QVERIFY2(std::abs(radius - 10.0) < 10.0 * 5e-6, qPrintable(QString::number(radius)));
        }
    }

    void addTo_givesCurvesAndCloses()
    {
        QPainterPath painted;
        VectorPath::circle(QPointF(0, 0), 1.0).addTo(&painted);
        QCOMPARE(painted.elementCount(), 1 + 8 * 3);
        QVERIFY(painted.contains(QPointF(0.9, 0.0)));
        QVERIFY(!painted.contains(QPointF(0.9, 0.9)));
        VectorPath().addTo(&painted);
        QCOMPARE(painted.elementCount(), 25);
    }

    void flattened_randomPaths_staysWithinTheTolerance()
    {
        std::mt19937 random(1);
        for (int run = 0; run < 200; ++run) {
            const VectorPath path = randomPath(random);
            const double tolerance = std::pow(10.0, -double(run % 4));
            const QPolygonF polygon = path.flattened(tolerance);
            QCOMPARE(polygon.first(), path.start());
            QCOMPARE(polygon.last(), path.end());
            for (const QPointF &sample : samplesOf(path, 40))
                QVERIFY(distanceToPolygon(sample, polygon) <= tolerance * (1 + 1e-6));
        }
    }

    void boundsMm_randomPaths_holdTheCurveTightly()
    {
        std::mt19937 random(2);
        for (int run = 0; run < 200; ++run) {
            const VectorPath path = randomPath(random);
            const QRectF box = path.boundsMm();
            const QPolygonF dense(samplesOf(path, 2000));
            const QRectF seen = dense.boundingRect();
            QVERIFY(box.adjusted(-1e-9, -1e-9, 1e-9, 1e-9).contains(seen));
            QVERIFY(seen.adjusted(-0.01, -0.01, 0.01, 0.01).contains(box));
        }
    }

    void reversed_twice_isTheSame()
    {
        std::mt19937 random(3);
        for (int run = 0; run < 200; ++run) {
            const VectorPath path = randomPath(random);
            const VectorPath back = path.reversed();
            QCOMPARE(back.start(), path.end());
            QCOMPARE(back.end(), path.start());
            QVERIFY(isSame(back.reversed(), path));
            const QPolygonF polygon = path.flattened(0.001);
            for (const QPointF &sample : samplesOf(back, 10))
                QVERIFY(distanceToPolygon(sample, polygon) < 0.0011);
        }
    }

    void lengthMm_randomPaths_isThatOfAFineFlattening()
    {
        std::mt19937 random(4);
        for (int run = 0; run < 100; ++run) {
            const VectorPath path = randomPath(random);
            const QVector<QPointF> dense = samplesOf(path, 20000);
            double length = 0.0;
            for (int i = 1; i < dense.size(); ++i)
                length += distance(dense[i - 1], dense[i]);
            QVERIFY(std::abs(path.lengthMm() - length) <= 2e-6 * length);
        }
    }
};

void tst_VectorPath::close_nearlyClosedRun_putsItsEndOntoItsStart()
{
    VectorPath near = VectorPath::polyline({{0.0, 0.0}, {5.0, 0.0}, {5.0, 5.0}, {0.0, 1e-7}});
    VectorPath far = near;
    near.close(1e-6);
    QVERIFY(near.isClosed());
    QCOMPARE(near.pieceCount(), 3);
    QVERIFY(near.end().y() == 0.0); // exactly
    far.close(1e-8);
    QVERIFY(far.isClosed());
    QCOMPARE(far.pieceCount(), 4);
}

QTEST_MAIN(tst_VectorPath)
#include "tst_VectorPath.moc"
