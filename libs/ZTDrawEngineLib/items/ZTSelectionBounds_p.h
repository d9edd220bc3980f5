#pragma once

#include <ZTDrawEngineLib/common/ZTDrawEngineGlobal.h>

#include <QtCore/QRectF>

#include <vector>

/**
 * Rectangle around many rectangles, and the greatest of their z values, one of which changes at a
 * time: a change costs the logarithm of their number.
 *
 * It is a binary tree of unions in one array: an inner node unites its two children, the root
 * stands at index 1, the leaves in the second half.
 */
class ZTDRAWENGINELIB_PRIVATE_EXPORT ZTSelectionBounds
{
public:
    /** What one rectangle contributes; a rectangle without width and height contributes nothing. */
    class ZTDRAWENGINELIB_PRIVATE_EXPORT Extent
    {
    public:
        Extent() = default;
        Extent(const QRectF &rect, double z);

        Extent united(const Extent &other) const;
        QRectF rect() const; ///< a null rectangle when there is nothing
        double z() const;    ///< the greatest, not below 0

    private:
        bool m_isNull = true;
        double m_left = 0;
        double m_top = 0;
        double m_right = 0;
        double m_bottom = 0;
        double m_maxZ = 0;
    };

    /** Takes all extents at once; linear. */
    void assign(const std::vector<Extent> &extents);

    /** Replaces the extent at `index`, which must be below the number assigned. */
    void replace(int index, const Extent &extent);

    /** Union of all extents. */
    Extent total() const;

private:
    std::vector<Extent> m_nodes; ///< empty, or twice a power of two
};
