#pragma once

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QPointF>
#include <QtCore/QVector>
#include <QtGui/QPainterPath>

namespace hostkit {

/** File name of the stroke font of 16-bit codes that pairs of fonts are filled up from. */
QString unicodeStrokeFont();

/**
 * Whether a character of stroke text comes from `unicodeStrokeFont()` and not from the pair: it is
 * outside GBK, and the font has it; or it is a letter or sign that stands beside Latin letters,
 * and the pair's big font is the one on board, which has it for hosts without this font.
 *
 * Order: after the folders of the fonts have been made known to `ZTShxFontManager`.
 * Failure: false without the font.
 */
bool isFromUnicodeFont(QChar character, const ZTShxFontParam &font);

/** As text is drawn: letters and the marks that belong to them are one character. */
QString composedText(const QString &text);

/** Whether any character of a composed text comes from `unicodeStrokeFont()`. Fast for ASCII. */
bool needsUnicodeFont(const QString &text, const ZTShxFontParam &font);

/**
 * Strokes of a composed line from both, one path for each character: base lines agree, capitals
 * are of one height, and each character begins where the one before it ends.
 *
 * Frame, `pos`, `wordSpan`: as `ZTShapeText::strokeGlyphs`.
 * Order: with the fonts of the pair at the text's height. The height of the other font is changed
 * while it draws, and is as before then.
 */
QVector<QPainterPath> strokeGlyphsOfBoth(const QString &line, const ZTShxFontParam &font,
                                         const QPointF &pos, double wordSpan);

} // namespace hostkit
