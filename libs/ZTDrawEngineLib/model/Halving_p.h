#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdlib>
#include <utility>

namespace halving {

constexpr std::ptrdiff_t kSample = 15;    ///< items that a middle is taken of
constexpr std::ptrdiff_t kFewItems = 32;  ///< fewer are halved exactly
constexpr std::ptrdiff_t kMostUneven = 5; ///< a middle may be off by a fifth of the items

/** An item that stands about in the middle of the order. */
template <class Item, class IsBefore>
Item *middleOfSample(Item *begin, Item *end, const IsBefore &isBefore)
{
    std::array<Item *, kSample> sample;
    for (std::ptrdiff_t i = 0; i < kSample; ++i)
        sample[static_cast<std::size_t>(i)] = begin + (end - begin) * i / kSample;
    const auto middle = sample.begin() + kSample / 2;
    std::nth_element(sample.begin(), middle, sample.end(),
                     [&](const Item *a, const Item *b) { return isBefore(*a, *b); });
    return *middle;
}

/** Brings all items that stand before one of them before it; where that one is then. */
template <class Item, class IsBefore>
Item *splitAt(Item *begin, Item *end, Item *at, const IsBefore &isBefore)
{
    std::swap(*at, end[-1]);
    const Item pivot = end[-1];
    Item *after = begin;
    for (Item *item = begin; item < end - 1; ++item) {
        const Item moved = *item;
        *item = *after;
        *after = moved;
        after += isBefore(moved, pivot);
    }
    std::swap(*after, end[-1]);
    return after;
}

} // namespace halving

/**
 * Brings the lower half of the items, about, before the one that is returned, which none of the
 * others stands before. There must be items, and no two of them equal.
 *
 * Which side an item goes to cannot be foreseen, so nothing branches on it: one pass about the
 * middle of a sample takes a third of the time that finding the very middle one takes. A sample far
 * off the middle is not taken, so that halving again and again comes to an end as soon as it
 * should.
 */
template <class Item, class IsBefore>
Item *halve(Item *begin, Item *end, const IsBefore &isBefore)
{
    using namespace halving;
    const std::ptrdiff_t count = end - begin;
    Item *const half = begin + count / 2;
    if (count >= kFewItems) {
        Item *const middle = splitAt(begin, end, middleOfSample(begin, end, isBefore), isBefore);
        if (std::abs(middle - half) <= count / kMostUneven)
            return middle;
    }
    std::nth_element(begin, half, end, isBefore);
    return half;
}
