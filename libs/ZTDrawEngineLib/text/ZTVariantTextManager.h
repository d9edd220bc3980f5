#pragma once

#include <ZTDrawEngineLib/common/ZTSingletonTemplate.h>

#include <QtCore/QHash>
#include <QtCore/QVector>

#include <memory>
#include <vector>

QT_BEGIN_NAMESPACE
class QDataStream;
QT_END_NAMESPACE

class ZTTextShapeBase;
class ZTVariantText;
class ZTDRAWENGINELIB_EXPORT ZTVariantTextManager;
extern template class ZTSingletonTemplate<ZTVariantTextManager>;

/**
 * Registry through which several text shapes share one variant text under an id.
 *
 * For hosts: the library itself registers no shape and never asks the registry when it draws; a
 * shape draws from a variant text of its own. It does write the registry into a drawing's stream,
 * read it back, and empty it when a drawing is cleared. One registry serves all documents of a
 * process.
 *
 * Owner: the registry has the variant texts. It borrows the shapes; one that is destroyed leaves
 * the lists, and its entries stay.
 */
class ZTDRAWENGINELIB_EXPORT ZTVariantTextManager : public ZTSingletonTemplate<ZTVariantTextManager>
{
    friend class ZTSingletonTemplate<ZTVariantTextManager>;

public:
    /**
     * Makes an entry with a new variant text, used by `shape`.
     *
     * Ids count from 1; 0 is never issued. A stream brings its own count along, and ids of loaded
     * entries may repeat older ones.
     *
     * Failure: 0, and nothing changes, for null and when the 32-bit ids are used up.
     */
    int newItem(ZTTextShapeBase *shape);

    /**
     * Lets the shape use every entry with that id. An unknown id does nothing, nor does null.
     *
     * Kept: the shape is not looked for, so that a shape appended twice gets two values in one
     * `flush` and has to be deleted twice.
     */
    void appendItem(int id, ZTTextShapeBase *shape);

    bool hasId(int id); ///< whether an entry has that id

    /** The ids of all entries, in their order; one may stand there twice after a stream. */
    QVector<int> getIds() const;

    /**
     * The shapes that use the first entry with that id, in the order in which `flush` gives them
     * their texts; none for an unknown id. Owner: not the registry.
     */
    QVector<ZTTextShapeBase *> getShapes(int id) const;

    /** Variant text of the first entry that the shape uses, or null. Owner: the registry. */
    ZTVariantText *getVariantText(ZTTextShapeBase *shape);

    /**
     * Takes the shape out, once out of every entry that it uses, up to and including the first
     * that is left without shapes: that one goes, and the search ends with it.
     *
     * Kept: later entries keep the shape then; delete it again for those. A loaded entry that
     * nobody uses can be removed by `deleteAll` only.
     */
    void deleteItem(ZTTextShapeBase *shape);

    /** Forgets everything; ids start at 1 again. */
    void deleteAll();

    /**
     * Gives every shape a new text through its `setText`, entry by entry.
     *
     * The entry's variant text is updated once for each shape, so that shapes which share a
     * running number get consecutive values.
     */
    void flush();

    /**
     * Writes the last id, the number of entries (qint32), then of each entry its id (qint32) and
     * its variant text. The shapes are not written.
     */
    void save(QDataStream &stream);

    /**
     * Takes over the stream's last id and appends its entries, without shapes, to those there.
     *
     * Kept: nothing looks at the stream's status. Each entry still announced where the stream has
     * ended is appended with id 0 and an empty variant text, so give it streams known to be whole.
     */
    void load(QDataStream &stream);

private:
    struct Entry
    {
        qint32 id = 0;
        std::unique_ptr<ZTVariantText> text;
        QVector<ZTTextShapeBase *> shapes; ///< borrowed; a destroyed shape takes itself out
    };

    friend class ZTTextShapeBase;

    ZTVariantTextManager();
    ~ZTVariantTextManager();

    /** Takes a shape that is being destroyed out of every list; makes no registry for it. */
    static void forget(ZTTextShapeBase *shape);

    void addUse(Entry *entry, ZTTextShapeBase *shape);
    void removeUse(Entry *entry, ZTTextShapeBase *shape);

    // Shared, so that an entry lasts through a flush whose setText removes it.
    std::vector<std::shared_ptr<Entry>> m_items;
    qint32 m_lastId = 0;
    /** The entries of each shape, one for each use: spares a destroyed shape the search. */
    QMultiHash<ZTTextShapeBase *, Entry *> m_uses;
};
