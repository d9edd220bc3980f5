#pragma once

#include <ZTDrawEngineLib/model/PointTree_p.h>

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

/**
 * What a `PointTree` does, for a cost that is the absolute difference along one axis.
 *
 * The points stand sorted, in stacks of equal coordinates of which only the first remaining of each
 * can be chosen. The best one is next to where the question comes from, on either side: what lies
 * further away costs as much at least. Rounding may let many cost the same; where that happens a
 * tree goes on with what remains.
 *
 * `Cost` is `XDifference` or `YDifference`. All coordinates must be finite.
 */
template <class Cost>
class PointRow
{
public:
    using Item = typename PointTree<Cost>::Item;
    using Hit = typename PointTree<Cost>::Hit;

    /** The items in ascending order of their numbers. */
    PointRow(const std::vector<Item> &items, Cost costBetween);

    /** Puts the remaining point of least cost into `best`, of least number among equal costs. */
    void improve(const QPointF &from, Hit &best);

    /** The same, sooner where `from` is the point that had this number, removed or not. */
    void improveNear(int number, const QPointF &from, Hit &best);

    /** Takes a point out. It must be there. */
    void remove(int number);

private:
    /** Limit: so many stacks are looked at for one answer before a tree is built. */
    static constexpr int kMostLooks = 64;

    static constexpr int kEmpty = -1;
    static constexpr int kNoStack = -2; ///< beyond the first and the last one

    /** Points of one coordinate, by number. */
    struct Stack
    {
        int number; ///< of the first remaining one, or `kEmpty`
        int place;  ///< of that one in `m_numbers`
        int before; ///< a stack to the left; those between are empty
        int after;  ///< the same to the right
    };

    double along(const QPointF &point) const { return m_isAcross ? point.x() : point.y(); }
    int leftward(int stack);
    int rightward(int stack);
    void stackUp(const std::vector<std::pair<double, int>> &sorted);
    bool consider(int stack, const QPointF &from, Hit &best) const;
    void improveFrom(int stack, const QPointF &from, Hit &best);
    void buildTree();

    int &stackOf(int number) { return m_stackOfNumber[number - m_firstNumber]; }
    bool isGone(int number) const { return m_isGone[number - m_firstNumber]; }

    Cost m_cost;
    bool m_isAcross;             ///< whether x is what counts
    std::vector<double> m_at;    ///< coordinate, by stack: from left to right, or downward
    std::vector<Stack> m_stacks; ///< the same, with one beyond either end
    std::vector<int> m_numbers;  ///< of all points, by stack
    std::vector<int> m_stackOfNumber;
    std::vector<bool> m_isGone;
    int m_firstNumber = 0;
    std::unique_ptr<PointTree<Cost>> m_tree; ///< goes on instead, once it was needed
};

template <class Cost>
PointRow<Cost>::PointRow(const std::vector<Item> &items, Cost costBetween)
    : m_cost(std::move(costBetween)), m_isAcross(m_cost({0.0, 0.0}, {0.0, 1.0}) == 0.0)
{
    if (!items.empty()) {
        m_firstNumber = items.front().number;
        const auto numbers = static_cast<std::size_t>(items.back().number - m_firstNumber + 1);
        m_stackOfNumber.resize(numbers);
        m_isGone.resize(numbers);
    }
    std::vector<std::pair<double, int>> sorted;
    sorted.reserve(items.size());
    for (const Item &item : items)
        sorted.emplace_back(along(item.point), item.number);
    std::sort(sorted.begin(), sorted.end());
    stackUp(sorted);
}

template <class Cost>
void PointRow<Cost>::stackUp(const std::vector<std::pair<double, int>> &sorted)
{
    m_at.reserve(sorted.size() + 2);
    m_stacks.reserve(sorted.size() + 2);
    m_numbers.reserve(sorted.size());
    const auto append = [this](double at, int number) {
        const int stack = static_cast<int>(m_stacks.size());
        m_at.push_back(at);
        m_stacks.push_back({number, static_cast<int>(m_numbers.size()), stack - 1, stack + 1});
    };
    append(0.0, kNoStack);
    for (const auto &[at, number] : sorted) {
        if (m_numbers.empty() || m_at.back() != at)
            append(at, number);
        stackOf(number) = static_cast<int>(m_stacks.size()) - 1;
        m_numbers.push_back(number);
    }
    append(0.0, kNoStack);
}

/** The stack itself where it has points left, else the next one to the left. */
template <class Cost>
int PointRow<Cost>::leftward(int stack)
{
    while (m_stacks[stack].number == kEmpty) {
        int &before = m_stacks[stack].before;
        if (m_stacks[before].number == kEmpty)
            before = m_stacks[before].before; // a shorter way for those who come after
        stack = before;
    }
    return stack;
}

template <class Cost>
int PointRow<Cost>::rightward(int stack)
{
    while (m_stacks[stack].number == kEmpty) {
        int &after = m_stacks[stack].after;
        if (m_stacks[after].number == kEmpty)
            after = m_stacks[after].after;
        stack = after;
    }
    return stack;
}

template <class Cost>
void PointRow<Cost>::improve(const QPointF &from, Hit &best)
{
    if (m_tree) {
        m_tree->improve(from, best);
        return;
    }
    const auto right = std::upper_bound(m_at.begin() + 1, m_at.end() - 1, along(from));
    improveFrom(static_cast<int>(right - m_at.begin()) - 1, from, best);
}

template <class Cost>
void PointRow<Cost>::improveNear(int number, const QPointF &from, Hit &best)
{
    const int stack = stackOf(number);
    if (!m_tree && m_at[stack] == along(from))
        improveFrom(stack, from, best);
    else
        improve(from, best);
}

/** The stack is the last one that does not lie to the right of `from`. */
template <class Cost>
void PointRow<Cost>::improveFrom(int stack, const QPointF &from, Hit &best)
{
    const Hit before = best;
    int looks = 0;
    const auto goesOn = [&](int at) { return consider(at, from, best) && ++looks < kMostLooks; };
    for (int left = leftward(stack); goesOn(left);)
        left = leftward(left - 1);
    for (int right = rightward(stack + 1); goesOn(right);)
        right = rightward(right + 1);
    if (looks < kMostLooks)
        return;
    buildTree();
    best = before;
    m_tree->improve(from, best);
}

/** False where it costs more than the best one, as all do that lie further away. */
template <class Cost>
bool PointRow<Cost>::consider(int stack, const QPointF &from, Hit &best) const
{
    const int number = m_stacks[stack].number;
    const double stackCost = m_cost(from, {m_at[stack], m_at[stack]});
    if (number == kNoStack || stackCost > best.cost)
        return false;
    if (stackCost < best.cost || number < best.number)
        best = {stackCost, number};
    return true;
}

// Only the coordinate that counts was kept: the cost sees no other.
template <class Cost>
void PointRow<Cost>::buildTree()
{
    std::vector<Item> left;
    for (const int number : m_numbers) {
        const double at = m_at[stackOf(number)];
        if (!isGone(number))
            left.push_back({{at, at}, number});
    }
    m_tree = std::make_unique<PointTree<Cost>>(std::move(left), m_cost);
}

template <class Cost>
void PointRow<Cost>::remove(int number)
{
    m_isGone[number - m_firstNumber] = true;
    if (m_tree) {
        m_tree->remove(number);
        return;
    }
    const int stack = stackOf(number);
    int place = m_stacks[stack].place;
    const auto isHere = [&] {
        return place < static_cast<int>(m_numbers.size()) && stackOf(m_numbers[place]) == stack;
    };
    while (isHere() && isGone(m_numbers[place]))
        ++place;
    m_stacks[stack].number = isHere() ? m_numbers[place] : kEmpty;
    m_stacks[stack].place = place;
}
