#include <ZTDrawEngineLib/shapes/PltLine_p.h>

#include <QtCore/QByteArray>
#include <QtCore/QtAlgorithms>
#include <QtCore/QtEndian>

#include <cstring>

namespace {

const char *endOfLine(const char *begin, const char *end)
{
    const void *lineFeed = std::memchr(begin, '\n', static_cast<std::size_t>(end - begin));
    return lineFeed == nullptr ? end : static_cast<const char *>(lineFeed) + 1;
}

/** The value of eight decimal digits, each a byte from 0 to 9, the first in the lowest byte. */
quint32 valueOfDigits(quint64 digits)
{
    const quint64 pairs =
        (digits & 0x00ff00ff00ff00ffU) * 10 + ((digits >> 8) & 0x00ff00ff00ff00ffU);
    const quint64 fours =
        (pairs & 0x0000ffff0000ffffU) * 100 + ((pairs >> 16) & 0x0000ffff0000ffffU);
    return static_cast<quint32>((fours & 0xffffffffU) * 10000 + (fours >> 32));
}

/**
 * Reads the digits at `at`, one to seven of them, and returns how many; 0 for none or more.
 *
 * Eight bytes at once and without a branch a digit: how long a coordinate is cannot be foreseen.
 */
int readDigits(const char *at, quint32 &value)
{
    const quint64 digits = qFromLittleEndian<quint64>(at) ^ 0x3030303030303030U;
    // A byte above 9 gets its high bit. What carries on from it only touches bytes behind it.
    const quint64 others = ((digits + 0x7676767676767676U) | digits) & 0x8080808080808080U;
    const int count = static_cast<int>(qCountTrailingZeroBits(others) / 8);
    if (count == 0 || count == 8)
        return 0;
    value = valueOfDigits(digits << (64 - 8 * count));
    return count;
}

/**
 * Reads a whole number of at most seven digits, which always fits, and returns where it ends; null
 * for anything else, also where the bytes end within a number's reach.
 */
const char *readPlainNumber(const char *at, const char *end, qint32 &number)
{
    constexpr int kReach = 9; // a sign and eight bytes
    if (end - at < kReach)
        return nullptr;
    const int negative = *at == '-' ? 1 : 0;
    quint32 magnitude = 0;
    const int count = readDigits(at + negative, magnitude);
    number = (static_cast<qint32>(magnitude) ^ -negative) + negative;
    return count == 0 ? nullptr : at + negative + count;
}

/** Where the next line begins, when nothing but a line end follows; null otherwise. */
const char *skipLineEnd(const char *at, const char *end)
{
    if (at != end && *at == '\r')
        ++at;
    if (at == end)
        return at;
    return *at == '\n' ? at + 1 : nullptr;
}

/**
 * Reads the form that nearly every line has, "PU10 20;" or "PD10 20;" with or without the ";".
 * False for any other line, which may still hold a point.
 */
bool readPlainPenLine(const char *begin, const char *lineEnd, const char *end, PltLine &line)
{
    const char *at = readPlainNumber(begin + 2, end, line.x);
    if (at == nullptr || at == end || *at != ' ')
        return false;
    at = readPlainNumber(at + 1, end, line.y);
    if (at == nullptr)
        return false;
    if (at != end && *at == ';')
        ++at;
    line.hasPoint = true;
    return skipLineEnd(at, end) == lineEnd;
}

/** Reads one coordinate as `QString::toInt` does: white space around it is fine, 0 if it fails. */
qint32 readNumber(const QStringRef &text, PltFlaw &flaw)
{
    bool ok = false;
    const int number = text.toInt(&ok);
    if (!ok)
        flaw = PltFlaw::NoNumber;
    return number;
}

/** Reads the text between pen command and ";". */
void readPoint(const QStringRef &text, PltLine &line)
{
    const int firstBlank = text.indexOf(QLatin1Char(' '));
    if (firstBlank < 0) {
        if (!text.trimmed().isEmpty())
            line.flaw = PltFlaw::NoPoint;
        return;
    }
    const int secondBlank = text.indexOf(QLatin1Char(' '), firstBlank + 1);
    const int yEnd = secondBlank < 0 ? text.size() : secondBlank;
    line.hasPoint = true;
    if (!text.mid(yEnd).trimmed().isEmpty())
        line.flaw = PltFlaw::MoreParts;
    line.x = readNumber(text.left(firstBlank), line.flaw);
    line.y = readNumber(text.mid(firstBlank + 1, yEnd - firstBlank - 1), line.flaw);
}

PltLine readPenLine(PltLineKind kind, const QString &text)
{
    PltLine line;
    line.kind = kind;
    const int semicolon = text.indexOf(QLatin1Char(';'));
    const int pointEnd = semicolon < 0 ? text.size() : semicolon;
    if (semicolon >= 0 && !text.midRef(semicolon + 1).trimmed().isEmpty())
        line.flaw = PltFlaw::RestOfLine;
    readPoint(text.midRef(2, pointEnd - 2), line);
    return line;
}

PltLineKind kindOf(const char *begin, const char *end)
{
    if (end - begin < 2 || begin[0] != 'P')
        return PltLineKind::Skipped;
    if (begin[1] == 'U')
        return PltLineKind::PenUp;
    return begin[1] == 'D' ? PltLineKind::PenDown : PltLineKind::Skipped;
}

/** A line may begin with a byte order mark, which is not part of its text. */
const char *skipByteOrderMark(const char *begin, const char *end)
{
    return end - begin >= 3 && std::memcmp(begin, "\xef\xbb\xbf", 3) == 0 ? begin + 3 : begin;
}

} // namespace

const char *readPltLine(const char *begin, const char *end, PltLine &line)
{
    line = PltLine();
    line.kind = kindOf(begin, end);
    // Looked for and not taken from where the numbers end: so the next line can be begun with
    // before the last digit of this one is known.
    const char *const lineEnd = endOfLine(begin, end);
    if (line.kind != PltLineKind::Skipped && readPlainPenLine(begin, lineEnd, end, line))
        return lineEnd;
    const PltLineKind kind = kindOf(skipByteOrderMark(begin, lineEnd), lineEnd);
    line =
        kind == PltLineKind::Skipped ? PltLine() : readPenLine(kind, pltLineText(begin, lineEnd));
    return lineEnd;
}

QString pltLineText(const char *begin, const char *end)
{
    return QString::fromUtf8(QByteArray::fromRawData(begin, static_cast<int>(end - begin)));
}
