#pragma once

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtGui/QPainterPath>
#include <QtWidgets/QGraphicsItem>

namespace studio {

/**
 * The outline of a shape that is being drawn: on the scene, yet no shape of the drawing. It cannot
 * be selected and lets the mouse through.
 */
class ToolPreview : public QGraphicsItem
{
public:
    /** Adds itself to the scene, which owns it unless its maker deletes it first. */
    explicit ToolPreview(ZTGraphicsScene &scene);

    /** Shows an outline. Frame: scene pixels. */
    void showOutline(const QPainterPath &outlinePx);

    QRectF boundingRect() const override;
    QPainterPath shape() const override { return {}; }
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

private:
    QPainterPath m_outlinePx;
};

} // namespace studio
