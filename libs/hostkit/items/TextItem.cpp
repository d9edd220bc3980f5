#include <hostkit/items/TextItem.h>

#include <hostkit/text/StrokeFont.h>
#include <hostkit/text/UnicodeStrokes.h>

#include <QtCore/QCoreApplication>

#include <algorithm>

namespace hostkit {

namespace {

constexpr int kMostNamed = 40;

bool isAscii(const QString &text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 0x80; });
}

} // namespace

void TextShape::paint()
{
    if (isUpdate()) {
        ZTFontParam font = getFont();
        if (font.fontType == FontType::singleLine)
            setStrokeHeight(&font.shxFont);
    }
    ZTShapeText::paint();
}

QString TextShape::notReadyReason() const
{
    ZTFontParam font = getFont();
    const bool hasFonts = font.shxFont.parser.getTextExtent("W") > 0.0; // both, that is
    if (font.fontType != FontType::singleLine || !hasFonts)
        return {};
    const MissingCharacters missing = missingCharacters(text(), font);
    const QStringList all = missing.noGlyph + missing.notEncoded;
    if (all.isEmpty())
        return {};
    return QCoreApplication::translate("hostkit::TextItem",
                                       "characters missing in its stroke fonts: %1")
        .arg(all.mid(0, kMostNamed).join(QLatin1Char(' ')));
}

QVector<QPainterPath> TextShape::strokeGlyphs(const QString &line, const QPointF &pos,
                                              double wordSpan)
{
    if (isAscii(line)) // the pair has it all
        return ZTShapeText::strokeGlyphs(line, pos, wordSpan);
    const QString composed = composedText(line);
    const ZTShxFontParam font = getFont().shxFont;
    if (!needsUnicodeFont(composed, font))
        return ZTShapeText::strokeGlyphs(composed, pos, wordSpan);
    return strokeGlyphsOfBoth(composed, font, pos, wordSpan);
}

TextItem::TextItem()
{
    // Not painted once more: a new text is in a system font, where both kinds of shape are alike.
    replaceTextShape(new TextShape(static_cast<const ZTShapeText &>(*getShapeBase())));
}

void TextItem::copy(ZTAbstractGraphicsItem *source)
{
    const auto *copied =
        source != nullptr ? dynamic_cast<const ZTShapeText *>(source->getShapeBase()) : nullptr;
    if (copied == nullptr)
        return;
    replaceTextShape(new TextShape(*copied));
    rebuildShape();
}

TextItemFactory *TextItemFactory::getInstance()
{
    static TextItemFactory factory;
    return &factory;
}

} // namespace hostkit
