#include <hostkit/items/StrokeFontHeights.h>

#include <hostkit/items/ShapeItems.h>
#include <hostkit/items/TextItem.h>

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

QVector<StrokeFontHeight> strokeFontHeights(const QVector<ZTAbstractGraphicsItem *> &items)
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
    QVector<StrokeFontHeight> heights;
    for (const QString &name : names) {
        if (const ZTShxParser *font = fontNamed(name))
            heights << StrokeFontHeight{name, font->getTextHeight()};
    }
    return heights;
}

QVector<StrokeFontHeight> recordedFontHeights(const QVector<ZTAbstractGraphicsItem *> &items)
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
    QVector<StrokeFontHeight> list;
    for (auto height = heights.begin(); height != heights.end(); ++height)
        list << StrokeFontHeight{height.key(), height.value()};
    return list;
}

void setStrokeFontHeights(const QVector<StrokeFontHeight> &heights)
{
    for (const StrokeFontHeight &wanted : heights) {
        ZTShxParser *font = fontNamed(wanted.fileName);
        if (font != nullptr && std::isfinite(wanted.height))
            font->setTextHeight(wanted.height);
    }
}

} // namespace hostkit
