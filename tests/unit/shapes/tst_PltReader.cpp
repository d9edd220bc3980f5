#include <support/WarningGuard.h>

#include <ZTDrawEngineLib/shapes/PltLine_p.h>
#include <ZTDrawEngineLib/shapes/PltReader.h>
#include <ZTDrawEngineLib/shapes/ZTPltDrawing_p.h>

#include <QtCore/QBuffer>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

namespace {

using Polygons = QList<QPolygonF>;

bool loadBytes(PltReader &reader, const QByteArray &bytes)
{
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    return reader.load(buffer);
}

Polygons polygonsOf(const QPainterPath &path) { return path.toSubpathPolygons(QTransform()); }

Polygons polygonsIn(const QByteArray &bytes)
{
    PltReader reader;
    loadBytes(reader, bytes);
    return polygonsOf(reader.getPath());
}

QPolygonF polygon(const QVector<QPointF> &points) { return {points}; }

/** A drawing whose second point, (`x`, `y`) of 0 to 20, is read from the line under test. */
QPointF secondPoint(const QByteArray &line)
{
    const Polygons polygons = polygonsIn("PU0 0;\n" + line + "\nPD0 20;\nPD20 0;\n");
    if (polygons.size() != 1 || polygons.first().size() != 4)
        return {-1, -1};
    return {polygons.first().at(1).x(), 20 - polygons.first().at(1).y()};
}

/** Fails after its first bytes, as a file on a broken disk does. */
class BrokenDevice : public QIODevice
{
public:
    BrokenDevice() { open(QIODevice::ReadOnly | QIODevice::Unbuffered); }
    qint64 size() const override { return 1000; }

protected:
    qint64 readData(char *data, qint64) override
    {
        static const char first[] = "PU0 0;\nPD1 1;\nPD2 2;\n";
        if (wasRead)
            return -1;
        wasRead = true;
        std::copy_n(first, sizeof first - 1, data);
        return sizeof first - 1;
    }

    qint64 writeData(const char *, qint64) override { return -1; }

private:
    bool wasRead = false;
};

/** Gives blanks for ever, without a line end. */
class EndlessLine : public QIODevice
{
public:
    EndlessLine() { open(QIODevice::ReadOnly | QIODevice::Unbuffered); }
    bool isSequential() const override { return true; }

protected:
    qint64 readData(char *data, qint64 maxSize) override
    {
        std::fill_n(data, maxSize, ' ');
        return maxSize;
    }

    qint64 writeData(const char *, qint64) override { return -1; }
};

} // namespace

class tst_PltReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void newReader_isEmpty()
    {
        QVERIFY(PltReader().getPath().isEmpty());
        QCOMPARE(PltReader().getPath().elementCount(), 0);
    }

    void load_threePoints_givesOnePolyline20High()
    {
        QCOMPARE(polygonsIn("PU0 0;\nPD100 0;\nPD100 50;\n"),
                 Polygons({polygon({{0, 20}, {40, 20}, {40, 0}})}));
    }

    void load_penUp_endsTheOpenPolyline()
    {
        QCOMPARE(polygonsIn("PU0 0;\nPD10 10;\nPU20 20;\nPD40 40;\n"),
                 Polygons({polygon({{0, 20}, {5, 15}}), polygon({{10, 10}, {20, 0}})}));
    }

    void load_penUpWithoutPoint_endsTheOpenPolyline_data()
    {
        QTest::addColumn<QByteArray>("penUp");
        QTest::newRow("comma") << QByteArray("PU20,20;\n");
        QTest::newRow("bare") << QByteArray("PU;\n");
        QTest::newRow("bare, no semicolon") << QByteArray("PU\n");
        QTest::newRow("one number") << QByteArray("PU20;\n");
    }

    void load_penUpWithoutPoint_endsTheOpenPolyline()
    {
        QFETCH(QByteArray, penUp);
        QCOMPARE(polygonsIn("PU0 0;\nPD10 10;\n" + penUp + "PD20 20;\nPD40 40;\n"),
                 Polygons({polygon({{0, 20}, {5, 15}}), polygon({{10, 10}, {20, 0}})}));
    }

    void load_penDownFirst_startsAPolyline()
    {
        QCOMPARE(polygonsIn("PD0 0;\nPD10 10;\n"), Polygons({polygon({{0, 20}, {20, 0}})}));
    }

    void load_leftEdgeComesToZero_yIsFlipped()
    {
        // Plotter y from -30 to 10 is 40 high: half a millimetre a unit.
        QCOMPARE(polygonsIn("PU-100 -30;\nPD-60 10;\nPD-80 0;\n"),
                 Polygons({polygon({{0, 20}, {20, 0}, {10, 5}})}));
    }

    void load_equalPointsInARow_areKept()
    {
        QCOMPARE(polygonsIn("PU0 0;\nPD0 0;\nPD20 20;\nPD20 20;\n"),
                 Polygons({polygon({{0, 20}, {0, 20}, {20, 0}, {20, 0}})}));
    }

    void load_singlePointBetweenPolylines_countsNowhere()
    {
        QCOMPARE(polygonsIn("PU0 0;\nPD10 10;\nPU-90 900;\nPU20 20;\nPD40 40;\n"),
                 Polygons({polygon({{0, 20}, {5, 15}}), polygon({{10, 10}, {20, 0}})}));
    }

    void load_singlePointAtTheEnd_drawsNothingAndCountsInTheExtent()
    {
        // Kept: drivers end with the pen's way home, and that place is part of the extent.
        QCOMPARE(polygonsIn("PU10 10;\nPD20 20;\nPU0 0;\n"),
                 Polygons({polygon({{10, 10}, {20, 0}})}));
    }

    void load_line_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<QPointF>("point");
        const QPointF none(-1, -1);
        const auto row = [](const char *name, const QByteArray &line, const QPointF &point) {
            QTest::newRow(name) << line << point;
        };
        row("plain", "PD3 4;", {3, 4});
        row("carriage return", "PD3 4;\r", {3, 4});
        row("no semicolon", "PD3 4", {3, 4});
        row("no semicolon, carriage return", "PD3 4\r", {3, 4});
        row("leading zeros", "PD003 0004;", {3, 4});
        row("minus zero", "PD-0 4;", {0, 4});
        row("plus", "PD+3 +4;", {3, 4});
        row("white space around numbers", "PD\t3\t \t4\v;", {3, 4});
        row("no-break space around a number",
            "PD\xc2\xa0"
            "3 4;",
            {3, 4});
        row("blank first: x is an empty part", "PD 3 4;", {0, 3});
        row("two blanks: y is an empty part", "PD3  4;", {3, 0});
        row("blank last", "PD3 4 ;", {3, 4});
        row("more pairs", "PD3 4 5 6;", {3, 4});
        row("second command", "PD3 4;PD5 6;", {3, 4});
        row("rest behind the first semicolon", "PD3 4;;; x", {3, 4});
        row("only x before the semicolon", "PD3; 4;", none);
        row("comma", "PD3,4;", none);
        row("comma and blank", "PD3, 4;", {0, 4});
        row("bare", "PD;", none);
        row("only blanks", "PD  ;", {0, 0});
        row("letters count as 0", "PDx 4;", {0, 4});
        row("fraction counts as 0", "PD3.5 4;", {0, 4});
        row("exponent counts as 0", "PD1e1 4;", {0, 4});
        row("number with a letter behind", "PD3a 4;", {0, 4});
        row("hexadecimal counts as 0", "PD0x3 4;", {0, 4});
        row("two signs", "PD--3 4;", {0, 4});
        row("sign alone", "PD- 4;", {0, 4});
        row("too large counts as 0", "PD2147483648 4;", {0, 4});
        row("far too large counts as 0", "PD99999999999999999999 4;", {0, 4});
        row("too small counts as 0", "PD-2147483649 4;", {0, 4});
        row("lower case", "pd3 4;", none);
        row("mixed case", "Pd3 4;", none);
        row("blank before", " PD3 4;", none);
        row("other command", "PA3 4;", none);
        row("empty", "", none);
        row("one character", "P", none);
        row("command behind another", "SP1;PD3 4;", none);
        row("byte order mark", "\xef\xbb\xbfPD3 4;", {3, 4});
        row("two byte order marks", "\xef\xbb\xbf\xef\xbb\xbfPD3 4;", none);
        row("zero byte behind the point", QByteArray("PD3 4\0 9;", 9), {3, 4});
        row("zero byte within a number",
            QByteArray("PD3 4\0"
                       "4;",
                       8),
            {3, 4});
        row("zero byte before the blank", QByteArray("PD3\0 4;", 7), none);
        row("zero byte first", QByteArray("\0PD3 4;", 7), none);
        row("no UTF-8", "PD3\xff 4;", {0, 4});
        row("no UTF-8 behind the semicolon", "PD3 4;\xff\xfe", {3, 4});
        row("digits of another script", "PD\xd9\xa3 4;", {0, 4});
    }

    void load_line()
    {
        QFETCH(QByteArray, line);
        QFETCH(QPointF, point);
        QCOMPARE(secondPoint(line), point);
    }

    void load_largestNumbers_areRead()
    {
        // 2^32 - 1 units high, all of it within 32-bit signed numbers.
        const Polygons polygons =
            polygonsIn("PU-2147483648 -2147483648;\nPD2147483647 2147483647;");
        QCOMPARE(polygons.size(), 1);
        QCOMPARE(polygons.first().boundingRect(), QRectF(0, 0, 20, 20));
    }

    void load_lastLineWithoutLineEnd_counts()
    {
        QCOMPARE(polygonsIn("PU0 0;\nPD10 10;"), Polygons({polygon({{0, 20}, {20, 0}})}));
        QCOMPARE(polygonsIn("PU0 0;\nPD10 10"), Polygons({polygon({{0, 20}, {20, 0}})}));
    }

    void load_carriageReturnsAlone_areNoLineEnds()
    {
        PltReader reader;
        QVERIFY(!loadBytes(reader, "PU0 0;\rPD10 10;\r"));
    }

    void load_nothingToDraw_keepsTheFormerDrawing_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("line end") << QByteArray("\n");
        QTest::newRow("no pen line") << QByteArray("IN;\nSP1;\n");
        QTest::newRow("no points") << QByteArray("PU;\nPD1,2;\nPD;\n");
        QTest::newRow("one point") << QByteArray("PU1 2;\n");
        QTest::newRow("single points") << QByteArray("PU1 2;\nPU3 4;\nPU5 6;\n");
        QTest::newRow("binary") << QByteArray("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16);
    }

    void load_nothingToDraw_keepsTheFormerDrawing()
    {
        QFETCH(QByteArray, bytes);
        PltReader reader;
        QVERIFY(!loadBytes(reader, bytes));
        QVERIFY(reader.getPath().isEmpty());
        QVERIFY(loadBytes(reader, "PU0 0;\nPD1 1;\n"));
        const QPainterPath former = reader.getPath();
        QVERIFY(!loadBytes(reader, bytes));
        QCOMPARE(reader.getPath(), former);
    }

    void load_heightOfZero_isAnEmptyDrawing_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("level line") << QByteArray("PU0 5;\nPD100 5;\nPD50 5;\n");
        QTest::newRow("one place twice") << QByteArray("PU3 5;\nPD3 5;\n");
    }

    void load_heightOfZero_isAnEmptyDrawing()
    {
        QFETCH(QByteArray, bytes);
        const testsupport::WarningGuard guard;
        PltReader reader;
        QVERIFY(loadBytes(reader, "PU0 0;\nPD1 1;\n"));
        QVERIFY(loadBytes(reader, bytes));
        QVERIFY(reader.getPath().isEmpty());
        QCOMPARE(reader.getPath().elementCount(), 0);
    }

    void load_widthOfZero_isDrawn()
    {
        QCOMPARE(polygonsIn("PU7 5;\nPD7 15;\n"), Polygons({polygon({{0, 20}, {0, 0}})}));
    }

    void load_anotherDrawing_replacesTheFormer()
    {
        PltReader reader;
        QVERIFY(loadBytes(reader, "PU0 0;\nPD1 1;\n"));
        QVERIFY(loadBytes(reader, "PU0 0;\nPD2 1;\n"));
        QCOMPARE(polygonsOf(reader.getPath()), Polygons({polygon({{0, 20}, {40, 0}})}));
    }

    void load_file_isReadAndClosed()
    {
        const QTemporaryDir dir;
        const QString name = dir.filePath(QStringLiteral("drawing.hpgl"));
        QFile file(name);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("PU0 0;\r\nPD10 10;\r\n");
        file.close();
        testsupport::WarningGuard guard;
        PltReader reader;
        QVERIFY(reader.load(name));
        QCOMPARE(polygonsOf(reader.getPath()), Polygons({polygon({{0, 20}, {20, 0}})}));
        QVERIFY(guard.take().isEmpty());
    }

    void load_fileThatCannotBeOpened_isToldInTheLog_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("missing") << QStringLiteral("/nonexistent/drawing.plt");
        QTest::newRow("no name") << QString();
        QTest::newRow("folder") << QStringLiteral("/");
    }

    void load_fileThatCannotBeOpened_isToldInTheLog()
    {
        QFETCH(QString, name);
        QFile file(name);
        {
            testsupport::WarningGuard qtsOwn; // Qt warns of an empty name
            QVERIFY(!file.open(QIODevice::ReadOnly));
            qtsOwn.take();
        }
        testsupport::WarningGuard guard;
        PltReader reader;
        QVERIFY(!reader.load(name));
        const QStringList messages = guard.take();
        QVERIFY(!messages.isEmpty());
        QCOMPARE(messages.last(), QStringLiteral("file open failed... ") + file.errorString());
    }

    void load_emptyFile_isNotToldInTheLog()
    {
        const QTemporaryDir dir;
        QFile file(dir.filePath(QStringLiteral("empty.plt")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.close();
        const testsupport::WarningGuard guard;
        PltReader reader;
        QVERIFY(!reader.load(file.fileName()));
    }

    void load_deviceThatBreaks_keepsTheFormerDrawing()
    {
        // Half of a drawing is worse than none.
        PltReader reader;
        QVERIFY(loadBytes(reader, "PU0 0;\nPD5 1;\n"));
        const QPainterPath former = reader.getPath();
        BrokenDevice device;
        QVERIFY(!reader.load(device));
        QCOMPARE(reader.getPath(), former);
    }

    void load_endlessLine_givesUp()
    {
        PltReader reader;
        EndlessLine device;
        QVERIFY(!reader.load(device));
    }

    void load_deviceReadFromItsPosition_isLeftOpen()
    {
        QBuffer buffer;
        buffer.setData("PU0 0;\nPD1 1;\nPU0 0;\nPD2 1;\n");
        buffer.open(QIODevice::ReadOnly);
        buffer.seek(14);
        PltReader reader;
        QVERIFY(reader.load(buffer));
        QVERIFY(buffer.isOpen());
        QCOMPARE(polygonsOf(reader.getPath()), Polygons({polygon({{0, 20}, {40, 0}})}));
    }

    void add_atTheLimit_refuses()
    {
        ZTPltDrawing drawing(2);
        PltLine line;
        line.kind = PltLineKind::PenDown;
        line.hasPoint = true;
        QVERIFY(drawing.add(line));
        QVERIFY(drawing.add(line));
        QVERIFY(!drawing.add(line));
        QCOMPARE(ZTPltDrawing::kMaxPoints, std::size_t(50'000'000));
    }
};

QTEST_GUILESS_MAIN(tst_PltReader)
#include "tst_PltReader.moc"
