// SVG drawings: size, shapes, styles, clip paths, layers, texts, and what is refused or said.

#include <vectorkit/VectorReader.h>

#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtCore/QStandardPaths>
#include <QtCore/QTemporaryDir>
#include <QtGui/QImage>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtTest/QtTest>

#include <cmath>

using namespace vectorkit;

namespace {

QString fixturePath(const QString &name)
{
    return QStringLiteral(ZT_TEST_DATA_DIR "/vector/svg/%1.svg").arg(name);
}

QByteArray fixture(const QString &name)
{
    QFile file(fixturePath(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

VectorDrawing readBytes(const QByteArray &bytes)
{
    VectorDrawing drawing;
    ReadFailure failure;
    if (!readSvg(bytes, ReadOptions(), &drawing, &failure))
        qWarning("%s", qPrintable(failure.reason));
    return drawing;
}

VectorDrawing readFixture(const QString &name) { return readBytes(fixture(name)); }

ReadFailure failureOf(const QByteArray &bytes, const ReadOptions &options = ReadOptions())
{
    VectorDrawing drawing;
    ReadFailure failure;
    readSvg(bytes, options, &drawing, &failure);
    return failure;
}

QVector<VectorShape> shapesOf(const VectorDrawing &drawing)
{
    QVector<VectorShape> shapes;
    for (const VectorLayer &layer : drawing.layers)
        shapes += layer.shapes;
    return shapes;
}

QVector<VectorText> textsOf(const VectorDrawing &drawing)
{
    QVector<VectorText> texts;
    for (const VectorLayer &layer : drawing.layers)
        texts += layer.texts;
    return texts;
}

/** How often something was left, changed or damaged; 0: nothing is said of it. */
qint64 noted(const VectorDrawing &drawing, VectorNote::Kind kind, const char *what)
{
    for (const VectorNote &note : drawing.notes) {
        if (note.kind == kind && note.what == QLatin1String(what))
            return note.count;
    }
    return 0;
}

bool isSame(const QRectF &a, const QRectF &b, double tolerance = 1e-9)
{
    return std::abs(a.left() - b.left()) < tolerance && std::abs(a.top() - b.top()) < tolerance &&
           std::abs(a.right() - b.right()) < tolerance &&
           std::abs(a.bottom() - b.bottom()) < tolerance;
}

bool isSame(const QPointF &a, const QPointF &b, double tolerance = 1e-9)
{
    return std::hypot(a.x() - b.x(), a.y() - b.y()) < tolerance;
}

QRectF boundsOf(const VectorShape &shape)
{
    VectorDrawing one;
    one.layers.append(VectorLayer());
    one.layers.last().shapes.append(shape);
    return one.boundsMm();
}

int piecesOf(const VectorShape &shape, PieceKind kind)
{
    int count = 0;
    for (const VectorPath &path : shape.paths)
        path.forEach([&](const VectorPath::Piece &piece) { count += piece.kind == kind ? 1 : 0; });
    return count;
}

/** The drawing on its sheet, `across` pixels wide. */
QImage pictureOf(const VectorDrawing &drawing, int across)
{
    const double scale = across / drawing.declaredSizeMm.width();
    QImage image(across, qRound(drawing.declaredSizeMm.height() * scale), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(scale, scale);
    for (const VectorShape &shape : shapesOf(drawing)) {
        QPainterPath path;
        for (const VectorPath &run : shape.paths)
            run.addTo(&path);
        path.setFillRule(shape.fillRule);
        painter.setBrush(shape.isFilled ? QBrush(shape.color) : QBrush(Qt::NoBrush));
        QPen pen(shape.color, shape.strokeWidthMm);
        pen.setCapStyle(Qt::FlatCap);
        pen.setJoinStyle(Qt::SvgMiterJoin);
        painter.setPen(shape.isStroked ? pen : QPen(Qt::NoPen));
        painter.drawPath(path);
    }
    return image;
}

} // namespace

class TestSvgReader : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void size_isFoundAsTheFileSays_data();
    void size_isFoundAsTheFileSays();
    void size_chosenUnit_winsOverTheFile();
    void path_allCommands_keepTheirCurves();
    void path_endsWhereItIsDamaged();
    void shapes_keepExactArcs();
    void transforms_apply_outermostFirst();
    void styles_strongestRuleWins();
    void use_showsShapesAndSymbols();
    void use_ofItself_endsAndIsSaid();
    void nested_hasItsOwnUnitsAndEdge();
    void clip_cutsLinesAndAreas();
    void layers_keepNamesAndOrder();
    void layers_ofNumberedNames_areRead();
    void leftOut_isSaidAndCounted();
    void editorSwitch_givesItsLayers();
    void styleSheet_ofAProgram_isFollowed();
    void outlines_followStyleSheets();
    void shownOtherwise_isSaid();
    void dots_areThoseThatShow();
    void texts_stayTexts();
    void texts_mirroredAndWide_keepTheirForm();
    void names_withOtherPrefixes_areRead();
    void refused_saysLineAndColumn();
    void refused_saysWhatIsWrong_data();
    void refused_saysWhatIsWrong();
    void refused_neverGrowsWithoutBound_data();
    void refused_neverGrowsWithoutBound();
    void cancelled_leavesTheDrawing();
    void picture_equalsThatOfAnotherReader_data();
    void picture_equalsThatOfAnotherReader();
};

void TestSvgReader::size_isFoundAsTheFileSays_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QSizeF>("sheet");
    QTest::addColumn<double>("unitMm");
    QTest::addColumn<int>("source");
    QTest::addColumn<QRectF>("bounds");
    const auto row = [](const char *name, QSizeF sheet, double unit, SizeSource source,
                        QRectF box) {
        QTest::newRow(name) << QString::fromLatin1(name) << sheet << unit << int(source) << box;
    };
    const double pixel = 25.4 / 96;
    const SizeSource declared = SizeSource::Declared;
    row("size-mm", {100, 50}, 0.5, declared, {10, 5, 30, 20});
    row("size-pixels", {25.4, 50.8}, pixel, declared, {0, 0, 25.4, 25.4});
    row("size-none", {25.4, 25.4}, pixel, SizeSource::Guessed, {0, 0, 12.7, 25.4});
    row("size-editor-90", {50.8, 25.4}, 25.4 / 90, declared, {0, 0, 25.4, 12.7});
    row("size-editor-96", {25.4, 25.4}, pixel, declared, {0, 0, 25.4, 12.7});
    row("size-editor-72", {50.8, 25.4}, 25.4 / 72, declared, {0, 0, 25.4, 12.7});
    row("size-style", {100, 50}, 0.5, declared, {10, 5, 30, 20});
    row("aspect", {100, 50}, 5.0, declared, {50, 0, 50, 50});
    // Of all there is room for: 96 x 192 pixels, the lowest corner of all at (72, 144).
    row("size-percent", {25.4, 50.8}, pixel, SizeSource::Guessed, {0, 0, 19.05, 38.1});
}

void TestSvgReader::size_isFoundAsTheFileSays()
{
    QFETCH(QString, name);
    QFETCH(QSizeF, sheet);
    QFETCH(double, unitMm);
    QFETCH(int, source);
    QFETCH(QRectF, bounds);
    const VectorDrawing drawing = readFixture(name);
    QVERIFY(isSame(QRectF(QPointF(), drawing.declaredSizeMm), QRectF(QPointF(), sheet)));
    QVERIFY(std::abs(drawing.unitMm - unitMm) < 1e-12);
    QCOMPARE(int(drawing.sizeSource), source);
    QVERIFY(!drawing.sizeReason.isEmpty());
    QVERIFY(isSame(drawing.boundsMm(), bounds));
}

void TestSvgReader::size_chosenUnit_winsOverTheFile()
{
    ReadOptions options;
    options.unitMm = 2.0;
    VectorDrawing drawing;
    ReadFailure failure;
    QVERIFY(readSvg(fixture(QStringLiteral("size-mm")), options, &drawing, &failure));
    QCOMPARE(drawing.sizeSource, SizeSource::Chosen);
    QVERIFY(isSame(drawing.boundsMm(), QRectF(40, 20, 120, 80)));
    QVERIFY(std::abs(shapesOf(drawing).first().strokeWidthMm - 4.0) < 1e-9);
}

void TestSvgReader::path_allCommands_keepTheirCurves()
{
    const QVector<VectorShape> shapes = shapesOf(readFixture(QStringLiteral("path-commands")));
    QCOMPARE(shapes.size(), 3);
    QCOMPARE(shapes[0].paths.size(), 2);
    QVERIFY(shapes[0].paths[0].isClosed());
    QVERIFY(isSame(shapes[0].paths[0].boundsMm(), QRectF(10, 10, 10, 10)));
    QVERIFY(!shapes[0].paths[1].isClosed());
    QVERIFY(isSame(shapes[0].paths[1].start(), QPointF(40, 10)));
    QVERIFY(isSame(shapes[0].paths[1].end(), QPointF(50, 20)));
    QCOMPARE(piecesOf(shapes[1], PieceKind::Cubic), 4);
    // The middles of the two parabolas, controls at (60, 20) and, mirrored, (80, 60).
    QVERIFY(isSame(shapes[1].paths[0].boundsMm(), QRectF(10, 30, 80, 20), 1e-6));
    QVERIFY(isSame(shapes[1].paths[0].end(), QPointF(90, 40)));
    QCOMPARE(piecesOf(shapes[2], PieceKind::Arc), 1);
    QVERIFY(isSame(boundsOf(shapes[2]), QRectF(10, 60, 40, 30), 1e-4));
}

void TestSvgReader::path_endsWhereItIsDamaged()
{
    const VectorDrawing drawing =
        readBytes("<svg><path stroke=\"red\" fill=\"none\" d=\"M0 0L10 0L10 x 20 20\"/></svg>");
    QCOMPARE(shapesOf(drawing).size(), 1);
    QCOMPARE(shapesOf(drawing).first().paths.first().pieceCount(), 1);
    QCOMPARE(noted(drawing, VectorNote::Kind::Damaged, "paths that end where they are damaged"),
             qint64(1));
}

void TestSvgReader::shapes_keepExactArcs()
{
    const VectorDrawing drawing = readFixture(QStringLiteral("basic-shapes"));
    const QVector<VectorShape> shapes = shapesOf(drawing);
    QCOMPARE(shapes.size(), 6);
    QVERIFY(isSame(drawing.boundsMm(), QRectF(10, 10, 80, 50), 1e-6));
    QCOMPARE(piecesOf(shapes[0], PieceKind::Arc), 4);
    QCOMPARE(piecesOf(shapes[0], PieceKind::Line), 4);
    QVERIFY(isSame(boundsOf(shapes[0]), QRectF(10, 10, 20, 10)));
    // 2 * (16 + 6) straight and a circle of radius 2 in its corners.
    QVERIFY(std::abs(shapes[0].paths[0].lengthMm() - (44 + 4 * M_PI)) < 1e-9);
    QCOMPARE(piecesOf(shapes[1], PieceKind::Arc), 1);
    QVERIFY(std::abs(shapes[1].paths[0].lengthMm() - 20 * M_PI) < 1e-9);
    for (const QPointF &point : shapes[2].paths[0].flattened(0.001)) {
        const double on = std::hypot((point.x() - 80) / 10, (point.y() - 20) / 5);
        QVERIFY(std::abs(on - 1.0) < 1e-5);
    }
    const bool closed[] = {true, true, true, false, false, true};
    for (int index = 0; index < 6; ++index)
        QCOMPARE(shapes[index].paths[0].isClosed(), closed[index]);
}

void TestSvgReader::transforms_apply_outermostFirst()
{
    const QVector<VectorShape> shapes = shapesOf(readFixture(QStringLiteral("transforms")));
    QCOMPARE(shapes.size(), 3);
    QVERIFY(isSame(shapes[0].paths[0].start(), QPointF(50, 50)));
    QVERIFY(isSame(shapes[0].paths[0].end(), QPointF(50, 70)));
    QVERIFY(isSame(shapes[1].paths[0].end(), QPointF(60, 60)));
    QVERIFY(isSame(shapes[2].paths[0].start(), QPointF(60, 50)));
    QVERIFY(isSame(shapes[2].paths[0].end(), QPointF(50, 60)));
}

void TestSvgReader::styles_strongestRuleWins()
{
    const VectorDrawing drawing = readFixture(QStringLiteral("styles"));
    const QVector<VectorShape> shapes = shapesOf(drawing);
    const QColor colors[] = {{255, 0, 0},   {0, 128, 0}, {0, 0, 255},
                             {0, 255, 255}, {0, 255, 0}, {128, 0, 128}};
    QCOMPARE(shapes.size(), 6);
    for (int index = 0; index < 6; ++index) {
        QCOMPARE(shapes[index].color, colors[index]);
        QVERIFY(shapes[index].isStroked && !shapes[index].isFilled);
    }
    // A fifth of a millimetre is 0.755906 pixels, and a unit of this sheet measures 1 mm.
    QVERIFY(std::abs(shapes[0].strokeWidthMm - 0.755906) < 1e-6);
    QCOMPARE(noted(drawing, VectorNote::Kind::Left, "style rules that are not known"), qint64(1));
}

void TestSvgReader::use_showsShapesAndSymbols()
{
    const VectorDrawing drawing = readFixture(QStringLiteral("use-symbol"));
    const QVector<VectorShape> shapes = shapesOf(drawing);
    QCOMPARE(shapes.size(), 3);
    QVERIFY(isSame(boundsOf(shapes[0]), QRectF(10, 20, 10, 10)));
    QVERIFY(isSame(boundsOf(shapes[1]), QRectF(50, 0, 20, 20)));
    QVERIFY(isSame(boundsOf(shapes[2]), QRectF(10, 60, 20, 20), 1e-6));
    QVERIFY(shapes[2].isFilled && !shapes[2].isStroked);
    QCOMPARE(noted(drawing, VectorNote::Kind::Left, "references to other files"), qint64(1));
    QCOMPARE(noted(drawing, VectorNote::Kind::Damaged, "references to nothing"), qint64(1));
}

void TestSvgReader::use_ofItself_endsAndIsSaid()
{
    const VectorDrawing drawing =
        readBytes("<svg><rect width=\"1\" height=\"1\"/><g id=\"a\"><use href=\"#b\"/></g>"
                  "<g id=\"b\"><use href=\"#a\"/></g><use id=\"c\" href=\"#c\"/></svg>");
    QCOMPARE(drawing.shapeCount(), 1);
    QVERIFY(noted(drawing, VectorNote::Kind::Damaged, "elements that show themselves") >= 3);
}

void TestSvgReader::nested_hasItsOwnUnitsAndEdge()
{
    const QVector<VectorShape> shapes = shapesOf(readFixture(QStringLiteral("nested")));
    QCOMPARE(shapes.size(), 2);
    QVERIFY(isSame(boundsOf(shapes[0]), QRectF(10, 40, 40, 0), 1e-6));
    QVERIFY(isSame(boundsOf(shapes[1]), QRectF(50, 60, 20, 0)));
}

void TestSvgReader::clip_cutsLinesAndAreas()
{
    const QVector<VectorShape> shapes = shapesOf(readFixture(QStringLiteral("clip")));
    QCOMPARE(shapes.size(), 3);
    QVERIFY(isSame(boundsOf(shapes[0]), QRectF(20, 30, 40, 0), 1e-6));
    QVERIFY(!shapes[0].paths[0].isClosed());
    QVERIFY(isSame(boundsOf(shapes[1]), QRectF(20, 40, 10, 10), 1e-6));
    QVERIFY(shapes[1].paths[0].isClosed());
    QVERIFY(shapes[1].isFilled);
    QVERIFY(isSame(boundsOf(shapes[2]), QRectF(30, 50, 10, 5)));
}

void TestSvgReader::layers_keepNamesAndOrder()
{
    const VectorDrawing drawing = readFixture(QStringLiteral("layers"));
    QCOMPARE(drawing.layers.size(), 3);
    QCOMPARE(drawing.layers[0].name, QStringLiteral("Cut"));
    QCOMPARE(drawing.layers[0].shapes.size(), 2);
    QCOMPARE(drawing.layers[0].shapes[0].id, QStringLiteral("p1"));
    QCOMPARE(drawing.layers[1].name, QStringLiteral("Cut/Fine"));
    QCOMPARE(drawing.layers[1].shapes.size(), 1);
    QCOMPARE(drawing.layers[2].name, QString());
    QCOMPARE(drawing.layers[2].shapes.size(), 1);
    QCOMPARE(noted(drawing, VectorNote::Kind::Left, "hidden layer \"Notes\""), qint64(1));
}

void TestSvgReader::layers_ofNumberedNames_areRead()
{
    const VectorDrawing drawing = readFixture(QStringLiteral("size-editor-72"));
    QCOMPARE(drawing.layers.size(), 1);
    QCOMPARE(drawing.layers[0].name, QStringLiteral("Cut lines"));
    QCOMPARE(drawing.producer, QStringLiteral("Adobe Illustrator 15.1.0"));
}

void TestSvgReader::leftOut_isSaidAndCounted()
{
    const VectorDrawing drawing = readFixture(QStringLiteral("left-out"));
    QCOMPARE(drawing.shapeCount(), 3);
    QCOMPARE(shapesOf(drawing).first().color, QColor(0, 255, 0));
    QVERIFY(isSame(boundsOf(shapesOf(drawing).last()), QRectF(0, 50, 10, 10)));
    const VectorNote::Kind left = VectorNote::Kind::Left;
    QCOMPARE(noted(drawing, left, "pictures (bitmaps)"), qint64(1));
    QCOMPARE(noted(drawing, left, "scripts"), qint64(1));
    QCOMPARE(noted(drawing, left, "shapes without stroke and fill"), qint64(1));
    QCOMPARE(noted(drawing, left, "element \"blob\""), qint64(1));
    const VectorNote::Kind changed = VectorNote::Kind::Changed;
    QCOMPARE(noted(drawing, changed, "gradients, in their first colour"), qint64(1));
    QCOMPARE(noted(drawing, changed, "dashed lines, drawn through"), qint64(1));
    const VectorNote::Kind damaged = VectorNote::Kind::Damaged;
    QCOMPARE(noted(drawing, damaged, "paths that end where they are damaged"), qint64(1));
    QCOMPARE(noted(drawing, damaged, "paths with coordinates out of range"), qint64(1));
}

void TestSvgReader::editorSwitch_givesItsLayers()
{
    const VectorDrawing drawing = readFixture(QStringLiteral("editor-switch"));
    QCOMPARE(drawing.layers.size(), 2);
    QCOMPARE(drawing.layers[1].name, QStringLiteral("Engrave"));
    const QVector<VectorShape> shapes = shapesOf(drawing);
    QCOMPARE(shapes.size(), 2);
    QVERIFY(isSame(boundsOf(shapes[0]), QRectF(2, 2, 36, 16)));
    QCOMPARE(shapes[0].color, QColor(0xE3, 0x06, 0x13));
    QVERIFY(!shapes[0].isFilled && shapes[1].isFilled);
    QVERIFY(shapes[0].paths[0].isClosed());
}

void TestSvgReader::outlines_followStyleSheets()
{
    const VectorDrawing drawing =
        readBytes("<svg xmlns='http://www.w3.org/2000/svg' width='100mm' height='100mm' viewBox='0 "
                  "0 100 100'>"
                  "<style>.dot{cx:10px;cy:20px;r:5px} rect{width:30px;height:4px;x:1px}"
                  " .wave{d:path('M1 2h7')} text{x:50px}</style>"
                  "<circle class='dot' r='1'/>"
                  "<rect x='60' y='70' width='1' height='1'/>"
                  "<rect x='60' y='80' style='width:2px' height='9'/>"
                  "<path class='wave' d='M0 0v99' stroke='red'/>"
                  "<path style='d:none' d='M0 0v99' stroke='red'/>"
                  "<circle cx='40' cy='40' r='3' style='r:7'/>" // without a unit it says nothing
                  "<ellipse cx='40' cy='60' rx='3' ry='2' style='rx:10%'/></svg>");
    const QVector<VectorShape> shapes = shapesOf(drawing);
    const QVector<QRectF> expected{{5, 15, 10, 10}, {1, 70, 30, 4}, {1, 80, 2, 4},
                                   {1, 2, 7, 0},    {37, 37, 6, 6}, {30, 58, 20, 4}};
    QCOMPARE(shapes.size(), expected.size());
    for (int i = 0; i < expected.size(); ++i)
        QVERIFY2(isSame(boundsOf(shapes[i]), expected[i]),
                 qPrintable(QStringLiteral("shape %1").arg(i)));
}

void TestSvgReader::styleSheet_ofAProgram_isFollowed()
{
    const VectorDrawing drawing = readFixture(QStringLiteral("style-sheet"));
    const QVector<VectorShape> shapes = shapesOf(drawing);
    QCOMPARE(shapes.size(), 4);
    QCOMPARE(shapes[0].color, QColor(0, 0, 255)); // not that of a printed page
    QCOMPARE(shapes[0].strokeWidthMm, 2.0);
    QCOMPARE(shapes[1].color, QColor(0, 0, 0)); // !important is stronger than the element's own
    QCOMPARE(shapes[2].color, QColor(0, 128, 0));
    QCOMPARE(shapes[3].color, QColor(255, 0, 0));
    QCOMPARE(noted(drawing, VectorNote::Kind::Left, "style rules that are not known"), qint64(1));
}

void TestSvgReader::shownOtherwise_isSaid()
{
    const VectorDrawing drawing = readFixture(QStringLiteral("shown-otherwise"));
    QCOMPARE(drawing.shapeCount(), 5);
    QVERIFY(isSame(boundsOf(shapesOf(drawing).last()), QRectF(0, 18, 5, 0)));
    const VectorNote::Kind changed = VectorNote::Kind::Changed;
    QCOMPARE(noted(drawing, changed, "masks, shown without them"), qint64(1));
    QCOMPARE(noted(drawing, changed, "filters, shown without them"), qint64(1));
    QCOMPARE(noted(drawing, changed, "patterns, filled all over"), qint64(1));
    QCOMPARE(noted(drawing, VectorNote::Kind::Left, "markers on lines"), qint64(1));
    QCOMPARE(noted(drawing, VectorNote::Kind::Left, "hidden elements"), qint64(2));
}

void TestSvgReader::dots_areThoseThatShow()
{
    const VectorDrawing drawing = readBytes(
        "<svg xmlns='http://www.w3.org/2000/svg' width='9mm' height='9mm' viewBox='0 0 9 9' "
        "stroke='black'><path d='M1 1h0'/><path d='M2 2h0' stroke-linecap='round'/>"
        "<g style='stroke-linecap:square'><path d='M3 3h0z'/><path d='M4 4h0' "
        "stroke-linecap='butt'/></g><path d='M5 5h0M5 6h1'/>"
        "<path d='M7 7h0' fill='black' stroke='none' stroke-linecap='round'/></svg>");
    QVector<QPointF> starts;
    for (const VectorShape &shape : shapesOf(drawing)) {
        for (const VectorPath &path : shape.paths)
            starts.append(path.start());
    }
    QCOMPARE(starts, (QVector<QPointF>{{2, 2}, {3, 3}, {5, 6}}));
}

void TestSvgReader::texts_stayTexts()
{
    const VectorDrawing drawing = readFixture(QStringLiteral("texts"));
    const QVector<VectorText> texts = textsOf(drawing);
    QCOMPARE(texts.size(), 5);
    QCOMPARE(texts[0].text, QStringLiteral("Serial number"));
    QVERIFY(isSame(texts[0].positionMm, QPointF(10, 20)));
    QVERIFY(std::abs(texts[0].heightMm - 7.29) < 0.02); // capitals of DejaVu Sans are 0.729 high
    QCOMPARE(texts[0].fontFamily, QStringLiteral("DejaVu Sans"));
    QCOMPARE(texts[1].text, QStringLiteral("Up"));
    QVERIFY(isSame(texts[1].positionMm, QPointF(50, 50)));
    QVERIFY(std::abs(texts[1].angleDeg - 90.0) < 1e-9);
    QCOMPARE(texts[1].anchor, TextAnchor::Middle);
    QCOMPARE(texts[1].color, QColor(Qt::blue));
    QCOMPARE(texts[2].text, QStringLiteral("First"));
    QVERIFY(isSame(texts[2].positionMm, QPointF(10, 80)));
    QCOMPARE(texts[3].text, QStringLiteral("Second"));
    QVERIFY(isSame(texts[3].positionMm, QPointF(10, 85)));
    QCOMPARE(texts[4].text, QStringLiteral("Flowed"));
    QVERIFY(isSame(texts[4].positionMm, QPointF(60, 74)));
    QCOMPARE(noted(drawing, VectorNote::Kind::Changed, "flowed text, its lines not broken"),
             qint64(1));
}

void TestSvgReader::texts_mirroredAndWide_keepTheirForm()
{
    const VectorDrawing drawing =
        readBytes("<svg width=\"10mm\" height=\"10mm\" viewBox=\"0 0 10 10\">"
                  "<text transform=\"scale(-2,1)\" font-size=\"10\">A</text>"
                  "<text transform=\"skewX(-45)\" font-size=\"10\">B</text></svg>");
    const QVector<VectorText> texts = textsOf(drawing);
    QCOMPARE(texts.size(), 2);
    QVERIFY(texts[0].isMirrored);
    QVERIFY(std::abs(texts[0].angleDeg) < 1e-9);
    QVERIFY(std::abs(texts[0].widthFactor - 2.0) < 1e-9);
    QVERIFY(!texts[1].isMirrored);
    QVERIFY(std::abs(texts[1].slantDeg - 45.0) < 1e-9);
}

void TestSvgReader::names_withOtherPrefixes_areRead()
{
    const VectorDrawing drawing =
        readBytes("<v:svg xmlns:v=\"http://www.w3.org/2000/svg\" xmlns=\"http://example.org/\">"
                  "<v:rect width=\"1\" height=\"1\"/><rect width=\"5\" height=\"5\"/></v:svg>");
    QCOMPARE(drawing.shapeCount(), 1);
    QVERIFY(isSame(drawing.boundsMm(), QRectF(0, 0, 25.4 / 96, 25.4 / 96)));
}

void TestSvgReader::refused_saysLineAndColumn()
{
    const ReadFailure failure = failureOf(fixture(QStringLiteral("not-well-formed")));
    QCOMPARE(failure.kind, ReadFailure::Kind::Damaged);
    QVERIFY2(failure.reason.contains(QLatin1String("line 3, column ")), qPrintable(failure.reason));
    QCOMPARE(failureOf("<html><svg/></html>").kind, ReadFailure::Kind::WrongFormat);
    QCOMPARE(failureOf("<svg/>").kind, ReadFailure::Kind::Empty);
    QCOMPARE(failureOf("<svg/>").advice, QString());
    const ReadFailure told = failureOf("<svg><image/><image/><use/></svg>");
    QVERIFY(told.kind == ReadFailure::Kind::Empty);
    QVERIFY2(QRegularExpression(QStringLiteral("^Left out: [^.]+ \\(\\d\\), [^.]+ \\(\\d\\)\\.$"))
                 .match(told.advice)
                 .hasMatch(),
             qPrintable(told.advice));
}

void TestSvgReader::refused_saysWhatIsWrong_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<QString>("reason");
    QTest::addColumn<QString>("advice");
    const auto row = [](const char *name, const QByteArray &body, const char *reason,
                        const char *advice) {
        QTest::newRow(name) << body << QString::fromLatin1(reason) << QString::fromLatin1(advice);
    };
    row("hyphens", "\n<!-- cut; use --laser -->\n<path d='M0 0H1'/></svg>",
        "The file is not well-formed at line 2, column 19: two hyphens stand inside of a comment.",
        "Take it out with a text editor.");
    row("mismatch", "\n<g><path d='M0 0H1'/></svg>",
        "The file is not well-formed at line 2, column 28: an element ends that did not begin "
        "there.",
        "Save it again with the program that wrote it.");
    row("twice", "\n<path d='M0 0' d='M1 1'/></svg>",
        "The file is not well-formed at line 2, column 24: an attribute is given twice.",
        "Save it again with the program that wrote it.");
    row("entity", "\n<text>a &nbsp; b</text></svg>",
        "The file is not well-formed at line 2, column 14: an entity (&name;) is not declared, or "
        "refers to itself or to too much.",
        "Save it again with the program that wrote it.");
    row("cut off", "\n<g><path d='M0 0H1'/>",
        "The file is not well-formed at line 2, column 21: it ends before its drawing does.",
        "It was cut off: copy it or save it again.");
    row("cut off in a comment", "\n<g><!-- a",
        "The file is not well-formed at line 2, column 10: it ends before its drawing does.",
        "It was cut off: copy it or save it again.");
}

void TestSvgReader::refused_saysWhatIsWrong()
{
    QFETCH(QByteArray, body);
    QFETCH(QString, reason);
    QFETCH(QString, advice);
    const ReadFailure failure =
        failureOf("<svg xmlns='http://www.w3.org/2000/svg' width='9mm' height='9mm'>" + body);
    // The column is where the reader stopped, which may be past the fault by a few letters.
    static const QRegularExpression column(QStringLiteral("column \\d+"));
    QCOMPARE(QString(failure.reason).remove(column), QString(reason).remove(column));
    QCOMPARE(failure.advice, advice);
    QCOMPARE(failure.kind, ReadFailure::Kind::Damaged);
}

void TestSvgReader::refused_neverGrowsWithoutBound_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("kind");
    QByteArray entities = "<!DOCTYPE svg [<!ENTITY a0 \"aaaaaaaaaa\">";
    QByteArray uses = "<svg><g id=\"g0\"><rect width=\"1\" height=\"1\"/></g>";
    for (int level = 1; level < 12; ++level) {
        const QByteArray now = QByteArray::number(level);
        const QByteArray before = QByteArray::number(level - 1);
        entities +=
            "<!ENTITY a" + now + " \"" + QByteArray("&a" + before + ";").repeated(10) + "\">";
        uses += "<g id=\"g" + now + "\">" +
                QByteArray("<use href=\"#g" + before + "\"/>").repeated(10) + "</g>";
    }
    QTest::newRow("entities") << entities + "]><svg><text>&a11;</text></svg>"
                              << int(ReadFailure::Kind::Damaged);
    QTest::newRow("uses") << uses + "</svg>" << int(ReadFailure::Kind::TooLarge);
    QTest::newRow("depth") << QByteArray("<svg>") + QByteArray("<g>").repeated(100000)
                           << int(ReadFailure::Kind::TooLarge);
}

void TestSvgReader::refused_neverGrowsWithoutBound()
{
    QFETCH(QByteArray, bytes);
    QFETCH(int, kind);
    ReadOptions options;
    options.mostPieces = 100000;
    QCOMPARE(int(failureOf(bytes, options).kind), kind);
}

void TestSvgReader::cancelled_leavesTheDrawing()
{
    ReadOptions options;
    options.progress = [](double) { return false; };
    const QByteArray bytes =
        "<svg>" + QByteArray("<rect width=\"1\" height=\"1\"/>").repeated(2000) + "</svg>";
    VectorDrawing drawing;
    drawing.producer = QStringLiteral("before");
    ReadFailure failure;
    QVERIFY(!readSvg(bytes, options, &drawing, &failure));
    QCOMPARE(failure.kind, ReadFailure::Kind::Cancelled);
    QCOMPARE(drawing.producer, QStringLiteral("before"));
}

void TestSvgReader::picture_equalsThatOfAnotherReader_data()
{
    QTest::addColumn<QString>("name");
    // Neither see-through colours nor strokes that a transform makes uneven: a drawing has none.
    for (const char *name :
         {"size-mm", "size-pixels", "aspect", "path-commands", "basic-shapes", "use-symbol",
          "nested", "clip", "layers", "editor-switch", "style-sheet"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void TestSvgReader::picture_equalsThatOfAnotherReader()
{
    QFETCH(QString, name);
    const QString program = QStandardPaths::findExecutable(QStringLiteral("rsvg-convert"));
    QVERIFY2(!program.isEmpty(), "rsvg-convert is missing: tools/setup.sh test");
    QTemporaryDir folder;
    const QString picture = folder.filePath(QStringLiteral("other.png"));
    QProcess process;
    process.start(program,
                  {QStringLiteral("-b"), QStringLiteral("white"), QStringLiteral("-w"),
                   QStringLiteral("400"), QStringLiteral("-o"), picture, fixturePath(name)});
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 0);
    const QImage other = QImage(picture).convertToFormat(QImage::Format_RGB32);
    const QImage ours = pictureOf(readFixture(name), 400);
    QCOMPARE(ours.width(), other.width());
    QVERIFY(std::abs(ours.height() - other.height()) <= 1);
    int differing = 0;
    int drawn = 0;
    for (int y = 0; y < std::min(ours.height(), other.height()); ++y) {
        for (int x = 0; x < ours.width(); ++x) {
            const QColor a = ours.pixelColor(x, y);
            const QColor b = other.pixelColor(x, y);
            const int apart =
                std::max({std::abs(a.red() - b.red()), std::abs(a.green() - b.green()),
                          std::abs(a.blue() - b.blue())});
            drawn += a == Qt::white && b == Qt::white ? 0 : 1;
            differing += apart > 64 ? 1 : 0;
        }
    }
    QVERIFY(drawn > 100);
    QVERIFY2(differing <= drawn / 50,
             qPrintable(QStringLiteral("%1 of %2 pixels").arg(differing).arg(drawn)));
}

QTEST_MAIN(TestSvgReader)
#include "tst_SvgReader.moc"
