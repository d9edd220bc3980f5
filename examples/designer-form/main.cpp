// A host whose window was laid out in Qt Designer: drawing surface, tree, property grid, rulers.
// designer-form --once prints what stands on the form and ends.

#include "ui_form.h"

#include <QtCore/QTextStream>
#include <QtWidgets/QApplication>

int main(int argc, char **argv)
{
    const QApplication app(argc, argv);
    ZTGraphicsItemFactory::regist("Rect", ZTRectItemFactory::getInstance());

    QWidget window;
    Ui::MarkingForm form;
    form.setupUi(&window);
    form.document->setObjectTree(form.objectTree);
    form.propertyList->setUndoStack(form.document->undoStack());

    ZTAbstractGraphicsItem *square =
        form.document->itemMag()->addShape(ShapeType::Rect, QRectF(0, 0, 10, 10));
    form.propertyList->setObject(square);
    if (QApplication::arguments().contains(QLatin1String("--once"))) {
        QTextStream(stdout) << form.objectTree->model()->rowCount() << " shape in the tree\n";
        return 0;
    }
    window.show();
    return QApplication::exec();
}
