#include "GlyphProgram.h"

#include "GlyphCodes_p.h"

#include <algorithm>
#include <cmath>

namespace fontkit {

namespace {

/** Steps of the directions in halves of a unit. */
constexpr int kHalfX[16] = {2, 2, 2, 1, 0, -1, -2, -2, -2, -2, -2, -1, 0, 1, 2, 2};
constexpr int kHalfY[16] = {0, 1, 2, 2, 2, 2, 2, 1, 0, -1, -2, -2, -2, -2, -2, -1};
constexpr int kLongestVector = 15;

int octantByte(const OctantSpan &octants)
{
    return (octants.clockwise ? 0x80 : 0) | octants.start << 4 | octants.span % 8;
}

/** The direction in which `length` steps make (dx,dy), -1 if there is none. */
int directionOf(int dx, int dy, int length)
{
    for (int direction = 0; direction < 16; ++direction) {
        if (kHalfX[direction] * length == 2 * dx && kHalfY[direction] * length == 2 * dy)
            return direction;
    }
    return -1;
}

} // namespace

GlyphProgram::GlyphProgram(FontForm ofForm) : m_form(ofForm) {}

void GlyphProgram::append(int byte) { m_codes += static_cast<char>(byte & 0xFF); }

void GlyphProgram::fail(const QString &what)
{
    if (m_firstError.isEmpty())
        m_firstError = what;
}

bool GlyphProgram::demand(int number, int least, int most, const char *what)
{
    if (number >= least && number <= most)
        return true;
    fail(QStringLiteral("%1 %2 is not in %3 to %4")
             .arg(QLatin1String(what))
             .arg(number)
             .arg(least)
             .arg(most));
    return false;
}

bool GlyphProgram::demandSteps(int dx, int dy)
{
    return demand(dx, -128, 127, "a step of") && demand(dy, -128, 127, "a step of");
}

bool GlyphProgram::demandOctants(const OctantSpan &octants)
{
    return demand(octants.start, 0, 7, "octant") && demand(octants.span, 1, 8, "a span of");
}

GlyphProgram &GlyphProgram::penDown()
{
    append(CodePenDown);
    return *this;
}

GlyphProgram &GlyphProgram::penUp()
{
    append(CodePenUp);
    return *this;
}

GlyphProgram &GlyphProgram::scaleDown(int divisor)
{
    if (demand(divisor, 1, 255, "a scale of")) {
        append(CodeScaleDown);
        append(divisor);
    }
    return *this;
}

GlyphProgram &GlyphProgram::scaleUp(int factor)
{
    if (demand(factor, 1, 255, "a scale of")) {
        append(CodeScaleUp);
        append(factor);
    }
    return *this;
}

GlyphProgram &GlyphProgram::push()
{
    append(CodePush);
    return *this;
}

GlyphProgram &GlyphProgram::pop()
{
    append(CodePop);
    return *this;
}

GlyphProgram &GlyphProgram::subshape(int code)
{
    const bool isWide = m_form == FontForm::Unifont;
    if (!demand(code, 0, isWide ? 0xFFFF : 0xFF, "subshape"))
        return *this;
    append(CodeSubshape);
    append(code);
    if (isWide)
        append(code >> 8);
    return *this;
}

GlyphProgram &GlyphProgram::vector(int length, int direction)
{
    if (demand(length, 1, kLongestVector, "a length of") && demand(direction, 0, 15, "direction"))
        append(length << 4 | direction);
    return *this;
}

GlyphProgram &GlyphProgram::line(int dx, int dy)
{
    if (demandSteps(dx, dy)) {
        append(CodeLine);
        append(dx);
        append(dy);
    }
    return *this;
}

GlyphProgram &GlyphProgram::lines(const std::vector<QPoint> &steps)
{
    for (const QPoint &step : steps) {
        if (!demandSteps(step.x(), step.y()))
            return *this;
        if (step.isNull()) {
            fail(QStringLiteral("0,0 ends the list"));
            return *this;
        }
    }
    append(CodeLines);
    for (const QPoint &step : steps) {
        append(step.x());
        append(step.y());
    }
    append(0);
    append(0);
    return *this;
}

GlyphProgram &GlyphProgram::lineAny(int dx, int dy)
{
    const int longest = std::max(std::abs(dx), std::abs(dy));
    if (longest == 0)
        return *this;
    const int direction = longest <= kLongestVector ? directionOf(dx, dy, longest) : -1;
    if (direction >= 0)
        return vector(longest, direction);
    const int pieces = (longest + 126) / 127;
    for (qint64 i = 0; i < pieces; ++i) {
        const qint64 stepX = dx * (i + 1) / pieces - dx * i / pieces;
        const qint64 stepY = dy * (i + 1) / pieces - dy * i / pieces;
        line(static_cast<int>(stepX), static_cast<int>(stepY));
    }
    return *this;
}

GlyphProgram &GlyphProgram::octantArc(int radius, const OctantSpan &octants)
{
    if (demand(radius, 0, 255, "a radius of") && demandOctants(octants)) {
        append(CodeOctantArc);
        append(radius);
        append(octantByte(octants));
    }
    return *this;
}

GlyphProgram &GlyphProgram::fractionalArc(int radius, const OctantSpan &octants, int startOffset,
                                          int endOffset)
{
    if (!demand(radius, 0, 0xFFFF, "a radius of") || !demandOctants(octants) ||
        !demand(startOffset, 0, 255, "a start of") || !demand(endOffset, 0, 255, "an end of"))
        return *this;
    for (const int byte : {static_cast<int>(CodeFractionalArc), startOffset, endOffset, radius >> 8,
                           radius, octantByte(octants)})
        append(byte);
    return *this;
}

GlyphProgram &GlyphProgram::bulge(const BulgeStep &step)
{
    if (!demandSteps(step.dx, step.dy) || !demand(step.bulge, -128, 127, "a bulge of"))
        return *this;
    append(CodeBulge);
    append(step.dx);
    append(step.dy);
    if (step.dx != 0 || step.dy != 0)
        append(step.bulge);
    return *this;
}

GlyphProgram &GlyphProgram::bulges(const std::vector<BulgeStep> &steps)
{
    for (const BulgeStep &step : steps) {
        if (!demandSteps(step.dx, step.dy) || !demand(step.bulge, -128, 127, "a bulge of"))
            return *this;
        if (step.dx == 0 && step.dy == 0) {
            fail(QStringLiteral("0,0 ends the list"));
            return *this;
        }
    }
    append(CodeBulges);
    for (const BulgeStep &step : steps) {
        append(step.dx);
        append(step.dy);
        append(step.bulge);
    }
    append(0);
    append(0);
    return *this;
}

GlyphProgram &GlyphProgram::verticalOnly()
{
    append(CodeVerticalOnly);
    return *this;
}

GlyphProgram &GlyphProgram::end()
{
    append(CodeEnd);
    return *this;
}

GlyphProgram &GlyphProgram::raw(const QByteArray &bytes)
{
    m_codes += bytes;
    return *this;
}

} // namespace fontkit
