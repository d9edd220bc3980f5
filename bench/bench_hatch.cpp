// Hatch of drawings of growing size: the product, the plain way beside it, and a bare sweep.
//
// Argument: scan lines over the drawing, which also sets its number of edges. Every third column is
// the time of the same work, so `plain` divided by `product` is what the product gains; `sweep`
// only computes the crossings of sorted edges, the least that a hatch has to do.

#include <support/oracle/PlainHatch.h>

#include <ZTDrawEngineLib/shapes/ZTShapeBase.h>

#include <QtCore/QRandomGenerator>
#include <QtCore/QtMath>
#include <QtGui/QPainterPath>
#include <QtGui/QPolygonF>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>

namespace {

class OutlineShape : public ZTShapeBase
{
public:
    explicit OutlineShape(const QPainterPath &linesPx) { setLines(linesPx); }
    void paint() override {}
};

constexpr double kSizePx = 1000.0;

/** Scan lines cover the square over the diagonal and 10 pixels on every side. */
double spacingFor(const QPainterPath &outline, int scanLines)
{
    const QRectF box = outline.controlPointRect();
    return (std::max(box.width(), box.height()) * std::sqrt(2.0) + 20.0) / scanLines;
}

QPolygonF wavyCircle(const QPointF &centre, double radius, int edges, double wave, int waves)
{
    QPolygonF polygon;
    for (int i = 0; i < edges; ++i) {
        const double turn = 2 * M_PI * i / edges;
        const double r = radius * (1.0 + wave * std::sin(waves * turn));
        polygon.append(centre + QPointF(r * std::cos(turn), r * std::sin(turn)));
    }
    polygon.append(polygon.first());
    return polygon;
}

/** Letters of an outline and a counter, 50 edges each, in lines of text. */
QPainterPath letters(int edges)
{
    QRandomGenerator random(7);
    const int count = edges / 50;
    const int columns = std::max(1, static_cast<int>(std::ceil(std::sqrt(count))));
    const double pitch = kSizePx / columns;
    QPainterPath path;
    for (int i = 0; i < count; ++i) {
        const QPointF at((i % columns + 0.5) * pitch, (i / columns + 0.5) * pitch);
        const double size = pitch * (0.3 + 0.15 * random.generateDouble());
        path.addPolygon(wavyCircle(at, size, 30, 0.2, 3 + i % 3));
        path.addPolygon(wavyCircle(at, size * 0.4, 20, 0.1, 2));
    }
    return path;
}

QPainterPath oneOutline(int edges)
{
    QPainterPath path;
    path.addPolygon(wavyCircle({kSizePx / 2, kSizePx / 2}, kSizePx * 0.4, edges, 0.2, 5));
    return path;
}

/** Round outlines of 50 edges each, none of them inside another. */
QPainterPath manyOutlines(int edges)
{
    const int count = edges / 50;
    const int columns = std::max(1, static_cast<int>(std::ceil(std::sqrt(count))));
    const double pitch = kSizePx / columns;
    QPainterPath path;
    for (int i = 0; i < count; ++i) {
        const QPointF at((i % columns + 0.5) * pitch, (i / columns + 0.5) * pitch);
        path.addPolygon(wavyCircle(at, pitch * 0.4, 50, 0.15, 3 + i % 4));
    }
    return path;
}

QPainterPath concaveStar(int edges)
{
    QPolygonF polygon;
    for (int i = 0; i < edges; ++i) {
        const double radius = i % 2 ? kSizePx * 0.1 : kSizePx * 0.5;
        const double turn = 2 * M_PI * i / edges;
        polygon.append(QPointF(radius * std::cos(turn), radius * std::sin(turn)));
    }
    polygon.append(polygon.first());
    QPainterPath path;
    path.addPolygon(polygon);
    return path;
}

/** Corners anywhere: nearly every edge crosses nearly every other. */
QPainterPath tangle(int edges)
{
    QRandomGenerator random(11);
    QPolygonF polygon;
    for (int i = 0; i < edges; ++i)
        polygon.append({kSizePx * random.generateDouble(), kSizePx * random.generateDouble()});
    polygon.append(polygon.first());
    QPainterPath path;
    path.addPolygon(polygon);
    return path;
}

using Drawing = QPainterPath (*)(int edges);

struct Work
{
    QPainterPath outline;
    double spac;
};

Work workOf(const QPainterPath &outline, int scanLines)
{
    return {outline, spacingFor(outline, scanLines)};
}

Work workOf(const benchmark::State &state, Drawing drawing, double edgesPerScanLine)
{
    const auto scanLines = static_cast<int>(state.range(0));
    return workOf(drawing(static_cast<int>(scanLines * edgesPerScanLine)), scanLines);
}

void report(benchmark::State &state, int lines)
{
    state.counters["lines"] = lines;
    state.SetComplexityN(state.range(0));
}

void product(benchmark::State &state, const Work &work, FillType type)
{
    OutlineShape shape(work.outline);
    for (auto _ : state) {
        shape.fillULine(type, work.spac, 30.0);
        benchmark::DoNotOptimize(shape.getFillLines().constData()); // laid out when looked at
    }
    report(state, shape.getFillLines().size());
}

void plain(benchmark::State &state, Drawing drawing, double edgesPerScanLine, FillType type)
{
    const Work work = workOf(state, drawing, edgesPerScanLine);
    int lines = 0;
    for (auto _ : state)
        lines = testsupport::plainHatch(work.outline, type, work.spac, 30.0).size();
    report(state, lines);
}

/** Crossings of level lines with edges sorted by their lower end: no order, no pairs, no proof. */
int sweptCrossings(const QPainterPath &outline, double spac, QVector<QLineF> *lines)
{
    struct Edge
    {
        double low, high, x, slope;
    };
    std::vector<Edge> edges;
    const QTransform turn = QTransform().rotate(-30.0);
    for (const QPolygonF &polygon : outline.toSubpathPolygons(turn)) {
        for (int i = 0; i + 1 < polygon.size(); ++i) {
            const bool up = polygon[i].y() < polygon[i + 1].y();
            const QPointF &a = polygon[up ? i : i + 1];
            const QPointF &b = polygon[up ? i + 1 : i];
            edges.push_back({a.y(), b.y(), a.x(), (b.x() - a.x()) / (b.y() - a.y())});
        }
    }
    std::sort(edges.begin(), edges.end(),
              [](const Edge &a, const Edge &b) { return a.low < b.low; });
    std::vector<Edge> active;
    std::vector<double> xs;
    std::size_t next = 0;
    lines->clear();
    for (double y = edges.front().low; next < edges.size() || !active.empty(); y += spac) {
        while (next < edges.size() && edges[next].low <= y)
            active.push_back(edges[next++]);
        xs.clear();
        for (std::size_t i = 0; i < active.size();) {
            if (active[i].high < y) {
                active[i] = active.back();
                active.pop_back();
                continue;
            }
            xs.push_back(active[i].x + (y - active[i].low) * active[i].slope);
            ++i;
        }
        std::sort(xs.begin(), xs.end());
        for (std::size_t i = 0; i + 1 < xs.size(); i += 2)
            lines->append(QLineF(xs[i], y, xs[i + 1], y));
    }
    return lines->size();
}

void sweep(benchmark::State &state, const Work &work)
{
    QVector<QLineF> lines;
    for (auto _ : state)
        sweptCrossings(work.outline, work.spac, &lines);
    report(state, lines.size());
}

constexpr int kSmallest = 1250;
constexpr int kGoal = 10000; ///< scan lines of the sizes that the goals speak of

void registerDrawing(const std::string &name, Drawing drawing, double edgesPerScanLine,
                     int mostOfPlainZigzag)
{
    const auto grow = [](benchmark::internal::Benchmark *bench, int most) {
        bench->RangeMultiplier(2)->Range(kSmallest, most)->Unit(benchmark::kMillisecond);
        bench->Complexity();
    };
    const struct
    {
        const char *style;
        FillType type;
    } styles[] = {{"line", FillType::Line}, {"zigzag", FillType::ULine}};
    for (const auto &style : styles) {
        const std::string title = name + "/" + style.style;
        const FillType type = style.type;
        grow(benchmark::RegisterBenchmark(
                 (title + "/product").c_str(),
                 [=](benchmark::State &state) {
                     product(state, workOf(state, drawing, edgesPerScanLine), type);
                 }),
             kGoal);
        grow(benchmark::RegisterBenchmark((title + "/plain").c_str(), plain, drawing,
                                          edgesPerScanLine, type)
                 ->Iterations(1),
             type == FillType::Line ? kGoal : mostOfPlainZigzag);
    }
    grow(benchmark::RegisterBenchmark((name + "/sweep").c_str(),
                                      [=](benchmark::State &state) {
                                          sweep(state, workOf(state, drawing, edgesPerScanLine));
                                      }),
         kGoal);
}

/** The sizes that the goals name: so many edges under so many scan lines, its floor beside it. */
void registerGoal(const std::string &name, const QPainterPath &outline, int scanLines)
{
    const Work work = workOf(outline, scanLines);
    const auto add = [&](const char *what, auto run) {
        benchmark::RegisterBenchmark((name + "/" + what).c_str(), run)
            ->Arg(scanLines)
            ->Unit(benchmark::kMillisecond);
    };
    add("goal/line", [=](benchmark::State &state) { product(state, work, FillType::Line); });
    add("goal/zigzag", [=](benchmark::State &state) { product(state, work, FillType::ULine); });
    add("goal/sweep", [=](benchmark::State &state) { sweep(state, work); });
}

} // namespace

int main(int argc, char **argv)
{
    registerDrawing("letters", letters, 0.5, kGoal);
    registerDrawing("one_outline", oneOutline, 2.0, kGoal);
    registerDrawing("concave_star", concaveStar, 0.1, kGoal / 4);
    registerDrawing("tangle", tangle, 0.05, kGoal / 8);
    for (const int scanLines : {100, kGoal}) {
        registerGoal("letters", letters(5000), scanLines);
        registerGoal("one_outline", oneOutline(20000), scanLines);
        registerGoal("400_outlines", manyOutlines(20000), scanLines);
        registerGoal("concave_star", concaveStar(1000), scanLines);
    }
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
