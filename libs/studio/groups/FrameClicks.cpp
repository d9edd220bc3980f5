#include <studio/groups/FrameClicks.h>

#include <studio/groups/GroupTools.h>

#include <QtCore/QTimer>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QApplication>

namespace studio {

FrameClicks::FrameClicks(ZTGraphicsDocument &document, GroupTools &groupTools, QObject *parent)
    : QObject(parent), m_document(document), m_groups(groupTools)
{
    m_document.view()->viewport()->installEventFilter(this);
}

bool FrameClicks::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        press(*static_cast<QMouseEvent *>(event));
        break;
    case QEvent::MouseButtonDblClick:
        m_press.reset();
        break;
    case QEvent::MouseButtonRelease:
        release(*static_cast<QMouseEvent *>(event));
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void FrameClicks::press(const QMouseEvent &event)
{
    m_press.reset();
    const ZTGraphicsResizeItem *frame = m_document.scene()->getGraphicsResizeItem();
    const bool isClick =
        event.modifiers() == Qt::NoModifier || event.modifiers() == Qt::ControlModifier;
    // Its handles lie above it and do their own work.
    if (event.button() == Qt::LeftButton && isClick && frame != nullptr &&
        m_document.view()->itemAt(event.pos()) == frame)
        m_press = Press{event.pos(), frame->pos()};
}

/** The frame has to come to its end first: what is selected then gets another. */
void FrameClicks::release(const QMouseEvent &event)
{
    if (event.button() != Qt::LeftButton || !m_press)
        return;
    const Press begun = *m_press;
    m_press.reset();
    if ((event.pos() - begun.pos).manhattanLength() >= QApplication::startDragDistance())
        return;
    const bool isWithCtrl = event.modifiers() == Qt::ControlModifier;
    QTimer::singleShot(0, this, [this, begun, isWithCtrl] {
        const ZTGraphicsResizeItem *frame = m_document.scene()->getGraphicsResizeItem();
        if (frame != nullptr && frame->pos() == begun.framePx)
            click(begun.pos, isWithCtrl);
    });
}

void FrameClicks::click(const QPoint &pos, bool isWithCtrl)
{
    ShapeItem *item = selectableAt(*m_document.view(), pos);
    if (!isWithCtrl)
        m_groups.selectByMouse(item != nullptr ? ShapeItems{item} : ShapeItems());
    else if (item != nullptr && item->isSelected())
        m_groups.deselectByMouse(*item);
    else if (item != nullptr)
        m_groups.selectByMouse(selectedShapeItems(*m_document.scene()) << item);
}

} // namespace studio
