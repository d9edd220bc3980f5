#include <ZTDrawEngineLib/common/MovedOutline_p.h>

#include <ZTDrawEngineLib/common/Exactly_p.h>

#include <QtTest/QTest>

namespace {

constexpr double kStep = 1.0 / 64.0;

QPainterPath cubicFrom(const QPointF &start, const QPointF &by)
{
    QPainterPath path(start + by);
    path.cubicTo(QPointF(1.5, kStep) + by, QPointF(4.0, 2.0 + kStep) + by, QPointF(3.0, 7.25) + by);
    path.lineTo(QPointF(-1.0, 0.5) + by);
    return path;
}

QPainterPath quadraticFrom(const QPointF &start, const QPointF &by)
{
    QPainterPath path(start + by);
    path.quadTo(QPointF(1.0 + kStep, 5.0) + by, QPointF(4.0, 2.0 + kStep) + by);
    path.lineTo(QPointF(-1.0, 0.5) + by);
    return path;
}

} // namespace

class tst_MovedOutline : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void addMoved_eitherKindOfCurve_asDrawnThere()
    {
        const QPointF start(0.5 + kStep / 2, -2.0); // half way, as between two control points
        for (const QPointF &by :
             {QPointF(), QPointF(kStep, -kStep), QPointF(1000 + kStep, -77.5)}) {
            QVERIFY(ztoutline::isMovable(cubicFrom(start, {})));
            QPainterPath cubic;
            ztoutline::addMoved(cubic, cubicFrom(start, {}), by);
            QVERIFY(isExactly(cubic, cubicFrom(start, by)));

            QVERIFY(ztoutline::isMovable(quadraticFrom(start, {})));
            QPainterPath quadratic;
            ztoutline::addMoved(quadratic, quadraticFrom(start, {}), by);
            QVERIFY(isExactly(quadratic, quadraticFrom(start, by)));
        }
    }

    /** A third that is not of one control point, and one point only that is on a step. */
    void isMovable_curveOfNeitherKind_isNot()
    {
        QPainterPath path;
        path.cubicTo(1.3, 0.0, 2.0, 1.0, 3.0, 3.0);
        QVERIFY(!ztoutline::isMovable(path));

        QPainterPath raised = quadraticFrom({}, {});
        raised.setElementPositionAt(1, raised.elementAt(1).x + 1e-12, raised.elementAt(1).y);
        QVERIFY(!ztoutline::isMovable(raised));
    }

    void isMovable_pointBetweenSteps_isNot()
    {
        QPainterPath line;
        line.lineTo(0.3, 1.0);
        QVERIFY(!ztoutline::isMovable(line));

        QPainterPath curve;
        curve.cubicTo(1.0, 0.0, 2.0, 1.0, 3.0, 0.3);
        QVERIFY(!ztoutline::isMovable(curve));
        QVERIFY(!ztoutline::isMovable(QPainterPath({0.1, 0.0})));
    }

    void isMovable_nothing_is() { QVERIFY(ztoutline::isMovable({})); }
};

QTEST_GUILESS_MAIN(tst_MovedOutline)
#include "tst_MovedOutline.moc"
