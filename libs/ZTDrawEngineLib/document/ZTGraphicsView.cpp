#include <ZTDrawEngineLib/document/ZTGraphicsView.h>

#include <ZTDrawEngineLib/document/ZTCoord.h>
#include <ZTDrawEngineLib/items/ZTAbstractGraphicsItem.h>
#include <ZTDrawEngineLib/items/ZTGraphicsResizeItem.h>
#include <ZTDrawEngineLib/shapes/ZTShapeBase.h>
#include <ZTDrawEngineLib/shapes/hatch/LateHatch_p.h>

#include <QtCore/QCoreApplication>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtGui/QWheelEvent>

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double kZoomStep = 1.2;
constexpr double kUpperZoomLimit = 20.0;
constexpr double kLowerZoomLimit = 0.09;
constexpr double kGridSpacingMm = 10.0;

QPen hairline(const QColor &color)
{
    return {QBrush(color), 0, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin};
}

/** Turn of a wheel along the axis that turned further. */
int wheelDelta(const QWheelEvent &event)
{
    const QPoint angle = event.angleDelta();
    return std::abs(angle.x()) > std::abs(angle.y()) ? angle.x() : angle.y();
}

/** Numbers of the grid lines on one side of an axis that can lie within a distance of it. */
struct LineRange
{
    int first;
    int end;
};

// Lines outside what is exposed leave no pixel, so they are not drawn.
LineRange gridLinesWithin(double nearPx, double farPx, int edge)
{
    const double stepPx = ZTCoord::getInstance()->mm2pix(kGridSpacingMm);
    // Kept: a count of millimetres is held against the scene's edge in pixels.
    const int count = std::max(0, static_cast<int>(std::ceil(edge / kGridSpacingMm)));
    if (!(stepPx > 0.0))
        return {0, count};
    const double first = std::floor(nearPx / stepPx) - 1;
    const double last = std::ceil(farPx / stepPx) + 1;
    return {static_cast<int>(qBound(0.0, first, double(count))),
            static_cast<int>(qBound(0.0, last + 1, double(count)))};
}

/** Appends the lines at plus and minus each grid position that may cut `exposed` sideways. */
template <class LineAt>
void appendGrid(QVector<QLineF> &lines, double exposedFrom, double exposedTo, int edge,
                const LineAt &lineAt)
{
    const ZTCoord &coord = *ZTCoord::getInstance();
    const bool spansZero = exposedFrom <= 0.0 && exposedTo >= 0.0;
    const double farthest = std::max(std::abs(exposedFrom), std::abs(exposedTo));
    const double nearest = spansZero ? 0.0 : std::min(std::abs(exposedFrom), std::abs(exposedTo));
    const LineRange range = gridLinesWithin(nearest, farthest, edge);
    for (int k = range.first; k < range.end; ++k) {
        const double position = coord.mm2pix(k * kGridSpacingMm);
        lines << lineAt(position) << lineAt(-position);
    }
}

/**
 * Clips to what is exposed, where that is a rectangle of pixels.
 *
 * It leaves out no pixel: Qt clips to the same without being told. Told, its raster engine writes
 * hairlines straight into the picture, which takes a twentieth of the time of spans that are
 * clipped one by one; smoothed ones take half. The clip holds for the items that are drawn next.
 */
void clipToExposed(QPainter *painter, const QRectF &rect)
{
    if (painter->worldTransform().type() <= QTransform::TxScale)
        painter->setClipRect(rect, Qt::IntersectClip);
}

/** So many hatches nobody has looked at yet are worth a look for those that are about to be. */
constexpr int kManyHatches = 64;

/** Lays out what is about to be painted side by side, not one after the other as it is painted. */
void layOutHatchesWithin(const QGraphicsScene *scene, const QRectF &rect)
{
    if (scene == nullptr || zthatch::LateHatch::waitingCount() < kManyHatches)
        return;
    QVector<const ZTShapeBase *> shapes;
    const QList<QGraphicsItem *> items =
        scene->items(rect, Qt::IntersectsItemBoundingRect, Qt::AscendingOrder);
    for (const QGraphicsItem *candidate : items) {
        const auto *item = dynamic_cast<const ZTAbstractGraphicsItem *>(candidate);
        if (item != nullptr && item->isVisible() && item->getFillParam().fillType != FillType::None)
            shapes << item->getShapeBase();
    }
    ZTShapeBase::layOutHatches(shapes, std::numeric_limits<int>::max());
}

/**
 * Lets the scene of a view ask for the repaint of what has moved before the view's window is
 * painted.
 *
 * Where an item was painted last is noted anew whenever it is painted, so an item that has moved
 * and is painted before that stays seen at its old place. The scene asks in a call that it posts to
 * itself; when a posted call moves items while a repaint is posted already, that comes first.
 */
class MovesFirst : public QObject
{
public:
    explicit MovesFirst(QGraphicsView &view) : QObject(&view), m_view(view)
    {
        m_view.installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::UpdateRequest && m_view.scene() != nullptr)
            QCoreApplication::sendPostedEvents(m_view.scene(), QEvent::MetaCall);
        else if (event->type() == QEvent::Show && watched == &m_view && m_view.window() != &m_view)
            m_view.window()->installEventFilter(this);
        return false;
    }

private:
    QGraphicsView &m_view; ///< parent
};

} // namespace

ZTGraphicsView::ZTGraphicsView(QWidget *parent) : QGraphicsView(parent)
{
    setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    setRenderHint(QPainter::Antialiasing, false);
    setDragMode(QGraphicsView::RubberBandDrag);
    setOptimizationFlags(QGraphicsView::DontSavePainterState);
    setViewportUpdateMode(QGraphicsView::SmartViewportUpdate);
    setTransformationAnchor(QGraphicsView::AnchorUnderMouse);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    new MovesFirst(*this);
}

void ZTGraphicsView::zoomIn()
{
    if (m_scale < kUpperZoomLimit)
        setScale(m_scale * kZoomStep);
}

void ZTGraphicsView::zoomOut()
{
    if (m_scale > kLowerZoomLimit)
        setScale(m_scale / kZoomStep);
}

void ZTGraphicsView::resetSize(double newScale) { setScale(newScale); }

void ZTGraphicsView::setScale(double newScale)
{
    m_scale = newScale;
    QTransform transform;
    transform.scale(m_scale, m_scale);
    setTransform(transform);
}

double ZTGraphicsView::getDisplayScale() const { return m_scale; }

QRect ZTGraphicsView::getWorkArea() const { return m_workArea; }

void ZTGraphicsView::setWorkArea(QRect areaMm) { m_workArea = areaMm; }

void ZTGraphicsView::setGridVisible(bool isVisible)
{
    m_isGridVisible = isVisible;
    viewport()->update();
}

bool ZTGraphicsView::isGridVisible() const { return m_isGridVisible; }

void ZTGraphicsView::wheelEvent(QWheelEvent *event)
{
    if (!event->modifiers().testFlag(Qt::ControlModifier)) {
        QGraphicsView::wheelEvent(event);
        return;
    }
    if (wheelDelta(*event) > 0)
        zoomIn();
    else
        zoomOut();
    event->accept();
}

void ZTGraphicsView::mouseMoveEvent(QMouseEvent *event) { QGraphicsView::mouseMoveEvent(event); }

void ZTGraphicsView::scrollContentsBy(int dx, int dy)
{
    m_scrollOffset -= QPointF(dx, dy);
    QGraphicsView::scrollContentsBy(dx, dy);
}

void ZTGraphicsView::mouseDoubleClickEvent(QMouseEvent *event)
{
    QList<QGraphicsItem *> hit = items(event->pos());
    // The selection frame covers what is selected; it must not swallow the double click.
    const auto frame = std::find_if(hit.begin(), hit.end(), [](QGraphicsItem *item) {
        return dynamic_cast<ZTGraphicsResizeItem *>(item) != nullptr;
    });
    if (frame != hit.end())
        hit.erase(frame);
    if (!hit.isEmpty())
        Q_EMIT sigOnItemDouble(dynamic_cast<ZTAbstractGraphicsItem *>(hit.first()));
    QGraphicsView::mouseDoubleClickEvent(event);
}

void ZTGraphicsView::resizeEvent(QResizeEvent *event) { QGraphicsView::resizeEvent(event); }

void ZTGraphicsView::drawBackground(QPainter *painter, const QRectF &rect)
{
    layOutHatchesWithin(scene(), rect);
    clipToExposed(painter, rect);
    QGraphicsView::drawBackground(painter, rect);
    const QRect scene = sceneRect().toRect();
    const int left = scene.left();
    const int top = scene.top();
    const int right = scene.right();
    const int bottom = scene.bottom();

    QVector<QLineF> grid;
    appendGrid(grid, rect.left(), rect.right(), right,
               [=](double x) { return QLineF(x, top, x, bottom); });
    appendGrid(grid, rect.top(), rect.bottom(), bottom,
               [=](double y) { return QLineF(left, y, right, y); });
    if (m_isGridVisible) {
        painter->setPen(hairline(QColor(218, 218, 218, 255)));
        painter->drawLines(grid);
    }

    // Lines along the axes are sharp, also in a view that smooths the shapes.
    const bool isSmooth = painter->testRenderHint(QPainter::Antialiasing);
    painter->setRenderHint(QPainter::Antialiasing, false);
    painter->setPen(hairline(Qt::black));
    const int middleX = left + scene.width() / 2;
    const int middleY = top + scene.height() / 2;
    painter->drawLine(middleX, top + 1, middleX, bottom - 1);
    painter->drawLine(left, middleY, right, middleY);
    painter->drawRect(ZTCoord::getInstance()->getMm2pixTransform().mapRect(QRectF(m_workArea)));
    painter->setRenderHint(QPainter::Antialiasing, isSmooth);
}
