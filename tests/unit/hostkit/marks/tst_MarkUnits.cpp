#include <support/SingletonGuard.h>

#include <hostkit/marks/MarkUnits.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtTest/QTest>

#include <limits>

using hostkit::MarkUnits;

class tst_MarkUnits : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { guard.reset(new testsupport::SingletonGuard); }
    void cleanup() { guard.reset(); }

    void current_defaults_are500ToAMillimetre()
    {
        QCOMPARE(MarkUnits::current().perMm, 500.0);
        QCOMPARE(MarkUnits::current().toMm(1250.0), 2.5);
    }

    void current_followsTheMarkingDistanceAndNotTheScreen()
    {
        ZTCoord &coord = *ZTCoord::getInstance();
        coord.setDistance(65535.0);
        QCOMPARE(MarkUnits::current().perMm, 1000.0);
        coord.setHeight(1234.0);
        coord.setDisplayRatio(3.0);
        QCOMPARE(MarkUnits::current().perMm, 1000.0);
    }

    void ofManager_followsItsScaleSignAside()
    {
        ZTShapeManager manager(nullptr);
        QCOMPARE(MarkUnits::of(manager).perMm, 500.0);
        const double pxOfMm = 900.0 / 193.0;
        manager.setScale(2.0F, 2.0F);
        QCOMPARE(MarkUnits::of(manager).perMm, 2.0 * pxOfMm);
        manager.setScale(-4.0F, 1.0F);
        QCOMPARE(MarkUnits::of(manager).perMm, 2.0 * pxOfMm);
    }

    void ofManager_withoutAUsableScale_isTheUsualOne()
    {
        ZTShapeManager manager(nullptr);
        for (const float scale : {0.0F, std::numeric_limits<float>::quiet_NaN(),
                                  std::numeric_limits<float>::infinity()}) {
            manager.setScale(scale, 1.0F);
            QCOMPARE(MarkUnits::of(manager).perMm, 500.0);
        }
    }

    void ofManager_mirroredAtTheUsualScale_isExact()
    {
        ZTShapeManager manager(nullptr);
        const auto usual = static_cast<float>(ZTCoord::getInstance()->screen2mark());
        manager.setScale(-usual, usual);
        QCOMPARE(MarkUnits::of(manager).perMm, 500.0);
    }

private:
    QScopedPointer<testsupport::SingletonGuard> guard;
};

QTEST_MAIN(tst_MarkUnits)
#include "tst_MarkUnits.moc"
