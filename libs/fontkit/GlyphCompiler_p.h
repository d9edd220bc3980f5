#pragma once

#include "SourceText_p.h"

#include <fontkit/GlyphProgram.h>

namespace fontkit {

/** The operand of a statement that is a code: a number or a character in single quotes. */
int codeOperand(Statement &statement, FontForm form);

/** Adds what a statement of a glyph tells to its program. Failure: `SourceError`. */
void compileGlyphStatement(Statement &statement, FontForm form, GlyphProgram &program);

} // namespace fontkit
