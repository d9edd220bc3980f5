#pragma once

#include <ZTDrawEngineLib/shx/ZTRegBigFontShxParser.h>

#include <QtCore/QMetaType>
#include <QtCore/QString>

QT_BEGIN_NAMESPACE
class QDataStream;
QT_END_NAMESPACE

/**
 * Choice of a stroke font: a pair of font files and a height, with the fonts themselves.
 *
 * Order: whoever sets the names or the height brings `parser` up to date: `init` with both names in
 * the local 8-bit encoding, regular font first, then `setTextHeight`. Reading from a stream does
 * it. Owner: the record holds the pair; the fonts in it are those of `ZTShxFontManager`, shared by
 * all.
 */
struct ZTShxFontParam
{
    QString zhName; ///< file of the big font, for Chinese; one of `ZTShxFontManager::bigFonts`
    QString enName; ///< file of the regular font; one of `ZTShxFontManager::regFonts`
    double height = 100.0;        ///< text height that `parser` gets, in drawing units
    ZTRegBigFontShxParser parser; ///< the loaded fonts; none in a new record
};

/**
 * Equal names and exactly equal heights.
 *
 * Kept: the parser does not take part, so that a record without loaded fonts equals one with them.
 */
ZTDRAWENGINELIB_EXPORT bool operator==(const ZTShxFontParam &a, const ZTShxFontParam &b);
ZTDRAWENGINELIB_EXPORT bool operator!=(const ZTShxFontParam &a, const ZTShxFontParam &b);

/**
 * Stream form: zhName (QString), enName (QString), height (double).
 *
 * A record that was read has loaded its fonts and set their height: it is ready to draw.
 * Failure: with an empty name the record keeps the fonts that it had. A height that is
 * no number leaves it without fonts: they are shared, and such a height is no use to anyone.
 * Limit: so does a height below 0.000001 or above 1,000,000, its sign aside.
 */
ZTDRAWENGINELIB_EXPORT QDataStream &operator<<(QDataStream &stream, const ZTShxFontParam &param);
ZTDRAWENGINELIB_EXPORT QDataStream &operator>>(QDataStream &stream, ZTShxFontParam &param);

Q_DECLARE_METATYPE(ZTShxFontParam)
