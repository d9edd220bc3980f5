#include <ZTDrawEngineLib/shapes/ZTPltDrawing_p.h>

#include <ZTDrawEngineLib/shapes/PltLine_p.h>

#include <QtGui/QTransform>

#include <algorithm>
#include <cmath>

namespace {

constexpr double kHeight = 20.0;

bool isFinite(const QTransform &transform)
{
    return std::isfinite(transform.m11()) && std::isfinite(transform.m22()) &&
           std::isfinite(transform.dx()) && std::isfinite(transform.dy());
}

} // namespace

bool ZTPltDrawing::add(const PltLine &line)
{
    if (line.kind == PltLineKind::PenUp)
        m_isOpen = false;
    if (!line.hasPoint)
        return true;
    if (m_points.size() >= m_maxPoints)
        return false;
    const QPoint point(line.x, line.y);
    if (!m_isOpen)
        startPolyline(point);
    else
        m_points.push_back(point);
    m_isOpen = true;
    return true;
}

void ZTPltDrawing::startPolyline(const QPoint &point)
{
    if (endsInSinglePoint()) {
        m_points.back() = point;
        return;
    }
    m_starts.push_back(m_points.size());
    m_points.push_back(point);
}

QRectF ZTPltDrawing::extent() const
{
    if (m_points.empty())
        return {};
    int left = m_points.front().x();
    int top = m_points.front().y();
    int right = left;
    int bottom = top;
    for (const QPoint &point : m_points) {
        left = std::min(left, point.x());
        top = std::min(top, point.y());
        right = std::max(right, point.x());
        bottom = std::max(bottom, point.y());
    }
    return {QPointF(left, top), QPointF(right, bottom)};
}

int ZTPltDrawing::polylineCount() const { return static_cast<int>(drawnCount()); }

std::size_t ZTPltDrawing::drawnCount() const
{
    return m_starts.size() - (endsInSinglePoint() ? 1 : 0);
}

std::size_t ZTPltDrawing::endOf(std::size_t polyline) const
{
    return polyline + 1 < m_starts.size() ? m_starts[polyline + 1] : m_points.size();
}

QPainterPath ZTPltDrawing::normalised() const
{
    const QRectF rect = extent();
    const double factor = kHeight / rect.height();
    QTransform toMm = QTransform::fromTranslate(-rect.x(), -rect.y() - rect.height());
    toMm *= QTransform::fromScale(factor, -factor);
    if (!isFinite(toMm))
        return {};

    QPainterPath path;
    path.reserve(static_cast<int>(m_points.size()));
    QPolygonF polygon;
    for (std::size_t i = 0; i < drawnCount(); ++i) {
        const std::size_t begin = m_starts[i];
        polygon.resize(static_cast<int>(endOf(i) - begin));
        // Number by number: points made in between would each be waited for.
        QPointF *mapped = polygon.data();
        for (std::size_t k = begin; k < endOf(i); ++k, ++mapped)
            toMm.map(m_points[k].x(), m_points[k].y(), &mapped->rx(), &mapped->ry());
        path.addPolygon(polygon);
    }
    return path;
}
