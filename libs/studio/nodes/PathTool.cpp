#include <studio/nodes/PathTool.h>

#include <studio/canvas/PointerLabel.h>
#include <studio/canvas/ToolDrag.h>
#include <studio/canvas/ToolPreview.h>
#include <studio/choices/Units.h>
#include <studio/commands/ItemSetCommand.h>
#include <studio/program/UndoTexts.h>

#include <hostkit/items/GraphicItems.h>

#include <vectorkit/edit/PainterPaths.h>

#include <QtGui/QMouseEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QUndoStack>

#include <cmath>

namespace studio {

namespace {

using vectorkit::PathNode;
using vectorkit::VectorPath;

constexpr double kReachOnScreen = 8.0;

QPointF toMm(const QPointF &placePx)
{
    return ZTCoord::getInstance()->getPix2MmTransform().map(placePx);
}

PathNode nodeAt(const QPointF &placeMm) { return {placeMm, placeMm, placeMm, false}; }

} // namespace

PathTool::PathTool(ZTGraphicsDocument &drawing, QObject *parent)
    : CanvasTool(drawing, parent), m_label(new PointerLabel(drawing.view()->viewport()))
{
}

PathTool::~PathTool() = default;

void PathTool::choose(Kind kind)
{
    giveUp();
    m_kind = kind;
    if (kind == Kind::None)
        return;
    document().view()->setFocus();
    Q_EMIT told(kind == Kind::Polyline
                    ? tr("Polyline: click point by point. Shift keeps to steps of 15°, Backspace "
                         "takes a point back, Return or a double click ends, a click on the first "
                         "point closes, Esc gives up")
                    : tr("Curve: click points, drag from them to bend. Backspace takes a point "
                         "back, Return or a double click ends, a click on the first point closes, "
                         "Esc gives up"));
}

void PathTool::giveUp()
{
    m_nodes.clear();
    m_isPulling = false;
    m_closes = false;
    m_preview.reset();
    if (m_label)
        m_label->hide();
    endSnapping();
}

bool PathTool::isOurKey(const QKeyEvent &event) const
{
    switch (event.key()) {
    case Qt::Key_Escape:
        return true;
    case Qt::Key_Backspace:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return !m_nodes.isEmpty();
    default:
        return false;
    }
}

bool PathTool::keyPress(const QKeyEvent &event)
{
    if (event.key() == Qt::Key_Escape) {
        const bool hadPoints = !m_nodes.isEmpty();
        giveUp();
        if (!hadPoints)
            Q_EMIT left();
    } else if (event.key() == Qt::Key_Backspace) {
        m_nodes.removeLast();
        m_isPulling = false;
        if (m_nodes.isEmpty())
            giveUp();
        else
            show();
    } else {
        finish(false);
    }
    return true;
}

/** Its first press has set the last point already. */
bool PathTool::doubleClick(const QMouseEvent &event)
{
    if (event.button() == Qt::LeftButton)
        finish(false);
    return true;
}

/** Where a point comes to: snapped, and with Shift in steps from the one before. */
QPointF PathTool::pointAt(const QMouseEvent &event) const
{
    const QPointF placePx = snapped(placeOf(event), event.modifiers());
    if (m_nodes.isEmpty() || m_isPulling || !event.modifiers().testFlag(Qt::ShiftModifier))
        return placePx;
    ToolDrag way;
    way.fromPx = ZTCoord::getInstance()->getMm2pixTransform().map(m_nodes.last().place);
    way.toPx = placePx;
    way.keepsProportions = true;
    return draggedLine(way).p2();
}

bool PathTool::isOnFirst(const QPointF &placePx) const
{
    if (m_nodes.size() < (m_kind == Kind::Polyline ? 3 : 2))
        return false;
    const QTransform toScreen = document().view()->viewportTransform();
    const QPointF apart =
        toScreen.map(ZTCoord::getInstance()->getMm2pixTransform().map(m_nodes.first().place)) -
        toScreen.map(placePx);
    return std::hypot(apart.x(), apart.y()) <= kReachOnScreen;
}

bool PathTool::press(const QMouseEvent &event)
{
    if (event.button() != Qt::LeftButton) {
        const bool wasDrawing = !m_nodes.isEmpty();
        if (wasDrawing)
            finish(false);
        return wasDrawing;
    }
    m_mouse = event.pos();
    m_mousePx = pointAt(event);
    m_closes = isOnFirst(m_mousePx);
    const PathNode added = nodeAt(toMm(m_mousePx));
    // A place that is there already is no point.
    if (!m_closes && (m_nodes.isEmpty() || m_nodes.last().place != added.place))
        m_nodes.append(added);
    m_isPulling = true;
    show();
    return true;
}

bool PathTool::move(const QMouseEvent &event)
{
    if (m_isPulling && !event.buttons().testFlag(Qt::LeftButton))
        m_isPulling = false; // the release went to somebody else
    const bool pulls = m_isPulling && m_kind == Kind::Curve && !m_nodes.isEmpty();
    const bool isFar =
        (event.pos() - m_mouse).manhattanLength() >= QApplication::startDragDistance();
    if (m_isPulling && !(pulls && isFar))
        return true;
    m_mousePx = pointAt(event);
    if (pulls) {
        PathNode &node = m_closes ? m_nodes.first() : m_nodes.last();
        const QPointF lean = toMm(m_mousePx) - node.place;
        if (!m_closes)
            node.out = node.place + lean;
        node.in = node.place - lean;
        node.isSmooth = true;
    } else {
        m_mouse = event.pos();
    }
    if (!m_nodes.isEmpty())
        show();
    // Nothing below the mouse may set a cursor of its own.
    return pulls || event.buttons() == Qt::NoButton;
}

bool PathTool::release(const QMouseEvent &event)
{
    if (event.button() != Qt::LeftButton)
        return false;
    m_isPulling = false;
    if (m_closes)
        finish(true);
    return true;
}

VectorPath PathTool::drawn(const QVector<PathNode> &nodes, bool isClosed) const
{
    VectorPath path(nodes.first().place);
    const auto lead = [&path](const PathNode &from, const PathNode &to) {
        if (from.out == from.place && to.in == to.place)
            path.lineTo(to.place);
        else
            path.cubicTo(from.out, to.in, to.place);
    };
    for (int at = 1; at < nodes.size(); ++at)
        lead(nodes[at - 1], nodes[at]);
    if (isClosed) {
        lead(nodes.last(), nodes.first());
        path.close();
    }
    return path;
}

void PathTool::show()
{
    if (!m_preview)
        m_preview = std::make_unique<ToolPreview>(*document().scene());
    QVector<PathNode> nodes = m_nodes;
    if (!m_isPulling)
        nodes.append(nodeAt(toMm(m_mousePx)));
    QPainterPath outlineMm = vectorkit::painterPathOf({drawn(nodes, m_closes)});
    if (m_kind == Kind::Curve) { // the lean of the last point
        outlineMm.moveTo(m_nodes.last().in);
        outlineMm.lineTo(m_nodes.last().place);
        outlineMm.lineTo(m_nodes.last().out);
    }
    m_preview->showOutline(ZTCoord::getInstance()->getMm2pixTransform().map(outlineMm));
    if (m_isPulling || nodes.size() < 2)
        return;
    const QLineF last(nodes[nodes.size() - 2].place, nodes.last().place);
    const QString measure =
        tr("%1, %2°").arg(units::text(last.length()), QString::number(last.angle(), 'f', 1));
    m_label->tell(measure, m_mouse);
    Q_EMIT told(measure);
}

void PathTool::finish(bool isClosed)
{
    const QVector<PathNode> nodes = m_nodes;
    giveUp();
    if (nodes.size() < 2) {
        Q_EMIT told(tr("A path needs two points"));
        return;
    }
    const ShapeItems before = selectedShapeItems(*document().scene());
    ShapeItem *item = hostkit::addGraphic(document(), {drawn(nodes, isClosed)});
    if (item == nullptr)
        return;
    document().undoStack()->push(
        new AddItemsCommand(document().itemMag(), {item}, before,
                            undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Draw path"))));
    Q_EMIT left();
}

} // namespace studio
