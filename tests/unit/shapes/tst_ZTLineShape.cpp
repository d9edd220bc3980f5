#include <support/Geometry.h>
#include <support/SingletonGuard.h>

#include <ZTDrawEngineLib/document/ZTCoord.h>
#include <ZTDrawEngineLib/model/ZTPointSort.h>
#include <ZTDrawEngineLib/shapes/ZTLineShape.h>

#include <QtCore/QDataStream>
#include <QtTest/QTest>

#include <cmath>
#include <memory>

class tst_ZTLineShape : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        guard = std::make_unique<testsupport::SingletonGuard>();
        ZTCoord::getInstance()->setHeight(1930.0);
    }
    void cleanup() { guard.reset(); }

    void constructor_paintsTheDiagonal()
    {
        ZTLineShape shape;
        QCOMPARE(shape.getShapeType(), ShapeType::Line);
        QVERIFY(!shape.isUpdate());
        QCOMPARE(shape.angle(), 315.0); // Qt counts counter-clockwise, y grows downward
        QCOMPARE(shape.length(), std::sqrt(200.0));
        const QList<QPolygonF> polygons = testsupport::polygonsOf(shape.getLines());
        QCOMPARE(polygons.size(), 1);
        QVERIFY(testsupport::near(polygons[0], testsupport::polygon({{0, 0}, {100, 100}})));
    }

    void setAngle_turnsAboutTheFirstPoint()
    {
        ZTLineShape shape;
        shape.setAngle(0.0);
        QVERIFY(qAbs(shape.angle()) < 1e-9 || qAbs(shape.angle() - 360.0) < 1e-9);
        QCOMPARE(shape.length(), std::sqrt(200.0));
        QVERIFY(testsupport::near(testsupport::polygonsOf(shape.getLines())[0],
                                  testsupport::polygon({{0, 0}, {10 * std::sqrt(200.0), 0}})));
        QVERIFY(!shape.isUpdate());
    }

    void setAngle_takesTheTransformIntoTheLine()
    {
        ZTLineShape shape;
        QTransform turn;
        turn.translate(3, 4);
        turn.rotate(30);
        shape.setTransformParam(turn);
        QCOMPARE(shape.angle(), 285.0);
        shape.setAngle(45.0);
        QVERIFY(shape.getTransformParam().isIdentity());
        QCOMPARE(shape.angle(), 45.0);
        QCOMPARE(shape.length(), std::sqrt(200.0));
        QVERIFY(testsupport::near(testsupport::polygonsOf(shape.getLines())[0],
                                  testsupport::polygon({{30, 40}, {130, -60}})));
    }

    void setLength_keepsPointAndAngle()
    {
        ZTLineShape shape;
        shape.setTransformParam(QTransform::fromScale(3, 4));
        shape.setLength(5.0);
        QVERIFY(shape.getTransformParam().isIdentity());
        QCOMPARE(shape.length(), 5.0);
        QVERIFY(testsupport::near(testsupport::polygonsOf(shape.getLines())[0],
                                  testsupport::polygon({{0, 0}, {30, 40}})));
    }

    void setLength_zero_changesNothing()
    {
        ZTLineShape shape;
        const QTransform transform = QTransform::fromScale(2, 2);
        shape.setTransformParam(transform);
        const QPainterPath lines = shape.getLines();
        shape.setLength(0.0);
        QCOMPARE(shape.length(), 2 * std::sqrt(200.0));
        QCOMPARE(shape.getTransformParam(), transform);
        QCOMPARE(shape.getLines(), lines);
        shape.setLength(-0.0);
        QCOMPARE(shape.getTransformParam(), transform);
        shape.setLength(1e-300);
        QVERIFY(shape.getTransformParam().isIdentity());
    }

    void lengthIsInMillimetres_angleInPixels()
    {
        ZTLineShape shape;
        shape.setTransformParam(QTransform::fromScale(1, 0));
        QCOMPARE(shape.length(), 10.0);
        QVERIFY(shape.angle() == 0.0);
    }

    void fillParam_neverHatches()
    {
        ZTLineShape shape;
        shape.setFillParam({FillType::Line, 0.1, 0.0, true});
        QVERIFY(shape.isUpdate());
        shape.paint();
        QVERIFY(!shape.isUpdate());
        QVERIFY(shape.getFillLines().isEmpty());
    }

    void setRect_doesNotMoveTheLine()
    {
        ZTLineShape shape;
        const QPainterPath lines = shape.getLines();
        shape.setRect(QRectF(5, 5, 50, 50));
        shape.paint();
        QCOMPARE(shape.getLines(), lines);
    }

    void setLine_givesItsEndsBeforeTheTransform()
    {
        ZTLineShape shape;
        QCOMPARE(shape.getLine(), QLineF(0, 0, 10, 10));
        shape.setTransformParam(QTransform::fromScale(2.0, 2.0));
        shape.setLine(QLineF(1, 2, 4, 6));
        QCOMPARE(shape.getLine(), QLineF(1, 2, 4, 6));
        QCOMPARE(shape.getTransformParam(), QTransform::fromScale(2.0, 2.0));
        QCOMPARE(shape.length(), 10.0);
        QVERIFY(!shape.isUpdate());
    }

    void copy_isIndependent()
    {
        ZTLineShape source;
        source.setLength(3.0);
        ZTLineShape copy(source);
        copy.setLength(7.0);
        QCOMPARE(source.length(), 3.0);
        QCOMPARE(copy.length(), 7.0);
    }

private:
    std::unique_ptr<testsupport::SingletonGuard> guard;
};

QTEST_GUILESS_MAIN(tst_ZTLineShape)
#include "tst_ZTLineShape.moc"
