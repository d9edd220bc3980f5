#include <support/Geometry.h>

#include <ZTDrawEngineLib/common/StraightRun_p.h>

#include <QtTest/QTest>

#include <random>

namespace {

class RandomRuns
{
public:
    QPainterPath path()
    {
        QPainterPath path(point());
        const int lines = std::uniform_int_distribution(1, 70)(m_random);
        for (int i = 0; i < lines; ++i)
            path.lineTo(point());
        if (m_random() % 2 == 0)
            path.closeSubpath();
        return path;
    }

    /** Of every kind that Qt maps in a way of its own. */
    QTransform matrix()
    {
        QTransform matrix;
        const unsigned kinds = m_random();
        if (kinds & 1U)
            matrix.translate(number(), number());
        if (kinds & 2U)
            matrix.scale(number(), number());
        if (kinds & 4U)
            matrix.rotate(number());
        if (kinds & 8U)
            matrix.shear(number(), number());
        if (kinds & 16U)
            matrix *= QTransform(1, 0, number() / 1000, 0, 1, number() / 1000, 0, 0, 1);
        return matrix;
    }

private:
    double number() { return std::uniform_real_distribution(-100.0, 100.0)(m_random); }
    QPointF point() { return {number(), number()}; }

    std::mt19937 m_random{20261123};
};

} // namespace

class tst_StraightRun : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void isStraightRun_oneSubpathOfLines()
    {
        QPainterPath path;
        QVERIFY(!isStraightRun(path));
        path.moveTo(1, 2);
        QVERIFY(!isStraightRun(path));
        path.lineTo(3, 4);
        QVERIFY(isStraightRun(path));
        path.addRect(0, 0, 5, 5);
        QVERIFY(!isStraightRun(path));
    }

    void isStraightRun_notWithACurve()
    {
        QPainterPath path;
        path.lineTo(3, 4);
        path.quadTo(1, 1, 2, 0);
        QVERIFY(!isStraightRun(path));
    }

    void isStraightRun_notWithAStartBehind()
    {
        QPainterPath path;
        path.lineTo(3, 4);
        path.moveTo(7, 7);
        QVERIFY(!isStraightRun(path));
    }

    void mapStraightRun_isQtsOwnPolygonToTheLastBit()
    {
        RandomRuns random;
        QPolygonF run;
        for (int i = 0; i < 5000; ++i) {
            const QPainterPath path = random.path();
            const QTransform matrix = random.matrix();
            QVERIFY(isStraightRun(path));
            mapStraightRun(path, matrix, run);
            QVERIFY(testsupport::same({run}, path.toSubpathPolygons(matrix)));
        }
    }
};

QTEST_GUILESS_MAIN(tst_StraightRun)
#include "tst_StraightRun.moc"
