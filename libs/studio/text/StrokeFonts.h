#pragma once

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QStringList>

namespace studio {

/** File names of the stroke fonts, each once, in the order of the alphabet. */
QStringList regularStrokeFonts();
QStringList bigStrokeFonts();

/**
 * A pair of stroke fonts, ready to draw; without fonts if a name is unknown.
 *
 * The height of a font file is shared by all texts that use it, so all texts of the studio leave it
 * at `hostkit::kStrokeFontUnits`, and their transforms bring them to size.
 */
ZTShxFontParam strokeFontPair(const QString &regularName, const QString &bigName);

/** The plain stroke fonts that come with the program; `otherwise` where they are not there. */
QString usualRegularFont(const QString &otherwise);
QString usualBigFont(const QString &otherwise);

/**
 * Makes a new text what an operator expects: a word to see, capitals 10 mm high, and at hand the
 * plain stroke fonts that come with the program, if they are there.
 */
void setUpNewText(ZTGraphicsTextItem &item);

} // namespace studio
