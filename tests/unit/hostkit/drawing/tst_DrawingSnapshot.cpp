#include <support/DrawingBytes.h>
#include <support/OwnFolder.h>
#include <support/RandomDrawing.h>
#include <support/SingletonGuard.h>
#include <support/TinyFonts.h>
#include <support/WarningGuard.h>

#include <hostkit/drawing/DrawingLoader_p.h>
#include <hostkit/setup/Factories.h>
#include <hostkit/drawing/SampleDrawing.h>

#include <QtCore/QDir>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QUndoStack>

#include <sys/stat.h>

using hostkit::DrawingError;
using hostkit::DrawingFile;
using testsupport::captured;
using testsupport::load;
using testsupport::savedBytes;

namespace {

const QByteArray kCorner("PU0 0;\nPD100 0;\nPD100 50;\n");

ZTAbstractGraphicsItem *addTo(ZTGraphicsDocument &document, ShapeType type)
{
    return document.itemMag()->addShape(type, QRectF(0, 0, 10, 10));
}

ZTAbstractGraphicsItem *onlyItemOf(ZTGraphicsDocument &document)
{
    for (QGraphicsItem *item : document.scene()->items()) {
        if (auto *found = dynamic_cast<ZTAbstractGraphicsItem *>(item))
            return found;
    }
    return nullptr;
}

void put(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), qint64(bytes.size()));
}

/** Everything but its one field that a polygon or an imported drawing has. */
void setUp(ZTAbstractGraphicsItem &item)
{
    ZTShapeBase &shape = *item.getShapeBase();
    shape.setRect(QRectF(1, 2, 31, 17));
    item.setTransformParam(QTransform(0.5, 0.25, 0.0, -0.25, 2.0, 0.0, 3.0, 4.0, 1.0));
    shape.setRoundingTransformParam(QTransform::fromScale(1.5, 1.25));
    ZTFillParam fill;
    fill.fillType = FillType::ULine;
    fill.spac = 0.75;
    fill.angle = 33.0;
    fill.isEnableBorder = false;
    item.setFillParam(fill);
    shape.setShapeType(ShapeType::Pixmap);
    shape.setId(77);
    shape.setLockAspectRatio(true);
    item.setPenId(5);
    item.setPos(11.0, -12.0);
}

void checkIsSetUp(const ZTAbstractGraphicsItem &item)
{
    ZTShapeBase &shape = *item.getShapeBase();
    QCOMPARE(shape.getRect(), QRectF(1, 2, 31, 17));
    QCOMPARE(shape.getTransformParam(), QTransform(0.5, 0.25, 0, -0.25, 2.0, 0, 3.0, 4.0, 1.0));
    QCOMPARE(shape.getRoundingTransformParam(), QTransform::fromScale(1.5, 1.25));
    QCOMPARE(shape.getFillParam().fillType, FillType::ULine);
    QCOMPARE(shape.getFillParam().spac, 0.75);
    QCOMPARE(shape.getFillParam().angle, 33.0);
    QCOMPARE(shape.getFillParam().isEnableBorder, false);
    QCOMPARE(shape.getShapeType(), ShapeType::Pixmap);
    QCOMPARE(shape.getId(), 77);
    QCOMPARE(shape.getLockAspectRatio(), true);
    QCOMPARE(item.getPenId(), 5);
    QCOMPARE(item.pos(), QPointF(11.0, -12.0));
}

} // namespace

class tst_DrawingSnapshot : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        ZTGraphicsDocument document;
        DrawingFile drawing = captured(document);
        drawing.stream = QByteArray("\0\0\0\0\0\0\0\0\0\0\0\1\0\0\0\1", 16) + QByteArray(231, '\0');
        DrawingError error;
        QVERIFY(!applyDrawing(drawing, document, {}, nullptr, &error));
        QCOMPARE(error.kind, DrawingError::Kind::NotLoadable);
        QCOMPARE(error.reason, QStringLiteral("this program makes no objects of kind Rect"));
        hostkit::registerFactories();
    }
    void init()
    {
        messages.reset(new testsupport::WarningGuard);
        guard.reset(new testsupport::SingletonGuard);
        testsupport::emptyFontFolder();
    }
    void cleanup()
    {
        guard.reset();
        messages.reset();
    }

    void emptyDrawing_loads()
    {
        ZTGraphicsDocument document;
        addTo(document, ShapeType::Rect);
        ZTGraphicsDocument empty;
        DrawingError error;
        const QByteArray bytes = savedBytes(empty);
        QVERIFY2(load(bytes, document, &error), qPrintable(error.reason));
        QVERIFY(document.itemMag()->getShapeList().isEmpty());
        QCOMPARE(savedBytes(document), bytes);
    }

    void sample_savedAndLoaded_marksTheSame()
    {
        ZTGraphicsDocument document;
        hostkit::buildSampleDrawing(document);
        checkRoundTrip(document);
    }

    void polygonAndImportedDrawing_keepWhatTheStreamLoses()
    {
        for (const ShapeType type : {ShapeType::Polygon, ShapeType::VecGraph}) {
            ZTGraphicsDocument document;
            setUp(*addTo(document, type));
            ZTGraphicsDocument other;
            DrawingError error;
            QVERIFY2(load(savedBytes(document), other, &error), qPrintable(error.reason));
            checkIsSetUp(*onlyItemOf(other));
            QCOMPARE(onlyItemOf(other)->getShapeType(), type);
            QCOMPARE(treeIds(other), QList<int>{77});
        }
        messages->take(); // of the library: an imported drawing begins with no file
    }

    void bareStream_loadsAsTheLibraryDoes()
    {
        ZTGraphicsDocument document;
        auto *polygon = addTo(document, ShapeType::Polygon);
        setUp(*polygon);
        DrawingFile drawing = captured(document);
        drawing.hasRest = false;
        ZTGraphicsDocument other;
        DrawingError error;
        QVERIFY2(load(drawingToBytes(drawing), other, &error), qPrintable(error.reason));
        ZTShapeBase &shape = *onlyItemOf(other)->getShapeBase();
        QCOMPARE(shape.getRect(), QRectF(0, 0, 10, 10));
        QCOMPARE(shape.getTransformParam(), QTransform());
        QCOMPARE(shape.getFillParam(), ZTFillParam());
        QCOMPARE(shape.getPenId(), 1);
        QCOMPARE(shape.getId(), 0);
        QCOMPARE(onlyItemOf(other)->pos(), QPointF(11.0, -12.0));
    }

    void importedDrawing_isThereWithoutItsFile()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("logo.plt"));
        put(path, kCorner);
        ZTGraphicsDocument document;
        auto *graphic = graphicOf(addTo(document, ShapeType::VecGraph));
        graphic->setImagePath(path);
        const ZTMarkGraph before = document.itemMag()->getShapeLines();
        put(path, "PU0 0;\nPD7 7;\n"); // changed by someone before the drawing is saved
        const QByteArray bytes = savedBytes(document);
        QVERIFY(QFile::remove(path));
        messages->take();
        ZTGraphicsDocument other;
        DrawingError error;
        QVERIFY2(load(bytes, other, &error), qPrintable(error.reason));
        QVERIFY(testsupport::sameGraph(other.itemMag()->getShapeLines(), before));
        QCOMPARE(graphicOf(onlyItemOf(other))->getImagePath(), path);
        QCOMPARE(savedBytes(other), bytes);
        for (const QString &message : messages->take())
            QVERIFY2(!message.contains(QStringLiteral("No such file")), qPrintable(message));
    }

    void importedDrawing_ofManyItems_standsInTheFileOnce()
    {
        ZTGraphicsDocument document;
        QPainterPath corner;
        corner.addPolygon(QPolygonF(QVector<QPointF>{{0, 20}, {40, 20}, {40, 0}}));
        QPainterPath other;
        other.addPolygon(QPolygonF(QVector<QPointF>{{0, 20}, {41, 0}}));
        int number = 0;
        for (const QPainterPath &path : {corner, other, corner, QPainterPath(), other}) {
            graphicOf(addTo(document, ShapeType::VecGraph))
                ->setDrawing(path, QString::number(++number));
        }
        const DrawingFile drawing = captured(document);
        QCOMPARE(drawing.rest.drawings.size(), 2);
        QList<int> numbers;
        for (const hostkit::DrawingItemRest &item : drawing.rest.items)
            numbers << item.drawing;
        QCOMPARE(numbers, (QList<int>{0, 1, 0, -1, 1}));
        checkRoundTrip(document);
        messages->take();
    }

    void importedDrawing_ofABareStream_neverWaitsForAPipe()
    {
        const QTemporaryDir folder;
        const QString pipe = folder.filePath(QStringLiteral("pipe.plt"));
        QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
        ZTGraphicsDocument document;
        graphicOf(addTo(document, ShapeType::VecGraph))->setDrawing(QPainterPath(), pipe);
        DrawingFile drawing = captured(document);
        drawing.hasRest = false;
        DrawingError error;
        QVERIFY2(load(drawingToBytes(drawing), document, &error), qPrintable(error.reason));
        QCOMPARE(graphicOf(onlyItemOf(document))->getImagePath(), pipe);
        messages->take();
    }

    void importedDrawing_ofABareStream_comesFromItsPath()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("logo.plt"));
        put(path, kCorner);
        ZTGraphicsDocument document;
        graphicOf(addTo(document, ShapeType::VecGraph))->setDrawing(QPainterPath(), path);
        DrawingFile drawing = captured(document);
        drawing.hasRest = false;
        DrawingError error;
        QVERIFY2(load(drawingToBytes(drawing), document, &error), qPrintable(error.reason));
        QCOMPARE(graphicOf(onlyItemOf(document))->getDrawing().controlPointRect(),
                 QRectF(0, 0, 40, 20));
        messages->take();
    }

    void texts_keepTextFontArcAndCounters()
    {
        ZTGraphicsDocument document;
        auto *item = qobject_cast<ZTGraphicsTextItem *>(addTo(document, ShapeType::Text));
        auto *shape = static_cast<ZTShapeText *>(item->getShapeBase());
        shape->setFixedText(QStringLiteral("typed"));
        ZTCounterSegment counter;
        counter.start = 41;
        ZTVariantText variant;
        variant.setSegments({ZTFixedTextSegment{QStringLiteral("SN")}, counter});
        shape->cloneVariantText(&variant);
        shape->setEnableVariantText(true);
        shape->fromVariantTextUpdateText();
        ZTRoundingParam arc;
        arc.isEnableRounding = true;
        arc.diameter = 120.0;
        item->setRoundingParam(arc);
        const int id = ZTVariantTextManager::getInstance()->newItem(shape);
        checkRoundTrip(document, &loaded);
        auto *read = static_cast<ZTShapeText *>(onlyItemOf(*loaded)->getShapeBase());
        QCOMPARE(read->text(), QStringLiteral("SN41"));
        QCOMPARE(read->getFixedText(), QStringLiteral("typed"));
        QCOMPARE(read->getRoundingParam(), arc);
        QCOMPARE(*read->getVarTxt(), *shape->getVarTxt());
        read->fromVariantTextUpdateText();
        QCOMPARE(read->text(), QStringLiteral("SN42"));
        QVERIFY(ZTVariantTextManager::getInstance()->hasId(id));
        loaded.reset();
        messages->take(); // no stroke fonts in this folder
    }

    void strokeTexts_ofOneFontAndTwoHeights_lookAsTheyDid()
    {
        testsupport::makeTinyFonts();
        ZTGraphicsDocument document;
        ZTShxFontParam small = testsupport::tinyFont(5.0);
        ZTShxFontParam large = testsupport::tinyFont(20.0);
        for (const ZTShxFontParam &font : {small, large}) {
            auto *item = qobject_cast<ZTGraphicsTextItem *>(addTo(document, ShapeType::Text));
            item->setText(QStringLiteral("AB"));
            item->setShxFont(font);
            item->setFontType(FontType::singleLine);
        }
        const ZTMarkGraph before = document.itemMag()->getShapeLines();
        QCOMPARE(before.objects.size(), 2);
        QCOMPARE(qRound(before.objects[0].rect.height() / before.objects[1].rect.height()), 4);
        const QByteArray bytes = savedBytes(document);
        small.parser.setTextHeight(3.0);
        ZTGraphicsDocument other;
        DrawingError error;
        QVERIFY2(load(bytes, other, &error), qPrintable(error.reason));
        QVERIFY(testsupport::sameGraph(other.itemMag()->getShapeLines(), before));
    }

    void strokeText_withoutFonts_staysSoWhereThereAreFonts()
    {
        ZTGraphicsDocument document;
        auto *item = qobject_cast<ZTGraphicsTextItem *>(addTo(document, ShapeType::Text));
        item->setText(QStringLiteral("AB"));
        item->setFontType(FontType::singleLine);
        messages->take();
        const QByteArray bytes = savedBytes(document);
        QVERIFY(document.itemMag()->getShapeLines().objects[0].lines.isEmpty());
        testsupport::makeTinyFonts();
        ZTGraphicsDocument other;
        DrawingError error;
        QVERIFY2(load(bytes, other, &error), qPrintable(error.reason));
        QVERIFY(other.itemMag()->getShapeLines().objects[0].lines.isEmpty());
        QCOMPARE(savedBytes(other), bytes);
    }

    void missingFonts_areNamedAndTheirNamesStay()
    {
        testsupport::makeTinyFonts();
        ZTGraphicsDocument document;
        auto *outlines = qobject_cast<ZTGraphicsTextItem *>(addTo(document, ShapeType::Text));
        outlines->setFont(QFont(QStringLiteral("No Such Family")));
        auto *present = qobject_cast<ZTGraphicsTextItem *>(addTo(document, ShapeType::Text));
        present->setFont(QFont(QStringLiteral("DejaVu Sans")));
        auto *strokes = qobject_cast<ZTGraphicsTextItem *>(addTo(document, ShapeType::Text));
        ZTShxFontParam font = testsupport::tinyFont();
        font.zhName = QStringLiteral("no-such.shx");
        strokes->setShxFont(font);
        strokes->setFontType(FontType::singleLine);
        const DrawingFile drawing = captured(document);
        ZTGraphicsDocument other;
        DrawingError error;
        hostkit::DrawingReport report;
        QVERIFY(applyDrawing(drawing, other, {}, &report, &error));
        QCOMPARE(report.missingFonts,
                 (QStringList{QStringLiteral("No Such Family"), QStringLiteral("no-such.shx")}));
        QCOMPARE(savedBytes(other), drawingToBytes(drawing));
    }

    void itemsAndIds_goOnWhereTheyWere()
    {
        ZTGraphicsDocument document;
        for (const ShapeType type : {ShapeType::Rect, ShapeType::Polygon, ShapeType::Line})
            addTo(document, type);
        DrawingError error;
        ZTGraphicsDocument other;
        addTo(other, ShapeType::Ellipse);
        QVERIFY2(load(savedBytes(document), other, &error), qPrintable(error.reason));
        QCOMPARE(treeIds(other), (QList<int>{0, 1, 2}));
        QVector<ShapeType> fromTop;
        for (ZTShapeBase *shape : other.itemMag()->getShapeList())
            fromTop << shape->getShapeType();
        QCOMPARE(fromTop,
                 (QVector<ShapeType>{ShapeType::Line, ShapeType::Polygon, ShapeType::Rect}));
        QCOMPARE(addTo(other, ShapeType::Rect)->getShapeBase()->getId(), 3);
    }

    void setup_becomesTheDrawings()
    {
        ZTGraphicsDocument document;
        ZTCoord::getInstance()->setHeight(1234.0);
        ZTCoord::getInstance()->setDistance(5000.0);
        ZTPointSort::getInstance()->setShapeMarkSort(EShapeSortType::ShapeSortXFromMin);
        document.view()->setWorkArea(QRect(1, 2, 3, 4));
        document.itemMag()->setScale(0.1F, -2.5F);
        addTo(document, ShapeType::Rect);
        const ZTMarkGraph before = document.itemMag()->getShapeLines();
        const QByteArray bytes = savedBytes(document);
        const auto setup = hostkit::DrawingSetup::of(document);
        guard.reset(new testsupport::SingletonGuard);
        ZTGraphicsDocument other;
        QVERIFY(hostkit::DrawingSetup::of(other) != setup);
        DrawingError error;
        QVERIFY2(load(bytes, other, &error), qPrintable(error.reason));
        QVERIFY(hostkit::DrawingSetup::of(other) == setup);
        QCOMPARE(other.view()->getWorkArea(), QRect(1, 2, 3, 4));
        QVERIFY(testsupport::sameGraph(other.itemMag()->getShapeLines(), before));
    }

    void cancelledLoad_leavesTheOpenDrawing()
    {
        testsupport::makeTinyFonts();
        ZTGraphicsDocument source;
        ZTCoord::getInstance()->setHeight(1234.0);
        addStrokeText(source, 5.0);
        for (int i = 0; i < 20; ++i)
            addTo(source, ShapeType::Polygon);
        const DrawingFile drawing = captured(source);
        ZTCoord::getInstance()->setHeight(900.0);

        ZTGraphicsDocument document;
        ZTAbstractGraphicsItem *item = addTo(document, ShapeType::Rect);
        item->setSelected(true);
        addStrokeText(document, 20.0);
        document.undoStack()->push(new QUndoCommand(QStringLiteral("step")));
        ZTVariantTextManager::getInstance()->newItem(
            static_cast<ZTTextShapeBase *>(document.itemMag()->getShapeList().first()));
        const QByteArray before = savedBytes(document);
        int calls = 0;
        const auto cancel = [&](int done, int total) {
            ++calls;
            [&] {
                QVERIFY(done > 0 && done <= total);
                QCOMPARE(total, 21);
                QCOMPARE(savedBytes(document), before); // also while it is loading
            }();
            return false;
        };
        DrawingError error;
        QVERIFY(!applyDrawing(drawing, document, cancel, nullptr, &error));
        QCOMPARE(error.kind, DrawingError::Kind::Cancelled);
        QCOMPARE(calls, 1);
        QCOMPARE(savedBytes(document), before);
        QVERIFY(item->isSelected());
        QCOMPARE(document.undoStack()->count(), 1);
        QCOMPARE(ZTCoord::getInstance()->getHeight(), 900.0);
    }

    void finishedLoad_tellsTheWholeAndClearsTheUndoStack()
    {
        ZTGraphicsDocument document;
        for (int i = 0; i < 3; ++i)
            addTo(document, ShapeType::Rect);
        document.undoStack()->push(new QUndoCommand(QStringLiteral("step")));
        const DrawingFile drawing = captured(document);
        int last = 0;
        DrawingError error;
        QVERIFY(applyDrawing(
            drawing, document,
            [&](int done, int total) {
                last = done;
                return total == 3;
            },
            nullptr, &error));
        QCOMPARE(last, 3);
        QCOMPARE(document.undoStack()->count(), 0);
        QCOMPARE(document.itemMag()->getShapeList().size(), 3);
    }

    void damagedDrawing_leavesTheOpenDrawing()
    {
        ZTGraphicsDocument document;
        addTo(document, ShapeType::Rect);
        DrawingFile drawing = captured(document);
        drawing.stream.chop(1);
        const QByteArray before = savedBytes(document);
        DrawingError error;
        QVERIFY(!applyDrawing(drawing, document, {}, nullptr, &error));
        QCOMPARE(error.kind, DrawingError::Kind::Damaged);
        QCOMPARE(savedBytes(document), before);
    }

    void drawing_ofMorePiecesThanTheLimit_isRefusedAndLeavesTheOpenDrawing()
    {
        ZTGraphicsDocument document;
        for (int i = 0; i < 3; ++i)
            addTo(document, ShapeType::Rect)->setFillParam(coarseHatch());
        qint64 pieces = 0;
        for (const ZTMarkObject &object : document.itemMag()->getShapeLines().objects) {
            QVERIFY(object.fillLines.size() >= 3);
            pieces += object.lines[0].size() + object.fillLines.size();
        }
        const DrawingFile drawing = captured(document);
        const QByteArray before = savedBytes(document);
        hostkit::DrawingLoad load;
        QCOMPARE(load.maxPieces, 50'000'000);
        load.maxPieces = pieces - 1;
        DrawingError error;
        QVERIFY(!applyWithin(load, drawing, document, nullptr, &error));
        QCOMPARE(error.kind, DrawingError::Kind::NotLoadable);
        QCOMPARE(error.reason,
                 QStringLiteral("holds more than %1 points and hatch lines").arg(pieces - 1));
        QCOMPARE(savedBytes(document), before);
        load.maxPieces = pieces;
        QVERIFY2(applyWithin(load, drawing, document, nullptr, &error), qPrintable(error.reason));
    }

    void capture_ofWhatCannotBeLoaded_saysSo()
    {
        ZTGraphicsDocument document;
        addTo(document, ShapeType::Rect)->setShapeType(ShapeType::None);
        DrawingFile drawing;
        DrawingError error;
        QVERIFY(!captureDrawing(document, {}, &drawing, &error));
        QCOMPARE(error.kind, DrawingError::Kind::NotLoadable);
        QCOMPARE(error.reason,
                 QStringLiteral("the drawing could not be loaded again: an object of kind 11 at "
                                "byte 33 of the drawing's data"));
    }

    void capture_countsThePensAndChangesNothing()
    {
        ZTGraphicsDocument document;
        for (const int pen : {3, 1, 3}) {
            auto *item = addTo(document, ShapeType::Rect);
            item->setSelected(true);
            item->setPenId(pen);
        }
        document.itemMag()->getShapeList()[1]->setUpdate(1);
        const DrawingFile drawing = captured(document);
        QCOMPARE(drawing.meta.pens.size(), 2);
        QCOMPARE(drawing.meta.pens[0].id, 1);
        QCOMPARE(drawing.meta.pens[0].items, 1);
        QCOMPARE(drawing.meta.pens[1].id, 3);
        QCOMPARE(drawing.meta.pens[1].items, 2);
        QVERIFY(document.itemMag()->getShapeList()[1]->isUpdate());
        QCOMPARE(document.scene()->selectedItems().size(), 3);
    }

    void capture_withoutAMoment_takesThePresentOne()
    {
        ZTGraphicsDocument document;
        DrawingFile drawing;
        DrawingError error;
        const QDateTime before = QDateTime::currentDateTimeUtc();
        QVERIFY(captureDrawing(document, {}, &drawing, &error));
        QVERIFY(drawing.meta.savedAt >= before);
        QVERIFY(drawing.meta.savedAt <= QDateTime::currentDateTimeUtc());
    }

    void unknownSections_comeThroughASave()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("a.ztd"));
        ZTGraphicsDocument document;
        hostkit::DrawingCapture capture;
        capture.unknown << hostkit::DrawingSection{"NEW1", "content"};
        DrawingError error;
        QVERIFY2(saveDrawing(document, capture, path, &error), qPrintable(error.reason));
        DrawingFile drawing;
        QVERIFY2(readDrawing(path, &drawing, &error), qPrintable(error.reason));
        QCOMPARE(drawing.unknown.size(), 1);
        QCOMPARE(drawing.unknown[0].bytes, QByteArray("content"));
    }

private:
    static ZTVecGraph *graphicOf(ZTAbstractGraphicsItem *item)
    {
        return dynamic_cast<ZTVecGraph *>(item->getShapeBase());
    }

    static void addStrokeText(ZTGraphicsDocument &document, double height)
    {
        auto *item = qobject_cast<ZTGraphicsTextItem *>(addTo(document, ShapeType::Text));
        item->setText(QStringLiteral("AB"));
        item->setShxFont(testsupport::tinyFont(height));
        item->setFontType(FontType::singleLine);
    }

    /** A few lines for a square of 10 mm. */
    static ZTFillParam coarseHatch()
    {
        ZTFillParam fill;
        fill.fillType = FillType::Line;
        fill.spac = 3.0;
        return fill;
    }

    static QList<int> treeIds(const ZTGraphicsDocument &document)
    {
        const QAbstractItemModel &model = *document.itemMag()->itemModel();
        QList<int> ids;
        for (int row = 0; row < model.rowCount(); ++row)
            ids << model.index(row, 0).data().toInt();
        return ids;
    }

    static void checkRoundTrip(ZTGraphicsDocument &document,
                               std::unique_ptr<ZTGraphicsDocument> *result = nullptr)
    {
        const ZTMarkGraph before = document.itemMag()->getShapeLines();
        const QByteArray bytes = savedBytes(document);
        auto other = std::make_unique<ZTGraphicsDocument>();
        DrawingError error;
        QVERIFY2(load(bytes, *other, &error), qPrintable(error.reason));
        QVERIFY(testsupport::sameGraph(other->itemMag()->getShapeLines(), before));
        QCOMPARE(savedBytes(*other), bytes);
        if (result != nullptr)
            *result = std::move(other);
    }

    QScopedPointer<testsupport::SingletonGuard> guard;
    QScopedPointer<testsupport::WarningGuard> messages;
    std::unique_ptr<ZTGraphicsDocument> loaded;
};

int main(int argc, char **argv)
{
    const int code = testsupport::runInOwnFolder(argc, argv);
    if (code >= 0)
        return code;
    QApplication application(argc, argv);
    tst_DrawingSnapshot test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_DrawingSnapshot.moc"
