#include "ConvertCommand.h"

#include "Console.h"
#include "JobArguments.h"
#include "PlotterFiles.h"
#include "Progress.h"
#include "Usage.h"

#include <hostkit/drawing/DrawingCapture.h>

#include <QtCore/QFileInfo>

#include <algorithm>

namespace {

constexpr double kGapMm = 2.0;

/**
 * The name under which a drawing keeps where it came from. What could be read only once has none
 * but the one that was typed.
 */
QString sourceOf(const std::string &file, const hostkit::DrawingInput &input)
{
    const QString name = QString::fromStdString(file);
    return name != QLatin1String("-") && QFileInfo(name).isFile() ? input.filePath() : name;
}

/** A plotter drawing as a shape, as large as it is imported; null without a factory. */
ZTAbstractGraphicsItem *addGraphic(ZTShapeManager &manager, const hostkit::DrawingInput &input,
                                   const QString &source)
{
    ZTVecGraphItemFactory::getInstance()->setPath(input.filePath());
    ZTAbstractGraphicsItem *item = manager.addShape(ShapeType::VecGraph, QRectF());
    if (item == nullptr)
        return nullptr;
    auto *graphic = dynamic_cast<ZTVecGraph *>(item->getShapeBase());
    if (graphic != nullptr && graphic->getImagePath() != source)
        graphic->setDrawing(QPainterPath(graphic->getDrawing()), source);
    item->getShapeBase()->paint();
    return item;
}

} // namespace

ConvertCommand::ConvertCommand(CLI::App &app)
    : Command(app, "convert", tr("Turn plotter drawings into a drawing, or save a drawing anew"))
{
    m_files.addOption(m_command);
    addOutput();
    m_foreign.addOptions(m_command);
    m_foreign.options.toleranceMm = 0.0; // curves stay curves
    m_fonts.addOption(m_command);
    m_command->final_callback([this] {
        m_files.checkTogether();
        m_foreign.checkTogether();
    });
    m_command->footer(
        tr("Plotter drawings are imported 20 mm high, side by side, 2 mm apart, each one shape, "
           "and\n"
           "kept in the drawing: their files are not needed any more. A drawing that is saved "
           "anew\n"
           "marks as before; sections of it that this version does not know are kept.\n"
           "Mark paths of a drawing are written by ztmark mark, pictures by ztmark render.\n"
           "\n"
           "Examples:\n"
           "  ztmark convert logo.plt frame.plt -o plate.ztd\n"
           "  ztmark convert old.ztd -o new.ztd")
            .toStdString());
}

void ConvertCommand::addOutput()
{
    const auto check = [](std::string &name) {
        if (QString::fromStdString(name).endsWith(QLatin1String(".ztd"), Qt::CaseInsensitive))
            return std::string();
        return tr("\"%1\" must end in .ztd; ztmark mark and render write other forms")
            .arg(QString::fromStdString(name))
            .toStdString();
    };
    m_command->add_option("-o,--output", m_output, tr("The drawing, .ztd").toStdString())
        ->required()
        ->type_name("OUT")
        ->check(CLI::Validator(check, ""));
}

int ConvertCommand::run()
{
    if (!JobArguments::canWrite({m_output}, m_files.names) || !m_fonts.makeKnown())
        return console::Failed;
    Progress progress(true);
    if (!m_files.isDrawing() && m_foreign.isChosen(m_files.names))
        return importForeignFiles(progress);
    return m_files.isDrawing() ? saveAnew(progress) : importFiles(progress);
}

int ConvertCommand::saveAnew(Progress &progress) const
{
    OpenedDrawing drawing;
    if (!drawing.open(m_files.names.front(), progress))
        return console::Failed;
    return save(drawing.document, progress);
}

int ConvertCommand::importFiles(Progress &progress) const
{
    PlotterFiles plotter;
    if (!plotter.open(m_files.names, progress))
        return console::Failed;
    ZTGraphicsDocument document;
    import(plotter, document);
    const int code = save(document, progress);
    plotter.warnOfLosses();
    return code;
}

int ConvertCommand::importForeignFiles(Progress &progress)
{
    ZTGraphicsDocument document;
    const bool isWhole = m_foreign.import(m_files.names, document, progress);
    if (document.itemMag()->getShapeList().isEmpty()) {
        progress.finish();
        return console::Failed;
    }
    const int code = save(document, progress);
    return isWhole ? code : console::Failed;
}

void ConvertCommand::import(const PlotterFiles &plotter, ZTGraphicsDocument &document) const
{
    ZTShapeManager &manager = *document.itemMag();
    const double gapPx = ZTCoord::getInstance()->mm2pix(kGapMm);
    double leftPx = 0.0;
    for (size_t i = 0; i < m_files.names.size(); ++i) {
        const hostkit::DrawingInput &input = *plotter.drawings()[i];
        ZTAbstractGraphicsItem *item =
            addGraphic(manager, input, sourceOf(m_files.names[i], input));
        if (item == nullptr)
            return;
        const QSizeF sizePx = item->boundingRect().size();
        // An item's position is clamped to the scene.
        const QRectF placePx(QPointF(leftPx, 0.0), sizePx);
        manager.scene()->setSceneRect(manager.scene()->sceneRect() | placePx);
        item->setPos(leftPx, 0.0);
        leftPx += sizePx.width() + gapPx;
    }
}

int ConvertCommand::save(ZTGraphicsDocument &document, Progress &progress) const
{
    progress.begin(tr("writing %1").arg(QString::fromStdString(m_output)));
    hostkit::DrawingCapture capture;
    capture.programVersion = QStringLiteral(ZT_VERSION);
    hostkit::Failure error;
    const bool isSaved = saveDrawing(document, capture, QString::fromStdString(m_output), &error);
    progress.finish();
    if (!isSaved)
        console::complain(m_output, OpenedDrawing::describe(error));
    return isSaved ? console::Done : console::Failed;
}
