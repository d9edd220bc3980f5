// Step 9 of the tutorial: a file for a machine, and a laser of one's own.

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <codekit/shape/CodeItem.h>
#include <codekit/shape/CodeSettings.h>

#include <hostkit/drawing/DrawingCapture.h>
#include <hostkit/drawing/DrawingLoader.h>
#include <hostkit/import/DrawingImport.h>
#include <hostkit/items/ItemPlace.h>
#include <hostkit/items/LastPart.h>
#include <hostkit/items/PartTexts.h>
#include <hostkit/items/ShapeItems.h>
#include <hostkit/marks/MarkGraphBuilder.h>
#include <hostkit/setup/Factories.h>
#include <hostkit/view/ViewRulers.h>

#include <jobkit/marks/DrawingPens.h>
#include <jobkit/marks/MarkGraphItems.h>
#include <jobkit/plan/JobOrder.h>
#include <jobkit/plan/JobTimes.h>
#include <jobkit/writers/JobWriter.h>

#include <vectorkit/VectorReader.h>

#include <QtCore/QDir>
#include <QtCore/QLineF>
#include <QtCore/QTextStream>
#include <QtWidgets/QAction>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDockWidget>
#include <QtWidgets/QMainWindow>
#include <QtWidgets/QToolBar>
#include <QtWidgets/QUndoStack>

namespace {

/** What a step has come to, for whoever runs it without looking. */
void tell(const QString &text) { QTextStream(stdout) << text << '\n'; }

/** A plate of 40 by 20 mm, hatched with a zigzag every half millimetre. */
ZTAbstractGraphicsItem *addPlate(ZTGraphicsDocument &document)
{
    ZTAbstractGraphicsItem *plate =
        document.itemMag()->addShape(ShapeType::Rect, QRectF(0.0, 0.0, 10.0, 10.0));
    hostkit::setBoxMm(*plate, QRectF(-20.0, -10.0, 40.0, 20.0));
    plate->setFillParam({FillType::ULine, 0.5, 0.0, true});
    return plate;
}

/** The window: the drawing with rulers, its tree and the property grid beside it, undo above. */
class Window : public QMainWindow
{
public:
    Window()
    {
        setCentralWidget(new hostkit::ViewRulers(m_document));
        m_document->setObjectTree(m_tree);
        m_properties->setUndoStack(m_document->undoStack());
        addDock(QStringLiteral("Shapes"), m_tree);
        addDock(QStringLiteral("Properties"), m_properties);
        QToolBar *bar = addToolBar(QStringLiteral("Edit"));
        bar->addAction(m_document->undoStack()->createUndoAction(this));
        bar->addAction(m_document->undoStack()->createRedoAction(this));
        resize(1000, 640);
    }

    ZTGraphicsDocument &document() { return *m_document; }
    ZTObjectTreeWidget &tree() { return *m_tree; }

    /** The grid shows every property of this one. */
    void edit(ZTAbstractGraphicsItem *item) { m_properties->setObject(item); }

private:
    void addDock(const QString &title, QWidget *content)
    {
        auto *dock = new QDockWidget(title);
        dock->setWidget(content);
        addDockWidget(Qt::RightDockWidgetArea, dock);
    }

    ZTGraphicsDocument *m_document = new ZTGraphicsDocument;   ///< child, once it is shown
    ZTObjectTreeWidget *m_tree = new ZTObjectTreeWidget;       ///< child
    ZTItemPropertyList *m_properties = new ZTItemPropertyList; ///< child
};

/** Brings an SVG, DXF or plotter file in at true size; how wide it is, or 0 with the reason told.
 */
double importLogo(const QString &path, ZTGraphicsDocument &document)
{
    vectorkit::VectorDrawing drawing;
    vectorkit::ReadFailure failure;
    if (!vectorkit::readDrawingFile(path, {}, &drawing, &failure)) {
        tell(path + QStringLiteral(": ") + failure.reason);
        return 0.0;
    }
    hostkit::ImportOptions options;
    options.centreMm = QPointF(-10.0, 0.0);
    const hostkit::ImportResult result = hostkit::importDrawing(document, drawing, options);
    return result.items.isEmpty() ? 0.0 : drawing.boundsMm().width();
}

/** A Data Matrix with modules of half a millimetre at the right of the plate. */
codekit::CodeItem *addCode(ZTGraphicsDocument &document, const QString &content)
{
    ZTAbstractGraphicsItem *item =
        document.itemMag()->addShape(ShapeType::QRCode, QRectF(0.0, 0.0, 10.0, 10.0));
    codekit::CodeItem *code = codekit::codeItem(item);
    codekit::CodeSettings settings = code->settings();
    settings.spec.kind = codekit::CodeKind::DataMatrix;
    settings.form.moduleMm = 0.5;
    code->setCode(settings, content);
    hostkit::moveMiddleTo(*code, QPointF(10.0, 0.0));
    return code;
}

/** Makes the content of a code a number that is another one on each part: SN-0001, SN-0002, … */
void numberParts(codekit::CodeItem &code)
{
    ZTFixedTextSegment prefix;
    prefix.text = QStringLiteral("SN-");
    ZTCounterSegment counter;
    counter.start = 1;
    counter.width = 4;
    ZTVariantText number;
    number.setSegments({prefix, counter});
    code.code().cloneVariantText(&number);
    code.code().setEnableVariantText(true);
    hostkit::NextPart::make({&code}); // the first part
}

/** The plan of the present part: in the order of the least jumps, passes of the pens laid out. */
jobkit::JobPlan planOf(ZTGraphicsDocument &document, const QVector<jobkit::Pen> &pens)
{
    const hostkit::DrawingMarks marks = hostkit::drawingMarks(document);
    jobkit::JobPlan plan = jobkit::planOf(jobkit::itemsOf(marks.graph, marks.units), pens);
    jobkit::orderPlan(&plan, {});
    jobkit::layOutPasses(&plan, jobkit::PassOrder::WholeJob);
    return plan;
}

/** Where a host drives its laser; here: every piece that is marked, in the plan's own order. */
double burn(const jobkit::JobPlan &plan)
{
    double markedMm = 0.0;
    for (const jobkit::PlanPiece &piece : plan.pieces) {
        for (int point = 1; point < piece.pointsMm.size(); ++point)
            markedMm += QLineF(piece.pointsMm.at(point - 1), piece.pointsMm.at(point)).length();
    }
    return markedMm;
}

} // namespace

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    hostkit::registerFactories();
    codekit::registerCodeFactories();
    Window window;
    ZTGraphicsDocument &document = window.document();
    addPlate(document);
    importLogo(QStringLiteral(TUTORIAL_LOGO), document);
    codekit::CodeItem *code = addCode(document, QStringLiteral("SN"));
    numberParts(*code);
    jobkit::JobFile job;
    jobkit::profileOnBoard(QStringLiteral("grbl-diode"), &job.profile);
    job.pens = jobkit::drawingPens(document);
    job.parts = {planOf(document, job.pens)};
    hostkit::Failure failure;
    const QString path = QDir::temp().filePath(QStringLiteral("tutorial-plate.nc"));
    const bool isSaved = jobkit::saveJob(jobkit::JobForm::Gcode, job, path, &failure);
    tell(isSaved ? QStringLiteral("a file for a machine") : failure.reason);
    tell(burn(job.parts.first()) > 0.0 ? QStringLiteral("marked") : QStringLiteral("nothing"));

    window.show();
    return app.arguments().contains(QLatin1String("--once")) ? 0 : app.exec();
}
