#pragma once

#include <fontkit/FontFile.h>

namespace fontkit {

/**
 * What is in a font file: `writeFont` makes the same bytes of it again.
 *
 * Failure: no value and a sentence in `error` (may be null) that names the place, "offset 28: …",
 * when the file is none of the three forms or ends too early. Index records of a "bigfont" without
 * bytes of their own, bytes between definitions and bytes behind the last one are kept.
 */
std::optional<FontFile> readFont(const QByteArray &bytes, QString *error = nullptr);

} // namespace fontkit
