#include <studio/commands/ItemStore.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QSignalBlocker>

#include <algorithm>

namespace studio {

namespace {

/** Steps through a list that cost as much as taking one entry out at its end and adding it. */
constexpr qint64 kStepsPerMove = 2000;

/** Whether moving `count` entries of a list one by one beats building its last `tail` anew. */
bool oneByOneIsCheaper(int count, int size, int tail)
{
    return count == tail || qint64(count) * size <= tail * kStepsPerMove;
}

ZTItemModel &treeModel(const ZTShapeManager &manager)
{
    return *qobject_cast<ZTItemModel *>(manager.itemModel());
}

const ShapeItem *itemOfRow(const ZTItemModel &model, int row)
{
    const QStandardItem *cell = model.item(row, 1);
    return cell != nullptr ? cell->data(ZTItemModel::kItemRole).value<ShapeItem *>() : nullptr;
}

/**
 * The shape items of a scene, lowest first, made ready for removing many from the top downward:
 * Qt then finds each at once.
 *
 * Two lists would be searched. New items wait in a queue for being polished, which a posted call
 * works off. And the list of all items stays in the order of drawing until a call of
 * `stackBefore`, even one that changes nothing, brings it back to the order of places.
 */
ShapeItems readiedItems(QGraphicsScene &scene)
{
    QCoreApplication::sendPostedEvents(&scene, QEvent::MetaCall);
    const ShapeItems items = shapeItemsOf(scene);
    if (items.size() > 1)
        items.first()->stackBefore(items.last());
    return items;
}

/** Keeps scene and tree from announcing each single change of the selection. */
class QuietSelection
{
public:
    explicit QuietSelection(const ZTShapeManager &manager)
        : m_quietScene(manager.scene()), m_quietRows(treeModel(manager).itemSelectionModel())
    {
        manager.scene()->clearSelection();
        // Each row that goes would be looked for in each range of selected rows.
        treeModel(manager).itemSelectionModel()->clearSelection();
    }

private:
    QSignalBlocker m_quietScene;
    QSignalBlocker m_quietRows;
};

/** Removes the rows from `first` to the end; the bottom row comes first in the result. */
QVector<QList<QStandardItem *>> takeTail(ZTItemModel &model, int first)
{
    QVector<QList<QStandardItem *>> rows;
    for (int row = model.rowCount() - 1; row >= first; --row)
        rows.append(model.takeRow(row));
    return rows;
}

void removeTail(QGraphicsScene &scene, const ShapeItems &items, int first)
{
    for (int i = items.size() - 1; i >= first; --i)
        scene.removeItem(items[i]);
}

} // namespace

ItemStore::ItemStore(ZTShapeManager *shapeManager, const ShapeItems &items)
    : m_manager(shapeManager), m_members(guarded(items))
{
}

ItemStore::~ItemStore()
{
    for (const auto &held : qAsConst(m_heldItems))
        delete held.entry;
    for (const auto &held : qAsConst(m_heldRows))
        qDeleteAll(held.entry);
}

void ItemStore::takeOut(const ShapeItems &selectedAfter)
{
    if (!m_manager || !m_heldItems.isEmpty())
        return;
    const ShapeItems wanted = items();
    const ShapeItems before = readiedItems(*m_manager->scene());
    {
        const QuietSelection quiet(*m_manager);
        takeItems(before, {wanted.begin(), wanted.end()});
        takeRows({wanted.begin(), wanted.end()});
    }
    selectOnly(*m_manager->scene(), selectedAfter);
}

void ItemStore::putBack()
{
    if (!m_manager || m_heldItems.isEmpty())
        return;
    const ShapeItems before = readiedItems(*m_manager->scene());
    {
        const QuietSelection quiet(*m_manager);
        putRows();
        putItems(before);
    }
    selectOnly(*m_manager->scene(), items());
}

void ItemStore::takeItems(const ShapeItems &before, const ItemSet &wanted)
{
    for (int place = 0; place < before.size(); ++place) {
        if (wanted.contains(before[place]))
            m_heldItems.append({before[place], place});
    }
    if (m_heldItems.isEmpty())
        return;
    QGraphicsScene &scene = *m_manager->scene();
    const int lowest = m_heldItems.first().place;
    if (oneByOneIsCheaper(m_heldItems.size(), before.size(), before.size() - lowest)) {
        for (auto held = m_heldItems.crbegin(); held != m_heldItems.crend(); ++held)
            scene.removeItem(held->entry);
        return;
    }
    removeTail(scene, before, lowest);
    for (int place = lowest; place < before.size(); ++place) {
        if (!wanted.contains(before[place]))
            scene.addItem(before[place]);
    }
}

void ItemStore::putItems(const ShapeItems &before)
{
    QGraphicsScene &scene = *m_manager->scene();
    const ShapeItems after = merged(before, m_heldItems);
    const int lowest = qMin(m_heldItems.first().place, before.size());
    if (oneByOneIsCheaper(m_heldItems.size(), after.size(), after.size() - lowest)) {
        for (const auto &held : qAsConst(m_heldItems))
            scene.addItem(held.entry);
        for (auto held = m_heldItems.crbegin(); held != m_heldItems.crend(); ++held) {
            if (held->place + 1 < after.size())
                held->entry->stackBefore(after[held->place + 1]);
        }
    } else {
        removeTail(scene, before, lowest);
        for (int place = lowest; place < after.size(); ++place)
            scene.addItem(after[place]);
    }
    m_heldItems.clear();
}

void ItemStore::takeRows(const ItemSet &wanted)
{
    ZTItemModel &model = treeModel(*m_manager);
    QVector<int> rows;
    for (int row = 0; row < model.rowCount(); ++row) {
        if (wanted.contains(itemOfRow(model, row)))
            rows.append(row);
    }
    if (rows.isEmpty())
        return;
    const int size = model.rowCount();
    if (oneByOneIsCheaper(rows.size(), size, size - rows.first())) {
        for (auto row = rows.crbegin(); row != rows.crend(); ++row)
            m_heldRows.append({model.takeRow(*row), *row});
    } else {
        const QVector<Row> tail = takeTail(model, rows.first());
        const QSet<int> heldPlaces(rows.begin(), rows.end());
        for (int place = size - 1; place >= rows.first(); --place) {
            if (heldPlaces.contains(place))
                m_heldRows.append({tail[size - 1 - place], place});
        }
        for (int place = rows.first(); place < size; ++place) {
            if (!heldPlaces.contains(place))
                model.appendRow(tail[size - 1 - place]);
        }
    }
    std::reverse(m_heldRows.begin(), m_heldRows.end());
}

void ItemStore::putRows()
{
    if (m_heldRows.isEmpty())
        return;
    ZTItemModel &model = treeModel(*m_manager);
    const int size = model.rowCount();
    const int first = qMin(m_heldRows.first().place, size);
    if (oneByOneIsCheaper(m_heldRows.size(), size + m_heldRows.size(), size - first)) {
        for (const auto &held : qAsConst(m_heldRows))
            model.insertRow(qMin(held.place, model.rowCount()), held.entry);
    } else {
        QVector<Row> tail = takeTail(model, first);
        std::reverse(tail.begin(), tail.end());
        QVector<Held<Row>> heldBehind = m_heldRows;
        for (auto &held : heldBehind)
            held.place -= first;
        for (const Row &row : merged(tail, heldBehind))
            model.appendRow(row);
    }
    m_heldRows.clear();
}

template <class Entry>
QVector<Entry> ItemStore::merged(const QVector<Entry> &before, const QVector<Held<Entry>> &held)
{
    QVector<Entry> after;
    after.reserve(before.size() + held.size());
    auto kept = before.begin();
    for (const Held<Entry> &back : held) {
        while (kept != before.end() && after.size() < back.place)
            after.append(*kept++);
        after.append(back.entry);
    }
    while (kept != before.end())
        after.append(*kept++);
    return after;
}

} // namespace studio
