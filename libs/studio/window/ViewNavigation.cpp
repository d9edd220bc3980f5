#include <studio/window/ViewNavigation.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtGui/QMouseEvent>
#include <QtWidgets/QScrollBar>

namespace studio {

namespace {

constexpr double kFitShare = 0.9;
constexpr double kLeastScale = 0.09;
constexpr double kLargestScale = 20.0;
constexpr int kRevealMarginPx = 24;

} // namespace

ViewNavigation::ViewNavigation(ZTGraphicsView &navigated, QObject *parent)
    : QObject(parent), m_view(navigated)
{
    m_view.installEventFilter(this);
    m_view.viewport()->installEventFilter(this);
    m_view.viewport()->setMouseTracking(true);
    // The range follows the scale, whoever changes it.
    connect(m_view.horizontalScrollBar(), &QScrollBar::rangeChanged, this,
            [this] { Q_EMIT zoomChanged(m_view.getDisplayScale()); });
}

void ViewNavigation::zoomIn() { m_view.zoomIn(); }

void ViewNavigation::zoomOut() { m_view.zoomOut(); }

void ViewNavigation::home()
{
    m_view.resetSize(1.0);
    // Last, because a new scale keeps the point under the mouse in its place.
    m_view.centerOn(0.0, 0.0);
}

void ViewNavigation::fit(const QRectF &boxPx)
{
    if (boxPx.isNull())
        return;
    const QSize shown = m_view.viewport()->size();
    const double acrossScale = shown.width() / qMax(boxPx.width(), 1.0);
    const double downScale = shown.height() / qMax(boxPx.height(), 1.0);
    m_view.resetSize(qBound(kLeastScale, kFitShare * qMin(acrossScale, downScale), kLargestScale));
    m_view.centerOn(boxPx.center());
}

void ViewNavigation::reveal(const QRectF &boxPx)
{
    m_view.ensureVisible(boxPx, kRevealMarginPx, kRevealMarginPx);
}

bool ViewNavigation::eventFilter(QObject *watched, QEvent *event)
{
    const bool isTaken = watched == &m_view ? viewEvent(event) : viewportEvent(event);
    return isTaken || QObject::eventFilter(watched, event);
}

bool ViewNavigation::viewEvent(QEvent *event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
        return spaceKey(static_cast<QKeyEvent *>(event), true);
    case QEvent::KeyRelease:
        return spaceKey(static_cast<QKeyEvent *>(event), false);
    case QEvent::FocusOut:
        m_isSpaceHeld = false;
        showCursor();
        return false;
    default:
        return false;
    }
}

bool ViewNavigation::viewportEvent(QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        return beginPan(static_cast<QMouseEvent *>(event));
    case QEvent::MouseMove:
        return pan(static_cast<QMouseEvent *>(event));
    case QEvent::MouseButtonRelease:
        return endPan(static_cast<QMouseEvent *>(event));
    default:
        return false;
    }
}

bool ViewNavigation::spaceKey(QKeyEvent *event, bool down)
{
    if (event->key() != Qt::Key_Space)
        return false;
    if (!event->isAutoRepeat()) {
        m_isSpaceHeld = down;
        showCursor();
    }
    return true;
}

bool ViewNavigation::beginPan(QMouseEvent *event)
{
    const bool isPanButton =
        event->button() == Qt::MiddleButton || (event->button() == Qt::LeftButton && m_isSpaceHeld);
    const bool isFirst = event->buttons() == Qt::MouseButtons(event->button());
    if (!isPanButton || !isFirst)
        return m_panButton != Qt::NoButton;
    m_panButton = event->button();
    m_lastPos = event->pos();
    showCursor();
    return true;
}

bool ViewNavigation::pan(QMouseEvent *event)
{
    if (m_panButton == Qt::NoButton)
        return false;
    const QPoint moved = event->pos() - m_lastPos;
    m_lastPos = event->pos();
    m_view.horizontalScrollBar()->setValue(m_view.horizontalScrollBar()->value() - moved.x());
    m_view.verticalScrollBar()->setValue(m_view.verticalScrollBar()->value() - moved.y());
    return true;
}

bool ViewNavigation::endPan(QMouseEvent *event)
{
    if (m_panButton == Qt::NoButton)
        return false;
    if (event->button() == m_panButton) {
        m_panButton = Qt::NoButton;
        showCursor();
    }
    return true;
}

void ViewNavigation::showCursor()
{
    if (m_panButton != Qt::NoButton)
        m_view.viewport()->setCursor(Qt::ClosedHandCursor);
    else if (m_isSpaceHeld)
        m_view.viewport()->setCursor(Qt::OpenHandCursor);
    else if (m_restingCursor)
        m_view.viewport()->setCursor(*m_restingCursor);
    else
        m_view.viewport()->unsetCursor();
}

void ViewNavigation::setRestingCursor(const std::optional<QCursor> &cursor)
{
    m_restingCursor = cursor;
    showCursor();
}

} // namespace studio
