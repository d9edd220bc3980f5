#include "HersheyCommand.h"

#include "FontOutput.h"

#include <common/Console.h>
#include <fontkit/HersheyFonts.h>
#include <fontkit/UnicodeStrokesFont.h>

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
    const fontkit::DataFolder folder(QByteArray::fromStdString(m_data));
    fontkit::HersheyFonts fonts(folder);
    const fontkit::UnicodeStrokesFont unicode(folder);
    const auto write = [this](const QString &name, const auto &make) {
        fontkit::FontFile font;
        QString error;
        if (make(&font, &error))
            return writeFontTo(m_output, name, font);
        console::complain(error.toStdString());
        return false;
    };
    for (const QString &name : fontkit::HersheyFonts::fileNames()) {
        if (!write(name, [&](auto *font, auto *error) { return fonts.make(name, font, error); }))
            return console::Failed;
    }
    const bool isWritten =
        write(fontkit::UnicodeStrokesFont::fileName(),
              [&](auto *font, auto *error) { return unicode.make(font, error); });
    return isWritten ? console::Done : console::Failed;
}
