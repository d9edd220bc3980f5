#include <vectorkit/dxf/DxfGeometry_p.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace vectorkit::dxf {

namespace {

/** A control point times its weight, with the weight. */
struct Weighted
{
    Vec3 point;
    double weight = 1.0;
};

Weighted between(const Weighted &a, const Weighted &b, double t)
{
    return {a.point * (1.0 - t) + b.point * t, a.weight * (1.0 - t) + b.weight * t};
}

Vec3 projected(const Weighted &a) { return a.point * (1.0 / a.weight); }

using Bezier = std::vector<Weighted>;

/**
 * One control point of the piece between knots [span] and [span + 1]: the polar form of the piece
 * at its start, and `atEnd` times at its end.
 */
Weighted bezierPoint(const Spline &spline, std::size_t span, std::size_t atEnd)
{
    const std::size_t degree = static_cast<std::size_t>(spline.degree);
    std::array<Weighted, kMostDegree + 1> row;
    for (std::size_t i = 0; i <= degree; ++i) {
        const std::size_t index = span - degree + i;
        const double weight = spline.weights.empty() ? 1.0 : spline.weights[index];
        row[i] = {spline.controls[index] * weight, weight};
    }
    for (std::size_t level = 1; level <= degree; ++level) {
        const double t = spline.knots[level <= atEnd ? span + 1 : span];
        for (std::size_t i = degree; i >= level; --i) {
            const double low = spline.knots[span - degree + i];
            const double high = spline.knots[span + 1 + i - level];
            row[i] = between(row[i - 1], row[i], (t - low) / (high - low));
        }
    }
    return row[degree];
}

/** Point and derivative at t. */
void evaluate(const Bezier &piece, double t, Vec3 *point, Vec3 *slope)
{
    std::array<Weighted, kMostDegree + 1> row;
    std::copy(piece.begin(), piece.end(), row.begin());
    const std::size_t degree = piece.size() - 1;
    for (std::size_t level = 1; level < degree; ++level) {
        for (std::size_t i = 0; i <= degree - level; ++i)
            row[i] = between(row[i], row[i + 1], t);
    }
    const Weighted at = between(row[0], row[1], t);
    const double times = static_cast<double>(degree);
    const Vec3 rise = (row[1].point - row[0].point) * times;
    const double weightRise = (row[1].weight - row[0].weight) * times;
    *point = projected(at);
    *slope = (rise - *point * weightRise) * (1.0 / at.weight);
}

double sizeOf(const Bezier &piece)
{
    double size = 0.0;
    for (const Weighted &control : piece)
        size = std::max(size, length(projected(control) - projected(piece.front())));
    return size;
}

/** Cubics with the piece's points and slopes at their ends, halved until they lie on it. */
void addFitted(const Bezier &piece, double from, double to, double tolerance, int depth,
               PathPen *pen)
{
    Vec3 start;
    Vec3 startSlope;
    Vec3 end;
    Vec3 endSlope;
    evaluate(piece, from, &start, &startSlope);
    evaluate(piece, to, &end, &endSlope);
    const double third = (to - from) / 3.0;
    const Vec3 control1 = start + startSlope * third;
    const Vec3 control2 = end - endSlope * third;
    bool isNear = true;
    for (const double t : {0.25, 0.5, 0.75}) {
        const double s = 1.0 - t;
        const Vec3 fitted = start * (s * s * s) + control1 * (3.0 * s * s * t) +
                            control2 * (3.0 * s * t * t) + end * (t * t * t);
        Vec3 exact;
        Vec3 slope;
        evaluate(piece, from + (to - from) * t, &exact, &slope);
        isNear = isNear && length(fitted - exact) <= tolerance;
    }
    if (isNear || depth == 0) {
        pen->cubicTo(control1, control2, end);
        return;
    }
    const double middle = (from + to) / 2.0;
    addFitted(piece, from, middle, tolerance, depth - 1, pen);
    addFitted(piece, middle, to, tolerance, depth - 1, pen);
}

bool hasEqualWeights(const Bezier &piece)
{
    return std::all_of(piece.begin(), piece.end(), [&](const Weighted &control) {
        return std::abs(control.weight - piece.front().weight) <= 1e-12 * piece.front().weight;
    });
}

void addPiece(const Bezier &piece, double tolerance, PathPen *pen)
{
    const Vec3 end = projected(piece.back());
    if (piece.size() == 2) {
        pen->lineTo(end);
    } else if (piece.size() <= 4 && hasEqualWeights(piece)) {
        const Vec3 inner = projected(piece[1]);
        if (piece.size() == 4)
            pen->cubicTo(inner, projected(piece[2]), end);
        else
            pen->cubicTo(projected(piece[0]) * (1.0 / 3.0) + inner * (2.0 / 3.0),
                         inner * (2.0 / 3.0) + end * (1.0 / 3.0), end);
    } else {
        addFitted(piece, 0.0, 1.0, tolerance, 12, pen);
    }
}

/** Derivatives at the points: a system of three diagonals, solved from both ends. */
std::vector<Vec3> slopesThrough(const std::vector<Vec3> &points, const std::vector<double> &steps,
                                const Vec3 &startTangent, const Vec3 &endTangent)
{
    const std::size_t last = points.size() - 1;
    std::vector<double> above(points.size());
    std::vector<Vec3> slopes(points.size());
    const auto eliminate = [&](std::size_t i, double low, double middle, double high,
                               const Vec3 &right) {
        const double pivot = middle - (i > 0 ? low * above[i - 1] : 0.0);
        above[i] = high / pivot;
        slopes[i] = (i > 0 ? right - slopes[i - 1] * low : right) * (1.0 / pivot);
    };
    const auto isGiven = [](const Vec3 &tangent) { return length(tangent) > 0.0; };
    const auto unit = [](const Vec3 &tangent) { return tangent * (1.0 / length(tangent)); };
    if (isGiven(startTangent))
        eliminate(0, 0.0, 1.0, 0.0, unit(startTangent));
    else
        eliminate(0, 0.0, 2.0, 1.0, (points[1] - points[0]) * (3.0 / steps[0]));
    for (std::size_t i = 1; i < last; ++i) {
        const Vec3 right = ((points[i] - points[i - 1]) * (steps[i] / steps[i - 1]) +
                            (points[i + 1] - points[i]) * (steps[i - 1] / steps[i])) *
                           3.0;
        eliminate(i, steps[i], 2.0 * (steps[i - 1] + steps[i]), steps[i - 1], right);
    }
    if (isGiven(endTangent))
        eliminate(last, 0.0, 1.0, 0.0, unit(endTangent));
    else
        eliminate(last, 1.0, 2.0, 0.0, (points[last] - points[last - 1]) * (3.0 / steps[last - 1]));
    for (std::size_t i = last; i-- > 0;)
        slopes[i] = slopes[i] - slopes[i + 1] * above[i];
    return slopes;
}

void dropRepeated(std::vector<Vec3> *points)
{
    const auto isSame = [](const Vec3 &a, const Vec3 &b) { return length(b - a) == 0.0; };
    points->erase(std::unique(points->begin(), points->end(), isSame), points->end());
}

} // namespace

bool isSound(const Spline &spline)
{
    const std::size_t count = spline.controls.size();
    if (spline.degree < 1 || spline.degree > kMostDegree ||
        count < static_cast<std::size_t>(spline.degree) + 1)
        return false;
    if (spline.knots.size() != count + static_cast<std::size_t>(spline.degree) + 1 ||
        !std::is_sorted(spline.knots.begin(), spline.knots.end()))
        return false;
    const auto isPositive = [](double weight) { return weight > 0.0; };
    return spline.weights.empty() ||
           (spline.weights.size() == count &&
            std::all_of(spline.weights.begin(), spline.weights.end(), isPositive));
}

std::vector<double> plainKnots(int degree, std::size_t controlCount)
{
    std::vector<double> knots;
    const int last = static_cast<int>(controlCount) - degree;
    for (int i = -degree; i <= last + degree; ++i)
        knots.push_back(std::clamp(i, 0, last));
    return knots;
}

void addSpline(const Spline &spline, bool isConnected, PathPen *pen)
{
    const std::size_t degree = static_cast<std::size_t>(spline.degree);
    Bezier whole;
    for (const Vec3 &control : spline.controls)
        whole.push_back({control, 1.0});
    const double tolerance = 1e-6 * sizeOf(whole);
    Bezier piece(degree + 1);
    bool isFirst = !isConnected;
    for (std::size_t span = degree; span < spline.controls.size(); ++span) {
        if (!(spline.knots[span] < spline.knots[span + 1]))
            continue;
        for (std::size_t i = 0; i <= degree; ++i)
            piece[i] = bezierPoint(spline, span, i);
        const Vec3 start = projected(piece.front());
        if (isFirst)
            pen->moveTo(start);
        else if (length(start - pen->position()) > tolerance)
            pen->lineTo(start);
        isFirst = false;
        addPiece(piece, tolerance, pen);
    }
}

void addSplineThrough(std::vector<Vec3> points, const Vec3 &startTangent, const Vec3 &endTangent,
                      bool isClosed, PathPen *pen)
{
    dropRepeated(&points);
    if (isClosed && points.size() > 1 && length(points.back() - points.front()) > 0.0)
        points.push_back(points.front());
    if (points.size() < 2)
        return;
    const std::size_t count = points.size();
    std::size_t extra = 0;
    if (isClosed && count > 3) {
        // What a point does to the slopes falls fourfold with each point between: some rounds more
        // on either side give those of the endless curve to the last bit.
        extra = 32;
        std::vector<Vec3> wound;
        for (std::size_t i = 0; i < count + 2 * extra; ++i)
            wound.push_back(points[(i + (count - 1) * extra - extra) % (count - 1)]);
        points = wound;
    }
    std::vector<double> steps;
    for (std::size_t i = 1; i < points.size(); ++i)
        steps.push_back(length(points[i] - points[i - 1]));
    const bool isFree = extra > 0;
    const std::vector<Vec3> slopes =
        slopesThrough(points, steps, isFree ? Vec3() : startTangent, isFree ? Vec3() : endTangent);
    pen->moveTo(points[extra]);
    for (std::size_t i = extra; i + 1 < extra + count; ++i) {
        const double third = steps[i] / 3.0;
        pen->cubicTo(points[i] + slopes[i] * third, points[i + 1] - slopes[i + 1] * third,
                     points[i + 1]);
    }
}

} // namespace vectorkit::dxf
