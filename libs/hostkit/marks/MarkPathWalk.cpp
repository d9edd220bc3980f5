#include <hostkit/marks/MarkPathWalk.h>

namespace hostkit {

namespace {

/** Keeps where the head stands, so that a move to another place is told as a jump. */
class Head
{
public:
    explicit Head(MarkPathVisitor &told) : visitor(told) {}

    void beginObject() { inObject = false; }

    void moveTo(const QPointF &start)
    {
        const bool elsewhere = position.x() != start.x() || position.y() != start.y();
        if (placed && elsewhere)
            visitor.jump(QLineF(position, start),
                         inObject ? JumpKind::InsideObject : JumpKind::BetweenObjects);
        inObject = true;
    }

    void endAt(const QPointF &end)
    {
        position = end;
        placed = true;
    }

private:
    MarkPathVisitor &visitor;
    QPointF position;
    bool placed = false;   ///< some piece was marked before
    bool inObject = false; ///< some piece of the present object was
};

void walkObject(const ZTMarkObject &object, Head &head, MarkPathVisitor &visitor)
{
    for (const QPolygonF &polygon : object.lines) {
        if (polygon.isEmpty())
            continue;
        head.moveTo(polygon.first());
        visitor.polyline(polygon);
        head.endAt(polygon.last());
    }
    for (const QLineF &line : object.fillLines) {
        head.moveTo(line.p1());
        visitor.hatchLine(line);
        head.endAt(line.p2());
    }
}

} // namespace

MarkPathVisitor::~MarkPathVisitor() = default;
void MarkPathVisitor::polyline(const QPolygonF &) {}
void MarkPathVisitor::hatchLine(const QLineF &) {}
void MarkPathVisitor::jump(const QLineF &, JumpKind) {}

void walkMarkPath(const ZTMarkGraph &graph, MarkPathVisitor &visitor)
{
    Head head(visitor);
    for (const ZTMarkObject &object : graph.objects) {
        head.beginObject();
        walkObject(object, head, visitor);
    }
}

} // namespace hostkit
