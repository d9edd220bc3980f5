#include <hostkit/items/LastPart.h>

#include <hostkit/items/ItemExtras.h>

namespace hostkit {

namespace {

/** The field of an item's extras that tells how far its text was when its last part was marked. */
const QByteArray kMarkedLast = QByteArrayLiteral("marked.last");

/** How far each segment is, whatever day it is. */
struct Advance
{
    QByteArray operator()(const ZTFixedTextSegment &) const { return {}; }
    QByteArray operator()(const ZTDateTimeSegment &) const { return {}; }
    QByteArray operator()(const ZTCounterSegment &counter) const
    {
        return QByteArray::number(counter.updates) + ' ';
    }
    QByteArray operator()(const ZTTextFileSegment &rows) const
    {
        return QByteArray::number(rows.nextRow) + ' ';
    }
};

QByteArray progressOf(const ZTVariantText &text)
{
    QByteArray progress;
    for (const ZTVariantTextSegment &segment : text.getSegments())
        progress += std::visit(Advance(), segment);
    return progress;
}

} // namespace

ZTVariantText *variantTextOf(const ZTAbstractGraphicsItem &item)
{
    const auto *text = dynamic_cast<const ZTTextShapeBase *>(item.getShapeBase());
    return text != nullptr ? text->getVarTxt() : nullptr;
}

QByteArray partProgress(const ZTAbstractGraphicsItem &item)
{
    const ZTVariantText *text = variantTextOf(item);
    return text != nullptr ? progressOf(*text) + ';' : QByteArray();
}

bool moveToNextPart(const ZTAbstractGraphicsItem &item, ZTVariantText *text)
{
    for (int left = itemExtras(item).valuesPerPart; left > 1; --left)
        text->update();
    const bool hasNext = !text->isExhausted();
    text->update();
    return hasNext;
}

bool isAtLastPart(const ZTAbstractGraphicsItem &item)
{
    const ZTVariantText *variant = variantTextOf(item);
    if (variant == nullptr)
        return false;
    ZTVariantText text = *variant;
    return !moveToNextPart(item, &text);
}

bool isLastPartMarked(const ZTAbstractGraphicsItem &item)
{
    const ZTVariantText *text = variantTextOf(item);
    const QByteArray marked = itemExtras(item).fields.value(kMarkedLast);
    return text != nullptr && !marked.isEmpty() && marked == progressOf(*text);
}

void setLastPartMarked(ZTAbstractGraphicsItem &item, bool isMarked)
{
    const ZTVariantText *text = variantTextOf(item);
    ItemExtras extras = itemExtras(item);
    if (isMarked && text != nullptr)
        extras.fields[kMarkedLast] = progressOf(*text);
    else
        extras.fields.remove(kMarkedLast);
    if (extras != itemExtras(item))
        setItemExtras(item, extras);
}

bool isUsedUp(const ZTAbstractGraphicsItem &item)
{
    return isLastPartMarked(item) && isAtLastPart(item);
}

} // namespace hostkit
