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
    while (at < last) {
        const char byte = *at;
        if (isLetter(byte) && at + 1 < last && isLetter(at[1])) {
            commandAt = at;
            current = hpglCode(upper(byte), upper(at[1]));
            at += 2;
            return true;
        }
        if (byte == kEscape)
            skipEscape();
        else if (isBlank(byte) || byte == ';' || byte == ',' || byte == ':' || byte == '!')
            ++at;
        else if (byte == '#' || byte == '@') // a comment; a line to the printer's job language
            skipLine();
        else
            skipStray();
    }
    return false;
}

void HpglScanner::skipLine()
{
    while (at < last && *at != '\n' && *at != '\r' && *at != kEscape)
        ++at;
}

void HpglScanner::skipStray()
{
    if (strays++ == 0)
        firstStrayAt = at - first;
    ++at;
    while (at < last && *at != ';' && *at != '\n' && *at != '\r' && *at != kEscape &&
           !(isLetter(*at) && at + 1 < last && isLetter(at[1])))
        ++at;
}

void HpglScanner::skipEscape()
{
    ++at;
    if (at >= last)
        return;
    const char kind = *at++;
    if (kind == '.') { // device control: a letter, then for most numbers up to a colon
        if (at < last)
            ++at;
        const char *end = at;
        while (end < last && (isDigit(*end) || *end == ';' || *end == ' '))
            ++end;
        if (end < last && *end == ':')
            at = end + 1;
    } else if (!isLetter(kind) && kind != '=' && kind != '9') {
        --at;
        skipPrinterSequence();
    }
}

/** Such as `ESC % 0 B`, which enters this language, or `ESC * b 80 W`, which 80 bytes follow. */
void HpglScanner::skipPrinterSequence()
{
    const char family = *at++;
    const char *number = at;
    qint64 value = 0;
    while (at < last && !(*at >= '@' && *at <= '^')) {
        if (isLetter(*at))
            number = at + 1;
        ++at;
        if (at - number > 64) // no such sequence
            return;
    }
    if (at >= last)
        return;
    std::from_chars(number, at, value);
    const char end = *at++;
    if (end == 'W')
        at += std::clamp<qint64>(value, 0, last - at);
    if (family != '%' || (end != 'A' && end != 'B'))
        return;
    wrapped = true;
    if (end == 'A') { // back in the printer's language until it comes here again
        while (at < last && *at != kEscape)
            ++at;
    }
}

bool HpglScanner::readNumber()
{
    const char *place = at;
    const bool isNegative = *place == '-';
    if (isNegative || *place == '+')
        ++place;
    quint64 mantissa = 0;
    const char *digits = place;
    while (place < last && isDigit(*place))
        mantissa = mantissa * 10 + static_cast<quint64>(*place++ - '0');
    qint64 count = place - digits;
    qint64 decimals = 0;
    if (place < last && *place == '.') {
        const char *point = ++place;
        while (place < last && isDigit(*place))
            mantissa = mantissa * 10 + static_cast<quint64>(*place++ - '0');
        decimals = place - point;
        count += decimals;
    }
    const auto isExponent = [&] {
        return place + 1 < last && upper(*place) == 'E' &&
               (isDigit(place[1]) ||
                ((place[1] == '-' || place[1] == '+') && place + 2 < last && isDigit(place[2])));
    };
    if (count == 0 || (place < last && *place == '.'))
        return false;
    double value = 0.0;
    if (count <= 15 && !isExponent()) { // a quotient of exact numbers is rounded once
        value = static_cast<double>(mantissa) / kTens[decimals];
    } else {
        const auto read = std::from_chars(digits, last, value);
        if (read.ec != std::errc())
            return false;
        place = read.ptr;
    }
    values.push_back(isNegative ? -value : value);
    at = place;
    return true;
}

bool HpglScanner::readNumbers()
{
    values.clear();
    bool hadComma = false;
    while (at < last) {
        const char byte = *at;
        if (isDigit(byte) || byte == '-' || byte == '+' || byte == '.') {
            if (!readNumber())
                break;
            hadComma = false;
        } else if (byte == ';') {
            ++at;
            return true;
        } else if (isBlank(byte)) {
            ++at;
        } else if (byte == ',') {
            if (hadComma) // a number left out
                break;
            hadComma = !values.empty();
            ++at;
        } else if (byte == kEscape) {
            skipEscape();
        } else if (byte == ':' || byte == '#' || byte == '!') {
            return true;
        } else if (isLetter(byte) && at + 1 < last && isLetter(at[1])) {
            return true;
        } else {
            break;
        }
    }
    if (at >= last)
        return true;
    while (at < last && *at != ';' && *at != '\n' && *at != '\r' && *at != kEscape)
        ++at;
    return false;
}

QByteArray HpglScanner::readLabel(char terminator, bool *isMended)
{
    const auto find = [&](char wanted) {
        return static_cast<const char *>(
            std::memchr(at, wanted, static_cast<std::size_t>(last - at)));
    };
    const char *end = at < last ? find(terminator) : nullptr;
    *isMended = !end;
    if (!end && terminator != kEndOfText)
        end = at < last ? find(kEndOfText) : nullptr;
    if (!end) {
        for (const char stop : {'\n', ';'}) {
            end = at < last && !end ? find(stop) : end;
        }
    }
    if (!end)
        end = last;
    QByteArray text(at, static_cast<int>(end - at));
    if (*isMended && text.endsWith('\r'))
        text.chop(1);
    at = end < last ? end + 1 : last;
    return text;
}

char HpglScanner::readByte()
{
    if (at >= last || *at == ';')
        return '\0';
    return *at++;
}

QByteArray HpglScanner::readToSemicolon()
{
    const char *end = std::find(at, last, ';');
    const QByteArray text(at, static_cast<int>(end - at));
    at = end < last ? end + 1 : last;
    return text;
}

void HpglScanner::stepBack(int bytes)
{
    const char *semicolon = at > first && at[-1] == ';' ? at - 1 : at;
    at = std::max(commandAt + 2, semicolon - bytes);
}

void HpglScanner::skipQuoted()
{
    bool isQuoted = false;
    while (at < last && (isQuoted || (*at != ';' && !isLetter(*at) && *at != kEscape))) {
        if (*at == '"')
            isQuoted = !isQuoted;
        ++at;
    }
}

} // namespace vectorkit
