#include <support/SingletonGuard.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QMetaProperty>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <cmath>

class tst_ZTGraphicsLineItem : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        guard.reset(new testsupport::SingletonGuard);
        ZTCoord::getInstance()->setHeight(1930.0); // 1 mm is 10 pixels
    }
    void cleanup() { guard.reset(); }

    void newItem_isTheDiagonal()
    {
        const ZTGraphicsLineItem item;
        QVERIFY(dynamic_cast<ZTLineShape *>(item.getShapeBase()) != nullptr);
        QCOMPARE(item.angle(), 315.0);
        QCOMPARE(item.length(), std::sqrt(200.0));
        QCOMPARE(item.boundingRect(), QRectF(0, 0, 100, 100));
    }

    void metaObject_hasAngleThenLength()
    {
        const QMetaObject &meta = ZTGraphicsLineItem::staticMetaObject;
        QCOMPARE(meta.propertyCount() - meta.propertyOffset(), 2);
        QCOMPARE(meta.property(meta.propertyOffset()).name(), "angle");
        QCOMPARE(meta.property(meta.propertyOffset()).typeName(), "double");
        QCOMPARE(meta.property(meta.propertyOffset() + 1).name(), "length");
        QCOMPARE(meta.property(meta.propertyOffset() + 1).typeName(), "double");
    }

    void setAngleAndLength_turnAndStretchAboutTheFirstPoint()
    {
        ZTGraphicsLineItem item;
        QVERIFY(item.setProperty("angle", 0.0));
        QVERIFY(item.setProperty("length", 30.0));
        QVERIFY(std::abs(item.property("angle").toDouble()) < 1e-9);
        QCOMPARE(item.property("length").toDouble(), 30.0);
        QCOMPARE(item.boundingRect().left(), 0.0);
        QCOMPARE(item.boundingRect().width(), 300.0);
        QVERIFY(item.getTransformParam().isIdentity());
    }

    void setLength_zero_changesNothing()
    {
        ZTGraphicsLineItem item;
        item.setLength(0.0);
        QCOMPARE(item.length(), std::sqrt(200.0));
    }

    void setters_reportNoSizeAndKeepTheStoredOne()
    {
        ZTGraphicsLineItem item;
        const QSignalSpy sizes(&item, &ZTAbstractGraphicsItem::sizeChanged);
        item.setAngle(10.0);
        item.setLength(5.0);
        QCOMPARE(sizes.count(), 0);
        QVERIFY(!item.getSize().isValid());
    }

    void setLength_inAScene_keepsTheItemHittable()
    {
        QGraphicsScene scene(-1000, -1000, 4000, 4000);
        ZTGraphicsLineItem item;
        scene.addItem(&item);
        QVERIFY(scene.items(QPointF(500, 500)).isEmpty());
        item.setLength(100.0);
        QCOMPARE(scene.items(QPointF(500, 500)).size(), 1);
        scene.removeItem(&item);
    }

    void copy_takesTheLine_andKeepsTheId()
    {
        ZTGraphicsLineItem source;
        source.setLength(30.0);
        source.getShapeBase()->setId(5);
        ZTGraphicsLineItem item;
        item.getShapeBase()->setId(9);
        item.copy(&source);
        QCOMPARE(item.getShapeBase()->getId(), 9);
        QCOMPARE(item.length(), 30.0);
        item.setLength(7.0);
        QCOMPARE(item.length(), 7.0);
        QCOMPARE(source.length(), 30.0);
    }

    void copy_ofItselfOrAnotherKind_isHarmless()
    {
        ZTGraphicsLineItem item;
        item.setLength(8.0);
        item.copy(&item);
        ZTGraphicsRectItem other;
        item.copy(&other);
        item.copy(nullptr);
        QCOMPARE(item.length(), 8.0);
    }

private:
    QScopedPointer<testsupport::SingletonGuard> guard;
};

QTEST_MAIN(tst_ZTGraphicsLineItem)
#include "tst_ZTGraphicsLineItem.moc"
