#pragma once

#include <vectorkit/VectorDrawing.h>
#include <vectorkit/hpgl/HpglFrame_p.h>

#include <QtCore/QHash>

namespace vectorkit {

/**
 * The plotter itself: moves its pen, draws into a drawing, keeps the polygon and the window.
 *
 * Frame: numbers of the file in; millimetres with y down out.
 */
class HpglPlotter
{
public:
    HpglPlotter(VectorDrawing *target, HpglFrame *frameOfFile);

    // The pen.
    bool isDown() const { return down; }
    bool isRelative() const { return relative; }
    void setRelative(bool on) { relative = on; }
    void setDown(bool on);
    void selectPen(int number);
    int pen() const { return currentPen; }
    void setPenColor(int number, const QColor &color) { colors.insert(number, color); }
    void resetPenColors();
    QColor penColor() const;
    void setPenWidth(double mm) { penWidthMm = mm; }

    // Moves; drawn when the pen is down. Numbers are absolute.
    void moveTo(double x, double y);
    void arcAbout(double x, double y, double sweepDeg, double chordDeg);
    void arcThrough(const QPointF &middle, const QPointF &end, double chordDeg);
    void curveTo(const QPointF &control1, const QPointF &control2, const QPointF &end);
    QPointF position() const { return at; }
    QPointF positionMm() const { return frame->toMm(at.x(), at.y()); }
    void jumpToMm(const QPointF &placeMm);

    /** Around a change of the frame: the pen stays where it is on the sheet. */
    template <class Change>
    bool changeFrame(Change change);

    // Closed outlines; the pen stays.
    void circle(double radius, double chordDeg);
    void rectangleTo(double x, double y, bool filled);
    void wedge(double radius, double startDeg, double sweepDeg, double chordDeg, bool filled);

    // The polygon.
    void beginPolygon();
    void endSubpolygon();
    void endPolygon();
    bool isInPolygon() const { return inPolygon; }
    bool isPolygonUnused() const { return isUnused; }
    void fillPolygon(Qt::FillRule rule);
    void edgePolygon();

    void setWindowMm(const QRectF &windowMm) { window = windowMm; }
    void addText(VectorText text);
    void endPage();

    /** Ends what is being drawn. */
    void finish();

    qint64 pieceCount() const { return pieces; }
    qint64 drawnWithoutPen() const { return penless; }

    /** What was left out because it lies farther than any sheet reaches. */
    qint64 farCount() const { return far; }

private:
    void touch();
    void untouch() { touched = touched && run.pieceCount() > 0; }
    void endRun();
    void polygonTo(const QPointF &mm);
    void polygonAppend(const VectorPath &piecesMm);
    void draw(const VectorPath &userPath, double chordDeg);
    void closeSubpolygon();
    void setOutlines(const QVector<VectorPath> &paths);
    void drawOutline(const VectorPath &path);
    VectorShape shapeWith(const QVector<VectorPath> &paths) const;
    void addShape(const VectorShape &shape);
    VectorLayer &page() { return drawing->layers.last(); }

    VectorDrawing *drawing; ///< borrowed from the reader
    HpglFrame *frame;       ///< borrowed from the reader
    QHash<int, QColor> colors;
    QPointF at;
    bool down = false;
    bool relative = false;
    int currentPen = 1;
    double penWidthMm = 0.0;
    VectorPath run;
    bool touched = false; ///< the pen came down here: a dot, if nothing follows

    bool inPolygon = false;
    bool isFirstOfSub = false;
    bool isAllDrawn = true;
    bool isUnused = false;
    VectorPath area;
    VectorPath edge;
    QVector<VectorPath> areas;
    QVector<VectorPath> edges;
    int filledShape = -1; ///< of the page, when it is the fill of the polygon as it stands
    int filledPage = -1;

    QRectF window; ///< null: none
    qint64 pieces = 0;
    qint64 penless = 0;
    qint64 far = 0;
};

template <class Change>
bool HpglPlotter::changeFrame(Change change)
{
    const QPointF placeMm = positionMm();
    const bool isChanged = change();
    at = frame->fromMm(placeMm);
    return isChanged;
}

} // namespace vectorkit
