#include "StudioWindow.h"

#include <studio/canvas/OrderNumbers.h>
#include <studio/commands/ExtrasCommand.h>
#include <studio/drawing/DrawingFiles.h>
#include <studio/window/HistoryDock.h>
#include <studio/window/OrderMenu.h>

#include <hostkit/items/ItemExtras.h>

#include <QtCore/QDir>
#include <QtWidgets/QAction>
#include <QtWidgets/QStatusBar>
#include <QtWidgets/QUndoView>

using studio::OrderNumbers;
using studio::ShapeItem;

/** What tells of the drawing as a whole: numbers of the order, steps to go back to, what is saved.
 */
class tst_studio_overview : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { studio = std::make_unique<StudioWindow>(); }
    void cleanup() { studio.reset(); }

    void orderNumbers_areThoseOfMarking()
    {
        const ShapeItem *last = studio->addRect(0, 0); // lowest: marked last
        const ShapeItem *middle = studio->addRect(100, 0);
        const ShapeItem *first = studio->addRect(200, 0);
        QVERIFY(numbers().isEmpty());
        QVERIFY(studio->run("view.orderNumbers"));
        QVERIFY(studio->window->commands().named("view.orderNumbers")->isChecked());
        QCOMPARE(numberOf(first), 1);
        QCOMPARE(numberOf(middle), 2);
        QCOMPARE(numberOf(last), 3);
        QVERIFY(studio->run("view.orderNumbers"));
        QVERIFY(!overlay()->isShown());
    }

    void orderNumbers_followStackingSortingAndSwitchedOffShapes()
    {
        ShapeItem *left = studio->addRect(0, 0);
        ShapeItem *right = studio->addRect(200, 0);
        QVERIFY(studio->run("view.orderNumbers"));
        QCOMPARE(numberOf(right), 1);
        studio->select({left});
        QVERIFY(studio->run("order.first"));
        QTRY_COMPARE(numberOf(left), 1);
        studio->stack().undo();
        QTRY_COMPARE(numberOf(right), 1);
        // By x from the least: the left one is first, however it is stacked.
        chooseOrder(EShapeSortType::ShapeSortXFromMin);
        QTRY_COMPARE(numberOf(left), 1);
        chooseOrder(EShapeSortType::ShapeSortNone);
        QTRY_COMPARE(numberOf(right), 1);
        studio->stack().push(new studio::ExtrasCommand(
            {right}, [](hostkit::ItemExtras &extras) { extras.isMarked = false; },
            QStringLiteral("off")));
        QTRY_COMPARE(numberOf(left), 1);
        QCOMPARE(numberOf(right), 0);
    }

    void orderNumbers_followADrag()
    {
        ShapeItem *item = studio->addRect(0, 0);
        QVERIFY(studio->run("view.orderNumbers"));
        studio->select({item});
        studio->key(Qt::Key_Right); // by 1 mm
        const double mmPx = ZTCoord::getInstance()->mm2pix(1.0);
        QTRY_VERIFY(qAbs(overlay()->numbers().value(0).placePx.x() - mmPx) < 1e-6);
    }

    void history_goesToTheStepThatIsClicked()
    {
        ShapeItem *item = studio->addRect(0, 0);
        studio->select({item});
        for (const int key : {Qt::Key_Right, Qt::Key_Right, Qt::Key_Down})
            studio->key(key);
        QCOMPARE(studio->stack().count(), 3);
        auto *dock = studio->window->findChild<studio::HistoryDock *>();
        dock->toggleViewAction()->trigger();
        auto *steps = dock->findChild<QUndoView *>();
        QTRY_VERIFY(steps->isVisible());
        const QAbstractItemModel &rows = *steps->model();
        QCOMPARE(rows.rowCount(), 4);
        QCOMPARE(rows.index(0, 0).data().toString(), QStringLiteral("As it was opened"));
        click(*steps, 1);
        QCOMPARE(studio->stack().index(), 1);
        const double mmPx = ZTCoord::getInstance()->mm2pix(1.0);
        QVERIFY((item->pos() - QPointF(mmPx, 0)).manhattanLength() < 1e-6);
        click(*steps, 3);
        QVERIFY((item->pos() - QPointF(2 * mmPx, mmPx)).manhattanLength() < 1e-6);
        click(*steps, 0);
        QVERIFY(item->pos().isNull());
    }

    void savedMessage_goesWhenItIsNoLongerTrue()
    {
        ShapeItem *item = studio->addRect(0, 0);
        studio->select({item});
        studio->key(Qt::Key_Right);
        QVERIFY(studio->window->editor().files().saveTo(studio->path("a.ztd")));
        QTRY_VERIFY(said().startsWith(QStringLiteral("Saved to")));
        studio->key(Qt::Key_Right);
        QTRY_COMPARE(said(), QString());
    }

    void folderOfAFailedSave_isNotRemembered()
    {
        studio->addRect(0, 0);
        QVERIFY(studio->window->editor().files().saveTo(studio->path("a.ztd")));
        const QString folder = QFileInfo(studio->path("a.ztd")).absolutePath();
        QCOMPARE(QSettings().value(QStringLiteral("drawing/folder")).toString(), folder);
        QVERIFY(!studio->window->editor().files().saveTo(studio->path("nowhere/a.ztd")));
        QCOMPARE(studio->messages->failures.size(), 1);
        QCOMPARE(QSettings().value(QStringLiteral("drawing/folder")).toString(), folder);
    }

private:
    OrderNumbers *overlay()
    {
        for (QGraphicsItem *item : studio->document().scene()->items()) {
            if (auto *found = dynamic_cast<OrderNumbers *>(item))
                return found;
        }
        qFatal("no numbers on the canvas");
    }

    QVector<OrderNumbers::Number> numbers() { return overlay()->numbers(); }

    /** The number that stands at a shape; 0 if none does. */
    int numberOf(const ShapeItem *item)
    {
        for (const OrderNumbers::Number &one : numbers()) {
            if ((one.placePx - studio::sceneBox(*item).topLeft()).manhattanLength() < 1e-6)
                return one.number;
        }
        return 0;
    }

    void chooseOrder(EShapeSortType order)
    {
        for (QAction *action : studio->window->findChild<studio::OrderMenu *>()->actions()) {
            if (action->data().toInt() == int(order))
                action->trigger();
        }
    }

    static void click(QUndoView &steps, int row)
    {
        const QRect place = steps.visualRect(steps.model()->index(row, 0));
        QTest::mouseClick(steps.viewport(), Qt::LeftButton, Qt::NoModifier, place.center());
    }

    QString said() { return studio->window->statusBar()->currentMessage(); }

    std::unique_ptr<StudioWindow> studio;
};

QTEST_MAIN(tst_studio_overview)
#include "tst_studio_overview.moc"
