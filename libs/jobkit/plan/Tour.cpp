#include <jobkit/plan/Tour_p.h>

#include <jobkit/plan/PointIndex_p.h>

#include <algorithm>
#include <cmath>

namespace jobkit {

namespace {

constexpr double kLeastGainMm = 1e-9;
constexpr int kNeighbours = 8;
constexpr int kLongestMoved = 3;
constexpr int kLongestKicked = 50;

double distance(const QPointF &a, const QPointF &b)
{
    const QPointF step = b - a;
    return std::sqrt(step.x() * step.x() + step.y() * step.y());
}

} // namespace

Tour::Tour(std::vector<TourStop> given, const QPointF *head)
    : m_stops(std::move(given)), m_count(static_cast<int>(m_stops.size()) + 1),
      m_hasHead(head != nullptr), m_ring(static_cast<size_t>(m_count)),
      m_place(static_cast<size_t>(m_count)), m_isTurned(static_cast<size_t>(m_count), 0),
      m_neighbours(static_cast<size_t>(m_count))
{
    for (const TourStop &stop : m_stops)
        m_hasOneWay = m_hasOneWay || stop.isOneWay;
    TourStop closing;
    if (head != nullptr)
        closing.ends[1] = *head;
    m_stops.push_back(closing);
    for (int i = 0; i < m_count; ++i)
        m_ring[i] = m_place[i] = i;
    m_isWaiting.assign(static_cast<size_t>(m_count), 0);
}

int Tour::next(int stop) const
{
    const int at = m_place[stop] + 1;
    return m_ring[at == m_count ? 0 : at];
}

int Tour::previous(int stop) const
{
    const int at = m_place[stop];
    return m_ring[at == 0 ? m_count - 1 : at - 1];
}

/** The length between two ends; none to the free ends of the stop that closes the ring. */
double Tour::between(int a, int sideA, int b, int sideB) const
{
    const int closing = m_count - 1;
    if ((a == closing && (sideA == 0 || !m_hasHead)) ||
        (b == closing && (sideB == 0 || !m_hasHead)))
        return 0.0;
    return distance(m_stops[a].ends[sideA], m_stops[b].ends[sideB]);
}

double Tour::toEnd(int stop, int side, const QPointF &point) const
{
    if (stop == m_count - 1 && (side == 0 || !m_hasHead))
        return 0.0;
    return distance(m_stops[stop].ends[side], point);
}

double Tour::viaStart(int a, const QPointF &start, int b) const
{
    return toEnd(a, exitSide(a), start) + toEnd(b, entrySide(b), start);
}

void Tour::findNeighbours()
{
    std::vector<PointIndex::Entry> entries;
    entries.reserve(2 * static_cast<size_t>(m_count));
    for (int stop = 0; stop + 1 < m_count; ++stop) {
        entries.push_back({m_stops[stop].ends[0], stop, 0});
        if (m_stops[stop].starts.empty())
            entries.push_back({m_stops[stop].ends[1], stop, 1});
    }
    const PointIndex index(std::move(entries));
    for (int stop = 0; stop + 1 < m_count; ++stop) {
        std::vector<int> &near = m_neighbours[stop];
        near = index.nearestOwners(m_stops[stop].ends[0], kNeighbours, stop);
        if (!m_stops[stop].starts.empty())
            continue;
        const std::vector<int> more = index.nearestOwners(m_stops[stop].ends[1], kNeighbours, stop);
        for (const int one : more) {
            if (std::find(near.begin(), near.end(), one) == near.end())
                near.push_back(one);
        }
    }
    if (m_hasHead)
        m_neighbours[m_count - 1] =
            index.nearestOwners(m_stops[m_count - 1].ends[1], kNeighbours, -1);
}

void Tour::wake(int stop)
{
    if (m_isWaiting[stop] != 0)
        return;
    m_isWaiting[stop] = 1;
    m_waiting.push_back(stop);
}

/** Turns the stretch of the ring from one place to another, or all the rest: true. */
bool Tour::turn(int from, int to)
{
    int length = to - from + 1;
    if (length <= 0)
        length += m_count;
    const bool isRest = 2 * length > m_count;
    if (isRest) {
        const int rest = m_count - length;
        const int first = to + 1 == m_count ? 0 : to + 1;
        to = from == 0 ? m_count - 1 : from - 1;
        from = first;
        length = rest;
    }
    if (length > 0)
        m_changes.push_back({from, to, -1, {}});
    for (int i = 0; i < (length + 1) / 2; ++i) {
        const int a = m_ring[from];
        const int b = m_ring[to];
        m_isTurned[a] ^= 1;
        if (from != to)
            m_isTurned[b] ^= 1;
        m_ring[from] = b;
        m_ring[to] = a;
        m_place[b] = from;
        m_place[a] = to;
        from = from + 1 == m_count ? 0 : from + 1;
        to = to == 0 ? m_count - 1 : to - 1;
    }
    return isRest;
}

/** Turns a stretch given by its ends in the order meant, whichever way the ring reads by now. */
void Tour::turnStretch(int first, int last, bool *isFlipped)
{
    const bool isRest =
        *isFlipped ? turn(m_place[last], m_place[first]) : turn(m_place[first], m_place[last]);
    *isFlipped = *isFlipped != isRest;
}

void Tour::moveBetween(int first, int last, const Gap &gap, bool reversed)
{
    const int beforeMoved = previous(first);
    const int afterMoved = next(last);
    const auto steps = [this](int from, int to) {
        return (m_place[to] - m_place[from] + m_count) % m_count;
    };
    bool isFlipped = false;
    if (steps(afterMoved, gap.before) <= steps(gap.after, beforeMoved)) {
        turnStretch(first, gap.before, &isFlipped);
        turnStretch(gap.before, afterMoved, &isFlipped);
    } else {
        turnStretch(gap.after, last, &isFlipped);
        turnStretch(beforeMoved, gap.after, &isFlipped);
    }
    if (!reversed)
        turnStretch(last, first, &isFlipped);
    for (const int stop : {first, last, beforeMoved, afterMoved, gap.before, gap.after})
        wake(stop);
}

void Tour::setStart(int stop, const QPointF &start)
{
    m_changes.push_back({-1, -1, stop, m_stops[stop].ends[0]});
    m_stops[stop].ends[0] = m_stops[stop].ends[1] = start;
}

void Tour::undo(size_t changesKept)
{
    while (m_changes.size() > changesKept) {
        const Change change = m_changes.back();
        m_changes.pop_back();
        if (change.from < 0) {
            m_stops[change.stop].ends[0] = m_stops[change.stop].ends[1] = change.start;
            continue;
        }
        const size_t known = m_changes.size();
        turn(change.from, change.to);
        m_changes.resize(known);
    }
}

/** Whether a stretch may be turned: of the two sides, the one without the ring's closing stop. */
bool Tour::mayTurn(int from, int to) const
{
    if (!m_hasOneWay)
        return true;
    const auto holds = [this](int first, int last, auto test) {
        for (int stop = first;; stop = next(stop)) {
            if (test(stop))
                return true;
            if (stop == last)
                return false;
        }
    };
    if (holds(from, to, [this](int stop) { return stop == m_count - 1; })) {
        const int first = next(to);
        to = previous(from);
        from = first;
    }
    return !holds(from, to, [this](int stop) { return m_stops[stop].isOneWay; });
}

bool Tour::improveStart(int stop)
{
    const std::vector<QPointF> &starts = m_stops[stop].starts;
    if (starts.size() < 2)
        return false;
    const int before = previous(stop);
    const int after = next(stop);
    const double now = viaStart(before, m_stops[stop].ends[0], after);
    double best = now - kLeastGainMm;
    const QPointF *chosen = nullptr;
    for (const QPointF &start : starts) {
        const double length = viaStart(before, start, after);
        if (length < best) {
            best = length;
            chosen = &start;
        }
    }
    if (chosen == nullptr)
        return false;
    m_gained += now - best;
    setStart(stop, *chosen);
    wake(before);
    wake(after);
    return true;
}

/** Leaves `stop` for the exit of a neighbour: the way between the two is turned. */
bool Tour::reverseAfter(int stop)
{
    const int after = next(stop);
    const double now = link(stop, after);
    for (const int other : m_neighbours[stop]) {
        const double joined = between(stop, exitSide(stop), other, exitSide(other));
        const int afterOther = next(other);
        if (joined >= now || other == after || afterOther == stop)
            continue;
        const double gain = now + link(other, afterOther) - joined -
                            between(after, entrySide(after), afterOther, entrySide(afterOther));
        if (gain <= kLeastGainMm || !mayTurn(after, other))
            continue;
        turn(m_place[after], m_place[other]);
        m_gained += gain;
        for (const int changed : {stop, after, other, afterOther})
            wake(changed);
        return true;
    }
    return false;
}

/** Comes to `stop` from the entry of a neighbour: the way between the two is turned. */
bool Tour::reverseBefore(int stop)
{
    const int before = previous(stop);
    const double now = link(before, stop);
    for (const int other : m_neighbours[stop]) {
        const double joined = between(stop, entrySide(stop), other, entrySide(other));
        const int beforeOther = previous(other);
        if (joined >= now || other == before || beforeOther == stop)
            continue;
        const double gain = now + link(beforeOther, other) - joined -
                            between(before, exitSide(before), beforeOther, exitSide(beforeOther));
        if (gain <= kLeastGainMm || !mayTurn(stop, beforeOther))
            continue;
        turn(m_place[stop], m_place[beforeOther]);
        m_gained += gain;
        for (const int changed : {stop, before, other, beforeOther})
            wake(changed);
        return true;
    }
    return false;
}

bool Tour::isInStretch(int stop, int first, int last) const
{
    const int length = (m_place[last] - m_place[first] + m_count) % m_count;
    return (m_place[stop] - m_place[first] + m_count) % m_count <= length;
}

/** Puts a stretch into a gap, either way round, where that costs less than `gain`. */
bool Tour::tryGap(int first, int last, const Gap &gap, double gain)
{
    const double opened = gain + link(gap.before, gap.after) - kLeastGainMm;
    const double straight = link(gap.before, first) + link(last, gap.after);
    const double turned = between(gap.before, exitSide(gap.before), last, exitSide(last)) +
                          between(first, entrySide(first), gap.after, entrySide(gap.after));
    const bool isTurnedBetter = turned < straight && mayTurn(first, last);
    const double cost = isTurnedBetter ? turned : straight;
    if (cost >= opened)
        return first == last && tryGapFromAnyStart(first, gap, gain);
    m_gained += opened + kLeastGainMm - cost;
    moveBetween(first, last, gap, isTurnedBetter);
    return true;
}

bool Tour::tryGapFromAnyStart(int stop, const Gap &gap, double gain)
{
    const double opened = gain + link(gap.before, gap.after) - kLeastGainMm;
    double best = opened;
    QPointF chosen;
    for (const QPointF &start : m_stops[stop].starts) {
        const double length = viaStart(gap.before, start, gap.after);
        if (length < best) {
            best = length;
            chosen = start;
        }
    }
    if (best >= opened)
        return false;
    m_gained += opened + kLeastGainMm - best;
    setStart(stop, chosen);
    moveBetween(stop, stop, gap, false);
    return true;
}

/** Takes a stretch out and puts it beside a neighbour of its end `anchor`. */
bool Tour::moveStretch(int first, int last, int anchor)
{
    if (isInStretch(m_count - 1, first, last))
        return false;
    const int before = previous(first);
    const int after = next(last);
    if (before == after)
        return false;
    const double gain = link(before, first) + link(last, after) - link(before, after);
    if (gain <= kLeastGainMm)
        return false;
    for (const int other : m_neighbours[anchor]) {
        if (isInStretch(other, first, last))
            continue;
        if (other != before && tryGap(first, last, {other, next(other)}, gain))
            return true;
        if (other != after && tryGap(first, last, {previous(other), other}, gain))
            return true;
    }
    return false;
}

bool Tour::improveStop(int stop)
{
    if (m_count < 3)
        return false;
    if (improveStart(stop) || reverseAfter(stop) || reverseBefore(stop))
        return true;
    int end = stop;
    for (int length = 1; length <= kLongestMoved && length + 2 < m_count; ++length) {
        if (moveStretch(stop, end, stop))
            return true;
        end = next(end);
    }
    end = previous(stop);
    for (int length = 2; length <= kLongestMoved && length + 2 < m_count; ++length) {
        if (moveStretch(end, stop, stop))
            return true;
        end = previous(end);
    }
    return false;
}

void Tour::kick(std::mt19937 *random)
{
    if (m_count < 3)
        return;
    const auto below = [random](int most) {
        return static_cast<int>((*random)() % static_cast<quint32>(most));
    };
    const int longest = std::clamp((m_count - 2) / 3, 1, kLongestKicked);
    const int first = m_ring[below(m_count)];
    int last = first;
    for (int i = below(longest); i > 0; --i)
        last = next(last);
    int target = next(last);
    for (int i = below(longest); i > 0; --i)
        target = next(target);
    const Gap gap{target, next(target)};
    if (gap.after == first || isInStretch(m_count - 1, first, target))
        return;
    const bool isReversed = (*random)() % 2 == 0 && mayTurn(first, last);
    m_changes.clear();
    const int before = previous(first);
    const int after = next(last);
    m_gained =
        link(before, first) + link(last, after) + link(target, gap.after) - link(before, after);
    const auto joined = [this](int a, int sideA, int b, int sideB) {
        m_gained -= between(a, sideA, b, sideB);
    };
    const int head = isReversed ? last : first;
    const int tail = isReversed ? first : last;
    joined(target, exitSide(target), head, isReversed ? exitSide(head) : entrySide(head));
    joined(tail, isReversed ? entrySide(tail) : exitSide(tail), gap.after, entrySide(gap.after));
    moveBetween(first, last, gap, isReversed);
    while (!m_waiting.empty()) {
        const int stop = m_waiting.back();
        m_waiting.pop_back();
        m_isWaiting[stop] = 0;
        while (improveStop(stop)) {
        }
    }
    if (m_gained < 0.0)
        undo(0);
    m_changes.clear();
}

std::vector<Tour::Visit> Tour::visits() const
{
    std::vector<Visit> result;
    result.reserve(static_cast<size_t>(m_count) - 1);
    const int closing = m_count - 1;
    const bool isBackward = m_isTurned[closing] != 0;
    int stop = isBackward ? previous(closing) : next(closing);
    while (stop != closing) {
        result.push_back({stop, (m_isTurned[stop] != 0) != isBackward, m_stops[stop].ends[0]});
        stop = isBackward ? previous(stop) : next(stop);
    }
    return result;
}

} // namespace jobkit
