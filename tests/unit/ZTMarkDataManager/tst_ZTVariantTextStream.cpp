#include <support/WarningGuard.h>

#include <ZTMarkDataManager/ZTVariantText.h>

#include <QtCore/QBuffer>
#include <QtCore/QDataStream>
#include <QtCore/QDateTime>
#include <QtTest/QTest>

namespace {

ZTFixedTextSegment fixed(const char *text) { return {QString::fromUtf8(text)}; }

/** A text with every kind of segment, no field at its default. */
ZTVariantText rich()
{
    ZTCounterSegment counter;
    counter.start = -5;
    counter.step = -2;
    counter.last = -100;
    counter.atEnd = ZTVariantTextEnd::Wrap;
    counter.width = 6;
    counter.pad = u'.';
    counter.radix = ZTCounterRadix::Hexadecimal;
    counter.repeat = 2;
    ZTDateTimeSegment time;
    time.format = QStringLiteral("yyyy");
    time.content = ZTDateTimeContent::JulianDay;
    time.offsetDays = 1;
    time.offsetHours = -2;
    time.offsetMinutes = 3;
    time.locale = QStringLiteral("de_DE");
    ZTTextFileSegment file;
    file.path = QStringLiteral("/nowhere");
    file.column = 2;
    file.separator = u';';
    file.encoding = QStringLiteral("GBK");
    file.firstRow = 4;
    file.nextRow = 5;
    file.atEnd = ZTVariantTextEnd::Wrap;
    ZTVariantText text;
    text.setSegments({fixed("a"), counter, time, file});
    text.update();
    return text;
}

QByteArray bytesOf(const ZTVariantText &text)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << text;
    return bytes;
}

/** Reads a text from bytes and expects that there is none. */
void expectDamaged(const QByteArray &bytes)
{
    ZTVariantText text = rich();
    QDataStream stream(bytes);
    QVERIFY(!text.load(stream));
    QVERIFY(stream.status() != QDataStream::Ok);
    QVERIFY(text == ZTVariantText());
}

QByteArray framed(const QByteArray &content, quint16 version = 1)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << version << content;
    return bytes;
}

/** Content with an empty text and one segment of the given bytes. */
QByteArray contentOf(const QByteArray &segmentHex)
{
    return QByteArray::fromHex("00000000"
                               "00000001") +
           QByteArray::fromHex(segmentHex);
}

} // namespace

class tst_ZTVariantTextStream : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        ZTVariantText::setClock([] { return QDateTime(QDate(2024, 1, 1), QTime(1, 0), Qt::UTC); });
        warnings.reset(new testsupport::WarningGuard);
    }

    void cleanup()
    {
        warnings.reset();
        ZTVariantText::setClock({});
    }

    void empty_bytes()
    {
        QCOMPARE(bytesOf(ZTVariantText()).toHex(), QByteArray("0001"
                                                              "00000008"
                                                              "ffffffff"
                                                              "00000000"));
    }

    void serialNumber_bytes()
    {
        ZTVariantText text;
        text.setSegments({fixed("SN-"), ZTCounterSegment()});
        // clang-format off
        QCOMPARE(bytesOf(text).toHex(),
                 QByteArray("0001" "00000049"
                            "00000008" "0053004e002d0031"
                            "00000002"
                            "00" "00000006" "0053004e002d"
                            "01" "0000000000000001" "0000000000000001"
                            "00" "0000000000000000" "00" "00000000" "0000" "0a"
                            "00000001" "0000000000000000"));
        // clang-format on
    }

    void everySegment_bytes()
    {
        QCOMPARE(bytesOf(rich()).mid(6).toHex(),
                 QByteArray("0000001c" // the text: a....-52460311
                            "0061002e002e002e002e002d0035"
                            "0032003400360030003300310031"
                            "00000004"
                            "00"
                            "00000002"
                            "0061"
                            "01"
                            "fffffffffffffffb"
                            "fffffffffffffffe"
                            "01"
                            "ffffffffffffff9c"
                            "01"
                            "00000006"
                            "002e"
                            "10"
                            "00000002"
                            "0000000000000001"
                            "02"
                            "00000008"
                            "0079007900790079"
                            "04"
                            "00000001"
                            "fffffffe"
                            "00000003"
                            "0000000a"
                            "00640065005f00440045"
                            "03"
                            "00000010"
                            "002f006e006f00770068006500720065"
                            "00000002"
                            "003b"
                            "00000006"
                            "00470042004b"
                            "0000000000000004"
                            "0000000000000005"
                            "01"));
    }

    void roundTrip_restoresTextAndProgress()
    {
        const ZTVariantText text = rich();
        ZTVariantText read;
        QDataStream stream(bytesOf(text));
        QVERIFY(read.load(stream));
        QCOMPARE(stream.status(), QDataStream::Ok);
        QVERIFY(stream.atEnd());
        QVERIFY(read == text);
        QCOMPARE(read.getText(), text.getText());
        QCOMPARE(read.getSegments(), text.getSegments());
        QCOMPARE(read.preview(5), text.preview(5));
        QCOMPARE(bytesOf(read), bytesOf(text));
    }

    void load_looksAtNoFile()
    {
        ZTVariantText read;
        QDataStream stream(bytesOf(rich()));
        stream >> read;
        QCOMPARE(read.errorText(), QString());
        read.update();
        QCOMPARE(read.errorText(), QStringLiteral("/nowhere: no such file"));
    }

    void content_doesNotDependOnTheStreamAroundIt()
    {
        QByteArray bytes;
        QDataStream out(&bytes, QIODevice::WriteOnly);
        out.setByteOrder(QDataStream::LittleEndian);
        out.setVersion(QDataStream::Qt_4_0);
        out.setFloatingPointPrecision(QDataStream::SinglePrecision);
        out << rich();
        QCOMPARE(bytes.mid(6), bytesOf(rich()).mid(6));
        QDataStream in(bytes);
        in.setByteOrder(QDataStream::LittleEndian);
        in.setVersion(QDataStream::Qt_4_0);
        ZTVariantText read;
        in >> read;
        QVERIFY(read == rich());
    }

    void severalInARow_stayInStep()
    {
        const QByteArray bytes =
            bytesOf(rich()) + framed("later", 2) + framed("damaged") + bytesOf(rich());
        QDataStream stream(bytes);
        ZTVariantText read;
        QVERIFY(read.load(stream));
        QVERIFY(!read.load(stream));
        QVERIFY(read == ZTVariantText());
        QVERIFY(!read.load(stream));
        QVERIFY(read.load(stream));
        QVERIFY(read == rich());
        QVERIFY(stream.atEnd());
        QCOMPARE(stream.status(), QDataStream::ReadCorruptData);
    }

    void truncated_isDamaged()
    {
        const QByteArray bytes = bytesOf(rich());
        for (int size = 0; size < bytes.size(); ++size)
            expectDamaged(bytes.left(size));
        const QByteArray content = bytes.mid(6);
        for (int size = 0; size < content.size(); ++size)
            expectDamaged(framed(content.left(size)));
    }

    void anyByteChanged_givesATextThatIsReadAgainOrNone()
    {
        const QByteArray good = bytesOf(rich());
        for (int i = 0; i < good.size(); ++i) {
            for (const int mask : {0x01, 0x80, 0xff}) {
                QByteArray bytes = good;
                bytes[i] = static_cast<char>(bytes[i] ^ mask);
                QDataStream stream(bytes);
                ZTVariantText read;
                if (!read.load(stream)) {
                    QVERIFY(read == ZTVariantText());
                    continue;
                }
                ZTVariantText again;
                QDataStream second(bytesOf(read));
                QVERIFY(again.load(second));
                QVERIFY(again == read);
                read.update();
            }
        }
    }

    void damaged_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        const QByteArray counter = "01"
                                   "0000000000000001"
                                   "0000000000000001"
                                   "00"
                                   "0000000000000000";
        const auto row = [](const char *name, const QByteArray &bytes) {
            QTest::newRow(name) << bytes;
        };
        row("version 0", framed(bytesOf(ZTVariantText()).mid(6), 0));
        row("later version", framed(bytesOf(ZTVariantText()).mid(6), 2));
        row("no content", framed(QByteArray()));
        row("content of 4 GB announced", QByteArray::fromHex("0001"
                                                             "fffffffe"
                                                             "00"));
        row("text of 4 GB announced", framed(QByteArray::fromHex("fffffffe"
                                                                 "00000000")));
        row("text of half a character", framed(QByteArray::fromHex("00000001"
                                                                   "00"
                                                                   "00000000")));
        row("segments announced", framed(QByteArray::fromHex("00000000"
                                                             "00000001")));
        row("more segments than there may be",
            framed(QByteArray::fromHex("00000000"
                                       "000003e9") +
                   QByteArray::fromHex("0000000000").repeated(1001)));
        row("4 G segments", framed(QByteArray::fromHex("00000000"
                                                       "ffffffff")));
        row("bytes left over", framed(QByteArray::fromHex("00000000"
                                                          "00000000"
                                                          "00")));
        row("unknown kind", framed(contentOf("04")));
        row("unknown end of a counter", framed(contentOf(counter + "02"
                                                                   "00000000"
                                                                   "0000"
                                                                   "0a"
                                                                   "00000001"
                                                                   "0000000000000000")));
        row("unknown radix", framed(contentOf(counter + "00"
                                                        "00000000"
                                                        "0000"
                                                        "0b"
                                                        "00000001"
                                                        "0000000000000000")));
        row("unknown time content", framed(contentOf("02"
                                                     "00000000"
                                                     "05"
                                                     "00000000"
                                                     "00000000"
                                                     "00000000"
                                                     "00000000")));
        row("unknown end of a file", framed(contentOf("03"
                                                      "00000000"
                                                      "00000000"
                                                      "002c"
                                                      "00000000"
                                                      "0000000000000000"
                                                      "0000000000000000"
                                                      "02")));
    }

    void damaged()
    {
        QFETCH(QByteArray, bytes);
        expectDamaged(bytes);
    }

    void damagedRowsAreDamagedInOnePlaceOnly()
    {
        // The rows above, mended: what makes them damaged is what their names say.
        const QByteArray counter = "01"
                                   "0000000000000001"
                                   "0000000000000001"
                                   "00"
                                   "0000000000000000";
        const QVector<QByteArray> contents{counter + "01"
                                                     "00000000"
                                                     "0000"
                                                     "1a"
                                                     "00000001"
                                                     "0000000000000000",
                                           "02"
                                           "00000000"
                                           "04"
                                           "00000000"
                                           "00000000"
                                           "00000000"
                                           "00000000",
                                           "03"
                                           "00000000"
                                           "00000000"
                                           "002c"
                                           "00000000"
                                           "0000000000000000"
                                           "0000000000000000"
                                           "01"};
        for (const QByteArray &content : contents) {
            QDataStream stream(framed(contentOf(content)));
            ZTVariantText text;
            QVERIFY(text.load(stream));
            QCOMPARE(text.getSegments().size(), 1);
        }
    }

    void mostSegments_areRead()
    {
        ZTVariantText text;
        text.setSegments(QVector<ZTVariantTextSegment>(1000, fixed("x")));
        QDataStream stream(bytesOf(text));
        ZTVariantText read;
        QVERIFY(read.load(stream));
        QVERIFY(read == text);
    }

    void operators_useTheVirtualForm()
    {
        class Derived : public ZTVariantText
        {
        public:
            bool load(QDataStream &stream) override
            {
                stream >> number;
                return true;
            }
            void save(QDataStream &stream) const override { stream << number; }
            qint32 number = 0;
        };
        Derived a;
        a.number = 7;
        QCOMPARE(bytesOf(a).toHex(), QByteArray("00000007"));
        Derived b;
        QDataStream stream(bytesOf(a));
        stream >> static_cast<ZTVariantText &>(b);
        QCOMPARE(b.number, 7);
    }

private:
    QScopedPointer<testsupport::WarningGuard> warnings;
};

QTEST_GUILESS_MAIN(tst_ZTVariantTextStream)
#include "tst_ZTVariantTextStream.moc"
