#include <studio/canvas/ToolDrag.h>

#include <QtTest/QTest>

#include <cmath>

using studio::draggedBox;
using studio::draggedLine;
using studio::ToolDrag;

class tst_ToolDrag : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void box_data()
    {
        QTest::addColumn<QPointF>("from");
        QTest::addColumn<QPointF>("to");
        QTest::addColumn<Qt::KeyboardModifiers>("keys");
        QTest::addColumn<QSizeF>("proportions");
        QTest::addColumn<QRectF>("box");
        const Qt::KeyboardModifiers none;
        const Qt::KeyboardModifiers shift = Qt::ShiftModifier;
        const Qt::KeyboardModifiers alt = Qt::AltModifier;
        const QSizeF square(1, 1);
        const QSizeF wide(2, 1);
        QTest::newRow("down right")
            << QPointF(10, 20) << QPointF(40, 30) << none << square << QRectF(10, 20, 30, 10);
        QTest::newRow("up left") << QPointF(40, 30) << QPointF(10, 20) << none << square
                                 << QRectF(10, 20, 30, 10);
        QTest::newRow("from the centre")
            << QPointF(0, 0) << QPointF(30, -10) << alt << square << QRectF(-30, -10, 60, 20);
        QTest::newRow("square by the longer side")
            << QPointF(0, 0) << QPointF(30, 10) << shift << square << QRectF(0, 0, 30, 30);
        QTest::newRow("square to the upper left")
            << QPointF(0, 0) << QPointF(-30, -10) << shift << square << QRectF(-30, -30, 30, 30);
        QTest::newRow("wide by its height")
            << QPointF(0, 0) << QPointF(30, 20) << shift << wide << QRectF(0, 0, 40, 20);
        QTest::newRow("both keys")
            << QPointF(5, 5) << QPointF(15, 7) << (shift | alt) << square << QRectF(-5, -5, 20, 20);
        QTest::newRow("flat") << QPointF(5, 5) << QPointF(15, 5) << none << square
                              << QRectF(5, 5, 10, 0);
    }

    void box()
    {
        QFETCH(QPointF, from);
        QFETCH(QPointF, to);
        QFETCH(Qt::KeyboardModifiers, keys);
        QFETCH(QSizeF, proportions);
        QFETCH(QRectF, box);
        QCOMPARE(draggedBox(dragOf(from, to, keys, proportions)), box);
    }

    void line_data()
    {
        QTest::addColumn<QPointF>("to");
        QTest::addColumn<Qt::KeyboardModifiers>("keys");
        QTest::addColumn<QPointF>("first");
        QTest::addColumn<QPointF>("second");
        const Qt::KeyboardModifiers none;
        const Qt::KeyboardModifiers shift = Qt::ShiftModifier;
        const Qt::KeyboardModifiers alt = Qt::AltModifier;
        QTest::newRow("free") << QPointF(30, 40) << none << QPointF() << QPointF(30, 40);
        QTest::newRow("from the middle")
            << QPointF(30, 40) << alt << QPointF(-30, -40) << QPointF(30, 40);
        // 50 long at 4.6 degrees: the nearest step is 0.
        QTest::newRow("nearly level, in steps") << QPointF(50 * std::cos(0.08), 50 * std::sin(0.08))
                                                << shift << QPointF() << QPointF(50, 0);
        QTest::newRow("nearly upright, in steps")
            << QPointF(-1, -50) << shift << QPointF() << QPointF(0, -std::hypot(1.0, 50.0));
        // (40, 38) stands at 43.5 degrees: 45 with the same length.
        QTest::newRow("slanting, in steps") << QPointF(40, 38) << shift << QPointF()
                                            << QPointF(std::hypot(40.0, 38.0) / std::sqrt(2.0),
                                                       std::hypot(40.0, 38.0) / std::sqrt(2.0));
    }

    void line()
    {
        QFETCH(QPointF, to);
        QFETCH(Qt::KeyboardModifiers, keys);
        QFETCH(QPointF, first);
        QFETCH(QPointF, second);
        const QLineF line = draggedLine(dragOf({0, 0}, to, keys, {1, 1}));
        QVERIFY((line.p1() - first).manhattanLength() < 1e-12);
        QVERIFY((line.p2() - second).manhattanLength() < 1e-12);
    }

    void lineInSteps_alongAnAxis_isExactlySo()
    {
        const auto keys = Qt::KeyboardModifiers(Qt::ShiftModifier);
        QCOMPARE(draggedLine(dragOf({3, 4}, {3.4, 90}, keys, {1, 1})).dx(), 0.0);
        QCOMPARE(draggedLine(dragOf({3, 4}, {-90, 3.5}, keys, {1, 1})).dy(), 0.0);
    }

private:
    static ToolDrag dragOf(const QPointF &from, const QPointF &to, Qt::KeyboardModifiers keys,
                           const QSizeF &proportions)
    {
        ToolDrag drag;
        drag.fromPx = from;
        drag.toPx = to;
        drag.proportions = proportions;
        studio::readKeys(keys, &drag);
        return drag;
    }
};

QTEST_APPLESS_MAIN(tst_ToolDrag)
#include "tst_ToolDrag.moc"
