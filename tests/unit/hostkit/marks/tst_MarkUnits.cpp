#include <support/SingletonGuard.h>

#include <hostkit/marks/MarkUnits.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtTest/QTest>

class tst_MarkUnits : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { guard.reset(new testsupport::SingletonGuard); }
    void cleanup() { guard.reset(); }

    void current_defaults_are500ToAMillimetre()
    {
        QCOMPARE(hostkit::MarkUnits::current().perMm, 500.0);
        QCOMPARE(hostkit::MarkUnits::current().toMm(1250.0), 2.5);
    }

    void current_followsTheMarkingDistanceAndNotTheScreen()
    {
        ZTCoord &coord = *ZTCoord::getInstance();
        coord.setDistance(65535.0);
        QCOMPARE(hostkit::MarkUnits::current().perMm, 1000.0);
        coord.setHeight(1234.0);
        coord.setDisplayRatio(3.0);
        QCOMPARE(hostkit::MarkUnits::current().perMm, 1000.0);
    }

private:
    QScopedPointer<testsupport::SingletonGuard> guard;
};

QTEST_GUILESS_MAIN(tst_MarkUnits)
#include "tst_MarkUnits.moc"
