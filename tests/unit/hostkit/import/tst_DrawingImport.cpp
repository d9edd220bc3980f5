#include <support/SingletonGuard.h>

#include <hostkit/drawing/DrawingCapture.h>
#include <hostkit/drawing/DrawingLoader.h>
#include <hostkit/import/DrawingImport.h>
#include <hostkit/import/ImportParts_p.h>
#include <hostkit/items/ItemExtras.h>
#include <hostkit/setup/Factories.h>

#include <QtCore/QElapsedTimer>
#include <QtTest/QTest>

#include <cmath>

using hostkit::ImportOptions;
using hostkit::ImportResult;
using hostkit::ImportSplit;
using vectorkit::VectorDrawing;
using vectorkit::VectorLayer;
using vectorkit::VectorPath;
using vectorkit::VectorShape;
using vectorkit::VectorText;

namespace {

VectorPath square(double left, double top, double side)
{
    return VectorPath::polyline(
        {{left, top}, {left + side, top}, {left + side, top + side}, {left, top + side}}, true);
}

VectorShape shape(const QVector<VectorPath> &paths, const QColor &color)
{
    VectorShape made;
    made.paths = paths;
    made.color = color;
    return made;
}

/** Layer "Cut": a red square with a hole and an island, a blue circle; "Notes": a red line. */
VectorDrawing plate()
{
    VectorLayer cut;
    cut.name = QStringLiteral("Cut");
    cut.shapes << shape({square(10, 10, 40), square(20, 20, 20), square(25, 25, 10)}, Qt::red)
               << shape({VectorPath::circle({80, 30}, 10)}, Qt::blue);
    VectorLayer notes;
    notes.name = QStringLiteral("Notes");
    notes.shapes << shape({VectorPath::polyline({{0, 60}, {90, 60}})}, Qt::red);
    VectorDrawing drawing;
    drawing.layers << cut << notes;
    return drawing;
}

/** Box of an item's outline on the scene, in millimetres. */
QRectF boxMm(const ZTAbstractGraphicsItem &item)
{
    const QRectF px = item.getShapeBase()->getLines().boundingRect().translated(item.pos());
    const double mm = ZTCoord::getInstance()->pix2mm(1.0);
    return QRectF(px.topLeft() * mm, px.size() * mm);
}

bool isClose(const QRectF &a, const QRectF &b, double tolerance = 1e-6)
{
    return std::abs(a.left() - b.left()) < tolerance && std::abs(a.top() - b.top()) < tolerance &&
           std::abs(a.right() - b.right()) < tolerance &&
           std::abs(a.bottom() - b.bottom()) < tolerance;
}

ImportOptions splitBy(ImportSplit split)
{
    ImportOptions options;
    options.split = split;
    return options;
}

QString nameOf(const ZTAbstractGraphicsItem *item) { return hostkit::itemExtras(*item).name; }

} // namespace

Q_DECLARE_METATYPE(vectorkit::VectorDrawing)

#define COMPARE_BOX(actual, expected, tolerance)                                                   \
    do {                                                                                           \
        const QRectF box = actual;                                                                 \
        QString text;                                                                              \
        QDebug(&text) << box << "instead of" << expected;                                          \
        QVERIFY2(isClose(box, expected, tolerance), qPrintable(text));                             \
    } while (false)

class tst_DrawingImport : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { hostkit::registerFactories(); }
    void cleanup() { ZTCurveTolerance::setToleranceMm(0.0); }

    void import_keepsSizeAndPlace();
    void import_byLayer_keepsOpenOutlinesApart();
    void import_byColor_givesPens();
    void import_byOutline_takesHolesAndGroups();
    void import_whole_saysThatPensMerge();
    void import_fillOpen_hatchesThemWithTheRest();
    void import_hatchesClosedOutlinesAlone();
    void import_penTable_winsOverTheNearestColor();
    void import_plotterPens_areKept();
    void import_colorIndices_areNoPens();
    void import_tolerance_makesStraightPieces();
    void import_dots_becomeShortLines();
    void import_manyOutlines_takeTheirHolesSoon();
    void import_centre_movesTheWhole();
    void import_centreThatIsNone_staysInItsPlace();
    void import_farFromTheOrigin_staysWhole_data();
    void import_farFromTheOrigin_staysWhole();
    void import_largerThanTheScene_staysWhole();
    void import_cancelled_leavesNothing();
    void import_copies_keepTheirDrawing();
    void import_savedAndLoaded_isTheSame();
    void text_standsOnItsBaseLine();
    void text_turnedAndMirrored_standsWhereItShould();
    void arrivingBox_isThatOfWhatCameIn_data();
    void arrivingBox_isThatOfWhatCameIn();
    void arrivingBox_ofSpacesAlone_isNull();
    void missingFonts_areNotedByName();
    void fit_oneSide_keepsTheForm();
    void fit_bothSides_stretches();
    void fit_countsTexts_data();
    void fit_countsTexts();
    void fit_withoutExtent_isRefused();
};

void tst_DrawingImport::import_keepsSizeAndPlace()
{
    ZTGraphicsDocument document;
    const ImportResult result =
        hostkit::importDrawing(document, plate(), splitBy(ImportSplit::Color));
    // Red and closed, red and open, blue.
    QCOMPARE(result.items.size(), 3);
    COMPARE_BOX(boxMm(*result.items[0]), QRectF(10, 10, 40, 40), 1e-6);
    COMPARE_BOX(boxMm(*result.items[1]), QRectF(0, 60, 90, 0), 1e-6);
    COMPARE_BOX(boxMm(*result.items[2]), QRectF(70, 20, 20, 20), 0.05);
    QCOMPARE(result.items[0]->getShapeType(), ShapeType::VecGraph);
    QCOMPARE(document.undoStack()->count(), 0);
}

void tst_DrawingImport::import_byLayer_keepsOpenOutlinesApart()
{
    ZTGraphicsDocument document;
    VectorDrawing drawing = plate();
    drawing.layers[0].shapes << shape({VectorPath::polyline({{0, 0}, {5, 5}})}, Qt::red);
    const ImportResult result =
        hostkit::importDrawing(document, drawing, splitBy(ImportSplit::Layer));
    QCOMPARE(result.items.size(), 3);
    QCOMPARE(nameOf(result.items[0]), QStringLiteral("Cut"));
    QCOMPARE(nameOf(result.items[1]), QStringLiteral("Cut"));
    QCOMPARE(nameOf(result.items[2]), QStringLiteral("Notes"));
    QCOMPARE(result.openShapes, 2);
    QCOMPARE(result.mergedPens, 1); // red and blue outlines of "Cut"
}

void tst_DrawingImport::import_byColor_givesPens()
{
    ZTGraphicsDocument document;
    const ImportResult result =
        hostkit::importDrawing(document, plate(), splitBy(ImportSplit::Color));
    QCOMPARE(result.items[0]->getPenId(), 12); // red
    QCOMPARE(result.items[1]->getPenId(), 12);
    QCOMPARE(result.items[2]->getPenId(), 2); // blue
    QCOMPARE(nameOf(result.items[2]), QStringLiteral("#0000ff"));
    QCOMPARE(result.mergedPens, 0);
}

void tst_DrawingImport::import_byOutline_takesHolesAndGroups()
{
    ZTGraphicsDocument document;
    const ImportResult result =
        hostkit::importDrawing(document, plate(), splitBy(ImportSplit::Outline));
    // Of "Cut": the circle (pen 2), the square with its hole, the island in that; the line.
    QCOMPARE(result.items.size(), 4);
    COMPARE_BOX(boxMm(*result.items[1]), QRectF(10, 10, 40, 40), 1e-6);
    COMPARE_BOX(boxMm(*result.items[2]), QRectF(25, 25, 10, 10), 1e-6);
    QCOMPARE(result.items[1]->getShapeBase()->getLines().toSubpathPolygons().size(), 2);
    const auto groupOf = [&](int index) {
        return hostkit::itemExtras(*result.items[index]).groupPath;
    };
    QCOMPARE(groupOf(0).size(), 1);
    QCOMPARE(groupOf(0), groupOf(1));
    QCOMPARE(groupOf(0), groupOf(2));
    QVERIFY(groupOf(0) != groupOf(3));
    // A second import does not join the groups of the first.
    const ImportResult again =
        hostkit::importDrawing(document, plate(), splitBy(ImportSplit::Outline));
    QVERIFY(hostkit::itemExtras(*again.items[0]).groupPath != groupOf(0));
    QVERIFY(hostkit::itemExtras(*again.items[0]).groupPath != groupOf(3));
}

void tst_DrawingImport::import_whole_saysThatPensMerge()
{
    ZTGraphicsDocument document;
    const ImportResult result =
        hostkit::importDrawing(document, plate(), splitBy(ImportSplit::None));
    QCOMPARE(result.items.size(), 2);
    QCOMPARE(result.mergedPens, 1);
    QCOMPARE(result.openShapes, 1);
    COMPARE_BOX(boxMm(*result.items[0]), QRectF(10, 10, 80, 40), 0.05);
}

void tst_DrawingImport::import_fillOpen_hatchesThemWithTheRest()
{
    ZTGraphicsDocument document;
    ImportOptions options = splitBy(ImportSplit::None);
    options.fillsOpen = true;
    VectorDrawing drawing;
    drawing.layers << VectorLayer();
    drawing.layers[0].shapes << shape({VectorPath::polyline({{0, 0}, {20, 0}, {20, 20}})}, Qt::red);
    ZTFillParam fill;
    fill.fillType = FillType::Line;
    fill.spac = 1.0;
    options.fill = fill;
    const ImportResult result = hostkit::importDrawing(document, drawing, options);
    QCOMPARE(result.items.size(), 1);
    result.items[0]->getShapeBase()->paint();
    QVERIFY(!result.items[0]->getShapeBase()->getFillLines().isEmpty());
}

void tst_DrawingImport::import_hatchesClosedOutlinesAlone()
{
    ZTGraphicsDocument document;
    ImportOptions options = splitBy(ImportSplit::None);
    ZTFillParam fill;
    fill.fillType = FillType::Line;
    fill.spac = 1.0;
    options.fill = fill;
    VectorDrawing drawing = plate();
    // Taken as closed this would be hatched.
    drawing.layers[1].shapes[0].paths = {VectorPath::polyline({{0, 60}, {90, 60}, {90, 80}})};
    const ImportResult result = hostkit::importDrawing(document, drawing, options);
    QCOMPARE(result.items.size(), 2);
    for (ZTAbstractGraphicsItem *item : result.items)
        item->getShapeBase()->paint();
    QCOMPARE(result.items[0]->getFillParam().fillType, FillType::Line);
    QVERIFY(!result.items[0]->getShapeBase()->getFillLines().isEmpty());
    QCOMPARE(result.items[1]->getFillParam().fillType, FillType::None);
    QVERIFY(result.items[1]->getShapeBase()->getFillLines().isEmpty());
}

void tst_DrawingImport::import_penTable_winsOverTheNearestColor()
{
    ZTGraphicsDocument document;
    ImportOptions options = splitBy(ImportSplit::Color);
    options.pens.insert(QColor(Qt::red).rgb(), 5);
    const ImportResult result = hostkit::importDrawing(document, plate(), options);
    QCOMPARE(result.items[0]->getPenId(), 5);
    QCOMPARE(result.items[2]->getPenId(), 2);
    QCOMPARE(hostkit::penForColor(QColor(250, 10, 10), {}), 12);
    QCOMPARE(hostkit::penForColor(QColor(), {}), 1);
}

void tst_DrawingImport::import_plotterPens_areKept()
{
    ZTGraphicsDocument document;
    VectorDrawing drawing = plate();
    drawing.layers[0].shapes[0].pen = 3;
    drawing.layers[0].shapes[1].pen = 7;
    const ImportResult result =
        hostkit::importDrawing(document, drawing, splitBy(ImportSplit::Color));
    QCOMPARE(result.items[0]->getPenId(), 3);
    QCOMPARE(result.items[1]->getPenId(), 7);
}

void tst_DrawingImport::import_colorIndices_areNoPens()
{
    VectorDrawing drawing = plate();
    drawing.format = vectorkit::VectorFormat::Dxf;
    drawing.layers[0].shapes[0].pen = 7;
    drawing.layers[0].shapes[0].color = Qt::black;
    drawing.layers[0].shapes[1].pen = 1;
    drawing.layers[0].shapes[1].color = Qt::red;
    drawing.layers[1].shapes[0].pen = 5;
    drawing.layers[1].shapes[0].color = Qt::blue;
    ZTGraphicsDocument document;
    const ImportResult result =
        hostkit::importDrawing(document, drawing, splitBy(ImportSplit::Color));
    QCOMPARE(result.items.size(), 3);
    // Black, red and blue on the screen.
    QCOMPARE(result.items[0]->getPenId(), 1);
    QCOMPARE(result.items[1]->getPenId(), 12);
    QCOMPARE(result.items[2]->getPenId(), 2);
}

void tst_DrawingImport::import_tolerance_makesStraightPieces()
{
    ZTGraphicsDocument document;
    ImportOptions options = splitBy(ImportSplit::Color);
    options.toleranceMm = 0.001;
    const ImportResult result = hostkit::importDrawing(document, plate(), options);
    const auto *graphic = dynamic_cast<ZTVecGraph *>(result.items[2]->getShapeBase());
    QVERIFY(graphic != nullptr);
    const QPainterPath &path = graphic->getDrawing();
    for (int index = 0; index < path.elementCount(); ++index) {
        const QPainterPath::Element element = path.elementAt(index);
        QVERIFY(!element.isCurveTo());
        // On the circle, whose box begins at the shape's origin.
        QVERIFY(std::abs(std::hypot(element.x - 10, element.y - 10) - 10) < 1e-6);
    }
    // Chords as far apart as 0.001 mm allows: 2 acos(1 - 0.0001) each, 222 of them.
    QVERIFY(path.elementCount() >= 222);
}

void tst_DrawingImport::import_dots_becomeShortLines()
{
    const VectorPath dot = VectorPath::polyline({{30, 40}, {30, 40}});
    const VectorPath closedDot = VectorPath::polyline({{50, 40}, {50, 40}, {50, 40}}, true);
    VectorLayer layer;
    layer.shapes << shape({VectorPath::polyline({{0, 0}, {20, 0}}), dot}, Qt::red)
                 << shape({dot, closedDot}, Qt::blue)
                 << shape({VectorPath::circle({5, 5}, 0.001)}, Qt::black);
    VectorDrawing drawing;
    drawing.layers << layer;
    for (const double toleranceMm : {0.0, 0.01}) {
        ZTGraphicsDocument document;
        ImportOptions options = splitBy(ImportSplit::Color);
        options.toleranceMm = toleranceMm;
        const ImportResult result = hostkit::importDrawing(document, drawing, options);
        QCOMPARE(result.dots, 3);
        // A closed outline and open ones are never one shape.
        QCOMPARE(result.items.size(), 4);
        COMPARE_BOX(boxMm(*result.items[0]), QRectF(0, 0, 30.005, 40), 1e-6);
        COMPARE_BOX(boxMm(*result.items[1]), QRectF(49.995, 40, 0.01, 0), 1e-6);
        COMPARE_BOX(boxMm(*result.items[2]), QRectF(29.995, 40, 0.01, 0), 1e-6);
        // Smaller than the tolerance, and still a spot; never a word that stands for nothing.
        QVERIFY(boxMm(*result.items[3]).width() <= 0.0101);
        QVERIFY(boxMm(*result.items[3]).height() <= 0.0101);
    }
}

void tst_DrawingImport::import_manyOutlines_takeTheirHolesSoon()
{
    QVector<VectorPath> closed;
    for (int i = 0; i < 20000; ++i) {
        closed << square(i % 200 * 10.0, i / 200 * 10.0, 8)
               << square(i % 200 * 10.0 + 2, i / 200 * 10.0 + 2, 4);
    }
    QElapsedTimer clock;
    clock.start();
    const QVector<QVector<int>> outlines = hostkit::outlinesWithHoles(closed);
    QCOMPARE(outlines.size(), 20000);
    for (int i = 0; i < outlines.size(); ++i)
        QCOMPARE(outlines[i], (QVector<int>{2 * i, 2 * i + 1}));
    // Each of 800,000,000 pairs looked at would take minutes.
    QVERIFY2(clock.elapsed() < 20000, qPrintable(QString::number(clock.elapsed())));
    QVERIFY(hostkit::outlinesWithHoles(closed, [](double) { return false; }).isEmpty());
}

void tst_DrawingImport::import_centre_movesTheWhole()
{
    ZTGraphicsDocument document;
    ImportOptions options = splitBy(ImportSplit::Color);
    options.centreMm = QPointF(100, 200);
    const ImportResult result = hostkit::importDrawing(document, plate(), options);
    // The whole reaches from (0, 10) to (90, 60).
    COMPARE_BOX(boxMm(*result.items[0]), QRectF(65, 175, 40, 40), 0.05);
    COMPARE_BOX(boxMm(*result.items[1]), QRectF(55, 225, 90, 0), 0.05);
}

void tst_DrawingImport::import_centreThatIsNone_staysInItsPlace()
{
    for (const double bad : {qQNaN(), qInf()}) {
        ZTGraphicsDocument document;
        ImportOptions options = splitBy(ImportSplit::Color);
        options.centreMm = QPointF(bad, 0);
        const ImportResult result = hostkit::importDrawing(document, plate(), options);
        COMPARE_BOX(boxMm(*result.items[0]), QRectF(10, 10, 40, 40), 0.05);
    }
}

void tst_DrawingImport::import_farFromTheOrigin_staysWhole_data()
{
    QTest::addColumn<QPointF>("farMm");
    QTest::addColumn<bool>("isCentred");
    // The scene reaches some 8.6 m to each side; drawings of sites lie kilometres away.
    const QVector<QPointF> places{{9e3, 0}, {-1e5, 2e4}, {5e6, -7e6}, {0, 1e9}};
    for (const QPointF &place : places) {
        for (const bool isCentred : {false, true})
            QTest::addRow("%g, %g%s", place.x(), place.y(), isCentred ? ", centred" : "")
                << place << isCentred;
    }
}

void tst_DrawingImport::import_farFromTheOrigin_staysWhole()
{
    QFETCH(const QPointF, farMm);
    QFETCH(const bool, isCentred);
    VectorText word;
    word.text = QStringLiteral("H");
    word.heightMm = 5;
    word.positionMm = {50, 40};
    VectorDrawing drawing = plate();
    drawing.layers[0].texts << word;
    ImportOptions options = splitBy(ImportSplit::Color);
    ZTGraphicsDocument nearby;
    const ImportResult expected = hostkit::importDrawing(nearby, drawing, options);
    const QTransform away = QTransform::fromTranslate(farMm.x(), farMm.y());
    for (VectorLayer &layer : drawing.layers) {
        for (VectorShape &shape : layer.shapes) {
            for (VectorPath &path : shape.paths)
                path = path.transformed(away);
        }
        for (VectorText &text : layer.texts)
            text.positionMm += farMm;
    }
    if (isCentred)
        options.centreMm = QPointF(100, 200);
    ZTGraphicsDocument document;
    const ImportResult result = hostkit::importDrawing(document, drawing, options);
    QCOMPARE(result.items.size(), 4);
    const QPointF wayMm = boxMm(*result.items[0]).topLeft() - QPointF(10, 10);
    for (int i = 0; i < 4; ++i)
        COMPARE_BOX(boxMm(*result.items[i]), boxMm(*expected.items[i]).translated(wayMm), 1e-4);
    if (isCentred)
        COMPARE_BOX(boxMm(*result.items[0]), QRectF(65, 175, 40, 40), 0.05);
    for (const ZTAbstractGraphicsItem *item : result.items)
        QVERIFY(document.scene()->sceneRect().contains(item->pos()));
}

void tst_DrawingImport::import_largerThanTheScene_staysWhole()
{
    VectorLayer layer;
    layer.shapes << shape({square(-15e3, 0, 10)}, Qt::red)
                 << shape({square(25e3, 9e3, 10)}, Qt::blue);
    VectorDrawing drawing;
    drawing.layers << layer;
    for (const bool isCentred : {false, true}) {
        ImportOptions options = splitBy(ImportSplit::Color);
        if (isCentred)
            options.centreMm = QPointF(0, 0);
        ZTGraphicsDocument document;
        const ImportResult result = hostkit::importDrawing(document, drawing, options);
        QCOMPARE(result.items.size(), 2);
        const QRectF red = boxMm(*result.items[0]);
        COMPARE_BOX(boxMm(*result.items[1]), red.translated(40e3, 9e3), 1e-4);
    }
}

void tst_DrawingImport::import_cancelled_leavesNothing()
{
    ZTGraphicsDocument document;
    document.itemMag()->addShape(ShapeType::Rect, {0, 0, 10, 10});
    ImportOptions options = splitBy(ImportSplit::Color);
    options.progress = [](double done) { return done < 0.5; };
    const ImportResult result = hostkit::importDrawing(document, plate(), options);
    QVERIFY(result.isCancelled);
    QVERIFY(result.items.isEmpty());
    QCOMPARE(document.itemMag()->getShapeList().size(), 1);
}

void tst_DrawingImport::import_copies_keepTheirDrawing()
{
    ZTGraphicsDocument document;
    const ImportResult result =
        hostkit::importDrawing(document, plate(), splitBy(ImportSplit::Color));
    ZTVecGraphItemFactory::getInstance()->setPath(QStringLiteral(".plt"));
    ZTAbstractGraphicsItem *copy =
        document.itemMag()->addShape(ShapeType::VecGraph, {0, 0, 10, 10});
    copy->copy(result.items[0]);
    copy->setPos(result.items[0]->pos());
    COMPARE_BOX(boxMm(*copy), QRectF(10, 10, 40, 40), 1e-6);
}

void tst_DrawingImport::import_savedAndLoaded_isTheSame()
{
    ZTGraphicsDocument document;
    const ImportResult result =
        hostkit::importDrawing(document, plate(), splitBy(ImportSplit::Outline));
    const QRectF before = boxMm(*result.items[2]);
    hostkit::DrawingFile file;
    ZTGraphicsDocument loaded;
    hostkit::DrawingReport report;
    hostkit::Failure error;
    QVERIFY(hostkit::captureDrawing(document, {}, &file, &error));
    QVERIFY(hostkit::applyDrawing(file, loaded, {}, &report, &error));
    QVector<QRectF> boxes;
    for (QGraphicsItem *candidate : loaded.scene()->items(Qt::AscendingOrder)) {
        if (auto *item = dynamic_cast<ZTAbstractGraphicsItem *>(candidate))
            boxes << boxMm(*item);
    }
    QCOMPARE(boxes.size(), 4);
    COMPARE_BOX(boxes[2], before, 1e-9);
}

void tst_DrawingImport::text_standsOnItsBaseLine()
{
    VectorText text;
    text.text = QStringLiteral("HIE"); // flat letters: on the base line, as high as capitals
    text.positionMm = {30, 40};
    text.heightMm = 7.0;
    text.fontFamily = QStringLiteral("DejaVu Sans");
    text.color = Qt::green;
    text.anchor = vectorkit::TextAnchor::Right;
    VectorDrawing drawing;
    drawing.layers << VectorLayer();
    drawing.layers[0].texts << text;
    ZTGraphicsDocument document;
    const ImportResult result = hostkit::importDrawing(document, drawing, ImportOptions());
    QCOMPARE(result.items.size(), 1);
    QCOMPARE(result.texts, 1);
    QCOMPARE(result.items[0]->text(), QStringLiteral("HIE"));
    const QRectF box = boxMm(*result.items[0]);
    QVERIFY2(std::abs(box.bottom() - 40.0) < 0.05, qPrintable(QString::number(box.bottom())));
    QVERIFY2(std::abs(box.height() - 7.0) < 0.15, qPrintable(QString::number(box.height())));
    QVERIFY(box.right() < 30.0 && box.right() > 28.5); // less the space behind the last letter
}

void tst_DrawingImport::text_turnedAndMirrored_standsWhereItShould()
{
    VectorText text;
    text.text = QStringLiteral("HIE");
    text.positionMm = {30, 40};
    text.heightMm = 7.0;
    text.angleDeg = 90.0; // reads upward
    VectorDrawing drawing;
    drawing.layers << VectorLayer();
    drawing.layers[0].texts << text;
    text.angleDeg = 0.0;
    text.isMirrored = true; // runs to the left
    drawing.layers[0].texts << text;
    ZTGraphicsDocument document;
    const ImportResult result = hostkit::importDrawing(document, drawing, ImportOptions());
    QCOMPARE(result.items.size(), 2);
    const QRectF upward = boxMm(*result.items[0]);
    QVERIFY(std::abs(upward.right() - 30.0) < 0.05);
    QVERIFY(upward.bottom() < 40.0 && upward.bottom() > 38.0 && upward.height() > 10.0);
    const QRectF left = boxMm(*result.items[1]);
    QVERIFY(std::abs(left.bottom() - 40.0) < 0.05);
    QVERIFY(left.right() < 30.0 && left.right() > 28.0 && left.width() > 10.0);
}

/** Of letters that make a pair, an overhang and a descender. */
VectorText word(const QPointF &positionMm)
{
    VectorText text;
    text.text = QStringLiteral("AV Tj");
    text.positionMm = positionMm;
    text.heightMm = 12.0;
    return text;
}

void addWords()
{
    QTest::addColumn<VectorDrawing>("drawing");
    VectorDrawing drawing = plate();
    VectorText text = word({85, 55});
    const auto addRow = [&](const char *name) {
        drawing.layers[0].texts = {text};
        QTest::newRow(name) << drawing;
    };
    addRow("plain");
    text.anchor = vectorkit::TextAnchor::Right;
    text.positionMm = {5, 5};
    addRow("right");
    text.anchor = vectorkit::TextAnchor::Middle;
    text.slantDeg = 20;
    text.widthFactor = 1.5;
    addRow("slanted");
    text.isMirrored = true;
    addRow("mirrored");
    text.angleDeg = 33;
    addRow("turned");
    drawing.layers[0].shapes.clear();
    drawing.layers.removeLast();
    addRow("text alone");
}

QRectF boxOfAll(const ImportResult &result)
{
    QPolygonF corners;
    for (const ZTAbstractGraphicsItem *item : result.items) {
        const QRectF box = boxMm(*item);
        corners << box.topLeft() << box.bottomRight();
    }
    return corners.boundingRect();
}

void tst_DrawingImport::arrivingBox_isThatOfWhatCameIn_data() { addWords(); }

void tst_DrawingImport::arrivingBox_isThatOfWhatCameIn()
{
    QFETCH(VectorDrawing, drawing);
    ZTGraphicsDocument document;
    const ImportResult result = hostkit::importDrawing(document, drawing, ImportOptions());
    QCOMPARE(result.texts, 1);
    QVector<QPainterPath> letters;
    COMPARE_BOX(hostkit::arrivingBoxMm(drawing, &letters), boxOfAll(result), 0.005);
    QCOMPARE(letters.size(), 1);
    COMPARE_BOX(letters.first().boundingRect(), boxMm(*result.items.last()), 0.005);
}

void tst_DrawingImport::arrivingBox_ofSpacesAlone_isNull()
{
    VectorDrawing drawing;
    drawing.layers << VectorLayer();
    drawing.layers[0].texts << word({5, 5});
    drawing.layers[0].texts[0].text = QStringLiteral("  ");
    QVector<QPainterPath> letters;
    QVERIFY(hostkit::arrivingBoxMm(drawing, &letters).isNull());
    QCOMPARE(letters, QVector<QPainterPath>(1));
    // Nor does it count beside what comes in.
    VectorDrawing both = plate();
    both.layers << drawing.layers;
    COMPARE_BOX(hostkit::arrivingBoxMm(both), QRectF(0, 10, 90, 50), 1e-9);
}

void tst_DrawingImport::missingFonts_areNotedByName()
{
    VectorDrawing drawing = plate();
    VectorText text = word({5, 5});
    drawing.layers[0].texts << text; // without a font of its own
    text.fontFamily = QFontInfo(QFont()).family();
    drawing.layers[0].texts << text;
    text.fontFamily = QStringLiteral("No Such Family");
    drawing.layers[0].texts << text;
    drawing.layers[1].texts << text;
    hostkit::noteMissingFonts(&drawing);
    QCOMPARE(drawing.notes.size(), 1);
    const vectorkit::VectorNote &note = drawing.notes.first();
    QCOMPARE(note.kind, vectorkit::VectorNote::Kind::Changed);
    QCOMPARE(note.count, qint64(2));
    QCOMPARE(note.what, QStringLiteral("font \"No Such Family\", which is not installed here: "
                                       "\"%1\" stands in for it")
                            .arg(QFontInfo(QFont(QStringLiteral("No Such Family"))).family()));
    QCOMPARE(drawing.layers[1].texts.first().fontFamily, QStringLiteral("No Such Family"));
}

void tst_DrawingImport::fit_countsTexts_data() { addWords(); }

void tst_DrawingImport::fit_countsTexts()
{
    QFETCH(VectorDrawing, drawing);
    ZTCurveTolerance::setToleranceMm(0.001); // what is measured is made of chords
    for (const QSizeF &sizeMm : {QSizeF(80, 0), QSizeF(80, 140)}) {
        QVERIFY(hostkit::fitDrawing(&drawing, sizeMm));
        ZTGraphicsDocument document;
        const QRectF box = boxOfAll(hostkit::importDrawing(document, drawing, ImportOptions()));
        QVERIFY2(std::abs(box.width() - 80) < 0.005, qPrintable(QString::number(box.width())));
        QVERIFY2(sizeMm.height() <= 0.0 || std::abs(box.height() - 140) < 0.005,
                 qPrintable(QString::number(box.height())));
    }
}

void tst_DrawingImport::fit_oneSide_keepsTheForm()
{
    VectorDrawing drawing = plate(); // 90 wide, 50 high
    QVERIFY(hostkit::fitDrawing(&drawing, QSizeF(0, 100)));
    QVERIFY(isClose(drawing.boundsMm(), QRectF(0, 20, 180, 100)));
    QVERIFY(hostkit::fitDrawing(&drawing, QSizeF(90, -1)));
    QVERIFY(isClose(drawing.boundsMm(), QRectF(0, 10, 90, 50)));
}

void tst_DrawingImport::fit_bothSides_stretches()
{
    VectorDrawing drawing = plate();
    QVERIFY(hostkit::fitDrawing(&drawing, QSizeF(90, 100)));
    QVERIFY(isClose(drawing.boundsMm(), QRectF(0, 20, 90, 100)));
}

void tst_DrawingImport::fit_withoutExtent_isRefused()
{
    VectorDrawing drawing;
    drawing.layers << VectorLayer();
    drawing.layers[0].shapes << shape({VectorPath::polyline({{5, 5}, {10, 5}})}, Qt::red);
    QVERIFY(!hostkit::fitDrawing(&drawing, QSizeF(0, 20)));
    QVERIFY(isClose(drawing.boundsMm(), QRectF(5, 5, 5, 0)));
    QVERIFY(hostkit::fitDrawing(&drawing, QSizeF(10, 0)));
    QVERIFY(isClose(drawing.boundsMm(), QRectF(10, 10, 10, 0)));
}

QTEST_MAIN(tst_DrawingImport)
#include "tst_DrawingImport.moc"
