#include <vectorkit/clean/PathOrder.h>

#include <vectorkit/clean/EndTree_p.h>
#include <vectorkit/clean/Nesting.h>

#include <cmath>

namespace vectorkit {

namespace {

constexpr std::size_t kEvery = 1024;

/** Of the time: to find what lies in what. */
constexpr double kNestingShare = 0.5;

} // namespace

QVector<VectorPath> orderedPaths(const QVector<VectorPath> &paths, const QPointF &startMm,
                                 const std::function<bool(double)> &progress)
{
    const auto count = static_cast<std::size_t>(paths.size());
    const std::vector<int> holders =
        holdersOf(paths, [&](double done) { return !progress || progress(done * kNestingShare); });
    if (holders.size() != count)
        return paths;
    std::vector<int> heldLeft(count, 0);
    for (const int holder : holders) {
        if (holder >= 0)
            ++heldLeft[static_cast<std::size_t>(holder)];
    }
    std::vector<QPointF> ends;
    ends.reserve(count * 2);
    for (const VectorPath &path : paths) {
        ends.push_back(path.start());
        ends.push_back(path.end());
    }
    EndTree tree(ends);
    const auto setOn = [&](std::size_t path, bool on) {
        tree.setOn(static_cast<int>(path * 2), on);
        tree.setOn(static_cast<int>(path * 2 + 1), on);
    };
    for (std::size_t i = 0; i < count; ++i)
        setOn(i, heldLeft[i] == 0);

    QVector<VectorPath> ordered;
    ordered.reserve(paths.size());
    QPointF at = startMm;
    for (std::size_t done = 0; done < count; ++done) {
        const double share = double(done) / double(count);
        if (done % kEvery == 0 && progress &&
            !progress(kNestingShare + (1.0 - kNestingShare) * share))
            return paths;
        const int end = tree.nearest(at);
        const auto path = static_cast<std::size_t>(end / 2);
        ordered.append(end % 2 == 0 ? paths[end / 2] : paths[end / 2].reversed());
        at = ordered.last().end();
        setOn(path, false);
        const int holder = holders[path];
        if (holder >= 0 && --heldLeft[static_cast<std::size_t>(holder)] == 0)
            setOn(static_cast<std::size_t>(holder), true);
    }
    return ordered;
}

double jumpsMm(const QVector<VectorPath> &paths)
{
    double length = 0.0;
    for (int i = 1; i < paths.size(); ++i) {
        const QPointF way = paths[i].start() - paths[i - 1].end();
        length += std::hypot(way.x(), way.y());
    }
    return length;
}

} // namespace vectorkit
