#include <support/BoardFonts.h>
#include <support/DrawnStrokes.h>
#include <support/Skip.h>

#include <fontkit/GbPunctuation.h>
#include <fontkit/GbStrokesFont.h>
#include <fontkit/HanziReader.h>
#include <fontkit/HersheyFonts.h>
#include <fontkit/StrokeSimplifier.h>

#include <ZTDrawEngineLib/shx/ZTShxParser.h>

#include <QtCore/QFile>
#include <QtCore/QMap>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTextCodec>
#include <QtTest/QTest>

#include <algorithm>
#include <cmath>

using fontkit::DataFolder;
using fontkit::GbStrokesFont;
using testsupport::DrawnStrokes;

namespace {

using Strokes = QVector<QVector<QPointF>>;

#define SKIP_WITHOUT_CHINESE_FONT()                                                                \
    if (!testsupport::hasChineseBoardFont())                                                       \
    ZT_SKIP("the Chinese font was not made: tools/setup.sh build could not fetch its data")

DataFolder hanziData() { return DataFolder(QByteArrayLiteral(ZT_HANZI_DIR)); }
DataFolder hersheyData() { return DataFolder(QByteArrayLiteral(ZT_HERSHEY_DIR)); }

QByteArray textOf(int code)
{
    return QByteArray(1, static_cast<char>(code >> 8)) + static_cast<char>(code & 0xFF);
}

QByteArray gbk(const char *utf8)
{
    return QTextCodec::codecForName("GBK")->fromUnicode(QString::fromUtf8(utf8));
}

/** The font that the build made, a drawing unit a font unit. */
class GbFont
{
public:
    GbFont() : parser(testsupport::boardFontPath(QStringLiteral("gb-strokes.shx")).constData())
    {
        parser.setTextHeight(GbStrokesFont::kAbove);
    }

    double draw(const QByteArray &text, Strokes *strokes)
    {
        DrawnStrokes drawn;
        const double advance = parser.drawText(&drawn, text.constData(), 0, 0);
        *strokes = drawn.strokes;
        return advance;
    }

    ZTShxParser parser;
};

/** The segments of all strokes, to look for the one that a point is near to. */
class Segments
{
public:
    explicit Segments(const Strokes &strokes)
    {
        for (const QVector<QPointF> &stroke : strokes) {
            for (int i = 1; i < stroke.size(); ++i)
                all.append({stroke.at(i - 1), stroke.at(i)});
        }
    }

    /** Begins where the last point was found: points along a stroke are next to each other. */
    bool isNear(const QPointF &point, double tolerance)
    {
        for (int i = 0; i < all.size(); ++i) {
            const int tried = (hint + i) % all.size();
            const auto &[from, to] = all.at(tried);
            if (fontkit::distanceToSegment(point, from, to) <= tolerance) {
                hint = tried;
                return true;
            }
        }
        return false;
    }

private:
    QVector<std::pair<QPointF, QPointF>> all;
    int hint = 0;
};

/** Whether every point of one set of strokes is near the strokes of another. */
bool areNear(const Strokes &points, const Strokes &strokes, double tolerance)
{
    Segments segments(strokes);
    for (const QVector<QPointF> &stroke : points) {
        for (const QPointF &point : stroke) {
            if (!segments.isNear(point, tolerance))
                return false;
        }
    }
    return true;
}

bool areSame(const Strokes &a, const Strokes &b, double tolerance)
{
    return areNear(a, b, tolerance) && areNear(b, a, tolerance);
}

QRectF boxOf(const Strokes &strokes)
{
    double left = 1e9;
    double right = -1e9;
    double bottom = 1e9;
    double top = -1e9;
    for (const QVector<QPointF> &stroke : strokes) {
        for (const QPointF &point : stroke) {
            left = std::min(left, point.x());
            right = std::max(right, point.x());
            bottom = std::min(bottom, point.y());
            top = std::max(top, point.y());
        }
    }
    return {left, bottom, right - left, top - bottom};
}

Strokes placed(const Strokes &medians)
{
    Strokes result = medians;
    for (QVector<QPointF> &stroke : result) {
        for (QPointF &point : stroke)
            point = GbStrokesFont::placed(point);
    }
    return result;
}

/** Codes of all characters of GB 2312: rows 16 to 87, the last five places of row 55 empty. */
QVector<int> gb2312Codes()
{
    QVector<int> codes;
    for (int lead = 0xB0; lead <= 0xF7; ++lead) {
        for (int trail = 0xA1; trail <= (lead == 0xD7 ? 0xF9 : 0xFE); ++trail)
            codes.append(lead << 8 | trail);
    }
    return codes;
}

/** The characters of GBK that are no hanzi, by code, from a table that is not of our making. */
QMap<int, uint> gbkSigns()
{
    QFile file(QStringLiteral(ZT_TEST_DATA_DIR "/fontkit/gbk-signs.txt"));
    QMap<int, uint> signs;
    if (!file.open(QIODevice::ReadOnly))
        return signs;
    for (const QByteArray &line : file.readAll().split('\n')) {
        if (!line.isEmpty() && !line.startsWith('#'))
            signs.insert(line.left(4).toInt(nullptr, 16), line.mid(5).toUInt(nullptr, 16));
    }
    return signs;
}

/** The font, made once more from its data; with the count of characters. */
const fontkit::FontFile &remade(int *hanziCount = nullptr)
{
    static GbStrokesFont maker(hanziData(), hersheyData());
    static const fontkit::FontFile font = [] {
        fontkit::FontFile made;
        return maker.make(&made, nullptr) ? made : fontkit::FontFile();
    }();
    if (hanziCount != nullptr)
        *hanziCount = maker.hanziCount();
    return font;
}

void writeCharacter(const QTemporaryDir &folder, const QByteArray &name, const QByteArray &json)
{
    const QByteArray path = QFile::encodeName(folder.path()) + '/' + name;
    std::FILE *file = std::fopen(path.constData(), "wb");
    QVERIFY(file != nullptr);
    std::fwrite(json.constData(), 1, static_cast<size_t>(json.size()), file);
    std::fclose(file);
}

} // namespace

class tst_GbStrokesFont : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void codes_holdAllOfGb2312();
    void placed_emBecomes256WithNarrowerMargins();
    void font_hasEveryCharacterOfGb2312();
    void font_hasWhatTheDataHasOfGbk();
    void font_strokesAreThoseOfTheDataWithinTolerance();
    void font_fullWidthFormsAreSimplexLetters();
    void font_punctuationIsThere();
    void font_punctuationStandsWhereItBelongs();
    void font_drawsEverySignOfGbk();
    void font_countsOfGbk();
    void font_everyGlyphIsOneWidth_butLetters();
    void font_linesOfTablesJoin();
    void font_voicedKanaAreTheKanaWithTheirMark();
    void origins_areTold();
    void font_codeWithoutGlyph_takesTwoBytesAndNoRoom();
    void make_twice_givesTheSameBytes();
    void make_withoutCharacters_failsAndTells();
    void make_withoutHersheyData_failsAndTells();
    void make_damagedCharacter_failsAndTells();
    void make_someCharacters_makesThoseAlone();
};

void tst_GbStrokesFont::codes_holdAllOfGb2312()
{
    QMap<int, QByteArray> all;
    for (const auto &[code, character] : GbStrokesFont::codes())
        all.insert(code, character);
    const QVector<int> wanted = gb2312Codes();
    QCOMPARE(wanted.size(), 6763);
    for (const int code : wanted)
        QVERIFY2(all.contains(code), qPrintable(QString::number(code, 16)));
    QCOMPARE(all.value(0xC4E3), QByteArray("\xE4\xBD\xA0"));
    QCOMPARE(all.value(0x8140), QByteArray("\xE4\xB8\x82"));
}

void tst_GbStrokesFont::placed_emBecomes256WithNarrowerMargins()
{
    QCOMPARE(GbStrokesFont::placed({32, 0}), QPointF(0, 0));
    QCOMPARE(GbStrokesFont::placed({992, 900}), QPointF(240, 225));
    QCOMPARE(GbStrokesFont::placed({512, -124}), QPointF(120, -31));
}

void tst_GbStrokesFont::font_hasEveryCharacterOfGb2312()
{
    SKIP_WITHOUT_CHINESE_FONT();
    GbFont font;
    QCOMPARE(font.parser.GetType(), SHX_TYPE::SHX_BIGFONT);
    for (const int code : gb2312Codes()) {
        Strokes strokes;
        QCOMPARE(font.draw(textOf(code), &strokes), 240.0);
        QVERIFY2(!strokes.isEmpty(), qPrintable(QString::number(code, 16)));
    }
}

void tst_GbStrokesFont::font_hasWhatTheDataHasOfGbk()
{
    SKIP_WITHOUT_CHINESE_FONT();
    int hanziCount = 0;
    const fontkit::FontFile &made = remade(&hanziCount);
    QCOMPARE(hanziCount, 9531);
    QCOMPARE(static_cast<int>(made.ranges.size()), 1);
    QCOMPARE(static_cast<int>(made.ranges.front().first), 0x81);
    QCOMPARE(static_cast<int>(made.ranges.front().last), 0xFE);
    QVERIFY(made.information->name.contains("Arphic Public License"));
}

void tst_GbStrokesFont::font_strokesAreThoseOfTheDataWithinTolerance()
{
    SKIP_WITHOUT_CHINESE_FONT();
    GbFont font;
    int compared = 0;
    int within1 = 0;
    for (const auto &[code, character] : GbStrokesFont::codes()) {
        const auto json = hanziData().read(character + ".json");
        if (!json)
            continue;
        fontkit::HanziReader reader;
        QVERIFY(reader.read(*json));
        const Strokes source = placed(reader.strokes());
        Strokes drawn;
        font.draw(textOf(code), &drawn);
        QVERIFY2(areSame(drawn, source, GbStrokesFont::kTolerance), character.constData());
        within1 += areSame(drawn, source, 1.0) ? 1 : 0;
        ++compared;
    }
    QCOMPARE(compared, 9531);
    QVERIFY(within1 < compared / 2); // smoothing shows, so the comparison can tell
}

void tst_GbStrokesFont::font_fullWidthFormsAreSimplexLetters()
{
    SKIP_WITHOUT_CHINESE_FONT();
    GbFont font;
    fontkit::HersheyFonts hershey(hersheyData());
    for (const char letter : {'A', 'W', 'g', '0', '+', '@'}) {
        fontkit::HersheyCharacter source;
        QVERIFY(hershey.character(QStringLiteral("hershey-simplex.shx"), letter, &source, nullptr));
        Strokes expected;
        for (const QVector<QPoint> &stroke : source.strokes) {
            QVector<QPointF> points;
            for (const QPoint &point : stroke)
                points.append({120.0 - 5 * source.advance + 10 * point.x(), 10.0 * point.y()});
            expected.append(points);
        }
        Strokes drawn;
        font.draw(textOf(0xA380 + letter), &drawn);
        QVERIFY(areSame(drawn, expected, 1e-9));
    }
    Strokes capital;
    font.draw(gbk("Ｗ"), &capital);
    QCOMPARE(boxOf(capital), QRectF(20, 0, 200, 210));
}

void tst_GbStrokesFont::font_punctuationIsThere()
{
    SKIP_WITHOUT_CHINESE_FONT();
    GbFont font;
    const QByteArray marks = gbk("，。、；：？！“”‘’（）《》【】…—·￥〔〕〈〉「」『』～±×÷°℃＄￣");
    QCOMPARE(marks.size(), 2 * 37);
    for (int i = 0; i < marks.size(); i += 2) {
        Strokes strokes;
        QCOMPARE(font.draw(marks.mid(i, 2), &strokes), 240.0);
        QVERIFY2(!strokes.isEmpty(), marks.mid(i, 2).toHex().constData());
    }
    for (int code = 0xA3A1; code <= 0xA3FE; ++code) {
        Strokes strokes;
        QCOMPARE(font.draw(textOf(code), &strokes), 240.0);
        QVERIFY2(!strokes.isEmpty(), qPrintable(QString::number(code, 16)));
    }
    Strokes space;
    QCOMPARE(font.draw("\xA1\xA1", &space), 240.0);
    QVERIFY(space.isEmpty());
}

void tst_GbStrokesFont::font_punctuationStandsWhereItBelongs()
{
    SKIP_WITHOUT_CHINESE_FONT();
    GbFont font;
    Strokes drawn;
    const auto box = [&](const char *mark) {
        font.draw(gbk(mark), &drawn);
        return boxOf(drawn);
    };
    for (const char *mark : {"，", "。", "、"}) {
        QVERIFY2(box(mark).right() < 120 && box(mark).bottom() < 70, mark);
    }
    for (const char *mark : {"“", "‘", "（", "《", "【"})
        QVERIFY2(box(mark).left() >= 120, mark);
    for (const char *mark : {"”", "’", "）", "》", "】", "？", "！", "：", "；"})
        QVERIFY2(box(mark).right() <= 120, mark);
    for (const char *mark : {"“", "”", "‘", "’"})
        QVERIFY2(box(mark).top() > 150, mark);
    QCOMPARE(box("—").left(), 0.0); // two of them make one line
    QCOMPARE(box("—").right(), 240.0);
}

void tst_GbStrokesFont::font_drawsEverySignOfGbk()
{
    SKIP_WITHOUT_CHINESE_FONT();
    GbFont font;
    const QMap<int, uint> signs = gbkSigns();
    QCOMPARE(signs.size(), 868);
    for (auto it = signs.begin(); it != signs.end(); ++it) {
        Strokes strokes;
        const double advance = font.draw(textOf(it.key()), &strokes);
        const QByteArray shown = QString(QChar(it.value())).toUtf8();
        QVERIFY2(advance > 0.0, shown.constData());
        QVERIFY2(!strokes.isEmpty() || it.value() == 0x3000, shown.constData());
        const QRectF box = boxOf(strokes);
        QVERIFY2(box.left() >= -20 && box.right() <= advance + 20, shown.constData());
    }
}

void tst_GbStrokesFont::font_countsOfGbk()
{
    SKIP_WITHOUT_CHINESE_FONT();
    // GBK has 21,791 characters, 868 of them signs and letters, all drawn, and 20,923 hanzi, of
    // which the data has 9,531 and five more are other forms of these.
    QCOMPARE(static_cast<int>(remade().glyphs.size()), 868 + 9531 + 5);
}

void tst_GbStrokesFont::font_everyGlyphIsOneWidth_butLetters()
{
    SKIP_WITHOUT_CHINESE_FONT();
    GbFont font;
    const QMap<int, uint> signs = gbkSigns();
    QVERIFY(remade().glyphs.size() > 9531);
    for (const fontkit::GlyphDefinition &glyph : remade().glyphs) {
        const double extent = font.parser.getTextExtent(textOf(glyph.code).constData());
        // Rows 6 and 7 hold Greek and Cyrillic, row 8 begins with vowels of pinyin.
        const uint character = signs.value(glyph.code, 0);
        const bool isLetter =
            (character >= 0xC0 && character < 0x2C0 && character != 0xD7 && character != 0xF7) ||
            (character >= 0x370 && character < 0x460);
        if (!isLetter)
            QCOMPARE(extent, 240.0);
    }
    // As beside the plain Hershey font: i 8, u 19, Omega of the Greek font 20 units of ten.
    QCOMPARE(font.parser.getTextExtent(gbk("ī").constData()), 80.0);
    QCOMPARE(font.parser.getTextExtent(gbk("ü").constData()), 190.0);
    QCOMPARE(font.parser.getTextExtent(gbk("Ω").constData()), 200.0);
}

void tst_GbStrokesFont::font_linesOfTablesJoin()
{
    SKIP_WITHOUT_CHINESE_FONT();
    GbFont font;
    Strokes drawn;
    font.draw(gbk("┌"), &drawn);
    QCOMPARE(boxOf(drawn), QRectF(120, -31, 120, 128));
    font.draw(gbk("┘"), &drawn);
    QCOMPARE(boxOf(drawn), QRectF(0, 97, 120, 128));
    font.draw(gbk("╬"), &drawn);
    QCOMPARE(drawn.size(), 8); // four corners, no line twice
    QCOMPARE(boxOf(drawn), QRectF(0, -31, 240, 256));
    font.draw(gbk("╔"), &drawn);
    // Two lines to the right and two down; the outer pair meets left above the inner one.
    QVERIFY(areSame(drawn,
                    {{{134, 83}, {240, 83}},
                     {{106, 111}, {240, 111}},
                     {{106, 111}, {106, -31}},
                     {{134, 83}, {134, -31}}},
                    1e-9));
    font.draw(gbk("┅"), &drawn); // heavy: three lines of three dashes
    QCOMPARE(drawn.size(), 9);
}

void tst_GbStrokesFont::font_voicedKanaAreTheKanaWithTheirMark()
{
    SKIP_WITHOUT_CHINESE_FONT();
    GbFont font;
    Strokes plain;
    Strokes voiced;
    font.draw(gbk("か"), &plain);
    font.draw(gbk("が"), &voiced);
    QCOMPARE(voiced.size(), plain.size() + 2);
    QVERIFY(areNear(plain, voiced, 1e-9));
    font.draw(gbk("ハ"), &plain);
    font.draw(gbk("パ"), &voiced);
    QCOMPARE(voiced.size(), plain.size() + 1);
}

void tst_GbStrokesFont::origins_areTold()
{
    SKIP_WITHOUT_CHINESE_FONT();
    using fontkit::CharacterOrigin;
    GbStrokesFont maker(hanziData(), hersheyData());
    const QMap<int, fontkit::DrawnCharacter> all = maker.characters(nullptr);
    QCOMPARE(all.value(0xC4E3).origin, CharacterOrigin::Hanzi);
    QCOMPARE(all.value(0xA3C1).origin, CharacterOrigin::Hershey);  // full-width A
    QCOMPARE(all.value(0xA6C1).origin, CharacterOrigin::Hershey);  // alpha
    QCOMPARE(all.value(0xA4A2).origin, CharacterOrigin::Drawn);    // a of hiragana
    QCOMPARE(all.value(0xA4AC).origin, CharacterOrigin::Composed); // ga of hiragana
    QCOMPARE(all.value(0xA2D9).origin, CharacterOrigin::Composed); // 1 in a circle
}

void tst_GbStrokesFont::font_codeWithoutGlyph_takesTwoBytesAndNoRoom()
{
    SKIP_WITHOUT_CHINESE_FONT();
    GbFont font;
    for (const int code : {0xAAA1, 0xF8A1, 0xFEFE, 0x8130}) {
        Strokes strokes;
        // The second byte is not drawn as a character of its own, nor is what follows lost.
        QCOMPARE(font.draw(textOf(code) + "\xC4\xE3", &strokes), 240.0);
        Strokes alone;
        font.draw("\xC4\xE3", &alone);
        QCOMPARE(strokes, alone);
    }
}

void tst_GbStrokesFont::make_twice_givesTheSameBytes()
{
    SKIP_WITHOUT_CHINESE_FONT();
    QFile file(
        QString::fromLocal8Bit(testsupport::boardFontPath(QStringLiteral("gb-strokes.shx"))));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(file.readAll() == fontkit::writeFont(remade()));
}

void tst_GbStrokesFont::make_withoutCharacters_failsAndTells()
{
    const QTemporaryDir folder;
    GbStrokesFont maker(DataFolder(QFile::encodeName(folder.path())), hersheyData());
    fontkit::FontFile made;
    QString error;
    QVERIFY(!maker.make(&made, &error));
    QCOMPARE(error, folder.path() + QStringLiteral(": no character of hanzi-writer-data"));
}

void tst_GbStrokesFont::make_withoutHersheyData_failsAndTells()
{
    const QTemporaryDir folder;
    writeCharacter(folder, "\xE4\xBD\xA0.json", R"({"medians":[[[100,100],[200,100]]]})");
    const DataFolder data(QFile::encodeName(folder.path()));
    GbStrokesFont maker(data, data);
    fontkit::FontFile made;
    QString error;
    QVERIFY(!maker.make(&made, &error));
    QCOMPARE(error, folder.path() + QStringLiteral("/futural.jhf: cannot be read"));
}

void tst_GbStrokesFont::make_damagedCharacter_failsAndTells()
{
    const QTemporaryDir folder;
    writeCharacter(folder, "\xE4\xBD\xA0.json", R"({"medians":[[[100]]]})");
    GbStrokesFont maker(DataFolder(QFile::encodeName(folder.path())), hersheyData());
    fontkit::FontFile made;
    QString error;
    QVERIFY(!maker.make(&made, &error));
    QCOMPARE(error, folder.path() + QString::fromUtf8("/你.json: stroke 1 is no list of points"));
}

void tst_GbStrokesFont::make_someCharacters_makesThoseAlone()
{
    if (!hersheyData().read("futural.jhf"))
        ZT_SKIP("the Hershey data is missing: install the package hershey-fonts-data");
    const QTemporaryDir folder;
    writeCharacter(folder, "\xE4\xBD\xA0.json", R"({"medians":[[[132,100],[232,100]]]})");
    GbStrokesFont maker(DataFolder(QFile::encodeName(folder.path())), hersheyData());
    fontkit::FontFile made;
    QString error;
    QVERIFY2(maker.make(&made, &error), qPrintable(error));
    QCOMPARE(maker.hanziCount(), 1);
    const auto isYou = [](const fontkit::GlyphDefinition &glyph) { return glyph.code == 0xC4E3; };
    const auto you = std::find_if(made.glyphs.begin(), made.glyphs.end(), isYou);
    QVERIFY(you != made.glyphs.end());
    // To (25,25), along to (50,25), on to (240,0) in two pieces.
    QCOMPARE(you->program.toHex(' '),
             QByteArray("02 08 19 19 01 08 19 00 02 08 5f f3 08 5f f4 00"));
}

QTEST_GUILESS_MAIN(tst_GbStrokesFont)
#include "tst_GbStrokesFont.moc"
