#include "ConvertCommand.h"

#include "Console.h"
#include "JobArguments.h"
#include "Progress.h"
#include "Usage.h"

#include <hostkit/drawing/DrawingCapture.h>

#include <QtCore/QFileInfo>

ConvertCommand::ConvertCommand(CLI::App &app)
    : Command(app, "convert",
              tr("Turn SVG, DXF and plotter drawings into a drawing, or save one anew"))
{
    m_files.addOption(m_command);
    addOutput();
    m_foreign.addOptions(m_command);
    m_foreign.options.toleranceMm = 0.0; // curves stay curves
    m_fonts.addOption(m_command);
    m_command->final_callback([this] {
        takeOutput();
        m_files.checkTogether();
        m_foreign.checkTogether();
        checkDrawing();
    });
    m_command->footer(
        tr("SVG, DXF and plotter drawings come in at true size unless an option says otherwise, "
           "side\n"
           "by side, 2 mm apart, in the middle of the work area. They are kept in the drawing: "
           "their\n"
           "files are not needed any more. A drawing that is saved anew marks as before; sections "
           "of\n"
           "it that this version does not know are kept.\n"
           "Mark paths of a drawing are written by ztmark mark, pictures by ztmark render.\n"
           "Without -o the last FILE is the drawing that is made; one that is there already is "
           "kept.\n"
           "\n"
           "Examples:\n"
           "  ztmark convert part.dxf part.ztd\n"
           "  ztmark convert part.dxf logo.svg -o plate.ztd\n"
           "  ztmark convert logo.plt --height 20mm --clean join=0.05mm -o logo.ztd\n"
           "  ztmark convert old.ztd -o new.ztd")
            .toStdString());
}

bool ConvertCommand::isDrawingName(const std::string &name)
{
    return QString::fromStdString(name).endsWith(QLatin1String(".ztd"), Qt::CaseInsensitive);
}

void ConvertCommand::addOutput()
{
    const auto check = [](std::string &name) {
        if (isDrawingName(name))
            return std::string();
        return tr("\"%1\" must end in .ztd; ztmark mark and render write other forms")
            .arg(QString::fromStdString(name))
            .toStdString();
    };
    m_command->add_option("-o,--output", m_output, tr("The drawing, .ztd").toStdString())
        ->type_name("OUT")
        ->check(CLI::Validator(check, ""));
}

/** Two names are from and to, as with any copy; but no drawing is replaced by a slip. */
void ConvertCommand::takeOutput()
{
    if (!m_output.empty())
        return;
    if (m_files.names.size() < 2 || !isDrawingName(m_files.names.back()))
        throw CLI::RequiredError("--output");
    m_output = m_files.names.back();
    m_files.names.pop_back();
    const QString name = QString::fromStdString(m_output);
    if (QFileInfo::exists(name))
        usage::refuse("FILE", tr("\"%1\" is there already; -o %1 replaces it").arg(name));
}

/** A drawing of the studio is saved as it is. */
void ConvertCommand::checkDrawing() const
{
    const char *option = m_foreign.givenOption();
    if (option != nullptr && m_files.isDrawing())
        usage::refuse(option, tr("not for a drawing, which is saved as it is"));
}

int ConvertCommand::run()
{
    if (!JobArguments::canWrite({m_output}, {m_files.names, {}}) || !m_fonts.makeKnown())
        return console::Failed;
    Progress progress(true);
    m_files.readStandardInput(progress);
    if (!m_files.isDrawing())
        return importForeignFiles(progress);
    checkDrawing(); // what standard input holds is known only now
    return saveAnew(progress);
}

int ConvertCommand::saveAnew(Progress &progress) const
{
    OpenedDrawing drawing;
    if (!drawing.open(m_files, progress))
        return console::Failed;
    return save(drawing.document, progress);
}

int ConvertCommand::importForeignFiles(Progress &progress)
{
    ZTGraphicsDocument document;
    const bool isWhole = m_foreign.import(m_files, {}, document, progress);
    if (m_foreign.items.isEmpty()) {
        progress.finish();
        return console::Failed;
    }
    m_foreign.centre(document);
    const int code = save(document, progress);
    if (code == console::Done)
        m_foreign.printCleaning();
    return isWhole && console::finishOutput() ? code : console::Failed;
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
