#include <hostkit/marks/MarkGraphWriter.h>

#include <support/SingletonGuard.h>

#include <hostkit/marks/MarkGraphBuilder.h>
#include <hostkit/setup/Factories.h>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryDir>
#include <QtCore/QXmlStreamReader>
#include <QtGui/QImage>
#include <QtTest/QTest>

#include <clocale>
#include <cmath>
#include <limits>

using hostkit::MarkUnits;
using hostkit::saveMarkGraph;

namespace {

QPolygonF polygon(const QVector<QPointF> &points) { return QPolygonF(points); }

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

/** Two objects: an L with two hatch lines, and a stroke to its right. Ten units a millimetre. */
ZTMarkGraph sample()
{
    ZTMarkObject corner;
    corner.penId = 2;
    corner.lines = {polygon({{0, 200}, {400, 200}, {400, 0}})};
    corner.fillLines = {QLineF(100, 150, 300, 150), QLineF(300, 160, 100, 160)};
    corner.rect = QRectF(0, 0, 400, 200);
    ZTMarkObject stroke;
    stroke.lines = {polygon({{500, 0}, {500, 200.5}})};
    stroke.rect = QRectF(500, 0, 0, 200.5);
    ZTMarkGraph graph;
    graph.objects = {corner, stroke};
    graph.rect = QRectF(0, 0, 500, 200.5);
    return graph;
}

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be read");
}

int elementsOf(const QByteArray &svg, const QString &name)
{
    QXmlStreamReader xml(svg);
    int count = 0;
    while (!xml.atEnd()) {
        if (xml.readNext() == QXmlStreamReader::StartElement && xml.name() == name)
            ++count;
    }
    return xml.hasError() ? -1 : count;
}

/** The path data in the group of the class, all paths joined. */
QString pathsOf(const QByteArray &svg, const QString &groupClass)
{
    QXmlStreamReader xml(svg);
    QString paths;
    bool inside = false;
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement() && xml.name() == QLatin1String("g"))
            inside = xml.attributes().value(QLatin1String("class")) == groupClass;
        if (xml.isStartElement() && inside && xml.name() == QLatin1String("path"))
            paths += xml.attributes().value(QLatin1String("d"));
        if (xml.isEndElement() && xml.name() == QLatin1String("g"))
            inside = false;
    }
    return paths;
}

} // namespace

class tst_MarkGraphWriter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        folder.reset(new QTemporaryDir);
        QVERIFY(folder->isValid());
    }

    void extensions_areKnownInAnyCase()
    {
        QCOMPARE(hostkit::markGraphExtensions().join(QLatin1Char(' ')),
                 QStringLiteral(".svg .png .json .csv"));
        QVERIFY(hostkit::hasMarkGraphExtension(QStringLiteral("a/b.c/OUT.Svg")));
        QVERIFY(!hostkit::hasMarkGraphExtension(QStringLiteral("svg")));
        QVERIFY(!hostkit::hasMarkGraphExtension(QStringLiteral("a.svg/b")));
    }

    void csv_hasARowForEachPointAndEachSegment()
    {
        QCOMPARE(write(QStringLiteral("a.csv"), sample()),
                 QByteArray("object,pen,kind,piece,x1_mark,y1_mark,x2_mark,y2_mark,units_per_mm\n"
                            "1,2,outline,1,0,200,,,10\n"
                            "1,2,outline,1,400,200,,,10\n"
                            "1,2,outline,1,400,0,,,10\n"
                            "1,2,hatch,1,100,150,300,150,10\n"
                            "1,2,hatch,2,300,160,100,160,10\n"
                            "2,1,outline,1,500,0,,,10\n"
                            "2,1,outline,1,500,200.5,,,10\n"));
    }

    void csv_emptyGraph_hasItsHeader()
    {
        QCOMPARE(
            write(QStringLiteral("a.csv"), ZTMarkGraph()),
            QByteArray("object,pen,kind,piece,x1_mark,y1_mark,x2_mark,y2_mark,units_per_mm\n"));
    }

    void svg_withoutJumps_showsTheMarksAlone()
    {
        const QString path = folder->filePath(QStringLiteral("plain.svg"));
        QVERIFY(hostkit::saveMarkGraph(sample(), hostkit::MarkUnits{10.0}, path, nullptr, {false}));
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray svg = file.readAll();
        QVERIFY(svg.contains("class=\"outline\""));
        QVERIFY(!svg.contains("class=\"jump"));
        QVERIFY(!svg.contains("class=\"start\""));
    }

    void json_holdsTheWholeGraph()
    {
        QCOMPARE(write(QStringLiteral("a.json"), sample()),
                 QByteArray(R"({"format":"mark-data","version":1,"unit":"mark","unitsPerMm":10,
"extent":{"x":0,"y":0,"width":500,"height":200.5},
"objects":[
{"pen":2,"extent":{"x":0,"y":0,"width":400,"height":200},
"polylines":[
[[0,200],[400,200],[400,0]]],
"hatch":[
[100,150,300,150],
[300,160,100,160]]},
{"pen":1,"extent":{"x":500,"y":0,"width":0,"height":200.5},
"polylines":[
[[500,0],[500,200.5]]],
"hatch":[]}]}
)"));
    }

    void json_isValidForEveryGraph()
    {
        ZTMarkGraph odd = sample();
        odd.objects[0].lines.prepend(QPolygonF());
        odd.objects[0].lines.append(polygon({{kNaN, 1.0 / 3.0}}));
        odd.objects.append(ZTMarkObject());
        QJsonParseError error;
        const QJsonDocument document =
            QJsonDocument::fromJson(write(QStringLiteral("a.json"), odd), &error);
        QCOMPARE(error.error, QJsonParseError::NoError);
        const QJsonArray objects = document.object().value(QLatin1String("objects")).toArray();
        QCOMPARE(objects.size(), 3);
        const QJsonArray lines = objects[0].toObject().value(QLatin1String("polylines")).toArray();
        QCOMPARE(lines.size(), 3);
        QCOMPARE(lines[0].toArray().size(), 0);
        QVERIFY(lines[2].toArray()[0].toArray()[0].isNull());
        QVERIFY(lines[2].toArray()[0].toArray()[1].toDouble() == 1.0 / 3.0); // to the last bit
        QVERIFY(QJsonDocument::fromJson(write(QStringLiteral("b.json"), ZTMarkGraph())).isObject());
    }

    void json_extent_isAroundWhatIsWritten()
    {
        ZTMarkGraph graph = sample();
        for (ZTMarkObject &object : graph.objects)
            object.rect = QRectF(-7, -8, 9, 10); // not looked at
        graph.rect = QRectF(-7, -8, 9, 10);
        graph.objects[0].fillLines.append(QLineF(-20, 150, 300, 260)); // beyond its outline
        graph.objects[1].lines.append(polygon({{900, kNaN}}));
        graph.objects.append(ZTMarkObject());
        const QJsonObject file = jsonOf(graph);
        QCOMPARE(extentOf(file), QRectF(-20, 0, 520, 260));
        QCOMPARE(extentOf(objectOf(file, 0)), QRectF(-20, 0, 420, 260));
        QCOMPARE(extentOf(objectOf(file, 1)), QRectF(500, 0, 0, 200.5));
        QCOMPARE(extentOf(objectOf(file, 2)), QRectF(0, 0, 0, 0)); // without a point
        QCOMPARE(extentOf(jsonOf(ZTMarkGraph())), QRectF(0, 0, 0, 0));
        graph.objects.remove(0); // what has no point is not at the origin
        QCOMPARE(extentOf(jsonOf(graph)), QRectF(500, 0, 0, 200.5));
    }

    void json_extent_turnsWithItsShape_data()
    {
        QTest::addColumn<QTransform>("change");
        QTest::addColumn<QSizeF>("size");
        // Of 10 x 4 mm at 500 marks a millimetre.
        QTest::newRow("as it is") << QTransform() << QSizeF(5000, 2000);
        QTest::newRow("a quarter") << QTransform(0, 1, -1, 0, 0, 0) << QSizeF(2000, 5000);
        const double diagonal = 7000 / std::sqrt(2.0);
        QTest::newRow("an eighth") << QTransform().rotate(45) << QSizeF(diagonal, diagonal);
        QTest::newRow("mirrored") << QTransform(-1, 0, 0, 1, 0, 0) << QSizeF(5000, 2000);
        QTest::newRow("mirrored and turned") << QTransform(0, 1, 1, 0, 0, 0) << QSizeF(2000, 5000);
    }

    void json_extent_turnsWithItsShape()
    {
        QFETCH(QTransform, change);
        QFETCH(QSizeF, size);
        const testsupport::SingletonGuard guard;
        hostkit::registerFactories();
        ZTGraphicsDocument document;
        ZTAbstractGraphicsItem *item = document.itemMag()->addShape(ShapeType::Rect, QRectF());
        item->setPos(300, 200);
        item->setTransformParam(QTransform::fromScale(1.0, 0.4) * change); // of 10 x 10 mm
        const QJsonObject file = jsonOf(hostkit::drawingMarks(document).graph);
        const QJsonObject object = objectOf(file, 0);
        const QRectF extent = extentOf(object);
        QVERIFY(qAbs(extent.width() - size.width()) < 0.01);
        QVERIFY(qAbs(extent.height() - size.height()) < 0.01);
        QPolygonF points;
        for (const QJsonValue &point :
             object.value(QLatin1String("polylines")).toArray()[0].toArray())
            points << QPointF(point.toArray()[0].toDouble(), point.toArray()[1].toDouble());
        QCOMPARE(extent, points.boundingRect());
        QCOMPARE(extentOf(file), extent);
    }

    void svg_isAPictureInMillimetres()
    {
        const QByteArray svg = write(QStringLiteral("a.svg"), sample());
        QVERIFY2(svg.contains("width=\"54mm\" height=\"24.05mm\" viewBox=\"-2 -2 54 24.05\""), svg);
        QCOMPARE(elementsOf(svg, QStringLiteral("circle")), 1);
        QVERIFY2(svg.contains("<circle class=\"start\" cx=\"0\" cy=\"20\""), svg);
        QVERIFY2(svg.contains("<g class=\"object\" data-pen=\"2\">"), svg);
        QCOMPARE(pathsOf(svg, QStringLiteral("outline")),
                 QStringLiteral("M0 20L40 20L40 0M50 0L50 20.05"));
        QCOMPARE(pathsOf(svg, QStringLiteral("hatch")), QStringLiteral("M10 15L30 15M30 16L10 16"));
        QCOMPARE(pathsOf(svg, QStringLiteral("jump-inside")),
                 QStringLiteral("M40 0L10 15M30 15L30 16"));
        QCOMPARE(pathsOf(svg, QStringLiteral("jump-between")), QStringLiteral("M10 16L50 0"));
    }

    void svg_groupsHaveColoursOfTheirOwn()
    {
        const QString svg = QString::fromUtf8(write(QStringLiteral("a.svg"), sample()));
        QSet<QString> colours;
        QRegularExpression stroke(QStringLiteral("class=\"([a-z-]+)\" stroke=\"(#[0-9a-f]{6})\""));
        auto found = stroke.globalMatch(svg);
        QMap<QString, QString> ofClass;
        while (found.hasNext()) {
            const auto match = found.next();
            ofClass[match.captured(1)] = match.captured(2);
            colours << match.captured(2);
        }
        QCOMPARE(ofClass.keys().join(QLatin1Char(' ')),
                 QStringLiteral("hatch jump-between jump-inside outline"));
        QCOMPARE(colours.size(), 4);
    }

    void svg_emptyGraphAndOddPoints_giveAWellFormedPicture()
    {
        QCOMPARE(elementsOf(write(QStringLiteral("a.svg"), ZTMarkGraph()), QStringLiteral("path")),
                 0);
        ZTMarkGraph odd;
        odd.objects.resize(1);
        odd.objects[0].lines = {polygon({{0, 0}, {10, 0}, {kNaN, 0}, {20, 0}, {30, 0}}),
                                polygon({{5, 5}}), QPolygonF()};
        odd.objects[0].fillLines = {QLineF(0, kNaN, 1, 1)};
        const QByteArray svg = write(QStringLiteral("b.svg"), odd);
        QCOMPARE(pathsOf(svg, QStringLiteral("outline")),
                 QStringLiteral("M0 0L1 0M2 0L3 0M0.5 0.5L0.5 0.5"));
        QVERIFY(!svg.contains("nan"));
    }

    void svg_longOutline_isCutIntoPathsThatMeet()
    {
        ZTMarkGraph graph;
        graph.objects.resize(1);
        QPolygonF outline;
        for (int i = 0; i < 20000; ++i)
            outline << QPointF(i * 10, 0);
        graph.objects[0].lines = {outline};
        const QByteArray svg = write(QStringLiteral("a.svg"), graph);
        const int paths = elementsOf(svg, QStringLiteral("path"));
        QVERIFY2(paths > 2 && paths < 100, qPrintable(QString::number(paths)));
        const QStringList runs =
            pathsOf(svg, QStringLiteral("outline")).split(QLatin1Char('M'), Qt::SkipEmptyParts);
        QCOMPARE(runs.size(), paths);
        for (int i = 1; i < runs.size(); ++i)
            QCOMPARE(runs[i].section(QLatin1Char('L'), 0, 0),
                     runs[i - 1].section(QLatin1Char('L'), -1));
        QVERIFY(runs.last().endsWith(QStringLiteral("L19999 0")));
    }

    void png_showsOutlineHatchJumpsAndStart()
    {
        write(QStringLiteral("a.png"), sample());
        const QImage image(path(QStringLiteral("a.png")));
        // 54 x 24.05 mm at 40 pixels a millimetre; the page begins at (-2, -2)
        QCOMPARE(image.size(), QSize(2160, 962));
        QCOMPARE(image.dotsPerMeterX(), 40000);
        const auto at = [&](double xMm, double yMm) {
            return image.pixelColor(qRound((xMm + 2) * 40), qRound((yMm + 2) * 40));
        };
        QCOMPARE(at(-1, -1).name(), QStringLiteral("#ffffff"));
        QCOMPARE(at(0, 20).name(), QStringLiteral("#16a34a"));
        QVERIFY(at(20, 20).lightness() < 80);                   // outline
        QVERIFY(at(50, 10).lightness() < 80);                   // second object
        QVERIFY(at(15, 15).blue() > at(15, 15).red() + 60);     // hatch
        QVERIFY(at(24, 10.4).red() > at(24, 10.4).blue() + 60); // jump from object to object
        QCOMPARE(at(25, 5).name(), QStringLiteral("#ffffff"));
    }

    void png_oddGraphs_giveAnImage_data()
    {
        QTest::addColumn<QPolygonF>("points");
        QTest::newRow("nothing") << QPolygonF();
        QTest::newRow("dot") << polygon({{5, 5}});
        QTest::newRow("no numbers") << polygon({{0, 0}, {kNaN, 5}, {9, 9}});
        QTest::newRow("very wide") << polygon({{0, 0}, {1e12, 1}});
        QTest::newRow("very small") << polygon({{0, 0}, {1e-6, 1e-6}});
    }

    void png_oddGraphs_giveAnImage()
    {
        QFETCH(QPolygonF, points);
        ZTMarkGraph graph;
        graph.objects.resize(1);
        graph.objects[0].lines = {points};
        write(QStringLiteral("a.png"), graph);
        const QImage image(path(QStringLiteral("a.png")));
        QVERIFY(!image.isNull());
        QVERIFY(qMax(image.width(), image.height()) <= 2400);
    }

    void numbers_ignoreTheLocale()
    {
        const QByteArray before = write(QStringLiteral("a.csv"), sample());
        const QByteArray svgBefore = write(QStringLiteral("a.svg"), sample());
        const QByteArray former = setlocale(LC_ALL, nullptr);
        QLocale::setDefault(QLocale(QLocale::German));
        setlocale(LC_ALL, "de_DE.UTF-8");
        const QByteArray after = write(QStringLiteral("b.csv"), sample());
        const QByteArray svgAfter = write(QStringLiteral("b.svg"), sample());
        setlocale(LC_ALL, former.constData());
        QLocale::setDefault(QLocale::c());
        QCOMPARE(after, before);
        QCOMPARE(svgAfter, svgBefore);
    }

    void failures_sayWhyAndTouchNothing_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("reason");
        QTest::newRow("unknown form")
            << QStringLiteral("a.pdf")
            << QStringLiteral("unknown form, the name must end in one of .svg, .png, .json, .csv");
        QTest::newRow("no folder")
            << QStringLiteral("none/a.svg") << QStringLiteral("the folder does not exist");
        QTest::newRow("a folder") << QStringLiteral("sub.svg") << QStringLiteral("is a folder");
    }

    void failures_sayWhyAndTouchNothing()
    {
        QFETCH(QString, name);
        QVERIFY(QDir(folder->path()).mkdir(QStringLiteral("sub.svg")));
        hostkit::Failure failure;
        QVERIFY(!saveMarkGraph(sample(), {10.0}, path(name), &failure));
        QTEST(failure.reason, "reason");
        QVERIFY(!saveMarkGraph(sample(), {10.0}, path(name), nullptr));
        QCOMPARE(QDir(folder->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
                 QStringList{QStringLiteral("sub.svg")});
    }

    void save_replacesAnOlderFileAndLeavesNoOther()
    {
        write(QStringLiteral("a.csv"), ZTMarkGraph());
        QVERIFY(write(QStringLiteral("a.csv"), sample()).contains("outline"));
        QCOMPARE(QDir(folder->path()).entryList(QDir::Files).size(), 1);
    }

private:
    QJsonObject jsonOf(const ZTMarkGraph &graph) const
    {
        return QJsonDocument::fromJson(write(QStringLiteral("extent.json"), graph)).object();
    }

    static QJsonObject objectOf(const QJsonObject &file, int index)
    {
        return file.value(QLatin1String("objects")).toArray()[index].toObject();
    }

    static QRectF extentOf(const QJsonObject &of)
    {
        const QJsonObject extent = of.value(QLatin1String("extent")).toObject();
        const auto number = [&extent](const char *key) {
            return extent.value(QLatin1String(key)).toDouble(kNaN);
        };
        return QRectF(number("x"), number("y"), number("width"), number("height"));
    }

    QString path(const QString &name) const { return folder->filePath(name); }

    QByteArray write(const QString &name, const ZTMarkGraph &graph) const
    {
        hostkit::Failure failure;
        if (!saveMarkGraph(graph, {10.0}, path(name), &failure))
            return failure.reason.toUtf8();
        return contentOf(path(name));
    }

    QScopedPointer<QTemporaryDir> folder;
};

QTEST_MAIN(tst_MarkGraphWriter)
#include "tst_MarkGraphWriter.moc"
