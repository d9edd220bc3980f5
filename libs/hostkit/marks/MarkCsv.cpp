#include <hostkit/marks/MarkGraphForms_p.h>

#include <hostkit/files/TextOutput_p.h>

namespace hostkit {

namespace {

void writeOutline(TextOutput &out, int number, const ZTMarkObject &object, double perMm)
{
    for (int i = 0; i < object.lines.size(); ++i) {
        for (const QPointF &point : object.lines[i])
            out << number << "," << object.penId << ",outline," << i + 1 << "," << point.x() << ","
                << point.y() << ",,," << perMm << "\n";
    }
}

void writeHatch(TextOutput &out, int number, const ZTMarkObject &object, double perMm)
{
    for (int i = 0; i < object.fillLines.size(); ++i) {
        const QLineF &line = object.fillLines[i];
        out << number << "," << object.penId << ",hatch," << i + 1 << "," << line.x1() << ","
            << line.y1() << "," << line.x2() << "," << line.y2() << "," << perMm << "\n";
    }
}

} // namespace

void writeMarkCsv(const ZTMarkGraph &graph, const MarkUnits &units, QIODevice &device)
{
    TextOutput out(device);
    out << "object,pen,kind,piece,x1_mark,y1_mark,x2_mark,y2_mark,units_per_mm\n";
    for (int i = 0; i < graph.objects.size(); ++i) {
        writeOutline(out, i + 1, graph.objects[i], units.perMm);
        writeHatch(out, i + 1, graph.objects[i], units.perMm);
    }
}

} // namespace hostkit
