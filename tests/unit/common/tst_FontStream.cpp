#include <ZTDrawEngineLib/common/FontStream_p.h>

#include <QtCore/QDataStream>
#include <QtGui/QFont>
#include <QtGui/QGuiApplication>
#include <QtTest/QTest>

#include <limits>

using ztstream::readFont;

namespace {

constexpr int kVersions[] = {QDataStream::Qt_1_0,  QDataStream::Qt_2_1,  QDataStream::Qt_3_0,
                             QDataStream::Qt_3_1,  QDataStream::Qt_4_0,  QDataStream::Qt_4_2,
                             QDataStream::Qt_4_3,  QDataStream::Qt_4_4,  QDataStream::Qt_4_5,
                             QDataStream::Qt_4_6,  QDataStream::Qt_5_0,  QDataStream::Qt_5_3,
                             QDataStream::Qt_5_4,  QDataStream::Qt_5_5,  QDataStream::Qt_5_6,
                             QDataStream::Qt_5_12, QDataStream::Qt_5_13, QDataStream::Qt_5_15};

QFont richFont()
{
    QFont font(QStringLiteral("Some Family"));
    font.setFamilies({QStringLiteral("First"), QStringLiteral("Second")});
    font.setStyleName(QStringLiteral("Condensed"));
    font.setPointSizeF(12.375);
    font.setStyleHint(QFont::Courier, QFont::ForceOutline);
    font.setWeight(QFont::DemiBold);
    font.setItalic(true);
    font.setUnderline(true);
    font.setKerning(false);
    font.setStretch(QFont::Expanded);
    font.setLetterSpacing(QFont::AbsoluteSpacing, 1.5);
    font.setWordSpacing(-2.25);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setCapitalization(QFont::SmallCaps);
    return font;
}

QByteArray written(const QFont &font, int version = QDataStream::Qt_5_15)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream.setVersion(version);
    stream << font;
    return bytes;
}

QFont read(const QByteArray &bytes)
{
    QDataStream stream(bytes);
    QFont font;
    readFont(stream, font);
    return font;
}

/** The number of families is what the bytes end with when there are none. */
QByteArray announcing(quint32 families, const QByteArray &names)
{
    QByteArray bytes = written(QFont(QStringLiteral("F")));
    bytes.chop(4);
    QDataStream stream(&bytes, QIODevice::Append);
    stream << families;
    return bytes + names;
}

} // namespace

class tst_FontStream : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void read_isWhatTheStandardOperatorReads_data()
    {
        QTest::addColumn<int>("version");
        QTest::addColumn<bool>("isBigEndian");
        QTest::addColumn<bool>("isDouble");
        QTest::addColumn<int>("status");
        for (const int version : kVersions) {
            QTest::addRow("%d", version) << version << true << true << int(QDataStream::Ok);
            QTest::addRow("%d little endian, single", version)
                << version << false << false << int(QDataStream::Ok);
            QTest::addRow("%d status bad", version)
                << version << true << true << int(QDataStream::ReadCorruptData);
        }
    }

    void read_isWhatTheStandardOperatorReads()
    {
        QFETCH(int, version);
        QFETCH(bool, isBigEndian);
        QFETCH(bool, isDouble);
        QFETCH(int, status);
        const auto setUp = [&](QDataStream &stream) {
            stream.setVersion(version);
            stream.setByteOrder(isBigEndian ? QDataStream::BigEndian : QDataStream::LittleEndian);
            stream.setFloatingPointPrecision(isDouble ? QDataStream::DoublePrecision
                                                      : QDataStream::SinglePrecision);
        };
        QByteArray bytes;
        QDataStream out(&bytes, QIODevice::WriteOnly);
        setUp(out);
        out << richFont();
        for (int size = 0; size <= bytes.size(); ++size) {
            QDataStream standard(bytes.left(size));
            QDataStream tested(bytes.left(size));
            setUp(standard);
            setUp(tested);
            standard.setStatus(static_cast<QDataStream::Status>(status));
            tested.setStatus(static_cast<QDataStream::Status>(status));
            QFont expected;
            QFont font;
            standard >> expected;
            readFont(tested, font);
            QCOMPARE(written(font), written(expected));
            QCOMPARE(tested.status(), standard.status());
            QCOMPARE(tested.device()->pos(), standard.device()->pos());
        }
    }

    void read_inATransactionThatFails_isWhatTheStandardOperatorReads()
    {
        QByteArray bytes = written(richFont());
        bytes.chop(3);
        QDataStream standard(bytes);
        QDataStream tested(bytes);
        QFont expected;
        QFont font;
        standard.startTransaction();
        standard >> expected;
        tested.startTransaction();
        readFont(tested, font);
        QCOMPARE(written(font), written(expected));
        QCOMPARE(tested.status(), standard.status());
        QCOMPARE(tested.commitTransaction(), standard.commitTransaction());
    }

    void read_announcedFamiliesThatAreNotThere_makesNoRoomForThem()
    {
        const QByteArray bytes = announcing(0x7FFFFFFF, QByteArray("\0\0\0\2\0A", 6));
        QDataStream stream(bytes);
        QFont font;
        readFont(stream, font);
        QVERIFY(stream.atEnd());
        QCOMPARE(stream.status(), QDataStream::ReadPastEnd);
        QCOMPARE(font.families(), QStringList());
        QCOMPARE(font.family(), QStringLiteral("F"));
    }

    void read_moreFamiliesThanAListHolds_readsNone()
    {
        const QByteArray bytes = announcing(0xFFFFFFFF, QByteArray(8, '\xFF'));
        QDataStream stream(bytes);
        QFont font;
        readFont(stream, font);
        QCOMPARE(stream.status(), QDataStream::ReadCorruptData);
        QCOMPARE(stream.device()->bytesAvailable(), 8LL);
        QCOMPARE(font.families(), QStringList());
    }

    void read_manyFamilies_keepsTheFirst()
    {
        QByteArray names;
        QDataStream stream(&names, QIODevice::WriteOnly);
        for (int i = 0; i < 101; ++i)
            stream << QString::number(i);
        const QByteArray bytes = announcing(101, names) + 'x';
        QDataStream in(bytes);
        QFont font;
        readFont(in, font);
        QCOMPARE(font.families().size(), 100);
        QCOMPARE(font.families().last(), QStringLiteral("99"));
        QCOMPARE(in.device()->bytesAvailable(), 1LL);
    }

    void read_absurdSizes_areCut()
    {
        QFont font;
        font.setPixelSize(std::numeric_limits<int>::max());
        QCOMPARE(read(written(font)).pixelSize(), 65535);
        font.setPixelSize(65535);
        QCOMPARE(read(written(font)).pixelSize(), 65535);
        font.setPointSizeF(std::numeric_limits<double>::infinity());
        QCOMPARE(read(written(font)).pointSizeF(), 65535.0);
        font.setPointSizeF(1e300);
        QCOMPARE(read(written(font)).pointSizeF(), 65535.0);
        font.setPointSizeF(std::numeric_limits<double>::quiet_NaN());
        QCOMPARE(read(written(font)).pointSizeF(), 1.0);
        font.setPointSizeF(65534.5);
        QCOMPARE(read(written(font)).pointSizeF(), 65534.5);
    }

    void read_absurdWordSpacing_isCut()
    {
        QFont font;
        font.setWordSpacing(20e6);
        QCOMPARE(read(written(font)).wordSpacing(), 1e6);
        font.setWordSpacing(-20e6);
        QCOMPARE(read(written(font)).wordSpacing(), -1e6);
        font.setWordSpacing(-2.5);
        QCOMPARE(read(written(font)).wordSpacing(), -2.5);
    }
};

QTEST_MAIN(tst_FontStream)
#include "tst_FontStream.moc"
