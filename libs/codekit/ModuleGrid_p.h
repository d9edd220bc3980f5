#pragma once

#include <QtCore/QBitArray>
#include <QtCore/QPointF>
#include <QtCore/QVector>
#include <QtGui/QPolygonF>

namespace codekit {

/** Dark and light cells of columns and rows whose edges stand where they may. */
class ModuleGrid
{
public:
    /** Edges in millimetres: one more than there are columns or rows. */
    ModuleGrid(const QVector<double> &columnEdges, const QVector<double> &rowEdges)
        : m_x(columnEdges), m_y(rowEdges), m_cells((m_x.size() - 1) * (m_y.size() - 1))
    {
    }

    int columns() const { return m_x.size() - 1; }
    int rows() const { return m_y.size() - 1; }
    double left(int column) const { return m_x[column]; }
    double right(int column) const { return m_x[column + 1]; }
    double top(int row) const { return m_y[row]; }
    double bottom(int row) const { return m_y[row + 1]; }

    /** Light outside of the grid. */
    bool isDark(int row, int column) const
    {
        return row >= 0 && row < rows() && column >= 0 && column < columns() &&
               m_cells.testBit(row * columns() + column);
    }
    void setDark(int row, int column, bool dark) { m_cells.setBit(row * columns() + column, dark); }

    /**
     * The outlines of the dark areas, each closed, its first point once: outer ones with the dark
     * on their right, holes likewise. Cells that touch at a corner alone are areas of their own.
     * Each straight edge is one segment, moved into the dark by `insetMm`.
     */
    QVector<QPolygonF> outlines(double insetMm) const;

private:
    QVector<double> m_x;
    QVector<double> m_y;
    QBitArray m_cells;
};

} // namespace codekit
