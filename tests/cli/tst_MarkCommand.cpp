#include "ZtmarkProcess.h"

#include <QtCore/QDir>
#include <QtCore/QElapsedTimer>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QTemporaryDir>
#include <QtGui/QImage>
#include <QtGui/QPolygonF>

#include <cmath>
#include <cstdlib>
#include <fcntl.h>
#include <unistd.h>

namespace {

/** A summary as the program prints it. */
QString summary(int objects, int polylines, int segments, const QByteArray &markLength,
                const QByteArray &jumpLength)
{
    return QStringLiteral("Objects:        %1\n"
                          "Polylines:      %2\n"
                          "Hatch segments: %3\n"
                          "Mark length:    %4\n"
                          "Jump length:    %5\n")
        .arg(objects)
        .arg(polylines)
        .arg(segments)
        .arg(QString::fromLatin1(markLength), QString::fromLatin1(jumpLength));
}

const char *const kNoJumps = "0.000 mm before ordering, 0.000 mm after";

/** Empty when the values are equal, numbers within a thousandth of a mark unit. */
QString difference(const QJsonValue &actual, const QJsonValue &expected, const QString &where)
{
    if (actual.type() != expected.type())
        return where + QStringLiteral(": another type");
    if (expected.isDouble() && qAbs(actual.toDouble() - expected.toDouble()) > 1e-3)
        return QStringLiteral("%1: %2 instead of %3")
            .arg(where)
            .arg(actual.toDouble(), 0, 'g', 17)
            .arg(expected.toDouble(), 0, 'g', 17);
    if (expected.isString() && actual != expected)
        return QStringLiteral("%1: %2").arg(where, actual.toString());
    if (expected.isArray()) {
        const QJsonArray a = actual.toArray();
        const QJsonArray e = expected.toArray();
        if (a.size() != e.size())
            return QStringLiteral("%1: %2 entries instead of %3")
                .arg(where)
                .arg(a.size())
                .arg(e.size());
        for (int i = 0; i < e.size(); ++i) {
            const QString found =
                difference(a[i], e[i], QStringLiteral("%1[%2]").arg(where).arg(i));
            if (!found.isEmpty())
                return found;
        }
    }
    if (expected.isObject()) {
        const QJsonObject a = actual.toObject();
        const QJsonObject e = expected.toObject();
        if (a.keys() != e.keys())
            return QStringLiteral("%1: other keys").arg(where);
        for (const QString &key : e.keys()) {
            const QString found =
                difference(a[key], e[key], QStringLiteral("%1.%2").arg(where, key));
            if (!found.isEmpty())
                return found;
        }
    }
    return {};
}

QJsonValue parsed(const QByteArray &json)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    return error.error == QJsonParseError::NoError ? QJsonValue(document.object())
                                                   : QJsonValue(error.errorString());
}

} // namespace

class tst_MarkCommand : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        folder.reset(new QTemporaryDir);
        QVERIFY(folder->isValid());
        for (const char *name : {"corner.plt", "frame.plt", "half.plt", "commas.plt", "flat.plt",
                                 "text.plt", "empty.plt", "pointless.plt", "dots.plt"})
            copyCliData(QString::fromLatin1(name), folder->path());
    }

    void drawing_isSummedUp()
    {
        expect(mark("corner.plt"), summary(1, 1, 0, "60.000 mm", kNoJumps));
    }

    void outputs_equalTheOnesWorkedOutByHand()
    {
        expect(mark("corner.plt -o a.svg -o a.json -o a.csv -o a.png"),
               summary(1, 1, 0, "60.000 mm", kNoJumps));
        QCOMPARE(written("a.svg"), bytesOf(cliData(QStringLiteral("corner.svg"))));
        QCOMPARE(written("a.csv"), bytesOf(cliData(QStringLiteral("corner.csv"))));
        QCOMPARE(written("a.json"), bytesOf(cliData(QStringLiteral("corner.json"))));
        const QImage image(folder->filePath(QStringLiteral("a.png")));
        QCOMPARE(image.size(), QSize(1728, 928)); // 43.2 x 23.2 mm, 40 pixels each
    }

    void hatch_equalsTheOneWorkedOutByHand_data()
    {
        QTest::addColumn<QString>("style");
        QTest::addColumn<QString>("expected");
        // The first hatch line lies 4.571 mm from the top, the outline ends lower left.
        QTest::newRow("line") << QStringLiteral("line")
                              << summary(1, 1, 4, "280.000 mm",
                                         "57.872 mm before ordering, 57.872 mm after");
        QTest::newRow("zigzag") << QStringLiteral("zigzag")
                                << summary(1, 1, 7, "295.000 mm",
                                           "15.429 mm before ordering, 15.429 mm after");
    }

    void hatch_equalsTheOneWorkedOutByHand()
    {
        QFETCH(QString, style);
        QFETCH(QString, expected);
        expect(mark("frame.plt --spacing 5 -o a.json --hatch " + style.toLatin1()), expected);
        const QByteArray byHand = bytesOf(cliData(QStringLiteral("frame-%1.json").arg(style)));
        QCOMPARE(difference(parsed(written("a.json")), parsed(byHand), style), QString());
    }

    void lengths_takeUnits_data()
    {
        QTest::addColumn<QString>("gap");
        QTest::addColumn<double>("secondX");
        QTest::newRow("default") << QString() << 21000.0;
        QTest::newRow("millimetres") << QStringLiteral("3mm") << 21500.0;
        QTest::newRow("no unit") << QStringLiteral("3") << 21500.0;
        QTest::newRow("centimetres") << QStringLiteral("0.4cm,1mm") << 22000.0;
        QTest::newRow("inches") << QStringLiteral("1in") << 32700.0;
        QTest::newRow("exponent") << QStringLiteral("1e1") << 25000.0;
        QTest::newRow("none") << QStringLiteral("0") << 20000.0;
    }

    void lengths_takeUnits()
    {
        QFETCH(QString, gap);
        QFETCH(double, secondX);
        QByteArray arguments("corner.plt --quiet -o a.csv --matrix 2x1");
        if (!gap.isEmpty())
            arguments += " --gap " + gap.toLatin1();
        expect(mark(arguments), QString());
        const QByteArray row = written("a.csv").split('\n').value(4);
        QVERIFY2(row.startsWith("2,1,outline,1,"), row);
        QVERIFY(qAbs(row.split(',').value(4).toDouble() - secondX) < 1e-6);
    }

    void matrix_isOrderedAndMeasuredBeforeAndAfter()
    {
        // Three corners of 20 x 10 mm in pitches of 22 mm; swept from the right, each jump goes
        // from an upper right corner 42 mm to the left and 10 mm down: 43.174 mm.
        expect(mark("corner.plt --scale 0.5 --matrix 3x1 --order x-max"),
               summary(3, 3, 0, "90.000 mm", "20.396 mm before ordering, 86.348 mm after"));
    }

    void rotate_turnsTheDrawing()
    {
        expect(mark("corner.plt --rotate 90 -o a.csv -q"), QString());
        const QList<QByteArray> rows = written("a.csv").split('\n');
        const double expected[3][2] = {{0, 0}, {0, 20000}, {10000, 20000}};
        for (int i = 0; i < 3; ++i) {
            const QList<QByteArray> fields = rows.value(i + 1).split(',');
            QVERIFY(qAbs(fields.value(4).toDouble() - expected[i][0]) < 1e-6);
            QVERIFY(qAbs(fields.value(5).toDouble() - expected[i][1]) < 1e-6);
        }
    }

    void dialectOfCommas_isMarkedAtTrueSize()
    {
        // One stroke of 100 units of 0.025 mm each, which are 12.5 marks.
        expect(markTrue("commas.plt -o a.json"), summary(1, 1, 0, "2.500 mm", kNoJumps));
        const QJsonObject graph = parsed(written("a.json")).toObject();
        const QJsonObject object = graph.value(QLatin1String("objects")).toArray().at(0).toObject();
        const QJsonArray stroke{QJsonArray{0, 0}, QJsonArray{1250, 0}};
        QJsonArray strokes; // appended: compilers differ on a list of one list
        strokes.append(stroke);
        QCOMPARE(difference(object.value(QLatin1String("polylines")), strokes, {}), QString());
    }

    void severalDrawings_giveSeveralObjects()
    {
        // From the corner's upper right to the frame's lower left, 2 mm on and 20 mm down.
        expect(mark("corner.plt frame.plt"),
               summary(2, 2, 0, "180.000 mm", "20.100 mm before ordering, 20.100 mm after"));
    }

    void noOutline_marksTheHatchAlone()
    {
        expect(mark("frame.plt --hatch line --spacing 5 --no-outline"),
               summary(1, 0, 4, "160.000 mm", "15.000 mm before ordering, 15.000 mm after"));
    }

    void laterOption_wins()
    {
        expect(mark("corner.plt --scale 9 --scale 2"), summary(1, 1, 0, "120.000 mm", kNoJumps));
    }

    void standardInput_isRead()
    {
        const ZtmarkRun run =
            runZtmark({QStringLiteral("mark"), QStringLiteral("-")}, folder->path(),
                      bytesOf(cliData(QStringLiteral("corner.plt"))));
        // 100 and 50 units of 0.025 mm.
        expect(run, summary(1, 1, 0, "3.750 mm", kNoJumps));
    }

    void standardInput_empty_fails() { expectFailure(mark("-"), "-: is empty"); }

    void quiet_saysNothing() { expect(mark("corner.plt --quiet"), QString()); }

    void plotterFiles_comeInAtTrueSize()
    {
        // 2.5 mm and 1.25 mm, whatever parts the numbers.
        expect(markTrue("corner.plt"), summary(1, 1, 0, "3.750 mm", kNoJumps));
    }

    void commandsOfAnyDialect_areRead()
    {
        // 2.5 mm, and from (0.25, 0.5) by (2.5, 1.25) and (1.25, 1.25) to (0.025, 0.05).
        const double length = 2.5 + std::hypot(2.25, 0.75) + 1.25 + std::hypot(1.225, 1.2);
        // The one that begins farther to the right comes first.
        const QByteArray jump = millimetres(std::hypot(0.025, 0.05));
        expect(markTrue("half.plt"), summary(1, 2, 0, millimetres(length),
                                             jump + " before ordering, " + jump + " after"));
    }

    void damage_isWarnedOf()
    {
        QByteArray drawing("PU0 0;\n");
        for (int i = 1; i <= 20; ++i)
            drawing += "PD" + QByteArray::number(i) + " 0;\n";
        drawing += "PD7 %;\n";
        const QString warning = QStringLiteral("ztmark: -: warning: damaged: numbers of command "
                                               "PD (1), first at byte %1\n")
                                    .arg(drawing.indexOf("PD7 %"));
        const ZtmarkRun run =
            runZtmark({QStringLiteral("mark"), QStringLiteral("-")}, folder->path(), drawing);
        QCOMPARE(run.err, warning);
        QCOMPARE(run.exitCode, 0);
        // What is lost is told in any case.
        QCOMPARE(runZtmark({QStringLiteral("mark"), QStringLiteral("-q"), QStringLiteral("-")},
                           folder->path(), drawing)
                     .err,
                 warning);
    }

    void dots_areMarkedAsShortLines()
    {
        const ZtmarkRun run = markTrue("dots.plt");
        QCOMPARE(run.err, QStringLiteral("ztmark: dots.plt: warning: dots: 2, taken in as lines of "
                                         "0.01 mm\n"));
        QCOMPARE(run.exitCode, 0);
        // The library begins with the dot that the file ends with: from the right end of its line
        // to the left end of the other, 2.5 + 0.01 mm across and 2.5 mm down.
        QCOMPARE(run.out, summary(1, 2, 0, "0.020 mm", "3.543 mm before ordering, 3.543 mm after"));
    }

    void emptyHatch_isWarnedOf()
    {
        const ZtmarkRun run = mark("frame.plt --hatch line --spacing 90");
        QCOMPARE(run.err, QStringLiteral("ztmark: warning: the hatch is empty: no line meets the "
                                         "drawing\n"));
        QCOMPARE(run.exitCode, 0);
    }

    void failures_areOneLineAndWriteNothing_data()
    {
        QTest::addColumn<QByteArray>("arguments");
        QTest::addColumn<QString>("complaint");
        const auto row = [](const char *arguments, const char *complaint) {
            QTest::newRow(arguments) << QByteArray(arguments) << QString::fromUtf8(complaint);
        };
        row("none.plt", "none.plt: no such file");
        row(".", ".: is a folder");
        row("empty.plt", "empty.plt: is empty");
        row("flat.plt", "flat.plt: has no extent in the direction of the size asked for");
        row("dots.plt --clean zero", "dots.plt: nothing is left of it after cleaning");
        row("text.plt", "text.plt: This is none of the drawings that can be read. Drawings are "
                        "read as HP-GL, SVG and DXF.");
        row("pointless.plt", "pointless.plt: This is none of the drawings that can be read. "
                             "Drawings are read as HP-GL, SVG and DXF.");
        row("/dev/zero", "/dev/zero: larger than 256 MiB, the limit for a drawing");
        row("corner.plt -o none/b.svg", "none/b.svg: the folder does not exist");
        row("corner.plt -o corner.plt/b.svg", "corner.plt/b.svg: the folder does not exist");
        row("corner.plt --hatch line --spacing 0.000001",
            "corner.plt: too much work: 56,568,542 hatch lines over the drawing, the limit is "
            "1,000,000"); // the diagonal of a square of 40 mm
        row("corner.plt corner.plt --matrix 1000x1000",
            "too much work: 2,000,000 objects, the limit is 1,000,000");
    }

    void failures_areOneLineAndWriteNothing()
    {
        QFETCH(QByteArray, arguments);
        QFETCH(QString, complaint);
        const QStringList before = entries();
        expectFailure(mark(arguments + " -o out.svg -o out.json"), complaint.toUtf8());
        QCOMPARE(entries(), before);
    }

    void oneFileOfSeveral_thatIsMissing_isToldAndTheOthersGoOn()
    {
        const ZtmarkRun run = mark("corner.plt none.plt -q -o a.csv");
        QCOMPARE(run.err, QStringLiteral("ztmark: none.plt: no such file\n"));
        QCOMPARE(run.exitCode, 1);
        QCOMPARE(written("a.csv"), bytesOf(cliData(QStringLiteral("corner.csv"))));
    }

    void marksOnly_isADrawingForOtherPrograms()
    {
        expect(mark("corner.plt corner.plt -q --marks-only -o a.svg -o a.dxf"), QString());
        const QByteArray svg = written("a.svg");
        QCOMPARE(svg.count("<path "), 2); // neither jumps nor a background
        QVERIFY(svg.contains("<path d=\"M0 20L40 20L40 0\"/>"));
        QVERIFY(!svg.contains("<rect"));
        for (const char *name : {"a.svg", "a.dxf"})
            QVERIFY2(markTrue(name).out.contains(QStringLiteral("Mark length:    120.000 mm\n")),
                     name);
    }

    void marksOnly_readBack_areTheSamePaths()
    {
        QFile drawing(folder->filePath(QStringLiteral("part.svg")));
        QVERIFY(drawing.open(QIODevice::WriteOnly));
        drawing.write("<svg xmlns='http://www.w3.org/2000/svg' width='60mm' height='40mm' "
                      "viewBox='0 0 60 40' fill='none' stroke='black'><path d='M0 0h60v40h-60z'/>"
                      "<circle cx='20' cy='20' r='8'/><path stroke='red' "
                      "d='M35 12L50 12C52 14 53 19 50 28'/><path stroke='blue' d='M1 2 3 7 9 1'/>"
                      "</svg>");
        drawing.close();
        markTrue("part.svg -q -o first.json --marks-only -o a.svg -o a.dxf");
        const QVector<QPolygonF> first = polylinesOf("first.json");
        QCOMPARE(first.size(), 4);
        for (const QByteArray &name : {QByteArray("a.svg"), QByteArray("a.dxf")}) {
            markTrue(name + " -q -o again.json");
            const QVector<QPolygonF> again = polylinesOf("again.json");
            QCOMPARE(again.size(), first.size());
            for (int i = 0; i < first.size(); ++i) {
                QCOMPARE(again[i].size(), first[i].size());
                for (int point = 0; point < first[i].size(); ++point) {
                    const QPointF apart = again[i][point] - first[i][point];
                    // A millionth of a millimetre, the last digit of both files; 500 units are 1
                    // mm.
                    QVERIFY2(apart.manhattanLength() < 0.001, name.constData());
                }
            }
        }
    }

    void noJumps_leavesThemOutOfPictures()
    {
        expect(mark("corner.plt corner.plt -q -o a.svg -o a.png"), QString());
        QVERIFY(written("a.svg").contains("jump-between"));
        const QImage with(folder->filePath(QStringLiteral("a.png")));
        expect(mark("corner.plt corner.plt -q --no-jumps -o a.svg -o a.png"), QString());
        const QByteArray svg = written("a.svg");
        QVERIFY(svg.contains("class=\"outline\""));
        QVERIFY(!svg.contains("class=\"jump"));
        QVERIFY(!svg.contains("class=\"start\""));
        const QImage without(folder->filePath(QStringLiteral("a.png")));
        QCOMPARE(without.size(), with.size());
        QVERIFY(redPixels(with) > 0);
        QCOMPARE(redPixels(without), 0);
    }

    // A corner has one outline: one arrow head, and not a pixel beside the lines without paper.
    void arrowsAndNoBackground_changePicturesAlone()
    {
        expect(mark("corner.plt -q --arrows --no-background --no-jumps -o a.svg -o a.png"),
               QString());
        const QByteArray svg = written("a.svg");
        QCOMPARE(svg.count("class=\"arrow\""), 1);
        QCOMPARE(svg.mid(svg.indexOf("class=\"arrow\"")).count("<path"), 1);
        QVERIFY(!svg.contains("<rect"));
        const QImage picture(folder->filePath(QStringLiteral("a.png")));
        QCOMPARE(qAlpha(picture.pixel(0, 0)), 0);
        int drawn = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x)
                drawn += qAlpha(picture.pixel(x, y)) > 128 ? 1 : 0;
        }
        QVERIFY(drawn > 100);
        expect(mark("corner.plt -q -o a.svg"), QString());
        QVERIFY(written("a.svg").contains("<rect"));
        QVERIFY(!written("a.svg").contains("class=\"arrow\""));
    }

    void output_neverOverwritesItsDrawing()
    {
        const QByteArray drawing = bytesOf(cliData(QStringLiteral("corner.plt")));
        QVERIFY(QFile::copy(cliData(QStringLiteral("corner.plt")),
                            folder->filePath(QStringLiteral("a.csv"))));
        QVERIFY(QFile::link(QStringLiteral("a.csv"), folder->filePath(QStringLiteral("b.csv"))));
        expectFailure(mark("a.csv -o ./a.csv"),
                      "./a.csv: would overwrite the drawing it is made of");
        expectFailure(mark("a.csv -o b.csv"), "b.csv: would overwrite the drawing it is made of");
        QCOMPARE(written("a.csv"), drawing);
    }

    void hugeFile_isNotRead()
    {
        QFile file(folder->filePath(QStringLiteral("huge.plt")));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.resize(300 * 1024 * 1024));
        expectFailure(mark("huge.plt"), "huge.plt: larger than 256 MiB, the limit for a drawing");
    }

    void nameWithALineBreak_isShownOnOneLine()
    {
        const ZtmarkRun run =
            runZtmark({QStringLiteral("mark"), QStringLiteral("a\n\x1b[31mb.plt")}, folder->path());
        QCOMPARE(run.err, QStringLiteral("ztmark: a??[31mb.plt: no such file\n"));
        QCOMPARE(run.exitCode, 1);
    }

    void nameOutsideAscii_isReadInEveryLocale()
    {
        const QString name = QString::fromUtf8("\xc3\xa4.plt");
        QVERIFY(QFile::copy(cliData(QStringLiteral("corner.plt")), folder->filePath(name)));
        // Through a shell, so that this test's own locale has no say in the name's bytes.
        const ZtmarkRun run = shell("LC_ALL=C '" ZT_ZTMARK "' mark \"$(printf '\\303\\244').plt\" "
                                    "-o \"$(printf '\\303\\244').csv\" --height 20mm");
        expect(run, summary(1, 1, 0, "60.000 mm", kNoJumps));
    }

    void noDisplay_andForeignLocale_changeNothing()
    {
        const ZtmarkRun run = shell("unset DISPLAY WAYLAND_DISPLAY; LC_ALL=de_DE.UTF-8 "
                                    "QT_QPA_PLATFORM=xcb '" ZT_ZTMARK
                                    "' mark corner.plt --height 20mm --scale 0.5 -o a.svg");
        expect(run, summary(1, 1, 0, "30.000 mm", kNoJumps));
        QVERIFY(written("a.svg").contains("M0 10L20 10L20 0"));
    }

    void failedWrite_leavesTheOlderFile_data()
    {
        QTest::addColumn<QString>("name");
        for (const char *name : {"a.svg", "a.json", "a.csv", "a.png"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }

    void failedWrite_leavesTheOlderFile()
    {
        QFETCH(QString, name);
        QFile older(folder->filePath(name));
        QVERIFY(older.open(QIODevice::WriteOnly) && older.write("older") == 5);
        older.close();
        const QStringList before = entries();
        // No file may grow beyond one block; the signal for it is ignored, the write fails.
        const ZtmarkRun run = shell("trap '' XFSZ; ulimit -f 1; '" ZT_ZTMARK
                                    "' mark frame.plt --matrix 30x30 --quiet -o " +
                                    name.toLatin1());
        QCOMPARE(run.err,
                 QStringLiteral("ztmark: %1: cannot be written: File too large\n").arg(name));
        QCOMPARE(run.exitCode, 1);
        QCOMPARE(bytesOf(older.fileName()), QByteArray("older"));
        QCOMPARE(entries(), before);
    }

    void failedWrite_ofOneFile_doesNotKeepTheOthers()
    {
        QVERIFY(
            QFile::link(QStringLiteral("/dev/full/x"), folder->filePath(QStringLiteral("a.svg"))));
        const ZtmarkRun run = mark("corner.plt -q -o a.svg -o b.csv");
        QCOMPARE(run.exitCode, 1);
        QVERIFY2(run.err.startsWith(QStringLiteral("ztmark: a.svg: ")), qPrintable(run.err));
        QCOMPARE(run.err.count(QLatin1Char('\n')), 1);
        QCOMPARE(written("b.csv"), bytesOf(cliData(QStringLiteral("corner.csv"))));
    }

    void progress_isShownOnATerminalAfterASecond()
    {
        const QByteArray shown =
            terminalOutput({QStringLiteral("mark"), QStringLiteral("-")}, 30000, "reading -, 2 s");
        QVERIFY2(shown.startsWith("\r\x1b[Kztmark: reading -, 1 s\r\x1b[K"), shown);
        QVERIFY2(shown.endsWith("\r\x1b[K"), shown); // taken away in the end
        QVERIFY2(!shown.contains('\n'), shown);
    }

    void progress_quiet_isNotShown()
    {
        QCOMPARE(terminalOutput({QStringLiteral("mark"), QStringLiteral("-"), QStringLiteral("-q")},
                                1300),
                 QByteArray());
    }

    void progress_ofQuickWork_isNotShown()
    {
        QCOMPARE(terminalOutput({QStringLiteral("mark"), QStringLiteral("-")}, 0), QByteArray());
    }

    void sample_isMarkedInEveryWay_data()
    {
        QTest::addColumn<QString>("hatch");
        QTest::addColumn<QString>("order");
        for (const char *hatch : {"none", "line", "zigzag"}) {
            for (const char *order : {"none", "nearest", "x-min", "x-max", "y-min", "y-max"})
                QTest::addRow("%s %s", hatch, order)
                    << QString::fromLatin1(hatch) << QString::fromLatin1(order);
        }
    }

    void sample_isMarkedInEveryWay()
    {
        QFETCH(QString, hatch);
        QFETCH(QString, order);
        const ZtmarkRun run = mark(
            QByteArray(ZT_TEST_DATA_DIR "/../../samples/logo.plt --matrix 2x2 -o a.json --hatch ") +
            hatch.toLatin1() + " --order " + order.toLatin1());
        QCOMPARE(run.err, QString());
        QCOMPARE(run.exitCode, 0);
        const QJsonArray objects =
            parsed(written("a.json")).toObject().value(QLatin1String("objects")).toArray();
        // Of each copy 10 closed outlines, to be hatched, and 16 open ones.
        QCOMPARE(objects.size(), 8);
        int closed = 0;
        for (const QJsonValue &object : objects) {
            const int outlines =
                object.toObject().value(QLatin1String("polylines")).toArray().size();
            QVERIFY(outlines == 10 || outlines == 16);
            closed += outlines == 10 ? 1 : 0;
            QCOMPARE(object.toObject().value(QLatin1String("hatch")).toArray().isEmpty(),
                     hatch == QLatin1String("none") || outlines == 16);
        }
        QCOMPARE(closed, 4);
    }

private:
    /** Marks drawings made 20 mm high, as all figures by hand are. */
    ZtmarkRun mark(const QByteArray &arguments) const
    {
        return markTrue(arguments + " --height 20mm");
    }

    ZtmarkRun markTrue(const QByteArray &arguments) const
    {
        return runZtmark(QString::fromUtf8("mark " + arguments).split(QLatin1Char(' ')),
                         folder->path());
    }

    static QByteArray millimetres(double length)
    {
        return QByteArray::number(length, 'f', 3) + " mm";
    }

    /** Jumps from object to object are red. */
    static int redPixels(const QImage &image)
    {
        int count = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QColor color = image.pixelColor(x, y);
                const bool isRed =
                    color.red() > color.green() + 100 && color.red() > color.blue() + 100;
                count += isRed ? 1 : 0;
            }
        }
        return count;
    }

    ZtmarkRun shell(const QByteArray &command) const
    {
        QProcess process;
        process.setWorkingDirectory(folder->path());
        process.start(QStringLiteral("bash"), {QStringLiteral("-c"), QString::fromUtf8(command)});
        ZtmarkRun run;
        if (process.waitForFinished(60000) && process.exitStatus() == QProcess::NormalExit)
            run.exitCode = process.exitCode();
        run.out = QString::fromUtf8(process.readAllStandardOutput());
        run.err = QString::fromUtf8(process.readAllStandardError());
        return run;
    }

    /**
     * What a run shows on a terminal as stderr. Its standard input comes when it has shown
     * `awaited` or after `patienceMs`.
     */
    QByteArray terminalOutput(const QStringList &arguments, int patienceMs,
                              const QByteArray &awaited = "\n") const
    {
        const int terminal = posix_openpt(O_RDWR | O_NOCTTY);
        if (terminal < 0 || grantpt(terminal) != 0 || unlockpt(terminal) != 0)
            return "no terminal";
        const QString name = QString::fromLocal8Bit(ptsname(terminal));
        const int kept = open(name.toLocal8Bit().constData(), O_RDWR | O_NOCTTY);
        fcntl(terminal, F_SETFL, O_NONBLOCK);

        QProcess process;
        process.setWorkingDirectory(folder->path());
        process.setStandardErrorFile(name);
        process.start(QStringLiteral(ZT_ZTMARK), arguments);
        QByteArray shown;
        QElapsedTimer waited;
        waited.start();
        while (waited.elapsed() < patienceMs && !shown.contains(awaited)) {
            process.waitForFinished(20);
            shown += readTerminal(terminal);
        }
        process.write(bytesOf(cliData(QStringLiteral("corner.plt"))));
        process.closeWriteChannel();
        const bool done = process.waitForFinished() && process.exitCode() == 0;
        shown += readTerminal(terminal);
        ::close(kept);
        ::close(terminal);
        return done ? shown : "the run failed: " + shown;
    }

    static QByteArray readTerminal(int terminal)
    {
        QByteArray bytes;
        char buffer[4096];
        for (ssize_t size; (size = read(terminal, buffer, sizeof buffer)) > 0;)
            bytes.append(buffer, static_cast<int>(size));
        return bytes;
    }

    static void expect(const ZtmarkRun &run, const QString &out)
    {
        QCOMPARE(run.err, QString());
        QCOMPARE(run.out, out);
        QCOMPARE(run.exitCode, 0);
    }

    static void expectFailure(const ZtmarkRun &run, const QByteArray &complaint)
    {
        QCOMPARE(run.err, QStringLiteral("ztmark: %1\n").arg(QString::fromUtf8(complaint)));
        QCOMPARE(run.out, QString());
        QCOMPARE(run.exitCode, 1);
    }

    QVector<QPolygonF> polylinesOf(const char *name) const
    {
        QVector<QPolygonF> polylines;
        const QJsonObject graph = QJsonDocument::fromJson(written(name)).object();
        const QJsonArray objects = graph[QStringLiteral("objects")].toArray();
        for (const QJsonValue &object : objects) {
            const QJsonArray lines = object.toObject()[QStringLiteral("polylines")].toArray();
            for (const QJsonValue &line : lines) {
                QPolygonF polyline;
                const QJsonArray points = line.toArray();
                for (const QJsonValue &point : points)
                    polyline << QPointF(point.toArray()[0].toDouble(),
                                        point.toArray()[1].toDouble());
                polylines << polyline;
            }
        }
        return polylines;
    }

    QByteArray written(const char *name) const
    {
        return bytesOf(folder->filePath(QString::fromLatin1(name)));
    }

    QStringList entries() const
    {
        return QDir(folder->path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }

    QScopedPointer<QTemporaryDir> folder;
};

QTEST_GUILESS_MAIN(tst_MarkCommand)
#include "tst_MarkCommand.moc"
