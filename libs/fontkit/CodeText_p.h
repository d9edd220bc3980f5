#pragma once

#include <fontkit/FontFile.h>

#include <optional>

namespace fontkit {

/** A code in the way the source form writes it: "0x41", "0xC4E3". */
QString codeText(quint16 code);

/**
 * The code of a character: its own byte in "shapes", its one or two bytes of GBK in a "bigfont",
 * its 16 bits of Unicode in a "unifont". No value for a text that is no such character.
 */
std::optional<quint16> codeOf(const QString &character, FontForm form);

/** The character of a code, where there is one that can be seen; otherwise an empty text. */
QString characterOf(quint16 code, FontForm form);

} // namespace fontkit
