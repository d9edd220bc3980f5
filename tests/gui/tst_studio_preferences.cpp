#include "StudioWindow.h"

#include "support/DrawingBytes.h"

#include <studio/canvas/DrawingTools.h>
#include <studio/canvas/SnapTools.h>
#include <studio/panel/MeasureField.h>
#include <studio/panel/ShapePanel.h>
#include <studio/preferences/PreferenceTools.h>

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QStatusBar>

using studio::PreferencesDialog;
using studio::ShapeItem;

/** The preferences by keyboard and mouse, and what comes of them. */
class tst_studio_preferences : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { studio = std::make_unique<StudioWindow>(); }
    void cleanup()
    {
        studio.reset();
        studio::applyTheme(studio::Theme::System);
        studio::units::choose(studio::LengthUnit::Millimetre, false);
    }

    void newDrawing_hasTheUsualTolerance()
    {
        QCOMPARE(ZTCurveTolerance::toleranceMm(), 0.005);
        QVERIFY(testsupport::savedBytes(studio->document()).contains("curveTolerance"));
    }

    void inches_areEverywhere()
    {
        ShapeItem *item = studio->addRect(0, 0);
        studio->select({item});
        pick("preferences.unit", 1);
        press(QDialogButtonBox::Ok);
        QTRY_COMPARE(field("panel.width")->text(), QStringLiteral("0.393701"));
        QTRY_VERIFY2(bar("boxField").contains(QStringLiteral("W 0.39370  H 0.39370 in")),
                     qPrintable(bar("boxField")));
        type("panel.width", "1");
        QTRY_COMPARE(qRound(pxToMm(studio::sceneBox(*item).width()) * 1e6), 25400000);
        type("panel.height", "5mm"); // a unit of one's own counts
        QTRY_COMPARE(qRound(pxToMm(studio::sceneBox(*item).height()) * 1e6), 5000000);
        type("panel.width", "1e9");
        QVERIFY(field("panel.width")->fault().endsWith(QStringLiteral(" in")));
    }

    void yUpward_isInFieldsAndBar()
    {
        ShapeItem *item = studio->addRect(0, 0);
        item->setPos(ZTCoord::getInstance()->mm2pix(20.0), ZTCoord::getInstance()->mm2pix(30.0));
        studio->select({item});
        QTRY_COMPARE(field("panel.y")->text(), QStringLiteral("30"));
        pick("preferences.direction", 1);
        press(QDialogButtonBox::Ok);
        QTRY_COMPARE(field("panel.y")->text(), QStringLiteral("-30"));
        QTRY_VERIFY(bar("boxField").contains(QStringLiteral("Y -30.000")));
        type("panel.y", "12");
        QTRY_COMPARE(qRound(pxToMm(studio::sceneBox(*item).top()) * 1e6), -12000000);
    }

    void drawingsOwn_isOneStep_thatGoesBack()
    {
        const QByteArray before = testsupport::savedBytes(studio->document());
        enter("preferences.tolerance", "0.02");
        spin("preferences.fieldWidth")->setValue(110);
        spin("preferences.fieldHeight")->setValue(120);
        pick("preferences.origin", 3); // bottom left
        press(QDialogButtonBox::Ok);
        QCOMPARE(ZTCurveTolerance::toleranceMm(), 0.02);
        QCOMPARE(studio->view().getWorkArea(), QRect(0, -120, 110, 120));
        QCOMPARE(studio->stack().count(), 1);
        QVERIFY(studio->window->isWindowModified());
        const QByteArray after = testsupport::savedBytes(studio->document());
        studio->key(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(ZTCurveTolerance::toleranceMm(), 0.005);
        QCOMPARE(testsupport::savedBytes(studio->document()), before);
        studio->key(Qt::Key_Y, Qt::ControlModifier);
        QCOMPARE(testsupport::savedBytes(studio->document()), after);
        // The next drawing is as the preferences say, which the dialog did not change.
        studio->stack().undo();
        QVERIFY(studio->run("file.new"));
        QCOMPARE(studio->view().getWorkArea(), QRect(-300, -300, 600, 600));
    }

    void newDrawings_canHaveTheSame()
    {
        enter("preferences.tolerance", "0.05");
        tick("preferences.forNew");
        press(QDialogButtonBox::Ok);
        studio->stack().undo(); // of the drawing alone
        QCOMPARE(ZTCurveTolerance::toleranceMm(), 0.005);
        QVERIFY(studio->run("file.new"));
        QCOMPARE(ZTCurveTolerance::toleranceMm(), 0.05);
        QCOMPARE(studio::Preferences::kept().newDrawing.curveToleranceMm, 0.05);
    }

    void wrongEntry_isSaid_andCannotBeApplied()
    {
        enter("preferences.tolerance", "5");
        const QPushButton *ok = button(QDialogButtonBox::Ok);
        QVERIFY(!ok->isEnabled());
        const QString said = dialog()->findChild<QLabel *>(QStringLiteral("message"))->text();
        QVERIFY2(said.contains(QStringLiteral("0.0005 to 1 mm")), qPrintable(said));
        enter("preferences.tolerance", "0.1");
        QVERIFY(ok->isEnabled());
        press(QDialogButtonBox::Cancel);
        QCOMPARE(ZTCurveTolerance::toleranceMm(), 0.005);
        QCOMPARE(studio->stack().count(), 0);
    }

    void returnInAField_commitsIt_andOkTakesWhatIsTyped()
    {
        studio::MeasureField *tolerance = part<studio::MeasureField>("preferences.tolerance");
        showPageOf(tolerance);
        tolerance->setFocus();
        tolerance->selectAll();
        QTest::keyClicks(tolerance, QStringLiteral("10um"));
        press(QDialogButtonBox::Ok); // without leaving the field first
        QCOMPARE(ZTCurveTolerance::toleranceMm(), 0.01);
    }

    void newShapes_getPenAndHatch()
    {
        pick("preferences.pen", 4);
        pick("preferences.hatch", 2);
        enter("preferences.hatchSpacing", "0.5");
        enter("preferences.hatchAngle", "45");
        press(QDialogButtonBox::Ok);
        QVERIFY(studio->run("create.rectangle"));
        QVERIFY(studio->run("create.line"));
        ZTShapeBase &rect = shapeOf(ShapeType::Rect);
        QCOMPARE(rect.getPenId(), 5);
        QCOMPARE(rect.getFillParam().fillType, FillType::ULine);
        QCOMPARE(rect.getFillParam().spac, 0.5);
        QCOMPARE(rect.getFillParam().angle, -45.0);
        QVERIFY(rect.getFillLines().size() > 10);
        ZTShapeBase &line = shapeOf(ShapeType::Line);
        QCOMPARE(line.getPenId(), 5);
        QCOMPARE(line.getFillParam().fillType, FillType::None);
        const DrawingSnapshot made = studio->snapshot();
        studio->stack().undo();
        studio->stack().undo();
        studio->stack().redo();
        studio->stack().redo();
        QVERIFY(studio->snapshot() == made);
    }

    void toolIsKept_afterDrawing()
    {
        tick("preferences.keepTool");
        press(QDialogButtonBox::Ok);
        studio->key(Qt::Key_R);
        QCOMPARE(studio->window->editor().tools().chosenId(), QByteArray("tool.rectangle"));
        for (const double x : {0.0, 60.0}) {
            studio->driver->press({x, 0});
            studio->driver->move({x + 20, 20});
            studio->driver->release({x + 40, 40});
        }
        QCOMPARE(studio->document().itemMag()->getShapeList().size(), 2);
        QCOMPARE(studio->window->editor().tools().chosenId(), QByteArray("tool.rectangle"));
    }

    void theme_isAppliedAtOnce_andGoesBack()
    {
        const QPalette first = QApplication::palette();
        pick("preferences.theme", 2);
        press(QDialogButtonBox::Apply);
        QVERIFY(QApplication::palette().color(QPalette::Window).lightness() < 80);
        QVERIFY(QApplication::palette().color(QPalette::WindowText).lightness() > 180);
        // Paper stays white: shapes are drawn in the colours of their pens.
        QCOMPARE(studio->view().backgroundBrush().color(), QColor(Qt::white));
        pick("preferences.theme", 0);
        press(QDialogButtonBox::Ok);
        QCOMPARE(QApplication::palette().color(QPalette::Window), first.color(QPalette::Window));
    }

    void grid_standsWhereItIsSaid_andAttracts()
    {
        tick("preferences.gridFixed");
        enter("preferences.grid", "7");
        tick("preferences.snapGrid");
        press(QDialogButtonBox::Ok);
        QVERIFY(studio->window->editor().snapping().choice().toGrid);
        const double stepPx = ZTCoord::getInstance()->mm2pix(7.0);
        const QPointF near(stepPx + 2.0, 2 * stepPx - 2.0);
        const QPointF place = studio->window->editor().snapping().place(near, Qt::NoModifier);
        QVERIFY((place - QPointF(stepPx, 2 * stepPx)).manhattanLength() < 1e-6);
        studio->window->editor().snapping().hide();
    }

    void choices_areKeptForTheNextWindow()
    {
        pick("preferences.unit", 1);
        tick("preferences.snapShapes"); // off
        press(QDialogButtonBox::Ok);
        QVERIFY(studio->run("arrange.toField"));
        studio::MainWindow other(std::make_unique<RecordedMessages>());
        QCOMPARE(other.preferences().preferences().unit, studio::LengthUnit::Inch);
        QVERIFY(!other.editor().snapping().choice().toShapes);
        QVERIFY(other.commands().named("arrange.toField")->isChecked());
    }

    void restoredDefaults_leaveTheDrawingAlone()
    {
        pick("preferences.unit", 1);
        enter("preferences.tolerance", "0.03");
        press(QDialogButtonBox::Ok);
        press(QDialogButtonBox::RestoreDefaults);
        press(QDialogButtonBox::Ok);
        QCOMPARE(studio::units::unit(), studio::LengthUnit::Millimetre);
        QCOMPARE(ZTCurveTolerance::toleranceMm(), 0.03);
    }

    void language_changesTheOpenDialog()
    {
        pick("preferences.language", 2);
        press(QDialogButtonBox::Apply);
        QTRY_COMPARE(dialog()->windowTitle(), QStringLiteral("\u9996\u9009\u9879"));
        pick("preferences.language", 1);
        press(QDialogButtonBox::Ok);
    }

private:
    PreferencesDialog *dialog()
    {
        auto *open = studio->window->findChild<PreferencesDialog *>();
        if (open == nullptr || !open->isVisible()) {
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            QTest::keyClick(&studio->view(), Qt::Key_Comma, Qt::ControlModifier);
            open = studio->window->findChild<PreferencesDialog *>();
        }
        if (open == nullptr || !QTest::qWaitForWindowExposed(open))
            qFatal("the dialog did not come up");
        QApplication::setActiveWindow(open); // as window managers do
        return open;
    }

    template <class Part>
    Part *part(const char *name)
    {
        auto *found = dialog()->findChild<Part *>(QLatin1String(name));
        if (found == nullptr)
            qFatal("%s is not there", name);
        return found;
    }

    void showPageOf(const QWidget *widget)
    {
        auto *pages = dialog()->findChild<QTabWidget *>();
        for (int page = 0; page < pages->count(); ++page) {
            if (pages->widget(page)->isAncestorOf(widget))
                pages->setCurrentIndex(page);
        }
    }

    /** Chooses an entry with the keyboard, as a user does in a closed list. */
    void pick(const char *name, int index)
    {
        auto *box = part<QComboBox>(name);
        showPageOf(box);
        box->setFocus();
        QTest::keyClick(box, Qt::Key_Home);
        for (int i = 0; i < index; ++i)
            QTest::keyClick(box, Qt::Key_Down);
        QCOMPARE(box->currentIndex(), index);
    }

    void tick(const char *name)
    {
        auto *box = part<QCheckBox>(name);
        showPageOf(box);
        box->setFocus();
        QTest::keyClick(box, Qt::Key_Space);
    }

    void enter(const char *name, const char *text)
    {
        auto *field = part<studio::MeasureField>(name);
        showPageOf(field);
        field->setFocus();
        field->selectAll();
        QTest::keyClicks(field, QLatin1String(text));
        QTest::keyClick(field, Qt::Key_Tab);
    }

    QSpinBox *spin(const char *name) { return part<QSpinBox>(name); }

    QPushButton *button(QDialogButtonBox::StandardButton which)
    {
        return dialog()->findChild<QDialogButtonBox *>()->button(which);
    }

    void press(QDialogButtonBox::StandardButton which)
    {
        const QPointer<PreferencesDialog> pressed = dialog();
        QTest::mouseClick(button(which), Qt::LeftButton);
        QCoreApplication::processEvents();
        if (pressed && pressed->isVisible())
            return;
        QApplication::setActiveWindow(studio->window.get());
        studio->view().setFocus();
    }

    ZTShapeBase &shapeOf(ShapeType type)
    {
        for (ZTShapeBase *shape : studio->document().itemMag()->getShapeList()) {
            if (shape->getShapeType() == type)
                return *shape;
        }
        qFatal("no such shape");
    }

    studio::MeasureField *field(const char *name)
    {
        return studio->window->panel().findChild<studio::MeasureField *>(QLatin1String(name));
    }

    void type(const char *name, const char *text)
    {
        studio::MeasureField *typed = field(name);
        typed->setFocus();
        typed->selectAll();
        QTest::keyClicks(typed, QLatin1String(text));
        QTest::keyClick(typed, Qt::Key_Return);
    }

    QString bar(const char *name)
    {
        return studio->window->statusBar()->findChild<QLabel *>(QLatin1String(name))->text();
    }

    static double pxToMm(double px) { return ZTCoord::getInstance()->pix2mm(px); }

    std::unique_ptr<StudioWindow> studio;
};

QTEST_MAIN(tst_studio_preferences)
#include "tst_studio_preferences.moc"
