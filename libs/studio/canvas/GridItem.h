#pragma once

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtWidgets/QGraphicsItem>

namespace studio {

/**
 * The grid behind the drawing, whose lines follow the zoom: `gridStepMm` apart, with a stronger one
 * at every power of ten. It is no shape and lets the mouse through.
 */
class GridItem : public QGraphicsItem
{
public:
    /** Adds itself to the scene, which owns it unless its maker deletes it first. */
    explicit GridItem(ZTGraphicsScene &scene);

    QRectF boundingRect() const override { return m_sceneRectPx; }
    QPainterPath shape() const override { return {}; }
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

private:
    QRectF m_sceneRectPx;
};

} // namespace studio
