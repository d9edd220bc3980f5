#include "AllKindsDrawing.h"

#include <support/TinyFonts.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

namespace testsupport {

namespace {

ZTAbstractGraphicsItem &added(ZTGraphicsDocument &document, ShapeType type, const QPointF &posPx)
{
    ZTAbstractGraphicsItem *item = document.itemMag()->addShape(type, {0, 0, 10, 10});
    item->setPos(posPx);
    return *item;
}

void setAll(ZTAbstractGraphicsItem &item, int number)
{
    QTransform turned;
    turned.translate(number, -number).rotate(10.0 * number).scale(1.5, -0.75);
    ZTShapeBase &shape = *item.getShapeBase();
    shape.setRect({1.0, 2.0, 20.0 + number, 12.0});
    shape.setRoundingTransformParam(QTransform::fromTranslate(0.5 * number, 0.25));
    item.setTransformParam(turned);
    ZTFillParam fill;
    fill.fillType = number % 2 == 0 ? FillType::Line : FillType::ULine;
    fill.spac = 1.0 + 0.25 * number;
    fill.angle = 15.0 * number;
    fill.isEnableBorder = number % 3 != 0;
    item.setFillParam(fill);
    shape.setLockAspectRatio(number % 2 == 0);
    shape.setPenId(number + 1);
}

ZTGraphicsTextItem &addText(ZTGraphicsDocument &document, const QPointF &posPx)
{
    auto &item = static_cast<ZTGraphicsTextItem &>(added(document, ShapeType::Text, posPx));
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(20);
    font.setBold(true);
    item.setFont(font);
    item.setFontType(FontType::doubleLine);
    item.setFixedText(QStringLiteral("A\nB"));
    return item;
}

ZTShapeText &shapeOf(ZTGraphicsTextItem &item)
{
    return static_cast<ZTShapeText &>(*item.getShapeBase());
}

void addOutlineText(ZTGraphicsDocument &document)
{
    ZTGraphicsTextItem &item = addText(document, {-300.0, 40.0});
    shapeOf(item).setWordSpan(0.5);
    item.setLineSpan(2.0);
    ZTRoundingParam arc;
    arc.isEnableRounding = true;
    arc.startAngle = 30.0;
    arc.spanAngle = 120.0;
    arc.diameter = 150.0;
    arc.itemRotate = 5.0;
    arc.roundingFlag = 1;
    item.setRoundingParam(arc);
    setAll(item, 7);
}

void addStrokeText(ZTGraphicsDocument &document)
{
    ZTGraphicsTextItem &item = addText(document, {-300.0, 120.0});
    item.setShxFont(tinyFont(12.0));
    item.setFontType(FontType::singleLine);
    item.setFixedText(QStringLiteral("AB\u4F60"));
    setAll(item, 8);
}

void addVariantText(ZTGraphicsDocument &document)
{
    ZTGraphicsTextItem &item = addText(document, {-300.0, 200.0});
    ZTCounterSegment counter;
    counter.start = 41;
    counter.width = 4;
    ZTVariantText serial;
    serial.setSegments({ZTFixedTextSegment{QStringLiteral("SN-")}, counter});
    shapeOf(item).cloneVariantText(&serial);
    shapeOf(item).setEnableVariantText(true);
    shapeOf(item).fromVariantTextUpdateText();
    setAll(item, 9);
    ZTVariantTextManager::getInstance()->newItem(&shapeOf(item));
}

void addImported(ZTGraphicsDocument &document)
{
    ZTAbstractGraphicsItem &item = added(document, ShapeType::VecGraph, {40.0, 300.0});
    QPainterPath drawing;
    drawing.addPolygon(QPolygonF(QVector<QPointF>{{0.0, 20.0}, {10.0, 0.0}, {20.0, 20.0}}));
    drawing.addPolygon(QPolygonF(QVector<QPointF>{{0.0, 0.0}, {20.0, 10.0}}));
    static_cast<ZTVecGraph &>(*item.getShapeBase())
        .setDrawing(drawing, QStringLiteral("/nowhere/logo.plt"));
    setAll(item, 6);
}

} // namespace

void drawAllKinds(ZTGraphicsDocument &document)
{
    document.itemMag()->setScale(64.0F, 32.0F);
    document.view()->setWorkArea(QRect(-100, -50, 200, 100));
    ZTCoord::getInstance()->setDistance(65536.0);
    setAll(added(document, ShapeType::Rect, {-300.0, -200.0}), 1);
    ZTAbstractGraphicsItem &line = added(document, ShapeType::Line, {-100.0, -200.0});
    setAll(line, 2);
    line.setProperty("length", 50.0);
    line.setProperty("angle", 30.0);
    setAll(added(document, ShapeType::Ellipse, {100.0, -200.0}), 3);
    ZTAbstractGraphicsItem &polygon = added(document, ShapeType::Polygon, {300.0, -200.0});
    polygon.setProperty("SideCount", 7);
    setAll(polygon, 4);
    setAll(added(document, ShapeType::TDOT, {0.0, 0.0}), 5);
    addImported(document);
    addOutlineText(document);
    addStrokeText(document);
    addVariantText(document);
}

} // namespace testsupport
