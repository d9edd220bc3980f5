#pragma once

#include <studio/arrange/ShapeCopies.h>

#include <QtWidgets/QGraphicsObject>

namespace studio {

/**
 * Shows where the copies on a circle would stand, without making any: drawn outlines that belong to
 * no drawing, cannot be selected and let the mouse through.
 */
class CirclePreview : public QGraphicsObject
{
    Q_OBJECT

public:
    /** Adds itself to the scene, which owns it unless its maker deletes it first. */
    explicit CirclePreview(ZTGraphicsScene &scene);

    /** Shows the copies of `sources`; nothing without any. */
    void show(const ShapeItems &sources, const CircleArray &circle);

    QRectF boundingRect() const override { return m_extentPx; }
    QPainterPath shape() const override { return {}; }
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

private:
    CircleArray m_circle;
    QPainterPath m_outlinePx; ///< of the sources, about their middle
    QPointF m_middlePx;       ///< of the sources
    QRectF m_extentPx;
};

} // namespace studio
