#include "MeasuredBoxes.h"
#include "StudioTest.h"

#include <studio/commands/HatchCommand.h>
#include <studio/commands/ShapeStateCommand.h>
#include <studio/panel/ShapeEdits.h>

#include <hostkit/drawing/DrawingFile.h>

#include <QtTest/QTest>

#include <cmath>

using studio::ShapeEdits;
using studio::ShapeItem;
using studio::ShapeItems;

namespace {

ShapeEdits::Frame frame(double across = 0.0, double down = 0.0,
                        ShapeEdits::Extent extent = ShapeEdits::Extent::Together)
{
    return {{across, down}, extent};
}

ShapeEdits::Frame each(double across = 0.0, double down = 0.0)
{
    return frame(across, down, ShapeEdits::Extent::Each);
}

} // namespace

#define COMPARE_BOX(item, ...)                                                                     \
    QVERIFY2(isNear(studio::outlineBoxMm(item), QRectF(__VA_ARGS__), 1e-7),                        \
             told(studio::outlineBoxMm(item)).constData())

class tst_ShapeEdits : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        test = std::make_unique<DocumentTest>();
        edits = std::make_unique<ShapeEdits>(*test->document);
    }
    void cleanup()
    {
        edits.reset();
        test.reset();
    }

    void rectangle_becomesTwentyByFifteen_atTen()
    {
        ShapeItem *item = select1(ShapeType::Rect, 3, 4);
        const DrawingSnapshot before = test->snapshot();
        QCOMPARE(edits->setSize(Qt::Horizontal, 20, frame()), QString());
        QCOMPARE(edits->setSize(Qt::Vertical, 15, frame()), QString());
        QCOMPARE(edits->setPlace(Qt::Horizontal, 10, frame()), QString());
        COMPARE_BOX(*item, 10, 4, 20, 15);
        QCOMPARE(stack()->count(), 3);
        for (int i = 0; i < 3; ++i)
            stack()->undo();
        COMPARE_DRAWINGS(test->snapshot(), before);
    }

    void aThousandthCounts()
    {
        ShapeItem *item = select1(ShapeType::Rect, 0, 0);
        edits->setSize(Qt::Horizontal, 10.001, frame());
        edits->setPlace(Qt::Vertical, 0.001, frame());
        COMPARE_BOX(*item, 0, 0.001, 10.001, 10);
    }

    void anchor_staysWhenTheSizeChanges_data()
    {
        QTest::addColumn<QPointF>("anchor");
        QTest::addColumn<QRectF>("boxMm");
        QTest::newRow("top left") << QPointF(0, 0) << QRectF(10, 20, 30, 10);
        QTest::newRow("middle") << QPointF(0.5, 0.5) << QRectF(0, 20, 30, 10);
        QTest::newRow("bottom right") << QPointF(1, 1) << QRectF(-10, 20, 30, 10);
    }

    void anchor_staysWhenTheSizeChanges()
    {
        QFETCH(QPointF, anchor);
        QFETCH(QRectF, boxMm);
        ShapeItem *item = select1(ShapeType::Rect, 10, 20);
        edits->setSize(Qt::Horizontal, 30, frame(anchor.x(), anchor.y()));
        COMPARE_BOX(*item, boxMm);
    }

    void anchor_isThePointThatIsPlaced()
    {
        ShapeItem *item = select1(ShapeType::Rect, 10, 20);
        edits->setPlace(Qt::Horizontal, 0, frame(0.5, 1));
        edits->setPlace(Qt::Vertical, 0, frame(0.5, 1));
        COMPARE_BOX(*item, -5, -10, 10, 10);
    }

    void together_theBoxAroundAllIsPlacedAndStretched()
    {
        ShapeItem *left = at(ShapeType::Rect, 0, 0);
        ShapeItem *right = at(ShapeType::Ellipse, 20, 10);
        test->select({left, right});
        const DrawingSnapshot before = test->snapshot();
        edits->setSize(Qt::Horizontal, 60, frame());
        COMPARE_BOX(*left, 0, 0, 20, 10);
        COMPARE_BOX(*right, 40, 10, 20, 10);
        edits->setPlace(Qt::Vertical, 5, frame());
        COMPARE_BOX(*left, 0, 5, 20, 10);
        COMPARE_BOX(*right, 40, 15, 20, 10);
        QCOMPARE(stack()->count(), 2);
        stack()->undo();
        stack()->undo();
        COMPARE_DRAWINGS(test->snapshot(), before);
    }

    void each_everyShapeHasItsOwnWidth()
    {
        ShapeItem *left = at(ShapeType::Rect, 0, 0);
        ShapeItem *right = at(ShapeType::Polygon, 20, 10);
        test->select({left, right});
        const QRectF polygonMm = studio::outlineBoxMm(*right);
        const DrawingSnapshot before = test->snapshot();
        edits->setSize(Qt::Horizontal, 25, each());
        COMPARE_BOX(*left, 0, 0, 25, 10);
        COMPARE_BOX(*right, polygonMm.x(), polygonMm.y(), 25, polygonMm.height());
        edits->setPlace(Qt::Horizontal, 7, each());
        COMPARE_BOX(*left, 7, 0, 25, 10);
        COMPARE_BOX(*right, 7, polygonMm.y(), 25, polygonMm.height());
        const DrawingSnapshot after = test->snapshot();
        stack()->undo();
        stack()->undo();
        COMPARE_DRAWINGS(test->snapshot(), before);
        stack()->redo();
        stack()->redo();
        COMPARE_DRAWINGS(test->snapshot(), after);
    }

    void lockedProportions_areKept()
    {
        ShapeItem *locked = at(ShapeType::Rect, 0, 0);
        ShapeItem *free = at(ShapeType::Rect, 0, 0);
        locked->getShapeBase()->setLockAspectRatio(true);
        test->select({locked, free});
        edits->setSize(Qt::Horizontal, 30, each());
        COMPARE_BOX(*locked, 0, 0, 30, 30);
        COMPARE_BOX(*free, 0, 0, 30, 10);
        edits->setSize(Qt::Vertical, 15, frame());
        COMPARE_BOX(*locked, 0, 0, 15, 15);
        COMPARE_BOX(*free, 0, 0, 15, 5);
    }

    // A curve is made of chords only after its transform; the box is measured all the same.
    void curves_measureWhatWasTyped_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<double>("turnedDeg");
        QTest::newRow("ellipse") << int(ShapeType::Ellipse) << 0.0;
        QTest::newRow("turned ellipse") << int(ShapeType::Ellipse) << 33.0;
        QTest::newRow("text") << int(ShapeType::Text) << 0.0;
        QTest::newRow("turned text") << int(ShapeType::Text) << 71.0;
        QTest::newRow("turned TDOT figure") << int(ShapeType::TDOT) << 20.0;
    }

    void curves_measureWhatWasTyped()
    {
        QFETCH(int, kind);
        QFETCH(double, turnedDeg);
        ShapeItem *item = select1(static_cast<ShapeType>(kind), 10, 10);
        test->takeWarnings(); // a text misses its stroke fonts
        item->setText(QStringLiteral("Oval"));
        edits->setSize(Qt::Vertical, 6, frame());
        edits->setTurn(turnedDeg, frame());
        const DrawingSnapshot before = test->snapshot();
        const QRectF startMm = studio::outlineBoxMm(*item);
        for (const double mm : {47.0, 3.25}) {
            QCOMPARE(edits->setSize(Qt::Horizontal, mm, frame(1, 0)), QString());
            const QRectF boxMm = studio::outlineBoxMm(*item);
            QVERIFY2(std::abs(boxMm.width() - mm) < 0.0005, told(boxMm).constData());
            QVERIFY2(std::abs(boxMm.right() - startMm.right()) < 0.0005, told(boxMm).constData());
        }
        for (int i = 0; i < 2; ++i)
            stack()->undo();
        COMPARE_DRAWINGS(test->snapshot(), before);
    }

    // A larger curve has more chords: its width jumps, and may jump over the wanted one.
    void aSizeThatChordsJumpOver_comesAsNearAsCanBe()
    {
        ShapeItem *item = select1(ShapeType::Ellipse, 0, 0);
        edits->setSize(Qt::Vertical, 6, frame());
        edits->setTurn(33, frame());
        edits->setSize(Qt::Horizontal, 120, frame());
        const double offMm = std::abs(studio::outlineBoxMm(*item).width() - 120);
        const QTransform found = item->getTransformParam();
        double leastMm = offMm;
        for (int i = -2000; i <= 2000; ++i) {
            item->setTransformParam(found * QTransform::fromScale(1 + i * 1e-6, 1));
            leastMm = qMin(leastMm, std::abs(studio::outlineBoxMm(*item).width() - 120));
        }
        QVERIFY2(offMm <= leastMm + 1e-4,
                 QByteArray::number(offMm) + ' ' + QByteArray::number(leastMm));
    }

    void hatch_survivesBeingMeasured()
    {
        ShapeItem *item = select1(ShapeType::Ellipse, 0, 0);
        edits->setTurn(30, frame());
        edits->setSize(Qt::Horizontal, 20, frame());
        edits->setTurn(10, frame());
        edits->setHatch([](ZTFillParam &fill) {
            fill.fillType = FillType::Line;
            fill.spac = 1.0;
        });
        const DrawingSnapshot before = test->snapshot();
        edits->setSize(Qt::Horizontal, 30, frame());
        QVERIFY(item->getFillParam().fillType == FillType::Line);
        QVERIFY(!item->getShapeBase()->getFillLines().isEmpty());
        stack()->undo();
        COMPARE_DRAWINGS(test->snapshot(), before);
    }

    void flatShapes_areRefusedASize()
    {
        ShapeItem *line = select1(ShapeType::Line, 0, 0);
        static_cast<ZTGraphicsLineItem *>(line)->setAngle(0);
        const DrawingSnapshot before = test->snapshot();
        QVERIFY(!edits->setSize(Qt::Vertical, 5, frame()).isEmpty());
        QCOMPARE(stack()->count(), 0);
        COMPARE_DRAWINGS(test->snapshot(), before);
        QCOMPARE(edits->setSize(Qt::Horizontal, 5, frame()), QString());
        COMPARE_BOX(*line, 0, 0, 5, 0);
    }

    void placesOutsideTheArea_areRefused()
    {
        ShapeItem *item = select1(ShapeType::Rect, 0, 0);
        // The area ends at 32768 pixels, 7026.9 mm.
        QCOMPARE(edits->setPlace(Qt::Horizontal, 7026, frame()), QString());
        const DrawingSnapshot before = test->snapshot();
        const QString reason = edits->setPlace(Qt::Horizontal, 7028, frame());
        QVERIFY2(reason.contains(QStringLiteral("7027")), qPrintable(reason));
        COMPARE_DRAWINGS(test->snapshot(), before);
        QCOMPARE(stack()->count(), 1);
        COMPARE_BOX(*item, 7026, 0, 10, 10);
    }

    void turn_isAboutTheMiddle()
    {
        ShapeItem *item = select1(ShapeType::Rect, 0, 0);
        edits->setSize(Qt::Horizontal, 20, frame());
        edits->setTurn(90, frame());
        COMPARE_BOX(*item, 5, -5, 10, 20);
        QVERIFY(std::abs(studio::turnDeg(*item) - 90) < 1e-9);
        edits->setTurn(0, frame());
        COMPARE_BOX(*item, 0, 0, 20, 10);
    }

    void turn_together_asOne_orEachByItself()
    {
        ShapeItem *first = at(ShapeType::Rect, 0, 0);
        ShapeItem *second = at(ShapeType::Rect, 20, 0);
        test->select({first, second});
        // About (15, 5), counter-clockwise: what was on the right comes to the top.
        edits->setTurn(90, frame());
        COMPARE_BOX(*first, 10, 10, 10, 10);
        COMPARE_BOX(*second, 10, -10, 10, 10);
        edits->setTurn(180, each());
        COMPARE_BOX(*first, 10, 10, 10, 10);
        COMPARE_BOX(*second, 10, -10, 10, 10);
        test->select({second});
        edits->setTurn(45, frame());
        test->select({first, second});
        edits->setTurn(0, frame());
        COMPARE_BOX(*first, 10, 10, 10, 10);
        COMPARE_BOX(*second, 10, -10, 10, 10);
    }

    void line_turnsAndHasALength()
    {
        ShapeItem *line = select1(ShapeType::Line, 0, 0);
        QVERIFY(std::abs(studio::turnDeg(*line) + 45) < 1e-9);
        edits->setTurn(0, frame());
        edits->setLength(8);
        QVERIFY(std::abs(static_cast<ZTGraphicsLineItem *>(line)->length() - 8) < 1e-9);
        QVERIFY(std::abs(studio::turnDeg(*line)) < 1e-9);
        const double startMm = studio::outlineBoxMm(*line).left();
        edits->setLength(20);
        QVERIFY(std::abs(studio::outlineBoxMm(*line).left() - startMm) < 1e-9);
        QVERIFY(std::abs(studio::outlineBoxMm(*line).width() - 20) < 1e-9);
    }

    void sides_ofSeveralPolygons_areOneStep()
    {
        const ShapeItems polygons{at(ShapeType::Polygon, 0, 0), at(ShapeType::Polygon, 20, 0)};
        test->select(polygons);
        const DrawingSnapshot before = test->snapshot();
        edits->setSides(8);
        for (const ShapeItem *item : polygons)
            QCOMPARE(item->property("SideCount").toInt(), 8);
        QCOMPARE(stack()->count(), 1);
        const DrawingSnapshot after = test->snapshot();
        COMPARE_UNDO_AND_REDO(*test->document, before, after);
    }

    void diameter_ofATurnedEllipse()
    {
        ShapeItem *item = select1(ShapeType::Ellipse, 0, 0);
        edits->setTurn(25, frame());
        edits->setDiameter(true, 24);
        edits->setDiameter(false, 6);
        QVERIFY(std::abs(studio::diametersMm(*item).first - 24) < 1e-9);
        QVERIFY(std::abs(studio::diametersMm(*item).second - 6) < 1e-9);
        QVERIFY(std::abs(studio::turnDeg(*item) - 25) < 1e-9);
    }

    // The distance of the lines that are marked, taken from the mark data: 500 units a millimetre.
    void hatchSpacing_isTheDistanceOnThePart_data()
    {
        QTest::addColumn<double>("mm");
        QTest::addColumn<double>("angleDeg");
        QTest::newRow("half a millimetre") << 0.5 << 0.0;
        QTest::newRow("a twentieth") << 0.05 << 0.0;
        QTest::newRow("at 45 degrees") << 0.5 << -45.0;
    }

    void hatchSpacing_isTheDistanceOnThePart()
    {
        QFETCH(double, mm);
        QFETCH(double, angleDeg);
        ShapeItem *item = select1(ShapeType::Rect, 0, 0);
        edits->setHatch([&](ZTFillParam &fill) {
            fill.fillType = FillType::Line;
            fill.spac = mm;
            fill.angle = angleDeg;
        });
        ZTMarkObject object;
        test->document->itemMag()->genMarkObject(item, item->getShapeBase(), object);
        QVERIFY(object.fillLines.size() > 10);
        for (int i = 1; i < object.fillLines.size(); ++i) {
            const QLineF &before = object.fillLines[i - 1];
            const QLineF &line = object.fillLines[i];
            // Distance of the line's start from the line before.
            const QPointF d = before.p2() - before.p1();
            const QPointF to = line.p1() - before.p1();
            const double apart =
                std::abs(d.x() * to.y() - d.y() * to.x()) / std::hypot(d.x(), d.y());
            QVERIFY2(std::abs(apart / 500.0 - mm) < 1e-4, QByteArray::number(apart / 500.0));
        }
    }

    void hatch_ofAMixedSelection_leavesLinesAlone()
    {
        const ShapeItems items{at(ShapeType::Rect, 0, 0), at(ShapeType::Line, 20, 0),
                               at(ShapeType::Ellipse, 40, 0)};
        test->select(items);
        const DrawingSnapshot before = test->snapshot();
        edits->setHatch([](ZTFillParam &fill) { fill.fillType = FillType::ULine; });
        QVERIFY(items[0]->getFillParam().fillType == FillType::ULine);
        QVERIFY(items[1]->getFillParam().fillType == FillType::None);
        QVERIFY(items[2]->getFillParam().fillType == FillType::ULine);
        QCOMPARE(stack()->count(), 1);
        const DrawingSnapshot after = test->snapshot();
        COMPARE_UNDO_AND_REDO(*test->document, before, after);
    }

    void editsThatChangeNothing_areNoStep()
    {
        test->select({at(ShapeType::Rect, 0, 0)});
        edits->setHatch([](ZTFillParam &) {});
        edits->setSides(5);
        edits->setLength(5);
        edits->setDiameter(true, 5);
        QCOMPARE(stack()->count(), 0);
        test->select({});
        edits->setPlace(Qt::Horizontal, 1, frame());
        edits->setTurn(1, frame());
        edits->setSides(5);
        QCOMPARE(stack()->count(), 0);
    }

    // Qt takes places within some 1e-12 for the same.
    void restore_givesBackThePlaceToTheLastBit()
    {
        ShapeItem *item = test->addRect(-466.25, 0);
        const studio::ShapeState before(*item);
        item->setPos(0, 50);
        item->setPos(-466.25, -2.3e-13);
        before.restore(*item);
        QVERIFY(item->pos().y() == 0.0);
    }

private:
    ShapeItem *at(ShapeType kind, double xMm, double yMm)
    {
        return test->add(kind, px(xMm), px(yMm));
    }

    ShapeItem *select1(ShapeType kind, double xMm, double yMm)
    {
        ShapeItem *item = at(kind, xMm, yMm);
        test->select({item});
        return item;
    }

    QUndoStack *stack() { return test->document->undoStack(); }

    std::unique_ptr<DocumentTest> test;
    std::unique_ptr<ShapeEdits> edits;
};

QTEST_MAIN(tst_ShapeEdits)
#include "tst_ShapeEdits.moc"
