#include <hostkit/marks/MarkLayout_p.h>

#include <hostkit/marks/MarkArrangement.h>
#include <hostkit/marks/MarkGraphBuilder.h>
#include <hostkit/setup/ProcessState.h>

#include <QtCore/QtMath>

#include <algorithm>
#include <cmath>
#include <limits>

namespace hostkit {

namespace {

constexpr double kMaxHatchRows = 1e6;
constexpr double kMaxPieces = 20e6;
constexpr double kMaxObjects = 1e6;
constexpr double kHatchMarginPx = 10.0; // on each side of a layout of hatch lines

bool tooMuch(MarkJobFailure *failure, int drawing, const QString &reason)
{
    failure->drawing = drawing;
    return fail(failure, Failure::Kind::NotPossible, reason);
}

/** "12,345,678", the same in every locale. */
QString grouped(double count)
{
    QString digits = QString::number(count, 'f', 0);
    for (int i = digits.size() - 3; i > 0; i -= 3)
        digits.insert(i, QLatin1Char(','));
    return digits;
}

QString tooMany(const QString &what, double count, double limit)
{
    return MarkLayout::tr("too much work: %1 %2, the limit is %3")
        .arg(grouped(count), what, grouped(limit));
}

/** Turns the item, as it stands, and brings the corner of the turned box back to the origin. */
void turn(ZTAbstractGraphicsItem &item, double rotateDeg)
{
    const QTransform turned = item.getTransformParam() * QTransform().rotate(rotateDeg);
    item.setTransformParam(turned);
    const QPointF cornerPx = item.boundingRect().topLeft();
    const ZTCoord &coord = *ZTCoord::getInstance();
    const QTransform back =
        QTransform::fromTranslate(-coord.pix2mm(cornerPx.x()), -coord.pix2mm(cornerPx.y()));
    item.setTransformParam(turned * back);
}

/** Number of hatch lines laid over the shape, those that miss it included. */
double hatchRows(ZTShapeBase &shape, double spacingPx)
{
    const QRectF box = shape.controlPointRect();
    const double diagonal = std::sqrt(2.0) * std::max(box.width(), box.height());
    return (diagonal + 2.0 * kHatchMarginPx) / spacingPx;
}

/** About how many segments the hatch will have: half its crossings with the outline. */
double hatchSegments(const ZTShapeBase &shape, double spacingPx, double angleDeg)
{
    const double angle = qDegreesToRadians(angleDeg);
    const QPointF normal(-std::sin(angle), std::cos(angle));
    double acrossPx = 0.0;
    for (const QPolygonF &polygon : shape.getLines().toSubpathPolygons()) {
        for (int i = 0; i < polygon.size(); ++i) {
            const QPointF edge = polygon[(i + 1) % polygon.size()] - polygon[i];
            acrossPx += std::abs(QPointF::dotProduct(edge, normal));
        }
    }
    return acrossPx / spacingPx / 2.0;
}

double pointsOf(const QPainterPath &path)
{
    double points = 0.0;
    for (const QPolygonF &polygon : path.toSubpathPolygons())
        points += polygon.size();
    return points;
}

void tell(const MarkJobOptions &options, const QString &step)
{
    if (options.progress)
        options.progress(step);
}

} // namespace

bool MarkLayout::build(const MarkJobOptions &options, const Filling &fill, MarkJobResult *result,
                       MarkJobFailure *failure)
{
    const ProcessStateGuard former;
    ZTPointSort::getInstance()->setShapeMarkSort(options.order);
    ZTMarkGraph graph;
    if (!buildGraph(options, fill, &graph, failure))
        return false;
    tell(options, tr("ordering"));
    arrangeMarkGraph(std::move(graph), MarkUnits::current(), options, result);
    return true;
}

/** Mark data of the whole job as its items were added, copies row by row. */
bool MarkLayout::buildGraph(const MarkJobOptions &options, const Filling &fill, ZTMarkGraph *graph,
                            MarkJobFailure *failure)
{
    MarkLayout layout(options, failure);
    tell(options, tr("preparing outlines"));
    if (!fill(layout))
        return false;
    tell(options, tr("copying"));
    if (!layout.repeat())
        return false;
    if (options.hatch != FillType::None)
        tell(options, tr("hatching"));
    *graph = layout.takeGraph();
    return true;
}

MarkLayout::MarkLayout(const MarkJobOptions &jobOptions, MarkJobFailure *jobFailure)
    : m_options(jobOptions), m_failure(jobFailure), m_nobodyFollows(m_manager.scene())
{
    // The scale of a manager is a float, too coarse for paths written to the last digit: the
    // graph leaves it in scene pixels and is brought to mark units afterwards.
    m_manager.setScale(1.0F, 1.0F);
}

/**
 * The shape converts its spacing from millimetres to pixels once, and the scale then enlarges the
 * hatch with the drawing: dividing by the scale brings the lines out at the distance asked for.
 */
ZTFillParam MarkLayout::fillParam() const
{
    ZTFillParam fill;
    fill.fillType = m_options.hatch;
    fill.spac = m_options.spacingMm / m_options.scale;
    fill.angle = m_options.angleDeg;
    // The outline is needed to order the objects, also where it is dropped in the end.
    fill.isEnableBorder = true;
    return fill;
}

bool MarkLayout::checkWork(int index, ZTShapeBase &shape)
{
    m_pieces += pointsOf(shape.getLines());
    if (m_options.hatch == FillType::None)
        return true;
    const double spacingPx = scenePx(m_options.spacingMm);
    const double rows = hatchRows(shape, spacingPx);
    if (!(rows <= kMaxHatchRows))
        return tooMuch(m_failure, index,
                       tooMany(tr("hatch lines over the drawing"), rows, kMaxHatchRows));
    const double joints = m_options.hatch == FillType::ULine ? 2.0 : 1.0;
    const double segments = joints * hatchSegments(shape, spacingPx, m_options.angleDeg);
    if (!(segments <= kMaxPieces))
        return tooMuch(m_failure, index, tooMany(tr("hatch segments"), segments, kMaxPieces));
    m_pieces += segments;
    return true;
}

bool MarkLayout::checkCopies() const
{
    const double objects = copies() * static_cast<double>(m_drawn.size());
    if (objects > kMaxObjects)
        return tooMuch(m_failure, -1, tooMany(tr("objects"), objects, kMaxObjects));
    if (copies() * m_pieces > kMaxPieces)
        return tooMuch(m_failure, -1,
                       tooMany(tr("points and hatch segments"), copies() * m_pieces, kMaxPieces));
    return true;
}

bool MarkLayout::add(ShapeType type, const Shaping &shape)
{
    const int index = static_cast<int>(m_drawn.size());
    ZTAbstractGraphicsItem *item = m_manager.addShape(type, QRectF());
    if (item == nullptr)
        return tooMuch(m_failure, index, tr("no factory for drawings is registered"));
    shape(*item);
    item->getShapeBase()->paint();
    if (m_options.rotateDeg != 0.0)
        turn(*item, m_options.rotateDeg);
    m_drawn.push_back(item);
    return checkWork(index, *item->getShapeBase());
}

bool MarkLayout::repeat()
{
    if (!checkCopies())
        return false;
    if (!m_drawn.empty())
        layOut();
    return true;
}

/** Puts the items side by side and repeats them; the scene grows to hold all of it. */
void MarkLayout::layOut()
{
    std::vector<double> placesPx;
    double widthPx = 0.0;
    double heightPx = 0.0;
    for (const ZTAbstractGraphicsItem *item : m_drawn) {
        const QSizeF sizePx = item->boundingRect().size();
        placesPx.push_back(widthPx);
        widthPx += sizePx.width() + scenePx(m_options.gapMm.width());
        heightPx = std::max(heightPx, sizePx.height());
    }
    const QSizeF pitchPx(widthPx, heightPx + scenePx(m_options.gapMm.height()));
    // An item's position is clamped to the scene.
    const QSizeF layoutPx(m_options.columns * pitchPx.width(), m_options.rows * pitchPx.height());
    m_manager.scene()->setSceneRect(m_manager.scene()->sceneRect() | QRectF(QPointF(), layoutPx));

    m_items.resize(m_drawn.size() * static_cast<std::size_t>(copies()));
    for (std::size_t i = 0; i < m_drawn.size(); ++i) {
        m_drawn[i]->setPos(placesPx[i], 0.0);
        addCopies(static_cast<int>(i), pitchPx);
    }
}

void MarkLayout::addCopies(int drawing, const QSizeF &pitchPx)
{
    std::size_t number = static_cast<std::size_t>(drawing);
    ZTAbstractGraphicsItem *const source = m_drawn[number];
    m_items[number] = source;
    if (m_items.size() == m_drawn.size())
        return;
    m_manager.scene()->clearSelection();
    source->setSelected(true);
    const QSizeF gapPx = pitchPx - source->boundingRect().size();
    const QList<ZTAbstractGraphicsItem *> added =
        m_manager.addMatrix(m_options.rows, m_options.columns, gapPx.width(), gapPx.height());
    for (ZTAbstractGraphicsItem *copy : added)
        m_items[number += m_drawn.size()] = copy;
}

// Not before the copies are made: each of them is rebuilt when it is made, and again when its mark
// data are.
void MarkLayout::hatch()
{
    for (ZTAbstractGraphicsItem *item : m_items)
        item->getShapeBase()->setFillParam(fillParam());
}

/** Mark data of all items, in their order. */
ZTMarkGraph MarkLayout::takeGraph()
{
    hatch();
    MarkGraphBuilder builder(m_manager, MarkItems(m_items.begin(), m_items.end()));
    builder.work(std::numeric_limits<int>::max());
    ZTMarkGraph graph = builder.takeUnordered();
    enlargeMarkGraph(&graph, ZTCoord::getInstance()->screen2mark() * m_options.scale);
    return graph;
}

} // namespace hostkit
