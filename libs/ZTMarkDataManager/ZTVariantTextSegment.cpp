#include <ZTMarkDataManager/ZTVariantTextSegment.h>

#include <limits>
#include <tuple>

namespace {

constexpr int kMaxWidth = 256;

// Counters do their sums in unsigned numbers: these wrap where signed ones must not.
quint64 magnitude(qint64 value)
{
    const auto bits = static_cast<quint64>(value);
    return value < 0 ? 0 - bits : bits;
}

QString letters(quint64 value)
{
    QString text;
    do {
        text.prepend(QChar(u'A' + static_cast<ushort>(value % 26)));
        value /= 26;
    } while (value != 0);
    return text;
}

QString digits(quint64 value, ZTCounterRadix radix)
{
    switch (radix) {
    case ZTCounterRadix::Letters:
        return letters(value);
    case ZTCounterRadix::Hexadecimal:
        return QString::number(value, 16).toUpper();
    case ZTCounterRadix::Decimal:
        break;
    }
    return QString::number(value);
}

QChar zeroOf(ZTCounterRadix radix) { return radix == ZTCounterRadix::Letters ? u'A' : u'0'; }

auto fields(const ZTCounterSegment &s)
{
    return std::tie(s.start, s.step, s.last, s.atEnd, s.width, s.pad, s.radix, s.repeat, s.updates);
}

auto fields(const ZTDateTimeSegment &s)
{
    return std::tie(s.format, s.content, s.offsetDays, s.offsetHours, s.offsetMinutes, s.locale);
}

auto fields(const ZTTextFileSegment &s)
{
    return std::tie(s.path, s.column, s.separator, s.encoding, s.firstRow, s.nextRow, s.atEnd);
}

} // namespace

quint64 ZTCounterSegment::lastIndex() const
{
    using Limits = std::numeric_limits<qint64>;
    const quint64 stride = magnitude(step);
    if (stride == 0)
        return 0;
    const qint64 bound = last.value_or(step > 0 ? Limits::max() : Limits::min());
    if (step > 0 ? bound < start : bound > start)
        return 0;
    const quint64 way = static_cast<quint64>(bound) - static_cast<quint64>(start);
    return (step > 0 ? way : 0 - way) / stride;
}

quint64 ZTCounterSegment::nextIndex() const
{
    const quint64 index = updates / qMax(repeat, 1U);
    const quint64 end = lastIndex();
    if (index <= end)
        return index;
    return atEnd == ZTVariantTextEnd::Wrap ? index % (end + 1) : end;
}

qint64 ZTCounterSegment::nextValue() const
{
    const quint64 value = static_cast<quint64>(start) + nextIndex() * static_cast<quint64>(step);
    return static_cast<qint64>(value);
}

bool ZTCounterSegment::setNextValue(qint64 value)
{
    const quint64 way = static_cast<quint64>(value) - static_cast<quint64>(start);
    const bool forward = step >= 0 ? value >= start : value <= start;
    const quint64 stride = qMax<quint64>(magnitude(step), 1);
    const quint64 distance = step >= 0 ? way : 0 - way;
    const quint64 index = distance / stride;
    if (!forward || distance % stride != 0 || index > lastIndex())
        return false;
    const quint64 times = qMax(repeat, 1U);
    if (index > std::numeric_limits<quint64>::max() / times)
        return false;
    updates = index * times;
    return true;
}

bool ZTCounterSegment::isExhausted() const
{
    const bool ends = step != 0 && atEnd == ZTVariantTextEnd::Stop;
    return ends && updates / qMax(repeat, 1U) > lastIndex();
}

QString ZTCounterSegment::format(qint64 value) const
{
    const QString sign = value < 0 ? QStringLiteral("-") : QString();
    const QString number = digits(magnitude(value), radix);
    const int characters = qBound(0, width, kMaxWidth);
    const QChar zero = zeroOf(radix);
    if (pad.isNull() || pad == zero)
        return sign + number.rightJustified(characters - sign.size(), zero);
    return (sign + number).rightJustified(characters, pad);
}

bool operator==(const ZTFixedTextSegment &a, const ZTFixedTextSegment &b)
{
    return a.text == b.text;
}

bool operator!=(const ZTFixedTextSegment &a, const ZTFixedTextSegment &b) { return !(a == b); }

bool operator==(const ZTCounterSegment &a, const ZTCounterSegment &b)
{
    return fields(a) == fields(b);
}

bool operator!=(const ZTCounterSegment &a, const ZTCounterSegment &b) { return !(a == b); }

bool operator==(const ZTDateTimeSegment &a, const ZTDateTimeSegment &b)
{
    return fields(a) == fields(b);
}

bool operator!=(const ZTDateTimeSegment &a, const ZTDateTimeSegment &b) { return !(a == b); }

bool operator==(const ZTTextFileSegment &a, const ZTTextFileSegment &b)
{
    return fields(a) == fields(b);
}

bool operator!=(const ZTTextFileSegment &a, const ZTTextFileSegment &b) { return !(a == b); }
