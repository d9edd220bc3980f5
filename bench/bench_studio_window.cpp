// The whole window with thousands of shapes selected: an edit in the panel, and a drag of all.

#include <studio/measures/MeasureField.h>
#include <studio/panel/ShapePanel.h>
#include <studio/program/Messages.h>
#include <studio/shapes/ShapeItems.h>
#include <studio/window/MainWindow.h>
#include <studio/window/ViewNavigation.h>

#include <codekit/shape/CodeItem.h>
#include <hostkit/setup/Factories.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QApplication>

#include <benchmark/benchmark.h>

#include <memory>

namespace {

constexpr int kInRow = 100;
constexpr double kPitchPx = 10.0;
constexpr double kSideMm = 1.5;

/** A window on a drawing of many small squares, all selected and in sight. */
class Window
{
public:
    explicit Window(int count) : m_window(std::make_unique<studio::ConsoleMessages>())
    {
        ZTGraphicsDocument &document = m_window.document();
        for (int i = 0; i < count; ++i) {
            studio::ShapeItem *item =
                document.itemMag()->addShape(ShapeType::Rect, {0, 0, kSideMm, kSideMm});
            item->setPos((i % kInRow - kInRow / 2) * kPitchPx, (i / kInRow) * kPitchPx);
        }
        m_window.resize(1280, 820);
        m_window.show();
        studio::selectOnly(*document.scene(), studio::shapeItemsOf(*document.scene()));
        m_window.fitAll();
        settle();
    }

    void typeWidth(const QString &text)
    {
        auto *field =
            m_window.panel().findChild<studio::MeasureField *>(QStringLiteral("panel.width"));
        field->setText(text);
        field->commit();
        settle();
    }

    void mouse(QEvent::Type type, const QPoint &pos)
    {
        QWidget *viewport = m_window.document().view()->viewport();
        const bool isMove = type == QEvent::MouseMove;
        QMouseEvent event(
            type, pos, viewport->mapToGlobal(pos), isMove ? Qt::NoButton : Qt::LeftButton,
            type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(viewport, &event);
        settle();
    }

    void repaint()
    {
        m_window.document().view()->viewport()->update();
        settle();
    }

    QPoint middle() { return m_window.document().view()->viewport()->rect().center(); }

    static void settle()
    {
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
    }

private:
    studio::MainWindow m_window;
};

/** From Return in the width field to a window that shows what came of it. */
void BM_panelEdit(benchmark::State &state)
{
    Window window(static_cast<int>(state.range(0)));
    bool isWide = false;
    for (auto step : state) {
        benchmark::DoNotOptimize(step);
        isWide = !isWide;
        window.typeWidth(isWide ? QStringLiteral("1.6") : QStringLiteral("1.4"));
    }
}
BENCHMARK(BM_panelEdit)->Arg(10000)->Unit(benchmark::kMillisecond);

/** The whole canvas painted once: the floor under what an edit of them all can take. */
void BM_repaint(benchmark::State &state)
{
    Window window(static_cast<int>(state.range(0)));
    for (auto step : state) {
        benchmark::DoNotOptimize(step);
        window.repaint();
    }
}
BENCHMARK(BM_repaint)->Arg(0)->Arg(10000)->Unit(benchmark::kMillisecond);

/** One move of the mouse that drags them all, painted. */
void BM_dragMove(benchmark::State &state)
{
    Window window(static_cast<int>(state.range(0)));
    const QPoint start = window.middle();
    window.mouse(QEvent::MouseButtonPress, start);
    window.mouse(QEvent::MouseMove, start + QPoint(20, 0));
    int way = 0;
    for (auto step : state) {
        benchmark::DoNotOptimize(step);
        way = way == 20 ? 25 : 20;
        window.mouse(QEvent::MouseMove, start + QPoint(way, way));
    }
    window.mouse(QEvent::MouseButtonRelease, start + QPoint(way, way));
}
BENCHMARK(BM_dragMove)->Arg(10000)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const QTemporaryDir settings;
    QCoreApplication::setOrganizationName(QStringLiteral("bench"));
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path());
    hostkit::registerFactories();
    codekit::registerCodeFactories();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
