#include <ZTDrawEngineLib/shx/ZTPathGlyphCallback.h>

#include <QtTest/QTest>

#include <limits>
#include <utility>

namespace {

void addLine(ZTPathGlyphCallback &callback, double toX)
{
    callback.glBegin();
    callback.glVertex2d(0.0, 0.0);
    callback.glVertex2d(toX, 0.0);
    callback.glEnd();
}

} // namespace

class tst_ZTPathGlyphCallback : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void stroke_isMirroredAtOneHundred()
    {
        ZTPathGlyphCallback callback;
        callback.glBegin();
        callback.glVertex2d(1.0, 0.0);
        callback.glVertex2d(2.0, 30.0);
        callback.glVertex2d(3.0, 100.0);
        callback.glVertex2d(4.0, -50.0);
        callback.next();
        QPainterPath expected(QPointF(1.0, 200.0));
        expected.lineTo(2.0, 170.0);
        expected.lineTo(3.0, 100.0);
        expected.lineTo(4.0, 250.0);
        QCOMPARE(callback.getPath().size(), 1);
        QCOMPARE(callback.getPath().first(), expected);
    }

    void begin_opensASubpath_andEndDoesNothing()
    {
        ZTPathGlyphCallback callback;
        callback.glBegin();
        callback.glVertex2d(0.0, 200.0);
        callback.glVertex2d(5.0, 200.0);
        callback.glEnd();
        callback.glVertex2d(5.0, 195.0);
        callback.glBegin();
        callback.glVertex2d(7.0, 200.0);
        callback.glVertex2d(8.0, 200.0);
        callback.next();
        QPainterPath expected(QPointF(0.0, 0.0));
        expected.lineTo(5.0, 0.0);
        expected.lineTo(5.0, 5.0);
        expected.moveTo(7.0, 0.0);
        expected.lineTo(8.0, 0.0);
        QCOMPARE(callback.getPath().value(0), expected);
    }

    void next_endsACharacter_alsoOneWithoutInk()
    {
        ZTPathGlyphCallback callback;
        QVERIFY(callback.getPath().isEmpty());
        addLine(callback, 1.0);
        callback.next();
        callback.next();
        addLine(callback, 2.0);
        callback.next();
        QCOMPARE(callback.getPath().size(), 3);
        QCOMPARE(callback.getPath()[0].elementCount(), 2);
        QVERIFY(callback.getPath()[1].isEmpty());
        QCOMPARE(callback.getPath()[2].elementAt(1).x, 2.0);
    }

    void openPath_isNotInTheList()
    {
        ZTPathGlyphCallback callback;
        addLine(callback, 1.0);
        QVERIFY(callback.getPath().isEmpty());
    }

    void firstLineOfACharacterWithoutBegin_startsAtTheOrigin_kept()
    {
        ZTPathGlyphCallback callback;
        addLine(callback, 1.0);
        callback.next();
        callback.glVertex2d(4.0, 190.0);
        callback.next();
        QPainterPath expected(QPointF(0.0, 0.0));
        expected.lineTo(4.0, 10.0);
        QCOMPARE(callback.getPath().value(1), expected);
    }

    void beginBeforeNext_reachesIntoTheNextCharacter()
    {
        ZTPathGlyphCallback callback;
        callback.glBegin();
        callback.next();
        callback.glVertex2d(4.0, 190.0);
        callback.glVertex2d(5.0, 190.0);
        callback.next();
        QPainterPath expected(QPointF(4.0, 10.0));
        expected.lineTo(5.0, 10.0);
        QCOMPARE(callback.getPath().value(1), expected);
    }

    void numbersThatAreNotFinite_neverReachThePath()
    {
        const double infinity = std::numeric_limits<double>::infinity();
        const double nan = std::numeric_limits<double>::quiet_NaN();
        ZTPathGlyphCallback callback;
        callback.glBegin();
        callback.glVertex2d(infinity, 0.0);
        callback.glVertex2d(0.0, nan);
        callback.glVertex2d(3.0, 200.0);
        callback.glVertex2d(4.0, infinity);
        callback.glVertex2d(5.0, 200.0);
        callback.next();
        QPainterPath expected(QPointF(3.0, 0.0));
        expected.lineTo(5.0, 0.0);
        QCOMPARE(callback.getPath().value(0), expected);
    }

    void copies_standForThemselves()
    {
        ZTPathGlyphCallback first;
        addLine(first, 1.0);
        first.next();
        addLine(first, 2.0);
        ZTPathGlyphCallback copy(first);
        copy.next();
        QCOMPARE(copy.getPath().size(), 2);
        QCOMPARE(first.getPath().size(), 1);
        ZTPathGlyphCallback assigned;
        assigned = copy;
        QCOMPARE(assigned.getPath(), copy.getPath());
    }

    void moves_takeOpenAndFinishedPathsAlong()
    {
        ZTPathGlyphCallback first;
        addLine(first, 1.0);
        first.next();
        first.glBegin();
        ZTPathGlyphCallback moved(std::move(first));
        ZTPathGlyphCallback assigned;
        assigned = std::move(moved);
        assigned.glVertex2d(7.0, 200.0);
        assigned.glVertex2d(8.0, 200.0);
        assigned.next();
        QCOMPARE(assigned.getPath().size(), 2);
        QCOMPARE(assigned.getPath()[1].elementAt(0).x, 7.0);
    }
};

QTEST_GUILESS_MAIN(tst_ZTPathGlyphCallback)
#include "tst_ZTPathGlyphCallback.moc"
