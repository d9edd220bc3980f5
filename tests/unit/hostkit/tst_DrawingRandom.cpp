#include <support/DrawingBytes.h>
#include <support/OwnFolder.h>
#include <support/RandomDrawing.h>
#include <support/SingletonGuard.h>
#include <support/TinyFonts.h>
#include <support/WarningGuard.h>

#include <hostkit/Factories.h>

#include <QtTest/QTest>
#include <QtWidgets/QApplication>

using hostkit::DrawingError;

namespace {

constexpr int kDrawings = 2000;
/** What is painted now, nothing being rebuilt for it. */
QVector<QPainterPath> outlinesOf(ZTGraphicsDocument &document)
{
    QVector<QPainterPath> outlines;
    for (const ZTShapeBase *shape : document.itemMag()->getShapeList())
        outlines << shape->getLines();
    return outlines;
}

} // namespace

/** Drawings by lot, many of them, saved, loaded and damaged. */
class tst_DrawingRandom : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { hostkit::registerFactories(); }
    void init()
    {
        guard.reset(new testsupport::SingletonGuard);
        testsupport::makeTinyFonts();
    }
    void cleanup() { guard.reset(); }

    void drawings_savedAndLoaded_markTheSameAndSaveTheSameBytes()
    {
        testsupport::WarningGuard messages; // imported drawings without a file log that
        ZTGraphicsDocument document;
        ZTGraphicsDocument other;
        for (quint32 seed = 0; seed < kDrawings; ++seed) {
            document.clear();
            testsupport::RandomDrawing random(seed);
            random.strokeFonts << QStringLiteral("tiny.shx") << QStringLiteral("tinybig.shx");
            random.add(document, static_cast<int>(seed % 8));
            const QByteArray bytes =
                testsupport::savedBytes(document); // with shapes that wait for a rebuild
            const ZTMarkGraph before = document.itemMag()->getShapeLines();
            DrawingError error;
            QVERIFY2(testsupport::load(bytes, other, &error), qPrintable(error.reason));
            const QString which = QStringLiteral("seed %1").arg(seed);
            const QVector<QPainterPath> shown = outlinesOf(other);
            QVERIFY2(testsupport::sameGraph(other.itemMag()->getShapeLines(), before),
                     qPrintable(which));
            QVERIFY2(outlinesOf(other) == shown, qPrintable(which)); // as a rebuild makes them
            QVERIFY2(testsupport::savedBytes(other) == bytes, qPrintable(which));
        }
        messages.take();
    }

private:
    QScopedPointer<testsupport::SingletonGuard> guard;
};

int main(int argc, char **argv)
{
    const int code = testsupport::runInOwnFolder(argc, argv);
    if (code >= 0)
        return code;
    QApplication application(argc, argv);
    tst_DrawingRandom test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_DrawingRandom.moc"
