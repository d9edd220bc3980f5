#pragma once

#include <ZTDrawEngineLib/common/ZTDrawEngineGlobal.h>
#include <ZTDrawEngineLib/common/ZTEnumerations.h>
#include <ZTDrawEngineLib/common/ZTFillParam.h>

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QSizeF>
#include <QtGui/QPen>
#include <QtGui/QTransform>
#include <QtWidgets/QGraphicsItem>

class ZTGraphicsResizeItem;
class ZTShapeBase;

QT_BEGIN_NAMESPACE
class QDataStream;
QT_END_NAMESPACE

/**
 * What stands in a scene for one shape: forwards to the shape it owns, and paints what that shape
 * computed. The properties and signals are what a property grid binds to.
 *
 * An item paints the same way selected or not; `ZTGraphicsResizeItem`, the selection frame, is what
 * the user sees of a selection and the user's only way to move, resize and rotate: items
 * themselves are selectable, not movable. The bounding rectangle is the hit area.
 *
 * A concrete item allocates `shape` in its constructor and implements `copy`.
 *
 * Frame: positions and rectangles in scene pixels; the shape's transform works on millimetres.
 * Order: GUI thread only. A host may delete an item at any time: scene, frame and undo commands
 * notice.
 */
class ZTDRAWENGINELIB_EXPORT ZTAbstractGraphicsItem : public QObject, public QGraphicsItem
{
    Q_OBJECT
    Q_PROPERTY(QPointF pos READ pos WRITE setPos NOTIFY posChanged FINAL)
    Q_PROPERTY(ZTFillParam fillParam READ getFillParam WRITE setFillParam)

public:
    ZTAbstractGraphicsItem();
    ~ZTAbstractGraphicsItem() override;

    /**
     * Takes over the shape of `source`, an item of the same kind; the own shape id stays.
     *
     * Failure: nothing changes for null and for an item of another kind.
     */
    virtual void copy(ZTAbstractGraphicsItem *source) = 0;

    /** Reads the shape and paints it. Returns true whatever was read: test the stream's status. */
    virtual bool load(QDataStream &stream);

    /** Text that the shape shows; empty for every item but a text. */
    virtual QString text() const;

    /** Sets the text that the shape shows; does nothing for every item but a text. */
    virtual void setText(const QString &text);

    /**
     * Multiplies the shape's transform on the right, so scales about the item's origin.
     *
     * Kept: neither stores the new size nor emits anything; the frame follows.
     */
    Q_INVOKABLE virtual void scale(double x, double y);

    /**
     * Records the size that the transform gave the shape; does not resize the shape.
     *
     * Emits: `sizeChanged`, unless both dimensions equal the stored ones under `qFuzzyCompare`.
     */
    virtual void setSize(const QSizeF &sizePx);

    /** The size last recorded; invalid until there was one. */
    virtual QSizeF getSize() const;

    /** Gives the shape a transform, paints it and records its size through `setSize`. */
    virtual void setTransformParam(const QTransform &transform);

    /** The shape's own transform, writable: writing through it neither marks nor repaints. */
    virtual QTransform &getTransformParam();

    virtual ZTFillParam getFillParam() const;            ///< hatch settings of the shape
    virtual void setFillParam(const ZTFillParam &param); ///< sets them and repaints

    /**
     * Rectangle around the outline, relative to the item's origin.
     *
     * Rebuilds the shape while that rectangle is empty, so that an item whose shape was never
     * painted has its geometry on the first layout.
     */
    QRectF boundingRect() const override;

    /**
     * Paints outline (if the border is enabled) and hatch (if there is one) with the pen of the
     * pen id, one device pixel wide at every zoom. Sets no render hint.
     */
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option,
               QWidget *widget = nullptr) override;

    /** The shape behind the item. Owner: the item; `copy` replaces the shape. */
    ZTShapeBase *getShapeBase() const;

    /** Kind given by whoever made the item, beside the kind that the shape carries itself. */
    ShapeType getShapeType() const;
    void setShapeType(ShapeType type);

    /**
     * Pen that marks the shape, counted from 1. It chooses the colour on screen: black, blue, cyan,
     * goldenrod, navy, green, grey, khaki, magenta, orange, orchid, red, salmon, turquoise, yellow,
     * fuchsia.
     *
     * Limit: an id outside 1 to 16 is stored and paints black.
     */
    int getPenId() const;
    void setPenId(int penId);

    /** The pen in which a pen id shows on screen, also that of an item that paints itself. */
    static QPen screenPen(int penId);

    /** The frame that took this item, or null; a dropped item may keep a frame it has left. */
    ZTGraphicsResizeItem *getResizeItem() const;
    void setResizeItem(ZTGraphicsResizeItem *frame);

Q_SIGNALS:
    void posChanged();      ///< the position changed, by hand or by call
    void sizeChanged();     ///< `setSize` set another size
    void rotationChanged(); ///< declared for hosts, never emitted
    void scaleChanged();    ///< declared for hosts, never emitted

protected:
    /** Clamps positions into the scene's rectangle and reports moves to listeners and frame. */
    QVariant itemChange(GraphicsItemChange change, const QVariant &value) override;

    /** Owns `replacement` instead of the shape so far, under the same shape id. */
    void replaceShape(ZTShapeBase *replacement);

    /** Rebuilds the shape whether it is marked or not. */
    void rebuildShape();

    /** Lets the frame, if there is one, follow this item's changed geometry. */
    void updateResizeItem();

    /** Tells the frame that the geometry changed, without making it follow at once. */
    void noteChangedGeometry();

    /**
     * Owner: the item; deleted by the destructor. Hides `QGraphicsItem::shape()`, which is reached
     * through a `QGraphicsItem` pointer.
     */
    ZTShapeBase *shape = nullptr;
    QSizeF size;                               ///< last size recorded through setSize
    ShapeType shapeType = ShapeType::None;     ///< set after creation
    QPointer<ZTGraphicsResizeItem> resizeItem; ///< borrowed; clears itself when the frame goes

private:
    QPointF clampedToScene(const QPointF &posPx) const;
};
