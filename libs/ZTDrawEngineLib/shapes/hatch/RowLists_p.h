#pragma once

#include <vector>

namespace zthatch {

/**
 * Rows in growing order, in one list for each key (an edge, a polygon), from which they are taken
 * out one by one.
 */
class RowLists
{
public:
    /** `keys`: the key of every row, from 0 to `keyCount` - 1. */
    RowLists(const std::vector<int> &keys, int keyCount);

    /** First row after `row` and before `end` that is still in a key's list; -1 without one. */
    int nextAfter(int key, int row, int end);

    /** Takes a row out of its list. */
    void remove(int row);

private:
    int rowAt(int place) const { return rows[static_cast<std::size_t>(place)]; }
    int placeAfter(int begin, int last, int row) const;
    int firstLeft(int place);

    std::vector<int> placeOfRow;
    std::vector<int> starts;   ///< by key: place of its first row; lists end with a place of none
    std::vector<int> rows;     ///< by place; beyond every row at the end of a list
    std::vector<int> forwards; ///< by place: itself, or one further on if its row was taken out
};

} // namespace zthatch
