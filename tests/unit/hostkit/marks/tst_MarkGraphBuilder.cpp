#include <support/SingletonGuard.h>

#include <hostkit/items/ItemExtras.h>
#include <hostkit/marks/MarkGraphBuilder.h>
#include <hostkit/setup/Factories.h>

#include <QtTest/QTest>

#include <memory>

using hostkit::DrawingMarks;
using hostkit::MarkGraphBuilder;

class tst_MarkGraphBuilder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { hostkit::registerFactories(); }
    void init()
    {
        guard.reset(new testsupport::SingletonGuard);
        document = std::make_unique<ZTGraphicsDocument>();
    }
    void cleanup()
    {
        document.reset();
        guard.reset();
    }

    void steps_giveWhatTheShapeManagerDoes()
    {
        for (int i = 0; i < 20; ++i)
            addRect(i * 37 % 100, i * 61 % 100);
        ZTPointSort::getInstance()->setShapeMarkSort(EShapeSortType::ShapeSortNearest);
        MarkGraphBuilder builder(*document, hostkit::markedItems(*document));
        QCOMPARE(builder.total(), 20);
        int steps = 1;
        while (builder.work(0))
            ++steps;
        QCOMPARE(steps, 20);
        const ZTMarkGraph expected = document->itemMag()->getShapeLines();
        const DrawingMarks marks = builder.take();
        QCOMPARE(marks.graph.rect, expected.rect);
        QCOMPARE(marks.graph.objects.size(), 20);
        for (int i = 0; i < 20; ++i) {
            QCOMPARE(marks.graph.objects[i].lines, expected.objects[i].lines);
            QCOMPARE(marks.graph.objects[i].rect, expected.objects[i].rect);
        }
        QVERIFY(marks.isWhole());
        QCOMPARE(marks.before.objects, 20);
        QCOMPARE(marks.after.polylines, marks.before.polylines);
        QVERIFY(marks.after.jumpMm < marks.before.jumpMm);
    }

    void hatchesWithoutOutlineBelowAnOutline_areAllMarked()
    {
        addHatch(0, 0);
        addHatch(100, 0);
        addHatch(200, 0);
        addRect(300, 0);
        const DrawingMarks marks =
            hostkit::drawingMarks(*document, EShapeSortType::ShapeSortXFromMin);
        QVERIFY(marks.isWhole());
        QCOMPARE(marks.graph.objects.size(), 4);
        for (int i = 0; i < 3; ++i)
            QVERIFY(!marks.graph.objects[i].fillLines.isEmpty());
        QCOMPARE(marks.graph.objects[3].lines.size(), 1);
    }

    void order_holdsForTheGraphAlone()
    {
        addRect(0, 0);
        addRect(100, 0);
        addRect(50, 0);
        ZTPointSort::getInstance()->setShapeMarkSort(EShapeSortType::ShapeSortYFromMax);
        const DrawingMarks marks =
            hostkit::drawingMarks(*document, EShapeSortType::ShapeSortXFromMin);
        const double unit = ZTCoord::getInstance()->screen2mark();
        QCOMPARE(qRound(marks.graph.objects[0].rect.x()), 0);
        QCOMPARE(qRound(marks.graph.objects[1].rect.x()), qRound(50 * unit));
        QCOMPARE(qRound(marks.graph.objects[2].rect.x()), qRound(100 * unit));
        QCOMPARE(ZTPointSort::getInstance()->getShapeMarkSort(), EShapeSortType::ShapeSortYFromMax);
    }

    void units_followTheDrawingsMarkScale()
    {
        addRect(0, 0); // 10 x 10 mm, 40 mm around
        QCOMPARE(hostkit::drawingMarks(*document).units.perMm, 500.0);
        QVERIFY(qAbs(hostkit::drawingMarks(*document).after.markMm - 40.0) < 1e-4);
        document->itemMag()->setScale(3.0F, 3.0F);
        const DrawingMarks marks = hostkit::drawingMarks(*document);
        QCOMPARE(marks.units.perMm, 3.0 * 900.0 / 193.0);
        QVERIFY(qAbs(marks.after.markMm - 40.0) < 1e-9);
    }

    void shapesSwitchedOffOrHidden_areLeftOut()
    {
        addRect(0, 0);
        hostkit::ItemExtras extras;
        extras.isMarked = false;
        hostkit::setItemExtras(*addRect(100, 0), extras);
        extras.isMarked = true;
        extras.isHidden = true;
        hostkit::setItemExtras(*addRect(200, 0), extras);
        const DrawingMarks marks = hostkit::drawingMarks(*document);
        QCOMPARE(marks.graph.objects.size(), 1);
        QCOMPARE(marks.shapes, 1);
        QVERIFY(marks.isWhole());
    }

    void selection_isTakenTopmostFirst()
    {
        ZTAbstractGraphicsItem *low = addRect(0, 0);
        addRect(50, 0);
        ZTAbstractGraphicsItem *high = addRect(100, 0);
        low->setSelected(true);
        high->setSelected(true);
        QCOMPARE(hostkit::selectedMarkedItems(*document), (hostkit::MarkItems{high, low}));
    }

    void shapeDeletedMeanwhile_isTold()
    {
        ZTAbstractGraphicsItem *low = addRect(0, 0);
        addRect(100, 0);
        MarkGraphBuilder builder(*document, hostkit::markedItems(*document));
        QVERIFY(builder.work(0));
        delete low;
        QVERIFY(!builder.work(0));
        const DrawingMarks marks = builder.take();
        QCOMPARE(marks.graph.objects.size(), 1);
        QVERIFY(!marks.isWhole());
    }

    void shapeOutsideTheWorkArea_isNamed()
    {
        const double mmPx = ZTCoord::getInstance()->mm2pix(1.0);
        document->view()->setWorkArea(QRect(-20, -20, 40, 40));
        addRect(10.0 * mmPx, 10.0 * mmPx); // ends at the very edge
        QVERIFY(hostkit::drawingMarks(*document).findings.outside.isEmpty());
        addRect(-25.0 * mmPx, 0.0);
        const hostkit::MarkFindings findings = hostkit::drawingMarks(*document).findings;
        QCOMPARE(findings.outside.size(), 1);
        QCOMPARE(findings.outside[0].name, QStringLiteral("Rectangle 1"));
        QVERIFY(qAbs(findings.outside[0].boxMm.left() + 25.0) < 1e-4);
        QVERIFY(qAbs(findings.outside[0].boxMm.right() + 15.0) < 1e-4);
        QCOMPARE(hostkit::describeOutside(findings),
                 QStringLiteral("outside the work area: Rectangle 1 (x -25.0 to -15.0, "
                                "y 0.0 to 10.0 mm)"));
    }

    void shapeOutside_isFoundUnderAnyMarkScale()
    {
        const double mmPx = ZTCoord::getInstance()->mm2pix(1.0);
        document->itemMag()->setScale(-2.0F, 0.5F);
        document->view()->setWorkArea(QRect(0, 0, 20, 20));
        addRect(5.0 * mmPx, 5.0 * mmPx);
        QVERIFY(hostkit::drawingMarks(*document).findings.outside.isEmpty());
        addRect(15.0 * mmPx, 5.0 * mmPx);
        QCOMPARE(hostkit::drawingMarks(*document).findings.outside.size(), 1);
    }

    void shapeWithAName_isCalledByIt()
    {
        ZTAbstractGraphicsItem *item = addRect(0, 0);
        hostkit::ItemExtras extras;
        extras.name = QStringLiteral("front plate");
        hostkit::setItemExtras(*item, extras);
        QCOMPARE(hostkit::shapeName(*item), QStringLiteral("front plate"));
    }

    void shapeWithWords_isCalledByThem_cutToWhatIsRead()
    {
        ZTAbstractGraphicsItem *item =
            document->itemMag()->addShape(ShapeType::Text, {0, 0, 10, 10});
        item->setText(QStringLiteral(" two\n words "));
        QCOMPARE(hostkit::shapeName(*item), QStringLiteral("two words"));
        item->setText(QString(40, QLatin1Char('x')));
        QCOMPARE(hostkit::shapeName(*item), QString(40, QLatin1Char('x')));
        item->setText(QString(41, QLatin1Char('x')));
        QCOMPARE(hostkit::shapeName(*item), QString(40, QLatin1Char('x')) + QChar(0x2026));
        // A character of two halves is left out whole.
        const QString wide = QString::fromUcs4(U"\U00020000");
        item->setText(QString(39, QLatin1Char('x')) + wide + wide);
        QCOMPARE(hostkit::shapeName(*item), QString(39, QLatin1Char('x')) + QChar(0x2026));
    }

    void outlineWithoutLength_isNamed()
    {
        addRect(0, 0);
        ZTAbstractGraphicsItem *flat = addRect(100, 0);
        flat->setTransformParam(QTransform::fromScale(0.0, 0.0));
        const hostkit::MarkFindings findings = hostkit::drawingMarks(*document).findings;
        QCOMPARE(findings.withoutLength, QStringList{QStringLiteral("Rectangle 1")});
        QVERIFY(findings.doubled.isEmpty());
    }

    void outlineMarkedTwice_isNamed()
    {
        addRect(0, 0);
        addRect(50, 0);
        QVERIFY(hostkit::drawingMarks(*document).findings.isEmpty());
        // The same square, begun at another corner and run the other way.
        addRect(50, 0)->setTransformParam(QTransform(0.0, 1.0, 1.0, 0.0, 0.0, 0.0));
        const hostkit::MarkFindings findings = hostkit::drawingMarks(*document).findings;
        QCOMPARE(findings.doubled, QStringList{QStringLiteral("Rectangle 1")});
        QCOMPARE(hostkit::describeFindings(findings),
                 QStringList{QStringLiteral("outlines that are marked twice: Rectangle 1")});
    }

    void linesThatATdotFigureDoublesItself_areNoMistake()
    {
        document->itemMag()->addShape(ShapeType::TDOT, QRectF());
        QVERIFY(hostkit::drawingMarks(*document).findings.doubled.isEmpty());
        document->itemMag()->addShape(ShapeType::TDOT, QRectF());
        QCOMPARE(hostkit::drawingMarks(*document).findings.doubled,
                 QStringList{QStringLiteral("TDOT figure 0")});
    }

    void manyShapes_areNotAllNamed()
    {
        hostkit::MarkFindings findings;
        for (int i = 0; i < 12; ++i)
            findings.doubled << QStringLiteral("s%1").arg(i);
        QCOMPARE(hostkit::describeFindings(findings),
                 QStringList{QStringLiteral("outlines that are marked twice: s0, s1, s2, s3, s4, "
                                            "s5, s6, s7, s8, s9 and 2 more")});
    }

    void isWithinField_takesTheEdgesIn_andFlatBoxes()
    {
        const QRectF field(-50.0, 0.0, 100.0, 80.0);
        QVERIFY(hostkit::isWithinField({-50.0, 0.0, 100.0, 80.0}, field));
        QVERIFY(hostkit::isWithinField({50.0, 10.0, 0.0, 5.0}, field));
        QVERIFY(hostkit::isWithinField({40.0, 70.0, 10.0 + 1e-9, 10.0 + 1e-9}, field));
        QVERIFY(!hostkit::isWithinField({40.0, 70.0, 10.0 + 1e-5, 1.0}, field));
        QVERIFY(!hostkit::isWithinField({40.0, 70.0, 1.0, 10.0 + 1e-5}, field));
        QVERIFY(!hostkit::isWithinField({-50.0 - 1e-5, 70.0, 1.0, 1.0}, field));
        QVERIFY(!hostkit::isWithinField({0.0, -1e-5, 1.0, 1.0}, field));
    }

private:
    /** A square of 10 mm with its corner at a place on the scene. */
    ZTAbstractGraphicsItem *addRect(double xPx, double yPx)
    {
        ZTAbstractGraphicsItem *item = document->itemMag()->addShape(ShapeType::Rect, QRectF());
        item->setPos(xPx, yPx);
        return item;
    }

    void addHatch(double xPx, double yPx)
    {
        ZTFillParam fill;
        fill.fillType = FillType::Line;
        fill.spac = 1.0;
        fill.isEnableBorder = false;
        addRect(xPx, yPx)->setFillParam(fill);
    }

    QScopedPointer<testsupport::SingletonGuard> guard;
    std::unique_ptr<ZTGraphicsDocument> document;
};

QTEST_MAIN(tst_MarkGraphBuilder)
#include "tst_MarkGraphBuilder.moc"
