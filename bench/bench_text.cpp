// Texts as shapes: laying out long texts, the scan of a font folder, and one edit among many texts.

#include "BenchFonts.h"

#include <support/oracle/PlainShxFont.h>

#include <hostkit/setup/Factories.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QDataStream>
#include <QtCore/QTemporaryDir>
#include <QtWidgets/QApplication>

#include <benchmark/benchmark.h>

#include <memory>

using benchfonts::chineseText;
using benchfonts::latinText;

namespace {

constexpr double kHeight = 100.0;

const char kLatin[] = "bench-text-latin.shx";
const char kBig[] = "bench-text-big.shx";

/** The fonts in the folder beside the program, and the record of a text in them. */
ZTFontParam strokeFont()
{
    static const bool isThere = [] {
        benchfonts::putFont(kLatin, benchfonts::latinFont());
        benchfonts::putFont(kBig, benchfonts::bigFont());
        return !ZTShxFontManager::regFonts().empty();
    }();
    ZTFontParam font;
    font.fontType = isThere ? FontType::singleLine : FontType::None;
    font.shxFont.enName = QLatin1String(kLatin);
    font.shxFont.zhName = QLatin1String(kBig);
    font.shxFont.height = kHeight;
    font.shxFont.parser.init(kLatin, kBig);
    font.shxFont.parser.setTextHeight(kHeight);
    return font;
}

void perCharacter(benchmark::State &state, int characters)
{
    state.counters["per_character"] = benchmark::Counter(
        characters, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
    state.SetComplexityN(state.range(0));
}

/** The whole rebuild of a text: layout, conversion to scene pixels, order of its strokes. */
void layOut(benchmark::State &state, const ZTFontParam &font, const QString &text)
{
    ZTShapeText shape;
    shape.setFont(font);
    shape.setText(text);
    for (auto _ : state) {
        shape.setUpdate(1);
        shape.paint();
        benchmark::DoNotOptimize(shape.getLines().elementCount());
    }
    perCharacter(state, text.size());
}

void layOutLatin(benchmark::State &state)
{
    layOut(state, strokeFont(), latinText(static_cast<int>(state.range(0))));
}

void layOutChinese(benchmark::State &state)
{
    layOut(state, strokeFont(), chineseText(static_cast<int>(state.range(0))));
}

void layOutSystemFont(benchmark::State &state)
{
    ZTFontParam font;
    font.font.setPixelSize(static_cast<int>(kHeight));
    layOut(state, font, latinText(static_cast<int>(state.range(0))));
}

/** The strokes alone as a plain search of the index finds them, in one path. */
void drawPlain(benchmark::State &state, const QByteArray &file, const QByteArray &text)
{
    testsupport::PlainShxFont font(file);
    const std::vector<int> codes = font.codesOf(text.constData());
    for (auto _ : state) {
        ZTPathGlyphCallback paths;
        font.draw(&paths, codes, kHeight);
        paths.next();
        benchmark::DoNotOptimize(paths.getPath().constData());
    }
    perCharacter(state, static_cast<int>(codes.size()));
}

void drawPlainLatin(benchmark::State &state)
{
    drawPlain(state, benchfonts::latinFont(),
              latinText(static_cast<int>(state.range(0))).toLatin1());
}

void drawPlainChinese(benchmark::State &state)
{
    drawPlain(state, benchfonts::bigFont(),
              benchfonts::toGbk(chineseText(static_cast<int>(state.range(0)))));
}

/** A folder of 500 fonts, so many of them big ones; read anew each time. */
void scanFolder(benchmark::State &state)
{
    const QTemporaryDir folder;
    const QByteArray regular = benchfonts::latinFont();
    const QByteArray big = benchfonts::bigFont();
    for (int i = 0; i < 500; ++i)
        testsupport::writeFile(folder.filePath(QStringLiteral("font%1.shx").arg(i)),
                               i < state.range(0) ? big : regular);
    for (auto _ : state) {
        ZTShxFontManager::release();
        ZTShxFontManager::addFolder(folder.path());
        benchmark::DoNotOptimize(ZTShxFontManager::regFonts().size());
    }
    ZTShxFontManager::release();
}

/** The same once more while nothing has changed on the disk, as an empty list brings it about. */
void scanFolderAgain(benchmark::State &state)
{
    const QTemporaryDir folder;
    const QByteArray regular = benchfonts::latinFont();
    for (int i = 0; i < 500; ++i)
        testsupport::writeFile(folder.filePath(QStringLiteral("font%1.shx").arg(i)), regular);
    ZTShxFontManager::release();
    ZTShxFontManager::addFolder(folder.path());
    const QTemporaryDir empty;
    for (auto _ : state) {
        ZTShxFontManager::addFolder(empty.path());
        benchmark::DoNotOptimize(ZTShxFontManager::regFonts().size());
    }
    ZTShxFontManager::release();
}

/** Another text in one of many items: the cost must not depend on how many there are. */
void editOne(benchmark::State &state)
{
    ZTShapeManager manager(nullptr);
    const ZTFontParam font = strokeFont();
    ZTGraphicsTextItem *last = nullptr;
    for (int i = 0; i < state.range(0); ++i) {
        last = static_cast<ZTGraphicsTextItem *>(manager.addShape(ShapeType::Text, QRectF()));
        last->setFontParam(font);
        last->setText(QStringLiteral("Part %1").arg(i));
        last->setPos(i % 100 * 30.0, i / 100 * 20.0);
    }
    manager.scene()->items(QRectF(0, 0, 1, 1)); // lets the scene file its items
    const QString texts[] = {QStringLiteral("ABC"), QStringLiteral("XYZ 123")};
    int edits = 0;
    for (auto _ : state)
        last->setFixedText(texts[++edits % 2]);
    state.SetComplexityN(state.range(0));
}

/** New items in a system font, each with a text of its own, and one move of a handle of each. */
void makeAndResize(benchmark::State &state)
{
    strokeFont(); // there are stroke fonts: without any a new item has no text
    for (auto _ : state) {
        for (int i = 0; i < state.range(0); ++i) {
            ZTGraphicsTextItem item;
            item.setFixedText(QStringLiteral("Part %1").arg(i));
            item.setTransformParam(item.getTransformParam() * QTransform::fromScale(1.1, 1.0));
            benchmark::DoNotOptimize(item.getShapeBase()->getLines().elementCount());
        }
    }
    state.SetComplexityN(state.range(0));
}

/** A drawing of serial numbers as a studio has it: all in one font, none like another. */
QByteArray serialNumbers(int count, FontType type)
{
    ZTFontParam font = strokeFont();
    font.fontType = type;
    font.font.setPixelSize(static_cast<int>(kHeight));
    ZTShapeManager manager(nullptr);
    for (int i = 0; i < count; ++i) {
        auto *item = static_cast<ZTGraphicsTextItem *>(manager.addShape(ShapeType::Text, QRectF()));
        item->setFontParam(font);
        item->setFixedText(QStringLiteral("SN%1").arg(i, 6, 10, QLatin1Char('0')));
    }
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    manager.save(stream);
    return bytes;
}

void loadSerials(benchmark::State &state, FontType type)
{
    const QByteArray bytes = serialNumbers(static_cast<int>(state.range(0)), type);
    for (auto _ : state) {
        state.PauseTiming();
        auto manager = std::make_unique<ZTShapeManager>(nullptr);
        QDataStream stream(bytes);
        state.ResumeTiming();
        manager->load(stream);
        state.PauseTiming();
        manager.reset();
        state.ResumeTiming();
    }
    state.SetComplexityN(state.range(0));
}

void loadSerialsInSystemFont(benchmark::State &state) { loadSerials(state, FontType::doubleLine); }

void loadSerialsInStrokeFont(benchmark::State &state) { loadSerials(state, FontType::singleLine); }

void addLoads()
{
    const auto add = [](const char *name, void (*function)(benchmark::State &)) {
        benchmark::RegisterBenchmark(name, function)
            ->RangeMultiplier(10)
            ->Range(100, 10000)
            ->Complexity(benchmark::oN)
            ->Unit(benchmark::kMillisecond);
    };
    add("load serial numbers/system font", loadSerialsInSystemFont);
    add("load serial numbers/stroke font", loadSerialsInStrokeFont);
}

void addLayouts()
{
    const auto add = [](const char *name, void (*function)(benchmark::State &), int most) {
        benchmark::RegisterBenchmark(name, function)
            ->RangeMultiplier(10)
            ->Range(100, most)
            ->Complexity()
            ->Unit(benchmark::kMillisecond);
    };
    add("layout/latin", layOutLatin, 100000);
    add("layout/latin/plain strokes", drawPlainLatin, 100000);
    add("layout/chinese", layOutChinese, 10000);
    add("layout/chinese/plain strokes", drawPlainChinese, 10000);
    add("layout/system font", layOutSystemFont, 10000);
}

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    hostkit::registerFactories();
    benchmark::Initialize(&argc, argv);
    addLayouts();
    addLoads();
    benchmark::RegisterBenchmark("edit one of", editOne)
        ->RangeMultiplier(10)
        ->Range(10, 10000)
        ->Complexity(benchmark::o1)
        ->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark("make and resize", makeAndResize)
        ->RangeMultiplier(10)
        ->Range(10, 1000)
        ->Complexity(benchmark::oN)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("scan 500 fonts, big ones", scanFolder)
        ->Arg(0)
        ->Arg(50)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("scan 500 fonts again", scanFolderAgain)
        ->Unit(benchmark::kMillisecond);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
