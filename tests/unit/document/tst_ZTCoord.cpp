#include <support/SingletonGuard.h>

#include <ZTDrawEngineLib/document/ZTCoord.h>

#include <QtTest/QTest>

class tst_ZTCoord : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { guard.reset(new testsupport::SingletonGuard); }
    void cleanup() { guard.reset(); }

    void defaults_describeTheReferenceScreen()
    {
        const ZTCoord &coord = *ZTCoord::getInstance();
        QCOMPARE(coord.getPhysicalWidth(), 343.126);
        QCOMPARE(coord.getPhysicalHeight(), 193.0);
        QCOMPARE(coord.getWidth(), 1600.0);
        QCOMPARE(coord.getHeight(), 900.0);
        QCOMPARE(coord.getDisplayRatio(), 1.0);
        QCOMPARE(coord.getDistance(), 131070.0);
    }

    void mm2pix_defaults_followTheVerticalFigures()
    {
        ZTCoord &coord = *ZTCoord::getInstance();
        QCOMPARE(coord.mm2pix(1.0), 900.0 / 193.0);
        coord.setWidth(1.0);
        coord.setPhysicalWidth(7.0);
        QCOMPARE(coord.mm2pix(1.0), 900.0 / 193.0);
        coord.setHeight(1930.0);
        QCOMPARE(coord.mm2pix(2.0), 20.0);
        coord.setPhysicalHeight(386.0);
        QCOMPARE(coord.mm2pix(2.0), 10.0);
        coord.setDisplayRatio(3.0);
        QCOMPARE(coord.mm2pix(2.0), 30.0);
        QCOMPARE(coord.pix2mm(30.0), 2.0);
    }

    void zero_staysZeroBothWays()
    {
        const ZTCoord &coord = *ZTCoord::getInstance();
        QVERIFY(coord.mm2pix(0.0) == 0.0);
        QVERIFY(coord.pix2mm(coord.mm2pix(0.0)) == 0.0);
    }

    void displayRatioOfZero_givesTheSmallConstant()
    {
        ZTCoord &coord = *ZTCoord::getInstance();
        coord.setDisplayRatio(0.0);
        QVERIFY(coord.mm2pix(123.0) == 0.0);
        for (const double pix : {0.0, 1.0, -5.5e10})
            QVERIFY(coord.pix2mm(pix) == 1e-08);
    }

    void transforms_scaleBothAxesAlike()
    {
        ZTCoord &coord = *ZTCoord::getInstance();
        coord.setHeight(1930.0);
        QCOMPARE(coord.getMm2pixTransform(), QTransform::fromScale(10.0, 10.0));
        QCOMPARE(coord.getPix2MmTransform(), QTransform::fromScale(0.1, 0.1));
    }

    void screen2mark_defaults_isAbout107()
    {
        const ZTCoord &coord = *ZTCoord::getInstance();
        QCOMPARE(coord.screen2mark(), 500.0 / (900.0 / 193.0));
        QVERIFY(qAbs(coord.screen2mark() - 107.2) < 0.03);
    }

    void setDistance_sameValue_changesNothing()
    {
        ZTCoord &coord = *ZTCoord::getInstance();
        const double before = coord.screen2mark();
        QCOMPARE(coord.speed2ratio(200.0), 1.0);
        coord.setDistance(131070.0);
        QCOMPARE(coord.screen2mark(), before);
        QCOMPARE(coord.speed2ratio(200.0), 1.0);
    }

    void setDistance_changesMarkUnitsAndNotPixels()
    {
        ZTCoord &coord = *ZTCoord::getInstance();
        const double pixPerMm = coord.mm2pix(1.0);
        const double before = coord.screen2mark();
        coord.setDistance(65535.0);
        QCOMPARE(coord.getDistance(), 65535.0);
        QCOMPARE(coord.mm2pix(1.0), pixPerMm);
        QCOMPARE(coord.screen2mark(), before * 2.0);
        QCOMPARE(coord.speed2ratio(200.0), 2.0);
    }

    void release_forgetsEverySetting()
    {
        ZTCoord::getInstance()->setHeight(1.0);
        ZTCoord::release();
        ZTCoord::release();
        QCOMPARE(ZTCoord::getInstance()->getHeight(), 900.0);
    }

private:
    QScopedPointer<testsupport::SingletonGuard> guard;
};

QTEST_GUILESS_MAIN(tst_ZTCoord)
#include "tst_ZTCoord.moc"
