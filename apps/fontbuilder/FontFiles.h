#pragma once

#include <fontkit/FontFile.h>

#include <string>

/**
 * Files of fonts and of their sources. What goes wrong is told on stderr, with the file's name.
 *
 * A path of - is standard input or output.
 */
namespace fontfiles {

/** All bytes of a file. */
std::optional<QByteArray> read(const std::string &path);

/** The font in a file. */
std::optional<fontkit::FontFile> readFont(const std::string &path);

/** Writes a file as a whole: it is there complete, or as it was before. */
bool write(const std::string &path, const QByteArray &bytes);

/** Whether writing `output` would replace `input`; says so. */
bool isSame(const std::string &input, const std::string &output);

} // namespace fontfiles
