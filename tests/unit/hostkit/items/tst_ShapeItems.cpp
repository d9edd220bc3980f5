#include <support/SingletonGuard.h>

#include <hostkit/items/ShapeItems.h>
#include <hostkit/setup/Factories.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtTest/QTest>

#include <cmath>

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

    void setPosExactly_keepsTheLastBit_data()
    {
        QTest::addColumn<QPointF>("from");
        QTest::addColumn<QPointF>("to");
        QTest::addRow("almost nothing") << QPointF(-466.25, 0.0) << QPointF(-466.25, -2.3e-13);
        QTest::addRow("back to nothing") << QPointF(5.0, 2.3e-13) << QPointF(5.0, 0.0);
        QTest::addRow("the next number")
            << QPointF(100.0, 7.0) << QPointF(std::nextafter(100.0, 101.0), 7.0);
        QTest::addRow("sign of a zero") << QPointF(0.0, 0.0) << QPointF(-0.0, 0.0);
        QTest::addRow("almost the far side of the detour")
            << QPointF(-1.0, 1e-14) << QPointF(-1.0, 0.0);
        QTest::addRow("at the end of all places")
            << QPointF(32767.0, -32768.0)
            << QPointF(std::nextafter(32767.0, 0.0), std::nextafter(-32768.0, 0.0));
        QTest::addRow("far") << QPointF(1.0, 2.0) << QPointF(-7.0, 30000.5);
    }

    void setPosExactly_keepsTheLastBit()
    {
        const testsupport::SingletonGuard guard;
        QFETCH(QPointF, from);
        QFETCH(QPointF, to);
        ZTGraphicsDocument document;
        ZTAbstractGraphicsItem &item = *added(document, ShapeType::Rect);
        item.setPos(from * 3.0 + QPointF(50.0, 50.0));
        item.setPos(from);
        QCOMPARE(bits(item.pos()).toHex(), bits(from).toHex());
        hostkit::setPosExactly(item, to);
        QCOMPARE(bits(item.pos()).toHex(), bits(to).toHex());
    }

private:
    static QByteArray bits(const QPointF &place)
    {
        const double parts[] = {place.x(), place.y()};
        return {reinterpret_cast<const char *>(parts), int(sizeof parts)};
    }

    static ZTAbstractGraphicsItem *added(ZTGraphicsDocument &document, ShapeType type)
    {
        return document.itemMag()->addShape(type, QRectF(0, 0, 10, 10));
    }
};

QTEST_MAIN(tst_ShapeItems)
#include "tst_ShapeItems.moc"
