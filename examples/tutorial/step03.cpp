// Step 3 of the tutorial: tree, property grid, rulers, undo.

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <hostkit/view/ViewRulers.h>

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
    plate->scale(4.0, 2.0); // of 10 by 10 mm, in the middle
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

} // namespace

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    ZTGraphicsItemFactory::regist("Rect", ZTRectItemFactory::getInstance());
    Window window;
    ZTGraphicsDocument &document = window.document();
    window.edit(addPlate(document));
    tell(QStringLiteral("%1 shape in the tree").arg(window.tree().model()->rowCount()));

    window.show();
    return app.arguments().contains(QLatin1String("--once")) ? 0 : app.exec();
}
