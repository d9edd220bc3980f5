#pragma once

#include <studio/text/TextSettings.h>

#include <codekit/shape/CodeItem.h>

namespace studio {

/**
 * What an operator can set about a code, in the measures of the marked part: lengths are those that
 * a calliper shows, whatever the code was resized by. A turned or mirrored code stays so.
 */
struct CodeEdit
{
    codekit::CodeSettings code;
    TextSettings words; ///< content, font of the text for people and hatch; no more of it is used

    static CodeEdit of(const codekit::CodeItem &item);

    /** Brings a code to these settings. What is the same already stays to the last bit. */
    void applyTo(codekit::CodeItem &item) const;
};

/** Makes a new code what an operator expects: stroke fonts of the program at hand for its text. */
void setUpNewCode(codekit::CodeItem &item);

} // namespace studio
