#include <studio/properties/PropertyGrid.h>

#include <studio/commands/ShapeStateCommand.h>
#include <studio/program/UndoTexts.h>

#include <QtCore/QPointer>
#include <QtCore/QScopedValueRollback>
#include <QtCore/QSignalBlocker>

namespace studio {

namespace {
const QString kSidesRow = QStringLiteral("SideCount");
}

PropertyGrid::PropertyGrid(QUndoStack &stack, QWidget *parent)
    : ZTItemPropertyList(parent), m_steps(stack)
{
    ZTItemPropertyList::setUndoStack(&m_ownSteps);
    QtVariantPropertyManager *rows = getVariantManager();
    disconnect(rows, &QtVariantPropertyManager::valueChanged, this,
               &ZTItemPropertyList::slotValueChanged);
    connect(rows, &QtVariantPropertyManager::valueChanged, this, &PropertyGrid::edit);
}

void PropertyGrid::setObject(QObject *shown)
{
    const QScopedValueRollback<bool> filling(m_isFilling, true);
    ZTItemPropertyList::setObject(shown);
    limitSides();
}

void PropertyGrid::edit(QtProperty *row, const QVariant &value)
{
    const QPointer<ShapeItem> item = qobject_cast<ShapeItem *>(getObject());
    if (!item || m_isFilling) {
        slotValueChanged(row, value);
        return;
    }
    const ShapeState before(*item);
    slotValueChanged(row, value);
    if (m_ownSteps.count() == 0)
        return;
    m_ownSteps.clear();
    if (item)
        m_steps.push(new ShapeStateCommand(
            item, before, undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Change property"))));
}

/** A drawing may hold more sides than can be typed; they stay until they are edited. */
void PropertyGrid::limitSides()
{
    const auto *polygon = qobject_cast<ZTGraphicsPolygonItem *>(getObject());
    if (polygon == nullptr)
        return;
    const QSet<QtProperty *> rows = getVariantManager()->properties();
    for (QtProperty *row : rows) {
        auto *sides = dynamic_cast<QtVariantProperty *>(row);
        if (sides == nullptr || row->propertyName() != kSidesRow)
            continue;
        sides->setAttribute(QStringLiteral("minimum"), qMin(3, polygon->getSideCount()));
        sides->setAttribute(QStringLiteral("maximum"), qMax(kMaxSides, polygon->getSideCount()));
        sides->setToolTip(tr("3 to %L1 sides").arg(kMaxSides));
    }
}

} // namespace studio
