#include <support/Factories.h>
#include <support/Geometry.h>
#include <support/SingletonGuard.h>
#include <support/WarningGuard.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <memory>

using testsupport::near;
using testsupport::polygon;

namespace {

constexpr double kPxPerMm = 10.0;

/** A factory that counts what it makes. */
class CountingFactory : public Factory
{
public:
    ZTAbstractGraphicsItem *create() override
    {
        ++made;
        return new ZTGraphicsRectItem;
    }
    int made = 0;
};

} // namespace

class tst_ZTShapeManager : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { testsupport::registerFactories(); }

    void init()
    {
        warnings = std::make_unique<testsupport::WarningGuard>();
        guard = std::make_unique<testsupport::SingletonGuard>();
        ZTCoord::getInstance()->setHeight(193.0 * kPxPerMm);
        manager = std::make_unique<ZTShapeManager>(nullptr);
    }

    void cleanup()
    {
        manager.reset();
        guard.reset();
        warnings.reset();
    }

    void constructor_takesTheScaleOnce()
    {
        const auto expected = static_cast<float>(500.0 / kPxPerMm);
        QCOMPARE(std::get<0>(manager->getScale()), expected);
        QCOMPARE(std::get<1>(manager->getScale()), expected);
        ZTCoord::getInstance()->setDistance(1.0);
        QCOMPARE(std::get<0>(manager->getScale()), expected);
        manager->setScale(2.0F, 3.0F);
        QCOMPARE(std::get<0>(manager->getScale()), 2.0F);
        QCOMPARE(std::get<1>(manager->getScale()), 3.0F);
        QVERIFY(manager->scene() != nullptr);
        QVERIFY(qobject_cast<ZTItemModel *>(manager->itemModel()) != nullptr);
    }

    void insertItem_givesTheNextIdAndKeepsPlaceAndKind()
    {
        manager->addShape(ShapeType::Rect, {0, 0, 10, 10});
        auto *item = new ZTGraphicsEllipseItem;
        item->setShapeType(ShapeType::Ellipse);
        item->setPos(12, 34);
        manager->insertItem(item);
        QCOMPARE(item->getShapeBase()->getId(), 1);
        QCOMPARE(item->pos(), QPointF(12, 34));
        QVERIFY(item->scene() == manager->scene());
        QCOMPARE(manager->itemModel()->rowCount(), 2);
        QCOMPARE(manager->itemModel()->index(1, 2).data().toString(), QStringLiteral("Ellipse"));
        QCOMPARE(manager->getNextShapeId(), 2);
        manager->insertItem(nullptr);
        QCOMPARE(manager->itemModel()->rowCount(), 2);
    }

    void addShape_rectangleAtTheOrigin_standsCentred()
    {
        const ZTAbstractGraphicsItem *item = addRect();
        QCOMPARE(item->pos(), QPointF(-5 * kPxPerMm, -5 * kPxPerMm));
        QCOMPARE(item->getShapeType(), ShapeType::Rect);
        QCOMPARE(item->scene(), manager->scene());
        QCOMPARE(item->getShapeBase()->getRect(), QRectF(0, 0, 10, 10));
    }

    void addShape_otherRectangle_isTakenInPixels()
    {
        const ZTAbstractGraphicsItem *item =
            manager->addShape(ShapeType::Rect, QRectF(3, 4, 10, 10));
        QCOMPARE(item->pos(), QPointF(-3, -4));
    }

    void addShape_givesAscendingIdsAndRows()
    {
        for (int id = 0; id < 3; ++id)
            QCOMPARE(addRect()->getShapeBase()->getId(), id);
        QCOMPARE(manager->itemModel()->rowCount(), 3);
        QCOMPARE(manager->itemModel()->index(2, 0).data().toInt(), 2);
        QCOMPARE(manager->itemModel()->index(2, 2).data().toString(), QStringLiteral("Rect"));
    }

    void addShape_everyKind_hasItsType_data()
    {
        QTest::addColumn<int>("type");
        QTest::newRow("Rect") << int(ShapeType::Rect);
        QTest::newRow("Line") << int(ShapeType::Line);
        QTest::newRow("Ellipse") << int(ShapeType::Ellipse);
        QTest::newRow("Polygon") << int(ShapeType::Polygon);
        QTest::newRow("TDOT") << int(ShapeType::TDOT);
        QTest::newRow("VecGraph") << int(ShapeType::VecGraph);
    }

    void addShape_everyKind_hasItsType()
    {
        QFETCH(int, type);
        const auto kind = static_cast<ShapeType>(type);
        QCOMPARE(manager->addShape(kind, QRectF(0, 0, 10, 10))->getShapeType(), kind);
        // Without a path to import, a vector graphic says that it could not open its file.
        QCOMPARE(warnings->take().isEmpty(), kind != ShapeType::VecGraph);
    }

    void addShape_withoutAFactory_changesNothing_data()
    {
        QTest::addColumn<int>("type");
        for (const ShapeType type : {ShapeType::Point, ShapeType::QRCode, ShapeType::BarCode,
                                     ShapeType::Pixmap, ShapeType::None})
            QTest::addRow("%s", ShapeType2String(type)) << int(type);
        QTest::newRow("unknown") << 77;
    }

    void addShape_withoutAFactory_changesNothing()
    {
        QFETCH(int, type);
        QSignalSpy added(manager.get(), &ZTShapeManager::sigAddedShape);
        QCOMPARE(manager->addShape(static_cast<ShapeType>(type), QRectF(0, 0, 10, 10)), nullptr);
        QCOMPARE(manager->itemModel()->rowCount(), 0);
        QCOMPARE(addRect()->getShapeBase()->getId(), 0);
        QCOMPARE(added.count(), 0);
    }

    void addShape_hostFactory_isUsed()
    {
        CountingFactory factory;
        QVERIFY(ZTGraphicsItemFactory::regist("BarCode", &factory));
        QVERIFY(manager->addShape(ShapeType::BarCode, QRectF(0, 0, 10, 10)) != nullptr);
        QCOMPARE(factory.made, 1);
    }

    void removeSelect_doesNotReuseIds()
    {
        addRect();
        addRect();
        addRect()->setSelected(true);
        manager->removeSelect();
        QCOMPARE(manager->itemModel()->rowCount(), 2);
        QCOMPARE(manager->getShapeList().size(), 2);
        QCOMPARE(addRect()->getShapeBase()->getId(), 3);
        manager->clear();
        QCOMPARE(addRect()->getShapeBase()->getId(), 0);
    }

    void removeSelect_takesTheWholeSelection()
    {
        for (int i = 0; i < 5; ++i)
            addRect()->setSelected(i % 2 == 0);
        QGraphicsItem *foreign = manager->scene()->addRect(0, 0, 1, 1);
        foreign->setFlag(QGraphicsItem::ItemIsSelectable);
        foreign->setSelected(true);
        manager->removeSelect();
        QCOMPARE(manager->itemModel()->rowCount(), 2);
        QCOMPARE(manager->getShapeList().size(), 2);
        QVERIFY(manager->scene()->selectedItems().isEmpty());
        QVERIFY(!manager->scene()->getGraphicsResizeItem()->isVisible());
    }

    void clear_keepsForeignItemsAndTheFrame()
    {
        addRect()->setSelected(true);
        QGraphicsItem *foreign = manager->scene()->addRect(0, 0, 1, 1);
        ZTVariantTextManager::getInstance()->deleteAll();
        manager->clear();
        QCOMPARE(manager->itemModel()->rowCount(), 0);
        QVERIFY(manager->getShapeList().isEmpty());
        QCOMPARE(foreign->scene(), manager->scene());
        QVERIFY(manager->scene()->getGraphicsResizeItem() != nullptr);
    }

    void addMatrix_placesCopiesByGaps()
    {
        ZTAbstractGraphicsItem *source = addRect();
        source->setTransformParam(QTransform::fromScale(0.1, 0.2)); // 10 x 20 pixels
        source->setPos(100, 100);
        source->getShapeBase()->setPenId(4);
        source->setSelected(true);
        const QList<ZTAbstractGraphicsItem *> copies = manager->addMatrix(2, 3, 1.0, 2.0);
        QCOMPARE(copies.size(), 5);
        const QVector<QPointF> places = {
            {111, 100}, {122, 100}, {100, 122}, {111, 122}, {122, 122}};
        for (int i = 0; i < copies.size(); ++i) {
            QCOMPARE(copies[i]->pos(), places[i]);
            QCOMPARE(copies[i]->getShapeBase()->getId(), i + 1);
            QCOMPARE(copies[i]->getPenId(), 4);
            QCOMPARE(copies[i]->boundingRect(), source->boundingRect());
            QVERIFY(!copies[i]->isSelected());
        }
        QCOMPARE(source->getShapeBase()->getId(), 0);
        QCOMPARE(manager->itemModel()->rowCount(), 6);
    }

    void addMatrix_ofOneCell_givesNothing()
    {
        addRect()->setSelected(true);
        QVERIFY(manager->addMatrix(1, 1, 1, 1).isEmpty());
        QVERIFY(manager->addMatrix(0, 5, 1, 1).isEmpty());
        QVERIFY(manager->addMatrix(5, -1, 1, 1).isEmpty());
        QCOMPARE(manager->getShapeList().size(), 1);
    }

    void addMatrix_withoutASelection_givesNothing()
    {
        addRect();
        QVERIFY(manager->addMatrix(2, 2, 1, 1).isEmpty());
    }

    void addMatrix_ofAForeignItem_givesNothing()
    {
        QGraphicsItem *foreign = manager->scene()->addRect(0, 0, 1, 1);
        foreign->setFlag(QGraphicsItem::ItemIsSelectable);
        foreign->setSelected(true);
        QVERIFY(manager->addMatrix(2, 2, 1, 1).isEmpty());
    }

    void addMatrix_kindWithoutAFactory_givesNothing()
    {
        ZTAbstractGraphicsItem *item = addRect();
        item->setShapeType(ShapeType::Pixmap);
        item->setSelected(true);
        QVERIFY(manager->addMatrix(2, 2, 1, 1).isEmpty());
        QCOMPARE(manager->getShapeList().size(), 1);
    }

    void shapeLists_areTopmostFirst()
    {
        ZTAbstractGraphicsItem *bottom = addRect();
        ZTAbstractGraphicsItem *top = addRect();
        QCOMPARE(manager->getShapeList(),
                 (QVector<ZTShapeBase *>{top->getShapeBase(), bottom->getShapeBase()}));
        QVERIFY(manager->getSelectedShapeList().isEmpty());
        bottom->setSelected(true);
        QCOMPARE(manager->getSelectedShapeList(), QVector<ZTShapeBase *>{bottom->getShapeBase()});
    }

    void deduplicatio_isAlwaysTrue()
    {
        ZTMarkGraph graph;
        QVERIFY(manager->deduplicatio(graph, QLineF()));
    }

    void genMarkObject_rebuildsMovesAndScales()
    {
        manager->setScale(2.0F, 3.0F);
        ZTAbstractGraphicsItem *item = addRect();
        item->setPos(1, 2);
        item->getShapeBase()->setPenId(5);
        item->getShapeBase()->getTransformParam() = QTransform::fromScale(0.1, 0.1);
        ZTMarkObject object;
        manager->genMarkObject(item, item->getShapeBase(), object);
        QCOMPARE(object.penId, 5);
        QCOMPARE(object.lines.size(), 1);
        QVERIFY(near(object.lines[0], polygon({{2, 6}, {22, 6}, {22, 36}, {2, 36}, {2, 6}})));
        QCOMPARE(object.rect, QRectF(2, 6, 20, 30));
        QVERIFY(object.fillLines.isEmpty());
    }

    void genMarkObject_extent_putsTheBoxCornerAtThePosition()
    {
        manager->setScale(1.0F, 1.0F);
        ZTAbstractGraphicsItem *item = addRect();
        item->getShapeBase()->setRect(QRectF(1, 1, 2, 2));
        item->setPos(100, 50);
        ZTMarkObject object;
        manager->genMarkObject(item, item->getShapeBase(), object);
        QCOMPARE(object.rect.topLeft(), QPointF(100, 50));
        QCOMPARE(object.lines[0].first(), QPointF(110, 60));
    }

    void genMarkObject_negativeScale_mirrorsLinesAndNotTheExtent()
    {
        ZTAbstractGraphicsItem *item = addRect();
        item->setPos(10, 20);
        manager->setScale(1.0F, 1.0F);
        ZTMarkObject plain;
        manager->genMarkObject(item, item->getShapeBase(), plain);
        manager->setScale(-1.0F, 1.0F);
        ZTMarkObject mirrored;
        manager->genMarkObject(item, item->getShapeBase(), mirrored);
        QCOMPARE(mirrored.rect, plain.rect);
        for (int i = 0; i < plain.lines[0].size(); ++i)
            QCOMPARE(mirrored.lines[0][i], QPointF(-plain.lines[0][i].x(), plain.lines[0][i].y()));
    }

    void genMarkObject_hatchFollowsItsTypeAndNotStaleLines()
    {
        manager->setScale(2.0F, 2.0F);
        ZTAbstractGraphicsItem *item = addRect();
        item->setPos(1, 1);
        item->setFillParam({FillType::Line, 2.0, 0.0, false});
        ZTMarkObject object;
        manager->genMarkObject(item, item->getShapeBase(), object);
        QVERIFY(object.lines.isEmpty());
        const QVector<QLineF> &hatch = item->getShapeBase()->getFillLines();
        QVERIFY(!hatch.isEmpty());
        QCOMPARE(object.fillLines.size(), hatch.size());
        QCOMPARE(object.fillLines[0],
                 QLineF((hatch[0].p1() + QPointF(1, 1)) * 2, (hatch[0].p2() + QPointF(1, 1)) * 2));

        item->setFillParam({FillType::None, 2.0, 0.0, false});
        manager->genMarkObject(item, item->getShapeBase(), object);
        QVERIFY(!item->getShapeBase()->getFillLines().isEmpty());
        QVERIFY(object.fillLines.isEmpty());
        QVERIFY(object.lines.isEmpty());
        QCOMPARE(object.penId, 1);
        QVERIFY(!object.rect.isEmpty());
    }

    void genMarkObject_outlineIsQtsOwnPolygonsToTheLastBit_data()
    {
        QTest::addColumn<QPointF>("scale");
        QTest::newRow("one") << QPointF(1, 1);
        QTest::newRow("mirrored") << QPointF(-1.3, 0.7);
        QTest::newRow("odd") << QPointF(0.1, 37.3);
    }

    void genMarkObject_outlineIsQtsOwnPolygonsToTheLastBit()
    {
        QFETCH(QPointF, scale);
        manager->setScale(float(scale.x()), float(scale.y()));
        const auto [sx, sy] = manager->getScale();
        for (const ShapeType type : {ShapeType::Rect, ShapeType::Line, ShapeType::Ellipse}) {
            ZTAbstractGraphicsItem *item = manager->addShape(type, QRectF(0, 0, 10, 10));
            for (const QPointF &posPx : {QPointF(0, 0), QPointF(0.1, -7.7), QPointF(333.3, 1e-9)}) {
                item->setPos(posPx);
                ZTMarkObject object;
                manager->genMarkObject(item, item->getShapeBase(), object);
                const QTransform toMark =
                    QTransform::fromTranslate(posPx.x(), posPx.y()) * QTransform::fromScale(sx, sy);
                QVERIFY(testsupport::same(
                    object.lines, item->getShapeBase()->getLines().toSubpathPolygons(toMark)));
            }
        }
    }

    void genMarkObject_line_hasOnePolygonAndNoHatch()
    {
        ZTAbstractGraphicsItem *item = manager->addShape(ShapeType::Line, QRectF(0, 0, 10, 10));
        item->setFillParam({FillType::Line, 1.0, 0.0, true});
        ZTMarkObject object;
        manager->genMarkObject(item, item->getShapeBase(), object);
        QCOMPARE(object.lines.size(), 1);
        QCOMPARE(object.lines[0].size(), 2);
        QVERIFY(object.fillLines.isEmpty());
    }

    void getShapeLines_moving_shiftsEveryPoint()
    {
        ZTAbstractGraphicsItem *item = addRect();
        item->setPos(0, 0);
        const ZTMarkGraph before = manager->getShapeLines();
        const QPainterPath lines = item->getShapeBase()->getLines();
        item->setPos(3, 4);
        const ZTMarkGraph after = manager->getShapeLines();
        QCOMPARE(item->getShapeBase()->getLines(), lines);
        const double scale = std::get<0>(manager->getScale());
        for (int i = 0; i < before.objects[0].lines[0].size(); ++i)
            QCOMPARE(after.objects[0].lines[0][i],
                     before.objects[0].lines[0][i] + QPointF(3, 4) * scale);
    }

    void getShapeLines_isTopmostFirstAndUnitesExtents()
    {
        manager->setScale(1.0F, 1.0F);
        addRect()->setPos(0, 0);
        addRect()->setPos(500, 0);
        manager->scene()->addRect(0, 0, 1, 1);
        const ZTMarkGraph graph = manager->getShapeLines();
        QCOMPARE(graph.objects.size(), 2);
        QCOMPARE(graph.objects[0].rect.left(), 500.0);
        QCOMPARE(graph.rect, QRectF(0, 0, 600, 100));
        const ZTMarkGraph again = manager->getShapeLines();
        for (int i = 0; i < 2; ++i)
            QVERIFY(testsupport::same(again.objects[i].lines, graph.objects[i].lines));
    }

    void getShapeLines_manyHatched_areEachAsAlone()
    {
        for (int i = 0; i < 100; ++i) {
            ZTAbstractGraphicsItem *item = addHatched(0.2 + 0.01 * i);
            item->setPos(30.0 * i, 10.0 * i);
        }
        QVector<ZTMarkObject> alone;
        for (QGraphicsItem *candidate : manager->scene()->items(Qt::DescendingOrder)) {
            if (auto *item = dynamic_cast<ZTAbstractGraphicsItem *>(candidate)) {
                alone.append(ZTMarkObject());
                ZTRectShape shape(static_cast<ZTRectShape &>(*item->getShapeBase()));
                manager->genMarkObject(item, &shape, alone.last());
            }
        }
        const ZTMarkGraph graph = manager->getShapeLines();
        QCOMPARE(graph.objects.size(), 100);
        for (int i = 0; i < 100; ++i) {
            QVERIFY(!alone[i].fillLines.isEmpty());
            QCOMPARE(graph.objects[i].fillLines, alone[i].fillLines);
        }
    }

    /** What is written past the setters marks nothing and counts all the same. */
    void getShapeLines_hatchedAndChangedPastTheSetters_isFresh()
    {
        ZTAbstractGraphicsItem *changed = addHatched(0.5);
        const QVector<QLineF> before = manager->getShapeLines().objects[0].fillLines;
        changed->getTransformParam() = QTransform::fromScale(2, 1);
        ZTRectShape plain;
        plain.setFillParam(changed->getFillParam());
        plain.setTransformParam(QTransform::fromScale(2, 1));
        ZTMarkObject expected;
        manager->genMarkObject(changed, &plain, expected);
        const QVector<QLineF> after = manager->getShapeLines().objects[0].fillLines;
        QVERIFY(after != before);
        QCOMPARE(after, expected.fillLines);
    }

    void getShapeLines_passesThroughTheSort()
    {
        for (const double x : {500.0, 100.0, 300.0})
            addRect()->setPos(x, 0);
        manager->setScale(1.0F, 1.0F);
        ZTPointSort::getInstance()->setShapeMarkSort(EShapeSortType::ShapeSortXFromMin);
        const ZTMarkGraph graph = manager->getShapeLines();
        QCOMPARE(graph.objects[0].rect.left(), 100.0);
        QCOMPARE(graph.objects[1].rect.left(), 300.0);
        QCOMPARE(graph.objects[2].rect.left(), 500.0);
    }

    void getShapeLines_emptyScene_isEmpty()
    {
        const ZTMarkGraph graph = manager->getShapeLines();
        QVERIFY(graph.objects.isEmpty());
        QVERIFY(graph.rect.isNull());
    }

    void getSelectedShapeLines_takesTheSelectionAlone()
    {
        addRect();
        QVERIFY(manager->getSelectedShapeLines().objects.isEmpty());
        addRect()->setSelected(true);
        QCOMPARE(manager->getSelectedShapeLines().objects.size(), 1);
    }

    void destruction_withASelection_isHarmless()
    {
        addRect()->setSelected(true);
        addRect()->setSelected(true);
        manager.reset();
    }

private:
    ZTAbstractGraphicsItem *addHatched(double spacMm)
    {
        ZTFillParam fill;
        fill.fillType = FillType::Line;
        fill.spac = spacMm;
        ZTAbstractGraphicsItem *item = manager->addShape(ShapeType::Rect, {0, 0, 10, 10});
        item->setFillParam(fill);
        item->getShapeBase()->paint();
        return item;
    }

    ZTAbstractGraphicsItem *addRect()
    {
        return manager->addShape(ShapeType::Rect, QRectF(0, 0, 10, 10));
    }

    std::unique_ptr<testsupport::WarningGuard> warnings;
    std::unique_ptr<testsupport::SingletonGuard> guard;
    std::unique_ptr<ZTShapeManager> manager;
};

QTEST_MAIN(tst_ZTShapeManager)
#include "tst_ZTShapeManager.moc"
