#include <support/ShxRecorder.h>
#include <support/ShxWriter.h>
#include <support/oracle/PlainShxFont.h>

#include <ZTDrawEngineLib/shx/ZTShxParser.h>

#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <cstring>
#include <random>

using testsupport::bytes;
using testsupport::PlainShxFont;
using testsupport::ShxGlyph;
using testsupport::ShxRecorder;
using testsupport::ShxWriter;

namespace {

constexpr int kFontsPerForm = 3000;

/** Codes that repeat often and lie on several pages of the table. */
int randomCode(std::mt19937 &random)
{
    static const int pages[] = {0x0000, 0x4100, 0x8100, 0xFF00};
    return pages[random() % 4] | static_cast<int>(random() % 24);
}

/** Code bytes of any kind, with the few that loop or scale kept rare. */
QByteArray randomCodes(std::mt19937 &random)
{
    QByteArray codes;
    const int count = static_cast<int>(random() % 20);
    for (int i = 0; i < count; ++i) {
        switch (random() % 4) {
        case 0:
            codes += bytes({static_cast<int>(random() % 256)});
            break;
        case 1:
            codes += bytes({static_cast<int>(random() % 16)});
            break;
        default:
            codes += bytes({static_cast<int>(0x10 + random() % 240)});
            break;
        }
    }
    return codes;
}

/** A font whose header may lie and whose bytes may be damaged. */
QByteArray randomFont(std::mt19937 &random, PlainShxFont::Form form)
{
    ShxWriter writer;
    writer.above = static_cast<int>(1 + random() % 30);
    writer.ranges = {{0x41, 0x41}, {0x81, 0xFF}};
    const int count = static_cast<int>(random() % 40);
    for (int i = 0; i < count; ++i)
        writer.glyphs.append({randomCode(random), randomCodes(random),
                              QByteArray(static_cast<int>(random() % 3), 'n')});
    if (random() % 4 == 0)
        writer.count = static_cast<int>(random() % 60);
    QByteArray file = form == PlainShxFont::Form::Shapes    ? writer.shapes()
                      : form == PlainShxFont::Form::Bigfont ? writer.bigfont()
                                                            : writer.unifont();
    for (unsigned damage = random() % 4; damage > 0; --damage) {
        const int at = 18 + static_cast<int>(random() % static_cast<unsigned>(file.size() - 18));
        file[at] = static_cast<char>(random());
    }
    if (random() % 4 == 0)
        file.truncate(18 + static_cast<int>(random() % static_cast<unsigned>(file.size() - 18)));
    return file;
}

/** Three codes in a row; not 0, which ends a text. */
std::vector<int> randomText(std::mt19937 &random, bool isByteFont)
{
    std::vector<int> codes;
    while (codes.size() < 3) {
        const int code = isByteFont ? randomCode(random) & 0xFF : randomCode(random);
        if (code != 0)
            codes.push_back(code);
    }
    return codes;
}

/** The codes as text that the library takes for them, null-terminated. */
QByteArray bigfontText(const std::vector<int> &codes)
{
    QByteArray text;
    for (const int code : codes)
        text += code > 0xFF ? bytes({code >> 8, code}) : bytes({code});
    return text;
}

bool sameBits(double a, double b)
{
    return std::memcmp(&a, &b, sizeof a) == 0 || (a != a && b != b);
}

} // namespace

/** Every glyph that the library finds and draws, beside a plain search from the first record. */
class tst_ZTShxGlyphLookup : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QVERIFY(folder.isValid()); }

    void firstRecordOfACodeWins_alsoWhenItStartsOutsideTheImage()
    {
        ShxWriter writer;
        writer.ranges = {{0x81, 0xFE}};
        writer.glyphs = {{0x8141, bytes({0x10}), {}}, {0x8141, bytes({0x20}), {}}};
        QByteArray file = writer.bigfont();
        QCOMPARE(load(file).getTextExtent("\x81\x41"), 1.0);
        const int offsetOfFirst = 31 + 4 + 8 + 4;
        file.replace(offsetOfFirst, 4, bytes({0xFF, 0xFF, 0xFF, 0x7F}));
        QCOMPARE(load(file).getTextExtent("\x81\x41"), 0.0);
    }

    void countEndsTheSearch()
    {
        ShxWriter writer;
        writer.glyphs = {{65, bytes({0x10}), {}}, {66, bytes({0x20}), {}}};
        writer.count = 1;
        ZTShxParser parser = load(writer.unifont());
        QCOMPARE(parser.getTextExtent(L"A"), 1.0);
        QCOMPARE(parser.getTextExtent(L"B"), 0.0);
        writer.count = 0;
        QCOMPARE(load(writer.unifont()).getTextExtent(L"A"), 0.0);
    }

    void table_goesWithItsFile()
    {
        ShxWriter writer;
        writer.glyphs = {{65, bytes({0x10}), {}}};
        ZTShxParser parser = load(writer.shapes());
        QCOMPARE(parser.getTextExtent("A"), 1.0);
        writer.glyphs = {{66, bytes({0x20}), {}}, {65, bytes({0x30}), {}}};
        testsupport::writeFile(path(), writer.shapes());
        parser.init(path().toLocal8Bit().constData());
        QCOMPARE(parser.getTextExtent("A"), 3.0);
        QCOMPARE(parser.getTextExtent("B"), 2.0);
    }

    void sixtyFiveThousandGlyphs_areAllFound()
    {
        ShxWriter writer;
        for (int code = 1; code < 65535; ++code)
            writer.glyphs.append({code, bytes({8, code % 127, code / 127 % 127}), {}});
        ZTShxParser parser = load(writer.unifont());
        for (int code = 1; code < 65535; ++code) {
            const wchar_t text[] = {static_cast<wchar_t>(code), L'\0'};
            QVERIFY(parser.getTextExtent(text) == code % 127);
        }
        QCOMPARE(parser.getTextExtent(L"\uFFFF"), 0.0);
    }

    void randomFonts_drawAsThePlainSearchDoes_data()
    {
        QTest::addColumn<int>("form");
        QTest::newRow("shapes") << static_cast<int>(PlainShxFont::Form::Shapes);
        QTest::newRow("bigfont") << static_cast<int>(PlainShxFont::Form::Bigfont);
        QTest::newRow("unifont") << static_cast<int>(PlainShxFont::Form::Unifont);
    }
    void randomFonts_drawAsThePlainSearchDoes()
    {
        QFETCH(int, form);
        std::mt19937 random(static_cast<unsigned>(form) + 1);
        int usable = 0;
        int drawn = 0;
        for (int i = 0; i < kFontsPerForm; ++i) {
            const QByteArray file = randomFont(random, static_cast<PlainShxFont::Form>(form));
            PlainShxFont plain(file);
            ZTShxParser parser = load(file);
            QCOMPARE(parser.GetType() == SHX_TYPE::SHX_NONE,
                     plain.form() == PlainShxFont::Form::None);
            if (plain.form() == PlainShxFont::Form::None)
                continue;
            ++usable;
            for (int text = 0; text < 8; ++text)
                drawn += compareOneText(random, parser, plain);
            if (QTest::currentTestFailed())
                qFatal("font %d, seed %d", i, form + 1);
        }
        QVERIFY2(usable > kFontsPerForm / 2, qPrintable(QString::number(usable)));
        QVERIFY2(drawn > usable, qPrintable(QString::number(drawn)));
    }

private:
    /** 1 if the text drew anything at all. */
    int compareOneText(std::mt19937 &random, ZTShxParser &parser, PlainShxFont &plain)
    {
        const bool isShapes = plain.form() == PlainShxFont::Form::Shapes;
        const bool isUnifont = plain.form() == PlainShxFont::Form::Unifont;
        const std::vector<int> codes = randomText(random, isShapes);
        const std::wstring wide(codes.begin(), codes.end());
        const QByteArray narrow = bigfontText(codes);
        const std::vector<int> taken = isUnifont ? codes : plain.codesOf(narrow.constData());
        const double height = 0.7;
        parser.setTextHeight(height);
        ShxRecorder actual;
        ShxRecorder expected;
        const double width = isUnifont ? parser.drawText(&actual, wide.c_str(), 0.0, 0.0)
                                       : parser.drawText(&actual, narrow.constData(), 0.0, 0.0);
        const double expectedWidth = plain.draw(&expected, taken, height);
        compare(actual, expected, sameBits(width, expectedWidth));
        const double extent = isUnifont ? parser.getTextExtent(wide.c_str())
                                        : parser.getTextExtent(narrow.constData());
        const double expectedExtent = plain.draw(nullptr, taken, height);
        compare(actual, expected, sameBits(extent, expectedExtent));
        return expected.calls.size() > 3 ? 1 : 0;
    }

    static void compare(const ShxRecorder &actual, const ShxRecorder &expected, bool sameWidth)
    {
        if (!sameWidth || actual.calls != expected.calls)
            qWarning().noquote() << "actual  " << actual.text() << "\nexpected" << expected.text();
        QVERIFY(sameWidth);
        QCOMPARE(actual.calls, expected.calls);
    }

    QString path() const { return folder.filePath(QStringLiteral("font.shx")); }

    ZTShxParser load(const QByteArray &file)
    {
        testsupport::writeFile(path(), file);
        return ZTShxParser(path().toLocal8Bit().constData());
    }

    QTemporaryDir folder;
};

QTEST_GUILESS_MAIN(tst_ZTShxGlyphLookup)
#include "tst_ZTShxGlyphLookup.moc"
