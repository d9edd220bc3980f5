#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointF>
#include <QtCore/QPointer>

#include <optional>

QT_BEGIN_NAMESPACE
class QContextMenuEvent;
class QMenu;
class QTreeView;
QT_END_NAMESPACE

class ZTGraphicsDocument;

namespace studio {

class Commands;
class DocumentActions;

/**
 * The menus of the right mouse button and of the menu key: one for shapes, on the drawing and in
 * the list, and one for the empty drawing.
 *
 * They stand in for the library's menu, which takes closing it without a choice for a command.
 * A click on a shape that is not selected selects it first, and one beside all shapes none.
 */
class ContextMenus : public QObject
{
    Q_OBJECT

public:
    /** All are borrowed and outlive this. */
    ContextMenus(ZTGraphicsDocument &document, QTreeView &list, DocumentActions &actions,
                 const Commands &commands, QObject *parent);

    /** Opens the menu for shapes on another list of them, too. */
    void serve(QTreeView &list);

    /**
     * Where the mouse stands for a command: where the menu was opened that runs it, else on the
     * drawing, or else, and for keys, the middle of the view. Frame: scene pixels.
     */
    QPointF placePx() const;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void openOnDrawing(const QContextMenuEvent &event);
    void openOnList(const QContextMenuEvent &event);
    void show(const QPoint &screenPos);

    ZTGraphicsDocument &m_document;
    QTreeView &m_list;
    DocumentActions &m_actions;
    const Commands &m_commands;
    std::optional<QPointF> m_placePx; ///< while a menu of the drawing is open
    QPointer<QMenu> m_menu;           ///< the one that is open
};

} // namespace studio
