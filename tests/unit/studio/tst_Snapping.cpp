#include <studio/canvas/Snapping.h>

#include <QtTest/QTest>

using studio::SnapFeatures;
using studio::SnapKind;
using studio::SnapResult;
using studio::SnapTarget;
using studio::SnapTargets;

/** Where dragged things come to rest, and why. */
class tst_Snapping : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void edge_reachesAnEdge()
    {
        const SnapTargets targets = box(QRectF(100, 0, 50, 50));
        const SnapResult result =
            snapped(SnapFeatures::ofBox(QRectF(103, 200, 10, 10)), targets, 5.0);
        QCOMPARE(result.shiftPx, QPointF(-3, 0));
        QCOMPARE(result.kinds, QVector<SnapKind>{SnapKind::Edge});
        // From the top of what attracts to the bottom of what is dragged.
        QCOMPARE(result.lines, QVector<QLineF>{QLineF(100, 0, 100, 210)});
    }

    void middle_reachesAMiddle_inBothDirections()
    {
        const SnapTargets targets = box(QRectF(100, 100, 50, 50)); // its middle at 125
        const SnapResult result =
            snapped(SnapFeatures::ofBox(QRectF(112, 121, 30, 10)), targets, 3.0);
        // Its own middle stands at (127, 126).
        QCOMPARE(result.shiftPx, QPointF(-2, -1));
        QCOMPARE(result.kinds, QVector<SnapKind>{SnapKind::Centre});
        QCOMPARE(result.lines.size(), 2);
    }

    void outOfReach_nothingHappens()
    {
        const SnapTargets targets = box(QRectF(100, 100, 50, 50));
        const SnapResult result = snapped(SnapFeatures::ofPoint({90, 90}), targets, 9.9);
        QCOMPARE(result.shiftPx, QPointF(0, 0));
        QVERIFY(result.lines.isEmpty());
        QVERIFY(result.kinds.isEmpty());
    }

    void nearest_wins()
    {
        SnapTargets targets;
        targets.upright = {{10, 0, 1, SnapKind::Edge}, {14, 0, 1, SnapKind::Guide}};
        targets.sort();
        QCOMPARE(snapped(SnapFeatures::ofPoint({13, 0}), targets, 5.0).shiftPx.x(), 1.0);
        QCOMPARE(snapped(SnapFeatures::ofPoint({11, 0}), targets, 5.0).shiftPx.x(), -1.0);
    }

    void grid_onlyWhereNothingElseAttracts()
    {
        SnapTargets targets = box(QRectF(100, 100, 50, 50));
        targets.gridPx = 20.0;
        SnapResult result = snapped(SnapFeatures::ofPoint({101, 43}), targets, 5.0);
        QCOMPARE(result.shiftPx, QPointF(-1, -3));
        QCOMPARE(result.kinds, (QVector<SnapKind>{SnapKind::Edge, SnapKind::Grid}));
        QCOMPARE(result.lines.size(), 1);
        result = snapped(SnapFeatures::ofPoint({50, 50}), targets, 5.0);
        QCOMPARE(result.shiftPx, QPointF(0, 0));
    }

    void grid_takesTheFirstCornerOfABox()
    {
        SnapTargets targets;
        targets.gridPx = 20.0;
        // Left at 41 and middle at 49: the left edge goes to 40.
        QCOMPARE(snapped(SnapFeatures::ofBox(QRectF(41, 0, 16, 16)), targets, 5.0).shiftPx,
                 QPointF(-1, 0));
    }

    void endPoint_attractsInBothDirections()
    {
        SnapTargets targets;
        targets.addPoint({30, 70});
        targets.sort();
        const SnapResult result = snapped(SnapFeatures::ofPoint({32, 69}), targets, 5.0);
        QCOMPARE(result.shiftPx, QPointF(-2, 1));
        QCOMPARE(result.kinds, QVector<SnapKind>{SnapKind::Point});
    }

    void targets_ofEmptyDirections_attractNothing()
    {
        SnapFeatures features;
        features.boxPx = QRectF(0, 0, 10, 10);
        QCOMPARE(snapped(features, box(QRectF(1, 1, 1, 1)), 5.0).shiftPx, QPointF(0, 0));
    }

private:
    static SnapTargets box(const QRectF &boxPx)
    {
        SnapTargets targets;
        targets.addBox(boxPx);
        targets.sort();
        return targets;
    }
};

QTEST_APPLESS_MAIN(tst_Snapping)
#include "tst_Snapping.moc"
