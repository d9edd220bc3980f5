#pragma once

#include <studio/job/JobRun.h>

#include <QtGui/QImage>
#include <QtWidgets/QWidget>

#include <map>

namespace studio {

/**
 * Shows the plan of a job as the head runs it: what is done at the present moment bright, what is
 * to come pale.
 *
 * What is done is kept as a picture, so that a moment later costs only what was marked since; a
 * moment earlier begins at the nearest of a few pictures kept on the way.
 *
 * The wheel zooms about the pointer, dragging moves the picture, a double click shows all of it.
 */
class PlanView : public QWidget
{
    Q_OBJECT

public:
    enum class Colors { ByPen, ByOrder, BySpeed };

    /** What is drawn beside the marks. */
    struct Look
    {
        Colors colors = Colors::ByPen;
        bool hasJumps = true;
        bool hasArrows = false;
        bool hasNumbers = false;
        bool hasStarts = false;
    };

    explicit PlanView(QWidget *parent = nullptr);

    void setJob(const std::shared_ptr<const Job> &job);
    const std::shared_ptr<const Job> &job() const { return m_job; } ///< may be null
    void setLook(const Look &look);
    const Look &look() const { return m_look; }

    /** Range: 0 to the job's total; what lies beyond counts as its end. */
    void setMoment(double seconds);
    double moment() const { return m_seconds; }

    /** Shows the whole plan. */
    void fit();

    /** Brings a point into the middle and shows it large. Frame: mm, as of the plan. */
    void showPoint(const QPointF &pointMm);

    /** The piece nearest to a place of the widget, within a few pixels; -1 for none. */
    int pieceAt(const QPointF &pos) const;

    /** Frame: from mm to the widget's pixels. */
    QTransform transform() const;

Q_SIGNALS:
    /** A click on a piece of the plan; -1 beside all of them. */
    void picked(int piece);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;

private:
    QImage blank() const;
    void forgetPictures();
    QColor colorOf(int piece) const;
    void drawPale();
    void drawUpTo(qint64 vertex);
    void drawSegments(QPainter &painter, qint64 from, qint64 to) const;
    void drawPiece(QPainter &painter, int piece, int first, int last) const;
    void drawPresent(QPainter &painter) const;
    void drawSigns();
    qint64 verticesDone() const;
    int pieceOfVertex(qint64 vertex) const;

    std::shared_ptr<const Job> m_job; ///< may be null
    Look m_look;
    double m_seconds = 0.0;
    QRectF m_boxMm;      ///< of all that is to be seen
    double m_zoom = 1.0; ///< 1: all fits
    QPointF m_shift;     ///< of the middle, in pixels

    QImage m_pale;
    QImage m_signs; ///< they are the same at any moment
    QImage m_done;
    qint64 m_doneVertices = 0;            ///< that `m_done` shows
    std::map<qint64, QImage> m_waypoints; ///< pictures of less, by their vertices
    double m_fastest = 1.0;               ///< of the pens, mm/s

    QPointF m_pressedAt;
    QPointF m_shiftAtPress;
    bool m_isDragging = false;
};

} // namespace studio
