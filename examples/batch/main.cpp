// A batch program: each drawing given becomes a G-code file beside it, and a line says how long the
// machine takes. Nothing is shown: start it with QT_QPA_PLATFORM=offscreen where there is no
// display.

#include <codekit/shape/CodeItem.h>
#include <hostkit/drawing/DrawingLoader.h>
#include <hostkit/items/PartTexts.h>
#include <hostkit/items/ShapeItems.h>
#include <hostkit/setup/Factories.h>
#include <hostkit/text/FontPlaces.h>
#include <jobkit/items/HatchedItems.h>
#include <jobkit/marks/DrawingPens.h>
#include <jobkit/marks/MarkGraphItems.h>
#include <jobkit/plan/JobOrder.h>
#include <jobkit/plan/JobTimes.h>
#include <jobkit/writers/JobWriter.h>

#include <QtCore/QTextStream>
#include <QtWidgets/QApplication>

namespace {

/** The drawing's marks in the order of the least jumps, with the passes of its pens laid out. */
jobkit::JobPlan planOf(const ZTGraphicsDocument &document, const QVector<jobkit::Pen> &pens)
{
    jobkit::JobPlan plan = jobkit::planOf(jobkit::itemsOfDrawing(document), pens);
    jobkit::orderPlan(&plan, {});
    jobkit::layOutPasses(&plan, jobkit::PassOrder::WholeJob);
    return plan;
}

/** What of a drawing could not be marked here as it was drawn; empty for nothing. */
QString missingIn(const hostkit::DrawingReport &report)
{
    QStringList missing;
    for (const QString &font : report.missingFonts)
        missing << QStringLiteral("font ") + font;
    for (const QString &kind : report.unknownKinds.keys())
        missing << QStringLiteral("shapes of kind ") + kind;
    return missing.join(QStringLiteral(", "));
}

bool makeJob(const QString &drawingPath, const QString &jobPath, hostkit::Failure *failure)
{
    ZTGraphicsDocument document;
    hostkit::DrawingFile drawing;
    hostkit::DrawingReport report;
    if (!hostkit::readDrawing(drawingPath, &drawing, failure) ||
        !hostkit::applyDrawing(drawing, document, {}, &report, failure))
        return false;
    const QString missing = missingIn(report);
    if (!missing.isEmpty()) // a part without them would be a wrong one
        return hostkit::fail(failure, hostkit::Failure::Kind::NotPossible,
                             QStringLiteral("missing here: ") + missing);

    const QStringList unreadable = // lists as they are now, and the date of today
        hostkit::NextPart::again(hostkit::shapeItemsOf(document)).errors;
    if (!unreadable.isEmpty())
        return hostkit::fail(failure, hostkit::Failure::Kind::NotPossible,
                             unreadable.join(QStringLiteral(", ")));

    jobkit::JobFile job;
    jobkit::profileOnBoard(QStringLiteral("grbl-diode"), &job.profile);
    job.pens = jobkit::drawingPens(document);
    job.parts = {planOf(document, job.pens)};
    job.title = drawingPath;
    if (!jobkit::saveJob(jobkit::JobForm::Gcode, job, jobPath, failure))
        return false;
    const double seconds = jobkit::jobTimes(job.parts.first(), job.pens, job.profile).all.totalS();
    QTextStream(stdout) << jobPath << ": " << job.parts.first().pieces.size() << " pieces, "
                        << QString::number(seconds, 'f', 1) << " s\n";
    return true;
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv); // texts need its fonts
    jobkit::registerHatchedFactories();         // all hatches of a shape, not the first alone
    hostkit::registerFactories();
    codekit::registerCodeFactories();
    hostkit::addFontFolders(); // stroke fonts
    int failed = 0;
    for (const QString &path : application.arguments().mid(1)) {
        hostkit::Failure failure;
        if (!makeJob(path, path + QStringLiteral(".nc"), &failure)) {
            QTextStream(stderr) << path << ": " << failure.reason << '\n';
            ++failed; // the others go on
        }
    }
    return failed == 0 ? 0 : 1;
}
