#include <studio/MatrixPreview.h>

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

void MatrixPreview::show(const ShapeItem *source, const MatrixGrid &grid)
{
    prepareGeometryChange();
    shown = grid;
    outlinePx = QPainterPath();
    extentPx = QRectF();
    if (source == nullptr || grid.cells() < 2)
        return;
    boxPx = source->boundingRect();
    outlinePx = source->getShapeBase()->getLines();
    pitch = grid.pitchPx(boxPx);
    setPos(source->pos());
    const QPointF lastPx((grid.columns - 1) * pitch.x(), (grid.rows - 1) * pitch.y());
    extentPx = (boxPx | boxPx.translated(lastPx)).adjusted(-1, -1, 1, 1);
    update();
}

MatrixPreview::CellRange MatrixPreview::cellsWithin(const QRectF &exposedPx) const
{
    const auto columns = cellsOf(exposedPx.left() - boxPx.right(), exposedPx.right() - boxPx.left(),
                                 pitch.x(), shown.columns);
    const auto rows = cellsOf(exposedPx.top() - boxPx.bottom(), exposedPx.bottom() - boxPx.top(),
                              pitch.y(), shown.rows);
    return {columns.first, columns.second, rows.first, rows.second};
}

void MatrixPreview::paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *)
{
    if (extentPx.isNull())
        return;
    const CellRange range =
        cellsWithin(painter->worldTransform().inverted().mapRect(QRectF(painter->viewport())));
    const double scale = option->levelOfDetailFromTransform(painter->worldTransform());
    const double cellPx = scale * qMax(std::abs(pitch.x()), std::abs(pitch.y()));
    painter->setPen(QPen(kInk, 0, Qt::DashLine));
    if (range.count() > kMostBoxes || cellPx < kLeastCellPx) {
        painter->fillRect(extentPx, QBrush(kInk, Qt::Dense6Pattern));
        return;
    }
    const bool asBoxes = range.count() * qMax(1, outlinePx.elementCount()) > kMostElements;
    for (int row = range.firstRow; row < range.endRow; ++row) {
        for (int column = range.firstColumn; column < range.endColumn; ++column) {
            if (row == 0 && column == 0)
                continue;
            const QPointF placePx(column * pitch.x(), row * pitch.y());
            if (asBoxes)
                painter->drawRect(boxPx.translated(placePx));
            else
                painter->drawPath(outlinePx.translated(placePx));
        }
    }
}

} // namespace studio
