#include "StudioWindow.h"

#include <studio/choices/Units.h>
#include <studio/drawing/DrawingFiles.h>
#include <studio/import/CleanForm.h>
#include <studio/paths/CleanDialog.h>
#include <studio/paths/OffsetDialog.h>
#include <studio/paths/PathActions.h>
#include <studio/paths/PathTools.h>
#include <studio/program/UndoTexts.h>

#include <hostkit/items/GraphicItems.h>
#include <hostkit/items/ItemExtras.h>

#include <QtTest/QSignalSpy>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

using studio::ShapeItem;
using studio::ShapeItems;
using vectorkit::VectorPath;

namespace {

VectorPath square(double left, double top, double side)
{
    return VectorPath::polyline(
        {{left, top}, {left + side, top}, {left + side, top + side}, {left, top + side}}, true);
}

} // namespace

/** Arrange, Paths: by the commands of the window. */
class tst_studio_paths : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { studio = std::make_unique<StudioWindow>(); }
    void cleanup() { studio.reset(); }

    void toPaths_keepsOutlineSettingsAndPlace()
    {
        studio->addRect(0, 0);
        ShapeItem *item = studio->addRect(100, 50);
        studio->addRect(200, 0);
        settings(*item);
        studio->select({item});
        const DrawingSnapshot before = studio->snapshot();
        QVERIFY(studio->run("paths.toPaths"));
        const DrawingSnapshot after = studio->snapshot();
        QCOMPARE(after.stacked.size(), 3);
        const ShapeItem *path = items()[1]; // between the two others, as before
        QVERIFY(path != item);
        QVERIFY(hostkit::graphicOf(*path) != nullptr);
        hasSettings(*path);
        QCOMPARE(studio->selected(), QVector<int>{path->getShapeBase()->getId()});
        // What is marked stays what it was.
        const ZTMarkGraph marks = studio->document().itemMag()->getShapeLines();
        QCOMPARE(marks.objects.size(), 3);
        QCOMPARE(studio->stack().count(), 1);
        QCOMPARE(undoText(), QStringLiteral("Turn into paths"));
        COMPARE_UNDO_AND_REDO(studio->document(), before, after);
    }

    void toPaths_text_becomesItsLetters()
    {
        auto *text = qobject_cast<ZTGraphicsTextItem *>(
            studio->document().itemMag()->addShape(ShapeType::Text, {0, 0, 10, 10}));
        text->setFontType(FontType::doubleLine);
        text->setFixedText(QStringLiteral("oi"));
        studio->takeWarnings(); // a new text has no stroke font here
        studio->select({text});
        const QRectF boxPx = studio::sceneBox(*text);
        QVERIFY(studio->run("paths.toPaths"));
        const ShapeItem *path = items().first();
        QCOMPARE(hostkit::outlinesOf(*path).size(), 4); // o with its hole, i with its dot
        QCOMPARE(hostkit::itemExtras(*path).name, QStringLiteral("oi"));
        const QRectF isPx = studio::sceneBox(*path);
        QVERIFY((isPx.topLeft() - boxPx.topLeft()).manhattanLength() < 0.1);
        QVERIFY((isPx.bottomRight() - boxPx.bottomRight()).manhattanLength() < 0.1);
        QVERIFY(studio->run("edit.undo"));
        QCOMPARE(items().first()->text(), QStringLiteral("oi"));
    }

    void toPaths_ofPaths_makesNoStep()
    {
        studio->select({add({square(0, 0, 10)})});
        QVERIFY(studio->run("paths.toPaths"));
        QCOMPARE(studio->stack().count(), 0);
    }

    void union_hasTheSettingsOfTheLowest()
    {
        ShapeItem *lower = add({square(0, 0, 10)});
        settings(*lower);
        ShapeItem *upper = add({square(5, 5, 10)});
        upper->setPenId(9);
        studio->select({lower, upper});
        const DrawingSnapshot before = studio->snapshot();
        QVERIFY(studio->run("paths.union"));
        const DrawingSnapshot after = studio->snapshot();
        QCOMPARE(items().size(), 1);
        const ShapeItem *both = items().first();
        hasSettings(*both);
        const QVector<VectorPath> outlines = hostkit::outlinesOf(*both);
        QCOMPARE(outlines.size(), 1);
        QCOMPARE(outlines.first().pieceCount(), 8);
        QCOMPARE(undoText(), QStringLiteral("Union"));
        QCOMPARE(studio->stack().count(), 1);
        COMPARE_UNDO_AND_REDO(studio->document(), before, after);
    }

    void commandsOfTwo_data()
    {
        QTest::addColumn<QByteArray>("id");
        QTest::addColumn<int>("outlines");
        QTest::addColumn<QRectF>("boxMm");
        QTest::newRow("difference") << QByteArray("paths.difference") << 1 << QRectF(0, 0, 10, 10);
        QTest::newRow("intersection")
            << QByteArray("paths.intersection") << 1 << QRectF(5, 5, 5, 5);
        QTest::newRow("exclusion") << QByteArray("paths.exclusion") << 2 << QRectF(0, 0, 15, 15);
        QTest::newRow("combine") << QByteArray("paths.combine") << 2 << QRectF(0, 0, 15, 15);
    }
    void commandsOfTwo()
    {
        QFETCH(QByteArray, id);
        QFETCH(int, outlines);
        QFETCH(QRectF, boxMm);
        ShapeItem *lower = add({square(0, 0, 10)});
        ShapeItem *upper = add({square(5, 5, 10)});
        studio->select({lower});
        QVERIFY(!studio->isEnabled(id.constData()));
        studio->select({lower, upper});
        const DrawingSnapshot before = studio->snapshot();
        QVERIFY(studio->run(id.constData()));
        QCOMPARE(items().size(), 1);
        const QVector<VectorPath> paths = hostkit::outlinesOf(*items().first());
        QCOMPARE(paths.size(), outlines);
        QRectF box;
        for (const VectorPath &path : paths)
            box |= path.boundsMm();
        QVERIFY((box.topLeft() - boxMm.topLeft()).manhattanLength() < 1e-4);
        QVERIFY((box.bottomRight() - boxMm.bottomRight()).manhattanLength() < 1e-4);
        COMPARE_UNDO_AND_REDO(studio->document(), before, studio->snapshot());
    }

    void union_ofAnOpenShape_isRefusedWithTheReason()
    {
        ShapeItem *closed = add({square(0, 0, 10)});
        ShapeItem *open = add({VectorPath::polyline({{0, 0}, {5, 5}})});
        studio->select({closed, open});
        QSignalSpy told(&studio->window->editor().paths(), &studio::PathTools::told);
        QVERIFY(studio->run("paths.union"));
        QCOMPARE(items().size(), 2);
        QCOMPARE(studio->stack().count(), 0);
        QCOMPARE(told.count(), 1);
    }

    void intersection_ofNothingInCommon_changesNothing()
    {
        studio->select({add({square(0, 0, 10)}), add({square(50, 0, 10)})});
        QVERIFY(studio->run("paths.intersection"));
        QCOMPARE(items().size(), 2);
        QCOMPARE(studio->stack().count(), 0);
    }

    void openRuns_surviveAUnion()
    {
        const VectorPath mark = VectorPath::polyline({{30, 0}, {40, 5}});
        studio->select({add({square(0, 0, 10), mark}), add({square(5, 5, 10)})});
        QVERIFY(studio->run("paths.union"));
        const QVector<VectorPath> paths = hostkit::outlinesOf(*items().first());
        QCOMPARE(paths.size(), 2);
        QVERIFY(!paths[1].isClosed());
    }

    void breakApart_andCombine_areEachOthersWayBack()
    {
        ShapeItem *item = add({square(0, 0, 10), square(2, 2, 3), square(20, 0, 10)});
        settings(*item);
        studio->select({item});
        const DrawingSnapshot before = studio->snapshot();
        QVERIFY(studio->run("paths.breakApart"));
        QCOMPARE(items().size(), 2);
        QCOMPARE(hostkit::outlinesOf(*items()[0]).size(), 2);
        QCOMPARE(hostkit::outlinesOf(*items()[1]).size(), 1);
        hasSettings(*items()[0]);
        hasSettings(*items()[1]);
        QCOMPARE(studio->selected().size(), 2);
        COMPARE_UNDO_AND_REDO(studio->document(), before, studio->snapshot());
        QVERIFY(studio->run("edit.redo"));
        QVERIFY(studio->run("paths.combine"));
        QCOMPARE(items().size(), 1);
        QCOMPARE(hostkit::outlinesOf(*items()[0]).size(), 3);
    }

    void weld_makesASquareWithADoubledHoleHatchRight()
    {
        ShapeItem *item = add({square(0, 0, 10), square(3, 3, 4), square(3, 3, 4)});
        ZTFillParam hatch;
        hatch.fillType = FillType::Line;
        hatch.spac = 1.0;
        item->setFillParam(hatch);
        studio->select({item});
        QVERIFY(studio->run("paths.weld"));
        QCOMPARE(items(), ShapeItems{item}); // the shape it was
        QCOMPARE(hostkit::outlinesOf(*item).size(), 2);
        // No hatch line runs through the middle of the hole.
        const QPointF hole(5, 5);
        const QTransform toMm = ZTCoord::getInstance()->getPix2MmTransform();
        for (const QLineF &line : item->getShapeBase()->getFillLines()) {
            const QLineF lineMm = toMm.map(line.translated(item->pos()));
            const bool isLevel = std::abs(lineMm.y1() - hole.y()) < 1.5;
            const bool crosses = qMin(lineMm.x1(), lineMm.x2()) < hole.x() &&
                                 qMax(lineMm.x1(), lineMm.x2()) > hole.x();
            QVERIFY(!(isLevel && crosses));
        }
    }

    void offsetDialog_showsAndMakesTheOutline()
    {
        ShapeItem *item = add({square(0, 0, 10)});
        settings(*item);
        studio->select({item});
        const DrawingSnapshot before = studio->snapshot();
        QVERIFY(studio->run("paths.offset"));
        auto *dialog = studio->window->findChild<studio::OffsetDialog *>();
        QVERIFY(dialog != nullptr);
        dialog->findChild<QComboBox *>(QStringLiteral("offsetCorner"))->setFocus();
        QTest::keyClick(dialog->findChild<QComboBox *>(QStringLiteral("offsetCorner")),
                        Qt::Key_Down); // pointed
        enter(dialog, "offsetDistance", "2");
        press(dialog, QDialogButtonBox::Ok);
        QCOMPARE(items().size(), 2);
        const ShapeItem *outer = items()[1];
        hasSettings(*outer);
        const QRectF box = hostkit::outlinesOf(*outer).first().boundsMm();
        QVERIFY((box.topLeft() - QPointF(-2, -2)).manhattanLength() < 1e-4);
        QVERIFY((box.bottomRight() - QPointF(12, 12)).manhattanLength() < 1e-4);
        COMPARE_UNDO_AND_REDO(studio->document(), before, studio->snapshot());
    }

    void offsetDialog_takesInches()
    {
        studio::units::choose(studio::LengthUnit::Inch, false);
        studio->select({add({square(0, 0, 10)})});
        QVERIFY(studio->run("paths.offset"));
        auto *dialog = studio->window->findChild<studio::OffsetDialog *>();
        enter(dialog, "offsetDistance", "0.1");
        press(dialog, QDialogButtonBox::Ok);
        studio::units::choose(studio::LengthUnit::Millimetre, false);
        const QRectF box = hostkit::outlinesOf(*items()[1]).first().boundsMm();
        QVERIFY2(qAbs(box.left() + 2.54) < 1e-4, qPrintable(QString::number(box.left())));
        QVERIFY(qAbs(box.bottom() - 12.54) < 1e-4);
    }

    void offsetDialog_whereNothingIsLeft_saysSo()
    {
        studio->select({add({square(0, 0, 10)})});
        QVERIFY(studio->run("paths.offset"));
        auto *dialog = studio->window->findChild<studio::OffsetDialog *>();
        enter(dialog, "offsetDistance", "-6");
        QVERIFY(
            !dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok)->isEnabled());
        QVERIFY(!dialog->findChild<QLabel *>(QStringLiteral("offsetHint"))->text().isEmpty());
        press(dialog, QDialogButtonBox::Cancel);
        QCOMPARE(studio->stack().count(), 0);
    }

    void cleanDialog_joinsLooseLines()
    {
        ShapeItem *item = add(
            {VectorPath::polyline({{0, 0}, {10, 0}}), VectorPath::polyline({{10, 10}, {10, 0.01}}),
             VectorPath::polyline({{10, 10}, {0, 0}}), VectorPath::polyline({{2, 0}, {5, 0}})});
        settings(*item);
        studio->select({item});
        const DrawingSnapshot before = studio->snapshot();
        QVERIFY(studio->run("paths.clean"));
        auto *dialog = studio->window->findChild<studio::CleanDialog *>();
        QVERIFY(dialog != nullptr);
        const QString figures = dialog->findChild<QLabel *>(QStringLiteral("cleanFigures"))->text();
        QVERIFY2(figures.contains(QStringLiteral("Outlines: 4 → 1")), qPrintable(figures));
        QVERIFY(figures.contains(QStringLiteral("Outlines closed: 1")));
        QVERIFY(figures.contains(QStringLiteral("Drawn twice: 1 pieces, 3")));
        press(dialog, QDialogButtonBox::Ok);
        QCOMPARE(items(), ShapeItems{item});
        const QVector<VectorPath> paths = hostkit::outlinesOf(*item);
        QCOMPARE(paths.size(), 1);
        QVERIFY(paths.first().isClosed());
        hasSettings(*item);
        COMPARE_UNDO_AND_REDO(studio->document(), before, studio->snapshot());
    }

    void cleanDialog_withNothingChosen_cannotBeTaken()
    {
        studio->select({add({square(0, 0, 10)})});
        QVERIFY(studio->run("paths.clean"));
        auto *dialog = studio->window->findChild<studio::CleanDialog *>();
        const auto *ok = dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok);
        QVERIFY(ok->isEnabled());
        for (const char *name : {"cleanJoin", "cleanDoubles"})
            QTest::mouseClick(dialog->findChild<QCheckBox *>(QLatin1String(name)), Qt::LeftButton);
        QTRY_VERIFY(!ok->isEnabled());
        press(dialog, QDialogButtonBox::Cancel);
        QCOMPARE(studio->stack().count(), 0);
    }

    void paths_areSavedWithTheDrawing()
    {
        ShapeItem *ellipse =
            studio->document().itemMag()->addShape(ShapeType::Ellipse, {0, 0, 20, 10});
        studio->select({ellipse, add({square(5, 5, 10)})});
        QVERIFY(studio->run("paths.union"));
        settings(*items().first());
        const QByteArray marks = studio->snapshot().mark;
        const QString path = studio->path("paths.ztd");
        QVERIFY(studio->window->editor().files().saveTo(path));
        QVERIFY(studio->window->editor().files().load(path));
        QCOMPARE(items().size(), 1);
        QCOMPARE(studio->snapshot().mark, marks);
        hasSettings(*items().first());
    }

private:
    ShapeItem *add(const QVector<VectorPath> &paths)
    {
        return hostkit::addGraphic(studio->document(), paths);
    }

    ShapeItems items() { return studio::shapeItemsOf(*studio->document().scene()); }

    QString undoText() { return studio::readableUndoText(studio->stack().undoText()); }

    static void settings(ShapeItem &item)
    {
        item.setPenId(7);
        ZTFillParam hatch;
        hatch.fillType = FillType::ULine;
        hatch.spac = 0.75;
        hatch.angle = 30.0;
        item.setFillParam(hatch);
        hostkit::ItemExtras extras;
        extras.name = QStringLiteral("plate");
        extras.groupPath = {3, 4};
        hostkit::setItemExtras(item, extras);
    }

    static void hasSettings(const ShapeItem &item)
    {
        QCOMPARE(item.getPenId(), 7);
        QCOMPARE(item.getFillParam().fillType, FillType::ULine);
        QCOMPARE(item.getFillParam().spac, 0.75);
        QCOMPARE(item.getFillParam().angle, 30.0);
        QCOMPARE(hostkit::itemExtras(item).name, QStringLiteral("plate"));
        QCOMPARE(hostkit::itemExtras(item).groupPath, (QVector<qint32>{3, 4}));
    }

    static void press(QDialog *dialog, QDialogButtonBox::StandardButton button)
    {
        QTest::mouseClick(dialog->findChild<QDialogButtonBox *>()->button(button), Qt::LeftButton);
        QCoreApplication::processEvents();
    }

    static void enter(QDialog *dialog, const char *name, const char *text)
    {
        auto *box = dialog->findChild<QDoubleSpinBox *>(QLatin1String(name));
        box->setFocus();
        box->selectAll();
        QTest::keyClicks(box, QLatin1String(text));
        QTest::keyClick(box, Qt::Key_Tab);
    }

    std::unique_ptr<StudioWindow> studio;
};

QTEST_MAIN(tst_studio_paths)
#include "tst_studio_paths.moc"
