#include <support/SingletonGuard.h>

#include <hostkit/DrawingSnapshot.h>
#include <hostkit/Factories.h>
#include <hostkit/SampleDrawing.h>

#include <QtTest/QTest>

using hostkit::DrawingError;
using hostkit::DrawingFile;

namespace {

const QDateTime kMoment(QDate(2024, 2, 29), QTime(12, 34, 56, 789), Qt::UTC);

bool operator==(const ZTMarkObject &a, const ZTMarkObject &b)
{
    return a.penId == b.penId && a.lines == b.lines && a.fillLines == b.fillLines &&
           a.rect == b.rect;
}

bool isEqual(const ZTMarkGraph &a, const ZTMarkGraph &b)
{
    return a.rect == b.rect && a.objects.size() == b.objects.size() &&
           std::equal(a.objects.begin(), a.objects.end(), b.objects.begin(),
                      [](const ZTMarkObject &x, const ZTMarkObject &y) { return x == y; });
}

} // namespace

class tst_DrawingSnapshot : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { hostkit::registerFactories(); }
    void init() { guard.reset(new testsupport::SingletonGuard); }
    void cleanup() { guard.reset(); }

    void sample_savedAndLoaded_marksTheSame()
    {
        ZTGraphicsDocument document;
        hostkit::buildSampleDrawing(document);
        const ZTMarkGraph before = document.itemMag()->getShapeLines();
        const QByteArray bytes = saved(document);
        ZTGraphicsDocument other;
        load(bytes, other);
        QVERIFY(isEqual(other.itemMag()->getShapeLines(), before));
        QCOMPARE(saved(other), bytes);
    }

private:
    static QByteArray saved(ZTGraphicsDocument &document)
    {
        hostkit::DrawingCapture capture;
        capture.savedAt = kMoment;
        DrawingFile drawing;
        DrawingError error;
        if (!captureDrawing(document, capture, &drawing, &error))
            qFatal("%s", qPrintable(error.reason));
        return drawingToBytes(drawing);
    }

    static void load(const QByteArray &bytes, ZTGraphicsDocument &document)
    {
        DrawingFile drawing;
        DrawingError error;
        QVERIFY2(readDrawing(bytes, &drawing, &error), qPrintable(error.reason));
        QVERIFY2(applyDrawing(drawing, document, {}, nullptr, &error), qPrintable(error.reason));
    }

    QScopedPointer<testsupport::SingletonGuard> guard;
};

QTEST_MAIN(tst_DrawingSnapshot)
#include "tst_DrawingSnapshot.moc"
