#include <support/FramedItems.h>
#include <support/SingletonGuard.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>
#include <ZTDrawEngineLib/items/ZTGraphicsResizeHandle_p.h>

#include <QtCore/QMetaMethod>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QGraphicsScene>
#include <QtWidgets/QStyleOptionGraphicsItem>
#include <QtWidgets/QUndoStack>

#include <cmath>
#include <memory>
#include <vector>

using testsupport::listOf;
using testsupport::rectInScene;

namespace {

using Items = std::vector<std::unique_ptr<ZTGraphicsRectItem>>;

/** Rectangles of 100 by 100 pixels, 200 pixels apart, without a scene. */
Items makeItems(int count)
{
    Items items;
    for (int i = 0; i < count; ++i) {
        items.push_back(std::make_unique<ZTGraphicsRectItem>());
        items.back()->setPos(200.0 * i, 0);
        items.back()->getShapeBase()->setId(i);
    }
    return items;
}

/** What a drag of a handle does to the frame, without the mouse. */
void resize(ZTGraphicsResizeItem &frame, const QRectF &rectPx)
{
    frame.setData(ZTGraphicsResizeItem::FRAME_START_RECT, frame.rect());
    frame.beforeAdjust();
    frame.setRect(rectPx);
    frame.updateChildSize();
}

} // namespace

class tst_ZTGraphicsResizeItem : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        guard.reset(new testsupport::SingletonGuard);
        ZTCoord::getInstance()->setHeight(1930.0); // 1 mm is 10 pixels
    }
    void cleanup() { guard.reset(); }

    void newFrame_hasTheDefaults()
    {
        const ZTGraphicsResizeItem frame(QRectF(1, 2, 30, 40));
        QCOMPARE(frame.rect(), QRectF(1, 2, 30, 40));
        QCOMPARE(frame.flags(),
                 QGraphicsItem::ItemIsMovable | QGraphicsItem::ItemSendsGeometryChanges);
        QVERIFY(frame.acceptHoverEvents());
        QCOMPARE(frame.getUndoStack(), nullptr);
        QVERIFY(frame.selectItem().isEmpty());
        QVERIFY(frame.isEnableResizeFromChild());
        QCOMPARE(frame.rotation(), 0.0);
        QCOMPARE(frame.childItems().size(), 8);
    }

    void newFrame_takesItsParent()
    {
        QGraphicsRectItem parent;
        const auto *frame = new ZTGraphicsResizeItem(QRectF(), &parent);
        QCOMPARE(frame->parentItem(), &parent);
    }

    void metaObject_hasThreeSignals()
    {
        const QMetaObject &meta = ZTGraphicsResizeItem::staticMetaObject;
        QStringList methods;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
            methods << QString::fromLatin1(meta.method(i).methodSignature());
        QCOMPARE(methods,
                 QStringList({QStringLiteral("sigPosChanged()"), QStringLiteral("sigSizeChanged()"),
                              QStringLiteral("sigRotationChanged()")}));
        QCOMPARE(meta.propertyCount(), meta.propertyOffset());
    }

    void dataKeys_areFixed()
    {
        QCOMPARE(int(ZTGraphicsResizeItem::ITEM_OFFSET), 65537);
        QCOMPARE(int(ZTGraphicsResizeItem::FRAME_START_RECT), 65538);
        QCOMPARE(int(ZTGraphicsResizeItem::START_POS), 65539);
    }

    void handles_standAtTheirAnchors_data()
    {
        QTest::addColumn<int>("index");
        QTest::addColumn<QPointF>("anchor");
        QTest::addColumn<QPointF>("shift");
        QTest::newRow("top left") << 0 << QPointF(10, 20) << QPointF(-20, -20);
        QTest::newRow("top right") << 1 << QPointF(110, 20) << QPointF(1, -20);
        QTest::newRow("bottom left") << 2 << QPointF(10, 80) << QPointF(-20, 1);
        QTest::newRow("bottom right") << 3 << QPointF(110, 80) << QPointF(1, 1);
        QTest::newRow("top") << 4 << QPointF(60, 20) << QPointF(-10, -20);
        QTest::newRow("left") << 5 << QPointF(10, 50) << QPointF(-20, -10);
        QTest::newRow("right") << 6 << QPointF(110, 50) << QPointF(1, -10);
        QTest::newRow("bottom") << 7 << QPointF(60, 80) << QPointF(-10, 1);
    }
    void handles_standAtTheirAnchors()
    {
        QFETCH(int, index);
        QFETCH(QPointF, anchor);
        QFETCH(QPointF, shift);
        ZTGraphicsResizeItem frame(QRectF(0, 0, 1, 1));
        frame.setRect(10, 20, 100, 60);
        const auto *handle =
            dynamic_cast<const ZTGraphicsResizeHandle *>(frame.childItems().at(index));
        QVERIFY(handle != nullptr);
        QCOMPARE(handle->pos(), anchor);
        QCOMPARE(handle->transform(), QTransform::fromTranslate(shift.x(), shift.y()));
        QCOMPARE(handle->rect(), QRectF(0, 0, 20, 20));
        QCOMPARE(handle->flags(),
                 QGraphicsItem::ItemIsMovable | QGraphicsItem::ItemIgnoresTransformations);
        QVERIFY(handle->acceptHoverEvents());
        QVERIFY(dynamic_cast<const QObject *>(handle) == nullptr);
    }

    void handle_withoutFrame_staysWhereItIs()
    {
        ZTGraphicsResizeHandle handle(3, nullptr);
        handle.setPos(7, 8);
        handle.place();
        QCOMPARE(handle.pos(), QPointF(7, 8));
    }

    void handle_paintsABlueCircle()
    {
        ZTGraphicsResizeHandle handle(0, nullptr);
        QImage image(30, 30, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.translate(5, 5);
        painter.setBrush(Qt::red);
        const QStyleOptionGraphicsItem option;
        handle.paint(&painter, &option);
        QCOMPARE(image.pixelColor(15, 5), QColor(Qt::blue));
        QCOMPARE(image.pixelColor(5, 15), QColor(Qt::blue));
        QCOMPARE(image.pixelColor(15, 15), QColor(Qt::white));
        QCOMPARE(image.pixelColor(5, 5), QColor(Qt::white));
    }

    void setRect_currentRect_reportsNothing()
    {
        ZTGraphicsResizeItem frame(QRectF(0, 0, 30, 40));
        const QSignalSpy sizes(&frame, &ZTGraphicsResizeItem::sigSizeChanged);
        frame.setRect(QRectF(0, 0, 30, 40));
        frame.setRect(QRectF(30, 40, -30, -40));
        QCOMPARE(sizes.count(), 0);
        frame.setRect(0, 0, 30, 41);
        QCOMPARE(sizes.count(), 1);
    }

    void setRect_negativeSize_isNormalised()
    {
        ZTGraphicsResizeItem frame(QRectF(0, 0, 30, 40));
        frame.setRect(QRectF(10, 10, -5, -6));
        QCOMPARE(frame.rect(), QRectF(5, 4, 5, 6));
    }

    void setRect_noSize_getsTheLeastSize()
    {
        const double least = 9.999999747378752e-05;
        ZTGraphicsResizeItem frame(QRectF(0, 0, 30, 40));
        frame.setRect(QRectF(3, 4, 0, 0));
        QVERIFY(frame.rect().width() == least);
        QVERIFY(frame.rect().height() == least);
        frame.setRect(QRectF(3, 4, 0.00005, 7));
        QVERIFY(frame.rect().width() == least);
        QVERIFY(frame.rect().height() == 7.0);
        frame.setRect(QRectF(3, 4, 0.0002, 7));
        QVERIFY(frame.rect().width() == 0.0002);
    }

    void setSelectItem_fitsTheFrameAroundTheItems()
    {
        const Items items = makeItems(2);
        items[1]->setPos(200, 50);
        items[0]->setZValue(2.9);
        ZTGraphicsResizeItem frame(QRectF(0, 0, 150, 150));
        frame.hide();
        frame.moveBy(-70, 0);
        const QSignalSpy positions(&frame, &ZTGraphicsResizeItem::sigPosChanged);
        const QSignalSpy sizes(&frame, &ZTGraphicsResizeItem::sigSizeChanged);
        frame.setSelectItem(listOf(items));
        QVERIFY(frame.isVisible());
        QCOMPARE(frame.selectItem(), listOf(items));
        QCOMPARE(frame.pos(), QPointF(0, 0));
        QCOMPARE(frame.rect(), QRectF(0, 0, 300, 150));
        QCOMPARE(frame.zValue(), 3.0);
        QCOMPARE(positions.count(), 1);
        QCOMPARE(sizes.count(), 1);
        QCOMPARE(items[0]->getResizeItem(), &frame);
        QCOMPARE(items[1]->getResizeItem(), &frame);
    }

    void setSelectItem_empty_hidesAndLetsGo()
    {
        const Items items = makeItems(2);
        ZTGraphicsResizeItem frame(QRectF(0, 0, 150, 150));
        frame.setSelectItem(listOf(items));
        frame.setSelectItem({});
        QVERIFY(!frame.isVisible());
        QVERIFY(frame.selectItem().isEmpty());
        QCOMPARE(items[0]->getResizeItem(), nullptr);
        QCOMPARE(items[1]->getResizeItem(), nullptr);
    }

    void setSelectItem_replaced_keepsTheDroppedItemsPointer()
    {
        const Items items = makeItems(2);
        ZTGraphicsResizeItem frame(QRectF(0, 0, 150, 150));
        frame.setSelectItem({items[0].get()});
        frame.setSelectItem({items[1].get()});
        QCOMPARE(items[0]->getResizeItem(), &frame);
        items[0]->setPos(-500, -500);
        QCOMPARE(rectInScene(frame), QRectF(200, 0, 100, 100));
    }

    void setSelectItem_resetsTheRotation()
    {
        const Items items = makeItems(2);
        ZTGraphicsResizeItem frame(QRectF(0, 0, 150, 150));
        frame.setSelectItem(listOf(items));
        frame.setRotation(30);
        QCOMPARE(frame.rotation(), 30.0);
        frame.setSelectItem(listOf(items));
        QCOMPARE(frame.rotation(), 0.0);
    }

    void setSelectItem_whileDisabled_takesNothing()
    {
        const Items items = makeItems(1);
        ZTGraphicsResizeItem frame(QRectF(0, 0, 150, 150));
        frame.setEnableResizeFromChild(false);
        frame.setSelectItem(listOf(items));
        QCOMPARE(frame.rect(), QRectF(0, 0, 150, 150));
        QCOMPARE(items[0]->getResizeItem(), nullptr);
        QCOMPARE(frame.selectItem().size(), 1);
    }

    void zOfItems_isTruncatedAndNeverBelowZero_data()
    {
        QTest::addColumn<double>("itemZ");
        QTest::addColumn<double>("frameZ");
        QTest::newRow("zero") << 0.0 << 1.0;
        QTest::newRow("negative") << -8.0 << 1.0;
        QTest::newRow("fraction") << 0.7 << 1.0;
        QTest::newRow("large") << 1e12 << 1e12 + 1;
        QTest::newRow("5.5") << 5.5 << 6.0;
    }
    void zOfItems_isTruncatedAndNeverBelowZero()
    {
        QFETCH(double, itemZ);
        QFETCH(double, frameZ);
        const Items items = makeItems(1);
        items[0]->setZValue(itemZ);
        ZTGraphicsResizeItem frame(QRectF(0, 0, 150, 150));
        frame.setSelectItem(listOf(items));
        QCOMPARE(frame.zValue(), frameZ);
    }

    void childChanges_pullTheFrameAlong_data()
    {
        QTest::addColumn<int>("count");
        QTest::newRow("few items") << 2;
        QTest::newRow("many items") << 100;
    }
    void childChanges_pullTheFrameAlong()
    {
        QFETCH(int, count);
        const Items items = makeItems(count);
        const double right = 200.0 * (count - 1) + 100;
        ZTGraphicsResizeItem frame(QRectF(0, 0, 150, 150));
        frame.setSelectItem(listOf(items));
        QCOMPARE(rectInScene(frame), QRectF(0, 0, right, 100));

        items[0]->setPos(-30, -40);
        QCOMPARE(rectInScene(frame), QRectF(-30, -40, right + 30, 140));
        items[0]->setPos(0, 0);
        QCOMPARE(rectInScene(frame), QRectF(0, 0, right, 100));
        items[1]->scale(1, 3);
        QCOMPARE(rectInScene(frame), QRectF(0, 0, right, 300));
        items[1]->setTransformParam(QTransform::fromScale(1, 2));
        QCOMPARE(rectInScene(frame), QRectF(0, 0, right, 200));
        items[1]->setSize(QSizeF(1, 1));
        QCOMPARE(rectInScene(frame), QRectF(0, 0, right, 200));
    }

    void silentChildChanges_countAtTheNextFollow_data() { childChanges_pullTheFrameAlong_data(); }
    void silentChildChanges_countAtTheNextFollow()
    {
        QFETCH(int, count);
        const Items items = makeItems(count);
        const double right = 200.0 * (count - 1) + 100;
        ZTGraphicsResizeItem frame(QRectF(0, 0, 150, 150));
        frame.setSelectItem(listOf(items));
        items[1]->setTransformParam(QTransform());
        items[1]->setPos(200, 1);
        items[1]->setPos(200, 0);
        QCOMPARE(rectInScene(frame), QRectF(0, 0, right, 100));

        // Same size, another place, and a higher z: neither is reported to the frame by itself.
        items[1]->setTransformParam(QTransform::fromTranslate(0, -7));
        items[1]->setZValue(4);
        QCOMPARE(rectInScene(frame), QRectF(0, 0, right, 100));
        QCOMPARE(frame.zValue(), 1.0);
        items[0]->setPos(0, 1);
        QCOMPARE(rectInScene(frame), QRectF(0, -70, right, 171));
        QCOMPARE(frame.zValue(), 5.0);
    }

    void disabledFrame_doesNotFollow_thenCatchesUp_data() { childChanges_pullTheFrameAlong_data(); }
    void disabledFrame_doesNotFollow_thenCatchesUp()
    {
        QFETCH(int, count);
        const Items items = makeItems(count);
        const double right = 200.0 * (count - 1) + 100;
        ZTGraphicsResizeItem frame(QRectF(0, 0, 150, 150));
        frame.setSelectItem(listOf(items));
        items[1]->setPos(200, 1);
        frame.setEnableResizeFromChild(false);
        QVERIFY(!frame.isEnableResizeFromChild());
        items[0]->setPos(0, -90);
        frame.resizeFromChild();
        QCOMPARE(rectInScene(frame), QRectF(0, 0, right, 101));
        frame.setEnableResizeFromChild(true);
        items[1]->setPos(200, 2);
        QCOMPARE(rectInScene(frame), QRectF(0, -90, right, 192));
    }

    void deletedChildren_leaveTheFrame_data() { childChanges_pullTheFrameAlong_data(); }
    void deletedChildren_leaveTheFrame()
    {
        QFETCH(int, count);
        Items items = makeItems(count);
        ZTGraphicsResizeItem frame(QRectF(0, 0, 150, 150));
        frame.setSelectItem(listOf(items));
        items[1]->setPos(200, 1);
        const QGraphicsItem *last = items.back().get();
        items.pop_back();
        QCOMPARE(frame.selectItem().size(), count - 1);
        QVERIFY(!frame.selectItem().contains(const_cast<QGraphicsItem *>(last)));
        items[0]->setPos(0, 1);
        QCOMPARE(frame.rect().width(), 200.0 * (count - 2) + 100);
        items.clear();
        QVERIFY(frame.selectItem().isEmpty());
        frame.beforeAdjust();
        frame.setRotation(10);
        frame.setPos(QPointF(3, 3));
        frame.resizeFromChild();
        QCOMPARE(frame.rotation(), 0.0);
    }

    void deletedFrame_leavesItsItems()
    {
        const Items items = makeItems(2);
        {
            ZTGraphicsResizeItem frame(QRectF(0, 0, 150, 150));
            frame.setSelectItem({items[0].get()});
            frame.setSelectItem({items[1].get()});
        }
        QCOMPARE(items[0]->getResizeItem(), nullptr);
        QCOMPARE(items[1]->getResizeItem(), nullptr);
        items[0]->setPos(1, 1);
        items[1]->setPos(1, 1);
    }

    void deletedHandle_leavesTheFrame()
    {
        ZTGraphicsResizeItem frame(QRectF(0, 0, 150, 150));
        delete frame.childItems().at(3);
        frame.setRect(0, 0, 5, 5);
        QCOMPARE(frame.childItems().size(), 7);
    }

    void foreignItems_moveButDoNotCount()
    {
        QGraphicsScene scene;
        Items items = makeItems(1);
        auto *foreign = new QGraphicsRectItem(0, 0, 500, 500);
        scene.addItem(foreign);
        ZTGraphicsResizeItem frame(QRectF(0, 0, 150, 150));
        scene.addItem(&frame);
        frame.setSelectItem({foreign, items[0].get()});
        QCOMPARE(frame.rect(), QRectF(0, 0, 100, 100));
        QUndoStack stack;
        frame.setUndoStack(&stack);
        frame.setPos(QPointF(10, 0));
        QCOMPARE(stack.count(), 1);
        QCOMPARE(stack.command(0)->childCount(), 1);
        resize(frame, QRectF(0, 0, 200, 100));
        delete foreign;
        QCOMPARE(frame.selectItem().size(), 1);
        resize(frame, QRectF(0, 0, 200, 100));
        scene.removeItem(&frame);
    }

    void setPos_movesTheItems_asOneStep()
    {
        const Items items = makeItems(2);
        QUndoStack stack;
        ZTGraphicsResizeItem frame(QRectF(0, 0, 150, 150));
        frame.setUndoStack(&stack);
        frame.setSelectItem(listOf(items));
        const QSignalSpy positions(&frame, &ZTGraphicsResizeItem::sigPosChanged);
        frame.setPos(QPointF(7, 8));
        QCOMPARE(frame.pos(), QPointF(7, 8));
        QCOMPARE(items[0]->pos(), QPointF(7, 8));
        QCOMPARE(items[1]->pos(), QPointF(207, 8));
        QCOMPARE(positions.count(), 0);
        QVERIFY(frame.isEnableResizeFromChild());
        QCOMPARE(stack.count(), 1);
        QCOMPARE(stack.text(0), QStringLiteral("item setPos"));
        QCOMPARE(stack.command(0)->childCount(), 2);
        QCOMPARE(stack.command(0)->child(0)->text(), QStringLiteral("Pos 0 7,8"));
        stack.undo();
        QCOMPARE(items[0]->pos(), QPointF(0, 0));
        QCOMPARE(items[1]->pos(), QPointF(200, 0));
        QCOMPARE(frame.pos(), QPointF(0, 0));
    }

    void setPos_sameplace_pushesAnEmptyStep()
    {
        const Items items = makeItems(1);
        QUndoStack stack;
        ZTGraphicsResizeItem frame(QRectF(0, 0, 150, 150));
        frame.setUndoStack(&stack);
        frame.setSelectItem(listOf(items));
        frame.setPos(frame.pos());
        QCOMPARE(stack.count(), 1);
        QCOMPARE(stack.command(0)->childCount(), 0);
    }

    void withoutStack_editsHappenUnrecorded()
    {
        const Items items = makeItems(2);
        ZTGraphicsResizeItem frame(QRectF(0, 0, 150, 150));
        frame.setSelectItem(listOf(items));
        frame.setPos(QPointF(7, 8));
        QCOMPARE(items[1]->pos(), QPointF(207, 8));
        resize(frame, QRectF(0, 0, 600, 100));
        QCOMPARE(items[1]->pos(), QPointF(407, 8));
        QCOMPARE(items[1]->boundingRect().width(), 200.0);
    }

    void deletedStack_countsAsNone()
    {
        const Items items = makeItems(1);
        ZTGraphicsResizeItem frame(QRectF(0, 0, 150, 150));
        {
            QUndoStack stack;
            frame.setUndoStack(&stack);
            QCOMPARE(frame.getUndoStack(), &stack);
        }
        QCOMPARE(frame.getUndoStack(), nullptr);
        frame.setSelectItem(listOf(items));
        frame.setPos(QPointF(1, 1));
        QCOMPARE(items[0]->pos(), QPointF(1, 1));
    }

    void updateChildSize_scalesAndMovesInProportion()
    {
        const Items items = makeItems(2);
        QUndoStack stack;
        ZTGraphicsResizeItem frame(QRectF(0, 0, 150, 150));
        frame.setUndoStack(&stack);
        frame.setSelectItem(listOf(items));
        resize(frame, QRectF(-300, 0, 600, 50)); // twice as wide to the left, half as high
        QCOMPARE(rectInScene(frame), QRectF(-300, 0, 600, 50));
        QCOMPARE(items[0]->pos(), QPointF(-300, 0));
        QCOMPARE(items[1]->pos(), QPointF(100, 0));
        QCOMPARE(items[1]->boundingRect(), QRectF(0, 0, 200, 50));

        QCOMPARE(stack.count(), 1);
        const QUndoCommand *step = stack.command(0);
        QCOMPARE(step->text(), QStringLiteral("item resize"));
        QCOMPARE(step->childCount(), 2);
        QCOMPARE(step->child(1)->text(), QStringLiteral("item resize 1"));
        QCOMPARE(step->child(1)->childCount(), 2);
        QCOMPARE(step->child(1)->child(0)->text(), QStringLiteral("Pos 1 100,0"));
        QCOMPARE(step->child(1)->child(1)->text(), QStringLiteral("Transform 1"));
        stack.undo();
        QCOMPARE(items[1]->pos(), QPointF(200, 0));
        QCOMPARE(items[1]->boundingRect(), QRectF(0, 0, 100, 100));
        stack.redo();
        QCOMPARE(items[1]->pos(), QPointF(100, 0));
        QCOMPARE(items[1]->boundingRect(), QRectF(0, 0, 200, 50));
    }

    void updateChildSize_unchangedRect_stillRecordsTransforms()
    {
        const Items items = makeItems(1);
        QUndoStack stack;
        ZTGraphicsResizeItem frame(QRectF(0, 0, 150, 150));
        frame.setUndoStack(&stack);
        frame.setSelectItem(listOf(items));
        resize(frame, frame.rect());
        QCOMPARE(stack.count(), 1);
        QCOMPARE(stack.command(0)->child(0)->childCount(), 1);
        QCOMPARE(stack.command(0)->child(0)->child(0)->text(), QStringLiteral("Transform 0"));
    }

    void kept_updateChildSize_withoutHandleDrag_leavesTheFrameDisabled()
    {
        const Items items = makeItems(1);
        QUndoStack stack;
        ZTGraphicsResizeItem frame(QRectF(0, 0, 150, 150));
        frame.setUndoStack(&stack);
        frame.setSelectItem(listOf(items));
        frame.setRect(QRectF(5, 6, 30, 30));
        frame.updateChildSize();
        QVERIFY(!frame.isEnableResizeFromChild());
        QCOMPARE(stack.count(), 0);
        QCOMPARE(rectInScene(frame), QRectF(5, 6, 30, 30));
        QCOMPARE(frame.rect().topLeft(), QPointF(0, 0));
    }

    void lockedAspectRatio_ofTheFirstItem_decides_data()
    {
        QTest::addColumn<bool>("isFirstLocked");
        QTest::addColumn<QSizeF>("frameSize");
        QTest::addColumn<QSizeF>("itemSize");
        QTest::newRow("free") << false << QSizeF(600, 200) << QSizeF(200, 200);
        QTest::newRow("free, edge") << false << QSizeF(600, 100) << QSizeF(200, 100);
        QTest::newRow("corner, smaller y") << true << QSizeF(900, 200) << QSizeF(200, 200);
        QTest::newRow("corner, smaller x") << true << QSizeF(450, 300) << QSizeF(150, 150);
        QTest::newRow("vertical edge") << true << QSizeF(600, 100) << QSizeF(200, 200);
        QTest::newRow("horizontal edge") << true << QSizeF(300, 50) << QSizeF(50, 50);
        QTest::newRow("unchanged") << true << QSizeF(300, 100) << QSizeF(100, 100);
    }
    void lockedAspectRatio_ofTheFirstItem_decides()
    {
        QFETCH(bool, isFirstLocked);
        QFETCH(QSizeF, frameSize);
        QFETCH(QSizeF, itemSize);
        const Items items = makeItems(2);
        items[0]->getShapeBase()->setLockAspectRatio(isFirstLocked);
        items[1]->getShapeBase()->setLockAspectRatio(!isFirstLocked);
        ZTGraphicsResizeItem frame(QRectF(0, 0, 150, 150));
        frame.setSelectItem(listOf(items));
        resize(frame, QRectF(QPointF(0, 0), frameSize));
        QCOMPARE(items[0]->boundingRect().size(), itemSize);
        QCOMPARE(items[1]->boundingRect().size(), itemSize);
    }

    void item2Scene_movesTheOffsetIntoThePosition()
    {
        ZTGraphicsResizeItem frame(QRectF(0, 0, 150, 150));
        frame.setRect(QRectF(-5, 7, 30, 40));
        frame.item2Scene();
        QCOMPARE(frame.pos(), QPointF(-5, 7));
        QCOMPARE(frame.rect(), QRectF(0, 0, 30, 40));
    }

    void beforeAdjust_storesOffsets()
    {
        const Items items = makeItems(2);
        ZTGraphicsResizeItem frame(QRectF(0, 0, 150, 150));
        frame.setSelectItem(listOf(items));
        frame.beforeAdjust();
        QCOMPARE(items[1]->data(ZTGraphicsResizeItem::START_POS).toPointF(), QPointF(200, 0));
        QCOMPARE(items[1]->data(ZTGraphicsResizeItem::ITEM_OFFSET).toPointF(), QPointF(200, 0));
        QCOMPARE(frame.data(ZTGraphicsResizeItem::START_POS).toPointF(), frame.pos());
    }

    void setRotation_turnsAboutTheCentre_andAddsUp()
    {
        const Items items = makeItems(1);
        QUndoStack stack;
        ZTGraphicsResizeItem frame(QRectF(0, 0, 150, 150));
        frame.setUndoStack(&stack);
        frame.setSelectItem(listOf(items));
        const QSignalSpy turns(&frame, &ZTGraphicsResizeItem::sigRotationChanged);
        frame.setRotation(30);
        frame.setRotation(30);
        QCOMPARE(turns.count(), 2);
        QCOMPARE(stack.count(), 0);
        const QTransform turn = items[0]->getTransformParam();
        QVERIFY(std::abs(turn.m11() - 0.5) < 1e-12);
        QVERIFY(std::abs(turn.m12() - std::sqrt(3.0) / 2) < 1e-12);
        const double side = 100 * (0.5 + std::sqrt(3.0) / 2);
        QCOMPARE(frame.rect().size(), QSizeF(side, side));
        QCOMPARE(rectInScene(frame).center(), QPointF(50, 50));
        QCOMPARE(items[0]->pos(), QPointF(0, 0));
    }

    void setRotation_ofSeveral_turnsThemAsAGroup()
    {
        const Items items = makeItems(2);
        ZTGraphicsResizeItem frame(QRectF(0, 0, 150, 150));
        frame.setSelectItem(listOf(items));
        frame.setRotation(90);
        // The block of 300 by 100 around (150, 50) stands upright around the same point.
        QCOMPARE(rectInScene(frame), QRectF(100, -100, 100, 300));
        QCOMPARE(items[0]->mapRectToScene(items[0]->boundingRect()), QRectF(100, -100, 100, 100));
        QCOMPARE(items[1]->mapRectToScene(items[1]->boundingRect()), QRectF(100, 100, 100, 100));
    }

    void rotation_dependsOnTheNumberOfItems()
    {
        const Items items = makeItems(2);
        ZTGraphicsResizeItem frame(QRectF(0, 0, 150, 150));
        frame.setSelectItem(listOf(items));
        frame.setRotation(20);
        frame.setRotation(25);
        QCOMPARE(frame.rotation(), 25.0);
        frame.setSelectItem({items[0].get()});
        frame.setRotation(40);
        QCOMPARE(frame.rotation(), 0.0);
        static_cast<QGraphicsItem *>(items[0].get())->setRotation(12);
        QCOMPARE(frame.rotation(), 12.0);
        frame.setSelectItem({});
        frame.setRotation(15);
        QCOMPARE(frame.rotation(), 0.0);
    }

    void paint_drawsBlueDashesOnWhite_andRestores()
    {
        ZTGraphicsResizeItem frame(QRectF(0, 0, 100, 100));
        QImage image(120, 120, QImage::Format_RGB32);
        image.fill(Qt::black);
        QPainter painter(&image);
        painter.translate(10, 10);
        painter.setPen(Qt::green);
        painter.setBrush(Qt::red);
        const QStyleOptionGraphicsItem option;
        frame.paint(&painter, &option);
        QCOMPARE(painter.pen().color(), QColor(Qt::green));
        QCOMPARE(painter.brush().color(), QColor(Qt::red));
        int white = 0;
        int blue = 0;
        for (int x = 10; x <= 110; ++x) {
            white += image.pixelColor(x, 10) == QColor(Qt::white) ? 1 : 0;
            blue += image.pixelColor(x, 10) == QColor(Qt::blue) ? 1 : 0;
        }
        QCOMPARE(white + blue, 101);
        QVERIFY(white > 10);
        QVERIFY(blue > 10);
        QCOMPARE(image.pixelColor(60, 60), QColor(Qt::black));
    }

private:
    QScopedPointer<testsupport::SingletonGuard> guard;
};

QTEST_MAIN(tst_ZTGraphicsResizeItem)
#include "tst_ZTGraphicsResizeItem.moc"
