// Step 2 of the tutorial: a shape, hatched, and its mark paths.

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QTextStream>
#include <QtWidgets/QApplication>

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

} // namespace

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    ZTGraphicsItemFactory::regist("Rect", ZTRectItemFactory::getInstance());
    ZTGraphicsDocument document;
    addPlate(document);
    const ZTMarkGraph marks = document.itemMag()->getShapeLines();
    for (const ZTMarkObject &object : marks.objects) {
        tell(QStringLiteral("pen %1: %2 outline, %3 hatch lines")
                 .arg(object.penId)
                 .arg(object.lines.size())
                 .arg(object.fillLines.size()));
    }

    document.show();
    return app.arguments().contains(QLatin1String("--once")) ? 0 : app.exec();
}
