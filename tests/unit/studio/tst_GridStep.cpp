#include <support/SingletonGuard.h>

#include <studio/canvas/GridStep.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtTest/QTest>

/** How far apart grid lines stand; a millimetre is ten pixels at scale 1. */
class tst_GridStep : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        guard.reset(new testsupport::SingletonGuard);
        ZTCoord::getInstance()->setHeight(1930.0); // of 193 mm
    }
    void cleanup() { guard.reset(); }

    void step_followsTheScale_data()
    {
        QTest::addColumn<double>("scale");
        QTest::addColumn<double>("stepMm");
        QTest::addColumn<int>("every");
        // The least step of 8 pixels or more.
        QTest::newRow("1") << 1.0 << 1.0 << 10;
        QTest::newRow("0.5") << 0.5 << 2.0 << 5;
        QTest::newRow("0.2") << 0.2 << 5.0 << 2;
        QTest::newRow("0.09") << 0.09 << 10.0 << 10;
        QTest::newRow("10") << 10.0 << 0.1 << 10;
        QTest::newRow("20") << 20.0 << 0.05 << 2;
    }

    void step_followsTheScale()
    {
        QFETCH(double, scale);
        QFETCH(double, stepMm);
        QFETCH(int, every);
        QCOMPARE(studio::gridStepMm(scale), stepMm);
        QCOMPARE(studio::gridMajorEvery(stepMm), every);
    }

private:
    std::unique_ptr<testsupport::SingletonGuard> guard;
};

QTEST_APPLESS_MAIN(tst_GridStep)
#include "tst_GridStep.moc"
