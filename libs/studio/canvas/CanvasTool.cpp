#include <studio/canvas/CanvasTool.h>

#include <QtGui/QMouseEvent>

namespace studio {

CanvasTool::CanvasTool(ZTGraphicsDocument &drawing, QObject *parent)
    : QObject(parent), m_document(drawing)
{
    drawing.view()->installEventFilter(this);
    drawing.view()->viewport()->installEventFilter(this);
}

void CanvasTool::setSnap(const Snap &snap, const std::function<void()> &done)
{
    m_snap = snap;
    m_snapDone = done;
}

QPointF CanvasTool::placeOf(const QMouseEvent &event) const
{
    return m_document.view()->viewportTransform().inverted().map(event.localPos());
}

QPointF CanvasTool::snapped(const QPointF &placePx, Qt::KeyboardModifiers keys) const
{
    return m_snap ? m_snap(placePx, keys) : placePx;
}

void CanvasTool::endSnapping() const
{
    if (m_snapDone)
        m_snapDone();
}

bool CanvasTool::eventFilter(QObject *watched, QEvent *event)
{
    if (!isAtWork())
        return QObject::eventFilter(watched, event);
    const bool isTaken = watched == m_document.view() ? viewEvent(event) : viewportEvent(event);
    return isTaken || QObject::eventFilter(watched, event);
}

bool CanvasTool::viewEvent(QEvent *event)
{
    switch (event->type()) {
    case QEvent::ShortcutOverride: {
        const bool isOurs = isOurKey(*static_cast<QKeyEvent *>(event));
        if (isOurs)
            event->accept();
        return isOurs;
    }
    case QEvent::KeyPress: {
        const auto &key = *static_cast<QKeyEvent *>(event);
        return isOurKey(key) && keyPress(key);
    }
    default:
        return false;
    }
}

bool CanvasTool::viewportEvent(QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        return press(*static_cast<QMouseEvent *>(event));
    case QEvent::MouseButtonDblClick:
        return doubleClick(*static_cast<QMouseEvent *>(event));
    case QEvent::MouseMove:
        return move(*static_cast<QMouseEvent *>(event));
    case QEvent::MouseButtonRelease:
        return release(*static_cast<QMouseEvent *>(event));
    default:
        return false;
    }
}

} // namespace studio
