#include <support/SingletonGuard.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtTest/QTest>

class tst_ZTGraphicsEllipseItem : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        guard.reset(new testsupport::SingletonGuard);
        ZTCoord::getInstance()->setHeight(1930.0); // 1 mm is 10 pixels
    }
    void cleanup() { guard.reset(); }

    void newItem_ownsAShapeOfItsKind()
    {
        const ZTGraphicsEllipseItem item;
        QVERIFY(dynamic_cast<ZTEllipseShape *>(item.getShapeBase()) != nullptr);
        QVERIFY(item.getShapeType() == ShapeType::None);
        QCOMPARE(item.boundingRect(), QRectF(0, 0, 100, 100));
    }

    void metaObject_hasNoPropertyOfItsOwn()
    {
        const QMetaObject &meta = ZTGraphicsEllipseItem::staticMetaObject;
        QCOMPARE(meta.className(), "ZTGraphicsEllipseItem");
        QCOMPARE(meta.propertyCount(), meta.propertyOffset());
    }

    void copy_takesTheShape_andKeepsTheId()
    {
        ZTGraphicsEllipseItem source;
        source.getShapeBase()->setId(5);
        source.setPenId(12);
        source.setTransformParam(QTransform::fromScale(2, 3));
        ZTGraphicsEllipseItem item;
        item.getShapeBase()->setId(9);
        item.copy(&source);
        QCOMPARE(item.getShapeBase()->getId(), 9);
        QCOMPARE(source.getShapeBase()->getId(), 5);
        QCOMPARE(item.getPenId(), 12);
        QCOMPARE(item.getTransformParam(), QTransform::fromScale(2, 3));
        QVERIFY(!item.getShapeBase()->isUpdate());
        QVERIFY(item.getShapeBase()->getLines() == source.getShapeBase()->getLines());
        QVERIFY(item.getShapeBase() != source.getShapeBase());
    }

    void copy_rebuildsAnUnmarkedShape()
    {
        ZTGraphicsEllipseItem source;
        source.boundingRect();
        source.getTransformParam() = QTransform::fromScale(2, 2);
        ZTGraphicsEllipseItem item;
        item.copy(&source);
        QCOMPARE(item.boundingRect().width(), 2 * source.boundingRect().width());
    }

    void copy_ofItself_changesNothing()
    {
        ZTGraphicsEllipseItem item;
        item.getShapeBase()->setId(4);
        item.setTransformParam(QTransform::fromScale(3, 3));
        const QRectF before = item.boundingRect();
        item.copy(&item);
        QCOMPARE(item.getShapeBase()->getId(), 4);
        QCOMPARE(item.boundingRect(), before);
    }

    void copy_nullOrAnotherKind_changesNothing()
    {
        ZTGraphicsEllipseItem item;
        const ZTShapeBase *before = item.getShapeBase();
        item.copy(nullptr);
        ZTGraphicsRectItem other;
        item.copy(&other);
        QCOMPARE(item.getShapeBase(), before);
    }

    void copy_inAScene_keepsTheItemHittable()
    {
        QGraphicsScene scene(-1000, -1000, 4000, 4000);
        ZTGraphicsEllipseItem source;
        source.setTransformParam(QTransform::fromScale(3, 3));
        ZTGraphicsEllipseItem item;
        scene.addItem(&item);
        const double width = item.boundingRect().width();
        QVERIFY(scene.items(QPointF(2.5 * width, 2.5 * width)).isEmpty());
        item.copy(&source);
        QCOMPARE(scene.items(QPointF(2.5 * width, 2.5 * width)).size(), 1);
        scene.removeItem(&item);
    }

private:
    QScopedPointer<testsupport::SingletonGuard> guard;
};

QTEST_MAIN(tst_ZTGraphicsEllipseItem)
#include "tst_ZTGraphicsEllipseItem.moc"
