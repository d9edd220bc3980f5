#pragma once

#include <codekit/CodeReadback.h>
#include <codekit/shape/CodeItem.h>

#include <hostkit/marks/MarkUnits.h>

namespace codekit {

/** How reading a code back from its marks ended. */
enum class CodeVerdict {
    Good,      ///< it reads as what it is to say
    Mirrored,  ///< the same, but its left is its right
    Different, ///< it reads as something else
    Nothing,   ///< it cannot be read
    NotReady,  ///< the marks are not those of what was asked for; not read at all
    NoReader   ///< there is no reader for its kind
};

/** What reading a code back gave. */
struct CodeReading
{
    CodeVerdict verdict = CodeVerdict::Nothing; ///< how well it can be read
    QString expected;                           ///< what it is to say
    QString read;                               ///< what was read, if anything
};

/** What a code is read from, all in `units`. */
struct CodeSurroundings
{
    ZTMarkObject marks;           ///< of the code
    QVector<ZTMarkObject> others; ///< of other shapes: what lies over the code or its quiet zone
    hostkit::MarkUnits units;     ///< of both, on each axis
    double beamMm = 0.0; ///< 0: the code's growth; without one the spacing of its hatch, its module
                         ///< for single lines, a dot's share of it for points, 0.05 mm for
                         ///< outlines alone
};

/** A code as it is to be read: a value, so that it can be read in another thread. */
struct CodeScan
{
    MarkedLines marks;                    ///< of the code and of what lies over it
    CodeKind kind = CodeKind::DataMatrix; ///< which symbology
    double moduleMm = 0.0;                ///< width of a module
    bool isMirrored = false;              ///< by its shape's transform
    bool isReady = true;                  ///< its marks are those of what was asked for
    QString expected;                     ///< what it is to say
};

/** What is to be read of a code. Order: GUI thread. */
CodeScan scanOf(const CodeItem &item, const CodeSurroundings &around);

/** Reads a code. Any thread; `isGivenUp` as `readMarks` has it. */
CodeReading readScan(const CodeScan &scan, const std::atomic<bool> *isGivenUp = nullptr);

/** Reads a code back from the final marks, as the beam leaves them. Order: GUI thread. */
CodeReading readCode(const CodeItem &item, const CodeSurroundings &around);

/**
 * The code as drawn, and what it needs free around it: who else reaches in there is looked at when
 * it is read. Frame: scene pixels.
 */
QRectF codeFieldPx(const CodeItem &item);

/** One translated sentence about a reading, without the name of the shape. */
QString describe(const CodeReading &reading);

} // namespace codekit
