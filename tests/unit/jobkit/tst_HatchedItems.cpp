#include <support/SingletonGuard.h>

#include <jobkit/items/HatchedItems.h>

#include <hostkit/drawing/DrawingCapture.h>
#include <hostkit/drawing/DrawingFile.h>
#include <hostkit/drawing/DrawingLoader.h>
#include <hostkit/items/ItemHatches.h>
#include <hostkit/marks/MarkGraphBuilder.h>
#include <hostkit/setup/Factories.h>
#include <jobkit/hatch/AreaHatch.h>
#include <jobkit/marks/MarkGraphItems.h>

#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <algorithm>
#include <cmath>
#include <limits>

using hostkit::HatchKind;
using hostkit::HatchLayer;
using hostkit::ShapeHatch;

namespace {

ShapeHatch hatchOf(HatchKind kind, double spacingMm, double angleDeg = 0.0)
{
    ShapeHatch hatch;
    hatch.kind = kind;
    hatch.spacingMm = spacingMm;
    hatch.angleDeg = angleDeg;
    return hatch;
}

void give(ZTAbstractGraphicsItem &item, const QVector<ShapeHatch> &hatches)
{
    ZTFillParam fill = item.getFillParam();
    hostkit::ItemExtras extras = hostkit::itemExtras(item);
    hostkit::setHatches(hatches, &fill, &extras);
    hostkit::setItemExtras(item, extras);
    item.setFillParam(fill);
    item.getShapeBase()->setUpdate(1);
    item.getShapeBase()->paint();
}

QLineF toMm(const QLineF &linePx)
{
    return ZTCoord::getInstance()->getPix2MmTransform().map(linePx);
}

QVector<QLineF> linesMm(const ZTAbstractGraphicsItem &item, const HatchLayer &layer)
{
    QVector<QLineF> lines;
    for (const QLineF &line : item.getShapeBase()->getFillLines().mid(layer.firstLine, layer.lines))
        lines.append(toMm(line));
    return lines;
}

QVector<jobkit::JobItem> jobItems(const ZTGraphicsDocument &document)
{
    hostkit::MarkGraphBuilder builder(document, hostkit::markedItems(document),
                                      EShapeSortType::ShapeSortNone);
    builder.work(std::numeric_limits<int>::max());
    const ZTMarkGraph graph = builder.takeUnordered();
    return jobkit::itemsOf(graph, hostkit::MarkUnits::of(*document.itemMag()), builder.layers());
}

} // namespace

/** Shapes with several hatches: what is drawn is what is marked. */
class tst_HatchedItems : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        jobkit::registerHatchedFactories();
        hostkit::registerFactories();
    }
    void init()
    {
        guard.reset(new testsupport::SingletonGuard);
        document.reset(new ZTGraphicsDocument);
    }
    void cleanup()
    {
        document.reset();
        guard.reset();
    }

    ZTAbstractGraphicsItem &added(ShapeType type)
    {
        ZTAbstractGraphicsItem *item = document->itemMag()->addShape(type, {0, 0, 10, 10});
        if (item == nullptr)
            qFatal("no item");
        item->setPos(0, 0);
        return *item;
    }

    // Whoever has a single plain hatch gets the library's own lines, to the last bit.
    void plainHatch_isTheLibrarys_data()
    {
        QTest::addColumn<int>("type");
        QTest::newRow("rect") << int(ShapeType::Rect);
        QTest::newRow("ellipse") << int(ShapeType::Ellipse);
        QTest::newRow("polygon") << int(ShapeType::Polygon);
        QTest::newRow("figure") << int(ShapeType::TDOT);
    }

    void plainHatch_isTheLibrarys()
    {
        QFETCH(int, type);
        ZTAbstractGraphicsItem &item = added(static_cast<ShapeType>(type));
        give(item, {hatchOf(HatchKind::Zigzag, 0.7, 20.0)});
        ZTRectShape plain;
        const QVector<QLineF> drawn = item.getShapeBase()->getFillLines();
        QVERIFY(!drawn.isEmpty());
        item.getShapeBase()->fillULine(FillType::ULine, ZTCoord::getInstance()->mm2pix(0.7), -20.0);
        QCOMPARE(item.getShapeBase()->getFillLines(), drawn);
        give(item, {hatchOf(HatchKind::Zigzag, 0.7, 20.0), hatchOf(HatchKind::Cross, 1.0)});
        const QVector<HatchLayer> layers = hostkit::hatchLayersOf(item);
        QCOMPARE(layers.size(), 2);
        QCOMPARE(item.getShapeBase()->getFillLines().mid(0, layers[0].lines), drawn);
    }

    // A square of 10 mm: rows in the middle and whole spacings from there.
    void twoHatches_haveTheirOwnLinesPensAndPasses()
    {
        ZTAbstractGraphicsItem &item = added(ShapeType::Rect);
        ShapeHatch across = hatchOf(HatchKind::Lines, 3.0);
        across.insetMm = 1.0;
        across.pen = 3;
        across.passes = 4;
        ShapeHatch upright = hatchOf(HatchKind::Lines, 4.0, 90.0);
        upright.isOneWay = true;
        give(item, {across, upright});
        const QVector<HatchLayer> layers = hostkit::hatchLayersOf(item);
        QCOMPARE(layers.size(), 2);
        QCOMPARE(layers[0].pen, 3);
        QCOMPARE(layers[0].passes, 4);
        QCOMPARE(layers[1].pen, 1);
        QVERIFY(layers[1].isOneWay);
        const QVector<QLineF> first = linesMm(item, layers[0]);
        QCOMPARE(first.size(), 3); // y = 2, 5, 8 within 1 to 9
        for (const QLineF &line : first)
            QVERIFY(std::abs(line.length() - 8.0) < 1e-4 && std::abs(line.dy()) < 1e-4);
        const QVector<QLineF> second = linesMm(item, layers[1]);
        QCOMPARE(second.size(), 3); // x = 1, 5, 9
        for (const QLineF &line : second) {
            QVERIFY(std::abs(line.length() - 10.0) < 1e-9 && std::abs(line.dx()) < 1e-9);
            QVERIFY((line.dy() > 0.0) == (second.first().dy() > 0.0));
        }
    }

    void turnedHatch_hasOtherLinesInEachPass()
    {
        ZTAbstractGraphicsItem &item = added(ShapeType::Rect);
        ShapeHatch turned = hatchOf(HatchKind::Turned, 2.0, 0.0);
        turned.passes = 3;
        turned.turnDeg = 45.0;
        give(item, {turned});
        const QVector<HatchLayer> layers = hostkit::hatchLayersOf(item);
        QCOMPARE(layers.size(), 3);
        for (int i = 0; i < layers.size(); ++i) {
            QCOMPARE(layers[i].turn, i + 1);
            QCOMPARE(layers[i].passes, 1);
            QCOMPARE(layers[i].hatch, 1);
            const QLineF line = linesMm(item, layers[i]).first();
            // Counter-clockwise on the screen, where y points down.
            const double angle = std::fmod(line.angle() + 180.0 * (line.angle() < 0.0), 180.0);
            QVERIFY2(std::abs(angle - 45.0 * i) < 1e-6, qPrintable(QString::number(angle)));
        }
        const QVector<jobkit::JobItem> items = jobItems(*document);
        jobkit::JobPlan plan = jobkit::planOf(items, {});
        jobkit::layOutPasses(&plan, jobkit::PassOrder::WholeJob);
        int last = 1;
        for (const jobkit::PlanPiece &piece : qAsConst(plan.pieces)) {
            if (piece.hatch == 0)
                continue;
            QCOMPARE(piece.hatch, 1);
            QVERIFY(piece.pass >= last);
            last = piece.pass;
        }
        QCOMPARE(last, 3);
    }

    void contours_goInwardByTheSpacing()
    {
        ZTAbstractGraphicsItem &item = added(ShapeType::Rect);
        ShapeHatch contours = hatchOf(HatchKind::Contours, 2.0);
        contours.insetMm = 1.0;
        give(item, {contours});
        double length = 0.0;
        for (const QLineF &line : linesMm(item, hostkit::hatchLayersOf(item).first()))
            length += line.length();
        // Squares of 8 and 4 mm, and the way between their corners; the third has no area.
        QVERIFY2(std::abs(length - (32.0 + 16.0 + 2.0 * std::sqrt(2.0))) < 0.02,
                 qPrintable(QString::number(length)));
    }

    void penOfTheShape_isFollowedWithoutARebuild()
    {
        ZTAbstractGraphicsItem &item = added(ShapeType::Rect);
        give(item, {hatchOf(HatchKind::Cross, 1.0)});
        item.setPenId(5);
        QCOMPARE(hostkit::hatchLayersOf(item).first().pen, 5);
    }

    void markData_hasAnObjectForEachFurtherPen()
    {
        ZTAbstractGraphicsItem &item = added(ShapeType::Rect);
        ShapeHatch second = hatchOf(HatchKind::Lines, 2.0, 90.0);
        second.pen = 7;
        give(item, {hatchOf(HatchKind::Lines, 2.0), second});
        const hostkit::DrawingMarks marks = hostkit::drawingMarks(*document);
        QVERIFY(marks.isWhole());
        QCOMPARE(marks.shapes, 1);
        QCOMPARE(marks.graph.objects.size(), 2);
        int lines = 0;
        for (const ZTMarkObject &object : marks.graph.objects) {
            QVERIFY(object.penId == 1 || object.penId == 7);
            QCOMPARE(object.lines.isEmpty(), object.penId == 7);
            lines += object.fillLines.size();
        }
        QCOMPARE(lines, item.getShapeBase()->getFillLines().size());
        // The library's own mark data has the same lines, in one object.
        QCOMPARE(document->itemMag()->getShapeLines().objects.first().fillLines.size(), lines);
    }

    void job_hasEachHatchWithItsPen()
    {
        ZTAbstractGraphicsItem &item = added(ShapeType::Rect);
        ShapeHatch first = hatchOf(HatchKind::Contours, 2.0);
        first.pen = 2;
        first.moment = hostkit::HatchMoment::BeforeOutline;
        ShapeHatch second = hatchOf(HatchKind::Lines, 2.0);
        second.passes = 3;
        give(item, {first, second});
        const QVector<jobkit::JobItem> items = jobItems(*document);
        QCOMPARE(items.size(), 1);
        QCOMPARE(items[0].hatches.size(), 2);
        QCOMPARE(items[0].hatches[0].pen, 2);
        QCOMPARE(items[0].hatches[1].passes, 3);
        const jobkit::JobPlan plan = jobkit::planOf(items, {});
        QCOMPARE(plan.pieces.first().hatch, 1);
        QCOMPARE(plan.pieces.last().hatch, 2);
    }

    void itemsOfADrawing_haveAllThatTheJobNeeds()
    {
        ZTAbstractGraphicsItem &plate = added(ShapeType::Rect);
        ShapeHatch further = hatchOf(HatchKind::Lines, 3.0, 90.0);
        further.pen = 4;
        further.passes = 3;
        further.moment = hostkit::HatchMoment::AfterOutline;
        give(plate, {hatchOf(HatchKind::Lines, 0.5), further});
        hostkit::ItemExtras extras = hostkit::itemExtras(plate);
        extras.name = QStringLiteral("plate");
        hostkit::setItemExtras(plate, extras);
        ZTAbstractGraphicsItem &hidden = added(ShapeType::Ellipse);
        extras = {};
        extras.isMarked = false;
        hostkit::setItemExtras(hidden, extras);
        const QVector<jobkit::JobItem> items = jobkit::itemsOfDrawing(*document);
        QCOMPARE(items.size(), 1);
        QCOMPARE(items.first().name, hostkit::shapeName(plate));
        QCOMPARE(items.first().outlinesMm.size(), 1);
        QCOMPARE(items.first().hatches.size(), 2);
        QCOMPARE(items.first().hatches[1].pen, 4);
        QCOMPARE(items.first().hatches[1].passes, 3);
        QVERIFY(items.first().hatches[1].moment == hostkit::HatchMoment::AfterOutline);
        QCOMPARE(items.first().hatches[1].runsMm.size(), 3); // x = 2, 5, 8
    }

    void copyAndFile_keepEveryHatch()
    {
        ZTAbstractGraphicsItem &item = added(ShapeType::Polygon);
        ShapeHatch second = hatchOf(HatchKind::Turned, 0.5, 10.0);
        second.pen = 4;
        second.passes = 2;
        const QVector<ShapeHatch> hatches{hatchOf(HatchKind::Contours, 0.4), second};
        give(item, hatches);
        const QVector<QLineF> drawn = item.getShapeBase()->getFillLines();
        ZTAbstractGraphicsItem &copy = added(ShapeType::Polygon);
        copy.copy(&item);
        hostkit::copyItemExtras(item, copy);
        copy.getShapeBase()->paint();
        QCOMPARE(copy.getShapeBase()->getFillLines(), drawn);

        hostkit::DrawingCapture capture;
        hostkit::Failure failure;
        const QString path = folder.filePath(QStringLiteral("hatches.ztd"));
        QVERIFY(hostkit::saveDrawing(*document, capture, path, &failure));
        ZTGraphicsDocument other;
        hostkit::DrawingFile file;
        hostkit::DrawingReport report;
        QVERIFY(hostkit::readDrawing(path, &file, &failure));
        QVERIFY(hostkit::applyDrawing(file, other, {}, &report, &failure));
        for (const ZTAbstractGraphicsItem *loaded : hostkit::markedItems(other)) {
            QCOMPARE(hostkit::hatchesOf(*loaded), hatches);
            const QVector<QLineF> &lines = loaded->getShapeBase()->getFillLines();
            QCOMPARE(lines.size(), drawn.size());
            QCOMPARE(lines, drawn);
        }
        QCOMPARE(hostkit::markedItems(other).size(), 2);
    }

    void overlappingLetters_areMarkedAsOne()
    {
        auto &item = static_cast<ZTGraphicsTextItem &>(added(ShapeType::Text));
        item.setFontType(FontType::doubleLine);
        item.setFixedText(QStringLiteral("II"));
        const auto outlines = [&item] {
            item.getShapeBase()->setUpdate(1);
            item.getShapeBase()->paint();
            return item.getShapeBase()->getLines().toSubpathPolygons(QTransform()).size();
        };
        QCOMPARE(outlines(), 2);
        ZTFontParam font = item.getFontParam();
        // The stems are 10 pixels wide and 29.5 apart: the second comes to stand in the first.
        font.wordSpac = ZTCoord::getInstance()->pix2mm(-24.0);
        item.setFontParam(font);
        QCOMPARE(outlines(), 1);
        hostkit::ItemExtras extras;
        extras.outlineUnion = hostkit::OutlineUnion::Never;
        hostkit::setItemExtras(item, extras);
        QCOMPARE(outlines(), 2);
    }

    void unitedOutline_ofShapesOtherThanTexts_isAsked()
    {
        auto &item = added(ShapeType::VecGraph);
        QPainterPath path;
        path.addRect(0, 0, 10, 10);
        path.addRect(5, 5, 10, 10);
        static_cast<ZTVecGraph &>(*item.getShapeBase()).setDrawing(path, {});
        const auto outlines = [&item] {
            item.getShapeBase()->setUpdate(1);
            item.getShapeBase()->paint();
            return item.getShapeBase()->getLines().toSubpathPolygons(QTransform()).size();
        };
        QCOMPARE(outlines(), 2);
        hostkit::ItemExtras extras;
        extras.outlineUnion = hostkit::OutlineUnion::Always;
        hostkit::setItemExtras(item, extras);
        QCOMPARE(outlines(), 1);
    }

    void notHatched_hasNoLayers()
    {
        ZTAbstractGraphicsItem &item = added(ShapeType::Ellipse);
        give(item, {hatchOf(HatchKind::Cross, 1.0), hatchOf(HatchKind::Contours, 1.0)});
        give(item, {});
        QVERIFY(hostkit::hatchLayersOf(item).isEmpty());
        QVERIFY(jobItems(*document).first().hatches.isEmpty());
    }

private:
    std::unique_ptr<testsupport::SingletonGuard> guard;
    std::unique_ptr<ZTGraphicsDocument> document;
    QTemporaryDir folder;
};

QTEST_MAIN(tst_HatchedItems)
#include "tst_HatchedItems.moc"
