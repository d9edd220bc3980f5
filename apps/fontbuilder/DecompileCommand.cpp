#include "DecompileCommand.h"

#include "FontFiles.h"

#include <common/Console.h>
#include <fontkit/FontSource.h>

DecompileCommand::DecompileCommand(CLI::App &app)
    : Command(app, "decompile", tr("Make the source text of a font file"))
{
    addFile("FONT", font, tr("Font file; - reads standard input"));
    command
        ->add_option("-o,--output", output,
                     tr("Source text to write instead of standard output").toStdString())
        ->type_name("SOURCE");
}

int DecompileCommand::run()
{
    if (fontfiles::isSame(font, output))
        return console::WrongUsage;
    const auto content = fontfiles::readFont(font);
    if (!content)
        return console::Failed;
    return fontfiles::write(output, fontkit::decompileFont(*content)) ? console::Done
                                                                      : console::Failed;
}
