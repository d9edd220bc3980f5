#pragma once

#include <QtCore/QString>

namespace studio {

/** Why a text that someone typed is no measure. */
enum class MeasureFault {
    None,
    Empty,      ///< nothing was typed
    Unexpected, ///< a character that has no meaning where it stands
    Unfinished, ///< the text ends where a number should come
    Bracket,    ///< a bracket that is not closed, or was never opened
    Unit,       ///< a word that is no unit of this measure
    Comma,      ///< a comma, which people mean in two ways
    Division,   ///< by nothing
    Dimension,  ///< two lengths multiplied, or a number divided by a length
    Huge,       ///< beyond all sense
    Long        ///< more text than anyone types
};

/** What a typed text says, or why it says nothing. */
struct TypedMeasure
{
    double value = 0.0; ///< millimetres, degrees or a plain number
    MeasureFault fault = MeasureFault::None;
    QString part; ///< what the fault is about; may be empty

    bool isRight() const { return fault == MeasureFault::None; }
};

/**
 * Reads a length: numbers with or without units, sums, products and brackets, such as `1in`,
 * `20+5`, `100/3` or `2*(3+4)mm`.
 *
 * A unit belongs to the number or bracket before it. A number without one counts in units of
 * `unitMm`, and so does a result without one: `1in+5` is an inch and five millimetres. Known are
 * um, mm, cm, m, mil, in, ft and pt, the signs for micrometre, inch and foot, and the Chinese
 * words. Digits and signs of full width are read as the narrow ones.
 *
 * Frame: millimetres.
 */
TypedMeasure readLength(const QString &text, double unitMm = 1.0);

/** The same for an angle, in degrees without a unit; rad is known. Frame: degrees. */
TypedMeasure readAngle(const QString &text);

/** The same for a number that has no unit. */
TypedMeasure readNumber(const QString &text);

/** What is wrong, for people, in the language of the program; empty if nothing is. */
QString faultText(const TypedMeasure &measure);

/** A number for reading: at most `decimals` of them, none that are 0, and never "-0". */
QString measureText(double value, int decimals = 4);

} // namespace studio
