#pragma once

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtGui/QPen>
#include <QtWidgets/QGraphicsItem>

namespace studio {

/**
 * Straight lines over the canvas that belong to no drawing: guides, and those that tell why
 * something snaps. They cannot be selected and let the mouse through.
 */
class CanvasLines : public QGraphicsItem
{
public:
    /** Adds itself to the scene, which owns it unless its maker deletes it first. */
    CanvasLines(ZTGraphicsScene &scene, const QColor &color, Qt::PenStyle style);

    /** Shows these lines and no others. Frame: scene pixels. */
    void show(const QVector<QLineF> &linesPx);

    const QVector<QLineF> &lines() const { return m_linesPx; }

    QRectF boundingRect() const override { return m_boxPx; }
    QPainterPath shape() const override { return {}; }
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

private:
    QPen m_pen;
    QVector<QLineF> m_linesPx;
    QRectF m_boxPx;
};

} // namespace studio
