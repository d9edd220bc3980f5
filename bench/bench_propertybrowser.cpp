// Filling, emptying and refreshing a property grid.

#include <QtPropertyBrowser/QtTreePropertyBrowser.h>
#include <QtPropertyBrowser/QtVariantEditorFactory.h>
#include <QtPropertyBrowser/QtVariantPropertyManager.h>

#include <benchmark/benchmark.h>

#include <QtWidgets/QApplication>

namespace {

/** The row types of a shape, again and again. */
const int kTypes[] = {QMetaType::Int, QMetaType::Double, QMetaType::Bool, QMetaType::QString,
                      QMetaType::QPointF};
constexpr int kTypeCount = sizeof kTypes / sizeof kTypes[0];

struct Grid
{
    Grid() { browser.setFactoryForManager(&manager, &factory); }

    void fill(int rowCount)
    {
        for (int i = 0; i < rowCount; ++i) {
            QtVariantProperty *row =
                manager.addProperty(kTypes[i % kTypeCount], QStringLiteral("row %1").arg(i));
            browser.addProperty(row);
        }
    }

    QtVariantPropertyManager manager;
    QtVariantEditorFactory factory;
    QtTreePropertyBrowser browser;
};

/** Rows made, shown on the screen and taken away again. */
void BM_FillShowClear(benchmark::State &state)
{
    Grid grid;
    grid.browser.resize(400, 800);
    grid.browser.show();
    for (auto _ : state) {
        grid.fill(static_cast<int>(state.range(0)));
        QApplication::processEvents();
        grid.browser.clear();
        grid.manager.clear();
    }
    state.SetComplexityN(state.range(0));
}

/** Every number of a shown grid changed, and painted once. */
void BM_Refresh(benchmark::State &state)
{
    Grid grid;
    grid.browser.resize(400, 800);
    grid.browser.show();
    grid.fill(static_cast<int>(state.range(0)));
    QApplication::processEvents();
    const QList<QtProperty *> rows = grid.browser.properties();
    double value = 0.0;
    for (auto _ : state) {
        value += 1.0;
        for (QtProperty *row : rows)
            grid.manager.setValue(row, value);
        QApplication::processEvents();
    }
    state.SetComplexityN(state.range(0));
}

/** A refresh that finds nothing changed. */
void BM_RefreshUnchanged(benchmark::State &state)
{
    Grid grid;
    grid.fill(static_cast<int>(state.range(0)));
    const QList<QtProperty *> rows = grid.browser.properties();
    for (auto _ : state) {
        for (QtProperty *row : rows)
            grid.manager.setValue(row, grid.manager.value(row));
    }
}

} // namespace

BENCHMARK(BM_FillShowClear)
    ->RangeMultiplier(10)
    ->Range(10, 1000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity();
BENCHMARK(BM_Refresh)
    ->RangeMultiplier(10)
    ->Range(10, 1000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity();
BENCHMARK(BM_RefreshUnchanged)->RangeMultiplier(10)->Range(10, 1000)->Unit(benchmark::kMicrosecond);

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
