#include <ZTDrawEngineLib/shapes/hatch/RowLists_p.h>

#include <algorithm>
#include <limits>
#include <numeric>

namespace zthatch {

namespace {

constexpr int kBeyondRows = std::numeric_limits<int>::max();

} // namespace

RowLists::RowLists(const std::vector<int> &keys, int keyCount)
    : placeOfRow(keys.size()), starts(static_cast<std::size_t>(keyCount) + 1),
      rows(keys.size() + static_cast<std::size_t>(keyCount), kBeyondRows), forwards(rows.size())
{
    for (const int key : keys)
        ++starts[static_cast<std::size_t>(key) + 1];
    for (std::size_t key = 1; key < starts.size(); ++key)
        starts[key] += starts[key - 1] + 1;

    std::vector<int> ends(starts.begin(), starts.end() - 1);
    for (std::size_t row = 0; row < keys.size(); ++row) {
        const int place = ends[static_cast<std::size_t>(keys[row])]++;
        placeOfRow[row] = place;
        rows[static_cast<std::size_t>(place)] = static_cast<int>(row);
    }
    std::iota(forwards.begin(), forwards.end(), 0);
}

int RowLists::nextAfter(int key, int row, int end)
{
    const int begin = starts[static_cast<std::size_t>(key)];
    const int last = starts[static_cast<std::size_t>(key) + 1] - 1;
    if (begin == last || rowAt(begin) >= end || rowAt(last - 1) <= row)
        return -1;
    const int next = rowAt(firstLeft(placeAfter(begin, last, row)));
    return next < end ? next : -1;
}

/** First place of a list, from `begin` to `last`, whose row comes after `row`. */
int RowLists::placeAfter(int begin, int last, int row) const
{
    if (rowAt(begin) > row)
        return begin;
    const int own = placeOfRow[static_cast<std::size_t>(row)];
    if (own >= begin && own < last)
        return own + 1;
    return static_cast<int>(std::upper_bound(rows.begin() + begin, rows.begin() + last, row) -
                            rows.begin());
}

void RowLists::remove(int row)
{
    const int place = placeOfRow[static_cast<std::size_t>(row)];
    forwards[static_cast<std::size_t>(place)] = place + 1;
}

/** First place from this one on whose row is left, shortening the way for the next to ask. */
int RowLists::firstLeft(int place)
{
    auto at = [this](int number) -> int & { return forwards[static_cast<std::size_t>(number)]; };
    while (at(place) != place) {
        at(place) = at(at(place));
        place = at(place);
    }
    return place;
}

} // namespace zthatch
