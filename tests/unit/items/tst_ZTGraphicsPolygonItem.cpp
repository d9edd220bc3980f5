#include <support/SingletonGuard.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QMetaProperty>
#include <QtTest/QTest>

#include <limits>

class tst_ZTGraphicsPolygonItem : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        guard.reset(new testsupport::SingletonGuard);
        ZTCoord::getInstance()->setHeight(1930.0); // 1 mm is 10 pixels
    }
    void cleanup() { guard.reset(); }

    void newItem_isAPentagon()
    {
        const ZTGraphicsPolygonItem item;
        QVERIFY(dynamic_cast<ZTPolygonShape *>(item.getShapeBase()) != nullptr);
        QCOMPARE(item.getSideCount(), 5);
        QVERIFY(item.getShapeType() == ShapeType::None);
    }

    void metaObject_hasSideCountWithACapital()
    {
        const QMetaObject &meta = ZTGraphicsPolygonItem::staticMetaObject;
        QCOMPARE(meta.propertyCount() - meta.propertyOffset(), 1);
        const QMetaProperty property = meta.property(meta.propertyOffset());
        QCOMPARE(property.name(), "SideCount");
        QCOMPARE(property.typeName(), "int");
        QVERIFY(!property.isFinal());
        QVERIFY(!property.hasNotifySignal());
    }

    void setSideCount_isNeverBelowATriangle_data()
    {
        QTest::addColumn<int>("asked");
        QTest::addColumn<int>("given");
        QTest::newRow("most negative") << std::numeric_limits<int>::min() << 3;
        QTest::newRow("0") << 0 << 3;
        QTest::newRow("1") << 1 << 3;
        QTest::newRow("2") << 2 << 3;
        QTest::newRow("3") << 3 << 3;
        QTest::newRow("4") << 4 << 4;
        QTest::newRow("12") << 12 << 12;
    }
    void setSideCount_isNeverBelowATriangle()
    {
        QFETCH(int, asked);
        QFETCH(int, given);
        ZTGraphicsPolygonItem item;
        QVERIFY(item.setProperty("SideCount", asked));
        QCOMPARE(item.property("SideCount").toInt(), given);
        QVERIFY(!item.getShapeBase()->isUpdate());
        // A closed polygon of n sides is n + 1 points.
        QCOMPARE(item.getShapeBase()->getLines().elementCount(), given + 1);
    }

    void copy_takesTheSides_andKeepsTheId()
    {
        ZTGraphicsPolygonItem source;
        source.getShapeBase()->setId(5);
        source.setSideCount(7);
        ZTGraphicsPolygonItem item;
        item.getShapeBase()->setId(9);
        item.copy(&source);
        QCOMPARE(item.getShapeBase()->getId(), 9);
        QCOMPARE(item.getSideCount(), 7);
        QCOMPARE(item.getShapeBase()->getLines().elementCount(), 8);
    }

    void copy_setterAfterwards_worksOnTheNewShape()
    {
        ZTGraphicsPolygonItem source;
        ZTGraphicsPolygonItem item;
        item.copy(&source);
        item.setSideCount(6);
        QCOMPARE(item.getShapeBase()->getLines().elementCount(), 7);
        QCOMPARE(source.getSideCount(), 5);
    }

    void copy_ofItselfOrAnotherKind_isHarmless()
    {
        ZTGraphicsPolygonItem item;
        item.setSideCount(8);
        item.copy(&item);
        ZTGraphicsRectItem other;
        item.copy(&other);
        item.copy(nullptr);
        QCOMPARE(item.getSideCount(), 8);
    }

private:
    QScopedPointer<testsupport::SingletonGuard> guard;
};

QTEST_MAIN(tst_ZTGraphicsPolygonItem)
#include "tst_ZTGraphicsPolygonItem.moc"
