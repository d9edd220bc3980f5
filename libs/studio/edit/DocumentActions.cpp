#include <studio/edit/DocumentActions.h>

#include <studio/arrange/ShapeCopies.h>
#include <studio/code/CodeEdit.h>
#include <studio/commands/ExtrasCommand.h>
#include <studio/commands/FramePause.h>
#include <studio/commands/ItemSetCommand.h>
#include <studio/commands/ItemValueCommand.h>
#include <studio/commands/MoveItemsCommand.h>
#include <studio/commands/UndoMacro.h>
#include <studio/edit/MatrixPreview.h>
#include <studio/groups/Groups.h>
#include <studio/program/UndoTexts.h>
#include <studio/shapes/ShapeKinds.h>
#include <studio/shapes/ShapePlace.h>
#include <studio/text/SharedCounter.h>
#include <studio/text/StrokeFonts.h>

#include <hostkit/drawing/ItemGroups.h>
#include <hostkit/items/ItemExtras.h>

#include <QtWidgets/QUndoStack>

#include <algorithm>
#include <optional>
#include <utility>

namespace studio {

namespace {

constexpr double kDuplicateOffsetMm = 5.0;

bool isResize(const QUndoCommand &step)
{
    if (dynamic_cast<const ZTItemTransformCommand *>(&step) != nullptr)
        return true;
    for (int i = 0; i < step.childCount(); ++i) {
        if (isResize(*step.child(i)))
            return true;
    }
    return false;
}

} // namespace

DocumentActions::DocumentActions(ZTGraphicsDocument &edited, QObject *parent)
    : QObject(parent), m_document(edited)
{
    connect(m_document.itemMag(), &ZTShapeManager::sigAddedShape, this,
            [this](ShapeItem *item) { m_added = item; });
    connect(m_document.undoStack(), &QUndoStack::indexChanged, this,
            &DocumentActions::followSelection);
}

// The library tells the sizes of a drag of a handle only when it is done again: told at once, the
// drawing is the same both times.
void DocumentActions::tellSizes()
{
    const QUndoStack &stack = *m_document.undoStack();
    const QUndoCommand *step = stack.index() > 0 ? stack.command(stack.index() - 1) : nullptr;
    if (step == nullptr || stack.canRedo() || !isResize(*step))
        return;
    const FramePause pause(*m_document.scene());
    for (ShapeItem *item : selected())
        item->setSize(item->getShapeBase()->controlPointRect().size());
}

void DocumentActions::followSelection()
{
    tellSizes();
    ZTGraphicsResizeItem *frame = m_document.scene()->getGraphicsResizeItem();
    if (frame != nullptr && !frame->selectItem().isEmpty())
        frame->resizeFromChild();
}

ShapeItems DocumentActions::selected() const { return selectedShapeItems(*m_document.scene()); }

void DocumentActions::push(QUndoCommand *command) { m_document.undoStack()->push(command); }

ShapeItem *DocumentActions::create(ShapeType type)
{
    ShapeItem *item = createAt(type, [this](ShapeItem &made) { moveApart(made); });
    if (item != nullptr)
        Q_EMIT added(sceneBox(*item));
    return item;
}

ShapeItem *DocumentActions::draw(ShapeType type, const ShapePlace &place)
{
    return createAt(type, [&place](ShapeItem &made) { placeShape(made, place); });
}

ShapeItem *DocumentActions::createAt(ShapeType type, const Placing &placing)
{
    const ShapeItems selectedBefore = selected();
    ShapeItem *item = addShape(type);
    if (item == nullptr)
        return nullptr;
    if (auto *text = qobject_cast<ZTGraphicsTextItem *>(item))
        setUpNewText(*text);
    else if (codekit::CodeItem *code = codekit::codeItem(item))
        setUpNewCode(*code);
    setUpNew(*item);
    placing(*item);
    push(new AddItemsCommand(m_document.itemMag(), {item}, selectedBefore,
                             undoText(shapeKind(type).creation)));
    Q_EMIT created(item);
    return item;
}

// The document makes shapes of the usual size, and says in a signal which.
ShapeItem *DocumentActions::addShape(ShapeType type)
{
    m_document.slotCreateShape(type);
    return std::exchange(m_added, nullptr);
}

void DocumentActions::moveApart(ShapeItem &item) const
{
    const ZTGraphicsView &view = *m_document.view();
    const QRectF shownPx = view.mapToScene(view.viewport()->rect()).boundingRect();
    const QSizeF sizePx = item.boundingRect().size();
    const auto place = freePlace(*m_document.scene(), sizePx, shownPx, &item);
    if (place) {
        moveTopLeft(item, place->topLeft());
        return;
    }
    ShapeItems others = shapeItemsOf(*m_document.scene());
    others.removeOne(&item);
    moveTopLeft(item, sceneBox(others).topRight() + QPointF(sizePx.width(), 0.0));
}

void DocumentActions::setUpNew(ShapeItem &item) const
{
    ZTShapeBase &shape = *item.getShapeBase();
    shape.setPenId(m_newShape.pen);
    const bool hasHatch = m_newShape.hatch.fillType != FillType::None;
    if (!hasHatch || codekit::codeItem(&item) != nullptr || !canBeHatched(item))
        return;
    shape.setFillParam(m_newShape.hatch);
    item.setTransformParam(QTransform(item.getTransformParam())); // builds it anew
}

void DocumentActions::duplicate()
{
    const ShapeItems sources = selected();
    const double offsetPx = ZTCoord::getInstance()->mm2pix(kDuplicateOffsetMm);
    const GroupPath shared = sharedGroups(*m_document.scene(), sources);
    const ShapeItems copies = copiesOf(sources, *m_document.itemMag(), {offsetPx, offsetPx});
    if (copies.isEmpty())
        return;
    hostkit::FreeGroupIds freeIds(m_document);
    hostkit::renewGroups(copies, &freeIds, shared);
    push(new AddItemsCommand(m_document.itemMag(), copies, sources,
                             undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Duplicate"))));
}

void DocumentActions::removeSelected()
{
    const ShapeItems doomed = selected();
    if (doomed.isEmpty())
        return;
    push(new DeleteItemsCommand(m_document.itemMag(), doomed,
                                undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Delete"))));
}

void DocumentActions::clear() { m_document.clear(); }

void DocumentActions::selectAll()
{
    selectOnly(*m_document.scene(), shapeItemsOf(*m_document.scene()));
}

void DocumentActions::invertSelection()
{
    ShapeItems others;
    for (ShapeItem *item : shapeItemsOf(*m_document.scene())) {
        if (!item->isSelected())
            others.append(item);
    }
    selectOnly(*m_document.scene(), others);
}

void DocumentActions::clearSelection() { m_document.scene()->clearSelection(); }

void DocumentActions::nudge(const QPointF &byMm)
{
    const QPointF byPx = ZTCoord::getInstance()->getMm2pixTransform().map(byMm);
    QVector<ItemMove> moves;
    for (ShapeItem *item : selected())
        moves.append({item, item->pos() + byPx});
    if (!moves.isEmpty())
        push(new MoveItemsCommand(m_document.scene(), moves,
                                  undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Move"))));
}

void DocumentActions::mirror(MirrorCommand::Kind kind)
{
    if (!selected().isEmpty())
        push(new MirrorCommand(m_document.scene(), kind,
                               undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Mirror"))));
}

void DocumentActions::rotate(double angleDeg)
{
    if (!selected().isEmpty() && angleDeg != 0.0)
        push(new RotateCommand(m_document.scene(), angleDeg,
                               undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Rotate"))));
}

int DocumentActions::repeat(int rows, int columns, const QSizeF &gapMm, bool isNumbered)
{
    const ShapeItems sources = selected();
    if (sources.isEmpty() || qint64(rows) * columns * sources.size() > kMaxMatrix)
        return 0;
    const ShapeItems copies = sources.size() == 1 ? copiesOfOne(rows, columns, gapMm)
                                                  : copiesOfBlock(rows, columns, gapMm);
    if (copies.isEmpty())
        return 0;
    const QString text = undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Matrix of %1 by %2"),
                                  {QString::number(rows), QString::number(columns)});
    std::optional<UndoMacro> macro;
    ZTAbstractGraphicsTextItem *words =
        isNumbered && sources.size() == 1 ? wordsItem(sources.first()) : nullptr;
    if (words != nullptr) {
        macro.emplace(*m_document.undoStack(), text);
        const hostkit::ItemExtras before = hostkit::itemExtras(*words);
        shareCounter(*words, copies);
        const int values = hostkit::itemExtras(*words).valuesPerPart;
        hostkit::setItemExtras(*words, before);
        push(new ExtrasCommand(
            sources, [values](hostkit::ItemExtras &extras) { extras.valuesPerPart = values; },
            text));
    }
    push(new AddItemsCommand(m_document.itemMag(), copies, sources, text));
    return copies.size();
}

ShapeItems DocumentActions::copiesOfOne(int rows, int columns, const QSizeF &gapMm) const
{
    const ZTCoord &coord = *ZTCoord::getInstance();
    const ShapeItem *source = selected().constFirst();
    const auto copies = m_document.itemMag()->addMatrix(rows, columns, coord.mm2pix(gapMm.width()),
                                                        coord.mm2pix(gapMm.height()));
    for (ShapeItem *copy : copies)
        hostkit::copyItemExtras(*source, *copy);
    return copies.toVector();
}

// Each block is a block of its own, also in the groups of its shapes.
ShapeItems DocumentActions::copiesOfBlock(int rows, int columns, const QSizeF &gapMm) const
{
    const ShapeItems sources = selected();
    const MatrixGrid grid{rows, columns, gapMm};
    const QPointF pitchPx = grid.pitchPx(sceneBox(sources));
    const GroupPath shared = sharedGroups(*m_document.scene(), sources);
    hostkit::FreeGroupIds freeIds(m_document);
    ShapeItems all;
    for (int row = 0; row < rows; ++row) {
        for (int column = row == 0 ? 1 : 0; column < columns; ++column) {
            const ShapeItems copies =
                copiesOf(sources, *m_document.itemMag(), {column * pitchPx.x(), row * pitchPx.y()});
            hostkit::renewGroups(copies, &freeIds, shared);
            all += copies;
        }
    }
    return all;
}

void DocumentActions::setPen(int pen)
{
    const ShapeItems items = selected();
    const auto differs = [pen](const ShapeItem *item) { return item->getPenId() != pen; };
    if (std::any_of(items.begin(), items.end(), differs))
        push(new PenCommand(items, pen,
                            undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Change pen"))));
}

void DocumentActions::lockAspect(bool isLocked)
{
    const ShapeItems items = selected();
    const auto differs = [isLocked](const ShapeItem *item) {
        return isAspectLocked(*item) != isLocked;
    };
    if (std::any_of(items.begin(), items.end(), differs))
        push(new AspectLockCommand(
            items, isLocked,
            isLocked ? undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Lock proportions"))
                     : undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Free proportions"))));
}

void DocumentActions::undo()
{
    finishDrag();
    m_document.undoStack()->undo();
}

void DocumentActions::redo()
{
    finishDrag();
    m_document.undoStack()->redo();
}

void DocumentActions::finishDrag()
{
    if (QGraphicsItem *grabber = m_document.scene()->mouseGrabberItem())
        grabber->ungrabMouse();
}

} // namespace studio
