#pragma once

#include <ZTDrawEngineLib/common/ZTFontParam.h>
#include <ZTDrawEngineLib/common/ZTRoundingParam.h>
#include <ZTDrawEngineLib/text/ZTTextShapeBase.h>

#include <QtCore/QVector>

/**
 * Text as geometry: lays out its lines, or its one arc, with outlines of a system font or with the
 * strokes of a stroke-font pair.
 *
 * All lines begin at the same left edge and run left to right; each stands below the whole of what
 * is drawn above it. The path always begins at (0, 0). Outline text can be hatched, stroke text
 * never is.
 *
 * Frame: font sizes, and with them the path, count as millimetres; the shape's transform brings
 * them to size.
 * Order: every setter but the switch to `FontType::None` rebuilds at once, through the virtual
 * `paint()`, some of them twice as told. A stroke font is drawn at the text height that was last
 * set for its files by anyone: nothing here sets it.
 * Failure: a stroke font without loaded fonts, `FontType::None`, and an arc whose numbers are not
 * finite give an empty shape.
 * Limit: so does a text that reaches beyond 1,000,000,000 mm. Letter spacing of a system font is at
 * most 1,000,000 pixels.
 */
class ZTDRAWENGINELIB_EXPORT ZTShapeText : public ZTTextShapeBase
{
public:
    /**
     * An empty text in the application's default font.
     *
     * Kept: the line span begins at the pixels of one millimetre, and counts as millimetres from
     * there on.
     */
    ZTShapeText();
    ZTShapeText(const ZTShapeText &other);
    ZTShapeText &operator=(const ZTShapeText &other);
    ~ZTShapeText() override;

    /** Shows another text, the way `setRoundingParam` does; the same text again changes nothing. */
    void setText(const QString &text) override;

    void paint() override;

    /** As the base, which paints; then marks the shape and paints once more. */
    void setTransformParam(const QTransform &transform) override;
    QTransform &getTransformParam() override;

    /** Stores the hatch settings and, unlike the base, rebuilds at once. */
    void setFillParam(const ZTFillParam &param) override;

    /** Reads what `save` wrote and rebuilds, with the stroke fonts of the record loaded. */
    bool load(QDataStream &stream) override;

    /** Writes the text shape's record, then the font record, then the arc record. */
    void save(QDataStream &stream) const override;

    /** Space between lines, in millimetres. */
    void setLineSpan(double spanMm);
    double getLineSpan();

    /** Space between characters, in millimetres. */
    void setWordSpan(double spanMm);
    double getWordSpan();

    /**
     * Chooses the font that is drawn. The same type again changes nothing.
     *
     * Kept: `FontType::None` is only stored: the old drawing stands until something else rebuilds.
     */
    void setFontType(FontType type);

    /** Takes the whole record, spaces included, and sets up the font that it says. */
    void setFont(const ZTFontParam &param);

    /** Takes the system font, and gives the shape the rectangle of the text under it. */
    void setFont(const QFont &font);

    /** Takes the stroke font as it is: the record's height is not handed to its parser. */
    void setFont(const ZTShxFontParam &param);
    ZTFontParam getFont() const;

    /** Stores, sets up the active font anew, then marks the shape and paints once more. */
    void setRoundingParam(const ZTRoundingParam &param);
    ZTRoundingParam getRoundingParam() const;

protected:
    /**
     * The strokes of a line in the stroke font, one path for each character of it.
     *
     * For hosts that draw characters which the pair of fonts does not have: whatever is returned is
     * laid out on the line or the arc, shown and marked. This one encodes the line in GBK and draws
     * it with the pair; a character outside GBK becomes the codec's replacement.
     *
     * Frame: path units, y downward. `pos` is where the base line begins, in the fonts' own frame
     * with y upward; a point (x, y) of theirs stands at (x, 200 - y) of the path, as
     * `ZTPathGlyphCallback` has it. `wordSpan` is added behind each character.
     * Order: while the text is laid out. Not called for an empty line on an arc.
     */
    virtual QVector<QPainterPath> strokeGlyphs(const QString &line, const QPointF &pos,
                                               double wordSpan);

private:
    void rebuild();
    void setUpActiveFont();
    void setLetterSpacing();
    QPainterPath layOut();
    void paintLine(QPainterPath &path, const QString &line, int lineOffsetPx);
    void paintSline(QPainterPath &path, const QString &line, int lineOffsetPx);

    /** Appends a line of stroke text that runs on the arc. */
    void paintSlineRound(QPainterPath &path, QString line);

    /** Appends a line of system-font text that runs on the arc. */
    void paintDlineRound(QPainterPath &path, QString line);

    ZTFontParam m_fontParam;
    ZTRoundingParam m_roundingParam;
};
