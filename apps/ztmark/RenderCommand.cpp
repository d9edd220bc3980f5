#include "RenderCommand.h"

#include "Console.h"
#include "ForeignFiles.h"
#include "JobArguments.h"
#include "OpenedDrawing.h"
#include "Progress.h"
#include "Usage.h"

#include <hostkit/marks/DrawingPicture.h>
#include <hostkit/marks/MarkGraphBuilder.h>
#include <hostkit/marks/MarkGraphWriter.h>

namespace {

constexpr int kUsualSide = 1024;

bool endsIn(const std::string &name, const char *extension)
{
    return QString::fromStdString(name).endsWith(QLatin1String(extension), Qt::CaseInsensitive);
}

} // namespace

RenderCommand::RenderCommand(CLI::App &app)
    : Command(app, "render", tr("Make a picture of a drawing")), m_longerSidePx(kUsualSide)
{
    m_files.addSingle(m_command);
    addOutput();
    usage::addValue(m_command, "--size", tr("Longer side of a .png in pixels, 16 to 8192"),
                    [this](const std::string &text) {
                        m_longerSidePx = arguments::count(text, hostkit::kLeastPictureSide,
                                                          hostkit::kMostPictureSide);
                    })
        ->type_name("PIXELS")
        ->default_str("1024");
    m_fonts.addOption(m_command);
    m_command->final_callback([this] { checkTogether(); });
    m_command->footer(
        tr("A .png shows the shapes as the studio does, in the colours of their pens, without "
           "grid,\n"
           "frame and selection. An .svg shows what is marked, true to size in millimetres: the\n"
           "picture that ztmark mark writes. SVG, DXF and plotter drawings are shown as convert\n"
           "takes them in.\n"
           "\n"
           "Examples:\n"
           "  ztmark render plate.ztd --size 2000 -o plate.png\n"
           "  ztmark render part.dxf -o part.png")
            .toStdString());
}

void RenderCommand::addOutput()
{
    const auto check = [](std::string &name) {
        if (endsIn(name, ".png") || endsIn(name, ".svg"))
            return std::string();
        return tr("\"%1\" must end in one of %2")
            .arg(QString::fromStdString(name), QStringLiteral(".png, .svg"))
            .toStdString();
    };
    m_command->add_option("-o,--output", m_output, tr("The picture, .png or .svg").toStdString())
        ->required()
        ->type_name("OUT")
        ->check(CLI::Validator(check, ""));
}

bool RenderCommand::asPaths() const { return endsIn(m_output, ".svg"); }

void RenderCommand::checkTogether() const
{
    if (asPaths() && m_command->get_option("--size")->count() > 0)
        usage::refuse("--size", tr("an .svg has no pixels, its size is that of the drawing"));
}

int RenderCommand::run()
{
    if (!JobArguments::canWrite({m_output}, {m_files.names, {}}) || !m_fonts.makeKnown())
        return console::Failed;
    Progress progress(true);
    m_files.readStandardInput(progress);
    OpenedDrawing drawing;
    if (!open(drawing, progress)) {
        progress.finish();
        return console::Failed;
    }
    hostkit::Failure failure;
    const bool isSaved = save(drawing.document, &failure);
    progress.finish();
    if (!isSaved)
        console::complain(m_output, failure.reason);
    return isSaved ? console::Done : console::Failed;
}

bool RenderCommand::open(OpenedDrawing &drawing, Progress &progress) const
{
    if (m_files.isDrawing())
        return drawing.open(m_files, progress);
    ForeignFiles foreign;
    return foreign.import(m_files, {}, drawing.document, progress);
}

bool RenderCommand::save(ZTGraphicsDocument &document, hostkit::Failure *failure) const
{
    const QString path = QString::fromStdString(m_output);
    if (!asPaths())
        return hostkit::saveDrawingPicture(document, m_longerSidePx, path, failure);
    const hostkit::DrawingMarks marks = hostkit::drawingMarks(document);
    return hostkit::saveMarkGraph(marks.graph, marks.units, path, failure);
}
