#include "CompileCommand.h"
#include "DecompileCommand.h"
#include "GbCommand.h"
#include "HersheyCommand.h"
#include "InfoCommand.h"

#include <common/CommandLine.h>
#include <common/Console.h>

#include <algorithm>
#include <iterator>

int main(int argc, char **argv)
{
    CLI::App app(
        "Makes stroke fonts from source text or free data, and source text from stroke fonts.",
        "fontbuilder");
    CompileCommand compile(app);
    DecompileCommand decompile(app);
    InfoCommand info(app);
    HersheyCommand hershey(app);
    GbCommand gb(app);
    Command *const commands[] = {&compile, &decompile, &info, &hershey, &gb};

    if (const auto ended = console::parse(app, argc, argv))
        return *ended;
    console::makeIndependent();
    const auto *chosen = std::find_if(std::begin(commands), std::end(commands),
                                      [](const Command *command) { return command->isChosen(); });
    return (*chosen)->run();
}
