#include <support/BoardFonts.h>
#include <support/DrawingBytes.h>
#include <support/OwnFolder.h>
#include <support/SingletonGuard.h>
#include <support/Skip.h>
#include <support/TinyFonts.h>
#include <support/WarningGuard.h>

#include <hostkit/drawing/SampleDrawing.h>
#include <hostkit/drawing/SampleDrawings.h>
#include <hostkit/setup/Factories.h>

#include <QtCore/QFile>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>

#include <functional>

using hostkit::DrawingFile;
using hostkit::Failure;

namespace {

QString samplePath(const QString &name)
{
    return QStringLiteral(ZT_TEST_DATA_DIR "/../../samples/") + name;
}

void buildShapes(ZTGraphicsDocument &document)
{
    QFile logo(samplePath(QStringLiteral("logo.plt")));
    QVERIFY(logo.open(QIODevice::ReadOnly));
    hostkit::buildShapesSample(document, logo);
}

} // namespace

Q_DECLARE_METATYPE(std::function<void(ZTGraphicsDocument &)>)

/** The drawings in the folder samples. */
class tst_SampleDrawings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { hostkit::registerFactories(); }
    void init()
    {
        messages.reset(new testsupport::WarningGuard);
        guard.reset(new testsupport::SingletonGuard);
        testsupport::emptyFontFolder();
        ZTVariantText::setClock(
            [] { return QDateTime(QDate(2024, 2, 29), QTime(12, 0), Qt::UTC); });
    }
    void cleanup()
    {
        messages->take(); // imported drawings begin with no file, texts here with no stroke fonts
        guard.reset();
        messages.reset();
    }

    void sample_isWhatTheCodeBuilds_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<std::function<void(ZTGraphicsDocument &)>>("build");
        const auto row = [](const char *name, std::function<void(ZTGraphicsDocument &)> build) {
            QTest::newRow(name) << QString::fromLatin1(name) << build;
        };
        row("plate.ztd", hostkit::buildSampleDrawing);
        row("shapes.ztd", buildShapes);
        row("matrix.ztd", hostkit::buildMatrixSample);
    }
    void sample_isWhatTheCodeBuilds()
    {
        QFETCH(QString, name);
        QFETCH(std::function<void(ZTGraphicsDocument &)>, build);
        ZTGraphicsDocument document;
        build(document);
        DrawingFile built = testsupport::captured(document);
        const DrawingFile saved = sample(name);
        QVERIFY(!drawingPreview(saved).isNull());
        built.meta.programVersion = saved.meta.programVersion;
        built.meta.savedAt = saved.meta.savedAt;
        built.previewPng = saved.previewPng;
        QVERIFY(drawingToBytes(built) == drawingToBytes(saved));
    }

    void sample_opensAndMarks_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("objects");
        QTest::addColumn<int>("empty");
        QTest::newRow("plate") << QStringLiteral("plate.ztd") << 43 << 0;
        QTest::newRow("shapes") << QStringLiteral("shapes.ztd") << 24 << 0;
        QTest::newRow("text") << QStringLiteral("text.ztd") << 9 << 4; // no stroke fonts here
        QTest::newRow("matrix") << QStringLiteral("matrix.ztd") << 10000 << 0;
    }
    void sample_opensAndMarks()
    {
        QFETCH(QString, name);
        QFETCH(int, objects);
        QFETCH(int, empty);
        ZTGraphicsDocument document;
        load(name, document);
        const ZTMarkGraph graph = document.itemMag()->getShapeLines();
        QCOMPARE(graph.objects.size(), objects);
        const auto isEmpty = [](const ZTMarkObject &object) {
            return object.lines.isEmpty() && object.fillLines.isEmpty();
        };
        QCOMPARE(int(std::count_if(graph.objects.begin(), graph.objects.end(), isEmpty)), empty);
    }

    void shapes_areOfEveryKind()
    {
        ZTGraphicsDocument document;
        load(QStringLiteral("shapes.ztd"), document);
        load(QStringLiteral("text.ztd"), document);
        QSet<int> kinds;
        for (const QString &name : {QStringLiteral("shapes.ztd"), QStringLiteral("text.ztd")}) {
            load(name, document);
            const QAbstractItemModel &model = *document.itemMag()->itemModel();
            for (int row = 0; row < model.rowCount(); ++row) {
                const QVariant item = model.index(row, 1).data(ZTItemModel::kItemRole);
                kinds << int(item.value<ZTAbstractGraphicsItem *>()->getShapeType());
            }
        }
        QCOMPARE(kinds, (QSet<int>{0, 1, 2, 4, 5, 9, 10}));
    }

    void text_namesTheFontsOfTheSamples()
    {
        ZTGraphicsDocument document;
        Failure error;
        hostkit::DrawingReport report;
        QVERIFY(applyDrawing(sample(QStringLiteral("text.ztd")), document, {}, &report, &error));
        QCOMPARE(report.missingFonts, (QStringList{QStringLiteral("gb-strokes.shx"),
                                                   QStringLiteral("hershey-simplex.shx")}));
    }

    void strokeText_keepsItsHeight_whateverTextIsMadeAfterIt()
    {
        if (!testsupport::boardFonts().contains(QStringLiteral("hershey-simplex.shx")))
            ZT_SKIP("the build made no stroke fonts");
        testsupport::installBoardFonts();
        ZTGraphicsDocument document;
        load(QStringLiteral("text.ztd"), document);
        document.itemMag()->addShape(ShapeType::Text, {0, 0, 10, 10});
        const QModelIndex cell = document.itemMag()->itemModel()->index(3, 1);
        auto *item = cell.data(ZTItemModel::kItemRole).value<ZTAbstractGraphicsItem *>();
        QCOMPARE(item->text(), QStringLiteral("Strokes 0123"));
        item->getShapeBase()->setUpdate(1);
        // 21 units of capitals where a "W" is 24 wide and 5 mm.
        const double heightMm = ZTCoord::getInstance()->pix2mm(item->boundingRect().height());
        QVERIFY2(qAbs(heightMm - 5.0 * 21 / 24) < 0.01, qPrintable(QString::number(heightMm)));
    }

    /** Each press of "next part" gives another number, the first one too. */
    void text_countsOn()
    {
        ZTGraphicsDocument document;
        load(QStringLiteral("text.ztd"), document);
        auto *serial = static_cast<ZTTextShapeBase *>(document.itemMag()->getShapeList().first());
        QCOMPARE(serial->text(), QStringLiteral("SN-0001  2024-02-29"));
        serial->fromVariantTextUpdateText();
        QCOMPARE(serial->text(), QStringLiteral("SN-0002  2024-02-29"));
    }

private:
    static DrawingFile sample(const QString &name)
    {
        DrawingFile drawing;
        Failure error;
        if (!readDrawing(samplePath(name), &drawing, &error))
            qFatal("%s: %s", qPrintable(name), qPrintable(error.reason));
        return drawing;
    }

    static void load(const QString &name, ZTGraphicsDocument &document)
    {
        Failure error;
        QVERIFY2(applyDrawing(sample(name), document, {}, nullptr, &error),
                 qPrintable(error.reason));
    }

    QScopedPointer<testsupport::SingletonGuard> guard;
    QScopedPointer<testsupport::WarningGuard> messages;
};

int main(int argc, char **argv)
{
    const int code = testsupport::runInOwnFolder(argc, argv);
    if (code >= 0)
        return code;
    QApplication application(argc, argv);
    tst_SampleDrawings test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_SampleDrawings.moc"
