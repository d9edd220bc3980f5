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

/** What lays out copies of what the library's own reader takes. */
constexpr std::array<const char *, 4> kOnlyLibrary{"--matrix", "--gap", "--scale", "--rotate"};

} // namespace

MarkCommand::MarkCommand(CLI::App &app)
    : Command(app, "mark", tr("Turn a drawing or plotter drawings into ordered mark paths")),
      m_job(m_command)
{
    m_files.addOption(m_command);
    m_job.addOutputs();
    m_job.addHatch();
    m_job.addLayout();
    usage::addValue(m_command, "--scale", tr("Enlarge the drawings, 0.001 to 1000"),
                    [this](const std::string &text) {
                        m_job.options.scale = arguments::number(text, 0.001, 1000.0);
                    })
        ->type_name("FACTOR")
        ->default_str("1");
    m_foreign.addOptions(m_command);
    m_command->add_flag(
        "--outside", m_marksOutside,
        tr("Mark a drawing also where its shapes reach out of its work area").toStdString());
    m_command->add_flag("--as-shown", m_marksAsShown,
                        tr("Mark also what does not show what it was given, such as a code that "
                           "cannot\nhold its content")
                            .toStdString());
    m_fonts.addOption(m_command);
    m_command->final_callback([this] { checkTogether(); });
    m_command->footer(
        tr("Lengths take mm (the default), cm or in: 0.5, 0.5mm, 2cm, 1in. Angles are degrees,\n"
           "clockwise. A plotter drawing is imported 20 mm high. Several stand side by side, a "
           "gap\n"
           "apart, each one object.\n"
           "\n"
           "SVG and DXF drawings, plotter drawings of other dialects, and all of them with "
           "--size,\n"
           "--width, --height, --unit, --split, --tolerance or --fill-open come in at true size.\n"
           "Open outlines are not hatched unless --fill-open is given.\n"
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
    m_files.checkTogether();
    if (m_files.isDrawing())
        checkDrawing();
    else
        checkTogetherWithFiles();
}

void MarkCommand::checkTogetherWithFiles() const
{
    m_job.checkTogether();
    m_foreign.checkTogether();
    if (!m_foreign.isChosen(m_files.names))
        return;
    for (const char *option : kOnlyLibrary) {
        if (m_command->get_option(option)->count() > 0)
            usage::refuse(option, tr("not for drawings that come in at true size"));
    }
}

void MarkCommand::checkDrawing() const
{
    for (const char *option : kOnlyPlotter) {
        if (m_command->get_option(option)->count() > 0)
            usage::refuse(option, tr("not for a drawing, which has its own layout and hatch"));
    }
}

int MarkCommand::run()
{
    if (!JobArguments::canWrite(m_job.outputs, m_files.names) || !m_fonts.makeKnown())
        return console::Failed;
    Progress progress(!m_job.quiet);
    if (!m_files.isDrawing() && m_foreign.isChosen(m_files.names))
        return markForeignFiles(progress);
    return m_files.isDrawing() ? markDrawing(progress) : markPlotterFiles(progress);
}

int MarkCommand::markPlotterFiles(Progress &progress)
{
    PlotterFiles plotter;
    hostkit::MarkJobResult result;
    if (!plotter.open(m_files.names, progress) || !build(plotter.drawings(), &result, progress))
        return console::Failed;
    const bool written = m_job.write(result.graph, m_job.outputs, progress);
    progress.finish();
    plotter.warnOfLosses();
    m_job.warnOfEmptyHatch(result.after);
    return finish(written, result.before, result.after);
}

int MarkCommand::markDrawing(Progress &progress)
{
    OpenedDrawing drawing;
    if (!drawing.open(m_files.names.front(), progress))
        return console::Failed;
    progress.begin(tr("ordering"));
    const bool isOrdered = m_command->get_option("--order")->count() > 0;
    const hostkit::DrawingMarks marks = hostkit::drawingMarks(
        drawing.document, isOrdered ? std::make_optional(m_job.options.order) : std::nullopt);
    progress.finish();
    for (const QString &sentence : hostkit::describeFindings(marks.findings))
        console::complain(m_files.names.front(), tr("warning: %1").arg(sentence));
    if (!marks.findings.outside.isEmpty() && !m_marksOutside) {
        console::complain(m_files.names.front(),
                          tr("nothing written: shapes outside the work area are "
                             "marked with --outside alone"));
        return console::Failed;
    }
    if (!marks.findings.notReady.isEmpty() && !m_marksAsShown) {
        console::complain(m_files.names.front(),
                          tr("nothing written: what does not show what it was given is marked "
                             "with --as-shown alone"));
        return console::Failed;
    }
    const bool written = m_job.write(marks.graph, m_job.outputs, progress, marks.units);
    return finish(written, marks.before, marks.after);
}

/** Pieces of drawings at true size, each marked with its own pen. */
int MarkCommand::markForeignFiles(Progress &progress)
{
    ZTFillParam fill;
    fill.fillType = m_job.options.hatch;
    fill.spac = m_job.options.spacingMm;
    fill.angle = m_job.options.angleDeg;
    m_foreign.options.fill = fill;
    OpenedDrawing drawing;
    const bool isWhole = m_foreign.import(m_files.names, drawing.document, progress);
    if (drawing.items().isEmpty()) {
        progress.finish();
        return console::Failed;
    }
    progress.begin(tr("ordering"));
    hostkit::DrawingMarks marks = hostkit::drawingMarks(drawing.document, m_job.options.order);
    // The order follows the outlines also where they are not marked.
    if (!m_job.options.outline) {
        for (ZTMarkObject &object : marks.graph.objects)
            object.lines.clear();
        marks.before = marks.after = hostkit::measureMarkPath(marks.graph, marks.units);
    }
    const bool written = m_job.write(marks.graph, m_job.outputs, progress, marks.units);
    progress.finish();
    // A foreign drawing knows no work area: that it reaches out of the usual one is no fault.
    marks.findings.outside.clear();
    for (const QString &sentence : hostkit::describeFindings(marks.findings))
        console::complain(tr("warning: %1").arg(sentence).toStdString());
    m_job.warnOfEmptyHatch(marks.after);
    return finish(written && isWhole, marks.before, marks.after);
}

int MarkCommand::finish(bool written, const hostkit::MarkPathMeasure &before,
                        const hostkit::MarkPathMeasure &after) const
{
    if (!m_job.quiet)
        JobArguments::printSummary(before, after);
    const bool printed = console::finishOutput();
    return written && printed ? console::Done : console::Failed;
}

bool MarkCommand::build(const PlotterFiles::Drawings &drawings, hostkit::MarkJobResult *result,
                        Progress &progress)
{
    m_job.options.progress = [&progress](const QString &step) { progress.begin(step); };
    hostkit::MarkJobError error;
    const bool built = hostkit::buildMarkJob(drawings, m_job.options, result, &error);
    m_job.options.progress = nullptr;
    if (built)
        return true;
    progress.finish();
    if (error.drawing >= 0)
        console::complain(m_files.names[static_cast<size_t>(error.drawing)], error.reason);
    else
        console::complain(error.reason.toStdString());
    return false;
}
