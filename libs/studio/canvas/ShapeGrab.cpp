#include <studio/canvas/ShapeGrab.h>

#include <studio/shapes/ShapeItems.h>

#include <QtCore/QHash>
#include <QtCore/QTimer>
#include <QtGui/QMouseEvent>

namespace studio {

ShapeGrab::ShapeGrab(ZTGraphicsView &watchedView, QObject *parent)
    : QObject(parent), m_view(watchedView)
{
    m_view.viewport()->installEventFilter(this);
}

bool ShapeGrab::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::MouseButtonPress)
        press(*static_cast<QMouseEvent *>(event));
    return QObject::eventFilter(watched, event);
}

void ShapeGrab::press(const QMouseEvent &event)
{
    const bool isAdding = event.modifiers() == Qt::ControlModifier;
    const bool isPlain =
        event.modifiers() == Qt::NoModifier || event.modifiers() == Qt::ShiftModifier;
    if (event.button() != Qt::LeftButton || !(isPlain || isAdding))
        return;
    auto *item = dynamic_cast<ShapeItem *>(m_view.itemAt(event.pos()));
    if (item == nullptr || item->isSelected() ||
        !item->flags().testFlag(QGraphicsItem::ItemIsSelectable))
        return;
    if (isAdding)
        item->setSelected(true);
    else
        selectOnly(*m_view.scene(), {item});
    passHandles();
}

void ShapeGrab::passHandles()
{
    QHash<QGraphicsItem *, Qt::MouseButtons> taken;
    for (QGraphicsItem *handle : handles()) {
        taken.insert(handle, handle->acceptedMouseButtons());
        handle->setAcceptedMouseButtons(Qt::NoButton);
    }
    QTimer::singleShot(0, this, [this, taken] {
        for (QGraphicsItem *handle : handles()) {
            if (taken.contains(handle))
                handle->setAcceptedMouseButtons(taken.value(handle));
        }
    });
}

QList<QGraphicsItem *> ShapeGrab::handles() const
{
    auto *scene = qobject_cast<ZTGraphicsScene *>(m_view.scene());
    const auto *frame = scene != nullptr ? scene->getGraphicsResizeItem() : nullptr;
    return frame != nullptr ? frame->childItems() : QList<QGraphicsItem *>();
}

} // namespace studio
