#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QScopedPointer>
#include <QtTest/QTest>

namespace {

template <class Item>
class HostFactory : public Factory
{
public:
    ZTAbstractGraphicsItem *create() override { return new Item; }
};

HostFactory<ZTGraphicsRectItem> rectFactory;
HostFactory<ZTGraphicsEllipseItem> ellipseFactory;

QScopedPointer<ZTAbstractGraphicsItem> created(const char *name)
{
    return QScopedPointer<ZTAbstractGraphicsItem>(ZTGraphicsItemFactory::create(name));
}

} // namespace

/** The registry lives as long as the process, so every test uses names of its own. */
class tst_ZTGraphicsItemFactory : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void emptyRegistry_makesNothing()
    {
        for (int i = 0; i <= 12; ++i) {
            const char *name = ShapeType2String(static_cast<ShapeType>(i));
            QVERIFY2(created(name).isNull(), name);
        }
        QVERIFY(created("").isNull());
    }

    void regist_thenCreate_givesAnUntypedItem()
    {
        QVERIFY(ZTGraphicsItemFactory::regist("Rect", &rectFactory));
        const auto item = created("Rect");
        QVERIFY(qobject_cast<ZTGraphicsRectItem *>(item.data()) != nullptr);
        QVERIFY(item->getShapeType() == ShapeType::None);
        QVERIFY(created("rect").isNull());
    }

    void regist_nameTaken_keepsTheFirst()
    {
        QVERIFY(ZTGraphicsItemFactory::regist("Line", &ellipseFactory));
        QVERIFY(!ZTGraphicsItemFactory::regist("Line", &rectFactory));
        QVERIFY(!ZTGraphicsItemFactory::regist("Line", &ellipseFactory));
        QVERIFY(qobject_cast<ZTGraphicsEllipseItem *>(created("Line").data()) != nullptr);
    }

    void regist_nullFactory_takesTheNameAndMakesNothing()
    {
        QVERIFY(ZTGraphicsItemFactory::regist("Pixmap", nullptr));
        QVERIFY(created("Pixmap").isNull());
        QVERIFY(!ZTGraphicsItemFactory::regist("Pixmap", &rectFactory));
    }

    void regist_oneFactoryUnderTwoNames_servesBoth()
    {
        QVERIFY(ZTGraphicsItemFactory::regist("QRCode", &rectFactory));
        QVERIFY(ZTGraphicsItemFactory::regist("BarCode", &rectFactory));
        QVERIFY(!created("QRCode").isNull());
        QVERIFY(!created("BarCode").isNull());
    }

    void factory_canBeCopiedAndAssigned()
    {
        HostFactory<ZTGraphicsRectItem> copy(rectFactory);
        copy = rectFactory;
        const QScopedPointer<ZTAbstractGraphicsItem> item(copy.create());
        QVERIFY(!item.isNull());
    }
};

QTEST_MAIN(tst_ZTGraphicsItemFactory)
#include "tst_ZTGraphicsItemFactory.moc"
