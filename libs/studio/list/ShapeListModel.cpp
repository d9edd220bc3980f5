#include <studio/list/ShapeListModel.h>

#include <studio/commands/ExtrasCommand.h>
#include <studio/list/ShapeOrder.h>
#include <studio/program/Icons.h>
#include <studio/program/UndoTexts.h>
#include <studio/shapes/PenColors.h>
#include <studio/shapes/ShapeKinds.h>

#include <hostkit/marks/MarkFindings.h>

#include <QtCore/QDataStream>
#include <QtCore/QMimeData>
#include <QtWidgets/QUndoStack>

namespace studio {

namespace {

const QString kRowsFormat = QStringLiteral("application/x-ztstudio-rows");

/** A switch that a column shows, and the undo step of changing it. */
struct Switch
{
    bool hostkit::ItemExtras::*member;
    const char *undoSource;
};

/** Null for a column without one. */
const Switch *switchOf(int column)
{
    static const Switch switches[] = {
        {&hostkit::ItemExtras::isMarked,
         QT_TRANSLATE_NOOP("studio::UndoTexts", "Change what is marked")},
        {&hostkit::ItemExtras::isLocked,
         QT_TRANSLATE_NOOP("studio::UndoTexts", "Change what is locked")},
        {&hostkit::ItemExtras::isHidden,
         QT_TRANSLATE_NOOP("studio::UndoTexts", "Change what is hidden")}};
    const int at = column - ShapeListModel::Marked;
    return at >= 0 && at < 3 ? switches + at : nullptr;
}

/** A picture of a kind; of one that people cannot create, that of importing. */
QIcon kindIcon(ShapeType type)
{
    const char *name = shapeKind(type).icon;
    return icon(*name != '\0' ? name : "import");
}

/** Drawn once: each costs more than a row. */
const QIcon &swatch(int pen)
{
    static const QVector<QIcon> swatches = [] {
        QVector<QIcon> made;
        for (int i = 0; i <= kPenCount; ++i)
            made.append(penSwatch(i));
        return made;
    }();
    return swatches[pen >= 1 && pen <= kPenCount ? pen : 0];
}

} // namespace

/** A row: a shape, or a group with rows of its own. */
struct ShapeListModel::Node
{
    QPointer<ShapeItem> item; ///< null for a group, and for a shape that has gone
    qint32 group = 0;         ///< id; 0 for a shape
    const Node *parent = nullptr;
    int row = 0;
    int place = 0; ///< in the order of marking, from 0; of a group, that of its first member
    std::vector<std::unique_ptr<Node>> children;

    Node *add(int atPlace)
    {
        children.push_back(std::make_unique<Node>());
        Node *child = children.back().get();
        child->parent = this;
        child->row = static_cast<int>(children.size()) - 1;
        child->place = atPlace;
        return child;
    }

    /** Calls `visit` for each shape of the row that is still there, first marked first. */
    template <class Visit>
    void forEachItem(const Visit &visit) const
    {
        if (item)
            visit(item.data());
        for (const std::unique_ptr<Node> &child : children)
            child->forEachItem(visit);
    }

    int lastPlace() const { return children.empty() ? place : children.back()->lastPlace(); }
};

ShapeListModel::ShapeListModel(ZTGraphicsDocument &document, QObject *parent)
    : QAbstractItemModel(parent), m_document(document), m_root(std::make_unique<Node>())
{
    refresh();
}

ShapeListModel::~ShapeListModel() = default;

QVector<ShapeListModel::Entry> ShapeListModel::entries() const
{
    const ShapeItems order = markingOrder(*m_document.scene());
    QVector<Entry> entries;
    entries.reserve(order.size());
    for (ShapeItem *item : order)
        entries.append({item, hostkit::itemExtras(*item).groupPath});
    return entries;
}

bool ShapeListModel::refresh()
{
    QVector<Entry> now = entries();
    if (m_filter.isEmpty() && now == m_entries) {
        tellChanged(*m_root);
        return false;
    }
    beginResetModel();
    m_entries = std::move(now);
    build(m_entries);
    endResetModel();
    return true;
}

void ShapeListModel::setFilter(const QString &text)
{
    if (text == m_filter)
        return;
    beginResetModel();
    m_filter = text;
    m_entries = entries();
    build(m_entries);
    endResetModel();
}

void ShapeListModel::build(const QVector<Entry> &entries)
{
    m_nodes.clear();
    m_nodes.reserve(entries.size());
    m_root = std::make_unique<Node>();
    QHash<QVector<qint32>, Node *> branches;
    for (int place = 0; place < entries.size(); ++place) {
        const Entry &entry = entries[place];
        if (!m_filter.isEmpty() && !isShown(*entry.item))
            continue;
        Node *branch = m_root.get();
        for (int depth = 1; depth <= entry.groups.size(); ++depth) {
            Node *&group = branches[entry.groups.mid(0, depth)];
            if (group == nullptr) {
                group = branch->add(place);
                group->group = entry.groups[depth - 1];
            }
            branch = group;
        }
        Node *leaf = branch->add(place);
        leaf->item = entry.item;
        m_nodes.insert(entry.item, leaf);
    }
}

bool ShapeListModel::isShown(const ShapeItem &item) const
{
    return hostkit::shapeName(item).contains(m_filter, Qt::CaseInsensitive) ||
           item.text().contains(m_filter, Qt::CaseInsensitive) ||
           kindName(item.getShapeType()).contains(m_filter, Qt::CaseInsensitive);
}

void ShapeListModel::tellChanged(const Node &node)
{
    if (node.children.empty())
        return;
    Q_EMIT dataChanged(indexOfNode(*node.children.front(), 0),
                       indexOfNode(*node.children.back(), ColumnCount - 1));
    for (const std::unique_ptr<Node> &child : node.children)
        tellChanged(*child);
}

const ShapeListModel::Node &ShapeListModel::nodeOf(const QModelIndex &index) const
{
    return index.isValid() ? *static_cast<const Node *>(index.internalPointer()) : *m_root;
}

QModelIndex ShapeListModel::indexOfNode(const Node &node, int column) const
{
    return &node == m_root.get() ? QModelIndex()
                                 : createIndex(node.row, column, const_cast<Node *>(&node));
}

ShapeItem *ShapeListModel::itemAt(const QModelIndex &index) const { return nodeOf(index).item; }

ShapeItems ShapeListModel::itemsAt(const QModelIndex &index) const
{
    ShapeItems items;
    nodeOf(index).forEachItem([&items](ShapeItem *item) { items.append(item); });
    return items;
}

QModelIndex ShapeListModel::indexOf(const ShapeItem *item) const
{
    const Node *node = m_nodes.value(item);
    return node != nullptr && node->item ? indexOfNode(*node, Name) : QModelIndex();
}

qint32 ShapeListModel::groupAt(const QModelIndex &index) const { return nodeOf(index).group; }

QModelIndex ShapeListModel::index(int row, int column, const QModelIndex &parent) const
{
    const Node &branch = nodeOf(parent);
    if (row < 0 || row >= static_cast<int>(branch.children.size()) || column < 0 ||
        column >= ColumnCount)
        return {};
    return indexOfNode(*branch.children[static_cast<std::size_t>(row)], column);
}

QModelIndex ShapeListModel::parent(const QModelIndex &child) const
{
    if (!child.isValid() || nodeOf(child).parent == nullptr)
        return {};
    return indexOfNode(*nodeOf(child).parent, Name);
}

int ShapeListModel::rowCount(const QModelIndex &parent) const
{
    return parent.column() > 0 ? 0 : static_cast<int>(nodeOf(parent).children.size());
}

int ShapeListModel::columnCount(const QModelIndex &) const { return ColumnCount; }

QVariant ShapeListModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return {};
    const Node &node = nodeOf(index);
    return node.group != 0 ? groupData(node, index.column(), role)
                           : shapeData(node, index.column(), role);
}

QVariant ShapeListModel::groupData(const Node &node, int column, int role) const
{
    if (const Switch *shown = switchOf(column)) {
        if (role != Qt::CheckStateRole)
            return {};
        int on = 0;
        int all = 0;
        node.forEachItem([&](const ShapeItem *item) {
            ++all;
            on += hostkit::itemExtras(*item).*shown->member ? 1 : 0;
        });
        return on == 0 ? Qt::Unchecked : on == all ? Qt::Checked : Qt::PartiallyChecked;
    }
    if (role != Qt::DisplayRole)
        return {};
    if (column == Name)
        return tr("Group %1").arg(node.group);
    if (column == Kind) {
        int members = 0;
        node.forEachItem([&members](const ShapeItem *) { ++members; });
        return tr("Shapes: %1").arg(members);
    }
    return {};
}

QVariant ShapeListModel::shapeData(const Node &node, int column, int role) const
{
    if (!node.item)
        return {};
    const ShapeItem &item = *node.item;
    if (const Switch *shown = switchOf(column)) {
        if (role != Qt::CheckStateRole)
            return {};
        return hostkit::itemExtras(item).*shown->member ? Qt::Checked : Qt::Unchecked;
    }
    switch (column) {
    case Name:
        if (role == Qt::DisplayRole)
            return hostkit::shapeName(item);
        if (role == Qt::ToolTipRole)
            return QStringLiteral("%1: %2").arg(kindName(item.getShapeType()),
                                                hostkit::shapeName(item));
        if (role == Qt::DecorationRole)
            return kindIcon(item.getShapeType());
        if (role == Qt::EditRole)
            return hostkit::itemExtras(item).name;
        break;
    case Number:
        if (role == Qt::DisplayRole)
            return node.place + 1;
        if (role == Qt::TextAlignmentRole)
            return int(Qt::AlignRight | Qt::AlignVCenter);
        break;
    case Kind:
        if (role == Qt::DisplayRole)
            return kindName(item.getShapeType());
        break;
    case Pen:
        if (role == Qt::DisplayRole)
            return item.getPenId();
        if (role == Qt::DecorationRole)
            return swatch(item.getPenId());
        if (role == Qt::ToolTipRole)
            return penName(item.getPenId());
        break;
    default:
        break;
    }
    return {};
}

bool ShapeListModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    const Switch *changed = switchOf(index.column());
    ExtrasCommand::Change change;
    const char *undoSource = nullptr;
    if (changed != nullptr && role == Qt::CheckStateRole) {
        const bool isOn = value.toInt() == Qt::Checked;
        change = [changed, isOn](hostkit::ItemExtras &extras) { extras.*changed->member = isOn; };
        undoSource = changed->undoSource;
    } else if (index.column() == Name && role == Qt::EditRole) {
        const QString name = value.toString().trimmed();
        change = [name](hostkit::ItemExtras &extras) { extras.name = name; };
        undoSource = QT_TRANSLATE_NOOP("studio::UndoTexts", "Rename");
    } else {
        return false;
    }
    auto command = std::make_unique<ExtrasCommand>(itemsAt(index), change, undoText(undoSource));
    if (command->changesNothing())
        return false;
    m_document.undoStack()->push(command.release());
    return true;
}

QVariant ShapeListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= ColumnCount)
        return {};
    const QStringList titles = {tr("Name"), tr("No."),  tr("Pen"), tr("Mark"),
                                tr("Lock"), tr("Hide"), tr("Kind")};
    const QStringList tips = {tr("Double click to rename"),
                              tr("Place in the order of marking"),
                              tr("Pen that marks it"),
                              tr("Whether it is marked"),
                              tr("Whether it is locked: neither selected nor moved"),
                              tr("Whether it is hidden: neither shown nor marked"),
                              tr("What kind of shape it is")};
    if (role == Qt::DisplayRole)
        return titles[section];
    return role == Qt::ToolTipRole ? tips[section] : QVariant();
}

Qt::ItemFlags ShapeListModel::flags(const QModelIndex &index) const
{
    // A place among shapes that are not shown could not be seen.
    const bool canMove = m_filter.isEmpty();
    if (!index.isValid())
        return canMove ? Qt::ItemIsDropEnabled : Qt::NoItemFlags;
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (canMove)
        flags |= Qt::ItemIsDragEnabled;
    if (nodeOf(index).group != 0 && canMove)
        flags |= Qt::ItemIsDropEnabled;
    if (nodeOf(index).group == 0 && index.column() == Name)
        flags |= Qt::ItemIsEditable;
    if (switchOf(index.column()) != nullptr)
        flags |= Qt::ItemIsUserCheckable;
    return flags;
}

Qt::DropActions ShapeListModel::supportedDropActions() const { return Qt::MoveAction; }

QStringList ShapeListModel::mimeTypes() const { return {kRowsFormat}; }

QMimeData *ShapeListModel::mimeData(const QModelIndexList &indexes) const
{
    QByteArray ids;
    QDataStream stream(&ids, QIODevice::WriteOnly);
    for (const QModelIndex &index : indexes) {
        if (index.column() != Name)
            continue;
        for (const ShapeItem *item : itemsAt(index))
            stream << quint64(reinterpret_cast<quintptr>(item));
    }
    auto *data = new QMimeData;
    data->setData(kRowsFormat, ids);
    return data;
}

bool ShapeListModel::dropMimeData(const QMimeData *data, Qt::DropAction action, int row, int,
                                  const QModelIndex &parent)
{
    if (action != Qt::MoveAction || data == nullptr || !data->hasFormat(kRowsFormat))
        return false;
    QSet<quint64> ids;
    QByteArray bytes = data->data(kRowsFormat);
    QDataStream stream(&bytes, QIODevice::ReadOnly);
    while (!stream.atEnd()) {
        quint64 id = 0;
        stream >> id;
        ids.insert(id);
    }
    // The ids are addresses, compared with those of the shapes that are there.
    const ShapeItems order = markingOrder(*m_document.scene());
    QSet<const ShapeItem *> moved;
    for (const ShapeItem *item : order) {
        if (ids.contains(static_cast<quint64>(reinterpret_cast<quintptr>(item))))
            moved.insert(item);
    }
    setMarkingOrder(m_document, broughtBefore(order, moved, placeOf(nodeOf(parent), row)));
    return true;
}

/** The place in the order of marking that a gap between rows stands for. */
int ShapeListModel::placeOf(const Node &branch, int row) const
{
    const bool isRoot = &branch == m_root.get();
    const int count = static_cast<int>(branch.children.size());
    if (row < 0)
        return isRoot ? m_entries.size() : branch.place;
    if (row < count)
        return branch.children[static_cast<std::size_t>(row)]->place;
    return isRoot ? m_entries.size() : branch.lastPlace() + 1;
}

} // namespace studio
