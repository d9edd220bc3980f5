#include <support/SingletonGuard.h>

#include <hostkit/items/ShapeItems.h>
#include <hostkit/setup/Factories.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtTest/QTest>

/** Which items of a document are shapes, and which are texts. */
class tst_ShapeItems : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { hostkit::registerFactories(); }

    void shapeItemsOf_givesTheShapesAloneLowestFirst()
    {
        const testsupport::SingletonGuard guard;
        ZTGraphicsDocument document;
        QVERIFY(hostkit::shapeItemsOf(document).isEmpty());
        ZTAbstractGraphicsItem *low = added(document, ShapeType::Rect);
        ZTAbstractGraphicsItem *high = added(document, ShapeType::Text);
        high->setSelected(true); // the frame is an item of the scene as well
        QCOMPARE(hostkit::shapeItemsOf(document), (QVector<ZTAbstractGraphicsItem *>{low, high}));
        low->setZValue(1.0);
        QCOMPARE(hostkit::shapeItemsOf(document), (QVector<ZTAbstractGraphicsItem *>{high, low}));
    }

    void textOf_isNullForEveryOtherKind()
    {
        const testsupport::SingletonGuard guard;
        ZTGraphicsDocument document;
        const ZTAbstractGraphicsItem *text = added(document, ShapeType::Text);
        QCOMPARE(static_cast<ZTShapeBase *>(hostkit::textOf(*text)), text->getShapeBase());
        QVERIFY(hostkit::textOf(*added(document, ShapeType::Rect)) == nullptr);
    }

private:
    static ZTAbstractGraphicsItem *added(ZTGraphicsDocument &document, ShapeType type)
    {
        return document.itemMag()->addShape(type, QRectF(0, 0, 10, 10));
    }
};

QTEST_MAIN(tst_ShapeItems)
#include "tst_ShapeItems.moc"
