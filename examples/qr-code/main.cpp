// The shortest host that marks a QR code: qr-code TEXT FILE.nc shows the code and writes what the
// machine runs; with --once as a third argument it ends there.

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <codekit/shape/CodeItem.h>
#include <hostkit/items/ItemPlace.h>
#include <hostkit/items/MarkReadiness.h>
#include <hostkit/setup/Factories.h>
#include <jobkit/marks/DrawingPens.h>
#include <jobkit/marks/MarkGraphItems.h>
#include <jobkit/plan/JobOrder.h>
#include <jobkit/values/MachineProfile.h>
#include <jobkit/writers/JobWriter.h>

#include <QtCore/QTextStream>
#include <QtWidgets/QApplication>

namespace {

/** A QR code with modules of half a millimetre, hatched every tenth; its middle at (0, 0). */
codekit::CodeItem *addCode(ZTGraphicsDocument &document, const QString &text)
{
    codekit::CodeItem *code = codekit::codeItem(
        document.itemMag()->addShape(ShapeType::QRCode, QRectF(0.0, 0.0, 10.0, 10.0)));
    codekit::CodeSettings settings = code->settings();
    settings.spec.kind = codekit::CodeKind::Qr;
    settings.form.moduleMm = 0.5;
    code->setCode(settings, text);
    hostkit::moveMiddleTo(*code, QPointF(0.0, 0.0));
    code->setFillParam({FillType::Line, 0.1, 0.0, true});
    return code;
}

/** What the machine is to do, for a laser on a gantry that runs G-code. */
jobkit::JobFile jobOf(ZTGraphicsDocument &document)
{
    jobkit::JobFile job;
    jobkit::profileOnBoard(QStringLiteral("grbl-diode"), &job.profile);
    job.pens = jobkit::drawingPens(document);
    jobkit::JobPlan plan = jobkit::planOf(jobkit::itemsOfDrawing(document), job.pens);
    jobkit::orderPlan(&plan, {});
    jobkit::layOutPasses(&plan, jobkit::PassOrder::WholeJob);
    job.parts = {plan};
    return job;
}

} // namespace

int main(int argc, char **argv)
{
    const QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    hostkit::registerFactories();
    codekit::registerCodeFactories();
    ZTGraphicsDocument document;

    const codekit::CodeItem *code = addCode(document, arguments.value(1));
    hostkit::Failure failure;
    failure.reason = hostkit::notReadyReason(*code); // of a text that the code cannot hold
    if (!failure.reason.isEmpty() ||
        !jobkit::saveJob(jobkit::JobForm::Gcode, jobOf(document), arguments.value(2), &failure)) {
        QTextStream(stderr) << failure.reason << '\n'; // nothing was written
        return 1;
    }
    const codekit::CodeSymbol &symbol = code->code().symbol();
    QTextStream(stdout) << symbol.columns << " x " << symbol.rows << " modules, "
                        << symbol.columns * code->moduleMm() << " mm wide\n";
    document.show();
    return arguments.value(3) == QLatin1String("--once") ? 0 : QApplication::exec();
}
