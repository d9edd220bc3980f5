#include <support/SingletonGuard.h>

#include <hostkit/marks/MarkJob.h>
#include <hostkit/setup/Factories.h>

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <cmath>

using hostkit::DrawingInput;
using hostkit::MarkJobOptions;
using hostkit::MarkJobResult;

namespace {

// 40 x 20 mm, 20,000 x 10,000 mark units
const QByteArray kCorner("PU0 0;\nPD100 0;\nPD100 50;\n");
const QByteArray kFrame("PU0 0;\nPD100 0;\nPD100 50;\nPD0 50;\nPD0 0;\n");

bool isClose(const QPointF &a, const QPointF &b)
{
    return qAbs(a.x() - b.x()) < 1e-6 && qAbs(a.y() - b.y()) < 1e-6;
}

bool isClose(const QRectF &a, const QRectF &b)
{
    return isClose(a.topLeft(), b.topLeft()) && isClose(a.bottomRight(), b.bottomRight());
}

class TextShape : public ZTTextShapeBase
{
public:
    void paint() override {}
};

} // namespace

#define COMPARE_CLOSE(actual, expected)                                                            \
    do {                                                                                           \
        QString text;                                                                              \
        QDebug(&text) << (actual) << "instead of" << (expected);                                   \
        QVERIFY2(isClose(actual, expected), qPrintable(text));                                     \
    } while (false)

class tst_MarkJob : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        init();
        add(kCorner);
        QVERIFY(!build());
        QCOMPARE(error.drawing, 0);
        QCOMPARE(error.reason, QStringLiteral("no factory for drawings is registered"));
        cleanup();
        hostkit::registerFactories();
    }

    void init()
    {
        guard.reset(new testsupport::SingletonGuard);
        folder.reset(new QTemporaryDir);
        options = MarkJobOptions();
        drawings.clear();
        result = MarkJobResult();
        error = hostkit::MarkJobFailure();
    }
    void cleanup() { guard.reset(); }

    void drawing_comesOutInMarkUnits()
    {
        add(kCorner);
        QVERIFY(build());
        QCOMPARE(result.graph.objects.size(), 1);
        const ZTMarkObject &object = result.graph.objects[0];
        QCOMPARE(object.lines.size(), 1);
        QCOMPARE(object.lines[0].size(), 3);
        COMPARE_CLOSE(object.lines[0][0], QPointF(0, 10000));
        COMPARE_CLOSE(object.lines[0][1], QPointF(20000, 10000));
        COMPARE_CLOSE(object.lines[0][2], QPointF(20000, 0));
        QVERIFY(object.fillLines.isEmpty());
        COMPARE_CLOSE(object.rect, QRectF(0, 0, 20000, 10000));
        COMPARE_CLOSE(result.graph.rect, QRectF(0, 0, 20000, 10000));
        QCOMPARE(result.after.markMm, 60.0);
    }

    void scale_enlargesTheDrawing()
    {
        add(kCorner);
        options.scale = 0.25;
        QVERIFY(build());
        COMPARE_CLOSE(result.graph.rect, QRectF(0, 0, 5000, 2500));
        QCOMPARE(result.after.markMm, 15.0);
    }

    void rotate_turnsClockwiseAndKeepsTheCornerInPlace()
    {
        add(kCorner);
        options.rotateDeg = 90.0;
        QVERIFY(build());
        const QPolygonF &line = result.graph.objects[0].lines[0];
        COMPARE_CLOSE(result.graph.rect, QRectF(0, 0, 10000, 20000));
        COMPARE_CLOSE(line[0], QPointF(0, 0)); // the lower left corner comes to the upper left
        COMPARE_CLOSE(line[1], QPointF(0, 20000));
        COMPARE_CLOSE(line[2], QPointF(10000, 20000));
    }

    void rotate_andScale_keepTheCornerInPlace()
    {
        add(kFrame);
        options.rotateDeg = -30.0;
        options.scale = 3.0;
        QVERIFY(build());
        const double cosine = std::sqrt(3.0) / 2.0;
        COMPARE_CLOSE(result.graph.rect, QRectF(0, 0, 3 * (20000 * cosine + 10000 * 0.5),
                                                3 * (20000 * 0.5 + 10000 * cosine)));
        COMPARE_CLOSE(result.graph.objects[0].lines[0].boundingRect(), result.graph.rect);
    }

    void severalDrawings_standSideBySideAGapApart()
    {
        add(kCorner);
        add(kFrame);
        options.gapMm = QSizeF(3.0, 7.0);
        QVERIFY(build());
        QCOMPARE(result.graph.objects.size(), 2);
        COMPARE_CLOSE(result.graph.objects[0].rect, QRectF(0, 0, 20000, 10000));
        COMPARE_CLOSE(result.graph.objects[1].rect, QRectF(21500, 0, 20000, 10000));
        COMPARE_CLOSE(result.graph.objects[1].lines[0][0], QPointF(21500, 10000));
    }

    void matrix_repeatsTheRowOfDrawingsRowByRow()
    {
        add(kCorner);
        add(kCorner);
        options.columns = 2;
        options.rows = 3;
        options.scale = 0.5;              // each drawing 20 x 10 mm
        options.gapMm = QSizeF(1.0, 4.0); // stays 1 and 4 mm
        QVERIFY(build());
        QCOMPARE(result.graph.objects.size(), 12);
        QList<QPointF> corners;
        for (const ZTMarkObject &object : result.graph.objects)
            corners << object.rect.topLeft();
        for (int i = 0; i < 12; ++i) // pitches 21 mm and 14 mm
            COMPARE_CLOSE(corners[i], QPointF(i % 4 * 10500.0, i / 4 * 7000.0));
        COMPARE_CLOSE(result.graph.rect, QRectF(0, 0, 41500, 19000));
        COMPARE_CLOSE(result.graph.objects[11].lines[0][0], QPointF(31500, 19000));
    }

    void matrix_largerThanANewScene_isNotClamped()
    {
        add(kCorner);
        options.columns = 400; // pitch 42 mm, so nearly 17 m; an item may go some 7 m
        options.rows = 2;
        options.gapMm = QSizeF(2.0, 20000.0);
        QVERIFY(build());
        QCOMPARE(result.graph.objects.size(), 800);
        COMPARE_CLOSE(result.graph.objects[399].rect, QRectF(399 * 21000.0, 0, 20000, 10000));
        COMPARE_CLOSE(result.graph.objects[799].lines[0][0], QPointF(399 * 21000.0, 10020000));
    }

    void drawings_keepTheirPenAndEachOther()
    {
        add(kCorner);
        add(kFrame);
        options.columns = 3;
        options.scale = 0.1; // all of it left of where the sweep begins
        options.order = EShapeSortType::ShapeSortXFromMax;
        QVERIFY(build());
        for (int i = 0; i < 6; ++i) { // from the right, the frame stands right of the corner
            QCOMPARE(result.graph.objects[i].penId, 1);
            QCOMPARE(result.graph.objects[i].lines[0].size(), i % 2 == 0 ? 5 : 3);
        }
    }

    void job_leavesVariantTextsAlone()
    {
        TextShape shape;
        ZTVariantTextManager::getInstance()->newItem(&shape);
        add(kCorner);
        QVERIFY(build());
        QVERIFY(ZTVariantTextManager::getInstance()->getVariantText(&shape) != nullptr);
    }

    void hatch_hasTheSpacingAskedForWhateverTheScale_data()
    {
        QTest::addColumn<double>("scale");
        QTest::newRow("as imported") << 1.0;
        QTest::newRow("larger") << 4.0;
        QTest::newRow("smaller") << 0.5;
    }

    void hatch_hasTheSpacingAskedForWhateverTheScale()
    {
        QFETCH(double, scale);
        add(kFrame);
        options.scale = scale;
        options.hatch = FillType::Line;
        options.spacingMm = 2.5;
        QVERIFY(build());
        const QVector<QLineF> &hatch = result.graph.objects[0].fillLines;
        QCOMPARE(hatch.size(), qRound(20.0 * scale / 2.5));
        for (int i = 1; i < hatch.size(); ++i)
            QVERIFY(qAbs(hatch[i].y1() - hatch[i - 1].y1() - 1250.0) < 1e-6);
        for (const QLineF &line : hatch)
            QVERIFY(qAbs(line.length() - 20000.0 * scale) < 1e-6);
    }

    void hatch_angleHoldsOnTheResultWhateverTheRotation()
    {
        add(kFrame);
        options.rotateDeg = 30.0;
        options.hatch = FillType::Line;
        options.angleDeg = 45.0;
        QVERIFY(build());
        const QVector<QLineF> &hatch = result.graph.objects[0].fillLines;
        QVERIFY(hatch.size() > 20);
        for (const QLineF &line : hatch) // y runs downward, so clockwise means dx and dy alike
            QVERIFY(qAbs(line.dx() - line.dy()) < 1e-3);
    }

    void hatch_zigzag_hasNoJumpsInsideAConvexOutline()
    {
        add(kFrame);
        options.hatch = FillType::ULine;
        options.spacingMm = 5.0;
        options.outline = false;
        QVERIFY(build());
        QCOMPARE(result.after.hatchSegments, 7); // four lines, three joints
        QVERIFY(qAbs(result.after.markMm - 175.0) < 1e-6);
        QVERIFY(qAbs(result.after.jumpMm) < 1e-6);
    }

    void noOutline_leavesHatchAloneAndStillOrders()
    {
        add(kFrame);
        options.scale = 0.5;
        options.columns = 3;
        options.hatch = FillType::Line;
        options.outline = false;
        options.order = EShapeSortType::ShapeSortXFromMax;
        QVERIFY(build());
        QCOMPARE(result.graph.objects.size(), 3);
        QCOMPARE(result.after.polylines, 0);
        QCOMPARE(result.before.polylines, 0);
        QVERIFY(result.after.hatchSegments > 0);
        COMPARE_CLOSE(result.graph.objects[0].rect.topLeft(), QPointF(22000, 0));
        COMPARE_CLOSE(result.graph.objects[2].rect.topLeft(), QPointF(0, 0));
        for (const ZTMarkObject &object : result.graph.objects)
            QVERIFY(object.lines.isEmpty());
    }

    void order_isMeasuredBeforeAndAfter_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<QList<int>>("places");
        QTest::addColumn<double>("jumpMm");
        const auto row = [](const char *name, EShapeSortType kind, const QList<int> &places,
                            double jumpMm) {
            QTest::newRow(name) << static_cast<int>(kind) << places << jumpMm;
        };
        // Three corners 20 x 10 mm, 22 mm apart, each from its lower left to its upper right.
        const double forward = std::hypot(2.0, 10.0);
        const double backward = std::hypot(42.0, 10.0);
        const double overOne = std::hypot(24.0, 10.0);
        row("none", EShapeSortType::ShapeSortNone, {0, 1, 2}, 2 * forward);
        row("x from min", EShapeSortType::ShapeSortXFromMin, {0, 1, 2}, 2 * forward);
        row("x from max", EShapeSortType::ShapeSortXFromMax, {2, 1, 0}, 2 * backward);
        // From (30000, 30000) the second and third cost 25000 alike, then both sides 11000.
        row("nearest", EShapeSortType::ShapeSortNearest, {1, 0, 2}, backward + overOne);
    }

    void order_isMeasuredBeforeAndAfter()
    {
        QFETCH(int, kind);
        QFETCH(QList<int>, places);
        QFETCH(double, jumpMm);
        add(kCorner);
        options.scale = 0.5;
        options.columns = 3;
        options.order = static_cast<EShapeSortType>(kind);
        QVERIFY(build());
        for (int i = 0; i < 3; ++i)
            COMPARE_CLOSE(result.graph.objects[i].rect.topLeft(), QPointF(places[i] * 11000.0, 0));
        QVERIFY(qAbs(result.before.jumpMm - 2 * std::hypot(2.0, 10.0)) < 1e-6);
        QVERIFY(qAbs(result.after.jumpMm - jumpMm) < 1e-6);
        QCOMPARE(result.before.markMm, result.after.markMm);
    }

    void order_putsTheProcessWideKindBack()
    {
        ZTPointSort::getInstance()->setShapeMarkSort(EShapeSortType::ShapeSortYFromMax);
        add(kCorner);
        options.order = EShapeSortType::ShapeSortNearest;
        QVERIFY(build());
        QCOMPARE(ZTPointSort::getInstance()->getShapeMarkSort(), EShapeSortType::ShapeSortYFromMax);
    }

    void limits_areToldBeforeTheWorkIsDone()
    {
        add(kCorner);
        add(kFrame);
        options.hatch = FillType::Line;
        options.spacingMm = 1e-6;
        QVERIFY(!build());
        QCOMPARE(error.drawing, 0);
        // (40 mm x sqrt(2) + 20 pixels of 193 / 900 mm) / 1e-6 mm
        QCOMPARE(error.reason, QStringLiteral("too much work: 60,857,431 hatch lines over the "
                                              "drawing, the limit is 1,000,000"));
        QVERIFY(result.graph.objects.isEmpty());

        options.hatch = FillType::None;
        options.columns = 1000;
        options.rows = 1000;
        QVERIFY(!build());
        QCOMPARE(error.drawing, -1);
        QCOMPARE(error.reason,
                 QStringLiteral("too much work: 2,000,000 objects, the limit is 1,000,000"));

        options.columns = 500; // each copy of both has 8 points and some hatch
        options.hatch = FillType::Line;
        options.spacingMm = 0.5;
        QVERIFY(!build());
        QVERIFY2(error.reason.endsWith(
                     QStringLiteral("points and hatch segments, the limit is 20,000,000")),
                 qPrintable(error.reason));
    }

    void hatchSegments_areLimitedByTheOutline()
    {
        QByteArray comb("PU0 0;\n"); // 3,000 teeth: every hatch line is cut into 3,000
        for (int i = 0; i < 3000; ++i)
            comb += "PD" + QByteArray::number(2 * i) + " 1000;\nPD" +
                    QByteArray::number(2 * i + 1) + " 1000;\nPD" + QByteArray::number(2 * i + 1) +
                    " 0;\nPD" + QByteArray::number(2 * i + 2) + " 0;\n";
        add(comb);
        options.hatch = FillType::Line;
        options.spacingMm = 0.002;
        QVERIFY(!build());
        // 6,000 sides of 20 mm, 10,000 lines each, two sides to a segment
        QCOMPARE(error.reason, QStringLiteral("too much work: 30,000,000 hatch segments, the "
                                              "limit is 20,000,000"));
        options.angleDeg = 90.0; // along the teeth there are few
        options.spacingMm = 0.05;
        QVERIFY(build());
    }

    void progress_isToldOfEachStep()
    {
        add(kCorner);
        QStringList steps;
        options.progress = [&steps](const QString &step) { steps << step; };
        QVERIFY(build());
        QCOMPARE(steps, QStringList({QStringLiteral("preparing outlines"),
                                     QStringLiteral("copying"), QStringLiteral("ordering")}));
    }

    void noDrawings_giveAnEmptyGraph()
    {
        options.columns = 100000;
        options.rows = 100000;
        QVERIFY(build());
        QVERIFY(result.graph.objects.isEmpty());
    }

private:
    void add(const QByteArray &content)
    {
        const QString path =
            folder->filePath(QStringLiteral("%1.plt").arg(static_cast<int>(drawings.size())));
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(content);
        file.close();
        auto drawing = std::make_unique<DrawingInput>();
        hostkit::Failure failure;
        QVERIFY2(drawing->open(path, &failure), qPrintable(failure.reason));
        drawings.push_back(std::move(drawing));
    }

    bool build() { return hostkit::buildMarkJob(drawings, options, &result, &error); }

    QScopedPointer<testsupport::SingletonGuard> guard;
    QScopedPointer<QTemporaryDir> folder;
    std::vector<std::unique_ptr<DrawingInput>> drawings;
    MarkJobOptions options;
    MarkJobResult result;
    hostkit::MarkJobFailure error;
};

QTEST_MAIN(tst_MarkJob)
#include "tst_MarkJob.moc"
