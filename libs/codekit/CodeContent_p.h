#pragma once

#include <codekit/CodeSymbol.h>

namespace codekit {

/** A content as the encoder is given it. */
struct CheckedContent
{
    QString text;  ///< check digits added
    QString reads; ///< what a reader gives
    QString human; ///< what people read below the code
};

/**
 * Holds a content against the rules of its kind before anything is encoded, so that no encoder
 * pads, drops or replaces a character in silence.
 *
 * Failure: false with the reason.
 */
bool checkContent(const CodeSpec &spec, CheckedContent *checked, QString *reason);

} // namespace codekit
