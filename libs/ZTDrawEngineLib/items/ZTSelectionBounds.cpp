#include <ZTDrawEngineLib/items/ZTSelectionBounds_p.h>

#include <algorithm>

ZTSelectionBounds::Extent::Extent(const QRectF &rect, double z)
    : m_isNull(rect.isNull()), m_left(rect.left()), m_top(rect.top()), m_right(rect.right()),
      m_bottom(rect.bottom()), m_maxZ(std::max(z, 0.0))
{
}

ZTSelectionBounds::Extent ZTSelectionBounds::Extent::united(const Extent &other) const
{
    Extent both = m_isNull ? other : *this;
    both.m_maxZ = std::max(m_maxZ, other.m_maxZ);
    if (m_isNull || other.m_isNull)
        return both;
    both.m_left = std::min(m_left, other.m_left);
    both.m_top = std::min(m_top, other.m_top);
    both.m_right = std::max(m_right, other.m_right);
    both.m_bottom = std::max(m_bottom, other.m_bottom);
    return both;
}

QRectF ZTSelectionBounds::Extent::rect() const
{
    return m_isNull ? QRectF() : QRectF(QPointF(m_left, m_top), QPointF(m_right, m_bottom));
}

double ZTSelectionBounds::Extent::z() const { return m_maxZ; }

void ZTSelectionBounds::assign(const std::vector<Extent> &extents)
{
    std::size_t leafCount = 1;
    while (leafCount < extents.size())
        leafCount *= 2;
    m_nodes.assign(2 * leafCount, Extent());
    std::copy(extents.begin(), extents.end(), m_nodes.begin() + static_cast<long>(leafCount));
    for (std::size_t i = leafCount - 1; i >= 1; --i)
        m_nodes[i] = m_nodes[2 * i].united(m_nodes[2 * i + 1]);
}

void ZTSelectionBounds::replace(int index, const Extent &extent)
{
    std::size_t i = m_nodes.size() / 2 + static_cast<std::size_t>(index);
    m_nodes[i] = extent;
    for (i /= 2; i >= 1; i /= 2)
        m_nodes[i] = m_nodes[2 * i].united(m_nodes[2 * i + 1]);
}

ZTSelectionBounds::Extent ZTSelectionBounds::total() const
{
    return m_nodes.empty() ? Extent() : m_nodes[1];
}
