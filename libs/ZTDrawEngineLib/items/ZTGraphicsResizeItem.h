#pragma once

#include <ZTDrawEngineLib/common/ZTDrawEngineGlobal.h>

#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtWidgets/QGraphicsRectItem>
#include <QtWidgets/QUndoStack>

#include <memory>

class ZTAbstractGraphicsItem;
class ZTFrameSelection;
class ZTGraphicsResizeHandle;

/**
 * The frame that a scene keeps over its selection: a dashed rectangle with eight round handles, and
 * the user's only way to move and resize items.
 *
 * Dragging the frame moves its items live and records the move on release. Dragging a handle
 * changes the frame's rectangle, and on release every item is scaled by the ratio of the new
 * rectangle to the old one, about its own origin, keeping its place in the group in proportion. If
 * the first item's shape locks its aspect ratio, an edge handle scales all items both ways and a
 * corner handle takes the smaller ratio. Items are never flipped.
 *
 * The frame follows its items when they change by themselves, but not while it is being dragged.
 * Very many of them are drawn as one picture meanwhile: what changes in them is seen at the end.
 *
 * Frame: position and rectangle in scene pixels.
 * Owner: the scene. Items and undo stack are borrowed; one that is deleted leaves by itself.
 * Without an undo stack the edits happen and are not recorded.
 * Order: GUI thread only.
 */
class ZTDRAWENGINELIB_EXPORT ZTGraphicsResizeItem : public QObject, public QGraphicsRectItem
{
    Q_OBJECT

public:
    /** Keys of `QGraphicsItem::setData` that the frame uses while it is dragged. */
    enum ItemDataKey {
        ITEM_OFFSET = 65537,      ///< on an item: its position minus the frame's
        FRAME_START_RECT = 65538, ///< on the frame: rectangle when a handle drag began, else empty
        START_POS = 65539         ///< on the frame: its position; on an item: as `ITEM_OFFSET`
    };

    explicit ZTGraphicsResizeItem(const QRectF &rect, QGraphicsItem *parent = nullptr);
    ~ZTGraphicsResizeItem() override;

    /**
     * Draws the rectangle that many device pixels outside of where it is, so that it does not cover
     * the outlines under it; 0 in a new frame. What the mouse meets stays where it is. How far that
     * is in the scene follows from `setHandleScale`; without it, as many scene pixels.
     */
    void setOutset(double devicePixels);
    double getOutset() const; ///< as `setOutset` set it

    /**
     * Lets handles stand apart where the rectangle is too small on the screen for all eight, as
     * around a line: the corners make room. Device pixels to a scene pixel in the view; 0 in a new
     * frame, and handles overlap.
     */
    void setHandleScale(double viewScale);
    double getHandleScale() const; ///< as `setHandleScale` set it

    /** What is painted lies within: the rectangle, its line and its outset; frame's own pixels. */
    QRectF boundingRect() const override;

    void setUndoStack(QUndoStack *stack); ///< where steps go, or null; stays the host's
    QUndoStack *getUndoStack() const;     ///< null at first

    /** While false, changes of the items do not move the frame. Each release sets it to true. */
    void setEnableResizeFromChild(bool enable);
    bool isEnableResizeFromChild() const;

    /** The items under the frame that still exist. Good until the selection changes. */
    const QList<QGraphicsItem *> &selectItem() const;

    /**
     * Puts the frame over other items, or hides it for none. A drag under way ends as if released.
     *
     * Kept: an item that leaves while others come keeps its pointer to this frame.
     * Emits: what `resizeFromChild` does.
     */
    void setSelectItem(const QList<QGraphicsItem *> &items);

    /**
     * Gives the frame a rectangle, normalised and at least 0.0001 wide and high.
     *
     * Emits: `sigSizeChanged`, unless the normalised rectangle is the current one.
     */
    void setRect(const QRectF &rectPx);
    void setRect(double x, double y, double width, double height);

    /** Moves the frame and its items, recorded as one step "item setPos". Emits nothing. */
    void setPos(const QPointF &posPx);

    /**
     * Turns all items by `angleDeg` about the frame's centre, in addition to what they have.
     *
     * Kept: nothing is recorded; `rotation()` remembers the last argument, not the sum.
     * Emits: `sigRotationChanged`.
     */
    void setRotation(double angleDeg);

    /**
     * Last argument of `setRotation` for several items, the `QGraphicsItem::rotation` of a single
     * one, 0 for none. A new selection starts at 0.
     */
    double rotation() const;

    /**
     * Fits the frame around its shape items and above them, unless that is disabled.
     *
     * Emits: `sigPosChanged` and `sigSizeChanged` for what changed.
     */
    void resizeFromChild();

    /** Stores where the items stand in the frame; a handle drag begins with it. */
    void beforeAdjust();

    /**
     * Scales and moves the items from `FRAME_START_RECT` to the current rectangle, recorded as one
     * step "item resize" with a step "item resize ID" for each item.
     *
     * Kept: when no handle drag began before, nothing is done and the frame stops following its
     * items until the next release on it.
     */
    void updateChildSize();

    /** Moves the rectangle's offset into the position, so that the rectangle starts at (0, 0). */
    void item2Scene();

    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option,
               QWidget *widget = nullptr) override;

Q_SIGNALS:
    void sigPosChanged();      ///< the frame was moved
    void sigSizeChanged();     ///< the frame's rectangle was set
    void sigRotationChanged(); ///< the items were turned

protected:
    void hoverEnterEvent(QGraphicsSceneHoverEvent *event) override;
    void hoverLeaveEvent(QGraphicsSceneHoverEvent *event) override;
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent *event) override;
    bool sceneEvent(QEvent *event) override;
    QVariant itemChange(GraphicsItemChange change, const QVariant &value) override;

    /** Draws the rectangle in white and dashed blue over it, visible on any background. */
    virtual void drawResizePoint(QPainter *painter);

private:
    friend class ZTAbstractGraphicsItem;
    friend class ZTGraphicsResizeHandle;
    friend class ZTGraphicsScene;

    struct Ratio
    {
        double x;
        double y;
    };

    void followChild(ZTAbstractGraphicsItem *child);
    void noteChild(ZTAbstractGraphicsItem *child);
    void noteChildGone(ZTAbstractGraphicsItem *child);
    void noteHandleGone(ZTGraphicsResizeHandle *handle);

    void fitAround(const QRectF &rectPx, double maxZ);
    void placeHandles();
    void storeOffsets(ItemDataKey key);
    void rememberStarts();
    QPointF snappedToStart(const ZTAbstractGraphicsItem *item, const QPointF &posPx) const;
    void carryItems();
    void endDrag();
    void finishMove();
    Ratio resizeRatio(const QRectF &startRectPx) const;
    bool isAspectRatioLocked() const;
    void resizeChild(const QPointer<ZTAbstractGraphicsItem> &child, Ratio ratio);

    QPointer<QUndoStack> m_undoStack;          ///< borrowed from the host
    QList<ZTGraphicsResizeHandle *> m_handles; ///< owned; index in the list is the handle's index
    std::unique_ptr<ZTFrameSelection> m_selection;
    bool m_enableResizeFromChild = true; ///< false while the frame moves its items
    double m_rotationAngle = 0.0;        ///< last argument of setRotation
    QHash<const ZTAbstractGraphicsItem *, QPointF> m_startPositions; ///< when the drag began
    bool m_isMoving = false; ///< between press and release on the frame
    double m_handleScale = 0.0;
    double m_outset = 0.0; ///< device pixels
};
