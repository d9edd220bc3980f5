#include <ZTDrawEngineLib/items/ZTSelectionBounds_p.h>

#include <QtTest/QTest>

#include <random>

using Extent = ZTSelectionBounds::Extent;

class tst_ZTSelectionBounds : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nothing_isANullRectangle()
    {
        ZTSelectionBounds bounds;
        QVERIFY(bounds.total().rect().isNull());
        bounds.assign({});
        QVERIFY(bounds.total().rect().isNull());
        QCOMPARE(bounds.total().z(), 0.0);
    }

    void one_isItself()
    {
        ZTSelectionBounds bounds;
        bounds.assign({Extent(QRectF(1, 2, 3, 4), 5)});
        QCOMPARE(bounds.total().rect(), QRectF(1, 2, 3, 4));
        QCOMPARE(bounds.total().z(), 5.0);
        bounds.replace(0, Extent(QRectF(0, 0, 1, 1), -3));
        QCOMPARE(bounds.total().rect(), QRectF(0, 0, 1, 1));
        QCOMPARE(bounds.total().z(), 0.0);
    }

    void rectangleWithoutSize_contributesOnlyItsZ()
    {
        ZTSelectionBounds bounds;
        bounds.assign({Extent(QRectF(1, 2, 3, 4), 0), Extent(QRectF(900, 900, 0, 0), 7)});
        QCOMPARE(bounds.total().rect(), QRectF(1, 2, 3, 4));
        QCOMPARE(bounds.total().z(), 7.0);
    }

    void flatRectangle_counts()
    {
        ZTSelectionBounds bounds;
        bounds.assign({Extent(QRectF(1, 2, 3, 4), 0), Extent(QRectF(10, 2, 5, 0), 0)});
        QCOMPARE(bounds.total().rect(), QRectF(1, 2, 14, 4));
    }

    void randomChanges_equalTheUnionOfAll_data()
    {
        QTest::addColumn<int>("count");
        for (const int count : {1, 2, 3, 7, 8, 9, 100})
            QTest::addRow("%d", count) << count;
    }
    void randomChanges_equalTheUnionOfAll()
    {
        QFETCH(int, count);
        std::mt19937 random(20);
        const auto whole = [&random](int below) { return static_cast<double>(random() % below); };
        std::vector<QRectF> rects(static_cast<std::size_t>(count));
        std::vector<Extent> extents(rects.size());
        ZTSelectionBounds bounds;
        bounds.assign(extents);
        for (int step = 0; step < 500; ++step) {
            const std::size_t i = random() % rects.size();
            rects[i] = QRectF(whole(1000), whole(1000), whole(50), whole(50));
            bounds.replace(static_cast<int>(i), Extent(rects[i], 0));
            QRectF expected;
            for (const QRectF &rect : rects)
                expected |= rect;
            QCOMPARE(bounds.total().rect(), expected);
        }
    }
};

QTEST_MAIN(tst_ZTSelectionBounds)
#include "tst_ZTSelectionBounds.moc"
