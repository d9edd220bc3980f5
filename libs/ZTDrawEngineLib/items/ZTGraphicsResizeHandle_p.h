#pragma once

#include <ZTDrawEngineLib/common/ZTDrawEngineGlobal.h>

#include <QtWidgets/QGraphicsRectItem>

class ZTGraphicsResizeItem;

/**
 * One of the eight round handles of a selection frame; stays 20 pixels across at any zoom.
 *
 * Indexes: 0 to 3 the corners top left, top right, bottom left, bottom right; 4 to 7 the middles of
 * the edges top, left, right, bottom.
 */
class ZTDRAWENGINELIB_PRIVATE_EXPORT ZTGraphicsResizeHandle : public QGraphicsRectItem
{
public:
    ZTGraphicsResizeHandle(int index, ZTGraphicsResizeItem *frame);
    ~ZTGraphicsResizeHandle() override;

    /** Moves the handle to its anchor on the frame's rectangle. */
    void place();

    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option,
               QWidget *widget = nullptr) override;

protected:
    void hoverEnterEvent(QGraphicsSceneHoverEvent *event) override;
    void hoverLeaveEvent(QGraphicsSceneHoverEvent *event) override;
    void mousePressEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseMoveEvent(QGraphicsSceneMouseEvent *event) override;
    void mouseReleaseEvent(QGraphicsSceneMouseEvent *event) override;
    bool sceneEvent(QEvent *event) override;
    QVariant itemChange(GraphicsItemChange change, const QVariant &value) override;

private:
    int m_index;
    ZTGraphicsResizeItem *m_frame; ///< the parent item, which deletes its handles before it goes
    bool m_isDragging = false;     ///< between press and release
};
