#include <studio/text/VariantParts.h>

#include <hostkit/items/ItemExtras.h>
#include <hostkit/items/MarkReadiness.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QFileInfo>

namespace studio {

namespace {

constexpr qint64 kMostPreviewed = 10000; ///< that a variant text shows in advance

QString translated(const char *text)
{
    return QCoreApplication::translate("studio::VariantParts", text);
}

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

struct Describer
{
    QString operator()(const ZTFixedTextSegment &fixed) const
    {
        return translated(QT_TRANSLATE_NOOP("studio::VariantParts", "Text: %1"))
            .arg(onOneLine(fixed.text));
    }

    QString operator()(const ZTCounterSegment &counter) const
    {
        return translated(QT_TRANSLATE_NOOP("studio::VariantParts", "Counter: %1"))
            .arg(counter.format(counter.nextValue()));
    }

    QString operator()(const ZTDateTimeSegment &moment) const
    {
        switch (moment.content) {
        case ZTDateTimeContent::WeekNumber:
            return translated(QT_TRANSLATE_NOOP("studio::VariantParts", "Date: week"));
        case ZTDateTimeContent::WeekYear:
            return translated(QT_TRANSLATE_NOOP("studio::VariantParts", "Date: year of the week"));
        case ZTDateTimeContent::DayOfYear:
            return translated(QT_TRANSLATE_NOOP("studio::VariantParts", "Date: day of the year"));
        case ZTDateTimeContent::JulianDay:
            return translated(QT_TRANSLATE_NOOP("studio::VariantParts", "Date: Julian day"));
        case ZTDateTimeContent::Formatted:
            break;
        }
        return translated(QT_TRANSLATE_NOOP("studio::VariantParts", "Date: %1")).arg(moment.format);
    }

    QString operator()(const ZTTextFileSegment &rows) const
    {
        return translated(QT_TRANSLATE_NOOP("studio::VariantParts", "List: %1"))
            .arg(QFileInfo(rows.path).fileName());
    }
};

} // namespace

QStringList partPreview(const ZTVariantText &text, int valuesPerPart, int parts)
{
    const qint64 values = 1 + qint64(parts - 1) * valuesPerPart;
    const QStringList all = text.preview(int(qMin<qint64>(values, kMostPreviewed)));
    QStringList shown;
    for (int at = 0; at < all.size() && shown.size() < parts; at += valuesPerPart)
        shown << all[at];
    return shown;
}

QString onOneLine(QString text) { return text.replace(QLatin1Char('\n'), QChar(0x21B5)); }

Segments beforePresentPart(const Segments &segments)
{
    Segments before = segments;
    for (Segment &segment : before)
        std::visit(StepBack(), segment);
    return before;
}

ZTVariantText variantTextOf(const Segments &segments)
{
    ZTVariantText text;
    text.setSegments(segments);
    return text;
}

QString describe(const Segment &segment) { return std::visit(Describer(), segment); }

NextPart NextPart::make(const QVector<ZTAbstractGraphicsItem *> &items)
{
    NextPart part;
    for (ZTAbstractGraphicsItem *item : items) {
        auto *textItem = qobject_cast<ZTAbstractGraphicsTextItem *>(item);
        ZTVariantText *variantText = textItem != nullptr ? textItem->getVariantText() : nullptr;
        if (variantText == nullptr)
            continue;
        for (int left = hostkit::itemExtras(*item).valuesPerPart; left > 1; --left)
            variantText->update(); // those of the shapes that share its counter
        const bool isUsedUp = variantText->isExhausted();
        variantText->update();
        textItem->fromVariantTextSetText();
        part.texts << onOneLine(variantText->getText());
        if (isUsedUp)
            part.usedUp << part.texts.last();
        const QString notReady = hostkit::notReadyReason(*textItem);
        if (!notReady.isEmpty())
            part.errors << QStringLiteral("%1: %2").arg(part.texts.last(), notReady);
        if (!variantText->errorText().isEmpty())
            part.errors << variantText->errorText().split(QLatin1Char('\n'));
    }
    return part;
}

} // namespace studio
