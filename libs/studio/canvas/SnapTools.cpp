#include <studio/canvas/SnapTools.h>

#include <studio/canvas/CanvasLines.h>
#include <studio/canvas/GridStep.h>
#include <studio/canvas/Guides.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QSet>
#include <QtCore/QSettings>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QGraphicsSceneMouseEvent>

namespace studio {

namespace {

const QString kShapesKey = QStringLiteral("snap/shapes");
const QString kGuidesKey = QStringLiteral("snap/guides");
const QString kGridKey = QStringLiteral("snap/grid");
constexpr double kReach = 8.0;        ///< pixels on the screen within which something attracts
constexpr int kStill = 3;             ///< pixels that a hand trembles
constexpr int kMostShapes = 5000;     ///< that attract; with more in sight none would be told apart
constexpr double kLeastSidePx = 1e-2; ///< of a box that can be resized in proportion
constexpr double kFar = 1e5;
const QColor kInk(0xd6, 0x1f, 0x8c);

QRectF boxOf(const ZTGraphicsResizeItem &frame) { return frame.rect().translated(frame.pos()); }

void addShape(const ShapeItem &item, SnapTargets *targets)
{
    targets->addBox(sceneBox(item));
    if (dynamic_cast<const ZTLineShape *>(item.getShapeBase()) == nullptr)
        return;
    const QPainterPath line = item.getShapeBase()->getLines();
    for (int end = 0; end < line.elementCount(); ++end)
        targets->addPoint(item.mapToScene(QPointF(line.elementAt(end))));
}

QString nameOf(SnapKind kind)
{
    switch (kind) {
    case SnapKind::Guide:
        return SnapTools::tr("guide");
    case SnapKind::Edge:
        return SnapTools::tr("edge");
    case SnapKind::Centre:
        return SnapTools::tr("middle");
    case SnapKind::Point:
        return SnapTools::tr("end point");
    case SnapKind::Grid:
        return SnapTools::tr("grid");
    }
    return {};
}

} // namespace

SnapTools::SnapTools(ZTGraphicsDocument &document, QObject *parent)
    : QObject(parent), m_document(document)
{
    const QSettings settings;
    m_choice.toShapes = settings.value(kShapesKey, m_choice.toShapes).toBool();
    m_choice.toGuides = settings.value(kGuidesKey, m_choice.toGuides).toBool();
    m_choice.toGrid = settings.value(kGridKey, m_choice.toGrid).toBool();
    m_document.view()->viewport()->installEventFilter(this);
}

void SnapTools::setChoice(const SnapChoice &choice)
{
    m_choice = choice;
    QSettings settings;
    settings.setValue(kShapesKey, choice.toShapes);
    settings.setValue(kGuidesKey, choice.toGuides);
    settings.setValue(kGridKey, choice.toGrid);
}

SnapTools::~SnapTools() = default;

void SnapTools::hide()
{
    m_hasTargets = false;
    if (!m_lines)
        return;
    m_lines.reset();
    Q_EMIT told(QString());
}

QPointF SnapTools::place(const QPointF &placePx, Qt::KeyboardModifiers keys)
{
    if (!m_hasTargets)
        collectTargets({});
    return placePx + snap(SnapFeatures::ofPoint(placePx), keys).shiftPx;
}

double SnapTools::line(Qt::Orientation orientation, double atPx, Qt::KeyboardModifiers keys)
{
    if (!m_hasTargets)
        collectTargets({});
    const ZTGraphicsView &view = *m_document.view();
    SnapFeatures features;
    features.boxPx = view.mapToScene(view.viewport()->rect()).boundingRect();
    (orientation == Qt::Vertical ? features.xs : features.ys) = {atPx};
    const QPointF shiftPx = snap(features, keys).shiftPx;
    return atPx + (orientation == Qt::Vertical ? shiftPx.x() : shiftPx.y());
}

SnapResult SnapTools::snap(const SnapFeatures &features, Qt::KeyboardModifiers keys)
{
    SnapResult result;
    if (!keys.testFlag(Qt::ControlModifier))
        result = snapped(features, m_targets, kReach / m_document.view()->getDisplayScale());
    show(result);
    return result;
}

void SnapTools::show(const SnapResult &result)
{
    if (!m_lines)
        m_lines = std::make_unique<CanvasLines>(*m_document.scene(), kInk, Qt::DashLine);
    m_lines->show(result.lines);
    QStringList names;
    for (const SnapKind kind : result.kinds)
        names << nameOf(kind);
    Q_EMIT told(names.isEmpty()
                    ? QString()
                    : tr("Snaps to: %1. Ctrl suspends it").arg(names.join(QStringLiteral(", "))));
}

void SnapTools::collectTargets(const ShapeItems &moving)
{
    m_targets = SnapTargets();
    m_hasTargets = true;
    const ZTGraphicsView &view = *m_document.view();
    const QRectF shownPx = view.mapToScene(view.viewport()->rect()).boundingRect();
    const QSet<const QGraphicsItem *> excluded(moving.begin(), moving.end());
    int shapes = 0;
    if (m_choice.toShapes) {
        for (QGraphicsItem *candidate : m_document.scene()->items(shownPx)) {
            const auto *item = dynamic_cast<const ShapeItem *>(candidate);
            if (item == nullptr || excluded.contains(candidate) || !item->isVisible())
                continue;
            if (++shapes > kMostShapes)
                break;
            addShape(*item, &m_targets);
        }
    }
    const ZTCoord &coord = *ZTCoord::getInstance();
    if (m_choice.toGuides) {
        for (const Guide &guide : guidesOf(hostkit::drawingExtras(m_document))) {
            const double atPx = coord.mm2pix(guide.atMm);
            auto &targets = guide.orientation == Qt::Vertical ? m_targets.upright : m_targets.level;
            targets.append({atPx, kFar, -kFar, SnapKind::Guide}); // its own line shows already
        }
    }
    if (m_choice.toGrid)
        m_targets.gridPx = coord.mm2pix(gridStepMm(view.getDisplayScale(), m_gridMm));
    m_targets.sort();
}

bool SnapTools::eventFilter(QObject *watched, QEvent *event)
{
    bool isTaken = false;
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        isTaken = press(*static_cast<QMouseEvent *>(event));
        break;
    case QEvent::MouseMove:
        isTaken = move(*static_cast<QMouseEvent *>(event));
        break;
    case QEvent::MouseButtonRelease:
        m_drag.reset();
        hide();
        break;
    default:
        break;
    }
    return isTaken || QObject::eventFilter(watched, event);
}

bool SnapTools::press(const QMouseEvent &event)
{
    m_drag.reset();
    if (event.button() == Qt::LeftButton) {
        m_pressPos = event.pos();
        m_pressPx = m_lastPx = m_document.view()->mapToScene(event.pos());
    }
    return false;
}

std::optional<SnapTools::FrameDrag> SnapTools::dragUnderWay() const
{
    const ZTGraphicsResizeItem *frame = m_document.scene()->getGraphicsResizeItem();
    const QGraphicsItem *grabber = m_document.scene()->mouseGrabberItem();
    if (frame == nullptr || grabber == nullptr)
        return std::nullopt;
    const QRectF boxPx = boxOf(*frame);
    if (grabber == frame)
        return FrameDrag{boxPx, {}, true};
    if (grabber->parentItem() != frame)
        return std::nullopt;
    const QPointF inFrame = grabber->pos() - frame->rect().topLeft();
    const QPointF share(inFrame.x() / frame->rect().width(), inFrame.y() / frame->rect().height());
    return FrameDrag{boxPx, {qRound(share.x() * 2) / 2.0, qRound(share.y() * 2) / 2.0}, false};
}

bool SnapTools::move(const QMouseEvent &event)
{
    if (!event.buttons().testFlag(Qt::LeftButton))
        return false;
    if (!m_drag) {
        const std::optional<FrameDrag> drag = dragUnderWay();
        if (!drag)
            return false;
        if ((event.pos() - m_pressPos).manhattanLength() < kStill)
            return true;
        m_drag = drag;
        collectTargets(selectedShapeItems(*m_document.scene()));
    } else if (!dragUnderWay()) {
        m_drag.reset(); // somebody ended it
        hide();
        return false;
    }
    const QPointF placePx = m_document.view()->viewportTransform().inverted().map(event.localPos());
    const bool keepsProportions = !m_drag->isMove && event.modifiers().testFlag(Qt::ShiftModifier);
    const SnapFeatures features = featuresOf(*m_drag, placePx - m_pressPx);
    const QPointF shiftPx =
        keepsProportions ? QPointF() : snap(features, event.modifiers()).shiftPx;
    moveTo(event, placePx + shiftPx);
    if (!m_drag->isMove) {
        pullEdges(*m_drag, handlePlace(*m_drag, placePx - m_pressPx) + shiftPx, shiftPx);
        keepShape(*m_drag, keepsProportions);
    }
    return true;
}

/** Where a handle has come to. */
QPointF SnapTools::handlePlace(const FrameDrag &drag, const QPointF &wayPx)
{
    return drag.boxPx.topLeft() + wayPx +
           QPointF(drag.anchor.x() * drag.boxPx.width(), drag.anchor.y() * drag.boxPx.height());
}

/** Handles follow the pixels of the screen: the edges that snap are brought to their place. */
void SnapTools::pullEdges(const FrameDrag &drag, const QPointF &handlePx,
                          const QPointF &shiftPx) const
{
    ZTGraphicsResizeItem *frame = m_document.scene()->getGraphicsResizeItem();
    QRectF boxPx = boxOf(*frame);
    if (shiftPx.x() != 0.0 && drag.anchor.x() == 0.0)
        boxPx.setLeft(handlePx.x());
    if (shiftPx.x() != 0.0 && drag.anchor.x() == 1.0)
        boxPx.setRight(handlePx.x());
    if (shiftPx.y() != 0.0 && drag.anchor.y() == 0.0)
        boxPx.setTop(handlePx.y());
    if (shiftPx.y() != 0.0 && drag.anchor.y() == 1.0)
        boxPx.setBottom(handlePx.y());
    if (!shiftPx.isNull())
        frame->setRect(boxPx.translated(-frame->pos()));
}

SnapFeatures SnapTools::featuresOf(const FrameDrag &drag, const QPointF &wayPx) const
{
    if (drag.isMove)
        return SnapFeatures::ofBox(drag.boxPx.translated(wayPx));
    SnapFeatures features = SnapFeatures::ofPoint(handlePlace(drag, wayPx));
    // The handle in the middle of an edge moves that edge alone.
    if (drag.anchor.x() == 0.5)
        features.xs.clear();
    if (drag.anchor.y() == 0.5)
        features.ys.clear();
    return features;
}

/** Hands the drag on with a place that lies between the pixels of the screen. */
void SnapTools::moveTo(const QMouseEvent &event, const QPointF &placePx)
{
    QGraphicsSceneMouseEvent moved(QEvent::GraphicsSceneMouseMove);
    moved.setWidget(m_document.view()->viewport());
    moved.setButtonDownScenePos(Qt::LeftButton, m_pressPx);
    moved.setScenePos(placePx);
    moved.setLastScenePos(m_lastPx);
    moved.setScreenPos(event.globalPos());
    moved.setButtons(event.buttons());
    moved.setModifiers(event.modifiers());
    moved.setSource(event.source());
    moved.setFlags(event.flags());
    m_lastPx = placePx;
    QCoreApplication::sendEvent(m_document.scene(), &moved);
}

/** With Shift the box keeps its proportions; without, a handle leaves the other direction alone. */
void SnapTools::keepShape(const FrameDrag &drag, bool keepsProportions) const
{
    ZTGraphicsResizeItem *frame = m_document.scene()->getGraphicsResizeItem();
    const bool isFlat = drag.boxPx.width() < kLeastSidePx || drag.boxPx.height() < kLeastSidePx;
    const bool isEdge = drag.anchor.x() == 0.5 || drag.anchor.y() == 0.5;
    if (isFlat || (!keepsProportions && !isEdge))
        return;
    const QRectF nowPx = boxOf(*frame);
    double across = nowPx.width() / drag.boxPx.width();
    double down = nowPx.height() / drag.boxPx.height();
    if (drag.anchor.x() == 0.5)
        across = keepsProportions ? down : 1.0;
    else if (drag.anchor.y() == 0.5)
        down = keepsProportions ? across : 1.0;
    else
        across = down = qMax(across, down);
    const QSizeF sizePx(drag.boxPx.width() * across, drag.boxPx.height() * down);
    const QPointF still(1.0 - drag.anchor.x(), 1.0 - drag.anchor.y());
    const QPointF stillPx = drag.boxPx.topLeft() + QPointF(still.x() * drag.boxPx.width(),
                                                           still.y() * drag.boxPx.height());
    const QPointF topLeftPx =
        stillPx - QPointF(still.x() * sizePx.width(), still.y() * sizePx.height());
    frame->setRect(QRectF(topLeftPx - frame->pos(), sizePx));
}

} // namespace studio
