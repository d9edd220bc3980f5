#include <studio/groups/GroupTools.h>

#include <studio/commands/ExtrasCommand.h>
#include <studio/program/UndoTexts.h>

#include <hostkit/drawing/ItemGroups.h>

#include <QtCore/QScopedValueRollback>
#include <QtCore/QTimer>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QUndoStack>

namespace studio {

namespace {

/** The group that all of these are in. */
GroupPath surroundings(const QVector<ShapeUnit> &units)
{
    GroupPath common = groupPathOf(*units.first().items.first());
    for (const ShapeUnit &unit : units) {
        for (const ShapeItem *item : unit.items)
            common = commonPath(common, groupPathOf(*item));
    }
    return common;
}

/** Gives each shape its path as one undo step. */
void givePaths(ZTGraphicsDocument &document, const ShapeItems &items,
               const QVector<GroupPath> &paths, const QString &text)
{
    int next = 0;
    const auto change = [&](hostkit::ItemExtras &extras) { extras.groupPath = paths[next++]; };
    document.undoStack()->push(new ExtrasCommand(items, change, text));
}

} // namespace

ShapeItem *selectableAt(const ZTGraphicsView &view, const QPoint &pos)
{
    const QList<QGraphicsItem *> hit = view.items(pos);
    for (QGraphicsItem *candidate : hit) {
        auto *item = dynamic_cast<ShapeItem *>(candidate);
        if (item != nullptr && item->flags().testFlag(QGraphicsItem::ItemIsSelectable))
            return item;
    }
    return nullptr;
}

GroupTools::GroupTools(ZTGraphicsDocument &document, QObject *parent)
    : QObject(parent), m_document(document)
{
    m_document.view()->viewport()->installEventFilter(this);
    connect(m_document.scene(), &QGraphicsScene::selectionChanged, this,
            &GroupTools::followSelection);
}

QVector<ShapeUnit> GroupTools::selectedUnits() const
{
    return unitsOf(selectedShapeItems(*m_document.scene()), m_entered);
}

void GroupTools::group()
{
    const ShapeItems items = selectedShapeItems(*m_document.scene());
    const QVector<ShapeUnit> units = selectedUnits();
    if (items.size() < 2)
        return;
    if (units.size() < 2) {
        Q_EMIT told(tr("These shapes are one group already"));
        return;
    }
    const GroupPath around = surroundings(units);
    const qint32 id = hostkit::FreeGroupIds(m_document).take();
    // Who comes along without the rest of its group leaves that group.
    const ShapeItems whole = wholeGroups(*m_document.scene(), items, around);
    const bool areWhole = whole.size() == items.size();
    QVector<GroupPath> paths;
    for (const ShapeItem *item : items) {
        const GroupPath inner = groupPathOf(*item).mid(around.size());
        paths.append(around + GroupPath{id} + (areWhole ? inner : GroupPath()));
    }
    givePaths(m_document, items, paths, undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Group")));
}

void GroupTools::ungroup()
{
    ShapeItems items;
    QVector<GroupPath> paths;
    for (ShapeItem *item :
         wholeGroups(*m_document.scene(), selectedShapeItems(*m_document.scene()), m_entered)) {
        GroupPath path = groupPathOf(*item);
        const int depth = commonPath(path, m_entered).size();
        if (path.size() <= depth)
            continue;
        path.remove(depth);
        items.append(item);
        paths.append(path);
    }
    if (items.isEmpty()) {
        Q_EMIT told(tr("No group is selected"));
        return;
    }
    givePaths(m_document, items, paths,
              undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Ungroup")));
}

void GroupTools::enter(const GroupPath &path)
{
    if (path == m_entered)
        return;
    m_entered = path;
    Q_EMIT enteredChanged(m_entered);
    Q_EMIT told(m_entered.isEmpty() ? QString()
                                    : tr("Within a group: its shapes are on their own, Esc leaves "
                                         "it"));
}

void GroupTools::selectByMouse(const ShapeItems &items)
{
    const QScopedValueRollback<bool> byMouse(m_isByMouse, true);
    selectOnly(*m_document.scene(), items);
}

void GroupTools::deselectByMouse(ShapeItem &item)
{
    ShapeItems left = selectedShapeItems(*m_document.scene());
    for (ShapeItem *member : wholeGroups(*m_document.scene(), {&item}, m_entered))
        left.removeOne(member);
    selectByMouse(left);
}

bool GroupTools::leave()
{
    if (m_entered.isEmpty())
        return false;
    const GroupPath left = m_entered;
    enter(left.mid(0, left.size() - 1));
    ShapeItems members;
    for (ShapeItem *item : shapeItemsOf(*m_document.scene())) {
        if (isWithin(groupPathOf(*item), left))
            members.append(item);
    }
    selectOnly(*m_document.scene(), members);
    return !members.isEmpty();
}

bool GroupTools::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        m_isByMouse = true;
        break;
    case QEvent::MouseButtonDblClick:
        m_isByMouse = true;
        if (enterAt(*static_cast<QMouseEvent *>(event)))
            return true;
        break;
    case QEvent::MouseMove:
        // The release may have gone to somebody else.
        m_isByMouse = static_cast<QMouseEvent *>(event)->buttons() != Qt::NoButton;
        break;
    case QEvent::MouseButtonRelease:
        // What the release itself selects still counts.
        QTimer::singleShot(0, this, [this] { m_isByMouse = false; });
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

bool GroupTools::enterAt(const QMouseEvent &event)
{
    ShapeItem *item =
        event.button() == Qt::LeftButton ? selectableAt(*m_document.view(), event.pos()) : nullptr;
    if (item == nullptr)
        return false;
    const GroupPath path = groupPathOf(*item);
    const GroupPath common = commonPath(path, m_entered);
    if (path.size() <= common.size())
        return false;
    enter(path.mid(0, common.size() + 1));
    selectOnly(*m_document.scene(), wholeGroups(*m_document.scene(), {item}, m_entered));
    return true;
}

void GroupTools::followSelection()
{
    if (!m_isByMouse)
        return;
    const QScopedValueRollback<bool> once(m_isByMouse, false);
    const ShapeItems selected = selectedShapeItems(*m_document.scene());
    GroupPath inside = selected.isEmpty() ? GroupPath() : m_entered;
    for (const ShapeItem *item : selected)
        inside = commonPath(inside, groupPathOf(*item));
    enter(inside);
    ShapeItems whole;
    for (ShapeItem *item : wholeGroups(*m_document.scene(), selected, m_entered)) {
        if (item->flags().testFlag(QGraphicsItem::ItemIsSelectable))
            whole.append(item);
    }
    if (whole.size() != selected.size())
        selectOnly(*m_document.scene(), whole);
}

} // namespace studio
