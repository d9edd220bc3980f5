#include <support/FramedItems.h>
#include <support/SingletonGuard.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtTest/QTest>

#include <memory>
#include <random>
#include <vector>

using testsupport::listOf;
using testsupport::rectInScene;

namespace {

using Items = std::vector<std::unique_ptr<ZTAbstractGraphicsItem>>;

/** More than the frame reads anew at each change. */
constexpr int kMany = 100;

/** Figures of 10 by 10 millimetres, 200 pixels apart, without a scene. */
Items makeItems(int count)
{
    Items items;
    for (int i = 0; i < count; ++i) {
        if (i % 3 == 0)
            items.push_back(std::make_unique<ZTGraphicsEllipseItem>());
        else
            items.push_back(std::make_unique<ZTGraphicsRectItem>());
        items.back()->setPos(200.0 * i, 0);
    }
    return items;
}

/** Around all items, each of them asked. */
QRectF rectAround(const Items &items)
{
    QRectF rectPx;
    for (const auto &item : items)
        rectPx |= item->mapRectToScene(item->boundingRect());
    return rectPx;
}

/** Another shape in the place of the item's. */
void copyLargerOne(ZTAbstractGraphicsItem &item, double sideMm)
{
    const bool isRound = dynamic_cast<ZTGraphicsEllipseItem *>(&item) != nullptr;
    std::unique_ptr<ZTAbstractGraphicsItem> source;
    if (isRound)
        source = std::make_unique<ZTGraphicsEllipseItem>();
    else
        source = std::make_unique<ZTGraphicsRectItem>();
    source->getShapeBase()->setRect({0, 0, sideMm, sideMm});
    item.copy(source.get());
}

/** Large, and rebuilt without a word to the item. */
void growShape(ZTAbstractGraphicsItem &item, const QSizeF &sizeMm)
{
    ZTShapeBase &shape = *item.getShapeBase();
    shape.setRect({{0, 0}, sizeMm});
    shape.paint();
}

} // namespace

/** The frame follows many items as it follows few: as though it asked each of them every time. */
class tst_ZTFrameSelection : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        guard.reset(new testsupport::SingletonGuard);
        ZTCoord::getInstance()->setHeight(1930.0); // 1 mm is 10 pixels
    }
    void cleanup() { guard.reset(); }

    void shapeRebuiltByOthers_countsAtTheNextFollow()
    {
        const Items items = makeItems(kMany);
        ZTGraphicsResizeItem frame(QRectF(0, 0, 150, 150));
        frame.setSelectItem(listOf(items));
        items[0]->setPos(0, 1);
        items[0]->setPos(0, 0);
        QCOMPARE(rectInScene(frame), QRectF(0, 0, 19900, 100));

        growShape(*items[50], {10, 70});
        QCOMPARE(rectInScene(frame), QRectF(0, 0, 19900, 100));
        items[0]->setPos(0, 0.5);
        QCOMPARE(rectInScene(frame), QRectF(0, 0, 19900, 700));
    }

    /** Two that changed, the second of which is the one that speaks up. */
    void shapeRebuiltBeforeAnotherOne_countsToo()
    {
        const Items items = makeItems(kMany);
        ZTGraphicsResizeItem frame(QRectF(0, 0, 150, 150));
        frame.setSelectItem(listOf(items));
        items[0]->setPos(0, 1);
        growShape(*items[50], {10, 70});
        items[7]->setTransformParam(QTransform::fromScale(1, 2));
        QCOMPARE(rectInScene(frame), QRectF(0, 0, 19900, 700));
    }

    void shapeThatSharesItsRecord_countsToo()
    {
        const Items items = makeItems(kMany);
        ZTGraphicsResizeItem frame(QRectF(0, 0, 150, 150));
        frame.setSelectItem(listOf(items));
        items[1]->setPos(200, 0.5);
        *items[4]->getShapeBase() = *items[1]->getShapeBase(); // both stand for one record
        items[1]->setPos(200, 0);
        growShape(*items[1], {10, 90});
        items[1]->setPos(200, -5000);
        QCOMPARE(rectInScene(frame),
                 QRectF(0, -5000, 19900, 5900)); // down to where the fourth ends
    }

    void itemsOfAParent_followItsMoves()
    {
        const Items items = makeItems(kMany);
        QGraphicsRectItem parent;
        ZTGraphicsResizeItem frame(QRectF(0, 0, 150, 150));
        frame.setSelectItem(listOf(items));
        items[0]->setPos(0, 1);
        items[50]->setParentItem(&parent);
        parent.setPos(0, 1000);
        items[0]->setPos(0, 0);
        QCOMPARE(rectInScene(frame), QRectF(0, 0, 19900, 1100));
        parent.setPos(0, 2000);
        items[0]->setPos(0, 0.5);
        QCOMPARE(rectInScene(frame), QRectF(0, 0, 19900, 2100).united(QRectF(0, 0.5, 1, 1)));
        items[50]->setParentItem(nullptr);
    }

    /** One that has left the selection still speaks up, and may be the only one that changed. */
    void itemOfAFormerSelection_changesNothing()
    {
        const Items items = makeItems(kMany + 1);
        ZTGraphicsResizeItem frame(QRectF(0, 0, 150, 150));
        frame.setSelectItem(listOf(items));
        QList<QGraphicsItem *> fewer = listOf(items);
        fewer.removeLast();
        frame.setSelectItem(fewer);
        items[0]->setPos(0, 1);
        items[0]->setPos(0, 0);
        items.back()->setTransformParam(QTransform::fromScale(1, 9));
        QCOMPARE(rectInScene(frame), QRectF(0, 0, 19900, 100));
    }

    void anyChanges_asThoughAllWereAsked_data()
    {
        QTest::addColumn<unsigned>("seed");
        for (unsigned seed = 1; seed <= 20; ++seed)
            QTest::addRow("%u", seed) << seed;
    }

    void anyChanges_asThoughAllWereAsked()
    {
        QFETCH(unsigned, seed);
        const Items items = makeItems(kMany);
        ZTGraphicsResizeItem frame(QRectF(0, 0, 150, 150));
        frame.setSelectItem(listOf(items));
        std::mt19937 dice(seed);
        std::uniform_real_distribution<double> some(1.0, 2000.0);
        for (int step = 0; step < 500; ++step) {
            ZTAbstractGraphicsItem &item = *items[dice() % items.size()];
            change(item, static_cast<int>(dice() % 9), some(dice));
            ZTAbstractGraphicsItem &follower = *items[dice() % items.size()];
            if (dice() % 3 == 0)
                continue;
            follower.scale(1.0 + some(dice) / 4000, 0.9);
            QCOMPARE(rectInScene(frame), rectAround(items));
        }
    }

private:
    static void change(ZTAbstractGraphicsItem &item, int kind, double value)
    {
        ZTShapeBase &shape = *item.getShapeBase();
        switch (kind) {
        case 0:
            item.setPos(value, -value);
            break;
        case 1:
            growShape(item, {value / 10, 5});
            break;
        case 2:
            shape.setTransformParam(QTransform::fromTranslate(value, 3));
            break;
        case 3: // for the next paint
            shape.setRect({value, 0, 3, 4});
            break;
        case 4:
            shape.paint();
            break;
        case 5:
            item.setRotation(value);
            break;
        case 6:
            item.setTransformOriginPoint(value, 0);
            break;
        case 7:
            copyLargerOne(item, value / 10);
            break;
        default:
            item.setTransformParam(QTransform::fromScale(value / 1000, 1));
            break;
        }
    }

    std::unique_ptr<testsupport::SingletonGuard> guard;
};

QTEST_MAIN(tst_ZTFrameSelection)
#include "tst_ZTFrameSelection.moc"
