#include "MarkCommand.h"

#include "Console.h"
#include "OpenedDrawing.h"
#include "Progress.h"
#include "Usage.h"

#include <hostkit/marks/MarkGraphBuilder.h>

#include <algorithm>
#include <array>

namespace {

/** What lays out or hatches plotter drawings, and a drawing has of its own. */
constexpr std::array<const char *, 8> kOnlyPlotter{
    "--hatch", "--spacing", "--angle", "--no-outline", "--matrix", "--gap", "--scale", "--rotate"};

} // namespace

MarkCommand::MarkCommand(CLI::App &app)
    : Command(app, "mark", tr("Turn a drawing or plotter drawings into ordered mark paths")),
      job(command)
{
    files.addOption(command);
    job.addOutputs();
    job.addHatch();
    job.addLayout();
    usage::addValue(command, "--scale", tr("Enlarge the drawings, 0.001 to 1000"),
                    [this](const std::string &text) {
                        job.options.scale = arguments::number(text, 0.001, 1000.0);
                    })
        ->type_name("FACTOR")
        ->default_str("1");
    command->add_flag(
        "--outside", marksOutside,
        tr("Mark a drawing also where its shapes reach out of its work area").toStdString());
    fonts.addOption(command);
    command->final_callback([this] { checkTogether(); });
    command->footer(
        tr("Lengths take mm (the default), cm or in: 0.5, 0.5mm, 2cm, 1in. Angles are degrees,\n"
           "clockwise. A plotter drawing is imported 20 mm high. Several stand side by side, a "
           "gap\n"
           "apart, each one object.\n"
           "\n"
           "Limits: drawings of 256 MiB, 1,000,000 objects, 1,000,000 hatch lines over a "
           "drawing,\n"
           "20,000,000 points and hatch segments in all.\n"
           "\n"
           "A drawing, .ztd, is marked as it was saved, in its own order unless --order says "
           "another.\n"
           "Options that lay out, hatch, scale or turn plotter drawings are not for it.\n"
           "\n"
           "Examples:\n"
           "  ztmark mark plate.ztd -o plate.json\n"
           "  ztmark mark logo.plt --hatch zigzag --spacing 0.3mm --angle 45 -o logo.svg")
            .toStdString());
}

void MarkCommand::checkTogether() const
{
    files.checkTogether();
    if (files.isDrawing())
        checkDrawing();
    else
        job.checkTogether();
}

void MarkCommand::checkDrawing() const
{
    for (const char *option : kOnlyPlotter) {
        if (command->get_option(option)->count() > 0)
            usage::refuse(option, tr("not for a drawing, which has its own layout and hatch"));
    }
}

int MarkCommand::run()
{
    if (!JobArguments::canWrite(job.outputs, files.names) || !fonts.makeKnown())
        return console::Failed;
    Progress progress(!job.quiet);
    return files.isDrawing() ? markDrawing(progress) : markPlotterFiles(progress);
}

int MarkCommand::markPlotterFiles(Progress &progress)
{
    PlotterFiles plotter;
    hostkit::MarkJobResult result;
    if (!plotter.open(files.names, progress) || !build(plotter.drawings(), &result, progress))
        return console::Failed;
    const bool written = job.write(result.graph, job.outputs, progress);
    progress.finish();
    plotter.warnOfLosses();
    job.warnOfEmptyHatch(result.after);
    return finish(written, result.before, result.after);
}

int MarkCommand::markDrawing(Progress &progress)
{
    OpenedDrawing drawing;
    if (!drawing.open(files.names.front(), progress))
        return console::Failed;
    progress.begin(tr("ordering"));
    const bool isOrdered = command->get_option("--order")->count() > 0;
    const hostkit::DrawingMarks marks = hostkit::drawingMarks(
        drawing.document, isOrdered ? std::make_optional(job.options.order) : std::nullopt);
    progress.finish();
    for (const QString &sentence : hostkit::describeFindings(marks.findings))
        console::complain(files.names.front(), tr("warning: %1").arg(sentence));
    if (!marks.findings.outside.isEmpty() && !marksOutside) {
        console::complain(files.names.front(),
                          tr("nothing written: shapes outside the work area are "
                             "marked with --outside alone"));
        return console::Failed;
    }
    const bool written = job.write(marks.graph, job.outputs, progress, marks.units);
    return finish(written, marks.before, marks.after);
}

int MarkCommand::finish(bool written, const hostkit::MarkPathMeasure &before,
                        const hostkit::MarkPathMeasure &after) const
{
    if (!job.quiet)
        JobArguments::printSummary(before, after);
    const bool printed = console::finishOutput();
    return written && printed ? console::Done : console::Failed;
}

bool MarkCommand::build(const PlotterFiles::Drawings &drawings, hostkit::MarkJobResult *result,
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
        console::complain(files.names[static_cast<size_t>(error.drawing)], error.reason);
    else
        console::complain(error.reason.toStdString());
    return false;
}
