#include <studio/arrange/ArrangeActions.h>

#include <studio/commands/ItemSetCommand.h>
#include <studio/groups/GroupTools.h>
#include <studio/program/UndoTexts.h>

#include <hostkit/drawing/ItemGroups.h>

#include <QtCore/QSettings>
#include <QtWidgets/QUndoStack>

#include <algorithm>

namespace studio {

namespace {

const QString kAlignToKey = QStringLiteral("arrange/alignTo");

AlignTo keptReference()
{
    const int kept = QSettings().value(kAlignToKey, int(AlignTo::EachOther)).toInt();
    for (const AlignTo reference : {AlignTo::First, AlignTo::Field}) {
        if (kept == int(reference))
            return reference;
    }
    return AlignTo::EachOther;
}

} // namespace

ArrangeActions::ArrangeActions(ZTGraphicsDocument &document, GroupTools &groups, QObject *parent)
    : QObject(parent), m_document(document), m_groups(groups), m_alignTo(keptReference())
{
    connect(m_document.scene(), &QGraphicsScene::selectionChanged, this,
            &ArrangeActions::followSelection);
}

// Only the first one matters: who follows when it leaves the selection is the lowest of the rest.
void ArrangeActions::followSelection()
{
    if (m_first && m_first->scene() == m_document.scene() && m_first->isSelected())
        return;
    const ShapeItems selected = selectedShapeItems(*m_document.scene());
    m_first = selected.isEmpty() ? nullptr : selected.first();
}

void ArrangeActions::setAlignTo(AlignTo reference)
{
    m_alignTo = reference;
    QSettings().setValue(kAlignToKey, int(reference));
    Q_EMIT alignToChanged(reference);
}

bool ArrangeActions::canAlign() const
{
    const int least = m_alignTo == AlignTo::Field ? 1 : 2;
    return m_document.scene()->getGraphicsResizeItem()->selectItem().size() >= least;
}

QRectF ArrangeActions::fieldPx() const
{
    const QRectF fieldMm = m_document.view()->getWorkArea();
    return ZTCoord::getInstance()->getMm2pixTransform().mapRect(fieldMm);
}

QRectF ArrangeActions::reference(const QVector<ShapeUnit> &units) const
{
    if (m_alignTo == AlignTo::Field)
        return fieldPx();
    const auto first = std::find_if(units.begin(), units.end(), [this](const ShapeUnit &unit) {
        return unit.items.contains(m_first);
    });
    return m_alignTo == AlignTo::First && first != units.end() ? first->boxPx() : boxAround(units);
}

void ArrangeActions::move(const QVector<ItemMove> &moves, const QString &text)
{
    if (!moves.isEmpty())
        m_document.undoStack()->push(new MoveItemsCommand(m_document.scene(), moves, text));
}

void ArrangeActions::align(Qt::Alignment alignment)
{
    const QVector<ShapeUnit> units = m_groups.selectedUnits();
    if (units.isEmpty() || (m_alignTo != AlignTo::Field && units.size() < 2))
        return;
    move(alignedMoves(units, alignment, reference(units)),
         undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Align")));
}

void ArrangeActions::spread(Qt::Orientation direction, Spread spread)
{
    move(spreadMoves(m_groups.selectedUnits(), direction, spread),
         undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Distribute")));
}

void ArrangeActions::centreOnField()
{
    move(centredMoves(m_groups.selectedUnits(), fieldPx().center()),
         undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Centre on the field")));
}

void ArrangeActions::mirrorAboutField(MirrorCommand::Kind kind)
{
    if (m_document.scene()->selectedItems().isEmpty())
        return;
    m_document.undoStack()->push(new MirrorCommand(
        m_document.scene(), kind, undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Mirror")),
        fieldPx().center()));
}

int ArrangeActions::repeatAround(const CircleArray &circle)
{
    const ShapeItems sources = selectedShapeItems(*m_document.scene());
    if (sources.isEmpty() || circle.count < 2 || circle.count > kMostOnCircle)
        return 0;
    const GroupPath shared = sharedGroups(*m_document.scene(), sources);
    hostkit::FreeGroupIds freeIds(m_document);
    const ShapeItems copies = copiesAround(sources, *m_document.itemMag(), circle);
    for (int at = 0; at < copies.size(); at += sources.size())
        hostkit::renewGroups(copies.mid(at, sources.size()), &freeIds, shared);
    m_document.undoStack()->push(
        new AddItemsCommand(m_document.itemMag(), copies, sources,
                            undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Circle of %1"),
                                     {QString::number(circle.count)})));
    return copies.size();
}

} // namespace studio
