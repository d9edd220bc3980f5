#include <vectorkit/hpgl/HpglScanner_p.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>

namespace vectorkit {

namespace {

constexpr char kEscape = '\x1B';
constexpr char kEndOfText = '\x03';

bool isLetter(char byte) { return (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z'); }

bool isDigit(char byte) { return byte >= '0' && byte <= '9'; }

bool isBlank(char byte) { return static_cast<unsigned char>(byte) <= ' ' && byte != kEscape; }

char upper(char letter) { return static_cast<char>(letter & ~0x20); }

/** Powers of ten that a double holds exactly. */
constexpr double kTens[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                            1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

} // namespace

bool HpglScanner::next()
{
    while (m_at < m_last) {
        const char byte = *m_at;
        if (isLetter(byte) && m_at + 1 < m_last && isLetter(m_at[1])) {
            m_commandAt = m_at;
            m_current = hpglCode(upper(byte), upper(m_at[1]));
            m_at += 2;
            return true;
        }
        if (byte == kEscape)
            skipEscape();
        else if (isBlank(byte) || byte == ';' || byte == ',' || byte == ':' || byte == '!')
            ++m_at;
        else if (byte == '#' || byte == '@') // a comment; a line to the printer's job language
            skipLine();
        else
            skipStray();
    }
    return false;
}

void HpglScanner::skipLine()
{
    while (m_at < m_last && *m_at != '\n' && *m_at != '\r' && *m_at != kEscape)
        ++m_at;
}

void HpglScanner::skipStray()
{
    if (m_strays++ == 0)
        m_firstStrayAt = m_at - m_first;
    ++m_at;
    while (m_at < m_last && *m_at != ';' && *m_at != '\n' && *m_at != '\r' && *m_at != kEscape &&
           !(isLetter(*m_at) && m_at + 1 < m_last && isLetter(m_at[1])))
        ++m_at;
}

void HpglScanner::skipEscape()
{
    ++m_at;
    if (m_at >= m_last)
        return;
    const char kind = *m_at++;
    if (kind == '.') { // device control: a letter, then for most numbers up to a colon
        if (m_at < m_last)
            ++m_at;
        const char *end = m_at;
        while (end < m_last && (isDigit(*end) || *end == ';' || *end == ' '))
            ++end;
        if (end < m_last && *end == ':')
            m_at = end + 1;
    } else if (!isLetter(kind) && kind != '=' && kind != '9') {
        --m_at;
        skipPrinterSequence();
    }
}

/** Such as `ESC % 0 B`, which enters this language, or `ESC * b 80 W`, which 80 bytes follow. */
void HpglScanner::skipPrinterSequence()
{
    const char family = *m_at++;
    const char *number = m_at;
    qint64 value = 0;
    while (m_at < m_last && !(*m_at >= '@' && *m_at <= '^')) {
        if (isLetter(*m_at))
            number = m_at + 1;
        ++m_at;
        if (m_at - number > 64) // no such sequence
            return;
    }
    if (m_at >= m_last)
        return;
    std::from_chars(number, m_at, value);
    const char end = *m_at++;
    if (end == 'W')
        m_at += std::clamp<qint64>(value, 0, m_last - m_at);
    if (family != '%' || (end != 'A' && end != 'B'))
        return;
    m_wrapped = true;
    if (end == 'A') { // back in the printer's language until it comes here again
        while (m_at < m_last && *m_at != kEscape)
            ++m_at;
    }
}

bool HpglScanner::readNumber()
{
    const char *place = m_at;
    const bool isNegative = *place == '-';
    if (isNegative || *place == '+')
        ++place;
    quint64 mantissa = 0;
    const char *digits = place;
    while (place < m_last && isDigit(*place))
        mantissa = mantissa * 10 + static_cast<quint64>(*place++ - '0');
    qint64 count = place - digits;
    qint64 decimals = 0;
    if (place < m_last && *place == '.') {
        const char *point = ++place;
        while (place < m_last && isDigit(*place))
            mantissa = mantissa * 10 + static_cast<quint64>(*place++ - '0');
        decimals = place - point;
        count += decimals;
    }
    const auto isExponent = [&] {
        return place + 1 < m_last && upper(*place) == 'E' &&
               (isDigit(place[1]) ||
                ((place[1] == '-' || place[1] == '+') && place + 2 < m_last && isDigit(place[2])));
    };
    if (count == 0 || (place < m_last && *place == '.'))
        return false;
    double value = 0.0;
    if (count <= 15 && !isExponent()) { // a quotient of exact numbers is rounded once
        value = static_cast<double>(mantissa);
        if (decimals > 0)
            value /= kTens[decimals];
    } else {
        const auto read = std::from_chars(digits, m_last, value);
        if (read.ec != std::errc())
            return false;
        place = read.ptr;
    }
    m_values.push_back(isNegative ? -value : value);
    m_at = place;
    return true;
}

bool HpglScanner::readNumbers()
{
    m_values.clear();
    m_cut = Cut::No;
    bool hadComma = false;
    bool isOnNewLine = false; // since the last number
    while (m_at < m_last) {
        const char byte = *m_at;
        if (isDigit(byte) || byte == '-' || byte == '+' || byte == '.') {
            if (!readNumber())
                break;
            hadComma = isOnNewLine = false;
        } else if (byte == ';') {
            m_hadSemicolon = m_hadSemicolon || !m_values.empty();
            ++m_at;
            return true;
        } else if (isBlank(byte)) {
            isOnNewLine = isOnNewLine || byte == '\n' || byte == '\r';
            ++m_at;
        } else if (byte == ',') {
            if (hadComma) // a number left out
                break;
            hadComma = !m_values.empty();
            ++m_at;
        } else if (byte == kEscape) {
            skipEscape();
        } else if (byte == ':' || byte == '#' || byte == '!' ||
                   (isLetter(byte) && m_at + 1 < m_last && isLetter(m_at[1])) ||
                   // A word of its own: the command ended with its line.
                   (isLetter(byte) && isOnNewLine && !hadComma && !m_values.empty())) {
            return true;
        } else {
            break;
        }
    }
    if (m_at >= m_last) {
        if (hadComma)
            m_cut = Cut::Certain;
        else if (m_hadSemicolon && !m_values.empty() && (isDigit(m_last[-1]) || m_last[-1] == '.'))
            m_cut = Cut::Possible;
        return true;
    }
    while (m_at < m_last && *m_at != ';' && *m_at != '\n' && *m_at != '\r' && *m_at != kEscape)
        ++m_at;
    return false;
}

QByteArray HpglScanner::readLabel(char terminator, bool *isMended)
{
    const auto find = [&](char wanted) {
        return static_cast<const char *>(
            std::memchr(m_at, wanted, static_cast<std::size_t>(m_last - m_at)));
    };
    const char *end = m_at < m_last ? find(terminator) : nullptr;
    *isMended = !end;
    if (!end && terminator != kEndOfText)
        end = m_at < m_last ? find(kEndOfText) : nullptr;
    if (!end) {
        for (const char stop : {'\n', ';'}) {
            end = m_at < m_last && !end ? find(stop) : end;
        }
    }
    if (!end)
        end = m_last;
    QByteArray text(m_at, static_cast<int>(end - m_at));
    if (*isMended && text.endsWith('\r'))
        text.chop(1);
    m_at = end < m_last ? end + 1 : m_last;
    return text;
}

char HpglScanner::readByte()
{
    if (m_at >= m_last || *m_at == ';')
        return '\0';
    return *m_at++;
}

QByteArray HpglScanner::readToSemicolon()
{
    const char *end = std::find(m_at, m_last, ';');
    QByteArray text(m_at, static_cast<int>(end - m_at));
    m_at = end < m_last ? end + 1 : m_last;
    return text;
}

void HpglScanner::stepBack(int bytes)
{
    const char *semicolon = m_at > m_first && m_at[-1] == ';' ? m_at - 1 : m_at;
    m_at = std::max(m_commandAt + 2, semicolon - bytes);
}

void HpglScanner::skipComment()
{
    while (m_at < m_last && (*m_at == ' ' || *m_at == '\t'))
        ++m_at;
    if (m_at < m_last && *m_at == '"') {
        skipQuoted();
        return;
    }
    while (m_at < m_last && *m_at != ';' && *m_at != '\n' && *m_at != '\r' && *m_at != kEscape)
        ++m_at;
}

void HpglScanner::skipQuoted()
{
    bool isQuoted = false;
    while (m_at < m_last && (isQuoted || (*m_at != ';' && !isLetter(*m_at) && *m_at != kEscape))) {
        if (*m_at == '"')
            isQuoted = !isQuoted;
        ++m_at;
    }
}

} // namespace vectorkit
