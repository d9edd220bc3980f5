#include <ZTDrawEngineLib/shapes/hatch/HatchPairing_p.h>

#include <ZTDrawEngineLib/shapes/hatch/HatchGeometry_p.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace zthatch {

namespace {

/** So few crossings are in order sooner than the last order is looked up. */
constexpr std::size_t kFewCrossings = 16;

/** Places that a crossing may move on average before sorting anew is cheaper. */
constexpr std::size_t kCheapMoves = 8;

} // namespace

/** Order of (x, number), numbers before what is not one. */
bool HatchPairing::IsBefore::operator()(const Key &a, const Key &b) const
{
    if (a.x < b.x)
        return true;
    if (a.x > b.x)
        return false;
    if (a.x == b.x || (std::isnan(a.x) && std::isnan(b.x)))
        return a.number < b.number;
    return std::isnan(b.x);
}

HatchPairing::HatchPairing(int edgeCount) : m_edgeCount(edgeCount) {}

const std::vector<HatchPairing::Pair> &HatchPairing::pair(const Crossing *crossings,
                                                          int crossingCount, bool ascending)
{
    m_count = static_cast<std::size_t>(crossingCount);
    if (isLastOrderKept(crossings)) {
        pairInLastOrder(crossings, ascending);
        return m_pairs;
    }
    order(crossings, ascending);
    m_pairs.clear();
    if (hasDoubt(crossings)) {
        pairWithDoubt(crossings);
        return m_pairs;
    }
    for (std::size_t i = 0; i + 1 < m_count; i += 2)
        m_pairs.push_back({m_keys[i].number, m_keys[i + 1].number});
    return m_pairs;
}

// Where an outline goes on with its next edge, the crossings keep their numbers. That nothing
// but the order is as it was does not have to be known: x grows along it, and beyond doubt.
bool HatchPairing::isLastOrderKept(const Crossing *crossings) const
{
    if (m_lastOrder.size() != m_count)
        return false;
    double last = -std::numeric_limits<double>::infinity();
    for (const Ranked &ranked : m_lastOrder) {
        const double x = crossings[ranked.number].point.x();
        if (!(x - last > kSamePointTolerance))
            return false;
        last = x;
    }
    return true;
}

void HatchPairing::pairInLastOrder(const Crossing *crossings, bool ascending)
{
    for (Ranked &ranked : m_lastOrder)
        ranked.edge = crossings[ranked.number].edge;
    m_pairs.resize(m_count / 2);
    for (std::size_t i = 0; i < m_pairs.size(); ++i) {
        const std::size_t first = ascending ? 2 * i : m_count - 1 - 2 * i;
        const std::size_t second = ascending ? first + 1 : first - 1;
        m_pairs[i] = {m_lastOrder[first].number, m_lastOrder[second].number};
    }
}

// From one scan line to the next the order of the edges hardly changes, so the last order is where
// sorting starts. The result does not depend on it: no two keys are equal.
void HatchPairing::order(const Crossing *crossings, bool ascending)
{
    if (m_keys.size() <= m_count)
        m_keys.resize(2 * m_count + 1);
    if (m_count > kFewCrossings) {
        startFromLastOrder(crossings, ascending);
    } else {
        for (std::size_t i = 0; i < m_count; ++i)
            m_keys[i] = {crossings[i].point.x(), static_cast<int>(i)};
    }
    if (!ascending) {
        for (std::size_t i = 0; i < m_count; ++i)
            m_keys[i].x = -m_keys[i].x;
    }
    sortKeys();
    m_lastOrder.resize(m_count);
    for (std::size_t i = 0; i < m_count; ++i)
        m_lastOrder[ascending ? i : m_count - 1 - i] = {m_keys[i].number,
                                                        crossings[m_keys[i].number].edge};
}

void HatchPairing::startFromLastOrder(const Crossing *crossings, bool ascending)
{
    m_numbersOfEdges.resize(static_cast<std::size_t>(m_edgeCount));
    int *const numbers = m_numbersOfEdges.data();
    for (std::size_t i = 0; i < m_count; ++i)
        numbers[crossings[i].edge] = static_cast<int>(i) + 1;
    Key *end = m_keys.data();
    // A key is written without asking and kept if the edge has a crossing: that cannot be foreseen.
    const auto takeUp = [&](int edge) {
        const int number = std::max(numbers[edge] - 1, 0);
        *end = {crossings[number].point.x(), number};
        end += numbers[edge] > 0;
        numbers[edge] = 0;
    };
    const auto takeUpRanked = [&](const Ranked &ranked) { takeUp(ranked.edge); };
    if (ascending)
        std::for_each(m_lastOrder.begin(), m_lastOrder.end(), takeUpRanked);
    else
        std::for_each(m_lastOrder.rbegin(), m_lastOrder.rend(), takeUpRanked);
    for (std::size_t i = 0; i < m_count && end < m_keys.data() + m_count; ++i)
        takeUp(crossings[i].edge);
}

void HatchPairing::sortKeys()
{
    const IsBefore isBefore;
    std::size_t moves = 0;
    for (std::size_t i = 1; i < m_count; ++i) {
        const Key key = m_keys[i];
        std::size_t j = i;
        for (; j > 0 && isBefore(key, m_keys[j - 1]); --j)
            m_keys[j] = m_keys[j - 1];
        m_keys[j] = key;
        moves += i - j;
        if (moves > kCheapMoves * m_count) {
            std::sort(m_keys.data(), m_keys.data() + m_count, isBefore);
            return;
        }
    }
}

bool HatchPairing::areSame(const Crossing *crossings, std::size_t i, std::size_t j) const
{
    return std::fabs(m_keys[i].x - m_keys[j].x) <= kSamePointTolerance &&
           samePoint(crossings[m_keys[i].number].point, crossings[m_keys[j].number].point);
}

/** Whether two neighbours lie at one point: the scan line passes through a corner. */
bool HatchPairing::hasDoubt(const Crossing *crossings) const
{
    for (std::size_t i = 1; i < m_count; ++i) {
        if (areSame(crossings, i - 1, i))
            return true;
    }
    return false;
}

void HatchPairing::pairWithDoubt(const Crossing *crossings)
{
    m_isUsed.assign(m_count, 0);
    m_placeOf.resize(m_count);
    for (std::size_t i = 0; i < m_count; ++i)
        m_placeOf[static_cast<std::size_t>(m_keys[i].number)] = i;

    for (std::size_t i = 0; i + 1 < m_count; i += 2) {
        const std::size_t start = m_isUsed[i] ? i - 1 : i;
        const bool isDoubtful = (i + 2 < m_count && areSame(crossings, i + 1, i + 2)) ||
                                (i > 0 && areSame(crossings, i - 1, i));
        if (isDoubtful)
            repair(start);
        else
            give(start, i + 1);
    }
}

/**
 * Pairs a crossing with a free neighbour in the order of the edges: the two sides of one corner.
 *
 * The first free neighbour in the order of x wins. After an odd number the next one does not
 * count. Without a neighbour nothing is paired.
 *
 * Kept: a row can be lost by this; it is how existing hatches look where lines meet corners.
 */
void HatchPairing::repair(std::size_t at)
{
    const auto number = static_cast<std::size_t>(m_keys[at].number);
    const std::size_t none = m_count;
    std::size_t found = none;
    const auto consider = [&](std::size_t neighbour) {
        const std::size_t place = m_placeOf[neighbour];
        if (!m_isUsed[place])
            found = std::min(found, place);
    };
    if (number > 0)
        consider(number - 1);
    if (number % 2 == 0 && number + 1 < none)
        consider(number + 1);
    if (found != none)
        give(at, found);
}

void HatchPairing::give(std::size_t first, std::size_t second)
{
    m_pairs.push_back({m_keys[first].number, m_keys[second].number});
    m_isUsed[first] = 1;
    m_isUsed[second] = 1;
}

} // namespace zthatch
