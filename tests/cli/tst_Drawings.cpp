#include "ZtmarkProcess.h"

#include <support/DrawingBytes.h>
#include <support/SingletonGuard.h>

#include <hostkit/drawing/DrawingContent_p.h>
#include <hostkit/drawing/DrawingLoader.h>
#include <hostkit/marks/MarkGraphWriter.h>
#include <hostkit/setup/Factories.h>

#include <QtCore/QDataStream>
#include <QtCore/QDir>
#include <QtCore/QTemporaryDir>
#include <QtGui/QImage>
#include <QtWidgets/QApplication>

#include <memory>

using hostkit::DrawingFile;
using hostkit::Failure;

namespace {

const QByteArray kCorner("PU0 0;\nPD100 0;\nPD100 50;\n");

QString sample(const QString &name)
{
    return QStringLiteral(ZT_TEST_DATA_DIR "/../../samples/") + name + QStringLiteral(".ztd");
}

void put(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), qint64(bytes.size()));
}

DrawingFile readFile(const QString &path)
{
    DrawingFile drawing;
    Failure error;
    if (!readDrawing(path, &drawing, &error))
        qWarning("%s: %s", qPrintable(path), qPrintable(error.reason));
    return drawing;
}

/** The items as their bytes stand in a file. */
QByteArray itemsOf(const QString &path)
{
    const DrawingFile drawing = readFile(path);
    return hostkit::itemsToBytes(drawing.counters, drawing.items);
}

/** What the library itself marks of a drawing, as a table. */
QByteArray libraryCsv(const QString &drawingPath, const QString &csvPath,
                      const EShapeSortType *order = nullptr)
{
    ZTGraphicsDocument document;
    Failure error;
    if (!applyDrawing(readFile(drawingPath), document, {}, nullptr, &error))
        return "not loaded: " + error.reason.toUtf8();
    if (order != nullptr)
        ZTPointSort::getInstance()->setShapeMarkSort(*order);
    const ZTMarkGraph graph = document.itemMag()->getShapeLines();
    if (!hostkit::saveMarkGraph(graph, hostkit::MarkUnits::current(), csvPath, &error))
        return "not written: " + error.reason.toUtf8();
    return bytesOf(csvPath);
}

QStringList words(const char *line) { return QString::fromLatin1(line).split(QLatin1Char(' ')); }

/** A text as the document stream holds it. */
QByteArray wideText(const QString &text)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    stream << text;
    return bytes;
}

/** Hatched squares, the two in the middle without an outline, to be marked nearest next. */
QByteArray outlinelessDrawing()
{
    ZTGraphicsDocument document;
    for (int i = 0; i < 4; ++i) {
        ZTAbstractGraphicsItem *item =
            document.itemMag()->addShape(ShapeType::Rect, QRectF(0, 0, 10, 10));
        item->setPos(100.0 * i, 0.0);
        ZTFillParam fill;
        fill.fillType = FillType::Line;
        fill.spac = 2.0;
        fill.isEnableBorder = i == 0 || i == 3;
        item->setFillParam(fill);
    }
    ZTPointSort::getInstance()->setShapeMarkSort(EShapeSortType::ShapeSortNearest);
    return testsupport::savedBytes(document);
}

} // namespace

class tst_Drawings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { hostkit::registerFactories(); }
    void init()
    {
        guard.reset(new testsupport::SingletonGuard);
        folder.reset(new QTemporaryDir);
        QVERIFY(folder->isValid());
        // The program and the test stand in different folders, and each has fonts of its own.
        ZTShxFontManager::addFolder(QFileInfo(QStringLiteral(ZT_ZTMARK)).path() +
                                    QStringLiteral("/font"));
    }
    void cleanup() { guard.reset(); }

    void mark_isWhatTheLibraryMarks_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("order");
        for (const char *name : {"plate", "shapes", "text", "matrix"})
            QTest::newRow(name) << QString::fromLatin1(name) << QString();
        QTest::newRow("nearest") << QStringLiteral("plate") << QStringLiteral("nearest");
    }
    void mark_isWhatTheLibraryMarks()
    {
        QFETCH(QString, name);
        QFETCH(QString, order);
        QStringList arguments{QStringLiteral("mark"), sample(name), QStringLiteral("-o"),
                              QStringLiteral("out.csv")};
        if (!order.isEmpty())
            arguments << QStringLiteral("--order") << order;
        const ZtmarkRun run = runZtmark(arguments, folder->path());
        QCOMPARE(run.exitCode, 0);
        const EShapeSortType nearest = EShapeSortType::ShapeSortNearest;
        const QByteArray expected =
            libraryCsv(sample(name), path("library.csv"), order.isEmpty() ? nullptr : &nearest);
        QVERIFY2(expected.startsWith("object,pen,"), expected.left(200).constData());
        QVERIFY(bytesOf(path("out.csv")) == expected);
    }

    void mark_summarisesAndOrders()
    {
        const ZtmarkRun run = ztmark({"mark", "plate.ztd", "--order", "nearest"}, {"plate"});
        QCOMPARE(run.err, QString());
        QVERIFY2(run.out.startsWith(QStringLiteral("Objects:        43\n")), qPrintable(run.out));
        const QStringList jumps =
            run.out.section(QStringLiteral("Jump length:    "), 1).split(QStringLiteral(" mm"));
        const double before = jumps.value(0).toDouble();
        const double after = jumps.value(1).section(QLatin1Char(' '), -1).toDouble();
        QVERIFY2(after > 0.0 && after < before, qPrintable(run.out));
    }

    void mark_keepsTheDrawingsOwnOrder()
    {
        DrawingFile drawing = readFile(sample(QStringLiteral("plate")));
        drawing.meta.setup.sortKind = EShapeSortType::ShapeSortNearest;
        put(path("own.ztd"), drawingToBytes(drawing));
        ztmark({"mark", "own.ztd", "-o", "own.csv"});
        ztmark({"mark", "plate.ztd", "--order", "nearest", "-o", "asked.csv"}, {"plate"});
        ztmark({"mark", "own.ztd", "--order", "none", "-o", "none.csv"});
        QVERIFY(bytesOf(path("own.csv")) == bytesOf(path("asked.csv")));
        QVERIFY(bytesOf(path("own.csv")) != bytesOf(path("none.csv")));
    }

    void mark_withAnotherScale_measuresTheSameMillimetres()
    {
        DrawingFile drawing = readFile(sample(QStringLiteral("plate")));
        drawing.meta.setup.markScaleX *= 2.0F;
        drawing.meta.setup.markScaleY *= 2.0F;
        put(path("scaled.ztd"), drawingToBytes(drawing));
        const ZtmarkRun scaled = ztmark({"mark", "scaled.ztd", "-o", "scaled.json"});
        const ZtmarkRun plain = ztmark({"mark", "plate.ztd"}, {"plate"});
        QCOMPARE(scaled.out, plain.out);
        const QByteArray json = bytesOf(path("scaled.json"));
        const double unitsPerMm =
            json.mid(json.indexOf("unitsPerMm") + 12).split(',').first().toDouble();
        QVERIFY2(qAbs(unitsPerMm - 1000.0) < 0.001, json.left(100).constData());
    }

    void mark_inAnOrder_keepsHatchesWithoutOutline()
    {
        put(path("bare.ztd"), outlinelessDrawing());
        const ZtmarkRun ordered = ztmark({"mark", "bare.ztd", "-o", "ordered.json"});
        QCOMPARE(ordered.err, QString());
        QCOMPARE(ordered.exitCode, 0);
        const ZtmarkRun plain = ztmark({"mark", "bare.ztd", "--order", "none"});
        const QString jump = QStringLiteral("Jump length:");
        QCOMPARE(ordered.out.section(jump, 0, 0), plain.out.section(jump, 0, 0));
        QVERIFY(ordered.out.startsWith(QStringLiteral("Objects:        4\n")));
        const QByteArray json = bytesOf(path("ordered.json"));
        QCOMPARE(json.count("\"hatch\":[\n"), 4);
        QCOMPARE(json.count("\"polylines\":[]"), 2);
    }

    void mark_outsideTheWorkArea_isDoneOnlyIfToldSo()
    {
        DrawingFile drawing = readFile(sample(QStringLiteral("shapes")));
        drawing.meta.setup.workAreaMm = QRect(0, 0, 10, 10);
        put(path("far.ztd"), drawingToBytes(drawing));
        const ZtmarkRun refused = ztmark({"mark", "far.ztd", "-o", "far.csv"});
        QCOMPARE(refused.exitCode, 1);
        QVERIFY2(refused.err.startsWith(
                     QStringLiteral("ztmark: far.ztd: warning: outside the work area: ")),
                 qPrintable(refused.err));
        QVERIFY2(refused.err.endsWith(
                     QStringLiteral("ztmark: far.ztd: nothing written: shapes outside the work "
                                    "area are marked with --outside alone\n")),
                 qPrintable(refused.err));
        QVERIFY2(refused.err.contains(QStringLiteral("Rectangle ")), qPrintable(refused.err));
        QVERIFY(!QFile::exists(path("far.csv")));
        const ZtmarkRun told = ztmark({"mark", "far.ztd", "--outside", "-o", "far.csv"});
        QCOMPARE(told.exitCode, 0);
        QVERIFY(told.err.startsWith(QStringLiteral("ztmark: far.ztd: warning: outside")));
        ztmark({"mark", "shapes.ztd", "-o", "near.csv"}, {"shapes"});
        QVERIFY(bytesOf(path("far.csv")) == bytesOf(path("near.csv")));
    }

    void info_namesLikelyMistakes()
    {
        ZTGraphicsDocument document;
        document.view()->setWorkArea(QRect(-50, -50, 100, 100));
        const auto addRect = [&document](double xPx) {
            ZTAbstractGraphicsItem *item =
                document.itemMag()->addShape(ShapeType::Rect, QRectF(0, 0, 10, 10));
            item->setPos(xPx, 0.0);
            return item;
        };
        addRect(0.0);
        addRect(0.0);
        addRect(1000.0);
        addRect(100.0)->setTransformParam(QTransform::fromScale(0.0, 0.0));
        put(path("odd.ztd"), testsupport::savedBytes(document));
        const ZtmarkRun run = ztmark({"info", "odd.ztd"});
        QVERIFY2(run.out.contains(QStringLiteral("Outside the field: 1\n  Rectangle 2\n"
                                                 "Without length:    1\n  Rectangle 3\n"
                                                 "Marked twice:      1\n  Rectangle 0\n")),
                 qPrintable(run.out));
    }

    void drawing_isKnownByItsFirstBytes()
    {
        QVERIFY(QFile::copy(sample(QStringLiteral("plate")), path("plate")));
        const ZtmarkRun run = ztmark({"mark", "plate", "-q", "-o", "out.csv"});
        QCOMPARE(run.err, QString());
        QCOMPARE(run.exitCode, 0);
        QVERIFY(bytesOf(path("out.csv")) ==
                libraryCsv(sample(QStringLiteral("plate")), path("library.csv")));
    }

    void info_tellsWhatIsInside()
    {
        const ZtmarkRun run = ztmark({"info", "shapes.ztd"}, {"shapes"});
        QCOMPARE(run.err, QString());
        QCOMPARE(run.exitCode, 0);
        const QStringList expected{
            QStringLiteral("Format:            drawing, version 2\n"
                           "Saved by:          samples\n"
                           "Saved at:          2024-02-29 12:00:00 UTC\n"
                           "Reference screen:  1600 x 900 px, 343.126 x 193 mm, ratio 1\n"
                           "Marking distance:  131070\n"),
            QStringLiteral("Work area:         600 x 600 mm from (-300, -300)\n"
                           "Order:             none\n"
                           "Shapes:            24\n"
                           "  rectangles: 4\n"),
            QStringLiteral("  paths: 4\n"),
            QStringLiteral("Pens:              16\n  pen 1, shapes: 2\n"),
            QStringLiteral("Imported files:    1\n  logo.plt, shapes: 4\n"),
            QStringLiteral("Fonts:             0\nVariant texts:     0\nOutside the field: 0\n"
                           "Without length:    0\n")};
        for (const QString &part : expected)
            QVERIFY2(run.out.contains(part), qPrintable(part + run.out));
    }

    void fontThatFillsAPairUp_isNamedWhereItIsDrawnFrom()
    {
        const QString filledUp = QStringLiteral("  unicode-strokes.shx: stroke font\n");
        DrawingFile drawing = readFile(sample(QStringLiteral("text")));
        put(path("plain.ztd"), drawingToBytes(drawing));
        QVERIFY(!ztmark({"info", "plain.ztd"}).out.contains(filledUp));
        for (hostkit::DrawingItem &item : drawing.items)
            item.shape.replace(wideText(QStringLiteral("Strokes 0123")),
                               wideText(QStringLiteral("Strokes \u00d8123")));
        put(path("filled.ztd"), drawingToBytes(drawing));
        const ZtmarkRun run = ztmark({"info", "filled.ztd"});
        QVERIFY2(run.out.contains(filledUp), qPrintable(run.out));
    }

    void missingFonts_areNamed()
    {
        makeWithoutFont();
        for (const char *command : {"info", "mark"}) {
            const ZtmarkRun run = ztmark({command, "foreign.ztd"});
            QVERIFY2(run.err.startsWith(QStringLiteral("ztmark: foreign.ztd: warning: these fonts "
                                                       "are missing, ")),
                     qPrintable(run.err));
            QVERIFY2(run.err.contains(QStringLiteral("nobodys-simplex.shx")), qPrintable(run.err));
            QCOMPARE(run.exitCode, 0);
        }
        const ZtmarkRun run = ztmark({"info", "foreign.ztd"});
        QVERIFY2(run.out.contains(QStringLiteral("  DejaVu Sans: system font\n")),
                 qPrintable(run.out));
        QVERIFY2(run.out.contains(QStringLiteral("  nobodys-simplex.shx: stroke font, missing\n")),
                 qPrintable(run.out));
        QVERIFY2(
            run.out.contains(QStringLiteral("Variant texts:     1\n  \"SN-0001  2024-02-29\"\n")),
            qPrintable(run.out));
    }

    // A machine would run it, and the part would be a wrong one.
    void job_withoutTheFonts_isNotWritten()
    {
        makeWithoutFont();
        const QByteArray before = bytesOf(path("foreign.ztd"));
        ZtmarkRun run = ztmark({"job", "foreign.ztd", "-o", "a.nc"});
        QCOMPARE(run.exitCode, 1);
        QVERIFY2(run.err.endsWith(QStringLiteral(
                     "ztmark: foreign.ztd: nothing written: what does not show what it was given "
                     "is written with --as-shown alone\n")),
                 qPrintable(run.err));
        QVERIFY(!QFile::exists(path("a.nc")));
        QVERIFY(bytesOf(path("foreign.ztd")) == before); // no number is used up
        QCOMPARE(ztmark({"job", "foreign.ztd", "--time"}).exitCode, 0);
        run = ztmark({"job", "foreign.ztd", "--as-shown", "-o", "a.nc"});
        QCOMPARE(run.exitCode, 0);
        QVERIFY(QFile::exists(path("a.nc")));
    }

    void info_speaksChinese()
    {
        const ZtmarkRun run = ztmark({"info", "plate.ztd", "--language=zh"}, {"plate"});
        QVERIFY2(run.out.contains(QStringLiteral("  矩形：17\n")), qPrintable(run.out));
        QCOMPARE(run.exitCode, 0);
    }

    void badFile_isRefusedInOneLine_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("reason");
        const QByteArray whole = bytesOf(sample(QStringLiteral("plate")));
        QByteArray flipped = whole;
        const int items = whole.indexOf("ITEM");
        QVERIFY(items > 0);
        const int place = items + 100;
        flipped[place] = static_cast<char>(flipped[place] ^ 1);
        QTest::newRow("empty") << QByteArray() << QStringLiteral("not readable: it is empty");
        QTest::newRow("foreign") << kCorner << QStringLiteral("not readable: it is not a drawing");
        QTest::newRow("cut") << whole.left(1000)
                             << QStringLiteral("not readable: the drawing is damaged: it ends "
                                               "after 1000 of %1 bytes")
                                    .arg(whole.size());
        QTest::newRow("changed") << flipped
                                 << QStringLiteral("not readable: the drawing is damaged: section "
                                                   "ITEM does not match its checksum");
    }
    void badFile_isRefusedInOneLine()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, reason);
        put(path("bad.ztd"), bytes);
        const QString line = QStringLiteral("ztmark: bad.ztd: %1\n").arg(reason);
        const QVector<QStringList> calls{words("info bad.ztd"), words("mark bad.ztd -o out.svg"),
                                         words("render bad.ztd -o out.png"),
                                         words("convert bad.ztd -o out.ztd")};
        for (const QStringList &call : calls) {
            const ZtmarkRun run = runZtmark(call, folder->path());
            QCOMPARE(run.err, line);
            QCOMPARE(run.out, QString());
            QCOMPARE(run.exitCode, 1);
        }
        QCOMPARE(QDir(folder->path()).entryList(QDir::Files),
                 QStringList(QStringLiteral("bad.ztd")));
    }

    void missingFile_isToldAsSuch()
    {
        const ZtmarkRun run = ztmark({"info", "none.ztd"});
        QCOMPARE(run.err, QStringLiteral("ztmark: none.ztd: cannot be opened: no such file\n"));
        QCOMPARE(run.exitCode, 1);
    }

    void wrongUsage_isRefused_data()
    {
        QTest::addColumn<QString>("call");
        QTest::addColumn<QString>("error");
        const auto row = [](const char *call, const char *error) {
            QTest::newRow(call) << QString::fromLatin1(call) << QString::fromLatin1(error);
        };
        for (const char *option : {"--hatch line", "--spacing 1mm", "--angle 5", "--no-outline",
                                   "--matrix 2x2", "--gap 1mm", "--scale 2", "--rotate 90"})
            row(qPrintable(QStringLiteral("mark plate.ztd ") + QLatin1String(option)),
                qPrintable(QString::fromLatin1(option).section(QLatin1Char(' '), 0, 0) +
                           QStringLiteral(": not for a drawing, which has its own layout and "
                                          "hatch (see ztmark mark --help)")));
        row("mark plate.ztd plate.ztd", "FILE: a drawing is taken alone, without other files (see "
                                        "ztmark mark --help)");
        row("mark corner.plt plate.ztd", "FILE: a drawing is taken alone, without other files "
                                         "(see ztmark mark --help)");
        row("convert corner.plt plate.ztd -o o.ztd", "FILE: a drawing is taken alone, without "
                                                     "other files (see ztmark convert --help)");
        row("convert - - -o o.ztd", "FILE: standard input can be read only once (see ztmark "
                                    "convert --help)");
        row("convert plate.ztd", "--output is missing (see ztmark convert --help)");
        row("convert corner.plt", "--output is missing (see ztmark convert --help)");
        row("convert corner.plt corner.plt", "--output is missing (see ztmark convert --help)");
        row("convert corner.plt plate.ztd", "FILE: \"plate.ztd\" is there already; -o plate.ztd "
                                            "replaces it (see ztmark convert --help)");
        row("convert plate.ztd -o o.svg", "--output: \"o.svg\" must end in .ztd; ztmark mark and "
                                          "render write other forms (see ztmark convert --help)");
        row("render plate.ztd", "--output is missing (see ztmark render --help)");
        row("render plate.ztd -o o.csv", "--output: \"o.csv\" must end in one of .png, .svg (see "
                                         "ztmark render --help)");
        row("render plate.ztd -o o.png --size 15", "--size: \"15\" is out of range, it must be "
                                                   "from 16 to 8192 (see ztmark render --help)");
        row("render plate.ztd -o o.svg --size 99",
            "--size: an .svg has no pixels, its size is "
            "that of the drawing (see ztmark render --help)");
    }
    void wrongUsage_isRefused()
    {
        QFETCH(QString, call);
        QFETCH(QString, error);
        QVERIFY(QFile::copy(sample(QStringLiteral("plate")), path("plate.ztd")));
        put(path("corner.plt"), kCorner);
        const ZtmarkRun run = runZtmark(call.split(QLatin1Char(' ')), folder->path());
        QCOMPARE(run.err, QStringLiteral("ztmark: %1\n").arg(error));
        QCOMPARE(run.exitCode, 2);
    }

    void input_isNeverOverwritten()
    {
        const QByteArray before = bytesOf(sample(QStringLiteral("plate")));
        const ZtmarkRun run = ztmark({"convert", "plate.ztd", "-o", "./plate.ztd"}, {"plate"});
        QCOMPARE(run.err, QStringLiteral(
                              "ztmark: ./plate.ztd: would overwrite the drawing it is made of\n"));
        QCOMPARE(run.exitCode, 1);
        QVERIFY(bytesOf(path("plate.ztd")) == before);
    }

    void render_hasTheSizeAskedFor()
    {
        const ZtmarkRun run =
            ztmark({"render", "plate.ztd", "--size", "500", "-o", "out.png"}, {"plate"});
        QCOMPARE(run.err, QString());
        QCOMPARE(run.exitCode, 0);
        const QImage image(path("out.png"));
        QCOMPARE(qMax(image.width(), image.height()), 500);
        QCOMPARE(image.pixel(0, 0), qRgb(255, 255, 255));
        int coloured = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                coloured += QColor(image.pixel(x, y)).saturation() > 100 ? 1 : 0;
        }
        QVERIFY2(coloured > 1000, qPrintable(QString::number(coloured)));
    }

    void render_asSvg_isTheMarkPicture()
    {
        ztmark({"mark", "shapes.ztd", "-o", "mark.svg"}, {"shapes"});
        const ZtmarkRun run = ztmark({"render", "shapes.ztd", "-o", "render.svg"});
        QCOMPARE(run.exitCode, 0);
        QVERIFY(bytesOf(path("render.svg")).startsWith("<?xml"));
        QVERIFY(bytesOf(path("render.svg")) == bytesOf(path("mark.svg")));
    }

    void render_ofNothing_fails()
    {
        ZTGraphicsDocument document;
        put(path("empty.ztd"), testsupport::savedBytes(document));
        const ZtmarkRun run = ztmark({"render", "empty.ztd", "-o", "out.png"});
        QCOMPARE(run.err, QStringLiteral("ztmark: out.png: nothing to draw\n"));
        QCOMPARE(run.exitCode, 1);
        QVERIFY(!QFile::exists(path("out.png")));
    }

    void convert_ofARecoveryFile_leavesItsOriginBehind()
    {
        DrawingFile drawing = readFile(sample(QStringLiteral("shapes")));
        drawing.origin = hostkit::DrawingOrigin{QStringLiteral("/home/me/private.ztd"), 1, 2};
        put(path("recovery.ztd"), drawingToBytes(drawing));
        const QByteArray wide = wideText(QStringLiteral("private"));
        QVERIFY(bytesOf(path("recovery.ztd")).contains(wide.mid(4)));
        QCOMPARE(ztmark({"convert", "recovery.ztd", "-o", "plain.ztd"}).exitCode, 0);
        QVERIFY(!bytesOf(path("plain.ztd")).contains(wide.mid(4)));
        QVERIFY(!readFile(path("plain.ztd")).origin);
    }

    void unknownKinds_areToldAndKept()
    {
        DrawingFile drawing = readFile(sample(QStringLiteral("shapes")));
        hostkit::DrawingItem slot;
        slot.kind = "maker.Slot";
        slot.shape = "any bytes";
        drawing.items << slot;
        put(path("slot.ztd"), drawingToBytes(drawing));
        const ZtmarkRun run = ztmark({"mark", "slot.ztd", "-o", "slot.csv"});
        QCOMPARE(run.exitCode, 0);
        QVERIFY2(run.err.startsWith(QStringLiteral(
                     "ztmark: slot.ztd: warning: shapes of kinds that this program does not know "
                     "are neither shown nor marked (maker.Slot: 1)\n")),
                 qPrintable(run.err));
        QCOMPARE(ztmark({"convert", "slot.ztd", "-o", "kept.ztd"}).exitCode, 0);
        QCOMPARE(readFile(path("kept.ztd")).items.last().shape, slot.shape);
    }

    void convert_ofDrawings_marksAsBefore_data()
    {
        QTest::addColumn<QString>("name");
        for (const char *name : {"plate", "shapes", "text", "matrix"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }
    void convert_ofDrawings_marksAsBefore()
    {
        QFETCH(QString, name);
        DrawingFile drawing = readFile(sample(name));
        drawing.extras.sections << hostkit::DrawingSection{"LATE", "from tomorrow"};
        put(path("in.ztd"), drawingToBytes(drawing));
        const ZtmarkRun run = ztmark({"convert", "in.ztd", "-o", "out.ztd"});
        QCOMPARE(run.exitCode, 0);
        const DrawingFile saved = readFile(path("out.ztd"));
        QCOMPARE(saved.meta.programVersion, QStringLiteral(ZT_VERSION));
        QCOMPARE(saved.meta.setup, drawing.meta.setup);
        QCOMPARE(saved.items.size(), drawing.items.size());
        QCOMPARE(saved.extras.sections.size(), 1);
        QCOMPARE(saved.extras.sections.first().tag, QByteArray("LATE"));
        QCOMPARE(saved.extras.sections.first().bytes, QByteArray("from tomorrow"));
        QCOMPARE(ztmark({"convert", "out.ztd", "-o", "again.ztd"}).exitCode, 0);
        QVERIFY(itemsOf(path("again.ztd")) == itemsOf(path("out.ztd")));
        ztmark({"mark", "in.ztd", "-o", "in.csv"});
        ztmark({"mark", "out.ztd", "-o", "out.csv"});
        QVERIFY(bytesOf(path("in.csv")).startsWith("object,pen,"));
        QVERIFY(bytesOf(path("out.csv")) == bytesOf(path("in.csv")));
    }

    void convert_ofPlotterFiles_marksTheSame()
    {
        put(path("corner.plt"), kCorner);
        const ZtmarkRun before = ztmark({"mark", "corner.plt", "-o", "before.csv"});
        const ZtmarkRun run = ztmark({"convert", "corner.plt", "-o", "corner.ztd"});
        QCOMPARE(run.err, QString());
        QCOMPARE(run.exitCode, 0);
        QVERIFY(QFile::remove(path("corner.plt"))); // the drawing holds it
        const ZtmarkRun after = ztmark({"mark", "corner.ztd", "-o", "after.csv"});
        QCOMPARE(after.out, before.out);
        // In the middle of the work area, (0, 0): 2.5 by 1.25 mm.
        const QList<QByteArray> rows = bytesOf(path("after.csv")).split('\n');
        const double expected[3][2] = {{-625, 312.5}, {625, 312.5}, {625, -312.5}};
        for (int i = 0; i < 3; ++i) {
            const QList<QByteArray> fields = rows.value(i + 1).split(',');
            QVERIFY2(qAbs(fields.value(4).toDouble() - expected[i][0]) < 0.01, rows.value(i + 1));
            QVERIFY2(qAbs(fields.value(5).toDouble() - expected[i][1]) < 0.01, rows.value(i + 1));
        }
        const ZtmarkRun info = ztmark({"info", "corner.ztd"});
        QVERIFY2(info.out.contains(QStringLiteral("  paths: 1\n")), qPrintable(info.out));
        QVERIFY2(info.out.contains(QStringLiteral("Imported files:    0\n")), qPrintable(info.out));
    }

    void convert_fromOneToTheOther_needsNoOption()
    {
        put(path("corner.plt"), kCorner);
        QCOMPARE(ztmark({"convert", "corner.plt", "-o", "asked.ztd"}).exitCode, 0);
        const ZtmarkRun run = ztmark({"convert", "corner.plt", "made.ztd"});
        QCOMPARE(run.err, QString());
        QCOMPARE(run.exitCode, 0);
        ztmark({"mark", "asked.ztd", "-o", "asked.csv"});
        ztmark({"mark", "made.ztd", "-o", "made.csv"});
        QVERIFY(bytesOf(path("asked.csv")).startsWith("object,pen,"));
        QVERIFY(bytesOf(path("made.csv")) == bytesOf(path("asked.csv")));
        QCOMPARE(ztmark({"convert", "made.ztd", "Anew.ZTD"}).exitCode, 0);
        QVERIFY(QFile::exists(path("Anew.ZTD")));
    }

    void convert_ofTwoDrawings_keepsBoth()
    {
        QVERIFY(QFile::copy(sample(QStringLiteral("plate")), path("a.ztd")));
        put(path("b.ztd"), "another's work");
        QCOMPARE(ztmark({"convert", "a.ztd", "b.ztd"}).exitCode, 2);
        QCOMPARE(bytesOf(path("b.ztd")), QByteArray("another's work"));
    }

    void convert_putsPlotterFilesSideBySide()
    {
        put(path("corner.plt"), kCorner);
        ztmark({"convert", "corner.plt", "corner.plt", "-o", "two.ztd"});
        ZTGraphicsDocument document;
        Failure error;
        QVERIFY(applyDrawing(readFile(path("two.ztd")), document, {}, nullptr, &error));
        QVector<double> leftMm;
        for (QGraphicsItem *item : document.scene()->items(Qt::AscendingOrder)) {
            if (dynamic_cast<ZTAbstractGraphicsItem *>(item) != nullptr)
                leftMm << ZTCoord::getInstance()->pix2mm(item->pos().x());
        }
        QCOMPARE(leftMm.size(), 2);
        // 2.5 mm, a gap of 2 mm, 2.5 mm, about the middle.
        QVERIFY2(qAbs(leftMm[0] + 3.5) < 1e-6, qPrintable(QString::number(leftMm[0])));
        QVERIFY2(qAbs(leftMm[1] - 1.0) < 1e-6, qPrintable(QString::number(leftMm[1])));
    }

    void convert_ofStandardInput_keepsNoTemporaryName()
    {
        const ZtmarkRun run =
            runZtmark(words("convert - -o in.ztd"), folder->path(), kCorner + "PD1,1;\n");
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(run.err, QString());
        const ZtmarkRun info = ztmark({"info", "in.ztd"});
        QVERIFY2(info.out.contains(QStringLiteral("Imported files:    0\n")), qPrintable(info.out));
    }

    void foreignNames_cannotPlayWithTheTerminal()
    {
        DrawingFile drawing = readFile(sample(QStringLiteral("plate")));
        drawing.meta.programVersion = QStringLiteral("a\x1b[2Jb\nc");
        put(path("evil.ztd"), drawingToBytes(drawing));
        const ZtmarkRun run = ztmark({"info", "evil.ztd"});
        QVERIFY2(run.out.contains(QStringLiteral("Saved by:          a?[2Jb?c\n")),
                 qPrintable(run.out));
    }

private:
    /** foreign.ztd: the sample of texts in a stroke font that nobody has. */
    void makeWithoutFont()
    {
        DrawingFile drawing = readFile(sample(QStringLiteral("text")));
        const QByteArray wide = wideText(QStringLiteral("hershey-simplex.shx"));
        bool isThere = false;
        for (hostkit::DrawingItem &item : drawing.items) {
            isThere = isThere || item.shape.contains(wide);
            item.shape.replace(wide, wideText(QStringLiteral("nobodys-simplex.shx")));
        }
        QVERIFY(isThere);
        put(path("foreign.ztd"), drawingToBytes(drawing));
    }

    /** Runs the program among copies of these samples. */
    ZtmarkRun ztmark(std::initializer_list<const char *> arguments,
                     std::initializer_list<const char *> samples = {}) const
    {
        for (const char *name : samples)
            QFile::copy(sample(QString::fromLatin1(name)),
                        folder->path() + QStringLiteral("/%1.ztd").arg(QLatin1String(name)));
        QStringList texts;
        for (const char *argument : arguments)
            texts << QString::fromUtf8(argument);
        return runZtmark(texts, folder->path());
    }

    QString path(const char *name) const
    {
        return folder->path() + QLatin1Char('/') + QString::fromLatin1(name);
    }

    std::unique_ptr<testsupport::SingletonGuard> guard;
    std::unique_ptr<QTemporaryDir> folder;
};

QTEST_MAIN(tst_Drawings)
#include "tst_Drawings.moc"
