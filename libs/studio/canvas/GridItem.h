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

    /** Distance of the lines in millimetres; 0, as at first: they follow the zoom. */
    void setFixedMm(double fixedMm);

    QRectF boundingRect() const override { return m_sceneRectPx; }
    QPainterPath shape() const override { return {}; }
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

private:
    QRectF m_sceneRectPx;
    double m_fixedMm = 0.0;
};

} // namespace studio
