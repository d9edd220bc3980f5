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
    QPoint least = m_points.front();
    QPoint most = m_points.front();
    for (const QPoint &point : m_points) {
        least.rx() = std::min(least.x(), point.x());
        least.ry() = std::min(least.y(), point.y());
        most.rx() = std::max(most.x(), point.x());
        most.ry() = std::max(most.y(), point.y());
    }
    return {QPointF(least), QPointF(most)};
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
        polygon.clear();
        for (std::size_t k = m_starts[i]; k < endOf(i); ++k)
            polygon << toMm.map(QPointF(m_points[k]));
        path.addPolygon(polygon);
    }
    return path;
}
