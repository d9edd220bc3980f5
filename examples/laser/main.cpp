// A host with a simulated laser: a red light runs over the drawing in the machine's own time, along
// the very plan that a machine would be given. laser DRAWING; with --once as a second argument in
// no time at all, for a test.

#include <codekit/shape/CodeItem.h>
#include <hostkit/drawing/DrawingLoader.h>
#include <hostkit/setup/Factories.h>
#include <hostkit/text/FontPlaces.h>
#include <jobkit/items/HatchedItems.h>
#include <jobkit/marks/DrawingPens.h>
#include <jobkit/marks/MarkGraphItems.h>
#include <jobkit/plan/JobTimes.h>
#include <jobkit/values/MachineProfile.h>

#include <QtCore/QElapsedTimer>
#include <QtCore/QTextStream>
#include <QtCore/QTimer>
#include <QtGui/QPen>
#include <QtWidgets/QApplication>
#include <QtWidgets/QGraphicsEllipseItem>

namespace {

constexpr double kSpotPx = 12.0;
constexpr int kFrameMs = 16;

/** The red light: on the scene, but no shape of the drawing. */
class Spot : public QGraphicsEllipseItem
{
public:
    Spot() : QGraphicsEllipseItem(-kSpotPx / 2, -kSpotPx / 2, kSpotPx, kSpotPx)
    {
        setPen(QPen(Qt::red, 2.0));
        setFlag(ItemIgnoresTransformations);
        setZValue(1e9); // above all shapes
    }

    /** Frame of the plan: millimetres, (0, 0) in the middle of the field, as the scene has it. */
    void follow(const jobkit::HeadPlace &head)
    {
        const ZTCoord *coord = ZTCoord::getInstance();
        setPos(coord->mm2pix(head.pointMm.x()), coord->mm2pix(head.pointMm.y()));
        setBrush(head.isMarking ? QBrush(Qt::red) : QBrush(Qt::NoBrush));
    }
};

bool open(const QString &path, ZTGraphicsDocument &document, hostkit::Failure *failure)
{
    hostkit::DrawingFile drawing;
    hostkit::DrawingReport report;
    if (!hostkit::readDrawing(path, &drawing, failure) ||
        !hostkit::applyDrawing(drawing, document, {}, &report, failure))
        return false;
    const QStringList missing = report.missingFonts + QStringList(report.unknownKinds.keys());
    if (!missing.isEmpty())
        QTextStream(stderr) << "warning: missing here, and not run over as drawn: "
                            << missing.join(QStringLiteral(", ")) << '\n';
    return true;
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    jobkit::registerHatchedFactories(); // all hatches of a shape, not the first alone
    hostkit::registerFactories();
    codekit::registerCodeFactories();
    hostkit::addFontFolders(); // stroke fonts
    ZTGraphicsDocument document;
    hostkit::Failure failure;
    if (!open(QApplication::arguments().value(1), document, &failure)) {
        QTextStream(stderr) << failure.reason << '\n';
        return 1;
    }

    const QVector<jobkit::Pen> pens = jobkit::drawingPens(document);
    jobkit::JobPlan plan = jobkit::planOf(jobkit::itemsOfDrawing(document), pens);
    jobkit::layOutPasses(&plan, jobkit::PassOrder::WholeJob);
    jobkit::MachineProfile machine;
    jobkit::profileOnBoard(QStringLiteral("galvo-fiber"), &machine);
    const jobkit::JobTimes times = jobkit::jobTimes(plan, pens, machine);

    Spot spot;
    document.itemMag()->scene()->addItem(&spot);
    const bool isTest = QApplication::arguments().value(2) == QLatin1String("--once");
    QElapsedTimer clock;
    QTimer frame;
    QObject::connect(&frame, &QTimer::timeout, [&] {
        const double end = times.all.totalS();
        const double now = isTest ? end : std::min(end, clock.elapsed() / 1000.0);
        spot.follow(jobkit::headAt(plan, times, now));
        if (now < end)
            return;
        frame.stop();
        QTextStream(stdout) << plan.pieces.size() << " pieces marked in "
                            << QString::number(end, 'f', 2) << " s\n";
        if (isTest)
            QApplication::quit();
    });
    document.show();
    clock.start();
    frame.start(kFrameMs);
    const int result = QApplication::exec();
    document.itemMag()->scene()->removeItem(&spot);
    return result;
}
