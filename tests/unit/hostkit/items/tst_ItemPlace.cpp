#include <support/SingletonGuard.h>

#include <hostkit/items/ItemPlace.h>
#include <hostkit/setup/Factories.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtTest/QTest>

#include <limits>
#include <memory>

/** A shape has the size and the place that a host gives it. */
class tst_ItemPlace : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { hostkit::registerFactories(); }
    void init() { m_guard = std::make_unique<testsupport::SingletonGuard>(); }
    void cleanup() { m_guard.reset(); }

    void setBoxMm_isWhatIsMarked_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<QRectF>("box");
        QTest::newRow("plate") << int(ShapeType::Rect) << QRectF(-20, -10, 40, 20);
        QTest::newRow("aside") << int(ShapeType::Rect) << QRectF(3, -7, 0.5, 12.25);
        QTest::newRow("ellipse") << int(ShapeType::Ellipse) << QRectF(10, 10, 30, 5);
        QTest::newRow("polygon") << int(ShapeType::Polygon) << QRectF(-30, 1, 7, 8);
        QTest::newRow("text") << int(ShapeType::Text) << QRectF(-5, -5, 25, 4);
    }

    void setBoxMm_isWhatIsMarked()
    {
        QFETCH(int, type);
        QFETCH(QRectF, box);
        ZTGraphicsDocument document;
        ZTAbstractGraphicsItem &item =
            *document.itemMag()->addShape(ShapeType(type), QRectF(0, 0, 10, 10));
        item.setText(QStringLiteral("Plate")); // of a text alone
        QVERIFY(hostkit::setBoxMm(item, box));
        expectNear(hostkit::boxMm(item), box);
        expectNear(markedBoxMm(document), box);
        expectNear(QRectF(QPointF(), item.getSize()),
                   QRectF(0, 0, pixels(box.width()), pixels(box.height())));
    }

    void setBoxMm_ofATurnedShape_isTheBoxAroundIt()
    {
        ZTGraphicsDocument document;
        ZTAbstractGraphicsItem &item =
            *document.itemMag()->addShape(ShapeType::Rect, QRectF(0, 0, 10, 10));
        item.setTransformParam(QTransform().rotate(30.0));
        QVERIFY(hostkit::setBoxMm(item, QRectF(1, 2, 30, 40)));
        expectNear(hostkit::boxMm(item), QRectF(1, 2, 30, 40));
    }

    void setBoxMm_ofAFlatShape_keepsItFlat()
    {
        ZTGraphicsDocument document;
        ZTAbstractGraphicsItem &item =
            *document.itemMag()->addShape(ShapeType::Rect, QRectF(0, 0, 10, 10));
        item.setTransformParam(QTransform::fromScale(1.0, 0.0));
        QVERIFY(hostkit::setBoxMm(item, QRectF(0, 0, 30, 40)));
        expectNear(hostkit::boxMm(item), QRectF(0, 20, 30, 0));
    }

    void setBoxMm_refusesWhatIsNoBox()
    {
        ZTGraphicsDocument document;
        ZTAbstractGraphicsItem &item =
            *document.itemMag()->addShape(ShapeType::Rect, QRectF(0, 0, 10, 10));
        const QRectF before = hostkit::boxMm(item);
        const double none = std::numeric_limits<double>::quiet_NaN();
        for (const QRectF &box : {QRectF(), QRectF(0, 0, 0, 5), QRectF(0, 0, 5, -1),
                                  QRectF(none, 0, 5, 5), QRectF(0, 0, 5, qInf())}) {
            QVERIFY(!hostkit::setBoxMm(item, box));
            QCOMPARE(hostkit::boxMm(item), before);
        }
        item.setTransformParam(QTransform::fromScale(0.0, 0.0));
        QVERIFY(!hostkit::setBoxMm(item, QRectF(0, 0, 5, 5)));
    }

    void moveMiddleTo_keepsTheSize()
    {
        ZTGraphicsDocument document;
        ZTAbstractGraphicsItem &item =
            *document.itemMag()->addShape(ShapeType::Rect, QRectF(3, 4, 10, 10));
        QVERIFY(hostkit::setBoxMm(item, QRectF(0, 0, 6, 4)));
        hostkit::moveMiddleTo(item, QPointF(-12, 30));
        expectNear(hostkit::boxMm(item), QRectF(-15, 28, 6, 4));
    }

private:
    static double pixels(double mm) { return ZTCoord::getInstance()->mm2pix(mm); }

    /** Around all outlines that the marking head follows. */
    static QRectF markedBoxMm(ZTGraphicsDocument &document)
    {
        QRectF box;
        const ZTMarkGraph graph = document.itemMag()->getShapeLines();
        for (const ZTMarkObject &object : graph.objects) {
            for (const QPolygonF &outline : object.lines)
                box |= outline.boundingRect();
        }
        const double mm = 1.0 / (pixels(1.0) * ZTCoord::getInstance()->screen2mark());
        return {box.x() * mm, box.y() * mm, box.width() * mm, box.height() * mm};
    }

    static void expectNear(const QRectF &actual, const QRectF &expected)
    {
        constexpr double kNear = 1e-4; // marks are scaled by a float
        const QString told = QStringLiteral("%1 %2 %3 %4")
                                 .arg(actual.x())
                                 .arg(actual.y())
                                 .arg(actual.width())
                                 .arg(actual.height());
        QVERIFY2(qAbs(actual.x() - expected.x()) < kNear && qAbs(actual.y() - expected.y()) < kNear,
                 qPrintable(told));
        QVERIFY2(qAbs(actual.width() - expected.width()) < kNear &&
                     qAbs(actual.height() - expected.height()) < kNear,
                 qPrintable(told));
    }

    std::unique_ptr<testsupport::SingletonGuard> m_guard;
};

QTEST_MAIN(tst_ItemPlace)
#include "tst_ItemPlace.moc"
