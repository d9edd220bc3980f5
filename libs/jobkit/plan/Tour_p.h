#pragma once

#include <QtCore/QPointF>

#include <random>
#include <vector>

namespace jobkit {

/** A piece as the order sees it: where it may be entered and left. */
struct TourStop
{
    QPointF ends[2];             ///< the same twice where it is closed
    std::vector<QPointF> starts; ///< of a closed one: where it may begin, without repetition
    bool isOneWay = false;
};

/**
 * A sequence of stops that is improved by exchanges: a stretch reversed (2-opt), or up to three
 * stops moved elsewhere (Or-opt), both tried among near neighbours alone.
 *
 * The sequence is held as a ring, closed by a stop of its own that costs nothing to reach: the ring
 * may then be read either way, and of each reversal the shorter side is turned.
 */
class Tour
{
public:
    /** Begins with the stops in their order; `head` null: the first one is free. */
    Tour(std::vector<TourStop> given, const QPointF *head);

    /** Exchanges until none helps, or `mayGoOn()` is false. */
    template <class Ask>
    void improve(Ask mayGoOn);

    /** One small random change, kept if what follows from it helps. */
    void kick(std::mt19937 *random);

    struct Visit
    {
        int stop;
        bool isReversed;
        QPointF start; ///< of a closed one
    };
    /** The sequence as it stands. */
    std::vector<Visit> visits() const;

private:
    struct Change
    {
        int from; ///< stretch turned; -1: another start
        int to;
        int stop;
        QPointF start;
    };
    struct Gap
    {
        int before;
        int after;
    };

    int next(int stop) const;
    int previous(int stop) const;
    int entrySide(int stop) const { return m_isTurned[stop]; }
    int exitSide(int stop) const { return 1 - m_isTurned[stop]; }
    double between(int a, int sideA, int b, int sideB) const;
    double link(int a, int b) const { return between(a, exitSide(a), b, entrySide(b)); }
    double viaStart(int a, const QPointF &start, int b) const;
    double toEnd(int stop, int side, const QPointF &point) const;

    void findNeighbours();
    bool improveStop(int stop);
    bool improveStart(int stop);
    bool reverseAfter(int stop);
    bool reverseBefore(int stop);
    bool moveStretch(int first, int last, int anchor);
    bool tryGap(int first, int last, const Gap &gap, double gain);
    bool tryGapFromAnyStart(int stop, const Gap &gap, double gain);
    bool isInStretch(int stop, int first, int last) const;
    bool mayTurn(int from, int to) const;

    bool turn(int from, int to);
    void turnStretch(int first, int last, bool *isFlipped);
    void moveBetween(int first, int last, const Gap &gap, bool reversed);
    void setStart(int stop, const QPointF &start);
    void undo(size_t changesKept);
    void wake(int stop);

    std::vector<TourStop> m_stops; ///< the last one closes the ring
    int m_count = 0;               ///< with the one that closes the ring
    bool m_hasHead = false;
    bool m_hasOneWay = false;
    std::vector<int> m_ring;
    std::vector<int> m_place;
    std::vector<char> m_isTurned;
    std::vector<std::vector<int>> m_neighbours;
    std::vector<int> m_waiting;
    std::vector<char> m_isWaiting;
    std::vector<Change> m_changes;
    double m_gained = 0.0;
};

template <class Ask>
void Tour::improve(Ask mayGoOn)
{
    constexpr int kRounds = 2; // closed stops begin elsewhere after the first: other neighbours
    for (int round = 0; round < kRounds; ++round) {
        findNeighbours();
        m_waiting.assign(m_ring.rbegin(), m_ring.rend());
        m_isWaiting.assign(static_cast<size_t>(m_count), 1);
        while (!m_waiting.empty()) {
            if (!mayGoOn())
                return;
            const int stop = m_waiting.back();
            m_waiting.pop_back();
            m_isWaiting[stop] = 0;
            while (improveStop(stop)) {
            }
            m_changes.clear();
        }
    }
}

} // namespace jobkit
