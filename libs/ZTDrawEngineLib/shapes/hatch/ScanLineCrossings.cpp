#include <ZTDrawEngineLib/shapes/hatch/ScanLineCrossings_p.h>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace zthatch {

namespace {

/** Fewest candidates that a block of scan lines should have: bounds memory, keeps to the cache. */
constexpr std::size_t kBlockCandidates = 1u << 13;

bool isFinite(const QLineF &line)
{
    return std::isfinite(line.x1()) && std::isfinite(line.y1()) && std::isfinite(line.x2()) &&
           std::isfinite(line.y2());
}

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
    m_runs.reserve(edgeCount);
    m_candidates.resize(static_cast<std::size_t>(m_layout.count()) + 1);
    for (int e = 0; e < m_outline.edgeCount(); ++e) {
        const Run run = runOf(m_outline.edge(e));
        m_runs.push_back(run);
        ++m_candidates[static_cast<std::size_t>(run.first)];
        --m_candidates[static_cast<std::size_t>(run.end)];
    }
    std::partial_sum(m_candidates.begin(), m_candidates.end(), m_candidates.begin());
}

/** Whether the extent of an edge tells which scan lines it may meet. */
bool ScanLineCrossings::isSure(const QLineF &edge) const
{
    return m_isSteady && isFinite(edge) && !isVanishing(edge) && m_layout.covers(edge.p1()) &&
           m_layout.covers(edge.p2());
}

ScanLineCrossings::Run ScanLineCrossings::runOf(const QLineF &edge)
{
    if (edge.x1() == edge.x2() && edge.y1() == edge.y2())
        return {}; // no length, no direction: QLineF finds no crossing
    if (!isSure(edge))
        return {0, m_layout.count()};
    const double level1 = m_layout.levelOf(edge.p1());
    const double level2 = m_layout.levelOf(edge.p2());
    const int first = firstAtOrAbove(std::min(level1, level2) - m_margin);
    const int end = firstAtOrAbove(std::max(level1, level2) + 2 * m_margin);
    m_expectedCount += end - first;
    return {first, end};
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
    // Equal steps make this right to within one line; accumulated steps need not be equal.
    const auto guess = static_cast<int>((level - levels.front()) * m_linesPerPx);
    const double *const begin = levels.data();
    const int low = std::clamp(guess, 1, count - 1);
    for (int number = low; number < std::min(low + 2, count); ++number) {
        if (begin[number - 1] < level && level <= begin[number])
            return number;
    }
    return static_cast<int>(std::lower_bound(levels.begin(), levels.end(), level) - levels.begin());
}

void ScanLineCrossings::visit(const Visitor &visitor)
{
    for (int begin = 0; begin < m_layout.count();) {
        const int end = blockEnd(begin);
        fillBlock(begin, end);
        for (int line = 0; line < end - begin; ++line) {
            const auto at = static_cast<std::size_t>(line);
            if (!visitor(m_crossings.data() + m_starts[at], m_counts[at]))
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
    m_counts.assign(lineCount, 0);
    m_scanLines.resize(lineCount);
    std::size_t total = 0;
    for (std::size_t line = 0; line < lineCount; ++line) {
        const int number = begin + static_cast<int>(line);
        m_starts[line] = total;
        total += static_cast<std::size_t>(m_candidates[static_cast<std::size_t>(number)]);
        m_scanLines[line] = m_layout.scanLine(number);
    }
    if (m_crossings.size() < total)
        m_crossings.resize(total);

    // Edge by edge, so that each scan line gets its crossings in the order of the edges.
    for (int e = 0; e < m_outline.edgeCount(); ++e) {
        const Run &run = m_runs[static_cast<std::size_t>(e)];
        const int last = std::min(run.end, end);
        for (int number = std::max(run.first, begin); number < last; ++number) {
            const auto line = static_cast<std::size_t>(number - begin);
            QPointF point;
            if (m_scanLines[line].intersects(m_outline.edge(e), &point) !=
                QLineF::BoundedIntersection)
                continue;
            m_crossings[m_starts[line] + static_cast<std::size_t>(m_counts[line]++)] = {point, e};
            m_isHit[static_cast<std::size_t>(e)] = 1;
        }
    }
}

} // namespace zthatch
