#include <ZTDrawEngineLib/model/ZTItemModel.h>

#include <ZTDrawEngineLib/items/ZTAbstractGraphicsItem.h>
#include <ZTDrawEngineLib/shapes/ZTShapeBase.h>

#include <QtCore/QHash>
#include <QtCore/QSignalBlocker>
#include <QtWidgets/QGraphicsScene>

#include <algorithm>

namespace {

constexpr int kIdColumn = 0;

/** Up to this many runs of rows are removed one by one. */
constexpr int kFewRuns = 64;

/** Cell of column 1: hands out its item as long as that lives. */
class TextCell : public QStandardItem
{
public:
    explicit TextCell(ZTAbstractGraphicsItem *graphicsItem) : m_item(graphicsItem)
    {
        setData(graphicsItem->text(), Qt::EditRole);
    }

    QVariant data(int role) const override
    {
        if (role == ZTItemModel::kItemRole)
            return QVariant::fromValue<ZTAbstractGraphicsItem *>(m_item.data());
        return QStandardItem::data(role);
    }

private:
    QPointer<ZTAbstractGraphicsItem> m_item;
};

QStandardItem *newIdCell(int id)
{
    auto *cell = new QStandardItem;
    cell->setData(id, Qt::DisplayRole);
    return cell;
}

/** One text a kind, shared by all its cells. */
QString nameOf(ShapeType type)
{
    static QHash<int, QString> names;
    QString &name = names[static_cast<int>(type)];
    if (name.isNull())
        name = QString::fromLatin1(ShapeType2String(type));
    return name;
}

int idOf(const ZTAbstractGraphicsItem &item) { return item.getShapeBase()->getId(); }

QVector<int> idsOf(const QItemSelection &selection)
{
    constexpr Qt::ItemFlags kCounts = Qt::ItemIsSelectable | Qt::ItemIsEnabled;
    QVector<int> ids;
    // Row by row: a list of all indexes costs an allocation for each, three a row.
    for (const QItemSelectionRange &range : selection) {
        if (!range.isValid() || range.left() > kIdColumn)
            continue;
        for (int row = range.top(); row <= range.bottom(); ++row) {
            const QModelIndex index = range.model()->index(row, kIdColumn, range.parent());
            if ((index.flags() & kCounts) == kCounts)
                ids << index.data(Qt::DisplayRole).toInt();
        }
    }
    return ids;
}

int runCount(const QVector<int> &ascending)
{
    int runs = ascending.isEmpty() ? 0 : 1;
    for (int i = 1; i < ascending.size(); ++i)
        runs += ascending[i] == ascending[i - 1] + 1 ? 0 : 1;
    return runs;
}

/** The numbers below `count` that are not among some, all ascending. */
QVector<int> othersThan(const QVector<int> &ascending, int count)
{
    QVector<int> others;
    others.reserve(count - ascending.size());
    auto next = ascending.begin();
    for (int i = 0; i < count; ++i) {
        if (next != ascending.end() && *next == i)
            ++next;
        else
            others << i;
    }
    return others;
}

/** Gives a model the rows that stood at the places of `order`, in that order. Tells nobody. */
void reorderRows(QStandardItemModel &model, const QVector<int> &order)
{
    const QSignalBlocker quiet(&model);
    const int columns = model.columnCount();
    QVector<QStandardItem *> cells;
    cells.reserve(order.size() * columns);
    for (int row = 0; row < order.size(); ++row) {
        for (int column = 0; column < columns; ++column)
            cells << model.takeItem(row, column);
    }
    for (int row = 0; row < order.size(); ++row) {
        for (int column = 0; column < columns; ++column)
            model.setItem(row, column, cells[order[row] * columns + column]);
    }
}

/** Calls `work(first, count)` for each run of consecutive numbers, the last run first. */
template <class Work>
void forEachRunFromTheEnd(const QVector<int> &ascending, const Work &work)
{
    int end = ascending.size();
    while (end > 0) {
        int begin = end - 1;
        while (begin > 0 && ascending[begin - 1] == ascending[begin] - 1)
            --begin;
        work(ascending[begin], end - begin);
        end = begin;
    }
}

} // namespace

ZTItemModel::ZTItemModel(QObject *parent) : QStandardItemModel(parent)
{
    setColumnCount(2);
    connect(this, &QAbstractItemModel::dataChanged, this,
            [this](const QModelIndex &topLeft) { renameItemOf(topLeft); });
    m_selectionModel = new QItemSelectionModel(this);
    connect(m_selectionModel, &QItemSelectionModel::selectionChanged, this,
            &ZTItemModel::objectTreeSelectChanged);
}

ZTItemModel::~ZTItemModel() { delete m_selectionModel; }

void ZTItemModel::renameItemOf(const QModelIndex &topLeft)
{
    const QStandardItem *cell = itemFromIndex(topLeft);
    if (cell == nullptr)
        return;
    auto *item = cell->data(kItemRole).value<ZTAbstractGraphicsItem *>();
    if (item == nullptr)
        return;
    const QString text = cell->data(Qt::EditRole).toString();
    if (item->text() != text)
        item->setText(text);
}

void ZTItemModel::insert(ShapeType type, ZTAbstractGraphicsItem *item)
{
    auto *kindCell = new QStandardItem;
    kindCell->setText(nameOf(type));
    insertRow(rowCount(), {newIdCell(idOf(*item)), new TextCell(item), kindCell});
}

void ZTItemModel::remove(int id) { remove(QVector<int>{id}); }

void ZTItemModel::remove(const QVector<int> &ids)
{
    const QVector<int> rows = firstRowsOf(ids);
    if (runCount(rows) > kFewRuns) {
        const QVector<int> kept = othersThan(rows, rowCount());
        deselectRows(rows);
        gatherInFront(kept);
        removeRows(kept.size(), rows.size());
        return;
    }
    forEachRunFromTheEnd(rows, [this](int first, int count) { removeRows(first, count); });
}

QVector<int> ZTItemModel::firstRowsOf(const QVector<int> &ids) const
{
    QHash<int, int> wanted;
    for (const int id : ids)
        ++wanted[id];
    QVector<int> rows;
    for (int row = 0; row < rowCount() && rows.size() < ids.size(); ++row) {
        const auto found = wanted.find(idAt(row));
        if (found == wanted.end() || *found == 0)
            continue;
        --*found;
        rows << row;
    }
    return rows;
}

int ZTItemModel::idAt(int row) const { return index(row, kIdColumn).data(Qt::DisplayRole).toInt(); }

// Each removal of a run moves all rows behind it, and walks the selection and the scene: thousands
// of runs are brought together first. The cells are taken out and put back, because a cell that is
// merely sorted elsewhere searches for its place, from where it was, when it is next asked for it.
void ZTItemModel::gatherInFront(const QVector<int> &rows)
{
    const QVector<int> order = rows + othersThan(rows, rowCount());
    Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
    // A cell that is taken out ends the persistent indexes to it: they are led away from it.
    const QModelIndexList before = persistentIndexList();
    QModelIndexList aside;
    for (const QModelIndex &index : before)
        aside << createIndex(index.row(), index.column(), this);
    changePersistentIndexList(before, aside);
    reorderRows(*this, order);
    QVector<int> rowAfter(order.size());
    for (int row = 0; row < order.size(); ++row)
        rowAfter[order[row]] = row;
    QModelIndexList after;
    for (const QModelIndex &was : before)
        after << index(rowAfter[was.row()], was.column());
    changePersistentIndexList(aside, after);
    Q_EMIT layoutChanged({}, VerticalSortHint);
}

void ZTItemModel::deselectRows(const QVector<int> &ascending)
{
    QVector<int> deselectedIds;
    QSet<int> keptRows;
    for (const QItemSelectionRange &range : m_selectionModel->selection()) {
        for (int row = range.top(); row <= range.bottom(); ++row) {
            if (std::binary_search(ascending.begin(), ascending.end(), row))
                deselectedIds << idAt(row);
            else
                keptRows << row;
        }
    }
    m_selectSource = Scene;
    selectOnly([&](int row) { return keptRows.contains(row); });
    selectInScene({}, deselectedIds);
    m_selectSource = Nobody;
}

void ZTItemModel::setScene(QGraphicsScene *scene) { m_scene = scene; }

QGraphicsScene *ZTItemModel::getScene() const { return m_scene; }

QItemSelectionModel *ZTItemModel::itemSelectionModel() const { return m_selectionModel; }

void ZTItemModel::objectTreeSelectChanged(const QItemSelection &selected,
                                          const QItemSelection &deselected)
{
    if (m_selectSource == Scene)
        return;
    selectInScene(idsOf(selected), idsOf(deselected));
    m_selectSource = Nobody;
}

// The items are looked up once for all ids, and the scene tells its new selection once.
void ZTItemModel::selectInScene(const QVector<int> &selectedIds, const QVector<int> &deselectedIds)
{
    if (m_scene == nullptr || (selectedIds.isEmpty() && deselectedIds.isEmpty()))
        return;
    m_selectSource = Tree;
    QHash<int, bool> wanted;
    for (const int id : selectedIds)
        wanted[id] = true;
    for (const int id : deselectedIds)
        wanted[id] = false;

    bool changed = false;
    {
        const QSignalBlocker oneSignalForAll(m_scene);
        for (QGraphicsItem *candidate : m_scene->items(Qt::DescendingOrder)) {
            const auto *item = dynamic_cast<ZTAbstractGraphicsItem *>(candidate);
            if (item == nullptr)
                continue;
            const auto found = wanted.constFind(idOf(*item));
            if (found == wanted.constEnd() || candidate->isSelected() == *found)
                continue;
            candidate->setSelected(*found);
            changed = true;
        }
    }
    if (changed)
        Q_EMIT m_scene->selectionChanged();
}

QItemSelection ZTItemModel::rowsOf(const std::function<bool(int row)> &isWanted)
{
    QItemSelection selection;
    const int rows = rowCount();
    for (int row = 0; row < rows; ++row) {
        const int first = row;
        while (row < rows && isWanted(row))
            ++row;
        if (row > first)
            selection.select(index(first, 0), index(row - 1, columnCount() - 1));
    }
    return selection;
}

void ZTItemModel::sceneSelectChange()
{
    if (m_selectSource == Tree || m_scene == nullptr)
        return;
    QSet<int> selectedIds;
    for (QGraphicsItem *candidate : m_scene->selectedItems()) {
        if (const auto *item = dynamic_cast<ZTAbstractGraphicsItem *>(candidate))
            selectedIds << idOf(*item);
    }
    m_selectSource = Scene;
    selectOnly([&](int row) { return selectedIds.contains(idAt(row)); });
    m_selectSource = Nobody;
}

// The rows are deselected in one step and selected in another, whatever their number: from and to
// an empty selection, and with ranges that are whole rows already, a selection model need not hold
// every range against every other.
void ZTItemModel::selectOnly(const std::function<bool(int row)> &isWanted)
{
    m_selectionModel->clearSelection();
    m_selectionModel->select(rowsOf(isWanted), QItemSelectionModel::Select);
}
