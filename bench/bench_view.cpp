#include <hostkit/setup/Factories.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QSignalBlocker>
#include <QtGui/QMouseEvent>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QScrollBar>

#include <benchmark/benchmark.h>

#include <cmath>
#include <vector>

namespace {

constexpr int kShapes = 10000;
constexpr int kColumns = 100;
constexpr int kDragged = 1000;
constexpr double kPitchPx = 60.0;
constexpr double kSidePx = kColumns * kPitchPx;

/** A document as large as on an operator's screen, over 10,000 shapes 47 pixels wide. */
class Desk
{
public:
    explicit Desk(FillType hatch)
    {
        ZTFillParam fill;
        fill.fillType = hatch;
        fill.spac = 0.5;
        fill.angle = 30.0;
        for (int i = 0; i < kShapes; ++i) {
            const ShapeType type = i % 2 == 0 ? ShapeType::Rect : ShapeType::Ellipse;
            ZTAbstractGraphicsItem *item = document.itemMag()->addShape(type, QRectF(0, 0, 10, 10));
            item->setPos((i % kColumns) * kPitchPx, (i / kColumns) * kPitchPx);
            item->setFillParam(fill);
            items.push_back(item);
        }
        document.resize(1400, 900);
        document.show();
        show(1.0);
    }

    ZTGraphicsView &view() { return *document.view(); }

    /** Gives all shapes a hatch at this angle, which nobody has looked at yet. */
    void turnHatch(double angleDeg)
    {
        for (ZTAbstractGraphicsItem *item : items) {
            ZTFillParam fill = item->getFillParam();
            fill.angle = angleDeg;
            item->setFillParam(fill);
            item->getShapeBase()->paint();
        }
    }

    /** Shows the middle of the block at a scale and waits until it is painted. */
    void show(double scale)
    {
        view().resetSize(scale);
        view().centerOn(kSidePx / 2, kSidePx / 2);
        paintFrame();
    }

    /** The whole block in the view. */
    double fittingScale() const { return 0.95 * 900.0 / kSidePx; }

    static void paintFrame() { QApplication::processEvents(); }

    /** Selects 1,000 shapes in the middle of the block, whole rows of them. */
    void selectMiddle()
    {
        ZTGraphicsScene &scene = *document.scene();
        {
            const QSignalBlocker oneSignalForAll(&scene);
            for (int i = 0; i < kDragged; ++i)
                items[static_cast<std::size_t>((kShapes - kDragged) / 2 + i)]->setSelected(true);
        }
        Q_EMIT scene.selectionChanged();
    }

    void send(QEvent::Type type, const QPointF &posPx, Qt::MouseButton button,
              Qt::MouseButtons buttons)
    {
        const QPoint pos = view().mapFromScene(posPx);
        QMouseEvent event(type, pos, view().viewport()->mapToGlobal(pos), button, buttons,
                          Qt::NoModifier);
        QApplication::sendEvent(view().viewport(), &event);
    }

    void wheel(int delta)
    {
        const QPoint pos = view().viewport()->rect().center();
        QWheelEvent event(pos, view().viewport()->mapToGlobal(pos), QPoint(), QPoint(0, delta),
                          Qt::NoButton, Qt::ControlModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(view().viewport(), &event);
    }

    ZTGraphicsDocument document{nullptr};
    std::vector<ZTAbstractGraphicsItem *> items; ///< owned by the scene
};

void countFrames(benchmark::State &state)
{
    state.counters["frames"] =
        benchmark::Counter(static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}

void pan(benchmark::State &state, Desk &desk, double scale)
{
    desk.show(scale);
    int step = 0;
    for (auto _ : state) {
        const int by = step++ / 20 % 2 == 0 ? 17 : -17;
        QScrollBar *across = desk.view().horizontalScrollBar();
        QScrollBar *down = desk.view().verticalScrollBar();
        across->setValue(across->value() + by);
        down->setValue(down->value() + by);
        Desk::paintFrame();
    }
    countFrames(state);
}

void BM_pan(benchmark::State &state, FillType hatch)
{
    Desk desk(hatch);
    pan(state, desk, 1.0);
}

void BM_panWholeBlock(benchmark::State &state, FillType hatch)
{
    Desk desk(hatch);
    pan(state, desk, desk.fittingScale());
}

constexpr int kZoomSteps = 24; ///< one way

/**
 * From the whole block to a few shapes and back, a step of the wheel a frame.
 *
 * Two journeys, always: the first steps show all shapes and take ten times as long as the last
 * ones, so that a mean over part of a journey tells how long the row ran and nothing else.
 */
void BM_zoom(benchmark::State &state, FillType hatch)
{
    Desk desk(hatch);
    desk.show(desk.fittingScale());
    int step = 0;
    for (auto _ : state) {
        desk.wheel(step++ / kZoomSteps % 2 == 0 ? 120 : -120);
        Desk::paintFrame();
    }
    countFrames(state);
}

/** The whole viewport painted anew, all shapes in it. */
void BM_repaintAll(benchmark::State &state, FillType hatch)
{
    Desk desk(hatch);
    desk.show(desk.fittingScale());
    for (auto _ : state) {
        desk.view().viewport()->update();
        Desk::paintFrame();
    }
    countFrames(state);
}

/** From shapes hatched anew to the first picture of all, or to their mark data. */
template <class Look>
void lookFirst(benchmark::State &state, const Look &look)
{
    Desk desk(FillType::Line);
    desk.show(desk.fittingScale());
    double angleDeg = 0.0;
    for (auto _ : state) {
        state.PauseTiming();
        angleDeg += 1.0;
        desk.turnHatch(angleDeg);
        state.ResumeTiming();
        look(desk);
    }
}

void BM_firstPicture(benchmark::State &state)
{
    lookFirst(state, [](Desk &desk) {
        desk.view().viewport()->update();
        Desk::paintFrame();
    });
}

void BM_firstMarks(benchmark::State &state)
{
    lookFirst(state, [](Desk &desk) {
        benchmark::DoNotOptimize(desk.document.itemMag()->getShapeLines());
    });
}

/** The mark data of a drawing that stands on the screen: of the next part of a series. */
void BM_nextMarks(benchmark::State &state)
{
    Desk desk(FillType::Line);
    desk.show(desk.fittingScale());
    for (auto _ : state)
        benchmark::DoNotOptimize(desk.document.itemMag()->getShapeLines());
}

/** One shape that fills the block, hatched with some thousand lines, looked at closely. */
void BM_panBigShape(benchmark::State &state)
{
    Desk desk(FillType::None);
    ZTAbstractGraphicsItem *big = desk.document.itemMag()->addShape(ShapeType::Rect, {});
    big->setPos(0, 0);
    big->setTransformParam(QTransform::fromScale(120, 120));
    ZTFillParam fill;
    fill.fillType = FillType::Line;
    fill.spac = 0.2;
    fill.angle = 30.0;
    big->setFillParam(fill);
    pan(state, desk, 4.0);
}

/** One mouse move of a drag of 1,000 selected shapes among 10,000, with the frame it shows. */
void BM_drag(benchmark::State &state, FillType hatch, bool whole)
{
    Desk desk(hatch);
    desk.show(whole ? desk.fittingScale() : 1.0);
    desk.selectMiddle();
    Desk::paintFrame();
    const QPointF middlePx(kSidePx / 2 - 5, kSidePx / 2 - 5);
    desk.send(QEvent::MouseButtonPress, middlePx, Qt::LeftButton, Qt::LeftButton);
    const QPointF startPx = desk.items[kShapes / 2]->pos();
    int step = 0;
    bool moved = true;
    for (auto _ : state) {
        const double byPx = ++step % 20 * 9.0 + 20.0;
        desk.send(QEvent::MouseMove, middlePx + QPointF(byPx, byPx), Qt::NoButton, Qt::LeftButton);
        Desk::paintFrame();
        moved = moved && desk.items[kShapes / 2]->pos() != startPx;
    }
    desk.send(QEvent::MouseButtonRelease, middlePx, Qt::LeftButton, Qt::NoButton);
    if (!moved)
        state.SkipWithError("nothing was dragged");
    countFrames(state);
}

} // namespace

BENCHMARK_CAPTURE(BM_pan, plain, FillType::None)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_pan, hatched, FillType::Line)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_panWholeBlock, plain, FillType::None)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_panWholeBlock, hatched, FillType::Line)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_zoom, plain, FillType::None)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(4 * kZoomSteps);
BENCHMARK_CAPTURE(BM_zoom, hatched, FillType::Line)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(4 * kZoomSteps);
BENCHMARK_CAPTURE(BM_repaintAll, plain, FillType::None)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_repaintAll, hatched, FillType::Line)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_firstPicture)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_firstMarks)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_nextMarks)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_panBigShape)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_drag, plain, FillType::None, false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_drag, hatched, FillType::Line, false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_drag, hatched_whole_block, FillType::Line, true)
    ->Unit(benchmark::kMillisecond);

int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication app(argc, argv);
    hostkit::registerFactories();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
