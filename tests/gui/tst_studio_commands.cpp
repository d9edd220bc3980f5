#include "StudioWindow.h"

#include <QtWidgets/QDockWidget>
#include <QtWidgets/QInputDialog>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QToolBar>

using studio::ShapeItem;

class tst_studio_commands : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { studio = std::make_unique<StudioWindow>(); }
    void cleanup() { studio.reset(); }

    void emptyDrawing_greysWhatMakesNoSense()
    {
        for (const char *id : {"edit.undo", "edit.redo", "edit.delete", "edit.selectAll",
                               "edit.duplicate", "arrange.left", "arrange.mirrorVertical",
                               "arrange.matrix", "file.exportAll", "nudge.left"})
            QVERIFY2(!studio->isEnabled(id), id);
        for (const char *id : {"create.rectangle", "file.import", "view.home"})
            QVERIFY2(studio->isEnabled(id), id);
    }

    void contextMenu_leftWithEscape_changesNothing()
    {
        ShapeItem *first = studio->addRect(100, 100);
        ShapeItem *second = studio->addRect(200, 120);
        studio->select({first, second});
        QVERIFY(studio->run("edit.duplicate"));
        QVERIFY(studio->run("edit.undo"));
        studio->select({first, second});
        const DrawingSnapshot before = studio->snapshot();
        QVERIFY(studio->driver->escapeMenu({120, 115}));
        COMPARE_DRAWINGS(studio->snapshot(), before);
        QVERIFY(studio->stack().canRedo());
        QCOMPARE(studio->selected().size(), 2);
    }

    void contextMenu_onAShape_selectsItAndIsAboutIt()
    {
        ShapeItem *first = studio->addRect(100, 100);
        ShapeItem *second = studio->addRect(300, 100);
        studio->select({first});
        QString name;
        QVERIFY(studio->driver->contextMenu(studio::sceneBox(*second).center(),
                                            [&](QMenu *menu) { name = menu->objectName(); }));
        QCOMPARE(name, QStringLiteral("shapeMenu"));
        QVERIFY(second->isSelected() && !first->isSelected());
        QVERIFY(studio->driver->chooseFromMenu(studio::sceneBox(*second).center(),
                                               QStringLiteral("&Delete")));
        QCoreApplication::processEvents();
        QCOMPARE(studio->ids().size(), 1);
        QVERIFY(studio->run("edit.undo"));
        QCOMPARE(studio->ids().size(), 2);
    }

    void contextMenu_withinTheFrameOfSeveral_keepsThemSelected()
    {
        studio->select({studio->addRect(100, 100), studio->addRect(300, 100)});
        QString name;
        QVERIFY(studio->driver->contextMenu({200, 110},
                                            [&](QMenu *menu) { name = menu->objectName(); }));
        QCOMPARE(name, QStringLiteral("shapeMenu"));
        QCOMPARE(studio->selected().size(), 2);
        // The frame has let go of the mouse: what is moved next is not dragged along.
        QVERIFY(studio->document().scene()->mouseGrabberItem() == nullptr);
    }

    void contextMenu_besideAllShapes_isAboutTheDrawing()
    {
        ShapeItem *item = studio->addRect(100, 100);
        studio->select({item});
        QString name;
        QVERIFY(studio->driver->contextMenu({-200, -200},
                                            [&](QMenu *menu) { name = menu->objectName(); }));
        QCOMPARE(name, QStringLiteral("canvasMenu"));
        QVERIFY(studio->selected().isEmpty());
        QVERIFY(studio->driver->chooseFromMenu({-200, -200}, QStringLiteral("&Rectangle")));
        QCoreApplication::processEvents();
        QCOMPARE(studio->ids().size(), 2);
    }

    void contextMenu_inTheList_isAboutTheSelectedShapes()
    {
        studio->select({studio->addRect(100, 100)});
        auto *tree = shownTree();
        const QPoint pos = tree->visualRect(tree->model()->index(0, 0)).center();
        QContextMenuEvent asked(QContextMenuEvent::Mouse, pos, tree->viewport()->mapToGlobal(pos));
        QApplication::sendEvent(tree->viewport(), &asked);
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QVERIFY(menu);
        QCOMPARE(menu->objectName(), QStringLiteral("shapeMenu"));
        menu->close();
    }

    void menuKey_opensTheMenuOfWhatIsSelected()
    {
        studio->select({studio->addRect(100, 100)});
        QContextMenuEvent asked(QContextMenuEvent::Keyboard, QPoint(1, 1), QPoint(1, 1));
        QApplication::sendEvent(studio->view().viewport(), &asked);
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        QVERIFY(menu);
        QCOMPARE(menu->objectName(), QStringLiteral("shapeMenu"));
        QCOMPARE(studio->selected().size(), 1);
        menu->close();
    }

    void selection_decidesWhatCanBeDone()
    {
        ShapeItem *first = studio->addRect(0, 0);
        ShapeItem *second = studio->addRect(60, 0);
        QVERIFY(studio->isEnabled("edit.selectAll"));
        QVERIFY(!studio->isEnabled("edit.delete"));
        studio->select({first});
        QVERIFY(studio->isEnabled("edit.delete"));
        QVERIFY(studio->isEnabled("arrange.matrix"));
        QVERIFY(!studio->isEnabled("arrange.left"));
        studio->select({first, second});
        QVERIFY(studio->isEnabled("arrange.left"));
        QVERIFY(studio->isEnabled("arrange.matrix"));
    }

    void create_eachKind_addsOneUndoableShapeAndSelectsIt_data()
    {
        QTest::addColumn<QByteArray>("id");
        QTest::addColumn<QString>("kind");
        QTest::newRow("rectangle") << QByteArray("create.rectangle") << QStringLiteral("Rect");
        QTest::newRow("ellipse") << QByteArray("create.ellipse") << QStringLiteral("Ellipse");
        QTest::newRow("polygon") << QByteArray("create.polygon") << QStringLiteral("Polygon");
        QTest::newRow("line") << QByteArray("create.line") << QStringLiteral("Line");
        QTest::newRow("tdot") << QByteArray("create.tdot") << QStringLiteral("TDOT");
    }

    void create_eachKind_addsOneUndoableShapeAndSelectsIt()
    {
        QFETCH(QByteArray, id);
        QFETCH(QString, kind);
        QVERIFY(studio->run(id.constData()));
        QCOMPARE(studio->snapshot().rows, QStringList{QStringLiteral("0 ") + kind});
        QCOMPARE(studio->selected(), QVector<int>{0});
        QCOMPARE(studio->stack().count(), 1);
        QVERIFY(studio->run(id.constData()));
        QCOMPARE(studio->ids(), (QVector<int>{0, 1}));
        studio->key(Qt::Key_Z, Qt::ControlModifier);
        studio->key(Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(studio->ids().isEmpty());
        studio->key(Qt::Key_Y, Qt::ControlModifier);
        studio->key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(studio->ids(), (QVector<int>{0, 1}));
    }

    void keys_selectDuplicateDeleteDeselect()
    {
        studio->addRect(0, 0);
        studio->addRect(60, 0);
        studio->key(Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(studio->selected(), (QVector<int>{0, 1}));
        studio->key(Qt::Key_D, Qt::ControlModifier);
        QCOMPARE(studio->ids(), (QVector<int>{0, 1, 2, 3}));
        QCOMPARE(studio->selected(), (QVector<int>{2, 3}));
        studio->key(Qt::Key_Delete);
        QCOMPARE(studio->ids(), (QVector<int>{0, 1}));
        studio->key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(studio->selected(), (QVector<int>{2, 3}));
        studio->key(Qt::Key_Escape);
        QVERIFY(studio->selected().isEmpty());
        studio->key(Qt::Key_I, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(studio->selected().size(), 4);
    }

    void duplicate_standsFiveMillimetresAside()
    {
        ShapeItem *source = studio->addRect(0, 0);
        source->setPenId(7);
        studio->select({source});
        QVERIFY(studio->run("edit.duplicate"));
        const ShapeItem *copy = studio->document().scene()->getItemById(1);
        const double offset = ZTCoord::getInstance()->mm2pix(5.0);
        QCOMPARE(copy->pos(), QPointF(offset, offset));
        QCOMPARE(copy->getPenId(), 7);
        QCOMPARE(studio->stack().undoText(), QStringLiteral("Duplicate"));
    }

    void arrows_nudge_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
        QTest::addColumn<QPointF>("byMm");
        using Modifiers = Qt::KeyboardModifiers;
        QTest::newRow("left") << int(Qt::Key_Left) << Modifiers() << QPointF(-1, 0);
        QTest::newRow("down") << int(Qt::Key_Down) << Modifiers() << QPointF(0, 1);
        QTest::newRow("Shift right")
            << int(Qt::Key_Right) << Modifiers(Qt::ShiftModifier) << QPointF(10, 0);
        QTest::newRow("Ctrl up") << int(Qt::Key_Up) << Modifiers(Qt::ControlModifier)
                                 << QPointF(0, -0.1);
    }

    void arrows_nudge()
    {
        QFETCH(int, key);
        QFETCH(Qt::KeyboardModifiers, modifiers);
        QFETCH(QPointF, byMm);
        ShapeItem *moved = studio->addRect(10, 20);
        ShapeItem *left = studio->addRect(80, 80);
        studio->select({moved});
        studio->key(key, modifiers);
        const QPointF expected =
            QPointF(10, 20) + ZTCoord::getInstance()->getMm2pixTransform().map(byMm);
        QVERIFY((moved->pos() - expected).manhattanLength() < 1e-9);
        QCOMPARE(left->pos(), QPointF(80, 80));
        QVERIFY(studio->frameFits());
        QCOMPARE(studio->stack().count(), 1);
        QVERIFY(studio->run("edit.undo"));
        QCOMPARE(moved->pos(), QPointF(10, 20));
        QVERIFY(studio->frameFits());
    }

    void arrows_withoutSelection_scrollTheView()
    {
        const QPointF before = studio->view().mapToScene(0, 0);
        studio->key(Qt::Key_Right);
        QVERIFY(studio->view().mapToScene(0, 0) != before);
        QCOMPARE(studio->stack().count(), 0);
    }

    void align_usesTheBoxesThatAreSeen_data()
    {
        QTest::addColumn<QByteArray>("id");
        QTest::addColumn<QPointF>("first");
        QTest::addColumn<QPointF>("second");
        // Boxes at (0, 0) and (100, 50), both one side wide; the group spans both.
        QTest::newRow("left") << QByteArray("arrange.left") << QPointF(0, 0) << QPointF(0, 50);
        QTest::newRow("right") << QByteArray("arrange.right") << QPointF(100, 0)
                               << QPointF(100, 50);
        QTest::newRow("centres across")
            << QByteArray("arrange.hcenter") << QPointF(50, 0) << QPointF(50, 50);
        QTest::newRow("top") << QByteArray("arrange.top") << QPointF(0, 0) << QPointF(100, 0);
        QTest::newRow("bottom") << QByteArray("arrange.bottom") << QPointF(0, 50)
                                << QPointF(100, 50);
        QTest::newRow("centres down")
            << QByteArray("arrange.vcenter") << QPointF(0, 25) << QPointF(100, 25);
        QTest::newRow("centre") << QByteArray("arrange.center") << QPointF(50, 25)
                                << QPointF(50, 25);
    }

    void align_usesTheBoxesThatAreSeen()
    {
        QFETCH(QByteArray, id);
        QFETCH(QPointF, first);
        QFETCH(QPointF, second);
        ShapeItem *one = studio->addRect(0, 0);
        ShapeItem *two = studio->addRect(100, 50);
        // Mirrored about its own origin: its box now ends where it stood.
        two->scale(-1, -1);
        two->setPos(two->pos() +
                    QPointF(two->boundingRect().width(), two->boundingRect().height()));
        const QPointF oneBefore = one->pos();
        const QPointF twoBefore = two->pos();
        studio->select({one, two});
        QVERIFY(studio->run(id.constData()));
        QVERIFY((studio::sceneBox(*one).topLeft() - first).manhattanLength() < 1e-9);
        QVERIFY((studio::sceneBox(*two).topLeft() - second).manhattanLength() < 1e-9);
        QVERIFY(studio->frameFits());
        QCOMPARE(studio->stack().count(), 1);
        QVERIFY(studio->run("edit.undo"));
        QCOMPARE(one->pos(), oneBefore);
        QCOMPARE(two->pos(), twoBefore);
    }

    void rotateByDialog_turnsOnAcceptOnly()
    {
        ShapeItem *item = studio->addRect(0, 0);
        studio->select({item});
        QVERIFY(studio->run("arrange.rotate"));
        auto *dialog = studio->window->findChild<QInputDialog *>();
        QVERIFY(dialog != nullptr);
        dialog->setDoubleValue(30.0);
        QTest::keyClick(dialog, Qt::Key_Escape);
        QCOMPARE(studio->stack().count(), 0);
        QTRY_VERIFY(studio->window->findChild<QInputDialog *>() == nullptr);

        QVERIFY(studio->run("arrange.rotate"));
        dialog = studio->window->findChild<QInputDialog *>();
        dialog->setDoubleValue(90.0);
        QTest::keyClick(dialog, Qt::Key_Return);
        QCOMPARE(studio->stack().count(), 1);
        // Anticlockwise: its right points up.
        QCOMPARE(item->getTransformParam().m12(), -1.0);
    }

    void rotateAndMirror_areSingleSteps()
    {
        ShapeItem *item = studio->addRect(0, 0);
        studio->select({item});
        for (const char *id : {"arrange.rotateRight", "arrange.rotateLeft",
                               "arrange.mirrorHorizontal", "arrange.mirrorVertical"})
            QVERIFY(studio->run(id));
        QCOMPARE(studio->stack().count(), 4);
        while (studio->isEnabled("edit.undo"))
            studio->run("edit.undo");
        QVERIFY(item->getTransformParam().isIdentity());
        QCOMPARE(item->pos(), QPointF(0, 0));
    }

    void undoWhileDragging_endsTheDragFirst()
    {
        ShapeItem *item = studio->addRect(0, 0);
        studio->select({item});
        studio->driver->press({20, 20});
        studio->driver->move({40, 20});
        studio->driver->move({60, 20});
        QVERIFY(item->pos() != QPointF(0, 0));
        QVERIFY(studio->isEnabled("edit.delete"));
        studio->key(Qt::Key_Z, Qt::ControlModifier);
        studio->driver->release({60, 20});
        QVERIFY(studio->stack().count() <= 1);
        studio->edit().undo();
        QCOMPARE(item->pos(), QPointF(0, 0));
    }

    void dragAndResize_haveReadableTexts()
    {
        ShapeItem *item = studio->addRect(0, 0);
        studio->select({item});
        studio->driver->drag({20, 20}, {60, 40});
        QCOMPARE(actionText("edit.undo"), QStringLiteral("&Undo: Move"));
        const QRectF box = studio::sceneBox(*item);
        // The handle stands just outside the corner.
        studio->driver->drag(box.bottomRight() + QPointF(10, 10),
                             box.bottomRight() + QPointF(40, 30));
        QCOMPARE(actionText("edit.undo"), QStringLiteral("&Undo: Resize"));
        QVERIFY(studio->run("edit.undo"));
        QVERIFY(studio->frameFits());
        QCOMPARE(actionText("edit.redo"), QStringLiteral("&Redo: Resize"));
    }

    void newDrawing_asksFirst()
    {
        studio->run("create.rectangle");
        QVERIFY(studio->run("file.new"));
        auto *question = studio->window->findChild<QMessageBox *>();
        QVERIFY(question != nullptr);
        QTest::keyClick(question, Qt::Key_Escape);
        QCOMPARE(studio->ids().size(), 1);
        QTRY_VERIFY(studio->window->findChild<QMessageBox *>() == nullptr);

        studio->run("file.new");
        question = studio->window->findChild<QMessageBox *>();
        for (QAbstractButton *button : question->buttons()) {
            if (question->buttonRole(button) == QMessageBox::DestructiveRole)
                QTest::mouseClick(button, Qt::LeftButton);
        }
        QVERIFY(studio->ids().isEmpty());
        QCOMPARE(studio->stack().count(), 0);
        const auto *tree = shownTree();
        QCOMPARE(tree->model()->headerData(0, Qt::Horizontal).toString(), QStringLiteral("id"));
        studio->run("create.rectangle");
        QCOMPARE(studio->ids(), QVector<int>{0});
    }

    void sampleDrawing_isOneUndoableStep()
    {
        QVERIFY(studio->run("file.sample"));
        QVERIFY(studio->ids().size() > 30);
        QCOMPARE(studio->stack().count(), 1);
        QVERIFY(studio->run("edit.undo"));
        QVERIFY(studio->ids().isEmpty());
    }

    void treeSelection_selectsInTheDrawing()
    {
        studio->addRect(0, 0);
        studio->addRect(60, 0);
        auto *tree = shownTree();
        const QRect row = tree->visualRect(tree->model()->index(1, 0));
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, Qt::NoModifier, row.center());
        QCOMPARE(studio->selected(), QVector<int>{1});
        // Keys that mean something to the tree stay with it.
        QTest::keyClick(tree, Qt::Key_Up);
        QCOMPARE(studio->selected(), QVector<int>{0});
        QCOMPARE(studio->stack().count(), 0);
        QTest::keyClick(tree, Qt::Key_Delete);
        QCOMPARE(studio->ids(), QVector<int>{1});
    }

    void selectionInTheDrawing_isBroughtIntoSightInTheTree()
    {
        for (int i = 0; i < 200; ++i)
            studio->addRect(i, i);
        auto *tree = shownTree();
        const QModelIndex last = tree->model()->index(199, 0);
        QVERIFY(!tree->viewport()->rect().contains(tree->visualRect(last)));
        studio->select({studio->document().scene()->getItemById(199)});
        QCoreApplication::processEvents();
        QVERIFY(tree->viewport()->rect().intersects(tree->visualRect(last)));
    }

    void everyCommand_standsInTheMenus()
    {
        QList<QAction *> reachable;
        collect(studio->window->menuBar()->actions(), reachable);
        for (const studio::Command &command : studio::commandTable())
            QVERIFY2(reachable.contains(studio->window->commands().action(command.id)), command.id);
    }

    void toolBarButtons_haveIconsAndTips()
    {
        const auto bars = studio->window->findChildren<QToolBar *>();
        QVERIFY(bars.size() >= 5);
        for (const QToolBar *bar : bars) {
            for (const QAction *action : bar->actions()) {
                if (action->isSeparator())
                    continue;
                QVERIFY2(!action->icon().isNull(), qPrintable(action->objectName()));
                QVERIFY2(!action->toolTip().isEmpty(), qPrintable(action->objectName()));
                QVERIFY2(!action->toolTip().contains(QStringLiteral("()")),
                         qPrintable(action->toolTip()));
            }
        }
    }

    void windowClosedWithSelectionAndSteps_isHarmless()
    {
        studio->run("file.sample");
        studio->run("edit.selectAll");
        studio->run("edit.delete");
        studio->run("edit.undo");
        studio->run("create.line");
        studio->run("arrange.matrix");
        studio->window->close();
        auto *question = studio->window->findChild<QMessageBox *>(QStringLiteral("lossQuestion"));
        QTest::mouseClick(question->button(QMessageBox::Discard), Qt::LeftButton);
        QVERIFY(!studio->window->isVisible());
        studio->window.reset();
    }

private:
    /** The engine's tree, which is put away at first. */
    ZTObjectTreeWidget *shownTree()
    {
        studio->window->findChild<QDockWidget *>(QStringLiteral("treeDock"))->show();
        QCoreApplication::processEvents();
        return studio->window->findChild<ZTObjectTreeWidget *>();
    }

    QString actionText(const char *id)
    {
        QCoreApplication::processEvents();
        return studio->window->commands().named(id)->text();
    }

    static void collect(const QList<QAction *> &actions, QList<QAction *> &found)
    {
        for (QAction *action : actions) {
            found << action;
            if (action->menu() != nullptr)
                collect(action->menu()->actions(), found);
        }
    }

    std::unique_ptr<StudioWindow> studio;
};

QTEST_MAIN(tst_studio_commands)
#include "tst_studio_commands.moc"
