#include "support/SingletonGuard.h"

#include <hostkit/drawing/DrawingCapture.h>
#include <hostkit/drawing/DrawingExtras.h>
#include <hostkit/drawing/DrawingFile.h>
#include <hostkit/drawing/DrawingLoader.h>
#include <hostkit/drawing/ExportDirection.h>
#include <hostkit/marks/MarkGraphBuilder.h>
#include <hostkit/marks/MarkGraphWriter.h>
#include <hostkit/setup/Factories.h>

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

/** How the files for programs of a drawing count y. */
class tst_ExportDirection : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { hostkit::registerFactories(); }

    void drawingThatSaysNothing_countsDownward()
    {
        const ZTGraphicsDocument document;
        QVERIFY(!hostkit::exportsYUp(document));
    }

    void choice_staysBesideOtherExtras_andLeavesNoTrace()
    {
        ZTGraphicsDocument document;
        hostkit::DrawingExtras extras;
        extras.fields.insert("maker.word", "x");
        hostkit::setDrawingExtras(document, extras);
        hostkit::setExportsYUp(document, true);
        QVERIFY(hostkit::exportsYUp(document));
        QCOMPARE(hostkit::drawingExtras(document).fields.value("maker.word"), QByteArray("x"));
        hostkit::setExportsYUp(document, false);
        QVERIFY(!hostkit::exportsYUp(document));
        QVERIFY(hostkit::drawingExtras(document).fields == extras.fields);
    }

    void fieldThatMakesNoSense_isDownward()
    {
        ZTGraphicsDocument document;
        hostkit::DrawingExtras extras;
        extras.fields.insert("exportYUp", "yes");
        hostkit::setDrawingExtras(document, extras);
        QVERIFY(!hostkit::exportsYUp(document));
    }

    /** A line from (1, 2) to (3, 5) in marks, and a hatch of one line. */
    void json_countsUpward_andSaysSo()
    {
        QCOMPARE(written("json", false),
                 QByteArray("{\"format\":\"mark-data\",\"version\":1,\"unit\":\"mark\","
                            "\"unitsPerMm\":500,\n"
                            "\"extent\":{\"x\":1,\"y\":-4,\"width\":2,\"height\":9},\n"
                            "\"objects\":[\n"
                            "{\"pen\":4,\"extent\":{\"x\":1,\"y\":-4,\"width\":2,\"height\":9},\n"
                            "\"polylines\":[\n[[1,2],[3,5]]],\n\"hatch\":[\n[1,0,3,-4]]}]}\n"));
        QCOMPARE(written("json", true),
                 QByteArray("{\"format\":\"mark-data\",\"version\":1,\"unit\":\"mark\","
                            "\"unitsPerMm\":500,\"yAxis\":\"up\",\n"
                            "\"extent\":{\"x\":1,\"y\":-5,\"width\":2,\"height\":9},\n"
                            "\"objects\":[\n"
                            "{\"pen\":4,\"extent\":{\"x\":1,\"y\":-5,\"width\":2,\"height\":9},\n"
                            "\"polylines\":[\n[[1,-2],[3,-5]]],\n\"hatch\":[\n[1,0,3,4]]}]}\n"));
    }

    void csv_countsUpward_andSaysSo()
    {
        QCOMPARE(written("csv", false),
                 QByteArray("object,pen,kind,piece,x1_mark,y1_mark,x2_mark,y2_mark,units_per_mm\n"
                            "1,4,outline,1,1,2,,,500\n1,4,outline,1,3,5,,,500\n"
                            "1,4,hatch,1,1,0,3,-4,500\n"));
        QCOMPARE(written("csv", true),
                 QByteArray("object,pen,kind,piece,x1_mark,y1_mark,x2_mark,y2_mark,units_per_mm,"
                            "y_axis\n"
                            "1,4,outline,1,1,-2,,,500,up\n1,4,outline,1,3,-5,,,500,up\n"
                            "1,4,hatch,1,1,0,3,4,500,up\n"));
    }

    void pictures_areTheSame()
    {
        for (const char *form : {"svg", "png"})
            QCOMPARE(written(form, true), written(form, false));
    }

private:
    static QByteArray written(const char *form, bool isYUp)
    {
        ZTMarkObject object;
        object.penId = 4;
        object.rect = QRectF(1, 2, 2, 3);
        object.lines.append(QPolygonF(QVector<QPointF>{{1.0, 2.0}, {3.0, 5.0}}));
        object.fillLines = {QLineF(1, 0, 3, -4)};
        ZTMarkGraph graph;
        graph.rect = object.rect;
        graph.objects = {object};
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("marks.") + QLatin1String(form));
        hostkit::MarkUnits units;
        units.perMm = 500.0;
        units.isYUp = isYUp;
        hostkit::Failure failure;
        if (!hostkit::saveMarkGraph(graph, units, path, &failure))
            return failure.reason.toUtf8();
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unread");
    }
};

QTEST_MAIN(tst_ExportDirection)
#include "tst_ExportDirection.moc"
