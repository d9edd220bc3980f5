#include <vectorkit/clean/DrawingCleaning.h>

#include <QtTest/QTest>

#include <algorithm>

using vectorkit::cleanDrawing;
using vectorkit::cleaningNeeds;
using vectorkit::CleanOptions;
using vectorkit::CleanReport;
using vectorkit::VectorDrawing;
using vectorkit::VectorPath;
using vectorkit::VectorShape;

namespace {

VectorShape shapeOf(const VectorPath &path, int pen = 1)
{
    VectorShape shape;
    shape.paths = {path};
    shape.pen = pen;
    return shape;
}

VectorPath line(const QPointF &from, const QPointF &to) { return VectorPath::polyline({from, to}); }

VectorPath square(double x, double y, double side)
{
    return VectorPath::polyline({{x, y}, {x + side, y}, {x + side, y + side}, {x, y + side}}, true);
}

VectorDrawing drawingOf(const QVector<VectorShape> &shapes)
{
    VectorDrawing drawing;
    drawing.layers.resize(1);
    drawing.layers[0].shapes = shapes;
    return drawing;
}

} // namespace

class tst_DrawingCleaning : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void withoutAWish_allStays()
    {
        VectorShape two = shapeOf(square(0, 0, 1));
        two.paths.append(square(5, 5, 1));
        two.id = QStringLiteral("both");
        VectorDrawing drawing = drawingOf({two});
        CleanReport report;
        QVERIFY(cleanDrawing(&drawing, {}, &report));
        QCOMPARE(drawing.layers[0].shapes.size(), 1);
        QCOMPARE(drawing.layers[0].shapes[0].id, QStringLiteral("both"));
        QCOMPARE(report.pathsBefore, 2);
        QCOMPARE(report.piecesAfter, 8);
    }

    void looseLinesDrawnTwice_becomeOneOutline()
    {
        QVector<VectorShape> shapes;
        const QVector<QPointF> corners{{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0}};
        for (int round = 0; round < 2; ++round) {
            for (int i = 0; i < 4; ++i)
                shapes.append(shapeOf(line(corners[i], corners[i + 1])));
        }
        shapes.append(shapeOf(line({5, 5}, {5, 5})));
        VectorDrawing drawing = drawingOf(shapes);
        CleanOptions options;
        options.dropZeroLength = true;
        options.dropDoubles = true;
        options.joinMm = 0.05;
        CleanReport report;
        QVERIFY(cleanDrawing(&drawing, options, &report));
        QCOMPARE(drawing.shapeCount(), 1);
        QVERIFY(drawing.layers[0].shapes[0].paths[0].isClosed());
        QCOMPARE(report.zeroLength, 1);
        QCOMPARE(report.doubled, 4);
        QCOMPARE(report.doubledMm, 40.0);
        QCOMPARE(report.joined, 3);
        QCOMPARE(report.closed, 1);
        QCOMPARE(report.pathsBefore, 9);
        QCOMPARE(report.pathsAfter, 1);
    }

    void otherPens_areNeitherJoinedNorDoubles()
    {
        VectorDrawing drawing =
            drawingOf({shapeOf(line({0, 0}, {1, 0}), 1), shapeOf(line({1, 0}, {2, 0}), 2),
                       shapeOf(line({0, 0}, {1, 0}), 3)});
        CleanOptions options;
        options.dropDoubles = true;
        options.joinMm = 0.05;
        QVERIFY(cleanDrawing(&drawing, options, nullptr));
        QCOMPARE(drawing.shapeCount(), 3);
    }

    void holeDrawnTwice_isAHoleAgain()
    {
        VectorDrawing drawing = drawingOf(
            {shapeOf(square(0, 0, 10)), shapeOf(square(2, 2, 4)), shapeOf(square(2, 2, 4))});
        CleanOptions options;
        options.dropDoubles = true;
        options.weld = true;
        QVERIFY(cleanDrawing(&drawing, options, nullptr));
        QCOMPARE(drawing.shapeCount(), 2);
        QCOMPARE(drawing.boundsMm(), QRectF(0, 0, 10, 10));
    }

    void overlappingAreas_areWeldedIntoOne()
    {
        VectorShape a = shapeOf(square(0, 0, 10));
        VectorShape b = shapeOf(square(5, 5, 10));
        a.isFilled = b.isFilled = true;
        a.isStroked = b.isStroked = false;
        VectorDrawing drawing = drawingOf({a, b});
        CleanOptions options;
        options.weld = true;
        QVERIFY(cleanDrawing(&drawing, options, nullptr));
        QCOMPARE(drawing.shapeCount(), 1);
        QCOMPARE(drawing.pathCount(), 1);
        QVERIFY(drawing.layers[0].shapes[0].isFilled);
        QCOMPARE(drawing.layers[0].shapes[0].paths[0].pieceCount(), 8);
    }

    void order_shortensTheWays()
    {
        VectorDrawing drawing =
            drawingOf({shapeOf(line({0, 0}, {10, 0})), shapeOf(line({100, 0}, {110, 0})),
                       shapeOf(line({11, 0}, {20, 0}))});
        CleanOptions options;
        options.order = true;
        CleanReport report;
        QVERIFY(cleanDrawing(&drawing, options, &report));
        QCOMPARE(report.jumpsBeforeMm, 90.0 + 99.0);
        QCOMPARE(report.jumpsAfterMm, 1.0 + 80.0);
    }

    void needs_areToldWithoutMending()
    {
        const VectorDrawing drawing =
            drawingOf({shapeOf(line({0, 0}, {10, 0})), shapeOf(line({10, 0}, {0, 0})),
                       shapeOf(line({10.02, 0}, {20, 0}))});
        const CleanReport needs = cleaningNeeds(drawing, 0.05, 0.01);
        QCOMPARE(needs.doubled, 1);
        QCOMPARE(needs.joined, 1);
        QCOMPARE(drawing.shapeCount(), 3);
    }

    void cancelled_staysAsItWas()
    {
        VectorDrawing drawing =
            drawingOf({shapeOf(line({0, 0}, {10, 0})), shapeOf(line({0, 0}, {10, 0}))});
        for (int allowed = 0; allowed < 4; ++allowed) {
            CleanOptions options;
            options.dropDoubles = true;
            options.order = true;
            int calls = 0;
            options.progress = [&](double done) {
                return done >= 0.0 && done <= 1.0 && calls++ < allowed;
            };
            QVERIFY(!cleanDrawing(&drawing, options, nullptr));
            QCOMPARE(drawing.shapeCount(), 2);
        }
    }

    void everyStep_tellsHowFarItIs_andCanBeCancelled_data()
    {
        QTest::addColumn<int>("step");
        QTest::newRow("doubles") << 0;
        QTest::newRow("joining") << 1;
        QTest::newRow("simplifying") << 2;
        QTest::newRow("fitting") << 3;
        QTest::newRow("welding") << 4;
        QTest::newRow("order") << 5;
        QTest::newRow("all") << 6;
    }

    void everyStep_tellsHowFarItIs_andCanBeCancelled()
    {
        QFETCH(int, step);
        // Pairs of squares that overlap, 12,000 in all, of two pens.
        QVector<VectorShape> shapes;
        for (int i = 0; i < 6000; ++i) {
            const double x = i % 80 * 10.0;
            const double y = i / 80 * 10.0;
            shapes.append(shapeOf(square(x, y, 4), 1 + i % 2));
            shapes.append(shapeOf(square(x + 2, y + 2, 4), 1 + i % 2));
        }
        const VectorDrawing drawing = drawingOf(shapes);
        CleanOptions options;
        const bool isAll = step == 6;
        options.dropDoubles = isAll || step == 0;
        options.joinMm = isAll || step == 1 ? 0.1 : -1.0;
        options.simplifyMm = isAll || step == 2 ? 0.1 : 0.0;
        options.fitArcsMm = isAll || step == 3 ? 0.1 : 0.0;
        options.weld = isAll || step == 4;
        options.order = isAll || step == 5;

        QVector<double> told;
        options.progress = [&](double done) {
            told.append(done);
            return true;
        };
        VectorDrawing cleaned = drawing;
        QVERIFY(cleanDrawing(&cleaned, options, nullptr));
        QVERIFY2(told.size() >= 8, qPrintable(QString::number(told.size())));
        QVERIFY(std::is_sorted(told.begin(), told.end()));
        QVERIFY(told.first() >= 0.0 && told.last() <= 1.0);
        QVERIFY2(told.last() > 0.7, qPrintable(QString::number(told.last())));

        for (const int allowed : {1, told.size() / 2, told.size() - 1}) {
            int calls = 0;
            options.progress = [&](double) { return calls++ < allowed; };
            cleaned = drawing;
            QVERIFY(!cleanDrawing(&cleaned, options, nullptr));
            QCOMPARE(calls, allowed + 1); // cancelled once, it is asked no more
            QCOMPARE(cleaned.pathCount(), 12000);
        }
    }

    void manyAreas_areWeldedAsFewAre()
    {
        // Two squares of 4 mm that share 2 x 2 mm, 3,000 times; the lots must neither lose nor mix.
        QVector<VectorShape> shapes;
        for (int i = 0; i < 3000; ++i) {
            const double x = i % 60 * 8.0;
            const double y = i / 60 * 8.0 + i % 3; // no row can be cut off straight
            shapes.append(shapeOf(square(x, y, 4)));
            shapes.append(shapeOf(square(x + 2, y + 2, 4)));
        }
        VectorDrawing drawing = drawingOf(shapes);
        CleanOptions options;
        options.weld = true;
        options.weldRule = Qt::WindingFill;
        QVERIFY(cleanDrawing(&drawing, options, nullptr));
        QCOMPARE(drawing.pathCount(), 3000);
        for (const VectorShape &shape : qAsConst(drawing.layers[0].shapes)) {
            QCOMPARE(shape.paths.size(), 1);
            QCOMPARE(shape.paths[0].pieceCount(), 8);
            QVERIFY(qAbs(shape.paths[0].lengthMm() - 24.0) < 1e-6); // 16 + 16 - 8 mm inside
        }
    }
};

QTEST_GUILESS_MAIN(tst_DrawingCleaning)
#include "tst_DrawingCleaning.moc"
