#include <studio/paths/PathActions.h>

#include <studio/commands/ItemSetCommand.h>
#include <studio/commands/OutlinesCommand.h>
#include <studio/commands/StackingCommand.h>
#include <studio/commands/UndoMacro.h>
#include <studio/import/ImportSource.h>
#include <studio/paths/PathOps.h>
#include <studio/program/UndoTexts.h>

#include <hostkit/items/GraphicItems.h>
#include <hostkit/items/ItemExtras.h>

#include <vectorkit/clean/PathFitting.h>

#include <QtCore/QHash>
#include <QtWidgets/QUndoStack>

#include <algorithm>

namespace studio {

namespace {

using vectorkit::OutlineOp;
using vectorkit::VectorPath;

QString textOf(OutlineOp op)
{
    switch (op) {
    case OutlineOp::Union:
        return undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Union"));
    case OutlineOp::Difference:
        return undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Difference"));
    case OutlineOp::Intersection:
        return undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Intersection"));
    default:
        return undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Exclusion"));
    }
}

/** The hatch that a shape shows: of lines and of texts in single strokes there is none. */
ZTFillParam shownHatch(const ShapeItem &item)
{
    ZTFillParam hatch = item.getFillParam();
    const auto *text = dynamic_cast<const ZTGraphicsTextItem *>(&item);
    const bool isStrokeText = text != nullptr && text->fontType() == FontType::singleLine;
    if (isStrokeText || item.getShapeType() == ShapeType::Line)
        hatch.fillType = FillType::None;
    return hatch;
}

/** Of the many short lines of round corners few arcs. */
QVector<VectorPath> offsetOf(const ShapeItem &item, const OffsetChoice &choice)
{
    QVector<VectorPath> paths =
        vectorkit::offsetOutlines(outlinesApart(item).closed, Qt::OddEvenFill, choice.distanceMm,
                                  choice.corner, kOpToleranceMm);
    for (VectorPath &path : paths)
        path = vectorkit::arcFittedPath(path, kOpToleranceMm);
    return paths;
}

/** All shapes from below, with what comes in for some of them standing at their places. */
ShapeItems orderWith(const ShapeItems &all, const ShapeItems &gone,
                     const QHash<const ShapeItem *, ShapeItems> &incoming)
{
    ShapeItems order;
    for (ShapeItem *item : all) {
        if (!gone.contains(item))
            order.append(item);
        order += incoming.value(item);
    }
    return order;
}

} // namespace

PathActions::PathActions(ZTGraphicsDocument &document, QObject *parent)
    : QObject(parent), m_document(document)
{
}

ShapeItems PathActions::selected() const { return selectedShapeItems(*m_document.scene()); }

ShapeItem *PathActions::make(const Result &result) const
{
    ShapeItem *item = hostkit::addGraphic(m_document, result.pathsMm);
    if (item == nullptr)
        return nullptr;
    item->setPenId(result.source->getPenId());
    item->getShapeBase()->setLockAspectRatio(isAspectLocked(*result.source));
    item->setFillParam(shownHatch(*result.source));
    hostkit::ItemExtras extras = hostkit::itemExtras(*result.source);
    extras.valuesPerPart = hostkit::ItemExtras().valuesPerPart; // no text, no counter
    dropImportSource(&extras); // what comes out is no part of a file
    if (extras.name.isEmpty())
        extras.name = result.source->text().section(QLatin1Char('\n'), 0, 0);
    hostkit::setItemExtras(*item, extras);
    return item;
}

// All comes in before anything goes, so that the order of all shapes can be told.
void PathActions::replace(const ShapeItems &sources, const QVector<Result> &results,
                          const QString &text)
{
    const ShapeItems before = shapeItemsOf(*m_document.scene());
    QHash<const ShapeItem *, ShapeItems> incoming;
    ShapeItems made;
    for (const Result &result : results) {
        if (ShapeItem *item = make(result)) {
            incoming[result.source].append(item);
            made.append(item);
        }
    }
    if (made.isEmpty())
        return;
    const UndoMacro macro(*m_document.undoStack(), text);
    ZTShapeManager *manager = m_document.itemMag();
    if (!sources.isEmpty())
        m_document.undoStack()->push(new DeleteItemsCommand(manager, sources, text));
    m_document.undoStack()->push(new AddItemsCommand(manager, made, {}, text));
    m_document.undoStack()->push(
        new StackingCommand(manager, orderWith(before, sources, incoming), text));
}

// Graphics stay the shapes they are; of other shapes new ones are made.
void PathActions::change(const QVector<Result> &results, const QString &text)
{
    QVector<OutlineChange> changes;
    QVector<Result> fresh;
    ShapeItems replaced;
    const ShapeItems before = selected();
    for (const Result &result : results) {
        QPainterPath ignored;
        if (hostkit::drawingFor(*result.source, result.pathsMm, &ignored)) {
            changes.append({result.source, result.pathsMm});
        } else {
            fresh.append(result);
            replaced.append(result.source);
        }
    }
    if (results.isEmpty())
        return;
    const UndoMacro macro(*m_document.undoStack(), text);
    if (!changes.isEmpty())
        m_document.undoStack()->push(new OutlinesCommand(changes, text));
    if (fresh.isEmpty())
        return;
    replace(replaced, fresh, text);
    ShapeItems after = selected();
    for (ShapeItem *item : before) {
        if (!replaced.contains(item))
            after.append(item);
    }
    selectOnly(*m_document.scene(), after);
}

void PathActions::toPaths()
{
    ShapeItems sources;
    QVector<Result> results;
    for (ShapeItem *item : selected()) {
        if (hostkit::graphicOf(*item) != nullptr)
            continue;
        const QVector<VectorPath> paths = hostkit::outlinesOf(*item);
        if (paths.isEmpty())
            continue;
        sources.append(item);
        results.append({item, paths});
    }
    if (results.isEmpty()) {
        Q_EMIT told(tr("Nothing is selected that is not a path already"));
        return;
    }
    replace(sources, results, undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Turn into paths")));
}

void PathActions::combine()
{
    const ShapeItems sources = selected();
    if (sources.size() < 2)
        return;
    QVector<VectorPath> paths;
    bool hasOtherPens = false;
    for (const ShapeItem *item : sources) {
        paths += hostkit::outlinesOf(*item);
        hasOtherPens = hasOtherPens || item->getPenId() != sources.first()->getPenId();
    }
    replace(sources, {{sources.first(), paths}},
            undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Combine")));
    if (hasOtherPens)
        Q_EMIT told(
            tr("Combined: all of it has pen %1 now").arg(selected().constFirst()->getPenId()));
}

void PathActions::breakApart()
{
    ShapeItems sources;
    QVector<Result> results;
    for (ShapeItem *item : selected()) {
        const QVector<QVector<VectorPath>> parts = pathsApart(hostkit::outlinesOf(*item));
        if (parts.size() < 2)
            continue;
        sources.append(item);
        for (const QVector<VectorPath> &part : parts)
            results.append({item, part});
    }
    if (results.isEmpty()) {
        Q_EMIT told(tr("What is selected is one outline each: there is nothing to break apart"));
        return;
    }
    replace(sources, results, undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Break apart")));
    Q_EMIT told(tr("Broken apart into %1 shapes").arg(results.size()));
}

void PathActions::takeTogether(OutlineOp op)
{
    const ShapeItems sources = selected();
    QVector<QVector<VectorPath>> areas;
    QVector<VectorPath> open;
    for (const ShapeItem *item : sources) {
        const ShapeOutlines outlines = outlinesApart(*item);
        open += outlines.open;
        if (outlines.closed.isEmpty()) {
            Q_EMIT told(tr("One of the shapes has no closed outline: close it first"));
            return;
        }
        areas.append(outlines.closed);
    }
    if (areas.size() < 2)
        return;
    const QVector<VectorPath> together = areasTogether(op, areas);
    if (together.isEmpty()) {
        Q_EMIT told(tr("Nothing would be left: the shapes stay as they are"));
        return;
    }
    replace(sources, {{sources.first(), together + open}}, textOf(op));
    if (!open.isEmpty())
        Q_EMIT told(tr("%1 open runs have no area and stay as they were").arg(open.size()));
}

void PathActions::weld()
{
    QVector<Result> results;
    for (ShapeItem *item : selected()) {
        const ShapeOutlines outlines = outlinesApart(*item);
        if (outlines.closed.isEmpty())
            continue;
        const QVector<VectorPath> welded = weldedAreas(outlines.closed);
        if (!welded.isEmpty())
            results.append({item, welded + outlines.open});
    }
    if (results.isEmpty())
        Q_EMIT told(tr("What is selected has no closed outline"));
    else
        change(results, undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Weld")));
}

QVector<VectorPath> PathActions::offsetOutlines(const OffsetChoice &choice) const
{
    QVector<VectorPath> all;
    for (const ShapeItem *item : selected())
        all += offsetOf(*item, choice);
    return all;
}

void PathActions::offset(const OffsetChoice &choice)
{
    ShapeItems sources;
    QVector<Result> results;
    for (ShapeItem *item : selected()) {
        const QVector<VectorPath> paths = offsetOf(*item, choice);
        if (paths.isEmpty())
            continue;
        sources.append(item);
        results.append({item, paths});
    }
    if (results.isEmpty()) {
        Q_EMIT told(tr("Nothing would be left: the shapes stay as they are"));
        return;
    }
    replace(choice.keepsOriginal ? ShapeItems() : sources, results,
            undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Offset")));
}

vectorkit::VectorDrawing PathActions::selectedDrawing() const
{
    vectorkit::VectorDrawing drawing;
    for (const ShapeItem *item : selected()) {
        vectorkit::VectorLayer layer;
        vectorkit::VectorShape shape;
        shape.paths = hostkit::outlinesOf(*item);
        shape.pen = item->getPenId();
        layer.shapes.append(shape);
        drawing.layers.append(layer);
    }
    return drawing;
}

void PathActions::takeCleaned(const vectorkit::VectorDrawing &cleaned)
{
    const ShapeItems items = selected();
    if (items.size() != cleaned.layers.size())
        return;
    QVector<Result> results;
    for (int at = 0; at < items.size(); ++at) {
        QVector<VectorPath> paths;
        for (const vectorkit::VectorShape &shape : cleaned.layers[at].shapes)
            paths += shape.paths;
        if (!paths.isEmpty() && paths != hostkit::outlinesOf(*items[at]))
            results.append({items[at], paths});
    }
    if (results.isEmpty())
        Q_EMIT told(tr("There was nothing to clean"));
    else
        change(results, undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Clean")));
}

} // namespace studio
