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
    bool isDown() const { return m_down; }
    bool isRelative() const { return m_relative; }
    void setRelative(bool on) { m_relative = on; }
    void setDown(bool on);
    void selectPen(int number);
    int pen() const { return m_currentPen; }
    void setPenColor(int number, const QColor &color) { m_colors.insert(number, color); }
    void resetPenColors();
    QColor penColor() const;
    void setPenWidth(double mm) { m_penWidthMm = mm; }

    // Moves; drawn when the pen is down. Numbers are absolute.
    void moveTo(double x, double y);
    void arcAbout(double x, double y, double sweepDeg, double chordDeg);
    void arcThrough(const QPointF &middle, const QPointF &end, double chordDeg);
    void curveTo(const QPointF &control1, const QPointF &control2, const QPointF &end);
    QPointF position() const { return m_at; }
    QPointF positionMm() const { return m_frame->toMm(m_at.x(), m_at.y()); }
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
    bool isInPolygon() const { return m_inPolygon; }
    bool isPolygonUnused() const { return m_isUnused; }
    void fillPolygon(Qt::FillRule rule);
    void edgePolygon();

    void setWindowMm(const QRectF &windowMm) { m_window = windowMm; }
    void addText(VectorText text);
    void endPage();

    /** Ends what is being drawn. */
    void finish();

    qint64 pieceCount() const { return m_pieces; }
    qint64 drawnWithoutPen() const { return m_penless; }

    /** What was left out because it lies farther than any sheet reaches. */
    qint64 farCount() const { return m_far; }

private:
    void touch();
    void untouch() { m_touched = m_touched && m_run.pieceCount() > 0; }
    void endRun();
    void polygonTo(const QPointF &mm);
    void polygonAppend(const VectorPath &piecesMm);
    void draw(const VectorPath &userPath, double chordDeg);
    void closeSubpolygon();
    void setOutlines(const QVector<VectorPath> &paths);
    void drawOutline(const VectorPath &path);
    VectorShape shapeWith(const QVector<VectorPath> &paths) const;
    void addShape(const VectorShape &shape);
    VectorLayer &page() { return m_drawing->layers.last(); }

    VectorDrawing *m_drawing; ///< borrowed from the reader
    HpglFrame *m_frame;       ///< borrowed from the reader
    QHash<int, QColor> m_colors;
    QPointF m_at;
    bool m_down = false;
    bool m_relative = false;
    int m_currentPen = 1;
    double m_penWidthMm = 0.0;
    VectorPath m_run;
    bool m_touched = false; ///< the pen came down here: a dot, if nothing follows

    bool m_inPolygon = false;
    bool m_isFirstOfSub = false;
    bool m_isAllDrawn = true;
    bool m_isUnused = false;
    VectorPath m_area;
    VectorPath m_edge;
    QVector<VectorPath> m_areas;
    QVector<VectorPath> m_edges;
    int m_filledShape = -1; ///< of the page, when it is the fill of the polygon as it stands
    int m_filledPage = -1;

    QRectF m_window; ///< null: none
    qint64 m_pieces = 0;
    qint64 m_penless = 0;
    qint64 m_far = 0;
};

template <class Change>
bool HpglPlotter::changeFrame(Change change)
{
    const QPointF placeMm = positionMm();
    const bool isChanged = change();
    m_at = m_frame->fromMm(placeMm);
    return isChanged;
}

} // namespace vectorkit
