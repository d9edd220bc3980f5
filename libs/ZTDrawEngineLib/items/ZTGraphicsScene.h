#pragma once

#include <ZTDrawEngineLib/common/ZTDrawEngineGlobal.h>

#include <QtCore/QHash>
#include <QtCore/QPointer>
#include <QtWidgets/QGraphicsScene>
#include <QtWidgets/QUndoStack>

class ZTAbstractGraphicsItem;
class ZTGraphicsResizeItem;

/**
 * The scene of a document: owns the selection frame, puts it over the selection, aligns the
 * selected items through a context menu and mirrors them on request.
 *
 * Selecting, hit testing and rubber band are those of `QGraphicsScene`.
 *
 * Frame: scene pixels; the scene reaches from -32768 to 32768 both ways.
 * Owner: the scene owns its items and the frame; the undo stack is the host's. Without one, edits
 * happen and are not recorded.
 */
class ZTDRAWENGINELIB_EXPORT ZTGraphicsScene : public QGraphicsScene
{
    Q_OBJECT

public:
    explicit ZTGraphicsScene(QObject *parent = nullptr);
    ~ZTGraphicsScene() override;

    /** Stack for the edits of scene and frame; null for none. */
    void setUndoStack(QUndoStack *stack);
    QUndoStack *getUndoStack() const;

    /** The selection frame. Null only after a host deleted it, or called `QGraphicsScene::clear`.
     */
    ZTGraphicsResizeItem *getGraphicsResizeItem() const;

    /** Rectangle around the selected shape items; null with none selected. */
    QRectF getSelectionItemRect() const;

    /** The topmost item whose shape has that id, or null. */
    ZTAbstractGraphicsItem *getItemById(int id);

    /**
     * All shape items by the id of their shape; several of one id stand topmost first.
     *
     * For callers with many ids: one walk instead of one for each `getItemById`.
     */
    QHash<int, QList<ZTAbstractGraphicsItem *>> getItemsById() const;

    /**
     * Removes items from the scene and deletes them, with one `selectionChanged` for all. Null and
     * items of other scenes are allowed.
     *
     * Order: give them lowest first, as `items(Qt::AscendingOrder)` does; nearly all of a scene of
     * one height go without sorting then. The cost is in proportion to the items there are.
     */
    void deleteItems(const QList<ZTAbstractGraphicsItem *> &items);

    /**
     * Mirrors the selected items within the frame: 1 left to right, 2 top to bottom, any other
     * value nothing.
     *
     * Kept: records nothing on the undo stack.
     */
    void setMirror(int kind);

protected:
    /**
     * Opens the alignment menu and aligns two or more selected items to the frame, recorded as one
     * step "item setPos". Item positions and unrotated bounding boxes count, not transforms.
     *
     * Kept: a menu closed without a choice moves all of them to the scene's origin, in one step.
     */
    void contextMenuEvent(QGraphicsSceneContextMenuEvent *event) override;
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent *event) override;

private Q_SLOTS:
    void slotSelectionChanged();

private:
    QFlags<Qt::AlignmentFlag> displayMenu(QPoint screenPos);
    void align(QFlags<Qt::AlignmentFlag> alignment);
    QList<QPointer<ZTAbstractGraphicsItem>> selectedShapeItems() const;
    void deselect(const QList<QPointer<ZTAbstractGraphicsItem>> &items);
    void polishItems();

    QPointer<QUndoStack> m_undoStack;            ///< borrowed from the host
    QPointer<ZTGraphicsResizeItem> m_resizeItem; ///< an item of this scene
};
