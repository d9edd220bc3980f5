#include "InfoCommand.h"

#include "Console.h"

#include <hostkit/DrawingInput.h>
#include <hostkit/NumberText.h>

#include <CLI/CLI.hpp>

namespace {

QString rounded(double value)
{
    QByteArray text;
    hostkit::appendRounded(text, value, 3);
    return QString::fromLatin1(text);
}

void printRow(const QString &name, const QString &value)
{
    console::print(QStringLiteral("%1 %2").arg(name, -18).arg(value));
}

void printLines(const QString &name, int count, const QVector<PltProblem> &listed)
{
    printRow(name, QString::number(count));
    for (const PltProblem &problem : listed)
        console::print(QStringLiteral("  ") + hostkit::DrawingInput::describe(problem));
}

void printMore(int count, int listed)
{
    if (count > listed)
        console::print(QStringLiteral("  and %1 more").arg(count - listed));
}

void printReport(const PltReport &report)
{
    printRow(QStringLiteral("Lines:"), QString::number(report.lines));
    printRow(QStringLiteral("Pen-up lines:"), QString::number(report.penUpLines));
    printRow(QStringLiteral("Pen-down lines:"), QString::number(report.penDownLines));
    printRow(QStringLiteral("Points:"), QString::number(report.points));
    printRow(QStringLiteral("Polylines:"), QString::number(report.polylines));
    const QRectF box = report.extent;
    if (report.points > 0)
        printRow(QStringLiteral("Plotter units:"),
                 QStringLiteral("x %1 to %2, y %3 to %4")
                     .arg(rounded(box.left()), rounded(box.right()), rounded(box.top()),
                          rounded(box.bottom())));
}

void printSize(const QSizeF &sizeMm)
{
    printRow(QStringLiteral("Size as imported:"),
             QStringLiteral("%1 x %2 mm").arg(rounded(sizeMm.width()), rounded(sizeMm.height())));
}

void printLosses(const PltReport &report)
{
    printLines(QStringLiteral("Skipped lines:"), report.skippedLines, report.skipped);
    printLines(QStringLiteral("Ill-formed lines:"), report.illFormedLines, report.problems);
    printMore(report.illFormedLines, report.problems.size());
}

} // namespace

InfoCommand::InfoCommand(CLI::App &app)
    : command(app.add_subcommand("info", "Tell what is in a plotter drawing, and what of it is "
                                         "lost on import"))
{
    command->add_option("FILE", file, "Plotter drawing; - reads standard input")
        ->required()
        ->type_name("");
    command->footer("Skipped lines are no pen moves and change nothing. Ill-formed lines are pen "
                    "moves\nthat lose something: mend them in the file.");
}

bool InfoCommand::isChosen() const { return command->parsed(); }

int InfoCommand::run()
{
    hostkit::DrawingInput drawing;
    QString error;
    const bool drawable = drawing.open(QString::fromStdString(file), &error);
    if (drawing.report().lines > 0) {
        printReport(drawing.report());
        if (drawable)
            printSize(drawing.sizeMm());
        printLosses(drawing.report());
    }
    const bool printed = console::finishOutput();
    if (!drawable)
        console::complain(file, error);
    return drawable && printed ? console::Done : console::Failed;
}
