#include "StudioWindow.h"
#include "unit/studio/MeasuredBoxes.h"

#include <studio/measures/MeasureField.h>
#include <studio/panel/ShapePanel.h>
#include <studio/shapes/PenColors.h>
#include <studio/shapes/ShapeMeasures.h>

#include <hostkit/items/ItemExtras.h>

#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDockWidget>
#include <QtWidgets/QLabel>
#include <QtWidgets/QRadioButton>

#include <cmath>

using studio::MeasureField;
using studio::ShapeItem;

namespace {

bool isNear(const QRectF &a, const QRectF &b) { return ::isNear(a, b, 1e-6); }

} // namespace

#define COMPARE_BOX(item, ...)                                                                     \
    QVERIFY2(isNear(studio::outlineBoxMm(item), QRectF(__VA_ARGS__)),                              \
             told(studio::outlineBoxMm(item)).constData())

/** The shape panel before a user with a keyboard and a mouse. */
class tst_studio_panel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { studio = std::make_unique<StudioWindow>(); }
    void cleanup() { studio.reset(); }

    void firstStart_showsThePanelAndNotTheEngineProperties()
    {
        QVERIFY(child<QDockWidget>("shapePanel")->isVisible());
        QVERIFY(!child<QDockWidget>("propertyDock")->isVisible());
        QCOMPARE(child<QLabel>("panel.count")->text(), QStringLiteral("Nothing selected"));
        QVERIFY(!field("panel.x")->isEnabled());
        QCOMPARE(field("panel.x")->text(), QString());
        for (const char *name : {"panel.hatch", "panel.pen"})
            QCOMPARE(child<QComboBox>(name)->placeholderText(), QString());
    }

    void selectedShape_showsItsTrueBox()
    {
        select({rect(10, 20)});
        QCOMPARE(texts(), QStringLiteral("10 20 10 10 0"));
        select({rect(10, 20), rect(30, 40)});
        QCOMPARE(texts(), QStringLiteral("10 20 30 30 0"));
        select({});
        QCOMPARE(texts(), QStringLiteral("    "));
    }

    void manyThatAreDragged_showWhereTheyAre()
    {
        studio::ShapeItems items;
        for (int i = 0; i < 1200; ++i)
            items.append(rect(-60 + 3 * (i % 40), -45 + 3 * (i / 40)));
        select(items);
        const QString before = field("panel.x")->text();
        QCOMPARE(before, QStringLiteral("-60"));
        // Fields show four digits behind the point.
        const auto showsThePlace = [&] {
            const double leftMm = studio::outlineBoxMm(items).left();
            return std::abs(field("panel.x")->text().toDouble() - leftMm) < 0.0001;
        };
        const QPointF middlePx = studio::sceneBox(items).center();
        studio->driver->press(middlePx);
        for (const double x : {10.0, 25.0, 40.0})
            studio->driver->move(middlePx + QPointF(x, 0));
        QVERIFY(studio::outlineBoxMm(items).left() > -59.0);
        QTRY_VERIFY(showsThePlace()); // with the button still down
        studio->driver->move(middlePx + QPointF(55, 0));
        studio->driver->release(middlePx + QPointF(55, 0));
        QTRY_VERIFY(showsThePlace());
        studio->stack().undo();
        QTRY_COMPARE(field("panel.x")->text(), before);
    }

    // Width, then height, then the place; Return commits and Tab goes on.
    void keyboardAlone_makesARectangleOfTwentyByFifteen()
    {
        ShapeItem *item = rect(3, 4);
        select({item});
        const DrawingSnapshot before = studio->snapshot();
        studio->view().setFocus();
        QTest::keyClick(&studio->view(), Qt::Key_F6);
        QVERIFY(field("panel.x")->hasFocus());
        QTest::keyClicks(focused(), QStringLiteral("10"));
        QTest::keyClick(focused(), Qt::Key_Tab);
        settle();
        QVERIFY(field("panel.y")->hasFocus());
        QTest::keyClick(focused(), Qt::Key_Tab);
        QVERIFY(field("panel.width")->hasFocus());
        QTest::keyClicks(focused(), QStringLiteral("2*(3+7)"));
        QTest::keyClick(focused(), Qt::Key_Return);
        settle();
        QVERIFY(field("panel.width")->hasFocus());
        QCOMPARE(field("panel.width")->text(), QStringLiteral("20"));
        QTest::keyClick(focused(), Qt::Key_Tab);
        QTest::keyClicks(focused(), QStringLiteral("1.5cm"));
        QTest::keyClick(focused(), Qt::Key_Return);
        settle();
        COMPARE_BOX(*item, 10, 4, 20, 15);
        QCOMPARE(texts(), QStringLiteral("10 4 20 15 0"));
        QCOMPARE(studio->stack().count(), 3);
        const DrawingSnapshot after = studio->snapshot();
        // Undo is the drawing's, also in a field.
        for (int i = 0; i < 3; ++i)
            QTest::keyClick(focused(), Qt::Key_Z, Qt::ControlModifier);
        settle();
        COMPARE_DRAWINGS(studio->snapshot(), before);
        QCOMPARE(texts(), QStringLiteral("3 4 10 10 0"));
        for (int i = 0; i < 3; ++i)
            QTest::keyClick(focused(), Qt::Key_Y, Qt::ControlModifier);
        settle();
        COMPARE_DRAWINGS(studio->snapshot(), after);
    }

    void wrongEntry_isShownAsWrong_andChangesNothing_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("entry");
        QTest::addColumn<QString>("reason");
        QTest::newRow("no width") << "panel.width"
                                  << "0"
                                  << "Too small. Permitted: 0.001 to 14200 mm";
        QTest::newRow("less than nothing") << "panel.height"
                                           << "-5"
                                           << "Too small. Permitted: 0.001 to 14200 mm";
        QTest::newRow("too wide") << "panel.width"
                                  << "20m"
                                  << "Too large. Permitted: 0.001 to 14200 mm";
        QTest::newRow("no unit") << "panel.x"
                                 << "5kg"
                                 << "\"kg\" is no unit of this field. Permitted: -7100 to 7100 mm";
        QTest::newRow("empty") << "panel.x"
                               << ""
                               << "Nothing is entered. Permitted: -7100 to 7100 mm";
        QTest::newRow("half a sum")
            << "panel.y"
            << "5+"
            << "A number is missing at the end. Permitted: -7100 to 7100 mm";
        QTest::newRow("beyond the area")
            << "panel.x"
            << "7050"
            << "A shape would leave the drawing's area, -7027 to 7027 mm across and -7027 to "
               "7027 mm down";
        QTest::newRow("a turn and more") << "panel.angle"
                                         << "361"
                                         << "Too large. Permitted: -360° to 360°";
    }

    void wrongEntry_isShownAsWrong_andChangesNothing()
    {
        QFETCH(QString, name);
        QFETCH(QString, entry);
        QFETCH(QString, reason);
        select({rect(10, 20)});
        const DrawingSnapshot before = studio->snapshot();
        MeasureField *wrong = field(qPrintable(name));
        const QString shown = wrong->text();
        const QColor usual = wrong->palette().color(QPalette::Base);
        type(wrong, entry);
        QTest::keyClick(wrong, Qt::Key_Return);
        settle();
        QCOMPARE(wrong->text(), entry);
        QCOMPARE(wrong->fault(), reason);
        QCOMPARE(wrong->toolTip(), reason);
        QCOMPARE(wrong->accessibleDescription(), reason);
        QVERIFY(wrong->palette().color(QPalette::Base) != usual);
        QVERIFY(message()->isVisible());
        QCOMPARE(message()->text(), reason);
        QCOMPARE(studio->stack().count(), 0);
        COMPARE_DRAWINGS(studio->snapshot(), before);
        // Leaving the field leaves the entry, which still is wrong; Escape takes it back.
        QTest::keyClick(wrong, Qt::Key_Tab);
        settle();
        QCOMPARE(wrong->text(), entry);
        wrong->setFocus();
        QTest::keyClick(wrong, Qt::Key_Escape);
        QCOMPARE(wrong->text(), shown);
        QCOMPARE(wrong->fault(), QString());
        QVERIFY(!message()->isVisible());
        QCOMPARE(wrong->palette().color(QPalette::Base), usual);
        QCOMPARE(studio->stack().count(), 0);
    }

    void entry_thatIsNotCommitted_neverReachesAnotherShape()
    {
        ShapeItem *first = rect(10, 20);
        ShapeItem *second = rect(50, 60);
        select({first});
        type(field("panel.x"), QStringLiteral("99"));
        select({second});
        QCOMPARE(field("panel.x")->text(), QStringLiteral("50"));
        QTest::keyClick(field("panel.x"), Qt::Key_Return);
        settle();
        COMPARE_BOX(*first, 10, 20, 10, 10);
        COMPARE_BOX(*second, 50, 60, 10, 10);
    }

    void clickOnTheDrawing_commitsTheEntryToTheShapeItWasTypedFor()
    {
        ShapeItem *first = rect(0, 0);
        ShapeItem *second = rect(30, 0);
        select({first});
        type(field("panel.y"), QStringLiteral("5"));
        studio->driver->click({px(35), px(5)});
        settle();
        QVERIFY(second->isSelected());
        COMPARE_BOX(*first, 0, 5, 10, 10);
        COMPARE_BOX(*second, 30, 0, 10, 10);
    }

    void severalShapes_eachItsOwn_orTheBoxOfAll()
    {
        ShapeItem *small = rect(0, 0);
        ShapeItem *wide = rect(20, 0);
        select({wide});
        enter("panel.width", "30");
        select({small, wide});
        QCOMPARE(texts(), QStringLiteral("0 0 50 10 0"));
        choose("panel.extent", 1);
        QCOMPARE(texts(), QStringLiteral(" 0  10 0"));
        QCOMPARE(field("panel.width")->placeholderText(), QStringLiteral("differs"));
        QCOMPARE(field("panel.height")->placeholderText(), QString());
        const DrawingSnapshot before = studio->snapshot();
        const int steps = studio->stack().count();
        enter("panel.width", "12.5");
        COMPARE_BOX(*small, 0, 0, 12.5, 10);
        COMPARE_BOX(*wide, 20, 0, 12.5, 10);
        QCOMPARE(studio->stack().count(), steps + 1);
        QCOMPARE(texts(), QStringLiteral(" 0 12.5 10 0"));
        QVERIFY(studio->run("edit.undo"));
        COMPARE_DRAWINGS(studio->snapshot(), before);
        QCOMPARE(texts(), QStringLiteral(" 0  10 0"));
    }

    void anchor_isChosenByTheMouse_andRemembered()
    {
        ShapeItem *item = rect(10, 20);
        select({item});
        QTest::mouseClick(child<QRadioButton>("panel.anchor.8"), Qt::LeftButton);
        settle();
        QCOMPARE(texts(), QStringLiteral("20 30 10 10 0"));
        enter("panel.width", "5");
        COMPARE_BOX(*item, 15, 20, 5, 10);
        studio::MainWindow second;
        QVERIFY(second.findChild<QRadioButton *>(QStringLiteral("panel.anchor.8"))->isChecked());
    }

    void lock_keepsProportions()
    {
        ShapeItem *item = rect(0, 0);
        select({item});
        enter("panel.height", "5");
        QTest::mouseClick(child<QCheckBox>("panel.lock"), Qt::LeftButton, {}, QPoint(8, 8));
        settle();
        enter("panel.width", "30");
        COMPARE_BOX(*item, 0, 0, 30, 15);
        QVERIFY(child<QCheckBox>("panel.lock")->isChecked());
    }

    void afterMirrorRotateHandleLoadAndUndo_itIsTheBoxOneWouldMeasure()
    {
        ShapeItem *item = rect(0, 0);
        select({item});
        enter("panel.width", "20");
        QVERIFY(studio->run("arrange.rotateRight"));
        // About (10, 5), clockwise.
        QCOMPARE(texts(), QStringLiteral("5 -5 10 20 -90"));
        QVERIFY(studio->run("arrange.mirrorHorizontal"));
        QVERIFY(texts().startsWith(QStringLiteral("5 -5 10 20 ")));
        enter("panel.angle", "0");
        QCOMPARE(texts(), QStringLiteral("0 0 20 10 0"));
        // The handle at the right edge, dragged by 10 mm; handles stand outside the frame.
        const ZTGraphicsResizeItem *frame = studio->document().scene()->getGraphicsResizeItem();
        const QRectF box = frame->rect().translated(frame->pos());
        const QPointF from(box.right() + 3, box.center().y());
        studio->driver->drag(from, from + QPointF(px(10), 0));
        settle();
        const QRectF boxMm = studio::outlineBoxMm(*item);
        QVERIFY2(boxMm.width() > 25, told(boxMm).constData());
        QVERIFY(std::abs(field("panel.width")->shown().value_or(0) - boxMm.width()) < 1e-9);
        QVERIFY(studio->run("edit.undo"));
        QCOMPARE(texts(), QStringLiteral("0 0 20 10 0"));
    }

    void dragging_showsThePlaceMeanwhile()
    {
        ShapeItem *item = rect(0, 0);
        select({item});
        studio->driver->press({px(5), px(5)});
        studio->driver->move({px(5) + 30, px(5)});
        studio->driver->move({px(5) + 93, px(5)});
        settle();
        QVERIFY(std::abs(field("panel.x")->shown().value_or(0) - 93 * 193.0 / 900.0) < 1e-9);
        studio->driver->release({px(5) + 93, px(5)});
    }

    // Five shapes, a zigzag of 0.05 mm at 45 degrees.
    void fiveShapes_getOneHatch()
    {
        studio::ShapeItems items;
        for (int i = 0; i < 5; ++i)
            items << rect(i * 20, 0);
        select(items);
        QVERIFY(!field("panel.hatchSpacing")->isEnabled());
        const DrawingSnapshot before = studio->snapshot();
        choose("panel.hatch", 2);
        enter("panel.hatchSpacing", "0.05");
        enter("panel.hatchAngle", "45");
        QCOMPARE(studio->stack().count(), 3);
        for (const ShapeItem *item : items) {
            const ZTFillParam fill = item->getFillParam();
            QVERIFY(fill.fillType == FillType::ULine);
            QCOMPARE(fill.spac, 0.05);
            QCOMPARE(fill.angle, -45.0); // the record counts clockwise
        }
        // What is marked rises to the right: the first row of the hatch of the first shape.
        ZTMarkObject object;
        studio->document().itemMag()->genMarkObject(items[0], items[0]->getShapeBase(), object);
        QVERIFY(std::abs(std::fmod(object.fillLines.first().angle(), 180.0) - 45.0) < 1e-3);
        for (int i = 0; i < 3; ++i)
            QVERIFY(studio->run("edit.undo"));
        COMPARE_DRAWINGS(studio->snapshot(), before);
    }

    void hatch_differsAndHints()
    {
        ShapeItem *hatched = rect(0, 0);
        ShapeItem *plain = rect(20, 0);
        select({hatched});
        choose("panel.hatch", 1);
        enter("panel.hatchSpacing", "0.0049");
        QVERIFY(!field("panel.hatchSpacing")->fault().isEmpty());
        enter("panel.hatchSpacing", "0.005");
        QCOMPARE(hatched->getFillParam().spac, 0.005);
        select({hatched, plain});
        QCOMPARE(child<QComboBox>("panel.hatch")->currentIndex(), -1);
        QCOMPARE(child<QComboBox>("panel.hatch")->placeholderText(), QStringLiteral("differs"));
        QCOMPARE(field("panel.hatchSpacing")->placeholderText(), QStringLiteral("differs"));
        select({plain});
        QTest::mouseClick(child<QCheckBox>("panel.border"), Qt::LeftButton, {}, QPoint(8, 8));
        settle();
        QVERIFY(child<QLabel>("panel.hatchHint")->text().startsWith(QStringLiteral("Neither")));
        auto *line = studio->document().itemMag()->addShape(ShapeType::Line, {0, 0, 10, 10});
        select({line});
        QVERIFY(!child<QComboBox>("panel.hatch")->isEnabled());
        QVERIFY(child<QLabel>("panel.hatchHint")->text().startsWith(QStringLiteral("Lines")));
    }

    void pens_areNamedAndHaveColours()
    {
        auto *pens = child<QComboBox>("panel.pen");
        QCOMPARE(pens->count(), 16);
        for (int pen = 1; pen <= 16; ++pen) {
            QVERIFY(!studio::penName(pen).isEmpty());
            QCOMPARE(pens->itemText(pen - 1),
                     QStringLiteral("%1  %2").arg(pen).arg(studio::penName(pen)));
            QVERIFY(!pens->itemIcon(pen - 1).isNull());
        }
        ShapeItem *first = rect(0, 0);
        ShapeItem *second = rect(20, 0);
        select({first, second});
        choose("panel.pen", 11);
        QCOMPARE(first->getPenId(), 12);
        QCOMPARE(second->getPenId(), 12);
        QCOMPARE(studio->stack().count(), 1);
        select({first});
        choose("panel.pen", 0);
        select({first, second});
        QCOMPARE(pens->currentIndex(), -1);
    }

    void nameAndFlags_areUndoable()
    {
        ShapeItem *first = rect(0, 0);
        ShapeItem *second = rect(20, 0);
        select({first, second});
        auto *name = child<QLineEdit>("panel.name");
        QCOMPARE(name->placeholderText(), QStringLiteral("Rectangle"));
        name->setFocus();
        QTest::keyClicks(name, QStringLiteral("Plate"));
        QTest::keyClick(name, Qt::Key_Return);
        settle();
        QCOMPARE(hostkit::itemExtras(*first).name, QStringLiteral("Plate"));
        QCOMPARE(hostkit::itemExtras(*second).name, QStringLiteral("Plate"));
        QCOMPARE(studio->stack().count(), 1);
        QTest::keyClicks(name, QStringLiteral("x"));
        QTest::keyClick(name, Qt::Key_Escape);
        QCOMPARE(name->text(), QStringLiteral("Plate"));
        QTest::keyClick(name, Qt::Key_Z, Qt::ControlModifier);
        settle();
        QVERIFY(hostkit::itemExtras(*first).name.isEmpty());
        QCOMPARE(name->text(), QString());

        clickFlag("panel.marked");
        QVERIFY(!hostkit::isMarked(*first) && !hostkit::isMarked(*second));
        clickFlag("panel.locked");
        QVERIFY(hostkit::itemExtras(*first).isLocked);
        QVERIFY(studio->selected().isEmpty());
        QCOMPARE(child<QLabel>("panel.count")->text(), QStringLiteral("Nothing selected"));
        QVERIFY(studio->run("edit.undo"));
        QVERIFY(studio->run("edit.undo"));
        QVERIFY(hostkit::isMarked(*first) && !hostkit::itemExtras(*first).isLocked);
    }

    void kindsHaveFieldsOfTheirOwn()
    {
        ZTShapeManager *manager = studio->document().itemMag();
        ShapeItem *polygon = manager->addShape(ShapeType::Polygon, {0, 0, 10, 10});
        ShapeItem *line = manager->addShape(ShapeType::Line, {0, 0, 10, 10});
        ShapeItem *ellipse = manager->addShape(ShapeType::Ellipse, {0, 0, 10, 10});
        select({polygon});
        QVERIFY(field("panel.sides")->isVisible() && !field("panel.length")->isVisible());
        QCOMPARE(field("panel.sides")->text(), QStringLiteral("5"));
        enter("panel.sides", "6");
        QCOMPARE(polygon->property("SideCount").toInt(), 6);
        enter("panel.sides", "6.5");
        QCOMPARE(field("panel.sides")->fault(),
                 QStringLiteral("Not a whole number. Permitted: 3 to 1000"));
        select({line});
        QVERIFY(field("panel.length")->isVisible() && !field("panel.sides")->isVisible());
        QCOMPARE(field("panel.length")->text(), QStringLiteral("14.1421"));
        QCOMPARE(field("panel.angle")->text(), QStringLiteral("-45"));
        enter("panel.length", "1in");
        QVERIFY(std::abs(line->property("length").toDouble() - 25.4) < 1e-9);
        select({ellipse});
        QCOMPARE(field("panel.diameter1")->text(), QStringLiteral("10"));
        enter("panel.diameter1", "14");
        enter("panel.diameter2", "6");
        QVERIFY(std::abs(studio::outlineBoxMm(*ellipse).width() - 14) < 1e-6);
        QVERIFY(std::abs(studio::outlineBoxMm(*ellipse).height() - 6) < 1e-6);
        select({ellipse, line});
        QVERIFY(!field("panel.diameter1")->isVisible() && !field("panel.length")->isVisible());
    }

    void everyField_isNamedForThoseWhoDoNotSee()
    {
        for (const MeasureField *named :
             child<QDockWidget>("shapePanel")->findChildren<MeasureField *>()) {
            QVERIFY2(!named->accessibleName().isEmpty(), qPrintable(named->objectName()));
            QVERIFY2(!named->toolTip().isEmpty(), qPrintable(named->objectName()));
        }
    }

    void layout_isResetByTheMenu()
    {
        auto *panel = child<QDockWidget>("shapePanel");
        auto *properties = child<QDockWidget>("propertyDock");
        panel->hide();
        properties->show();
        QVERIFY(studio->run("view.resetLayout"));
        QVERIFY(panel->isVisible());
        QVERIFY(!properties->isVisible());
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
    QLabel *message() { return child<QLabel>("panel.message"); }
    static QWidget *focused() { return QApplication::focusWidget(); }
    static void settle()
    {
        QCoreApplication::processEvents();
        QCoreApplication::processEvents();
    }

    ShapeItem *rect(double xMm, double yMm) { return studio->addRect(px(xMm), px(yMm)); }

    void select(const studio::ShapeItems &items)
    {
        studio->select(items);
        settle();
    }

    static void type(MeasureField *into, const QString &entry)
    {
        into->setFocus();
        into->selectAll();
        if (entry.isEmpty())
            QTest::keyClick(into, Qt::Key_Delete);
        else
            QTest::keyClicks(into, entry);
    }

    void enter(const char *name, const char *entry)
    {
        type(field(name), QString::fromUtf8(entry));
        QTest::keyClick(field(name), Qt::Key_Return);
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

    void clickFlag(const char *name)
    {
        QTest::mouseClick(child<QCheckBox>(name), Qt::LeftButton, {}, QPoint(8, 8));
        settle();
    }

    /** What the fields show: X, Y, width, height and angle. */
    QString texts()
    {
        settle();
        QStringList shown;
        for (const char *name :
             {"panel.x", "panel.y", "panel.width", "panel.height", "panel.angle"})
            shown << field(name)->text();
        return shown.join(QLatin1Char(' '));
    }

    std::unique_ptr<StudioWindow> studio;
};

QTEST_MAIN(tst_studio_panel)
#include "tst_studio_panel.moc"
