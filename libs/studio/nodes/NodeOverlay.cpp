#include <studio/nodes/NodeOverlay.h>

#include <vectorkit/edit/PainterPaths.h>

#include <QtGui/QPainter>

namespace studio {

namespace {

constexpr double kAboveAll = 1e6;
constexpr double kNodePx = 3.5;    ///< half the side of a node on the screen
constexpr double kControlPx = 3.0; ///< radius of a control point
constexpr double kRoomPx = 1000.0; ///< what nodes take at the smallest zoom, in scene pixels
const QColor kInk(0x1e, 0x6f, 0xd9);
const QColor kChosen(0xe6, 0x5c, 0x00);

} // namespace

NodeOverlay::NodeOverlay(ZTGraphicsScene &scene)
{
    setAcceptedMouseButtons(Qt::NoButton);
    setZValue(kAboveAll);
    scene.addItem(this);
    // At the bottom of the order of places, so that it costs nothing when shapes above it go.
    if (ZTGraphicsResizeItem *frame = scene.getGraphicsResizeItem())
        stackBefore(frame);
}

void NodeOverlay::showNodes(const vectorkit::NodePaths &nodes,
                            const QVector<vectorkit::NodeRef> &selected)
{
    m_nodes = nodes;
    m_selected = selected;
    m_linePx =
        ZTCoord::getInstance()->getMm2pixTransform().map(vectorkit::painterPathOf(nodes.paths()));
    renewBox();
}

void NodeOverlay::showBand(const QRectF &bandPx)
{
    m_bandPx = bandPx;
    renewBox();
}

void NodeOverlay::renewBox()
{
    prepareGeometryChange();
    m_boxPx = m_linePx.controlPointRect() | m_bandPx;
    m_boxPx.adjust(-kRoomPx, -kRoomPx, kRoomPx, kRoomPx);
    update();
}

void NodeOverlay::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    painter->setBrush(Qt::NoBrush);
    painter->setPen(QPen(kInk, 0));
    painter->drawPath(m_linePx);
    if (!m_bandPx.isNull())
        painter->drawRect(m_bandPx);
    const QTransform toScreen =
        ZTCoord::getInstance()->getMm2pixTransform() * painter->worldTransform();
    const QRectF shown(painter->viewport());
    painter->save();
    painter->resetTransform();
    const auto drawControl = [&](const QPointF &node, const QPointF &control) {
        if (node == control)
            return;
        painter->drawLine(toScreen.map(node), toScreen.map(control));
        painter->drawEllipse(toScreen.map(control), kControlPx, kControlPx);
    };
    painter->setBrush(Qt::white);
    for (const vectorkit::NodeRef &ref : qAsConst(m_selected)) {
        drawControl(m_nodes.node(ref).place, m_nodes.node(ref).in);
        drawControl(m_nodes.node(ref).place, m_nodes.node(ref).out);
    }
    const QSet<vectorkit::NodeRef> chosen = vectorkit::setOf(m_selected);
    for (int run = 0; run < m_nodes.runs().size(); ++run) {
        const QVector<vectorkit::PathNode> &nodes = m_nodes.runs()[run].nodes;
        for (int index = 0; index < nodes.size(); ++index) {
            const QPointF place = toScreen.map(nodes[index].place);
            if (!shown.adjusted(-kNodePx, -kNodePx, kNodePx, kNodePx).contains(place))
                continue;
            const bool isChosen = chosen.contains({run, index});
            painter->setPen(QPen(isChosen ? kChosen : kInk, 1));
            painter->setBrush(isChosen ? kChosen : QColor(Qt::white));
            const QRectF box(place - QPointF(kNodePx, kNodePx), QSizeF(kNodePx, kNodePx) * 2.0);
            if (nodes[index].isSmooth)
                painter->drawEllipse(box);
            else
                painter->drawRect(box);
        }
    }
    painter->restore();
}

} // namespace studio
