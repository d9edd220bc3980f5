#include "PlainShxFont.h"

#include <QtCore/QtMath>

#include <algorithm>
#include <cmath>

namespace testsupport {

namespace {

constexpr int kMaxDepth = 1000;

void vertex(ZTAbstractGlyphCallback *callback, double px, double py)
{
    if (std::isfinite(px) && std::isfinite(py))
        callback->glVertex2d(px, py);
}

} // namespace

PlainShxFont::PlainShxFont(const QByteArray &fileImage) : image(fileImage)
{
    const QByteArray keyword = image.mid(11, 7);
    if (keyword == "unifont")
        readUnifont();
    else if (keyword == "bigfont")
        readBigfont();
    else if (keyword.startsWith("shapes"))
        readShapes();
}

void PlainShxFont::readShapes()
{
    if (!has(28, 6))
        return;
    kind = Form::Shapes;
    count = u16(28);
    index = 30;
    ascender = 4;
    if (u16(30) != 0)
        return;
    const qint64 end = 30 + 4 * qint64(count) + u16(32);
    const unsigned descender = has(end - 3, 1) ? static_cast<unsigned>(u8(end - 3)) : 0;
    ascender = has(end - 4, 1) ? static_cast<unsigned>(u8(end - 4)) : 0;
    if (ascender == 0)
        ascender = descender;
}

void PlainShxFont::readBigfont()
{
    if (!has(27, 4) || !has(31 + 4 * u16(29), 8))
        return;
    kind = Form::Bigfont;
    count = u16(27);
    index = 31 + 4 * u16(29);
    const qint64 start = u16(index + 4) | qint64(u16(index + 6)) << 16;
    const qint64 end = start + u16(index + 2);
    ascender = has(end - 4, 1) ? static_cast<unsigned>(u8(end - 4)) : 0;
    if (ascender == 0)
        ascender = has(end - 3, 1) ? static_cast<unsigned>(u8(end - 3)) : 0;
}

void PlainShxFont::readUnifont()
{
    const qint64 nul = image.indexOf('\0', 31);
    if (nul < 31 || !has(nul + 1, 6))
        return;
    kind = Form::Unifont;
    count = u16(25);
    index = nul + 7;
    ascender = static_cast<unsigned>(u8(nul + 1) != 0 ? u8(nul + 1) : u8(nul + 2));
}

PlainShxFont::Definition PlainShxFont::findInUnifont(int code) const
{
    qint64 record = index;
    for (int i = 0; i < count && has(record, 4); ++i) {
        if (u16(record) == code)
            return {record + 4, u16(record + 2)};
        record += 4 + u16(record + 2);
    }
    return {};
}

PlainShxFont::Definition PlainShxFont::find(int code) const
{
    if (kind == Form::Unifont)
        return findInUnifont(code);
    const bool isBig = kind == Form::Bigfont;
    const int recordSize = isBig ? 8 : 4;
    qint64 start = index + 4 * qint64(count);
    for (int i = 0; i < count && kind != Form::None; ++i) {
        const qint64 record = index + recordSize * qint64(i);
        if (!has(record, recordSize))
            break;
        if (isBig)
            start = u16(record + 4) | qint64(u16(record + 6)) << 16;
        if (u16(record) == code)
            return start < size() ? Definition{start, u16(record + 2)} : Definition{};
        if (!isBig)
            start += u16(record + 2);
    }
    return {};
}

std::vector<int> PlainShxFont::codesOf(const char *text) const
{
    const auto isLead = [this](int byte) {
        for (qint64 range = 31; kind == Form::Bigfont && range < index; range += 4)
            if (byte >= u8(range) && byte <= u8(range + 2))
                return true;
        return false;
    };
    std::vector<int> codes;
    while (*text != '\0') {
        int code = static_cast<unsigned char>(*text++);
        if (isLead(code)) {
            code = code << 8 | static_cast<unsigned char>(*text);
            if (*text != '\0')
                ++text;
        }
        codes.push_back(code);
    }
    return codes;
}

double PlainShxFont::draw(Calls *callback, const std::vector<int> &codes, double height)
{
    x = 0;
    y = 0;
    scale = height / ascender;
    stack.clear();
    depth = 0;
    if (callback != nullptr) {
        callback->glBegin();
        callback->glVertex2d(0, 0);
    }
    for (const int code : codes)
        runGlyph(callback, code);
    if (callback != nullptr)
        callback->glEnd();
    return x;
}

void PlainShxFont::runGlyph(Calls *callback, int code)
{
    const Definition found = find(code);
    if (found.offset < 0 || !has(found.offset, 1) || depth >= kMaxDepth)
        return;
    const qint64 callerAt = at;
    const int callerLeft = left;
    at = found.offset;
    left = found.length;
    while (has(at, 1) && u8(at) != 0 && left > 0) {
        ++at;
        --left;
    }
    ++at;
    --left;
    down = true;
    ++depth;
    while (left > 0)
        runCode(callback);
    --depth;
    at = callerAt;
    left = callerLeft;
}

void PlainShxFont::end()
{
    at = size();
    left = 0;
}

void PlainShxFont::restart(Calls *callback, double px, double py) const
{
    callback->glEnd();
    callback->glBegin();
    vertex(callback, px, py);
}

void PlainShxFont::point(Calls *callback) const
{
    if (callback == nullptr)
        return;
    if (down)
        vertex(callback, x, y);
    else
        restart(callback, x, y);
}

bool PlainShxFont::runPair(Calls *callback)
{
    if (!has(at, 2)) {
        end();
        return false;
    }
    const int dx = s8(at);
    const int dy = s8(at + 1);
    at += 2;
    left -= 2;
    x += dx * scale;
    y += dy * scale;
    if (dx == 0 && dy == 0)
        return false;
    point(callback);
    return true;
}

void PlainShxFont::flatten(Calls *callback, const double (&circle)[3], double start, double sweep)
{
    double angle = start;
    restart(callback, circle[0] + circle[2] * std::cos(angle),
            circle[1] + circle[2] * std::sin(angle));
    const double steps = std::ceil(std::abs(sweep) * 12 / M_PI);
    if (!(steps > 0))
        return;
    const double step = sweep / static_cast<int>(steps);
    for (int i = 1; i <= static_cast<int>(steps); ++i) {
        angle += step;
        vertex(callback, circle[0] + circle[2] * std::cos(angle),
               circle[1] + circle[2] * std::sin(angle));
    }
}

void PlainShxFont::runArc(Calls *callback, bool fractional)
{
    const int operands = fractional ? 5 : 2;
    if (!has(at, operands))
        return end();
    const int b = u8(at + operands - 1);
    const double sign = b >= 0x80 ? -1 : 1;
    double start = (b & 0x70) >> 4;
    double span = (b & 7) * sign;
    double radius = u8(at) * scale;
    if (fractional) {
        radius = (u8(at + 2) * 256 + u8(at + 3)) * scale;
        start += sign * u8(at) / 256;
        span = (b & 7) == 0 ? 8 : b & 7;
        if (u8(at + 1) != 0)
            span -= 1;
        span = (span + (u8(at + 1) - u8(at)) / 256.0) * sign;
    }
    at += operands;
    left -= operands;
    const double a0 = start * M_PI / 4;
    const double a1 = (start + span) * M_PI / 4;
    const double circle[3] = {x - radius * std::cos(a0), y - radius * std::sin(a0), radius};
    x = circle[0] + radius * std::cos(a1);
    y = circle[1] + radius * std::sin(a1);
    if (!fractional && !(span < 0 || span > 0))
        span = 8;
    if (callback != nullptr)
        flatten(callback, circle, start * 45 / 180 * M_PI, span * 45 / 180 * M_PI);
}

bool PlainShxFont::runBulge(Calls *callback)
{
    const bool last = has(at, 2) && s8(at) == 0 && s8(at + 1) == 0;
    if (!has(at, last ? 2 : 3)) {
        end();
        return false;
    }
    at += 2;
    left -= 2;
    if (last)
        return false;
    const double x0 = x;
    const double y0 = y;
    const double sx = s8(at - 2) * scale;
    const double sy = s8(at - 1) * scale;
    x += sx;
    y += sy;
    const int bulge = s8(at++);
    --left;
    if (callback == nullptr)
        return true;
    const double half = std::sqrt(sx * sx + sy * sy) / 2;
    const double h = bulge * half / 127.0;
    const double dx = x - x0;
    const double dy = y - y0;
    const bool refused = h == 0.0 || (std::abs(dx) <= 0.001 && std::abs(dy) == 0.001);
    if (refused) {
        vertex(callback, x, y);
        return true;
    }
    const double chord = std::sqrt(dx * dx + dy * dy);
    const double a = std::abs(h);
    const double r = a / 2 + chord * chord / (8 * a);
    const double t = (h > 0 ? h - r : h + r) / chord;
    const double circle[3] = {(x0 + x) / 2 + dy * t, (y0 + y) / 2 - dx * t, r};
    const float start =
        std::atan2(static_cast<float>(y0 - circle[1]), static_cast<float>(x0 - circle[0]));
    const double q = half / r;
    const float sweep = 2 * static_cast<float>(std::asin(q > 1 ? 1 : q));
    flatten(callback, circle, double(start), double(bulge < 0 ? -sweep : sweep));
    return true;
}

void PlainShxFont::runCode(Calls *callback)
{
    static const double step[16][2] = {
        {1, 0},  {1, 0.5},   {1, 1},   {0.5, 1},   {0, 1},  {-0.5, 1}, {-1, 1}, {-1, 0.5},
        {-1, 0}, {-1, -0.5}, {-1, -1}, {-0.5, -1}, {0, -1}, {0.5, -1}, {1, -1}, {1, -0.5}};
    if (!has(at, 1))
        return end();
    const int code = u8(at++);
    --left;
    if (code >= 0x10) {
        x += step[code & 15][0] * (code >> 4) * scale;
        y += step[code & 15][1] * (code >> 4) * scale;
        point(callback);
        return;
    }
    const double saved[2] = {x, y};
    const bool savedDown = down;
    const int operands = code == 3 || code == 4 || (code == 7 && kind != Form::Unifont) ? 1
                         : code == 7                                                    ? 2
                                                                                        : 0;
    if (!has(at, operands))
        return end();
    const int operand = operands == 0 ? 0 : operands == 1 ? u8(at) : u16(at);
    at += operands;
    left -= operands;
    switch (code) {
    case 1:
        down = true;
        break;
    case 2:
        down = false;
        break;
    case 3:
        scale /= operand;
        break;
    case 4:
        scale *= operand;
        break;
    case 5:
        stack.push_back(x);
        stack.push_back(y);
        break;
    case 6:
        if (stack.empty())
            break;
        y = stack.back();
        stack.pop_back();
        x = stack.back();
        stack.pop_back();
        if (callback != nullptr)
            restart(callback, x, y);
        break;
    case 7:
        runGlyph(callback, operand);
        break;
    case 8:
        runPair(callback);
        break;
    case 9:
        while (runPair(callback)) {
        }
        break;
    case 10:
        runArc(callback, false);
        break;
    case 11:
        runArc(callback, true);
        break;
    case 12:
        runBulge(callback);
        break;
    case 13:
        while (runBulge(callback)) {
        }
        break;
    case 14:
        runCode(nullptr);
        x = saved[0];
        y = saved[1];
        down = savedDown;
        break;
    default:
        break;
    }
}

} // namespace testsupport
