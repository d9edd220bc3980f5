#include <support/SingletonGuard.h>

#include <ZTDrawEngineLib/document/ZTAbstractAxis.h>
#include <ZTDrawEngineLib/document/ZTCoord.h>

#include <QtTest/QTest>

#include <limits>

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
};

QTEST_MAIN(tst_ZTAbstractAxis)
#include "tst_ZTAbstractAxis.moc"
