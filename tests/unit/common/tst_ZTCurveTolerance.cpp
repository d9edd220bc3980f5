#include <support/Geometry.h>
#include <support/OwnFolder.h>
#include <support/ShxWriter.h>
#include <support/SingletonGuard.h>
#include <support/TinyFonts.h>

#include <ZTDrawEngineLib/common/ZTCurveTolerance.h>
#include <ZTDrawEngineLib/document/ZTCoord.h>
#include <ZTDrawEngineLib/shapes/ZTEllipseShape.h>
#include <ZTDrawEngineLib/shapes/ZTRectShape.h>
#include <ZTDrawEngineLib/shx/ZTShxFontManager.h>
#include <ZTDrawEngineLib/text/ZTShapeText.h>

#include <QtGui/QGuiApplication>
#include <QtTest/QTest>

#include <cmath>

namespace {

QPainterPath wave()
{
    QPainterPath path(QPointF(1, 2));
    path.cubicTo(40, 0, -20, 30, 30, 25);
    path.lineTo(5, 30);
    path.moveTo(60, 60);
    path.addEllipse(70, 70, 9, 4);
    path.moveTo(80, 80); // of a subpath that has no line
    return path;
}

/** How far an outline lies from a circle at most: its points, and the middles of its chords. */
double farthestFromCircle(const QPolygonF &outline, const QPointF &centre, double radius)
{
    double farthest = 0.0;
    const auto look = [&](const QPointF &point) {
        const double distance = std::hypot(point.x() - centre.x(), point.y() - centre.y());
        farthest = std::max(farthest, std::abs(distance - radius));
    };
    for (int i = 1; i < outline.size(); ++i) {
        look(outline[i]);
        look((outline[i - 1] + outline[i]) / 2.0);
    }
    return farthest;
}

double distanceToChord(const QPointF &point, const QPointF &from, const QPointF &to)
{
    const QPointF chord = to - from;
    const double square = QPointF::dotProduct(chord, chord);
    const double share =
        square > 0.0 ? qBound(0.0, QPointF::dotProduct(point - from, chord) / square, 1.0) : 0.0;
    const QPointF off = point - (from + chord * share);
    return std::hypot(off.x(), off.y());
}

double distanceTo(const QPolygonF &outline, const QPointF &point)
{
    double nearest = 1e9;
    for (int i = 1; i < outline.size(); ++i)
        nearest = std::min(nearest, distanceToChord(point, outline[i - 1], outline[i]));
    return nearest;
}

QPolygonF outlineOfCircle(double diameterMm)
{
    ZTEllipseShape shape;
    shape.setRect(QRectF(0, 0, diameterMm, diameterMm));
    shape.paint();
    const QList<QPolygonF> polygons = testsupport::polygonsOf(shape.getLines());
    return ZTCoord::getInstance()->getPix2MmTransform().map(polygons.value(0));
}

/** Stroke fonts, the regular one of which has an "A" that is a circle as high as the text. */
ZTShxFontParam roundFont(double height)
{
    const QString folder = QCoreApplication::applicationDirPath() + QStringLiteral("/font");
    testsupport::emptyFontFolder();
    testsupport::writeTinyFonts(folder);
    testsupport::ShxWriter writer;
    writer.above = 100;
    const QByteArray circle = testsupport::bytes({10, 50, 0, 0});     // of a radius of 50
    const QByteArray measure = testsupport::bytes({2, 8, 100, 0, 0}); // as wide as the text is high
    writer.glyphs = {{'A', circle, {}}, {'W', measure, {}}};
    testsupport::writeFile(folder + QStringLiteral("/round.shx"), writer.shapes());
    ZTShxFontManager::regFonts();
    ZTShxFontParam font;
    font.enName = QStringLiteral("round.shx");
    font.zhName = QStringLiteral("tinybig.shx");
    font.height = height;
    font.parser.init("round.shx", "tinybig.shx");
    font.parser.setTextHeight(height);
    return font;
}

} // namespace

/** How finely curves become lines. */
class tst_ZTCurveTolerance : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { guard.reset(new testsupport::SingletonGuard); }
    void cleanup() { guard.reset(); }

    void tolerance_isNoneAtFirst_andRefusesNonsense()
    {
        QCOMPARE(ZTCurveTolerance::toleranceMm(), 0.0);
        ZTCurveTolerance::setToleranceMm(0.02);
        QCOMPARE(ZTCurveTolerance::toleranceMm(), 0.02);
        for (const double nonsense : {0.0, -1.0, double(INFINITY), double(NAN)}) {
            ZTCurveTolerance::setToleranceMm(nonsense);
            QCOMPARE(ZTCurveTolerance::toleranceMm(), 0.0);
        }
    }

    void polygons_withoutTolerance_areThoseOfQt()
    {
        const QTransform matrix(2, 0.5, -0.25, 3, 7, 8);
        QVERIFY(testsupport::same(ZTCurveTolerance::polygons(wave(), matrix, 4.0),
                                  wave().toSubpathPolygons(matrix)));
        QPainterPath plain;
        plain.addEllipse(QRectF(1, 2, 3, 4));
        QCOMPARE(ZTCurveTolerance::ellipse(QRectF(1, 2, 3, 4)), plain);
        QCOMPARE(ZTCurveTolerance::arcChords(1000.0, 6.0, 7.0), 7.0);
    }

    void polygons_keepSubpathsAndCorners()
    {
        ZTCurveTolerance::setToleranceMm(0.01);
        const QTransform matrix = QTransform::fromScale(2, 2);
        const QList<QPolygonF> polygons = ZTCurveTolerance::polygons(wave(), matrix, 2.0);
        QCOMPARE(polygons.size(), 2);
        QCOMPARE(polygons[0].first(), QPointF(2, 4));
        QCOMPARE(polygons[0].last(), QPointF(10, 60));
        QCOMPARE(polygons[0][polygons[0].size() - 2], QPointF(60, 50));
        QVERIFY(polygons[1].isClosed());
        QVERIFY(ZTCurveTolerance::polygons(QPainterPath(), matrix, 2.0).isEmpty());
    }

    void polygons_stayWithinTheTolerance_data()
    {
        QTest::addColumn<double>("toleranceMm");
        QTest::addColumn<double>("unitsPerMm");
        QTest::newRow("fine") << 0.001 << 1.0;
        QTest::newRow("usual, in pixels") << 0.005 << 900.0 / 193.0;
        QTest::newRow("coarse") << 0.5 << 2.0;
    }

    void polygons_stayWithinTheTolerance()
    {
        QFETCH(double, toleranceMm);
        QFETCH(double, unitsPerMm);
        ZTCurveTolerance::setToleranceMm(toleranceMm);
        QPainterPath curve(QPointF(0, 0));
        curve.cubicTo(90, 10, -40, 70, 60, 50);
        const QTransform matrix = QTransform::fromScale(unitsPerMm, unitsPerMm);
        const QPolygonF outline = ZTCurveTolerance::polygons(curve, matrix, unitsPerMm).value(0);
        double farthest = 0.0;
        for (int i = 0; i <= 1000; ++i) {
            const double t = i / 1000.0;
            const double s = 1.0 - t; // the curve by its own formula
            const QPointF point = QPointF(90, 10) * (3 * s * s * t) +
                                  QPointF(-40, 70) * (3 * s * t * t) +
                                  QPointF(60, 50) * (t * t * t);
            farthest = std::max(farthest, distanceTo(outline, point * unitsPerMm) / unitsPerMm);
        }
        QVERIFY2(farthest <= toleranceMm, qPrintable(QString::number(farthest)));
        QVERIFY2(farthest > toleranceMm / 20.0, "far more chords than needed");
    }

    void circle_isWithinTheTolerance_data()
    {
        QTest::addColumn<double>("diameterMm");
        for (const double diameterMm : {0.1, 1.0, 10.0, 100.0, 600.0})
            QTest::addRow("%g mm", diameterMm) << diameterMm;
    }

    void circle_isWithinTheTolerance()
    {
        QFETCH(double, diameterMm);
        ZTCurveTolerance::setToleranceMm(0.005);
        const QPolygonF outline = outlineOfCircle(diameterMm);
        QVERIFY(outline.isClosed());
        const QPointF centre(diameterMm / 2, diameterMm / 2);
        const double farthest = farthestFromCircle(outline, centre, diameterMm / 2);
        QVERIFY2(farthest <= 0.005, qPrintable(QString::number(farthest)));
        const QRectF box = outline.boundingRect();
        QVERIFY(qAbs(box.width() - diameterMm) < 1e-9);
        QVERIFY(qAbs(box.height() - diameterMm) < 1e-9);
    }

    // Qt's own flattening: what the tolerance is for, and what drawings without one have.
    void circle_withoutTolerance_isCoarse()
    {
        const double farthest = farthestFromCircle(outlineOfCircle(10.0), QPointF(5, 5), 5.0);
        QVERIFY2(farthest > 0.02 && farthest < 0.03, qPrintable(QString::number(farthest)));
    }

    void ellipse_beginsRight_andTurnsClockwise()
    {
        ZTCurveTolerance::setToleranceMm(0.005);
        const QPainterPath path = ZTCurveTolerance::ellipse(QRectF(0, 0, 20, 10));
        QCOMPARE(QPointF(path.elementAt(0)), QPointF(20, 5));
        const QPolygonF outline = path.toFillPolygon();
        QVERIFY(outline[1].y() > 5.0); // y grows downward
        QVERIFY(ZTCurveTolerance::ellipse(QRectF()).isEmpty());
    }

    void resizedShape_countsAsItIsDrawn()
    {
        ZTCurveTolerance::setToleranceMm(0.005);
        ZTEllipseShape shape; // of 10 mm
        shape.setTransformParam(QTransform::fromScale(8.0, 8.0));
        const QPolygonF outline = ZTCoord::getInstance()->getPix2MmTransform().map(
            testsupport::polygonsOf(shape.getLines()).value(0));
        QVERIFY(farthestFromCircle(outline, QPointF(40, 40), 40.0) <= 0.005);
    }

    void straightShapes_areAsTheyWere()
    {
        ZTRectShape plain;
        plain.paint();
        ZTCurveTolerance::setToleranceMm(0.005);
        ZTRectShape fine;
        fine.paint();
        QCOMPARE(fine.getLines(), plain.getLines());
    }

    void arcChords_areByTheArrow()
    {
        ZTCurveTolerance::setToleranceMm(0.01);
        // r 5: cos(a / 2) = 1 - 0.002, a = 0.126502 rad; 49.67 of them are a full circle.
        QCOMPARE(ZTCurveTolerance::arcChords(5.0, 2 * M_PI, 24.0), 50.0);
        QCOMPARE(ZTCurveTolerance::arcChords(-5.0, -2 * M_PI, 24.0), 50.0);
        QCOMPARE(ZTCurveTolerance::arcChords(0.1, 2 * M_PI, 24.0), 24.0);
        QCOMPARE(ZTCurveTolerance::arcChords(0.0, 2 * M_PI, 24.0), 24.0);
        QCOMPARE(ZTCurveTolerance::arcChords(double(NAN), 1.0, 24.0), 24.0);
        QCOMPARE(ZTCurveTolerance::arcChords(5.0, double(INFINITY), 24.0), 24.0);
        QCOMPARE(ZTCurveTolerance::arcChords(1e9, 2 * M_PI, 24.0), 10000.0);
    }

    void enlarged_holdsForItsScope()
    {
        ZTCurveTolerance::setToleranceMm(0.01);
        {
            const ZTCurveTolerance::Enlarged tenfold(QTransform::fromScale(2.0, 10.0));
            QCOMPARE(ZTCurveTolerance::arcChords(0.5, 2 * M_PI, 3.0), 50.0);
        }
        QCOMPARE(ZTCurveTolerance::arcChords(5.0, 2 * M_PI, 24.0), 50.0);
    }

    void largestScale_isThatOfTheLongestDirection()
    {
        QTransform turned = QTransform::fromScale(3.0, 0.5);
        turned.rotate(30.0);
        QVERIFY(qAbs(ZTCurveTolerance::largestScale(turned) - 3.0) < 1e-12);
        // A shear by 1: the golden ratio.
        QVERIFY(qAbs(ZTCurveTolerance::largestScale(QTransform(1, 0, 1, 1, 0, 0)) -
                     1.618033988749895) < 1e-12);
        QCOMPARE(ZTCurveTolerance::largestScale(QTransform(NAN, 0, 0, 1, 0, 0)), 1.0);
    }

    void strokeText_isWithinTheTolerance_data()
    {
        QTest::addColumn<double>("toleranceMm");
        QTest::addColumn<double>("scale");
        QTest::addColumn<double>("bound");
        // Steps of 15 degrees: 10 mm * (1 - cos(7.5 degrees)) = 0.0856 mm.
        QTest::newRow("none") << 0.0 << 1.0 << 0.0856;
        QTest::newRow("set") << 0.005 << 1.0 << 0.005;
        QTest::newRow("set, and enlarged") << 0.005 << 4.0 << 0.005;
    }

    void strokeText_isWithinTheTolerance()
    {
        QFETCH(double, toleranceMm);
        QFETCH(double, scale);
        QFETCH(double, bound);
        ZTCurveTolerance::setToleranceMm(toleranceMm);
        ZTShapeText text;
        text.setFont(roundFont(20.0));
        text.setFontType(FontType::singleLine);
        text.setText(QStringLiteral("A"));
        text.setTransformParam(QTransform::fromScale(scale, scale));
        text.setUpdate(1);
        text.paint();
        const QPolygonF outline = ZTCoord::getInstance()->getPix2MmTransform().map(
            testsupport::polygonsOf(text.getLines()).value(0));
        const double radius = 10.0 * scale;
        const QRectF box = outline.boundingRect();
        QVERIFY2(qAbs(box.width() - 2 * radius) < 0.2, qPrintable(testsupport::toText(outline)));
        const QPointF centre = outline.first() - QPointF(radius, 0.0); // arcs begin at the right
        const double farthest = farthestFromCircle(outline, centre, radius);
        QVERIFY2(farthest <= bound + 1e-4, qPrintable(QString::number(farthest)));
        QVERIFY2(farthest >= bound / 2.0, qPrintable(QString::number(farthest)));
    }

    void outlineTextOnAnArc_takesTheTolerance()
    {
        const auto points = [](double toleranceMm) {
            ZTCurveTolerance::setToleranceMm(toleranceMm);
            ZTShapeText text;
            ZTRoundingParam round;
            round.isEnableRounding = true;
            round.diameter = 50.0;
            text.setRoundingParam(round);
            text.setText(QStringLiteral("OO"));
            text.setUpdate(1);
            text.paint();
            return text.getLines().elementCount();
        };
        const int coarse = points(0.1);
        const int fine = points(0.001);
        QVERIFY(coarse > 20);
        QVERIFY2(fine > 4 * coarse, qPrintable(QString::number(fine)));
    }

private:
    QScopedPointer<testsupport::SingletonGuard> guard;
};

int main(int argc, char **argv)
{
    const int exitCode = testsupport::runInOwnFolder(argc, argv);
    if (exitCode >= 0)
        return exitCode;
    const QGuiApplication application(argc, argv);
    tst_ZTCurveTolerance test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_ZTCurveTolerance.moc"
