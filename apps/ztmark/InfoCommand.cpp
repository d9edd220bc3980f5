#include "InfoCommand.h"

#include "Console.h"
#include "DrawingInfo.h"
#include "ForeignFiles.h"
#include "Progress.h"

InfoCommand::InfoCommand(CLI::App &app)
    : Command(app, "info", tr("Tell what is in a drawing, and what of it cannot be taken in"))
{
    m_files.addSingle(m_command);
    m_fonts.addOption(m_command);
    m_command->footer(
        tr("Of an SVG, DXF or plotter drawing it tells the size and how it was found, "
           "what is left\n"
           "out, changed or damaged, and what mark --clean would mend.")
            .toStdString());
}

int InfoCommand::run()
{
    Progress progress(true);
    m_files.readStandardInput(progress);
    if (m_files.isDrawing())
        return describeDrawing(progress);
    progress.finish();
    const bool isRead = ForeignFiles::describe(m_files);
    return console::finishOutput() && isRead ? console::Done : console::Failed;
}

int InfoCommand::describeDrawing(Progress &progress) const
{
    OpenedDrawing drawing;
    if (!m_fonts.makeKnown() || !drawing.open(m_files, progress))
        return console::Failed;
    progress.finish();
    DrawingInfo(drawing).print();
    return console::finishOutput() ? console::Done : console::Failed;
}
