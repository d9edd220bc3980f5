#include <hostkit/marks/MarkPathMeasure.h>

#include <hostkit/marks/MarkPathWalk.h>

namespace hostkit {

namespace {

class Measuring : public MarkPathVisitor
{
public:
    void polyline(const QPolygonF &points) override
    {
        ++polylines;
        for (int i = 1; i < points.size(); ++i)
            lengthMark += QLineF(points[i - 1], points[i]).length();
    }

    void hatchLine(const QLineF &line) override
    {
        ++hatchSegments;
        lengthMark += line.length();
    }

    void jump(const QLineF &line, JumpKind) override { jumpMark += line.length(); }

    qint64 polylines = 0;
    qint64 hatchSegments = 0;
    double lengthMark = 0.0;
    double jumpMark = 0.0;
};

} // namespace

MarkPathMeasure measureMarkPath(const ZTMarkGraph &graph, const MarkUnits &units)
{
    Measuring measuring;
    walkMarkPath(graph, measuring);
    MarkPathMeasure measure;
    measure.objects = graph.objects.size();
    measure.polylines = measuring.polylines;
    measure.hatchSegments = measuring.hatchSegments;
    measure.markMm = units.toMm(measuring.lengthMark);
    measure.jumpMm = units.toMm(measuring.jumpMark);
    return measure;
}

} // namespace hostkit
