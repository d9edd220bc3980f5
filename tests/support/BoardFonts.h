#pragma once

#include <QtCore/QStringList>

namespace testsupport {

/** File names of the stroke fonts that the build made, sorted; empty where it made none. */
QStringList boardFonts();

/** Whether the build made the Chinese font, too. */
bool hasChineseBoardFont();

/** The path of a font that the build made. */
QByteArray boardFontPath(const QString &fileName);

/**
 * Fills the font folder beside the program with the fonts that the build made and their notes, and
 * lets the manager scan it. Call it in a test that runs in its own folder.
 */
void installBoardFonts();

} // namespace testsupport
