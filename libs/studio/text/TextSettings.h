#pragma once

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

namespace studio {

/**
 * What an operator can set about a text, in the measures of the marked part.
 *
 * The records behind a text count in units of their own, before its transform; sizes here are
 * what a calliper shows. A turned or mirrored text stays so.
 */
struct TextSettings
{
    QString fixedText;
    bool isVariant = false;
    ZTVariantText variantText; ///< kept while it is switched off

    int valuesPerPart = 1; ///< of the variant text, where shapes share its counter; not set here

    FontType kind = FontType::doubleLine;
    QFont font;               ///< family and style of the system font; its size is not looked at
    QString enName;           ///< file of the stroke font for letters
    QString zhName;           ///< file of the stroke font for Chinese
    double heightMm = 10.0;   ///< of capital letters
    double widthFactor = 1.0; ///< 1 leaves the letters as the font has them
    double charSpacingMm = 0.0;
    double lineSpacingMm = 0.0; ///< from the ink of the lines above to the tops of capitals

    bool isOnArc = false;
    double startDeg = 0.0; ///< 0 is three o'clock
    double spanDeg = 90.0; ///< positive is clockwise
    double diameterMm = 0.0;

    ZTFillParam fill; ///< of outlines; strokes are never hatched

    /** Puts the text on its arc; on the upper half of it, if the arc was never set up. */
    void putOnArc();

    static TextSettings of(const ZTGraphicsTextItem &item);

    /**
     * Brings a text to these settings. What is the same already stays as it is, to the last bit.
     *
     * A variant text shows the part that its next update would make.
     */
    void applyTo(ZTGraphicsTextItem &item) const;
};

} // namespace studio
