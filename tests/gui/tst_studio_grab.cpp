#include "StudioWindow.h"

#include <studio/canvas/DrawingTools.h>
#include <studio/groups/GroupTools.h>

#include <hostkit/items/ItemExtras.h>

#include <QtWidgets/QScrollBar>

using studio::ShapeItem;

/** One drag that takes hold of a shape and moves it, with all that may stand against it. */
class tst_studio_grab : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        studio = std::make_unique<StudioWindow>();
        // Boxes of 46.6 pixels: three in a row, gaps between them.
        for (int i = 0; i < 3; ++i)
            shapes << studio->addRect(-200.0 + i * 100.0, 0.0);
        QVERIFY(studio->run("view.snapToShapes"));
    }
    void cleanup()
    {
        shapes.clear();
        studio.reset();
    }

    void memberOfAGroup_movesTheGroup_asOneStep()
    {
        group({0, 1});
        studio->driver->drag({-180, 20}, {-150, 90});
        QCOMPARE(studio->selected(), (QVector<int>{0, 1}));
        QCOMPARE(shapes[0]->pos(), QPointF(-170, 70));
        QCOMPARE(shapes[1]->pos(), QPointF(-70, 70));
        QCOMPARE(shapes[2]->pos(), QPointF(0, 0));
        QCOMPARE(studio->stack().count(), 1);
        QVERIFY(studio->frameFits());
        studio->key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(shapes[0]->pos(), QPointF(-200, 0));
        QCOMPARE(shapes[1]->pos(), QPointF(-100, 0));
    }

    void withinAGroup_theMemberMovesAlone()
    {
        group({0, 1});
        studio->driver->doubleClick({-180, 20});
        studio->driver->drag({-80, 20}, {-80, 90}); // the other member, not selected
        QCOMPARE(studio->selected(), QVector<int>{1});
        QCOMPARE(shapes[0]->pos(), QPointF(-200, 0));
        QCOMPARE(shapes[1]->pos(), QPointF(-100, 70));
        QCOMPARE(studio->stack().count(), 1);
    }

    void lockedShape_isNeitherSelectedNorMoved()
    {
        hostkit::ItemExtras extras = hostkit::itemExtras(*shapes[0]);
        extras.isLocked = true;
        hostkit::setItemExtras(*shapes[0], extras);
        studio->driver->drag({-180, 20}, {-150, 90});
        QVERIFY(studio->selected().isEmpty());
        QCOMPARE(shapes[0]->pos(), QPointF(-200, 0));
        QCOMPARE(studio->stack().count(), 0);
    }

    void lockedMember_staysWhereItsGroupGoes()
    {
        group({0, 1});
        hostkit::ItemExtras extras = hostkit::itemExtras(*shapes[0]);
        extras.isLocked = true;
        hostkit::setItemExtras(*shapes[0], extras);
        studio->driver->drag({-180, 20}, {-150, 90});
        QCOMPARE(shapes[0]->pos(), QPointF(-200, 0));
        QCOMPARE(shapes[1]->pos(), QPointF(-100, 0));
        studio->driver->drag({-80, 20}, {-80, 90});
        QCOMPARE(shapes[0]->pos(), QPointF(-200, 0));
        QCOMPARE(shapes[1]->pos(), QPointF(-100, 70));
    }

    void hiddenShape_lets_whatIsUnderItMove()
    {
        hostkit::ItemExtras extras = hostkit::itemExtras(*shapes[1]);
        extras.isHidden = true;
        hostkit::setItemExtras(*shapes[1], extras);
        shapes[1]->setPos(shapes[0]->pos());
        studio->driver->drag({-180, 20}, {-180, 90});
        QCOMPARE(shapes[0]->pos(), QPointF(-200, 70));
        QCOMPARE(shapes[1]->pos(), QPointF(-200, 0));
    }

    void whileSpaceIsHeld_theViewMoves_andNothingElse()
    {
        const QPointF before = studio->view().mapToScene(studio->view().rect().center());
        QTest::keyPress(&studio->view(), Qt::Key_Space);
        studio->driver->drag({-180, 20}, {-150, 90});
        QTest::keyRelease(&studio->view(), Qt::Key_Space);
        QVERIFY(studio->selected().isEmpty());
        QCOMPARE(shapes[0]->pos(), QPointF(-200, 0));
        QCOMPARE(studio->stack().count(), 0);
        QVERIFY(studio->view().mapToScene(studio->view().rect().center()) != before);
    }

    void otherButtons_moveNothing()
    {
        studio->driver->press({-180, 20}, Qt::MiddleButton);
        studio->driver->move({-150, 60});
        studio->driver->release({-150, 60}, Qt::MiddleButton);
        QVERIFY(studio->selected().isEmpty());
        QCOMPARE(shapes[0]->pos(), QPointF(-200, 0));
        QCOMPARE(studio->stack().count(), 0);
    }

    // Ctrl adds to what is selected, as a click with it does, and suspends snapping.
    void withCtrl_theShapeJoinsTheSelection_andAllMoves()
    {
        studio->select({shapes[0]});
        studio->stack().clear();
        studio->driver->drag({-80, 20}, {-80, 90}, Qt::ControlModifier);
        QCOMPARE(studio->selected(), (QVector<int>{0, 1}));
        QCOMPARE(shapes[0]->pos(), QPointF(-200, 70));
        QCOMPARE(shapes[1]->pos(), QPointF(-100, 70));
        QCOMPARE(shapes[2]->pos(), QPointF(0, 0));
        QCOMPARE(studio->stack().count(), 1);
        studio->key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(shapes[0]->pos(), QPointF(-200, 0));
        QCOMPARE(shapes[1]->pos(), QPointF(-100, 0));
    }

    void ctrlAndClick_addsTheWholeGroup()
    {
        group({1, 2});
        studio->driver->click({-180, 20});
        studio->driver->click({-80, 20}, Qt::ControlModifier); // all of its group
        QCOMPARE(studio->selected(), (QVector<int>{0, 1, 2}));
        QCOMPARE(studio->stack().count(), 0);
        QCOMPARE(shapes[0]->pos(), QPointF(-200, 0));
    }

    void withShift_itIsThePlainDrag()
    {
        studio->select({shapes[0]});
        studio->stack().clear();
        studio->driver->drag({-80, 20}, {-80, 90}, Qt::ShiftModifier);
        QCOMPARE(studio->selected(), QVector<int>{1});
        QCOMPARE(shapes[0]->pos(), QPointF(-200, 0));
        QCOMPARE(shapes[1]->pos(), QPointF(-100, 70));
        QCOMPARE(studio->stack().count(), 1);
    }

    void aTool_drawsOverTheShape()
    {
        QVERIFY(studio->run("tool.rectangle"));
        studio->driver->drag({-180, 20}, {-100, 90});
        QCOMPARE(shapes[0]->pos(), QPointF(-200, 0));
        QCOMPARE(studio->selected(), QVector<int>{3});
        QCOMPARE(studio->stack().count(), 1);
    }

    void snapping_holdsForTheSameDrag()
    {
        QVERIFY(studio->run("view.snapToShapes")); // on again
        shapes[2]->setPos(200, -100);
        shapes[0]->setPos(0, 100);
        studio->driver->press({20, 120});
        studio->driver->move({100, 130});
        studio->driver->move({217, 140}); // 3 pixels short of the other's edges
        QCOMPARE(shapes[0]->pos(), QPointF(200, 120));
        studio->driver->release({217, 140});
        QCOMPARE(shapes[0]->pos(), QPointF(200, 120));
        QCOMPARE(studio->stack().count(), 1);
        studio->key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(shapes[0]->pos(), QPointF(0, 100));
    }

    void trembling_movesNothing()
    {
        studio->driver->press({-180, 20});
        studio->driver->move({-179, 21});
        studio->driver->release({-179, 21});
        QCOMPARE(studio->selected(), QVector<int>{0});
        QCOMPARE(shapes[0]->pos(), QPointF(-200, 0));
        QCOMPARE(studio->stack().count(), 0);
    }

    // The handles that came under the mouse work again for the next press.
    void handles_workAfterwards()
    {
        studio->driver->drag({-180, 20}, {-180, 120});
        const QRectF box = studio::sceneBox(*shapes[0]);
        studio->driver->drag(box.bottomRight(), box.bottomRight() + QPointF(40, 40));
        QVERIFY(studio::sceneBox(*shapes[0]).width() > box.width() + 30.0);
        QCOMPARE(studio->stack().count(), 2);
    }

    void click_withinTheFrame_selectsTheShapeUnderIt()
    {
        studio->select({shapes[0], shapes[2]});
        studio->driver->click({-80, 20}); // the one between them
        QCOMPARE(studio->selected(), QVector<int>{1});
        QCOMPARE(studio->stack().count(), 0);
        studio->driver->click({-150, 120}); // nothing is there
        QVERIFY(studio->selected().isEmpty());
    }

    void click_onOneOfTheSelected_leavesItAlone()
    {
        studio->select({shapes[0], shapes[2]});
        studio->driver->click({-180, 20});
        QCOMPARE(studio->selected(), QVector<int>{0});
    }

    void ctrlAndClick_withinTheFrame_addsTheShapeUnderIt()
    {
        studio->select({shapes[0], shapes[2]});
        studio->driver->click({-80, 20}, Qt::ControlModifier);
        QCOMPARE(studio->selected(), (QVector<int>{0, 1, 2}));
        QVERIFY(studio->frameFits());
    }

    void ctrlAndClick_onASelectedShape_takesItOut()
    {
        studio->select({shapes[0], shapes[1], shapes[2]});
        studio->driver->click({-80, 20}, Qt::ControlModifier);
        QCOMPARE(studio->selected(), (QVector<int>{0, 2}));
        QVERIFY(studio->frameFits());
        studio->driver->click({-180, 20}, Qt::ControlModifier);
        QCOMPARE(studio->selected(), QVector<int>{2});
        QVERIFY(studio->frameFits());
    }

    void clicks_withinTheFrame_takeWholeGroups()
    {
        group({0, 1});
        studio->select(studio::ShapeItems{shapes[0], shapes[1], shapes[2]});
        studio->driver->click({-80, 20}, Qt::ControlModifier);
        QCOMPARE(studio->selected(), QVector<int>{2});
        studio->select(studio::ShapeItems{shapes[0], shapes[1], shapes[2]});
        studio->driver->click({-80, 20});
        QCOMPARE(studio->selected(), (QVector<int>{0, 1}));
        // Within the group its members are on their own.
        studio->driver->doubleClick({-180, 20});
        QCOMPARE(studio->selected(), QVector<int>{0});
        studio->driver->click({-80, 20}, Qt::ControlModifier);
        QCOMPARE(studio->selected(), (QVector<int>{0, 1}));
        studio->driver->click({-80, 20}, Qt::ControlModifier);
        QCOMPARE(studio->selected(), QVector<int>{0});
        QCOMPARE(studio->stack().count(), 0);
    }

    void click_onTheTextOfASelectedPlate_selectsTheText()
    {
        ShapeItem *plate = shapes[0];
        plate->scale(4.0, 4.0);
        ShapeItem *text = studio->addRect(-150.0, 60.0); // above the plate
        studio->select({plate});
        studio->driver->click({-140, 70});
        QVERIFY(text->isSelected() && !plate->isSelected());
        QVERIFY(studio->frameFits());
        studio->driver->click({-190, 20});
        QVERIFY(!text->isSelected() && plate->isSelected());
    }

    void click_onWhatIsLockedWithinTheFrame_selectsNothing()
    {
        hostkit::ItemExtras extras = hostkit::itemExtras(*shapes[1]);
        extras.isLocked = true;
        hostkit::setItemExtras(*shapes[1], extras);
        studio->select({shapes[0], shapes[2]});
        studio->driver->click({-80, 20}, Qt::ControlModifier);
        QCOMPARE(studio->selected(), (QVector<int>{0, 2}));
        studio->driver->click({-80, 20});
        QVERIFY(studio->selected().isEmpty());
    }

    void drag_withinTheFrame_movesWhatIsSelected()
    {
        studio->select({shapes[0], shapes[2]});
        studio->driver->drag({-80, 20}, {-80, 60});
        QCOMPARE(studio->selected(), (QVector<int>{0, 2}));
        QCOMPARE(shapes[0]->pos(), QPointF(-200, 40));
        QCOMPARE(shapes[1]->pos(), QPointF(-100, 0));
    }

private:
    void group(const QVector<int> &members)
    {
        studio::ShapeItems items;
        for (const int member : members)
            items << shapes[member];
        studio->select(items);
        studio->key(Qt::Key_G, Qt::ControlModifier);
        studio->select({});
        studio->stack().clear();
    }

    std::unique_ptr<StudioWindow> studio;
    QVector<ShapeItem *> shapes;
};

QTEST_MAIN(tst_studio_grab)
#include "tst_studio_grab.moc"
