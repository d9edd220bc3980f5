#include <support/DrawnStrokes.h>
#include <support/ShxWriter.h>

#include <fontkit/FontFile.h>
#include <fontkit/StrokeEncoder.h>
#include <fontkit/StrokeSimplifier.h>

#include <ZTDrawEngineLib/shx/ZTShxParser.h>

#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <random>

using fontkit::encodeStrokes;
using fontkit::GridStrokes;
using testsupport::bytes;
using testsupport::DrawnStrokes;

namespace {

/** What a parser makes of a program, as glyph "A" of a font whose unit is a drawing unit. */
struct Drawn
{
    DrawnStrokes once;
    DrawnStrokes twice; ///< the text "AA"
    double advance = 0.0;
};

Drawn draw(const QByteArray &program)
{
    fontkit::FontFile font;
    font.information->above = 1;
    fontkit::GlyphDefinition glyph;
    glyph.code = 'A';
    glyph.program = program;
    font.glyphs = {glyph};
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.shx"));
    testsupport::writeFile(path, fontkit::writeFont(font));
    ZTShxParser parser(path.toLocal8Bit().constData());
    Drawn drawn;
    drawn.advance = parser.drawText(&drawn.once, "A", 0, 0);
    parser.drawText(&drawn.twice, "AA", 0, 0);
    return drawn;
}

QVector<QVector<QPointF>> toReal(const GridStrokes &strokes)
{
    QVector<QVector<QPointF>> result;
    for (const QVector<QPoint> &stroke : strokes) {
        QVector<QPointF> points;
        for (const QPoint &point : stroke)
            points.append(point);
        result.append(points);
    }
    return result;
}

/** Bytes of a run of steps under a choice of those in lists; each bit of `listed` is a step. */
int cost(const QVector<bool> &isVector, unsigned listed)
{
    int total = 0;
    for (int i = 0; i < isVector.size(); ++i) {
        const bool inList = (listed >> i & 1U) != 0;
        const bool wasInList = i > 0 && (listed >> (i - 1) & 1U) != 0;
        total += inList ? (wasInList ? 2 : 5) : isVector.at(i) ? 1 : 3;
    }
    return total;
}

} // namespace

class tst_StrokeEncoder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void onGrid_roundsAndLeavesRepeatedPointsOut()
    {
        QCOMPARE(fontkit::onGrid({{{0.4, 0.6}, {0.3, 1.4}, {-2.6, 5}}, {}}),
                 (GridStrokes{{{0, 1}, {-3, 5}}, {}}));
    }
    void encode_takesTheCodesExpected_data();
    void encode_takesTheCodesExpected();
    void encode_everyDirection_isOneByte();
    void encode_runOfLines_takesTheFewestBytes();
    void encode_longLine_isSplitOnTheLine_data();
    void encode_longLine_isSplitOnTheLine();
    void encode_firstStrokeAtTheOrigin_beginsAnew();
    void encode_anyStrokes_areDrawnAsTheyAre();
};

void tst_StrokeEncoder::encode_takesTheCodesExpected_data()
{
    QTest::addColumn<GridStrokes>("strokes");
    QTest::addColumn<int>("advance");
    QTest::addColumn<QByteArray>("program");
    QTest::newRow("blank") << GridStrokes() << 15 << bytes({2, 0xF0, 0});
    QTest::newRow("wide blank") << GridStrokes() << 16 << bytes({2, 8, 16, 0, 0});
    QTest::newRow("nothing") << GridStrokes() << 0 << bytes({0});
    QTest::newRow("backward") << GridStrokes() << -3 << bytes({2, 0x38, 0});
    QTest::newRow("at the origin")
        << GridStrokes({{{0, 0}, {0, 5}}}) << 10 << bytes({5, 6, 0x54, 2, 0xAF, 0});
    QTest::newRow("elsewhere") << GridStrokes({{{2, 1}, {2, 8}}}) << 2
                               << bytes({2, 0x21, 1, 0x74, 2, 0x8C, 0});
    QTest::newRow("ends at the advance")
        << GridStrokes({{{3, 0}, {7, 0}}}) << 7 << bytes({2, 0x30, 1, 0x40, 0});
    QTest::newRow("two strokes") << GridStrokes({{{1, 0}, {2, 0}}, {{4, 0}, {5, 0}}}) << 6
                                 << bytes({2, 0x10, 1, 0x10, 2, 0x20, 1, 0x10, 2, 0x10, 0});
    QTest::newRow("strokes that touch") << GridStrokes({{{1, 0}, {2, 0}}, {{2, 0}, {2, 3}}}) << 2
                                        << bytes({2, 0x10, 1, 0x10, 0x34, 2, 0x3C, 0});
    QTest::newRow("repeated points")
        << GridStrokes({{{1, 0}, {1, 0}, {2, 0}, {2, 0}}}) << 2 << bytes({2, 0x10, 1, 0x10, 0});
    QTest::newRow("stroke without length")
        << GridStrokes({{{4, 4}}, {{5, 5}, {5, 5}}, {}}) << 1 << bytes({2, 0x10, 0});
    QTest::newRow("three odd lines") << GridStrokes({{{1, 0}, {4, 1}, {7, 2}, {10, 3}}}) << 10
                                     << bytes({2, 0x10, 1, 8, 3, 1, 8, 3, 1, 8, 3, 1, 2, 0x3C, 0});
    QTest::newRow("four odd lines")
        << GridStrokes({{{1, 0}, {4, 1}, {7, 2}, {10, 3}, {13, 4}}}) << 13
        << bytes({2, 0x10, 1, 9, 3, 1, 3, 1, 3, 1, 3, 1, 0, 0, 2, 0x4C, 0});
    QTest::newRow("longest signed bytes")
        << GridStrokes({{{1, 0}, {-127, 1}, {0, 128}}}) << 0
        << bytes({2, 0x10, 1, 8, -128, 1, 8, 127, 127, 2, 8, 0, -128, 0});
}

void tst_StrokeEncoder::encode_takesTheCodesExpected()
{
    QFETCH(GridStrokes, strokes);
    QFETCH(int, advance);
    QFETCH(QByteArray, program);
    const fontkit::GlyphProgram encoded = encodeStrokes(strokes, advance);
    QCOMPARE(encoded.error(), QString());
    QCOMPARE(encoded.bytes().toHex(' '), program.toHex(' '));
}

void tst_StrokeEncoder::encode_everyDirection_isOneByte()
{
    const QPoint steps[16] = {{14, 0},   {14, 7},  {14, 14},  {7, 14},   {0, 14},    {-7, 14},
                              {-14, 14}, {-14, 7}, {-14, 0},  {-14, -7}, {-14, -14}, {-7, -14},
                              {0, -14},  {7, -14}, {14, -14}, {14, -7}};
    for (int direction = 0; direction < 16; ++direction) {
        const GridStrokes strokes = {{{100, 100}, QPoint(100, 100) + steps[direction]}};
        const QByteArray program = encodeStrokes(strokes, 100).bytes();
        // Pen up, the way there, pen down: five bytes.
        QCOMPARE(program.left(5).toHex(' '), bytes({2, 8, 100, 100, 1}).toHex(' '));
        QCOMPARE(static_cast<quint8>(program.at(5)), static_cast<quint8>(0xE0 | direction));
        QCOMPARE(program.at(6), '\x02');
    }
}

void tst_StrokeEncoder::encode_runOfLines_takesTheFewestBytes()
{
    std::mt19937 random(11);
    for (int run = 0; run < 500; ++run) {
        const int count = 1 + static_cast<int>(random() % 10);
        QVector<bool> isVector;
        QVector<QPoint> stroke = {{0, 0}};
        for (int i = 0; i < count; ++i) {
            isVector.append(random() % 2 == 0);
            stroke.append(stroke.last() + (isVector.last() ? QPoint(5, 0) : QPoint(3, 1)));
        }
        int least = cost(isVector, 0);
        for (unsigned listed = 1; listed < 1U << count; ++listed)
            least = std::min(least, cost(isVector, listed));
        const GridStrokes strokes = {stroke};
        const QByteArray alone = encodeStrokes({{{0, 0}, {5, 0}}}, 5).bytes();
        // Begins at the origin and ends at the advance or straight above it by one byte more.
        const bool isLevel = stroke.last().y() == 0;
        const int advance = stroke.last().x();
        const int around = alone.size() - 1 + (isLevel ? 0 : 2);
        QCOMPARE(encodeStrokes(strokes, advance).bytes().size(), around + least);
    }
}

void tst_StrokeEncoder::encode_longLine_isSplitOnTheLine_data()
{
    QTest::addColumn<QPoint>("end");
    QTest::addColumn<int>("pieces");
    QTest::newRow("127 east") << QPoint(127, 0) << 1;
    QTest::newRow("128 east") << QPoint(128, 0) << 2;
    QTest::newRow("128 west") << QPoint(-128, 0) << 1;
    QTest::newRow("129 west") << QPoint(-129, 0) << 2;
    QTest::newRow("254 north") << QPoint(0, 254) << 2;
    QTest::newRow("255 north") << QPoint(0, 255) << 3;
    QTest::newRow("256 south") << QPoint(0, -256) << 2;
    QTest::newRow("257 south") << QPoint(0, -257) << 3;
    QTest::newRow("steep") << QPoint(100, 1001) << 8;
    QTest::newRow("far") << QPoint(-5000, 4999) << 40;
}

void tst_StrokeEncoder::encode_longLine_isSplitOnTheLine()
{
    QFETCH(QPoint, end);
    QFETCH(int, pieces);
    const Drawn drawn = draw(encodeStrokes({{{0, 0}, end}}, 300).bytes());
    QCOMPARE(drawn.advance, 300.0);
    QCOMPARE(drawn.once.strokes.size(), 1);
    const QVector<QPointF> stroke = drawn.once.strokes.first();
    QCOMPARE(stroke.size(), pieces + 1);
    QCOMPARE(stroke.last(), QPointF(end));
    for (int i = 0; i <= pieces; ++i) {
        const QPointF exact = QPointF(end) * i / pieces;
        QVERIFY(std::abs(stroke.at(i).x() - exact.x()) <= 0.5);
        QVERIFY(std::abs(stroke.at(i).y() - exact.y()) <= 0.5);
    }
}

void tst_StrokeEncoder::encode_firstStrokeAtTheOrigin_beginsAnew()
{
    // Both glyphs of a text are strokes of their own, though nothing moved between them.
    const Drawn drawn = draw(encodeStrokes({{{0, 0}, {4, 0}}}, 4).bytes());
    QCOMPARE(drawn.twice.strokes, QVector<QVector<QPointF>>({{{0, 0}, {4, 0}}, {{4, 0}, {8, 0}}}));
}

void tst_StrokeEncoder::encode_anyStrokes_areDrawnAsTheyAre()
{
    std::mt19937 random(3);
    std::uniform_int_distribution<int> place(-60, 60);
    for (int run = 0; run < 100; ++run) {
        GridStrokes strokes;
        QPoint last;
        for (int s = 0; s < 5; ++s) {
            QVector<QPoint> stroke;
            while (stroke.size() < 6) {
                const QPoint point(place(random), place(random));
                if (point != last)
                    stroke.append(point);
                last = point;
            }
            strokes.append(stroke);
        }
        const Drawn drawn = draw(encodeStrokes(strokes, 33).bytes());
        QCOMPARE(drawn.once.strokes, toReal(strokes));
        QCOMPARE(drawn.advance, 33.0);
    }
}

QTEST_APPLESS_MAIN(tst_StrokeEncoder)
#include "tst_StrokeEncoder.moc"
