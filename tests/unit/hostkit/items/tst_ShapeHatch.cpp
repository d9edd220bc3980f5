#include <hostkit/items/ItemExtras.h>
#include <hostkit/items/ShapeHatch.h>

#include <QtTest/QTest>

#include <cmath>
#include <functional>

using hostkit::HatchKind;
using hostkit::HatchMoment;
using hostkit::ShapeHatch;

namespace {

ShapeHatch everything()
{
    ShapeHatch hatch;
    hatch.kind = HatchKind::Contours;
    hatch.spacingMm = 0.005;
    hatch.angleDeg = -360.0;
    hatch.turnDeg = 67.5;
    hatch.insetMm = 0.1;
    hatch.pen = 9999;
    hatch.passes = 1000;
    hatch.isOneWay = true;
    hatch.moment = HatchMoment::AfterOutline;
    return hatch;
}

using Change = std::function<void(ShapeHatch &hatch)>;

} // namespace
Q_DECLARE_METATYPE(Change)

/** A hatch as a value and as bytes. */
class tst_ShapeHatch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void bytes_giveBackEveryMember()
    {
        const QVector<ShapeHatch> hatches{ShapeHatch(), everything()};
        QVector<ShapeHatch> read;
        QVERIFY(hostkit::takeHatches(hostkit::hatchBytes(hatches), &read));
        QCOMPARE(read, hatches);
    }

    // Version and count, then 43 bytes a hatch.
    void bytes_areAsLongAsTheFormatSays()
    {
        const QByteArray bytes = hostkit::hatchBytes({ShapeHatch(), everything()});
        QCOMPARE(bytes.size(), 2 + 2 * 43);
        QCOMPARE(int(bytes[0]), 1);
        QCOMPARE(int(bytes[1]), 2);
    }

    void eight_areTaken_nineAreNot()
    {
        QVector<ShapeHatch> read;
        QVERIFY(hostkit::takeHatches(hostkit::hatchBytes(QVector<ShapeHatch>(8)), &read));
        QCOMPARE(read.size(), 8);
        QVERIFY(!hostkit::takeHatches(hostkit::hatchBytes(QVector<ShapeHatch>(9)), &read));
        QCOMPARE(read.size(), 8);
    }

    void damagedBytes_areRefused_andStayWithTheItem()
    {
        const QByteArray bytes = hostkit::hatchBytes({everything(), everything()});
        for (int size = 0; size < bytes.size(); ++size) {
            QVector<ShapeHatch> read{ShapeHatch()};
            QVERIFY(!hostkit::takeHatches(bytes.left(size), &read));
            QCOMPARE(read.size(), 1);
        }
        QVector<ShapeHatch> read;
        QVERIFY(!hostkit::takeHatches(bytes + 'x', &read));
        const auto extras = hostkit::extrasFromFields({{"htch", bytes + 'x'}});
        QVERIFY(extras.hatches.isEmpty());
        QCOMPARE(hostkit::extrasToFields(extras).value("htch"), bytes + 'x');
    }

    void outOfRange_isRefused_data()
    {
        QTest::addColumn<Change>("change");
        QTest::newRow("spacing") << Change([](ShapeHatch &h) { h.spacingMm = 0.00499; });
        QTest::newRow("wide") << Change([](ShapeHatch &h) { h.spacingMm = 1000.01; });
        QTest::newRow("no number") << Change([](ShapeHatch &h) { h.spacingMm = std::nan(""); });
        QTest::newRow("angle") << Change([](ShapeHatch &h) { h.angleDeg = 360.5; });
        QTest::newRow("turn") << Change([](ShapeHatch &h) { h.turnDeg = -361.0; });
        QTest::newRow("inset") << Change([](ShapeHatch &h) { h.insetMm = -0.001; });
        QTest::newRow("pen") << Change([](ShapeHatch &h) { h.pen = 10000; });
        QTest::newRow("no pass") << Change([](ShapeHatch &h) { h.passes = 0; });
        QTest::newRow("passes") << Change([](ShapeHatch &h) { h.passes = 1001; });
    }

    void outOfRange_isRefused()
    {
        QFETCH(Change, change);
        ShapeHatch hatch = everything();
        QVERIFY(hostkit::isInRange(hatch));
        change(hatch);
        QVERIFY(!hostkit::isInRange(hatch));
        QVector<ShapeHatch> read;
        QVERIFY(!hostkit::takeHatches(hostkit::hatchBytes({hatch}), &read));
    }

    void plain_isWhatTheLibraryDraws()
    {
        ShapeHatch hatch;
        QVERIFY(hostkit::isPlain(hatch));
        hatch.kind = HatchKind::Zigzag;
        hatch.pen = 4;
        QVERIFY(hostkit::isPlain(hatch));
        hatch.insetMm = 0.1;
        QVERIFY(!hostkit::isPlain(hatch));
        hatch.insetMm = 0.0;
        hatch.isOneWay = true;
        QVERIFY(!hostkit::isPlain(hatch));
        hatch.isOneWay = false;
        for (const HatchKind kind : {HatchKind::Cross, HatchKind::Turned, HatchKind::Contours}) {
            hatch.kind = kind;
            QVERIFY(!hostkit::isPlain(hatch));
        }
    }
};

QTEST_MAIN(tst_ShapeHatch)
#include "tst_ShapeHatch.moc"
