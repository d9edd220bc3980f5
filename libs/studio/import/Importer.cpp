#include <studio/import/Importer.h>

#include <studio/commands/ItemSetCommand.h>
#include <studio/drawing/LongWork.h>
#include <studio/import/ImportNotes.h>
#include <studio/import/ImportSettings.h>
#include <studio/import/ImportSource.h>
#include <studio/program/UndoTexts.h>

#include <hostkit/items/ItemExtras.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QFileInfo>
#include <QtCore/QUuid>

namespace studio {

namespace {

constexpr double kGapMm = 5.0;

struct ImportTexts
{
    Q_DECLARE_TR_FUNCTIONS(studio::Importer)
};

QString fileNameOf(const QString &path) { return QFileInfo(path).fileName(); }

Message refusal(const QString &name, const vectorkit::ReadFailure &failure)
{
    const QString why = failure.advice.isEmpty()
                            ? failure.reason
                            : failure.reason + QLatin1Char(' ') + failure.advice;
    return {ImportTexts::tr("\"%1\" was not imported.").arg(name), why, {}};
}

Message loss(const QString &name, const QStringList &losses)
{
    return {ImportTexts::tr("\"%1\" was imported with losses.").arg(name),
            ImportTexts::tr("Some of it was left out or is damaged. Compare the drawing with its "
                            "source before marking it."),
            losses};
}

ImportSource sourceOf(const ReadDrawing &read, const hostkit::ImportOptions &options)
{
    ImportSource source;
    source.file = QFileInfo(read.path).absoluteFilePath();
    source.import = QUuid::createUuid().toString(QUuid::WithoutBraces);
    source.scaleX = read.scaleX;
    source.scaleY = read.scaleY;
    source.options = options;
    source.cleaning = read.cleaning;
    return source;
}

/** Puts blocks of items in a row, their boxes in line, the middle of the row at `centrePx`. */
void layOutInRow(const QVector<ShapeItems> &blocks, const QPointF &centrePx)
{
    const double gapPx = ZTCoord::getInstance()->mm2pix(kGapMm);
    double widthPx = gapPx * (blocks.size() - 1);
    for (const ShapeItems &block : blocks)
        widthPx += sceneBox(block).width();
    double leftPx = centrePx.x() - widthPx / 2;
    for (const ShapeItems &block : blocks) {
        const QRectF boxPx = sceneBox(block);
        const QPointF wayPx = QPointF(leftPx, centrePx.y() - boxPx.height() / 2) - boxPx.topLeft();
        for (ShapeItem *item : block)
            item->setPos(item->pos() + wayPx);
        leftPx += boxPx.width() + gapPx;
    }
}

/** What has neither a name nor words of its own goes by its file's name. */
void nameByFile(const ShapeItems &items, const QString &path)
{
    for (ShapeItem *item : items) {
        hostkit::ItemExtras extras = hostkit::itemExtras(*item);
        if (!extras.name.isEmpty() || !item->text().isEmpty())
            continue;
        extras.name = QFileInfo(path).completeBaseName();
        hostkit::setItemExtras(*item, extras);
    }
}

std::function<bool(double)> progressOf(LongWork *work)
{
    constexpr int kSteps = 1000;
    return [work](double done) { return work->step(qRound(done * kSteps), kSteps); };
}

} // namespace

Importer::Importer(ZTGraphicsDocument &target, Messages &reader)
    : m_document(target), m_messages(reader)
{
}

bool Importer::read(const QString &path, ReadDrawing *read)
{
    read->path = path;
    const Read readOne = [&](const vectorkit::ReadOptions &options,
                             vectorkit::ReadFailure *failure) {
        return vectorkit::readDrawingFile(path, options, &read->drawing, failure);
    };
    return readWith(fileNameOf(path), readOne, &read->drawing);
}

bool Importer::read(const QByteArray &bytes, const QString &name, ReadDrawing *read)
{
    read->path = name;
    const Read readOne = [&](const vectorkit::ReadOptions &options,
                             vectorkit::ReadFailure *failure) {
        return vectorkit::readDrawing(bytes, options, &read->drawing, failure);
    };
    return readWith(name, readOne, &read->drawing);
}

bool Importer::readWith(const QString &name, const Read &readOne, vectorkit::VectorDrawing *drawing)
{
    vectorkit::ReadFailure failure;
    bool isRead = false;
    {
        LongWork work(*m_document.window(), ImportTexts::tr("Reading %1...").arg(name),
                      LongWork::Cancel::Possible);
        vectorkit::ReadOptions options;
        options.progress = progressOf(&work);
        isRead = readOne(options, &failure);
    }
    m_isCancelled = !isRead && failure.kind == vectorkit::ReadFailure::Kind::Cancelled;
    if (!isRead && !m_isCancelled)
        m_messages.failure(refusal(name, failure));
    if (isRead)
        hostkit::noteMissingFonts(drawing);
    return isRead;
}

QVector<ReadDrawing> Importer::readAll(const QStringList &paths)
{
    QVector<ReadDrawing> drawings;
    for (const QString &path : paths) {
        ReadDrawing one;
        if (read(path, &one))
            drawings.append(one);
        else if (m_isCancelled)
            return {};
    }
    return drawings;
}

int Importer::importFiles(const QStringList &paths, std::optional<QPointF> centrePx)
{
    return bringInAsLast(readAll(paths), centrePx);
}

int Importer::bringInAsLast(const QVector<ReadDrawing> &drawings, std::optional<QPointF> centrePx)
{
    QVector<ReadDrawing> cleaned = drawings;
    for (ReadDrawing &one : cleaned) {
        one.cleaning = rememberedCleaning();
        LongWork work(*m_document.window(),
                      ImportTexts::tr("Cleaning %1...").arg(fileNameOf(one.path)),
                      LongWork::Cancel::Possible);
        vectorkit::CleanOptions cleaning = one.cleaning;
        cleaning.progress = progressOf(&work);
        if (!vectorkit::cleanDrawing(&one.drawing, cleaning, nullptr))
            return 0;
    }
    return bringIn(cleaned, rememberedImportOptions(), centrePx);
}

hostkit::ImportResult Importer::bringInOne(const ReadDrawing &read,
                                           const hostkit::ImportOptions &options)
{
    LongWork work(*m_document.window(),
                  ImportTexts::tr("Importing %1...").arg(fileNameOf(read.path)),
                  LongWork::Cancel::Possible);
    hostkit::ImportOptions told = options;
    told.progress = progressOf(&work);
    return hostkit::importDrawing(m_document, read.drawing, told);
}

void Importer::takeBack(const ShapeItems &items)
{
    if (items.isEmpty())
        return;
    selectOnly(*m_document.scene(), items);
    m_document.itemMag()->removeSelect();
}

int Importer::bringIn(const QVector<ReadDrawing> &drawings, const hostkit::ImportOptions &options,
                      std::optional<QPointF> centrePx)
{
    QVector<ShapeItems> blocks;
    ShapeItems imported;
    for (const ReadDrawing &one : drawings) {
        const hostkit::ImportResult result = bringInOne(one, options);
        if (result.isCancelled) {
            takeBack(imported);
            return 0;
        }
        if (result.items.isEmpty())
            continue;
        blocks.append(result.items.toVector());
        if (QFileInfo(one.path).isFile()) {
            markImported(blocks.last(), sourceOf(one, options), result.shiftMm);
            nameByFile(blocks.last(), one.path);
        }
        imported += blocks.last();
        const QStringList losses = lossesOf(one.drawing);
        if (!losses.isEmpty())
            m_messages.warning(loss(fileNameOf(one.path), losses));
    }
    if (imported.isEmpty())
        return 0;
    layOutInRow(blocks, centrePx.value_or(QPointF()));
    const QString text =
        blocks.size() == 1 ? undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Import %1"),
                                      {fileNameOf(drawings.first().path)})
                           : undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Import %1 drawings"),
                                      {QString::number(blocks.size())});
    m_document.undoStack()->push(new AddItemsCommand(
        m_document.itemMag(), imported, selectedShapeItems(*m_document.scene()), text));
    return blocks.size();
}

} // namespace studio
