#include "CompileCommand.h"
#include "DecompileCommand.h"
#include "GbCommand.h"
#include "HersheyCommand.h"
#include "InfoCommand.h"

#include <common/CommandLine.h>
#include <common/Language.h>

#include <QtCore/QCoreApplication>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(fontbuilder)
};

} // namespace

static void initializeCatalogue() { Q_INIT_RESOURCE(fontbuilder_zh); }

int main(int argc, char **argv)
{
    console::makeIndependent();
    int onlyName = 1;
    const QCoreApplication application(onlyName, argv);
    initializeCatalogue();
    language::choose(argc, argv, {QStringLiteral("fontbuilder_zh")});

    console::CommandLine line("fontbuilder", ZT_VERSION,
                              Texts::tr("Makes stroke fonts from source text or free data, and "
                                        "source text from stroke fonts."));
    line.add<CompileCommand>();
    line.add<DecompileCommand>();
    line.add<InfoCommand>();
    line.add<HersheyCommand>();
    line.add<GbCommand>();
    return line.run(argc, argv);
}
