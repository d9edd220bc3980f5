#include <ZTDrawEngineLib/model/ZTMarkData.h>

#include <QtTest/QTest>

#include <type_traits>
#include <utility>

static_assert(std::is_nothrow_move_constructible_v<ZTMarkObject>);
static_assert(std::is_nothrow_move_assignable_v<ZTMarkObject>);
static_assert(std::is_nothrow_move_constructible_v<ZTMarkGraph>);
static_assert(std::is_nothrow_move_assignable_v<ZTMarkGraph>);
static_assert(std::is_same_v<decltype(ZTMarkObject::penId), qint32>);

namespace {

ZTMarkObject sampleObject()
{
    ZTMarkObject object;
    object.penId = 7;
    object.lines << QPolygonF(QVector<QPointF>{{1, 2}, {3, 4}});
    object.fillLines << QLineF(5, 6, 7, 8);
    object.rect = QRectF(1, 2, 2, 2);
    return object;
}

ZTMarkGraph sampleGraph()
{
    ZTMarkGraph graph;
    graph.objects << sampleObject();
    graph.rect = QRectF(9, 8, 7, 6);
    return graph;
}

void compare(const ZTMarkObject &object, const ZTMarkObject &expected)
{
    QCOMPARE(object.penId, expected.penId);
    QCOMPARE(object.lines, expected.lines);
    QCOMPARE(object.fillLines, expected.fillLines);
    QCOMPARE(object.rect, expected.rect);
}

void compare(const ZTMarkGraph &graph, const ZTMarkGraph &expected)
{
    QCOMPARE(graph.rect, expected.rect);
    QCOMPARE(graph.objects.size(), expected.objects.size());
    for (int i = 0; i < graph.objects.size(); ++i)
        compare(graph.objects.at(i), expected.objects.at(i));
}

} // namespace

class tst_ZTMarkData : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newObject_isEmptyAndHasTheFirstPen()
    {
        const ZTMarkObject object;
        QCOMPARE(object.penId, 1);
        QVERIFY(object.lines.isEmpty());
        QVERIFY(object.fillLines.isEmpty());
        QVERIFY(object.rect.isNull());
    }

    void newGraph_isEmpty()
    {
        const ZTMarkGraph graph;
        QVERIFY(graph.objects.isEmpty());
        QVERIFY(graph.rect.isNull());
    }

    void object_copied_isIndependentOfItsSource()
    {
        ZTMarkObject source = sampleObject();
        const ZTMarkObject copy(source);
        ZTMarkObject assigned;
        assigned = source;
        source.penId = 0;
        source.lines[0][0] = QPointF(-1, -1);
        source.fillLines.clear();
        source.rect = QRectF();
        compare(copy, sampleObject());
        compare(assigned, sampleObject());
    }

    void object_moved_carriesEverything()
    {
        ZTMarkObject source = sampleObject();
        const QPointF *const points = source.lines.constFirst().constData();
        ZTMarkObject moved(std::move(source));
        compare(moved, sampleObject());
        ZTMarkObject assigned;
        assigned = std::move(moved);
        compare(assigned, sampleObject());
        QCOMPARE(assigned.lines.constFirst().constData(), points);
    }

    void movedFromObject_canBeAssignedTo()
    {
        ZTMarkObject source = sampleObject();
        const ZTMarkObject moved(std::move(source));
        source = moved;
        compare(source, sampleObject());
    }

    void graph_copied_isIndependentOfItsSource()
    {
        ZTMarkGraph source = sampleGraph();
        const ZTMarkGraph copy(source);
        ZTMarkGraph assigned;
        assigned = source;
        source.objects[0].penId = 0;
        source.objects << ZTMarkObject();
        source.rect = QRectF();
        compare(copy, sampleGraph());
        compare(assigned, sampleGraph());
    }

    void graph_moved_carriesEverything()
    {
        ZTMarkGraph source = sampleGraph();
        const ZTMarkObject *const objects = source.objects.constData();
        ZTMarkGraph moved(std::move(source));
        compare(moved, sampleGraph());
        ZTMarkGraph assigned;
        assigned = std::move(moved);
        compare(assigned, sampleGraph());
        QCOMPARE(assigned.objects.constData(), objects);
    }
};

QTEST_GUILESS_MAIN(tst_ZTMarkData)
#include "tst_ZTMarkData.moc"
