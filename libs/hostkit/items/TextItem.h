#pragma once

#include <hostkit/items/MarkReadiness.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

namespace hostkit {

/**
 * A text whose stroke font stands at the text's own height, the one of its font record, however
 * high other texts in the same font are. The library draws at the height that was last set for the
 * font's files by anyone.
 *
 * Characters that the pair of stroke fonts has no codes for come from `unicodeStrokeFont()`; see
 * `isFromUnicodeFont`. The record of the text is the library's: a host without this class shows
 * the codec's replacement for them.
 *
 * Frame, Order, Failure: as `ZTShapeText`. A record whose height is no use leaves the fonts alone.
 */
class TextShape : public ZTShapeText, public MarkReadiness
{
public:
    TextShape() = default;

    /** A text like `other`, of either class. */
    explicit TextShape(const ZTShapeText &other) : ZTShapeText(other) {}

    /** Brings the fonts to the text's height, then lays it out; nothing unless it is marked. */
    void paint() override;

    /** Names the characters that no stroke font has, as long as stroke fonts draw the text. */
    QString notReadyReason() const override;

protected:
    QVector<QPainterPath> strokeGlyphs(const QString &line, const QPointF &pos,
                                       double wordSpan) override;
};

/** The item of a `TextShape`: what "Text" makes in a host that calls `registerFactories`. */
class TextItem : public ZTGraphicsTextItem
{
public:
    TextItem();

    /** As the base, also from an item whose shape is a plain `ZTShapeText`. */
    void copy(ZTAbstractGraphicsItem *source) override;
};

/** Makes a `TextItem`. Owner: the process; registered under "Text". */
class TextItemFactory : public Factory
{
public:
    static TextItemFactory *getInstance(); ///< the one there is
    ZTAbstractGraphicsItem *create() override { return new TextItem; }
};

} // namespace hostkit
