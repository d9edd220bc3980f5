#include <support/SceneDriver.h>
#include <support/SingletonGuard.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtTest/QTest>
#include <QtWidgets/QAction>
#include <QtWidgets/QGraphicsView>
#include <QtWidgets/QMenu>
#include <QtWidgets/QUndoStack>

#include <memory>
#include <random>

namespace {

constexpr int kStepsOfASession = 1000;
constexpr int kItemCount = 8;

/** An operator at work on a few items, every choice drawn from one seed. */
class Session
{
public:
    explicit Session(unsigned seed) : random(seed)
    {
        scene->setUndoStack(&stack);
        view.setFrameShape(QFrame::NoFrame);
        view.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        view.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        view.setDragMode(QGraphicsView::RubberBandDrag);
        view.setSceneRect(-400, -300, 800, 600);
        view.resize(800, 600);
        view.setScene(scene.get());
        user = std::make_unique<testsupport::SceneDriver>(view);
        for (int i = 0; i < kItemCount; ++i)
            addItem();
        drawings.append(drawing());
    }

    /** One step; false when undo or redo did not bring back what had been there. */
    bool step()
    {
        switch (below(12)) {
        case 0:
            user->click(spot());
            break;
        case 1:
            user->drag(spot(), spot());
            break;
        case 2:
            selectSome();
            break;
        case 3:
        case 4:
            dragFrame();
            break;
        case 5:
        case 6:
            dragHandle();
            break;
        case 7:
            align();
            break;
        case 8:
            frame().setPos(spot());
            break;
        case 9:
            return undoAndRedo();
        case 10:
            lockOne();
            break;
        default:
            if (below(8) == 0)
                replaceItem();
        }
        return remember();
    }

    /** All the way back and forth. */
    bool undoAllAndRedoAll() { return goTo(0) && goTo(stack.count()); }

private:
    ZTGraphicsResizeItem &frame() const { return *scene->getGraphicsResizeItem(); }

    int below(int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); }

    QPointF spot() { return {below(780) - 390.0, below(580) - 290.0}; }

    void addItem()
    {
        ZTAbstractGraphicsItem *item = nullptr;
        switch (below(4)) {
        case 0:
            item = new ZTGraphicsRectItem;
            break;
        case 1:
            item = new ZTGraphicsEllipseItem;
            break;
        case 2:
            item = new ZTGraphicsPolygonItem;
            break;
        default:
            item = new ZTGraphicsLineItem;
        }
        item->getShapeBase()->setId(nextId++);
        item->setPos(spot() / 3.0);
        item->getShapeBase()->paint();
        scene->addItem(item);
        items.append(item);
    }

    void selectSome()
    {
        for (ZTAbstractGraphicsItem *item : qAsConst(items))
            item->setSelected(below(2) == 0);
    }

    void dragFrame()
    {
        const QPointF from = frame().mapToScene(frame().rect().center());
        if (frame().isVisible() && isOnScreen(from))
            user->drag(from, spot());
    }

    void dragHandle()
    {
        if (!frame().isVisible())
            return;
        const QGraphicsItem *handle = frame().childItems().at(below(8));
        const QPointF onScreen =
            handle->deviceTransform(view.viewportTransform()).map(QPointF(10, 10));
        const QPointF from = view.viewportTransform().inverted().map(onScreen);
        // No drag makes things vanish: an outline of no size cannot be told from another.
        const QPointF by(below(60) - 30, below(60) - 30);
        const bool isLarge = frame().rect().width() > 40 && frame().rect().height() > 40;
        if (isLarge && isOnScreen(from) && isOnScreen(from + by))
            user->drag(from, from + by);
    }

    void align()
    {
        if (!frame().isVisible())
            return;
        const int choice = below(8);
        const QPointF at = frame().mapToScene(frame().rect().center());
        if (!isOnScreen(at))
            return;
        user->contextMenu(at, [choice](QMenu *menu) {
            if (choice < 7 && menu->isEnabled())
                QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier,
                                  menu->actionGeometry(menu->actions().at(choice)).center());
        });
    }

    void lockOne()
    {
        items.at(below(items.size()))->getShapeBase()->setLockAspectRatio(below(2) == 0);
    }

    /** Deletes an item that commands still name, as a host may, and adds another. */
    void replaceItem()
    {
        delete items.takeAt(below(items.size()));
        while (stack.canUndo())
            stack.undo();
        while (stack.canRedo())
            stack.redo();
        stack.clear();
        addItem();
        drawings = QList<QByteArray>{drawing()};
        lastIndex = 0;
    }

    QByteArray drawing() const
    {
        QByteArray bytes;
        QDataStream stream(&bytes, QIODevice::WriteOnly);
        for (ZTAbstractGraphicsItem *item : items)
            stream << item->pos() << item->getTransformParam() << item->getShapeBase()->getLines();
        return bytes;
    }

    /**
     * Keeps the drawing by the index of the undo stack; false when it changed without a step, or
     * with more than one.
     */
    bool remember()
    {
        const int index = stack.index();
        const bool isNewStep = index == lastIndex + 1 && !stack.canRedo();
        if (!isNewStep)
            return index == lastIndex && drawings.at(index) == drawing();
        while (drawings.size() > index)
            drawings.removeLast();
        drawings.append(drawing());
        lastIndex = index;
        return true;
    }

    bool goTo(int index)
    {
        while (stack.index() != index) {
            if (stack.index() > index)
                stack.undo();
            else
                stack.redo();
            if (drawings.at(stack.index()) != drawing())
                return false;
        }
        lastIndex = index;
        return true;
    }

    bool undoAndRedo()
    {
        const int top = stack.index();
        return goTo(top - below(qMin(top, 10) + 1)) && (below(3) == 0 || goTo(top));
    }

    bool isOnScreen(const QPointF &scenePos) const
    {
        return view.sceneRect().adjusted(1, 1, -1, -1).contains(scenePos);
    }

    std::mt19937 random;
    QUndoStack stack;
    std::unique_ptr<ZTGraphicsScene> scene = std::make_unique<ZTGraphicsScene>();
    QGraphicsView view;
    std::unique_ptr<testsupport::SceneDriver> user;
    QList<ZTAbstractGraphicsItem *> items;
    QList<QByteArray> drawings;
    int lastIndex = 0;
    int nextId = 0;
};

} // namespace

class tst_gui_ZTGraphicsSceneEdits : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void randomSession_undoAndRedoAreExact_data()
    {
        QTest::addColumn<uint>("seed");
        for (uint seed = 1; seed <= 8; ++seed)
            QTest::addRow("seed %u", seed) << seed;
    }
    void randomSession_undoAndRedoAreExact()
    {
        QFETCH(uint, seed);
        const testsupport::SingletonGuard guard;
        Session session(seed);
        for (int i = 0; i < kStepsOfASession; ++i)
            QVERIFY2(session.step(), qPrintable(QString::number(i)));
        QVERIFY(session.undoAllAndRedoAll());
    }
};

QTEST_MAIN(tst_gui_ZTGraphicsSceneEdits)
#include "tst_ZTGraphicsSceneEdits.moc"
