#pragma once

#include <codekit/CodeReadback.h>
#include <codekit/shape/CodeItem.h>

#include <hostkit/marks/MarkUnits.h>

#include <QtCore/QCoreApplication>

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
    CodeVerdict verdict = CodeVerdict::Nothing;
    QString expected; ///< what it is to say
    QString read;     ///< what was read, if anything
};

/**
 * Reads a code back from its final marks, as a beam of this width leaves them.
 *
 * `object` are the marks of the item, in `units`. A beam of 0 takes the spacing of the code's
 * hatch; a code of single lines then takes its module, and outlines alone 0.05 mm.
 */
CodeReading readCode(const CodeItem &item, const ZTMarkObject &object,
                     const hostkit::MarkUnits &units, double beamMm);

/** One translated sentence about a reading, without the name of the shape. */
QString describe(const CodeReading &reading);

} // namespace codekit
