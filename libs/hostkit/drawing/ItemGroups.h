#pragma once

#include <QtCore/QMap>
#include <QtCore/QSet>
#include <QtCore/QVector>

class ZTAbstractGraphicsItem;
class ZTGraphicsDocument;

namespace hostkit {

/**
 * Ids for new groups of a drawing: those that no item's `ItemExtras::groupPath` and no name in
 * `DrawingExtras::groupNames` has, from 1 up. Looks at the document once, when it is made.
 */
class FreeGroupIds
{
public:
    explicit FreeGroupIds(const ZTGraphicsDocument &document);

    /** An id, each only once. */
    qint32 take();

private:
    QSet<qint32> m_used;
    qint32 m_last = 0;
};

/** New ids of groups, by the old ones. */
using RenewedGroups = QMap<qint32, qint32>;

/**
 * Gives items that came into a drawing groups of their own: who was together stays together, and
 * nobody joins the groups from which the items were copied. A group that only one of the items is
 * in goes: it is none. Ids among `kept` stay as they are.
 */
RenewedGroups renewGroups(const QVector<ZTAbstractGraphicsItem *> &items, FreeGroupIds *freeIds,
                          const QVector<qint32> &kept = {});

} // namespace hostkit
