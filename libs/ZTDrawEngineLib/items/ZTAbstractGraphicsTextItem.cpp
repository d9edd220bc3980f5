#include <ZTDrawEngineLib/items/ZTAbstractGraphicsTextItem.h>

#include <ZTDrawEngineLib/text/ZTTextShapeBase.h>
#include <ZTMarkDataManager/ZTVariantText.h>

ZTAbstractGraphicsTextItem::ZTAbstractGraphicsTextItem() = default;

ZTVariantText *ZTAbstractGraphicsTextItem::getVariantText() const
{
    const ZTTextShapeBase *textShape = textShapeBase();
    return textShape != nullptr ? textShape->getVarTxt() : nullptr;
}

bool ZTAbstractGraphicsTextItem::isEnableVariantText() const
{
    const ZTTextShapeBase *textShape = textShapeBase();
    return textShape != nullptr && textShape->isEnableVariantText();
}

void ZTAbstractGraphicsTextItem::setEnableVariantText(bool on)
{
    ZTTextShapeBase *textShape = textShapeBase();
    if (textShape == nullptr)
        return;
    textShape->setEnableVariantText(on);
    if (on)
        fromVariantTextSetText();
    else
        setText(getFixedText());
}

void ZTAbstractGraphicsTextItem::fromVariantTextSetText()
{
    if (const ZTVariantText *variantText = getVariantText())
        setText(variantText->getText());
}

void ZTAbstractGraphicsTextItem::setFixedText(const QString &text)
{
    ZTTextShapeBase *textShape = textShapeBase();
    if (textShape == nullptr)
        return;
    textShape->setFixedText(text);
    if (!textShape->isEnableVariantText())
        setText(getFixedText());
}

QString ZTAbstractGraphicsTextItem::getFixedText() const
{
    const ZTTextShapeBase *textShape = textShapeBase();
    return textShape != nullptr ? textShape->getFixedText() : QString();
}

ZTTextShapeBase *ZTAbstractGraphicsTextItem::textShapeBase() const
{
    return dynamic_cast<ZTTextShapeBase *>(shape);
}
