#include <studio/commands/StackingCommand.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QHash>
#include <QtCore/QSignalBlocker>

#include <algorithm>

namespace studio {

namespace {

/** Steps through a scene's list that cost as much as taking an item out and adding it again. */
constexpr qint64 kStepsPerMove = 2000;

/** The part of an order, from below, that differs from another of the same shapes. */
struct Changed
{
    int first = 0;
    int end = 0;
};

Changed changedPart(const ShapeItems &now, const ShapeItems &wanted)
{
    Changed part{0, now.size()};
    while (part.first < part.end && now[part.first] == wanted[part.first])
        ++part.first;
    while (part.end > part.first && now[part.end - 1] == wanted[part.end - 1])
        --part.end;
    return part;
}

/**
 * Which of the wanted shapes of a part can stay: the most that stand in the wanted order among
 * each other already. All else moves around them. Indices count from the part's first.
 */
QVector<bool> stayingShapes(const ShapeItems &now, const ShapeItems &wanted, const Changed &part)
{
    QHash<const ShapeItem *, int> placeOf;
    for (int i = part.first; i < part.end; ++i)
        placeOf.insert(wanted[i], i - part.first);
    const int count = part.end - part.first;
    // The longest rising subsequence: for each length the lowest end there can be, by index.
    QVector<int> places;
    QVector<int> ends;
    QVector<int> before(count, -1);
    places.reserve(count);
    for (int i = 0; i < count; ++i) {
        places.append(placeOf.value(now[part.first + i]));
        const auto end = std::lower_bound(ends.begin(), ends.end(), places[i],
                                          [&](int a, int place) { return places[a] < place; });
        if (end != ends.begin())
            before[i] = *(end - 1);
        if (end == ends.end())
            ends.append(i);
        else
            *end = i;
    }
    QVector<bool> stays(count, false);
    for (int i = ends.isEmpty() ? -1 : ends.last(); i >= 0; i = before[i])
        stays[places[i]] = true;
    return stays;
}

/** From above: each shape that does not stay comes to the top and then below the one above it. */
void moveOneByOne(QGraphicsScene &scene, const ShapeItems &wanted, const Changed &part,
                  const QVector<bool> &stays)
{
    for (int i = part.end - 1; i >= part.first; --i) {
        if (stays[i - part.first])
            continue;
        scene.removeItem(wanted[i]);
        scene.addItem(wanted[i]);
        if (i + 1 < wanted.size())
            wanted[i]->stackBefore(wanted[i + 1]);
    }
}

void buildAnew(QGraphicsScene &scene, const ShapeItems &now, const ShapeItems &wanted, int first)
{
    for (int i = now.size() - 1; i >= first; --i)
        scene.removeItem(now[i]);
    for (int i = first; i < wanted.size(); ++i)
        scene.addItem(wanted[i]);
}

} // namespace

StackingCommand::StackingCommand(ZTShapeManager *manager, const ShapeItems &fromBelow,
                                 const QString &text)
    : QUndoCommand(text), m_manager(manager), m_before(guarded(shapeItemsOf(*manager->scene()))),
      m_after(guarded(fromBelow))
{
}

void StackingCommand::undo() { give(m_before); }

void StackingCommand::redo() { give(m_after); }

void StackingCommand::give(const Order &order)
{
    if (!m_manager)
        return;
    QGraphicsScene &scene = *m_manager->scene();
    // New items wait in a queue for being polished, in which each that goes would be looked for.
    QCoreApplication::sendPostedEvents(&scene, QEvent::MetaCall);
    const ShapeItems now = shapeItemsOf(scene);
    const ShapeItems wanted = stillThere(order);
    if (now.size() != wanted.size() || now == wanted)
        return;
    const Changed part = changedPart(now, wanted);
    const QVector<bool> stays = stayingShapes(now, wanted, part);
    const auto moves = stays.count(false);
    const ShapeItems selected = selectedShapeItems(scene);
    {
        const QSignalBlocker oneSignalForAll(&scene);
        scene.clearSelection();
        if (qint64(moves) * now.size() <= qint64(now.size() - part.first) * kStepsPerMove)
            moveOneByOne(scene, wanted, part, stays);
        else
            buildAnew(scene, now, wanted, part.first);
    }
    selectOnly(scene, selected);
}

} // namespace studio
