#pragma once

#include <studio/shapes/ShapeItems.h>

namespace studio {

/** Ids of the groups around a shape, the outermost first; the ids of `ItemExtras::groupPath`. */
using GroupPath = QVector<qint32>;

GroupPath groupPathOf(const ShapeItem &item);

/** Whether something of that path is in a group, at whatever depth. */
bool isWithin(const GroupPath &path, const GroupPath &group);

/** The groups that both are in. */
GroupPath commonPath(const GroupPath &a, const GroupPath &b);

/**
 * Shapes that are moved, turned and aligned as one: the members of an outermost group, or a shape
 * that is in none. Seen from within an entered group, its own members count.
 */
struct ShapeUnit
{
    GroupPath path;   ///< of the group; that of the surroundings for a single shape
    ShapeItems items; ///< lowest first

    QRectF boxPx() const { return sceneBox(items); }
};

/** The units of these shapes, in the order of their first members. */
QVector<ShapeUnit> unitsOf(const ShapeItems &items, const GroupPath &entered);

/**
 * These shapes and all that are in a group with one of them, lowest first; without groups at once
 * the same.
 */
ShapeItems wholeGroups(const QGraphicsScene &scene, const ShapeItems &items,
                       const GroupPath &entered);

/**
 * Groups in which copies of these shapes stay: those that have other members too, and those of one
 * shape. The others are copied as groups of their own.
 */
GroupPath sharedGroups(const QGraphicsScene &scene, const ShapeItems &items);

} // namespace studio
