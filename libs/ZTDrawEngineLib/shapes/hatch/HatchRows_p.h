#pragma once

#include <QtCore/QPointF>

#include <vector>

namespace zthatch {

/** Hatch segment waiting to be linked. */
struct HatchRow
{
    QPointF first;
    QPointF second;
};

/** Edges of the outline that the ends of a segment lie on. */
struct RowEdges
{
    int first;
    int second;
};

/** Segments in the order of the scan lines; what they end on beside them, for it is asked alone. */
struct HatchRows
{
    std::vector<HatchRow> rows;
    std::vector<RowEdges> edges; ///< by row
};

} // namespace zthatch
