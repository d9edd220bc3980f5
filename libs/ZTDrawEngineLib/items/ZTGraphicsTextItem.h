#pragma once

#include <ZTDrawEngineLib/common/ZTFontParam.h>
#include <ZTDrawEngineLib/common/ZTRoundingParam.h>
#include <ZTDrawEngineLib/items/ZTAbstractGraphicsTextItem.h>

class ZTShapeText;

/**
 * A text in a scene, over `ZTShapeText`.
 *
 * A new one shows "TEXT" in the application's font, 100 pixels high at a tenth of its size, and
 * has the first stroke fonts that `ZTShxFontManager` lists at hand.
 *
 * Failure: where a list of stroke fonts is empty, "ShxFont regFonts empty" or "ShxFont bigFonts
 * empty" goes to the debug log, and the new item has no stroke font and no text yet.
 */
class ZTDRAWENGINELIB_EXPORT ZTGraphicsTextItem : public ZTAbstractGraphicsTextItem
{
    Q_OBJECT
    Q_PROPERTY(ZTRoundingParam roundingParam READ getRoundingParam WRITE setRoundingParam)
    Q_PROPERTY(double lineSpan READ getLineSpan WRITE setLineSpan)
    Q_PROPERTY(QFont font READ font WRITE setFont)
    Q_PROPERTY(ZTShxFontParam shxFont READ shxFont WRITE setShxFont)
    Q_PROPERTY(FontType fontType READ fontType WRITE setFontType)

public:
    ZTGraphicsTextItem();
    ~ZTGraphicsTextItem() override;

    void copy(ZTAbstractGraphicsItem *source) override;

    QString text() const override;

    /** Shows a text without storing it as the fixed one; the same text again changes nothing. */
    void setText(const QString &text) override;

    /**
     * Space between lines, in millimetres.
     *
     * Kept: the shape gets the pixels of it, and takes them for millimetres.
     */
    double getLineSpan() const;
    void setLineSpan(double spanMm);

    /** The font that is drawn; setting the same one again changes nothing. */
    FontType fontType() const;
    void setFontType(FontType type);

    /** Stroke font. Its parser is drawn as it comes: initialised, and of the height it was set. */
    ZTShxFontParam shxFont() const;
    void setShxFont(const ZTShxFontParam &param);

    /** System font; the letter spacing in it is the text's space between characters. */
    QFont font() const;
    void setFont(const QFont &font);

    ZTRoundingParam getRoundingParam() const;            ///< text on an arc: angles in degrees
    void setRoundingParam(const ZTRoundingParam &param); ///< lays the text out anew

    /** The whole font record. */
    ZTFontParam getFontParam() const;
    void setFontParam(const ZTFontParam &param);

protected:
    /**
     * Owns `replacement` instead of the shape so far, under the same shape id, for items whose text
     * is of a derived class. Does not rebuild it. Null changes nothing.
     */
    void replaceTextShape(ZTShapeText *replacement);

private:
    template <class Change>
    void changeShape(Change change);

    ZTShapeText *m_textShape; ///< the object that `shape` owns
};
