#pragma once

#include <QtCore/QByteArray>

namespace hostkit {

/**
 * Appends the shortest decimal text that reads back as the same double, whatever the locale:
 * "20000", "0.1", "1e+300". "nan" and "inf" where there is no number.
 */
void appendShortest(QByteArray &text, double value);

/**
 * Appends a number with at most `decimals` digits behind the point and none that say nothing:
 * "40", "0.25", never "-0". Whatever the locale, never in powers of ten.
 *
 * Range: finite values, 0 to 9 decimals.
 */
void appendRounded(QByteArray &text, double value, int decimals);

/** Appends a whole number. */
void appendWhole(QByteArray &text, qint64 value);

} // namespace hostkit
