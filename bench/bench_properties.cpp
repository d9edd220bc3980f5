// Opening the property grid on an object, and bringing its rows up to date.

#include <support/PropertyObjects.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <benchmark/benchmark.h>

#include <QtWidgets/QApplication>

namespace {

/** Shows two objects of a kind in turn, painted each time: at most 50 ms an object. */
template <class Object>
void BM_Open(benchmark::State &state)
{
    ZTItemPropertyList list(nullptr);
    list.resize(400, 800);
    list.show();
    Object first;
    Object second;
    QObject *next = &first;
    for (auto _ : state) {
        list.setObject(next);
        QApplication::processEvents();
        next = next == &first ? static_cast<QObject *>(&second) : &first;
    }
    list.setObject(nullptr);
}

/** A refresh that finds nothing changed, as nearly all do: at most 2 ms. */
template <class Object>
void BM_RefreshUnchanged(benchmark::State &state)
{
    ZTItemPropertyList list(nullptr);
    list.resize(400, 800);
    list.show();
    Object object;
    list.setObject(&object);
    QApplication::processEvents();
    for (auto _ : state)
        list.updateProperty();
    list.setObject(nullptr);
}

/** A refresh during a drag: the position has changed. At most 2 ms. */
void BM_RefreshMoved(benchmark::State &state)
{
    ZTItemPropertyList list(nullptr);
    list.resize(400, 800);
    list.show();
    ZTGraphicsRectItem item;
    list.setObject(&item);
    QApplication::processEvents();
    for (auto _ : state) {
        item.setPos(item.pos() + QPointF(1.0, 1.0));
        list.updateProperty();
    }
    list.setObject(nullptr);
}

} // namespace

BENCHMARK(BM_Open<ZTGraphicsRectItem>)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Open<testsupport::TextObject>)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Open<testsupport::EveryTypeObject>)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_RefreshUnchanged<ZTGraphicsRectItem>)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_RefreshUnchanged<testsupport::TextObject>)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_RefreshUnchanged<testsupport::EveryTypeObject>)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_RefreshMoved)->Unit(benchmark::kMicrosecond);

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
