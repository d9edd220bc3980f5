#include <support/Geometry.h>
#include <support/SingletonGuard.h>

#include <ZTDrawEngineLib/document/ZTCoord.h>
#include <ZTDrawEngineLib/shapes/ZTEllipseShape.h>

#include <QtTest/QTest>

#include <cmath>

class tst_ZTEllipseShape : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void constructor_setsTypeAndMarks()
    {
        ZTEllipseShape shape;
        QCOMPARE(shape.getShapeType(), ShapeType::Ellipse);
        QVERIFY(shape.isUpdate());
        QVERIFY(shape.getLines().isEmpty());
    }

    void paint_followsTheRectangle()
    {
        const testsupport::SingletonGuard guard;
        ZTCoord::getInstance()->setHeight(1930.0);
        ZTEllipseShape shape;
        shape.setRect(QRectF(1, 2, 10, 4));
        shape.paint();
        const QList<QPolygonF> polygons = testsupport::polygonsOf(shape.getLines());
        QCOMPARE(polygons.size(), 1);
        QVERIFY(polygons[0].isClosed());
        // Every point of the flattened outline lies on the ellipse around (60, 40).
        for (const QPointF &point : polygons[0]) {
            const double distance = std::hypot((point.x() - 60) / 50, (point.y() - 40) / 20);
            QVERIFY(qAbs(distance - 1.0) < 0.001);
        }
        QCOMPARE(shape.controlPointRect(), QRectF(10, 20, 100, 40));
    }

    void paint_zeroWidth_isFlat()
    {
        const testsupport::SingletonGuard guard;
        ZTEllipseShape shape;
        shape.setRect(QRectF(0, 0, 0, 4));
        shape.paint();
        QVERIFY(shape.controlPointRect().width() == 0.0);
    }

    void copy_isIndependent()
    {
        ZTEllipseShape source;
        source.setId(3);
        ZTEllipseShape copy(source);
        copy.setId(4);
        QCOMPARE(source.getId(), 3);
        QCOMPARE(copy.getShapeType(), ShapeType::Ellipse);
    }
};

QTEST_GUILESS_MAIN(tst_ZTEllipseShape)
#include "tst_ZTEllipseShape.moc"
