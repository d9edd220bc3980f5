#include <ZTMarkDataManager/VariantTextStream_p.h>

#include <ZTMarkDataManager/ZTVariantText.h>

#include <QtCore/QDataStream>

#include <algorithm>
#include <initializer_list>

namespace {

constexpr quint16 kVersion = 1;

// The alternatives of ZTVariantTextSegment by number; the streams of users hold these.
enum class Kind : quint8 {
    FixedText = 0,
    Counter = 1,
    DateTime = 2,
    TextFile = 3,
};

/** Makes the content independent of how the stream around it is set up. */
void prepare(QDataStream &content)
{
    content.setVersion(QDataStream::Qt_5_15);
    content.setByteOrder(QDataStream::BigEndian);
}

/** Reads an enumeration; false when the number names none of its values. */
template <class Enum>
bool readEnum(QDataStream &stream, Enum *value, std::initializer_list<Enum> values)
{
    quint8 number = 0;
    stream >> number;
    *value = static_cast<Enum>(number);
    return std::find(values.begin(), values.end(), *value) != values.end();
}

bool readEnd(QDataStream &stream, ZTVariantTextEnd *end)
{
    return readEnum(stream, end, {ZTVariantTextEnd::Stop, ZTVariantTextEnd::Wrap});
}

void write(QDataStream &stream, const ZTFixedTextSegment &s)
{
    stream << static_cast<quint8>(Kind::FixedText) << s.text;
}

bool read(QDataStream &stream, ZTFixedTextSegment &s)
{
    stream >> s.text;
    return true;
}

void write(QDataStream &stream, const ZTCounterSegment &s)
{
    stream << static_cast<quint8>(Kind::Counter) << s.start << s.step << s.last.has_value()
           << s.last.value_or(0) << static_cast<quint8>(s.atEnd) << s.width << s.pad
           << static_cast<quint8>(s.radix) << s.repeat << s.updates;
}

bool read(QDataStream &stream, ZTCounterSegment &s)
{
    bool hasLast = false;
    qint64 last = 0;
    stream >> s.start >> s.step >> hasLast >> last;
    if (hasLast)
        s.last = last;
    const bool hasEnd = readEnd(stream, &s.atEnd);
    stream >> s.width >> s.pad;
    const bool hasRadix =
        readEnum(stream, &s.radix,
                 {ZTCounterRadix::Decimal, ZTCounterRadix::Hexadecimal, ZTCounterRadix::Letters});
    stream >> s.repeat >> s.updates;
    return hasEnd && hasRadix;
}

void write(QDataStream &stream, const ZTDateTimeSegment &s)
{
    stream << static_cast<quint8>(Kind::DateTime) << s.format << static_cast<quint8>(s.content)
           << s.offsetDays << s.offsetHours << s.offsetMinutes << s.locale;
}

bool read(QDataStream &stream, ZTDateTimeSegment &s)
{
    using Content = ZTDateTimeContent;
    stream >> s.format;
    const bool hasContent = readEnum(stream, &s.content,
                                     {Content::Formatted, Content::WeekNumber, Content::WeekYear,
                                      Content::DayOfYear, Content::JulianDay});
    stream >> s.offsetDays >> s.offsetHours >> s.offsetMinutes >> s.locale;
    return hasContent;
}

void write(QDataStream &stream, const ZTTextFileSegment &s)
{
    stream << static_cast<quint8>(Kind::TextFile) << s.path << s.column << s.separator << s.encoding
           << s.firstRow << s.nextRow << static_cast<quint8>(s.atEnd);
}

bool read(QDataStream &stream, ZTTextFileSegment &s)
{
    stream >> s.path >> s.column >> s.separator >> s.encoding >> s.firstRow >> s.nextRow;
    return readEnd(stream, &s.atEnd);
}

template <class Segment>
bool readAs(QDataStream &stream, ZTVariantTextSegment *segment)
{
    return read(stream, segment->emplace<Segment>());
}

bool readSegment(QDataStream &stream, ZTVariantTextSegment *segment)
{
    quint8 kind = 0;
    stream >> kind;
    switch (static_cast<Kind>(kind)) {
    case Kind::FixedText:
        return readAs<ZTFixedTextSegment>(stream, segment);
    case Kind::Counter:
        return readAs<ZTCounterSegment>(stream, segment);
    case Kind::DateTime:
        return readAs<ZTDateTimeSegment>(stream, segment);
    case Kind::TextFile:
        return readAs<ZTTextFileSegment>(stream, segment);
    }
    return false;
}

bool readContent(const QByteArray &bytes, VariantTextRecord *record)
{
    QDataStream content(bytes);
    prepare(content);
    quint32 count = 0;
    content >> record->text >> count;
    if (count > static_cast<quint32>(ZTVariantText::kMaxSegments))
        return false;
    for (quint32 i = 0; i < count; ++i) {
        ZTVariantTextSegment segment;
        if (!readSegment(content, &segment) || content.status() != QDataStream::Ok)
            return false;
        record->segments.append(segment);
    }
    return content.status() == QDataStream::Ok && content.atEnd();
}

} // namespace

void writeVariantText(QDataStream &stream, const VariantTextRecord &record)
{
    QByteArray bytes;
    QDataStream content(&bytes, QIODevice::WriteOnly);
    prepare(content);
    content << record.text << static_cast<quint32>(record.segments.size());
    for (const ZTVariantTextSegment &segment : record.segments)
        std::visit([&content](const auto &s) { write(content, s); }, segment);
    stream << kVersion << bytes;
}

bool readVariantText(QDataStream &stream, VariantTextRecord *record)
{
    quint16 version = 0;
    QByteArray bytes;
    stream >> version >> bytes;
    if (version == kVersion && readContent(bytes, record))
        return true;
    stream.setStatus(QDataStream::ReadCorruptData);
    return false;
}
