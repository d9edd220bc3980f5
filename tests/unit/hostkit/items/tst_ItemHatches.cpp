#include <hostkit/items/ItemHatches.h>

#include <QtTest/QTest>

using hostkit::HatchKind;
using hostkit::ItemExtras;
using hostkit::ShapeHatch;

namespace {

ShapeHatch lines(double spacingMm, double angleDeg)
{
    ShapeHatch hatch;
    hatch.spacingMm = spacingMm;
    hatch.angleDeg = angleDeg;
    return hatch;
}

} // namespace

/** Hatches between the library's fill parameters and the extras of an item. */
class tst_ItemHatches : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void onePlainHatch_standsInTheFillParametersAlone()
    {
        ZTFillParam fill;
        ItemExtras extras;
        hostkit::setHatches({lines(0.3, 30.0)}, &fill, &extras);
        QVERIFY(extras == ItemExtras());
        QVERIFY(fill.fillType == FillType::Line);
        QCOMPARE(fill.spac, 0.3);
        QCOMPARE(fill.angle, -30.0);
        QCOMPARE(hostkit::hatchesOf(fill, extras), QVector<ShapeHatch>{lines(0.3, 30.0)});
    }

    void noHatch_isNone()
    {
        ZTFillParam fill;
        ItemExtras extras;
        hostkit::setHatches({lines(0.3, 0.0), lines(1.0, 90.0)}, &fill, &extras);
        hostkit::setHatches({}, &fill, &extras);
        QVERIFY(fill.fillType == FillType::None);
        QVERIFY(extras == ItemExtras());
        QVERIFY(hostkit::hatchesOf(fill, extras).isEmpty());
    }

    void severalHatches_comeBack()
    {
        QVector<ShapeHatch> hatches{lines(0.3, 30.0), lines(0.005, -45.0)};
        hatches[0].kind = HatchKind::Cross;
        hatches[0].pen = 3;
        hatches[1].kind = HatchKind::Contours;
        hatches[1].insetMm = 0.2;
        ZTFillParam fill;
        ItemExtras extras;
        hostkit::setHatches(hatches, &fill, &extras);
        QVERIFY(fill.fillType == FillType::Line);
        QCOMPARE(hostkit::hatchesOf(fill, extras), hatches);
        const ItemExtras read = hostkit::extrasFromFields(hostkit::extrasToFields(extras));
        QVERIFY(read == extras);
    }

    // A spacing from elsewhere that no field takes must not cost the other hatches.
    void strangeSpacingOfTheFirst_isKeptByTheFillParameters()
    {
        ZTFillParam fill;
        ItemExtras extras;
        hostkit::setHatches({lines(2000.0, 500.0), lines(0.1, 0.0)}, &fill, &extras);
        const ItemExtras read = hostkit::extrasFromFields(hostkit::extrasToFields(extras));
        QCOMPARE(hostkit::hatchesOf(fill, read).size(), 2);
        QCOMPARE(hostkit::hatchesOf(fill, read).first().spacingMm, 2000.0);
    }

    // As the property grid does, and every host that knows of nothing else.
    void changedFillParameters_changeTheFirstHatch()
    {
        ZTFillParam fill;
        ItemExtras extras;
        hostkit::setHatches({lines(0.3, 0.0), lines(1.0, 90.0)}, &fill, &extras);
        fill.fillType = FillType::ULine;
        fill.spac = 0.7;
        fill.angle = 10.0;
        const QVector<ShapeHatch> hatches = hostkit::hatchesOf(fill, extras);
        QVERIFY(hatches[0].kind == HatchKind::Zigzag);
        QCOMPARE(hatches[0].spacingMm, 0.7);
        QCOMPARE(hatches[0].angleDeg, -10.0);
        QCOMPARE(hatches[1], lines(1.0, 90.0));
    }
};

QTEST_MAIN(tst_ItemHatches)
#include "tst_ItemHatches.moc"
