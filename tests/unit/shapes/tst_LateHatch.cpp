#include <ZTDrawEngineLib/shapes/hatch/LateHatch_p.h>

#include <support/WarningGuard.h>
#include <support/oracle/PlainHatch.h>

#include <ZTDrawEngineLib/shapes/ZTRectShape.h>
#include <ZTDrawEngineLib/shapes/ZTShapeBase.h>

#include <QtCore/QThread>
#include <QtGui/QPainterPath>
#include <QtTest/QTest>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <thread>
#include <vector>

using zthatch::HatchOrder;
using zthatch::LateHatch;

namespace {

constexpr int kNoLimitMs = std::numeric_limits<int>::max();

/** More scan lines than are granted unseen, and fewer than are refused. */
constexpr double kTooFineToWaitFor = 0.0004;

/** A shape whose outline is given, not painted. */
class GivenShape : public ZTShapeBase
{
public:
    void paint() override {}
    using ZTShapeBase::setFillLines;
    using ZTShapeBase::setLines;
};

QPainterPath ringPx(double sizePx)
{
    QPainterPath path;
    path.addRect(0, 0, sizePx, sizePx);
    path.addRect(sizePx / 4, sizePx / 4, sizePx / 2, sizePx / 2);
    return path;
}

HatchOrder orderOf(double spac, FillType type = FillType::ULine)
{
    return {ringPx(100), type, spac, 30.0};
}

ZTFillParam hatchParam(double spacMm)
{
    ZTFillParam param;
    param.fillType = FillType::Line;
    param.spac = spacMm;
    return param;
}

QVector<QLineF> plainLinesOf(const HatchOrder &order)
{
    return testsupport::plainHatch(order.outline, order.type, order.spac, order.angleDeg);
}

} // namespace

Q_DECLARE_METATYPE(QPainterPath)

class tst_LateHatch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lines_nothingSet_areNone() { QVERIFY(LateHatch().lines().isEmpty()); }

    void lines_areThoseOfTheOrder_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<double>("spac");
        QTest::newRow("zigzag") << static_cast<int>(FillType::ULine) << 3.0;
        QTest::newRow("separate lines") << static_cast<int>(FillType::Line) << 3.0;
        QTest::newRow("too fine to wait for")
            << static_cast<int>(FillType::Line) << kTooFineToWaitFor;
        QTest::newRow("farther apart than the outline") << static_cast<int>(FillType::Line) << 1e3;
    }

    void lines_areThoseOfTheOrder()
    {
        QFETCH(int, type);
        QFETCH(double, spac);
        const HatchOrder order = orderOf(spac, static_cast<FillType>(type));
        LateHatch hatch;
        hatch.set(order);
        QCOMPARE(hatch.lines(), plainLinesOf(order));
    }

    void lines_again_areTheSame()
    {
        LateHatch hatch;
        hatch.set(orderOf(3.0));
        const QVector<QLineF> &first = hatch.lines();
        QVERIFY(!first.isEmpty());
        QCOMPARE(&hatch.lines(), &first);
    }

    void set_linesAfterOrder_andBack_theLastCounts()
    {
        const QVector<QLineF> given = {QLineF(1, 2, 3, 4)};
        LateHatch hatch;
        hatch.set(orderOf(3.0));
        hatch.set(given);
        QCOMPARE(hatch.lines(), given);
        hatch.set(orderOf(3.0));
        QCOMPARE(hatch.lines(), plainLinesOf(orderOf(3.0)));
        hatch.set(QVector<QLineF>());
        QVERIFY(hatch.lines().isEmpty());
    }

    void copy_ofOneNotYetLookedAt_sharesItsLines()
    {
        LateHatch hatch;
        hatch.set(orderOf(3.0));
        LateHatch copy = hatch;
        QCOMPARE(copy.lines().constData(), hatch.lines().constData());
        copy.set(QVector<QLineF>());
        QCOMPARE(hatch.lines(), plainLinesOf(orderOf(3.0)));
    }

    void set_orderThatIsRefused_warnsAtOnce_data()
    {
        QTest::addColumn<double>("spac");
        QTest::addColumn<double>("sizePx");
        QTest::newRow("too many scan lines") << 1e-5 << 100.0;
        QTest::newRow("too many between the margins of a small outline") << 1e-7 << 1e-3;
        QTest::newRow("too fine for the ordinate") << 1e-9 << 1e8;
    }

    void set_orderThatIsRefused_warnsAtOnce()
    {
        QFETCH(double, spac);
        QFETCH(double, sizePx);
        LateHatch hatch;
        testsupport::WarningGuard warnings;
        hatch.set(HatchOrder{ringPx(sizePx), FillType::Line, spac, 30.0});
        QCOMPARE(warnings.take().size(), 1);
        QVERIFY(hatch.lines().isEmpty());
    }

    /** One edge meets few scan lines too many, so that their product alone would grant them. */
    void set_tooManyScanLinesOverOneEdge_warnsAtOnce()
    {
        QPainterPath edge;
        edge.moveTo(0, 0);
        edge.lineTo(1000, 0);
        LateHatch hatch;
        testsupport::WarningGuard warnings;
        hatch.set(HatchOrder{edge, FillType::Line, 1.05e-3, 30.0});
        QCOMPARE(warnings.take().size(), 1);
        QVERIFY(hatch.lines().isEmpty());
    }

    void set_spacingThatIsNone_givesNoLines_data()
    {
        QTest::addColumn<double>("spac");
        QTest::newRow("zero") << 0.0;
        QTest::newRow("negative") << -1.0;
        QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN();
        QTest::newRow("infinite") << std::numeric_limits<double>::infinity();
    }

    void set_spacingThatIsNone_givesNoLines()
    {
        QFETCH(double, spac);
        LateHatch hatch;
        hatch.set(orderOf(spac));
        QVERIFY(hatch.lines().isEmpty());
    }

    void lines_manyThreadsAtOnce_allSeeTheSame()
    {
        const QVector<QLineF> expected = plainLinesOf(orderOf(0.5));
        for (int round = 0; round < 20; ++round) {
            LateHatch hatch;
            hatch.set(orderOf(0.5));
            std::vector<LateHatch> copies(4, hatch);
            std::vector<char> same(copies.size(), 0);
            std::vector<std::thread> threads;
            for (std::size_t i = 0; i < copies.size(); ++i) {
                threads.emplace_back([&, i] { same[i] = copies[i].lines() == expected ? 1 : 0; });
            }
            for (std::thread &thread : threads)
                thread.join();
            QCOMPARE(std::count(same.begin(), same.end(), 1),
                     static_cast<std::ptrdiff_t>(same.size()));
        }
    }

    void set_sameOrderAgain_keepsTheLines_data()
    {
        QTest::addColumn<double>("spac");
        QTest::newRow("one that waits") << 3.0;
        QTest::newRow("too fine to wait for") << kTooFineToWaitFor;
    }

    void set_sameOrderAgain_keepsTheLines()
    {
        QFETCH(double, spac);
        LateHatch hatch;
        hatch.set(orderOf(spac, FillType::Line));
        const QVector<QLineF> first = hatch.lines();
        QVERIFY(!first.isEmpty());
        hatch.set(orderOf(spac, FillType::Line));
        QVERIFY(!hatch.isWaiting());
        QCOMPARE(hatch.lines().constData(), first.constData());
    }

    void set_orderThatDiffersALittle_laysOutAnew_data()
    {
        QTest::addColumn<QPainterPath>("outline");
        QTest::addColumn<int>("type");
        QTest::addColumn<double>("spac");
        QTest::addColumn<double>("angleDeg");
        const int line = static_cast<int>(FillType::Line);
        const int zigzag = static_cast<int>(FillType::ULine);
        const auto movedAt = [](double x, double y) {
            QPainterPath path = ringPx(100);
            path.setElementPositionAt(2, x, y);
            return path;
        };
        QPainterPath longer = ringPx(100);
        longer.lineTo(1, 1);
        QPainterPath subpath = ringPx(100);
        subpath.moveTo(1, 1);
        QPainterPath wound = ringPx(100);
        wound.setFillRule(Qt::WindingFill);
        const double next = std::nextafter(100.0, 200.0);
        QTest::newRow("kind") << ringPx(100) << zigzag << 3.0 << 30.0;
        QTest::newRow("spacing") << ringPx(100) << line << std::nextafter(3.0, 4.0) << 30.0;
        QTest::newRow("angle") << ringPx(100) << line << 3.0 << std::nextafter(30.0, 31.0);
        QTest::newRow("x of a point") << movedAt(next, 100) << line << 3.0 << 30.0;
        QTest::newRow("y of a point") << movedAt(100, next) << line << 3.0 << 30.0;
        QTest::newRow("one point more") << longer << line << 3.0 << 30.0;
        QTest::newRow("one subpath more") << subpath << line << 3.0 << 30.0;
        QTest::newRow("fill rule") << wound << line << 3.0 << 30.0;
    }

    void set_orderThatDiffersALittle_laysOutAnew()
    {
        QFETCH(QPainterPath, outline);
        QFETCH(int, type);
        QFETCH(double, spac);
        QFETCH(double, angleDeg);
        LateHatch hatch;
        hatch.set(orderOf(3.0, FillType::Line));
        const QVector<QLineF> first = hatch.lines();
        const HatchOrder order{outline, static_cast<FillType>(type), spac, angleDeg};
        hatch.set(order);
        QVERIFY(hatch.isWaiting());
        QVERIFY(hatch.lines().constData() != first.constData());
        QCOMPARE(hatch.lines(), plainLinesOf(order));
    }

    void set_zeroOfTheOtherSign_laysOutAnew()
    {
        HatchOrder order = orderOf(3.0);
        order.angleDeg = 0.0;
        LateHatch hatch;
        hatch.set(order);
        static_cast<void>(hatch.lines());
        order.angleDeg = -0.0;
        hatch.set(order);
        QVERIFY(hatch.isWaiting());
        order.outline.setElementPositionAt(0, -0.0, 0.0);
        static_cast<void>(hatch.lines());
        hatch.set(order);
        QVERIFY(hatch.isWaiting());
    }

    void set_orderThatIsRefusedAgain_warnsAgain()
    {
        LateHatch hatch;
        testsupport::WarningGuard warnings;
        for (int i = 1; i <= 2; ++i) {
            hatch.set(orderOf(1e-5));
            QCOMPARE(warnings.take().size(), 1);
        }
    }

    void set_orderAfterTheSameWasReplacedByLines_laysOutAnew()
    {
        LateHatch hatch;
        hatch.set(orderOf(3.0));
        static_cast<void>(hatch.lines());
        hatch.set(QVector<QLineF>{QLineF(1, 2, 3, 4)});
        hatch.set(orderOf(3.0));
        QCOMPARE(hatch.lines(), plainLinesOf(orderOf(3.0)));
    }

    void waitingCount_isOfHatchesThatNobodyHasLookedAt()
    {
        QCOMPARE(LateHatch::waitingCount(), 0);
        LateHatch looked;
        looked.set(orderOf(3.0));
        {
            LateHatch gone;
            gone.set(orderOf(4.0));
            const LateHatch copy = gone;
            QVERIFY(copy.isWaiting());
            QCOMPARE(LateHatch::waitingCount(), 2);
        }
        QCOMPARE(LateHatch::waitingCount(), 1);
        static_cast<void>(looked.lines());
        QVERIFY(!looked.isWaiting());
        QCOMPARE(LateHatch::waitingCount(), 0);
    }

    void lookTogether_all_areAsOneWouldLayThemOut()
    {
        for (int round = 0; round < 5; ++round) {
            std::vector<LateHatch> hatches(200);
            for (std::size_t i = 0; i < hatches.size(); ++i)
                hatches[i].set(orderOf(1.0 + 0.01 * static_cast<double>(i)));
            zthatch::lookTogether(hatches, kNoLimitMs);
            QCOMPARE(LateHatch::waitingCount(), 0);
            for (std::size_t i = 0; i < hatches.size(); i += 40)
                QCOMPARE(hatches[i].lines(),
                         plainLinesOf(orderOf(1.0 + 0.01 * static_cast<double>(i))));
        }
    }

    void set_tooFineToWaitFor_waitsForNobody()
    {
        LateHatch hatch;
        hatch.set(orderOf(kTooFineToWaitFor, FillType::Line));
        QVERIFY(!hatch.isWaiting());
        QVERIFY(!hatch.lines().isEmpty());
    }

    /** Each thread looks at one at least, so that asking again and again comes to an end. */
    void lookTogether_noTime_looksAtOneAThread()
    {
        std::vector<LateHatch> hatches(200);
        for (std::size_t i = 0; i < hatches.size(); ++i)
            hatches[i].set(orderOf(3.0 + 0.01 * static_cast<double>(i)));
        zthatch::lookTogether(hatches, 0);
        const int looked = 200 - LateHatch::waitingCount();
        QVERIFY(looked >= 1);
        QVERIFY(looked <= QThread::idealThreadCount());
    }

    void shape_paintedAnewAsItWas_keepsItsHatch()
    {
        ZTRectShape shape;
        shape.setFillParam(hatchParam(0.5));
        shape.paint();
        const QVector<QLineF> first = shape.getFillLines();
        QVERIFY(!first.isEmpty());
        shape.setUpdate(1);
        shape.paint();
        QCOMPARE(shape.getFillLines().constData(), first.constData());
        shape.setRect({0, 0, 10, 11});
        shape.paint();
        QVERIFY(shape.getFillLines() != first);
    }

    void shape_paintedAnewAsItWas_keepsOneOutline()
    {
        ZTRectShape shape;
        shape.setFillParam(hatchParam(0.5));
        shape.paint();
        const QPainterPath before = shape.getLines(); // shares its points with the hatch
        shape.setUpdate(1);
        shape.paint();
        // A path is a pointer to its points.
        QVERIFY(std::memcmp(&shape.getLines(), &before, sizeof before) == 0);
    }

    void layOutHatches_shapesThatArePainted_haveTheirs()
    {
        std::vector<ZTRectShape> shapes(10);
        QVector<const ZTShapeBase *> all{nullptr};
        for (ZTRectShape &shape : shapes) {
            shape.setFillParam(hatchParam(0.5));
            shape.paint();
            all << &shape;
        }
        shapes[3].setUpdate(1);
        ZTShapeBase::layOutHatches(all, kNoLimitMs);
        QCOMPARE(LateHatch::waitingCount(), 1); // what is marked is laid out anew anyway
        for (const ZTRectShape &shape : shapes)
            QCOMPARE(shape.getFillLines(), shapes[0].getFillLines());
        ZTShapeBase::layOutHatches({}, kNoLimitMs);
        ZTShapeBase::layOutHatches({nullptr}, kNoLimitMs);
    }

    /** What a shape's hatch is made from is what stood there when it was filled. */
    void shape_outlineReplacedAfterFill_keepsTheHatchOfTheOldOne()
    {
        GivenShape shape;
        shape.setLines(ringPx(100));
        shape.fillULine(FillType::Line, 3.0, 30.0);
        shape.setLines(ringPx(10));
        QCOMPARE(shape.getFillLines(), plainLinesOf(orderOf(3.0, FillType::Line)));
    }

    void shape_settingsChangedAfterFill_keepsTheHatchOfTheOldOnes()
    {
        GivenShape shape;
        shape.setLines(ringPx(100));
        shape.fillULine(FillType::Line, 3.0, 30.0);
        shape.setFillParam(ZTFillParam());
        shape.setTransformParam(QTransform::fromScale(2, 2));
        QCOMPARE(shape.getFillLines(), plainLinesOf(orderOf(3.0, FillType::Line)));
    }

    void shape_copiedBeforeItsHatchIsLookedAt_hasItsOwn()
    {
        GivenShape shape;
        shape.setLines(ringPx(100));
        shape.fillULine(FillType::Line, 3.0, 30.0);
        GivenShape copy(shape);
        shape.setFillLines({});
        QCOMPARE(copy.getFillLines(), plainLinesOf(orderOf(3.0, FillType::Line)));
        QVERIFY(shape.getFillLines().isEmpty());
    }
};

QTEST_APPLESS_MAIN(tst_LateHatch)
#include "tst_LateHatch.moc"
