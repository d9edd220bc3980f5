#include <hostkit/drawing/SampleDrawings.h>

#include <hostkit/drawing/SampleShapes_p.h>

#include <QtCore/QIODevice>

namespace hostkit {

namespace {

constexpr double kCellMm = 20.0;
constexpr double kPitchMm = 26.0;

QRectF cellMm(int row, int column, double heightMm = kCellMm)
{
    return {column * kPitchMm - 78.0, row * kPitchMm - 39.0, kCellMm, heightMm};
}

ZTAbstractGraphicsItem *addGraphic(SampleShapes &draw, QIODevice &plotter, const QRectF &rectMm)
{
    ZTAbstractGraphicsItem *item = draw.add(ShapeType::VecGraph, rectMm, Green);
    auto *graphic = item != nullptr ? dynamic_cast<ZTVecGraph *>(item->getShapeBase()) : nullptr;
    if (graphic == nullptr)
        return nullptr;
    plotter.seek(0);
    graphic->readImage(plotter, QStringLiteral("logo.plt"));
    item->setTransformParam(QTransform());
    draw.moveTo(item, rectMm.topLeft());
    return item;
}

ZTFillParam zigzagWithoutBorder()
{
    ZTFillParam fill;
    fill.fillType = FillType::ULine;
    fill.spac = 0.5;
    fill.angle = -30.0;
    fill.isEnableBorder = false;
    return fill;
}

void drawRow(SampleShapes &draw, QIODevice &plotter, int row)
{
    const ShapeType kinds[] = {ShapeType::Rect, ShapeType::Ellipse, ShapeType::Polygon,
                               ShapeType::Line, ShapeType::TDOT};
    int column = 0;
    for (const ShapeType kind : kinds) {
        const double heightMm = kind == ShapeType::Line ? 0.0 : kCellMm * 0.7;
        ZTAbstractGraphicsItem *item =
            draw.add(kind, cellMm(row, column, heightMm), 1 + (row * 5 + column) % 16, 5 + row);
        if (row == 1)
            draw.turn(item, 25.0 + column * 10.0);
        if (row == 2)
            draw.hatch(item, FillType::Line, 0.6, 15.0 * column);
        if (row == 3 && item != nullptr && kind != ShapeType::Line)
            item->setFillParam(zigzagWithoutBorder());
        ++column;
    }
    ZTAbstractGraphicsItem *graphic = addGraphic(draw, plotter, cellMm(row, column));
    if (row == 1)
        draw.turn(graphic, 180.0);
    if (row == 2)
        draw.hatch(graphic, FillType::Line, 0.4, 45.0);
    if (row == 3 && graphic != nullptr) { // mirrored, and locked in its proportions
        graphic->scale(-1.0, 1.0);
        graphic->getShapeBase()->setLockAspectRatio(true);
        draw.moveTo(graphic, cellMm(row, column).topLeft());
    }
}

ZTVariantText serialNumber()
{
    ZTCounterSegment counter;
    counter.width = 4;
    ZTVariantText text;
    text.setSegments({ZTFixedTextSegment{QStringLiteral("SN-")}, counter,
                      ZTFixedTextSegment{QStringLiteral("  ")}, ZTDateTimeSegment{}});
    text.update(); // what is shown is the first part, so that the next one has another number
    return text;
}

ZTRoundingParam arcOf(double diameter)
{
    ZTRoundingParam arc;
    arc.isEnableRounding = true;
    arc.startAngle = -150.0;
    arc.spanAngle = 120.0;
    arc.diameter = diameter;
    return arc;
}

} // namespace

void buildShapesSample(ZTGraphicsDocument &document, QIODevice &plotter)
{
    constexpr int kRows = 4;
    SampleShapes draw(document);
    for (int row = 0; row < kRows; ++row)
        drawRow(draw, plotter, row);
}

void buildTextSample(ZTGraphicsDocument &document)
{
    SampleShapes draw(document);
    draw.addText(QStringLiteral("Outlines 0123"), {-70, -60}, 8, Blue);
    draw.hatch(draw.addText(QStringLiteral("Hatched"), {-70, -45}, 12, Red), FillType::Line, 0.3,
               30.0);
    draw.addText(QStringLiteral("two\nlines"), {-70, -25}, 18, Black);
    draw.addStrokeText(QStringLiteral("Strokes 0123"), {10, -60}, Green);
    draw.addStrokeText(QStringLiteral("\u4e2d\u6587 ABC"), {10, -45}, Magenta);
    draw.addStrokeText(QStringLiteral("two\nlines"), {10, -30}, Orange);

    ZTGraphicsTextItem *arc = draw.addText(QStringLiteral("Text on an arc"), {-70, 5}, 6, Blue);
    ZTGraphicsTextItem *strokeArc =
        draw.addStrokeText(QStringLiteral("Strokes on an arc"), {62, 5}, Green);
    if (arc == nullptr || strokeArc == nullptr)
        return;
    arc->setRoundingParam(arcOf(900.0));
    strokeArc->setRoundingParam(arcOf(1000.0));

    ZTGraphicsTextItem *serial = draw.addText(QStringLiteral("0000"), {-70, 45}, 8, Black);
    ZTVariantText number = serialNumber();
    auto *shape = static_cast<ZTTextShapeBase *>(serial->getShapeBase());
    shape->cloneVariantText(&number);
    serial->setEnableVariantText(true);
}

void buildMatrixSample(ZTGraphicsDocument &document)
{
    constexpr int kSide = 100;
    SampleShapes draw(document);
    ZTAbstractGraphicsItem *cell = draw.add(ShapeType::Rect, {-150, -150, 2, 2}, Blue);
    draw.hatch(cell, FillType::Line, 0.5, 0.0);
    draw.repeat(cell, kSide, kSide, 1.0);
}

} // namespace hostkit
