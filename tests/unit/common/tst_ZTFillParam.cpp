#include <ZTDrawEngineLib/common/ZTFillParam.h>

#include <QtCore/QDataStream>
#include <QtCore/QVariant>
#include <QtTest/QTest>

#include <type_traits>

class tst_ZTFillParam : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void default_meansNoHatchWithBorder()
    {
        const ZTFillParam param;
        QCOMPARE(param.fillType, FillType::None);
        QCOMPARE(param.spac, 2.0);
        QVERIFY(param.angle == 0.0);
        QVERIFY(param.isEnableBorder);
        QVERIFY(std::is_trivially_copyable<ZTFillParam>::value);
    }

    void equality_looksAtEveryField()
    {
        const ZTFillParam base{FillType::Line, 1.5, 30.0, true};
        QVERIFY(base == base);
        QVERIFY(!(base != base));
        QVERIFY(base != (ZTFillParam{FillType::ULine, 1.5, 30.0, true}));
        QVERIFY(base != (ZTFillParam{FillType::Line, 1.6, 30.0, true}));
        QVERIFY(base != (ZTFillParam{FillType::Line, 1.5, 31.0, true}));
        QVERIFY(base != (ZTFillParam{FillType::Line, 1.5, 30.0, false}));
    }

    void equality_roundingNoise_isEqual()
    {
        const ZTFillParam a{FillType::Line, 0.1 + 0.2, 0.1 + 0.2, true};
        const ZTFillParam b{FillType::Line, 0.3, 0.3, true};
        QVERIFY(a.spac != b.spac);
        QVERIFY(a == b);
    }

    void equality_zeroAgainstTheSmallest_isDifferent()
    {
        QVERIFY((ZTFillParam{FillType::Line, 1.0, 0.0, true}) !=
                (ZTFillParam{FillType::Line, 1.0, 1e-300, true}));
        QVERIFY((ZTFillParam{FillType::Line, 0.0, 0.0, true}) ==
                (ZTFillParam{FillType::Line, 0.0, 0.0, true}));
    }

    void stream_hasTheFieldsInOrder()
    {
        QByteArray bytes;
        QDataStream out(&bytes, QIODevice::WriteOnly);
        out << ZTFillParam{FillType::ULine, 1.0, -2.0, true};
        QCOMPARE(bytes.toHex(), QByteArray("00000001"
                                           "3ff0000000000000"
                                           "c000000000000000"
                                           "01"));
        ZTFillParam read;
        QDataStream in(bytes);
        in >> read;
        QCOMPARE(read.fillType, FillType::ULine);
        QCOMPARE(read.spac, 1.0);
        QCOMPARE(read.angle, -2.0);
        QVERIFY(read.isEnableBorder);
        QVERIFY(in.atEnd());
    }

    void stream_truncated_givesZeros()
    {
        ZTFillParam read;
        QDataStream in(QByteArray("\0\0", 2));
        in >> read;
        QCOMPARE(read.fillType, FillType::Line);
        QVERIFY(read.spac == 0.0);
        QCOMPARE(in.status(), QDataStream::ReadPastEnd);
    }

    void metaType_hasTheRecordsName()
    {
        QCOMPARE(QByteArray(QMetaType::typeName(qMetaTypeId<ZTFillParam>())),
                 QByteArray("ZTFillParam"));
        const QVariant value = QVariant::fromValue(ZTFillParam{FillType::Line, 3.0, 4.0, false});
        QVERIFY(value.value<ZTFillParam>() == (ZTFillParam{FillType::Line, 3.0, 4.0, false}));
    }
};

QTEST_GUILESS_MAIN(tst_ZTFillParam)
#include "tst_ZTFillParam.moc"
