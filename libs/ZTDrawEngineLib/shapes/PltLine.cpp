#include <ZTDrawEngineLib/shapes/PltLine_p.h>

#include <QtCore/QByteArray>

#include <cstring>

namespace {

const char *endOfLine(const char *begin, const char *end)
{
    const void *lineFeed = std::memchr(begin, '\n', static_cast<std::size_t>(end - begin));
    return lineFeed == nullptr ? end : static_cast<const char *>(lineFeed) + 1;
}

/**
 * Reads a whole number of at most nine digits, which always fits, and returns where it ends; null
 * for anything else.
 */
const char *readPlainNumber(const char *at, const char *end, qint32 &number)
{
    const bool negative = at != end && *at == '-';
    const char *const digits = negative ? at + 1 : at;
    quint32 magnitude = 0;
    for (at = digits; at != end; ++at) {
        const auto digit = static_cast<quint32>(static_cast<unsigned char>(*at)) - '0';
        if (digit > 9)
            break;
        magnitude = magnitude * 10 + digit;
    }
    if (at == digits || at - digits > 9)
        return nullptr;
    number = negative ? -static_cast<qint32>(magnitude) : static_cast<qint32>(magnitude);
    return at;
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
 * Reads the form that nearly every line has, "PU10 20;" or "PD10 20;" with or without the ";", and
 * returns where the next line begins; null for any other line, which may still hold a point.
 */
const char *readPlainPenLine(const char *begin, const char *end, PltLine &line)
{
    const char *at = readPlainNumber(begin + 2, end, line.x);
    if (at == nullptr || at == end || *at != ' ')
        return nullptr;
    at = readPlainNumber(at + 1, end, line.y);
    if (at == nullptr)
        return nullptr;
    if (at != end && *at == ';')
        ++at;
    line.hasPoint = true;
    return skipLineEnd(at, end);
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
    if (line.kind != PltLineKind::Skipped) {
        if (const char *next = readPlainPenLine(begin, end, line))
            return next;
    }
    const char *const lineEnd = endOfLine(begin, end);
    const PltLineKind kind = kindOf(skipByteOrderMark(begin, lineEnd), lineEnd);
    line =
        kind == PltLineKind::Skipped ? PltLine() : readPenLine(kind, pltLineText(begin, lineEnd));
    return lineEnd;
}

QString pltLineText(const char *begin, const char *end)
{
    return QString::fromUtf8(QByteArray::fromRawData(begin, static_cast<int>(end - begin)));
}
