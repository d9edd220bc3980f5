#include "MarkCommand.h"

#include "Console.h"
#include "Progress.h"
#include "Usage.h"

#include <CLI/CLI.hpp>

#include <algorithm>

namespace {

using hostkit::DrawingInput;

QString warningAbout(const PltReport &report)
{
    const QString first = DrawingInput::describe(report.problems.first());
    if (report.illFormedLines == 1)
        return MarkCommand::tr("warning: %1").arg(first);
    return MarkCommand::tr("warning: %1 ill-formed lines, ztmark info lists them; the first is %2")
        .arg(report.illFormedLines)
        .arg(first);
}

} // namespace

MarkCommand::MarkCommand(CLI::App &app)
    : command(app.add_subcommand(
          "mark", tr("Turn plotter drawings into ordered mark paths").toStdString())),
      job(command)
{
    command->add_option("FILE", files, tr("Plotter drawings; - reads standard input").toStdString())
        ->required()
        ->type_name("");
    job.addOutputs();
    job.addHatch();
    job.addLayout();
    usage::addValue(command, "--scale", tr("Enlarge the drawings, 0.001 to 1000"),
                    [this](const std::string &text) {
                        job.options.scale = arguments::number(text, 0.001, 1000.0);
                    })
        ->type_name("FACTOR")
        ->default_str("1");
    command->final_callback([this] { checkTogether(); });
    command->footer(
        tr("Lengths take mm (the default), cm or in: 0.5, 0.5mm, 2cm, 1in. Angles are degrees,\n"
           "clockwise. A drawing is imported 20 mm high. Several drawings stand side by side, a "
           "gap\n"
           "apart, each one object.\n"
           "\n"
           "Limits: drawings of 256 MiB, 1,000,000 objects, 1,000,000 hatch lines over a "
           "drawing,\n"
           "20,000,000 points and hatch segments in all.\n"
           "\n"
           "Example:\n"
           "  ztmark mark logo.plt --hatch zigzag --spacing 0.3mm --angle 45 -o logo.svg")
            .toStdString());
}

bool MarkCommand::isChosen() const { return command->parsed(); }

void MarkCommand::checkTogether() const
{
    job.checkTogether();
    if (std::count(files.begin(), files.end(), "-") > 1)
        usage::refuse("FILE", tr("standard input can be read only once"));
}

int MarkCommand::run()
{
    Drawings drawings;
    hostkit::MarkJobResult result;
    Progress progress(!job.quiet);
    if (!job.canWrite(job.outputs, files) || !readDrawings(&drawings, progress) ||
        !build(drawings, &result, progress))
        return console::Failed;
    const bool written = job.write(result.graph, job.outputs, progress);
    progress.finish();
    warn(drawings, result.after);
    if (!job.quiet)
        JobArguments::printSummary(result.before, result.after);
    const bool printed = console::finishOutput();
    return written && printed ? console::Done : console::Failed;
}

bool MarkCommand::readDrawings(Drawings *drawings, Progress &progress) const
{
    for (const std::string &file : files) {
        const QString name = QString::fromStdString(file);
        progress.begin(tr("reading %1").arg(name));
        auto drawing = std::make_unique<DrawingInput>();
        QString error;
        if (!drawing->open(name, &error)) {
            progress.finish();
            console::complain(file, error);
            return false;
        }
        drawings->push_back(std::move(drawing));
    }
    return true;
}

bool MarkCommand::build(const Drawings &drawings, hostkit::MarkJobResult *result,
                        Progress &progress)
{
    job.options.progress = [&progress](const QString &step) { progress.begin(step); };
    hostkit::MarkJobError error;
    const bool built = hostkit::buildMarkJob(drawings, job.options, result, &error);
    job.options.progress = nullptr;
    if (built)
        return true;
    progress.finish();
    if (error.drawing >= 0)
        console::complain(files[static_cast<size_t>(error.drawing)], error.reason);
    else
        console::complain(error.reason.toStdString());
    return false;
}

void MarkCommand::warn(const Drawings &drawings, const hostkit::MarkPathMeasure &measure) const
{
    for (size_t i = 0; i < drawings.size(); ++i) {
        if (drawings[i]->report().illFormedLines > 0)
            console::complain(files[i], warningAbout(drawings[i]->report()));
    }
    job.warnOfEmptyHatch(measure);
}
