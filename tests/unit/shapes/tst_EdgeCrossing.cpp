#include <ZTDrawEngineLib/shapes/hatch/EdgeCrossing_p.h>

#include <QtTest/QTest>

#include <cstring>
#include <limits>
#include <random>

using zthatch::crosses;
using zthatch::ScanLine;

namespace {

bool isSameToTheBit(const QPointF &a, const QPointF &b)
{
    return std::memcmp(&a, &b, sizeof(QPointF)) == 0;
}

/** Whether the answer, and the point where there is one, are those of `QLineF`. */
bool isAsQtSays(const QLineF &line, const QLineF &edge)
{
    QPointF expected;
    QPointF found;
    const bool isCrossing = line.intersects(edge, &expected) == QLineF::BoundedIntersection;
    if (crosses(ScanLine(line), edge, &found) != isCrossing)
        return false;
    return !isCrossing || isSameToTheBit(found, expected);
}

} // namespace

class tst_EdgeCrossing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void crossingInTheMiddle_isFound()
    {
        QPointF point;
        QVERIFY(crosses(ScanLine({0, 4, 10, 4}), {6, 0, 6, 8}, &point));
        QCOMPARE(point, QPointF(6, 4));
    }

    void endOnTheLine_isACrossing()
    {
        QPointF point;
        QVERIFY(crosses(ScanLine({0, 4, 10, 4}), {6, 4, 6, 8}, &point));
        QVERIFY(crosses(ScanLine({0, 4, 10, 4}), {6, 0, 6, 4}, &point));
        QVERIFY(crosses(ScanLine({0, 4, 10, 4}), {10, 0, 10, 8}, &point));
    }

    void besideTheEnds_isNone()
    {
        QPointF point;
        QVERIFY(!crosses(ScanLine({0, 4, 10, 4}), {6, 5, 6, 8}, &point));
        QVERIFY(!crosses(ScanLine({0, 4, 10, 4}), {11, 0, 11, 8}, &point));
        QVERIFY(!crosses(ScanLine({0, 4, 10, 4}), {0, 4, 10, 4}, &point));
        QVERIFY(!crosses(ScanLine({0, 4, 10, 4}), {3, 3, 3, 3}, &point));
    }

    void numbersOfEverySize_areAsQtSays()
    {
        const double infinity = std::numeric_limits<double>::infinity();
        const double sizes[] = {0.0,    -0.0,   1.0,      -2.5,
                                1e-300, 1e-160, 1e160,    -1e300,
                                5e-324, 1e308,  infinity, std::numeric_limits<double>::quiet_NaN()};
        std::mt19937 random(3);
        std::uniform_int_distribution<std::size_t> one(0, std::size(sizes) - 1);
        const auto line = [&] {
            return QLineF(sizes[one(random)], sizes[one(random)], sizes[one(random)],
                          sizes[one(random)]);
        };
        for (int i = 0; i < 200000; ++i) {
            const QLineF scan = line();
            const QLineF edge = line();
            QVERIFY2(isAsQtSays(scan, edge), qPrintable(QString::number(i)));
        }
    }

    void ordinaryLines_areAsQtSays()
    {
        std::mt19937 random(4);
        std::uniform_real_distribution<double> place(-500.0, 500.0);
        const auto line = [&] {
            return QLineF(place(random), place(random), place(random), place(random));
        };
        int crossings = 0;
        for (int i = 0; i < 200000; ++i) {
            const QLineF scan = line();
            const QLineF edge = line();
            QVERIFY2(isAsQtSays(scan, edge), qPrintable(QString::number(i)));
            QPointF point;
            crossings += crosses(ScanLine(scan), edge, &point);
        }
        QVERIFY(crossings > 20000);
    }
};

QTEST_APPLESS_MAIN(tst_EdgeCrossing)
#include "tst_EdgeCrossing.moc"
