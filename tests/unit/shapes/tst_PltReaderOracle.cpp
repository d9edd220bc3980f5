#include <support/oracle/PlainPltReader.h>

#include <ZTDrawEngineLib/shapes/PltReader.h>

#include <QtCore/QBuffer>
#include <QtTest/QTest>

#include <algorithm>
#include <random>

namespace {

using Random = std::mt19937;

int below(Random &random, int limit) { return static_cast<int>(random() % unsigned(limit)); }

/** A device that gives a few bytes a time, so that lines are cut anywhere. */
class Trickle : public QIODevice
{
public:
    Trickle(const QByteArray &content, int portion) : bytes(content), portionBytes(portion)
    {
        open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    }

    bool isSequential() const override { return true; }

protected:
    qint64 readData(char *data, qint64 maxSize) override
    {
        const qint64 count = std::min<qint64>({maxSize, portionBytes, bytes.size() - at});
        if (count == 0)
            return -1;
        std::copy_n(bytes.constData() + at, count, data);
        at += count;
        return count;
    }

    qint64 writeData(const char *, qint64) override { return -1; }

private:
    QByteArray bytes;
    int portionBytes;
    qint64 at = 0;
};

/** What plotter files are made of, and what might be mistaken for it. */
const QVector<QByteArray> &pieces()
{
    static const QVector<QByteArray> all{"PU",
                                         "PD",
                                         "PU",
                                         "PD",
                                         "PU",
                                         "PD",
                                         "pu",
                                         "PA",
                                         "IN",
                                         "SP1",
                                         "P",
                                         "U",
                                         " ",
                                         " ",
                                         " ",
                                         " ",
                                         ";",
                                         ";",
                                         ";",
                                         "\n",
                                         "\n",
                                         "\n",
                                         "\n",
                                         "\r\n",
                                         "\r",
                                         ",",
                                         "\t",
                                         "\v",
                                         "\f",
                                         "-",
                                         "+",
                                         "--",
                                         "0",
                                         "1",
                                         "7",
                                         "10",
                                         "20",
                                         "-40",
                                         "007",
                                         "-0",
                                         "+5",
                                         "1234567",
                                         "12345678",
                                         "123456789",
                                         "-1234567",
                                         "-12345678",
                                         "2147483647",
                                         "2147483648",
                                         "-2147483648",
                                         "-2147483649",
                                         "4294967296",
                                         "99999999999999999999",
                                         "1.5",
                                         "1e3",
                                         "0x10",
                                         "1'000",
                                         "1,000",
                                         QByteArray("\0", 1),
                                         "\xef\xbb\xbf",
                                         "\xef\xbb",
                                         "\xc2\xa0",
                                         "\xe2\x80\x83",
                                         "\xe2\x88\x92",
                                         "\xd9\xa1\xd9\xa2",
                                         "\xef\xbc\x91",
                                         "\xff",
                                         "\x80",
                                         "\xc0\xaf",
                                         "\xf0\x9f\x98\x80",
                                         "\xed\xa0\x80",
                                         "a",
                                         "PU10 20;\n",
                                         "PD30 40;\n",
                                         "PD-5 -6;\r\n",
                                         "PD1 2"};
    return all;
}

QByteArray madeOfPieces(Random &random, int count)
{
    QByteArray bytes;
    for (int i = 0; i < count; ++i)
        bytes += pieces().at(below(random, pieces().size()));
    return bytes;
}

/** Every other file begins with a line to draw, so that what follows it shows. */
QByteArray startOf(int round) { return round % 2 == 0 ? "PU1 2;\nPD3 4;\n" : ""; }

QByteArray randomNumber(Random &random)
{
    if (below(random, 10) == 0)
        return pieces().at(below(random, pieces().size()));
    const int digits = 1 + below(random, 9);
    int number = 0;
    for (int i = 0; i < digits; ++i)
        number = number * 10 + below(random, 10);
    return QByteArray::number(below(random, 2) == 0 ? number : -number);
}

/** Lines of the usual form, now and then with something else in a place. */
QByteArray madeOfLines(Random &random, int count)
{
    static const char *ends[] = {";\n", ";\r\n", "\n", "\r\n", ";", " ;\n", "; \n", "\t\n"};
    QByteArray bytes;
    for (int i = 0; i < count; ++i) {
        bytes += below(random, 4) == 0 ? "PU" : "PD";
        bytes += randomNumber(random);
        bytes += ' ';
        bytes += randomNumber(random);
        bytes += ends[below(random, 4) == 0 ? below(random, 8) : 0];
    }
    return bytes;
}

QByteArray anyBytes(Random &random, int count)
{
    QByteArray bytes = "PU1 2;\nPD3 4;\n";
    for (int i = 0; i < count; ++i)
        bytes += static_cast<char>(random());
    return bytes;
}

QByteArray withOneByteChanged(Random &random, QByteArray bytes)
{
    if (!bytes.isEmpty())
        bytes[below(random, bytes.size())] = static_cast<char>(random());
    return bytes;
}

/** Equal to the last bit, where `QPainterPath` itself compares roughly. */
bool isSame(const QPainterPath &a, const QPainterPath &b)
{
    if (a.elementCount() != b.elementCount() || a.fillRule() != b.fillRule())
        return false;
    for (int i = 0; i < a.elementCount(); ++i) {
        const QPainterPath::Element left = a.elementAt(i);
        const QPainterPath::Element right = b.elementAt(i);
        if (left.type != right.type || left.x != right.x || left.y != right.y)
            return false;
    }
    return true;
}

} // namespace

class tst_PltReaderOracle : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    /** Most of what was compared must have been a drawing, or little was compared. */
    void cleanupTestCase() { QVERIFY(2 * loaded > compared); }

    void load_piecesInAnyOrder_equalsThePlainReading()
    {
        Random random(1);
        for (int round = 0; round < 40000 && !QTest::currentTestFailed(); ++round)
            compare(startOf(round) + madeOfPieces(random, 1 + below(random, 60)));
    }

    void load_usualLines_equalsThePlainReading()
    {
        Random random(2);
        for (int round = 0; round < 20000 && !QTest::currentTestFailed(); ++round)
            compare(madeOfLines(random, 1 + below(random, 20)));
    }

    void load_usualLinesWithOneByteChanged_equalsThePlainReading()
    {
        Random random(3);
        for (int round = 0; round < 20000 && !QTest::currentTestFailed(); ++round)
            compare(withOneByteChanged(random, madeOfLines(random, 1 + below(random, 6))));
    }

    void load_anyBytes_equalsThePlainReading()
    {
        Random random(4);
        for (int round = 0; round < 5000 && !QTest::currentTestFailed(); ++round)
            compare(anyBytes(random, below(random, 200)));
    }

    void load_filesOfManyChunks_equalsThePlainReading()
    {
        Random random(5);
        for (int round = 0; round < 8 && !QTest::currentTestFailed(); ++round)
            compare(madeOfLines(random, 40000 + below(random, 40000)));
    }

    void load_lineLongerThanAChunk_equalsThePlainReading()
    {
        const QByteArray blanks(1'000'000, ' ');
        const QByteArray others(700'000, 'x');
        compare("PU1 2;\n" + others + "\nPD3" + blanks + "4;\nPD5 6;\n");
        compare("PU1 2;\nPD" + QByteArray(300'000, '\t') + "7 8" + QByteArray(300'000, '\r'));
        compare("PU1 2;\nPD" + QByteArray(600'000, '0') + "7 8;" + others);
    }

    void load_trickleOfBytes_equalsThePlainReading()
    {
        Random random(6);
        for (int round = 0; round < 2000 && !QTest::currentTestFailed(); ++round) {
            const QByteArray bytes = round % 2 == 0 ? madeOfLines(random, 1 + below(random, 10))
                                                    : startOf(0) + madeOfPieces(random, 40);
            Trickle device(bytes, 1 + below(random, 9));
            compareTo(bytes, device);
        }
    }

private:
    void compare(const QByteArray &bytes)
    {
        QBuffer buffer;
        buffer.setData(bytes);
        buffer.open(QIODevice::ReadOnly);
        compareTo(bytes, buffer);
    }

    void compareTo(const QByteArray &bytes, QIODevice &device)
    {
        testsupport::PlainPltReader plain;
        PltReader reader;
        const bool plainResult = plain.load(bytes);
        QVERIFY2(reader.load(device) == plainResult, bytes.left(2000).toPercentEncoding().data());
        QVERIFY2(isSame(reader.getPath(), plain.path), bytes.left(2000).toPercentEncoding().data());
        ++compared;
        loaded += plainResult ? 1 : 0;
    }

    int compared = 0;
    int loaded = 0;
};

QTEST_GUILESS_MAIN(tst_PltReaderOracle)
#include "tst_PltReaderOracle.moc"
