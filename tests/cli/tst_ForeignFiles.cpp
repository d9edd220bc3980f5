#include "ZtmarkProcess.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QTemporaryDir>

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
                                "Texts:             0\n"));
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

    void mark_contradictions_areRefused()
    {
        QCOMPARE(ztmark("mark plate.svg --width 10 --height 10 -o a.json").exitCode, 2);
        QCOMPARE(ztmark("mark plate.svg --size 10 -o a.json").exitCode, 2);
        QCOMPARE(ztmark("mark plate.svg --split half -o a.json").exitCode, 2);
        QCOMPARE(ztmark("mark plate.svg --matrix 2x2 -o a.json").exitCode, 2);
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

private:
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
