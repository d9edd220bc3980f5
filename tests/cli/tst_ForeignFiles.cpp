#include "ZtmarkProcess.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QLineF>
#include <QtCore/QTemporaryDir>
#include <QtGui/QImage>

#include <cmath>

namespace {

/** A red square of 40 mm with a blue open corner beside it. */
const QByteArray kPlate =
    "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"100mm\" height=\"100mm\" "
    "viewBox=\"0 0 100 100\">"
    "<rect x=\"10\" y=\"10\" width=\"40\" height=\"40\" fill=\"none\" stroke=\"red\"/>"
    "<path d=\"M60 10H80V50\" fill=\"none\" stroke=\"blue\"/></svg>\n";

/** A frame of 400 by 200 plotter units in a dialect of commas and no line ends. */
const QByteArray kOneLine = "IN;SP1;PU0,0;PD400,0,400,200,0,200,0,0;SP0;";

} // namespace

class tst_ForeignFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        folder = std::make_unique<QTemporaryDir>();
        write("plate.svg", kPlate);
        write("line.plt", kOneLine);
        write("bad.svg", "<svg><g></svg>");
    }

    void info_tellsSizeAndContents()
    {
        const ZtmarkRun run = ztmark("info plate.svg");
        QCOMPARE(run.out,
                 QStringLiteral("Format:            SVG\n"
                                "Unit:              1 mm. The file gives its size: 100 × 100 mm.\n"
                                "Size:              70 x 40 mm\n"
                                "Sheet:             100 x 100 mm\n"
                                "Layer:             \"\", 2 shapes, 0 texts\n"
                                "Colors:            #0000ff, #ff0000\n"
                                "Outlines:          1 closed, 1 open\n"
                                "Pieces:            6 lines, 0 arcs, 0 curves\n"
                                "Texts:             0\n"
                                "Cleaning mends:    nothing\n"));
        QCOMPARE(run.err, QString());
        QCOMPARE(run.exitCode, 0);
    }

    void info_ofDamage_saysLineAndColumn()
    {
        const ZtmarkRun run = ztmark("info bad.svg");
        QCOMPARE(run.exitCode, 1);
        QCOMPARE(run.out, QString());
        QVERIFY2(run.err.startsWith(
                     QStringLiteral("ztmark: bad.svg: The file is not well-formed at line 1, ")),
                 qPrintable(run.err));
    }

    void mark_keepsTrueSizeAndPens()
    {
        const ZtmarkRun run = ztmark("mark plate.svg -o plate.json");
        QCOMPARE(run.err, QString());
        QCOMPARE(run.exitCode, 0);
        const QJsonObject graph = json("plate.json");
        QCOMPARE(widthMm(graph), 70.0);
        QCOMPARE(heightMm(graph), 40.0);
        QCOMPARE(pensOf(graph), (QVector<int>{2, 12}));
    }

    void mark_sizes_data()
    {
        QTest::addColumn<QString>("options");
        QTest::addColumn<double>("width");
        QTest::addColumn<double>("height");
        QTest::newRow("width") << QStringLiteral("--width 35mm") << 35.0 << 20.0;
        QTest::newRow("height") << QStringLiteral("--height 8cm") << 140.0 << 80.0;
        QTest::newRow("size") << QStringLiteral("--size 70x80") << 70.0 << 80.0;
        QTest::newRow("unit") << QStringLiteral("--unit in") << 1778.0 << 1016.0;
        QTest::newRow("plotter unit") << QStringLiteral("--unit 0.025mm") << 1.75 << 1.0;
    }

    void mark_sizes()
    {
        QFETCH(QString, options);
        QFETCH(double, width);
        QFETCH(double, height);
        const ZtmarkRun run = ztmark("mark plate.svg -o plate.json " + options.toUtf8());
        QCOMPARE(run.exitCode, 0);
        const QJsonObject graph = json("plate.json");
        QCOMPARE(widthMm(graph), width);
        QCOMPARE(heightMm(graph), height);
    }

    void mark_plotterDialect_comesInAtTrueSize()
    {
        const ZtmarkRun run = ztmark("mark line.plt -o line.json");
        QCOMPARE(run.exitCode, 0);
        const QJsonObject graph = json("line.json");
        QCOMPARE(widthMm(graph), 10.0);
        QCOMPARE(heightMm(graph), 5.0);
    }

    void mark_openOutlines_areHatchedOnRequestAlone()
    {
        QCOMPARE(ztmark("mark plate.svg --hatch line --spacing 1mm -o a.json").exitCode, 0);
        QCOMPARE(hatchedOf(json("a.json")), 1);
        QCOMPARE(ztmark("mark plate.svg --hatch line --spacing 1mm --fill-open -o b.json").exitCode,
                 0);
        QCOMPARE(hatchedOf(json("b.json")), 2);
    }

    void mark_oneBadFile_isToldAndTheOthersGoOn()
    {
        const ZtmarkRun run = ztmark("mark plate.svg bad.svg line.plt -o all.json");
        QCOMPARE(run.exitCode, 1);
        QCOMPARE(run.err.count(QLatin1Char('\n')), 1);
        QVERIFY(run.err.startsWith(QStringLiteral("ztmark: bad.svg: ")));
        // Side by side, two millimetres apart.
        QVERIFY(qAbs(widthMm(json("all.json")) - 82.0) < 1.0);
        QCOMPARE(json("all.json").value(QStringLiteral("objects")).toArray().size(), 3);
    }

    void mark_layout_holdsAtTrueSize()
    {
        // Two columns 70 + 2 mm apart, two rows 40 + 1.
        QCOMPARE(ztmark("mark plate.svg --matrix 2x2 --gap 2mm,1mm -o a.json").exitCode, 0);
        QCOMPARE(widthMm(json("a.json")), 142.0);
        QCOMPARE(heightMm(json("a.json")), 81.0);
        QCOMPARE(json("a.json").value(QStringLiteral("objects")).toArray().size(), 8);
        QCOMPARE(ztmark("mark plate.svg --scale 0.5 -o a.json").exitCode, 0);
        QCOMPARE(widthMm(json("a.json")), 35.0);
        QCOMPARE(ztmark("mark plate.svg --rotate 90 -o a.json").exitCode, 0);
        QCOMPARE(widthMm(json("a.json")), 40.0);
        QCOMPARE(heightMm(json("a.json")), 70.0);
    }

    void mark_cleaning_comesAfterTheSize()
    {
        // Ends 0.2 mm apart in the file: 0.02 mm at a tenth of its size.
        write("gap.svg", "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"50mm\" "
                         "height=\"50mm\" viewBox=\"0 0 50 50\" fill=\"none\" stroke=\"red\">"
                         "<path d=\"M0 0H40V30\"/><path d=\"M40 30.2L0 30V0\"/></svg>");
        const QStringList clean = words("mark gap.svg --clean join=0.05mm -o a.json");
        QVERIFY(!runZtmark(clean, folder->path()).out.contains(QStringLiteral("closed")));
        const ZtmarkRun small = runZtmark(clean + words("--width 4mm"), folder->path());
        QVERIFY2(small.out.contains(QStringLiteral("1 outline closed")), qPrintable(small.out));
    }

    void mark_cleaning_joinsAndTellsFigures()
    {
        // A square of four loose lines, its first side twice.
        write("loose.plt", "PU0,0;PD400,0;PU400,400;PD400,0;PU400,400;PD0,400;PU0,0;PD0,400;"
                           "PU0,0;PD400,0;");
        const ZtmarkRun run = runZtmark(
            words("mark loose.plt --clean join=0.05mm,duplicates -o a.json"), folder->path());
        QCOMPARE(run.exitCode, 0);
        const QString cleaned =
            QStringLiteral("Cleaned:        3 pairs of ends joined, 1 outline closed, 1 doubled "
                           "piece removed; paths 5, now 1; pieces 5, now 4; jumps ");
        QVERIFY2(run.out.startsWith(cleaned), qPrintable(run.out));
        QVERIFY2(run.out.contains(QStringLiteral("Mark length:    40.000 mm\n")),
                 qPrintable(run.out));
        // Closed, so that it can be hatched.
        QCOMPARE(
            ztmark("mark loose.plt --clean join=0.05mm,duplicates --hatch line -o b.json").exitCode,
            0);
        QCOMPARE(hatchedOf(json("b.json")), 1);
    }

    void standardInput_takesEveryFormat_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<double>("width");
        QTest::newRow("svg") << kPlate << 70.0;
        QTest::newRow("plotter") << kOneLine << 10.0;
        QTest::newRow("dxf") << dxf("0\nLINE\n8\n0\n10\n0\n20\n0\n11\n30\n21\n0\n") << 30.0;
    }

    void standardInput_takesEveryFormat()
    {
        QFETCH(QByteArray, content);
        QFETCH(double, width);
        const ZtmarkRun run = runZtmark(words("mark - -q -o a.json"), folder->path(), content);
        QCOMPARE(run.err, QString());
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(widthMm(json("a.json")), width);
    }

    void standardInput_takesADrawing()
    {
        QCOMPARE(ztmark("convert plate.svg -o plate.ztd").exitCode, 0);
        const QByteArray drawing = bytesOf(folder->filePath(QStringLiteral("plate.ztd")));
        const ZtmarkRun run = runZtmark(words("mark - -q -o a.json"), folder->path(), drawing);
        QCOMPARE(run.err, QString());
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(widthMm(json("a.json")), 70.0);
        QCOMPARE(runZtmark(words("mark - --hatch line"), folder->path(), drawing).exitCode, 2);
    }

    void dxf_blackIsPenOne_redIsRed()
    {
        write("two.dxf", dxf("0\nLINE\n8\n0\n62\n7\n10\n0\n20\n0\n11\n30\n21\n0\n"
                             "0\nLINE\n8\n0\n62\n1\n10\n0\n20\n9\n11\n30\n21\n9\n"));
        QCOMPARE(ztmark("mark two.dxf -o a.json").exitCode, 0);
        QCOMPARE(pensOf(json("a.json")), (QVector<int>{1, 12}));
        QVERIFY(ztmark("info two.dxf")
                    .out.contains(QStringLiteral("Colors:            #000000, #ff0000\n")));
    }

    void render_takesForeignFiles()
    {
        QCOMPARE(ztmark("render plate.svg --size 140 -o a.png").exitCode, 0);
        QCOMPARE(QImage(folder->filePath(QStringLiteral("a.png"))).width(), 140);
        QCOMPARE(ztmark("render bad.svg -o b.png").exitCode, 1);
        QVERIFY(!QFile::exists(folder->filePath(QStringLiteral("b.png"))));
    }

    void mark_contradictions_areRefused()
    {
        QCOMPARE(ztmark("mark plate.svg --width 10 --height 10 -o a.json").exitCode, 2);
        QCOMPARE(ztmark("mark plate.svg --size 10 -o a.json").exitCode, 2);
        QCOMPARE(ztmark("mark plate.svg --split half -o a.json").exitCode, 2);
        QCOMPARE(ztmark("convert plate.svg -o a.ztd").exitCode, 0);
        QCOMPARE(ztmark("mark a.ztd --width 10 -o a.json").exitCode, 2);
        QCOMPARE(ztmark("mark a.ztd --clean weld -o a.json").exitCode, 2);
        QCOMPARE(ztmark("convert a.ztd --width 10 -o b.ztd").exitCode, 2);
    }

    void convert_keepsTheDrawing()
    {
        QCOMPARE(ztmark("convert plate.svg -o plate.ztd").exitCode, 0);
        QVERIFY(QFile::remove(folder->filePath(QStringLiteral("plate.svg"))));
        QCOMPARE(ztmark("mark plate.ztd -o plate.json").exitCode, 0);
        const QJsonObject graph = json("plate.json");
        QCOMPARE(widthMm(graph), 70.0);
        QCOMPARE(pensOf(graph), (QVector<int>{2, 12}));
    }

    /** Of a hole of 1 mm, which without a tolerance would be marked as an octagon. */
    void convert_curvesAreMarkedWithinTheUsualTolerance()
    {
        write("hole.svg", "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"10mm\" "
                          "height=\"10mm\" viewBox=\"0 0 10 10\"><circle cx=\"5\" cy=\"5\" "
                          "r=\"0.5\" fill=\"none\" stroke=\"red\"/></svg>");
        QCOMPARE(ztmark("convert hole.svg -o hole.ztd").exitCode, 0);
        QVERIFY(ztmark("info hole.ztd").out.contains(QStringLiteral("0.005 mm")));
        QCOMPARE(ztmark("mark hole.ztd -o hole.json").exitCode, 0);
        const QVector<double> chordsMm = firstChordsMm(json("hole.json"));
        QVERIFY(chordsMm.size() > 2);
        for (const double chordMm : chordsMm) {
            const double arrowMm = 0.5 - std::sqrt(0.25 - chordMm * chordMm / 4);
            QVERIFY2(arrowMm < 0.00501, qPrintable(QString::number(arrowMm)));
        }
    }

private:
    static QStringList words(const char *line)
    {
        return QString::fromLatin1(line).split(QLatin1Char(' '));
    }

    /** A drawing of these entities. */
    static QByteArray dxf(const QByteArray &entities)
    {
        return "0\nSECTION\n2\nENTITIES\n" + entities + "0\nENDSEC\n0\nEOF\n";
    }

    void write(const char *name, const QByteArray &content)
    {
        QFile file(folder->filePath(QLatin1String(name)));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(content), qint64(content.size()));
    }

    ZtmarkRun ztmark(const QByteArray &line)
    {
        return runZtmark(
            QString::fromUtf8(line).split(QLatin1Char(' '), Qt::SkipEmptyParts) +
                (line.startsWith("mark") ? QStringList{QStringLiteral("-q")} : QStringList()),
            folder->path());
    }

    QJsonObject json(const char *name)
    {
        return QJsonDocument::fromJson(bytesOf(folder->filePath(QLatin1String(name)))).object();
    }

    /** Lengths of the pieces of the first polyline. */
    static QVector<double> firstChordsMm(const QJsonObject &graph)
    {
        const double unitsPerMm = graph.value(QStringLiteral("unitsPerMm")).toDouble();
        const QJsonObject object =
            graph.value(QStringLiteral("objects")).toArray().at(0).toObject();
        const QJsonArray points =
            object.value(QStringLiteral("polylines")).toArray().at(0).toArray();
        const auto at = [&points](int i) {
            const QJsonArray point = points.at(i).toArray();
            return QPointF(point.at(0).toDouble(), point.at(1).toDouble());
        };
        QVector<double> chordsMm;
        for (int i = 1; i < points.size(); ++i)
            chordsMm << QLineF(at(i - 1), at(i)).length() / unitsPerMm;
        return chordsMm;
    }

    static double extentMm(const QJsonObject &graph, const char *side)
    {
        const double marks =
            graph.value(QStringLiteral("extent")).toObject().value(QLatin1String(side)).toDouble();
        const double unitsPerMm = graph.value(QStringLiteral("unitsPerMm")).toDouble();
        return qRound(marks / unitsPerMm * 1000) / 1000.0;
    }
    static double widthMm(const QJsonObject &graph) { return extentMm(graph, "width"); }
    static double heightMm(const QJsonObject &graph) { return extentMm(graph, "height"); }

    static QVector<int> pensOf(const QJsonObject &graph)
    {
        QVector<int> pens;
        for (const QJsonValue &object : graph.value(QStringLiteral("objects")).toArray())
            pens << object.toObject().value(QStringLiteral("pen")).toInt();
        std::sort(pens.begin(), pens.end());
        return pens;
    }

    static int hatchedOf(const QJsonObject &graph)
    {
        int hatched = 0;
        for (const QJsonValue &object : graph.value(QStringLiteral("objects")).toArray())
            hatched += object.toObject().value(QStringLiteral("hatch")).toArray().isEmpty() ? 0 : 1;
        return hatched;
    }

    std::unique_ptr<QTemporaryDir> folder;
};

QTEST_MAIN(tst_ForeignFiles)
#include "tst_ForeignFiles.moc"
