#include <support/OwnFolder.h>
#include <support/TinyFonts.h>

#include <ZTDrawEngineLib/common/ZTFontParam.h>

#include <QtCore/QDataStream>
#include <QtCore/QVariant>
#include <QtGui/QGuiApplication>
#include <QtTest/QTest>

#include <cmath>

using testsupport::tinyFont;

namespace {

ZTFontParam sample()
{
    ZTFontParam param;
    param.fontType = FontType::singleLine;
    param.wordSpac = 1.5;
    param.rowSpac = 2.5;
    param.font.setPixelSize(31);
    param.shxFont = tinyFont(20.0);
    return param;
}

/** The bytes of a record, with any 32 bits as type. */
QByteArray streamed(qint32 fontType, const ZTFontParam &param)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << fontType << param.wordSpac << param.rowSpac << param.font << param.shxFont;
    return bytes;
}

} // namespace

class tst_ZTFontParam : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { testsupport::makeTinyFonts(); }

    void default_isTheSystemFontWithoutSpaces()
    {
        const ZTFontParam param;
        QVERIFY(param.fontType == FontType::doubleLine);
        QVERIFY(param.wordSpac == 0.0);
        QVERIFY(param.rowSpac == 0.0);
        QCOMPARE(param.font, QFont());
        QVERIFY(param.shxFont == ZTShxFontParam());
    }

    void equality_looksAtEveryField()
    {
        const ZTFontParam base = sample();
        QVERIFY(base == sample());
        QVERIFY(!(base != sample()));
        ZTFontParam other = base;
        other.fontType = FontType::None;
        QVERIFY(other != base);
        other = base;
        other.font.setPixelSize(32);
        QVERIFY(other != base);
        other = base;
        other.shxFont.height = 21.0;
        QVERIFY(other != base);
    }

    void equality_ofSpaces_isExact()
    {
        const ZTFontParam base = sample();
        ZTFontParam other = base;
        other.wordSpac = std::nextafter(other.wordSpac, 9.0);
        QVERIFY(other != base);
        QVERIFY(!(other == base));
        other = base;
        other.rowSpac = std::nextafter(other.rowSpac, 9.0);
        QVERIFY(other != base);
    }

    void equality_parser_takesNoPart()
    {
        ZTFontParam other = sample();
        other.shxFont.parser = ZTRegBigFontShxParser();
        QVERIFY(other == sample());
    }

    void stream_hasTheFieldsInOrder()
    {
        QByteArray bytes;
        QDataStream stream(&bytes, QIODevice::WriteOnly);
        stream << sample();
        QCOMPARE(bytes, streamed(0, sample()));
        QCOMPARE(bytes.left(20).toHex(), QByteArray("00000000"
                                                    "3ff8000000000000"
                                                    "4004000000000000"));
    }

    void read_givesTheRecord_readyToDraw()
    {
        const QByteArray bytes = streamed(0, sample());
        tinyFont(10.0); // somebody else changes the shared height
        ZTFontParam param;
        QDataStream stream(bytes);
        stream >> param;
        QVERIFY(stream.atEnd());
        QVERIFY(param == sample());
        QCOMPARE(param.shxFont.parser.getTextExtent("W"), 20.0);
    }

    void read_lowEightBitsOfTheTypeCount_data()
    {
        QTest::addColumn<int>("written");
        QTest::addColumn<int>("type");
        QTest::newRow("0") << 0 << 0;
        QTest::newRow("2") << 2 << 2;
        QTest::newRow("256") << 0x100 << 0;
        QTest::newRow("all bits but the low") << ~0xFF << 0;
        QTest::newRow("high bits and 1") << 0x7F000001 << 1;
        QTest::newRow("unknown") << 0x12345677 << 0x77;
    }
    void read_lowEightBitsOfTheTypeCount()
    {
        QFETCH(int, written);
        QFETCH(int, type);
        ZTFontParam param;
        QDataStream stream(streamed(written, sample()));
        stream >> param;
        QCOMPARE(int(param.fontType), type);
        QCOMPARE(param.wordSpac, 1.5);
    }

    void metaType_hasTheRecordsName()
    {
        QCOMPARE(QByteArray(QMetaType::typeName(qMetaTypeId<ZTFontParam>())),
                 QByteArray("ZTFontParam"));
        QVERIFY(QVariant::fromValue(sample()).value<ZTFontParam>() == sample());
    }
};

int main(int argc, char **argv)
{
    const int code = testsupport::runInOwnFolder(argc, argv);
    if (code >= 0)
        return code;
    QGuiApplication application(argc, argv);
    tst_ZTFontParam test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_ZTFontParam.moc"
