#include <hostkit/marks/MarkPathWalk.h>

#include <QtTest/QTest>

namespace {

QPolygonF polygon(const QVector<QPointF> &points) { return QPolygonF(points); }

QString shown(const QPointF &point)
{
    return QStringLiteral("%1,%2").arg(point.x()).arg(point.y());
}

/** Writes down what it is told. */
class Protocol : public hostkit::MarkPathVisitor
{
public:
    void polyline(const QPolygonF &points) override
    {
        entries
            << QStringLiteral("polyline %1 to %2").arg(shown(points.first()), shown(points.last()));
    }
    void hatchLine(const QLineF &line) override
    {
        entries << QStringLiteral("hatch %1 to %2").arg(shown(line.p1()), shown(line.p2()));
    }
    void jump(const QLineF &line, hostkit::JumpKind kind) override
    {
        const bool inside = kind == hostkit::JumpKind::InsideObject;
        entries << QStringLiteral("%1 %2 to %3")
                       .arg(inside ? QStringLiteral("inside") : QStringLiteral("between"),
                            shown(line.p1()), shown(line.p2()));
    }

    QStringList entries;
};

QStringList protocolOf(const ZTMarkGraph &graph)
{
    Protocol protocol;
    hostkit::walkMarkPath(graph, protocol);
    return protocol.entries;
}

QStringList lines(const char *text) { return QString::fromLatin1(text).split(QLatin1Char('\n')); }

} // namespace

class tst_MarkPathWalk : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void emptyGraph_tellsNothing() { QVERIFY(protocolOf(ZTMarkGraph()).isEmpty()); }

    void object_polylinesThenHatch_jumpsBetween()
    {
        ZTMarkObject object;
        object.fillLines = {QLineF(5, 5, 6, 5), QLineF(6, 6, 5, 6)};
        object.lines = {polygon({{0, 0}, {1, 0}, {1, 1}}), polygon({{2, 2}, {3, 2}})};
        ZTMarkGraph graph;
        graph.objects = {object};
        QCOMPARE(protocolOf(graph), lines("polyline 0,0 to 1,1\n"
                                          "inside 1,1 to 2,2\n"
                                          "polyline 2,2 to 3,2\n"
                                          "inside 3,2 to 5,5\n"
                                          "hatch 5,5 to 6,5\n"
                                          "inside 6,5 to 6,6\n"
                                          "hatch 6,6 to 5,6"));
    }

    void pieceThatBeginsOnTheSpot_needsNoJump()
    {
        ZTMarkObject object;
        object.fillLines = {QLineF(0, 0, 1, 0), QLineF(1, 0, 1, 1)};
        ZTMarkGraph graph;
        graph.objects = {object};
        QCOMPARE(protocolOf(graph), lines("hatch 0,0 to 1,0\nhatch 1,0 to 1,1"));
    }

    void objects_areJoinedByJumpsOfTheirOwnKind_emptyOnesPassedOver()
    {
        ZTMarkObject first;
        first.lines = {polygon({{0, 0}, {1, 0}})};
        ZTMarkObject empty;
        empty.lines = {QPolygonF()};
        ZTMarkObject second;
        second.lines = {QPolygonF(), polygon({{9, 9}}), polygon({{8, 8}, {7, 7}})};
        ZTMarkGraph graph;
        graph.objects = {empty, first, empty, ZTMarkObject(), second};
        QCOMPARE(protocolOf(graph), lines("polyline 0,0 to 1,0\n"
                                          "between 1,0 to 9,9\n"
                                          "polyline 9,9 to 9,9\n"
                                          "inside 9,9 to 8,8\n"
                                          "polyline 8,8 to 7,7"));
    }
};

QTEST_GUILESS_MAIN(tst_MarkPathWalk)
#include "tst_MarkPathWalk.moc"
