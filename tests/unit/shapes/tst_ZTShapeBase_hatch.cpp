#include <support/SingletonGuard.h>
#include <support/WarningGuard.h>

#include <ZTDrawEngineLib/document/ZTCoord.h>
#include <ZTDrawEngineLib/shapes/ZTRectShape.h>

#include <QtTest/QTest>

#include <omp.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

using Lines = QVector<QLineF>;

/** A shape whose outline (scene pixels) or path (millimetres) is given, not painted. */
class GivenShape : public ZTShapeBase
{
public:
    void paint() override {}
    using ZTShapeBase::getPath;
    using ZTShapeBase::setFillLines;
    using ZTShapeBase::setLines;
};

QPolygonF polygonOf(std::initializer_list<QPointF> points)
{
    QPolygonF polygon;
    for (const QPointF &point : points)
        polygon.append(point);
    return polygon;
}

QPolygonF closed(QPolygonF polygon)
{
    polygon.append(polygon.first());
    return polygon;
}

QPainterPath pathOf(const QList<QPolygonF> &polygons)
{
    QPainterPath path;
    for (const QPolygonF &polygon : polygons)
        path.addPolygon(polygon);
    return path;
}

Lines hatch(const QPainterPath &linesPx, FillType type, double spac, double angle)
{
    GivenShape shape;
    shape.setLines(linesPx);
    shape.setFillLines({QLineF(1, 2, 3, 4)}); // an old hatch, to be replaced
    shape.fillULine(type, spac, angle);
    return shape.getFillLines();
}

Lines hatch(const QPolygonF &polygon, FillType type, double spac, double angle)
{
    return hatch(pathOf({polygon}), type, spac, angle);
}

const QPolygonF &square100()
{
    static const QPolygonF square = polygonOf({{0, 0}, {100, 0}, {100, 100}, {0, 100}, {0, 0}});
    return square;
}

/**
 * Level of scan line `number` over an outline that is 100 by 100 at the origin, angle 0: the
 * square over the diagonal begins at 50 - 50 sqrt(2), the first line 10 before it.
 */
double level(int number, double spac)
{
    double y = 50.0 - std::sqrt(100.0 * 100.0 + 100.0 * 100.0) / 2 - 10.0;
    for (int i = 0; i < number; ++i)
        y += spac;
    return y;
}

bool isNear(const QPointF &a, const QPointF &b)
{
    return std::fabs(a.x() - b.x()) < 1e-9 && std::fabs(a.y() - b.y()) < 1e-9;
}

QString textOf(const Lines &lines)
{
    QString text;
    for (const QLineF &line : lines)
        text += QStringLiteral("(%1 %2)-(%3 %4) ")
                    .arg(line.x1())
                    .arg(line.y1())
                    .arg(line.x2())
                    .arg(line.y2());
    return text;
}

bool areNear(const Lines &a, const Lines &b)
{
    if (a.size() != b.size())
        return false;
    for (int i = 0; i < a.size(); ++i) {
        if (!isNear(a[i].p1(), b[i].p1()) || !isNear(a[i].p2(), b[i].p2()))
            return false;
    }
    return true;
}

/**
 * Number of zigzags: places where a line does not begin where the one before has led. A line that
 * ends there counts as taken from its end: walks against the edges keep the edges' direction.
 */
int zigzagCount(const Lines &lines)
{
    if (lines.isEmpty())
        return 0;
    int count = 1;
    QPointF at = lines.first().p2();
    for (int i = 1; i < lines.size(); ++i) {
        if (isNear(lines[i].p1(), at)) {
            at = lines[i].p2();
        } else if (isNear(lines[i].p2(), at)) {
            at = lines[i].p1();
        } else {
            ++count;
            at = lines[i].p2();
        }
    }
    return count;
}

bool contains(const Lines &lines, const QLineF &row)
{
    return std::any_of(lines.begin(), lines.end(), [&](const QLineF &line) {
        return (isNear(line.p1(), row.p1()) && isNear(line.p2(), row.p2())) ||
               (isNear(line.p1(), row.p2()) && isNear(line.p2(), row.p1()));
    });
}

bool containsAll(const Lines &lines, const Lines &rows)
{
    return std::all_of(rows.begin(), rows.end(),
                       [&](const QLineF &row) { return contains(lines, row); });
}

QPolygonF turnedSquare(double angleDeg) { return QTransform().rotate(angleDeg).map(square100()); }

QPolygonF ellipse(double width, double height)
{
    QPainterPath path;
    path.addEllipse(QRectF(0, 0, width, height));
    return path.toSubpathPolygons(QTransform()).first();
}

} // namespace

#define COMPARE_LINES(actual, expected)                                                            \
    QVERIFY2(areNear(actual, expected),                                                            \
             qPrintable(QStringLiteral("actual: ") + textOf(actual) +                              \
                        QStringLiteral("\nexpected: ") + textOf(expected)))

class tst_ZTShapeBase_hatch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        singletons.reset(new testsupport::SingletonGuard);
        warnings.reset(new testsupport::WarningGuard);
    }

    void cleanup()
    {
        warnings.reset();
        singletons.reset();
        omp_set_num_threads(omp_get_num_procs());
    }

    void fill_square10mm_startsAtTheGridAndAlternates()
    {
        // 1 mm is s = 900/193 px. The first line lies at 5s - 5s sqrt(2) - 10 = -19.66; the lines
        // from number 5 (3.66) to 14 (45.63) meet the square, 46.63 high. Odd ones run backward.
        ZTRectShape shape;
        ZTFillParam param;
        param.fillType = FillType::Line;
        param.spac = 1.0;
        shape.setFillParam(param);
        shape.paint();
        const double s = 900.0 / 193.0;
        Lines expected;
        for (int i = 5; i <= 14; ++i) {
            const double y = 5 * s - 5 * s * std::sqrt(2.0) - 10.0 + i * s;
            expected << (i % 2 == 0 ? QLineF(0, y, 10 * s, y) : QLineF(10 * s, y, 0, y));
        }
        COMPARE_LINES(shape.getFillLines(), expected);
    }

    void fill_typeNone_keepsTheOldHatch()
    {
        GivenShape shape;
        shape.setLines(pathOf({square100()}));
        shape.setFillLines({QLineF(1, 2, 3, 4)});
        shape.fill();
        QCOMPARE(shape.getFillLines(), Lines{QLineF(1, 2, 3, 4)});
    }

    void fill_spacingZero_keepsTheOldHatch()
    {
        for (const FillType type : {FillType::Line, FillType::ULine, FillType::None}) {
            GivenShape shape;
            shape.setLines(pathOf({square100()}));
            shape.setFillLines({QLineF(1, 2, 3, 4)});
            ZTFillParam param;
            param.fillType = type;
            param.spac = 0.0;
            shape.setFillParam(param);
            shape.fill();
            QCOMPARE(shape.getFillLines(), Lines{QLineF(1, 2, 3, 4)});
        }
    }

    void fill_spacingThatIsTiny_isNotZero()
    {
        GivenShape shape;
        shape.setLines(pathOf({square100()}));
        shape.setFillLines({QLineF(1, 2, 3, 4)});
        ZTFillParam param;
        param.fillType = FillType::Line;
        param.spac = 1e-300;
        shape.setFillParam(param);
        shape.fill();
        QCOMPARE(shape.getFillLines(), Lines{});
        QCOMPARE(warnings->take().size(), 1);
    }

    void fill_displayRatioZero_endsWithAnEmptyHatch()
    {
        ZTCoord::getInstance()->setDisplayRatio(0.0);
        GivenShape shape;
        shape.setLines(pathOf({square100()}));
        shape.setFillLines({QLineF(1, 2, 3, 4)});
        ZTFillParam param;
        param.fillType = FillType::ULine;
        shape.setFillParam(param);
        shape.fill();
        QCOMPARE(shape.getFillLines(), Lines{});
    }

    void fill_callsTheVirtualHatchWithPixels()
    {
        class Recorder : public GivenShape
        {
        public:
            void fillULine(FillType type_, double spac_, double angle_) override
            {
                type = type_;
                spac = spac_;
                angle = angle_;
            }
            FillType type = FillType::None;
            double spac = 0.0;
            double angle = 0.0;
        } shape;
        ZTFillParam param;
        param.fillType = FillType::ULine;
        param.spac = 3.0;
        param.angle = 200.0;
        shape.setFillParam(param);
        shape.fill();
        QVERIFY(shape.type == FillType::ULine);
        QCOMPARE(shape.spac, 900.0 / 193.0 * 3.0);
        QCOMPARE(shape.angle, 200.0);
    }

    void fillULine_unusableSpacing_data()
    {
        QTest::addColumn<double>("spac");
        QTest::newRow("zero") << 0.0;
        QTest::newRow("negative") << -1.0;
        QTest::newRow("not a number") << kNaN;
        QTest::newRow("infinite") << kInfinity;
        QTest::newRow("negative infinite") << -kInfinity;
    }

    void fillULine_unusableSpacing()
    {
        QFETCH(double, spac);
        for (const FillType type : {FillType::Line, FillType::ULine})
            QCOMPARE(hatch(square100(), type, spac, 0.0), Lines{});
    }

    void fillULine_spacingWiderThanTheShape_mayMissIt()
    {
        // Lines at -30.71, 169.29.
        QCOMPARE(hatch(square100(), FillType::Line, 200.0, 0.0), Lines{});
    }

    void fillULine_typeNone_replacesTheHatchByNothing()
    {
        QCOMPARE(hatch(square100(), FillType::None, 10.0, 0.0), Lines{});
    }

    void fillULine_withoutOutline_isEmpty()
    {
        QCOMPARE(hatch(QPainterPath(), FillType::Line, 10.0, 0.0), Lines{});
        QCOMPARE(hatch(QPainterPath(), FillType::ULine, 1e-9, 0.0), Lines{});
    }

    void fillULine_tooManyScanLines_givesNoneAndWarns()
    {
        // 161.42 px of lines at 1.6e-4 px are more than a million, at 1.62e-4 they are not.
        QCOMPARE(hatch(square100(), FillType::Line, 1.6e-4, 0.0), Lines{});
        QCOMPARE(warnings->take().size(), 1);
        const QPolygonF flat = polygonOf({{0, 0}, {100, 0}, {100, 1e-2}, {0, 1e-2}, {0, 0}});
        const int rows = hatch(flat, FillType::Line, 1.62e-4, 0.0).size();
        QVERIFY2(rows == 61 || rows == 62, qPrintable(QString::number(rows)));
        QCOMPARE(hatch(flat, FillType::Line, 1.6e-4, 0.0), Lines{});
        QCOMPARE(warnings->take().size(), 1);
    }

    void fillULine_ordinateThatNoLongerGrows_givesNoneAndWarns()
    {
        // Doubles near 1e17 lie 16 apart: a step of 5 is lost.
        const QPolygonF far = square100().translated(0.0, 1e17);
        QCOMPARE(hatch(far, FillType::Line, 5.0, 0.0), Lines{});
        QCOMPARE(warnings->take().size(), 1);
    }

    void fillULine_coordinatesNotFinite_endEmpty_data()
    {
        QTest::addColumn<double>("odd");
        QTest::newRow("not a number") << kNaN;
        QTest::newRow("infinite") << kInfinity;
        QTest::newRow("negative infinite") << -kInfinity;
        QTest::newRow("overflowing") << 1e300;
    }

    void fillULine_coordinatesNotFinite_endEmpty()
    {
        QFETCH(double, odd);
        for (const FillType type : {FillType::Line, FillType::ULine}) {
            for (const double angle : {0.0, 30.0}) {
                QPainterPath path = pathOf({square100()});
                for (int i = 0; i < path.elementCount(); ++i)
                    path.setElementPositionAt(i, odd, odd);
                QCOMPARE(hatch(path, type, 10.0, angle), Lines{});
            }
        }
    }

    void fillULine_angleNotFinite_isEmpty()
    {
        for (const double angle : {kNaN, kInfinity, -kInfinity})
            QCOMPARE(hatch(square100(), FillType::ULine, 10.0, angle), Lines{});
    }

    void line_square_alternatesOnEveryScanLine()
    {
        // Lines at -30.71 + 20 i: numbers 2 to 6 meet the square.
        const Lines expected{
            QLineF(0, level(2, 20), 100, level(2, 20)), QLineF(100, level(3, 20), 0, level(3, 20)),
            QLineF(0, level(4, 20), 100, level(4, 20)), QLineF(100, level(5, 20), 0, level(5, 20)),
            QLineF(0, level(6, 20), 100, level(6, 20))};
        COMPARE_LINES(hatch(square100(), FillType::Line, 20.0, 0.0), expected);
    }

    void line_directionAlternatesAlsoOverEmptyScanLines()
    {
        // Two bars with an empty scan line (number 4, 49.29) between: numbers 3 and 5 run backward.
        const QPainterPath bars =
            pathOf({polygonOf({{0, 0}, {100, 0}, {100, 40}, {0, 40}, {0, 0}}),
                    polygonOf({{0, 60}, {100, 60}, {100, 100}, {0, 100}, {0, 60}})});
        const Lines expected{
            QLineF(0, level(2, 20), 100, level(2, 20)), QLineF(100, level(3, 20), 0, level(3, 20)),
            QLineF(100, level(5, 20), 0, level(5, 20)), QLineF(0, level(6, 20), 100, level(6, 20))};
        COMPARE_LINES(hatch(bars, FillType::Line, 20.0, 0.0), expected);
    }

    void line_ring_leavesTheHoleFree()
    {
        const Lines lines = hatch(ring(), FillType::Line, 20.0, 0.0);
        const Lines expected{QLineF(0, level(2, 20), 100, level(2, 20)),
                             QLineF(100, level(3, 20), 0, level(3, 20)),
                             QLineF(0, level(4, 20), 30, level(4, 20)),
                             QLineF(70, level(4, 20), 100, level(4, 20)),
                             QLineF(100, level(5, 20), 70, level(5, 20)),
                             QLineF(30, level(5, 20), 0, level(5, 20)),
                             QLineF(0, level(6, 20), 100, level(6, 20))};
        COMPARE_LINES(lines, expected);
    }

    void zigzag_ring_doesNotLinkAcrossThePolygons()
    {
        // The first zigzag goes down the left of the hole, the second takes what is left.
        const double y[] = {0,           0, level(2, 20), level(3, 20), level(4, 20), level(5, 20),
                            level(6, 20)};
        const Lines expected{
            QLineF(0, y[2], 100, y[2]),  QLineF(100, y[2], 100, y[3]), QLineF(100, y[3], 0, y[3]),
            QLineF(0, y[3], 0, y[4]),    QLineF(0, y[4], 30, y[4]),    QLineF(30, y[4], 30, y[5]),
            QLineF(30, y[5], 0, y[5]),   QLineF(0, y[5], 0, y[6]),     QLineF(0, y[6], 100, y[6]),
            QLineF(70, y[4], 100, y[4]), QLineF(100, y[4], 100, y[5]), QLineF(100, y[5], 70, y[5])};
        COMPARE_LINES(hatch(ring(), FillType::ULine, 20.0, 0.0), expected);
    }

    void zigzag_twoTeeth_rowLeftBehindStartsAFurtherGroup()
    {
        // Rows of one scan line lie on one line and never join; the right tooth comes second.
        const QPolygonF teeth = polygonOf({{0, 0},
                                           {100, 0},
                                           {100, 100},
                                           {70, 100},
                                           {70, 30},
                                           {30, 30},
                                           {30, 100},
                                           {0, 100},
                                           {0, 0}});
        const double y[] = {0,           0, level(2, 20), level(3, 20), level(4, 20), level(5, 20),
                            level(6, 20)};
        const Lines expected{
            QLineF(0, y[2], 100, y[2]),  QLineF(100, y[2], 100, y[3]), QLineF(100, y[3], 0, y[3]),
            QLineF(0, y[3], 0, y[4]),    QLineF(0, y[4], 30, y[4]),    QLineF(30, y[4], 30, y[5]),
            QLineF(30, y[5], 0, y[5]),   QLineF(0, y[5], 0, y[6]),     QLineF(0, y[6], 30, y[6]),
            QLineF(70, y[4], 100, y[4]), QLineF(100, y[4], 100, y[5]), QLineF(100, y[5], 70, y[5]),
            QLineF(70, y[5], 70, y[6]),  QLineF(70, y[6], 100, y[6])};
        COMPARE_LINES(hatch(teeth, FillType::ULine, 20.0, 0.0), expected);
    }

    void zigzag_corner_joinsThroughTheCorner()
    {
        // A right side that breaks at (80, 40): the rows at 19.29 and 69.29 end on edges that meet
        // there. Their ends lie at 100 - 20 * 19.29 / 40 and 80 + 20 * 29.29 / 60.
        const QPolygonF outline =
            polygonOf({{0, 0}, {100, 0}, {80, 40}, {100, 100}, {0, 100}, {0, 0}});
        const double y1 = level(1, 50);
        const double y2 = level(2, 50);
        const double x1 = 100 - y1 / 2;
        const double x2 = 80 + (y2 - 40) / 3;
        const Lines expected{QLineF(0, y1, x1, y1), QLineF(x1, y1, 80, 40), QLineF(80, 40, x2, y2),
                             QLineF(x2, y2, 0, y2)};
        COMPARE_LINES(hatch(outline, FillType::ULine, 50.0, 0.0), expected);
    }

    void zigzag_walkAlongTheEdges()
    {
        const double y1 = level(1, 50);
        const double y2 = level(2, 50);
        const Lines expected{QLineF(0, y1, 100, y1),  QLineF(100, y1, 100, 40),
                             QLineF(100, 40, 90, 45), QLineF(90, 45, 90, 50),
                             QLineF(90, 50, 100, 55), QLineF(100, 55, 100, y2),
                             QLineF(100, y2, 0, y2)};
        COMPARE_LINES(hatch(closed(dented()), FillType::ULine, 50.0, 0.0), expected);
    }

    void zigzag_walkAgainstTheEdges_keepsTheirDirection()
    {
        QPolygonF backward = dented();
        std::reverse(backward.begin(), backward.end());
        const double y1 = level(1, 50);
        const double y2 = level(2, 50);
        const Lines expected{QLineF(0, y1, 100, y1),  QLineF(100, y1, 100, 40),
                             QLineF(90, 45, 100, 40), QLineF(90, 50, 90, 45),
                             QLineF(100, 55, 90, 50), QLineF(100, 55, 100, y2),
                             QLineF(100, y2, 0, y2)};
        COMPARE_LINES(hatch(closed(backward), FillType::ULine, 50.0, 0.0), expected);
    }

    void zigzag_walkFromTheFirstEnd_goesTheOtherWayRound()
    {
        // Three rows, at 29.29, 59.29 and 89.29. The left side has a dent between the second and
        // the third of them: the zigzag, on its way back, reaches it at the row's first end.
        const QPolygonF outline = polygonOf(
            {{0, 0}, {100, 0}, {100, 100}, {0, 100}, {0, 80}, {10, 75}, {10, 70}, {0, 65}, {0, 0}});
        const double y1 = level(2, 30);
        const double y2 = level(3, 30);
        const double y3 = level(4, 30);
        const QVector<QLineF> rows{QLineF(0, y1, 100, y1), QLineF(100, y1, 100, y2),
                                   QLineF(100, y2, 0, y2)};
        // The left side runs upward, so from the second row down the walk is against the edges.
        const Lines against =
            rows + Lines{QLineF(0, y2, 0, 65),  QLineF(10, 70, 0, 65), QLineF(10, 75, 10, 70),
                         QLineF(0, 80, 10, 75), QLineF(0, 80, 0, y3),  QLineF(0, y3, 100, y3)};
        COMPARE_LINES(hatch(outline, FillType::ULine, 30.0, 0.0), against);

        QPolygonF backward = outline;
        std::reverse(backward.begin(), backward.end());
        const Lines along =
            rows + Lines{QLineF(0, y2, 0, 65),  QLineF(0, 65, 10, 70), QLineF(10, 70, 10, 75),
                         QLineF(10, 75, 0, 80), QLineF(0, 80, 0, y3),  QLineF(0, y3, 100, y3)};
        COMPARE_LINES(hatch(backward, FillType::ULine, 30.0, 0.0), along);
    }

    void zigzag_notch_walksRoundIt()
    {
        // A notch from the right cuts the third row short; the zigzag goes on round its floor.
        const QPolygonF notched = polygonOf({{0, 0},
                                             {100, 0},
                                             {100, 40},
                                             {40, 40},
                                             {40, 60},
                                             {100, 60},
                                             {100, 100},
                                             {0, 100},
                                             {0, 0}});
        const double y[] = {0,           0, level(2, 20), level(3, 20), level(4, 20), level(5, 20),
                            level(6, 20)};
        const Lines expected{
            QLineF(0, y[2], 100, y[2]), QLineF(100, y[2], 100, y[3]), QLineF(100, y[3], 0, y[3]),
            QLineF(0, y[3], 0, y[4]),   QLineF(0, y[4], 40, y[4]),    QLineF(40, y[4], 40, 60),
            QLineF(40, 60, 100, 60),    QLineF(100, 60, 100, y[5]),   QLineF(100, y[5], 0, y[5]),
            QLineF(0, y[5], 0, y[6]),   QLineF(0, y[6], 100, y[6])};
        COMPARE_LINES(hatch(notched, FillType::ULine, 20.0, 0.0), expected);
    }

    void zigzag_walkThatWouldCircle_endsTheZigzag()
    {
        // From the row at 19.29 the walk goes against the edges from P = (100, 40). The first edge
        // that ends there belongs to a small triangle without hits, P Q R, and leads back to P.
        const QPolygonF outline = polygonOf({{95, 45},
                                             {90, 40},
                                             {100, 40},
                                             {100, 0},
                                             {0, 0},
                                             {0, 100},
                                             {100, 100},
                                             {100, 40},
                                             {95, 45}});
        const double y1 = level(1, 50);
        const double y2 = level(2, 50);
        const Lines expected{QLineF(0, y1, 100, y1), QLineF(0, y2, 100, y2)};
        COMPARE_LINES(hatch(outline, FillType::ULine, 50.0, 0.0), expected);
    }

    void zigzag_convex_isOneGroupOfAllRows_data()
    {
        QTest::addColumn<QPolygonF>("outline");
        QTest::addColumn<double>("angle");
        QTest::newRow("square") << square100() << 0.0;
        QTest::newRow("turned square") << turnedSquare(30) << 0.0;
        QTest::newRow("square, turned hatch") << square100() << 30.0;
        QTest::newRow("circle") << ellipse(100, 100) << 0.0;
        QTest::newRow("ellipse") << ellipse(100, 60) << 0.0;
        QTest::newRow("ellipse at 45") << ellipse(100, 60) << 45.0;
        QTest::newRow("ellipse at -70") << ellipse(100, 60) << -70.0;
    }

    void zigzag_convex_isOneGroupOfAllRows()
    {
        QFETCH(QPolygonF, outline);
        QFETCH(double, angle);
        const Lines rows = hatch(outline, FillType::Line, 7.0, angle);
        const Lines zigzag = hatch(outline, FillType::ULine, 7.0, angle);
        QVERIFY(rows.size() >= 8);
        QVERIFY(zigzag.size() >= 2 * rows.size() - 1);
        QVERIFY2(containsAll(zigzag, rows), qPrintable(textOf(zigzag)));
        QVERIFY2(zigzagCount(zigzag) == 1, qPrintable(textOf(zigzag)));
    }

    void zigzag_joinsRunOnTheOutlineOnly()
    {
        // Of a square's zigzag, every second line is a joint, and both its ends are on one side.
        const Lines zigzag = hatch(square100(), FillType::ULine, 7.0, 0.0);
        QCOMPARE(zigzag.size(), 2 * 14 - 1); // levels 4.29 to 95.29
        for (int i = 1; i < zigzag.size(); i += 2) {
            QVERIFY(isNear({zigzag[i].x1(), 0}, {zigzag[i].x2(), 0}));
            QVERIFY(std::fabs(zigzag[i].length() - 7.0) < 1e-9);
        }
    }

    void vertexOnScanLine_pairingDoesNotShift()
    {
        // Hits: 0 and 1 at the vertex on the right, 2 on the left. From the left, 2 finds its
        // neighbour 1, and nothing is left for a second pair.
        const auto outline = [](double y) {
            return polygonOf({{0, 0}, {100, y}, {0, 100}, {0, 0}});
        };
        const double y1 = level(1, 80);
        COMPARE_LINES(hatch(outline(y1), FillType::ULine, 80.0, 0.0),
                      Lines{QLineF(0, y1, 100, y1)});
        const double y2 = level(2, 40);
        QVERIFY(contains(hatch(outline(y2), FillType::Line, 40.0, 0.0), QLineF(0, y2, 100, y2)));
        // Kept: from the right the two of the vertex come first, pair, and the row is lost.
        COMPARE_LINES(hatch(outline(y1), FillType::Line, 80.0, 0.0),
                      Lines{QLineF(100, y1, 100, y1)});
    }

    void vertexBetweenTwoSides_isRepairedInTheOrderOfTheEdges()
    {
        // Hits in the order of the edges: 0 and 1 at the vertex, 2 on the right, 3 on the left.
        const double y = level(1, 80);
        const QPolygonF outline =
            polygonOf({{0, 0}, {50, y}, {100, 0}, {100, 100}, {0, 100}, {0, 0}});
        // From the left: 3 takes its neighbour 2, then the two of the vertex take each other.
        const Lines zigzag{QLineF(0, y, 100, y), QLineF(50, y, 50, y)};
        COMPARE_LINES(hatch(outline, FillType::ULine, 80.0, 0.0), zigzag);
        // Kept: from the right, as scan line number 1 runs, 2 meets its neighbour 1 before 3, and
        // neither 0 nor 3 has a neighbour left: the left half is lost.
        COMPARE_LINES(hatch(outline, FillType::Line, 80.0, 0.0), (Lines{QLineF(100, y, 50, y)}));
    }

    void verticesAtBothEnds_loseTheRow()
    {
        // Kept: two hits at either end pair with each other, and no row runs between the ends.
        const double y = level(1, 80);
        const QPolygonF outline = polygonOf({{50, 0}, {100, y}, {50, 100}, {0, y}, {50, 0}});
        const Lines expected{QLineF(100, y, 100, y), QLineF(0, y, 0, y)};
        COMPARE_LINES(hatch(outline, FillType::Line, 80.0, 0.0), expected);
    }

    void angle_equivalentOnes_giveTheSameHatch_data()
    {
        QTest::addColumn<double>("angle");
        QTest::addColumn<double>("same");
        QTest::newRow("100 is -80") << 100.0 << -80.0;
        QTest::newRow("-100 is 80") << -100.0 << 80.0;
        QTest::newRow("180 is 0") << 180.0 << 0.0;
        QTest::newRow("-180 is 0") << -180.0 << 0.0;
        QTest::newRow("360 is 0") << 360.0 << 0.0;
        QTest::newRow("270 is 90") << 270.0 << 90.0;
        QTest::newRow("-270 is -90") << -270.0 << -90.0;
    }

    void angle_equivalentOnes_giveTheSameHatch()
    {
        QFETCH(double, angle);
        QFETCH(double, same);
        const QPolygonF outline = ellipse(100, 60);
        for (const FillType type : {FillType::Line, FillType::ULine})
            QCOMPARE(hatch(outline, type, 7.0, angle), hatch(outline, type, 7.0, same));
    }

    void angle_isBroughtBackOnlyOnce()
    {
        // 450 stays 270: upright lines, but numbered from the other side than those of 90.
        const Lines once = hatch(square100(), FillType::Line, 20.0, 450.0);
        const Lines upright = hatch(square100(), FillType::Line, 20.0, 90.0);
        QCOMPARE(once.size(), upright.size());
        QVERIFY(once.first().x1() < 50.0);
        QVERIFY(upright.first().x1() > 50.0);
    }

    void angle_90_linesStandUprightOnBothSigns()
    {
        for (const double angle : {90.0, -90.0}) {
            const Lines lines = hatch(square100(), FillType::Line, 20.0, angle);
            QCOMPARE(lines.size(), 5);
            for (const QLineF &line : lines) {
                QVERIFY(std::fabs(line.dx()) < 1e-7);
                QVERIFY(std::fabs(std::fabs(line.dy()) - 100.0) < 1e-7);
            }
        }
    }

    void angle_turnsByTenDigitsOfPi()
    {
        // At 90 the lines lean by 1.5707963267949 - 1.57079632675 = 4.49e-11: over 100 px,
        // by 4.5e-9.
        const QLineF line = hatch(square100(), FillType::Line, 20.0, 90.0).first();
        QVERIFY(std::fabs(line.dx() / line.dy()) > 4.4e-11);
        QVERIFY(std::fabs(line.dx() / line.dy()) < 4.6e-11);
    }

    void angle_45_coversTheSquareToItsCorners()
    {
        // The diagonal across the lines takes the levels from -20.71 to 120.71; of those at
        // -30.71 + 7 i, number 2 to number 21 lie there.
        const Lines lines = hatch(square100(), FillType::Line, 7.0, 45.0);
        QCOMPARE(lines.size(), 20);
        for (const QLineF &line : lines)
            QVERIFY(std::fabs(line.dx() - line.dy()) < 1e-6);
    }

    void outline_twoPointSubpath_givesNoHits()
    {
        QCOMPARE(hatch(polygonOf({{0, 0}, {100, 100}}), FillType::Line, 10.0, 0.0), Lines{});
        // Beside a square it takes part only in the bounds.
        const Lines lines = hatch(pathOf({square100(), polygonOf({{0, 50}, {100, 50}})}),
                                  FillType::Line, 20.0, 0.0);
        QCOMPARE(lines, hatch(square100(), FillType::Line, 20.0, 0.0));
    }

    void outline_open_isClosedByAChordInsteadOfItsLastPoint()
    {
        // (0, 100) is dropped: the chord runs from (100, 100) to (0, 0).
        const Lines lines =
            hatch(polygonOf({{0, 0}, {100, 0}, {100, 100}, {0, 100}}), FillType::Line, 20.0, 0.0);
        Lines expected;
        for (int i = 2; i <= 6; ++i) {
            const double y = level(i, 20);
            expected << (i % 2 == 0 ? QLineF(y, y, 100, y) : QLineF(100, y, y, y));
        }
        COMPARE_LINES(lines, expected);
    }

    void fillLine_rectangle_linesFromTopToBottom()
    {
        GivenShape shape = givenPath(pathOf({square100()}), 30.0);
        shape.fillLine();
        // 100 / 30 lines, the first one spacing below the top.
        COMPARE_LINES(shape.getFillLines(), (Lines{QLineF(0, 30, 100, 30), QLineF(0, 60, 100, 60),
                                                   QLineF(0, 90, 100, 90)}));
    }

    void fillLine_usesTheTransformsWithoutPixels()
    {
        GivenShape shape = givenPath(pathOf({square100()}), 50.0);
        shape.getTransformParam() = QTransform::fromTranslate(1000, 0);
        shape.setRoundingTransformParam(QTransform::fromScale(2, 1));
        shape.fillLine();
        COMPARE_LINES(shape.getFillLines(),
                      (Lines{QLineF(1000, 50, 1200, 50), QLineF(1000, 100, 1200, 100)}));
    }

    void fillLine_doesNotCloseTheOutline()
    {
        GivenShape shape = givenPath(pathOf({polygonOf({{0, 0}, {100, 0}, {100, 100}})}), 40.0);
        shape.fillLine();
        QCOMPARE(shape.getFillLines(), Lines{});
    }

    void fillLine_vertexOnALine_countsOnce()
    {
        GivenShape shape =
            givenPath(pathOf({polygonOf({{0, 0}, {100, 50}, {0, 100}, {0, 0}})}), 50.0);
        shape.fillLine();
        QCOMPARE(shape.getFillLines().size(), 1);
        COMPARE_LINES(shape.getFillLines(), (Lines{QLineF(0, 50, 100, 50)}));
    }

    void fillLine_firstCrossingAtMinusOne_isLeftOut()
    {
        const QPolygonF outline = polygonOf({{-1, 6}, {-1, -4}, {9, -4}, {9, 6}, {-1, 6}});
        GivenShape shape = givenPath(pathOf({outline}), 3.0); // -1, 2, 5
        shape.fillLine();
        COMPARE_LINES(shape.getFillLines(), (Lines{QLineF(-1, 2, 9, 2), QLineF(-1, 5, 9, 5)}));
    }

    void fillLine_withoutPath_keepsTheOldHatch()
    {
        GivenShape shape = givenPath(QPainterPath(), 10.0);
        shape.setFillLines({QLineF(1, 2, 3, 4)});
        shape.fillLine();
        QCOMPARE(shape.getFillLines(), Lines{QLineF(1, 2, 3, 4)});
    }

    void fillLine_unusableSpacing_emptiesTheHatch_data()
    {
        QTest::addColumn<double>("spac");
        QTest::addColumn<int>("messages");
        QTest::newRow("zero") << 0.0 << 1;
        QTest::newRow("too fine") << 1e-6 << 1;
        QTest::newRow("negative") << -1.0 << 0;
        QTest::newRow("not a number") << kNaN << 0;
        QTest::newRow("infinite") << kInfinity << 0;
        QTest::newRow("wider than the path") << 101.0 << 0;
    }

    void fillLine_unusableSpacing_emptiesTheHatch()
    {
        QFETCH(double, spac);
        QFETCH(int, messages);
        GivenShape shape = givenPath(pathOf({square100()}), spac);
        shape.setFillLines({QLineF(1, 2, 3, 4)});
        shape.fillLine();
        QCOMPARE(shape.getFillLines(), Lines{});
        QCOMPARE(warnings->take().size(), messages);
    }

    void fillLine_isTheSameForEveryNumberOfThreads()
    {
        QPainterPath path;
        path.addEllipse(QRectF(0, 0, 100, 70));
        path.addEllipse(QRectF(20, 20, 30, 30));
        GivenShape shape = givenPath(path, 0.037);
        QVector<Lines> results;
        for (const int threads : {1, 2, 8}) {
            omp_set_num_threads(threads);
            shape.fillLine();
            results << shape.getFillLines();
        }
        QVERIFY(results[0].size() > 1800);
        QVERIFY(results[0] == results[1]);
        QVERIFY(results[0] == results[2]);
        for (int i = 1; i < results[0].size(); ++i)
            QVERIFY(results[0][i - 1].y1() <= results[0][i].y1());
    }

private:
    static QPainterPath ring()
    {
        return pathOf({square100(), polygonOf({{30, 30}, {70, 30}, {70, 70}, {30, 70}, {30, 30}})});
    }

    /** A square whose right side has a dent between 40 and 55, without its closing point. */
    static QPolygonF dented()
    {
        return polygonOf(
            {{0, 0}, {100, 0}, {100, 40}, {90, 45}, {90, 50}, {100, 55}, {100, 100}, {0, 100}});
    }

    static GivenShape givenPath(const QPainterPath &pathMm, double spac)
    {
        GivenShape shape;
        shape.getPath() = pathMm;
        ZTFillParam param;
        param.fillType = FillType::Line;
        param.spac = spac;
        shape.setFillParam(param);
        return shape;
    }

    QScopedPointer<testsupport::SingletonGuard> singletons;
    QScopedPointer<testsupport::WarningGuard> warnings;
};

QTEST_APPLESS_MAIN(tst_ZTShapeBase_hatch)
#include "tst_ZTShapeBase_hatch.moc"
