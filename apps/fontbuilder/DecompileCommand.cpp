#include "DecompileCommand.h"

#include "FontFiles.h"

#include <common/Console.h>
#include <fontkit/FontSource.h>

DecompileCommand::DecompileCommand(CLI::App &app)
    : Command(app, "decompile", tr("Make the source text of a font file"))
{
    addFile("FONT", m_font, tr("Font file; - reads standard input"));
    m_command
        ->add_option("-o,--output", m_output,
                     tr("Source text to write instead of standard output").toStdString())
        ->type_name("SOURCE");
}

int DecompileCommand::run()
{
    if (fontfiles::isSame(m_font, m_output))
        return console::WrongUsage;
    const auto content = fontfiles::readFont(m_font);
    if (!content)
        return console::Failed;
    return fontfiles::write(m_output, fontkit::decompileFont(*content)) ? console::Done
                                                                        : console::Failed;
}
