#include <ZTDrawEngineLib/ZTDrawEngineLib.h>
#include <ZTDrawEngineLib/items/ZTGraphicsVecGraph_p.h>

#include <QtCore/QScopedPointer>
#include <QtTest/QTest>

#include <type_traits>

namespace {

template <class F, class Item>
void checkFactory()
{
    F *factory = F::getInstance();
    QVERIFY(factory != nullptr);
    QCOMPARE(F::getInstance(), factory);
    const QScopedPointer<ZTAbstractGraphicsItem> first(factory->create());
    const QScopedPointer<ZTAbstractGraphicsItem> second(factory->create());
    QVERIFY(qobject_cast<Item *>(first.data()) != nullptr);
    QVERIFY(first.data() != second.data());
    QVERIFY(first->getShapeType() == ShapeType::None);
    QCOMPARE(first->scene(), nullptr);
    F::release();
    F::release();
    QVERIFY(F::getInstance() != nullptr);

    static_assert(std::is_base_of_v<Factory, F>);
    static_assert(std::is_base_of_v<ZTSingletonTemplate<F>, F>);
    static_assert(!std::is_default_constructible_v<F>);
    static_assert(!std::is_destructible_v<F>);
}

QString importedPath(const ZTAbstractGraphicsItem &item)
{
    return dynamic_cast<ZTVecGraph &>(*item.getShapeBase()).getImagePath();
}

} // namespace

class tst_ZTItemFactories : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void cleanup()
    {
        ZTRectItemFactory::release();
        ZTEllipseItemFactory::release();
        ZTPolygonItemFactory::release();
        ZTLineItemFactory::release();
        ZTTdotItemFactory::release();
        ZTTextItemFactory::release();
        ZTVecGraphItemFactory::release();
    }

    void eachFactory_makesItemsOfItsKind()
    {
        checkFactory<ZTRectItemFactory, ZTGraphicsRectItem>();
        checkFactory<ZTEllipseItemFactory, ZTGraphicsEllipseItem>();
        checkFactory<ZTPolygonItemFactory, ZTGraphicsPolygonItem>();
        checkFactory<ZTLineItemFactory, ZTGraphicsLineItem>();
        checkFactory<ZTTdotItemFactory, ZTGraphicsTdotItem>();
        checkFactory<ZTTextItemFactory, ZTGraphicsTextItem>();
        checkFactory<ZTVecGraphItemFactory, ZTGraphicsVecGraph>();
    }

    void vecGraph_pathIsGoodForOneItem()
    {
        auto *factory = ZTVecGraphItemFactory::getInstance();
        QVERIFY(factory->path().isEmpty());
        factory->setPath(QStringLiteral(".plt"));
        QCOMPARE(factory->path(), QStringLiteral(".plt"));
        const QScopedPointer<ZTAbstractGraphicsItem> first(factory->create());
        QVERIFY(factory->path().isEmpty());
        const QScopedPointer<ZTAbstractGraphicsItem> second(factory->create());
        QCOMPARE(importedPath(*first), QStringLiteral(".plt"));
        QCOMPARE(importedPath(*second), QString());
    }

    void vecGraph_release_forgetsThePath()
    {
        ZTVecGraphItemFactory::getInstance()->setPath(QStringLiteral(".plt"));
        ZTVecGraphItemFactory::release();
        const QScopedPointer<ZTAbstractGraphicsItem> item(
            ZTVecGraphItemFactory::getInstance()->create());
        QCOMPARE(importedPath(*item), QString());
    }
};

QTEST_MAIN(tst_ZTItemFactories)
#include "tst_ZTItemFactories.moc"
