#include <studio/text/VariantParts.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QFileInfo>

namespace studio {

namespace {

constexpr qint64 kMostPreviewed = 10000; ///< that a variant text shows in advance

QString translated(const char *text)
{
    return QCoreApplication::translate("studio::VariantParts", text);
}

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

ZTVariantText variantTextOf(const Segments &segments)
{
    ZTVariantText text;
    text.setSegments(segments);
    return text;
}

QString describe(const Segment &segment) { return std::visit(Describer(), segment); }

} // namespace studio
