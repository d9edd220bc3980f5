#include <hostkit/marks/MarkPathWalk.h>

namespace hostkit {

namespace {

/** Keeps where the head stands, so that a move to another place is told as a jump. */
class Head
{
public:
    explicit Head(MarkPathVisitor &told) : m_visitor(told) {}

    void beginObject() { m_inObject = false; }

    void moveTo(const QPointF &start)
    {
        const bool elsewhere = m_position.x() != start.x() || m_position.y() != start.y();
        if (m_placed && elsewhere)
            m_visitor.jump(QLineF(m_position, start),
                           m_inObject ? JumpKind::InsideObject : JumpKind::BetweenObjects);
        m_inObject = true;
    }

    void endAt(const QPointF &end)
    {
        m_position = end;
        m_placed = true;
    }

private:
    MarkPathVisitor &m_visitor;
    QPointF m_position;
    bool m_placed = false;   ///< some piece was marked before
    bool m_inObject = false; ///< some piece of the present object was
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
