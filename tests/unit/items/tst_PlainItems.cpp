#include <support/SingletonGuard.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtTest/QTest>

#include <memory>

namespace {

using Item = std::unique_ptr<ZTAbstractGraphicsItem>;

/** What tells the kinds of items apart that have no properties of their own. */
struct Kind
{
    QByteArray className;
    const QMetaObject *meta = nullptr;
    QRectF firstBox; ///< of a new item at 10 pixels a millimetre, in pixels
    Item (*create)() = nullptr;
    bool (*owns)(const ZTShapeBase *shape) = nullptr;
};

template <typename ItemClass, typename Shape>
Kind kindOf(const char *className, const QRectF &firstBox)
{
    return {className, &ItemClass::staticMetaObject, firstBox,
            []() -> Item { return std::make_unique<ItemClass>(); },
            [](const ZTShapeBase *shape) { return dynamic_cast<const Shape *>(shape) != nullptr; }};
}

} // namespace

Q_DECLARE_METATYPE(Kind)

/** The rectangle, ellipse and TDOT items: one behaviour, three shapes. */
class tst_PlainItems : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data()
    {
        QTest::addColumn<Kind>("kind");
        QTest::newRow("rectangle")
            << kindOf<ZTGraphicsRectItem, ZTRectShape>("ZTGraphicsRectItem", {0, 0, 100, 100});
        QTest::newRow("ellipse") << kindOf<ZTGraphicsEllipseItem, ZTEllipseShape>(
            "ZTGraphicsEllipseItem", {0, 0, 100, 100});
        QTest::newRow("TDOT") << kindOf<ZTGraphicsTdotItem, ZTTdotShape>("ZTGraphicsTdotItem",
                                                                         {0, 0, 1000, 1000});
    }

    void init()
    {
        guard.reset(new testsupport::SingletonGuard);
        ZTCoord::getInstance()->setHeight(1930.0); // 1 mm is 10 pixels
    }
    void cleanup() { guard.reset(); }

    void newItem_ownsAShapeOfItsKind()
    {
        QFETCH_GLOBAL(const Kind, kind);
        const Item item = kind.create();
        QVERIFY(kind.owns(item->getShapeBase()));
        QVERIFY(item->getShapeType() == ShapeType::None);
        QCOMPARE(item->boundingRect(), kind.firstBox);
    }

    void metaObject_hasNoPropertyOfItsOwn()
    {
        QFETCH_GLOBAL(const Kind, kind);
        QCOMPARE(kind.create()->metaObject(), kind.meta);
        QCOMPARE(kind.meta->className(), kind.className.constData());
        QCOMPARE(kind.meta->propertyCount(), kind.meta->propertyOffset());
    }

    void copy_takesTheShape_andKeepsTheId()
    {
        QFETCH_GLOBAL(const Kind, kind);
        const Item source = kind.create();
        source->getShapeBase()->setId(5);
        source->setPenId(12);
        source->setTransformParam(QTransform::fromScale(2, 3));
        const Item item = kind.create();
        item->getShapeBase()->setId(9);
        item->copy(source.get());
        QCOMPARE(item->getShapeBase()->getId(), 9);
        QCOMPARE(source->getShapeBase()->getId(), 5);
        QCOMPARE(item->getPenId(), 12);
        QCOMPARE(item->getTransformParam(), QTransform::fromScale(2, 3));
        QVERIFY(!item->getShapeBase()->isUpdate());
        QVERIFY(item->getShapeBase()->getLines() == source->getShapeBase()->getLines());
        QVERIFY(item->getShapeBase() != source->getShapeBase());
    }

    void copy_rebuildsAnUnmarkedShape()
    {
        QFETCH_GLOBAL(const Kind, kind);
        const Item source = kind.create();
        source->boundingRect();
        source->getTransformParam() = QTransform::fromScale(2, 2);
        const Item item = kind.create();
        item->copy(source.get());
        QCOMPARE(item->boundingRect().width(), 2 * source->boundingRect().width());
    }

    void copy_ofItself_changesNothing()
    {
        QFETCH_GLOBAL(const Kind, kind);
        const Item item = kind.create();
        item->getShapeBase()->setId(4);
        item->setTransformParam(QTransform::fromScale(3, 3));
        const QRectF before = item->boundingRect();
        item->copy(item.get());
        QCOMPARE(item->getShapeBase()->getId(), 4);
        QCOMPARE(item->boundingRect(), before);
    }

    void copy_nullOrAnotherKind_changesNothing()
    {
        QFETCH_GLOBAL(const Kind, kind);
        const Item item = kind.create();
        const ZTShapeBase *before = item->getShapeBase();
        item->copy(nullptr);
        ZTGraphicsLineItem other;
        item->copy(&other);
        QCOMPARE(item->getShapeBase(), before);
    }

    void copy_inAScene_keepsTheItemHittable()
    {
        QFETCH_GLOBAL(const Kind, kind);
        QGraphicsScene scene(-1000, -1000, 4000, 4000);
        const Item source = kind.create();
        source->setTransformParam(QTransform::fromScale(3, 3));
        const Item item = kind.create();
        scene.addItem(item.get());
        const double width = item->boundingRect().width();
        QVERIFY(scene.items(QPointF(2.5 * width, 2.5 * width)).isEmpty());
        item->copy(source.get());
        QCOMPARE(scene.items(QPointF(2.5 * width, 2.5 * width)).size(), 1);
        scene.removeItem(item.get());
    }

private:
    QScopedPointer<testsupport::SingletonGuard> guard;
};

QTEST_MAIN(tst_PlainItems)
#include "tst_PlainItems.moc"
