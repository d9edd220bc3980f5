#include <ZTMarkDataManager/ZTVariantText.h>

#include <ZTMarkDataManager/TextFileRows_p.h>
#include <ZTMarkDataManager/VariantTextStream_p.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDataStream>
#include <QtCore/QDateTime>
#include <QtCore/QLocale>

#include <limits>

namespace {

constexpr int kMaxPreview = 10000;

std::function<QDateTime()> &hostClock()
{
    static std::function<QDateTime()> function;
    return function;
}

QDateTime now() { return hostClock() ? hostClock()() : QDateTime::currentDateTime(); }

QString number(qint64 value, int width)
{
    return QString::number(value).rightJustified(width, u'0');
}

/** A time segment's text at a moment that its offset has moved already. */
QString dateTimeText(const ZTDateTimeSegment &segment, const QDateTime &moment)
{
    const QDate date = moment.date();
    int weekYear = 0;
    const int week = date.weekNumber(&weekYear);
    switch (segment.content) {
    case ZTDateTimeContent::WeekNumber:
        return number(week, 2);
    case ZTDateTimeContent::WeekYear:
        return number(weekYear, 4);
    case ZTDateTimeContent::DayOfYear:
        return number(date.dayOfYear(), 3);
    case ZTDateTimeContent::JulianDay:
        return number(date.toJulianDay(), 0);
    case ZTDateTimeContent::Formatted:
        break;
    }
    const QLocale locale = segment.locale.isEmpty() ? QLocale::c() : QLocale(segment.locale);
    return locale.toString(moment, segment.format);
}

/** Makes the text of each segment in turn and moves it on. */
class Updater
{
public:
    explicit Updater(const QDateTime &moment) : present(moment) {}

    void operator()(const ZTFixedTextSegment &segment) { text += segment.text; }

    void operator()(ZTCounterSegment &segment)
    {
        text += segment.format(segment.nextValue());
        if (segment.updates < std::numeric_limits<quint64>::max())
            ++segment.updates;
    }

    void operator()(const ZTDateTimeSegment &segment)
    {
        const QDateTime moment = present.addDays(segment.offsetDays)
                                     .addSecs(qint64(segment.offsetHours) * 3600)
                                     .addSecs(qint64(segment.offsetMinutes) * 60);
        if (present.isValid() && moment.isValid())
            text += dateTimeText(segment, moment);
        else
            errors << QCoreApplication::translate("ZTVariantText", "no valid date and time");
    }

    void operator()(ZTTextFileSegment &segment)
    {
        const TextFileRow row = nextTextFileRow(segment, *cursor);
        text += row.text;
        segment.nextRow = row.nextRow;
        if (!row.error.isEmpty())
            errors << row.error;
    }

    const QDateTime present;
    TextFileCursor *cursor = nullptr; ///< of the segment in turn
    QString text;
    QStringList errors;
};

} // namespace

/** Record behind a variant text, shared by copies until one of them changes. */
class ZTVariantTextPrivate : public QSharedData
{
public:
    void update(const QDateTime &moment)
    {
        Updater updater(moment);
        cursors.resize(segments.size());
        for (int i = 0; i < segments.size(); ++i) {
            updater.cursor = &cursors[i];
            std::visit(updater, segments[i]);
        }
        text = updater.text;
        errorText = updater.errors.join(u'\n');
    }

    /** Shows what the next update will make, without moving on. */
    void showNext()
    {
        ZTVariantTextPrivate next(*this);
        next.update(now());
        text = next.text;
        errorText = next.errorText;
    }

    QVector<ZTVariantTextSegment> segments;
    QVector<TextFileCursor> cursors; ///< one a segment from the first update on
    QString text;
    QString errorText;
};

ZTVariantText::ZTVariantText() : m_d(new ZTVariantTextPrivate) {}
ZTVariantText::ZTVariantText(const ZTVariantText &other) = default;
ZTVariantText &ZTVariantText::operator=(const ZTVariantText &other) = default;
ZTVariantText::~ZTVariantText() = default;

void ZTVariantText::update() { m_d->update(now()); }

QString ZTVariantText::getText() const { return m_d->text; }

QVector<ZTVariantTextSegment> ZTVariantText::getSegments() const { return m_d->segments; }

bool ZTVariantText::setSegments(const QVector<ZTVariantTextSegment> &segments)
{
    if (segments.size() > kMaxSegments)
        return false;
    m_d->segments = segments;
    m_d->cursors.clear();
    m_d->showNext();
    return true;
}

void ZTVariantText::restart()
{
    for (ZTVariantTextSegment &segment : m_d->segments) {
        if (auto *counter = std::get_if<ZTCounterSegment>(&segment))
            counter->updates = 0;
        if (auto *rows = std::get_if<ZTTextFileSegment>(&segment))
            rows->nextRow = 0;
    }
    m_d->showNext();
}

QStringList ZTVariantText::preview(int count) const
{
    ZTVariantTextPrivate next(*m_d);
    const QDateTime moment = now();
    QStringList texts;
    for (int i = 0; i < qMin(count, kMaxPreview); ++i) {
        next.update(moment);
        texts << next.text;
    }
    return texts;
}

bool ZTVariantText::isExhausted() const
{
    for (int i = 0; i < m_d->segments.size(); ++i) {
        const ZTVariantTextSegment &segment = m_d->segments[i];
        const auto *counter = std::get_if<ZTCounterSegment>(&segment);
        if (counter != nullptr && counter->isExhausted())
            return true;
        TextFileCursor cursor = m_d->cursors.value(i);
        const auto *rows = std::get_if<ZTTextFileSegment>(&segment);
        if (rows != nullptr && nextTextFileRow(*rows, cursor).last)
            return true;
    }
    return false;
}

QString ZTVariantText::errorText() const { return m_d->errorText; }

bool ZTVariantText::load(QDataStream &stream)
{
    VariantTextRecord record;
    const bool isGood = readVariantText(stream, &record);
    m_d = new ZTVariantTextPrivate;
    if (!isGood)
        return false;
    m_d->text = record.text;
    m_d->segments = record.segments;
    return true;
}

void ZTVariantText::save(QDataStream &stream) const
{
    writeVariantText(stream, {m_d->text, m_d->segments});
}

void ZTVariantText::setClock(const std::function<QDateTime()> &function) { hostClock() = function; }

bool operator==(const ZTVariantText &a, const ZTVariantText &b)
{
    return a.m_d == b.m_d || (a.m_d->text == b.m_d->text && a.m_d->segments == b.m_d->segments);
}

bool operator!=(const ZTVariantText &a, const ZTVariantText &b) { return !(a == b); }

QDataStream &operator<<(QDataStream &stream, const ZTVariantText &text)
{
    text.save(stream);
    return stream;
}

QDataStream &operator>>(QDataStream &stream, ZTVariantText &text)
{
    text.load(stream);
    return stream;
}
