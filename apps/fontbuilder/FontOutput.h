#pragma once

#include <fontkit/FontFile.h>

#include <QtCore/QString>

#include <string>

/**
 * Writes a font into a folder, which is made if need be. What goes wrong is told on stderr.
 *
 * The file is there complete, or as it was before.
 */
bool writeFontTo(const std::string &folder, const QString &fileName, const fontkit::FontFile &font);
