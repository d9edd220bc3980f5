#include <support/SingletonGuard.h>

#include <hostkit/marks/ShapeJob.h>
#include <hostkit/setup/Factories.h>

#include <QtTest/QtTest>

#include <cmath>

using hostkit::JobShape;
using hostkit::MarkJobFailure;
using hostkit::MarkJobOptions;
using hostkit::MarkJobResult;

namespace {

constexpr double kMarkPerMm = 500.0;

/** A rectangle that lies somewhere. */
JobShape rectangle(double widthMm, double heightMm)
{
    return {ShapeType::Rect, [widthMm, heightMm](ZTAbstractGraphicsItem &item) {
                item.getShapeBase()->setRect(QRectF(7.0, -3.0, widthMm, heightMm));
            }};
}

QRectF boxMm(const ZTMarkObject &object)
{
    QRectF box;
    for (const QPolygonF &line : object.lines)
        box |= line.boundingRect();
    return QRectF(box.topLeft() / kMarkPerMm, box.size() / kMarkPerMm);
}

bool isClose(const QRectF &a, const QRectF &b)
{
    return std::abs(a.left() - b.left()) < 1e-9 && std::abs(a.top() - b.top()) < 1e-9 &&
           std::abs(a.width() - b.width()) < 1e-9 && std::abs(a.height() - b.height()) < 1e-9;
}

} // namespace

class tst_ShapeJob : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { hostkit::registerFactories(); }
    void init() { guard.reset(new testsupport::SingletonGuard); }
    void cleanup() { guard.reset(); }

    void shapes_standSideBySide_fromTheOrigin()
    {
        MarkJobOptions options;
        options.gapMm = QSizeF(1.0, 1.0);
        const MarkJobResult result = build({rectangle(4.0, 2.0), rectangle(3.0, 5.0)}, options);
        QCOMPARE(result.graph.objects.size(), 2);
        QVERIFY(isClose(boxMm(result.graph.objects[0]), {0, 0, 4, 2}));
        QVERIFY(isClose(boxMm(result.graph.objects[1]), {5, 0, 3, 5}));
    }

    void matrixAndRotation_areThoseOfOtherJobs()
    {
        MarkJobOptions options;
        options.columns = 2;
        options.rotateDeg = 90.0;
        options.gapMm = QSizeF(1.0, 1.0);
        const MarkJobResult result = build({rectangle(4.0, 2.0)}, options);
        QCOMPARE(result.graph.objects.size(), 2);
        QVERIFY(isClose(boxMm(result.graph.objects[0]), {0, 0, 2, 4}));
        QVERIFY(isClose(boxMm(result.graph.objects[1]), {3, 0, 2, 4}));
    }

    void hatch_isTheShapesOwn()
    {
        MarkJobOptions options;
        options.hatch = FillType::Line;
        options.spacingMm = 0.5;
        const MarkJobResult result = build({rectangle(4.0, 2.0)}, options);
        QVERIFY(!result.graph.objects[0].fillLines.isEmpty());
        QCOMPARE(result.after.hatchSegments, result.graph.objects[0].fillLines.size());
    }

    void kindWithoutAFactory_isRefused()
    {
        MarkJobResult result;
        MarkJobFailure failure;
        const JobShape unknown{ShapeType::Pixmap, [](ZTAbstractGraphicsItem &) {}};
        QVERIFY(!hostkit::buildShapeJob({unknown}, {}, &result, &failure));
        QVERIFY(failure.kind == hostkit::Failure::Kind::NotPossible);
        QVERIFY(!failure.reason.isEmpty());
    }

private:
    static MarkJobResult build(const std::vector<JobShape> &shapes, const MarkJobOptions &options)
    {
        MarkJobResult result;
        MarkJobFailure failure;
        if (!hostkit::buildShapeJob(shapes, options, &result, &failure))
            qWarning("%s", qPrintable(failure.reason));
        return result;
    }

    QScopedPointer<testsupport::SingletonGuard> guard;
};

QTEST_MAIN(tst_ShapeJob)

#include "tst_ShapeJob.moc"
