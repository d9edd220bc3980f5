#pragma once

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QSize>
#include <QtCore/QSizeF>

#include <string>

/**
 * Values of options, read the same in every locale.
 *
 * Failure: `ArgumentError` with a sentence that says what is wrong and what would be right.
 */
namespace arguments {

/** Texts of these functions for the catalogue. */
struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(Arguments)
};

struct ArgumentError
{
    std::string what;
};

/** Throws an `ArgumentError`; "%1" in `why` is the text that is refused. */
[[noreturn]] void refuse(const std::string &text, const QString &why);

/**
 * A text as it was typed: UTF-8 whatever the locale, so that a script means the same everywhere.
 * Only what is no UTF-8 is read by the environment's encoding.
 */
QString text(const std::string &typed);

/** A finite number from `least` to `most`. */
double number(const std::string &text, double least, double most);

/** A whole number from `least` to `most`. */
int count(const std::string &text, int least, int most);

/** Millimetres of a length such as "0.5", "0.5mm", "2 cm" or "1in", 0 to 10,000 mm. */
double lengthMm(const std::string &text);

/** A length greater than 0. */
double positiveLengthMm(const std::string &text);

/** Columns and rows of "3x4", each at least 1, at most 1,000,000 copies together. */
QSize matrix(const std::string &text);

/** Gaps in x and y of "2mm,1mm"; a single length is both. */
QSizeF gapMm(const std::string &text);

/** A counter of "start=1,step=1,last=99,width=4,base=10"; each part may be left out. */
ZTCounterSegment serial(const std::string &text);

} // namespace arguments
