#include <hostkit/marks/MarkGraphForms_p.h>

#include <hostkit/files/TextOutput_p.h>

namespace hostkit {

namespace {

/** What stands in every row, and how y counts there. */
struct Rows
{
    double perMm;
    bool isYUp;

    double y(double downward) const { return isYUp ? 0.0 - downward : downward; }
    const char *end() const { return isYUp ? ",up\n" : "\n"; }
};

void writeOutline(TextOutput &out, int number, const ZTMarkObject &object, const Rows &rows)
{
    for (int i = 0; i < object.lines.size(); ++i) {
        for (const QPointF &point : object.lines[i])
            out << number << "," << object.penId << ",outline," << i + 1 << "," << point.x() << ","
                << rows.y(point.y()) << ",,," << rows.perMm << rows.end();
    }
}

void writeHatch(TextOutput &out, int number, const ZTMarkObject &object, const Rows &rows)
{
    for (int i = 0; i < object.fillLines.size(); ++i) {
        const QLineF &line = object.fillLines[i];
        out << number << "," << object.penId << ",hatch," << i + 1 << "," << line.x1() << ","
            << rows.y(line.y1()) << "," << line.x2() << "," << rows.y(line.y2()) << ","
            << rows.perMm << rows.end();
    }
}

} // namespace

void writeMarkCsv(const ZTMarkGraph &graph, const MarkUnits &units, QIODevice &device)
{
    TextOutput out(device);
    const Rows rows{units.perMm, units.isYUp};
    out << "object,pen,kind,piece,x1_mark,y1_mark,x2_mark,y2_mark,units_per_mm"
        << (rows.isYUp ? ",y_axis\n" : "\n");
    for (int i = 0; i < graph.objects.size(); ++i) {
        writeOutline(out, i + 1, graph.objects[i], rows);
        writeHatch(out, i + 1, graph.objects[i], rows);
    }
}

} // namespace hostkit
