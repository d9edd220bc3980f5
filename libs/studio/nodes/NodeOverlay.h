#pragma once

#include <vectorkit/edit/NodePaths.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtGui/QPainterPath>
#include <QtWidgets/QGraphicsItem>

namespace studio {

/**
 * The nodes of paths, their control points and their line, above the drawing and no shape of it:
 * of the same size on the screen at every zoom. Lets the mouse through.
 */
class NodeOverlay : public QGraphicsItem
{
public:
    /** Adds itself to the scene, which owns it unless its maker deletes it first. */
    explicit NodeOverlay(ZTGraphicsScene &scene);

    /** `selected` are drawn full, and their control points shown. */
    void showNodes(const vectorkit::NodePaths &nodes, const QVector<vectorkit::NodeRef> &selected);

    /** A box that is drawn with the mouse; null: none. Frame: scene pixels. */
    void showBand(const QRectF &bandPx);

    QRectF boundingRect() const override { return m_boxPx; }
    QPainterPath shape() const override { return {}; }
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

private:
    void renewBox();

    vectorkit::NodePaths m_nodes;
    QVector<vectorkit::NodeRef> m_selected;
    QPainterPath m_linePx;
    QRectF m_bandPx;
    QRectF m_boxPx;
};

} // namespace studio
