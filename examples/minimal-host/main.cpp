#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QTextStream>

int main()
{
    ZTRectShape square; // millimetres
    square.setRect(QRectF(0, 0, 20, 20));
    square.setFillParam({FillType::ULine, 5.0, 0.0, true}); // a zigzag every 5 mm
    square.paint();                                         // rebuild outline and hatch

    const ZTCoord &coord = *ZTCoord::getInstance();
    QTextStream out(stdout);
    for (const QLineF &line : square.getFillLines()) // scene pixels
        out << coord.pix2mm(line.x1()) << ' ' << coord.pix2mm(line.y1()) << " -> "
            << coord.pix2mm(line.x2()) << ' ' << coord.pix2mm(line.y2()) << '\n';
    return 0;
}
