#include <support/DrawingBytes.h>
#include <support/ShapeState.h>
#include <support/SingletonGuard.h>

#include <hostkit/items/ShapeItems.h>
#include <hostkit/setup/Factories.h>

#include <QtTest/QTest>
#include <QtWidgets/QUndoStack>

#include <new>

using hostkit::Failure;

namespace {

/** A rectangle for which there is never enough memory. */
class GiganticItem : public ZTGraphicsRectItem
{
public:
    bool load(QDataStream &) override { throw std::bad_alloc(); }
};

class GiganticFactory : public Factory
{
public:
    ZTAbstractGraphicsItem *create() override { return new GiganticItem; }
};

/** A rectangle that finds no memory for its place in a scene, while it is told so. */
class StubbornItem : public ZTGraphicsRectItem
{
public:
    static bool isStubborn;

protected:
    QVariant itemChange(GraphicsItemChange change, const QVariant &value) override
    {
        if (isStubborn && change == ItemSceneChange)
            throw std::bad_alloc();
        return ZTGraphicsRectItem::itemChange(change, value);
    }
};

bool StubbornItem::isStubborn = false;

class StubbornFactory : public Factory
{
public:
    ZTAbstractGraphicsItem *create() override { return new StubbornItem; }
};

} // namespace

/** Loading where not every shape can be built. */
class tst_DrawingLoader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        ZTGraphicsItemFactory::regist(ShapeType2String(ShapeType::TDOT), &factory);
        ZTGraphicsItemFactory::regist(ShapeType2String(ShapeType::Point), &stubbornFactory);
        hostkit::registerFactories(); // the first one under a name stays
    }
    void init() { guard.reset(new testsupport::SingletonGuard); }
    void cleanup() { guard.reset(); }

    void noMemory_isToldAndLeavesTheOpenDrawing()
    {
        ZTGraphicsDocument source;
        ZTCoord::getInstance()->setHeight(1234.0);
        for (const ShapeType type : {ShapeType::Rect, ShapeType::TDOT, ShapeType::Rect})
            source.itemMag()->addShape(type, QRectF(0, 0, 10, 10));
        const QByteArray bytes = testsupport::savedBytes(source);
        ZTCoord::getInstance()->setHeight(900.0);
        ZTGraphicsDocument document;
        document.itemMag()->addShape(ShapeType::Ellipse, QRectF(0, 0, 10, 10));
        const QByteArray before = testsupport::savedBytes(document);
        Failure error;
        QVERIFY(!testsupport::load(bytes, document, &error));
        QCOMPARE(error.kind, Failure::Kind::NotPossible);
        QCOMPARE(error.reason, QStringLiteral("needs more memory than there is"));
        QCOMPARE(testsupport::savedBytes(document), before);
    }

    void placesOfAlmostNothing_comeBackToTheLastBit()
    {
        ZTGraphicsDocument source;
        auto *saved = source.itemMag()->addShape(ShapeType::Rect, QRectF(0, 0, 10, 10));
        saved->setPos(50.0, 50.0);
        saved->setPos(0.0, -2.3e-13);
        ZTGraphicsDocument document;
        Failure error;
        QVERIFY(testsupport::load(testsupport::savedBytes(source), document, &error));
        const auto items = hostkit::shapeItemsOf(document);
        QCOMPARE(items.size(), 1);
        QVERIFY(items.first()->pos().x() == 0.0 && items.first()->pos().y() == -2.3e-13);
    }

    void exceptionInTheHandOver_leavesTheOpenDrawingWhole()
    {
        ZTGraphicsDocument source;
        ZTCoord::getInstance()->setHeight(1234.0);
        for (const ShapeType type : {ShapeType::Rect, ShapeType::Point, ShapeType::Rect})
            source.itemMag()->addShape(type, QRectF(0, 0, 10, 10));
        const hostkit::DrawingFile drawing = testsupport::captured(source);
        ZTCoord::getInstance()->setHeight(900.0);

        ZTGraphicsDocument document;
        auto *item = document.itemMag()->addShape(ShapeType::Ellipse, QRectF(0, 0, 10, 10));
        auto *text = document.itemMag()->addShape(ShapeType::Text, QRectF(0, 0, 10, 10));
        ZTVariantTextManager::getInstance()->newItem(
            static_cast<ZTTextShapeBase *>(text->getShapeBase()));
        item->setSelected(true);
        document.undoStack()->push(new QUndoCommand(QStringLiteral("step")));
        hostkit::DrawingExtras extras;
        extras.fields["curve"] = "0.01";
        hostkit::setDrawingExtras(document, extras);
        const QByteArray before = testsupport::savedBytes(document);
        const QStringList state = testsupport::stateOf(document);
        for (int i = 0; i < 2; ++i) {
            Failure error;
            StubbornItem::isStubborn = true;
            QVERIFY(!applyDrawing(drawing, document, {}, nullptr, &error));
            StubbornItem::isStubborn = false;
            QCOMPARE(error.kind, Failure::Kind::NotPossible);
            QCOMPARE(error.reason, QStringLiteral("needs more memory than there is"));
        }
        QCOMPARE(testsupport::difference(testsupport::stateOf(document), state), QString());
        QCOMPARE(testsupport::savedBytes(document), before);
        QVERIFY(item->isSelected());
        QCOMPARE(document.undoStack()->count(), 1);
        QCOMPARE(document.itemMag()->itemModel()->rowCount(), 2);
        QCOMPARE(ZTCoord::getInstance()->getHeight(), 900.0);
        Failure error;
        QVERIFY(applyDrawing(drawing, document, {}, nullptr, &error));
        QCOMPARE(document.itemMag()->getShapeList().size(), 3);
        QCOMPARE(document.itemMag()->itemModel()->rowCount(), 3);
        QCOMPARE(document.undoStack()->count(), 0);
    }

private:
    StubbornFactory stubbornFactory;
    GiganticFactory factory;
    QScopedPointer<testsupport::SingletonGuard> guard;
};

QTEST_MAIN(tst_DrawingLoader)
#include "tst_DrawingLoader.moc"
