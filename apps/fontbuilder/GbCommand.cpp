#include "GbCommand.h"

#include "FontOutput.h"

#include <common/Console.h>
#include <fontkit/GbStrokesFont.h>

GbCommand::GbCommand(CLI::App &app)
    : Command(app, "gb", tr("Make the Chinese big font from stroke medians"))
{
    addFile("DIR", m_data, tr("Folder with the .json files of hanzi-writer-data"));
    m_command
        ->add_option("--hershey", m_hershey,
                     tr("Folder with the .jhf files, for full-width forms").toStdString())
        ->capture_default_str()
        ->type_name("DIR");
    m_command
        ->add_option("-o,--output", m_output, tr("Folder to write the font into").toStdString())
        ->required()
        ->type_name("FOLDER");
}

int GbCommand::run()
{
    fontkit::GbStrokesFont maker(fontkit::DataFolder(QByteArray::fromStdString(m_data)),
                                 fontkit::DataFolder(QByteArray::fromStdString(m_hershey)));
    fontkit::FontFile font;
    QString error;
    if (!maker.make(&font, &error)) {
        console::complain(error.toStdString());
        return console::Failed;
    }
    return writeFontTo(m_output, fontkit::GbStrokesFont::fileName(), font) ? console::Done
                                                                           : console::Failed;
}
