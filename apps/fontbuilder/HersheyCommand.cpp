#include "HersheyCommand.h"

#include "FontOutput.h"

#include <common/Console.h>
#include <fontkit/HersheyFonts.h>

HersheyCommand::HersheyCommand(CLI::App &app)
    : Command(app, "hershey", tr("Make the regular fonts from the Hershey data"))
{
    addFile("DIR", m_data, tr("Folder with the .jhf files"));
    m_command
        ->add_option("-o,--output", m_output, tr("Folder to write the fonts into").toStdString())
        ->required()
        ->type_name("FOLDER");
}

int HersheyCommand::run()
{
    fontkit::HersheyFonts fonts{fontkit::DataFolder(QByteArray::fromStdString(m_data))};
    for (const QString &name : fontkit::HersheyFonts::fileNames()) {
        fontkit::FontFile font;
        QString error;
        if (!fonts.make(name, &font, &error)) {
            console::complain(error.toStdString());
            return console::Failed;
        }
        if (!writeFontTo(m_output, name, font))
            return console::Failed;
    }
    return console::Done;
}
