#include <hostkit/text/StrokeFontHeights_p.h>

#include <hostkit/text/TextItem.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QMap>

#include <cmath>
#include <set>

namespace hostkit {

namespace {

ZTShxParser *fontNamed(const QString &fileName)
{
    return ZTShxFontManager::getFont(fileName.toLocal8Bit().toStdString(), 1);
}

} // namespace

ZTShapeText *textOf(const ZTAbstractGraphicsItem &item)
{
    return dynamic_cast<ZTShapeText *>(item.getShapeBase());
}

QVector<ZTAbstractGraphicsItem *> shapeItemsOf(const ZTGraphicsDocument &document)
{
    QVector<ZTAbstractGraphicsItem *> found;
    for (QGraphicsItem *candidate : document.itemMag()->scene()->items(Qt::AscendingOrder)) {
        if (auto *item = dynamic_cast<ZTAbstractGraphicsItem *>(candidate))
            found << item;
    }
    return found;
}

QVector<DrawingFontHeight> strokeFontHeights(const QVector<ZTAbstractGraphicsItem *> &items)
{
    std::set<QString> names;
    for (const ZTAbstractGraphicsItem *item : items) {
        const ZTShapeText *text = textOf(*item);
        if (text == nullptr)
            continue;
        ZTShxFontParam font = text->getFont().shxFont;
        if (font.parser.getTextHeight() == 0.0) // no fonts, or none that draw
            continue;
        names.insert(font.enName);
        names.insert(font.zhName);
    }
    QVector<DrawingFontHeight> heights;
    for (const QString &name : names) {
        if (const ZTShxParser *font = fontNamed(name))
            heights << DrawingFontHeight{name, font->getTextHeight()};
    }
    return heights;
}

QVector<DrawingFontHeight> recordedFontHeights(const QVector<ZTAbstractGraphicsItem *> &items)
{
    QMap<QString, double> heights;
    for (const ZTAbstractGraphicsItem *item : items) {
        const ZTShapeText *text = textOf(*item);
        if (text == nullptr)
            continue;
        ZTShxFontParam font = text->getFont().shxFont;
        const double sharedHeight = font.parser.getTextHeight();
        if (sharedHeight == 0.0) // no fonts, or none that draw
            continue;
        const bool hasOwnHeight = dynamic_cast<const TextShape *>(text) != nullptr;
        const double height = hasOwnHeight ? font.height : sharedHeight;
        if (!std::isfinite(height) || height <= 0.0)
            continue;
        for (const QString &name : {font.enName, font.zhName}) {
            if (!name.isEmpty())
                heights.insert(name, height);
        }
    }
    QVector<DrawingFontHeight> list;
    for (auto height = heights.begin(); height != heights.end(); ++height)
        list << DrawingFontHeight{height.key(), height.value()};
    return list;
}

void setStrokeFontHeights(const QVector<DrawingFontHeight> &heights)
{
    for (const DrawingFontHeight &wanted : heights) {
        ZTShxParser *font = fontNamed(wanted.fileName);
        if (font != nullptr && std::isfinite(wanted.height))
            font->setTextHeight(wanted.height);
    }
}

} // namespace hostkit
