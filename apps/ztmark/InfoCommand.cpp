#include "InfoCommand.h"

#include "Console.h"
#include "DrawingInfo.h"
#include "ForeignFiles.h"
#include "InfoRows.h"
#include "Progress.h"

#include <hostkit/marks/DrawingInput.h>

using inforows::printRow;
using inforows::rounded;

namespace {

void printLines(const QString &name, int count, const QVector<PltProblem> &listed)
{
    printRow(name, QString::number(count));
    for (const PltProblem &problem : listed)
        console::print(QStringLiteral("  ") + hostkit::DrawingInput::describe(problem));
}

void printMore(int count, int listed)
{
    if (count > listed)
        console::print(QStringLiteral("  ") + InfoCommand::tr("and %1 more").arg(count - listed));
}

void printReport(const PltReport &report)
{
    printRow(InfoCommand::tr("Lines:"), QString::number(report.lines));
    printRow(InfoCommand::tr("Pen-up lines:"), QString::number(report.penUpLines));
    printRow(InfoCommand::tr("Pen-down lines:"), QString::number(report.penDownLines));
    printRow(InfoCommand::tr("Points:"), QString::number(report.points));
    printRow(InfoCommand::tr("Polylines:"), QString::number(report.polylines));
    const QRectF box = report.extent;
    if (report.points > 0)
        printRow(InfoCommand::tr("Plotter units:"),
                 InfoCommand::tr("x %1 to %2, y %3 to %4")
                     .arg(rounded(box.left()), rounded(box.right()), rounded(box.top()),
                          rounded(box.bottom())));
}

void printSize(const QSizeF &sizeMm)
{
    printRow(InfoCommand::tr("Size as imported:"),
             InfoCommand::tr("%1 x %2 mm").arg(rounded(sizeMm.width()), rounded(sizeMm.height())));
}

void printLosses(const PltReport &report)
{
    printLines(InfoCommand::tr("Skipped lines:"), report.skippedLines, report.skipped);
    printLines(InfoCommand::tr("Ill-formed lines:"), report.illFormedLines, report.problems);
    printMore(report.illFormedLines, report.problems.size());
}

} // namespace

InfoCommand::InfoCommand(CLI::App &app)
    : Command(
          app, "info",
          tr("Tell what is in a drawing, or in a plotter drawing and what of it is lost on import"))
{
    m_command
        ->add_option("FILE", m_file,
                     tr("Drawing, .ztd, or plotter drawing; - reads standard input").toStdString())
        ->required()
        ->type_name("");
    m_fonts.addOption(m_command);
    m_command->footer(tr("Skipped lines are no pen moves and change nothing. Ill-formed lines are "
                         "pen moves\nthat lose something: mend them in the file.")
                          .toStdString());
}

int InfoCommand::run()
{
    if (!OpenedDrawing::isNamed(m_file) && ForeignFiles::isNamed(m_file)) {
        const bool isRead = ForeignFiles::describe(m_file);
        return console::finishOutput() && isRead ? console::Done : console::Failed;
    }
    return OpenedDrawing::isNamed(m_file) ? describeDrawing() : describePlotterFile();
}

int InfoCommand::describeDrawing() const
{
    Progress progress(true);
    OpenedDrawing drawing;
    if (!m_fonts.makeKnown() || !drawing.open(m_file, progress))
        return console::Failed;
    progress.finish();
    DrawingInfo(drawing).print();
    return console::finishOutput() ? console::Done : console::Failed;
}

int InfoCommand::describePlotterFile() const
{
    hostkit::DrawingInput drawing;
    QString error;
    const bool drawable = drawing.open(QString::fromStdString(m_file), &error);
    if (drawing.report().lines > 0) {
        printReport(drawing.report());
        if (drawable)
            printSize(drawing.sizeMm());
        printLosses(drawing.report());
    }
    const bool printed = console::finishOutput();
    if (!drawable)
        console::complain(m_file, error);
    return drawable && printed ? console::Done : console::Failed;
}
