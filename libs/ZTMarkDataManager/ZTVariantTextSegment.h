#pragma once

#include <ZTMarkDataManager/ZTMarkDataManagerGlobal.h>

#include <QtCore/QString>

#include <optional>
#include <variant>

/** What a segment shows once its values are used up. */
enum class ZTVariantTextEnd : quint8 {
    Stop = 0, ///< the last value, again and again
    Wrap = 1, ///< its values anew, from the first
};

/** Text that never changes. */
struct ZTFixedTextSegment
{
    QString text; ///< shown as it is; may be empty
};

/** How a counter writes its value. */
enum class ZTCounterRadix : quint8 {
    Decimal = 10,     ///< 0 to 9
    Hexadecimal = 16, ///< 0 to 9, A to F
    Letters = 26,     ///< A to Z, A being zero: A, B, ... Z, BA, BB, ...
};

/**
 * A number that moves on with every update.
 *
 * The first update shows `start`. Every value is shown `repeat` times, then `step` is added. The
 * values end with the last one that does not pass `last`; without `last` they end where 64 bits
 * do. A step of 0, or one that leads away from `last`, leaves `start` as the only value.
 */
struct ZTMARKDATAMANAGER_EXPORT ZTCounterSegment
{
    qint64 start = 1;           ///< the first value
    qint64 step = 1;            ///< may be negative
    std::optional<qint64> last; ///< the value not to be passed; none: the ends of 64 bits
    ZTVariantTextEnd atEnd = ZTVariantTextEnd::Stop; ///< what follows the last value

    /** Least number of characters, the sign included. Limit: read as 0 to 256. */
    qint32 width = 0;

    /**
     * Fills up to `width`, on the left; null stands for the zero of the radix ("0" or "A").
     *
     * Zeros stand between sign and digits, any other character before the sign.
     */
    QChar pad;

    ZTCounterRadix radix = ZTCounterRadix::Decimal; ///< the digits
    quint32 repeat = 1; ///< updates that show each value; 0 is read as 1

    /** Progress: how many updates this counter has seen; 0 in a new one. Never wraps around. */
    quint64 updates = 0;

    /** Value that the next update shows. */
    qint64 nextValue() const;

    /**
     * Makes `value` the one that the next update shows, for all its repetitions.
     *
     * Failure: false, and nothing changes, when the counter never comes to that value.
     */
    bool setNextValue(qint64 value);

    /** Whether the next update can only show the last value once more: stopped and used up. */
    bool isExhausted() const;

    /** A value as this counter writes it. */
    QString format(qint64 value) const;

private:
    quint64 lastIndex() const;
    quint64 nextIndex() const;
};

/** What a time segment shows of its moment. */
enum class ZTDateTimeContent : quint8 {
    Formatted = 0,  ///< by `format`
    WeekNumber = 1, ///< week of ISO 8601, two digits
    WeekYear = 2,   ///< year that this week belongs to, at least four digits
    DayOfYear = 3,  ///< 1 January is 001: the Julian date of packages, three digits
    JulianDay = 4,  ///< days since the start of the Julian period, as astronomers count
};

/**
 * Date and time of an update, moved by an offset.
 *
 * Days are days of the calendar, hours and minutes pass by the clock; they are added in this
 * order. All time segments of a text see the same moment. The moment comes from
 * `ZTVariantText::setClock`.
 */
struct ZTDateTimeSegment
{
    QString format = QStringLiteral("yyyy-MM-dd"); ///< a format string of QDateTime::toString
    ZTDateTimeContent content = ZTDateTimeContent::Formatted; ///< what is shown of the moment
    qint32 offsetDays = 0;    ///< days of the calendar; may be negative
    qint32 offsetHours = 0;   ///< hours; may be negative
    qint32 offsetMinutes = 0; ///< minutes; may be negative

    /**
     * Language of the names of days and months, for example "de_DE".
     *
     * Fixed in the text, so that a drawing marks the same on every machine; empty or unknown: C,
     * which is English.
     */
    QString locale;
};

/**
 * One row of a text or CSV file after the other.
 *
 * Rows are counted from 0 and end with LF, CR LF or CR; a line end at the very end of the file
 * starts no further row. Empty rows count. The file is looked at anew with every update, so rows
 * may be appended or replaced while it is in use: the number of the row decides.
 *
 * CSV: fields stand between separators. A field that starts with a quote ends with the next single
 * one; inside it, separators and line ends are text and two quotes are one. Elsewhere a quote is
 * an ordinary character. Nothing is trimmed.
 *
 * Encoding: a byte order mark of UTF-8 or UTF-16 decides and is no text; else `encoding` does.
 * Bytes that are wrong in it show as replacement characters.
 *
 * Failure: the segment is empty and its row stays the next one; `ZTVariantText::errorText` says
 * why. That holds for a file that is missing, unreadable, no regular file or without rows, and
 * for an encoding or separator that cannot be used. A row without the wanted column and a row
 * that is too long are empty and told, too, but they are used up.
 *
 * Limit: files of at most 256 MiB; rows of at most 16,384 characters, line ends in quotes
 * included. A quote that never ends is cut off at the end of the line that passes this limit.
 * Memory does not grow with the file.
 */
struct ZTTextFileSegment
{
    QString path;           ///< absolute, or relative to the working directory
    qint32 column = -1;     ///< column of a CSV file, from 0; below 0: the whole row as it is
    QChar separator = u','; ///< between the columns; no quote and no line end
    QString encoding;       ///< name of a text codec, for example "GBK"; empty: "UTF-8"
    quint64 firstRow = 0;   ///< rows before this one are headings and never shown
    quint64 nextRow = 0;    ///< progress: row that the next update shows, at least `firstRow`
    ZTVariantTextEnd atEnd = ZTVariantTextEnd::Stop; ///< wrapping goes on with `firstRow`
};

/** One piece of a variant text; the pieces are strung together without anything between them. */
using ZTVariantTextSegment =
    std::variant<ZTFixedTextSegment, ZTCounterSegment, ZTDateTimeSegment, ZTTextFileSegment>;

/** Equal in every setting and in progress. */
ZTMARKDATAMANAGER_EXPORT bool operator==(const ZTFixedTextSegment &a, const ZTFixedTextSegment &b);
ZTMARKDATAMANAGER_EXPORT bool operator!=(const ZTFixedTextSegment &a, const ZTFixedTextSegment &b);
ZTMARKDATAMANAGER_EXPORT bool operator==(const ZTCounterSegment &a, const ZTCounterSegment &b);
ZTMARKDATAMANAGER_EXPORT bool operator!=(const ZTCounterSegment &a, const ZTCounterSegment &b);
ZTMARKDATAMANAGER_EXPORT bool operator==(const ZTDateTimeSegment &a, const ZTDateTimeSegment &b);
ZTMARKDATAMANAGER_EXPORT bool operator!=(const ZTDateTimeSegment &a, const ZTDateTimeSegment &b);
ZTMARKDATAMANAGER_EXPORT bool operator==(const ZTTextFileSegment &a, const ZTTextFileSegment &b);
ZTMARKDATAMANAGER_EXPORT bool operator!=(const ZTTextFileSegment &a, const ZTTextFileSegment &b);
