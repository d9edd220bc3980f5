#pragma once

#include <ZTDrawEngineLib/common/ZTDrawEngineGlobal.h>

class ZTAbstractGlyphCallback;
class ZTShxParser;

/**
 * A pair of stroke fonts that draws mixed text: a regular font for single bytes and a big font for
 * the characters of two bytes that its lead-byte ranges announce.
 *
 * Frame: drawing units, y upward; both fonts share one pen.
 * Owner: `ZTShxFontManager` owns both fonts. Pairs with the same file share it, its text height
 * included: the height last set through any pair holds for all of them.
 * Order: `ZTShxFontManager::regFonts` or `bigFonts` has to run before `init` finds anything.
 * Failure: without both fonts a pair draws nothing and measures 0.
 */
class ZTDRAWENGINELIB_EXPORT ZTRegBigFontShxParser
{
public:
    /** A pair without fonts. */
    ZTRegBigFontShxParser();

    /** As the default constructor, then `init`. */
    ZTRegBigFontShxParser(const char *regName, const char *bigName);
    ZTRegBigFontShxParser(const ZTRegBigFontShxParser &other);
    ZTRegBigFontShxParser(ZTRegBigFontShxParser &&other) noexcept;
    ZTRegBigFontShxParser &operator=(const ZTRegBigFontShxParser &other);
    ZTRegBigFontShxParser &operator=(ZTRegBigFontShxParser &&other) noexcept;
    ~ZTRegBigFontShxParser();

    /**
     * Takes both fonts from the manager, by file names such as its lists give.
     *
     * A font that this loads starts with a text height of 50; one in use keeps its own.
     * Failure: a null or empty name leaves the pair as it was; an unknown one makes it unusable.
     */
    void init(const char *regName, const char *bigName);

    /**
     * Lets go of the images of both fonts, for everyone who shares them: they draw no glyph until
     * the manager is released and asked for them anew.
     */
    void cleanup() const;

    /**
     * Makes both fonts look alike at a height: each is scaled so that one character of known shape
     * comes out `height` wide, "W" of the regular font, and the character 0xC4 0xE3 of the big one.
     *
     * Failure: a font without its character gets a height that is not finite, and draws nothing.
     */
    void setTextHeight(double height);

    /** Text height of the regular font, which is what it was scaled to; 0 without fonts. */
    double getTextHeight();

    /** How far the regular font reaches below the base line; 0 without fonts or without ascender.
     */
    double getDescendHeight();

    /**
     * Draws a text in the encoding of the big font, its base line starting at (x, y).
     *
     * Every character ends with the callback's `next`, one without a glyph too. `wordSpan` is added
     * behind each. Line feeds are codes like any other. Where the big font is no font, every byte
     * goes to the regular one.
     * @return the width, from `x` to where the pen ends
     *
     * Kept: null as callback measures, and leaves out `wordSpan`.
     * Kept: a glyph's own change of the scale is carried over to the other font of the pair.
     * Kept: the wide form is converted by the environment's locale and then drawn byte by byte, so
     * that a regular font of 16-bit codes gets byte codes.
     */
    double drawText(ZTAbstractGlyphCallback *cb, const char *text, double x, double y,
                    double wordSpan);
    double drawText(ZTAbstractGlyphCallback *cb, const wchar_t *text, double x, double y,
                    double wordSpan);

    /** The width of a text without any space between its characters. */
    double getTextExtent(const char *text);
    double getTextExtent(const wchar_t *text);

private:
    void drawRegular(ZTAbstractGlyphCallback *cb, int code);
    void drawBig(ZTAbstractGlyphCallback *cb, int code);

    ZTShxParser *m_regFont = nullptr; ///< the manager's; null without font
    ZTShxParser *m_bigFont = nullptr; ///< the manager's; null without font
};
