#include "RandomDrawing.h"

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QDebug>

namespace testsupport {

void RandomDrawing::add(ZTGraphicsDocument &document, int items)
{
    for (int i = 0; i < items; ++i)
        addOne(document);
}

void RandomDrawing::addOne(ZTGraphicsDocument &document)
{
    const ShapeType type = kinds[random.bounded(kinds.size())];
    ZTAbstractGraphicsItem *item = document.itemMag()->addShape(type, QRectF(0, 0, 10, 10));
    item->setPos(real(-2000.0, 2000.0), real(-2000.0, 2000.0));
    setShape(*item);
    if (auto *text = qobject_cast<ZTGraphicsTextItem *>(item))
        setText(*text);
    if (auto *polygon = qobject_cast<ZTGraphicsPolygonItem *>(item))
        polygon->setSideCount(random.bounded(1, 12));
    if (auto *line = qobject_cast<ZTGraphicsLineItem *>(item)) {
        if (oneIn(2))
            line->setLength(real(1, 60));
        if (oneIn(2))
            line->setAngle(real(-360, 360));
    }
    if (auto *graphic = dynamic_cast<ZTVecGraph *>(item->getShapeBase()))
        graphic->setDrawing(drawing(), QStringLiteral("/nowhere/%1.plt").arg(random.bounded(5)));
    if (!withMatrices || !oneIn(6))
        return;
    item->setSelected(true);
    document.itemMag()->addMatrix(random.bounded(1, 4), random.bounded(1, 4), 3.0, 4.0);
    item->setSelected(false);
}

void RandomDrawing::setShape(ZTAbstractGraphicsItem &item)
{
    ZTShapeBase &shape = *item.getShapeBase();
    if (oneIn(2))
        shape.setRect(QRectF(real(-5, 5), real(-5, 5), real(0, 40), real(0, 40)));
    if (oneIn(2))
        item.setTransformParam(transform());
    if (oneIn(6))
        shape.setRoundingTransformParam(transform());
    if (oneIn(2))
        item.setFillParam(fill());
    if (oneIn(8))
        shape.setShapeType(static_cast<ShapeType>(random.bounded(12)));
    if (oneIn(8))
        shape.setId(static_cast<int>(random.bounded(1000U)) - 500);
    shape.setLockAspectRatio(oneIn(2));
    shape.setPenId(random.bounded(-1, 20));
}

void RandomDrawing::setText(ZTGraphicsTextItem &item)
{
    auto &shape = static_cast<ZTShapeText &>(*item.getShapeBase());
    const QString shown = text();
    shape.setFixedText(shown);
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(random.bounded(5, 30));
    font.setBold(oneIn(3));
    font.setItalic(oneIn(3));
    font.setUnderline(oneIn(5));
    font.setStretch(random.bounded(50, 200));
    item.setFont(font);
    item.setText(shown);
    if (!strokeFonts.isEmpty()) {
        ZTShxFontParam param;
        param.enName = strokeFonts[0];
        param.zhName = strokeFonts[1];
        param.height = real(1, 20);
        param.parser.init(param.enName.toLocal8Bit(), param.zhName.toLocal8Bit());
        param.parser.setTextHeight(param.height);
        item.setShxFont(param);
        item.setFontType(oneIn(2) ? FontType::singleLine : FontType::doubleLine);
    }
    if (oneIn(3))
        shape.setWordSpan(real(0, 3));
    if (oneIn(3))
        shape.setLineSpan(real(0, 3));
    if (oneIn(3)) {
        ZTRoundingParam arc;
        arc.isEnableRounding = oneIn(2);
        arc.startAngle = real(-360, 360);
        arc.spanAngle = real(-180, 180);
        arc.diameter = real(10, 300);
        arc.itemRotate = real(0, 360);
        arc.roundingFlag = random.bounded(3);
        item.setRoundingParam(arc);
    }
    if (oneIn(3))
        setVariantText(item);
    if (oneIn(3)) // not the one that the font gives it
        shape.setRect(QRectF(real(-5, 5), real(-5, 5), real(0, 40), real(0, 40)));
}

void RandomDrawing::setVariantText(ZTGraphicsTextItem &item)
{
    auto &shape = static_cast<ZTShapeText &>(*item.getShapeBase());
    ZTCounterSegment counter;
    counter.start = random.bounded(1000);
    counter.width = random.bounded(6);
    ZTVariantText variant;
    variant.setSegments({ZTFixedTextSegment{text()}, counter, ZTDateTimeSegment{}});
    shape.cloneVariantText(&variant);
    shape.setEnableVariantText(true);
    for (int updates = random.bounded(3); updates > 0; --updates)
        shape.fromVariantTextUpdateText();
    if (oneIn(2))
        shape.setEnableVariantText(false);
    if (oneIn(3))
        ZTVariantTextManager::getInstance()->newItem(&shape);
}

QPainterPath RandomDrawing::drawing()
{
    QPainterPath path;
    if (oneIn(6))
        return path;
    // Few different ones, so that some shapes share theirs.
    QRandomGenerator ofDrawing(static_cast<quint32>(random.bounded(4)));
    const int polylines = ofDrawing.bounded(1, 5);
    for (int i = 0; i < polylines; ++i) {
        QPolygonF polyline;
        const int points = ofDrawing.bounded(2, 9);
        for (int k = 0; k < points; ++k)
            polyline << QPointF(ofDrawing.bounded(30), ofDrawing.bounded(20));
        path.addPolygon(polyline);
    }
    return path;
}

QTransform RandomDrawing::transform()
{
    QTransform made;
    made.translate(real(-10, 10), real(-10, 10));
    made.rotate(real(-180, 180));
    made.shear(real(-0.5, 0.5), real(-0.5, 0.5));
    made.scale(real(-2, 2), real(-2, 2));
    return made;
}

ZTFillParam RandomDrawing::fill()
{
    ZTFillParam param;
    param.fillType = static_cast<FillType>(random.bounded(3));
    param.spac = real(1.5, 6.0);
    param.angle = real(-200, 200);
    param.isEnableBorder = oneIn(2);
    return param;
}

QString RandomDrawing::text()
{
    static const QString kCharacters = QStringLiteral("AWB L?\nÄ\u4F60\u597D0123456789x");
    QString made;
    for (int length = random.bounded(8); length > 0; --length)
        made += kCharacters[random.bounded(kCharacters.size())];
    return made;
}

bool sameGraph(const ZTMarkGraph &actual, const ZTMarkGraph &expected)
{
    if (actual.objects.size() != expected.objects.size()) {
        qDebug() << actual.objects.size() << "objects instead of" << expected.objects.size();
        return false;
    }
    for (int i = 0; i < actual.objects.size(); ++i) {
        const ZTMarkObject &a = actual.objects[i];
        const ZTMarkObject &e = expected.objects[i];
        if (a.penId == e.penId && a.rect == e.rect && a.lines == e.lines &&
            a.fillLines == e.fillLines)
            continue;
        qDebug() << "object" << i << "pen" << a.penId << e.penId << "rect" << a.rect << e.rect
                 << "lines" << a.lines << e.lines << "hatch" << a.fillLines.size()
                 << e.fillLines.size();
        return false;
    }
    return actual.rect == expected.rect;
}

} // namespace testsupport
