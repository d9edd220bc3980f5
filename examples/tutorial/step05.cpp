// Step 5 of the tutorial: a logo from another program.

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <hostkit/drawing/DrawingCapture.h>
#include <hostkit/drawing/DrawingLoader.h>
#include <hostkit/import/DrawingImport.h>
#include <hostkit/items/ItemPlace.h>
#include <hostkit/setup/Factories.h>
#include <hostkit/view/ViewRulers.h>

#include <vectorkit/VectorReader.h>

#include <QtCore/QDir>
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

} // namespace

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    hostkit::registerFactories();
    Window window;
    ZTGraphicsDocument &document = window.document();
    addPlate(document);
    tell(QStringLiteral("the logo is %1 mm wide")
             .arg(importLogo(QStringLiteral(TUTORIAL_LOGO), document)));

    window.show();
    return app.arguments().contains(QLatin1String("--once")) ? 0 : app.exec();
}
