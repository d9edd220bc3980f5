#pragma once

#include <ZTDrawEngineLib/common/ZTEnumerations.h>
#include <ZTDrawEngineLib/common/ZTShxFontParam.h>

#include <QtGui/QFont>

/** The whole font choice of a text: a system font, a stroke font, and which of them is drawn. */
struct ZTFontParam
{
    FontType fontType = FontType::doubleLine; ///< the font that is drawn
    double wordSpac = 0.0;                    ///< space between characters, in millimetres
    double rowSpac = 0.0;                     ///< space between lines, in millimetres
    QFont font;                               ///< system font, for `FontType::doubleLine`
    ZTShxFontParam shxFont;                   ///< stroke font, for `FontType::singleLine`
};

/** Equal in every field; the spaces compared exactly. */
ZTDRAWENGINELIB_EXPORT bool operator==(const ZTFontParam &a, const ZTFontParam &b);
ZTDRAWENGINELIB_EXPORT bool operator!=(const ZTFontParam &a, const ZTFontParam &b);

/**
 * Stream form: fontType (qint32, of which the low eight bits count), wordSpac (double), rowSpac
 * (double), font (QFont), shxFont. A record that was read has its stroke fonts loaded.
 */
ZTDRAWENGINELIB_EXPORT QDataStream &operator<<(QDataStream &stream, const ZTFontParam &param);
ZTDRAWENGINELIB_EXPORT QDataStream &operator>>(QDataStream &stream, ZTFontParam &param);

Q_DECLARE_METATYPE(ZTFontParam)
