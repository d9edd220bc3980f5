#include <ZTDrawEngineLib/common/ZTRoundingParam.h>

#include <QtCore/QDataStream>
#include <QtCore/QVariant>
#include <QtTest/QTest>

#include <cmath>
#include <type_traits>

class tst_ZTRoundingParam : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void default_hasTheArcSwitchedOff()
    {
        const ZTRoundingParam param;
        QVERIFY(!param.isEnableRounding);
        QVERIFY(param.startAngle == 0.0);
        QCOMPARE(param.spanAngle, 90.0);
        QCOMPARE(param.diameter, 200.0);
        QVERIFY(param.itemRotate == 0.0);
        QCOMPARE(param.roundingFlag, 0);
        QVERIFY(std::is_trivially_copyable<ZTRoundingParam>::value);
    }

    void equality_looksAtEveryField()
    {
        const ZTRoundingParam base{true, 1, 2, 3, 4, 5};
        QVERIFY(base == base);
        QVERIFY(!(base != base));
        QVERIFY(base != (ZTRoundingParam{false, 1, 2, 3, 4, 5}));
        QVERIFY(base != (ZTRoundingParam{true, 9, 2, 3, 4, 5}));
        QVERIFY(base != (ZTRoundingParam{true, 1, 9, 3, 4, 5}));
        QVERIFY(base != (ZTRoundingParam{true, 1, 2, 9, 4, 5}));
        QVERIFY(base != (ZTRoundingParam{true, 1, 2, 3, 9, 5}));
        QVERIFY(base != (ZTRoundingParam{true, 1, 2, 3, 4, 9}));
    }

    void equality_roundingNoise_isDifferent()
    {
        ZTRoundingParam a;
        ZTRoundingParam b;
        b.spanAngle = std::nextafter(b.spanAngle, 100.0);
        QVERIFY(a != b);
        QVERIFY(!(a == b));
    }

    void stream_hasTheFieldsInOrder()
    {
        const ZTRoundingParam param{true, 1.0, 2.0, -2.0, 0.5, -1};
        QByteArray bytes;
        QDataStream out(&bytes, QIODevice::WriteOnly);
        out << param;
        QCOMPARE(bytes.toHex(), QByteArray("01"
                                           "3ff0000000000000"
                                           "4000000000000000"
                                           "c000000000000000"
                                           "3fe0000000000000"
                                           "ffffffff"));
        QCOMPARE(bytes.size(), 37);
        ZTRoundingParam read;
        QDataStream in(bytes);
        in >> read;
        QVERIFY(read == param);
    }

    void metaType_hasTheRecordsName()
    {
        QCOMPARE(QByteArray(QMetaType::typeName(qMetaTypeId<ZTRoundingParam>())),
                 QByteArray("ZTRoundingParam"));
    }
};

QTEST_GUILESS_MAIN(tst_ZTRoundingParam)
#include "tst_ZTRoundingParam.moc"
