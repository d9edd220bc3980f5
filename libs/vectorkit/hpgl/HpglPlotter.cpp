#include <vectorkit/hpgl/HpglPlotter_p.h>

#include <vectorkit/hpgl/HpglWindow_p.h>

#include <QtCore/QtMath>
#include <QtGui/QPolygonF>

#include <algorithm>
#include <cmath>

namespace vectorkit {

namespace {

/** A coarser chord than a plotter's own is meant: polygons are drawn so. */
constexpr double kOwnChordDeg = 5.0;

/** The path with its arcs as chords of an angle, if that was asked for. */
VectorPath withChords(const VectorPath &path, double chordDeg)
{
    if (!(chordDeg > kOwnChordDeg))
        return path;
    VectorPath chords(path.start());
    path.forEach([&](const VectorPath::Piece &piece) {
        if (piece.kind == PieceKind::Arc) {
            const double sweep = std::abs(piece.sweepDeg);
            const int steps = std::max(1, qCeil(sweep / chordDeg - 1e-9));
            for (int step = 1; step < steps; ++step) {
                VectorPath part(piece.from);
                part.arcAbout(piece.control1, piece.sweepDeg * step / steps);
                chords.lineTo(part.end());
            }
        }
        chords.lineTo(piece.to);
    });
    if (path.isClosed())
        chords.close();
    return chords;
}

constexpr double kFarthestMm = 1e9;

bool isNear(const QPointF &mm)
{
    return std::abs(mm.x()) <= kFarthestMm && std::abs(mm.y()) <= kFarthestMm;
}

bool isNear(const VectorPath &path)
{
    const QRectF box = path.boundsMm();
    return isNear(box.topLeft()) && isNear(box.bottomRight());
}

bool isSame(const QPointF &a, const QPointF &b) { return a.x() == b.x() && a.y() == b.y(); }

} // namespace

HpglPlotter::HpglPlotter(VectorDrawing *target, HpglFrame *frameOfFile)
    : drawing(target), frame(frameOfFile)
{
    drawing->layers.append(VectorLayer());
    resetPenColors();
}

void HpglPlotter::resetPenColors()
{
    static const QRgb kColors[] = {0x000000, 0xFF0000, 0x00FF00, 0xFFFF00,
                                   0x0000FF, 0xFF00FF, 0x00FFFF};
    colors.clear();
    for (int i = 0; i < 7; ++i)
        colors.insert(i + 1, QColor(kColors[i]));
}

QColor HpglPlotter::penColor() const { return colors.value(currentPen); }

void HpglPlotter::setDown(bool on)
{
    if (on == down)
        return;
    if (on) {
        down = true;
        touch();
    } else {
        endRun();
        down = false;
    }
}

void HpglPlotter::touch()
{
    if (inPolygon)
        return;
    run = VectorPath(positionMm());
    touched = true;
}

void HpglPlotter::endRun()
{
    if (down && !inPolygon) {
        if (run.isEmpty() && touched)
            run.lineTo(run.start());
        if (!run.isEmpty()) {
            if ((run.pieceCount() > 1 || !run.isPolyline()) && isSame(run.start(), run.end()))
                run.close();
            addShape(shapeWith({run}));
        }
    }
    run = VectorPath(positionMm());
    touched = false;
}

void HpglPlotter::selectPen(int number)
{
    if (number == currentPen)
        return;
    untouch();
    endRun();
    currentPen = number;
}

void HpglPlotter::moveTo(double x, double y)
{
    const QPointF mm = frame->toMm(x, y);
    if (!isNear(mm)) {
        ++far;
        return;
    }
    at = QPointF(x, y);
    if (inPolygon) {
        polygonTo(mm);
    } else if (down && !isSame(mm, run.end())) {
        run.lineTo(mm);
        ++pieces;
    }
}

void HpglPlotter::jumpToMm(const QPointF &placeMm)
{
    untouch();
    endRun();
    at = frame->fromMm(placeMm);
    run = VectorPath(placeMm);
}

void HpglPlotter::draw(const VectorPath &userPath, double chordDeg)
{
    const VectorPath path = withChords(userPath, chordDeg).transformed(frame->transform());
    if (!isNear(path)) {
        ++far;
        return;
    }
    at = userPath.end();
    pieces += path.pieceCount();
    if (inPolygon)
        polygonAppend(path);
    else if (down)
        run.append(path);
}

void HpglPlotter::arcAbout(double x, double y, double sweepDeg, double chordDeg)
{
    const QPointF centre(x, y);
    if (sweepDeg == 0.0 || isSame(centre, at))
        return;
    VectorPath arc(at);
    arc.arcAbout(centre, -sweepDeg); // y runs up there
    draw(arc, chordDeg);
}

void HpglPlotter::arcThrough(const QPointF &middle, const QPointF &end, double chordDeg)
{
    const QPointF toMiddle = middle - at;
    const QPointF toEnd = end - at;
    if (isSame(end, at) && !isSame(middle, at)) { // a circle across
        arcAbout(at.x() + toMiddle.x() / 2.0, at.y() + toMiddle.y() / 2.0, 360.0, chordDeg);
        return;
    }
    const double cross = toMiddle.x() * toEnd.y() - toMiddle.y() * toEnd.x();
    const double size = std::hypot(toMiddle.x(), toMiddle.y()) * std::hypot(toEnd.x(), toEnd.y());
    if (std::abs(cross) <= 1e-9 * size) {
        moveTo(end.x(), end.y());
        return;
    }
    const double squareMiddle = QPointF::dotProduct(toMiddle, toMiddle);
    const double squareEnd = QPointF::dotProduct(toEnd, toEnd);
    const QPointF centre = at + QPointF(squareMiddle * toEnd.y() - squareEnd * toMiddle.y(),
                                        squareEnd * toMiddle.x() - squareMiddle * toEnd.x()) /
                                    (2.0 * cross);
    const auto angle = [&](const QPointF &point) {
        return qRadiansToDegrees(std::atan2(point.y() - centre.y(), point.x() - centre.x()));
    };
    double sweep = std::remainder(angle(end) - angle(at), 360.0);
    if (cross > 0.0 && sweep < 0.0) // the end lies to the left of the middle: counter-clockwise
        sweep += 360.0;
    if (cross < 0.0 && sweep > 0.0)
        sweep -= 360.0;
    arcAbout(centre.x(), centre.y(), sweep, chordDeg);
    at = end;
}

void HpglPlotter::curveTo(const QPointF &control1, const QPointF &control2, const QPointF &end)
{
    VectorPath curve(at);
    curve.cubicTo(control1, control2, end);
    draw(curve, 0.0);
}

void HpglPlotter::circle(double radius, double chordDeg)
{
    if (radius == 0.0)
        return;
    VectorPath path(at + QPointF(radius, 0.0));
    path.arcAbout(at, -360.0);
    path.close();
    drawOutline(withChords(path, chordDeg).transformed(frame->transform()));
}

void HpglPlotter::drawOutline(const VectorPath &path)
{
    if (!isNear(path)) {
        ++far;
        return;
    }
    pieces += path.pieceCount();
    untouch();
    if (inPolygon) {
        areas.append(path);
        edges.append(path);
    } else {
        addShape(shapeWith({path}));
    }
}

void HpglPlotter::rectangleTo(double x, double y, bool filled)
{
    untouch();
    const VectorPath path =
        VectorPath::polyline({at, QPointF(x, at.y()), QPointF(x, y), QPointF(at.x(), y)}, true)
            .transformed(frame->transform());
    pieces += path.pieceCount();
    setOutlines({path});
    if (filled)
        fillPolygon(Qt::OddEvenFill);
    else
        edgePolygon();
}

void HpglPlotter::wedge(double radius, double startDeg, double sweepDeg, double chordDeg,
                        bool filled)
{
    untouch();
    if (radius == 0.0 || sweepDeg == 0.0)
        return;
    const double angle = qDegreesToRadians(startDeg);
    const QPointF rim = at + QPointF(std::cos(angle), std::sin(angle)) * radius;
    VectorPath path;
    if (std::abs(sweepDeg) >= 360.0) {
        path = VectorPath(rim);
    } else {
        path = VectorPath(at);
        path.lineTo(rim);
    }
    path.arcAbout(at, -sweepDeg);
    path.close();
    path = withChords(path, chordDeg).transformed(frame->transform());
    pieces += path.pieceCount();
    setOutlines({path});
    if (filled)
        fillPolygon(Qt::OddEvenFill);
    else
        edgePolygon();
}

void HpglPlotter::setOutlines(const QVector<VectorPath> &paths)
{
    if (areas == paths && edges == paths)
        return; // filled and edged one after the other
    const bool isFar = !isNear(paths.first());
    far += isFar ? 1 : 0;
    areas = isFar ? QVector<VectorPath>() : paths;
    edges = areas;
    filledShape = -1;
}

void HpglPlotter::beginPolygon()
{
    untouch();
    endRun();
    inPolygon = true;
    isUnused = true;
    filledShape = -1;
    areas.clear();
    edges.clear();
    isFirstOfSub = false;
    isAllDrawn = true;
    area = VectorPath(positionMm());
    edge = area;
}

void HpglPlotter::polygonTo(const QPointF &mm)
{
    if (isFirstOfSub) {
        area = VectorPath(mm);
        edge = area;
        isFirstOfSub = false;
        isAllDrawn = true;
        return;
    }
    ++pieces;
    VectorPath line(area.end());
    line.lineTo(mm);
    polygonAppend(line);
}

void HpglPlotter::polygonAppend(const VectorPath &piecesMm)
{
    if (isFirstOfSub) { // an arc: it begins where the pen stands
        area = VectorPath(piecesMm.start());
        edge = area;
        isFirstOfSub = false;
        isAllDrawn = true;
    }
    area.append(piecesMm);
    if (down) {
        edge.append(piecesMm);
        return;
    }
    isAllDrawn = false;
    if (!edge.isEmpty())
        edges.append(edge);
    edge = VectorPath(piecesMm.end());
}

void HpglPlotter::closeSubpolygon()
{
    if (isFirstOfSub)
        return;
    const bool isArea = area.pieceCount() > 1;
    if (isArea)
        area.close();
    if (isAllDrawn && !area.isEmpty())
        edges.append(area);
    else if (!edge.isEmpty())
        edges.append(edge);
    if (isArea) {
        areas.append(area);
        at = frame->fromMm(area.start());
    }
    isFirstOfSub = true;
}

void HpglPlotter::endSubpolygon()
{
    if (inPolygon)
        closeSubpolygon();
}

void HpglPlotter::endPolygon()
{
    if (!inPolygon)
        return;
    closeSubpolygon();
    inPolygon = false;
    run = VectorPath(positionMm());
    touched = false;
}

void HpglPlotter::fillPolygon(Qt::FillRule rule)
{
    isUnused = false;
    if (areas.isEmpty())
        return;
    VectorShape shape = shapeWith(areas);
    shape.isFilled = true;
    shape.fillRule = rule;
    const int last = page().shapes.size() - 1;
    const bool isEdgeOfIt = last >= 0 && edges == areas && page().shapes[last].isStroked &&
                            !page().shapes[last].isFilled &&
                            page().shapes[last].pen == currentPen &&
                            page().shapes[last].paths == edges;
    if (isEdgeOfIt && window.isNull()) { // edged before: one shape with both
        page().shapes[last].isFilled = true;
        page().shapes[last].fillRule = rule;
        return;
    }
    shape.isStroked = false;
    const int before = page().shapes.size();
    addShape(shape);
    filledShape = page().shapes.size() > before ? before : -1;
    filledPage = drawing->layers.size();
}

void HpglPlotter::edgePolygon()
{
    isUnused = false;
    if (edges.isEmpty())
        return;
    const bool isFill = filledShape >= 0 && filledPage == drawing->layers.size() &&
                        filledShape == page().shapes.size() - 1 && window.isNull() &&
                        edges == areas && page().shapes[filledShape].pen == currentPen;
    if (isFill)
        page().shapes[filledShape].isStroked = true;
    else
        addShape(shapeWith(edges));
}

VectorShape HpglPlotter::shapeWith(const QVector<VectorPath> &paths) const
{
    VectorShape shape;
    shape.paths = paths;
    shape.pen = currentPen;
    shape.color = penColor();
    shape.strokeWidthMm = penWidthMm;
    return shape;
}

void HpglPlotter::addShape(const VectorShape &shape)
{
    if (currentPen == 0)
        ++penless;
    if (window.isNull()) {
        page().shapes.append(shape);
        return;
    }
    VectorShape clipped = shape;
    if (shape.isFilled) {
        clipped.paths = clippedArea(shape.paths, shape.fillRule, window);
        if (!clipped.paths.isEmpty())
            page().shapes.append(clipped);
        return;
    }
    for (const VectorPath &path : shape.paths) {
        for (const VectorPath &part : clippedPath(path, window)) {
            clipped.paths = {part};
            page().shapes.append(clipped);
        }
    }
}

void HpglPlotter::addText(VectorText text)
{
    if (!isNear(text.positionMm) || !(text.heightMm <= kFarthestMm)) {
        ++far;
        return;
    }
    text.pen = currentPen;
    text.color = penColor();
    page().texts.append(text);
}

void HpglPlotter::endPage()
{
    untouch();
    endRun();
    if (!page().shapes.isEmpty() || !page().texts.isEmpty())
        drawing->layers.append(VectorLayer());
}

void HpglPlotter::finish()
{
    endPolygon();
    endRun();
    if (drawing->layers.size() > 1 && page().shapes.isEmpty() && page().texts.isEmpty())
        drawing->layers.removeLast();
}

} // namespace vectorkit
