#include <ZTDrawEngineLib/shapes/hatch/RowLists_p.h>

#include <algorithm>
#include <limits>
#include <numeric>

namespace zthatch {

namespace {

constexpr int kBeyondRows = std::numeric_limits<int>::max();

/** Places tried one after the other before a list is searched. */
constexpr int kNearPlaces = 4;

} // namespace

/** From the number of rows of every key to the places of the lists. */
void RowLists::startLists()
{
    for (std::size_t key = 1; key < m_starts.size(); ++key)
        m_starts[key] += m_starts[key - 1] + 1;
    m_rows.assign(static_cast<std::size_t>(m_starts.back()), kBeyondRows);
    m_found.assign(m_starts.begin(), m_starts.end() - 1);
    m_forwards.resize(m_rows.size());
    std::iota(m_forwards.begin(), m_forwards.end(), 0);
}

int RowLists::nextAfter(int key, int row, int end)
{
    const int begin = m_starts[static_cast<std::size_t>(key)];
    const int last = m_starts[static_cast<std::size_t>(key) + 1] - 1;
    if (begin == last || rowAt(begin) >= end || rowAt(last - 1) <= row)
        return -1;
    const int next = rowAt(firstLeft(placeAfter(key, row)));
    return next < end ? next : -1;
}

/**
 * First place of a list whose row comes after `row`, which is before the list's last.
 *
 * A zigzag asks for row after row: the answer is mostly near the one of before, not far behind it.
 */
int RowLists::placeAfter(int key, int row)
{
    int begin = m_starts[static_cast<std::size_t>(key)];
    const int last = m_starts[static_cast<std::size_t>(key) + 1] - 1;
    int &place = m_found[static_cast<std::size_t>(key)];
    if (place == begin || rowAt(place - 1) <= row) {
        begin = place;
        for (int trial = 0; trial < kNearPlaces; ++trial, ++begin) {
            if (rowAt(begin) > row)
                return place = begin;
        }
    }
    const auto after = std::upper_bound(m_rows.begin() + begin, m_rows.begin() + last, row);
    return place = static_cast<int>(after - m_rows.begin());
}

bool RowLists::isPassedOver(int place) const
{
    const int row = rowAt(place);
    return row != kBeyondRows && m_isTaken[static_cast<std::size_t>(row)] != 0;
}

/** First place from this one on whose row is left, shortening the way for the next to ask. */
int RowLists::firstLeft(int place)
{
    auto at = [this](int number) -> int & { return m_forwards[static_cast<std::size_t>(number)]; };
    for (;;) {
        while (at(place) != place) {
            at(place) = at(at(place));
            place = at(place);
        }
        if (!isPassedOver(place))
            return place;
        at(place) = place + 1;
    }
}

} // namespace zthatch
