#include <codekit/ModuleGrid_p.h>

namespace codekit {

namespace {

/** The ways along the edges of cells, each a right turn from the one before; y runs down. */
enum Heading { East, South, West, North };

const int kStepX[] = {1, 0, -1, 0};
const int kStepY[] = {0, 1, 0, -1};

Heading rightOf(Heading heading) { return Heading((heading + 1) % 4); }
Heading leftOf(Heading heading) { return Heading((heading + 3) % 4); }

/** A corner of cells. */
struct Corner
{
    int column = 0;
    int row = 0;
};

/** The cell ahead of a corner on the right or the left of a heading. */
bool isDarkAhead(const ModuleGrid &grid, Corner at, Heading heading, bool onRight)
{
    // Cells around a corner: north-west is (row - 1, column - 1).
    static const int kRightRow[] = {0, 0, -1, -1};
    static const int kRightColumn[] = {0, -1, -1, 0};
    const int turn = onRight ? heading : (heading + 3) % 4;
    return grid.isDark(at.row + kRightRow[turn], at.column + kRightColumn[turn]);
}

/**
 * The next way from a corner, the dark kept on the right: where two cells touch at the corner
 * alone, to the right, so that they stay apart.
 */
Heading nextHeading(const ModuleGrid &grid, Corner at, Heading heading)
{
    if (!isDarkAhead(grid, at, heading, true))
        return rightOf(heading);
    if (isDarkAhead(grid, at, heading, false))
        return leftOf(heading);
    return heading;
}

/** Follows one outline from the upper edge of a cell and marks the upper edges it takes. */
QVector<QPair<Corner, Heading>> follow(const ModuleGrid &grid, Corner start, QBitArray *taken)
{
    QVector<QPair<Corner, Heading>> turns; // where a straight edge begins, and its way
    Corner at = start;
    Heading heading = East;
    do {
        if (turns.isEmpty() || turns.last().second != heading)
            turns.append({at, heading});
        if (heading == East)
            taken->setBit(at.row * grid.columns() + at.column);
        at.column += kStepX[heading];
        at.row += kStepY[heading];
        heading = nextHeading(grid, at, heading);
    } while (at.column != start.column || at.row != start.row || heading != East);
    return turns;
}

} // namespace

QVector<QPolygonF> ModuleGrid::outlines(double insetMm) const
{
    QVector<QPolygonF> found;
    QBitArray taken(m_cells.size());
    for (int row = 0; row < rows(); ++row) {
        for (int column = 0; column < columns(); ++column) {
            const bool isUpperEdge = isDark(row, column) && !isDark(row - 1, column);
            if (!isUpperEdge || taken.testBit(row * columns() + column))
                continue;
            const auto turns = follow(*this, {column, row}, &taken);
            QPolygonF outline;
            // Each corner lies on the edges before and behind it, both moved to their right.
            for (int at = 0; at < turns.size(); ++at) {
                const auto &here = turns[at];
                const Heading before = turns[(at + turns.size() - 1) % turns.size()].second;
                QPointF point(m_x[here.first.column], m_y[here.first.row]);
                for (const Heading side : {rightOf(before), rightOf(here.second)})
                    point += insetMm * QPointF(kStepX[side], kStepY[side]);
                outline.append(point);
            }
            found.append(outline);
        }
    }
    return found;
}

} // namespace codekit
