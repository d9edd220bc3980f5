#include "MeasuredBoxes.h"
#include "StudioTest.h"

#include <studio/commands/ItemGeometryCommand.h>
#include <studio/shapes/ShapeMeasures.h>

#include <QtTest/QTest>

#include <cmath>

using studio::diametersMm;
using studio::isMirrored;
using studio::moved;
using studio::outlineBoxMm;
using studio::Placement;
using studio::ShapeItem;
using studio::stretched;
using studio::turnDeg;
using studio::turned;
using studio::withDiameters;

namespace {

bool near(double a, double b, double by = 1e-9) { return std::abs(a - b) <= by; }

bool near(const QRectF &a, const QRectF &b, double by = 1e-9) { return isNear(a, b, by); }

void give(const Placement &placement)
{
    placement.item->setTransformParam(placement.transform);
    placement.item->setPos(placement.posPx);
}

} // namespace

#define COMPARE_BOX(actual, ...)                                                                   \
    QVERIFY2(near(actual, QRectF(__VA_ARGS__)), told(actual).constData())

class tst_ShapeMeasures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { test = std::make_unique<DocumentTest>(); }
    void cleanup() { test.reset(); }

    void box_isInMillimetresOfTheField()
    {
        COMPARE_BOX(outlineBoxMm(*at(ShapeType::Rect, 3, -4)), 3, -4, 10, 10);
        COMPARE_BOX(outlineBoxMm(*at(ShapeType::Ellipse, 1, 2)), 1, 2, 10, 10);
    }

    // Ten by ten, turned by 45 degrees, is as wide as its diagonal.
    void box_ofATurnedSquare_isAsWideAsItsDiagonal()
    {
        ShapeItem *square = at(ShapeType::Rect, 0, 0);
        give(turned(*square, {5, 5}, 45));
        const double half = 5 * std::sqrt(2.0);
        COMPARE_BOX(outlineBoxMm(*square), 5 - half, 5 - half, 2 * half, 2 * half);
    }

    void box_ofAFlatLine_hasNoHeight_andCounts()
    {
        ShapeItem *line = at(ShapeType::Line, 20, 30);
        static_cast<ZTGraphicsLineItem *>(line)->setAngle(0);
        static_cast<ZTGraphicsLineItem *>(line)->setLength(7);
        COMPARE_BOX(outlineBoxMm(*line), 20, 30, 7, 0);
        ShapeItem *square = at(ShapeType::Rect, 0, 0);
        COMPARE_BOX(studio::outlineBoxMm({square, line}), 0, 0, 27, 30);
        COMPARE_BOX(studio::outlineBoxMm({line, square}), 0, 0, 27, 30);
        QVERIFY(studio::outlineBoxMm(studio::ShapeItems()).isNull());
    }

    // The box is what is marked: outlines of the mark data, brought back to millimetres.
    void box_isThatOfTheMarkData_data()
    {
        QTest::addColumn<int>("kind");
        for (const ShapeType kind : {ShapeType::Rect, ShapeType::Ellipse, ShapeType::Polygon,
                                     ShapeType::Line, ShapeType::TDOT, ShapeType::Text})
            QTest::newRow(ShapeType2String(kind)) << int(kind);
    }

    void box_isThatOfTheMarkData()
    {
        QFETCH(int, kind);
        ShapeItem *item = at(static_cast<ShapeType>(kind), 12, 34);
        test->takeWarnings(); // a text misses its stroke fonts
        item->setText(QStringLiteral("Box"));
        give(turned(*item, {0, 0}, 33));
        give(stretched(*item, {1, 2}, 1.7, 0.6));
        ZTMarkObject object;
        test->document->itemMag()->genMarkObject(item, item->getShapeBase(), object);
        QRectF boxMark = object.lines.first().boundingRect();
        for (const QPolygonF &polygon : object.lines)
            boxMark |= polygon.boundingRect();
        const double perMm = 500.0; // mark units
        const QRectF boxMm(boxMark.topLeft() / perMm, boxMark.size() / perMm);
        const QRectF actual = outlineBoxMm(*item);
        // The scale of the mark data is a float.
        QVERIFY2(near(actual, boxMm, 1e-4), (told(actual) + " / " + told(boxMm)).constData());
    }

    void turn_isCounterClockwise_data()
    {
        QTest::addColumn<double>("byDeg");
        QTest::addColumn<double>("shownDeg");
        QTest::newRow("0") << 0.0 << 0.0;
        QTest::newRow("30") << 30.0 << 30.0;
        QTest::newRow("-30") << -30.0 << -30.0;
        QTest::newRow("90") << 90.0 << 90.0;
        QTest::newRow("180") << 180.0 << 180.0;
        QTest::newRow("-180") << -180.0 << 180.0;
        QTest::newRow("270") << 270.0 << -90.0;
        QTest::newRow("360") << 360.0 << 0.0;
    }

    void turn_isCounterClockwise()
    {
        QFETCH(double, byDeg);
        QFETCH(double, shownDeg);
        ShapeItem *square = at(ShapeType::Rect, 0, 0);
        give(turned(*square, {5, 5}, byDeg));
        QVERIFY2(near(turnDeg(*square), shownDeg),
                 QByteArray::number(turnDeg(*square), 'g', 17).constData());
        const double back = studio::wrappedDeg(turnDeg(*square) - byDeg);
        QVERIFY(near(back, 0.0));
    }

    // Up and to the right on the screen, where y grows downward.
    void turned_movesTheRightOfAShapeUpward()
    {
        ShapeItem *line = at(ShapeType::Line, 0, 0);
        static_cast<ZTGraphicsLineItem *>(line)->setAngle(0);
        static_cast<ZTGraphicsLineItem *>(line)->setLength(10);
        give(turned(*line, {0, 0}, 90));
        COMPARE_BOX(outlineBoxMm(*line), 0, -10, 0, 10);
        QVERIFY(near(turnDeg(*line), 90.0));
    }

    void quarterTurns_areExact()
    {
        ShapeItem *square = at(ShapeType::Rect, 0, 0);
        for (int i = 0; i < 4; ++i)
            give(turned(*square, {5, 5}, 90));
        QVERIFY(square->getTransformParam() == QTransform());
    }

    void mirroredShape_hasTheAngleThatItWasTurnedBy()
    {
        ShapeItem *square = at(ShapeType::Rect, 0, 0);
        QVERIFY(!isMirrored(*square));
        give(stretched(*square, {5, 5}, -1, 1));
        QVERIFY(isMirrored(*square));
        QCOMPARE(turnDeg(*square), 0.0);
        give(turned(*square, {5, 5}, 30));
        QVERIFY(near(turnDeg(*square), 30.0));
        give(stretched(*square, {5, 5}, 1, -1));
        QVERIFY(!isMirrored(*square));
    }

    void stretched_keepsItsAnchor()
    {
        ShapeItem *square = at(ShapeType::Rect, 10, 20);
        give(stretched(*square, {20, 30}, 2, 1.5));
        COMPARE_BOX(outlineBoxMm(*square), 0, 15, 20, 15);
    }

    void moved_isInMillimetres()
    {
        ShapeItem *square = at(ShapeType::Rect, 1, 1);
        give(moved(*square, {0.001, -2}));
        COMPARE_BOX(outlineBoxMm(*square), 1.001, -1, 10, 10);
    }

    void diameters_areAlongTheEllipsesOwnAxes()
    {
        ShapeItem *ellipse = at(ShapeType::Ellipse, 0, 0);
        give(stretched(*ellipse, {5, 5}, 2, 1));
        give(turned(*ellipse, {5, 5}, 37));
        QVERIFY(near(diametersMm(*ellipse).first, 20));
        QVERIFY(near(diametersMm(*ellipse).second, 10));
        give(withDiameters(*ellipse, {30, 4}));
        QVERIFY(near(diametersMm(*ellipse).first, 30));
        QVERIFY(near(diametersMm(*ellipse).second, 4));
        QVERIFY(near(turnDeg(*ellipse), 37));
        give(turned(*ellipse, outlineBoxMm(*ellipse).center(), -37));
        const QRectF box = outlineBoxMm(*ellipse);
        QVERIFY2(near(box, {-10, 3, 30, 4}, 0.02), told(box).constData());
    }

    // Stretched after a turn, an ellipse has axes that its drawing did not have: of the square's
    // diagonal direction 2, of the other one 1, stretched across by 3.
    void diameters_ofAShearedEllipse()
    {
        ShapeItem *ellipse = at(ShapeType::Ellipse, 0, 0);
        give(stretched(*ellipse, {5, 5}, 2, 1));
        give(turned(*ellipse, {5, 5}, 45));
        give(stretched(*ellipse, {5, 5}, 3, 1));
        const studio::Diameters before = diametersMm(*ellipse);
        // The area of an ellipse stretches with it: 20 * 10 * 3.
        QVERIFY(near(before.first * before.second, 600.0));
        // And so does the sum of the squares of two half axes at right angles across and down:
        // (20² + 10²) / 2 * (9 + 1).
        QVERIFY(near(before.first * before.first + before.second * before.second, 2500.0, 1e-8));
        give(withDiameters(*ellipse, {12, 8}));
        QVERIFY(near(diametersMm(*ellipse).first, 12));
        QVERIFY(near(diametersMm(*ellipse).second, 8));
    }

private:
    ShapeItem *at(ShapeType kind, double xMm, double yMm)
    {
        return test->add(kind, px(xMm), px(yMm));
    }

    std::unique_ptr<DocumentTest> test;
};

QTEST_MAIN(tst_ShapeMeasures)
#include "tst_ShapeMeasures.moc"
