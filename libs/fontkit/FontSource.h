#pragma once

#include <fontkit/FontFile.h>

/** The readable form of a font, told with an example in docs/formats/font-source.md. */
namespace fontkit {

/**
 * The source text of a font, in UTF-8: `compileFont` makes the same font of it again.
 *
 * Codes that no statement tells apart from others of the same effect come out as `raw` bytes.
 */
QByteArray decompileFont(const FontFile &font);

/**
 * The font that a source text tells.
 *
 * Failure: no value and a sentence in `error` (may be null) that names the line: "line 12: …".
 */
std::optional<FontFile> compileFont(const QByteArray &source, QString *error = nullptr);

} // namespace fontkit
