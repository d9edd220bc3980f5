#pragma once

#include <ZTDrawEngineLib/shx/ZTAbstractGlyphCallback.h>

#include <QtCore/QtGlobal>

#include <bitset>
#include <memory>
#include <string>
#include <utility>
#include <vector>

class QPointF;
class ZTShxFontFile;

/** What kind of stroke-font file a parser holds. The numbers are part of the interface. */
enum class SHX_TYPE {
    SHX_SHAPES = 0,     ///< byte codes, with font information: the first code of the index is 0
    SHX_UNIFONT = 1,    ///< 16-bit codes
    SHX_BIGFONT = 2,    ///< one- and two-byte codes, told apart by ranges of lead bytes
    SHX_SHAPE_ONLY = 3, ///< byte codes without font information
    SHX_NONE = 4        ///< no file, or one that is no stroke font
};

/**
 * One SHX stroke-font file: finds its glyphs and draws text in it, stroke by stroke.
 *
 * Text comes out through a `ZTAbstractGlyphCallback`; without one the text is measured, which takes
 * the pen the same way and gives the same width.
 *
 * Frame: drawing units, y upward. A glyph as tall as the font's ascender comes out `getTextHeight`
 * high. The pen runs on from glyph to glyph: what a glyph does to it is its advance width.
 * Order: `init` (or the constructor with a path) first; GUI thread only, drawing calls never
 * overlap. The callback must not use the parser that calls it.
 * Owner: the file image is shared by a parser and its copies and goes with the last of them.
 * Failure: never an exception or a message. A file that cannot be used leaves `SHX_NONE`, and a
 * glyph that is missing or cut short draws nothing, or as much as there is.
 * Source of the format: `docs/formats/shx.md`.
 *
 * Kept: a byte or code without a glyph draws nothing and takes no room.
 * Kept: a glyph's own changes of the scale, and positions that it pushed and did not pop, hold
 * until the end of the drawing call.
 * Limit: a file of 256 MiB; subshapes nested 1,000 deep (deeper ones draw nothing); 2,000,000
 * codes, arc points and name bytes a drawing call and 1,000 more for each of its characters (then
 * nothing more is drawn); 4,000,000 pushed positions (then the oldest are forgotten).
 */
class ZTDRAWENGINELIB_EXPORT ZTShxParser
{
    friend class ZTRegBigFontShxParser;

public:
    /** Holds no file; text height and scale are 0 until `init`. */
    ZTShxParser();

    /** As the default constructor, then `init(path)`. */
    explicit ZTShxParser(const char *path);

    /** A copy stands for itself from then on, but for the image, which both read. */
    ZTShxParser(const ZTShxParser &other);
    ZTShxParser &operator=(const ZTShxParser &other);
    ~ZTShxParser();

    /**
     * Loads a font file, and tells the kind by its keyword; the text height becomes 1.
     *
     * Failure: `GetType` gives `SHX_NONE` for a null or empty path, a file that cannot be opened or
     * is no regular file, an unknown keyword, and a header that is cut short.
     * Kept: the ascender outlives a failed call, and the lead-byte ranges of a big font are added
     * to those of the file before.
     */
    void init(const char *path);

    /**
     * Lets go of the file image; without a loaded file it does nothing.
     *
     * What the parser tells about itself stays, its kind included, but until the next `init` it
     * draws no glyph. Copies keep theirs.
     */
    void cleanup();

    SHX_TYPE GetType(); ///< form of the file; `SHX_NONE` before one was loaded

    /** Height of a glyph as tall as the ascender; a negative height counts as positive. */
    void setTextHeight(double height);
    double getTextHeight() const;

    /**
     * Draws a text with its base line starting at (x, y); null measures only.
     *
     * Bytes are the codes of a "shapes" font, one- and two-byte codes in a big font. For a font of
     * 16-bit codes they are converted by the environment's locale, and so is wide text for the two
     * other forms; text that has no such form draws as an empty one and prints "convert error!\n"
     * on standard output. A big-font text that ends in a lead byte gets 0 as its second byte.
     *
     * Failure: with `SHX_NONE` nothing is drawn, and the result is the pen's last x minus `x`.
     * @return the width, from `x` to where the pen ends; not finite for a font without ascender
     */
    double drawText(ZTAbstractGlyphCallback *cb, const char *text, double x, double y);
    double drawText(ZTAbstractGlyphCallback *cb, const wchar_t *text, double x, double y);

    /** The width that `drawText` would give at (0, 0). */
    double getTextExtent(const char *text);
    double getTextExtent(const wchar_t *text);

    /** Starts the walk over all glyphs anew: the next `showNextGlyph` draws the first one. */
    void resetNextGlyph();

    /**
     * Draws the next glyph of the file at (x, y); for those who show what a font holds.
     *
     * Each call ends the stroke before it and leaves its own last stroke open. Slots without a
     * glyph draw nothing. Order: after `resetNextGlyph`; before it, or after a new `init`, the
     * answer is false.
     *
     * Kept: in a "shapes" file the emptiness of a slot is read from the low byte of its code, so
     * that a code such as 0x100 is passed over.
     * @return whether more remain
     */
    bool showNextGlyph(ZTAbstractGlyphCallback *cb, double x, double y);

private:
    void initShapes();
    void initBigfont();
    void initUnifont();
    void addEscapeRange(unsigned char first, unsigned char last);
    bool isEscapeChar(unsigned char c);

    double fontScale() const;
    void beginDrawing(double x, double y);
    void beginText(ZTAbstractGlyphCallback *cb, double x, double y);
    void drawCharacter(ZTAbstractGlyphCallback *cb, int code);
    int takeBigfontCode(const unsigned char *&text);
    void continueFrom(const ZTShxParser &other);
    void drawBytes(ZTAbstractGlyphCallback *cb, const char *text, double x, double y);
    void drawWide(ZTAbstractGlyphCallback *cb, const wchar_t *text, double x, double y);

    void showUnifontGlyph(ZTAbstractGlyphCallback *cb);
    void showBigfontGlyph(ZTAbstractGlyphCallback *cb);
    void showShapesGlyph(ZTAbstractGlyphCallback *cb);
    bool hasNextRecord(int size) const;

    void parseGlyph(ZTAbstractGlyphCallback *cb, int code);
    void parseDefinition(ZTAbstractGlyphCallback *cb, const unsigned char *start, int length);
    void parseDefBytes(ZTAbstractGlyphCallback *cb, const unsigned char *bytes, int length);
    void parseOneCode(ZTAbstractGlyphCallback *cb, const unsigned char *&bytes, int &length);
    void parseLenDirByte(ZTAbstractGlyphCallback *cb, unsigned char code);
    void measureMoves(const unsigned char *&bytes, int &length);
    void caseCodes3And4(unsigned char code, const unsigned char *&bytes, int &length);
    void caseCode5();
    void caseCode6(ZTAbstractGlyphCallback *cb);
    void caseCode7(ZTAbstractGlyphCallback *cb, const unsigned char *&bytes, int &length);
    bool caseCode8(ZTAbstractGlyphCallback *cb, const unsigned char *&bytes, int &length);
    void caseCodeA(ZTAbstractGlyphCallback *cb, const unsigned char *&bytes, int &length);
    void caseCodeB(ZTAbstractGlyphCallback *cb, const unsigned char *&bytes, int &length);
    bool caseCodeC(ZTAbstractGlyphCallback *cb, const unsigned char *&bytes, int &length);
    void caseCodeE(const unsigned char *&bytes, int &length);
    void drawLine(ZTAbstractGlyphCallback *cb) const;
    static void emitVertex(ZTAbstractGlyphCallback *cb, double x, double y);
    static void restartStroke(ZTAbstractGlyphCallback *cb, double x, double y);

    struct Circle;
    Circle circleThroughPen(double radius, double startOctant) const;
    void movePenAlong(const Circle &circle, double endOctant);
    static bool solveBulge(const QPointF &from, const QPointF &to, double height, Circle &circle);
    void flattenBulge(ZTAbstractGlyphCallback *cb, const QPointF &from, const QPointF &chord,
                      int bulge);
    void flattenArc(ZTAbstractGlyphCallback *cb, const Circle &circle, double startRad,
                    double sweepRad);

    bool has(const unsigned char *bytes, int count) const;
    void endDefinition(const unsigned char *&bytes, int &length) const;

    double m_textHeight = 0.0;
    quint32 m_below = 0; ///< descender in font units
    quint32 m_above = 0; ///< ascender in font units, divisor of the scale
    double m_scale = 0.0;
    SHX_TYPE m_type = SHX_TYPE::SHX_NONE;
    std::vector<std::pair<unsigned char, unsigned char>> m_escapeRanges; ///< first, last lead byte
    bool m_penDown = false;
    double m_x = 0.0;
    double m_y = 0.0;
    std::vector<double> m_posStack;             ///< x and y in turn; the last is the top
    const unsigned char *m_buffer = nullptr;    ///< inside `m_file`, as are the next three
    const unsigned char *m_bufferEnd = nullptr; ///< one past the image's last byte
    const unsigned char *m_index = nullptr;     ///< first record of the glyph index
    qint32 m_glyphCount = 0;                    ///< records as the file claims
    std::string m_filePath;                     ///< empty: nothing was ever loaded
    const unsigned char *m_nextEntry = nullptr; ///< glyph walk: the next record; null: not begun
    qint32 m_nextDataOffset = 0;                ///< glyph walk: its place in the data area
    qint32 m_nextIndex = 0;                     ///< glyph walk: records visited

    std::shared_ptr<ZTShxFontFile> m_file; ///< keeps the image; null when none is held
    std::bitset<256> m_leadBytes;          ///< what `m_escapeRanges` covers
    qint64 m_stepsLeft = 0;                ///< of this drawing call
    int m_depth = 0;                       ///< subshapes open at present
};
