// Stroke-font text, measured and drawn, per character: the library beside a plain search of the
// index for every glyph. Longer texts and larger fonts show how the cost grows.

#include "BenchFonts.h"

#include <support/oracle/PlainShxFont.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <benchmark/benchmark.h>

using testsupport::PlainShxFont;

namespace {

constexpr int kBigCharacters = 5000;
constexpr int kLatinCharacters = 10000;

/** Both fonts in the folder beside the program, and a pair of them. */
struct Fonts
{
    QByteArray latinFile = benchfonts::latinFont();
    QByteArray bigFile = benchfonts::bigFont();
    QByteArray latinText = benchfonts::latinText(kLatinCharacters).toLatin1();
    QByteArray bigText = benchfonts::toGbk(benchfonts::chineseText(kBigCharacters));
    QByteArray bigPath;
    ZTRegBigFontShxParser pair;

    Fonts()
    {
        benchfonts::putFont("bench-latin.shx", latinFile);
        bigPath = benchfonts::putFont("bench-big.shx", bigFile);
        ZTShxFontManager::regFonts();
        pair.init("bench-latin.shx", "bench-big.shx");
    }
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

/** A text of growing length: the cost has to grow with it and no faster. */
void drawLength(benchmark::State &state)
{
    const int characters = static_cast<int>(state.range(0));
    draw(state, benchfonts::toGbk(benchfonts::chineseText(characters)), characters);
    state.SetComplexityN(state.range(0));
}

/** Characters of a big font of growing size: the cost of a character has to stay. */
QByteArray textOfFont(int glyphs)
{
    return benchfonts::toGbk(benchfonts::chineseText(1000, glyphs));
}

void measureInFont(benchmark::State &state)
{
    const int glyphs = static_cast<int>(state.range(0));
    ZTShxParser font(
        benchfonts::putFont("bench-size.shx", benchfonts::bigFont(glyphs)).constData());
    const QByteArray text = textOfFont(glyphs);
    for (auto _ : state)
        benchmark::DoNotOptimize(font.getTextExtent(text.constData()));
    perCharacter(state, 1000);
    state.SetComplexityN(state.range(0));
}

void measureInFontPlain(benchmark::State &state)
{
    const int glyphs = static_cast<int>(state.range(0));
    measurePlain(state, benchfonts::bigFont(glyphs), codesOf(textOfFont(glyphs), 2));
    state.SetComplexityN(state.range(0));
}

void addGrowth()
{
    benchmark::RegisterBenchmark("draw/big/length", drawLength)
        ->RangeMultiplier(10)
        ->Range(100, 100000)
        ->Complexity(benchmark::oN)
        ->Unit(benchmark::kMillisecond);
    const auto add = [](const char *name, auto function, benchmark::BigO growth) {
        benchmark::RegisterBenchmark(name, function)
            ->Arg(150)
            ->Arg(1500)
            ->Arg(9500)
            ->Arg(20000)
            ->Complexity(growth)
            ->Unit(benchmark::kMicrosecond);
    };
    add("measure/fontsize", measureInFont, benchmark::o1);
    add("measure/fontsize/plain", measureInFontPlain, benchmark::oN);
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
    addGrowth();
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
