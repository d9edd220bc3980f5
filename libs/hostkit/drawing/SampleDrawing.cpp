#include <hostkit/drawing/SampleDrawing.h>

#include <hostkit/drawing/SampleShapes_p.h>

#include <QtCore/QtMath>

namespace hostkit {

namespace {

/** A frame of four lines: a rectangle would catch each click inside it. */
void drawFrame(SampleShapes &draw, const QRectF &rectMm)
{
    for (const double y : {rectMm.top(), rectMm.bottom()})
        draw.add(ShapeType::Line, {rectMm.left(), y, rectMm.width(), 0}, Black);
    const double left = rectMm.center().x() - rectMm.height() / 2;
    for (const double x : {rectMm.left(), rectMm.right()}) {
        const double shift = x - rectMm.center().x();
        draw.turn(draw.add(ShapeType::Line, {left + shift, rectMm.center().y(), rectMm.height(), 0},
                           Black),
                  90);
    }
}

void drawPlate(SampleShapes &draw)
{
    drawFrame(draw, {-60, -40, 120, 80});
    drawFrame(draw, {-58, -38, 116, 76});
    for (const double x : {-54.0, 50.0}) {
        for (const double y : {-34.0, 30.0})
            draw.hatch(draw.add(ShapeType::Ellipse, {x, y, 4, 4}, Blue), FillType::ULine, 0.4, 45);
    }
}

void drawTitleBlock(SampleShapes &draw)
{
    draw.hatch(draw.add(ShapeType::Rect, {-44, -34, 88, 10}, Red), FillType::ULine, 0.8, 30);
    draw.add(ShapeType::Line, {-44, -20, 88, 0}, Red);
}

void drawDial(SampleShapes &draw)
{
    constexpr int kSteps = 6;
    constexpr double kHexagonWidth = 0.866; // of its height, standing on a corner
    for (int i = 0; i < kSteps; ++i) {
        const QSizeF halfMm = QSizeF(kHexagonWidth, 1.0) * (17.0 - 2.2 * i);
        ZTAbstractGraphicsItem *polygon = draw.add(
            ShapeType::Polygon, {{-30 - halfMm.width(), 8 - halfMm.height()}, 2 * halfMm}, Blue, 6);
        draw.turn(polygon, 10.0 * i);
        if (i == kSteps - 1)
            draw.hatch(polygon, FillType::Line, 0.5, 0);
    }
}

void drawRings(SampleShapes &draw)
{
    constexpr int kRings = 5;
    for (int i = 0; i < kRings; ++i) {
        const double angle = i * 2 * M_PI / kRings;
        const QPointF middle(8 + 8 * std::cos(angle), 8 + 8 * std::sin(angle));
        draw.add(ShapeType::Ellipse, {middle.x() - 8, middle.y() - 8, 16, 16},
                 i % 2 == 0 ? Green : Turquoise);
    }
    draw.hatch(draw.add(ShapeType::Ellipse, {4, 4, 8, 8}, Green), FillType::Line, 0.6, 60);
}

void drawFields(SampleShapes &draw)
{
    draw.add(ShapeType::TDOT, {31, -9, 15, 15}, Magenta);
    ZTAbstractGraphicsItem *cell = draw.add(ShapeType::Rect, {31, 11, 3, 3}, Orange);
    draw.hatch(cell, FillType::Line, 0.6, 0);
    draw.repeat(cell, 4, 4, 1.0);
}

} // namespace

void buildSampleDrawing(ZTGraphicsDocument &document)
{
    document.scene()->clearSelection();
    SampleShapes draw(document);
    drawPlate(draw);
    drawTitleBlock(draw);
    drawDial(draw);
    drawRings(draw);
    drawFields(draw);
}

} // namespace hostkit
