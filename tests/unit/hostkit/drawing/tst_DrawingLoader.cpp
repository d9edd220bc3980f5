#include <support/DrawingBytes.h>
#include <support/SingletonGuard.h>

#include <hostkit/setup/Factories.h>

#include <QtTest/QTest>

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

} // namespace

/** Loading where not every shape can be built. */
class tst_DrawingLoader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        ZTGraphicsItemFactory::regist(ShapeType2String(ShapeType::TDOT), &factory);
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

private:
    GiganticFactory factory;
    QScopedPointer<testsupport::SingletonGuard> guard;
};

QTEST_MAIN(tst_DrawingLoader)
#include "tst_DrawingLoader.moc"
