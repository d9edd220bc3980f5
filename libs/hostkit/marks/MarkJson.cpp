#include <hostkit/marks/MarkGraphForms_p.h>

#include <hostkit/files/TextOutput_p.h>

#include <QtCore/qnumeric.h>

namespace hostkit {

// Written by hand instead of through a QJsonDocument, which holds the whole graph a second time,
// several times larger, and refuses the largest ones.
namespace {

/** A number, or null where there is none: JSON knows neither "nan" nor "inf". */
void writeNumber(TextOutput &out, double value)
{
    if (qIsFinite(value))
        out << value;
    else
        out << "null";
}

void writeNumbers(TextOutput &out, std::initializer_list<double> values)
{
    const char *before = "[";
    for (const double value : values) {
        out << before;
        writeNumber(out, value);
        before = ",";
    }
    out << "]";
}

/** A y as the file counts it. */
double counted(double downward, bool isYUp) { return isYUp ? 0.0 - downward : downward; }

/** Grows around finite points; of zeros while there was none. */
struct PointBox
{
    void add(const QPointF &point)
    {
        if (!qIsFinite(point.x()) || !qIsFinite(point.y()))
            return;
        least = isEmpty ? point : QPointF(qMin(least.x(), point.x()), qMin(least.y(), point.y()));
        most = isEmpty ? point : QPointF(qMax(most.x(), point.x()), qMax(most.y(), point.y()));
        isEmpty = false;
    }

    void add(const ZTMarkObject &object)
    {
        for (const QPolygonF &polygon : object.lines) {
            for (const QPointF &point : polygon)
                add(point);
        }
        for (const QLineF &line : object.fillLines) {
            add(line.p1());
            add(line.p2());
        }
    }

    QPointF least;
    QPointF most;
    bool isEmpty = true;
};

// Of what is written: the objects' own rectangles don't turn with their shapes.
void writeExtent(TextOutput &out, const PointBox &box, bool isYUp)
{
    out << "\"extent\":{\"x\":";
    writeNumber(out, box.least.x());
    out << ",\"y\":";
    writeNumber(out, counted(isYUp ? box.most.y() : box.least.y(), isYUp));
    out << ",\"width\":";
    writeNumber(out, box.most.x() - box.least.x());
    out << ",\"height\":";
    writeNumber(out, box.most.y() - box.least.y());
    out << "}";
}

void writePolyline(TextOutput &out, const QPolygonF &polygon, bool isYUp)
{
    const char *before = "[";
    for (const QPointF &point : polygon) {
        out << before;
        writeNumbers(out, {point.x(), counted(point.y(), isYUp)});
        before = ",";
    }
    out << (polygon.isEmpty() ? "[]" : "]");
}

void writeObject(TextOutput &out, const ZTMarkObject &object, bool isYUp)
{
    out << "{\"pen\":" << object.penId << ",";
    PointBox box;
    box.add(object);
    writeExtent(out, box, isYUp);
    out << ",\n\"polylines\":[";
    const char *before = "\n";
    for (const QPolygonF &polygon : object.lines) {
        out << before;
        writePolyline(out, polygon, isYUp);
        before = ",\n";
    }
    out << "],\n\"hatch\":[";
    before = "\n";
    for (const QLineF &line : object.fillLines) {
        out << before;
        writeNumbers(out,
                     {line.x1(), counted(line.y1(), isYUp), line.x2(), counted(line.y2(), isYUp)});
        before = ",\n";
    }
    out << "]}";
}

} // namespace

void writeMarkJson(const ZTMarkGraph &graph, const MarkUnits &units, QIODevice &device)
{
    TextOutput out(device);
    out << "{\"format\":\"mark-data\",\"version\":1,\"unit\":\"mark\",\"unitsPerMm\":";
    writeNumber(out, units.perMm);
    out << (units.isYUp ? ",\"yAxis\":\"up\",\n" : ",\n");
    PointBox box;
    for (const ZTMarkObject &object : graph.objects)
        box.add(object);
    writeExtent(out, box, units.isYUp);
    out << ",\n\"objects\":[";
    const char *before = "\n";
    for (const ZTMarkObject &object : graph.objects) {
        out << before;
        writeObject(out, object, units.isYUp);
        before = ",\n";
    }
    out << "]}\n";
}

} // namespace hostkit
