#include <ZTDrawEngineLib/shapes/hatch/RowLists_p.h>

#include <algorithm>

namespace zthatch {

namespace {

/** Places tried one after the other before a list is searched. */
constexpr int kNearPlaces = 4;

} // namespace

int RowLists::following(int row, int end)
{
    const int next = firstLeft(behind(row));
    return next < end ? next : -1;
}

/** Most lists lie before or behind a row as a whole: then their ends tell, without a search. */
int RowLists::nextAfter(int key, int row, int end)
{
    const int first = m_firsts[static_cast<std::size_t>(key)];
    if (first >= end || m_lasts[static_cast<std::size_t>(key)] <= row)
        return -1;
    const int next = firstLeft(first > row ? first : searched(key, row));
    return next < end ? next : -1;
}

bool RowLists::isPassedOver(int row) const
{
    return row != kBeyondRows && m_isTaken[static_cast<std::size_t>(row)] != 0;
}

/** First row from this one on that is left, shortening the way for the next to ask. */
int RowLists::firstLeft(int row)
{
    while (isPassedOver(row)) {
        int &next = behind(row);
        if (isPassedOver(next))
            next = behind(next);
        row = next;
    }
    return row;
}

/**
 * First row of a list that comes after `row`, which is not before the list's first nor behind its
 * last; rows that are taken may be missing.
 *
 * A zigzag asks for row after row: the answer is mostly near the one of before, not far behind it.
 */
int RowLists::searched(int key, int row)
{
    if (m_starts.empty())
        listPlaces();
    int begin = m_starts[static_cast<std::size_t>(key)];
    const int end = m_starts[static_cast<std::size_t>(key) + 1];
    int &place = m_found[static_cast<std::size_t>(key)];
    if (place == begin || rowAt(place - 1) <= row) {
        begin = place;
        for (int trial = 0; trial < kNearPlaces && begin < end; ++trial, ++begin) {
            if (rowAt(begin) > row)
                return rowAt(place = begin);
        }
    }
    const auto after = std::upper_bound(m_rows.begin() + begin, m_rows.begin() + end, row);
    place = static_cast<int>(after - m_rows.begin());
    return place < end ? rowAt(place) : kBeyondRows;
}

/** Puts the rows of each list beside each other, for it to be searched. */
void RowLists::listPlaces()
{
    m_starts.reserve(m_firsts.size() + 1);
    m_rows.reserve(m_behind.size());
    for (const int first : m_firsts) {
        m_starts.push_back(static_cast<int>(m_rows.size()));
        for (int row = first; row != kBeyondRows; row = behind(row))
            m_rows.push_back(row);
    }
    m_starts.push_back(static_cast<int>(m_rows.size()));
    m_found.assign(m_starts.begin(), m_starts.end() - 1);
}

} // namespace zthatch
