#include <fontkit/CharacterMaker.h>

#include <QtTest/QTest>

#include <algorithm>

using fontkit::CharacterMaker;
using fontkit::CharacterOrigin;
using fontkit::DrawnCharacter;
using fontkit::GlyphRecipes;

namespace {

using Strokes = QVector<QVector<QPointF>>;

/** Every small letter a square of 100 x 140, every capital and figure one of 100 x 210. */
std::optional<DrawnCharacter> squares(uint character)
{
    const bool isSmall = character >= 'a' && character <= 'z';
    if (!isSmall && !(character >= '0' && character <= 'Z') && character != 0x2044)
        return std::nullopt;
    const double top = isSmall ? 140.0 : 210.0;
    DrawnCharacter drawn;
    drawn.strokes = {{{20, 0}, {120, 0}, {120, top}, {20, top}, {20, 0}}};
    drawn.advance = 140.0;
    drawn.origin = CharacterOrigin::Hershey;
    return drawn;
}

GlyphRecipes recipes(const char *more = "")
{
    GlyphRecipes result;
    QString error;
    const bool isRead = result.read(QByteArray("U+0301 0: line 20,45 -20,0\n"
                                               "U+0302 0: line -30,0 0,40 30,0\n"
                                               "U+0327 0: line 0,0 0,-50\n"
                                               "U+0326 0: line 0,-20 -10,-60\n"
                                               "U+031B 0: line 0,0 20,20\n"
                                               "ı 80: line 40,140 40,0\n") +
                                        more,
                                    &error);
    if (!isRead)
        qWarning("%s", qPrintable(error));
    return result;
}

std::optional<DrawnCharacter> made(uint character, const char *more = "",
                                   CharacterMaker::Width width = CharacterMaker::Width::Natural)
{
    return CharacterMaker(recipes(more), squares, width).make(character);
}

Strokes last(const std::optional<DrawnCharacter> &drawn, int count)
{
    return drawn ? drawn->strokes.mid(drawn->strokes.size() - count) : Strokes();
}

} // namespace

class tst_CharacterMaker : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void source_isTakenAsItIs()
    {
        QCOMPARE(made('a')->strokes, squares('a')->strokes);
        QVERIFY(made('a')->origin == CharacterOrigin::Hershey);
        QVERIFY(!made(0x4E00));
    }

    void recipe_comesBeforeTheSource()
    {
        const auto drawn = made('a', "a 50: dot 5,5\n");
        QCOMPARE(drawn->advance, 50.0);
        QVERIFY(drawn->origin == CharacterOrigin::Drawn);
        QCOMPARE(drawn->strokes.first().first(), QPointF(5, 15));
    }

    void used_isFlippedScaledAndMoved()
    {
        const auto drawn =
            made('!', "! 70: use b flip scale 0.5,2 move 3,4\nb 40: line 0,0 10,5\n");
        QCOMPARE(drawn->strokes, (Strokes{{{23, 4}, {18, 14}}}));
        QVERIFY(drawn->origin == CharacterOrigin::Composed);
    }

    void markAbove_standsOverTheMiddle_higherOverCapitals()
    {
        // The middle is 70; marks begin 28 above small letters (140) and capitals (210).
        QCOMPARE(last(made(0x00E1), 1), (Strokes{{{90, 213}, {50, 168}}})); // a acute
        QCOMPARE(last(made(0x00C1), 1), (Strokes{{{90, 283}, {50, 238}}})); // A acute
        QCOMPARE(made(0x00E1)->advance, 140.0);
    }

    void secondMark_standsOverTheFirst()
    {
        // a circumflex reaches up to 208; the acute begins 12 above it.
        QCOMPARE(last(made(0x1EA5), 2),
                 (Strokes{{{40, 168}, {70, 208}, {100, 168}}, {{90, 265}, {50, 220}}}));
    }

    void letterUnderAMark_losesItsDot()
    {
        QCOMPARE(made(0x00ED)->strokes,
                 (Strokes{{{40, 140}, {40, 0}}, {{60, 213}, {20, 168}}})); // i acute
    }

    void cedilla_hangsFromTheLetter_andIsACommaInTheBaltics()
    {
        QCOMPARE(last(made(0x00E7), 1), (Strokes{{{70, 0}, {70, -50}}}));   // c cedilla
        QCOMPARE(last(made(0x0146), 1), (Strokes{{{70, -20}, {60, -60}}})); // n of Latvian
    }

    void horn_standsAtTheUpperRight()
    {
        QCOMPARE(last(made(0x01A1), 1), (Strokes{{{120, 115}, {140, 135}}})); // o with horn
    }

    void raisedAndLoweredFigures()
    {
        const auto raised = made(0x00B2);
        QCOMPARE(raised->advance, 0.58 * 140);
        QCOMPARE(raised->strokes.first().at(0), QPointF(0.58 * 20, 90));
        QCOMPARE(made(0x2082)->strokes.first().at(0), QPointF(0.58 * 20, -50));
    }

    void fraction_hasItsFiguresAboveAndBelowALine()
    {
        // 77 wide above from y = 95; the line from 57 to 167; the one below from 147.
        const auto half = made(0x00BD);
        QCOMPARE(half->strokes.size(), 3);
        QCOMPARE(half->strokes.at(0).at(0), QPointF(0.55 * 20, 95));
        QCOMPARE(half->strokes.at(1), (QVector<QPointF>{{167, 218}, {57, -8}}));
        QCOMPARE(half->strokes.at(2).at(0), QPointF(147 + 0.55 * 20, 0));
        QCOMPARE(half->advance, 147 + 77.0);
    }

    void severalCharacters_inTheirOwnWidthOrInOne()
    {
        const uint roman4 = 0x2163;
        QCOMPARE(made(roman4)->advance, 280.0);
        const auto narrow = made(roman4, "", CharacterMaker::Width::OfTheBigFont);
        QCOMPARE(narrow->advance, 240.0);
        QCOMPARE(narrow->strokes.first().at(0).x(), 20 * 240.0 / 280);
        const auto one = made(0x2160, "", CharacterMaker::Width::OfTheBigFont);
        QCOMPARE(one->strokes.first().at(0), QPointF(20 + 50, 0)); // in the middle
    }

    void circled_standsInTheMiddleOfItsRing()
    {
        const auto one = made(0x2460);
        QCOMPARE(one->strokes.size(), 2);
        // 210 high, so 124 / 210 of its size, about (120, 97).
        const double scale = 124.0 / 210;
        QCOMPARE(one->strokes.at(0).at(0), QPointF(120 - 50 * scale, 97 - 62));
        QCOMPARE(one->strokes.at(1).first(), QPointF(120, 97 + 104));
    }

    void verticalForm_isTurnedClockwise()
    {
        // A full-width bracket from (190, 214) to (190, -20) lies above the middle then.
        const auto drawn = made(0xFE35, "（ 240: line 190,214 190,-20\n");
        QCOMPARE(drawn->strokes, (Strokes{{{237, 27}, {3, 27}}}));
    }

    void partThatIsMissing_leavesTheWholeAway()
    {
        QVERIFY(!made(0x00E0));                          // no grave
        QVERIFY(!made('!', "! 10: use \xE4\xBD\xA0\n")); // no hanzi
    }

    void circularRecipes_endInNothing() { QVERIFY(!made('!', "! 10: use ?\n? 10: use !\n")); }
};

QTEST_GUILESS_MAIN(tst_CharacterMaker)
#include "tst_CharacterMaker.moc"
