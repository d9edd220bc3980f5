#pragma once

#include <fontkit/FontFile.h>

#include <QtCore/QPoint>

namespace fontkit {

/** A line on an arc over a chord. */
struct BulgeStep
{
    int dx = 0;
    int dy = 0;
    int bulge = 0; ///< 127 times twice the arc's height over the chord; positive: counter-clockwise
};

/** Where an octant arc runs, from the pen on. */
struct OctantSpan
{
    int start = 0; ///< octant it starts in, 0 to 7: 0 is east, each 45 degrees counter-clockwise
    int span = 8;  ///< octants it runs through, 1 to 8
    bool clockwise = false;
};

/**
 * Code bytes of one glyph, put together code by code.
 *
 * Frame: font units, x to the right, y up; every line starts at the pen. A glyph starts with the
 * pen down, and a line with the pen up is a move. The last move of a glyph is its advance. Failure:
 * a number outside its range adds nothing and is told by `error()`, which keeps the first of them.
 */
class GlyphProgram
{
public:
    /** For a glyph of a font of this form: the size of a subshape's code depends on it. */
    explicit GlyphProgram(FontForm form = FontForm::Shapes);

    GlyphProgram &penDown();
    GlyphProgram &penUp();

    /** Range: 1 to 255. Counts for the rest of the text, so that a glyph undoes it by itself. */
    GlyphProgram &scaleDown(int divisor);
    GlyphProgram &scaleUp(int factor);

    GlyphProgram &push();
    GlyphProgram &pop(); ///< starts a new stroke at the place that was pushed last

    /** Another glyph, drawn here. Range: one byte; two in a "unifont". */
    GlyphProgram &subshape(int code);

    /**
     * A line in one byte. Range: length 1 to 15, direction 0 to 15 counter-clockwise from east. A
     * step measures 1 along the longer axis and 0, 1/2 or 1 along the other.
     */
    GlyphProgram &vector(int length, int direction);

    /** A line of three bytes. Range: -128 to 127. */
    GlyphProgram &line(int dx, int dy);

    /** Lines in one code. Range: -128 to 127, none of them (0,0). */
    GlyphProgram &lines(const std::vector<QPoint> &steps);

    /**
     * A line of any length with as few bytes as it takes, in several equal pieces where it is too
     * long for one; (0,0) adds nothing. The pieces lie on the line as well as whole units allow.
     */
    GlyphProgram &lineAny(int dx, int dy);

    /** A part of a circle that begins and ends on an octant. Range: radius 0 to 255. */
    GlyphProgram &octantArc(int radius, const OctantSpan &octants);

    /**
     * A part of a circle with ends inside octants. Range: radius 0 to 65,535; `startOffset` and
     * `endOffset` 0 to 255, in 256ths of an octant.
     */
    GlyphProgram &fractionalArc(int radius, const OctantSpan &octants, int startOffset,
                                int endOffset);

    /** An arc over a chord. Range: -128 to 127; (0,0) is written without its bulge. */
    GlyphProgram &bulge(const BulgeStep &step);

    /** Arcs in one code. Range: as above, no chord (0,0). */
    GlyphProgram &bulges(const std::vector<BulgeStep> &steps);

    /** The next code is for vertical text only: it is passed over. */
    GlyphProgram &verticalOnly();

    /** The 0 that a definition closes with. */
    GlyphProgram &end();

    /** Bytes as they are. */
    GlyphProgram &raw(const QByteArray &codes);

    const QByteArray &bytes() const { return m_codes; }
    const QString &error() const { return m_firstError; } ///< empty while all is well

private:
    bool demand(int number, int least, int most, const char *what);
    bool demandSteps(int dx, int dy);
    bool demandOctants(const OctantSpan &octants);
    void append(int byte);
    void fail(const QString &what);

    FontForm m_form;
    QByteArray m_codes;
    QString m_firstError;
};

} // namespace fontkit
