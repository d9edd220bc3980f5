#include "StudioWindow.h"

#include <studio/canvas/DrawingTools.h>
#include <studio/canvas/RotateHandle.h>
#include <studio/canvas/SnapTools.h>
#include <studio/nodes/NodeTool.h>
#include <studio/nodes/PathTool.h>
#include <studio/paths/PathTools.h>
#include <studio/program/UndoTexts.h>

#include <hostkit/items/GraphicItems.h>

#include <QtTest/QSignalSpy>

#include <cmath>

using studio::NodeTool;
using studio::ShapeItem;
using vectorkit::VectorPath;

/** Editing nodes and drawing paths, with mouse and keys. */
class tst_studio_nodes : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        studio = std::make_unique<StudioWindow>();
        studio::SnapChoice none;
        none.toShapes = none.toGuides = none.toGrid = false;
        studio->window->editor().snapping().setChoice(none);
    }
    void cleanup() { studio.reset(); }

    void key_N_choosesTheTool_andEscLeaves()
    {
        ShapeItem *item = addSquare();
        studio->select({item});
        studio->key(Qt::Key_N);
        QCOMPARE(studio->window->editor().tools().chosenId(), QByteArray(NodeTool::kId));
        QVERIFY(studio->window->commands().named("tool.nodes")->isChecked());
        QCOMPARE(nodes().nodes().nodeCount(), 4);
        QVERIFY(!studio->window->editor().rotateHandle().isShown()); // it would lie among the nodes
        studio->key(Qt::Key_Escape);
        QVERIFY(studio->window->editor().rotateHandle().isShown());
        QCOMPARE(studio->window->editor().tools().chosenId(), QByteArray("tool.select"));
        QCOMPARE(nodes().nodes().nodeCount(), 0);
        QCOMPARE(studio->selected().size(), 1);
    }

    void drag_movesANode_asOneStep()
    {
        ShapeItem *item = editSquare();
        const DrawingSnapshot before = studio->snapshot();
        studio->driver->drag(px({20, 0}), px({26, -4}));
        QCOMPARE(studio->stack().count(), 1);
        QCOMPARE(studio::readableUndoText(studio->stack().undoText()),
                 QStringLiteral("Move nodes"));
        const QVector<QPointF> points = pointsOf(*item);
        QCOMPARE(points.size(), 5);
        QVERIFY(isNear(points[1], {26, -4}));
        QVERIFY(isNear(points[2], {20, 20}));
        const DrawingSnapshot after = studio->snapshot();
        COMPARE_UNDO_AND_REDO(studio->document(), before, after);
        QVERIFY(isNear(nodes().nodes().node({0, 1}).place, {20, 0}));
    }

    void drag_movesAllThatAreSelected()
    {
        ShapeItem *item = editSquare();
        studio->driver->click(px({0, 0}));
        studio->driver->click(px({20, 0}), Qt::ShiftModifier);
        QCOMPARE(nodes().selected().size(), 2);
        studio->driver->drag(px({20, 0}), px({20, -10}));
        const QVector<QPointF> points = pointsOf(*item);
        QVERIFY(isNear(points[0], {0, -10}));
        QVERIFY(isNear(points[1], {20, -10}));
        QVERIFY(isNear(points[2], {20, 20}));
    }

    void band_selectsWhatLiesInIt()
    {
        editSquare();
        studio->driver->drag(px({-5, 15}), px({25, 25}));
        QCOMPARE(nodes().selected().size(), 2);
        studio->driver->click(px({40, 40}));
        QVERIFY(nodes().selected().isEmpty());
        QCOMPARE(studio->stack().count(), 0);
    }

    void doubleClick_onTheLine_addsANode_andDelTakesItOut()
    {
        ShapeItem *item = editSquare();
        studio->driver->doubleClick(px({10, 0}));
        QCOMPARE(pointsOf(*item).size(), 6);
        QVERIFY(isNear(pointsOf(*item)[1], {10, 0}));
        QCOMPARE(nodes().selected().size(), 1);
        studio->key(Qt::Key_Delete);
        QCOMPARE(pointsOf(*item).size(), 5);
        QCOMPARE(studio->ids().size(), 1); // the shape itself stays
        QCOMPARE(studio->stack().count(), 2);
        QVERIFY(studio->run("edit.undo"));
        QVERIFY(studio->run("edit.undo"));
        QCOMPARE(pointsOf(*item).size(), 5);
    }

    void deletingAll_isRefused()
    {
        ShapeItem *item = editSquare();
        studio->driver->drag(px({-5, -5}), px({25, 25}));
        QCOMPARE(nodes().selected().size(), 4);
        studio->key(Qt::Key_Delete);
        QCOMPARE(pointsOf(*item).size(), 5);
        QCOMPARE(studio->stack().count(), 0);
    }

    void arrows_nudgeNodes_notTheShape()
    {
        ShapeItem *item = editSquare();
        studio->driver->click(px({0, 0}));
        studio->key(Qt::Key_Left);
        studio->key(Qt::Key_Up, Qt::ShiftModifier);
        QVERIFY(isNear(pointsOf(*item)[0], {-1, -10}));
        QVERIFY(isNear(pointsOf(*item)[1], {20, 0}));
    }

    void breakAndJoin_openAndCloseTheOutline()
    {
        ShapeItem *item = editSquare();
        studio->driver->click(px({20, 0}));
        QVERIFY(studio->run("nodes.break"));
        QVERIFY(!nodes().nodes().runs().first().isClosed);
        QCOMPARE(nodes().nodes().nodeCount(), 5);
        // Both ends lie upon each other: drawn apart, chosen, joined midway.
        studio->driver->drag(px({20, 0}), px({30, 0}));
        QVERIFY(!hostkit::outlinesOf(*item).first().isClosed());
        studio->driver->click(px({20, 0}), Qt::ShiftModifier);
        QCOMPARE(nodes().selected().size(), 2);
        QVERIFY(studio->run("nodes.join"));
        QVERIFY(hostkit::outlinesOf(*item).first().isClosed());
        QVERIFY(isNear(pointsOf(*item).first(), {25, 0}));
        QCOMPARE(studio->stack().count(), 3);
    }

    void lineToCurve_smooth_andBack()
    {
        ShapeItem *item = editSquare();
        studio->driver->click(px({0, 0}));
        studio->driver->click(px({20, 0}), Qt::ShiftModifier);
        QVERIFY(studio->run("nodes.curve"));
        QVERIFY(!hostkit::outlinesOf(*item).first().isPolyline());
        studio->driver->click(px({40, 40}));
        studio->driver->click(px({20, 0}));
        QVERIFY(studio->run("nodes.smooth"));
        const vectorkit::PathNode smooth = nodes().nodes().node({0, 1});
        QVERIFY(smooth.isSmooth);
        // A drag of one control point turns the other with it.
        const QPointF to(30, 0);
        studio->driver->drag(px(smooth.out), px(to));
        const vectorkit::PathNode turned = nodes().nodes().node({0, 1});
        QVERIFY(isNear(turned.out, to));
        QVERIFY(std::abs(turned.in.y()) < 0.2 && turned.in.x() < 20);
        studio->driver->click(px({0, 0}), Qt::ShiftModifier);
        QVERIFY(studio->run("nodes.line"));
        QVERIFY(studio->stack().count() == 4);
    }

    void edits_ofATurnedPath_areWhereTheMouseIs()
    {
        ShapeItem *item = addSquare();
        studio->select({item});
        studio->edit().rotate(30);
        studio->key(Qt::Key_N);
        const QPointF corner = nodes().nodes().node({0, 2}).place;
        studio->driver->drag(px(corner), px(corner + QPointF(5, 5)));
        QVERIFY(isNear(nodes().nodes().node({0, 2}).place, corner + QPointF(5, 5)));
        QVERIFY(isNear(pointsOf(*item)[2], corner + QPointF(5, 5)));
        QVERIFY(studio->frameFits());
    }

    void corner_isKept_whenUndoneAndSelectedAnew()
    {
        VectorPath wave({0, 0});
        wave.cubicTo({0, 5}, {5, 5}, {10, 5});
        wave.cubicTo({15, 5}, {20, 5}, {20, 0});
        ShapeItem *item = hostkit::addGraphic(studio->document(), {wave});
        studio->select({item});
        studio->key(Qt::Key_N);
        QVERIFY(nodes().nodes().node({0, 1}).isSmooth);
        studio->driver->click(px({10, 5}));
        const DrawingSnapshot before = studio->snapshot();
        nodes().corner();
        QCOMPARE(studio->stack().count(), 1);
        const DrawingSnapshot after = studio->snapshot();
        COMPARE_UNDO_AND_REDO(studio->document(), before, after);
        QVERIFY(nodes().nodes().node({0, 1}).isSmooth); // undone
        studio->stack().redo();
        QVERIFY(!nodes().nodes().node({0, 1}).isSmooth);
        studio->select({});
        studio->select({item});
        QVERIFY(!nodes().nodes().node({0, 1}).isSmooth);
        // A copy is the same path.
        studio->select({item});
        QVERIFY(studio->run("edit.duplicate"));
        QVERIFY(!nodes().nodes().runs().isEmpty());
        QVERIFY(!nodes().nodes().node({0, 1}).isSmooth);
    }

    void nodesOnOnePlace_areRefused()
    {
        ShapeItem *item =
            hostkit::addGraphic(studio->document(), {VectorPath::polyline({{0, 0}, {20, 0}})});
        studio->select({item});
        studio->key(Qt::Key_N);
        QSignalSpy told(&nodes(), &NodeTool::told);
        // The snapping is off, so the way is exact in whole pixels of the screen only: by keys.
        studio->driver->click(px({20, 0}));
        for (int step = 0; step < 2; ++step)
            studio->key(Qt::Key_Left, Qt::ShiftModifier); // 10 mm each
        QVERIFY(told.last().first().toString().startsWith(QStringLiteral("Nothing would be left")));
        QCOMPARE(pointsOf(*item).size(), 2);
        QVERIFY(isNear(pointsOf(*item)[1], {10, 0}));
    }

    void clickOnAnotherPath_goesOverToIt()
    {
        editSquare();
        ShapeItem *other = hostkit::addGraphic(
            studio->document(), {VectorPath::polyline({{40, 0}, {50, 0}, {50, 10}}, true)});
        studio->driver->click(px({47, 3}));
        QCOMPARE(studio->selected(), QVector<int>{other->getShapeBase()->getId()});
        QCOMPARE(nodes().nodes().nodeCount(), 3);
    }

    void shapesThatAreNoPaths_areSaid()
    {
        ShapeItem *rect = studio->addRect(0, 0);
        QSignalSpy told(&nodes(), &NodeTool::told);
        studio->select({rect});
        studio->key(Qt::Key_N);
        QVERIFY(told.last().first().toString().startsWith(QStringLiteral("This is no path yet")));
        QVERIFY(studio->run("paths.toPaths"));
        QCOMPARE(nodes().nodes().nodeCount(), 4);
    }

    void escape_duringADrag_givesItUp()
    {
        ShapeItem *item = editSquare();
        studio->driver->press(px({0, 0}));
        studio->driver->move(px({-9, -9}));
        studio->driver->move(px({-10, -10}));
        studio->key(Qt::Key_Escape);
        studio->driver->release(px({-10, -10}));
        QVERIFY(isNear(pointsOf(*item)[0], {0, 0}));
        QVERIFY(isNear(nodes().nodes().node({0, 0}).place, {0, 0}));
        QCOMPARE(studio->stack().count(), 0);
    }

    void polyline_clicksAndReturn_makeAPath()
    {
        studio->key(Qt::Key_Y);
        studio->driver->click(px({0, 0}));
        studio->driver->click(px({20, 0}));
        studio->driver->click(px({30, 30}));
        studio->key(Qt::Key_Backspace);
        studio->driver->click(px({20, 15}));
        studio->key(Qt::Key_Return);
        const auto items = studio::shapeItemsOf(*studio->document().scene());
        QCOMPARE(items.size(), 1);
        const QVector<QPointF> points = pointsOf(*items.first());
        QCOMPARE(points.size(), 3);
        QVERIFY(isNear(points[0], {0, 0}));
        QVERIFY(isNear(points[1], {20, 0}));
        QVERIFY(isNear(points[2], {20, 15}));
        QCOMPARE(studio->stack().count(), 1);
        QCOMPARE(studio->window->editor().tools().chosenId(), QByteArray("tool.select"));
        QCOMPARE(studio->selected().size(), 1);
        QVERIFY(studio->run("edit.undo"));
        QVERIFY(studio->ids().isEmpty());
    }

    void polyline_doubleClick_endsWithThatPoint()
    {
        studio->key(Qt::Key_Y);
        studio->driver->click(px({0, 0}));
        studio->driver->doubleClick(px({20, 10}));
        const auto items = studio::shapeItemsOf(*studio->document().scene());
        QCOMPARE(items.size(), 1);
        QCOMPARE(pointsOf(*items.first()).size(), 2);
    }

    void polyline_clickOnTheFirstPoint_closes()
    {
        studio->key(Qt::Key_Y);
        studio->driver->click(px({0, 0}));
        studio->driver->click(px({20, 0}));
        studio->driver->click(px({20, 20}));
        studio->driver->click(px({0, 0}));
        const auto items = studio::shapeItemsOf(*studio->document().scene());
        QCOMPARE(items.size(), 1);
        QVERIFY(hostkit::outlinesOf(*items.first()).first().isClosed());
        QCOMPARE(pointsOf(*items.first()).size(), 4);
    }

    void polyline_shift_keepsToSteps()
    {
        studio->key(Qt::Key_Y);
        studio->driver->click(px({0, 0}));
        studio->driver->click(px({30, 2}), Qt::ShiftModifier);
        studio->key(Qt::Key_Return);
        const QVector<QPointF> points =
            pointsOf(*studio::shapeItemsOf(*studio->document().scene()).first());
        QVERIFY(std::abs(points[1].y()) < 1e-9);
        QVERIFY(std::abs(points[1].x() - std::hypot(30, 2)) < 0.3);
    }

    void polyline_escape_givesUp_thenLeaves()
    {
        studio->key(Qt::Key_Y);
        studio->driver->click(px({0, 0}));
        studio->driver->click(px({20, 0}));
        studio->key(Qt::Key_Escape);
        QCOMPARE(studio->window->editor().tools().chosenId(), QByteArray("tool.polyline"));
        studio->key(Qt::Key_Escape);
        QCOMPARE(studio->window->editor().tools().chosenId(), QByteArray("tool.select"));
        QVERIFY(studio->ids().isEmpty());
        QCOMPARE(studio->stack().count(), 0);
    }

    void curve_dragFromAPoint_bends()
    {
        studio->key(Qt::Key_U);
        studio->driver->click(px({0, 0}));
        studio->driver->drag(px({20, 0}), px({30, 0}));
        studio->driver->click(px({20, 20}));
        studio->key(Qt::Key_Return);
        const auto items = studio::shapeItemsOf(*studio->document().scene());
        QCOMPARE(items.size(), 1);
        QVector<VectorPath::Piece> pieces;
        hostkit::outlinesOf(*items.first()).first().forEach([&](const VectorPath::Piece &piece) {
            pieces.append(piece);
        });
        QCOMPARE(pieces.size(), 2);
        QCOMPARE(pieces[0].kind, vectorkit::PieceKind::Cubic);
        QVERIFY(isNear(pieces[0].control2, {10, 0}));
        QVERIFY(isNear(pieces[1].control1, {30, 0}));
    }

private:
    ShapeItem *addSquare()
    {
        return hostkit::addGraphic(
            studio->document(), {VectorPath::polyline({{0, 0}, {20, 0}, {20, 20}, {0, 20}}, true)});
    }

    ShapeItem *editSquare()
    {
        ShapeItem *item = addSquare();
        studio->select({item});
        studio->key(Qt::Key_N);
        return item;
    }

    NodeTool &nodes() { return studio->window->editor().paths().nodes(); }

    static QPointF px(const QPointF &placeMm)
    {
        return ZTCoord::getInstance()->getMm2pixTransform().map(placeMm);
    }

    /** Within a pixel of the mouse. */
    static bool isNear(const QPointF &a, const QPointF &b)
    {
        return std::hypot(a.x() - b.x(), a.y() - b.y()) < 0.35;
    }

    static QVector<QPointF> pointsOf(const ShapeItem &item)
    {
        const VectorPath path = hostkit::outlinesOf(item).first();
        QVector<QPointF> points{path.start()};
        path.forEach([&](const VectorPath::Piece &piece) { points.append(piece.to); });
        return points;
    }

    std::unique_ptr<StudioWindow> studio;
};

QTEST_MAIN(tst_studio_nodes)
#include "tst_studio_nodes.moc"
