#include "MarkCommand.h"

#include "Console.h"
#include "OpenedDrawing.h"
#include "Progress.h"
#include "Usage.h"

#include <hostkit/drawing/ExportDirection.h>
#include <hostkit/marks/MarkArrangement.h>
#include <hostkit/marks/MarkGraphBuilder.h>

#include <array>
#include <limits>

namespace {

/** What lays out or hatches foreign drawings, and a drawing has of its own. */
constexpr std::array<const char *, 8> kOnlyForeign{
    "--hatch", "--spacing", "--angle", "--no-outline", "--matrix", "--gap", "--scale", "--rotate"};

} // namespace

MarkCommand::MarkCommand(CLI::App &app)
    : Command(app, "mark", tr("Turn SVG, DXF and plotter drawings, or a drawing, into mark paths")),
      m_job(m_command)
{
    m_files.addOption(m_command);
    m_job.addOutputs();
    m_job.addHatch();
    m_job.addLayout();
    m_job.addScale();
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
           "clockwise. SVG, DXF and plotter drawings come in at true size unless --size, "
           "--width,\n"
           "--height, --unit or --scale says otherwise. Several stand side by side, a gap "
           "apart;\n"
           "one that cannot be read is told, and the others go on. Open outlines are not "
           "hatched\n"
           "unless --fill-open is given. Hatch lines keep their spacing and their angle "
           "whatever the\n"
           "scale and the rotation.\n"
           "\n"
           "--clean join=0.05mm,duplicates,zero joins ends so near to each other, and removes "
           "what\n"
           "is drawn twice or has no length; weld makes one outline of those that overlap, "
           "simplify\n"
           "and arcs save points, order makes the jumps shorter.\n"
           "\n"
           "Limits: drawings of 256 MiB, 1,000,000 objects, 1,000,000 hatch lines over a "
           "drawing,\n"
           "20,000,000 points and hatch segments in all.\n"
           "\n"
           "A drawing, .ztd, is marked as it was saved, in its own order unless --order says "
           "another.\n"
           "Options that lay out, hatch, scale, turn or mend other files are not for it.\n"
           "\n"
           "Examples:\n"
           "  ztmark mark plate.ztd -o plate.json\n"
           "  ztmark mark logo.plt --height 20mm --hatch zigzag --spacing 0.3mm -o logo.svg\n"
           "  ztmark mark part.dxf --clean join=0.05mm,duplicates --marks-only -o part.svg")
            .toStdString());
}

void MarkCommand::checkTogether() const
{
    m_files.checkTogether();
    m_job.checkOutputs();
    if (m_files.isDrawing()) {
        checkDrawing();
    } else {
        m_job.checkTogether();
        m_foreign.checkTogether();
    }
}

void MarkCommand::checkDrawing() const
{
    for (const char *option : kOnlyForeign) {
        if (m_command->get_option(option)->count() > 0)
            usage::refuse(option, tr("not for a drawing, which has its own layout and hatch"));
    }
    if (const char *option = m_foreign.givenOption())
        usage::refuse(option, tr("not for a drawing, which has its own layout and hatch"));
}

int MarkCommand::run()
{
    if (!JobArguments::canWrite(m_job.outputs, {m_files.names, {}}) || !m_fonts.makeKnown())
        return console::Failed;
    Progress progress(!m_job.quiet);
    m_files.readStandardInput(progress);
    if (!m_files.isDrawing())
        return markForeignFiles(progress);
    checkDrawing(); // what standard input holds is known only now
    return markDrawing(progress);
}

int MarkCommand::markDrawing(Progress &progress)
{
    OpenedDrawing drawing;
    if (!drawing.open(m_files, progress) ||
        !JobArguments::canWrite(m_job.outputs, {{}, drawing.textFiles()}))
        return console::Failed;
    progress.begin(tr("ordering"));
    const bool isOrdered = m_command->get_option("--order")->count() > 0;
    hostkit::DrawingMarks marks = hostkit::drawingMarks(
        drawing.document, isOrdered ? std::make_optional(m_job.options.order) : std::nullopt);
    marks.units.isYUp = hostkit::exportsYUp(drawing.document);
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
    ZTGraphicsDocument document;
    ZTShapeManager &manager = *document.itemMag();
    // The scale of a manager is a float, too coarse for paths written to the last digit: the
    // graph leaves it in scene pixels and is brought to mark units afterwards.
    manager.setScale(1.0F, 1.0F);
    const bool isWhole = m_foreign.import(m_files, m_job.options, document, progress);
    if (m_foreign.items.isEmpty()) {
        progress.finish();
        return console::Failed;
    }
    progress.begin(tr("ordering"));
    hostkit::MarkGraphBuilder builder(manager, m_foreign.items, m_job.options.order);
    builder.work(std::numeric_limits<int>::max());
    const hostkit::MarkFindings findings = builder.findings();
    const hostkit::MarkJobResult result = laidOut(builder.takeUnordered());
    const bool written = m_job.write(result.graph, m_job.outputs, progress);
    progress.finish();
    for (const QString &sentence : hostkit::describeFindings(findings))
        console::complain(tr("warning: %1").arg(sentence).toStdString());
    m_job.warnOfEmptyHatch(result.after);
    return finish(written && isWhole, result.before, result.after);
}

/** A graph in scene pixels, in mark units, repeated and ordered. */
hostkit::MarkJobResult MarkCommand::laidOut(ZTMarkGraph graph) const
{
    const hostkit::MarkUnits units = hostkit::MarkUnits::current();
    hostkit::enlargeMarkGraph(&graph, ZTCoord::getInstance()->screen2mark());
    hostkit::repeatMarkGraph(&graph, m_job.options.columns, m_job.options.rows,
                             m_foreign.pitchMm * units.perMm);
    hostkit::MarkJobResult result;
    hostkit::arrangeMarkGraph(std::move(graph), units, m_job.options, &result);
    return result;
}

int MarkCommand::finish(bool written, const hostkit::MarkPathMeasure &before,
                        const hostkit::MarkPathMeasure &after) const
{
    if (!m_job.quiet) {
        m_foreign.printCleaning();
        JobArguments::printSummary(before, after);
    }
    const bool printed = console::finishOutput();
    return written && printed ? console::Done : console::Failed;
}
