#include "TextWindow.h"

#include <studio/measures/MeasureField.h>

#include <hostkit/items/GraphicItems.h>
#include <hostkit/items/ItemHatches.h>
#include <hostkit/marks/MarkGraphBuilder.h>

#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QToolButton>

using hostkit::HatchKind;
using hostkit::HatchMoment;
using hostkit::ShapeHatch;
using studio::MeasureField;
using studio::ShapeItem;

/** Several hatches on a shape, given by a user with a keyboard and a mouse. */
class tst_studio_hatch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { studio = std::make_unique<TextWindow>(); }
    void cleanup() { studio.reset(); }

    // Two hatches and an inset on a plate.
    void twoHatchesAndAnInset()
    {
        ShapeItem *plate = rect(0, 0);
        select({plate});
        const DrawingSnapshot before = studio->snapshot();
        QVERIFY(!child<QToolButton>("panel.hatchAdd")->isEnabled());
        choose("panel.hatch", 1);
        enter("panel.hatchSpacing", "0.5");
        enter("panel.hatchInset", "1");
        click("panel.hatchAdd");
        QVERIFY(child<QListWidget>("panel.hatches")->isVisible());
        QCOMPARE(child<QListWidget>("panel.hatches")->currentRow(), 1);
        choose("panel.hatch", 5);
        enter("panel.hatchSpacing", "0.25");
        choose("panel.hatchPen", 3);
        enter("panel.hatchPasses", "2");
        choose("panel.hatchMoment", 1);
        QCOMPARE(studio->stack().count(), 9);
        const QVector<ShapeHatch> hatches = hostkit::hatchesOf(*plate);
        QCOMPARE(hatches.size(), 2);
        QVERIFY(hatches[0].kind == HatchKind::Lines);
        QCOMPARE(hatches[0].spacingMm, 0.5);
        QCOMPARE(hatches[0].insetMm, 1.0);
        QCOMPARE(hatches[0].pen, 0);
        QVERIFY(hatches[1].kind == HatchKind::Contours);
        QCOMPARE(hatches[1].spacingMm, 0.25);
        QCOMPARE(hatches[1].insetMm, 1.0);
        QCOMPARE(hatches[1].pen, 3);
        QCOMPARE(hatches[1].passes, 2);
        QVERIFY(hatches[1].moment == HatchMoment::BeforeOutline);
        // What the screen shows is what is marked: 16 rows of 8 mm, rings of 8 mm and less.
        plate->getShapeBase()->paint();
        const QVector<hostkit::HatchLayer> layers = hostkit::hatchLayersOf(*plate);
        QCOMPARE(layers.size(), 2);
        QVERIFY(layers[0].lines >= 16 && layers[0].lines <= 17);
        QVERIFY(layers[1].lines > 4 * 15);
        const hostkit::DrawingMarks marks = hostkit::drawingMarks(studio->document());
        QCOMPARE(marks.graph.objects.size(), 2);

        for (int i = 0; i < 9; ++i)
            QVERIFY(studio->run("edit.undo"));
        COMPARE_DRAWINGS(studio->snapshot(), before);
        for (int i = 0; i < 9; ++i)
            QVERIFY(studio->run("edit.redo"));
        QCOMPARE(hostkit::hatchesOf(*plate), hatches);
    }

    // What is typed into next stands where it stood.
    void choosingAHatch_movesNoFieldUnderTheMouse()
    {
        select({rect(0, 0)});
        const auto places = [this] {
            QVector<QPoint> found;
            for (const char *name : {"panel.hatch", "panel.hatchSpacing", "panel.hatchAngle"})
                found << child<QWidget>(name)->mapTo(studio->window.get(), QPoint());
            return found;
        };
        const QVector<QPoint> before = places();
        choose("panel.hatch", 1);
        settle();
        QVector<QPoint> after = places();
        // A scroll bar beside all of them may take its width.
        for (int i = 0; i < before.size(); ++i)
            QCOMPARE(after[i].y(), before[i].y());
        choose("panel.hatch", 0);
        settle();
        after = places();
        for (int i = 0; i < before.size(); ++i)
            QCOMPARE(after[i].y(), before[i].y());
    }

    void removeAndMove()
    {
        ShapeItem *plate = rect(0, 0);
        select({plate});
        choose("panel.hatch", 1);
        click("panel.hatchAdd");
        choose("panel.hatch", 3);
        click("panel.hatchUp");
        QCOMPARE(child<QListWidget>("panel.hatches")->currentRow(), 0);
        QVERIFY(hostkit::hatchesOf(*plate)[0].kind == HatchKind::Cross);
        QVERIFY(!child<QToolButton>("panel.hatchUp")->isEnabled());
        click("panel.hatchDown");
        QVERIFY(hostkit::hatchesOf(*plate)[1].kind == HatchKind::Cross);
        click("panel.hatchRemove");
        QCOMPARE(hostkit::hatchesOf(*plate).size(), 1);
        QVERIFY(plate->getFillParam().fillType == FillType::Line);
        QVERIFY(hostkit::itemExtras(*plate) == hostkit::ItemExtras());
        QVERIFY(!child<QListWidget>("panel.hatches")->isVisible());
        choose("panel.hatch", 0);
        QVERIFY(plate->getFillParam().fillType == FillType::None);
    }

    void eightAreEnough()
    {
        ShapeItem *plate = rect(0, 0);
        select({plate});
        choose("panel.hatch", 1);
        for (int i = 0; i < 7; ++i) {
            QVERIFY(child<QToolButton>("panel.hatchAdd")->isEnabled());
            click("panel.hatchAdd");
        }
        QCOMPARE(hostkit::hatchesOf(*plate).size(), 8);
        QVERIFY(!child<QToolButton>("panel.hatchAdd")->isEnabled());
    }

    void severalShapes_inOneStep()
    {
        ShapeItem *one = rect(0, 0);
        ShapeItem *two = rect(20, 0);
        select({one});
        choose("panel.hatch", 1);
        select({one, two});
        QCOMPARE(child<QComboBox>("panel.hatch")->placeholderText(), QStringLiteral("differs"));
        choose("panel.hatch", 3);
        QVERIFY(hostkit::hatchesOf(*one)[0].kind == HatchKind::Cross);
        QVERIFY(hostkit::hatchesOf(*two)[0].kind == HatchKind::Cross);
        const int steps = studio->stack().count();
        enter("panel.hatchInset", "0.7");
        QCOMPARE(studio->stack().count(), steps + 1);
        QCOMPARE(hostkit::hatchesOf(*one)[0].insetMm, 0.7);
        QCOMPARE(hostkit::hatchesOf(*two)[0].insetMm, 0.7);
        QTest::mouseClick(child<QCheckBox>("panel.hatchOneWay"), Qt::LeftButton, {}, QPoint(8, 8));
        settle();
        QVERIFY(hostkit::hatchesOf(*two)[0].isOneWay);
    }

    void turn_isAskedForWhereItCounts()
    {
        select({rect(0, 0)});
        choose("panel.hatch", 1);
        QVERIFY(!field("panel.hatchTurn")->isVisible());
        choose("panel.hatch", 4);
        QVERIFY(field("panel.hatchTurn")->isVisible());
        enter("panel.hatchTurn", "361");
        QVERIFY(!field("panel.hatchTurn")->fault().isEmpty());
        enter("panel.hatchTurn", "67");
        QCOMPARE(hostkit::hatchesOf(*only())[0].turnDeg, 67.0);
        choose("panel.hatch", 5);
        QVERIFY(!field("panel.hatchAngle")->isEnabled());
    }

    void duplicateAndClipboard_takeHatchesAlong()
    {
        ShapeItem *plate = rect(0, 0);
        select({plate});
        choose("panel.hatch", 5);
        click("panel.hatchAdd");
        const QVector<ShapeHatch> hatches = hostkit::hatchesOf(*plate);
        QVERIFY(studio->run("edit.duplicate"));
        QCOMPARE(hostkit::hatchesOf(*only()), hatches);
        select({plate});
        QVERIFY(studio->run("edit.copy"));
        QVERIFY(studio->run("edit.paste"));
        QCOMPARE(hostkit::hatchesOf(*only()), hatches);
        QVERIFY(only() != plate);
    }

    /** Uniting rounds the outline: a third of a millimetre lies on no grid. */
    void unitingMovesTheFrameWithTheOutline()
    {
        ShapeItem *item = hostkit::addGraphic(
            studio->document(),
            {vectorkit::VectorPath::polyline({{1 / 3.0, 1 / 7.0}, {20.1, 0.7}, {9, 21.3}}, true),
             vectorkit::VectorPath::polyline({{-1 / 3.0, 5}, {17, 5.1}, {8, 22 + 1 / 7.0}}, true)});
        select({item});
        auto *box = child<QCheckBox>("panel.union");
        const QRectF beforePx = studio::sceneBox(*item);
        QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(8, 8));
        settle();
        QVERIFY(studio::sceneBox(*item) != beforePx);
        QVERIFY(studio->frameFits());
        studio->edit().undo();
        QCOMPARE(studio::sceneBox(*item), beforePx);
        QVERIFY(studio->frameFits());
    }

    void texts_areUnitedUnlessToldOtherwise()
    {
        ZTGraphicsTextItem *text = studio->addText(QStringLiteral("OO"));
        text->setFontType(FontType::doubleLine);
        select({text});
        auto *box = child<QCheckBox>("panel.union");
        QVERIFY(box->isChecked());
        QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(8, 8));
        settle();
        QVERIFY(hostkit::itemExtras(*text).outlineUnion == hostkit::OutlineUnion::Never);
        QVERIFY(studio->run("edit.undo"));
        QVERIFY(box->isChecked());
        select({rect(0, 0)});
        QVERIFY(!box->isChecked());
    }

private:
    template <class Widget>
    Widget *child(const char *name)
    {
        auto *found = studio->window->findChild<Widget *>(QString::fromLatin1(name));
        if (found == nullptr)
            qFatal("no widget %s", name);
        return found;
    }

    MeasureField *field(const char *name) { return child<MeasureField>(name); }
    static void settle()
    {
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
    }

    ShapeItem *rect(double xMm, double yMm)
    {
        return studio->addRect(ZTCoord::getInstance()->mm2pix(xMm),
                               ZTCoord::getInstance()->mm2pix(yMm));
    }

    ShapeItem *only()
    {
        const studio::ShapeItems selected = studio::selectedShapeItems(*studio->document().scene());
        if (selected.size() != 1)
            qFatal("%d shapes are selected", selected.size());
        return selected.first();
    }

    void select(const studio::ShapeItems &items)
    {
        studio->select(items);
        settle();
    }

    void enter(const char *name, const char *entry)
    {
        field(name)->setFocus();
        field(name)->selectAll();
        QTest::keyClicks(field(name), QString::fromUtf8(entry));
        QTest::keyClick(field(name), Qt::Key_Return);
        settle();
    }

    void click(const char *name)
    {
        QTest::mouseClick(child<QToolButton>(name), Qt::LeftButton);
        settle();
    }

    /** Opens a list and takes an entry by the keyboard. */
    void choose(const char *name, int entry)
    {
        auto *box = child<QComboBox>(name);
        box->setFocus();
        QTest::keyClick(box, Qt::Key_F4);
        QTRY_VERIFY(box->view()->isVisible());
        QTest::keyClick(box->view(), Qt::Key_Home);
        for (int i = 0; i < entry; ++i)
            QTest::keyClick(box->view(), Qt::Key_Down);
        QTest::keyClick(box->view(), Qt::Key_Return);
        settle();
    }

    std::unique_ptr<TextWindow> studio;
};

QTEST_MAIN(tst_studio_hatch)
#include "tst_studio_hatch.moc"
