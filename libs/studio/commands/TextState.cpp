#include <studio/commands/TextState.h>

#include <QtCore/QDataStream>

namespace studio {

ZTShapeText &textShapeOf(const ZTGraphicsTextItem &item)
{
    return *static_cast<ZTShapeText *>(item.getShapeBase());
}

void showChanged(ZTGraphicsTextItem &item)
{
    ZTGraphicsResizeItem *frame = item.getResizeItem();
    if (frame != nullptr && !frame->selectItem().isEmpty())
        frame->resizeFromChild();
    item.update();
}

TextState::TextState(const ZTGraphicsTextItem &item) : m_rectMm(textShapeOf(item).getRect())
{
    QDataStream stream(&m_record, QIODevice::WriteOnly);
    textShapeOf(item).save(stream);
}

void TextState::restore(ZTGraphicsTextItem &item) const
{
    // Announces the change while the text still has its old extent: `load` does so afterwards.
    item.scale(1.0, 1.0);
    QDataStream stream(m_record);
    item.load(stream);
    textShapeOf(item).setRect(m_rectMm);
    textShapeOf(item).paint();
    showChanged(item);
}

void TextState::restoreAtPresentPart(ZTGraphicsTextItem &item) const
{
    const ZTVariantText *present = item.getVariantText();
    if (present == nullptr) {
        restore(item);
        return;
    }
    ZTVariantText kept(*present);
    restore(item);
    textShapeOf(item).cloneVariantText(&kept);
    item.fromVariantTextSetText();
    showChanged(item);
}

} // namespace studio
