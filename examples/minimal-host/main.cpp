#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QTextStream>
#include <QtWidgets/QApplication>

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    ZTGraphicsItemFactory::regist("Rect", ZTRectItemFactory::getInstance());
    ZTGraphicsDocument document; // the widget for your form

    ZTAbstractGraphicsItem *square =
        document.itemMag()->addShape(ShapeType::Rect, QRectF(0, 0, 10, 10)); // 10 mm, in the middle
    square->setFillParam({FillType::ULine, 2.0, 0.0, true});                 // zigzag, every 2 mm

    const ZTMarkGraph marks = document.itemMag()->getShapeLines(); // for the marking head
    for (const ZTMarkObject &object : marks.objects)
        QTextStream(stdout) << "pen " << object.penId << ": " << object.lines.size() << " outline, "
                            << object.fillLines.size() << " hatch segments\n";
    document.show();
    return app.arguments().contains(QLatin1String("--once")) ? 0 : app.exec();
}
