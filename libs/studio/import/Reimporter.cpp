#include <studio/import/Reimporter.h>

#include <studio/commands/ItemSetCommand.h>
#include <studio/commands/OutlinesCommand.h>
#include <studio/commands/UndoMacro.h>
#include <studio/drawing/LongWork.h>
#include <studio/import/ImportNotes.h>
#include <studio/program/UndoTexts.h>

#include <hostkit/items/GraphicItems.h>

#include <vectorkit/VectorReader.h>

#include <QtCore/QFileInfo>
#include <QtCore/QMap>
#include <QtCore/QSet>
#include <QtWidgets/QUndoStack>

namespace studio {

namespace {

/** The shapes of a drawing that came in by the imports, each import's own, lowest first. */
QMap<QString, ShapeItems> itemsOfImports(const QGraphicsScene &scene, const QSet<QString> &imports)
{
    QMap<QString, ShapeItems> found;
    for (ShapeItem *item : shapeItemsOf(scene)) {
        const std::optional<ImportSource> source = importSourceOf(*item);
        if (source && imports.contains(source->import))
            found[source->import].append(item);
    }
    return found;
}

QPointF wayMm(const QPointF &posPx)
{
    return ZTCoord::getInstance()->getPix2MmTransform().map(posPx);
}

} // namespace

Reimporter::Reimporter(ZTGraphicsDocument &document, Messages &messages, QObject *parent)
    : QObject(parent), m_document(document), m_messages(messages)
{
}

void Reimporter::reimportSelected()
{
    const ShapeItems selected = selectedShapeItems(*m_document.scene());
    QSet<QString> imports;
    for (const ShapeItem *item : selected) {
        if (const std::optional<ImportSource> source = importSourceOf(*item))
            imports.insert(source->import);
    }
    if (imports.isEmpty()) {
        Q_EMIT told(tr("What is selected came from no file"));
        return;
    }
    QMap<QString, vectorkit::VectorDrawing> drawings;
    QMap<QString, ImportSource> sources;
    const QMap<QString, ShapeItems> items = itemsOfImports(*m_document.scene(), imports);
    for (auto import = items.begin(); import != items.end(); ++import) {
        const ImportSource source = *importSourceOf(*import.value().first());
        vectorkit::VectorDrawing drawing;
        if (!read(source, &drawing))
            continue;
        drawings.insert(import.key(), drawing);
        sources.insert(import.key(), source);
    }
    if (drawings.isEmpty())
        return;
    Outcome all;
    {
        const UndoMacro macro(*m_document.undoStack(),
                              undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Re-import")));
        for (auto source = sources.begin(); source != sources.end(); ++source) {
            const Outcome outcome = follow(source.value(), drawings.value(source.key()));
            all.followed += outcome.followed;
            all.added += outcome.added;
            all.gone += outcome.gone;
        }
    }
    Q_EMIT told(tr("Re-imported. Shapes that follow their file: %1, new: %2, gone: %3")
                    .arg(all.followed)
                    .arg(all.added)
                    .arg(all.gone));
}

bool Reimporter::read(const ImportSource &source, vectorkit::VectorDrawing *drawing)
{
    const QString name = QFileInfo(source.file).fileName();
    vectorkit::ReadFailure failure;
    LongWork work(*m_document.window(), tr("Importing %1 again...").arg(name),
                  LongWork::Cancel::Possible);
    constexpr int kSteps = 1000;
    const auto halfOf = [&work](int first) {
        return [&work, first](double done) {
            return work.step(first + qRound(done * kSteps / 2), kSteps);
        };
    };
    vectorkit::ReadOptions options;
    options.progress = halfOf(0);
    if (!vectorkit::readDrawingFile(source.file, options, drawing, &failure)) {
        if (failure.kind == vectorkit::ReadFailure::Kind::Cancelled)
            return false;
        m_messages.failure(
            {tr("\"%1\" was not imported again; its shapes stay as they are.").arg(name),
             failure.advice.isEmpty() ? failure.reason
                                      : failure.reason + QLatin1Char(' ') + failure.advice,
             {source.file}});
        return false;
    }
    const QStringList losses = lossesOf(*drawing);
    if (!losses.isEmpty())
        m_messages.warning(
            {tr("\"%1\" was imported again with losses.").arg(name), QString(), losses});
    hostkit::scaleDrawing(drawing, source.scaleX, source.scaleY);
    vectorkit::CleanOptions cleaning = source.cleaning;
    cleaning.progress = halfOf(kSteps / 2);
    return vectorkit::cleanDrawing(drawing, cleaning, nullptr);
}

Reimporter::Outcome Reimporter::follow(const ImportSource &source,
                                       const vectorkit::VectorDrawing &drawing)
{
    const ShapeItems old =
        itemsOfImports(*m_document.scene(), {source.import}).value(source.import);
    const hostkit::ImportResult result =
        hostkit::importDrawing(m_document, drawing, source.options);
    const ShapeItems fresh = result.items.toVector();
    const QStringList parts = importParts(fresh);
    markImported(fresh, source, result.shiftMm);
    ShapeItem &beside = *old.first();
    const ImportSource sourceBeside = *importSourceOf(beside);

    QVector<DrawingChange> changes;
    ShapeItems gone;
    QSet<const ShapeItem *> taken;
    for (ShapeItem *item : old) {
        const ImportSource own = *importSourceOf(*item);
        const int at = parts.indexOf(own.part);
        const ZTVecGraph *graphic = at < 0 ? nullptr : hostkit::graphicOf(*fresh[at]);
        if (at < 0) {
            gone.append(item);
            continue;
        }
        taken.insert(fresh[at]);
        if (graphic != nullptr && hostkit::graphicOf(*item) != nullptr)
            changes.append({item, graphic->getDrawing().translated(wayMm(fresh[at]->pos()) -
                                                                   result.shiftMm - own.originMm)});
    }
    ShapeItems added;
    ShapeItems samples;
    for (ShapeItem *item : fresh) {
        (taken.contains(item) ? samples : added).append(item);
        if (!taken.contains(item))
            place(*item, beside, sourceBeside, result.shiftMm);
    }
    selectOnly(*m_document.scene(), samples);
    if (!samples.isEmpty())
        m_document.itemMag()->removeSelect();
    const QString text = undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Re-import"));
    QUndoStack &stack = *m_document.undoStack();
    stack.push(new OutlinesCommand(changes, text));
    if (!gone.isEmpty())
        stack.push(new DeleteItemsCommand(m_document.itemMag(), gone, text));
    if (!added.isEmpty())
        stack.push(new AddItemsCommand(m_document.itemMag(), added, {}, text));
    selectOnly(*m_document.scene(),
               itemsOfImports(*m_document.scene(), {source.import}).value(source.import));
    return {changes.size(), added.size(), gone.size()};
}

/** Where a part that is new in the file comes to: as it lies there beside one that came before. */
void Reimporter::place(ShapeItem &fresh, const ShapeItem &beside, const ImportSource &sourceBeside,
                       const QPointF &shiftMm) const
{
    ZTShapeBase *shape = beside.getShapeBase();
    const QTransform change = hostkit::graphicOf(beside) != nullptr
                                  ? shape->getRoundingTransformParam() * shape->getTransformParam()
                                  : QTransform();
    const QPointF placeMm =
        change.map(wayMm(fresh.pos()) - shiftMm - sourceBeside.originMm) + wayMm(beside.pos());
    const QTransform turned(change.m11(), change.m12(), change.m21(), change.m22(), 0.0, 0.0);
    fresh.setTransformParam(fresh.getTransformParam() * turned);
    fresh.setPos(ZTCoord::getInstance()->getMm2pixTransform().map(placeMm));
}

} // namespace studio
