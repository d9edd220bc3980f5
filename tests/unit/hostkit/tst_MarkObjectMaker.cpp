#include <support/SingletonGuard.h>

#include <hostkit/MarkObjectMaker.h>

#include <QtTest/QTest>

namespace {

QPolygonF polygon(const QVector<QPointF> &points) { return QPolygonF(points); }

/** A shape whose hatch is known without hatching. */
class HatchedRect : public ZTRectShape
{
public:
    void fill() override
    {
        ++fills;
        setFillLines({QLineF(1, 2, 3, 4), QLineF(5, 6, 7, 8)});
    }

    int fills = 0;
};

ZTFillParam filled(FillType type, bool border)
{
    ZTFillParam param;
    param.fillType = type;
    param.isEnableBorder = border;
    return param;
}

} // namespace

class tst_MarkObjectMaker : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        guard.reset(new testsupport::SingletonGuard);
        ZTCoord::getInstance()->setHeight(193.0); // one pixel to a millimetre
    }
    void cleanup() { guard.reset(); }

    void outlineAndHatch_movedThenScaled()
    {
        HatchedRect shape;
        shape.setRect(QRectF(0, 0, 10, 20));
        shape.setPenId(3);
        shape.setFillParam(filled(FillType::Line, true));
        const ZTMarkObject object =
            hostkit::makeMarkObject(shape, QPointF(100, 1000), QSizeF(2, 10));
        QCOMPARE(object.penId, 3);
        QCOMPARE(object.lines.size(), 1);
        QCOMPARE(object.lines[0],
                 polygon({{200, 10000}, {220, 10000}, {220, 10200}, {200, 10200}, {200, 10000}}));
        QCOMPARE(object.fillLines,
                 QVector<QLineF>({QLineF(202, 10020, 206, 10040), QLineF(210, 10060, 214, 10080)}));
        QCOMPARE(object.rect, QRectF(200, 10000, 20, 200));
    }

    void unmarkedShape_isRebuiltAllTheSame()
    {
        HatchedRect shape;
        shape.paint();
        shape.scale(2, 2); // does not mark the shape
        QVERIFY(!shape.isUpdate());
        const ZTMarkObject object = hostkit::makeMarkObject(shape, QPointF(), QSizeF(1, 1));
        QCOMPARE(object.rect.size(), QSizeF(20, 20));
        QCOMPARE(shape.fills, 2);
    }

    void noBorderAndNoHatch_leaveAnEmptyObjectWithItsExtent()
    {
        HatchedRect shape;
        shape.setFillParam(filled(FillType::None, false));
        const ZTMarkObject object = hostkit::makeMarkObject(shape, QPointF(), QSizeF(1, 1));
        QVERIFY(object.lines.isEmpty());
        QVERIFY(object.fillLines.isEmpty()); // though the shape holds stale lines
        QVERIFY(!shape.getFillLines().isEmpty());
        QCOMPARE(object.rect, QRectF(0, 0, 10, 10));
    }

    void negativeScale_mirrorsLinesAndKeepsTheExtentsSign()
    {
        HatchedRect shape;
        const ZTMarkObject object = hostkit::makeMarkObject(shape, QPointF(5, 0), QSizeF(-2, 1));
        QCOMPARE(object.lines[0].boundingRect(), QRectF(-30, 0, 20, 10));
        QCOMPARE(object.rect, QRectF(10, 0, 20, 10));
    }

    void extent_beginsAtThePositionWhereverTheShapeStands()
    {
        HatchedRect shape;
        shape.setRect(QRectF(50, 60, 10, 10));
        const ZTMarkObject object = hostkit::makeMarkObject(shape, QPointF(1, 2), QSizeF(1, 1));
        QCOMPARE(object.rect, QRectF(1, 2, 10, 10));
        QCOMPARE(object.lines[0].first(), QPointF(51, 62));
    }

    void moved_movesEverythingAndLeavesTheOriginal()
    {
        HatchedRect shape;
        shape.setFillParam(filled(FillType::Line, true));
        const ZTMarkObject object = hostkit::makeMarkObject(shape, QPointF(), QSizeF(1, 1));
        const ZTMarkObject moved = hostkit::movedMarkObject(object, QPointF(10, -5));
        QCOMPARE(moved.penId, object.penId);
        QCOMPARE(moved.rect, QRectF(10, -5, 10, 10));
        QCOMPARE(moved.lines[0].first(), QPointF(10, -5));
        QCOMPARE(moved.fillLines[1], QLineF(15, 1, 17, 3));
        QCOMPARE(object.lines[0].first(), QPointF(0, 0));
    }

private:
    QScopedPointer<testsupport::SingletonGuard> guard;
};

QTEST_GUILESS_MAIN(tst_MarkObjectMaker)
#include "tst_MarkObjectMaker.moc"
