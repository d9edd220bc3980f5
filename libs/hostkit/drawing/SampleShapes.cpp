#include <hostkit/drawing/SampleShapes_p.h>

#include <hostkit/text/StrokeFont.h>

namespace hostkit {

namespace {

const QString kSystemFont = QStringLiteral("DejaVu Sans");
const QString kRegularFont = QStringLiteral("hershey-simplex.shx");
const QString kBigFont = QStringLiteral("gb-strokes.shx");
constexpr int kFontPx = 100;
constexpr double kStrokeHeight = 5.0;

} // namespace

ZTAbstractGraphicsItem *SampleShapes::add(ShapeType type, const QRectF &rectMm, int penId,
                                          int sides)
{
    ZTAbstractGraphicsItem *item = m_document.itemMag()->addShape(type, {0, 0, 10, 10});
    if (item == nullptr)
        return nullptr;
    if (auto *polygon = qobject_cast<ZTGraphicsPolygonItem *>(item))
        polygon->setSideCount(sides);
    const QRectF boxPx = item->boundingRect();
    const ZTCoord &coord = *ZTCoord::getInstance();
    item->scale(coord.mm2pix(rectMm.width()) / boxPx.width(),
                boxPx.height() > 0.0 ? coord.mm2pix(rectMm.height()) / boxPx.height() : 1.0);
    moveTo(item, rectMm.topLeft());
    item->setPenId(penId);
    return item;
}

ZTGraphicsTextItem *SampleShapes::addText(const QString &text, const QPointF &posMm,
                                          double heightMm, int penId)
{
    auto *item = qobject_cast<ZTGraphicsTextItem *>(
        m_document.itemMag()->addShape(ShapeType::Text, {0, 0, 10, 10}));
    if (item == nullptr)
        return nullptr;
    QFont font(kSystemFont);
    font.setPixelSize(kFontPx);
    item->setFont(font);
    item->setFontType(FontType::doubleLine);
    item->setFixedText(text);
    const double heightPx = item->boundingRect().height();
    if (heightPx > 0.0) {
        const double factor = ZTCoord::getInstance()->mm2pix(heightMm) / heightPx;
        item->scale(factor, factor);
    }
    moveTo(item, posMm);
    item->setPenId(penId);
    return item;
}

ZTGraphicsTextItem *SampleShapes::addStrokeText(const QString &text, const QPointF &posMm,
                                                int penId)
{
    ZTGraphicsTextItem *item = addText(text, posMm, kStrokeHeight, penId);
    if (item == nullptr)
        return nullptr;
    // A text that is made later brings the shared fonts back to their common height.
    constexpr double kFactor = kStrokeHeight / kStrokeFontUnits;
    item->setTransformParam(QTransform::fromScale(kFactor, kFactor));
    ZTShxFontManager::regFonts(); // the fonts are known after a look at the folder
    ZTShxFontParam font;
    font.enName = kRegularFont;
    font.zhName = kBigFont;
    font.height = kStrokeFontUnits;
    font.parser.init(kRegularFont.toLocal8Bit().constData(), kBigFont.toLocal8Bit().constData());
    font.parser.setTextHeight(font.height);
    item->setShxFont(font);
    item->setFontType(FontType::singleLine);
    moveTo(item, posMm);
    return item;
}

void SampleShapes::hatch(ZTAbstractGraphicsItem *item, FillType type, double spacingMm,
                         double angleDeg)
{
    if (item == nullptr)
        return;
    ZTFillParam param;
    param.fillType = type;
    param.spac = spacingMm;
    param.angle = angleDeg;
    item->setFillParam(param);
}

void SampleShapes::turn(ZTAbstractGraphicsItem *item, double angleDeg)
{
    if (item == nullptr)
        return;
    const QPointF middleMm = item->boundingRect().center() * ZTCoord::getInstance()->pix2mm(1.0);
    QTransform turned;
    turned.translate(middleMm.x(), middleMm.y());
    turned.rotate(angleDeg);
    turned.translate(-middleMm.x(), -middleMm.y());
    item->setTransformParam(item->getTransformParam() * turned);
}

void SampleShapes::repeat(ZTAbstractGraphicsItem *item, int rows, int columns, double gapMm)
{
    if (item == nullptr)
        return;
    const double gapPx = ZTCoord::getInstance()->mm2pix(gapMm);
    item->setSelected(true);
    m_document.itemMag()->addMatrix(rows, columns, gapPx, gapPx);
    item->setSelected(false);
}

void SampleShapes::moveTo(ZTAbstractGraphicsItem *item, const QPointF &topLeftMm)
{
    const QTransform toPx = ZTCoord::getInstance()->getMm2pixTransform();
    item->setPos(toPx.map(topLeftMm) - item->boundingRect().topLeft());
}

} // namespace hostkit
