#include <ZTDrawEngineLib/shapes/hatch/LateHatch_p.h>

#include <support/WarningGuard.h>
#include <support/oracle/PlainHatch.h>

#include <ZTDrawEngineLib/shapes/ZTShapeBase.h>

#include <QtGui/QPainterPath>
#include <QtTest/QTest>

#include <algorithm>
#include <limits>
#include <thread>
#include <vector>

using zthatch::HatchOrder;
using zthatch::LateHatch;

namespace {

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

QVector<QLineF> plainLinesOf(const HatchOrder &order)
{
    return testsupport::plainHatch(order.outline, order.type, order.spac, order.angleDeg);
}

} // namespace

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
        QTest::newRow("too fine to wait for") << static_cast<int>(FillType::Line) << 0.002;
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
