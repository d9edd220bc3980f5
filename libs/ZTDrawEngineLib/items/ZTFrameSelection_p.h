#pragma once

#include <ZTDrawEngineLib/items/ZTAbstractGraphicsItem.h>
#include <ZTDrawEngineLib/items/ZTCarriedItems_p.h>
#include <ZTDrawEngineLib/items/ZTSelectionBounds_p.h>

#include <QtCore/QHash>
#include <QtCore/QList>
#include <QtCore/QPointer>
#include <QtCore/QVector>

#include <memory>

QT_BEGIN_NAMESPACE
class QGraphicsScene;
QT_END_NAMESPACE

/**
 * The items under a selection frame, watched: one that is deleted leaves the list by itself.
 *
 * Limit: a plain `QGraphicsItem` that is no `QObject` can only be watched through a scene; without
 * one it is trusted to live.
 */
class ZTFrameSelection
{
public:
    using ShapeItem = QPointer<ZTAbstractGraphicsItem>;

    void assign(const QList<QGraphicsItem *> &items);

    /** Very many items get the frame behind them in Qt's list, once for so many. */
    void listFrameLast(QGraphicsItem &frame);

    /** The items that are still there, in the order given. */
    const QList<QGraphicsItem *> &items(const QGraphicsScene *scene);

    /** Those that stand for shapes; each may still go while the list is walked. */
    QVector<ShapeItem> shapeItems() const;

    /** Those that do not, as far as they are still there. */
    QVector<QGraphicsItem *> foreignItems(const QGraphicsScene *scene);

    /** Extent of all shape items, read from each of them. */
    ZTSelectionBounds::Extent readExtent();

    /**
     * The same after a change of `child`: for the cost of reading one item, where outlines of no
     * others have changed since.
     */
    ZTSelectionBounds::Extent extentAfterChangeOf(ZTAbstractGraphicsItem *child);

    /** Takes note of a changed child for the next `extentAfterChangeOf`. */
    void noteChange(ZTAbstractGraphicsItem *child);
    void noteGone(ZTAbstractGraphicsItem *child);

    /** Makes the next `extentAfterChangeOf` read all items. */
    void forgetExtents();

    /** Before each move of a drag: very many items are drawn as one picture from the second on. */
    void noteMove(QGraphicsScene &scene);

    /** At the end of the drag. */
    void endCarrying();

    /** Null while few items, or none, are carried. */
    ZTCarriedItems *carried() const { return m_carried.get(); }

private:
    struct Guard
    {
        QPointer<QObject> object; ///< null for a plain item, and once the object is gone
        bool isPlain = false;     ///< not a QObject
        ZTAbstractGraphicsItem *shapeItem = nullptr; ///< good while `object` is
    };

    void removeGone(const QGraphicsScene *scene);
    void readAll();

    QList<QGraphicsItem *> m_selectItems;
    QVector<Guard> m_guards; ///< one for each entry of `selectItems`
    int m_plainCount = 0;
    int m_listedBehind = 0; ///< items that were selected when the frame was last listed last

    ZTSelectionBounds m_bounds;
    QHash<const ZTAbstractGraphicsItem *, int> m_boundsIndex;
    bool m_isBoundsValid = false;
    quint64 m_changeCount = 0; ///< of the outlines, when the bounds were last as they are

    std::unique_ptr<ZTCarriedItems> m_carried;
    int m_moveCount = 0; ///< of the drag under way
};
