#include <ZTDrawEngineLib/items/ZTSelectionBounds_p.h>

#include <algorithm>

ZTSelectionBounds::Extent::Extent(const QRectF &rect, double z)
    : isNull(rect.isNull()), left(rect.left()), top(rect.top()), right(rect.right()),
      bottom(rect.bottom()), maxZ(std::max(z, 0.0))
{
}

ZTSelectionBounds::Extent ZTSelectionBounds::Extent::united(const Extent &other) const
{
    Extent both = isNull ? other : *this;
    both.maxZ = std::max(maxZ, other.maxZ);
    if (isNull || other.isNull)
        return both;
    both.left = std::min(left, other.left);
    both.top = std::min(top, other.top);
    both.right = std::max(right, other.right);
    both.bottom = std::max(bottom, other.bottom);
    return both;
}

QRectF ZTSelectionBounds::Extent::rect() const
{
    return isNull ? QRectF() : QRectF(QPointF(left, top), QPointF(right, bottom));
}

double ZTSelectionBounds::Extent::z() const { return maxZ; }

void ZTSelectionBounds::assign(const std::vector<Extent> &extents)
{
    std::size_t leafCount = 1;
    while (leafCount < extents.size())
        leafCount *= 2;
    nodes.assign(2 * leafCount, Extent());
    std::copy(extents.begin(), extents.end(), nodes.begin() + static_cast<long>(leafCount));
    for (std::size_t i = leafCount - 1; i >= 1; --i)
        nodes[i] = nodes[2 * i].united(nodes[2 * i + 1]);
}

void ZTSelectionBounds::replace(int index, const Extent &extent)
{
    std::size_t i = nodes.size() / 2 + static_cast<std::size_t>(index);
    nodes[i] = extent;
    for (i /= 2; i >= 1; i /= 2)
        nodes[i] = nodes[2 * i].united(nodes[2 * i + 1]);
}

ZTSelectionBounds::Extent ZTSelectionBounds::total() const
{
    return nodes.empty() ? Extent() : nodes[1];
}
