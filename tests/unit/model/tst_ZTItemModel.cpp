#include <support/WarningGuard.h>

#include <ZTDrawEngineLib/items/ZTAbstractGraphicsItem.h>
#include <ZTDrawEngineLib/items/ZTGraphicsRectItem.h>
#include <ZTDrawEngineLib/model/ZTItemModel.h>
#include <ZTDrawEngineLib/shapes/ZTShapeBase.h>

#include <QtCore/QSignalBlocker>
#include <QtTest/QAbstractItemModelTester>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QGraphicsScene>

#include <memory>

namespace {

/** A rectangle with a text that counts how often it is set. */
class NamedItem : public ZTGraphicsRectItem
{
public:
    QString text() const override { return name; }
    void setText(const QString &text) override
    {
        ++renames;
        name = text;
    }

    QString name = QStringLiteral("first");
    int renames = 0;
};

} // namespace

class tst_ZTItemModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        warnings = std::make_unique<testsupport::WarningGuard>();
        scene = std::make_unique<QGraphicsScene>();
        model = std::make_unique<ZTItemModel>(nullptr);
        tester = std::make_unique<QAbstractItemModelTester>(
            model.get(), QAbstractItemModelTester::FailureReportingMode::QtTest);
        model->setScene(scene.get());
        connect(scene.get(), &QGraphicsScene::selectionChanged, model.get(),
                &ZTItemModel::sceneSelectChange);
    }

    void cleanup()
    {
        tester.reset();
        model.reset();
        scene.reset();
        warnings.reset();
    }

    void constructor_hasTwoColumnsAndASelection()
    {
        QCOMPARE(model->columnCount(), 2);
        QCOMPARE(model->rowCount(), 0);
        QVERIFY(model->itemSelectionModel() != nullptr);
        QCOMPARE(model->itemSelectionModel()->model(), model.get());
        QCOMPARE(model->getScene(), scene.get());
        QCOMPARE(ZTItemModel(nullptr).getScene(), nullptr);
    }

    void insert_fillsThreeColumns()
    {
        ZTAbstractGraphicsItem *item = add(7);
        QCOMPARE(model->columnCount(), 3);
        QCOMPARE(model->index(0, 0).data(Qt::DisplayRole), QVariant(7));
        QCOMPARE(model->index(0, 1).data(Qt::EditRole), QVariant(QString()));
        QCOMPARE(itemOf(0), item);
        QCOMPARE(model->index(0, 2).data(Qt::DisplayRole).toString(), QStringLiteral("Rect"));
    }

    void insert_appends()
    {
        add(5);
        add(3);
        add(4);
        QCOMPARE(rowIds(), (QVector<int>{5, 3, 4}));
    }

    void remove_takesTheFirstRowWithThatIdOnly()
    {
        for (const int id : {1, 2, 1, 3})
            add(id);
        model->remove(1);
        QCOMPARE(rowIds(), (QVector<int>{2, 1, 3}));
        model->remove(9);
        QCOMPARE(rowIds(), (QVector<int>{2, 1, 3}));
        model->remove(1);
        model->remove(1);
        QCOMPARE(rowIds(), (QVector<int>{2, 3}));
    }

    void removeSeveral_takesOneRowForEachId()
    {
        for (const int id : {1, 2, 1, 3, 1, 4})
            add(id);
        model->remove(QVector<int>{4, 1, 1, 8});
        QCOMPARE(rowIds(), (QVector<int>{2, 3, 1}));
    }

    void removeSeveral_manyRuns_keepsOrderItemsAndSelection()
    {
        constexpr int kCount = 400;
        QVector<ZTAbstractGraphicsItem *> items;
        for (int id = 0; id < kCount; ++id)
            items << add(id);
        QVector<int> doomed;
        QVector<int> kept;
        QVector<int> keptSelected;
        {
            const QSignalBlocker oneSignalForAll(scene.get());
            for (int id = 0; id < kCount; ++id) {
                (id % 2 == 0 ? doomed : kept) << id;
                items[id]->setSelected(id % 2 == 0 || id % 4 == 1);
            }
        }
        Q_EMIT scene->selectionChanged();
        QCOMPARE(selectedRows().size(), 3 * kCount / 4);
        model->setSortRole(Qt::DisplayRole);
        const QPersistentModelIndex watched(model->index(301, 0));
        QSignalSpy removed(model.get(), &QAbstractItemModel::rowsRemoved);
        QSignalSpy changed(model.get(), &QAbstractItemModel::dataChanged);
        QSignalSpy selected(scene.get(), &QGraphicsScene::selectionChanged);

        model->remove(doomed);
        QCOMPARE(rowIds(), kept);
        for (int row = 0; row < kept.size(); ++row) {
            QCOMPARE(itemOf(row), items[kept[row]]);
            if (kept[row] % 4 == 1)
                keptSelected << row;
        }
        QCOMPARE(selectedRows(), keptSelected);
        for (int id = 0; id < kCount; ++id)
            QCOMPARE(items[id]->isSelected(), id % 4 == 1);
        QCOMPARE(watched.row(), 150);
        QCOMPARE(watched.data().toInt(), 301);
        QCOMPARE(model->sortRole(), int(Qt::DisplayRole));
        QCOMPARE(removed.count(), 1);
        QCOMPARE(changed.count(), 0);
        QCOMPARE(selected.count(), 1);
    }

    void removeSeveral_manyRuns_endsTheIndexesOfWhatWent()
    {
        constexpr int kCount = 400;
        QVector<int> doomed;
        for (int id = 0; id < kCount; ++id) {
            add(id);
            if (id % 2 == 0)
                doomed << id;
        }
        const QPersistentModelIndex gone(model->index(200, 1));
        const QPersistentModelIndex stays(model->index(201, 2));
        const QStandardItem *cell = model->item(201, 2);
        model->remove(doomed);
        QVERIFY(!gone.isValid());
        QCOMPARE(stays.row(), 100);
        QCOMPARE(stays.column(), 2);
        QCOMPARE(model->item(100, 2), cell);
        QCOMPARE(cell->row(), 100);
        QCOMPARE(model->indexFromItem(cell), QModelIndex(stays));
        add(kCount);
        QCOMPARE(model->rowCount(), kCount / 2 + 1);
        model->remove(201);
        QVERIFY(!stays.isValid());
    }

    void sceneSelection_ofManyRuns_selectsEachOfThem()
    {
        constexpr int kCount = 2000;
        QVector<ZTAbstractGraphicsItem *> items;
        tester.reset();
        for (int id = 0; id < kCount; ++id)
            items << add(id);
        {
            const QSignalBlocker oneSignalForAll(scene.get());
            for (int id = 0; id < kCount; id += 2)
                items[id]->setSelected(true);
        }
        model->sceneSelectChange();
        model->sceneSelectChange();
        QCOMPARE(model->itemSelectionModel()->selection().size(), kCount / 2);
    }

    void setData_text_renamesTheItem()
    {
        auto *item = new NamedItem;
        scene->addItem(item);
        model->insert(ShapeType::Text, item);
        QCOMPARE(model->index(0, 1).data(Qt::EditRole).toString(), QStringLiteral("first"));
        model->setData(model->index(0, 1), QStringLiteral("second"));
        QCOMPARE(item->name, QStringLiteral("second"));
        QCOMPARE(item->renames, 1);
    }

    void setData_sameText_doesNotRename()
    {
        auto *item = new NamedItem;
        scene->addItem(item);
        model->insert(ShapeType::Text, item);
        item->name = QStringLiteral("other");
        model->setData(model->index(0, 1), QStringLiteral("other"));
        QCOMPARE(item->renames, 0);
    }

    void setData_otherColumns_renameNothing()
    {
        auto *item = new NamedItem;
        scene->addItem(item);
        model->insert(ShapeType::Text, item);
        model->setData(model->index(0, 0), 12, Qt::DisplayRole);
        model->setData(model->index(0, 2), QStringLiteral("x"));
        QCOMPARE(item->renames, 0);
    }

    void sceneSelection_selectsTheWholeRowOnce()
    {
        ZTAbstractGraphicsItem *first = add(1);
        add(2);
        QSignalSpy selections(model->itemSelectionModel(), &QItemSelectionModel::selectionChanged);
        first->setSelected(true);
        QCOMPARE(selectedRows(), QVector<int>{0});
        for (int column = 0; column < 3; ++column)
            QVERIFY(model->itemSelectionModel()->isSelected(model->index(0, column)));
        QCOMPARE(selections.count(), 1);
        QVERIFY(first->isSelected());
    }

    void sceneSelection_replacesTheRowsSelected()
    {
        ZTAbstractGraphicsItem *first = add(1);
        ZTAbstractGraphicsItem *second = add(2);
        first->setSelected(true);
        second->setSelected(true);
        QCOMPARE(selectedRows(), (QVector<int>{0, 1}));
        first->setSelected(false);
        QCOMPARE(selectedRows(), QVector<int>{1});
        scene->clearSelection();
        QCOMPARE(selectedRows(), QVector<int>());
    }

    void sceneSelection_ofAForeignItem_clearsTheRows()
    {
        add(1)->setSelected(true);
        auto *foreign = scene->addRect(0, 0, 1, 1);
        foreign->setFlag(QGraphicsItem::ItemIsSelectable);
        scene->clearSelection();
        foreign->setSelected(true);
        QCOMPARE(selectedRows(), QVector<int>());
    }

    void sceneSelection_sameIdTwice_selectsBothRows()
    {
        ZTAbstractGraphicsItem *first = add(4);
        add(4);
        first->setSelected(true);
        QCOMPARE(selectedRows(), (QVector<int>{0, 1}));
        QCOMPARE(scene->selectedItems().size(), 1);
    }

    void treeSelection_selectsInTheSceneWithoutASecondPass()
    {
        ZTAbstractGraphicsItem *first = add(1);
        ZTAbstractGraphicsItem *second = add(2);
        QSignalSpy sceneChanges(scene.get(), &QGraphicsScene::selectionChanged);
        QSignalSpy rowChanges(model->itemSelectionModel(), &QItemSelectionModel::selectionChanged);
        selectRow(0, QItemSelectionModel::Select);
        QVERIFY(first->isSelected());
        QVERIFY(!second->isSelected());
        QCOMPARE(sceneChanges.count(), 1);
        QCOMPARE(rowChanges.count(), 1);
        selectRow(1, QItemSelectionModel::ClearAndSelect);
        QVERIFY(!first->isSelected());
        QVERIFY(second->isSelected());
        QCOMPARE(selectedRows(), QVector<int>{1});
    }

    void treeSelection_sameIdTwice_selectsBothItems()
    {
        ZTAbstractGraphicsItem *first = add(4);
        ZTAbstractGraphicsItem *second = add(4);
        selectRow(1, QItemSelectionModel::Select);
        QVERIFY(first->isSelected());
        QVERIFY(second->isSelected());
    }

    void treeSelection_otherColumnsAlone_selectNothing()
    {
        ZTAbstractGraphicsItem *item = add(1);
        model->itemSelectionModel()->select(model->index(0, 1), QItemSelectionModel::Select);
        QVERIFY(!item->isSelected());
    }

    void treeSelection_rowsThatAreOff_selectNothing()
    {
        QVector<ZTAbstractGraphicsItem *> items;
        for (int id = 1; id <= 4; ++id)
            items << add(id);
        model->item(0, 0)->setEnabled(false);
        model->item(2, 0)->setSelectable(false);
        model->objectTreeSelectChanged({model->index(0, 0), model->index(3, 2)}, {});
        QCOMPARE(scene->selectedItems().size(), 2);
        QVERIFY(items[1]->isSelected());
        QVERIFY(items[3]->isSelected());
    }

    void treeSelection_bothSetsEmpty_doesNoHarm()
    {
        ZTAbstractGraphicsItem *item = add(1);
        model->objectTreeSelectChanged({}, {});
        item->setSelected(true);
        QCOMPARE(selectedRows(), QVector<int>{0});
    }

    void treeSelection_rowWithoutItem_isSkipped()
    {
        ZTAbstractGraphicsItem *item = add(1);
        add(2);
        delete item;
        selectRow(0, QItemSelectionModel::Select);
        QVERIFY(scene->selectedItems().isEmpty());
    }

    void deletedItem_leavesAHarmlessRow()
    {
        ZTAbstractGraphicsItem *item = add(1);
        delete item;
        QCOMPARE(itemOf(0), nullptr);
        model->setData(model->index(0, 1), QStringLiteral("late"));
        QCOMPARE(model->rowCount(), 1);
    }

    void deletedScene_isForgotten()
    {
        add(1);
        scene.reset();
        QCOMPARE(model->getScene(), nullptr);
        selectRow(0, QItemSelectionModel::Select);
        model->sceneSelectChange();
    }

    void twoModels_eachSelectInTheirOwnScene()
    {
        QGraphicsScene otherScene;
        ZTItemModel otherModel(nullptr);
        otherModel.setScene(&otherScene);
        connect(&otherScene, &QGraphicsScene::selectionChanged, &otherModel,
                &ZTItemModel::sceneSelectChange);
        auto *other = new ZTGraphicsRectItem;
        other->getShapeBase()->setId(1);
        otherScene.addItem(other);
        otherModel.insert(ShapeType::Rect, other);
        ZTAbstractGraphicsItem *own = add(1);
        selectRow(0, QItemSelectionModel::Select);
        QVERIFY(own->isSelected());
        QVERIFY(!other->isSelected());
        otherModel.itemSelectionModel()->select(
            otherModel.index(0, 0), QItemSelectionModel::Select | QItemSelectionModel::Rows);
        QVERIFY(other->isSelected());
        own->setSelected(false);
        QCOMPARE(selectedRows(), QVector<int>());
    }

private:
    ZTAbstractGraphicsItem *add(int id)
    {
        auto *item = new ZTGraphicsRectItem;
        item->getShapeBase()->setId(id);
        scene->addItem(item);
        model->insert(ShapeType::Rect, item);
        return item;
    }

    ZTAbstractGraphicsItem *itemOf(int row) const
    {
        return model->index(row, 1).data(Qt::UserRole + 1).value<ZTAbstractGraphicsItem *>();
    }

    QVector<int> rowIds() const
    {
        QVector<int> ids;
        for (int row = 0; row < model->rowCount(); ++row)
            ids << model->index(row, 0).data(Qt::DisplayRole).toInt();
        return ids;
    }

    QVector<int> selectedRows() const
    {
        QVector<int> rows;
        for (int row = 0; row < model->rowCount(); ++row) {
            if (model->itemSelectionModel()->isRowSelected(row, QModelIndex()))
                rows << row;
        }
        return rows;
    }

    void selectRow(int row, QItemSelectionModel::SelectionFlags how)
    {
        model->itemSelectionModel()->select(model->index(row, 0), how | QItemSelectionModel::Rows);
    }

    std::unique_ptr<testsupport::WarningGuard> warnings;
    std::unique_ptr<QGraphicsScene> scene;
    std::unique_ptr<ZTItemModel> model;
    std::unique_ptr<QAbstractItemModelTester> tester;
};

QTEST_MAIN(tst_ZTItemModel)
#include "tst_ZTItemModel.moc"
