#include <studio/groups/Groups.h>

#include <hostkit/items/ItemExtras.h>

#include <QtCore/QHash>
#include <QtCore/QSet>

#include <algorithm>

namespace studio {

namespace {

/** The path of the unit that something belongs to; as long as `entered` for a single shape. */
GroupPath unitPath(const GroupPath &path, const GroupPath &entered)
{
    return path.mid(0, commonPath(path, entered).size() + 1);
}

bool isGroup(const GroupPath &unit, const GroupPath &entered)
{
    return unit.size() > commonPath(unit, entered).size();
}

} // namespace

GroupPath groupPathOf(const ShapeItem &item) { return hostkit::itemExtras(item).groupPath; }

bool isWithin(const GroupPath &path, const GroupPath &group)
{
    return path.size() >= group.size() && std::equal(group.begin(), group.end(), path.begin());
}

GroupPath commonPath(const GroupPath &a, const GroupPath &b)
{
    int depth = 0;
    while (depth < a.size() && depth < b.size() && a[depth] == b[depth])
        ++depth;
    return a.mid(0, depth);
}

QVector<ShapeUnit> unitsOf(const ShapeItems &items, const GroupPath &entered)
{
    QVector<ShapeUnit> units;
    QHash<GroupPath, int> places;
    for (ShapeItem *item : items) {
        const GroupPath unit = unitPath(groupPathOf(*item), entered);
        const auto known = isGroup(unit, entered) ? places.constFind(unit) : places.constEnd();
        if (known != places.constEnd()) {
            units[*known].items.append(item);
            continue;
        }
        if (isGroup(unit, entered))
            places.insert(unit, units.size());
        units.append({unit, {item}});
    }
    return units;
}

ShapeItems wholeGroups(const QGraphicsScene &scene, const ShapeItems &items,
                       const GroupPath &entered)
{
    QSet<GroupPath> groups;
    for (const ShapeItem *item : items) {
        const GroupPath unit = unitPath(groupPathOf(*item), entered);
        if (isGroup(unit, entered))
            groups.insert(unit);
    }
    if (groups.isEmpty())
        return items;
    const QSet<const ShapeItem *> wanted(items.begin(), items.end());
    ShapeItems whole;
    for (ShapeItem *item : shapeItemsOf(scene)) {
        if (wanted.contains(item) || groups.contains(unitPath(groupPathOf(*item), entered)))
            whole.append(item);
    }
    return whole;
}

} // namespace studio
