#include <support/DrawingBytes.h>
#include <support/ShapeState.h>
#include <support/SingletonGuard.h>

#include <hostkit/drawing/DrawingCapture.h>
#include <hostkit/drawing/DrawingExtras.h>
#include <hostkit/marks/MarkGraphBuilder.h>
#include <hostkit/setup/Factories.h>

#include <QtTest/QTest>

#include <cmath>

using hostkit::Failure;

namespace {

/** A circle of 10 mm with a hatch. */
void addCircle(ZTGraphicsDocument &document)
{
    ZTAbstractGraphicsItem *item =
        document.itemMag()->addShape(ShapeType::Ellipse, QRectF(0, 0, 10, 10));
    ZTFillParam fill;
    fill.fillType = FillType::Line;
    fill.spac = 3.0;
    item->getShapeBase()->setFillParam(fill);
    item->setTransformParam(QTransform());
}

hostkit::DrawingFile fileOf(const QByteArray &bytes)
{
    hostkit::DrawingFile file;
    Failure failure;
    if (!hostkit::readDrawing(bytes, &file, &failure))
        qWarning("%s", qPrintable(failure.reason));
    return file;
}

/** The largest distance between the marked outline and the circle that it stands for, in mm. */
double farthestInMarks(const ZTGraphicsDocument &document)
{
    const hostkit::DrawingMarks marks = hostkit::drawingMarks(document, std::nullopt);
    const QPolygonF outline = marks.graph.objects.value(0).lines.value(0);
    const QRectF box = outline.boundingRect();
    const double unitsPerMm = box.width() / 10.0;
    double farthest = 0.0;
    for (int i = 1; i < outline.size(); ++i) {
        const QPointF middle = (outline[i] + outline[i - 1]) / 2.0 - box.center();
        farthest = std::max(farthest, 5.0 - std::hypot(middle.x(), middle.y()) / unitsPerMm);
    }
    return farthest;
}

} // namespace

/** The tolerance of curves as a drawing keeps it. */
class tst_CurveTolerance : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { hostkit::registerFactories(); }
    void init() { guard.reset(new testsupport::SingletonGuard); }
    void cleanup() { guard.reset(); }

    void marksOfACircle_areWithinTheTolerance()
    {
        ZTCurveTolerance::setToleranceMm(0.005);
        ZTGraphicsDocument document;
        addCircle(document);
        const double farthest = farthestInMarks(document);
        QVERIFY2(farthest > 0.0 && farthest <= 0.005, qPrintable(QString::number(farthest)));
        ZTCurveTolerance::setToleranceMm(0.0);
        QVERIFY(farthestInMarks(document) > 0.02);
    }

    void drawing_remembersItsTolerance()
    {
        ZTCurveTolerance::setToleranceMm(0.0125);
        ZTGraphicsDocument document;
        addCircle(document);
        const QByteArray bytes = testsupport::savedBytes(document);
        QVERIFY(bytes.contains("curveTolerance"));
        QCOMPARE(fileOf(bytes).meta.setup.curveToleranceMm, 0.0125);
        QVERIFY(!fileOf(bytes).extras.fields.contains("curveTolerance"));

        ZTCurveTolerance::setToleranceMm(0.3);
        ZTGraphicsDocument other;
        Failure failure;
        QVERIFY2(testsupport::load(bytes, other, &failure), qPrintable(failure.reason));
        QCOMPARE(ZTCurveTolerance::toleranceMm(), 0.0125);
        const auto *loaded = other.itemMag()->getShapeList().value(0);
        QVERIFY(loaded != nullptr);
        const auto *made = document.itemMag()->getShapeList().value(0);
        QCOMPARE(loaded->getLines(), made->getLines());
        QCOMPARE(loaded->getFillLines(), made->getFillLines());
    }

    void drawingWithoutTolerance_marksAsItDid()
    {
        ZTGraphicsDocument document;
        addCircle(document);
        const QByteArray bytes = testsupport::savedBytes(document);
        QVERIFY(!bytes.contains("curveTolerance"));
        const ZTMarkGraph before = hostkit::drawingMarks(document, std::nullopt).graph;

        ZTCurveTolerance::setToleranceMm(0.005); // of a drawing that was open before
        ZTGraphicsDocument other;
        Failure failure;
        QVERIFY2(testsupport::load(bytes, other, &failure), qPrintable(failure.reason));
        QCOMPARE(ZTCurveTolerance::toleranceMm(), 0.0);
        const ZTMarkGraph after = hostkit::drawingMarks(other, std::nullopt).graph;
        QCOMPARE(after.objects.size(), 1);
        QCOMPARE(after.objects[0].lines, before.objects[0].lines);
        QCOMPARE(after.objects[0].fillLines, before.objects[0].fillLines);
    }

    void failedLoad_leavesTheToleranceAlone()
    {
        ZTCurveTolerance::setToleranceMm(0.01);
        ZTGraphicsDocument document;
        Failure failure;
        QVERIFY(!testsupport::load("no drawing", document, &failure));
        QCOMPARE(ZTCurveTolerance::toleranceMm(), 0.01);
    }

    void insertedDrawing_takesTheToleranceOfWhereItComes()
    {
        ZTGraphicsDocument source;
        addCircle(source); // coarse
        const hostkit::DrawingFile file = fileOf(testsupport::savedBytes(source));
        ZTCurveTolerance::setToleranceMm(0.005);
        ZTGraphicsDocument target;
        addCircle(target);
        hostkit::InsertedDrawing inserted;
        Failure failure;
        QVERIFY(hostkit::insertDrawing(file, target, {}, &inserted, &failure));
        QCOMPARE(ZTCurveTolerance::toleranceMm(), 0.005);
        QCOMPARE(inserted.items.size(), 1);
        QCOMPARE(inserted.items[0]->getShapeBase()->getLines(),
                 target.itemMag()->getShapeList().value(0)->getLines());
    }

    void fieldThatMakesNoSense_staysAsItIs_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("too short") << QByteArray("0.01");
        QTest::newRow("not a number") << QByteArray("\x7f\xf8\0\0\0\0\0\0", 8);
        QTest::newRow("endless") << QByteArray("\x7f\xf0\0\0\0\0\0\0", 8);
        QTest::newRow("nothing") << QByteArray(8, '\0');
        QTest::newRow("negative") << QByteArray("\xbf\xf0\0\0\0\0\0\0", 8);
    }

    void fieldThatMakesNoSense_staysAsItIs()
    {
        QFETCH(QByteArray, bytes);
        ZTGraphicsDocument document;
        hostkit::DrawingExtras extras;
        extras.fields["curveTolerance"] = bytes;
        hostkit::setDrawingExtras(document, extras);
        const hostkit::DrawingFile file = fileOf(testsupport::savedBytes(document));
        QCOMPARE(file.meta.setup.curveToleranceMm, 0.0);
        QCOMPARE(file.extras.fields.value("curveTolerance"), bytes);
    }

private:
    QScopedPointer<testsupport::SingletonGuard> guard;
};

QTEST_MAIN(tst_CurveTolerance)
#include "tst_CurveTolerance.moc"
