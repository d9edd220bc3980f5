#include <hostkit/drawing/ItemGroups.h>

#include <hostkit/drawing/DrawingExtras.h>
#include <hostkit/items/ItemExtras.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

namespace hostkit {

FreeGroupIds::FreeGroupIds(const ZTGraphicsDocument &document)
{
    const QMap<qint32, QString> names = drawingExtras(document).groupNames;
    for (auto name = names.begin(); name != names.end(); ++name)
        m_used.insert(name.key());
    const QList<QGraphicsItem *> all = document.itemMag()->scene()->items();
    for (const QGraphicsItem *candidate : all) {
        const auto *item = dynamic_cast<const ZTAbstractGraphicsItem *>(candidate);
        if (item == nullptr)
            continue;
        for (const qint32 id : itemExtras(*item).groupPath)
            m_used.insert(id);
    }
}

qint32 FreeGroupIds::take()
{
    do {
        ++m_last;
    } while (m_used.contains(m_last));
    return m_last;
}

namespace {

QMap<qint32, int> membersOfGroups(const QVector<ZTAbstractGraphicsItem *> &items)
{
    QMap<qint32, int> members;
    for (const ZTAbstractGraphicsItem *item : items) {
        for (const qint32 id : itemExtras(*item).groupPath)
            ++members[id];
    }
    return members;
}

} // namespace

RenewedGroups renewGroups(const QVector<ZTAbstractGraphicsItem *> &items, FreeGroupIds *freeIds,
                          const QVector<qint32> &kept)
{
    const QMap<qint32, int> members = membersOfGroups(items);
    RenewedGroups renewed;
    for (ZTAbstractGraphicsItem *item : items) {
        ItemExtras extras = itemExtras(*item);
        QVector<qint32> path;
        for (const qint32 id : qAsConst(extras.groupPath)) {
            if (kept.contains(id)) {
                path.append(id);
            } else if (members.value(id) > 1) {
                if (!renewed.contains(id))
                    renewed.insert(id, freeIds->take());
                path.append(renewed.value(id));
            }
        }
        if (path == extras.groupPath)
            continue;
        extras.groupPath = path;
        setItemExtras(*item, extras);
    }
    return renewed;
}

} // namespace hostkit
