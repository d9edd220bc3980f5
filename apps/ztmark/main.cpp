#include "CodeCommand.h"
#include "ConvertCommand.h"
#include "FontCommand.h"
#include "InfoCommand.h"
#include "JobCommand.h"
#include "MarkCommand.h"
#include "ProfileCommand.h"
#include "RenderCommand.h"
#include "TextCommand.h"

#include <common/CommandLine.h>
#include <common/Language.h>

#include <codekit/shape/CodeItem.h>
#include <hostkit/setup/Factories.h>
#include <hostkit/text/FontPlaces.h>
#include <jobkit/items/HatchedItems.h>

#include <QtWidgets/QApplication>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(ztmark)
};

} // namespace

static void initializeCatalogues()
{
    Q_INIT_RESOURCE(ztmark_zh);
    Q_INIT_RESOURCE(hostkit_zh);
    Q_INIT_RESOURCE(vectorkit_zh);
    Q_INIT_RESOURCE(codekit_zh);
    Q_INIT_RESOURCE(jobkit_zh);
}

int main(int argc, char **argv)
{
    console::makeIndependent();
    qputenv("QT_QPA_PLATFORM", "offscreen");
    int onlyName = 1;
    const QApplication application(onlyName, argv);
    initializeCatalogues();
    language::choose(argc, argv,
                     {QStringLiteral("ZTDrawEngineLib_zh"), QStringLiteral("hostkit_zh"),
                      QStringLiteral("vectorkit_zh"), QStringLiteral("codekit_zh"),
                      QStringLiteral("jobkit_zh"), QStringLiteral("ztmark_zh")});
    jobkit::registerHatchedFactories();
    hostkit::registerFactories();
    codekit::registerCodeFactories();
    hostkit::addFontFolders();

    console::CommandLine line(
        "ztmark", ZT_VERSION,
        Texts::tr(
            "Turns drawings, SVG, DXF and plotter files and texts into mark paths and jobs."));
    line.add<MarkCommand>();
    line.add<TextCommand>();
    line.add<CodeCommand>();
    line.add<FontCommand>();
    line.add<InfoCommand>();
    line.add<RenderCommand>();
    line.add<ConvertCommand>();
    line.add<JobCommand>();
    line.add<ProfileCommand>();
    return line.run(argc, argv);
}
