#pragma once

#include <QtCore/QString>

namespace studio {

/** What lengths are told and typed in. */
enum class LengthUnit { Millimetre, Inch };

/**
 * How the program tells lengths and places to people: the unit, and which way y counts. What is
 * stored and marked knows nothing of it: everything inside is in millimetres, y downward.
 *
 * Holds for the process, as the language does. A change is told as one of the language is: widgets
 * that show lengths make their texts anew with the others.
 */
namespace units {

LengthUnit unit();
bool isYUp(); ///< whether people count y upward

/** Lets another way hold from now on, and tells all widgets if it is another. */
void choose(LengthUnit unit, bool isYUp);

double unitMm();  ///< millimetres of one unit
QString name();   ///< short name of the unit, in the language of the program
QString suffix(); ///< the same behind a number

/** A length as a number, with as many decimals as show a micrometre; never "-0.000". */
QString number(double mm);

/** The same with its unit. */
QString text(double mm);

/** What people call a y: the same number, or its opposite. It is its own inverse. */
double y(double mm);

} // namespace units

} // namespace studio
