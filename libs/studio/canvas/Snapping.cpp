#include <studio/canvas/Snapping.h>

#include <algorithm>
#include <cmath>
#include <optional>

namespace studio {

namespace {

constexpr double kSamePx = 1e-6; ///< targets that near are reached at once
constexpr int kMostLines = 4;    ///< in one direction; more would hide what they explain

/** The way to the nearest target of any feature, if one is within reach. */
std::optional<double> nearestWay(const QVector<double> &features,
                                 const QVector<SnapTarget> &targets, double reachPx)
{
    std::optional<double> best;
    for (const double feature : features) {
        const auto behind = std::lower_bound(
            targets.begin(), targets.end(), feature,
            [](const SnapTarget &target, double place) { return target.atPx < place; });
        for (auto target = behind == targets.begin() ? behind : behind - 1;
             target != targets.end() && target <= behind; ++target) {
            const double way = target->atPx - feature;
            if (std::abs(way) <= reachPx && (!best || std::abs(way) < std::abs(*best)))
                best = way;
        }
    }
    return best;
}

std::optional<double> wayToGrid(const QVector<double> &features, double gridPx, double reachPx)
{
    if (features.isEmpty() || !(gridPx > 0.0))
        return std::nullopt;
    const double way = std::round(features.first() / gridPx) * gridPx - features.first();
    return std::abs(way) <= reachPx ? std::optional<double>(way) : std::nullopt;
}

/** One direction of a result. */
struct Direction
{
    double shiftPx = 0.0;
    QVector<SnapTarget> reached;
    bool isOnGrid = false;
};

Direction snappedIn(const QVector<double> &features, const QVector<SnapTarget> &targets,
                    double gridPx, double reachPx)
{
    Direction direction;
    if (const auto way = nearestWay(features, targets, reachPx)) {
        direction.shiftPx = *way;
        for (const SnapTarget &target : targets) {
            const bool isReached =
                std::any_of(features.begin(), features.end(), [&](double feature) {
                    return std::abs(target.atPx - feature - *way) < kSamePx;
                });
            if (isReached && direction.reached.size() < kMostLines)
                direction.reached.append(target);
        }
    } else if (const auto toGrid = wayToGrid(features, gridPx, reachPx)) {
        direction.shiftPx = *toGrid;
        direction.isOnGrid = true;
    }
    return direction;
}

void noteKind(SnapKind kind, SnapResult *result)
{
    if (!result->kinds.contains(kind))
        result->kinds.append(kind);
}

} // namespace

void SnapTargets::addBox(const QRectF &boxPx)
{
    const QPointF middle = boxPx.center();
    upright.append({boxPx.left(), boxPx.top(), boxPx.bottom(), SnapKind::Edge});
    upright.append({middle.x(), boxPx.top(), boxPx.bottom(), SnapKind::Centre});
    upright.append({boxPx.right(), boxPx.top(), boxPx.bottom(), SnapKind::Edge});
    level.append({boxPx.top(), boxPx.left(), boxPx.right(), SnapKind::Edge});
    level.append({middle.y(), boxPx.left(), boxPx.right(), SnapKind::Centre});
    level.append({boxPx.bottom(), boxPx.left(), boxPx.right(), SnapKind::Edge});
}

void SnapTargets::addPoint(const QPointF &placePx)
{
    upright.append({placePx.x(), placePx.y(), placePx.y(), SnapKind::Point});
    level.append({placePx.y(), placePx.x(), placePx.x(), SnapKind::Point});
}

void SnapTargets::sort()
{
    const auto isBefore = [](const SnapTarget &a, const SnapTarget &b) { return a.atPx < b.atPx; };
    std::stable_sort(upright.begin(), upright.end(), isBefore);
    std::stable_sort(level.begin(), level.end(), isBefore);
}

SnapFeatures SnapFeatures::ofBox(const QRectF &boxPx)
{
    return {{boxPx.left(), boxPx.center().x(), boxPx.right()},
            {boxPx.top(), boxPx.center().y(), boxPx.bottom()},
            boxPx};
}

SnapFeatures SnapFeatures::ofPoint(const QPointF &placePx)
{
    return {{placePx.x()}, {placePx.y()}, QRectF(placePx, QSizeF())};
}

SnapResult snapped(const SnapFeatures &dragged, const SnapTargets &targets, double reachPx)
{
    const Direction x = snappedIn(dragged.xs, targets.upright, targets.gridPx, reachPx);
    const Direction y = snappedIn(dragged.ys, targets.level, targets.gridPx, reachPx);
    SnapResult result;
    result.shiftPx = {x.shiftPx, y.shiftPx};
    const QRectF boxPx = dragged.boxPx.translated(result.shiftPx);
    for (const SnapTarget &target : x.reached) {
        result.lines.append({target.atPx, qMin(target.fromPx, boxPx.top()), target.atPx,
                             qMax(target.toPx, boxPx.bottom())});
        noteKind(target.kind, &result);
    }
    for (const SnapTarget &target : y.reached) {
        result.lines.append({qMin(target.fromPx, boxPx.left()), target.atPx,
                             qMax(target.toPx, boxPx.right()), target.atPx});
        noteKind(target.kind, &result);
    }
    if (x.isOnGrid || y.isOnGrid)
        noteKind(SnapKind::Grid, &result);
    return result;
}

} // namespace studio
