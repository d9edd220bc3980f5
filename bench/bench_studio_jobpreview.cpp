// Frames of the job preview while it plays, is enlarged, moved and searched, at growing sizes.

#include <studio/job/PlanView.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QElapsedTimer>
#include <QtGui/QImage>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QApplication>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <random>

namespace {

constexpr int kFrames = 300; ///< from the beginning of the job to its end

/** Polylines of ten segments over 100 mm, in the order of their making. */
std::shared_ptr<const studio::Job> jobOf(qint64 segments)
{
    std::mt19937 random(1);
    std::uniform_real_distribution<double> at(-50.0, 50.0);
    auto job = std::make_shared<studio::Job>();
    job->request.pens = jobkit::defaultPens();
    jobkit::profileOnBoard(QStringLiteral("galvo-fiber"), &job->request.machine);
    for (qint64 i = 0; i < segments / 10; ++i) {
        jobkit::PlanPiece piece;
        const QPointF from(at(random), at(random));
        for (int k = 0; k <= 10; ++k)
            piece.pointsMm.append(from + QPointF(0.1 * k, k % 2 * 0.1));
        piece.object = int(i);
        job->plan.pieces.append(piece);
    }
    job->times = jobkit::jobTimes(job->plan, job->request.pens, job->request.machine);
    return job;
}

/** One frame after another, as the timer of the preview asks for them. */
void BM_PreviewPlays(benchmark::State &state)
{
    studio::PlanView view;
    view.resize(1200, 800);
    const auto job = jobOf(state.range(0));
    view.setJob(job);
    QImage screen(view.size(), QImage::Format_ARGB32_Premultiplied);
    view.render(&screen); // what is to come is drawn once
    const double totalS = job->times.all.totalS();
    int frame = 0;
    for (auto _ : state) {
        view.setMoment(totalS * (++frame % kFrames) / kFrames);
        view.render(&screen);
    }
    state.counters["frames/s"] =
        benchmark::Counter(double(state.iterations()), benchmark::Counter::kIsRate);
}
BENCHMARK(BM_PreviewPlays)->Arg(10000)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);

/** The view as a user has it: what other threads have drawn comes in between the frames. */
class Shown
{
public:
    explicit Shown(qint64 segments) : m_job(jobOf(segments))
    {
        m_view.resize(1200, 800);
        m_view.setJob(m_job);
        m_view.show();
        frame();
        QElapsedTimer waited;
        waited.start();
        while (waited.elapsed() < kDrawnMs)
            QCoreApplication::processEvents();
    }

    studio::PlanView &view() { return m_view; }
    double totalS() const { return m_job->times.all.totalS(); }

    /** Lets what was asked for be painted, once. */
    void frame() { QCoreApplication::processEvents(); }

    void wheel(int steps)
    {
        QWheelEvent event({500, 300}, {500, 300}, {}, {0, steps * 120}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&m_view, &event);
    }

    void drag(int byPx)
    {
        const auto send = [this](QEvent::Type type, const QPointF &at, Qt::MouseButton button,
                                 Qt::MouseButtons held) {
            QMouseEvent event(type, at, button, held, Qt::NoModifier);
            QCoreApplication::sendEvent(&m_view, &event);
        };
        send(QEvent::MouseButtonPress, {600, 400}, Qt::LeftButton, Qt::LeftButton);
        send(QEvent::MouseMove, {600.0 + byPx, 400}, Qt::NoButton, Qt::LeftButton);
        send(QEvent::MouseButtonRelease, {600.0 + byPx, 400}, Qt::LeftButton, Qt::NoButton);
    }

private:
    static constexpr int kDrawnMs = 1500;

    std::shared_ptr<const studio::Job> m_job;
    studio::PlanView m_view;
};

/** What a frame takes that follows an act of the user; the slowest beside the mean. */
template <class Act>
void frames(benchmark::State &state, const Act &act)
{
    Shown shown(state.range(0));
    shown.view().setMoment(shown.totalS() / 2);
    int frame = 0;
    double slowestMs = 0.0;
    for (auto _ : state) {
        QElapsedTimer clock;
        clock.start();
        act(shown, frame++);
        shown.frame();
        slowestMs = std::max(slowestMs, double(clock.nsecsElapsed()) * 1e-6);
    }
    state.counters["slowest ms"] = slowestMs;
    state.counters["frames/s"] =
        benchmark::Counter(double(state.iterations()), benchmark::Counter::kIsRate);
}

void BM_PreviewZooms(benchmark::State &state)
{
    frames(state, [](Shown &shown, int frame) { shown.wheel(frame % 20 < 10 ? 1 : -1); });
}

void BM_PreviewPans(benchmark::State &state)
{
    frames(state, [](Shown &shown, int frame) { shown.drag(frame % 20 < 10 ? 15 : -15); });
}

/** The slider, to and fro by a tenth of the job. */
void BM_PreviewScrubs(benchmark::State &state)
{
    frames(state, [](Shown &shown, int frame) {
        shown.view().setMoment(shown.totalS() * (frame * 3 % 10) / 10.0);
    });
}

/** A click: which of all pieces is it? */
void BM_PreviewPicks(benchmark::State &state)
{
    Shown shown(state.range(0));
    int at = 0;
    for (auto _ : state) {
        ++at;
        benchmark::DoNotOptimize(shown.view().pieceAt(QPointF(at % 1200, at * 7 % 800)));
    }
}

void sizes(benchmark::internal::Benchmark *bench)
{
    bench->Arg(10000)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond)->UseRealTime();
}
BENCHMARK(BM_PreviewZooms)->Apply(sizes)->Iterations(200);
BENCHMARK(BM_PreviewPans)->Apply(sizes)->Iterations(200);
BENCHMARK(BM_PreviewScrubs)->Apply(sizes)->Iterations(200);
BENCHMARK(BM_PreviewPicks)->Apply(sizes);

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
