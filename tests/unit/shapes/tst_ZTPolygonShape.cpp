#include <support/Geometry.h>
#include <support/SingletonGuard.h>

#include <ZTDrawEngineLib/document/ZTCoord.h>
#include <ZTDrawEngineLib/shapes/ZTPolygonShape.h>

#include <QtCore/QDataStream>
#include <QtTest/QTest>

#include <climits>
#include <cmath>
#include <limits>
#include <memory>

class tst_ZTPolygonShape : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        guard = std::make_unique<testsupport::SingletonGuard>();
        ZTCoord::getInstance()->setHeight(1930.0);
    }
    void cleanup() { guard.reset(); }

    void constructor_isAMarkedPentagon()
    {
        ZTPolygonShape shape;
        QCOMPARE(shape.getShapeType(), ShapeType::Polygon);
        QCOMPARE(shape.getSideCount(), 5);
        QVERIFY(shape.isUpdate());
    }

    void paint_pentagon_runsCounterClockwiseFromTheTop()
    {
        ZTPolygonShape shape;
        shape.setRect(QRectF(0, 0, 10, 30));
        shape.paint();
        const QList<QPolygonF> polygons = testsupport::polygonsOf(shape.getLines());
        QCOMPARE(polygons.size(), 1);
        // Radius 50 px around (50, 50): sines and cosines of 72 and 144 degrees by hand.
        QVERIFY(testsupport::near(
            polygons[0],
            testsupport::polygon({{50, 0},
                                  {50 - 47.55282581475768, 50 - 15.45084971874737},
                                  {50 - 29.38926261462366, 50 + 40.45084971874737},
                                  {50 + 29.38926261462366, 50 + 40.45084971874737},
                                  {50 + 47.55282581475768, 50 - 15.45084971874737},
                                  {50, 0}}),
            1e-9));
        QCOMPARE(polygons[0].first(), polygons[0].last());
        QCOMPARE(polygons[0].size(), 6);
    }

    void paint_ignoresHeightAndPosition()
    {
        ZTPolygonShape a;
        ZTPolygonShape b;
        a.setRect(QRectF(0, 0, 12, 1));
        b.setRect(QRectF(-7, 99, 12, 500));
        a.paint();
        b.paint();
        QCOMPARE(a.getLines(), b.getLines());
    }

    void paint_widthIsTruncatedTwice_data()
    {
        QTest::addColumn<double>("width");
        QTest::addColumn<double>("radius");
        QTest::newRow("11.9") << 11.9 << 5.0;
        QTest::newRow("11") << 11.0 << 5.0;
        QTest::newRow("12") << 12.0 << 6.0;
        QTest::newRow("1.99") << 1.99 << 0.0;
        QTest::newRow("0") << 0.0 << 0.0;
        QTest::newRow("-3") << -3.0 << -1.0;
    }

    void paint_widthIsTruncatedTwice()
    {
        QFETCH(double, width);
        QFETCH(double, radius);
        ZTPolygonShape shape;
        shape.setSideCount(4);
        shape.setRect(QRectF(0, 0, width, 1));
        shape.paint();
        const QRectF box = shape.controlPointRect();
        QVERIFY(qAbs(box.width() - qAbs(radius) * 20) < 1e-9);
        QVERIFY(qAbs(box.height() - qAbs(radius) * 20) < 1e-9);
    }

    void setSideCount_marksAndDoesNotPaint()
    {
        ZTPolygonShape shape;
        shape.paint();
        const QPainterPath lines = shape.getLines();
        shape.setSideCount(7);
        QVERIFY(shape.isUpdate());
        QCOMPARE(shape.getLines(), lines);
        shape.paint();
        QCOMPARE(testsupport::polygonsOf(shape.getLines())[0].size(), 8);
    }

    void paint_absurdSideCounts_areEmpty_data()
    {
        QTest::addColumn<int>("count");
        QTest::addColumn<bool>("empty");
        for (const int count : {0, -1, INT_MIN, 100001, INT_MAX})
            QTest::addRow("%d", count) << count << true;
        for (const int count : {3, 1000, 100000})
            QTest::addRow("%d", count) << count << false;
    }

    void paint_absurdSideCounts_areEmpty()
    {
        QFETCH(int, count);
        QFETCH(bool, empty);
        ZTPolygonShape shape;
        shape.setSideCount(count);
        QCOMPARE(shape.getSideCount(), count);
        shape.paint();
        QCOMPARE(shape.getLines().isEmpty(), empty);
    }

    void paint_absurdWidths_areEmpty()
    {
        for (const double width : {std::numeric_limits<double>::quiet_NaN(),
                                   std::numeric_limits<double>::infinity(), 3e9, -3e9, 1e300}) {
            ZTPolygonShape shape;
            shape.setRect(QRectF(0, 0, width, 1));
            shape.paint();
            QVERIFY(shape.getLines().isEmpty());
        }
    }

    void stream_holdsTheSideCountAlone()
    {
        ZTPolygonShape shape;
        shape.setSideCount(9);
        shape.setId(4);
        QByteArray bytes;
        QDataStream out(&bytes, QIODevice::WriteOnly);
        shape.save(out);
        QCOMPARE(bytes.toHex(), QByteArray("00000009"));

        ZTPolygonShape read;
        QDataStream in(bytes);
        QVERIFY(read.load(in));
        QCOMPARE(read.getSideCount(), 9);
        QCOMPARE(read.getId(), 0);
        QVERIFY(read.isUpdate());
    }

    void load_paintedPolygon_keepsItsOldLines()
    {
        ZTPolygonShape shape;
        shape.paint();
        const QPainterPath lines = shape.getLines();
        QDataStream in(QByteArray::fromHex("00000003"));
        shape.load(in);
        QVERIFY(!shape.isUpdate());
        shape.paint();
        QCOMPARE(shape.getLines(), lines);
    }

    void copy_carriesTheSideCount()
    {
        ZTPolygonShape source;
        source.setSideCount(3);
        ZTPolygonShape copy(source);
        copy.setSideCount(4);
        QCOMPARE(source.getSideCount(), 3);
        ZTPolygonShape assigned;
        assigned = source;
        QCOMPARE(assigned.getSideCount(), 3);
    }

private:
    std::unique_ptr<testsupport::SingletonGuard> guard;
};

QTEST_GUILESS_MAIN(tst_ZTPolygonShape)
#include "tst_ZTPolygonShape.moc"
