// Stroke-font text, measured and drawn, per character: the library beside a plain search of the
// index for every glyph.

#include <support/ShxWriter.h>
#include <support/oracle/PlainShxFont.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>

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

/** Both fonts in the folder beside the program, and a pair of them. */
struct Fonts
{
    QByteArray latinFile;
    QByteArray bigFile;
    QByteArray bigPath;
    QByteArray latinText;
    QByteArray bigText;
    ZTRegBigFontShxParser pair;

    Fonts()
    {
        makeLatin();
        makeBig();
        const QDir folder(QCoreApplication::applicationDirPath() + QStringLiteral("/font"));
        folder.mkpath(QStringLiteral("."));
        bigPath = folder.filePath(QStringLiteral("bench-big.shx")).toLocal8Bit();
        testsupport::writeFile(folder.filePath(QStringLiteral("bench-latin.shx")), latinFile);
        testsupport::writeFile(QString::fromLocal8Bit(bigPath), bigFile);
        ZTShxFontManager::regFonts();
        pair.init("bench-latin.shx", "bench-big.shx");
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

void perCharacter(benchmark::State &state, int characters)
{
    state.counters["per_character"] = benchmark::Counter(
        characters, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void measure(benchmark::State &state, const QByteArray &text, int characters)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(fonts().pair.getTextExtent(text.constData()));
    perCharacter(state, characters);
}

void draw(benchmark::State &state, const QByteArray &text, int characters)
{
    for (auto _ : state) {
        ZTPathGlyphCallback paths;
        fonts().pair.drawText(&paths, text.constData(), 0, 0, 0);
        benchmark::DoNotOptimize(paths.getPath().constData());
    }
    perCharacter(state, characters);
}

void measurePlain(benchmark::State &state, const QByteArray &file, const std::vector<int> &codes)
{
    PlainShxFont font(file);
    for (auto _ : state)
        benchmark::DoNotOptimize(font.draw(nullptr, codes, 1.0));
    perCharacter(state, static_cast<int>(codes.size()));
}

/** All characters into one path; the library's pairs make a path for each. */
void drawPlain(benchmark::State &state, const QByteArray &file, const std::vector<int> &codes)
{
    PlainShxFont font(file);
    for (auto _ : state) {
        ZTPathGlyphCallback paths;
        font.draw(&paths, codes, 1.0);
        paths.next();
        benchmark::DoNotOptimize(paths.getPath().constData());
    }
    perCharacter(state, static_cast<int>(codes.size()));
}

/** Reads the big font and finds its first glyph, which makes the table. */
void loadBig(benchmark::State &state)
{
    for (auto _ : state) {
        ZTShxParser font(fonts().bigPath.constData());
        benchmark::DoNotOptimize(font.getTextExtent("A"));
    }
}

void addBenchmarks()
{
    const Fonts &all = fonts();
    const std::vector<int> latin = codesOf(all.latinText, 1);
    const std::vector<int> big = codesOf(all.bigText, 2);
    const auto add = [](const char *name, auto function, auto &&...arguments) {
        benchmark::RegisterBenchmark(name, function, arguments...)->Unit(benchmark::kMillisecond);
    };
    add("measure/latin", measure, all.latinText, kLatinCharacters);
    add("measure/latin/plain", measurePlain, all.latinFile, latin);
    add("measure/big", measure, all.bigText, kBigCharacters);
    add("measure/big/plain", measurePlain, all.bigFile, big);
    add("draw/latin", draw, all.latinText, kLatinCharacters);
    add("draw/latin/plain", drawPlain, all.latinFile, latin);
    add("draw/big", draw, all.bigText, kBigCharacters);
    add("draw/big/plain", drawPlain, all.bigFile, big);
    add("load/big", loadBig);
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    addBenchmarks();
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
