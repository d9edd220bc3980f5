#include <studio/edit/MatrixPreview.h>

#include <QtGui/QPainter>
#include <QtWidgets/QStyleOptionGraphicsItem>

#include <cmath>

namespace studio {

namespace {

constexpr double kAboveAll = 1e6;
constexpr qint64 kMostElements = 200000; ///< of outlines drawn in one paint
constexpr qint64 kMostBoxes = 40000;     ///< drawn in one paint
constexpr double kLeastCellPx = 3.0;     ///< on screen; smaller cells run together
const QColor kInk(0x1e, 0x6f, 0xd9);

/** Numbers of the cells of one direction that meet a span: first, and one behind the last. */
QPair<int, int> cellsOf(double fromPx, double toPx, double pitchPx, int count)
{
    if (std::abs(pitchPx) < 1e-6)
        return {0, count};
    const double a = fromPx / pitchPx;
    const double b = toPx / pitchPx;
    return {static_cast<int>(qBound(0.0, std::floor(qMin(a, b)), double(count))),
            static_cast<int>(qBound(0.0, std::ceil(qMax(a, b)) + 1, double(count)))};
}

} // namespace

QPointF MatrixGrid::pitchPx(const QRectF &boxPx) const
{
    const ZTCoord &coord = *ZTCoord::getInstance();
    return {boxPx.width() + coord.mm2pix(gapMm.width()),
            boxPx.height() + coord.mm2pix(gapMm.height())};
}

MatrixPreview::MatrixPreview(ZTGraphicsScene &scene)
{
    setAcceptedMouseButtons(Qt::NoButton);
    setZValue(kAboveAll);
    scene.addItem(this);
    // At the bottom of the order of places, so that it costs nothing when shapes above it go.
    if (ZTGraphicsResizeItem *frame = scene.getGraphicsResizeItem())
        stackBefore(frame);
}

void MatrixPreview::show(const ShapeItems &sources, const MatrixGrid &grid)
{
    prepareGeometryChange();
    m_shown = grid;
    m_outlinePx = QPainterPath();
    m_extentPx = QRectF();
    if (sources.isEmpty() || grid.cells() < 2)
        return;
    const QPointF originPx = sources.first()->pos();
    m_boxPx = sceneBox(sources).translated(-originPx);
    for (const ShapeItem *source : sources)
        m_outlinePx.addPath(
            source->getShapeBase()->getLines().translated(source->pos() - originPx));
    m_pitch = grid.pitchPx(m_boxPx);
    setPos(originPx);
    const QPointF lastPx((grid.columns - 1) * m_pitch.x(), (grid.rows - 1) * m_pitch.y());
    m_extentPx = (m_boxPx | m_boxPx.translated(lastPx)).adjusted(-1, -1, 1, 1);
    update();
}

MatrixPreview::CellRange MatrixPreview::cellsWithin(const QRectF &exposedPx) const
{
    const auto columns = cellsOf(exposedPx.left() - m_boxPx.right(),
                                 exposedPx.right() - m_boxPx.left(), m_pitch.x(), m_shown.columns);
    const auto rows = cellsOf(exposedPx.top() - m_boxPx.bottom(),
                              exposedPx.bottom() - m_boxPx.top(), m_pitch.y(), m_shown.rows);
    return {columns.first, columns.second, rows.first, rows.second};
}

void MatrixPreview::paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *)
{
    if (m_extentPx.isNull())
        return;
    const CellRange range =
        cellsWithin(painter->worldTransform().inverted().mapRect(QRectF(painter->viewport())));
    const double scale = option->levelOfDetailFromTransform(painter->worldTransform());
    const double cellPx = scale * qMax(std::abs(m_pitch.x()), std::abs(m_pitch.y()));
    painter->setPen(QPen(kInk, 0, Qt::DashLine));
    if (range.count() > kMostBoxes || cellPx < kLeastCellPx) {
        painter->fillRect(m_extentPx, QBrush(kInk, Qt::Dense6Pattern));
        return;
    }
    const bool asBoxes = range.count() * qMax(1, m_outlinePx.elementCount()) > kMostElements;
    for (int row = range.firstRow; row < range.endRow; ++row) {
        for (int column = range.firstColumn; column < range.endColumn; ++column) {
            if (row == 0 && column == 0)
                continue;
            const QPointF placePx(column * m_pitch.x(), row * m_pitch.y());
            if (asBoxes)
                painter->drawRect(m_boxPx.translated(placePx));
            else
                painter->drawPath(m_outlinePx.translated(placePx));
        }
    }
}

} // namespace studio
