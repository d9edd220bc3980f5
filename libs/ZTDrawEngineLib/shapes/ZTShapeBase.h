#pragma once

#include <ZTDrawEngineLib/common/ZTEnumerations.h>
#include <ZTDrawEngineLib/common/ZTFillParam.h>

#include <QtCore/QExplicitlySharedDataPointer>
#include <QtCore/QLineF>
#include <QtCore/QRectF>
#include <QtCore/QString>
#include <QtCore/QVector>
#include <QtGui/QPainterPath>
#include <QtGui/QTransform>

class ZTShapeBasePrivate;

/**
 * Geometry behind one graphics item: what a shape is, and the straight paths that it yields.
 *
 * A shape knows nothing of a scene. It holds its own path in millimetres and derives two results
 * from it: the outline (`getLines`) and the hatch (`getFillLines`), both in scene pixels relative
 * to the item's origin. A concrete shape supplies `paint()`, which rebuilds all three.
 *
 * Order: setters mark the shape and rebuild nothing; the next `paint()` does, and costs nothing
 * while the shape is not marked. Until then the results are the old ones. `setTransformParam` is
 * the one setter that paints at once. GUI thread only.
 *
 * Frame: `getRect` and the path are in millimetres in the shape's own frame, before its transform;
 * lines and hatch are in scene pixels after it.
 *
 * Copying: copy construction makes an independent shape, id and mark included. Assignment shares:
 * after `a = b` both stand for one record, a setter on one shows in the other, and the last of
 * them to go deletes it. A moved-from shape can be destroyed and assigned to, nothing else.
 */
class ZTDRAWENGINELIB_EXPORT ZTShapeBase
{
public:
    ZTShapeBase();
    ZTShapeBase(const ZTShapeBase &other);
    ZTShapeBase(ZTShapeBase &&other) noexcept;
    ZTShapeBase &operator=(const ZTShapeBase &other);
    ZTShapeBase &operator=(ZTShapeBase &&other) noexcept;
    virtual ~ZTShapeBase();

    /** Text that the shape shows; empty for every shape but a text. */
    virtual QString text() const;

    /** Sets the text that the shape shows; does nothing for every shape but a text. */
    virtual void setText(const QString &text);

    /** Rebuilds path, outline and hatch if the shape is marked, and clears the mark. */
    virtual void paint() = 0;

    /**
     * Hatches the outline as the fill parameters say, through `fillULine`.
     *
     * Failure: the old hatch stays when the fill type is `None` or the spacing is 0. Readers look
     * at the fill type first.
     */
    virtual void fill();

    /**
     * Older hatch of horizontal lines over the path, in millimetres; nothing calls it.
     *
     * Failure: without a path the old hatch stays. A spacing that gives no line, is not a number
     * or asks for more than the `Limit:` of `fillULine` leaves the hatch empty.
     */
    virtual void fillLine();

    /**
     * Replaces the hatch by parallel lines over the outline, holes left free.
     *
     * `Line` gives separate segments in alternating direction; `ULine` strings them together along
     * the outline into zigzags, so that the laser seldom jumps. An open outline is hatched as if
     * its last chord closed it.
     *
     * @param type `Line` or `ULine`
     * @param spac distance of the lines in scene pixels
     * @param angle direction in degrees
     *
     * Failure: a spacing that is not a positive finite number gives an empty hatch.
     * Limit: so does a layout of more than 1,000,000 scan lines, or one so fine that the ordinate
     * no longer grows, or a hatch of more than 25,000,000 lines; the logging category
     * "ZTDrawEngineLib.Hatch" tells.
     */
    virtual void fillULine(FillType type, double spac, double angle);

    /**
     * Outline after the transform, ready to draw: straight segments, one polygon per subpath.
     *
     * Frame: scene pixels, relative to the item's origin.
     * Owner: the shape; the reference is good until the next `paint()`.
     * Limit: empty for an outline that has a coordinate which is no number, or one beyond
     * 1,000,000,000 pixels.
     */
    virtual const QPainterPath &getLines() const;

    /** Stores the transform given to the shape by rotating, mirroring, resizing, and paints. */
    virtual void setTransformParam(const QTransform &transform);

    /** The transform itself, writable: writing through it does not mark the shape. */
    virtual QTransform &getTransformParam();

    /** A further transform, applied before `getTransformParam`; writable, does not mark. */
    virtual QTransform &getRoundingTransformParam();

    /** Stores only: takes effect at the next rebuild, and does not cause one. */
    virtual void setRoundingTransformParam(const QTransform &transform);

    /** The shape's own rectangle before its transform, in millimetres. */
    virtual QRectF getRect() const;

    /** Stores a different rectangle and marks the shape; an equal one changes nothing. */
    virtual void setRect(const QRectF &rectMm);

    /** Rectangle around the outline, in scene pixels; empty until the shape was painted. */
    virtual QRectF controlPointRect();

    /**
     * Multiplies the size of the rectangle, its top-left corner staying.
     *
     * Kept: does not mark the shape, unlike `setRect`; callers scale first and mark once.
     */
    virtual void scale(double sx, double sy);

    virtual ZTFillParam getFillParam(); ///< hatch settings, a copy

    /** Stores the hatch settings and marks the shape. */
    virtual void setFillParam(const ZTFillParam &param);

    virtual ShapeType getShapeType();                 ///< the kind, as it is saved
    virtual void setShapeType(const ShapeType &type); ///< stored; changes no geometry

    /**
     * Hatch segments in marking order.
     *
     * Frame: scene pixels, relative to the item's origin.
     * Owner: the shape; the reference is good until the next `paint()`.
     */
    virtual const QVector<QLineF> &getFillLines() const;

    /**
     * Lays out hatches side by side, in as many threads as there are processors, so that
     * `getFillLines` of these shapes finds its result.
     *
     * A hatch is otherwise laid out when it is first asked for, one after the other. Nothing but
     * the time of asking changes; what is left over when the time is up is laid out as before.
     *
     * @param shapes borrowed for the call; null ones and marked ones are passed over
     * @param budgetMs milliseconds after which no further hatch is begun
     */
    static void layOutHatches(const QVector<const ZTShapeBase *> &shapes, int budgetMs);

    /**
     * Reads what `save` wrote and marks the shape. Returns true whatever it read: the stream's
     * status is the caller's to test.
     */
    virtual bool load(QDataStream &stream);

    /**
     * Writes the shape: rect (QRectF), transform, rounding transform (QTransform), fill
     * parameters, shape type, update mark, id (qint32), aspect lock (bool), pen id (qint32).
     */
    virtual void save(QDataStream &stream) const;

    int getId() const;                  ///< document-wide id, 0 until the shape manager gives one
    void setId(int id);                 ///< stored as it comes; need not be unique
    int getPenId() const;               ///< pen that marks the shape, counted from 1
    void setPenId(int penId);           ///< stored as it comes
    bool getLockAspectRatio() const;    ///< whether resizing keeps the proportions, false
    void setLockAspectRatio(bool lock); ///< for the frame that resizes
    bool isUpdate() const;              ///< whether the next `paint()` rebuilds
    void setUpdate(int update);         ///< non-zero marks the shape

protected:
    /** The path in millimetres, writable also in a const shape. */
    QPainterPath &getPath() const;

    /**
     * Makes the outline out of the path: rounding transform, transform, millimetres to pixels,
     * curves flattened by Qt. With `sort`, the polygons are ordered by `ZTPointSort::sort`.
     * Leaves the hatch alone.
     */
    void path2Lines(bool sort);

    void setLines(const QPainterPath &linesPx);
    void setFillLines(const QVector<QLineF> &fillLinesPx);

private:
    friend ZTDRAWENGINELIB_EXPORT QDataStream &operator<<(QDataStream &, const ZTShapeBase &);
    friend ZTDRAWENGINELIB_EXPORT QDataStream &operator>>(QDataStream &, ZTShapeBase &);

    QTransform pathToMm() const;

    QExplicitlySharedDataPointer<ZTShapeBasePrivate> m_d;
};

/** Stream form of a shape's base record, as `ZTShapeBase::save` tells. */
ZTDRAWENGINELIB_EXPORT QDataStream &operator<<(QDataStream &stream, const ZTShapeBase &shape);
ZTDRAWENGINELIB_EXPORT QDataStream &operator>>(QDataStream &stream, ZTShapeBase &shape);
