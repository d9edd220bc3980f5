#include "StudioWindow.h"

#include <QtCore/QPointer>
#include <QtWidgets/QApplication>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDockWidget>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QInputDialog>
#include <QtWidgets/QLabel>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QTreeWidget>

using studio::ShapeItem;

/** The property dock of the studio, used through its widgets. */
class tst_studio_properties : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        studio = std::make_unique<StudioWindow>();
        QApplication::setActiveWindow(studio->window.get());
        QVERIFY(QTest::qWaitForWindowActive(studio->window.get()));
        studio->window->findChild<QDockWidget *>(QStringLiteral("propertyDock"))->show();
        // Ten pixels a millimetre.
        ZTCoord::getInstance()->setPhysicalHeight(90.0);
    }
    void cleanup() { studio.reset(); }

    void withoutSelection_theDockIsEmptyAndDisabled()
    {
        QCOMPARE(count(), QStringLiteral("Nothing selected"));
        QVERIFY(list()->getObject() == nullptr);
        QCOMPARE(tree()->topLevelItemCount(), 0);
        QVERIFY(!list()->isEnabled());
        QVERIFY(!penBox()->isEnabled());
        QVERIFY(!lockBox()->isEnabled());
    }

    void click_inTheDrawing_showsThatShape()
    {
        ShapeItem *item = studio->addRect(100, 200);
        studio->driver->click({120, 220});
        QTRY_COMPARE(list()->getObject(), static_cast<QObject *>(item));
        QCOMPARE(count(), QStringLiteral("1 shape selected"));
        QCOMPARE(valueOf({"pos", "X"}), QStringLiteral("10.00"));
        QCOMPARE(valueOf({"pos", "Y"}), QStringLiteral("20.00"));
        studio->key(Qt::Key_Escape);
        QTRY_COMPARE(tree()->topLevelItemCount(), 0);
        QCOMPARE(count(), QStringLiteral("Nothing selected"));
        QVERIFY(!penBox()->isEnabled());
    }

    // Whoever does not look at the grid does not wait for it.
    void hidden_readsNothing_andShowsTheSelectionWhenShownAgain()
    {
        auto *dock = studio->window->findChild<QDockWidget *>(QStringLiteral("propertyDock"));
        ShapeItem *first = studio->addRect(100, 200);
        ShapeItem *second = studio->addRect(0, 0);
        select({first});
        QCOMPARE(list()->getObject(), static_cast<QObject *>(first));
        dock->hide();
        select({second});
        QVERIFY(list()->getObject() == nullptr);
        dock->show();
        QCOMPARE(list()->getObject(), static_cast<QObject *>(second));
        QCOMPARE(count(), QStringLiteral("1 shape selected"));
        QCOMPARE(valueOf({"pos", "X"}), QStringLiteral("0.00"));
    }

    void severalSelected_showsTheLowestAndTellsHowMany()
    {
        ShapeItem *lowest = studio->addRect(0, 0);
        ShapeItem *middle = studio->addRect(60, 0);
        ShapeItem *top = studio->addRect(120, 0);
        select({top, lowest, middle});
        QCOMPARE(list()->getObject(), static_cast<QObject *>(lowest));
        QCOMPARE(count(), QStringLiteral("3 shapes selected; the grid shows the first"));
        select({top, middle});
        QCOMPARE(list()->getObject(), static_cast<QObject *>(middle));
    }

    void positionTyped_movesTheShapeAtOnce_andIsUndoneAtOnce()
    {
        ShapeItem *item = studio->addRect(100, 200);
        select({item});
        click({"pos", "X"});
        QVERIFY(editor<QDoubleSpinBox>());
        typeOver("30");
        QCOMPARE(studio->stack().count(), 0);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QCOMPARE(item->pos(), QPointF(300, 200));
        QCOMPARE(studio->stack().count(), 1);
        QCoreApplication::processEvents();
        QVERIFY(studio->frameFits());

        QVERIFY(studio->run("edit.undo"));
        QCOMPARE(item->pos(), QPointF(100, 200));
        // Not a second later.
        QCOMPARE(valueOf({"pos", "X"}), QStringLiteral("10.00"));
        QVERIFY(studio->run("edit.redo"));
        QCOMPARE(valueOf({"pos", "X"}), QStringLiteral("30.00"));
    }

    void lineTurnedAndGivenAnAngle_undone_isWhatItWas()
    {
        QVERIFY(studio->run("create.line"));
        const DrawingSnapshot created = studio->snapshot();
        rotateBy("-30");
        const DrawingSnapshot turned = studio->snapshot();
        // The diagonal runs down at 45 degrees, which 30 degrees clockwise make 75.
        auto *line = static_cast<ZTGraphicsLineItem *>(
            studio::shapeItemsOf(*studio->document().scene()).first());
        QVERIFY(qAbs(line->angle() - 285.0) < 1e-9);
        click({"angle"});
        typeOver("10");
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QVERIFY(qAbs(line->angle() - 10.0) < 1e-9);
        const DrawingSnapshot given = studio->snapshot();

        QVERIFY(studio->run("edit.undo"));
        COMPARE_DRAWINGS(studio->snapshot(), turned);
        QVERIFY(studio->run("edit.undo"));
        COMPARE_DRAWINGS(studio->snapshot(), created);
        QVERIFY(studio->run("edit.redo"));
        COMPARE_DRAWINGS(studio->snapshot(), turned);
        QVERIFY(studio->run("edit.redo"));
        COMPARE_DRAWINGS(studio->snapshot(), given);
    }

    void everyRow_edited_isUndoneToTheLastBit_data()
    {
        QTest::addColumn<QByteArray>("command");
        for (const char *command :
             {"create.rectangle", "create.ellipse", "create.polygon", "create.line", "create.tdot"})
            QTest::newRow(command) << QByteArray(command);
    }

    void everyRow_edited_isUndoneToTheLastBit()
    {
        QFETCH(QByteArray, command);
        QVERIFY(studio->run(command.constData()));
        rotateBy("-17.3");
        int edited = 0;
        for (QtProperty *property : list()->getVariantManager()->properties()) {
            auto *row = static_cast<QtVariantProperty *>(property);
            const DrawingSnapshot before = studio->snapshot();
            const int steps = studio->stack().count();
            QVariant value = row->value();
            switch (int(value.type())) {
            case QVariant::Int:
                value = row->propertyName() == QLatin1String("SideCount") ? 7 : 1;
                break;
            case QVariant::Double:
                value = value.toDouble() + 1.7;
                break;
            case QVariant::Bool:
                value = !value.toBool();
                break;
            case QVariant::PointF:
                value = QPointF(3.3, 4.7);
                break;
            default:
                continue;
            }
            row->setValue(value);
            QCoreApplication::processEvents();
            if (studio->stack().count() == steps)
                continue;
            ++edited;
            const DrawingSnapshot after = studio->snapshot();
            QVERIFY(studio->run("edit.undo"));
            COMPARE_DRAWINGS(studio->snapshot(), before);
            QVERIFY(studio->run("edit.redo"));
            COMPARE_DRAWINGS(studio->snapshot(), after);
        }
        QVERIFY(edited >= 5);
        while (studio->stack().index() > 1)
            QVERIFY(studio->run("edit.undo"));
        QCOMPARE(studio->snapshot().stacked.first().transform, QTransform());
    }

    void sidesTyped_areNoMoreThanThereCanBe()
    {
        QVERIFY(studio->run("create.polygon"));
        const auto *polygon = static_cast<ZTGraphicsPolygonItem *>(
            studio::shapeItemsOf(*studio->document().scene()).first());
        click({kSides});
        typeOver("99999999");
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QCoreApplication::processEvents();
        // The field takes no digit that leads beyond 10,000.
        QCOMPARE(polygon->getSideCount(), 9999);
        QVERIFY(!polygon->getShapeBase()->getLines().isEmpty());
        QVERIFY(list()->getVariantManager() != nullptr);
        QVERIFY(row({kSides})->toolTip(1).contains(QStringLiteral("10,000")));
    }

    void edges_typed_rebuildThePolygon()
    {
        QVERIFY(studio->run("create.polygon"));
        ShapeItem *item = studio::shapeItemsOf(*studio->document().scene()).first();
        const int pointsBefore = item->getShapeBase()->getLines().elementCount();
        click({kSides});
        QVERIFY(editor<QSpinBox>());
        typeOver("9");
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
        QCOMPARE(studio->stack().count(), 2);
        QCoreApplication::processEvents();
        QVERIFY(item->getShapeBase()->getLines().elementCount() != pointsBefore);
        QVERIFY(studio->run("edit.undo"));
        QCoreApplication::processEvents();
        QCOMPARE(item->getShapeBase()->getLines().elementCount(), pointsBefore);
    }

    void deletedShape_leavesTheGrid_andUndoBringsItBack()
    {
        ShapeItem *item = studio->addRect(0, 0);
        select({item});
        QVERIFY(studio->run("edit.delete"));
        QCOMPARE(tree()->topLevelItemCount(), 0);
        QVERIFY(studio->run("edit.undo"));
        QCOMPARE(list()->getObject(), static_cast<QObject *>(item));
        delete item;
        QCOMPARE(tree()->topLevelItemCount(), 0);
        QCoreApplication::processEvents();
        QCOMPARE(count(), QStringLiteral("Nothing selected"));
    }

    void lookingAtShapes_isNoEdit_andKeepsTheRedo()
    {
        QVERIFY(studio->run("file.sample"));
        QVERIFY(studio->run("create.rectangle"));
        QVERIFY(studio->run("edit.undo"));
        for (ShapeItem *item : studio::shapeItemsOf(*studio->document().scene())) {
            select({item});
            const DrawingSnapshot before = studio->snapshot();
            list()->updateProperty();
            COMPARE_DRAWINGS(studio->snapshot(), before);
        }
        QVERIFY(studio->stack().canRedo());
        QCOMPARE(studio->stack().count(), 2);
    }

    void newDrawing_emptiesTheDock()
    {
        ShapeItem *item = studio->addRect(0, 0);
        select({item});
        studio->edit().clear();
        QCoreApplication::processEvents();
        QCOMPARE(tree()->topLevelItemCount(), 0);
        QCOMPARE(count(), QStringLiteral("Nothing selected"));
    }

    void pen_chosen_isOneStepForAllSelected()
    {
        ShapeItem *first = studio->addRect(0, 0);
        ShapeItem *second = studio->addRect(60, 0);
        ShapeItem *other = studio->addRect(120, 0);
        second->setPenId(7);
        select({first, second});
        QCOMPARE(penBox()->count(), 16);
        QCOMPARE(penBox()->currentIndex(), -1);
        choosePen(12);
        QCOMPARE(first->getPenId(), 12);
        QCOMPARE(second->getPenId(), 12);
        QCOMPARE(other->getPenId(), 1);
        QCOMPARE(studio->stack().count(), 1);
        QCOMPARE(penBox()->currentIndex(), 11);
        QVERIFY(studio->run("edit.undo"));
        QCOMPARE(first->getPenId(), 1);
        QCOMPARE(second->getPenId(), 7);
        QCOMPARE(penBox()->currentIndex(), -1);
        select({second});
        QCOMPARE(penBox()->currentIndex(), 6);
    }

    void pen_alreadyHeld_isNoStep()
    {
        ShapeItem *item = studio->addRect(0, 0);
        select({item});
        choosePen(1);
        QCOMPARE(studio->stack().count(), 0);
    }

    void pen_outOfRange_showsNone()
    {
        ShapeItem *item = studio->addRect(0, 0);
        item->setPenId(17);
        select({item});
        QCOMPARE(penBox()->currentIndex(), -1);
    }

    void proportions_lockedByTheMouse_isOneStepForAllSelected()
    {
        ShapeItem *first = studio->addRect(0, 0);
        ShapeItem *second = studio->addRect(60, 0);
        second->getShapeBase()->setLockAspectRatio(true);
        select({first, second});
        QCOMPARE(lockBox()->checkState(), Qt::PartiallyChecked);
        clickLock();
        QVERIFY(isLocked(first) && isLocked(second));
        QCOMPARE(studio->stack().count(), 1);
        QCOMPARE(lockBox()->checkState(), Qt::Checked);
        clickLock();
        QVERIFY(!isLocked(first) && !isLocked(second));
        QCOMPARE(lockBox()->checkState(), Qt::Unchecked);
        QVERIFY(studio->run("edit.undo"));
        QVERIFY(studio->run("edit.undo"));
        QVERIFY(!isLocked(first) && isLocked(second));
        QCOMPARE(lockBox()->checkState(), Qt::PartiallyChecked);
    }

    void denseRows_areTheFirstChoice_andRemembered()
    {
        ShapeItem *item = studio->addRect(0, 0);
        select({item});
        QVERIFY(rowHeight() < 40);
        QAction *action = denseAction();
        QVERIFY(action->isChecked());
        action->trigger();
        QCoreApplication::processEvents();
        QCOMPARE(rowHeight(), 75);
        QVERIFY(!QSettings().value(QStringLiteral("properties/denseRows")).toBool());
        studio::MainWindow second;
        QVERIFY(!second.findChild<QAction *>(QStringLiteral("denseRows"))->isChecked());
        action->trigger();
        QCoreApplication::processEvents();
        QVERIFY(rowHeight() < 40);
    }

    void viewMenu_hidesAndShowsTheDock()
    {
        auto *dock = studio->window->findChild<QDockWidget *>(QStringLiteral("propertyDock"));
        QVERIFY(dock->isVisible());
        dock->toggleViewAction()->trigger();
        QVERIFY(!dock->isVisible());
        dock->toggleViewAction()->trigger();
        QVERIFY(dock->isVisible());
        auto *units = dock->findChild<QLabel *>(QStringLiteral("propertyUnits"));
        QVERIFY(units->isVisible());
        QVERIFY(!units->text().isEmpty());
    }

    void openEditor_whenTheSelectionChanges_doesNotReachTheOtherShape()
    {
        ShapeItem *first = studio->addRect(0, 0);
        ShapeItem *second = studio->addRect(600, 0);
        select({first});
        click({"pos", "X"});
        typeOver("5");
        select({second});
        QTRY_VERIFY(!editor<QDoubleSpinBox>());
        QCOMPARE(second->pos(), QPointF(600, 0));
        QCOMPARE(valueOf({"pos", "X"}), QStringLiteral("60.00"));
    }

private:
    static constexpr const char *kSides = "SideCount";

    ZTItemPropertyList *list() { return studio->window->findChild<ZTItemPropertyList *>(); }
    QTreeWidget *tree() { return list()->findChild<QTreeWidget *>(); }
    QComboBox *penBox() { return studio->window->findChild<QComboBox *>(QStringLiteral("penBox")); }
    QCheckBox *lockBox()
    {
        return studio->window->findChild<QCheckBox *>(QStringLiteral("lockBox"));
    }
    QString count()
    {
        return studio->window->findChild<QLabel *>(QStringLiteral("propertyCount"))->text();
    }
    QAction *denseAction()
    {
        return studio->window->findChild<QAction *>(QStringLiteral("denseRows"));
    }
    int rowHeight() { return tree()->visualItemRect(tree()->topLevelItem(0)).height(); }
    static bool isLocked(const ShapeItem *item)
    {
        return item->getShapeBase()->getLockAspectRatio();
    }

    void select(const studio::ShapeItems &items)
    {
        studio->select(items);
        QCoreApplication::processEvents();
    }

    /** Opens the list of pens and takes one by the keyboard. */
    void choosePen(int pen)
    {
        penBox()->setFocus();
        QTest::keyClick(penBox(), Qt::Key_F4);
        QAbstractItemView *pens = penBox()->view();
        QTRY_VERIFY(pens->isVisible());
        QTest::keyClick(pens, Qt::Key_Home);
        for (int i = 1; i < pen; ++i)
            QTest::keyClick(pens, Qt::Key_Down);
        QTest::keyClick(pens, Qt::Key_Return);
        QCoreApplication::processEvents();
    }

    void clickLock()
    {
        QTest::mouseClick(lockBox(), Qt::LeftButton, {}, QPoint(8, lockBox()->height() / 2));
        QCoreApplication::processEvents();
    }

    QTreeWidgetItem *row(const QList<const char *> &path)
    {
        QTreeWidgetItem *found = tree()->invisibleRootItem();
        for (const char *name : path) {
            QTreeWidgetItem *next = nullptr;
            for (int i = 0; found && i < found->childCount(); ++i) {
                if (found->child(i)->text(0) == QLatin1String(name))
                    next = found->child(i);
            }
            found = next;
        }
        return found;
    }

    QString valueOf(const QList<const char *> &path)
    {
        const QTreeWidgetItem *shown = row(path);
        return shown ? shown->text(1) : QStringLiteral("no such row");
    }

    /** A click on the value of a row. */
    void click(const QList<const char *> &path)
    {
        QTreeWidgetItem *shown = row(path);
        QVERIFY(shown);
        tree()->scrollToItem(shown);
        const int x = tree()->columnViewportPosition(1) + 5;
        QTest::mouseClick(tree()->viewport(), Qt::LeftButton, {},
                          QPoint(x, tree()->visualItemRect(shown).center().y()));
    }

    /** Turns what is selected, by the dialog. */
    void rotateBy(const char *degrees)
    {
        QVERIFY(studio->run("arrange.rotate"));
        auto *dialog = studio->window->findChild<QInputDialog *>(QStringLiteral("rotationDialog"));
        QVERIFY(dialog);
        auto *field = dialog->findChild<QDoubleSpinBox *>();
        field->selectAll();
        QTest::keyClicks(field, QString::fromLatin1(degrees));
        QTest::keyClick(field, Qt::Key_Return);
        QCoreApplication::processEvents();
        QApplication::setActiveWindow(studio->window.get());
    }

    static void typeOver(const char *words)
    {
        QWidget *focused = QApplication::focusWidget();
        QVERIFY(focused);
        QTest::keyClick(focused, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(focused, QString::fromLatin1(words));
    }

    /** The open editor, if it is of this class. */
    template <class Widget>
    Widget *editor()
    {
        return tree()->viewport()->findChild<Widget *>();
    }

    std::unique_ptr<StudioWindow> studio;
};

QTEST_MAIN(tst_studio_properties)
#include "tst_studio_properties.moc"
