#include <studio/drawing/DrawingFiles.h>
#include <studio/window/Editor.h>
#include <studio/window/MainWindow.h>

#include <hostkit/setup/Factories.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>
#include <QtWidgets/QApplication>

#include <benchmark/benchmark.h>

namespace {

constexpr double kPitchPx = 60.0;
constexpr int kColumns = 400;

/** The studio's window with mixed shapes in it, and a folder for their drawing. */
class Studio
{
public:
    explicit Studio(int shapes)
    {
        constexpr ShapeType kKinds[] = {ShapeType::Rect, ShapeType::Ellipse, ShapeType::Polygon,
                                        ShapeType::Line};
        window.resize(1400, 900);
        window.show();
        for (int i = 0; i < shapes; ++i) {
            ZTAbstractGraphicsItem *item =
                window.document().itemMag()->addShape(kKinds[i % 4], {0, 0, 10, 10});
            item->setPos((i % kColumns) * kPitchPx, (i / kColumns) * kPitchPx);
        }
        window.fitAll();
        QApplication::processEvents();
        isGood = window.editor().files().saveTo(path());
    }

    QString path() const { return folder.filePath(QStringLiteral("drawing.ztd")); }

    QTemporaryDir folder;
    studio::MainWindow window;
    bool isGood = false;
};

/** From the file to a window that shows the drawing, and showed an empty one before. */
void openToPainted(benchmark::State &state)
{
    Studio studio(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        state.PauseTiming();
        studio.window.editor().files().startNew();
        QApplication::processEvents();
        state.ResumeTiming();
        if (!studio.isGood || !studio.window.editor().files().load(studio.path()))
            state.SkipWithError("not opened");
        QApplication::processEvents();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void save(benchmark::State &state)
{
    Studio studio(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        if (!studio.window.editor().files().saveTo(studio.path()))
            state.SkipWithError("not saved");
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

/** How long an autosave keeps the window from working. */
void snapshot(benchmark::State &state, bool withPreview)
{
    Studio studio(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        hostkit::DrawingFile file;
        hostkit::Failure error;
        if (!studio.window.editor().files().session().capture(withPreview, &file, &error))
            state.SkipWithError("not taken");
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

BENCHMARK(openToPainted)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(save)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(snapshot, plain, false)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(snapshot, preview, true)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const QTemporaryDir settings;
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path());
    QCoreApplication::setOrganizationName(QStringLiteral("bench"));
    hostkit::registerFactories();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
