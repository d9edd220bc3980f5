#include <support/SingletonGuard.h>
#include <support/TestFonts.h>
#include <support/WarningGuard.h>

#include <ZTDrawEngineLib/document/ZTCoord.h>
#include <ZTDrawEngineLib/shapes/ZTVecGraph.h>

#include <QtCore/QBuffer>
#include <QtCore/QDataStream>
#include <QtCore/QDir>
#include <QtCore/QTemporaryDir>
#include <QtGui/QFont>
#include <QtGui/QFontDatabase>
#include <QtGui/QGuiApplication>
#include <QtTest/QTest>

#include <memory>

namespace {

using Polygons = QList<QPolygonF>;

/** Shows the shape's path in millimetres and when it is hatched. */
class Graph : public ZTVecGraph
{
public:
    using ZTVecGraph::getPath;

    Polygons polygonsMm() const { return getPath().toSubpathPolygons(QTransform()); }

    void fill() override
    {
        ++hatched;
        linesWhenHatched = getLines();
    }

    int hatched = 0;
    QPainterPath linesWhenHatched;
};

QPainterPath nullWord()
{
    QPainterPath path;
    path.addText(10, 10, QFont(), QStringLiteral("null"));
    return path;
}

Polygons steep() { return {QPolygonF(QVector<QPointF>{{0, 20}, {5, 0}})}; }
Polygons gentle() { return {QPolygonF(QVector<QPointF>{{0, 20}, {80, 0}})}; }

QByteArray saved(const ZTVecGraph &graph)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    graph.save(stream);
    return bytes;
}

bool loaded(ZTVecGraph &graph, const QByteArray &bytes)
{
    QDataStream stream(bytes);
    return graph.load(stream);
}

} // namespace

class tst_ZTVecGraph : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        guard = std::make_unique<testsupport::SingletonGuard>();
        dir = std::make_unique<QTemporaryDir>();
    }
    void cleanup()
    {
        dir.reset();
        guard.reset();
    }

    void newGraph_hasItsDefaults()
    {
        ZTVecGraph graph;
        QCOMPARE(graph.getShapeType(), ShapeType::TDOT); // Kept: not VecGraph
        QVERIFY(graph.isUpdate());
        QCOMPARE(graph.getRect(), QRectF(0, 0, 100, 100));
        QVERIFY(graph.getImagePath().isEmpty());
        QVERIFY(graph.getLines().isEmpty());
    }

    void paint_withoutDrawing_showsNull()
    {
        Graph graph;
        graph.paint();
        QVERIFY(!graph.isUpdate());
        QVERIFY(!graph.getPath().isEmpty());
        QCOMPARE(graph.getPath(), nullWord());
        QVERIFY(!graph.getLines().isEmpty());
    }

    /** The default font may go, with its name the same. */
    void paint_defaultFontGone_showsNullInWhatStandsIn()
    {
        const QFont before = QGuiApplication::font();
        const QString family = QStringLiteral("NoneVu Sans Mono");
        const int id =
            QFontDatabase::addApplicationFontFromData(testsupport::renamedMonoFont(family));
        QVERIFY(id >= 0);
        QGuiApplication::setFont(QFont(family));
        Graph there;
        there.paint();
        QCOMPARE(there.getPath(), nullWord());
        QVERIFY(QFontDatabase::removeApplicationFont(id));
        QGuiApplication::setFont(QFont(family)); // the former one keeps what it had loaded
        Graph gone;
        gone.paint();
        const QPainterPath standsIn = nullWord();
        QGuiApplication::setFont(before);
        QVERIFY(there.getPath() != standsIn);
        QCOMPARE(gone.getPath(), standsIn);
    }

    void setImagePath_marksAndDoesNotPaint()
    {
        Graph graph;
        graph.paint();
        graph.setImagePath(file("a.plt", "PU0 0;\nPD1 4;\n"));
        QVERIFY(graph.isUpdate());
        QCOMPARE(graph.getPath(), nullWord());
        graph.paint();
        QCOMPARE(graph.polygonsMm(), steep());
    }

    void paint_drawing_isScaledToPixelsAndIgnoresTheRectangle()
    {
        ZTCoord::getInstance()->setHeight(1930.0); // 10 pixels a millimetre
        Graph graph;
        graph.setImagePath(file("a.plt", "PU0 0;\nPD1 4;\n"));
        graph.setRect(QRectF(50, 60, 700, 800));
        graph.paint();
        QCOMPARE(graph.controlPointRect(), QRectF(0, 0, 50, 200));
        QCOMPARE(graph.getRect(), QRectF(50, 60, 700, 800));
    }

    void paint_unmarked_keepsTheOldResult()
    {
        Graph graph;
        graph.setImagePath(file("a.plt", "PU0 0;\nPD1 4;\n"));
        graph.setUpdate(0);
        graph.paint();
        QVERIFY(graph.getPath().isEmpty());
    }

    void paint_hatchesTheFinishedOutlineOnce()
    {
        Graph graph;
        graph.setImagePath(file("a.plt", "PU0 0;\nPD1 4;\n"));
        graph.paint();
        QCOMPARE(graph.hatched, 1);
        QVERIFY(graph.linesWhenHatched == graph.getLines());
        QVERIFY(!graph.linesWhenHatched.isEmpty());
        graph.paint();
        QCOMPARE(graph.hatched, 1);
    }

    void setImagePath_anyExtension_isRead()
    {
        for (const char *name : {"a.PLT", "b.hpgl", "c", "d.plt.txt"}) {
            Graph graph;
            graph.setImagePath(file(name, "PU0 0;\nPD1 4;\n"));
            graph.paint();
            QCOMPARE(graph.polygonsMm(), steep());
        }
    }

    void setImagePath_nothingButTheExtension_isKeptAndNotRead_data()
    {
        QTest::addColumn<QString>("name");
        for (const char *name : {".plt", ".PLT", ".Plt"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }

    void setImagePath_nothingButTheExtension_isKeptAndNotRead()
    {
        QFETCH(QString, name);
        const QString before = QDir::currentPath();
        QVERIFY(QDir::setCurrent(dir->path()));
        file(qPrintable(name), "PU0 0;\nPD1 4;\n");
        const testsupport::WarningGuard warnings;
        Graph graph;
        graph.paint();
        graph.setImagePath(name);
        QDir::setCurrent(before);
        QCOMPARE(graph.getImagePath(), name);
        QVERIFY(!graph.isUpdate());
        graph.setUpdate(1);
        graph.paint();
        QCOMPARE(graph.getPath(), nullWord());
    }

    void setImagePath_pathThatEndsInTheExtension_isRead()
    {
        Graph graph;
        graph.setImagePath(file(".plt", "PU0 0;\nPD1 4;\n"));
        graph.paint();
        QCOMPARE(graph.polygonsMm(), steep());
    }

    void setImagePath_nothingButTheExtension_keepsTheFormerDrawing()
    {
        Graph graph;
        graph.setImagePath(file("a.plt", "PU0 0;\nPD1 4;\n"));
        graph.setImagePath(QStringLiteral(".plt"));
        graph.paint();
        QCOMPARE(graph.polygonsMm(), steep());
    }

    void setImagePath_fileThatCannotBeOpened_isToldAndKeepsTheFormerDrawing()
    {
        Graph graph;
        graph.setImagePath(file("a.plt", "PU0 0;\nPD1 4;\n"));
        graph.paint();
        testsupport::WarningGuard warnings;
        const QString missing = dir->filePath(QStringLiteral("missing.plt"));
        graph.setImagePath(missing);
        const QStringList messages = warnings.take();
        QCOMPARE(messages.size(), 1);
        QVERIFY(messages.first().startsWith(QStringLiteral("file open failed...")));
        QVERIFY(messages.first().contains(QStringLiteral("No such file or directory")));
        QCOMPARE(graph.getImagePath(), missing);
        QVERIFY(graph.isUpdate());
        graph.paint();
        QCOMPARE(graph.polygonsMm(), steep());
    }

    void setImagePath_nothingToDraw_keepsTheFormerDrawingInSilence_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("no pen line") << QByteArray("IN;\nSP1;\n");
    }

    void setImagePath_nothingToDraw_keepsTheFormerDrawingInSilence()
    {
        QFETCH(QByteArray, content);
        const testsupport::WarningGuard warnings;
        Graph graph;
        graph.setImagePath(file("none.plt", content));
        graph.paint();
        QCOMPARE(graph.getPath(), nullWord());
        graph.setImagePath(file("a.plt", "PU0 0;\nPD1 4;\n"));
        graph.setImagePath(file("none.plt", content));
        graph.paint();
        QCOMPARE(graph.polygonsMm(), steep());
    }

    void setImagePath_heightOfZero_showsNull()
    {
        Graph graph;
        graph.setImagePath(file("a.plt", "PU0 0;\nPD1 4;\n"));
        graph.setImagePath(file("flat.plt", "PU0 7;\nPD100 7;\n"));
        graph.paint();
        QCOMPARE(graph.getPath(), nullWord());
        const QRectF rectPx = graph.controlPointRect();
        QVERIFY(qIsFinite(rectPx.width()) && rectPx.width() > 0);
    }

    void setImagePath_anotherFile_replacesTheDrawing()
    {
        Graph graph;
        graph.setImagePath(file("a.plt", "PU0 0;\nPD1 4;\n"));
        graph.setImagePath(file("b.plt", "PU0 0;\nPD4 1;\n"));
        graph.paint();
        QCOMPARE(graph.polygonsMm(), gentle());
    }

    void readImage_takesTheDrawingFromADevice()
    {
        QBuffer buffer;
        buffer.setData("PU0 0;\nPD1 4;\n");
        buffer.open(QIODevice::ReadOnly);
        Graph graph;
        graph.paint();
        QVERIFY(graph.readImage(buffer, QStringLiteral("-")));
        QVERIFY(graph.isUpdate());
        QCOMPARE(graph.getImagePath(), QStringLiteral("-"));
        graph.paint();
        QCOMPARE(graph.polygonsMm(), steep());
        QVERIFY(!graph.readImage(buffer, QStringLiteral("again"))); // at its end now
        QCOMPARE(graph.getImagePath(), QStringLiteral("again"));
        graph.paint();
        QCOMPARE(graph.polygonsMm(), steep());
    }

    void copy_carriesDrawingAndName()
    {
        Graph graph;
        graph.setImagePath(file("a.plt", "PU0 0;\nPD1 4;\n"));
        Graph copy(graph);
        graph.setImagePath(file("b.plt", "PU0 0;\nPD4 1;\n"));
        copy.paint();
        QCOMPARE(copy.polygonsMm(), steep());
        QVERIFY(copy.getImagePath().endsWith(QStringLiteral("a.plt")));
    }

    void save_writesThePathAlone()
    {
        ZTVecGraph graph;
        graph.setImagePath(file("a.plt", "PU0 0;\nPD1 4;\n"));
        graph.setRect(QRectF(1, 2, 3, 4));
        QByteArray expected;
        QDataStream stream(&expected, QIODevice::WriteOnly);
        stream << graph.getImagePath();
        QCOMPARE(saved(graph), expected);
    }

    void load_readsTheFileAnew()
    {
        ZTVecGraph graph;
        graph.setImagePath(file("a.plt", "PU0 0;\nPD1 4;\n"));
        const QByteArray bytes = saved(graph);
        file("a.plt", "PU0 0;\nPD4 1;\n");
        Graph restored;
        QVERIFY(loaded(restored, bytes));
        QVERIFY(restored.isUpdate());
        QCOMPARE(restored.getImagePath(), graph.getImagePath());
        restored.paint();
        QCOMPARE(restored.polygonsMm(), gentle());
    }

    void load_leavesTransformRectangleAndHatchAtTheirDefaults()
    {
        ZTVecGraph graph;
        graph.setImagePath(file("a.plt", "PU0 0;\nPD1 4;\n"));
        graph.setRect(QRectF(1, 2, 3, 4));
        graph.setTransformParam(QTransform::fromScale(3, 3));
        ZTFillParam fill;
        fill.fillType = FillType::ULine;
        graph.setFillParam(fill);
        graph.setPenId(5);
        ZTVecGraph restored;
        QVERIFY(loaded(restored, saved(graph)));
        QCOMPARE(restored.getRect(), QRectF(0, 0, 100, 100));
        QVERIFY(restored.getTransformParam().isIdentity());
        QVERIFY(restored.getFillParam() == ZTFillParam());
        QCOMPARE(restored.getPenId(), 1);
    }

    void load_movedPlotterFile_givesEmptyGraphic()
    {
        ZTVecGraph graph;
        const QString name = file("a.plt", "PU0 0;\nPD1 4;\n");
        graph.setImagePath(name);
        QVERIFY(QFile::rename(name, name + QStringLiteral(".moved")));
        testsupport::WarningGuard warnings;
        Graph restored;
        QVERIFY(loaded(restored, saved(graph)));
        QCOMPARE(warnings.take().size(), 1);
        QCOMPARE(restored.getImagePath(), name);
        restored.paint();
        QCOMPARE(restored.getPath(), nullWord());
    }

    void load_pathOfAFolder_isToldAsOfAnyFileThatCannotBeOpened()
    {
        testsupport::WarningGuard warnings;
        QByteArray bytes;
        QDataStream stream(&bytes, QIODevice::WriteOnly);
        stream << QDir::tempPath();
        Graph graph;
        QVERIFY(loaded(graph, bytes));
        const QStringList messages = warnings.take();
        QCOMPARE(messages.size(), 1);
        QVERIFY(messages.first().startsWith(QStringLiteral("file open failed...")));
    }

    void load_damagedStream_isTrueAndHarmless()
    {
        testsupport::WarningGuard warnings;
        Graph graph;
        QVERIFY(loaded(graph, QByteArray("\0\0\1", 3)));
        warnings.take();
        graph.paint();
        QCOMPARE(graph.getPath(), nullWord());
    }

private:
    /** Writes a file into the test's own folder and returns its full name. */
    QString file(const char *name, const QByteArray &content)
    {
        QFile out(dir->filePath(QString::fromLatin1(name)));
        if (!out.open(QIODevice::WriteOnly) || out.write(content) != content.size())
            qFatal("cannot write %s", name);
        return out.fileName();
    }

    std::unique_ptr<testsupport::SingletonGuard> guard;
    std::unique_ptr<QTemporaryDir> dir;
};

QTEST_MAIN(tst_ZTVecGraph)
#include "tst_ZTVecGraph.moc"
