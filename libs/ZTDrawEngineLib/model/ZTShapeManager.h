#pragma once

#include <ZTDrawEngineLib/common/ZTEnumerations.h>
#include <ZTDrawEngineLib/items/ZTAbstractGraphicsItem.h>
#include <ZTDrawEngineLib/model/ZTMarkData.h>

#include <QtCore/QList>
#include <QtCore/QObject>
#include <QtCore/QVector>

#include <tuple>

QT_BEGIN_NAMESPACE
class QAbstractItemModel;
class QDataStream;
class QGraphicsItem;
QT_END_NAMESPACE

class ZTGraphicsScene;
class ZTItemModel;
class ZTShapeBase;

/**
 * The one door through which shapes enter and leave a drawing.
 *
 * Owns the scene and the object model of one document, makes items through the registered
 * factories, gives every shape its id, repeats and deletes items, and hands out the mark data.
 *
 * Frame: positions and gaps in scene pixels, mark data in mark units.
 * Owner: the document. Items belong to the scene; only the manager deletes them.
 * Order: GUI thread only.
 */
class ZTDRAWENGINELIB_EXPORT ZTShapeManager : public QObject
{
    Q_OBJECT

public:
    /** Makes scene and model, and takes `ZTCoord::screen2mark()` as scale of both axes, once. */
    explicit ZTShapeManager(QObject *parent = nullptr);
    ~ZTShapeManager() override;

    /**
     * Makes an item of a kind, gives it the next id and adds it to scene and model.
     *
     * A rectangle with its top left at the origin puts the item at minus the rectangle's centre,
     * converted from millimetres to pixels, so that a shape of that size stands on the scene's
     * origin. Kept: any other rectangle puts the item at minus its top left, not converted. The
     * rectangle does not size the shape.
     *
     * Owner: the scene.
     * Failure: null, and no change, for a kind without a registered factory.
     */
    ZTAbstractGraphicsItem *addShape(ShapeType type, const QRectF &rectMm);

    /**
     * Gives an item that the host made the next id and adds it to scene and model, as `addShape`
     * does with its own; kind and place are the host's. Null changes nothing.
     *
     * Owner: the scene, from now on. The item is in no scene yet.
     */
    void insertItem(ZTAbstractGraphicsItem *item);

    /**
     * Repeats the first selected item in rows and columns, itself being the cell (0, 0).
     *
     * @param rows number of rows, the source's own included
     * @param columns number of columns, the source's own included
     * @param dx gap between bounding boxes in x, in scene pixels
     * @param dy gap between bounding boxes in y, in scene pixels
     * @return the new items, row by row. They are not selected, and no undo command is pushed.
     *
     * Failure: an empty list without a selection, for a foreign item, and for a kind without a
     * registered factory.
     */
    QList<ZTAbstractGraphicsItem *> addMatrix(int rows, int columns, double dx, double dy);

    /** Takes the selected items out of model and scene and deletes them. */
    void removeSelect();

    /** Deletes all shapes, starts ids at 0 again, and clears the process-wide variant texts. */
    void clear();

    /** The shapes, topmost item first. Owner: their items. */
    QVector<ZTShapeBase *> getShapeList();

    /** The selected shapes, in the order of `QGraphicsScene::selectedItems`. Owner: their items. */
    QVector<ZTShapeBase *> getSelectedShapeList();

    /** The id that the next `addShape` gives. */
    int getNextShapeId() const;

    /** Mark units per scene pixel in x and y; negative values mirror. */
    void setScale(float x, float y);

    /** The scale, x first. */
    std::tuple<float, float> getScale() const;

    /** The model for an object tree, a `ZTItemModel`. Owner: the manager. */
    QAbstractItemModel *itemModel() const;

    /** The scene. Owner: the manager. */
    ZTGraphicsScene *scene() const;

    /**
     * Writes the drawing: the variant texts, the next id (qint32), the number of items (qint32),
     * and each item from the bottom up: its kind (quint8), its position (QPointF), its shape's own
     * record.
     *
     * Version, byte order and precision are those that the caller set on the stream. There is no
     * magic number and no checksum: a host writes a header of its own around it.
     * Kept: polygons and imported drawings store only their one field, see their `save`.
     */
    void save(QDataStream &stream);

    /**
     * Adds the drawing that `save` wrote to the present one. Returns true whatever it read.
     *
     * Nothing is cleared first, no undo command is pushed and `sigAddedShape` is not emitted. The
     * id counter becomes the stream's, so ids may repeat. The stream's status is the caller's to
     * test; the item count is taken as it stands, so give it streams that are known to be whole.
     * Kept: where the stream ends early, each item still announced becomes an empty rectangle.
     *
     * Progress: the device is read from front to back, and nothing is put off to the end, so that
     * a device of the host's own can count the bytes that it gives; it may run the event loop
     * meanwhile. To cancel, it answers every further read with bytes of 255: none of what is still
     * announced becomes an item then. Every answer has to be whole, a short one is taken for the
     * end.
     *
     * Limit: an item whose position is no number, or farther away than 1,000,000,000 pixels, comes
     * to the scene's origin.
     */
    bool load(QDataStream &stream);

    /** Always true; looks at neither argument. */
    bool deduplicatio(ZTMarkGraph &graph, const QLineF &line);

    /**
     * Fills `object` with the mark data of one item, from freshly rebuilt geometry.
     *
     * Outline (if the border is enabled) and hatch (if there is one) are moved by the item's
     * position and scaled. Kept: the extent is the item's bounding rectangle moved with its top
     * left to the item's position, scaled by the absolute scale, so that under a negative scale
     * it keeps its sign while the lines are mirrored.
     */
    void genMarkObject(ZTAbstractGraphicsItem *item, ZTShapeBase *shape, ZTMarkObject &object);

    /** Mark data of the whole drawing, ordered by `ZTPointSort`. Rebuilds every shape. */
    ZTMarkGraph getShapeLines();

    /** Mark data of the selection, ordered by `ZTPointSort`. Rebuilds its shapes. */
    ZTMarkGraph getSelectedShapeLines();

Q_SIGNALS:
    /** A shape came in through the document, null if that failed. Not for matrix copies. */
    void sigAddedShape(ZTAbstractGraphicsItem *item);

private:
    void loadItem(QDataStream &stream);
    ZTMarkGraph markGraphOf(const QList<QGraphicsItem *> &items);

    ZTGraphicsScene *m_scene = nullptr; ///< child
    ZTItemModel *m_itemModel = nullptr; ///< child
    qint32 m_nextShapeId = 0;
    float m_scaleX = 1.0F; ///< mark units per scene pixel
    float m_scaleY = 1.0F; ///< mark units per scene pixel
};
