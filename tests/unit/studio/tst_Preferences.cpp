#include "StudioTest.h"

#include <studio/choices/Preferences.h>

#include <QtTest/QTest>

using studio::Preferences;

/** What a user chose, between two starts of the program. */
class tst_Preferences : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { test = std::make_unique<StudioTest>(); }
    void cleanup() { test.reset(); }

    void firstStart_hasTheUsualOnes()
    {
        const Preferences kept = Preferences::kept();
        QCOMPARE(kept.unit, studio::LengthUnit::Millimetre);
        QVERIFY(!kept.isYUp && kept.isGridShown && !kept.isToolKept);
        QCOMPARE(kept.theme, studio::Theme::System);
        QCOMPARE(kept.gridMm, 0.0);
        QCOMPARE(kept.newDrawing.curveToleranceMm, 0.005);
        QCOMPARE(kept.newDrawing.fieldMm, QRect(-300, -300, 600, 600));
        QVERIFY(!kept.newDrawing.isExportYUp);
        QCOMPARE(kept.newShape.pen, 1);
        QCOMPARE(kept.newShape.hatch.fillType, FillType::None);
    }

    void all_isKept()
    {
        Preferences chosen;
        chosen.unit = studio::LengthUnit::Inch;
        chosen.isYUp = true;
        chosen.theme = studio::Theme::Dark;
        chosen.isGridShown = false;
        chosen.gridMm = 2.54;
        chosen.isToolKept = true;
        chosen.autosaveSeconds = 17;
        chosen.newDrawing.fieldMm = QRect(0, -110, 110, 110);
        chosen.newDrawing.curveToleranceMm = 0.0123;
        chosen.newDrawing.isExportYUp = true;
        chosen.newShape.pen = 16;
        chosen.newShape.hatch.fillType = FillType::ULine;
        chosen.newShape.hatch.spac = 0.05;
        chosen.newShape.hatch.angle = -45.0;
        chosen.newShape.hatch.isEnableBorder = false;
        chosen.keep();
        const Preferences kept = Preferences::kept();
        QCOMPARE(kept.unit, chosen.unit);
        QCOMPARE(kept.isYUp, true);
        QCOMPARE(kept.theme, chosen.theme);
        QCOMPARE(kept.isGridShown, false);
        QCOMPARE(kept.gridMm, 2.54);
        QCOMPARE(kept.isToolKept, true);
        QCOMPARE(kept.autosaveSeconds, 17);
        QVERIFY(kept.newDrawing == chosen.newDrawing);
        QCOMPARE(kept.newShape.pen, 16);
        QVERIFY(kept.newShape.hatch == chosen.newShape.hatch);
    }

    void nonsense_isPassedOver_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QVariant>("value");
        const auto add = [](const char *key, const QVariant &value) {
            QTest::addRow("%s %s", key, qPrintable(value.toString()))
                << QStringLiteral("preferences/") + QLatin1String(key) << value;
        };
        add("unit", 7);
        add("theme", -1);
        add("gridMm", -2.0);
        add("gridMm", QStringLiteral("nan"));
        add("field", QRect(0, 0, 0, 10));
        add("field", QRect(0, 0, 10, 1000000));
        add("curveToleranceMm", 0.0);
        add("curveToleranceMm", 50.0);
        add("pen", 0);
        add("pen", 17);
        add("hatch", 9);
        add("hatchSpacingMm", -1.0);
        add("hatchAngleDeg", QStringLiteral("inf"));
    }

    void nonsense_isPassedOver()
    {
        QFETCH(QString, key);
        QFETCH(QVariant, value);
        QSettings().setValue(key, value);
        const Preferences kept = Preferences::kept();
        const Preferences usual;
        QCOMPARE(kept.unit, usual.unit);
        QCOMPARE(kept.theme, usual.theme);
        QCOMPARE(kept.gridMm, usual.gridMm);
        QVERIFY(kept.newDrawing == usual.newDrawing);
        QCOMPARE(kept.newShape.pen, usual.newShape.pen);
        QVERIFY(kept.newShape.hatch == usual.newShape.hatch);
    }

private:
    std::unique_ptr<StudioTest> test;
};

QTEST_MAIN(tst_Preferences)
#include "tst_Preferences.moc"
