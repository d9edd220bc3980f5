#include "StudioWindow.h"

#include <studio/canvas/CanvasLines.h>
#include <studio/canvas/DrawingTools.h>
#include <studio/canvas/GuideTools.h>
#include <studio/canvas/SnapTools.h>
#include <studio/drawing/DrawingFiles.h>

#include <hostkit/view/ViewRulers.h>

#include <QtWidgets/QInputDialog>
#include <QtWidgets/QStatusBar>

using studio::Guide;
using studio::ShapeItem;

/** Guides, rulers, and what dragged shapes snap to. */
class tst_studio_snapping : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        studio = std::make_unique<StudioWindow>();
        pxPerMm = 900.0 / 193.0;
        side = 10.0 * pxPerMm;
    }
    void cleanup() { studio.reset(); }

    void movedShape_snapsToAnEdge_andALineShowsWhy()
    {
        studio->addRect(200, -100);
        ShapeItem *moved = studio->addRect(0, 100);
        studio->select({moved});
        // Its left edge would come to 197.
        studio->driver->press({20, 120});
        studio->driver->move({100, 130});
        studio->driver->move({217, 140});
        QCOMPARE(moved->pos(), QPointF(200, 120));
        QCOMPARE(shownLines().size(), 3); // both edges and the middle of an equally wide one
        QCOMPARE(shownLines().first().x1(), 200.0);
        QVERIFY(told().startsWith(QStringLiteral("Snaps to: edge, middle")));
        studio->driver->release({217, 140});
        QCOMPARE(moved->pos(), QPointF(200, 120));
        QVERIFY(shownLines().isEmpty());
        QCOMPARE(told(), QString());
        QVERIFY(studio->frameFits());
        QCOMPARE(studio->stack().count(), 1);
        studio->key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(moved->pos(), QPointF(0, 100));
    }

    void ctrl_suspendsSnapping()
    {
        studio->addRect(200, -100);
        ShapeItem *moved = studio->addRect(0, 100);
        studio->select({moved});
        studio->driver->press({20, 120});
        studio->driver->move({100, 130}, Qt::ControlModifier);
        studio->driver->move({217, 140}, Qt::ControlModifier);
        studio->driver->release({217, 140}, Qt::LeftButton, Qt::ControlModifier);
        QCOMPARE(moved->pos(), QPointF(197, 120));
    }

    void switchedOff_nothingAttracts()
    {
        studio->addRect(200, -100);
        ShapeItem *moved = studio->addRect(0, 100);
        studio->select({moved});
        QVERIFY(studio->run("view.snapToShapes"));
        QVERIFY(!studio->window->commands().named("view.snapToShapes")->isChecked());
        studio->driver->drag({20, 120}, {217, 140});
        QCOMPARE(moved->pos(), QPointF(197, 120));
    }

    void trembling_movesNothing()
    {
        ShapeItem *moved = studio->addRect(0, 100);
        studio->select({moved});
        studio->driver->press({20, 120});
        studio->driver->move({21, 121});
        studio->driver->release({21, 121});
        QCOMPARE(moved->pos(), QPointF(0, 100));
        QCOMPARE(studio->stack().count(), 0);
    }

    void drawnShape_snapsToEndPoints()
    {
        studio->key(Qt::Key_L);
        studio->driver->drag({-150, -100}, {-100, -120});
        studio->key(Qt::Key_L);
        studio->driver->drag({-103, -118}, {-20, 60});
        auto *line = studio->document().scene()->getItemById(1);
        const QPolygonF ends = line->getShapeBase()->getLines().toSubpathPolygons().first();
        QVERIFY((line->mapToScene(ends.first()) - QPointF(-100, -120)).manhattanLength() < 1e-9);
    }

    void shiftOnAHandle_keepsProportions_data()
    {
        QTest::addColumn<QPointF>("handle");
        QTest::addColumn<QPointF>("way");
        QTest::addColumn<QRectF>("share"); // of the box: where it ends up
        // From the lower right corner twice as far to the right as down: the wider factor counts.
        QTest::newRow("corner") << QPointF(1, 1) << QPointF(1.0, 0.5) << QRectF(0, 0, 2, 2);
        QTest::newRow("right edge")
            << QPointF(1, 0.5) << QPointF(1.0, 0.0) << QRectF(0, -0.5, 2, 2);
        QTest::newRow("top edge") << QPointF(0.5, 0) << QPointF(0.0, -0.5)
                                  << QRectF(-0.25, -0.5, 1.5, 1.5);
    }

    void shiftOnAHandle_keepsProportions()
    {
        QFETCH(QPointF, handle);
        QFETCH(QPointF, way);
        QFETCH(QRectF, share);
        ShapeItem *resized = studio->addRect(0, 0);
        resized->setTransformParam(QTransform::fromScale(4.0, 2.0));
        const QSizeF size(4 * side, 2 * side);
        studio->select({resized});
        const QPointF outside((handle.x() * 2 - 1) * 11, (handle.y() * 2 - 1) * 11);
        const QPointF from =
            QPointF(handle.x() * size.width(), handle.y() * size.height()) + outside;
        const QPointF to = from + QPointF(way.x() * size.width(), way.y() * size.height());
        studio->driver->press(from, Qt::LeftButton);
        studio->driver->move((from + to) / 2, Qt::ShiftModifier);
        studio->driver->move(to, Qt::ShiftModifier);
        studio->driver->release(to, Qt::LeftButton, Qt::ShiftModifier);
        const QRectF expected(share.x() * size.width(), share.y() * size.height(),
                              share.width() * size.width(), share.height() * size.height());
        const QRectF box = studio::sceneBox(*resized);
        // The mouse stands between pixels of the screen by up to one.
        QVERIFY((box.topLeft() - expected.topLeft()).manhattanLength() < 3.0);
        QVERIFY((box.bottomRight() - expected.bottomRight()).manhattanLength() < 3.0);
        QVERIFY(std::abs(box.width() / box.height() - 2.0) < 1e-9);
        QVERIFY(studio->frameFits());
        studio->key(Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(std::abs(studio::sceneBox(*resized).width() - size.width()) < 1e-9);
    }

    void guide_isDraggedOutOfARuler_asOneStep()
    {
        dragOutOfRuler(Qt::Vertical, {93, 0});
        QCOMPARE(guides().size(), 1);
        QCOMPARE(guides().first().orientation, Qt::Vertical);
        // 93 pixels are 19.943 mm, as it is shown.
        QCOMPARE(guides().first().atMm, 19.943);
        QCOMPARE(studio->stack().undoText(), QStringLiteral("Add guide"));
        QVERIFY(studio->window->isWindowModified());
        studio->key(Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(guides().isEmpty());
        studio->key(Qt::Key_Y, Qt::ControlModifier);
        QCOMPARE(guides().size(), 1);
    }

    void guide_isMoved_andDroppedBesideTheCanvasToRemoveIt()
    {
        dragOutOfRuler(Qt::Horizontal, {0, 60});
        studio->driver->drag({100, 60}, {100, 120});
        QCOMPARE(guides().size(), 1);
        QVERIFY(std::abs(guides().first().atMm - 120 / pxPerMm) < 0.001);
        QCOMPARE(studio->stack().undoText(), QStringLiteral("Move guide"));
        studio->driver->press({100, 120});
        studio->driver->move({100, 0});
        const double above = studio->view().mapToScene(0, -10).y();
        studio->driver->move({100, above});
        studio->driver->release({100, above});
        QVERIFY(guides().isEmpty());
        QCOMPARE(studio->stack().undoText(), QStringLiteral("Remove guide"));
    }

    void guide_thatIsClicked_staysWhereItIs()
    {
        give({{Qt::Vertical, 20.0}});
        studio->driver->click(QPointF(qRound(20.0 * pxPerMm) + 2, 80));
        QCOMPARE(guides(), (QVector<Guide>{{Qt::Vertical, 20.0}}));
        QCOMPARE(studio->stack().count(), 0);
    }

    void guide_isPutToAnExactPlace()
    {
        dragOutOfRuler(Qt::Vertical, {93, 0});
        studio->driver->doubleClick({93, 100});
        auto *dialog = studio->window->findChild<QInputDialog *>(QStringLiteral("guideDialog"));
        QVERIFY(dialog != nullptr);
        dialog->setDoubleValue(12.5);
        QTest::keyClick(dialog, Qt::Key_Return);
        QCoreApplication::processEvents();
        QCOMPARE(guides(), (QVector<Guide>{{Qt::Vertical, 12.5}}));
    }

    void shape_snapsToACrossOfGuides_exactly()
    {
        give({{Qt::Vertical, 20.0}, {Qt::Horizontal, 15.0}});
        ShapeItem *moved = studio->addRect(-100, -100);
        studio->select({moved});
        const QPointF cross(20.0 * pxPerMm, 15.0 * pxPerMm);
        const QPointF way = (cross - QPointF(-100, -100)).toPoint() + QPoint(3, -2);
        studio->driver->drag({-80, -80}, QPointF(-80, -80) + way);
        QVERIFY((moved->pos() - cross).manhattanLength() < 1e-9);
    }

    void guides_areSavedWithTheDrawing()
    {
        const QVector<Guide> some = {{Qt::Vertical, 20.0}, {Qt::Horizontal, -1.25}};
        give(some);
        QVERIFY(studio->window->editor().files().saveTo(studio->path("guides.ztd")));
        studio->window->editor().files().startNew();
        QVERIFY(guides().isEmpty());
        QVERIFY(guideLines().isEmpty());
        QVERIFY(studio->window->editor().files().load(studio->path("guides.ztd")));
        QCOMPARE(guides(), some);
        QCOMPARE(guideLines().size(), 2);
    }

    void guides_areAllRemovedAtOnce()
    {
        give({{Qt::Vertical, 20.0}, {Qt::Horizontal, -1.25}});
        QVERIFY(studio->run("view.removeGuides"));
        QVERIFY(guides().isEmpty());
        QVERIFY(studio->run("edit.undo"));
        QCOMPARE(guides().size(), 2);
    }

    void guideUnderAShape_doesNotTakeTheMouse()
    {
        give({{Qt::Vertical, 20.0}});
        ShapeItem *item = studio->addRect(20.0 * pxPerMm - 10, 0);
        studio->driver->click(QPointF(qRound(20.0 * pxPerMm), 20));
        QVERIFY(item->isSelected());
        QCOMPARE(guides().size(), 1);
    }

    void grid_attractsTheFirstCorner_whenAsked()
    {
        QVERIFY(studio->run("view.snapToGrid"));
        ShapeItem *moved = studio->addRect(-100, -100);
        studio->select({moved});
        studio->driver->drag({-80, -80}, {-80 + 103, -80 + 98});
        // The grid is 2 mm wide here: the least of 8 pixels.
        const double gridPx = 2.0 * pxPerMm;
        const double x = moved->pos().x() / gridPx;
        const double y = moved->pos().y() / gridPx;
        QVERIFY(std::abs(x - std::round(x)) < 1e-9);
        QVERIFY(std::abs(y - std::round(y)) < 1e-9);
        QVERIFY((moved->pos() - QPointF(3, -2)).manhattanLength() < gridPx);
    }

    void rulers_areShownAndHidden()
    {
        auto *rulers = studio->window->findChild<hostkit::ViewRulers *>();
        QVERIFY(rulers->horizontal().isVisible());
        QVERIFY(studio->run("view.rulers"));
        QVERIFY(!rulers->horizontal().isVisible());
        QVERIFY(!studio->window->commands().named("view.rulers")->isChecked());
    }

    void resizedShape_snapsWithItsEdge()
    {
        studio->addRect(200, -100);
        ShapeItem *resized = studio->addRect(0, 100);
        studio->select({resized});
        // The handle right of the frame, in the middle of its right edge.
        const QPointF handle(side + 11, 100 + side / 2);
        studio->driver->drag(handle, handle + QPointF(200 - side - 4, 0));
        QVERIFY(std::abs(studio::sceneBox(*resized).right() - 200.0) < 1e-9);
        QVERIFY(std::abs(studio::sceneBox(*resized).height() - side) < 1e-9);
    }

private:
    QVector<Guide> guides() const { return studio->window->editor().guides().guides(); }
    QString told() const { return studio->window->statusBar()->currentMessage(); }

    void give(const QVector<Guide> &wanted)
    {
        hostkit::DrawingExtras extras = hostkit::drawingExtras(studio->document());
        studio::setGuides(wanted, &extras);
        hostkit::setDrawingExtras(studio->document(), extras);
        studio->window->editor().guides().follow();
    }

    QVector<QLineF> linesOf(bool areGuides) const
    {
        QVector<QLineF> lines;
        for (QGraphicsItem *item : studio->document().scene()->items()) {
            const auto *shown = dynamic_cast<studio::CanvasLines *>(item);
            if (shown == nullptr)
                continue;
            for (const QLineF &line : shown->lines()) {
                if ((line.length() > 60000) == areGuides)
                    lines << line;
            }
        }
        return lines;
    }
    QVector<QLineF> shownLines() const { return linesOf(false); }
    QVector<QLineF> guideLines() const { return linesOf(true); }

    /** Presses on the ruler along which such a guide runs, and releases on the canvas. */
    void dragOutOfRuler(Qt::Orientation orientation, const QPointF &toPx)
    {
        auto *rulers = studio->window->findChild<hostkit::ViewRulers *>();
        QWidget *ruler = orientation == Qt::Vertical
                             ? static_cast<QWidget *>(&rulers->vertical())
                             : static_cast<QWidget *>(&rulers->horizontal());
        const QPoint on = ruler->rect().center();
        const QPoint to = ruler->mapFromGlobal(
            studio->view().viewport()->mapToGlobal(studio->view().mapFromScene(toPx)));
        QTest::mousePress(ruler, Qt::LeftButton, Qt::NoModifier, on);
        QTest::mouseMove(ruler, (on + to) / 2);
        QTest::mouseMove(ruler, to);
        QTest::mouseRelease(ruler, Qt::LeftButton, Qt::NoModifier, to);
        QCoreApplication::processEvents();
    }

    std::unique_ptr<StudioWindow> studio;
    double pxPerMm = 1.0;
    double side = 0.0;
};

QTEST_MAIN(tst_studio_snapping)
#include "tst_studio_snapping.moc"
