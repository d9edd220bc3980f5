#include "StudioWindow.h"

#include <studio/drawing/DrawingFiles.h>
#include <studio/groups/GroupTools.h>

#include <hostkit/items/ItemExtras.h>

#include <QtWidgets/QStatusBar>

using studio::ShapeItem;

/** Groups, as someone with a mouse meets them. */
class tst_studio_groups : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        studio = std::make_unique<StudioWindow>();
        // Boxes of 46.6 pixels: four in a row, gaps between them.
        for (int i = 0; i < 4; ++i)
            shapes << studio->addRect(-200.0 + i * 100.0, 0.0);
    }
    void cleanup()
    {
        shapes.clear();
        studio.reset();
    }

    void ctrlG_makesOneUndoableGroup()
    {
        studio->select({shapes[0], shapes[1]});
        studio->key(Qt::Key_G, Qt::ControlModifier);
        QCOMPARE(pathOf(0), QVector<qint32>{1});
        QCOMPARE(pathOf(1), QVector<qint32>{1});
        QCOMPARE(pathOf(2), QVector<qint32>());
        QCOMPARE(studio->stack().undoText(), QStringLiteral("Group"));
        studio->key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(pathOf(0), QVector<qint32>());
        studio->key(Qt::Key_Y, Qt::ControlModifier);
        QCOMPARE(pathOf(1), QVector<qint32>{1});
    }

    void click_selectsTheWholeGroup()
    {
        group({0, 1});
        click(1);
        QCOMPARE(studio->selected(), (QVector<int>{0, 1}));
        QVERIFY(studio->frameFits());
        click(2);
        QCOMPARE(studio->selected(), QVector<int>{2});
    }

    void rubberBand_overAMember_selectsTheWholeGroup()
    {
        group({0, 1});
        studio->driver->drag({-210, -60}, {-140, 60});
        QCOMPARE(studio->selected(), (QVector<int>{0, 1}));
    }

    void drag_movesTheWholeGroup_asOneStep()
    {
        group({0, 1});
        click(0);
        studio->driver->drag({-180, 20}, {-150, 90});
        QCOMPARE(shapes[0]->pos(), QPointF(-170, 70));
        QCOMPARE(shapes[1]->pos(), QPointF(-70, 70));
        QCOMPARE(shapes[2]->pos(), QPointF(0, 0));
        studio->key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(shapes[0]->pos(), QPointF(-200, 0));
        QCOMPARE(shapes[1]->pos(), QPointF(-100, 0));
    }

    void groupsInGroups_selectAndComeApartLevelByLevel()
    {
        group({0, 1});
        group({0, 1, 2});
        QCOMPARE(pathOf(0), (QVector<qint32>{2, 1}));
        QCOMPARE(pathOf(2), QVector<qint32>{2});
        click(2);
        QCOMPARE(studio->selected(), (QVector<int>{0, 1, 2}));
        studio->key(Qt::Key_G, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(studio->stack().undoText(), QStringLiteral("Ungroup"));
        QCOMPARE(pathOf(0), QVector<qint32>{1});
        QCOMPARE(pathOf(2), QVector<qint32>());
        studio->key(Qt::Key_G, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(pathOf(0), QVector<qint32>());
    }

    void doubleClick_enters_andEscapeLeaves()
    {
        group({0, 1});
        group({0, 1, 2});
        doubleClick(0);
        QCOMPARE(studio->window->editor().groups().entered(), QVector<qint32>{2});
        QCOMPARE(studio->selected(), (QVector<int>{0, 1})); // the inner group
        QVERIFY(told().startsWith(QStringLiteral("Within a group")));
        doubleClick(0);
        QCOMPARE(studio->selected(), QVector<int>{0});
        studio->key(Qt::Key_Escape);
        QCOMPARE(studio->selected(), (QVector<int>{0, 1}));
        studio->key(Qt::Key_Escape);
        QCOMPARE(studio->selected(), (QVector<int>{0, 1, 2}));
        QVERIFY(studio->window->editor().groups().entered().isEmpty());
        QCOMPARE(told(), QString());
        studio->key(Qt::Key_Escape);
        QVERIFY(studio->selected().isEmpty());
    }

    void within_membersMoveAlone_andAClickOutsideLeaves()
    {
        group({0, 1});
        doubleClick(0);
        studio->driver->drag({-180, 20}, {-180, 90});
        QCOMPARE(shapes[0]->pos(), QPointF(-200, 70));
        QCOMPARE(shapes[1]->pos(), QPointF(-100, 0));
        click(3);
        QVERIFY(studio->window->editor().groups().entered().isEmpty());
        click(1);
        QCOMPARE(studio->selected(), (QVector<int>{0, 1}));
    }

    void duplicate_makesAGroupOfItsOwn()
    {
        group({0, 1});
        click(0);
        studio->key(Qt::Key_D, Qt::ControlModifier);
        QCOMPARE(pathOf(0), QVector<qint32>{1});
        QCOMPARE(studio::groupPathOf(*item(4)), QVector<qint32>{2});
        QCOMPARE(studio::groupPathOf(*item(5)), QVector<qint32>{2});
        QCOMPARE(studio->selected(), (QVector<int>{4, 5}));
    }

    void duplicateWithin_staysInTheGroup()
    {
        group({0, 1});
        doubleClick(0);
        studio->key(Qt::Key_D, Qt::ControlModifier);
        QCOMPARE(studio::groupPathOf(*item(4)), QVector<qint32>{1});
    }

    void delete_takesTheWholeGroup()
    {
        group({0, 1});
        click(1);
        studio->key(Qt::Key_Delete);
        QCOMPARE(studio->ids(), (QVector<int>{2, 3}));
        studio->key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(studio->ids(), (QVector<int>{0, 1, 2, 3}));
        QCOMPARE(pathOf(0), QVector<qint32>{1});
    }

    void groupOfPartsOfGroups_leavesTheRestTogether()
    {
        group({0, 1});
        studio->select({shapes[1], shapes[2]}); // as the list selects
        studio->key(Qt::Key_G, Qt::ControlModifier);
        QCOMPARE(pathOf(1), QVector<qint32>{2});
        QCOMPARE(pathOf(2), QVector<qint32>{2});
        QCOMPARE(pathOf(0), QVector<qint32>{1});
    }

    void oneGroup_isNotGroupedOnceMore()
    {
        group({0, 1});
        click(0);
        const int steps = studio->stack().count();
        studio->key(Qt::Key_G, Qt::ControlModifier);
        QCOMPARE(studio->stack().count(), steps);
        QVERIFY(told().contains(QStringLiteral("one group already")));
    }

    void ungroup_withoutAGroup_saysSo()
    {
        click(3);
        const int steps = studio->stack().count();
        studio->key(Qt::Key_G, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(studio->stack().count(), steps);
        QVERIFY(told().contains(QStringLiteral("No group")));
    }

    void groups_areSavedWithTheDrawing()
    {
        group({0, 1});
        group({0, 1, 2});
        QVERIFY(studio->window->editor().files().saveTo(studio->path("groups.ztd")));
        studio->window->editor().files().startNew();
        QVERIFY(studio->window->editor().files().load(studio->path("groups.ztd")));
        QCOMPARE(studio::groupPathOf(*item(0)), (QVector<qint32>{2, 1}));
        QCOMPARE(studio::groupPathOf(*item(3)), QVector<qint32>());
    }

    void lockedMember_staysUnselected()
    {
        group({0, 1});
        hostkit::ItemExtras extras = hostkit::itemExtras(*shapes[1]);
        extras.isLocked = true;
        hostkit::setItemExtras(*shapes[1], extras);
        click(0);
        QCOMPARE(studio->selected(), QVector<int>{0});
    }

private:
    void group(const QVector<int> &which)
    {
        studio::ShapeItems members;
        for (const int i : which)
            members << shapes[i];
        studio->select(members);
        studio->key(Qt::Key_G, Qt::ControlModifier);
        studio->driver->click({300, 300}); // beside all
    }

    QPointF middleOf(int i) const { return studio::sceneBox(*shapes[i]).center(); }
    void click(int i)
    {
        studio->driver->click({300, 300});
        studio->driver->click(middleOf(i));
    }
    void doubleClick(int i) { studio->driver->doubleClick(middleOf(i)); }
    QVector<qint32> pathOf(int i) const { return studio::groupPathOf(*shapes[i]); }
    ShapeItem *item(int id) const { return studio->document().scene()->getItemById(id); }
    QString told() const { return studio->window->statusBar()->currentMessage(); }

    std::unique_ptr<StudioWindow> studio;
    studio::ShapeItems shapes;
};

QTEST_MAIN(tst_studio_groups)
#include "tst_studio_groups.moc"
