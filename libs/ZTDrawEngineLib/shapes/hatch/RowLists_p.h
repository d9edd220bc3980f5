#pragma once

#include <limits>
#include <vector>

namespace zthatch {

/**
 * Rows in growing order, in one list for each key (an edge, a polygon), passing over those that
 * are taken meanwhile. What is taken stays so.
 */
class RowLists
{
public:
    /**
     * `keyOf` gives the key of a row, from 0 to `keyCount` - 1. `isTaken` tells by row what is to
     * be passed over; it must outlive the lists.
     */
    template <typename KeyOf>
    RowLists(const std::vector<char> &isTaken, int keyCount, const KeyOf &keyOf);

    /** First row behind `row` in its list and before `end` that is not taken; -1 without one. */
    int following(int row, int end);

    /** First row after `row` and before `end` in a key's list that is not taken; -1 without one. */
    int nextAfter(int key, int row, int end);

    /** Has the memory bring what is known of a row, for when it is asked for. */
    [[gnu::always_inline]] void fetch(int row) const
    {
        __builtin_prefetch(&m_behind[static_cast<std::size_t>(row)]);
    }

private:
    static constexpr int kBeyondRows = std::numeric_limits<int>::max();

    int &behind(int row) { return m_behind[static_cast<std::size_t>(row)]; }
    bool isPassedOver(int row) const;
    int firstLeft(int row);
    int searched(int key, int row);
    void listPlaces();
    int rowAt(int place) const { return m_rows[static_cast<std::size_t>(place)]; }

    const std::vector<char> &m_isTaken;
    std::vector<int> m_firsts; ///< by key: first row of its list, or beyond all
    std::vector<int> m_lasts;  ///< by key: last row of its list, or -1
    std::vector<int> m_behind; ///< by row: the next of its list, or one further on once that was
                               ///< passed over; beyond all behind the last
    std::vector<int> m_starts; ///< by key: place of its first row; empty until there is a search
    std::vector<int> m_found;  ///< by key: where the last search ended
    std::vector<int> m_rows;   ///< by place
};

template <typename KeyOf>
RowLists::RowLists(const std::vector<char> &isTaken_, int keyCount, const KeyOf &keyOf)
    : m_isTaken(isTaken_), m_firsts(static_cast<std::size_t>(keyCount), kBeyondRows),
      m_lasts(static_cast<std::size_t>(keyCount), -1), m_behind(isTaken_.size(), kBeyondRows)
{
    const int rowCount = static_cast<int>(m_isTaken.size());
    for (int row = 0; row < rowCount; ++row) {
        const auto key = static_cast<std::size_t>(keyOf(row));
        int &last = m_lasts[key];
        (last < 0 ? m_firsts[key] : behind(last)) = row;
        last = row;
    }
}

} // namespace zthatch
