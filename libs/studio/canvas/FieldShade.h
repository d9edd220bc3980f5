#pragma once

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtWidgets/QGraphicsItem>

namespace studio {

/** A shade over all that the machine cannot reach, so that the field stands out. No shape. */
class FieldShade : public QGraphicsItem
{
public:
    /** Adds itself to the scene; its maker deletes it before the document. */
    explicit FieldShade(ZTGraphicsDocument &document);

    QRectF boundingRect() const override { return m_sceneRectPx; }
    QPainterPath shape() const override { return {}; }
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

private:
    const ZTGraphicsDocument &m_document; ///< borrowed
    QRectF m_sceneRectPx;
};

} // namespace studio
