#pragma once

#include <QtCore/QSize>
#include <QtCore/QSizeF>

#include <string>

/**
 * Values of options, read the same in every locale.
 *
 * Failure: `ArgumentError` with a sentence that says what is wrong and what would be right.
 */
namespace arguments {

struct ArgumentError
{
    std::string what;
};

/** A finite number from `least` to `most`. */
double number(const std::string &text, double least, double most);

/** Millimetres of a length such as "0.5", "0.5mm", "2 cm" or "1in", 0 to 10,000 mm. */
double lengthMm(const std::string &text);

/** A length greater than 0. */
double positiveLengthMm(const std::string &text);

/** Columns and rows of "3x4", each at least 1, at most 1,000,000 copies together. */
QSize matrix(const std::string &text);

/** Gaps in x and y of "2mm,1mm"; a single length is both. */
QSizeF gapMm(const std::string &text);

} // namespace arguments
