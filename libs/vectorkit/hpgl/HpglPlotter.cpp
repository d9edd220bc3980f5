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
    : m_drawing(target), m_frame(frameOfFile)
{
    m_drawing->layers.append(VectorLayer());
    resetPenColors();
}

void HpglPlotter::resetPenColors()
{
    static const QRgb kColors[] = {0x000000, 0xFF0000, 0x00FF00, 0xFFFF00,
                                   0x0000FF, 0xFF00FF, 0x00FFFF};
    m_colors.clear();
    for (int i = 0; i < 7; ++i)
        m_colors.insert(i + 1, QColor(kColors[i]));
}

QColor HpglPlotter::penColor() const { return m_colors.value(m_currentPen); }

void HpglPlotter::setDown(bool on)
{
    if (on == m_down)
        return;
    if (on) {
        m_down = true;
        touch();
    } else {
        endRun();
        m_down = false;
    }
}

void HpglPlotter::touch()
{
    if (m_inPolygon)
        return;
    m_run = VectorPath(positionMm());
    m_touched = true;
}

void HpglPlotter::endRun()
{
    if (m_down && !m_inPolygon) {
        if (m_run.isEmpty() && m_touched)
            m_run.lineTo(m_run.start());
        if (!m_run.isEmpty()) {
            if ((m_run.pieceCount() > 1 || !m_run.isPolyline()) &&
                isSame(m_run.start(), m_run.end()))
                m_run.close();
            addShape(shapeWith({m_run}));
        }
    }
    m_run = VectorPath(positionMm());
    m_touched = false;
}

void HpglPlotter::selectPen(int number)
{
    if (number == m_currentPen)
        return;
    untouch();
    endRun();
    m_currentPen = number;
}

void HpglPlotter::moveTo(double x, double y)
{
    const QPointF mm = m_frame->toMm(x, y);
    if (!isNear(mm)) {
        ++m_far;
        return;
    }
    m_at = QPointF(x, y);
    if (m_inPolygon) {
        polygonTo(mm);
    } else if (m_down && !isSame(mm, m_run.end())) {
        m_run.lineTo(mm);
        ++m_pieces;
    }
}

void HpglPlotter::jumpToMm(const QPointF &placeMm)
{
    untouch();
    endRun();
    m_at = m_frame->fromMm(placeMm);
    m_run = VectorPath(placeMm);
}

void HpglPlotter::draw(const VectorPath &userPath, double chordDeg)
{
    const VectorPath path = withChords(userPath, chordDeg).transformed(m_frame->transform());
    if (!isNear(path)) {
        ++m_far;
        return;
    }
    m_at = userPath.end();
    m_pieces += path.pieceCount();
    if (m_inPolygon)
        polygonAppend(path);
    else if (m_down)
        m_run.append(path);
}

void HpglPlotter::arcAbout(double x, double y, double sweepDeg, double chordDeg)
{
    const QPointF centre(x, y);
    if (sweepDeg == 0.0 || isSame(centre, m_at))
        return;
    VectorPath arc(m_at);
    arc.arcAbout(centre, -sweepDeg); // y runs up there
    draw(arc, chordDeg);
}

void HpglPlotter::arcThrough(const QPointF &middle, const QPointF &end, double chordDeg)
{
    const QPointF toMiddle = middle - m_at;
    const QPointF toEnd = end - m_at;
    if (isSame(end, m_at) && !isSame(middle, m_at)) { // a circle across
        arcAbout(m_at.x() + toMiddle.x() / 2.0, m_at.y() + toMiddle.y() / 2.0, 360.0, chordDeg);
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
    const QPointF centre = m_at + QPointF(squareMiddle * toEnd.y() - squareEnd * toMiddle.y(),
                                          squareEnd * toMiddle.x() - squareMiddle * toEnd.x()) /
                                      (2.0 * cross);
    const auto angle = [&](const QPointF &point) {
        return qRadiansToDegrees(std::atan2(point.y() - centre.y(), point.x() - centre.x()));
    };
    double sweep = std::remainder(angle(end) - angle(m_at), 360.0);
    if (cross > 0.0 && sweep < 0.0) // the end lies to the left of the middle: counter-clockwise
        sweep += 360.0;
    if (cross < 0.0 && sweep > 0.0)
        sweep -= 360.0;
    arcAbout(centre.x(), centre.y(), sweep, chordDeg);
    m_at = end;
}

void HpglPlotter::curveTo(const QPointF &control1, const QPointF &control2, const QPointF &end)
{
    VectorPath curve(m_at);
    curve.cubicTo(control1, control2, end);
    draw(curve, 0.0);
}

void HpglPlotter::circle(double radius, double chordDeg)
{
    if (radius == 0.0)
        return;
    VectorPath path(m_at + QPointF(radius, 0.0));
    path.arcAbout(m_at, -360.0);
    path.close();
    drawOutline(withChords(path, chordDeg).transformed(m_frame->transform()));
}

void HpglPlotter::drawOutline(const VectorPath &path)
{
    if (!isNear(path)) {
        ++m_far;
        return;
    }
    m_pieces += path.pieceCount();
    untouch();
    if (m_inPolygon) {
        m_areas.append(path);
        m_edges.append(path);
    } else {
        addShape(shapeWith({path}));
    }
}

void HpglPlotter::rectangleTo(double x, double y, bool filled)
{
    untouch();
    const VectorPath path =
        VectorPath::polyline({m_at, QPointF(x, m_at.y()), QPointF(x, y), QPointF(m_at.x(), y)},
                             true)
            .transformed(m_frame->transform());
    m_pieces += path.pieceCount();
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
    const QPointF rim = m_at + QPointF(std::cos(angle), std::sin(angle)) * radius;
    VectorPath path;
    if (std::abs(sweepDeg) >= 360.0) {
        path = VectorPath(rim);
    } else {
        path = VectorPath(m_at);
        path.lineTo(rim);
    }
    path.arcAbout(m_at, -sweepDeg);
    path.close();
    path = withChords(path, chordDeg).transformed(m_frame->transform());
    m_pieces += path.pieceCount();
    setOutlines({path});
    if (filled)
        fillPolygon(Qt::OddEvenFill);
    else
        edgePolygon();
}

void HpglPlotter::setOutlines(const QVector<VectorPath> &paths)
{
    if (m_areas == paths && m_edges == paths)
        return; // filled and edged one after the other
    const bool isFar = !isNear(paths.first());
    m_far += isFar ? 1 : 0;
    m_areas = isFar ? QVector<VectorPath>() : paths;
    m_edges = m_areas;
    m_filledShape = -1;
}

void HpglPlotter::beginPolygon()
{
    untouch();
    endRun();
    m_inPolygon = true;
    m_isUnused = true;
    m_filledShape = -1;
    m_areas.clear();
    m_edges.clear();
    m_isFirstOfSub = false;
    m_isAllDrawn = true;
    m_area = VectorPath(positionMm());
    m_edge = m_area;
}

void HpglPlotter::polygonTo(const QPointF &mm)
{
    if (m_isFirstOfSub) {
        m_area = VectorPath(mm);
        m_edge = m_area;
        m_isFirstOfSub = false;
        m_isAllDrawn = true;
        return;
    }
    ++m_pieces;
    VectorPath line(m_area.end());
    line.lineTo(mm);
    polygonAppend(line);
}

void HpglPlotter::polygonAppend(const VectorPath &piecesMm)
{
    if (m_isFirstOfSub) { // an arc: it begins where the pen stands
        m_area = VectorPath(piecesMm.start());
        m_edge = m_area;
        m_isFirstOfSub = false;
        m_isAllDrawn = true;
    }
    m_area.append(piecesMm);
    if (m_down) {
        m_edge.append(piecesMm);
        return;
    }
    m_isAllDrawn = false;
    if (!m_edge.isEmpty())
        m_edges.append(m_edge);
    m_edge = VectorPath(piecesMm.end());
}

void HpglPlotter::closeSubpolygon()
{
    if (m_isFirstOfSub)
        return;
    const bool isArea = m_area.pieceCount() > 1;
    if (isArea)
        m_area.close();
    if (m_isAllDrawn && !m_area.isEmpty())
        m_edges.append(m_area);
    else if (!m_edge.isEmpty())
        m_edges.append(m_edge);
    if (isArea) {
        m_areas.append(m_area);
        m_at = m_frame->fromMm(m_area.start());
    }
    m_isFirstOfSub = true;
}

void HpglPlotter::endSubpolygon()
{
    if (m_inPolygon)
        closeSubpolygon();
}

void HpglPlotter::endPolygon()
{
    if (!m_inPolygon)
        return;
    closeSubpolygon();
    m_inPolygon = false;
    m_run = VectorPath(positionMm());
    m_touched = false;
}

void HpglPlotter::fillPolygon(Qt::FillRule rule)
{
    m_isUnused = false;
    if (m_areas.isEmpty())
        return;
    VectorShape shape = shapeWith(m_areas);
    shape.isFilled = true;
    shape.fillRule = rule;
    const int last = page().shapes.size() - 1;
    const bool isEdgeOfIt = last >= 0 && m_edges == m_areas && page().shapes[last].isStroked &&
                            !page().shapes[last].isFilled &&
                            page().shapes[last].pen == m_currentPen &&
                            page().shapes[last].paths == m_edges;
    if (isEdgeOfIt && m_window.isNull()) { // edged before: one shape with both
        page().shapes[last].isFilled = true;
        page().shapes[last].fillRule = rule;
        return;
    }
    shape.isStroked = false;
    const int before = page().shapes.size();
    addShape(shape);
    m_filledShape = page().shapes.size() > before ? before : -1;
    m_filledPage = m_drawing->layers.size();
}

void HpglPlotter::edgePolygon()
{
    m_isUnused = false;
    if (m_edges.isEmpty())
        return;
    const bool isFill = m_filledShape >= 0 && m_filledPage == m_drawing->layers.size() &&
                        m_filledShape == page().shapes.size() - 1 && m_window.isNull() &&
                        m_edges == m_areas && page().shapes[m_filledShape].pen == m_currentPen;
    if (isFill)
        page().shapes[m_filledShape].isStroked = true;
    else
        addShape(shapeWith(m_edges));
}

VectorShape HpglPlotter::shapeWith(const QVector<VectorPath> &paths) const
{
    VectorShape shape;
    shape.paths = paths;
    shape.pen = m_currentPen;
    shape.color = penColor();
    shape.strokeWidthMm = m_penWidthMm;
    return shape;
}

void HpglPlotter::addShape(const VectorShape &shape)
{
    if (m_currentPen == 0)
        ++m_penless;
    if (m_window.isNull()) {
        page().shapes.append(shape);
        return;
    }
    VectorShape clipped = shape;
    if (shape.isFilled) {
        clipped.paths = clippedArea(shape.paths, shape.fillRule, m_window);
        if (!clipped.paths.isEmpty())
            page().shapes.append(clipped);
        return;
    }
    for (const VectorPath &path : shape.paths) {
        for (const VectorPath &part : clippedPath(path, m_window)) {
            clipped.paths = {part};
            page().shapes.append(clipped);
        }
    }
}

void HpglPlotter::addText(VectorText text)
{
    if (!isNear(text.positionMm) || !(text.heightMm <= kFarthestMm)) {
        ++m_far;
        return;
    }
    text.pen = m_currentPen;
    text.color = penColor();
    page().texts.append(text);
}

void HpglPlotter::endPage()
{
    untouch();
    endRun();
    if (!page().shapes.isEmpty() || !page().texts.isEmpty())
        m_drawing->layers.append(VectorLayer());
}

void HpglPlotter::finish()
{
    endPolygon();
    endRun();
    if (m_drawing->layers.size() > 1 && page().shapes.isEmpty() && page().texts.isEmpty())
        m_drawing->layers.removeLast();
}

} // namespace vectorkit
