#include <ZTDrawEngineLib/common/ZTCurveTolerance.h>
#include <ZTDrawEngineLib/shx/ZTShxFontFile_p.h>
#include <ZTDrawEngineLib/shx/ZTShxParser.h>

#include <QtCore/QPointF>
#include <QtCore/QtMath>

#include <cmath>
#include <cstring>

// The glyph interpreter: code bytes to pen moves, and pen moves to strokes.

namespace {

constexpr int kMaxSubshapeDepth = 1000;
constexpr std::size_t kMaxStackedNumbers = 8000000; // 4,000,000 positions

struct Vector
{
    double dx;
    double dy;
};

// Counter-clockwise from east, not normalised: a diagonal step is longer than a straight one.
constexpr Vector kDirections[16] = {{1, 0},  {1, 0.5},  {1, 1},  {0.5, 1},   {0, 1},   {-0.5, 1},
                                    {-1, 1}, {-1, 0.5}, {-1, 0}, {-1, -0.5}, {-1, -1}, {-0.5, -1},
                                    {0, -1}, {0.5, -1}, {1, -1}, {1, -0.5}};

/** The vector of each code: length in the high four bits, direction in the low four. */
struct VectorTable
{
    Vector ofCode[256] = {};

    constexpr VectorTable()
    {
        for (int code = 0; code < 256; ++code) {
            const Vector &direction = kDirections[code & 0xF];
            ofCode[code] = {direction.dx * (code >> 4), direction.dy * (code >> 4)};
        }
    }
};
constexpr VectorTable kVectors;

constexpr unsigned char kFirstVectorCode = 0x10;

int signedByte(unsigned char byte) { return static_cast<signed char>(byte); }

/** Takes one byte that is known to be there. */
unsigned char take(const unsigned char *&bytes, int &length)
{
    --length;
    return *bytes++;
}

/** The displacement in the two bytes at `at`. */
Vector pairAt(const unsigned char *at)
{
    return {static_cast<double>(signedByte(at[0])), static_cast<double>(signedByte(at[1]))};
}

/** Position and scale of the interpreter while nothing but the pen moves. */
struct Pen
{
    double x;
    double y;
    double scale;

    void move(const Vector &vector)
    {
        x += vector.dx * scale;
        y += vector.dy * scale;
    }

    /** Moves by pairs up to their terminator; where they end, or null if not before `end`. */
    const unsigned char *moveByPairs(const unsigned char *pairs, const unsigned char *end)
    {
        const Pen before = *this;
        for (; end - pairs >= 2; pairs += 2) {
            move(pairAt(pairs));
            if ((pairs[0] | pairs[1]) == 0)
                return pairs + 2;
        }
        *this = before;
        return nullptr;
    }
};

/** The octants byte of an arc: its sign (-1 is clockwise), the octant it starts in, how many. */
struct Octants
{
    int sign;
    int start;
    int span;

    explicit Octants(unsigned char byte)
        : sign(signedByte(byte) < 0 ? -1 : 1), start((byte & 0x70) >> 4), span(byte & 7)
    {
    }
};

double radiansOfOctants(double octants) { return octants * 45 / 180 * M_PI; }

} // namespace

struct ZTShxParser::Circle
{
    double x = 0.0;
    double y = 0.0;
    double radius = 0.0;
};

/** Gives the callback a point, unless a number of it is not finite. */
void ZTShxParser::emitVertex(ZTAbstractGlyphCallback *cb, double x, double y)
{
    if (std::isfinite(x) && std::isfinite(y))
        cb->glVertex2d(x, y);
}

/** Ends the stroke and starts another at a point. */
void ZTShxParser::restartStroke(ZTAbstractGlyphCallback *cb, double x, double y)
{
    cb->glEnd();
    cb->glBegin();
    emitVertex(cb, x, y);
}

void ZTShxParser::endDefinition(const unsigned char *&bytes, int &length) const
{
    bytes = m_bufferEnd;
    length = 0;
}

void ZTShxParser::parseGlyph(ZTAbstractGlyphCallback *cb, int code)
{
    if (m_index == nullptr || m_depth >= kMaxSubshapeDepth)
        return;
    const ZTShxIndex index{m_type, static_cast<std::size_t>(m_index - m_buffer), m_glyphCount};
    const ZTShxGlyph &glyph = m_file->glyphs(index).find(code);
    if (!glyph.isDrawable())
        return;
    ++m_depth;
    parseDefinition(cb, m_buffer + glyph.offset, glyph.length);
    --m_depth;
}

void ZTShxParser::parseDefinition(ZTAbstractGlyphCallback *cb, const unsigned char *start,
                                  int length)
{
    // A name that does not end inside the definition leaves no codes.
    const auto room = static_cast<std::size_t>(qMin<qint64>(length, m_bufferEnd - start));
    const void *nul = room > 0 ? std::memchr(start, 0, room) : nullptr;
    const auto *codes = nul ? static_cast<const unsigned char *>(nul) + 1 : start + room;
    const int nameBytes = static_cast<int>(codes - start);
    m_stepsLeft -= nameBytes;
    parseDefBytes(cb, codes, nul ? length - nameBytes : 0);
}

void ZTShxParser::parseDefBytes(ZTAbstractGlyphCallback *cb, const unsigned char *bytes, int length)
{
    m_penDown = true;
    while (length > 0) {
        if (cb == nullptr)
            measureMoves(bytes, length);
        if (length > 0)
            parseOneCode(cb, bytes, length);
    }
}

void ZTShxParser::parseOneCode(ZTAbstractGlyphCallback *cb, const unsigned char *&bytes,
                               int &length)
{
    if (!has(bytes, 1) || --m_stepsLeft < 0) {
        endDefinition(bytes, length);
        return;
    }
    const unsigned char code = take(bytes, length);
    switch (code) {
    case 0x0: // Kept: no end mark; what follows still runs
    case 0xF:
        break;
    case 0x1:
    case 0x2:
        m_penDown = code == 0x1;
        break;
    case 0x3:
    case 0x4:
        caseCodes3And4(code, bytes, length);
        break;
    case 0x5:
        caseCode5();
        break;
    case 0x6:
        caseCode6(cb);
        break;
    case 0x7:
        caseCode7(cb, bytes, length);
        break;
    case 0x8:
        caseCode8(cb, bytes, length);
        break;
    case 0x9:
        while (m_stepsLeft > 0 && caseCode8(cb, bytes, length))
            --m_stepsLeft;
        break;
    case 0xA:
        caseCodeA(cb, bytes, length);
        break;
    case 0xB:
        caseCodeB(cb, bytes, length);
        break;
    case 0xC:
        caseCodeC(cb, bytes, length);
        break;
    case 0xD:
        while (m_stepsLeft > 0 && caseCodeC(cb, bytes, length))
            --m_stepsLeft;
        break;
    case 0xE:
        caseCodeE(bytes, length);
        break;
    default:
        parseLenDirByte(cb, code);
        break;
    }
}

void ZTShxParser::caseCodes3And4(unsigned char code, const unsigned char *&bytes, int &length)
{
    if (!has(bytes, 1))
        return endDefinition(bytes, length);
    const double operand = take(bytes, length);
    if (code == 0x4)
        m_scale *= operand;
    else
        m_scale /= operand; // 0 makes the scale infinite; points that come of it are left out
}

void ZTShxParser::caseCode5()
{
    if (m_posStack.size() >= kMaxStackedNumbers)
        m_posStack.erase(m_posStack.begin(), m_posStack.begin() + kMaxStackedNumbers / 2);
    m_posStack.push_back(m_x);
    m_posStack.push_back(m_y);
}

void ZTShxParser::caseCode6(ZTAbstractGlyphCallback *cb)
{
    if (m_posStack.empty())
        return;
    m_y = m_posStack.back();
    m_posStack.pop_back();
    m_x = m_posStack.back();
    m_posStack.pop_back();
    if (cb != nullptr)
        restartStroke(cb, m_x, m_y);
}

void ZTShxParser::caseCode7(ZTAbstractGlyphCallback *cb, const unsigned char *&bytes, int &length)
{
    const int operandBytes = m_type == SHX_TYPE::SHX_UNIFONT ? 2 : 1;
    if (!has(bytes, operandBytes))
        return endDefinition(bytes, length);
    int code = take(bytes, length);
    if (operandBytes == 2)
        code |= take(bytes, length) << 8;
    parseGlyph(cb, code);
}

bool ZTShxParser::caseCode8(ZTAbstractGlyphCallback *cb, const unsigned char *&bytes, int &length)
{
    if (!has(bytes, 2)) {
        endDefinition(bytes, length);
        return false;
    }
    const int dx = signedByte(take(bytes, length));
    const int dy = signedByte(take(bytes, length));
    m_x += dx * m_scale;
    m_y += dy * m_scale;
    if (dx == 0 && dy == 0)
        return false;
    drawLine(cb);
    return true;
}

void ZTShxParser::parseLenDirByte(ZTAbstractGlyphCallback *cb, unsigned char code)
{
    m_x += kVectors.ofCode[code].dx * m_scale;
    m_y += kVectors.ofCode[code].dy * m_scale;
    drawLine(cb);
}

/**
 * Runs the codes that stand next as long as they only move the pen or raise and lower it.
 *
 * Does what `parseOneCode` does without a callback, code by code, with the pen in registers:
 * measuring text is mostly this. Stops before any other code, and where bounds come near.
 */
void ZTShxParser::measureMoves(const unsigned char *&bytes, int &length)
{
    constexpr int kMostOperands = 2;
    const unsigned char *next = bytes;
    const qint64 room = qMax<qint64>(0, qMin<qint64>(m_bufferEnd - next, m_stepsLeft));
    const unsigned char *const roomEnd = next + room;
    const unsigned char *const end = next + qMin<qint64>(length, room - kMostOperands);
    Pen pen{m_x, m_y, m_scale};
    while (next < end) {
        const unsigned char code = *next;
        if (code >= kFirstVectorCode) {
            pen.move(kVectors.ofCode[code]);
            ++next;
        } else if (code == 0x1 || code == 0x2) {
            m_penDown = code == 0x1;
            ++next;
        } else if (code == 0x8) {
            pen.move(pairAt(next + 1));
            next += 3;
        } else if (code == 0x9) {
            const unsigned char *pairsEnd = pen.moveByPairs(next + 1, roomEnd);
            if (pairsEnd == nullptr)
                break;
            next = pairsEnd;
        } else {
            break;
        }
    }
    m_x = pen.x;
    m_y = pen.y;
    m_stepsLeft -= next - bytes;
    length -= static_cast<int>(next - bytes);
    bytes = next;
}

void ZTShxParser::drawLine(ZTAbstractGlyphCallback *cb) const
{
    if (cb == nullptr)
        return;
    if (m_penDown)
        emitVertex(cb, m_x, m_y);
    else
        restartStroke(cb, m_x, m_y);
}

ZTShxParser::Circle ZTShxParser::circleThroughPen(double radius, double startOctant) const
{
    const double start = startOctant * M_PI / 4;
    return {m_x - radius * std::cos(start), m_y - radius * std::sin(start), radius};
}

void ZTShxParser::movePenAlong(const Circle &circle, double endOctant)
{
    const double end = endOctant * M_PI / 4;
    m_x = circle.x + circle.radius * std::cos(end);
    m_y = circle.y + circle.radius * std::sin(end);
}

// Kept: arcs of all three kinds are drawn with the pen up as well.
void ZTShxParser::caseCodeA(ZTAbstractGlyphCallback *cb, const unsigned char *&bytes, int &length)
{
    if (!has(bytes, 2))
        return endDefinition(bytes, length);
    const double radius = take(bytes, length) * m_scale;
    const Octants arc(take(bytes, length));
    const int span = arc.span * arc.sign;
    const Circle circle = circleThroughPen(radius, arc.start);
    movePenAlong(circle, arc.start + span);
    if (cb == nullptr)
        return;
    const int drawnSpan = span == 0 ? 8 : span; // Kept: a full circle is never clockwise
    flattenArc(cb, circle, radiansOfOctants(arc.start), radiansOfOctants(drawnSpan));
}

void ZTShxParser::caseCodeB(ZTAbstractGlyphCallback *cb, const unsigned char *&bytes, int &length)
{
    if (!has(bytes, 5))
        return endDefinition(bytes, length);
    const int startOffset = take(bytes, length);
    const int endOffset = take(bytes, length);
    const int radiusHigh = take(bytes, length);
    const int radiusLow = take(bytes, length);
    const Octants arc(take(bytes, length));
    const double radius = (radiusHigh * 256 + radiusLow) * m_scale;

    const double start = arc.start + arc.sign * startOffset / 256.0;
    int octants = arc.span == 0 ? 8 : arc.span;
    if (endOffset != 0)
        --octants;
    const double span = (octants + (endOffset - startOffset) / 256.0) * arc.sign;
    const Circle circle = circleThroughPen(radius, start);
    movePenAlong(circle, start + span);
    if (cb != nullptr)
        flattenArc(cb, circle, radiansOfOctants(start), radiansOfOctants(span));
}

bool ZTShxParser::caseCodeC(ZTAbstractGlyphCallback *cb, const unsigned char *&bytes, int &length)
{
    // The terminator has no third byte.
    const bool atEnd = has(bytes, 2) && bytes[0] == 0 && bytes[1] == 0;
    if (!has(bytes, atEnd ? 2 : 3)) {
        endDefinition(bytes, length);
        return false;
    }
    const int dx = signedByte(take(bytes, length));
    const int dy = signedByte(take(bytes, length));
    if (atEnd)
        return false;
    const QPointF from(m_x, m_y);
    const QPointF chord(dx * m_scale, dy * m_scale);
    m_x += chord.x();
    m_y += chord.y();
    const int bulge = signedByte(take(bytes, length));
    if (cb != nullptr)
        flattenBulge(cb, from, chord, bulge);
    return true;
}

void ZTShxParser::flattenBulge(ZTAbstractGlyphCallback *cb, const QPointF &from,
                               const QPointF &chord, int bulge)
{
    const double halfChord = std::sqrt(chord.x() * chord.x() + chord.y() * chord.y()) / 2;
    Circle circle;
    if (!solveBulge(from, QPointF(m_x, m_y), bulge * halfChord / 127.0, circle)) {
        emitVertex(cb, m_x, m_y); // Kept: a straight line, whatever the pen state
        return;
    }
    // Kept: angles in single precision, as drawings were made with them.
    const float start = std::atan2(static_cast<float>(from.y() - circle.y),
                                   static_cast<float>(from.x() - circle.x));
    // Rounding can take a half circle's quotient above 1.
    const double quotient = halfChord / circle.radius;
    float sweep = 2 * static_cast<float>(std::asin(quotient > 1.0 ? 1.0 : quotient));
    if (bulge < 0)
        sweep = -sweep;
    flattenArc(cb, circle, static_cast<double>(start), static_cast<double>(sweep));
}

bool ZTShxParser::solveBulge(const QPointF &from, const QPointF &to, double height, Circle &circle)
{
    if (height == 0.0)
        return false;
    const double dx = to.x() - from.x();
    const double dy = to.y() - from.y();
    // Kept: the second axis is tested for equality, so that this refuses hardly any chord.
    if (std::abs(dx) <= 0.001 && std::abs(dy) == 0.001)
        return false;
    const double chord = std::sqrt(dx * dx + dy * dy);
    const double absHeight = std::abs(height);
    circle.radius = absHeight / 2 + chord * chord / (8 * absHeight);
    const double distance = height > 0 ? height - circle.radius : height + circle.radius;
    const double t = distance / chord;
    circle.x = (from.x() + to.x()) / 2 + dy * t;
    circle.y = (from.y() + to.y()) / 2 - dx * t;
    return true;
}

void ZTShxParser::flattenArc(ZTAbstractGlyphCallback *cb, const Circle &circle, double startRad,
                             double sweepRad)
{
    // One step to every 15 degrees or less, and as many as the tolerance of curves asks for. No
    // sweep gives the first vertex alone.
    const double leastSteps = std::ceil(std::abs(sweepRad) * 12 / M_PI);
    const double steps = ZTCurveTolerance::arcChords(circle.radius, sweepRad, leastSteps);
    const int count = std::isfinite(steps) ? static_cast<int>(steps) : 0;
    const double step = sweepRad / count;
    m_stepsLeft -= count;
    double angle = startRad;
    restartStroke(cb, circle.x + circle.radius * std::cos(angle),
                  circle.y + circle.radius * std::sin(angle));
    for (int i = 0; i < count; ++i) {
        angle += step;
        emitVertex(cb, circle.x + circle.radius * std::cos(angle),
                   circle.y + circle.radius * std::sin(angle));
    }
}

void ZTShxParser::caseCodeE(const unsigned char *&bytes, int &length)
{
    const double x = m_x;
    const double y = m_y;
    const bool penDown = m_penDown;
    // A skip of a skip is the same skip: however many stand in a row, nothing recurses.
    while (has(bytes, 1) && *bytes == 0xE) {
        take(bytes, length);
        --m_stepsLeft;
    }
    parseOneCode(nullptr, bytes, length);
    m_x = x;
    m_y = y;
    m_penDown = penDown;
}
