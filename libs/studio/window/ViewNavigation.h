#pragma once

#include <QtCore/QObject>
#include <QtCore/QPoint>
#include <QtCore/QRectF>
#include <QtGui/QCursor>

#include <optional>

class ZTGraphicsView;

QT_BEGIN_NAMESPACE
class QKeyEvent;
class QMouseEvent;
QT_END_NAMESPACE

namespace studio {

/**
 * Moving about in a drawing: pans with the middle button, or with Space and the left button, and
 * fits the view to boxes. The wheel scrolls, with Ctrl it zooms; the view does that by itself.
 */
class ViewNavigation : public QObject
{
    Q_OBJECT

public:
    /** `view` is borrowed and outlives this. */
    explicit ViewNavigation(ZTGraphicsView &view, QObject *parent = nullptr);

    void zoomIn();
    void zoomOut();
    void home(); ///< a scale of 1, the origin in the middle

    /** Shows a whole box with a margin around it. An empty box changes nothing. */
    void fit(const QRectF &boxPx);

    /** Scrolls as little as is needed to have the box in sight. */
    void reveal(const QRectF &boxPx);

    /** The canvas's cursor while nobody pans; none: that of what lies under the mouse. */
    void setRestingCursor(const std::optional<QCursor> &cursor);

Q_SIGNALS:
    void zoomChanged(double scale);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool viewEvent(QEvent *event);
    bool viewportEvent(QEvent *event);
    bool spaceKey(QKeyEvent *event, bool down);
    bool beginPan(QMouseEvent *event);
    bool pan(QMouseEvent *event);
    bool endPan(QMouseEvent *event);
    void showCursor();

    ZTGraphicsView &m_view;
    std::optional<QCursor> m_restingCursor;
    bool m_isSpaceHeld = false;
    Qt::MouseButton m_panButton = Qt::NoButton; ///< the button that pans now
    QPoint m_lastPos;                           ///< of the mouse while panning; viewport pixels
};

} // namespace studio
