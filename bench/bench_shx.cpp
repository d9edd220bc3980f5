// Stroke-font text, measured and drawn, per character: the library beside a plain search of the
// index for every glyph.

#include <support/ShxWriter.h>
#include <support/oracle/PlainShxFont.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QTemporaryDir>

#include <benchmark/benchmark.h>

#include <random>

using testsupport::PlainShxFont;
using testsupport::ShxGlyph;
using testsupport::ShxWriter;

namespace {

constexpr int kBigGlyphs = 9500;
constexpr int kBigCharacters = 10000;
constexpr int kLatinCharacters = 100000;

/** Strokes of a few points each, begun with the pen up, and a move to the next character. */
QByteArray strokes(std::mt19937 &random, int count, int points)
{
    std::uniform_int_distribution<int> step(-20, 20);
    QByteArray codes;
    for (int stroke = 0; stroke < count; ++stroke) {
        codes += testsupport::bytes({2, 8, step(random), step(random), 1, 9});
        for (int i = 1; i < points; ++i)
            codes += testsupport::bytes({step(random), step(random) | 1});
        codes += testsupport::bytes({0, 0});
    }
    return codes + testsupport::bytes({2, 8, 100, 0});
}

/** Vector codes as letters have them. */
QByteArray letter(std::mt19937 &random)
{
    std::uniform_int_distribution<int> code(0x10, 0xFF);
    QByteArray codes = testsupport::bytes({2, code(random), 1});
    for (int i = 0; i < 14; ++i)
        codes += testsupport::bytes({code(random)});
    return codes + testsupport::bytes({2, 0x60, 0});
}

struct Fonts
{
    QTemporaryDir folder;
    QByteArray latinFile;
    QByteArray bigFile;
    ZTShxParser latin;
    ZTShxParser big;
    QByteArray latinText;
    QByteArray bigText;

    Fonts()
    {
        makeLatin();
        makeBig();
        const QString latinPath = folder.filePath(QStringLiteral("latin.shx"));
        const QString bigPath = folder.filePath(QStringLiteral("big.shx"));
        testsupport::writeFile(latinPath, latinFile);
        testsupport::writeFile(bigPath, bigFile);
        latin.init(latinPath.toLocal8Bit().constData());
        big.init(bigPath.toLocal8Bit().constData());
    }

private:
    void makeLatin()
    {
        std::mt19937 random(1);
        ShxWriter writer;
        writer.above = 21;
        for (int code = 32; code < 127; ++code)
            writer.glyphs.append({code, letter(random), {}});
        latinFile = writer.shapes();
        for (int i = 0; i < kLatinCharacters; ++i)
            latinText += static_cast<char>(32 + random() % 95);
    }

    void makeBig()
    {
        std::mt19937 random(2);
        ShxWriter writer;
        writer.above = 100;
        writer.ranges = {{0x81, 0xFE}};
        for (int i = 0; i < kBigGlyphs; ++i)
            writer.glyphs.append({code(i), strokes(random, 8, 5), {}});
        bigFile = writer.bigfont();
        for (int i = 0; i < kBigCharacters; ++i) {
            const int character = code(static_cast<int>(random() % kBigGlyphs));
            bigText += testsupport::bytes({character >> 8, character});
        }
    }

    static int code(int i) { return (0xB0 - 0x20 + i / 190) << 8 | (0x41 + i % 190); }
};

Fonts &fonts()
{
    static Fonts instance;
    return instance;
}

std::vector<int> codesOf(const QByteArray &text, int bytesPerCode)
{
    std::vector<int> codes;
    for (int i = 0; i < text.size(); i += bytesPerCode) {
        int code = 0;
        for (int k = 0; k < bytesPerCode; ++k)
            code = code << 8 | static_cast<unsigned char>(text[i + k]);
        codes.push_back(code);
    }
    return codes;
}

/** Ends a character at every glyph, as a pair does, so that paths stay as small as there. */
void drawPaths(ZTShxParser &font, const QByteArray &text)
{
    ZTPathGlyphCallback paths;
    font.drawText(&paths, text.constData(), 0, 0);
    paths.next();
    benchmark::DoNotOptimize(paths.getPath().constData());
}

void perCharacter(benchmark::State &state, int characters)
{
    state.counters["per_character"] = benchmark::Counter(
        characters, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void measureLatin(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(fonts().latin.getTextExtent(fonts().latinText.constData()));
    perCharacter(state, kLatinCharacters);
}

void measureLatinPlain(benchmark::State &state)
{
    PlainShxFont font(fonts().latinFile);
    const std::vector<int> codes = codesOf(fonts().latinText, 1);
    for (auto _ : state)
        benchmark::DoNotOptimize(font.draw(nullptr, codes, 1.0));
    perCharacter(state, kLatinCharacters);
}

void measureBig(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(fonts().big.getTextExtent(fonts().bigText.constData()));
    perCharacter(state, kBigCharacters);
}

void measureBigPlain(benchmark::State &state)
{
    PlainShxFont font(fonts().bigFile);
    const std::vector<int> codes = codesOf(fonts().bigText, 2);
    for (auto _ : state)
        benchmark::DoNotOptimize(font.draw(nullptr, codes, 1.0));
    perCharacter(state, kBigCharacters);
}

void drawLatin(benchmark::State &state)
{
    for (auto _ : state)
        drawPaths(fonts().latin, fonts().latinText);
    perCharacter(state, kLatinCharacters);
}

void drawBig(benchmark::State &state)
{
    for (auto _ : state)
        drawPaths(fonts().big, fonts().bigText);
    perCharacter(state, kBigCharacters);
}

void loadBig(benchmark::State &state)
{
    const QByteArray path = fonts().folder.filePath(QStringLiteral("big.shx")).toLocal8Bit();
    for (auto _ : state) {
        ZTShxParser font(path.constData());
        benchmark::DoNotOptimize(font.getTextExtent("A"));
    }
}

} // namespace

BENCHMARK(measureLatin)->Unit(benchmark::kMillisecond);
BENCHMARK(measureLatinPlain)->Unit(benchmark::kMillisecond);
BENCHMARK(measureBig)->Unit(benchmark::kMillisecond);
BENCHMARK(measureBigPlain)->Unit(benchmark::kMillisecond);
BENCHMARK(drawLatin)->Unit(benchmark::kMillisecond);
BENCHMARK(drawBig)->Unit(benchmark::kMillisecond);
BENCHMARK(loadBig)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
