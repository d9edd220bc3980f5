#pragma once

#include <studio/job/PlanPictures.h>

#include <QtCore/QTimer>
#include <QtWidgets/QWidget>

#include <future>

namespace studio {

/**
 * Shows the plan of a job as the head runs it: what is done at the present moment bright, what is
 * to come pale.
 *
 * Plans of many segments are drawn in another thread: until a picture is there, the last one is
 * shown, moved and enlarged as the view is.
 *
 * The wheel zooms about the pointer, dragging moves the picture, a double click shows all of it.
 */
class PlanView : public QWidget
{
    Q_OBJECT

public:
    explicit PlanView(QWidget *parent = nullptr);
    ~PlanView() override;

    void setJob(const std::shared_ptr<const Job> &job);
    const std::shared_ptr<const Job> &job() const { return m_job; } ///< may be null
    void setLook(const PlanLook &look);
    const PlanLook &look() const { return m_look; }

    /** Range: 0 to the job's total; what lies beyond counts as its end. */
    void setMoment(double seconds);
    double moment() const { return m_seconds; }

    /** Shows the whole plan. */
    void fit();

    /** Shows a box with some room around it; a null one changes nothing. Frame: mm. */
    void showBox(const QRectF &boxMm);

    /** Enlarges about the middle; below 1 makes smaller. */
    void zoomBy(double factor);

    /** Brings a point into the middle and shows it large. Frame: mm, as of the plan. */
    void showPoint(const QPointF &pointMm);

    /** The piece nearest to a place of the widget, within a few pixels; -1 for none. */
    int pieceAt(const QPointF &pos) const;

    /** Frame: from mm to the widget's pixels. */
    QTransform transform() const { return transformFor(size()); }

    /** The whole plan as done and the machine's field, with the signs of the present look. */
    QImage picture(const QSize &size) const;

    /** Pieces in sight, where they are too many for signs; 0: none is left out. */
    int signsLeftOut() const { return m_pictures.signsLeftOut(); }

Q_SIGNALS:
    /** A click on a piece of the plan; -1 beside all of them. */
    void picked(int piece);

    /** The signs were drawn, or left out, for what is in sight now. */
    void signsChanged();

protected:
    void paintEvent(QPaintEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;

private:
    bool isLarge() const;
    PlanScene wantedScene() const;
    QTransform transformFor(const QSize &size, double zoom, const QPointF &shift) const;
    QTransform transformFor(const QSize &size) const;
    void zoomAbout(const QPointF &pos, double factor);
    void bringUpToDate();
    void drawAside();
    void takeDrawn();
    void giveUpDrawing();
    void drawField(QPainter &painter, const QTransform &view) const;
    void drawPresent(QPainter &painter) const;
    qint64 verticesDone() const;

    std::shared_ptr<const Job> m_job; ///< may be null
    std::shared_ptr<const PlanStretches> m_stretches;
    PlanLook m_look;
    double m_seconds = 0.0;
    QRectF m_boxMm;      ///< of all that is to be seen
    double m_zoom = 1.0; ///< 1: all fits
    QPointF m_shift;     ///< of the middle, in pixels

    PlanPictures m_pictures;
    std::future<PlanPictures> m_drawn; ///< valid while another thread draws
    std::shared_ptr<std::atomic<bool>> m_isGivenUp;
    QTimer m_drawnTimer;

    QPointF m_pressedAt;
    QPointF m_shiftAtPress;
    bool m_isDragging = false;
};

} // namespace studio
