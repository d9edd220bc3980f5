#pragma once

#include <ZTDrawEngineLib/common/ZTShxFontParam.h>

namespace testsupport {

/** Empties the folder "font" beside the program, and makes the font manager forget its fonts. */
void emptyFontFolder();

/** Writes "tiny.shx" and "tinybig.shx" into a folder; `makeTinyFonts` tells their glyphs. */
void writeTinyFonts(const QString &folder);

/**
 * Fills the font folder with "tiny.shx" and "tinybig.shx" alone, and lets the manager scan it.
 *
 * Every glyph but "L" is a square that stands on the base line, one unit from where the pen was,
 * drawn up, right, down, left; the pen ends ten units along. Sides: "A" and "W" 8, "B" 4, "?" 2,
 * the reference character of the big font (U+4F60) 8, its other character (U+597D) 4, blank none.
 * "L" is a line of four units and no more. A text height of h makes a unit h / 10; newly loaded
 * fonts have a unit of 1. Call it in a test that runs in its own folder.
 */
void makeTinyFonts();

/** The tiny fonts at a text height, ready to draw. */
ZTShxFontParam tinyFont(double height = 10.0);

} // namespace testsupport
