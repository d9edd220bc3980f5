#include "DrawingSnapshot.h"

#include <studio/commands/ItemStore.h>

#include "support/SingletonGuard.h"
#include "support/WarningGuard.h"

#include <hostkit/setup/Factories.h>

#include <QtTest/QTest>

#include <functional>

using studio::ItemStore;
using studio::ShapeItem;
using studio::ShapeItems;

/** Which shapes of a drawing are taken, by their place and the number of all. */
using Pick = std::function<bool(int place, int count)>;
Q_DECLARE_METATYPE(Pick)

class tst_ItemStore : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        warnings = std::make_unique<testsupport::WarningGuard>();
        singletons = std::make_unique<testsupport::SingletonGuard>();
        hostkit::registerFactories();
        document = std::make_unique<ZTGraphicsDocument>();
        document->setObjectTree(&tree);
    }

    void cleanup()
    {
        document.reset();
        singletons.reset();
        warnings.reset();
    }

    void putBack_restoresPlaceIdAndRow_data()
    {
        QTest::addColumn<int>("count");
        QTest::addColumn<Pick>("pick");
        const QVector<QPair<const char *, Pick>> picks = {
            {"lowest", [](int i, int) { return i == 0; }},
            {"topmost", [](int i, int n) { return i == n - 1; }},
            {"middle", [](int i, int n) { return i == n / 2; }},
            {"all", [](int, int) { return true; }},
            {"every other", [](int i, int) { return i % 2 == 0; }},
            {"upper half", [](int i, int n) { return i >= n / 2; }},
            {"lower half", [](int i, int n) { return i < n / 2; }},
            {"lowest and topmost", [](int i, int n) { return i == 0 || i == n - 1; }}};
        // Of 4,500 shapes, every other one is more than is worth moving one by one.
        for (const int count : {1, 2, 7, 4500}) {
            for (const auto &pick : picks)
                QTest::addRow("%s of %d", pick.first, count) << count << pick.second;
        }
    }

    void putBack_restoresPlaceIdAndRow()
    {
        QFETCH(int, count);
        QFETCH(Pick, pick);
        const ShapeItems all = addRects(count);
        ShapeItems taken;
        QVector<int> keptIds;
        for (int i = 0; i < count; ++i) {
            if (pick(i, count))
                taken << all[i];
            else
                keptIds << i;
        }
        const DrawingSnapshot before = snapshotOf(*document);

        ItemStore store(document->itemMag(), taken);
        for (int round = 0; round < 2; ++round) {
            store.takeOut({});
            const DrawingSnapshot without = snapshotOf(*document);
            QCOMPARE(idsOf(without), keptIds);
            QCOMPARE(without.rows.size(), keptIds.size());
            QVERIFY(document->scene()->selectedItems().isEmpty());
            store.putBack();
            COMPARE_DRAWINGS(snapshotOf(*document), before);
            QCOMPARE(document->scene()->selectedItems().size(), taken.size());
            QCOMPARE(selectedRows(), taken.size());
        }
    }

    void putBack_afterPainting_keepsTheOrder()
    {
        addRects(50);
        const DrawingSnapshot before = snapshotOf(*document);
        document->view()->grab(); // drawing sorts the scene's own list
        ItemStore store(document->itemMag(), {item(10), item(11), item(30)});
        store.takeOut({});
        document->view()->grab();
        store.putBack();
        document->view()->grab();
        COMPARE_DRAWINGS(snapshotOf(*document), before);
    }

    void putBack_whereStackingAndRowsDiffer_restoresBoth()
    {
        const ShapeItems items = addRects(6);
        items[5]->stackBefore(items[1]);
        const DrawingSnapshot before = snapshotOf(*document);
        QCOMPARE(idsOf(before), (QVector<int>{0, 5, 1, 2, 3, 4}));
        ItemStore store(document->itemMag(), {items[5], items[2]});
        store.takeOut({});
        QCOMPARE(idsOf(snapshotOf(*document)), (QVector<int>{0, 1, 3, 4}));
        store.putBack();
        COMPARE_DRAWINGS(snapshotOf(*document), before);
    }

    void takeOut_selectsWhatItIsTold()
    {
        const ShapeItems items = addRects(4);
        studio::selectOnly(*document->scene(), {items[3]});
        ItemStore store(document->itemMag(), {items[3]});
        store.takeOut({items[0], items[1]});
        QCOMPARE(selectedIds(*document), (QVector<int>{0, 1}));
        QCOMPARE(selectedRows(), 2);
        QVERIFY(document->scene()->getGraphicsResizeItem()->isVisible());
        QCOMPARE(document->scene()->getGraphicsResizeItem()->selectItem().size(), 2);
    }

    void takeOut_announcesTheSelectionOnce()
    {
        const ShapeItems items = addRects(20);
        studio::selectOnly(*document->scene(), items);
        int announced = 0;
        connect(document->scene(), &QGraphicsScene::selectionChanged, this, [&] { ++announced; });
        ItemStore store(document->itemMag(), items);
        store.takeOut({});
        QCOMPARE(announced, 1);
        store.putBack();
        QCOMPARE(announced, 2);
    }

    void destruction_deletesWhatIsOutAndNothingElse()
    {
        const ShapeItems items = addRects(3);
        const QPointer<ShapeItem> out = items[1];
        const QPointer<ShapeItem> in = items[0];
        {
            ItemStore store(document->itemMag(), {items[1]});
            store.takeOut({});
            QVERIFY(out);
        }
        QVERIFY(!out);
        QVERIFY(in);
        {
            const ItemStore unused(document->itemMag(), {items[0]});
        }
        QVERIFY(in);
    }

    void itemsDeletedByOthers_leaveTheSet()
    {
        const ShapeItems items = addRects(4);
        ItemStore store(document->itemMag(), {items[1], items[2]});
        delete items[1];
        QCOMPARE(store.items(), (ShapeItems{items[2]}));
        store.takeOut({});
        delete items[3];
        store.putBack();
        QCOMPARE(idsOf(snapshotOf(*document)), (QVector<int>{0, 2}));
    }

    void managerGone_isHarmless()
    {
        auto manager = std::make_unique<ZTShapeManager>();
        ShapeItem *kept = manager->addShape(ShapeType::Rect, {0, 0, 10, 10});
        ItemStore out(manager.get(), {kept});
        out.takeOut({});
        manager.reset();
        out.putBack();
        QCOMPARE(out.items().size(), 1);
    }

private:
    ShapeItems addRects(int count)
    {
        ShapeItems items;
        for (int i = 0; i < count; ++i) {
            ShapeItem *added = document->itemMag()->addShape(ShapeType::Rect, {0, 0, 10, 10});
            added->setPos(3 * (i % 100), 3 * (i / 100));
            items << added;
        }
        return items;
    }

    ShapeItem *item(int place) { return studio::shapeItemsOf(*document->scene())[place]; }

    int selectedRows() const { return tree.selectionModel()->selectedRows().size(); }

    std::unique_ptr<testsupport::WarningGuard> warnings;
    std::unique_ptr<testsupport::SingletonGuard> singletons;
    ZTObjectTreeWidget tree{nullptr};
    std::unique_ptr<ZTGraphicsDocument> document;
};

QTEST_MAIN(tst_ItemStore)
#include "tst_ItemStore.moc"
