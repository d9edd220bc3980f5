#include <support/OwnFolder.h>
#include <support/SingletonGuard.h>
#include <support/TinyFonts.h>

#include <hostkit/setup/ProcessState.h>

#include <QtTest/QTest>

using hostkit::ProcessStateGuard;

class tst_ProcessState : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { guard.reset(new testsupport::SingletonGuard); }
    void cleanup() { guard.reset(); }

    void guard_putsBackFiguresAndSortKind()
    {
        ZTCoord &coord = *ZTCoord::getInstance();
        coord.setHeight(700.0);
        coord.setDistance(1000.0);
        ZTCurveTolerance::setToleranceMm(0.25);
        ZTPointSort::getInstance()->setShapeMarkSort(EShapeSortType::ShapeSortYFromMax);
        {
            const ProcessStateGuard former;
            coord.setWidth(1.0);
            coord.setHeight(2.0);
            coord.setPhysicalWidth(3.0);
            coord.setPhysicalHeight(4.0);
            coord.setDisplayRatio(5.0);
            coord.setDistance(6.0);
            ZTCurveTolerance::setToleranceMm(0.0);
            ZTPointSort::getInstance()->setShapeMarkSort(EShapeSortType::ShapeSortNearest);
        }
        QCOMPARE(coord.getWidth(), 1600.0);
        QCOMPARE(coord.getHeight(), 700.0);
        QCOMPARE(coord.getPhysicalWidth(), 343.126);
        QCOMPARE(coord.getPhysicalHeight(), 193.0);
        QCOMPARE(coord.getDisplayRatio(), 1.0);
        QCOMPARE(coord.getDistance(), 1000.0);
        QCOMPARE(ZTCurveTolerance::toleranceMm(), 0.25);
        QCOMPARE(coord.screen2mark(), 1000.0 / (1000.0 / 65535.0) / (700.0 / 193.0));
        QCOMPARE(ZTPointSort::getInstance()->getShapeMarkSort(), EShapeSortType::ShapeSortYFromMax);
    }

    void guard_putsBackTheHeightsOfLoadedFonts()
    {
        testsupport::makeTinyFonts();
        ZTShxParser *tiny = ZTShxFontManager::getFont("tiny.shx", 7);
        {
            const ProcessStateGuard former;
            tiny->setTextHeight(99.0);
            ZTShxFontManager::getFont("tinybig.shx", 3);
        }
        QCOMPARE(tiny->getTextHeight(), 7.0);
        QCOMPARE(ZTShxFontManager::getFont("tinybig.shx", 1)->getTextHeight(), 3.0);
    }

    void guard_loadsNoFont()
    {
        testsupport::makeTinyFonts();
        {
            const ProcessStateGuard former;
        }
        QVERIFY(ZTShxFontManager::loadedFonts().empty());
    }

private:
    QScopedPointer<testsupport::SingletonGuard> guard;
};

int main(int argc, char **argv)
{
    const int code = testsupport::runInOwnFolder(argc, argv);
    if (code >= 0)
        return code;
    const QCoreApplication application(argc, argv);
    tst_ProcessState test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_ProcessState.moc"
