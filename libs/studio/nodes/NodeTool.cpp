#include <studio/nodes/NodeTool.h>

#include <studio/commands/ExtrasCommand.h>
#include <studio/commands/OutlinesCommand.h>
#include <studio/commands/UndoMacro.h>
#include <studio/nodes/NodeOverlay.h>
#include <studio/program/UndoTexts.h>

#include <hostkit/items/GraphicItems.h>
#include <hostkit/items/ItemExtras.h>

#include <vectorkit/edit/PainterPaths.h>

#include <QtCore/QScopedValueRollback>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QApplication>
#include <QtWidgets/QUndoStack>

#include <algorithm>
#include <cmath>
#include <memory>

namespace studio {

namespace {

using vectorkit::NodePaths;
using vectorkit::NodeRef;

constexpr double kReachOnScreen = 7.0;

/** Among a shape's extras: nodes that are corners though they look smooth. */
const QByteArray kCornersField = QByteArrayLiteral("corners");

/** Limit: nodes of a path that can be edited one by one. */
constexpr int kMostNodes = 20000;

QPointF toPx(const QPointF &placeMm)
{
    return ZTCoord::getInstance()->getMm2pixTransform().map(placeMm);
}

QPointF toMm(const QPointF &placePx)
{
    return ZTCoord::getInstance()->getPix2MmTransform().map(placePx);
}

double distance(const QPointF &a, const QPointF &b)
{
    return std::hypot(a.x() - b.x(), a.y() - b.y());
}

/** How far an arrow key nudges, as it does shapes; null for another key. */
QPointF nudgeMm(const QKeyEvent &event)
{
    const double step = event.modifiers().testFlag(Qt::ShiftModifier)     ? 10.0
                        : event.modifiers().testFlag(Qt::ControlModifier) ? 0.1
                                                                          : 1.0;
    switch (event.key()) {
    case Qt::Key_Left:
        return {-step, 0.0};
    case Qt::Key_Right:
        return {step, 0.0};
    case Qt::Key_Up:
        return {0.0, -step};
    case Qt::Key_Down:
        return {0.0, step};
    default:
        return {};
    }
}

} // namespace

NodeTool::NodeTool(ZTGraphicsDocument &drawing, QObject *parent) : CanvasTool(drawing, parent)
{
    connect(document().scene(), &QGraphicsScene::selectionChanged, this, &NodeTool::follow);
    connect(document().undoStack(), &QUndoStack::indexChanged, this, &NodeTool::follow);
}

NodeTool::~NodeTool() = default;

void NodeTool::setActive(bool isActive)
{
    if (m_isActive == isActive)
        return;
    giveUp();
    m_isActive = isActive;
    m_item = nullptr;
    // The frame's handles would lie upon the nodes.
    document().scene()->getGraphicsResizeItem()->setOpacity(isActive ? 0.0 : 1.0);
    follow();
    if (isActive)
        document().view()->setFocus();
}

// After whatever selected or changed shapes: the nodes are those of the path as it stands now.
void NodeTool::follow()
{
    if (m_isRecording)
        return;
    m_grip = Grip::Nothing;
    const ShapeItems items = m_isActive ? selectedShapeItems(*document().scene()) : ShapeItems();
    ShapeItem *item = items.size() == 1 ? items.first() : nullptr;
    if (item != m_item)
        m_selected.clear();
    m_item = item;
    m_nodes = NodePaths();
    const bool isPath = item != nullptr && hostkit::graphicOf(*item) != nullptr;
    if (isPath) {
        m_nodes = NodePaths(hostkit::outlinesOf(*item));
        m_nodes.takeCornerMarks(hostkit::itemExtras(*item).fields.value(kCornersField));
    }
    const bool isTooMuch = m_nodes.nodeCount() > kMostNodes;
    if (isTooMuch)
        m_nodes = NodePaths();
    const auto isGone = [this](const NodeRef &ref) {
        return ref.run >= m_nodes.runs().size() || ref.node >= m_nodes.runs()[ref.run].nodes.size();
    };
    m_selected.erase(std::remove_if(m_selected.begin(), m_selected.end(), isGone),
                     m_selected.end());
    show();
    if (!m_isActive)
        return;
    if (item == nullptr)
        Q_EMIT told(tr("Nodes: click a path"));
    else if (!isPath)
        Q_EMIT told(tr("This is no path yet: Arrange, Paths, Turn into paths makes it one"));
    else if (isTooMuch)
        Q_EMIT told(tr("Too many nodes to edit them one by one: simplify or break apart first"));
    else
        Q_EMIT told(tr("Nodes: click or drag a box to select, drag to move, double click on the "
                       "line to add, Del deletes, Esc ends"));
}

void NodeTool::show()
{
    if (!m_isActive || m_nodes.runs().isEmpty()) {
        m_overlay.reset();
        return;
    }
    if (!m_overlay)
        m_overlay = std::make_unique<NodeOverlay>(*document().scene());
    m_overlay->showNodes(m_nodes, m_selected);
}

void NodeTool::giveUp()
{
    if (m_grip == Grip::Nodes || m_grip == Grip::ControlIn || m_grip == Grip::ControlOut)
        m_nodes = m_before;
    m_grip = Grip::Nothing;
    if (m_overlay)
        m_overlay->showBand({});
    endSnapping();
    show();
}

bool NodeTool::isOurKey(const QKeyEvent &event) const
{
    if (event.key() == Qt::Key_Escape)
        return true;
    const bool deletes = event.key() == Qt::Key_Delete || event.key() == Qt::Key_Backspace;
    return !m_selected.isEmpty() && (deletes || !nudgeMm(event).isNull());
}

bool NodeTool::keyPress(const QKeyEvent &event)
{
    const QPointF way = nudgeMm(event);
    if (event.key() == Qt::Key_Escape) {
        if (m_grip != Grip::Nothing) {
            giveUp();
        } else if (!m_selected.isEmpty()) {
            m_selected.clear();
            show();
        } else {
            Q_EMIT left();
        }
    } else if (way.isNull()) {
        remove();
    } else {
        edit(
            [&](NodePaths &nodes) {
                nodes.move(m_selected, way);
                return true;
            },
            undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Move nodes")));
    }
    return true;
}

double NodeTool::reachPx() const
{
    const QTransform toScreen = document().view()->viewportTransform();
    return kReachOnScreen / std::hypot(toScreen.m11(), toScreen.m12());
}

std::optional<NodeRef> NodeTool::nodeAt(const QPointF &placePx) const
{
    std::optional<NodeRef> found;
    double least = reachPx();
    for (int run = 0; run < m_nodes.runs().size(); ++run) {
        const QVector<vectorkit::PathNode> &nodes = m_nodes.runs()[run].nodes;
        for (int index = 0; index < nodes.size(); ++index) {
            const double apart = distance(toPx(nodes[index].place), placePx);
            if (apart <= least) {
                least = apart;
                found = NodeRef{run, index};
            }
        }
    }
    return found;
}

/** What stands where the mouse goes down: first control points of selected nodes, then nodes. */
void NodeTool::grip(const QPointF &placePx, Qt::KeyboardModifiers keys)
{
    const std::optional<NodeRef> node = nodeAt(placePx);
    for (const NodeRef &ref : qAsConst(m_selected)) {
        const vectorkit::PathNode &chosen = m_nodes.node(ref);
        for (const bool isOut : {false, true}) {
            const QPointF control = isOut ? chosen.out : chosen.in;
            if (node || control == chosen.place || distance(toPx(control), placePx) > reachPx())
                continue;
            m_grip = isOut ? Grip::ControlOut : Grip::ControlIn;
            m_held = ref;
            m_fromPx = toPx(control);
            return;
        }
    }
    if (!node) {
        m_grip = Grip::Band;
        m_fromPx = placePx;
        return;
    }
    const bool wasSelected = m_selected.contains(*node);
    if (keys.testFlag(Qt::ShiftModifier)) {
        if (wasSelected)
            m_selected.removeOne(*node);
        else
            m_selected.append(*node);
    } else if (!wasSelected) {
        m_selected = {*node};
    }
    m_held = *node;
    m_grip = m_selected.contains(*node) ? Grip::Nodes : Grip::Nothing;
    m_fromPx = toPx(m_nodes.node(*node).place);
}

bool NodeTool::press(const QMouseEvent &event)
{
    if (event.button() != Qt::LeftButton) {
        const bool wasDragging = m_grip != Grip::Nothing;
        giveUp();
        return wasDragging;
    }
    m_before = m_nodes;
    m_isDragged = false;
    m_toPx = placeOf(event);
    grip(m_toPx, event.modifiers());
    show();
    return true;
}

bool NodeTool::move(const QMouseEvent &event)
{
    if (m_grip == Grip::Nothing)
        return event.buttons() == Qt::NoButton || event.buttons().testFlag(Qt::LeftButton);
    if (!event.buttons().testFlag(Qt::LeftButton)) {
        giveUp(); // the release went to somebody else
        return true;
    }
    const QPointF placePx = placeOf(event);
    const double farPx = reachPx() * QApplication::startDragDistance() / kReachOnScreen;
    if (!m_isDragged && distance(placePx, m_toPx) < farPx)
        return true;
    m_isDragged = true;
    if (m_grip == Grip::Band) {
        if (m_overlay)
            m_overlay->showBand(QRectF(m_fromPx, placePx).normalized());
        m_toPx = placePx;
        return true;
    }
    m_toPx = snapped(placePx, event.modifiers());
    m_nodes = m_before;
    if (m_grip == Grip::Nodes)
        m_nodes.move(m_selected, toMm(m_toPx) - toMm(m_fromPx));
    else
        m_nodes.moveControl(m_held, m_grip == Grip::ControlOut, toMm(m_toPx));
    show();
    return true;
}

bool NodeTool::release(const QMouseEvent &event)
{
    if (event.button() != Qt::LeftButton || m_grip == Grip::Nothing)
        return event.button() == Qt::LeftButton;
    const Grip held = m_grip;
    m_grip = Grip::Nothing;
    endSnapping();
    if (m_overlay)
        m_overlay->showBand({});
    if (held == Grip::Band) {
        if (m_isDragged)
            selectBand(event.modifiers());
        else
            goOverTo(m_fromPx);
    } else if (m_isDragged) {
        const NodePaths edited = m_nodes;
        m_nodes = m_before;
        record(edited, undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Move nodes")));
    }
    show();
    return true;
}

void NodeTool::selectBand(Qt::KeyboardModifiers keys)
{
    const QRectF bandPx = QRectF(m_fromPx, m_toPx).normalized();
    if (!keys.testFlag(Qt::ShiftModifier))
        m_selected.clear();
    const QSet<NodeRef> before = vectorkit::setOf(m_selected);
    for (int run = 0; run < m_nodes.runs().size(); ++run) {
        const QVector<vectorkit::PathNode> &nodes = m_nodes.runs()[run].nodes;
        for (int index = 0; index < nodes.size(); ++index) {
            if (bandPx.contains(toPx(nodes[index].place)) && !before.contains({run, index}))
                m_selected.append({run, index});
        }
    }
}

/** A click beside the nodes: another shape there is the one to edit, else nothing is selected. */
void NodeTool::goOverTo(const QPointF &placePx)
{
    m_selected.clear();
    const bool isOnLine =
        m_nodes.nearest(toMm(placePx), ZTCoord::getInstance()->pix2mm(reachPx())).has_value();
    if (isOnLine)
        return;
    const QList<QGraphicsItem *> hit = document().scene()->items(placePx);
    for (QGraphicsItem *candidate : hit) {
        auto *item = dynamic_cast<ShapeItem *>(candidate);
        if (item != nullptr && item->flags().testFlag(QGraphicsItem::ItemIsSelectable)) {
            if (item != m_item)
                selectOnly(*document().scene(), {item});
            return;
        }
    }
}

bool NodeTool::doubleClick(const QMouseEvent &event)
{
    if (event.button() != Qt::LeftButton)
        return false;
    const QPointF placePx = placeOf(event);
    const auto place = m_nodes.nearest(toMm(placePx), ZTCoord::getInstance()->pix2mm(reachPx()));
    if (!place || nodeAt(placePx))
        return true;
    NodeRef added;
    edit(
        [&](NodePaths &nodes) {
            added = nodes.insert(*place);
            return true;
        },
        undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Add nodes")));
    m_selected = {added};
    show();
    return true;
}

void NodeTool::record(const NodePaths &edited, const QString &text)
{
    if (!m_item)
        return;
    const QVector<vectorkit::VectorPath> paths = edited.paths();
    if (vectorkit::painterPathOf(paths).isEmpty()) {
        Q_EMIT told(tr("Nothing would be left of the path: delete the shape instead"));
        return;
    }
    {
        const QScopedValueRollback<bool> recording(m_isRecording, true);
        const UndoMacro macro(*document().undoStack(), text);
        document().undoStack()->push(new OutlinesCommand({{m_item.data(), paths}}, text));
        keepCorners(edited, text);
    }
    m_nodes = edited; // not read anew, so that what is selected stays what it is
    show();
}

/** What the outlines cannot tell goes with the shape. */
void NodeTool::keepCorners(const NodePaths &edited, const QString &text)
{
    const QByteArray marks = edited.cornerMarks();
    auto command = std::make_unique<ExtrasCommand>(
        ShapeItems{m_item.data()},
        [&marks](hostkit::ItemExtras &extras) {
            if (marks.isEmpty())
                extras.fields.remove(kCornersField);
            else
                extras.fields.insert(kCornersField, marks);
        },
        text);
    if (!command->changesNothing())
        document().undoStack()->push(command.release());
}

/** An edit that may say that there is nothing to do. */
bool NodeTool::edit(const std::function<bool(NodePaths &)> &change, const QString &text)
{
    if (!m_isActive || !m_item || m_nodes.runs().isEmpty())
        return false;
    giveUp();
    NodePaths edited = m_nodes;
    if (!change(edited))
        return false;
    record(edited, text);
    return true;
}

QVector<NodeRef> NodeTool::selectedPieces() const
{
    const QSet<NodeRef> selected = vectorkit::setOf(m_selected);
    QVector<NodeRef> pieces;
    for (const NodeRef &ref : m_selected) {
        const std::optional<NodeRef> after = m_nodes.next(ref);
        if (after && selected.contains(*after))
            pieces.append(ref);
    }
    std::sort(pieces.begin(), pieces.end());
    return pieces;
}

void NodeTool::addBetween()
{
    const QVector<NodeRef> pieces = selectedPieces();
    const bool isDone = edit(
        [&](NodePaths &nodes) {
            for (auto piece = pieces.crbegin(); piece != pieces.crend(); ++piece)
                nodes.insert({*piece, 0.5, {}});
            return !pieces.isEmpty();
        },
        undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Add nodes")));
    if (isDone) {
        m_selected.clear();
        show();
    } else {
        Q_EMIT told(tr("Select nodes next to each other first"));
    }
}

void NodeTool::remove()
{
    NodePaths left = m_nodes;
    left.remove(m_selected);
    if (left.paths().isEmpty()) {
        if (!m_selected.isEmpty())
            Q_EMIT told(tr("Nothing would be left of the path: delete the shape instead"));
        return;
    }
    const bool isDone = edit(
        [&](NodePaths &nodes) {
            nodes = left;
            return !m_selected.isEmpty();
        },
        undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Delete nodes")));
    if (isDone) {
        m_selected.clear();
        show();
    }
}

void NodeTool::breakApart()
{
    const bool isDone = edit([&](NodePaths &nodes) { return nodes.breakAt(m_selected); },
                             undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Break at nodes")));
    if (isDone) {
        m_selected.clear();
        show();
    } else {
        Q_EMIT told(tr("Select nodes that are no ends first"));
    }
}

void NodeTool::join()
{
    QVector<NodeRef> ends;
    for (const NodeRef &ref : qAsConst(m_selected)) {
        if (m_nodes.isEnd(ref))
            ends.append(ref);
    }
    const bool isDone =
        edit([&](NodePaths &nodes) { return ends.size() == 2 && nodes.join(ends[0], ends[1]); },
             undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Join nodes")));
    if (isDone) {
        m_selected.clear();
        show();
    } else {
        Q_EMIT told(tr("Select two ends first"));
    }
}

void NodeTool::toLine()
{
    if (!edit([&](NodePaths &nodes) { return nodes.toLine(selectedPieces()); },
              undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Curves to lines"))))
        Q_EMIT told(tr("Select the nodes at both ends of a curve first"));
}

void NodeTool::toCurve()
{
    if (!edit([&](NodePaths &nodes) { return nodes.toCurve(selectedPieces()); },
              undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Lines to curves"))))
        Q_EMIT told(tr("Select the nodes at both ends of a line first"));
}

void NodeTool::smooth()
{
    if (!edit([&](NodePaths &nodes) { return nodes.smooth(m_selected); },
              undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Smooth nodes"))))
        Q_EMIT told(tr("Select nodes that are no ends first"));
}

// The line stays what it is: only what a control point does from now on changes.
void NodeTool::corner()
{
    NodePaths edited = m_nodes;
    if (!m_item || !edited.corner(m_selected)) {
        Q_EMIT told(tr("Select smooth nodes first"));
        return;
    }
    const QScopedValueRollback<bool> recording(m_isRecording, true);
    keepCorners(edited, undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Corner nodes")));
    m_nodes = edited;
    show();
}

} // namespace studio
