#include <studio/text/SharedCounter.h>

#include <studio/commands/TextState.h>

#include <hostkit/items/ItemExtras.h>

namespace studio {

namespace {

void setValuesPerPart(ShapeItem &item, int values)
{
    hostkit::ItemExtras extras = hostkit::itemExtras(item);
    extras.valuesPerPart = values;
    hostkit::setItemExtras(item, extras);
}

} // namespace

ZTAbstractGraphicsTextItem *wordsItem(ShapeItem *item)
{
    return qobject_cast<ZTAbstractGraphicsTextItem *>(item);
}

void shareCounter(ZTAbstractGraphicsTextItem &first, const ShapeItems &others)
{
    if (first.getVariantText() == nullptr)
        return;
    ZTVariantText running(*first.getVariantText());
    QVector<ZTAbstractGraphicsTextItem *> sharing{&first};
    for (ShapeItem *item : others) {
        if (ZTAbstractGraphicsTextItem *words = wordsItem(item))
            sharing.append(words);
    }
    if (sharing.size() > hostkit::kMostValuesPerPart)
        return;
    for (ZTAbstractGraphicsTextItem *item : sharing) {
        if (item != &first) {
            running.update();
            wordsShapeOf(*item).cloneVariantText(&running);
            item->setEnableVariantText(true);
            showChanged(*item);
        }
        setValuesPerPart(*item, sharing.size());
    }
}

} // namespace studio
