#include <support/SingletonGuard.h>

#include <jobkit/marks/MarkGraphItems.h>

#include <hostkit/import/DrawingImport.h>
#include <hostkit/items/GraphicItems.h>
#include <hostkit/marks/MarkGraphBuilder.h>
#include <hostkit/setup/Factories.h>

#include <QtTest/QTest>

#include <algorithm>
#include <limits>
#include <utility>

using vectorkit::VectorPath;

namespace {

/** All of a drawing as items of a job, as hosts make them. */
QVector<jobkit::JobItem> jobItems(const ZTGraphicsDocument &document)
{
    const hostkit::MarkItems shapes = hostkit::markedItems(document);
    hostkit::MarkGraphBuilder builder(document, shapes, EShapeSortType::ShapeSortNone);
    builder.work(std::numeric_limits<int>::max());
    const ZTMarkGraph graph = builder.takeUnordered();
    QVector<jobkit::JobItem> items =
        jobkit::itemsOf(graph, hostkit::MarkUnits::of(*document.itemMag()), builder.layers());
    for (int i = 0; i < items.size(); ++i)
        jobkit::describeShape(*shapes[i], &items[i]);
    return items;
}

} // namespace

/** What a job has to know of the shapes behind marks. */
class tst_MarkGraphItems : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { hostkit::registerFactories(); }
    void init() { m_guard.reset(new testsupport::SingletonGuard); }
    void cleanup() { m_guard.reset(); }

    void importedDots_areDotsForTheHead()
    {
        vectorkit::VectorShape shape;
        shape.pen = 1;
        shape.paths = {VectorPath::polyline({{0, 0}, {20, 0}}),
                       VectorPath::polyline({{30, 40}, {30, 40}})};
        vectorkit::VectorDrawing drawing;
        drawing.layers.resize(1);
        drawing.layers[0].shapes = {shape};
        ZTGraphicsDocument document;
        hostkit::importDrawing(document, drawing, {});
        const QVector<jobkit::JobItem> items = jobItems(document);
        QCOMPARE(items.size(), 1);
        QVERIFY(items[0].hasDots);
        QCOMPARE(items[0].outlinesMm.size(), 2);
        QPolygonF line = items[0].outlinesMm[0];
        QPolygonF dot = items[0].outlinesMm[1];
        if (line.size() == 1)
            std::swap(line, dot);
        QCOMPARE(line.size(), 2);
        QCOMPARE(dot.size(), 1);
        // From the line's left end to the dot, whatever the sense of y in marks.
        const double left = std::min(line[0].x(), line[1].x());
        QVERIFY(qAbs(dot[0].x() - left - 30.0) < 1e-3);
        QVERIFY(qAbs(qAbs(dot[0].y() - line[0].y()) - 40.0) < 1e-3);
    }

    void shortSides_andOtherShapes_areNoDots()
    {
        ZTGraphicsDocument document;
        hostkit::addGraphic(document, {VectorPath::polyline({{0, 0}, {5, 0}, {5, 0.01}}),
                                       VectorPath::polyline({{9, 9}, {9.02, 9}})});
        document.itemMag()->addShape(ShapeType::Rect, {0, 0, 0.01, 0.0});
        for (const jobkit::JobItem &item : jobItems(document)) {
            QVERIFY(!item.hasDots);
            for (const QPolygonF &run : item.outlinesMm)
                QVERIFY(run.size() > 1);
        }
    }

private:
    QScopedPointer<testsupport::SingletonGuard> m_guard;
};

QTEST_MAIN(tst_MarkGraphItems)
#include "tst_MarkGraphItems.moc"
