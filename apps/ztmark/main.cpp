#include "InfoCommand.h"
#include "MarkCommand.h"

#include <common/CommandLine.h>
#include <common/Console.h>

#include <hostkit/Factories.h>

#include <QtWidgets/QApplication>

int main(int argc, char **argv)
{
    CLI::App app("Turns plotter drawings into hatched, ordered mark paths.", "ztmark");
    MarkCommand mark(app);
    InfoCommand info(app);
    if (const auto ended = console::parse(app, argc, argv))
        return *ended;

    console::makeIndependent();
    qputenv("QT_QPA_PLATFORM", "offscreen");
    int onlyName = 1;
    const QApplication application(onlyName, argv);
    hostkit::registerFactories();
    return info.isChosen() ? info.run() : mark.run();
}
