#include <ZTDrawEngineLib/shapes/hatch/HatchFill_p.h>

#include <ZTDrawEngineLib/shapes/hatch/HatchLimits_p.h>
#include <ZTDrawEngineLib/shapes/hatch/HatchOutline_p.h>
#include <ZTDrawEngineLib/shapes/hatch/HatchPairing_p.h>
#include <ZTDrawEngineLib/shapes/hatch/HatchRows_p.h>
#include <ZTDrawEngineLib/shapes/hatch/ScanLineCrossings_p.h>
#include <ZTDrawEngineLib/shapes/hatch/ScanLineLayout_p.h>
#include <ZTDrawEngineLib/shapes/hatch/ZigzagLinker_p.h>

#include <algorithm>
#include <cstdint>

namespace zthatch {

namespace {

void warnOfLayout(ScanLineLayout::State state, double spac)
{
    if (state == ScanLineLayout::State::TooFine)
        warnOfLostSpacing(spac);
    else if (state == ScanLineLayout::State::TooMany)
        warnOfTooManyScanLines(spac);
}

/** The hatch as the shape keeps it: without room for more. */
QVector<QLineF> finished(QVector<QLineF> lines, double spac)
{
    if (lines.size() > kMostHatchLines) {
        warnOfTooManyLines(spac);
        return {};
    }
    if (lines.capacity() - lines.size() > lines.size() / 8)
        lines.squeeze();
    return lines;
}

/** Room for the pairs that are to be expected; for others it is made with them. */
int firstRoom(const ScanLineCrossings &crossings)
{
    return static_cast<int>(
        std::min<std::int64_t>(crossings.expectedCrossings() / 2, kMostHatchLines));
}

/** Separate segments; the direction changes from one scan line to the next, an empty one too. */
QVector<QLineF> separateLines(ScanLineCrossings *crossings, int edgeCount)
{
    QVector<QLineF> lines;
    lines.reserve(firstRoom(*crossings));
    HatchPairing pairing(edgeCount);
    bool ascending = true;
    crossings->visit([&](const Crossing *hits, int count) {
        for (const HatchPairing::Pair &pair : pairing.pair(hits, count, ascending))
            lines.append(QLineF(hits[pair.first].point, hits[pair.second].point));
        ascending = !ascending;
        return lines.size() <= kMostHatchLines;
    });
    return lines;
}

HatchRows rowsOf(ScanLineCrossings *crossings, int edgeCount)
{
    HatchRows found;
    found.rows.reserve(static_cast<std::size_t>(firstRoom(*crossings)));
    found.edges.reserve(found.rows.capacity());
    HatchPairing pairing(edgeCount);
    crossings->visit([&](const Crossing *hits, int count) {
        for (const HatchPairing::Pair &pair : pairing.pair(hits, count, true)) {
            const Crossing &first = hits[pair.first];
            const Crossing &second = hits[pair.second];
            found.rows.push_back({first.point, second.point});
            found.edges.push_back({first.edge, second.edge});
        }
        return found.rows.size() <= kMostHatchLines;
    });
    return found;
}

QVector<QLineF> zigzags(const HatchOutline &outline, ScanLineCrossings *crossings)
{
    QVector<QLineF> lines;
    const HatchRows rows = rowsOf(crossings, outline.edgeCount());
    ZigzagLinker(outline, crossings->hitEdges(), rows).link(kMostHatchLines, &lines);
    return lines;
}

} // namespace

QVector<QLineF> hatchLines(const QPainterPath &outlinePx, FillType type, double spacPx,
                           double angleDeg)
{
    const HatchOutline outline(outlinePx);
    if (outline.edgeCount() == 0)
        return {};
    const ScanLineLayout layout(outline.bounds(), spacPx, normalisedAngle(angleDeg));
    if (layout.state() != ScanLineLayout::State::Complete) {
        warnOfLayout(layout.state(), spacPx);
        return {};
    }
    ScanLineCrossings crossings(outline, layout);
    if (type == FillType::Line)
        return finished(separateLines(&crossings, outline.edgeCount()), spacPx);
    if (type == FillType::ULine)
        return finished(zigzags(outline, &crossings), spacPx);
    return {};
}

} // namespace zthatch
