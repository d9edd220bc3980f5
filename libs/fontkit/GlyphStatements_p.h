#pragma once

#include <fontkit/FontFile.h>

#include <vector>

namespace fontkit {

/**
 * A glyph program as statements of the source form, one a line and without indentation.
 *
 * Operands that the program does not hold to their end, and codes that no statement writes, come
 * out as `raw` bytes.
 */
std::vector<QByteArray> statementsOf(const QByteArray &program, FontForm form);

/** Bytes as lines of hexadecimal numbers behind a keyword, none for no bytes. */
std::vector<QByteArray> hexLines(const QByteArray &keyword, const QByteArray &bytes);

} // namespace fontkit
