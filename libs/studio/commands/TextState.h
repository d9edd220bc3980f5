#pragma once

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QByteArray>
#include <QtCore/QSizeF>

namespace studio {

/** Everything that belongs to a text or a code but its place: words, size, hatch, pen and more. */
class TextState
{
public:
    explicit TextState(const ZTAbstractGraphicsTextItem &item);

    /** Makes the text what it was, to the last bit. */
    void restore(ZTAbstractGraphicsTextItem &item) const;

    /** The same, but a variant text stays at the part that it has come to. */
    void restoreAtPresentPart(ZTAbstractGraphicsTextItem &item) const;

    bool operator==(const TextState &other) const { return m_record == other.m_record; }
    bool operator!=(const TextState &other) const { return !(*this == other); }

private:
    QByteArray m_record; ///< as in a drawing's stream
    QRectF m_rectMm;     ///< reading the record computes it anew
    QSizeF m_sizePx;     ///< that the item told last
};

/** The text behind an item; every text item has one. Owner: the item. */
ZTShapeText &textShapeOf(const ZTGraphicsTextItem &item);

/** What texts and codes have in common. Owner: the item. */
ZTTextShapeBase &wordsShapeOf(const ZTAbstractGraphicsTextItem &item);

/** The variant text of an item, also while it is switched off. */
ZTVariantText storedVariantText(const ZTAbstractGraphicsTextItem &item);

/** Lets the selection frame follow a text or a code that has changed in place. */
void showChanged(ZTAbstractGraphicsTextItem &item);

} // namespace studio
