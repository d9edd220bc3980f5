// Frames of the job preview while it plays, at growing sizes.

#include <studio/job/PlanView.h>

#include <QtGui/QImage>
#include <QtWidgets/QApplication>

#include <benchmark/benchmark.h>

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

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
