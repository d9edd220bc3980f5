#include "CompileCommand.h"

#include "FontFiles.h"

#include <common/Console.h>
#include <fontkit/FontSource.h>

CompileCommand::CompileCommand(CLI::App &app)
    : Command(app, "compile", tr("Make a font file from its source text"))
{
    addFile("SOURCE", m_source, tr("Source text of a font; - reads standard input"));
    m_command
        ->add_option("-o,--output", m_output,
                     tr("Font file to write; - for standard output").toStdString())
        ->required()
        ->type_name("FONT");
    m_command->footer(
        tr("docs/formats/font-source.md tells how a source is written; decompile shows it "
           "of any font.")
            .toStdString());
}

int CompileCommand::run()
{
    if (fontfiles::isSame(m_source, m_output))
        return console::WrongUsage;
    const auto text = fontfiles::read(m_source);
    if (!text)
        return console::Failed;
    QString error;
    const auto font = fontkit::compileFont(*text, &error);
    const QByteArray bytes = font ? fontkit::writeFont(*font, &error) : QByteArray();
    if (bytes.isEmpty()) {
        console::complain(m_source, error);
        return console::Failed;
    }
    return fontfiles::write(m_output, bytes) ? console::Done : console::Failed;
}
