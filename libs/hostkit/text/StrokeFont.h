#pragma once

#include <hostkit/files/Failure.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QStringList>

namespace hostkit {

/** Text height at which all stroke fonts of a host are drawn; transforms make it a size. */
constexpr double kStrokeFontUnits = 100.0;

/**
 * Where the stroke fonts of a program are: the folder "font" beside it; where that is not there,
 * the one that was installed with the library, if there is one.
 */
QString strokeFontFolder();

/**
 * A pair of stroke fonts by their file names, loaded and brought to a height of `kStrokeFontUnits`.
 *
 * Without a name of a big font the first one that the manager lists is taken.
 *
 * Order: after the folders of the fonts have been made known to `ZTShxFontManager`.
 * Failure: false, the reason with the font's name: `CannotRead` where it is not in `folders` (which
 * the reason names), `OtherFormat` where it is no stroke font or of the other kind, `NotPossible`
 * where it has not the character by whose width fonts are brought to a height.
 */
bool strokeFont(const QString &regularName, const QString &bigName, const QStringList &folders,
                ZTShxFontParam *font, Failure *failure);

/**
 * Brings the fonts of a record to the record's own height, for whatever is laid out or measured
 * next: fonts are shared, and another text may have left them at another height.
 *
 * A font without the character by whose width it is brought to a height takes the number itself.
 * Failure: nothing changes for a record without fonts, and for a height that is not between
 * 0.000001 and 1,000,000, its sign aside.
 */
void setStrokeHeight(ZTShxFontParam *font);

/**
 * How high the capitals of a font are drawn, in units of the text's path: of "H", else of "A", else
 * of "W", measured on what is drawn. Some positive height for a font that has none of them.
 */
double capitalHeight(ZTFontParam font);

/**
 * The characters of a text that a font cannot show, each once, in the order of the text. What
 * `isFromUnicodeFont` is shown, whatever the font has.
 */
struct MissingCharacters
{
    QStringList noGlyph;    ///< the font has no glyph for them, and leaves them out
    QStringList notEncoded; ///< not among the characters of GBK; marked as its replacement
};

/** Characters of the text without a glyph. Line feeds are not looked at. */
MissingCharacters missingCharacters(const QString &text, const ZTFontParam &font);

} // namespace hostkit
