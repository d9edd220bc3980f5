#include <support/SingletonGuard.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QBuffer>
#include <QtCore/QMetaMethod>
#include <QtCore/QMetaProperty>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QStyleOptionGraphicsItem>

#include <limits>

namespace {

/** A rectangle of 10 by 10 mm whose hatch is one line along its middle. */
class MarkedShape : public ZTRectShape
{
public:
    void fill() override { setFillLines({QLineF(10, 50, 90, 50)}); }
};

/** An item as a host would derive it. */
class HostItem : public ZTAbstractGraphicsItem
{
public:
    explicit HostItem(ZTShapeBase *hostShape = new MarkedShape) { shape = hostShape; }

    void copy(ZTAbstractGraphicsItem *) override {}

    void setSize(const QSizeF &sizePx) override
    {
        ++setSizeCalls;
        ZTAbstractGraphicsItem::setSize(sizePx);
    }

    int setSizeCalls = 0;
};

QImage painted(ZTAbstractGraphicsItem &item, double scale = 1.0)
{
    QImage image(140, 140, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.translate(20, 20);
    painter.scale(scale, scale);
    const QStyleOptionGraphicsItem option;
    item.paint(&painter, &option);
    return image;
}

int inkedPixels(const QImage &image)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            count += image.pixelColor(x, y) == QColor(Qt::white) ? 0 : 1;
    }
    return count;
}

QStringList ownProperties(const QMetaObject &meta)
{
    QStringList names;
    for (int i = meta.propertyOffset(); i < meta.propertyCount(); ++i)
        names << QString::fromLatin1(meta.property(i).name()) + QLatin1Char(':') +
                     QString::fromLatin1(meta.property(i).typeName());
    return names;
}

} // namespace

class tst_ZTAbstractGraphicsItem : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        guard.reset(new testsupport::SingletonGuard);
        ZTCoord::getInstance()->setHeight(1930.0); // 1 mm is 10 pixels
    }
    void cleanup() { guard.reset(); }

    void newItem_hasTheDefaults()
    {
        HostItem item;
        QCOMPARE(item.flags(),
                 QGraphicsItem::ItemIsSelectable | QGraphicsItem::ItemSendsGeometryChanges);
        QCOMPARE(item.parent(), nullptr);
        QCOMPARE(item.parentItem(), nullptr);
        QVERIFY(!item.getSize().isValid());
        QVERIFY(item.getShapeType() == ShapeType::None);
        QCOMPARE(item.getResizeItem(), nullptr);
        QCOMPARE(item.getPenId(), 1);
        QCOMPARE(item.text(), QString());
        item.setText(QStringLiteral("ignored"));
        QCOMPARE(item.text(), QString());
    }

    void metaObject_listsPropertiesAndSignals()
    {
        const QMetaObject &meta = ZTAbstractGraphicsItem::staticMetaObject;
        QCOMPARE(ownProperties(meta), QStringList({QStringLiteral("pos:QPointF"),
                                                   QStringLiteral("fillParam:ZTFillParam")}));
        const QMetaProperty pos = meta.property(meta.indexOfProperty("pos"));
        QVERIFY(pos.isFinal());
        QVERIFY(pos.isWritable());
        QCOMPARE(pos.notifySignal().methodSignature(), QByteArray("posChanged()"));
        const QMetaProperty fill = meta.property(meta.indexOfProperty("fillParam"));
        QVERIFY(!fill.isFinal());
        QVERIFY(!fill.hasNotifySignal());

        QStringList methods;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
            methods << QString::fromLatin1(meta.method(i).methodSignature());
        QCOMPARE(methods,
                 QStringList({QStringLiteral("posChanged()"), QStringLiteral("sizeChanged()"),
                              QStringLiteral("rotationChanged()"), QStringLiteral("scaleChanged()"),
                              QStringLiteral("scale(double,double)")}));
    }

    void properties_readAndWriteTheItem()
    {
        HostItem item;
        QVERIFY(item.setProperty("pos", QPointF(3, 4)));
        QCOMPARE(item.pos(), QPointF(3, 4));
        QCOMPARE(item.property("pos").toPointF(), QPointF(3, 4));
        ZTFillParam param;
        param.spac = 7.0;
        QVERIFY(item.setProperty("fillParam", QVariant::fromValue(param)));
        QVERIFY(item.getShapeBase()->getFillParam() == param);
        QVERIFY(item.property("fillParam").value<ZTFillParam>() == param);
    }

    void boundingRect_unpaintedShape_isBuilt()
    {
        const HostItem item;
        QVERIFY(item.getShapeBase()->getLines().isEmpty());
        QCOMPARE(item.boundingRect(), QRectF(0, 0, 100, 100));
        QVERIFY(!item.getShapeBase()->isUpdate());
    }

    void boundingRect_builtShape_keepsTheOldResultUntilPainted()
    {
        const HostItem item;
        QCOMPARE(item.boundingRect().width(), 100.0);
        item.getShapeBase()->setRect(QRectF(0, 0, 20, 20));
        QCOMPARE(item.boundingRect().width(), 100.0);
    }

    void boundingRect_flatShape_isBuiltAgainEachTime()
    {
        const HostItem item;
        item.getShapeBase()->setRect(QRectF(0, 0, 10, 0));
        QCOMPARE(item.boundingRect(), QRectF(0, 0, 100, 0));
        item.getShapeBase()->setRect(QRectF(0, 0, 20, 0));
        QCOMPARE(item.boundingRect(), QRectF(0, 0, 200, 0));
    }

    void setSize_newSize_isStoredAndReported()
    {
        HostItem item;
        const QSignalSpy sizes(&item, &ZTAbstractGraphicsItem::sizeChanged);
        item.setSize(QSizeF(10, 20));
        QCOMPARE(item.getSize(), QSizeF(10, 20));
        QCOMPARE(sizes.count(), 1);
        item.setSize(QSizeF(10, 21));
        item.setSize(QSizeF(11, 21));
        QCOMPARE(sizes.count(), 3);
        QCOMPARE(item.boundingRect().size(), QSizeF(100, 100));
    }

    void setSize_roundingNoise_isIgnored()
    {
        HostItem item;
        item.setSize(QSizeF(10, 20));
        const QSignalSpy sizes(&item, &ZTAbstractGraphicsItem::sizeChanged);
        item.setSize(QSizeF(10 + 1e-13, 20 - 1e-13));
        QCOMPARE(sizes.count(), 0);
        QVERIFY(item.getSize().width() == 10.0);
    }

    void setTransformParam_paintsAndRecordsTheSize()
    {
        HostItem item;
        const QSignalSpy sizes(&item, &ZTAbstractGraphicsItem::sizeChanged);
        item.setTransformParam(QTransform::fromScale(2, 3));
        QCOMPARE(item.getTransformParam(), QTransform::fromScale(2, 3));
        QCOMPARE(item.boundingRect(), QRectF(0, 0, 200, 300));
        QCOMPARE(item.getSize(), QSizeF(200, 300));
        QCOMPARE(item.setSizeCalls, 1);
        QCOMPARE(sizes.count(), 1);
        item.setTransformParam(QTransform::fromScale(2, 3));
        QCOMPARE(item.setSizeCalls, 2);
        QCOMPARE(sizes.count(), 1);
    }

    void getTransformParam_isTheShapesOwn()
    {
        HostItem item;
        item.getTransformParam().translate(5, 0);
        QCOMPARE(item.getShapeBase()->getTransformParam(), QTransform::fromTranslate(5, 0));
    }

    void scale_multipliesOnTheRight_withoutSizeOrSignal()
    {
        HostItem item;
        item.setTransformParam(QTransform::fromTranslate(10, 0));
        const QSizeF before = item.getSize();
        const QSignalSpy sizes(&item, &ZTAbstractGraphicsItem::sizeChanged);
        const QSignalSpy scales(&item, &ZTAbstractGraphicsItem::scaleChanged);
        const QSignalSpy positions(&item, &ZTAbstractGraphicsItem::posChanged);
        item.scale(2, 3);
        QCOMPARE(item.boundingRect(), QRectF(200, 0, 200, 300));
        QCOMPARE(item.getSize(), before);
        QCOMPARE(sizes.count() + scales.count() + positions.count(), 0);
    }

    void scale_canBeInvokedByName()
    {
        HostItem item;
        QVERIFY(QMetaObject::invokeMethod(&item, "scale", Q_ARG(double, 2.0), Q_ARG(double, 1.0)));
        QCOMPARE(item.boundingRect(), QRectF(0, 0, 200, 100));
    }

    void load_readsAndPaintsTheShape()
    {
        ZTRectShape stored;
        stored.setRect(QRectF(0, 0, 3, 4));
        stored.setId(17);
        QByteArray bytes;
        QDataStream out(&bytes, QIODevice::WriteOnly);
        stored.save(out);

        HostItem item;
        QDataStream in(bytes);
        QVERIFY(item.load(in));
        QCOMPARE(item.getShapeBase()->getId(), 17);
        QCOMPARE(item.getShapeBase()->getLines().boundingRect(), QRectF(0, 0, 30, 40));
        QCOMPARE(item.boundingRect(), QRectF(0, 0, 30, 40));
    }

    void load_emptyStream_isTrueToo()
    {
        HostItem item;
        QDataStream in(QByteArray{});
        QVERIFY(item.load(in));
    }

    void setPos_outsideTheScene_stopsAtTheEdge_data()
    {
        QTest::addColumn<QPointF>("wanted");
        QTest::addColumn<QPointF>("reached");
        const double nan = std::numeric_limits<double>::quiet_NaN();
        QTest::newRow("inside") << QPointF(5, 6) << QPointF(5, 6);
        QTest::newRow("left top corner") << QPointF(-50, -40) << QPointF(-50, -40);
        QTest::newRow("right bottom corner") << QPointF(50, 60) << QPointF(50, 60);
        QTest::newRow("left") << QPointF(-51, 6) << QPointF(-50, 6);
        QTest::newRow("right") << QPointF(1e9, 6) << QPointF(50, 6);
        QTest::newRow("above") << QPointF(5, -1e300) << QPointF(5, -40);
        QTest::newRow("below") << QPointF(5, 60.5) << QPointF(5, 60);
        QTest::newRow("both") << QPointF(-99, 99) << QPointF(-50, 60);
        QTest::newRow("not a number") << QPointF(nan, 7) << QPointF(-50, 7);
    }
    void setPos_outsideTheScene_stopsAtTheEdge()
    {
        QFETCH(QPointF, wanted);
        QFETCH(QPointF, reached);
        QGraphicsScene scene(-50, -40, 100, 100);
        HostItem item;
        scene.addItem(&item);
        const QSignalSpy positions(&item, &ZTAbstractGraphicsItem::posChanged);
        item.setPos(wanted);
        QCOMPARE(item.pos(), reached);
        QCOMPARE(positions.count(), 1);
    }

    void setPos_withoutScene_isNotClamped()
    {
        HostItem item;
        item.setPos(1e6, -1e6);
        QCOMPARE(item.pos(), QPointF(1e6, -1e6));
    }

    void setPos_samePosition_reportsNothing()
    {
        HostItem item;
        item.setPos(1, 2);
        const QSignalSpy positions(&item, &ZTAbstractGraphicsItem::posChanged);
        item.setPos(1, 2);
        QCOMPARE(positions.count(), 0);
    }

    void paint_penId_choosesTheColour_data()
    {
        QTest::addColumn<int>("penId");
        QTest::addColumn<QString>("color");
        const char *const names[] = {
            "black",   "blue",   "cyan",   "goldenrod", "navy",   "green",     "grey",   "khaki",
            "magenta", "orange", "orchid", "red",       "salmon", "turquoise", "yellow", "fuchsia"};
        for (int i = 0; i < 16; ++i)
            QTest::addRow("%d", i + 1) << i + 1 << QString::fromLatin1(names[i]);
        for (const int odd :
             {0, -1, std::numeric_limits<int>::min(), 17, 1000000, std::numeric_limits<int>::max()})
            QTest::addRow("%d", odd) << odd << QStringLiteral("black");
    }
    void paint_penId_choosesTheColour()
    {
        QFETCH(int, penId);
        QFETCH(QString, color);
        HostItem item;
        item.setPenId(penId);
        QCOMPARE(item.getPenId(), penId);
        QCOMPARE(item.getShapeBase()->getPenId(), penId);
        const QImage image = painted(item);
        QCOMPARE(image.pixelColor(20, 70).name(), QColor(color).name());
        item.getShapeBase()->setPenId(12);
        QCOMPARE(painted(item).pixelColor(20, 70).name(), QColor(Qt::red).name());
    }

    void paint_noBorderNoHatch_paintsNothing_butCanBeHit()
    {
        HostItem item;
        ZTFillParam param;
        param.isEnableBorder = false;
        item.setFillParam(param);
        QCOMPARE(inkedPixels(painted(item)), 0);
        QGraphicsScene scene;
        scene.addItem(&item);
        QCOMPARE(scene.items(QPointF(50, 50)).size(), 1);
        scene.removeItem(&item);
    }

    void paint_hatch_dependsOnFillType()
    {
        HostItem item;
        QCOMPARE(painted(item).pixelColor(70, 70), QColor(Qt::white));
        ZTFillParam param;
        param.fillType = FillType::Line;
        param.isEnableBorder = false;
        item.setFillParam(param);
        const QImage image = painted(item);
        QCOMPARE(image.pixelColor(70, 70), QColor(Qt::black));
        QCOMPARE(image.pixelColor(20, 40), QColor(Qt::white));
        param.isEnableBorder = true;
        item.setFillParam(param);
        QCOMPARE(painted(item).pixelColor(20, 40), QColor(Qt::black));
    }

    void paint_selected_looksTheSame()
    {
        QGraphicsScene scene;
        HostItem item;
        scene.addItem(&item);
        const QImage plain = painted(item);
        item.setSelected(true);
        QVERIFY(painted(item) == plain);
        scene.removeItem(&item);
    }

    void paint_zoomed_linesStayOnePixelWide()
    {
        HostItem item;
        item.getShapeBase()->setRect(QRectF(0, 0, 1, 1));
        const QImage image = painted(item, 10.0);
        QCOMPARE(image.pixelColor(20, 70), QColor(Qt::black));
        QCOMPARE(image.pixelColor(19, 70), QColor(Qt::white));
        QCOMPARE(image.pixelColor(21, 70), QColor(Qt::white));
    }

    void paint_setsPenAndNoRenderHint()
    {
        HostItem item;
        QImage image(10, 10, QImage::Format_RGB32);
        QPainter painter(&image);
        const QPainter::RenderHints hints = painter.renderHints();
        const QStyleOptionGraphicsItem option;
        item.paint(&painter, &option);
        QCOMPARE(painter.renderHints(), hints);
        const QPen pen = painter.pen();
        QCOMPARE(pen.widthF(), 0.0);
        QVERIFY(pen.isCosmetic());
        QCOMPARE(pen.style(), Qt::SolidLine);
        QCOMPARE(pen.capStyle(), Qt::SquareCap);
        QCOMPARE(pen.joinStyle(), Qt::BevelJoin);
        QCOMPARE(pen.brush().style(), Qt::SolidPattern);
    }

    void paint_markedShape_isRebuilt()
    {
        HostItem item;
        item.getShapeBase()->setRect(QRectF(0, 0, 5, 5));
        painted(item);
        QCOMPARE(item.boundingRect(), QRectF(0, 0, 50, 50));
    }

    /** Marked or not: a host's shape may know better when it has to be rebuilt. */
    void paint_asksTheShapeToPaintEachTime()
    {
        struct Counted : MarkedShape
        {
            explicit Counted(int *painted) : paintCalls(painted) {}
            void paint() override
            {
                ++*paintCalls;
                MarkedShape::paint();
            }
            int *paintCalls;
        };
        int paintCalls = 0;
        HostItem item(new Counted(&paintCalls));
        painted(item);
        QVERIFY(!item.getShapeBase()->isUpdate());
        paintCalls = 0;
        painted(item);
        painted(item);
        QCOMPARE(paintCalls, 2);
    }

    void destructor_deletesTheShape()
    {
        static int alive = 0;
        struct Counted : MarkedShape
        {
            Counted() { ++alive; }
            ~Counted() override { --alive; }
        };
        {
            HostItem item(new Counted);
            QCOMPARE(alive, 1);
        }
        QCOMPARE(alive, 0);
    }

    void itemWithoutShape_isHarmless()
    {
        HostItem item(nullptr);
        item.setPenId(3);
        QCOMPARE(item.getPenId(), 1);
        item.setFillParam(ZTFillParam());
        QVERIFY(item.getFillParam() == ZTFillParam());
        item.scale(2, 2);
        item.setTransformParam(QTransform::fromScale(2, 2));
        QVERIFY(item.getTransformParam().isIdentity());
        QCOMPARE(item.boundingRect(), QRectF());
        QCOMPARE(inkedPixels(painted(item)), 0);
        QDataStream in(QByteArray{});
        QVERIFY(item.load(in));
    }

private:
    QScopedPointer<testsupport::SingletonGuard> guard;
};

QTEST_MAIN(tst_ZTAbstractGraphicsItem)
#include "tst_ZTAbstractGraphicsItem.moc"
