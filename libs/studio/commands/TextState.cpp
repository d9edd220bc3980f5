#include <studio/commands/TextState.h>

#include <QtCore/QDataStream>

namespace studio {

ZTShapeText &textShapeOf(const ZTGraphicsTextItem &item)
{
    return *static_cast<ZTShapeText *>(item.getShapeBase());
}

ZTTextShapeBase &wordsShapeOf(const ZTAbstractGraphicsTextItem &item)
{
    return *static_cast<ZTTextShapeBase *>(item.getShapeBase());
}

ZTVariantText storedVariantText(const ZTAbstractGraphicsTextItem &item)
{
    ZTTextShapeBase &shape = wordsShapeOf(item);
    const bool isOn = shape.isEnableVariantText();
    shape.setEnableVariantText(true);
    const ZTVariantText stored = *shape.getVarTxt();
    shape.setEnableVariantText(isOn);
    return stored;
}

void showChanged(ZTAbstractGraphicsTextItem &item)
{
    ZTGraphicsResizeItem *frame = item.getResizeItem();
    if (frame != nullptr && !frame->selectItem().isEmpty())
        frame->resizeFromChild();
    item.update();
}

TextState::TextState(const ZTAbstractGraphicsTextItem &item)
    : m_rectMm(wordsShapeOf(item).getRect()), m_sizePx(item.getSize())
{
    QDataStream stream(&m_record, QIODevice::WriteOnly);
    wordsShapeOf(item).save(stream);
}

void TextState::restore(ZTAbstractGraphicsTextItem &item) const
{
    // Announces the change while the text still has its old extent: `load` does so afterwards.
    item.scale(1.0, 1.0);
    QDataStream stream(m_record);
    item.load(stream);
    wordsShapeOf(item).setRect(m_rectMm);
    wordsShapeOf(item).paint();
    item.setSize(m_sizePx);
    showChanged(item);
}

void TextState::restoreAtPresentPart(ZTAbstractGraphicsTextItem &item) const
{
    const ZTVariantText *present = item.getVariantText();
    if (present == nullptr) {
        restore(item);
        return;
    }
    ZTVariantText kept(*present);
    restore(item);
    wordsShapeOf(item).cloneVariantText(&kept);
    item.fromVariantTextSetText();
    showChanged(item);
}

} // namespace studio
