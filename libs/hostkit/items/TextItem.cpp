#include <hostkit/items/TextItem.h>

#include <hostkit/text/StrokeFont.h>

namespace hostkit {

void TextShape::paint()
{
    if (isUpdate()) {
        ZTFontParam font = getFont();
        if (font.fontType == FontType::singleLine)
            setStrokeHeight(&font.shxFont);
    }
    ZTShapeText::paint();
}

TextItem::TextItem()
{
    replaceTextShape(new TextShape(static_cast<const ZTShapeText &>(*getShapeBase())));
    rebuildShape();
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
