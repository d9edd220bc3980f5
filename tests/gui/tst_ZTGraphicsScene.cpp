#include <support/SceneDriver.h>
#include <support/SingletonGuard.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QTranslator>
#include <QtGui/QKeyEvent>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QGraphicsView>
#include <QtWidgets/QMenu>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QUndoStack>

#include <memory>

namespace {

const QPointF kEmptySpot(-300, -250);

/** Marks what went through the translator, so that a test sees context and source. */
class MarkingTranslator : public QTranslator
{
public:
    bool isEmpty() const override { return false; }
    QString translate(const char *context, const char *source, const char *, int) const override
    {
        if (qstrcmp(context, "ZTGraphicsScene") != 0)
            return {};
        return QLatin1Char('<') + QString::fromLatin1(source) + QLatin1Char('>');
    }
};

/** Notes the keys that reach an object. */
class KeyRecorder : public QObject
{
public:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::KeyPress) {
            const auto *press = static_cast<QKeyEvent *>(event);
            pressed << (static_cast<int>(press->modifiers()) | press->key());
        }
        return false;
    }
    QList<int> pressed;
};

} // namespace

class tst_gui_ZTGraphicsScene : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        guard.reset(new testsupport::SingletonGuard);
        ZTCoord::getInstance()->setHeight(1930.0); // 1 mm is 10 pixels
        stack = std::make_unique<QUndoStack>();
        scene = std::make_unique<ZTGraphicsScene>();
        scene->setUndoStack(stack.get());
        view = std::make_unique<QGraphicsView>(scene.get());
        view->setFrameShape(QFrame::NoFrame);
        view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        view->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        view->setSceneRect(-400, -300, 800, 600);
        view->resize(800, 600);
        user = std::make_unique<testsupport::SceneDriver>(*view);
        // A wide box and a tall one: 100 by 50 at (0, 0), 20 by 80 at (200, 120).
        a = addRect(0, QSizeF(10, 5), QPointF(0, 0));
        b = addRect(1, QSizeF(2, 8), QPointF(200, 120));
    }
    void cleanup()
    {
        user.reset();
        view.reset();
        scene.reset();
        stack.reset();
        guard.reset();
    }

    void menu_listsTheAlignments()
    {
        selectBoth();
        QStringList labels;
        bool isEnabled = false;
        QVERIFY(user->contextMenu(frameCenter(), [&](QMenu *menu) {
            isEnabled = menu->isEnabled();
            const QList<QAction *> actions = menu->actions();
            for (const QAction *action : actions)
                labels << action->text();
        }));
        QVERIFY(isEnabled);
        QCOMPARE(labels, (QStringList{QStringLiteral("Left"), QStringLiteral("Right"),
                                      QStringLiteral("Horizontally Center"), QStringLiteral("Top"),
                                      QStringLiteral("Bottom"), QStringLiteral("Vertically Center"),
                                      QStringLiteral("Center")}));
    }

    void menu_labelsGoThroughTheSceneContext()
    {
        MarkingTranslator translator;
        QCoreApplication::installTranslator(&translator);
        QStringList labels;
        user->contextMenu(kEmptySpot, [&](QMenu *menu) {
            const QList<QAction *> actions = menu->actions();
            for (const QAction *action : actions)
                labels << action->text();
        });
        QCoreApplication::removeTranslator(&translator);
        QCOMPARE(labels.size(), 7);
        QCOMPARE(labels.first(), QStringLiteral("<Left>"));
        QCOMPARE(labels.last(), QStringLiteral("<Center>"));
    }

    void menu_withFewerThanTwoSelected_isGreyed_andDoesNothing_data()
    {
        QTest::addColumn<int>("selected");
        QTest::newRow("none") << 0;
        QTest::newRow("one") << 1;
    }
    void menu_withFewerThanTwoSelected_isGreyed_andDoesNothing()
    {
        QFETCH(int, selected);
        a->setPos(30, 40);
        a->setSelected(selected > 0);
        bool isEnabled = true;
        QVERIFY(user->contextMenu(frameCenter(), [&](QMenu *menu) {
            isEnabled = menu->isEnabled();
            QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier,
                              menu->actionGeometry(menu->actions().first()).center());
        }));
        QVERIFY(!isEnabled);
        QCOMPARE(stack->count(), 0);
        QCOMPARE(a->pos(), QPointF(30, 40));
    }

    void choice_alignsToTheFrame_data()
    {
        QTest::addColumn<QString>("label");
        QTest::addColumn<QPointF>("posA");
        QTest::addColumn<QPointF>("posB");
        // The frame is 220 by 200 at (0, 0), its centre (110, 100).
        QTest::newRow("left") << QStringLiteral("Left") << QPointF(0, 0) << QPointF(0, 120);
        QTest::newRow("right") << QStringLiteral("Right") << QPointF(120, 0) << QPointF(200, 120);
        QTest::newRow("middle") << QStringLiteral("Horizontally Center") << QPointF(60, 0)
                                << QPointF(100, 120);
        QTest::newRow("top") << QStringLiteral("Top") << QPointF(0, 0) << QPointF(200, 0);
        QTest::newRow("bottom") << QStringLiteral("Bottom") << QPointF(0, 150) << QPointF(200, 120);
        QTest::newRow("centre line")
            << QStringLiteral("Vertically Center") << QPointF(0, 75) << QPointF(200, 60);
        QTest::newRow("centre") << QStringLiteral("Center") << QPointF(60, 75) << QPointF(100, 60);
    }
    void choice_alignsToTheFrame()
    {
        QFETCH(QString, label);
        QFETCH(QPointF, posA);
        QFETCH(QPointF, posB);
        selectBoth();
        QVERIFY(user->chooseFromMenu(frameCenter(), label));
        QCOMPARE(a->pos(), posA);
        QCOMPARE(b->pos(), posB);
        QCOMPARE(stack->count(), 1);
        QCOMPARE(stack->text(0), QStringLiteral("item setPos"));
        QCOMPARE(stack->command(0)->childCount(), 2);
        stack->undo();
        QCOMPARE(a->pos(), QPointF(0, 0));
        QCOMPARE(b->pos(), QPointF(200, 120));
        stack->redo();
        QCOMPARE(a->pos(), posA);
        QCOMPARE(b->pos(), posB);
    }

    void choice_aFrameAwayFromTheOrigin_isTheReference()
    {
        a->setPos(-50, -40);
        selectBoth();
        QVERIFY(user->chooseFromMenu(frameCenter(), QStringLiteral("Left")));
        QCOMPARE(a->pos(), QPointF(-50, -40));
        QCOMPARE(b->pos(), QPointF(-50, 120));
    }

    void kept_choice_measuresABoxThatTheTransformShifted()
    {
        b->setTransformParam(QTransform::fromTranslate(1, 0)); // box at 10 to 30 of the item
        selectBoth();
        QVERIFY(user->chooseFromMenu(frameCenter(), QStringLiteral("Left")));
        QCOMPARE(b->pos(), QPointF(0, 120));
        QCOMPARE(b->mapRectToScene(b->boundingRect()).left(), 10.0);
    }

    void choice_foreignItemsCountButStay()
    {
        QGraphicsRectItem *foreign = scene->addRect(-100, -100, 10, 10);
        foreign->setFlag(QGraphicsItem::ItemIsSelectable);
        a->setPos(30, 40);
        a->setSelected(true);
        foreign->setSelected(true);
        QVERIFY(user->chooseFromMenu(frameCenter(), QStringLiteral("Top")));
        QCOMPARE(stack->command(0)->childCount(), 1);
        QCOMPARE(foreign->pos(), QPointF(0, 0));
    }

    void kept_menuLeftWithoutChoice_movesAllToTheOrigin()
    {
        a->setPos(30, 40);
        selectBoth();
        QVERIFY(user->escapeMenu(frameCenter()));
        QCOMPARE(a->pos(), QPointF(0, 0));
        QCOMPARE(b->pos(), QPointF(0, 0));
        QCOMPARE(stack->count(), 1);
        QCOMPARE(stack->text(0), QStringLiteral("item setPos"));
        stack->undo();
        QCOMPARE(a->pos(), QPointF(30, 40));
        QCOMPARE(b->pos(), QPointF(200, 120));
    }

    void withoutStack_theChoiceHappensUnrecorded()
    {
        scene->setUndoStack(nullptr);
        selectBoth();
        QVERIFY(user->chooseFromMenu(frameCenter(), QStringLiteral("Top")));
        QCOMPARE(b->pos(), QPointF(200, 0));
        a->setPos(30, 40);
        QVERIFY(user->escapeMenu(frameCenter()));
        QCOMPARE(a->pos(), QPointF(0, 0));
        QCOMPARE(b->pos(), QPointF(0, 0));
    }

    void menuOpenedOverTheFrame_leavesAWorkingFrame()
    {
        selectBoth();
        QVERIFY(user->chooseFromMenu({110, 100}, QStringLiteral("Top")));
        QCOMPARE(b->pos(), QPointF(200, 0));
        const ZTGraphicsResizeItem *frame = scene->getGraphicsResizeItem();
        QVERIFY(frame->isEnableResizeFromChild());
        QCOMPARE(frame->rect().translated(frame->pos()), QRectF(0, 0, 220, 80));
        QCOMPARE(stack->count(), 1);

        // The next press belongs to what it hits.
        user->click(kEmptySpot);
        QVERIFY(scene->selectedItems().isEmpty());
        selectBoth();
        user->drag({110, 40}, {120, 60});
        QCOMPARE(a->pos(), QPointF(10, 20));
        QCOMPARE(b->pos(), QPointF(210, 20));
        stack->undo();
        QCOMPARE(a->pos(), QPointF(0, 0));
    }

    void menuOnEmptyCanvas_findsNothingSelected()
    {
        selectBoth();
        QVERIFY(user->escapeMenu(kEmptySpot));
        QVERIFY(scene->selectedItems().isEmpty());
        QCOMPARE(b->pos(), QPointF(200, 120));
        QCOMPARE(stack->count(), 0);
    }

    void menuOpenedOverAHandle_recordsOnlyTheChoice()
    {
        selectBoth();
        // The bottom right handle stands just outside the frame's corner at (220, 200).
        QVERIFY(user->chooseFromMenu({231, 211}, QStringLiteral("Top")));
        QCOMPARE(stack->count(), 1);
        QCOMPARE(stack->text(0), QStringLiteral("item setPos"));
        QCOMPARE(b->pos(), QPointF(200, 0));
    }

    void itemsDeletedWhileTheMenuIsOpen_areLeftAlone()
    {
        selectBoth();
        QGraphicsItem *c = addRect(2, QSizeF(1, 1), QPointF(300, 10));
        c->setSelected(true);
        QVERIFY(user->contextMenu(frameCenter(), [&](QMenu *menu) {
            delete b;
            QTest::keyClick(menu, Qt::Key_Escape);
        }));
        QCOMPARE(stack->command(0)->childCount(), 2);
        QCOMPARE(c->pos(), QPointF(0, 0));
    }

    void sceneDestroyedWhileTheMenuIsOpen_isHarmless()
    {
        selectBoth();
        QVERIFY(user->contextMenu(frameCenter(), [&](QMenu *menu) {
            view->setScene(nullptr);
            scene.reset();
            menu->close();
        }));
        QCOMPARE(stack->count(), 0);
    }

    void wheelAndKeys_areThoseOfQt()
    {
        view->setSceneRect(-400, -600, 800, 1200);
        QScrollBar *bar = view->verticalScrollBar();
        const int before = bar->value();
        user->wheel({0, 0}, 120);
        QVERIFY(bar->value() < before);

        KeyRecorder keys;
        scene->installEventFilter(&keys);
        user->key(Qt::Key_A, Qt::ShiftModifier);
        // Shift itself, then the letter with it.
        QCOMPARE(keys.pressed.size(), 2);
        QCOMPARE(keys.pressed.last(), int(Qt::ShiftModifier | Qt::Key_A));
    }

private:
    ZTGraphicsRectItem *addRect(int id, const QSizeF &sizeMm, const QPointF &posPx)
    {
        auto *item = new ZTGraphicsRectItem;
        item->getShapeBase()->setId(id);
        item->getShapeBase()->setRect(QRectF(QPointF(0, 0), sizeMm));
        item->setPos(posPx);
        scene->addItem(item);
        return item;
    }

    QPointF frameCenter() const
    {
        const ZTGraphicsResizeItem *frame = scene->getGraphicsResizeItem();
        return frame->mapToScene(frame->rect().center());
    }

    void selectBoth()
    {
        a->setSelected(true);
        b->setSelected(true);
    }

    std::unique_ptr<testsupport::SingletonGuard> guard;
    std::unique_ptr<QUndoStack> stack;
    std::unique_ptr<ZTGraphicsScene> scene;
    std::unique_ptr<QGraphicsView> view;
    std::unique_ptr<testsupport::SceneDriver> user;
    ZTGraphicsRectItem *a = nullptr;
    ZTGraphicsRectItem *b = nullptr;
};

QTEST_MAIN(tst_gui_ZTGraphicsScene)
#include "tst_ZTGraphicsScene.moc"
