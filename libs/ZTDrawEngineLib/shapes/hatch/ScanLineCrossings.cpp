#include <ZTDrawEngineLib/shapes/hatch/ScanLineCrossings_p.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace zthatch {

namespace {

/** Fewest candidates that a block of scan lines should have: bounds memory, keeps to the cache. */
constexpr std::size_t kBlockCandidates = 1u << 13;

/** Whether products with the edge's extent may lose all their digits. */
bool isVanishing(const QLineF &edge)
{
    return std::max(std::fabs(edge.dx()), std::fabs(edge.dy())) < 1e-100;
}

} // namespace

// How wide the margin has to be. Let u = 2^-53 be the unit of rounding and M bound every
// coordinate, and let a be the scan line's vector, e the edge's, c the one between their starts.
// QLineF divides num = a x c by den = a x e and accepts a result from 0 to 1. Each product is off
// by at most 4u|a| times the other factor. So an accepted edge has, measured across the carrier
// of a, one end at most 8u(|c| + |e|) <= 48uM on one side of it and the other end at most that
// much on the other: even where den is nothing but rounding, as for an edge along the scan line.
// The computed ends of the scan line lie within 16uM of where they belong, and with them the
// carrier beside the outline; the level of an edge's end is computed within 16uM. Together that
// is less than 128uM. The margin is eight times as wide.
//
// The argument needs that no product overflows or vanishes, that the scan line is long against
// 16uM and that the edge lies beside it: edges for which this is not sure meet all scan lines.
ScanLineCrossings::ScanLineCrossings(const HatchOutline &outline_, const ScanLineLayout &layout_)
    : m_outline(outline_), m_layout(layout_), m_isSteady(layout_.isSteady()),
      m_margin(std::ldexp(layout_.magnitude(), -43))
{
    const auto edgeCount = static_cast<std::size_t>(m_outline.edgeCount());
    const std::vector<double> &levels = m_layout.levels();
    if (levels.size() > 1)
        m_linesPerPx = (m_layout.count() - 1) / (levels.back() - levels.front());
    m_isHit.resize(edgeCount);
    m_runs.resize(edgeCount);
    m_candidates.resize(static_cast<std::size_t>(m_layout.count()) + 1);
    Place to = placeOf(QPointF());
    for (int e = 0; e < m_outline.edgeCount(); ++e) {
        // An edge mostly starts where the one before ended.
        const QLineF &edge = m_outline.edge(e);
        const Place from = to.isAt(edge.p1()) ? to : placeOf(edge.p1());
        to = placeOf(edge.p2());
        const Run run = runOf(edge, from, to);
        // One number at a time: a run made of two would be written, waited for and read again.
        m_runs[static_cast<std::size_t>(e)].first = run.first;
        m_runs[static_cast<std::size_t>(e)].end = run.end;
        if (run.first == run.end)
            continue;
        ++m_candidates[static_cast<std::size_t>(run.first)];
        --m_candidates[static_cast<std::size_t>(run.end)];
    }
    std::partial_sum(m_candidates.begin(), m_candidates.end(), m_candidates.begin());
}

ScanLineCrossings::Place ScanLineCrossings::placeOf(const QPointF &point) const
{
    // No point that is not finite lies beside a steady layout.
    return {point, m_layout.levelOf(point), m_isSteady && m_layout.covers(point)};
}

ScanLineCrossings::Run ScanLineCrossings::runOf(const QLineF &edge, const Place &from,
                                                const Place &to)
{
    if (edge.x1() == edge.x2() && edge.y1() == edge.y2())
        return {}; // no length, no direction: QLineF finds no crossing
    if (!from.isSure || !to.isSure || isVanishing(edge))
        return {0, m_layout.count()};
    const double low = std::min(from.level, to.level) - m_margin;
    const double high = std::max(from.level, to.level) + 2 * m_margin;
    if (m_gapBegin < low && high <= m_gapEnd)
        return {m_gap, m_gap};
    const int first = firstAtOrAbove(low);
    const int end = firstAtOrAbove(high);
    m_expectedCount += end - first;
    rememberGap(end);
    return {first, end};
}

/** Where scan lines are few, the next edges mostly lie before the same one. */
void ScanLineCrossings::rememberGap(int number)
{
    const double infinity = std::numeric_limits<double>::infinity();
    const std::vector<double> &levels = m_layout.levels();
    const auto at = static_cast<std::size_t>(number);
    m_gap = number;
    m_gapBegin = at > 0 ? levels[at - 1] : -infinity;
    m_gapEnd = at < levels.size() ? levels[at] : infinity;
}

/** Number of the first scan line at or above a level, searched from where it should be. */
int ScanLineCrossings::firstAtOrAbove(double level) const
{
    const std::vector<double> &levels = m_layout.levels();
    const int count = m_layout.count();
    if (count == 0 || level <= levels.front())
        return 0;
    if (level > levels.back())
        return count;
    // Equal steps make this right but for rounding; accumulated steps need not be equal.
    const auto below = static_cast<int>((level - levels.front()) * m_linesPerPx);
    const double *const at = levels.data();
    const int number = std::clamp(below + 1, 1, count - 1);
    if (at[number - 1] < level && level <= at[number])
        return number;
    return static_cast<int>(std::lower_bound(levels.begin(), levels.end(), level) - levels.begin());
}

void ScanLineCrossings::visit(const Visitor &visitor)
{
    for (int begin = 0; begin < m_layout.count();) {
        const int end = blockEnd(begin);
        fillBlock(begin, end);
        for (int line = 0; line < end - begin; ++line) {
            const auto at = static_cast<std::size_t>(line);
            const Crossing *const crossings = m_crossings.data() + m_starts[at];
            if (!visitor(crossings, static_cast<int>(m_ends[at] - crossings)))
                return;
        }
        begin = end;
    }
}

/** Scan lines up to this one have candidates enough for the edges to be worth going through. */
int ScanLineCrossings::blockEnd(int begin) const
{
    const std::size_t wanted = std::max(kBlockCandidates, 2 * m_runs.size());
    std::size_t found = 0;
    int end = begin;
    while (end < m_layout.count() && found < wanted)
        found += static_cast<std::size_t>(m_candidates[static_cast<std::size_t>(end++)]) + 1;
    return end;
}

void ScanLineCrossings::fillBlock(int begin, int end)
{
    const auto lineCount = static_cast<std::size_t>(end - begin);
    m_starts.resize(lineCount);
    m_ends.resize(lineCount);
    m_scanLines.resize(lineCount);
    std::size_t total = 0;
    for (std::size_t line = 0; line < lineCount; ++line) {
        const int number = begin + static_cast<int>(line);
        m_starts[line] = total;
        total += static_cast<std::size_t>(m_candidates[static_cast<std::size_t>(number)]);
        m_scanLines[line] = ScanLine(m_layout.scanLine(number));
    }
    if (m_crossings.size() < total)
        m_crossings.resize(total);
    for (std::size_t line = 0; line < lineCount; ++line)
        m_ends[line] = m_crossings.data() + m_starts[line];

    // Edge by edge, so that each scan line gets its crossings in the order of the edges.
    for (int e = 0; e < m_outline.edgeCount(); ++e) {
        const Run &run = m_runs[static_cast<std::size_t>(e)];
        const int first = std::max(run.first, begin);
        const int last = std::min(run.end, end);
        if (first < last && fillEdge(e, first - begin, last - begin))
            m_isHit[static_cast<std::size_t>(e)] = 1;
    }
}

/** Adds the crossings of an edge with some scan lines of the block; whether there is one. */
bool ScanLineCrossings::fillEdge(int number, int first, int last)
{
    const QLineF edge = m_outline.edge(number);
    const ScanLine *const scanLines = m_scanLines.data();
    Crossing **const ends = m_ends.data();
    bool isHit = false;
    for (int line = first; line < last; ++line) {
        QPointF point;
        if (!crosses(scanLines[line], edge, &point))
            continue;
        *ends[line]++ = {point, number};
        isHit = true;
    }
    return isHit;
}

} // namespace zthatch
