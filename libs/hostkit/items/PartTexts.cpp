#include <hostkit/items/PartTexts.h>

#include <hostkit/items/ItemExtras.h>
#include <hostkit/items/MarkReadiness.h>

namespace hostkit {

namespace {

/** Takes one update back. */
struct StepBack
{
    void operator()(ZTFixedTextSegment &) const {}
    void operator()(ZTDateTimeSegment &) const {}

    void operator()(ZTCounterSegment &counter) const
    {
        if (counter.updates > 0)
            --counter.updates;
    }

    void operator()(ZTTextFileSegment &rows) const
    {
        if (rows.nextRow > rows.firstRow)
            --rows.nextRow;
    }
};

/** Updates the variant texts of items, each after `prepare`. */
template <class Prepare>
NextPart updated(const QVector<ZTAbstractGraphicsItem *> &items, Prepare prepare)
{
    NextPart part;
    for (ZTAbstractGraphicsItem *item : items) {
        auto *textItem = qobject_cast<ZTAbstractGraphicsTextItem *>(item);
        ZTVariantText *variantText = textItem != nullptr ? textItem->getVariantText() : nullptr;
        if (variantText == nullptr)
            continue;
        prepare(*item, *variantText);
        const bool isUsedUp = variantText->isExhausted();
        variantText->update();
        textItem->fromVariantTextSetText();
        part.texts << onOneLine(variantText->getText());
        if (isUsedUp)
            part.usedUp << part.texts.last();
        const QString notReady = notReadyReason(*textItem);
        if (!notReady.isEmpty())
            part.notReady << QStringLiteral("%1: %2").arg(part.texts.last(), notReady);
        if (!variantText->errorText().isEmpty())
            part.errors << variantText->errorText().split(QLatin1Char('\n'));
    }
    return part;
}

} // namespace

QString onOneLine(QString text) { return text.replace(QLatin1Char('\n'), QChar(0x21B5)); }

QVector<ZTVariantTextSegment> beforePresentPart(const QVector<ZTVariantTextSegment> &segments)
{
    QVector<ZTVariantTextSegment> before = segments;
    for (ZTVariantTextSegment &segment : before)
        std::visit(StepBack(), segment);
    return before;
}

NextPart NextPart::make(const QVector<ZTAbstractGraphicsItem *> &items)
{
    // What the shapes that share its counter use up comes between its own values.
    return updated(items, [](const ZTAbstractGraphicsItem &item, ZTVariantText &text) {
        for (int left = itemExtras(item).valuesPerPart; left > 1; --left)
            text.update();
    });
}

NextPart NextPart::again(const QVector<ZTAbstractGraphicsItem *> &items)
{
    NextPart part = updated(items, [](const ZTAbstractGraphicsItem &, ZTVariantText &text) {
        text.setSegments(beforePresentPart(text.getSegments()));
    });
    part.usedUp.clear();
    return part;
}

} // namespace hostkit
