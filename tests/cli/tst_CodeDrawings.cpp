#include "cli/ZtmarkProcess.h"

#include "support/SingletonGuard.h"

#include <codekit/shape/CodeItem.h>
#include <hostkit/drawing/DrawingCapture.h>
#include <hostkit/marks/MarkGraphBuilder.h>
#include <hostkit/marks/MarkGraphWriter.h>
#include <hostkit/setup/Factories.h>

#include <QtCore/QTemporaryDir>
#include <QtTest/QtTest>
#include <QtWidgets/QApplication>

using codekit::CodeItem;

/** The command line and drawings with codes in them. */
class tst_CodeDrawings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        hostkit::registerFactories();
        codekit::registerCodeFactories();
    }
    void init()
    {
        guard.reset(new testsupport::SingletonGuard);
        folder.reset(new QTemporaryDir);
        QVERIFY(folder->isValid());
        document = std::make_unique<ZTGraphicsDocument>();
        code = codekit::codeItem(
            document->itemMag()->addShape(ShapeType::QRCode, QRectF(0, 0, 10, 10)));
    }
    void cleanup()
    {
        document.reset();
        guard.reset();
    }

    void mark_writesWhatTheStudioMarks()
    {
        codekit::CodeSettings settings = code->settings();
        settings.form.style = codekit::CodeStyle::Dots;
        settings.form.growthMm = 0.05;
        code->setSettings(settings);
        save();
        const ZtmarkRun run = ztmark("mark drawing.ztd -o out.csv");
        QCOMPARE(run.err, QString());
        QCOMPARE(run.exitCode, 0);
        const hostkit::DrawingMarks marks = hostkit::drawingMarks(*document);
        QVERIFY(hostkit::saveMarkGraph(marks.graph, marks.units, path("own.csv"), nullptr));
        QVERIFY(!bytesOf("own.csv").isEmpty());
        QCOMPARE(bytesOf("out.csv"), bytesOf("own.csv"));
    }

    void info_tellsOfCodes_alsoOfThoseThatCannotBeMade()
    {
        document->itemMag()->addShape(ShapeType::BarCode, QRectF(0, 0, 10, 10));
        code->setFixedText(QString());
        save();
        const ZtmarkRun run = ztmark("info drawing.ztd");
        QCOMPARE(run.exitCode, 0);
        QVERIFY2(run.out.contains(QStringLiteral("  codes: 1\n")), qPrintable(run.out));
        QVERIFY2(run.out.contains(QStringLiteral("  bar codes: 1\n")), qPrintable(run.out));
        QVERIFY2(run.out.contains(QStringLiteral("Code 0: there is nothing to encode")),
                 qPrintable(run.out));
    }

    void mark_ofACodeThatCannotBeMade_writesOnRequestAlone()
    {
        code->boundingRect(); // a good one is shown first
        code->setFixedText(QString());
        save();
        ZtmarkRun run = ztmark("mark drawing.ztd -o out.csv");
        QCOMPARE(run.exitCode, 1);
        QVERIFY2(run.err.contains(QStringLiteral("--as-shown")), qPrintable(run.err));
        QVERIFY(!QFile::exists(path("out.csv")));
        run = ztmark("mark drawing.ztd --as-shown -o out.csv");
        QCOMPARE(run.exitCode, 0);
        QVERIFY2(run.err.contains(QStringLiteral("Code 0: there is nothing to encode")),
                 qPrintable(run.err));
        QVERIFY(QFile::exists(path("out.csv")));
    }

    void job_ofACodeThatCannotBeMade_isWrittenOnRequestAlone()
    {
        code->boundingRect(); // a good one is shown first
        code->setFixedText(QString());
        save();
        ZtmarkRun run = ztmark("job drawing.ztd -o out.nc");
        QCOMPARE(run.exitCode, 1);
        QVERIFY2(run.err.contains(QStringLiteral("Code 0: there is nothing to encode")),
                 qPrintable(run.err));
        QVERIFY2(run.err.contains(QStringLiteral("--as-shown")), qPrintable(run.err));
        QVERIFY(!QFile::exists(path("out.nc")));
        run = ztmark("job drawing.ztd --as-shown -o out.nc");
        QCOMPARE(run.exitCode, 0);
        QVERIFY2(run.err.contains(QStringLiteral("warning: Code 0: there is nothing to encode")),
                 qPrintable(run.err));
        QVERIFY(QFile::exists(path("out.nc")));
    }

    /** The part after the last one that was asked for need not be possible. */
    void job_goesUpToThePartThatCannotBeMade()
    {
        codekit::CodeSettings settings = code->settings();
        settings.spec.kind = codekit::CodeKind::Interleaved25;
        ZTCounterSegment counter;
        counter.start = 98;
        ZTVariantText numbers;
        QVERIFY(numbers.setSegments({counter}));
        numbers.update();
        code->code().cloneVariantText(&numbers);
        code->setCode(settings, QStringLiteral("98"));
        code->setEnableVariantText(true);
        save();
        const QByteArray before = bytesOf("drawing.ztd");
        ZtmarkRun run = ztmark("job drawing.ztd --parts 3 -o out.nc"); // 98, 99 and 100
        QCOMPARE(run.exitCode, 1);
        QVERIFY2(run.err.contains(QStringLiteral("holds pairs of digits")), qPrintable(run.err));
        QVERIFY(!QFile::exists(path("out.nc")));
        QCOMPARE(bytesOf("drawing.ztd"), before);
        run = ztmark("job drawing.ztd --parts 2 -o out.nc");
        QVERIFY2(run.exitCode == 0, qPrintable(run.err));
        QVERIFY(QFile::exists(path("out.nc")));
    }

private:
    QString path(const char *name) const { return folder->filePath(QString::fromLatin1(name)); }

    QByteArray bytesOf(const char *name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    void save()
    {
        hostkit::Failure failure;
        QVERIFY2(hostkit::saveDrawing(*document, {}, path("drawing.ztd"), &failure),
                 qPrintable(failure.reason));
    }

    ZtmarkRun ztmark(const char *arguments) const
    {
        return runZtmark(QString::fromLatin1(arguments).split(QLatin1Char(' ')), folder->path());
    }

    QScopedPointer<testsupport::SingletonGuard> guard;
    QScopedPointer<QTemporaryDir> folder;
    std::unique_ptr<ZTGraphicsDocument> document;
    CodeItem *code = nullptr; ///< the document's
};

QTEST_MAIN(tst_CodeDrawings)

#include "tst_CodeDrawings.moc"
