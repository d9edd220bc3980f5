#include <vectorkit/edit/NodePaths.h>

#include <vectorkit/edit/PainterPaths.h>

#include <algorithm>
#include <cmath>

namespace vectorkit {

namespace {

constexpr int kSamples = 24;
constexpr int kRefinements = 40;
constexpr double kInLine = 1e-3; ///< sine of the angle by which a smooth node may be off

double distance(const QPointF &a, const QPointF &b)
{
    return std::hypot(a.x() - b.x(), a.y() - b.y());
}

QPointF between(const QPointF &a, const QPointF &b, double part) { return a + (b - a) * part; }

/** A piece between two nodes. */
struct Curve
{
    QPointF from;
    QPointF control1;
    QPointF control2;
    QPointF to;

    bool isLine() const { return control1 == from && control2 == to; }

    QPointF at(double part) const
    {
        if (isLine())
            return between(from, to, part);
        const double rest = 1.0 - part;
        return from * (rest * rest * rest) + control1 * (3.0 * rest * rest * part) +
               control2 * (3.0 * rest * part * part) + to * (part * part * part);
    }
};

Curve curveOf(const PathNode &a, const PathNode &b) { return {a.place, a.out, b.in, b.place}; }

/** The part of a line or curve nearest to a point. */
double nearestPart(const Curve &curve, const QPointF &point)
{
    if (curve.isLine()) {
        const QPointF way = curve.to - curve.from;
        const double square = QPointF::dotProduct(way, way);
        const double part =
            square > 0.0 ? QPointF::dotProduct(point - curve.from, way) / square : 0.0;
        return std::clamp(part, 0.0, 1.0);
    }
    double best = 0.0;
    for (int sample = 1; sample <= kSamples; ++sample) {
        const double part = double(sample) / kSamples;
        if (distance(curve.at(part), point) < distance(curve.at(best), point))
            best = part;
    }
    double low = std::max(0.0, best - 1.0 / kSamples);
    double high = std::min(1.0, best + 1.0 / kSamples);
    for (int round = 0; round < kRefinements; ++round) {
        const double third = (high - low) / 3.0;
        if (distance(curve.at(low + third), point) < distance(curve.at(high - third), point))
            high -= third;
        else
            low += third;
    }
    return (low + high) / 2.0;
}

bool isInLine(const PathNode &node)
{
    const QPointF before = node.place - node.in;
    const QPointF after = node.out - node.place;
    const double lengths = std::hypot(before.x(), before.y()) * std::hypot(after.x(), after.y());
    const double cross = before.x() * after.y() - before.y() * after.x();
    return lengths > 0.0 && std::abs(cross) <= kInLine * lengths &&
           QPointF::dotProduct(before, after) > 0.0;
}

NodeRun runOf(const VectorPath &path)
{
    NodeRun run;
    run.isClosed = path.isClosed();
    run.nodes.append({path.start(), path.start(), path.start(), false});
    path.forEach([&](const VectorPath::Piece &piece) {
        PathNode node{piece.to, piece.to, piece.to, false};
        if (piece.kind == PieceKind::Cubic) {
            run.nodes.last().out = piece.control1;
            node.in = piece.control2;
        }
        run.nodes.append(node);
    });
    if (run.isClosed && run.nodes.size() > 1 && run.nodes.first().place == run.nodes.last().place) {
        run.nodes.first().in = run.nodes.last().in;
        run.nodes.removeLast();
    }
    for (PathNode &node : run.nodes)
        node.isSmooth = isInLine(node);
    return run;
}

VectorPath pathOf(const NodeRun &run)
{
    VectorPath path(run.nodes.first().place);
    const auto lead = [&](const PathNode &from, const PathNode &to) {
        const Curve curve = curveOf(from, to);
        if (curve.isLine())
            path.lineTo(curve.to);
        else
            path.cubicTo(curve.control1, curve.control2, curve.to);
    };
    for (int i = 1; i < run.nodes.size(); ++i)
        lead(run.nodes[i - 1], run.nodes[i]);
    if (run.isClosed) {
        if (!curveOf(run.nodes.last(), run.nodes.first()).isLine())
            lead(run.nodes.last(), run.nodes.first());
        path.close();
    }
    return path;
}

/** Without arcs. */
QVector<VectorPath> asCurves(const QVector<VectorPath> &paths)
{
    return pathsOf(painterPathOf(paths));
}

QVector<NodeRef> fromTheLast(QVector<NodeRef> refs)
{
    std::sort(refs.begin(), refs.end());
    std::reverse(refs.begin(), refs.end());
    return refs;
}

} // namespace

NodePaths::NodePaths(const QVector<VectorPath> &paths)
{
    const QVector<VectorPath> curves = asCurves(paths);
    for (const VectorPath &path : curves) {
        if (!path.isEmpty())
            m_runs.append(runOf(path));
    }
}

QVector<VectorPath> NodePaths::paths() const
{
    QVector<VectorPath> result;
    for (const NodeRun &run : m_runs) {
        const PathNode &first = run.nodes.first();
        const bool isLoop = run.isClosed && !curveOf(first, first).isLine();
        if (run.nodes.size() > 1 || isLoop)
            result.append(pathOf(run));
    }
    return result;
}

int NodePaths::nodeCount() const
{
    int count = 0;
    for (const NodeRun &run : m_runs)
        count += run.nodes.size();
    return count;
}

std::optional<NodeRef> NodePaths::next(const NodeRef &ref) const
{
    const NodeRun &run = m_runs[ref.run];
    if (ref.node + 1 < run.nodes.size())
        return NodeRef{ref.run, ref.node + 1};
    return run.isClosed ? std::optional<NodeRef>({ref.run, 0}) : std::nullopt;
}

std::optional<NodeRef> NodePaths::previous(const NodeRef &ref) const
{
    if (ref.node > 0)
        return NodeRef{ref.run, ref.node - 1};
    const NodeRun &run = m_runs[ref.run];
    return run.isClosed ? std::optional<NodeRef>({ref.run, run.nodes.size() - 1}) : std::nullopt;
}

bool NodePaths::isEnd(const NodeRef &ref) const
{
    const NodeRun &run = m_runs[ref.run];
    return !run.isClosed && (ref.node == 0 || ref.node == run.nodes.size() - 1);
}

std::optional<PlaceOnPath> NodePaths::nearest(const QPointF &point, double withinMm) const
{
    std::optional<PlaceOnPath> found;
    double least = withinMm;
    for (int run = 0; run < m_runs.size(); ++run) {
        for (int index = 0; index < m_runs[run].nodes.size(); ++index) {
            const NodeRef from{run, index};
            const std::optional<NodeRef> to = next(from);
            if (!to)
                continue;
            const Curve curve = curveOf(node(from), node(*to));
            const double part = nearestPart(curve, point);
            const QPointF place = curve.at(part);
            if (distance(place, point) <= least) {
                least = distance(place, point);
                found = PlaceOnPath{from, part, place};
            }
        }
    }
    return found;
}

void NodePaths::move(const QVector<NodeRef> &nodes, const QPointF &way)
{
    for (const NodeRef &ref : nodes) {
        PathNode &moved = at(ref);
        moved.place += way;
        moved.in += way;
        moved.out += way;
    }
}

void NodePaths::moveControl(const NodeRef &ref, bool isOut, const QPointF &place)
{
    PathNode &moved = at(ref);
    (isOut ? moved.out : moved.in) = place;
    QPointF &other = isOut ? moved.in : moved.out;
    const double length = distance(place, moved.place);
    const double otherLength = distance(other, moved.place);
    if (moved.isSmooth && length > 0.0 && otherLength > 0.0)
        other = moved.place - (place - moved.place) * (otherLength / length);
}

NodeRef NodePaths::insert(const PlaceOnPath &place)
{
    const std::optional<NodeRef> after = next(place.piece);
    if (!after)
        return place.piece;
    PathNode &from = at(place.piece);
    PathNode &to = at(*after);
    const Curve curve = curveOf(from, to);
    PathNode added{curve.at(place.part), {}, {}, false};
    added.in = added.out = added.place;
    if (!curve.isLine()) {
        const QPointF first = between(curve.from, curve.control1, place.part);
        const QPointF middle = between(curve.control1, curve.control2, place.part);
        const QPointF last = between(curve.control2, curve.to, place.part);
        added.in = between(first, middle, place.part);
        added.out = between(middle, last, place.part);
        added.isSmooth = true;
        from.out = first;
        to.in = last;
    }
    m_runs[place.piece.run].nodes.insert(place.piece.node + 1, added);
    return {place.piece.run, place.piece.node + 1};
}

void NodePaths::remove(const QVector<NodeRef> &nodes)
{
    for (const NodeRef &ref : fromTheLast(nodes))
        m_runs[ref.run].nodes.removeAt(ref.node);
    const auto isTooShort = [](const NodeRun &run) { return run.nodes.size() < 2; };
    m_runs.erase(std::remove_if(m_runs.begin(), m_runs.end(), isTooShort), m_runs.end());
}

bool NodePaths::breakAt(const QVector<NodeRef> &nodes)
{
    const QVector<NodeRef> backward = fromTheLast(nodes);
    bool isDone = false;
    for (int run = m_runs.size() - 1; run >= 0; --run) {
        QVector<int> places; // the last one first
        for (const NodeRef &ref : backward) {
            if (ref.run == run && !isEnd(ref))
                places.append(ref.node);
        }
        if (places.isEmpty())
            continue;
        if (m_runs[run].isClosed) {
            const int first = places.takeLast();
            openAt({run, first});
            for (int &place : places)
                place -= first;
        }
        for (const int place : qAsConst(places))
            splitAt({run, place});
        isDone = true;
    }
    return isDone;
}

void NodePaths::openAt(const NodeRef &ref)
{
    NodeRun &run = m_runs[ref.run];
    std::rotate(run.nodes.begin(), run.nodes.begin() + ref.node, run.nodes.end());
    run.nodes.append(run.nodes.first());
    run.isClosed = false;
}

void NodePaths::splitAt(const NodeRef &ref)
{
    NodeRun &run = m_runs[ref.run];
    NodeRun rest;
    rest.nodes = run.nodes.mid(ref.node);
    run.nodes = run.nodes.mid(0, ref.node + 1);
    m_runs.insert(ref.run + 1, rest);
}

void NodePaths::reverse(int run)
{
    std::reverse(m_runs[run].nodes.begin(), m_runs[run].nodes.end());
    for (PathNode &turned : m_runs[run].nodes)
        std::swap(turned.in, turned.out);
}

bool NodePaths::join(const NodeRef &a, const NodeRef &b)
{
    if (a == b || !isEnd(a) || !isEnd(b))
        return false;
    NodeRun &run = m_runs[a.run];
    const auto joined = [](const PathNode &end, const PathNode &start) {
        const QPointF middle = (end.place + start.place) / 2.0;
        PathNode one{middle, end.in + (middle - end.place), start.out + (middle - start.place),
                     false};
        one.isSmooth = isInLine(one);
        return one;
    };
    if (a.run == b.run) {
        if (run.nodes.size() < 3)
            return false;
        run.nodes.first() = joined(run.nodes.last(), run.nodes.first());
        run.nodes.removeLast();
        run.isClosed = true;
        return true;
    }
    if (a.node == 0)
        reverse(a.run);
    if (b.node != 0)
        reverse(b.run);
    run.nodes.last() = joined(run.nodes.last(), m_runs[b.run].nodes.first());
    run.nodes += m_runs[b.run].nodes.mid(1);
    m_runs.removeAt(b.run);
    return true;
}

bool NodePaths::toLine(const QVector<NodeRef> &pieces)
{
    bool isDone = false;
    for (const NodeRef &ref : pieces) {
        const std::optional<NodeRef> after = next(ref);
        if (!after || curveOf(at(ref), at(*after)).isLine())
            continue;
        at(ref).out = at(ref).place;
        at(*after).in = at(*after).place;
        at(ref).isSmooth = at(*after).isSmooth = false;
        isDone = true;
    }
    return isDone;
}

bool NodePaths::toCurve(const QVector<NodeRef> &pieces)
{
    bool isDone = false;
    for (const NodeRef &ref : pieces) {
        const std::optional<NodeRef> after = next(ref);
        if (!after || !curveOf(at(ref), at(*after)).isLine())
            continue;
        at(ref).out = between(at(ref).place, at(*after).place, 1.0 / 3.0);
        at(*after).in = between(at(ref).place, at(*after).place, 2.0 / 3.0);
        isDone = isDone || at(ref).place != at(*after).place;
    }
    return isDone;
}

bool NodePaths::smoothOne(const NodeRef &ref)
{
    const std::optional<NodeRef> before = previous(ref);
    const std::optional<NodeRef> after = next(ref);
    if (!before || !after)
        return false;
    toCurve({*before, ref});
    PathNode &turned = at(ref);
    const double lengthIn = distance(turned.in, turned.place);
    const double lengthOut = distance(turned.out, turned.place);
    QPointF way = at(*after).place - at(*before).place;
    if (lengthIn > 0.0 && lengthOut > 0.0) {
        const QPointF mean =
            (turned.place - turned.in) / lengthIn + (turned.out - turned.place) / lengthOut;
        if (std::hypot(mean.x(), mean.y()) > kInLine)
            way = mean;
    }
    const double length = std::hypot(way.x(), way.y());
    if (!(length > 0.0))
        return false;
    way /= length;
    const auto usual = [&](const NodeRef &other, double now) {
        return now > 0.0 ? now : distance(at(other).place, turned.place) / 3.0;
    };
    turned.in = turned.place - way * usual(*before, lengthIn);
    turned.out = turned.place + way * usual(*after, lengthOut);
    turned.isSmooth = true;
    return true;
}

bool NodePaths::smooth(const QVector<NodeRef> &nodes)
{
    bool isDone = false;
    for (const NodeRef &ref : nodes)
        isDone = smoothOne(ref) || isDone;
    return isDone;
}

bool NodePaths::corner(const QVector<NodeRef> &nodes)
{
    bool isDone = false;
    for (const NodeRef &ref : nodes) {
        isDone = isDone || at(ref).isSmooth;
        at(ref).isSmooth = false;
    }
    return isDone;
}

// "12:3,7": of twelve nodes the fourth and the eighth, counted through all runs.
QByteArray NodePaths::cornerMarks() const
{
    QByteArray marks;
    int number = 0;
    for (const NodeRun &run : m_runs) {
        for (const PathNode &one : run.nodes) {
            if (!one.isSmooth && isInLine(one))
                marks += (marks.isEmpty() ? "" : ",") + QByteArray::number(number);
            ++number;
        }
    }
    return marks.isEmpty() ? marks : QByteArray::number(number) + ':' + marks;
}

void NodePaths::takeCornerMarks(const QByteArray &marks)
{
    const int colon = marks.indexOf(':');
    if (colon < 0 || marks.left(colon).toInt() != nodeCount())
        return;
    QSet<int> numbers;
    for (const QByteArray &word : marks.mid(colon + 1).split(',')) {
        bool isNumber = false;
        numbers.insert(word.toInt(&isNumber));
        if (!isNumber)
            return;
    }
    int number = 0;
    for (NodeRun &run : m_runs) {
        for (PathNode &one : run.nodes) {
            if (numbers.contains(number++))
                one.isSmooth = false;
        }
    }
}

} // namespace vectorkit
