#include <studio/nodes/PathTool.h>

#include <studio/UndoTexts.h>
#include <studio/canvas/PointerLabel.h>
#include <studio/canvas/ToolDrag.h>
#include <studio/canvas/ToolPreview.h>
#include <studio/commands/ItemSetCommand.h>

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

PathTool::PathTool(ZTGraphicsDocument &document, QObject *parent)
    : QObject(parent), m_document(document), m_label(new PointerLabel(document.view()->viewport()))
{
    m_document.view()->installEventFilter(this);
    m_document.view()->viewport()->installEventFilter(this);
}

PathTool::~PathTool() = default;

void PathTool::setSnap(const Snap &snap, const std::function<void()> &done)
{
    m_snap = snap;
    m_snapDone = done;
}

void PathTool::choose(Kind kind)
{
    giveUp();
    m_kind = kind;
    if (kind == Kind::None)
        return;
    m_document.view()->setFocus();
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
    if (m_snapDone)
        m_snapDone();
}

bool PathTool::eventFilter(QObject *watched, QEvent *event)
{
    if (m_kind == Kind::None)
        return QObject::eventFilter(watched, event);
    const bool isTaken = watched == m_document.view() ? viewEvent(event) : viewportEvent(event);
    return isTaken || QObject::eventFilter(watched, event);
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

bool PathTool::viewEvent(QEvent *event)
{
    switch (event->type()) {
    case QEvent::ShortcutOverride: {
        const bool isOurs = isOurKey(*static_cast<QKeyEvent *>(event));
        if (isOurs)
            event->accept();
        return isOurs;
    }
    case QEvent::KeyPress:
        return keyPress(*static_cast<QKeyEvent *>(event));
    default:
        return false;
    }
}

bool PathTool::keyPress(const QKeyEvent &event)
{
    if (!isOurKey(event))
        return false;
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

bool PathTool::viewportEvent(QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        return press(*static_cast<QMouseEvent *>(event));
    case QEvent::MouseButtonDblClick:
        // Its first press has set the last point already.
        if (static_cast<QMouseEvent *>(event)->button() == Qt::LeftButton)
            finish(false);
        return true;
    case QEvent::MouseMove:
        return move(*static_cast<QMouseEvent *>(event));
    case QEvent::MouseButtonRelease:
        return release(*static_cast<QMouseEvent *>(event));
    default:
        return false;
    }
}

QPointF PathTool::placeOf(const QMouseEvent &event) const
{
    const QTransform toScene = m_document.view()->viewportTransform().inverted();
    QPointF placePx = toScene.map(event.localPos());
    if (m_snap)
        placePx = m_snap(placePx, event.modifiers());
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
    const QTransform toScreen = m_document.view()->viewportTransform();
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
    m_mousePx = placeOf(event);
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
    m_mousePx = placeOf(event);
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
        m_preview = std::make_unique<ToolPreview>(*m_document.scene());
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
        tr("%1 mm, %2°")
            .arg(QString::number(last.length(), 'f', 3), QString::number(last.angle(), 'f', 1));
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
    const ShapeItems before = selectedShapeItems(*m_document.scene());
    ShapeItem *item = hostkit::addGraphic(m_document, {drawn(nodes, isClosed)});
    if (item == nullptr)
        return;
    m_document.undoStack()->push(
        new AddItemsCommand(m_document.itemMag(), {item}, before,
                            undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Draw path"))));
    Q_EMIT left();
}

} // namespace studio
