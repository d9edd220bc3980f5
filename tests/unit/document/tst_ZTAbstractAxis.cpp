#include <support/SingletonGuard.h>

#include <ZTDrawEngineLib/document/ZTAbstractAxis.h>
#include <ZTDrawEngineLib/document/ZTCoord.h>

#include <QtCore/QElapsedTimer>
#include <QtTest/QTest>

#include <limits>

namespace {

/** A ruler of any length. */
class OpenRuler : public ZTAbstractAxis
{
public:
    OpenRuler(double lengthTicks, double step)
    {
        length = lengthTicks;
        pixelsPerUnit = 1.0;
        setTickStep(step);
    }

    QVector<double> positions(double extentPx) const
    {
        QVector<double> result;
        for (const Tick &tick : visibleTicks(extentPx))
            result.append(tick.positionPx);
        return result;
    }
};

} // namespace

class tst_ZTAbstractAxis : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void constructor_takesTheScaleAtThatMoment()
    {
        struct OpenAxis : ZTAbstractAxis
        {
            double pixels() const { return pixelsPerUnit; }
        };
        const testsupport::SingletonGuard guard;
        ZTCoord::getInstance()->setHeight(1930.0);
        OpenAxis axis;
        ZTCoord::getInstance()->setHeight(193.0);
        QCOMPARE(axis.pixels(), 10.0);
        QVERIFY(axis.getOrigin() == 0.0);
        QVERIFY(axis.getLength() == 0.0);
        QCOMPARE(axis.getTickStep(), 10.0);
    }

    void setLength_storesTicks()
    {
        ZTAbstractAxis axis;
        axis.setLength(800.0);
        QCOMPARE(axis.getLength(), 80.0);
    }

    void setOrigin_storesTicks()
    {
        ZTAbstractAxis axis;
        axis.setOrigin(30.0);
        QCOMPARE(axis.getOrigin(), 3.0);
        axis.setTickStep(5.0);
        QCOMPARE(axis.getOrigin(), 3.0);
        axis.setOrigin(30.0);
        QCOMPARE(axis.getOrigin(), 6.0);
    }

    void niceNumber_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<double>("nice");
        QTest::newRow("4.6") << 4.6 << 5.0;
        QTest::newRow("46") << 46.0 << 50.0;
        QTest::newRow("0.46") << 0.46 << 0.5;
        QTest::newRow("10") << 10.0 << 10.0;
        QTest::newRow("1") << 1.0 << 1.0;
        QTest::newRow("1.1") << 1.1 << 2.0;
        QTest::newRow("2.1") << 2.1 << 2.5;
        QTest::newRow("5.1") << 5.1 << 10.0;
        QTest::newRow("0") << 0.0 << 1.0;
        QTest::newRow("-3") << -3.0 << 1.0;
        QTest::newRow("nan") << std::numeric_limits<double>::quiet_NaN() << 1.0;
        QTest::newRow("inf") << std::numeric_limits<double>::infinity() << 1.0;
    }

    void niceNumber()
    {
        QFETCH(double, value);
        QFETCH(double, nice);
        QCOMPARE(ZTAbstractAxis::niceNumber(value), nice);
    }

    void visibleTicks_negativeStep_runAgainstTheRuler()
    {
        QCOMPARE(OpenRuler(4.0, -10.0).positions(100.0),
                 (QVector<double>{0.0, -10.0, -20.0, -30.0}));
    }

    void visibleTicks_longRulerAndAnyStep_endAtOnce_data()
    {
        QTest::addColumn<double>("step");
        QTest::addColumn<int>("count");
        // What stands 500 pixels outside the strip is not there any more.
        QTest::newRow("negative") << -10.0 << 51;
        QTest::newRow("hardly negative") << -1e-300 << 10000;
        QTest::newRow("zero") << 0.0 << 10000;
        QTest::newRow("positive") << 10.0 << 61;
        QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN() << 0;
        QTest::newRow("infinite") << std::numeric_limits<double>::infinity() << 0;
        QTest::newRow("minus infinite") << -std::numeric_limits<double>::infinity() << 0;
    }

    void visibleTicks_longRulerAndAnyStep_endAtOnce()
    {
        QFETCH(double, step);
        QFETCH(int, count);
        const OpenRuler ruler(1e12, step);
        QElapsedTimer timer;
        timer.start();
        QCOMPARE(ruler.positions(100.0).size(), count);
        QVERIFY2(timer.elapsed() < 1000, qPrintable(QString::number(timer.elapsed())));
    }
};

QTEST_MAIN(tst_ZTAbstractAxis)
#include "tst_ZTAbstractAxis.moc"
