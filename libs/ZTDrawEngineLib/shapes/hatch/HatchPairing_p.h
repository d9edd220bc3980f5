#pragma once

#include <ZTDrawEngineLib/shapes/hatch/ScanLineCrossings_p.h>

#include <vector>

namespace zthatch {

/** Orders the crossings of one scan line after the other and pairs them into hatch segments. */
class HatchPairing
{
public:
    /** An edge has at most one crossing with a scan line. */
    explicit HatchPairing(int edgeCount);

    /** Two crossings, as numbers in the order of the edges, that bound one segment. */
    struct Pair
    {
        int first;
        int second;
    };

    /**
     * Pairs crossings that stand in the order of the edges. Good until the next call.
     *
     * They are ordered by x alone, whatever the angle. Equal ones keep the order of the edges in
     * either direction; one that is not a number goes last.
     */
    const std::vector<Pair> &pair(const Crossing *crossings, int crossingCount, bool ascending);

private:
    /** What a crossing is ordered by; `number` is its place in the order of the edges. */
    struct Key
    {
        double x; ///< turned in sign when descending
        int number;
    };

    /** A crossing of the last scan line, for the next one to begin with. */
    struct Ranked
    {
        int number;
        int edge;
    };

    struct IsBefore
    {
        bool operator()(const Key &a, const Key &b) const;
    };

    bool isLastOrderKept(const Crossing *crossings) const;
    void pairInLastOrder(const Crossing *crossings, bool ascending);
    void order(const Crossing *crossings, bool ascending);
    void startFromLastOrder(const Crossing *crossings, bool ascending);
    void sortKeys();
    bool hasDoubt(const Crossing *crossings) const;
    bool areSame(const Crossing *crossings, std::size_t i, std::size_t j) const;
    void pairWithDoubt(const Crossing *crossings);
    void repair(std::size_t at);
    void give(std::size_t first, std::size_t second);

    int m_edgeCount;
    std::vector<Key> m_keys; ///< the first `count`, and room for one more
    std::size_t m_count = 0; ///< of crossings at hand
    std::vector<Pair> m_pairs;
    std::vector<char> m_isUsed;         ///< by place in the order of x
    std::vector<std::size_t> m_placeOf; ///< by number: its place in the order of x
    std::vector<Ranked> m_lastOrder;    ///< crossings of the last scan line, by growing x
    std::vector<int> m_numbersOfEdges;  ///< by edge: number of its crossing + 1 while ordering, or
                                        ///< 0; empty until there are many crossings
};

} // namespace zthatch
