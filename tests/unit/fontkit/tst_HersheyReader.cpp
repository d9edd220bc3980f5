#include <fontkit/HersheyReader.h>

#include <QtTest/QTest>

using fontkit::HersheyGlyph;
using fontkit::HersheyReader;

namespace {

using Strokes = QVector<QVector<QPoint>>;

/** An exclamation mark: a line and a dot of four corners. */
const char kMark[] = "  714  9MWRFRT RRYQZR[SZRY\n";
/** A line. */
const char kBar[] = "  723  3NVRBRb\n";

const Strokes &markStrokes()
{
    static const Strokes strokes = {{{0, -12}, {0, 2}}, {{0, 7}, {-1, 8}, {0, 9}, {1, 8}, {0, 7}}};
    return strokes;
}

const Strokes &barStrokes()
{
    static const Strokes strokes = {{{0, -16}, {0, 16}}};
    return strokes;
}

QStringList problemsIn(const QByteArray &content)
{
    HersheyReader reader;
    reader.read(content);
    return reader.problems();
}

} // namespace

class tst_HersheyReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void read_record_givesEdgesAndStrokes();
    void read_records_keepTheirOrder();
    void read_otherLayoutOfTheSameText_givesTheSame_data();
    void read_otherLayoutOfTheSameText_givesTheSame();
    void read_recordWithoutStrokes_isABlank();
    void read_damage_isToldAndKeepsItsPlace_data();
    void read_damage_isToldAndKeepsItsPlace();
    void read_shortRecord_keepsThePointsItHas();
    void read_nothing_isFalse();
    void read_again_forgetsTheFirst();
    void read_tooManyRecords_stopsAndTells();
};

void tst_HersheyReader::read_record_givesEdgesAndStrokes()
{
    HersheyReader reader;
    QVERIFY(reader.read(kMark));
    QCOMPARE(reader.problems(), QStringList());
    QCOMPARE(reader.glyphs().size(), 1);
    const HersheyGlyph glyph = reader.glyphs().first();
    QCOMPARE(glyph.number, 714);
    QCOMPARE(glyph.left, -5);
    QCOMPARE(glyph.right, 5);
    QCOMPARE(glyph.strokes, markStrokes());
}

void tst_HersheyReader::read_records_keepTheirOrder()
{
    HersheyReader reader;
    QVERIFY(reader.read(QByteArray(kBar) + kMark + kBar));
    QCOMPARE(reader.glyphs().size(), 3);
    QCOMPARE(reader.glyphs().at(0).strokes, barStrokes());
    QCOMPARE(reader.glyphs().at(1).strokes, markStrokes());
    QCOMPARE(reader.glyphs().at(2).strokes, barStrokes());
}

void tst_HersheyReader::read_otherLayoutOfTheSameText_givesTheSame_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("two lines") << QByteArray("  714  9MWRFRT R\nRYQZR[SZRY\n  723  3NVRBRb\n");
    QTest::newRow("inside a pair") << QByteArray("  714  9MWRFRT \nRRYQZR[SZRY\n  723  3NVRBRb\n");
    QTest::newRow("a line a pair")
        << QByteArray("  714  9\nMW\nRF\nRT\n R\nRY\nQZ\nR[\nSZ\nRY\n  723  3NV\nRB\nRb\n");
    QTest::newRow("carriage returns")
        << QByteArray("  714  9MWRFRT R\r\nRYQZR[SZRY\r\n  723  3NVRBRb\r\n");
    QTest::newRow("no line end at the end") << QByteArray(kMark) + "  723  3NVRBRb";
    QTest::newRow("blank lines") << "\n\n" + QByteArray(kMark) + "   \n\n" + kBar + "\n \n";
    QTest::newRow("blanks behind a record")
        << QByteArray("  714  9MWRFRT RRYQZR[SZRY   \n  723  3NVRBRb  \n");
}

void tst_HersheyReader::read_otherLayoutOfTheSameText_givesTheSame()
{
    QFETCH(QByteArray, content);
    HersheyReader reader;
    QVERIFY(reader.read(content));
    QCOMPARE(reader.problems(), QStringList());
    QCOMPARE(reader.glyphs().size(), 2);
    QCOMPARE(reader.glyphs().at(0).strokes, markStrokes());
    QCOMPARE(reader.glyphs().at(1).strokes, barStrokes());
}

void tst_HersheyReader::read_recordWithoutStrokes_isABlank()
{
    HersheyReader reader;
    QVERIFY(reader.read("12345  1JZ\n"));
    QCOMPARE(reader.problems(), QStringList());
    QCOMPARE(reader.glyphs().first().left, -8);
    QCOMPARE(reader.glyphs().first().right, 8);
    QVERIFY(reader.glyphs().first().strokes.isEmpty());
}

void tst_HersheyReader::read_damage_isToldAndKeepsItsPlace_data()
{
    QTest::addColumn<QByteArray>("record");
    QTest::addColumn<QString>("problem");
    QTest::newRow("cut short") << QByteArray("  714  9MWRFRT\n")
                               << QStringLiteral("line 2: 3 pairs of 9");
    QTest::newRow("half a pair lacks")
        << QByteArray("  714  3NVRBR\n") << QStringLiteral("line 2: 2 pairs of 3");
    QTest::newRow("no pairs") << QByteArray("  714  9\n") << QStringLiteral("line 2: 0 pairs of 9");
    QTest::newRow("longer than it says")
        << QByteArray("  714  3NVRBRbRR\n") << QStringLiteral("line 2: more than its 3 pairs");
    QTest::newRow("letters for a number")
        << QByteArray("  7x4  3NVRBRb\n") << QStringLiteral("line 2: no record of a glyph");
    QTest::newRow("letters for a count")
        << QByteArray("  714  xNVRBRb\n") << QStringLiteral("line 2: no record of a glyph");
    QTest::newRow("shorter than a header")
        << QByteArray("  714\n") << QStringLiteral("line 2: no record of a glyph");
    QTest::newRow("no letters") << QByteArray("  714  3NVR\x01Rb\n")
                                << QStringLiteral("line 2: a character that is no coordinate");
    QTest::newRow("high bytes") << QByteArray("  714  3NVR\xFFRb\n")
                                << QStringLiteral("line 2: a character that is no coordinate");
    QTest::newRow("edges at one place")
        << QByteArray("  714  3JJRBRb\n") << QStringLiteral("line 2: no width");
    QTest::newRow("edges crossed")
        << QByteArray("  714  3VNRBRb\n") << QStringLiteral("line 2: no width");
}

void tst_HersheyReader::read_damage_isToldAndKeepsItsPlace()
{
    QFETCH(QByteArray, record);
    QFETCH(QString, problem);
    HersheyReader reader;
    QVERIFY(reader.read(kBar + record + kMark));
    QCOMPARE(reader.problems(), QStringList(problem));
    QCOMPARE(reader.glyphs().size(), 3);
    QCOMPARE(reader.glyphs().at(0).strokes, barStrokes());
    QCOMPARE(reader.glyphs().at(2).strokes, markStrokes());
}

void tst_HersheyReader::read_shortRecord_keepsThePointsItHas()
{
    HersheyReader reader;
    QVERIFY(reader.read("  714  9MWRFRT RRYQ\n"));
    QCOMPARE(reader.glyphs().first().strokes, Strokes({{{0, -12}, {0, 2}}, {{0, 7}}}));
}

void tst_HersheyReader::read_nothing_isFalse()
{
    HersheyReader reader;
    QVERIFY(!reader.read(QByteArray()));
    QVERIFY(!reader.read("\n  \n\r\n"));
    QVERIFY(reader.glyphs().isEmpty());
}

void tst_HersheyReader::read_again_forgetsTheFirst()
{
    HersheyReader reader;
    reader.read(QByteArray("  714  9MW\n") + kBar);
    QVERIFY(!reader.problems().isEmpty());
    QVERIFY(reader.read(kMark));
    QCOMPARE(reader.glyphs().size(), 1);
    QVERIFY(reader.problems().isEmpty());
}

void tst_HersheyReader::read_tooManyRecords_stopsAndTells()
{
    const QByteArray most = QByteArray(kBar).repeated(10000);
    QCOMPARE(problemsIn(most), QStringList());
    HersheyReader reader;
    QVERIFY(reader.read(most + kBar));
    QCOMPARE(reader.glyphs().size(), 10000);
    QCOMPARE(reader.problems(), QStringList(QStringLiteral("line 10001: more than 10000 records")));
}

QTEST_APPLESS_MAIN(tst_HersheyReader)
#include "tst_HersheyReader.moc"
