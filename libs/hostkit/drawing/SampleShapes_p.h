#pragma once

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

namespace hostkit {

enum Pen { Black = 1, Blue = 2, Green = 6, Magenta = 9, Orange = 10, Red = 12, Turquoise = 14 };

/** Puts shapes of a given size at a given place into a document. */
class SampleShapes
{
public:
    explicit SampleShapes(ZTGraphicsDocument &drawn) : m_document(drawn) {}

    /** A shape that fills `rectMm` exactly; null for a kind without a factory. */
    ZTAbstractGraphicsItem *add(ShapeType type, const QRectF &rectMm, int penId, int sides = 5);

    /** A text in the outlines of a system font, whose top left stands at `posMm`. */
    ZTGraphicsTextItem *addText(const QString &text, const QPointF &posMm, double heightMm,
                                int penId);

    /** A text in the stroke fonts of the samples, whose top left stands at `posMm`. */
    ZTGraphicsTextItem *addStrokeText(const QString &text, const QPointF &posMm, int penId);

    void hatch(ZTAbstractGraphicsItem *item, FillType type, double spacingMm, double angleDeg);

    /** Turns an item about the middle of its box. */
    void turn(ZTAbstractGraphicsItem *item, double angleDeg);

    /** Repeats one item; `gapMm` is the space between copies. */
    void repeat(ZTAbstractGraphicsItem *item, int rows, int columns, double gapMm);

    void moveTo(ZTAbstractGraphicsItem *item, const QPointF &topLeftMm);

private:
    ZTGraphicsDocument &m_document;
};

} // namespace hostkit
