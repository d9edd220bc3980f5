#pragma once

#include <QtCore/QPointF>

#include <cmath>
#include <cstdint>
#include <vector>

namespace vectorkit {

/** Whole coordinates of a cell of a plane. */
struct GridCell
{
    qint64 column;
    qint64 row;

    std::size_t hash() const
    {
        std::uint64_t mixed = static_cast<std::uint64_t>(column) * 0x9E3779B97F4A7C15ULL;
        mixed ^= static_cast<std::uint64_t>(row) * 0xC2B2AE3D27D4EB4FULL;
        mixed ^= mixed >> 29;
        mixed *= 0xBF58476D1CE4E5B9ULL;
        return static_cast<std::size_t>(mixed ^ (mixed >> 32));
    }
};

/**
 * Entries by the cells of a plane: chains in a hash table of fixed size, so that far or few cells
 * cost nothing. Other cells may share a chain; whoever asks looks at the entries' places anyway.
 */
class CellTable
{
public:
    /** `count` is how many entries are expected, `cellMm` the side of a cell, greater than 0. */
    CellTable(std::size_t count, double cellMm) : m_cell(cellMm)
    {
        std::size_t size = 16;
        while (size < count * 2)
            size *= 2;
        m_heads.assign(size, -1);
        m_entries.reserve(count);
    }

    GridCell cellOf(const QPointF &point) const
    {
        return {static_cast<qint64>(std::floor(point.x() / m_cell)),
                static_cast<qint64>(std::floor(point.y() / m_cell))};
    }

    void insert(const GridCell &place, int value)
    {
        int &head = m_heads[place.hash() & (m_heads.size() - 1)];
        m_entries.push_back({value, head});
        head = static_cast<int>(m_entries.size()) - 1;
    }

    /** Calls `visit(value)` for the entries of a cell, and perhaps for some of others. */
    template <class Visit>
    void forCell(const GridCell &place, Visit visit) const
    {
        for (int at = m_heads[place.hash() & (m_heads.size() - 1)]; at >= 0;
             at = m_entries[static_cast<std::size_t>(at)].next)
            visit(m_entries[static_cast<std::size_t>(at)].value);
    }

    /** The same for a cell and the eight around it. */
    template <class Visit>
    void forCellsAround(const GridCell &place, Visit visit) const
    {
        for (int column = -1; column <= 1; ++column) {
            for (int row = -1; row <= 1; ++row)
                forCell({place.column + column, place.row + row}, visit);
        }
    }

    double cellMm() const { return m_cell; }

private:
    struct Entry
    {
        int value;
        int next;
    };
    double m_cell;
    std::vector<int> m_heads;
    std::vector<Entry> m_entries;
};

} // namespace vectorkit
