#include <vectorkit/VectorReader.h>

#include <QtCore/QDirIterator>
#include <QtCore/QFile>
#include <QtCore/QRandomGenerator>
#include <QtCore/QRegularExpression>
#include <QtTest/QTest>

using vectorkit::PieceKind;
using vectorkit::ReadFailure;
using vectorkit::readHpgl;
using vectorkit::ReadOptions;
using vectorkit::SizeSource;
using vectorkit::TextAnchor;
using vectorkit::VectorDrawing;
using vectorkit::VectorLayer;
using vectorkit::VectorNote;
using vectorkit::VectorPath;
using vectorkit::VectorShape;
using vectorkit::VectorText;

namespace {

QString toText(double value)
{
    const double rounded = std::round(value * 1000.0) / 1000.0;
    return QString::number(rounded == 0.0 ? 0.0 : rounded, 'g', 10);
}

QString toText(const QPointF &point)
{
    return toText(point.x()) + QLatin1Char(',') + toText(point.y());
}

/** "0,0 10,0 z": points; a(centre;sweep;end) for an arc, c(...) for a curve, z where it closes. */
QString toText(const VectorPath &path)
{
    QStringList parts{toText(path.start())};
    path.forEach([&](const VectorPath::Piece &piece) {
        if (piece.kind == PieceKind::Arc)
            parts << QStringLiteral("a(%1;%2;%3)")
                         .arg(toText(piece.control1), toText(piece.sweepDeg), toText(piece.to));
        else if (piece.kind == PieceKind::Cubic)
            parts << QStringLiteral("c(%1;%2;%3)")
                         .arg(toText(piece.control1), toText(piece.control2), toText(piece.to));
        else
            parts << toText(piece.to);
    });
    if (path.isClosed())
        parts << QStringLiteral("z");
    return parts.join(QLatin1Char(' '));
}

/** "1s: path / path", pen, s for stroked, f or w for filled by even-odd or winding. */
QString toText(const VectorShape &shape)
{
    QStringList paths;
    for (const VectorPath &path : shape.paths)
        paths << toText(path);
    QString head = QString::number(shape.pen);
    if (shape.isStroked)
        head += QLatin1Char('s');
    if (shape.isFilled)
        head += QLatin1Char(shape.fillRule == Qt::WindingFill ? 'w' : 'f');
    return head + QStringLiteral(": ") + paths.join(QStringLiteral(" / "));
}

/** All shapes; pages apart by "||". */
QString toText(const VectorDrawing &drawing)
{
    QStringList pages;
    for (const VectorLayer &layer : drawing.layers) {
        QStringList shapes;
        for (const VectorShape &shape : layer.shapes)
            shapes << toText(shape);
        pages << shapes.join(QStringLiteral(" | "));
    }
    return pages.join(QStringLiteral(" || "));
}

QString notesOf(const VectorDrawing &drawing)
{
    QStringList notes;
    for (const VectorNote &note : drawing.notes)
        notes << QStringLiteral("%1 x%2 at %3").arg(note.what).arg(note.count).arg(note.where);
    return notes.join(QStringLiteral("; "));
}

VectorDrawing drawingOf(const QByteArray &bytes)
{
    VectorDrawing drawing;
    ReadFailure failure;
    if (!readHpgl(bytes, {}, &drawing, &failure))
        drawing.sizeReason = QStringLiteral("refused: ") + failure.reason;
    return drawing;
}

VectorText textOf(const QByteArray &bytes, int index = 0)
{
    const VectorDrawing drawing = drawingOf(bytes);
    return drawing.textCount() > index ? drawing.layers[0].texts[index] : VectorText();
}

} // namespace

class tst_HpglReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lines_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QString>("shapes");
        const auto row = [](const char *name, const QByteArray &file, const char *shapes) {
            QTest::newRow(name) << file << QString::fromLatin1(shapes);
        };
        // 40 units are a millimetre; y runs up in the file, down here.
        const char kLine[] = "1s: 0,0 1,0 1,-2";
        row("a command a line", "IN;\nPU0,0;\nPD40,0;\nPD40,80;\n", kLine);
        row("points in a row", "IN;PU0,0;PD40,0,40,80;", kLine);
        row("blanks between", "IN;PU 0 0;PD 40 0 40 80;", kLine);
        row("lower case", "in;pu0,0;pd40,0,40,80;", kLine);
        row("no separators", "INPU0,0PD40,0PD40,80", kLine);
        row("line ends alone", "IN\r\nPU0 0\r\nPD40 0\r\nPD40 80\r\n", kLine);
        row("decimals", "IN;PU.0,0.0;PD40.00,+0;PD4e1,80.;", kLine);
        row("pen and place apart", "IN;PU;PA0,0;PD;PA40,0;PA40,80;PU;", kLine);
        row("two letters together", "INPUPA0 0PDPA40 0PDPA40 80", kLine);
        row("relative", "IN;PU0,0;PD;PR40,0,0,80;", kLine);
        row("relative and back", "IN;PU40,0;PR-40,0;PD40,0;PA40,80;PU;", kLine);
        row("a byte order mark", "\xEF\xBB\xBFIN;PU0,0;PD40,0,40,80;", kLine);
        row("a comment", "# from a script\nIN;PU0,0;PD40,0;# half\nPD40,80;", kLine);
        row("a comment command", "CO Circles drawn, pen wide;IN;PU0,0;CO\"PD9;9\";PD40,0,40,80;",
            kLine);
        row("a comment to its line's end", "CO 1st quadrant: CI drawn\nIN;PU0,0;PD40,0,40,80;",
            kLine);
        row("colons", "IN:PU0,0:PD:PA40,0,40,80", kLine);
        row("escapes around", "\x1B.(;\x1B.I81;;17:\x1B.N;19:IN;PU0,0;PD40,0,\x1B.Y40,80;\x1B.)",
            kLine);
        row("in a printer's language",
            "\x1B%-12345X@PJL SET X=1\r\n@PJL ENTER LANGUAGE=HPGL2\r\n\x1B"
            "E\x1B&l1O\x1B%0B"
            "IN;PU0,0;PD40,0,40,80;\x1B%0APD999,999 is text there\x1B"
            "E",
            kLine);
        row("bytes of a picture", "\x1B*b6W;PD9,9\x1B%0BIN;PU0,0;PD40,0,40,80;", kLine);
        row("no pen up at first", "PD40,0,40,80", kLine);
        row("closed where it began", "PU0,0;PD40,0,40,40,0,0;", "1s: 0,0 1,0 1,-1 0,0 z");
        row("runs apart", "PU0,0;PD40,0;PU40,40;PD80,40;", "1s: 0,0 1,0 | 1s: 1,-1 2,-1");
        row("a place twice", "PU0,0;PD40,0,40,0,40,80;", kLine);
        row("a dot", "PU40,40;PD;PU;", "1s: 1,-1 1,-1");
        row("a dot of no length", "PU;PA40,40;PD;PA40,40;PU;", "1s: 1,-1 1,-1");
        row("pens", "SP2;PU0,0;PD40,0;SP3;PD40,80;SP0;", "2s: 0,0 1,0 | 3s: 1,0 1,-2");
        row("no pen", "SP0;PU0,0;PD40,0;", "0s: 0,0 1,0");
        row("pages", "PU0,0;PD40,0;PG;PU0,0;PD0,40;PG;", "1s: 0,0 1,0 || 1s: 0,0 0,-1");
    }

    void lines()
    {
        QFETCH(QByteArray, file);
        QFETCH(QString, shapes);
        QCOMPARE(toText(drawingOf(file)), shapes);
    }

    void packedLines_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QString>("shapes");
        // A number n is written as 2n, or 2|n| + 1 below zero, lowest six bits first: a digit d is
        // the byte 63 + d, and 191 + d as the last one. 40 is 80 = 16 + 64 * 1: O, then 192.
        QTest::newRow("relative") << QByteArray("PE<=\xBF\xBFO\xC0\xBF\xBFO\xC0;")
                                  << QStringLiteral("1s: 0,0 1,0 1,-1");
        // -40 is 81 = 17 + 64: P, then 192.
        QTest::newRow("back, absolute")
            << QByteArray("PE<=O\xC0\xBF=\xBF\xBFP\xC0\xBF;") << QStringLiteral("1s: 1,0 0,0 -1,0");
        // Digits of five bits: 80 = 16 + 32 * 2: O, then 95 + 2 = a; zero is _.
        QTest::newRow("seven bits")
            << QByteArray("PE7<=__Oa__Oa;") << QStringLiteral("1s: 0,0 1,0 1,-1");
        // Two bits of fraction: 160 quarters are 40: 320 = 0 + 64 * 5: ?, then 196.
        QTest::newRow("fractions")
            << QByteArray("PE>\xC3<=\xBF\xBF?\xC4\xBF;") << QStringLiteral("1s: 0,0 1,0");
        QTest::newRow("a pen") << QByteArray("PE:\xC3<=\xBF\xBFO\xC0\xBF;")
                               << QStringLiteral("2s: 0,0 1,0");
        QTest::newRow("written as UTF-8")
            << QString::fromLatin1("PE<=\xBF\xBFO\xC0\xBF\xBFO\xC0;").toUtf8()
            << QStringLiteral("1s: 0,0 1,0 1,-1");
        QTest::newRow("no semicolon") << QByteArray("PE<=\xBF\xBFO\xC0\xBFPU80,0;PD80,40;")
                                      << QStringLiteral("1s: 0,0 1,0 | 1s: 2,0 2,-1");
    }

    void packedLines()
    {
        QFETCH(QByteArray, file);
        QFETCH(QString, shapes);
        QCOMPARE(toText(drawingOf("IN;SP1;" + file + "PU;")), shapes);
        QCOMPARE(drawingOf("IN;SP1;" + file).formatVersion, QStringLiteral("HP-GL/2"));
    }

    void curves_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QString>("shapes");
        const auto row = [](const char *name, const QByteArray &file, const char *shapes) {
            QTest::newRow(name) << file << QString::fromLatin1(shapes);
        };
        row("circle", "PU400,400;CI40;", "1s: 11,-10 a(10,-10;360;11,-10) z");
        row("circle in coarse chords", "PU0,0;CI40,90;", "1s: 1,0 0,-1 -1,0 0,1 1,0 z");
        row("arc", "PU40,0;PD;AA0,0,90;PU;", "1s: 1,0 a(0,0;90;0,-1)");
        row("arc clockwise", "PU40,0;PD;AA0,0,-90;", "1s: 1,0 a(0,0;-90;0,1)");
        row("relative arc", "PU40,0;PD;AR-40,0,180;", "1s: 1,0 a(0,0;180;-1,0)");
        row("whole arc closes", "PU40,0;PD;AA0,0,360;", "1s: 1,0 a(0,0;360;1,0) z");
        row("arc between lines", "PU40,-40;PD40,0;AA0,0,90;PD-40,40;",
            "1s: 1,1 1,0 a(0,0;90;0,-1) -1,-1");
        row("arc in chords", "PU40,0;PD;AA0,0,180,90;", "1s: 1,0 0,-1 -1,0");
        row("arc in chords of a length", "CT1;PU40,0;PD;AA0,0,180,90;", "1s: 1,0 a(0,0;180;-1,0)");
        row("through points", "PU40,0;PD;AT0,40,-40,0;", "1s: 1,0 a(0,0;180;-1,0)");
        row("through points clockwise", "PU40,0;PD;AT0,-40,-40,0;", "1s: 1,0 a(0,0;-180;-1,0)");
        row("through relative points", "PU40,0;PD;RT-40,40,-80,0;", "1s: 1,0 a(0,0;180;-1,0)");
        row("through points in line", "PU0,0;PD;AT40,0,80,0;", "1s: 0,0 2,0");
        row("curve", "PU0,0;PD;BZ0,40,40,40,40,0;", "1s: 0,0 c(0,-1;1,-1;1,0)");
        row("relative curve", "PU40,0;PD;BR0,40,40,40,40,0;", "1s: 1,0 c(1,-1;2,-1;2,0)");
        row("pen up on an arc", "PU40,0;AA0,0,90;PD0,80;", "1s: 0,-1 0,-2");
        row("rectangle", "PU0,0;EA80,40;", "1s: 0,0 2,0 2,-1 0,-1 0,0 z");
        row("relative rectangle", "PU40,0;ER80,40;", "1s: 1,0 3,0 3,-1 1,-1 1,0 z");
        row("filled rectangle", "PU0,0;RA80,40;", "1f: 0,0 2,0 2,-1 0,-1 0,0 z");
        row("filled and drawn", "PU0,0;RR80,40;ER80,40;", "1sf: 0,0 2,0 2,-1 0,-1 0,0 z");
        row("drawn, then filled", "PU0,0;EA80,40;RA80,40;", "1sf: 0,0 2,0 2,-1 0,-1 0,0 z");
        row("wedge", "PU0,0;EW40,0,90;", "1s: 0,0 1,0 a(0,0;90;0,-1) 0,0 z");
        row("filled wedge", "PU0,0;WG40,90,90;", "1f: 0,0 0,-1 a(0,0;90;-1,0) 0,0 z");
        row("whole wedge", "PU0,0;WG40,0,360;", "1f: 1,0 a(0,0;360;1,0) z");
    }

    void curves()
    {
        QFETCH(QByteArray, file);
        QFETCH(QString, shapes);
        QCOMPARE(toText(drawingOf(file)), shapes);
    }

    void polygons_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QString>("shapes");
        const auto row = [](const char *name, const QByteArray &file, const char *shapes) {
            QTest::newRow(name) << file << QString::fromLatin1(shapes);
        };
        row("filled", "PU0,0;PM0;PD40,0,40,40;PM2;FP;", "1f: 0,0 1,0 1,-1 0,0 z");
        row("filled and drawn", "PU0,0;PM0;PD40,0,40,40,0,0;PM2;FP;EP;", "1sf: 0,0 1,0 1,-1 0,0 z");
        row("by winding", "PU0,0;PM0;PD40,0,40,40;PM2;FP1;", "1w: 0,0 1,0 1,-1 0,0 z");
        row("with a hole", "PU0,0;PM0;PD120,0,120,120,0,120;PM1;PU40,40;PD80,40,80,80;PM2;FP;",
            "1f: 0,0 3,0 3,-3 0,-3 0,0 z / 1,-1 2,-1 2,-2 1,-1 z");
        row("a circle", "PU;PA40,40;PM0;CI40;PM2;FP;EP;", "1sf: 2,-1 a(1,-1;360;2,-1) z");
        row("in two pens", "SP1;PU0,0;PM0;PD40,0,40,40;PM2;FP;SP2;EP;",
            "1f: 0,0 1,0 1,-1 0,0 z | 2s: 0,0 1,0 1,-1 0,0 z");
        row("edges drawn with the pen down alone", "PU0,0;PM0;PD40,0;PU40,40;PM2;EP;",
            "1s: 0,0 1,0");
        row("pen down before", "PU0,0;PD;PM0;PA40,0,40,40;PM2;FP;PU;", "1f: 0,0 1,0 1,-1 0,0 z");
        row("drawing goes on", "PU0,0;PM0;PD40,0,40,40;PM2;FP;PU80,0;PD120,0;",
            "1f: 0,0 1,0 1,-1 0,0 z | 1s: 2,0 3,0");
    }

    void polygons()
    {
        QFETCH(QByteArray, file);
        QFETCH(QString, shapes);
        QCOMPARE(toText(drawingOf(file)), shapes);
    }

    void frames_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QString>("shapes");
        const auto row = [](const char *name, const QByteArray &file, const char *shapes) {
            QTest::newRow(name) << file << QString::fromLatin1(shapes);
        };
        row("scaled", "IP0,0,4000,4000;SC0,100,0,100;PU0,0;PD1,0,1,2;", "1s: 0,0 1,0 1,-2");
        row("scaled from an edge", "IP400,400,4400,4400;SC-50,50,-50,50;PU-50,-50;PD0,0;",
            "1s: 10,-10 60,-60");
        row("scaled downwards", "IP0,4000,4000,0;SC0,100,0,100;PU0,0;PD0,1;", "1s: 0,-100 0,-99");
        row("scaled evenly", "IP0,0,8000,4000;SC0,100,0,100,1,0,0;PU0,0;PD1,1;", "1s: 0,0 1,-1");
        row("scaled evenly, centred", "IP0,0,8000,4000;SC0,100,0,100,1;PU0,0;PD1,1;",
            "1s: 50,0 51,-1");
        row("by a factor", "SC0,40,0,40,2;IP0,0,1,1;PU0,0;PD1,2;", "1s: 0,0 1,-2");
        row("scale off", "IP0,0,4000,4000;SC0,1,0,1;SC;PU0,0;PD40,0;", "1s: 0,0 1,0");
        row("a pen stays through a new scale", "IP0,0,4000,4000;PU40,40;SC0,100,0,100;PD;PR1,0;",
            "1s: 1,-1 2,-1");
        row("P2 follows P1", "IP0,0,4000,4000;IP400,400;SC0,100,0,100;PU0,0;PD1,0;",
            "1s: 10,-10 11,-10");
        row("percent of the sheet", "PS8000,4000;IR0,0,50,100;SC0,100,0,100;PU0,0;PD1,1;",
            "1s: 0,0 1,-1");
        row("arcs on an uneven scale", "IP0,0,4000,8000;SC0,100,0,100;PU1,0;PD;AA0,0,90;",
            // Two eighths of 1 by 2: handles of 4/3 tan(11.25 degrees) = 0.2652 half axes.
            "1s: 1,0 c(1,-0.53;0.895,-1.039;0.707,-1.414) c(0.52,-1.789;0.265,-2;0,-2)");
        // The origin goes to the corner that is then at the lower left: here 100 mm to the right.
        row("turned", "PS4000,8000;RO90;PU0,0;PD40,0,40,80;", "1s: 100,0 100,-1 98,-1");
        row("turned by half", "PS4000,8000;RO180;PU0,0;PD40,80;", "1s: 100,-200 99,-198");
        row("turned by three quarters", "PS4000,8000;RO270;PU0,0;PD40,80;", "1s: 0,-200 2,-199");
        row("in a window", "IW0,0,40,40;PU-40,20;PD80,20;", "1s: 0,-0.5 1,-0.5");
        row("in and out of a window", "IW0,0,40,40;PU20,20;PD80,20,80,30,20,30;",
            "1s: 0.5,-0.5 1,-0.5 | 1s: 1,-0.75 0.5,-0.75");
        row("out of the window", "PU0,0;PD40,0;IW0,0,40,40;PU80,80;PD90,90;", "1s: 0,0 1,0");
        row("window off", "IW0,0,40,40;IW;PU0,0;PD80,0;", "1s: 0,0 2,0");
        row("circle in a window", "PU0,0;IW0,-400,400,400;CI40;",
            "1s: 0,1 a(0,0;90;1,0) a(0,0;90;0,-1)");
        row("window on a scale", "IP0,0,4000,4000;SC0,100,0,100;IW0,0,1,1;PU0,0;PD5,0;",
            "1s: 0,0 1,0");
        row("area in a window", "IW0,0,40,40;PU20,20;RA80,80;",
            "1f: 1,-1 0.5,-1 0.5,-0.5 1,-0.5 1,-1 z");
        row("IN undoes all", "IP0,0,4000,4000;SC0,1,0,1;RO90;IW0,0,1,1;SP3;IN;PU0,0;PD40,0;",
            "3s: 0,0 1,0");
    }

    void frames()
    {
        QFETCH(QByteArray, file);
        QFETCH(QString, shapes);
        QCOMPARE(toText(drawingOf(file)), shapes);
    }

    void size_isKnownByTheFormat()
    {
        const VectorDrawing drawing = drawingOf("IN;PU0,0;PD40,0;");
        QCOMPARE(drawing.unitMm, 0.025);
        QCOMPARE(int(drawing.sizeSource), int(SizeSource::Format));
        QCOMPARE(drawing.formatVersion, QStringLiteral("HP-GL"));
        QVERIFY(drawing.declaredSizeMm.isEmpty());
        QCOMPARE(drawingOf("PS8000,4000;PU0,0;PD40,0").declaredSizeMm, QSizeF(200, 100));
    }

    void size_scaledToAnUnknownSheet_isGuessed()
    {
        for (const char *file : {"SC0,100,0,100;PU0,0;PD1,0;", "IP400,400;SC0,9,0,9;PD1,1;"})
            QCOMPARE(int(drawingOf(file).sizeSource), int(SizeSource::Guessed));
        // A4: 250 mm lie between the scaling points.
        QCOMPARE(toText(drawingOf("SC0,1000,0,720;PU0,0;PD4,0")),
                 QStringLiteral("1s: 6.25,-6.975 7.25,-6.975"));
    }

    void size_chosen_winsOverTheFormat()
    {
        ReadOptions options;
        options.unitMm = 0.01;
        VectorDrawing drawing;
        QVERIFY(readHpgl("PU0,0;PD100,0;", options, &drawing, nullptr));
        QCOMPARE(toText(drawing), QStringLiteral("1s: 0,0 1,0"));
        QCOMPARE(int(drawing.sizeSource), int(SizeSource::Chosen));
    }

    void pens_haveColoursAndWidths()
    {
        const VectorDrawing drawing =
            drawingOf("SP2;PU0,0;PD9,9;PU;NP8;PC2,0,128,255;PW0.5;PD20,9;");
        QCOMPARE(drawing.layers[0].shapes[0].color, QColor(255, 0, 0));
        QCOMPARE(drawing.layers[0].shapes[0].strokeWidthMm, 0.0);
        QCOMPARE(drawing.layers[0].shapes[1].color, QColor(0, 128, 255));
        QCOMPARE(drawing.layers[0].shapes[1].strokeWidthMm, 0.5);
    }

    void labels_standWhereThePlotterPutsThem()
    {
        const VectorText text = textOf("PU400,400;SI0.2,0.3;LBabc\x03");
        QCOMPARE(text.text, QStringLiteral("abc"));
        QCOMPARE(text.positionMm, QPointF(10, -10));
        QCOMPARE(text.heightMm, 3.0);
        QCOMPARE(text.lengthMm, 2 * 3.0 + 2.0); // cells of 1.5 widths, the last without its gap
        QCOMPARE(text.angleDeg, 0.0);
        QVERIFY(!text.isMirrored);
        QCOMPARE(text.widthFactor, 2.0 / 3.0 / (0.187 / 0.269));
    }

    void labels_direction_data()
    {
        QTest::addColumn<QByteArray>("command");
        QTest::addColumn<double>("angleDeg");
        QTest::newRow("up") << QByteArray("DI0,1;") << 90.0;
        QTest::newRow("down the slope") << QByteArray("DI1,-1;") << -45.0;
        QTest::newRow("back") << QByteArray("DI0,1;DI;") << 0.0;
        QTest::newRow("relative") << QByteArray("IP0,0,1000,2000;DR2,1;") << 45.0;
        QTest::newRow("turned sheet") << QByteArray("RO90;DI0,1;") << 180.0;
        QTest::newRow("upside down") << QByteArray("SI-0.2,-0.3;") << 180.0;
    }

    void labels_direction()
    {
        QFETCH(QByteArray, command);
        QFETCH(double, angleDeg);
        const VectorText text = textOf(command + "LBx\x03");
        QCOMPARE(text.text, QStringLiteral("x"));
        QVERIFY2(qAbs(qAbs(text.angleDeg - angleDeg)) < 1e-9,
                 qPrintable(QString::number(text.angleDeg)));
        QVERIFY(!text.isMirrored);
    }

    void labels_styles()
    {
        QCOMPARE(textOf("SL1;LBx\x03").slantDeg, 45.0);
        QVERIFY(textOf("SI-0.2,0.3;LBx\x03").isMirrored);
        QCOMPARE(textOf("IP0,0,4000,8000;SR2,1;LBx\x03").heightMm, 2.0);
        QCOMPARE(textOf("IP0,0,4000,8000;SR2,1;LBx\x03").lengthMm, 2.0);
        QCOMPARE(textOf("SP4;LBx\x03").pen, 4);
    }

    void labels_origins_data()
    {
        QTest::addColumn<int>("origin");
        QTest::addColumn<int>("anchor");
        QTest::addColumn<QPointF>("place");
        // Letters 2 mm wide and 4 mm high, at (0, 0).
        QTest::newRow("1") << 1 << 0 << QPointF(0, 0);
        QTest::newRow("2") << 2 << 0 << QPointF(0, 2);
        QTest::newRow("3") << 3 << 0 << QPointF(0, 4);
        QTest::newRow("5") << 5 << 1 << QPointF(0, 2);
        QTest::newRow("9") << 9 << 2 << QPointF(0, 4);
        QTest::newRow("11") << 11 << 0 << QPointF(1, -2);
        QTest::newRow("19") << 19 << 2 << QPointF(-1, 6);
    }

    void labels_origins()
    {
        QFETCH(int, origin);
        QFETCH(int, anchor);
        QFETCH(QPointF, place);
        const VectorText text =
            textOf("PU0,0;SI0.2,0.4;LO" + QByteArray::number(origin) + ";LBx\x03");
        QCOMPARE(int(text.anchor), anchor);
        QCOMPARE(text.positionMm, place);
    }

    void labels_linesAndLetters_moveThePen()
    {
        // Cells of 3 mm, lines of 8 mm.
        const QByteArray head = "PU0,0;SI0.2,0.4;";
        QCOMPARE(textOf(head + "LBone\r\ntwo\x03", 1).positionMm, QPointF(0, 8));
        QCOMPARE(textOf(head + "LBone\x03LBtwo\x03", 1).positionMm, QPointF(9, 0));
        QCOMPARE(textOf(head + "LBone\x03"
                               "CP;LBtwo\x03",
                        1)
                     .positionMm,
                 QPointF(0, 8));
        QCOMPARE(textOf(head + "CP2,1;LBx\x03").positionMm, QPointF(6, -8));
        QCOMPARE(textOf(head + "ES0.5;LBab\x03").lengthMm, 2.0 + 4.5);
    }

    void labels_terminators()
    {
        QCOMPARE(textOf("DT*;LBa;b*PU0,0;").text, QStringLiteral("a;b"));
        QCOMPARE(textOf("DT*,1;LBa*").text, QStringLiteral("a"));
        QCOMPARE(textOf("DT*;DT;LBa*b\x03").text, QStringLiteral("a*b"));
        const VectorDrawing mended = drawingOf("LBno end\r\nPU0,0;PD40,0;");
        QCOMPARE(mended.layers[0].texts[0].text, QStringLiteral("no end"));
        QCOMPARE(toText(mended), QStringLiteral("1s: 0,0 1,0"));
        QCOMPARE(notesOf(mended), QStringLiteral("labels without their end x1 at byte 0"));
    }

    void labels_held_areWrittenWhereTheyAreCalledFor()
    {
        const VectorDrawing drawing =
            drawingOf("PU0,0;BLheld;PU9,9\x03PU40,40;PB;PU80,0;PBPU0,0;PD40,0;");
        QCOMPARE(drawing.layers[0].texts.size(), 2);
        QCOMPARE(drawing.layers[0].texts[0].text, QStringLiteral("held;PU9,9"));
        QCOMPARE(drawing.layers[0].texts[0].positionMm, QPointF(1, -1));
        QCOMPARE(drawing.layers[0].texts[1].positionMm, QPointF(2, 0));
        QVERIFY(drawing.notes.isEmpty());
    }

    void labels_letters_areReadAsTheyAreWritten()
    {
        QCOMPARE(textOf("LB\xE4\x03").text, QString::fromUtf8("ä"));
        QCOMPARE(textOf("LB\xC3\xA4\x03").text, QString::fromUtf8("ä"));
    }

    void symbols_standOnEachPoint()
    {
        const VectorDrawing drawing = drawingOf("SI0.2,0.4;SM*;PU40,0;PA80,0;SM;PA120,0;");
        QCOMPARE(drawing.textCount(), 2);
        QCOMPARE(drawing.layers[0].texts[1].text, QStringLiteral("*"));
        QCOMPARE(drawing.layers[0].texts[1].positionMm, QPointF(2, 2));
        QCOMPARE(int(drawing.layers[0].texts[1].anchor), int(TextAnchor::Middle));
    }

    void notes_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QString>("notes");
        const auto row = [](const char *name, const QByteArray &file, const char *notes) {
            QTest::newRow(name) << file << QString::fromLatin1(notes);
        };
        const QByteArray tail = "PU0,0;PD40,0;PU0,0;PD40,0;PU0,0;PD40,0;PU0,0;PD40,0;PU0,0;";
        row("nothing", tail, "");
        row("line types", "LT2,4;" + tail, "line types, drawn solid (LT) x1 at byte 0");
        row("line type off", "LT;" + tail, "");
        row("unknown", tail + "ZQ1,2;ZQ3;", "unknown command ZQ x2 at byte 58");
        row("a number that is none", tail + "PD8o,1;", "numbers of command PD x1 at byte 58");
        row("half a point", tail + "PD8,1,5;", "numbers of command PD x1 at byte 58");
        row("a number left out", tail + "PD8,,5;", "numbers of command PD x1 at byte 58");
        row("two points in a number", tail + "PD1.2.3,4;", "numbers of command PD x1 at byte 58");
        row("a sign alone", tail + "PD-,4;", "numbers of command PD x1 at byte 58");
        row("text", tail + "%%%;", "text that is no command x1 at byte 58");
        row("too far", tail + "PD1e30,0;", "points beyond all sheets x1 at byte 0");
        row("a polygon for nothing", "PM0;PD1,1,2,0;PM2;" + tail,
            "polygon neither filled nor drawn x1 at byte 70");
        // The file ends within a number: what is whole is drawn.
        const char *cut = "the file ends within command PD x1 at byte 58";
        row("cut behind a comma", tail + "PD40,40,", cut);
        row("cut at a digit", tail + "PD40,4", cut);
        row("cut in a circle", tail + "CI4", "the file ends within command CI x1 at byte 58");
        row("cut at a sign", tail + "PD40,40,-", "numbers of command PD x1 at byte 58");
        row("ended by its line", tail + "PD40,40\n", "");
        row("ended by the printer's language", tail + "PD40,40\x1B%0A", "");
        row("a last move", tail + "PU0,0", "");
        row("a last pen", tail + "SP0", "");
        row("no semicolons at all", "PU0 0PD40 0PU0 0PD40 40", "");
        row("no pen", "SP0;PU0,0;PD1,1;PU;SP1;",
            "drawn although the pen was put away (SP0) x1 at ");
    }

    void notes()
    {
        QFETCH(QByteArray, file);
        QFETCH(QString, notes);
        QCOMPARE(notesOf(drawingOf(file)), notes);
    }

    void wordsAfterALine_leaveItsCommandWhole()
    {
        // A unit of the user is a millimetre. What a program left between counts as damage itself.
        const QByteArray moves = QByteArray("PU0,0;").repeated(40);
        const VectorDrawing drawing =
            drawingOf("IN;IP0,0,40,40SC0,1,0,1\r\n\r\nX0=0;Y0=0;\r\n" + moves + "PD3,0,3,4;");
        QCOMPARE(drawing.boundsMm(), QRectF(0, -4, 3, 4));
        QCOMPARE(drawing.notes.size(), 1);
        QCOMPARE(drawing.notes[0].what, QStringLiteral("text that is no command"));
        QCOMPARE(drawing.notes[0].count, qint64(2));
        // On the line itself it is the command that is damaged.
        const VectorDrawing damaged =
            drawingOf("IN;IP0,0,40,40SC0,1,0,1 X0=0;\r\n" + moves + "PD3,0,3,4;");
        QCOMPARE(damaged.notes[0].what, QStringLiteral("numbers of command SC"));
    }

    void damage_isNeverZero()
    {
        const QByteArray head = "PU40,40;PD80,40;PU40,40;PD80,40;PU40,40;PD80,40;PU40,40;PD80,40;";
        for (const char *bad : {"PD80,x;", "PDo,o;", "PA??,3;", "PD80;", "PD-;", "PD1e999,1;"}) {
            const VectorDrawing drawing = drawingOf(head + bad + "PU40,40;PD80,40;PU1,1;PU2,2;");
            QCOMPARE(drawing.boundsMm(), QRectF(1, -1, 1, 0));
            QVERIFY(!drawing.notes.isEmpty());
        }
    }

    void moreThanATenthDamaged_isRefused()
    {
        const QByteArray good = "PU0,0;PD40,0;PU0,0;PD40,0;PU0,0;PD40,0;PU0,0;PD40,0;PU0,0;";
        VectorDrawing drawing;
        ReadFailure failure;
        QVERIFY(readHpgl(good + "PD1.2.3,4;", {}, &drawing, &failure));
        QVERIFY(!readHpgl(good + "PD1.2.3,4;PD-,3;", {}, &drawing, &failure));
        QCOMPARE(int(failure.kind), int(ReadFailure::Kind::Damaged));
        QCOMPARE(failure.reason, QStringLiteral("2 of 11 commands are damaged or unknown."));
    }

    void nothingDrawn_isSaid()
    {
        VectorDrawing drawing;
        ReadFailure failure;
        QVERIFY(!readHpgl("IN;SP1;PU0,0;PU40,40;", {}, &drawing, &failure));
        QCOMPARE(int(failure.kind), int(ReadFailure::Kind::Empty));
    }

    void limits_andCancelling()
    {
        QByteArray many = "PU0,0;";
        for (int i = 0; i < 5000; ++i)
            many += "PD" + QByteArray::number(i) + "," + QByteArray::number(i % 7) + ";";
        VectorDrawing drawing;
        ReadFailure failure;
        ReadOptions options;
        options.mostPieces = 4000;
        QVERIFY(!readHpgl(many, options, &drawing, &failure));
        QCOMPARE(int(failure.kind), int(ReadFailure::Kind::TooLarge));
        options = {};
        int calls = 0;
        double done = 0.0;
        options.progress = [&](double part) {
            ++calls;
            done = part;
            return calls < 3;
        };
        QVERIFY(!readHpgl(many, options, &drawing, &failure));
        QCOMPARE(int(failure.kind), int(ReadFailure::Kind::Cancelled));
        QCOMPARE(calls, 3);
        QVERIFY(done > 0.0 && done < 1.0);
        QVERIFY(drawing.isEmpty());
    }

    void cutAnywhere_neitherCrashesNorInvents()
    {
        const QByteArray whole = "IN;SP1;PU40,40;PD80,40,80,80;CI20;PM0;PD40,80;PM2;FP;LBhi\x03"
                                 "PE<=\xBF\xBFO\xC0\xBF;PU80,80;AA40,40,90;IW40,40,80,80;PD60,60;";
        for (int length = 0; length < whole.size(); ++length) {
            VectorDrawing drawing;
            if (!readHpgl(whole.left(length), {}, &drawing, nullptr))
                continue;
            const QRectF box = drawing.boundsMm();
            QVERIFY(box.left() > -1 && box.right() < 4 && box.top() > -4 && box.bottom() < 1);
        }
    }
};

QTEST_GUILESS_MAIN(tst_HpglReader)
#include "tst_HpglReader.moc"
