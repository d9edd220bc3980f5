#pragma once

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
     * `keyOf` gives the key of a row, from 0 to `keyCount` - 1; called twice a row. `isTaken` tells
     * by row what is to be passed over; it must outlive the lists.
     */
    template <typename KeyOf>
    RowLists(const std::vector<char> &isTaken, int keyCount, const KeyOf &keyOf);

    /** First row after `row` and before `end` in a key's list that is not taken; -1 without one. */
    int nextAfter(int key, int row, int end);

private:
    int rowAt(int place) const { return m_rows[static_cast<std::size_t>(place)]; }
    int placeAfter(int key, int row);
    int firstLeft(int place);
    bool isPassedOver(int place) const;
    void startLists();

    const std::vector<char> &m_isTaken;
    std::vector<int> m_starts; ///< by key: place of its first row; lists end with a place of none
    std::vector<int> m_found;  ///< by key: where the last search ended
    std::vector<int> m_rows;   ///< by place; beyond every row at the end of a list
    std::vector<int>
        m_forwards; ///< by place: itself, or one further on once its row was passed over
};

template <typename KeyOf>
RowLists::RowLists(const std::vector<char> &isTaken_, int keyCount, const KeyOf &keyOf)
    : m_isTaken(isTaken_), m_starts(static_cast<std::size_t>(keyCount) + 1)
{
    const int rowCount = static_cast<int>(m_isTaken.size());
    for (int row = 0; row < rowCount; ++row)
        ++m_starts[static_cast<std::size_t>(keyOf(row)) + 1];
    startLists();

    std::vector<int> ends(m_starts.begin(), m_starts.end() - 1);
    for (int row = 0; row < rowCount; ++row) {
        int &end = ends[static_cast<std::size_t>(keyOf(row))];
        m_rows[static_cast<std::size_t>(end++)] = row;
    }
}

} // namespace zthatch
