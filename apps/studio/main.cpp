#include <studio/Headless.h>
#include <studio/drawing/CrashGuard.h>
#include <studio/program/Messages.h>
#include <studio/window/Editor.h>
#include <studio/window/MainWindow.h>

#include <common/CommandTable.h>

#include <codekit/shape/CodeItem.h>
#include <hostkit/setup/Factories.h>
#include <hostkit/text/FontPlaces.h>
#include <jobkit/items/HatchedItems.h>

#include <CLI/CLI.hpp>

#include <QtCore/QDir>
#include <QtWidgets/QApplication>

#include <cstdio>

namespace {

struct Options
{
    std::string drawing;
    std::string outFolder = "out";
    bool headless = false;
    bool sample = false;
    bool listRecovery = false;
    bool outside = false;
    bool asShown = false;
};

void describe(CLI::App &app, Options &options)
{
    app.set_version_flag("--version", "ztstudio " ZT_VERSION);
    app.add_option("FILE", options.drawing,
                   "Drawing (.ztd) to open, or SVG, DXF or plotter drawing to import")
        ->type_name("");
    app.add_flag("--sample", options.sample, "Open the sample drawing");
    app.add_flag("--headless", options.headless,
                 "Open no window: render it to a picture, write the mark data, and end.\n"
                 "Without a display this is what happens anyway; without FILE it takes\n"
                 "the sample drawing");
    app.add_flag("--list-recovery", options.listRecovery,
                 "List the drawings that can be recovered, and end: name, time, shapes, file");
    app.add_flag("--outside", options.outside,
                 "With --headless: write mark data also where shapes reach out of the work area");
    app.add_flag("--as-shown", options.asShown,
                 "With --headless: write mark data also of shapes that do not show what they\n"
                 "were given, such as a code that cannot hold its content");
    app.add_option("--out", options.outFolder, "Folder for what --headless writes")
        ->type_name("DIR")
        ->capture_default_str();
    console::addTableOptions(&app, "ztstudio " ZT_VERSION);
}

bool hasDisplay()
{
    return !qEnvironmentVariableIsEmpty("DISPLAY") ||
           !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

QString fromArgument(const std::string &text)
{
    return QString::fromLocal8Bit(text.data(), static_cast<int>(text.size()));
}

/** Passes messages on, but for what the offscreen platform says of any window with a least size. */
void tellMessage(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (!text.startsWith(QLatin1String("This plugin does not support")))
        std::fprintf(stderr, "%s\n", qPrintable(qFormatLogMessage(type, context, text)));
}

int runWindow(const Options &options)
{
    studio::MainWindow window;
    window.show();
    if (!options.drawing.empty())
        window.editor().offerFile(fromArgument(options.drawing));
    else if (options.sample)
        window.addSample();
    window.guardAgainstCrashes(studio::CrashGuardSetup::ofUser());
    return QApplication::exec();
}

int runWithoutDisplay(const Options &options)
{
    studio::MainWindow window(std::make_unique<studio::ConsoleMessages>());
    return studio::runHeadless(window,
                               {fromArgument(options.drawing), fromArgument(options.outFolder),
                                options.outside, options.asShown});
}

} // namespace

int main(int argc, char *argv[])
{
    Options options;
    CLI::App app("Draws what a laser marks, and hands out the mark paths.", "ztstudio");
    describe(app, options);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError &error) {
        return app.exit(error) == 0 ? 0 : 2;
    }
    options.headless = options.headless || options.listRecovery || !hasDisplay();
    if (options.headless) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        qInstallMessageHandler(&tellMessage);
    }

    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QCoreApplication::setOrganizationName(QStringLiteral("ZTDrawEngineLib"));
    QCoreApplication::setApplicationName(QStringLiteral("ztstudio"));
    QCoreApplication::setApplicationVersion(QStringLiteral(ZT_VERSION));
    const QApplication application(argc, argv);
    QGuiApplication::setDesktopFileName(QStringLiteral("ztstudio"));
    jobkit::registerHatchedFactories();
    hostkit::registerFactories();
    codekit::registerCodeFactories();
    hostkit::addFontFolders();
    if (options.listRecovery)
        return studio::listRecovery(studio::RecoveryStore::defaultFolder());
    return options.headless ? runWithoutDisplay(options) : runWindow(options);
}
