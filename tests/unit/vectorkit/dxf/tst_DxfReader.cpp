// DXF drawings: every kind of entity, blocks, layers, colours, texts, units, and what is refused.

#include <vectorkit/VectorReader.h>

#include <QtCore/QFile>
#include <QtTest/QtTest>

#include <cmath>

using namespace vectorkit;

namespace {

QByteArray fixture(const QString &name)
{
    QFile file(QStringLiteral(ZT_TEST_DATA_DIR "/vector/dxf/%1.dxf").arg(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

VectorDrawing readBytes(const QByteArray &bytes, const ReadOptions &options = ReadOptions())
{
    VectorDrawing drawing;
    ReadFailure failure;
    if (!readDxf(bytes, options, &drawing, &failure))
        qWarning("%s", qPrintable(failure.reason)); // fails the test, which expects no warning
    return drawing;
}

VectorDrawing readFixture(const char *name)
{
    return readBytes(fixture(QString::fromLatin1(name)));
}

ReadFailure failureOf(const QByteArray &bytes, const ReadOptions &options = ReadOptions())
{
    VectorDrawing drawing;
    ReadFailure failure;
    readDxf(bytes, options, &drawing, &failure);
    return failure;
}

QVector<VectorShape> shapesOf(const VectorDrawing &drawing)
{
    QVector<VectorShape> shapes;
    for (const VectorLayer &layer : drawing.layers)
        shapes += layer.shapes;
    return shapes;
}

QVector<VectorPath::Piece> piecesOf(const VectorPath &path)
{
    QVector<VectorPath::Piece> pieces;
    path.forEach([&](const VectorPath::Piece &piece) { pieces.append(piece); });
    return pieces;
}

/** Tags as lines: "0 LINE|10 1.5". */
QByteArray tags(const QByteArray &items)
{
    QByteArray bytes;
    for (const QByteArray &item : items.split('|')) {
        const int blank = item.indexOf(' ');
        bytes += item.left(blank) + '\n' + item.mid(blank + 1) + '\n';
    }
    return bytes;
}

/** A drawing without a header around entities. */
QByteArray drawingOf(const QByteArray &entities, const QByteArray &header = QByteArray())
{
    const QByteArray head =
        header.isEmpty() ? QByteArray() : "0 SECTION|2 HEADER|" + header + "|0 ENDSEC|";
    return tags(head + "0 SECTION|2 ENTITIES|" + entities + "|0 ENDSEC|0 EOF");
}

QByteArray lineTo(const QByteArray &x) { return "0 LINE|8 0|10 0|20 0|11 " + x + "|21 0"; }

bool isNear(const QPointF &a, const QPointF &b, double within = 1e-9)
{
    return std::hypot(a.x() - b.x(), a.y() - b.y()) <= within;
}

/** Counts of notes by their kind and text. */
qint64 noteCount(const VectorDrawing &drawing, VectorNote::Kind kind, const char *part)
{
    for (const VectorNote &note : drawing.notes) {
        if (note.kind == kind && note.what.contains(QLatin1String(part)))
            return note.count;
    }
    return 0;
}

} // namespace

#define COMPARE_POINT(actual, expectedX, expectedY)                                                \
    QVERIFY2(isNear(actual, QPointF(expectedX, expectedY)),                                        \
             qPrintable(QStringLiteral("%1, %2").arg((actual).x()).arg((actual).y())))

class tst_DxfReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void read_linesWithoutHeader_guessesMillimetresAndTurnsYDown();
    void read_lineEnds_areOfAnySystem();
    void read_openingComment_namesTheProducer();
    void read_declaredUnit_scales();
    void read_chosenUnit_winsOverTheFile();
    void guess_data();
    void guess();
    void read_binary_isTheSameAsText_data();
    void read_binary_isTheSameAsText();
    void read_bulges_areExactArcs();
    void read_oldPolyline_leavesOutItsFrame();
    void read_circlesAndEllipses_keepWhatIsRound();
    void read_extrusionFromBelow_mirrors();
    void read_spline_isExactCubic();
    void read_rationalQuarter_staysOnItsCircle();
    void read_splineThroughPoints_bendsAsItsTangentsSay();
    void read_insert_placesScalesAndTurns();
    void read_nestedInsert_shearsAsItsFramesDo();
    void read_insertArray_turnsItsSteps();
    void read_insertLayersAndColours_comeFromTheInsert();
    void read_blockInItself_isDrawnOnce();
    void read_manyInserts_stopAtTheLimit();
    void read_layers_decideWhatIsShownAndHow();
    void read_texts_standWhereTheirCodesSay();
    void read_fontsOfAParagraph_areThoseOfItsLines_data();
    void read_fontsOfAParagraph_areThoseOfItsLines();
    void read_attributes_fillTheirPlaces();
    void read_codePages_giveTheSameWords_data();
    void read_codePages_giveTheSameWords();
    void read_solidsFacesAndPoints();
    void read_hatch_fillsItsBoundaries();
    void read_dimension_isItsPicture();
    void read_wrongNumber_leavesOutTheEntityAndSaysWhere();
    void read_brokenStructure_goesOnWithTheNextEntity();
    void read_manyWrongNumbers_isRefused();
    void read_cutFile_neverKeepsHalfANumber();
    void read_paperSpaceAlone_isSaid();
    void read_otherFiles_areRefused();
    void read_farCoordinates_areDamage();
    void read_textSeenFromTheSide_isLeftOutAndSaid();
    void read_helix_isItsSpline();
    void read_circleWithoutRadius_drawsNothing();
    void read_cancelled_leavesTheDrawing();
};

void tst_DxfReader::read_linesWithoutHeader_guessesMillimetresAndTurnsYDown()
{
    const VectorDrawing drawing = readFixture("no-header-loose-lines");
    QCOMPARE(drawing.format, VectorFormat::Dxf);
    QCOMPARE(drawing.formatVersion, QString());
    QCOMPARE(drawing.sizeSource, SizeSource::Guessed);
    QVERIFY(!drawing.sizeReason.isEmpty());
    QCOMPARE(drawing.unitMm, 1.0);
    QCOMPARE(drawing.layers.size(), 1);
    QCOMPARE(drawing.layers[0].name, QStringLiteral("CUT"));
    QCOMPARE(drawing.boundsMm(), QRectF(0.0, -20.0, 30.0, 20.0));
    QVERIFY(drawing.notes.isEmpty());
}

void tst_DxfReader::read_lineEnds_areOfAnySystem()
{
    QCOMPARE(readFixture("old-mac-line-ends").boundsMm(), QRectF(1.0, -5.0, 2.0, 3.0));
    QByteArray doubled = fixture(QStringLiteral("no-header-loose-lines"));
    doubled.replace("\r\n", "\r\r\n");
    QCOMPARE(readBytes(doubled).shapeCount(), 2);
    const QByteArray marked = "\xef\xbb\xbf" + drawingOf(lineTo("10")) + "\x1a";
    QCOMPARE(readBytes(marked).shapeCount(), 1);
}

void tst_DxfReader::read_openingComment_namesTheProducer()
{
    QCOMPARE(readFixture("comment-first").producer, QStringLiteral("made by hand"));
}

void tst_DxfReader::read_declaredUnit_scales()
{
    const VectorDrawing drawing = readFixture("inches");
    QCOMPARE(drawing.sizeSource, SizeSource::Declared);
    QCOMPARE(drawing.unitMm, 25.4);
    QCOMPARE(drawing.formatVersion, QStringLiteral("AC1015 (2000)"));
    QCOMPARE(drawing.boundsMm(), QRectF(25.4, -50.8, 50.8, 0.0));
}

void tst_DxfReader::read_chosenUnit_winsOverTheFile()
{
    ReadOptions options;
    options.unitMm = 2.0;
    const VectorDrawing drawing = readBytes(fixture(QStringLiteral("inches")), options);
    QCOMPARE(drawing.sizeSource, SizeSource::Chosen);
    QCOMPARE(drawing.boundsMm(), QRectF(2.0, -4.0, 4.0, 0.0));
}

void tst_DxfReader::guess_data()
{
    QTest::addColumn<QByteArray>("header");
    QTest::addColumn<QByteArray>("x");
    QTest::addColumn<double>("unit");
    QTest::newRow("nothing said") << QByteArray() << QByteArray("30") << 1.0;
    QTest::newRow("unitless") << QByteArray("9 $INSUNITS|70 0") << QByteArray("30") << 1.0;
    QTest::newRow("metric") << QByteArray("9 $MEASUREMENT|70 1") << QByteArray("0.5") << 1.0;
    QTest::newRow("not metric, small")
        << QByteArray("9 $MEASUREMENT|70 0") << QByteArray("12") << 25.4;
    QTest::newRow("not metric, large")
        << QByteArray("9 $MEASUREMENT|70 0") << QByteArray("300") << 1.0;
    QTest::newRow("feet and inches") << QByteArray("9 $LUNITS|70 4") << QByteArray("300") << 25.4;
    QTest::newRow("tiny") << QByteArray() << QByteArray("0.75") << 25.4;
    QTest::newRow("too far for inches")
        << QByteArray("9 $LUNITS|70 4") << QByteArray("900000000") << 1.0;
}

void tst_DxfReader::guess()
{
    QFETCH(QByteArray, header);
    QFETCH(QByteArray, x);
    QFETCH(double, unit);
    const VectorDrawing drawing = readBytes(drawingOf(lineTo(x), header));
    QCOMPARE(drawing.sizeSource, SizeSource::Guessed);
    QCOMPARE(drawing.unitMm, unit);
    QCOMPARE(drawing.boundsMm().width(), x.toDouble() * unit);
}

void tst_DxfReader::read_binary_isTheSameAsText_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("codes of one byte") << QStringLiteral("binary-r12");
    QTest::newRow("codes of two bytes") << QStringLiteral("binary");
}

void tst_DxfReader::read_binary_isTheSameAsText()
{
    QFETCH(QString, name);
    const QByteArray bytes = fixture(name);
    const QVector<VectorShape> shapes = shapesOf(readBytes(bytes));
    QCOMPARE(shapes.size(), 2);
    QCOMPARE(shapes[0].color, QColor(Qt::red));
    QCOMPARE(shapes[0].paths[0].end(), QPointF(4.0, -6.0));
    QCOMPARE(shapes[1].paths[0].boundsMm(), QRectF(-3.0, -3.0, 6.0, 6.0));
    // Cut anywhere, it is read without what is cut or refused.
    for (int length = 0; length < bytes.size(); ++length) {
        VectorDrawing drawing;
        ReadFailure failure;
        if (readDxf(bytes.left(length), ReadOptions(), &drawing, &failure))
            QVERIFY(drawing.shapeCount() > 0);
        else
            QVERIFY(failure.kind != ReadFailure::Kind::None);
    }
}

void tst_DxfReader::read_bulges_areExactArcs()
{
    const QVector<VectorShape> shapes = shapesOf(readFixture("bulges"));
    QCOMPARE(shapes.size(), 2);
    // Two half circles about (5, 0).
    const VectorPath &disc = shapes[0].paths[0];
    QVERIFY(disc.isClosed());
    const QVector<VectorPath::Piece> halves = piecesOf(disc);
    QCOMPARE(halves.size(), 2);
    for (const VectorPath::Piece &half : halves) {
        QCOMPARE(half.kind, PieceKind::Arc);
        COMPARE_POINT(half.control1, 5.0, 0.0);
        QVERIFY(std::abs(half.sweepDeg - 180.0) < 1e-9);
    }
    QCOMPARE(disc.boundsMm(), QRectF(0.0, -5.0, 10.0, 10.0));
    // A quarter to the right, of the width that holds for all of it.
    const VectorPath::Piece quarter = piecesOf(shapes[1].paths[0]).value(0);
    QCOMPARE(quarter.kind, PieceKind::Arc);
    QVERIFY(std::abs(quarter.sweepDeg + 90.0) < 1e-9);
    COMPARE_POINT(quarter.control1, 10.0, -20.0);
    QCOMPARE(quarter.to, QPointF(10.0, -30.0));
    QCOMPARE(shapes[1].strokeWidthMm, 0.5);
}

void tst_DxfReader::read_oldPolyline_leavesOutItsFrame()
{
    const VectorPath path = shapesOf(readFixture("old-polyline")).value(0).paths.value(0);
    const QVector<VectorPath::Piece> pieces = piecesOf(path);
    QVERIFY(path.isClosed());
    QCOMPARE(pieces.size(), 3);
    QCOMPARE(pieces[0].to, QPointF(10.0, 0.0));
    QCOMPARE(pieces[1].kind, PieceKind::Arc);
    COMPARE_POINT(pieces[1].control1, 10.0, -5.0);
    QCOMPARE(pieces[2].to, QPointF(0.0, 0.0));
}

void tst_DxfReader::read_circlesAndEllipses_keepWhatIsRound()
{
    const QVector<VectorShape> shapes = shapesOf(readFixture("circles"));
    QCOMPARE(shapes.size(), 4);
    QCOMPARE(piecesOf(shapes[0].paths[0]).value(0).kind, PieceKind::Arc);
    QVERIFY(shapes[0].paths[0].isClosed());
    QCOMPARE(shapes[0].paths[0].boundsMm(), QRectF(6.0, -9.0, 8.0, 8.0));
    // From 350 to 80 degrees: a quarter over the start.
    const VectorPath::Piece arc = piecesOf(shapes[1].paths[0]).value(0);
    QVERIFY(std::abs(arc.sweepDeg - 90.0) < 1e-9);
    COMPARE_POINT(arc.from, 10.0 * std::cos(M_PI / 18.0), 10.0 * std::sin(M_PI / 18.0));
    // A whole ellipse, closed, along its true box.
    QVERIFY(shapes[2].paths[0].isClosed());
    const QRectF box = shapes[2].paths[0].boundsMm();
    COMPARE_POINT(box.topLeft(), -8.0, -4.0);
    COMPARE_POINT(box.bottomRight(), 8.0, 4.0);
    for (const QPointF &point : shapes[2].paths[0].flattened(0.001)) {
        const double share = std::hypot(point.x() / 8.0, point.y() / 4.0);
        QVERIFY2(std::abs(share - 1.0) < 1e-6, qPrintable(QString::number(share - 1.0)));
    }
    // Half an ellipse with equal axes is half a circle.
    const VectorPath::Piece half = piecesOf(shapes[3].paths[0]).value(0);
    QCOMPARE(half.kind, PieceKind::Arc);
    COMPARE_POINT(half.control1, 0.0, -20.0);
    COMPARE_POINT(half.to, -8.0, -20.0);
}

void tst_DxfReader::read_extrusionFromBelow_mirrors()
{
    const QVector<VectorShape> shapes = shapesOf(readFixture("mirrored-extrusion"));
    QCOMPARE(shapes[0].paths[0].boundsMm(), QRectF(-14.0, -9.0, 8.0, 8.0));
    // A quarter that runs the other way: from the left of its centre to above it.
    const VectorPath::Piece quarter = piecesOf(shapes[1].paths[0]).value(0);
    COMPARE_POINT(quarter.from, -12.0, 0.0);
    COMPARE_POINT(quarter.to, -10.0, -2.0);
    QVERIFY(std::abs(quarter.sweepDeg + 90.0) < 1e-9);
}

void tst_DxfReader::read_spline_isExactCubic()
{
    const QVector<VectorPath::Piece> pieces =
        piecesOf(shapesOf(readFixture("spline")).value(0).paths.value(0));
    QCOMPARE(pieces.size(), 1);
    QCOMPARE(pieces[0].kind, PieceKind::Cubic);
    COMPARE_POINT(pieces[0].control1, 0.0, -10.0);
    COMPARE_POINT(pieces[0].control2, 10.0, -10.0);
    COMPARE_POINT(pieces[0].to, 10.0, 0.0);
}

void tst_DxfReader::read_rationalQuarter_staysOnItsCircle()
{
    const VectorPath path = shapesOf(readFixture("spline")).value(1).paths.value(0);
    COMPARE_POINT(path.start(), 10.0, 0.0);
    COMPARE_POINT(path.end(), 0.0, -10.0);
    for (const QPointF &point : path.flattened(0.0001))
        QVERIFY(std::abs(std::hypot(point.x(), point.y()) - 10.0) < 2e-5);
    QVERIFY(std::abs(path.lengthMm() - 5.0 * M_PI) < 2e-5);
}

void tst_DxfReader::read_splineThroughPoints_bendsAsItsTangentsSay()
{
    const QVector<VectorShape> shapes = shapesOf(readFixture("spline-through-points"));
    // Through points in a line, unbent.
    QCOMPARE(shapes[0].paths[0].boundsMm().height(), 0.0);
    // Straight up at (0, 0) and down into (9, 0): tangents of length 1 over a chord of 9.
    const VectorPath::Piece arch = piecesOf(shapes[1].paths[0]).value(0);
    COMPARE_POINT(arch.control1, 0.0, -3.0);
    COMPARE_POINT(arch.control2, 9.0, -3.0);
}

void tst_DxfReader::read_insert_placesScalesAndTurns()
{
    // The block's line from (1, 1), its base, to (3, 1): doubled, turned upwards, from (10, 20).
    const VectorDrawing drawing = readFixture("blocks");
    QCOMPARE(drawing.layers.size(), 2);
    const VectorPath line = drawing.layers[1].shapes[0].paths[0];
    COMPARE_POINT(line.start(), 10.0, -20.0);
    COMPARE_POINT(line.end(), 10.0, -24.0);
    // Its circle about (2, 2): (1, 1) from the base, doubled and turned to (-2, 2).
    const VectorPath::Piece circle = piecesOf(drawing.layers[0].shapes[0].paths[0]).value(0);
    QCOMPARE(circle.kind, PieceKind::Arc);
    COMPARE_POINT(circle.control1, 8.0, -22.0);
}

void tst_DxfReader::read_nestedInsert_shearsAsItsFramesDo()
{
    // The circle's centre is (1, 1) from the base: (2, 1) scaled, (2c - s, 2s + c) turned by 30
    // degrees, moved by (3, 4), then scaled by (-2, 0.5) and moved by (60, 10).
    const VectorDrawing drawing = readFixture("blocks");
    const double c = std::sqrt(0.75);
    const QPointF centre(60.0 - 2.0 * (3.0 + 2.0 * c - 0.5), 10.0 + 0.5 * (4.0 + 1.0 + c));
    const VectorPath ellipse = drawing.layers[0].shapes[1].paths[0];
    QVERIFY(ellipse.isClosed());
    const QRectF box = ellipse.boundsMm();
    QVERIFY(isNear(box.center(), QPointF(centre.x(), -centre.y()), 1e-6));
    // Half the box: the greatest x of (2 c cos t - s sin t) * -2, and of y alike.
    QVERIFY(std::abs(box.width() - 4.0 * std::hypot(2.0 * c, 0.5)) < 1e-5);
    QVERIFY(std::abs(box.height() - std::hypot(1.0, c)) < 1e-5);
}

void tst_DxfReader::read_insertArray_turnsItsSteps()
{
    const VectorDrawing drawing = readFixture("block-array");
    // Three columns upwards, two rows to the left, as the insert is turned by a right angle.
    QSet<QPair<int, int>> starts;
    for (const VectorShape &shape : drawing.layers[1].shapes)
        starts.insert({qRound(shape.paths[0].start().x()), qRound(shape.paths[0].start().y())});
    const QSet<QPair<int, int>> expected = {{0, 0},   {0, -10},   {0, -20},
                                            {-20, 0}, {-20, -10}, {-20, -20}};
    QCOMPARE(starts, expected);
}

void tst_DxfReader::read_insertLayersAndColours_comeFromTheInsert()
{
    const VectorDrawing drawing = readFixture("blocks");
    QCOMPARE(drawing.layers[0].name, QStringLiteral("place")); // what the block has on layer 0
    QCOMPARE(drawing.layers[1].name, QStringLiteral("inner"));
    QCOMPARE(drawing.layers[0].shapes[0].color, QColor(Qt::red));
    QCOMPARE(drawing.layers[0].shapes[0].pen, 1);
    QCOMPARE(drawing.layers[1].shapes[0].pen, 7); // by its layer, which no table colours
}

void tst_DxfReader::read_blockInItself_isDrawnOnce()
{
    const VectorDrawing drawing = readFixture("block-in-itself");
    QCOMPARE(drawing.shapeCount(), 10);
    QCOMPARE(noteCount(drawing, VectorNote::Kind::Damaged, "hold themselves"), qint64(1));
    QCOMPARE(noteCount(drawing, VectorNote::Kind::Damaged, "block that is missing"), qint64(1));
    QCOMPARE(noteCount(drawing, VectorNote::Kind::Left, "other files"), qint64(1));
}

void tst_DxfReader::read_manyInserts_stopAtTheLimit()
{
    // Ten blocks, each of ten of the next: ten thousand million lines, or none.
    for (const char *content : {"0 LINE|8 0|10 0|20 0|11 1|21 0", "0 POINT|8 0|10 0|20 0"}) {
        QByteArray blocks = "0 SECTION|2 BLOCKS";
        for (int level = 0; level < 10; ++level) {
            blocks += "|0 BLOCK|2 B" + QByteArray::number(level) + "|10 0|20 0";
            for (int copy = 0; copy < 10; ++copy)
                blocks += "|0 INSERT|8 0|10 0|20 0|2 B" + QByteArray::number(level + 1);
            blocks += "|0 ENDBLK";
        }
        blocks += QByteArray("|0 BLOCK|2 B10|10 0|20 0|") + content + "|0 ENDBLK|0 ENDSEC";
        ReadOptions options;
        options.mostPieces = 100000;
        const QByteArray bytes =
            tags(blocks + "|0 SECTION|2 ENTITIES|0 INSERT|8 0|2 B0|10 0|20 0|0 ENDSEC|0 EOF");
        QCOMPARE(failureOf(bytes, options).kind, ReadFailure::Kind::TooLarge);
    }
}

void tst_DxfReader::read_layers_decideWhatIsShownAndHow()
{
    const VectorDrawing drawing = readFixture("layers");
    QCOMPARE(drawing.layers.size(), 3);
    const QVector<VectorShape> cut = drawing.layers[0].shapes;
    QCOMPARE(drawing.layers[0].name, QStringLiteral("CUT"));
    QCOMPARE(cut.size(), 3);
    QCOMPARE(cut[0].color, QColor(255, 0, 0)); // the layer's
    QCOMPARE(cut[1].color, QColor(0, 0, 255)); // its own
    QCOMPARE(cut[1].pen, 5);
    QCOMPARE(cut[2].color, QColor(0, 0, 255)); // 255 as a true colour
    QCOMPARE(cut[2].pen, 0);
    QCOMPARE(drawing.layers[1].shapes[0].color, QColor(0x12, 0x34, 0x56));
    QCOMPARE(drawing.layers[2].name, QStringLiteral("new"));
    for (const char *left : {"switched off", "frozen", "paper space", "invisible"})
        QCOMPARE(noteCount(drawing, VectorNote::Kind::Left, left), qint64(1));
    QCOMPARE(noteCount(drawing, VectorNote::Kind::Changed, "dashed"), qint64(1));
}

void tst_DxfReader::read_texts_standWhereTheirCodesSay()
{
    const VectorDrawing drawing = readFixture("texts");
    const QVector<VectorText> texts = drawing.layers.value(0).texts;
    QCOMPARE(texts.size(), 6);
    QCOMPARE(texts[0].text, QString::fromUtf8("Ø8±0.1 H7"));
    QCOMPARE(texts[0].fontFamily, QStringLiteral("romans"));
    QCOMPARE(texts[0].heightMm, 5.0);
    COMPARE_POINT(texts[0].positionMm, 1.0, -2.0);
    // In the middle of (50, 10), turned by 30 degrees: half a height below it.
    COMPARE_POINT(texts[1].positionMm, 50.0 + 2.5 * 0.5, -(10.0 - 2.5 * std::sqrt(0.75)));
    QCOMPARE(texts[1].anchor, TextAnchor::Middle);
    QVERIFY(std::abs(texts[1].angleDeg - 30.0) < 1e-9);
    QVERIFY(std::abs(texts[1].slantDeg - 15.0) < 1e-9);
    QVERIFY(std::abs(texts[1].widthFactor - 0.8) < 1e-9);
    QVERIFY(texts[2].isMirrored);
    QVERIFY(std::abs(texts[2].angleDeg) < 1e-9);
    // Lines of a paragraph: the first a height below its place, the next five thirds further.
    QCOMPARE(texts[3].text, QStringLiteral("One"));
    QCOMPARE(texts[3].fontFamily, QStringLiteral("Arial"));
    QCOMPARE(texts[4].fontFamily, QString());
    COMPARE_POINT(texts[3].positionMm, 0.0, -97.0);
    QCOMPARE(texts[4].text, QStringLiteral("two 1/2 three"));
    COMPARE_POINT(texts[4].positionMm, 0.0, -92.0);
    COMPARE_POINT(texts[5].positionMm, 10.0, 0.0);
    QCOMPARE(noteCount(drawing, VectorNote::Kind::Changed, "stretched"), qint64(1));
}

void tst_DxfReader::read_fontsOfAParagraph_areThoseOfItsLines_data()
{
    QTest::addColumn<QByteArray>("coded");
    QTest::addColumn<QStringList>("fonts");
    QTest::addColumn<bool>("isMixed");
    QTest::addColumn<bool>("isStyled");
    const QStringList own{QStringLiteral("romans")};
    const QStringList inlineFont{QStringLiteral("Liberation Serif")};
    QTest::newRow("none") << QByteArray("plain") << own << false << false;
    QTest::newRow("of the whole") << QByteArray("\\fLiberation Serif|b0|i0|c0|p18;all of it")
                                  << inlineFont << false << false;
    QTest::newRow("in braces") << QByteArray("{\\fLiberation Serif|b0;all of it}") << inlineFont
                               << false << false;
    QTest::newRow("of all but spaces")
        << QByteArray(" {\\fLiberation Serif;a}\\~ {\\fliberation serif;b} ") << inlineFont << false
        << false;
    QTest::newRow("a stroke font's file")
        << QByteArray("\\FLiberation Serif.shx,big.shx;all") << inlineFont << false << false;
    QTest::newRow("first of two") << QByteArray("{\\fLiberation Serif;a}{\\fOther;b}") << inlineFont
                                  << true << false;
    QTest::newRow("before the style's")
        << QByteArray("{\\fLiberation Serif;a} b") << inlineFont << true << false;
    QTest::newRow("after the style's")
        << QByteArray("a {\\fLiberation Serif;b}") << own << true << false;
    QTest::newRow("a line each") << QByteArray("a\\P{\\fLiberation Serif;b}") << own + inlineFont
                                 << false << false;
    QTest::newRow("in a fraction")
        << QByteArray("\\fLiberation Serif;\\S1#2;") << inlineFont << false << false;
    QTest::newRow("bold") << QByteArray("\\fLiberation Serif|b1|i0;all") << inlineFont << false
                          << true;
    QTest::newRow("italic") << QByteArray("\\fLiberation Serif|b0|i1;all") << inlineFont << false
                            << true;
    QTest::newRow("nothing in bold")
        << QByteArray("{\\fLiberation Serif|b1; }a") << own << false << false;
    QTest::newRow("without a name") << QByteArray("\\f;a}b") << own << false << false;
}

void tst_DxfReader::read_fontsOfAParagraph_areThoseOfItsLines()
{
    QFETCH(QByteArray, coded);
    QFETCH(QStringList, fonts);
    QFETCH(bool, isMixed);
    QFETCH(bool, isStyled);
    QByteArray bytes = fixture(QStringLiteral("texts"));
    // The third text is the paragraph; it stands in the style of the first.
    const QByteArray before = "{\\fArial;One}\\Ptwo \\S1^2; three";
    QVERIFY(bytes.contains(before));
    bytes.replace(before, coded + "\n  7\nplain");
    const VectorDrawing drawing = readBytes(bytes);
    QStringList found;
    for (const VectorText &text : drawing.layers.value(0).texts.mid(3)) {
        if (text.text != QLatin1String("fitted"))
            found << text.fontFamily;
    }
    QCOMPARE(found, fonts);
    QCOMPARE(noteCount(drawing, VectorNote::Kind::Changed, "several fonts"), qint64(isMixed));
    QCOMPARE(noteCount(drawing, VectorNote::Kind::Changed, "bold or italic"), qint64(isStyled));
}

void tst_DxfReader::read_attributes_fillTheirPlaces()
{
    const QVector<VectorText> texts = readFixture("attributes").layers.value(0).texts;
    QCOMPARE(texts.size(), 2);
    QCOMPARE(texts[0].text, QStringLiteral("fixed"));
    COMPARE_POINT(texts[0].positionMm, 12.0, -9.0);
    QCOMPARE(texts[1].text, QStringLiteral("A-17"));
    COMPARE_POINT(texts[1].positionMm, 12.0, -3.0);
}

void tst_DxfReader::read_codePages_giveTheSameWords_data()
{
    QTest::addColumn<QString>("layer");
    QTest::addColumn<QString>("text");
    const QString chinese = QString::fromUtf8("图层");
    QTest::newRow("gbk") << chinese << QString::fromUtf8("激光打标");
    QTest::newRow("utf8") << chinese << QString::fromUtf8("激光打标 é");
    QTest::newRow("western") << QStringLiteral("0") << QString::fromUtf8("Größe");
}

void tst_DxfReader::read_codePages_giveTheSameWords()
{
    QFETCH(QString, layer);
    QFETCH(QString, text);
    const VectorDrawing drawing = readFixture(QTest::currentDataTag());
    QCOMPARE(drawing.layers.value(0).name, layer);
    QCOMPARE(drawing.layers.value(0).texts.value(0).text, text);
    if (drawing.layers.size() > 1) // the escapes of single characters
        QCOMPARE(drawing.layers[1].texts.value(0).text, QString::fromUtf8("激光"));
}

void tst_DxfReader::read_solidsFacesAndPoints()
{
    const VectorDrawing drawing = readFixture("solids");
    const QVector<VectorShape> shapes = shapesOf(drawing);
    QCOMPARE(shapes.size(), 6);
    QVERIFY(shapes[0].isFilled && !shapes[0].isStroked);
    const QVector<QPointF> corners = {{0.0, 0.0}, {4.0, 0.0}, {4.0, -3.0}, {0.0, -3.0}, {0.0, 0.0}};
    QCOMPARE(shapes[0].paths[0].polylinePoints(), corners);
    QCOMPARE(shapes[1].paths[0].pieceCount(), 3);
    for (int edge = 2; edge < 5; ++edge)
        QCOMPARE(shapes[edge].paths[0].pieceCount(), 1); // the fourth edge is hidden
    QCOMPARE(shapes[5].paths[0].polylinePoints(), (QVector<QPointF>{{1.0, -1.0}, {1.0, -1.0}}));
    QCOMPARE(noteCount(drawing, VectorNote::Kind::Changed, "points"), qint64(1));
    QCOMPARE(noteCount(drawing, VectorNote::Kind::Left, "WIPEOUT"), qint64(1));
}

void tst_DxfReader::read_hatch_fillsItsBoundaries()
{
    const VectorDrawing drawing = readFixture("hatch");
    const QVector<VectorShape> shapes = shapesOf(drawing);
    QCOMPARE(shapes.size(), 2);
    QVERIFY(shapes[0].isFilled && !shapes[0].isStroked);
    QCOMPARE(shapes[0].paths.size(), 2);
    QCOMPARE(shapes[0].paths[0].boundsMm(), QRectF(0.0, -10.0, 15.0, 10.0));
    QCOMPARE(shapes[0].paths[1].boundsMm(), QRectF(3.0, -7.0, 4.0, 4.0));
    QVERIFY(shapes[0].paths[1].isClosed());
    // Edges: along, up against their own sense, and back on an arc that runs clockwise.
    const QVector<VectorPath::Piece> pieces = piecesOf(shapes[1].paths.value(0));
    QCOMPARE(pieces.size(), 3);
    COMPARE_POINT(pieces[1].to, 30.0, -10.0);
    QCOMPARE(pieces[2].kind, PieceKind::Arc);
    COMPARE_POINT(pieces[2].to, 20.0, 0.0);
    QVERIFY(shapes[1].paths[0].isClosed());
    QCOMPARE(noteCount(drawing, VectorNote::Kind::Changed, "patterns"), qint64(1));
}

void tst_DxfReader::read_dimension_isItsPicture()
{
    const VectorDrawing drawing = readFixture("dimension");
    QCOMPARE(drawing.shapeCount(), 2);
    QCOMPARE(drawing.layers[0].texts.value(0).text, QStringLiteral("20"));
    QCOMPARE(noteCount(drawing, VectorNote::Kind::Left, "dimensions"), qint64(1));
    QCOMPARE(noteCount(drawing, VectorNote::Kind::Left, "arrow heads"), qint64(1));
    QCOMPARE(noteCount(drawing, VectorNote::Kind::Left, "points"), qint64(0));
}

void tst_DxfReader::read_wrongNumber_leavesOutTheEntityAndSaysWhere()
{
    const VectorDrawing drawing = readFixture("damaged-number");
    QCOMPARE(drawing.shapeCount(), 20);
    QCOMPARE(drawing.notes.size(), 2);
    QCOMPARE(drawing.notes[0].kind, VectorNote::Kind::Damaged);
    // 9 pairs before the entities, 20 lines of 6 pairs.
    QCOMPARE(drawing.notes[0].where, QStringLiteral("line %1").arg(2 * (9 + 20 * 6) + 1));
    QVERIFY(drawing.notes[1].what.contains(QLatin1String("CIRCLE"))); // without its radius
}

void tst_DxfReader::read_brokenStructure_goesOnWithTheNextEntity()
{
    QByteArray entities = lineTo("1");
    for (int i = 0; i < 20; ++i)
        entities += "|" + lineTo(QByteArray::number(i + 2));
    QByteArray bytes = drawingOf(entities);
    // A line that slipped in shifts codes and values of one entity.
    bytes.replace("\n11\n5\n", "\n11\nslip\n5\n");
    const VectorDrawing drawing = readBytes(bytes);
    QCOMPARE(drawing.shapeCount(), 20);
    QCOMPARE(noteCount(drawing, VectorNote::Kind::Damaged, "LINE"), qint64(1));
}

void tst_DxfReader::read_manyWrongNumbers_isRefused()
{
    const ReadFailure failure =
        failureOf(drawingOf(lineTo("1") + '|' + lineTo("2,5") + '|' + lineTo("nan")));
    QCOMPARE(failure.kind, ReadFailure::Kind::Damaged);
    QVERIFY(!failure.advice.isEmpty());
}

void tst_DxfReader::read_cutFile_neverKeepsHalfANumber()
{
    QByteArray entities = lineTo("100");
    for (int i = 0; i < 30; ++i)
        entities += '|' + lineTo("100");
    const QByteArray whole = drawingOf(entities);
    const int last = whole.lastIndexOf("\nLINE\n");
    for (int length = last; length < whole.size() - 1; ++length) {
        const VectorDrawing drawing = readBytes(whole.left(length));
        for (const VectorShape &shape : shapesOf(drawing))
            QCOMPARE(shape.paths[0].end(), QPointF(100.0, 0.0));
        QVERIFY(drawing.shapeCount() >= 30);
    }
}

void tst_DxfReader::read_paperSpaceAlone_isSaid()
{
    const ReadFailure failure = failureOf(fixture(QStringLiteral("paper-space")));
    QCOMPARE(failure.kind, ReadFailure::Kind::Empty);
    QVERIFY(failure.reason.contains(QLatin1String("paper space")));
    QVERIFY(!failure.advice.isEmpty());
}

void tst_DxfReader::read_otherFiles_areRefused()
{
    const ReadFailure dwg = failureOf(QByteArray("AC1015\0\0\0\0\0\0", 12));
    QCOMPARE(dwg.kind, ReadFailure::Kind::WrongFormat);
    QVERIFY(dwg.reason.contains(QLatin1String("DWG")));
    QVERIFY(dwg.advice.contains(QLatin1String("DXF")));
    QCOMPARE(failureOf("<svg/>").kind, ReadFailure::Kind::WrongFormat);
    QCOMPARE(failureOf(QByteArray()).kind, ReadFailure::Kind::WrongFormat);
    ReadOptions options;
    options.mostBytes = 10;
    QCOMPARE(failureOf(drawingOf(lineTo("1")), options).kind, ReadFailure::Kind::TooLarge);
}

void tst_DxfReader::read_farCoordinates_areDamage()
{
    QByteArray entities = lineTo("1e10") + '|' + lineTo("1e400");
    for (int i = 0; i < 20; ++i)
        entities += '|' + lineTo("1");
    const VectorDrawing drawing = readBytes(drawingOf(entities));
    QCOMPARE(drawing.shapeCount(), 20);
    QCOMPARE(noteCount(drawing, VectorNote::Kind::Damaged, "LINE"), qint64(2));
}

void tst_DxfReader::read_textSeenFromTheSide_isLeftOutAndSaid()
{
    // Written on a wall: from above it is a line.
    const VectorDrawing drawing =
        readBytes(drawingOf("0 TEXT|8 0|10 5|20 5|40 3|1 WALL|210 1|220 0|230 0|" + lineTo("7")));
    QCOMPARE(drawing.textCount(), 0);
    QCOMPARE(shapesOf(drawing).size(), 1);
    QCOMPARE(noteCount(drawing, VectorNote::Kind::Left, "texts seen from the side"), 1);
    QCOMPARE(noteCount(drawing, VectorNote::Kind::Damaged, ""), 0);
}

void tst_DxfReader::read_helix_isItsSpline()
{
    // A helix holds the spline that shows it, and its own values (axis, 40 the radius, 41 the
    // turns) behind it.
    const QByteArray curve = "8 0|100 AcDbSpline|70 8|71 1|72 4|73 2|74 0|40 0|40 0|40 1|40 1|10 0|"
                             "20 0|30 0|10 10|20 5|30 2";
    const VectorDrawing drawing =
        readBytes(drawingOf("0 HELIX|" + curve +
                            "|100 AcDbHelix|90 29|91 63|10 3|20 3|30 0|11 8|21 3|31 0|12 0|22 0|"
                            "32 1|40 5|41 2|42 3|290 1|280 1"));
    QCOMPARE(shapesOf(drawing).size(), 1);
    COMPARE_POINT(shapesOf(drawing)[0].paths[0].start(), 0, 0);
    COMPARE_POINT(piecesOf(shapesOf(drawing)[0].paths[0]).last().to, 10, -5);
    QVERIFY(drawing.notes.isEmpty());
}

void tst_DxfReader::read_circleWithoutRadius_drawsNothing()
{
    const VectorDrawing drawing = readBytes(drawingOf(
        "0 CIRCLE|8 0|10 5|20 5|40 0|0 ARC|8 0|10 5|20 5|40 0|50 0|51 90|" + lineTo("7")));
    QCOMPARE(shapesOf(drawing).size(), 1);
    QCOMPARE(noteCount(drawing, VectorNote::Kind::Left, "circles and arcs without a radius"), 2);
    QCOMPARE(noteCount(drawing, VectorNote::Kind::Damaged, ""), 0);
}

void tst_DxfReader::read_cancelled_leavesTheDrawing()
{
    QByteArray entities = lineTo("1");
    for (int i = 0; i < 5000; ++i)
        entities += '|' + lineTo("1");
    double greatest = 0.0;
    ReadOptions options;
    options.progress = [&](double done) {
        greatest = std::max(greatest, done);
        return true;
    };
    readBytes(drawingOf(entities), options);
    QVERIFY(greatest > 0.5 && greatest <= 1.0);
    options.progress = [](double done) { return done < 0.5; };
    VectorDrawing drawing;
    drawing.producer = QStringLiteral("kept");
    ReadFailure failure;
    QVERIFY(!readDxf(drawingOf(entities), options, &drawing, &failure));
    QCOMPARE(failure.kind, ReadFailure::Kind::Cancelled);
    QCOMPARE(drawing.producer, QStringLiteral("kept"));
    QVERIFY(drawing.isEmpty());
}

QTEST_GUILESS_MAIN(tst_DxfReader)
#include "tst_DxfReader.moc"
