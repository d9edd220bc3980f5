#include <studio/window/ContextMenus.h>

#include <studio/edit/DocumentActions.h>
#include <studio/groups/Groups.h>
#include <studio/window/CommandTable.h>
#include <studio/window/WindowLayout.h>

#include <QtCore/QTimer>
#include <QtGui/QContextMenuEvent>
#include <QtGui/QCursor>
#include <QtWidgets/QMenu>
#include <QtWidgets/QTreeView>

namespace studio {

namespace {

/** The topmost shape under a point of the view, or null; the selection frame is none. */
ShapeItem *shapeAt(const ZTGraphicsView &view, const QPoint &pos)
{
    const QList<QGraphicsItem *> hit = view.items(pos);
    for (QGraphicsItem *candidate : hit) {
        if (auto *item = dynamic_cast<ShapeItem *>(candidate))
            return item;
    }
    return nullptr;
}

/** Whether a point lies within the frame around what is selected. */
bool isWithinFrame(const ZTGraphicsDocument &document, const QPoint &pos)
{
    const ZTGraphicsResizeItem *frame = document.scene()->getGraphicsResizeItem();
    return frame != nullptr && frame->isVisible() &&
           frame->sceneBoundingRect().contains(document.view()->mapToScene(pos));
}

} // namespace

ContextMenus::ContextMenus(ZTGraphicsDocument &shown, QTreeView &shapeList,
                           DocumentActions &editing, const Commands &commandSet, QObject *parent)
    : QObject(parent), m_document(shown), m_list(shapeList), m_actions(editing),
      m_commands(commandSet)
{
    m_document.view()->viewport()->installEventFilter(this);
    m_list.viewport()->installEventFilter(this);
}

void ContextMenus::serve(QTreeView &list) { list.viewport()->installEventFilter(this); }

bool ContextMenus::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::ContextMenu)
        return QObject::eventFilter(watched, event);
    const auto &asked = *static_cast<QContextMenuEvent *>(event);
    if (watched == m_document.view()->viewport())
        openOnDrawing(asked);
    else
        openOnList(asked);
    event->accept();
    return true;
}

void ContextMenus::openOnDrawing(const QContextMenuEvent &event)
{
    // The menu takes the release of the press that opened it: the frame would wait for it.
    m_actions.finishDrag();
    const bool isByMouse = event.reason() == QContextMenuEvent::Mouse;
    if (isByMouse) {
        ShapeItem *item = shapeAt(*m_document.view(), event.pos());
        if (item != nullptr && !item->isSelected())
            selectOnly(*m_document.scene(), wholeGroups(*m_document.scene(), {item}, {}));
        else if (item == nullptr && !isWithinFrame(m_document, event.pos()))
            m_actions.clearSelection();
    }
    const QWidget *viewport = m_document.view()->viewport();
    const QPoint pos = isByMouse ? event.pos() : viewport->rect().center();
    show(isByMouse ? event.globalPos() : viewport->mapToGlobal(pos));
    m_placePx = m_document.view()->mapToScene(pos);
    // A menu closes before it runs what was chosen.
    connect(m_menu, &QMenu::aboutToHide, this,
            [this] { QTimer::singleShot(0, this, [this] { m_placePx.reset(); }); });
}

// The press has selected the row already.
void ContextMenus::openOnList(const QContextMenuEvent &event) { show(event.globalPos()); }

QPointF ContextMenus::placePx() const
{
    if (m_placePx)
        return *m_placePx;
    const ZTGraphicsView &view = *m_document.view();
    const QPoint mouse = view.viewport()->mapFromGlobal(QCursor::pos());
    const QRect shown = view.viewport()->rect();
    return view.mapToScene(shown.contains(mouse) ? mouse : shown.center());
}

void ContextMenus::show(const QPoint &screenPos)
{
    delete m_menu;
    const bool isForShapes = !m_document.scene()->selectedItems().isEmpty();
    m_menu = newContextMenu(m_commands, isForShapes, m_document.view());
    m_menu->setAttribute(Qt::WA_DeleteOnClose);
    m_menu->popup(screenPos);
}

} // namespace studio
