#include <studio/Importer.h>

#include <studio/UndoTexts.h>
#include <studio/commands/ItemSetCommand.h>

#include <hostkit/marks/DrawingInput.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QFileInfo>

namespace studio {

namespace {

constexpr double kGapMm = 5.0;

struct ImportTexts
{
    Q_DECLARE_TR_FUNCTIONS(studio::Importer)
};

QString fileNameOf(const QString &path) { return QFileInfo(path).fileName(); }

/** What a report lists of lines that lose something. */
QStringList problemLines(const PltReport &report)
{
    QStringList lines;
    for (const PltProblem &problem : report.problems)
        lines << hostkit::DrawingInput::describe(problem);
    const int more = report.illFormedLines - report.problems.size();
    if (more > 0)
        lines << ImportTexts::tr("... and %1 more").arg(more);
    return lines;
}

Message refusal(const QString &path, const QString &error, const PltReport &report)
{
    return {ImportTexts::tr("\"%1\" was not imported.").arg(fileNameOf(path)),
            ImportTexts::tr("Reason: %1. Plotter files hold one PU or PD command with one pair "
                            "of numbers per line, such as \"PD100 250;\".")
                .arg(error),
            problemLines(report)};
}

Message loss(const QString &path, const PltReport &report)
{
    return {ImportTexts::tr("\"%1\" was imported with losses.").arg(fileNameOf(path)),
            ImportTexts::tr("Lines that could not be read as they stand: %1. Compare the drawing "
                            "with its source before marking it.")
                .arg(report.illFormedLines),
            problemLines(report)};
}

/** Puts the items in a row, their boxes in line, the middle of the row at `centrePx`. */
void layOutInRow(const ShapeItems &items, const QPointF &centrePx)
{
    const double gapPx = ZTCoord::getInstance()->mm2pix(kGapMm);
    double widthPx = gapPx * (items.size() - 1);
    for (const ShapeItem *item : items)
        widthPx += item->boundingRect().width();
    double leftPx = centrePx.x() - widthPx / 2;
    for (ShapeItem *item : items) {
        const QRectF boxPx = item->boundingRect();
        item->setPos(QPointF(leftPx, centrePx.y() - boxPx.height() / 2) - boxPx.topLeft());
        leftPx += boxPx.width() + gapPx;
    }
}

} // namespace

Importer::Importer(ZTGraphicsDocument &target, Messages &reader)
    : document(target), messages(reader)
{
}

int Importer::importFiles(const QStringList &paths, std::optional<QPointF> centrePx)
{
    ShapeItems imported;
    for (const QString &path : paths) {
        hostkit::DrawingInput input;
        QString error;
        if (!input.open(path, &error)) {
            messages.failure(refusal(path, error, input.report()));
            continue;
        }
        ZTVecGraphItemFactory::getInstance()->setPath(input.filePath());
        ShapeItem *item = document.itemMag()->addShape(ShapeType::VecGraph, {0, 0, 10, 10});
        if (item == nullptr)
            continue;
        imported.append(item);
        if (input.report().illFormedLines > 0)
            messages.warning(loss(path, input.report()));
    }
    if (imported.isEmpty())
        return 0;
    layOutInRow(imported, centrePx.value_or(QPointF()));
    const QString text =
        imported.size() == 1
            ? undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Import %1"),
                       {fileNameOf(paths.first())})
            : undoText(QT_TRANSLATE_NOOP("studio::UndoTexts", "Import %1 drawings"),
                       {QString::number(imported.size())});
    document.undoStack()->push(new AddItemsCommand(document.itemMag(), imported,
                                                   selectedShapeItems(*document.scene()), text));
    return imported.size();
}

} // namespace studio
