#pragma once

#include <codekit/CodeSymbol.h>

#include <QtCore/QString>
#include <QtCore/QVector>

namespace codekit {

/** A digit of the text for people in its place along the bars. */
struct RetailDigit
{
    QChar digit;
    double centreModules = 0.0; ///< from the first bar
    bool isAddOn = false;       ///< stands above its bars
};

/**
 * The digits of EAN and UPC, one for each seven modules of bars as they are printed everywhere: two
 * groups between the guards, what the bars do not spell themselves in the quiet zones beside them,
 * and those of an add-on over its own bars.
 *
 * Failure: empty for other kinds.
 */
QVector<RetailDigit> retailDigits(const CodeSymbol &symbol);

} // namespace codekit
