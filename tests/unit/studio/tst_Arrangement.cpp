#include "StudioTest.h"

#include <studio/arrange/Arrangement.h>
#include <studio/arrange/ShapeCopies.h>

#include <hostkit/items/ItemExtras.h>

#include <QtTest/QTest>

using studio::ItemMove;
using studio::ShapeItem;
using studio::ShapeUnit;
using studio::Spread;

/** Where shapes go that are aligned, spread and repeated; a millimetre is ten pixels. */
class tst_Arrangement : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        test = std::make_unique<DocumentTest>();
        ZTCoord::getInstance()->setHeight(1930.0); // of 193 mm
    }
    void cleanup() { test.reset(); }

    void align_bringsEachBoxToTheEdge_data()
    {
        QTest::addColumn<int>("alignment");
        QTest::addColumn<QPointF>("place");
        QTest::newRow("left") << int(Qt::AlignLeft) << QPointF(500, 70);
        QTest::newRow("right") << int(Qt::AlignRight) << QPointF(900 - 100, 70);
        QTest::newRow("middle across") << int(Qt::AlignHCenter) << QPointF(650, 70);
        QTest::newRow("top") << int(Qt::AlignTop) << QPointF(30, 600);
        QTest::newRow("bottom") << int(Qt::AlignBottom) << QPointF(30, 1000 - 100);
        QTest::newRow("middle down") << int(Qt::AlignVCenter) << QPointF(30, 750);
        QTest::newRow("middle") << int(Qt::AlignCenter) << QPointF(650, 750);
    }

    void align_bringsEachBoxToTheEdge()
    {
        QFETCH(int, alignment);
        QFETCH(QPointF, place);
        ShapeItem *item = test->addRect(30, 70);
        const auto moves = studio::alignedMoves(unitsOf({item}), Qt::Alignment(alignment),
                                                QRectF(500, 600, 400, 400));
        QCOMPARE(moves.size(), 1);
        QCOMPARE(moves.first().toPx, place);
    }

    void align_movesAGroupAsOne()
    {
        ShapeItem *first = test->addRect(0, 0);
        ShapeItem *second = test->addRect(200, 50);
        giveGroup({first, second});
        const auto moves =
            studio::alignedMoves(unitsOf({first, second}), Qt::AlignLeft, QRectF(500, 0, 10, 10));
        QCOMPARE(moves.size(), 2);
        QCOMPARE(moves[0].toPx, QPointF(500, 0));
        QCOMPARE(moves[1].toPx, QPointF(700, 50));
    }

    void align_whatStandsRightAlready_hasNoMove()
    {
        ShapeItem *item = test->addRect(500, 0);
        QVERIFY(
            studio::alignedMoves(unitsOf({item}), Qt::AlignLeft, QRectF(500, 0, 10, 10)).isEmpty());
    }

    void spread_gaps()
    {
        // Widths 100, 200 and 100 from 0 to 1000: 600 are left for two gaps.
        ShapeItem *last = test->addRect(900, 0);
        ShapeItem *wide = test->addRect(120, 0);
        ShapeItem *first = test->addRect(0, 0);
        wide->scale(2.0, 1.0);
        const auto moves =
            studio::spreadMoves(unitsOf({last, wide, first}), Qt::Horizontal, Spread::Gaps);
        QCOMPARE(moves.size(), 1);
        QVERIFY(moves[0].item == wide);
        QCOMPARE(moves[0].toPx, QPointF(400, 0));
    }

    void spread_centres()
    {
        // Middles at 50 and 950: the third one at 500, 200 wide.
        ShapeItem *first = test->addRect(0, 0);
        ShapeItem *wide = test->addRect(120, 0);
        ShapeItem *last = test->addRect(900, 0);
        wide->scale(2.0, 1.0);
        const auto moves =
            studio::spreadMoves(unitsOf({first, wide, last}), Qt::Horizontal, Spread::Centres);
        QCOMPARE(moves.size(), 1);
        QCOMPARE(moves[0].toPx, QPointF(400, 0));
    }

    void spread_down_withoutRoom_overlapsEvenly()
    {
        // Heights of 100 from 0 to 160: 300 in 160 leave two gaps of -70.
        const studio::ShapeItems items = {test->addRect(0, 0), test->addRect(0, 10),
                                          test->addRect(0, 60)};
        const auto moves = studio::spreadMoves(unitsOf(items), Qt::Vertical, Spread::Gaps);
        QCOMPARE(moves.size(), 1);
        QVERIFY(moves[0].item == items[1]);
        QCOMPARE(moves[0].toPx, QPointF(0, 30));
    }

    void spread_ofTwo_isNothing()
    {
        QVERIFY(studio::spreadMoves(unitsOf({test->addRect(0, 0), test->addRect(9, 0)}),
                                    Qt::Horizontal, Spread::Gaps)
                    .isEmpty());
    }

    void centred_movesAllAsOne()
    {
        const studio::ShapeItems items = {test->addRect(0, 0), test->addRect(300, 100)};
        const auto moves = studio::centredMoves(unitsOf(items), {0, 0});
        QCOMPARE(moves.size(), 2);
        QCOMPARE(moves[0].toPx, QPointF(-200, -100));
        QCOMPARE(moves[1].toPx, QPointF(100, 0));
    }

    void circle_wholeTurn_hasAStepForEachPlace()
    {
        studio::CircleArray circle;
        circle.count = 8;
        QCOMPARE(circle.stepDeg(), 45.0);
        circle.totalDeg = -360.0;
        QCOMPARE(circle.stepDeg(), -45.0);
        circle.totalDeg = 90.0;
        circle.count = 4;
        QCOMPARE(circle.stepDeg(), 30.0);
    }

    void circle_goesCounterClockwise_andTurnsTheCopies()
    {
        ShapeItem *source = test->addRect(350, -50); // its middle 400 right of the origin
        source->scale(1.0, 0.5);                     // 100 by 50, from -50 to 0
        source->setPos(350, -25);
        studio::CircleArray circle;
        circle.count = 4;
        const studio::ShapeItems copies =
            copiesAround({source}, *test->document->itemMag(), circle);
        QCOMPARE(copies.size(), 3);
        QVERIFY(sameBox(*copies[0], QRectF(-25, -450, 50, 100))); // up, which is counter-clockwise
        QVERIFY(sameBox(*copies[1], QRectF(-450, -25, 100, 50)));
        QVERIFY(sameBox(*copies[2], QRectF(-25, 350, 50, 100)));
    }

    void circle_uprightCopies_keepTheirBox()
    {
        ShapeItem *source = test->addRect(350, -50);
        studio::CircleArray circle;
        circle.count = 2;
        circle.totalDeg = 90.0;
        circle.turns = false;
        const studio::ShapeItems copies =
            copiesAround({source}, *test->document->itemMag(), circle);
        QCOMPARE(copies.size(), 1);
        QVERIFY(sameBox(*copies[0], QRectF(-50, -450, 100, 100)));
        QCOMPARE(copies[0]->getTransformParam(), source->getTransformParam());
    }

private:
    static QVector<ShapeUnit> unitsOf(const studio::ShapeItems &items)
    {
        return studio::unitsOf(items, {});
    }

    static void giveGroup(const studio::ShapeItems &items)
    {
        for (ShapeItem *item : items) {
            hostkit::ItemExtras extras;
            extras.groupPath = {1};
            hostkit::setItemExtras(*item, extras);
        }
    }

    static bool sameBox(const ShapeItem &item, const QRectF &expected)
    {
        const QRectF box = studio::sceneBox(item);
        return (box.topLeft() - expected.topLeft()).manhattanLength() < 1e-6 &&
               (box.bottomRight() - expected.bottomRight()).manhattanLength() < 1e-6;
    }

    std::unique_ptr<DocumentTest> test;
};

QTEST_MAIN(tst_Arrangement)
#include "tst_Arrangement.moc"
