#pragma once

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QByteArray>

namespace studio {

/** Everything that belongs to a text but its place: words, fonts, size, arc, hatch, pen. */
class TextState
{
public:
    explicit TextState(const ZTGraphicsTextItem &item);

    /** Makes the text what it was, to the last bit. */
    void restore(ZTGraphicsTextItem &item) const;

    /** The same, but a variant text stays at the part that it has come to. */
    void restoreAtPresentPart(ZTGraphicsTextItem &item) const;

    bool operator==(const TextState &other) const { return m_record == other.m_record; }
    bool operator!=(const TextState &other) const { return !(*this == other); }

private:
    QByteArray m_record; ///< as in a drawing's stream
    QRectF m_rectMm;     ///< reading the record computes it anew
};

/** The text behind an item; every text item has one. Owner: the item. */
ZTShapeText &textShapeOf(const ZTGraphicsTextItem &item);

/** Lets the selection frame follow a text that has changed in place. */
void showChanged(ZTGraphicsTextItem &item);

} // namespace studio
