#pragma once

#include <studio/shapes/ShapeItems.h>

#include <QtCore/QSet>

QT_BEGIN_NAMESPACE
class QStandardItem;
QT_END_NAMESPACE

namespace studio {

/**
 * A set of shapes that an undo command takes out of the drawing and puts back: the very same
 * items, with their ids, at their places in the stacking order and in the object tree.
 *
 * Taking out and putting back costs in proportion to the drawing, whatever is taken from where.
 *
 * Owner: of the items while they are out; they go with the store. Those in the drawing belong to
 * the scene, and one that others delete leaves the set by itself.
 * Order: the stack that holds the command is cleared before the drawing goes or is emptied.
 */
class ItemStore
{
public:
    /** The items stand in the drawing of `manager`. */
    ItemStore(ZTShapeManager *manager, const ShapeItems &items);
    ~ItemStore();
    ItemStore(const ItemStore &) = delete;
    ItemStore &operator=(const ItemStore &) = delete;

    /** Items that are still there, in the drawing or out of it. */
    ShapeItems items() const { return stillThere(m_members); }

    /** Remembers the places of the items and takes them out; then selects `selectedAfter`. */
    void takeOut(const ShapeItems &selectedAfter);

    /** Puts the items back to where they stood and selects them. */
    void putBack();

private:
    using Row = QList<QStandardItem *>;
    using ItemSet = QSet<const ShapeItem *>;

    /** Something that is out of its list, and its place there while all stood in it. */
    template <class Entry>
    struct Held
    {
        Entry entry;
        int place;
    };

    void takeItems(const ShapeItems &before, const ItemSet &wanted);
    void putItems(const ShapeItems &before);
    void takeRows(const ItemSet &wanted);
    void putRows();
    template <class Entry>
    static QVector<Entry> merged(const QVector<Entry> &before, const QVector<Held<Entry>> &held);

    QPointer<ZTShapeManager> m_manager; ///< borrowed from the document
    QVector<QPointer<ShapeItem>> m_members;
    QVector<Held<ShapeItem *>> m_heldItems; ///< owned; lowest first
    QVector<Held<Row>> m_heldRows;          ///< cells are owned; top row first
};

} // namespace studio
