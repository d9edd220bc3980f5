#include "TextWindow.h"

#include <cli/ZtmarkProcess.h>

#include <studio/drawing/DrawingFiles.h>
#include <studio/job/JobExportDialog.h>
#include <studio/job/JobExporter.h>
#include <studio/job/JobPanel.h>
#include <studio/job/JobPreview.h>
#include <studio/job/JobTools.h>
#include <studio/job/MaterialStore.h>
#include <studio/job/PenModel.h>
#include <studio/job/PensCommand.h>
#include <studio/job/PlanPanel.h>
#include <studio/job/ProfileDialog.h>
#include <studio/job/ProfileStore.h>
#include <studio/job/TimesModel.h>
#include <studio/list/ShapeList.h>
#include <studio/list/ShapeListModel.h>
#include <studio/list/ShapeListView.h>
#include <studio/panel/ShapePanel.h>

#include <jobkit/marks/DrawingPens.h>
#include <jobkit/marks/NumberJournal.h>

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QRegularExpression>
#include <QtTest/QSignalSpy>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QInputDialog>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QSlider>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QTableView>
#include <QtWidgets/QToolButton>

using studio::JobExport;
using studio::JobExportDialog;
using studio::JobPreview;
using studio::PenModel;
using studio::TimesModel;

namespace {

ZTVariantText serial(qint64 last)
{
    ZTCounterSegment counter;
    counter.last = last;
    counter.width = 3;
    ZTVariantText text;
    text.setSegments({ZTFixedTextSegment{QStringLiteral("SN")}, counter});
    return text;
}

/** Squares of 0.5 mm in rows of 200, each a piece of its own. */
std::shared_ptr<const studio::Job> jobOfSquares(int count)
{
    auto job = std::make_shared<studio::Job>();
    job->request.pens = jobkit::defaultPens();
    jobkit::profileOnBoard(QStringLiteral("galvo-fiber"), &job->request.machine);
    for (int i = 0; i < count; ++i) {
        const QPointF at(i % 200, i / 200);
        jobkit::PlanPiece piece;
        piece.pointsMm = QPolygonF(QVector<QPointF>{
            at, at + QPointF(0.5, 0), at + QPointF(0.5, 0.5), at + QPointF(0, 0.5), at});
        job->plan.pieces.append(piece);
    }
    job->times = jobkit::jobTimes(job->plan, job->request.pens, job->request.machine);
    return job;
}

} // namespace

class tst_studio_job : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        QStandardPaths::setTestModeEnabled(true);
        studio = std::make_unique<TextWindow>();
    }
    void cleanup() { studio.reset(); }

    // 40 mm at 1 mm/s are 40 s; three corners of 90 degrees and one end take 0.35 ms.
    void preview_tellsTheTimeByTheMachine()
    {
        studio->addRect(0, 0);
        enter(0, PenModel::Speed, "1");
        QVERIFY(studio->run("job.preview"));
        QVERIFY(preview() != nullptr);
        QCOMPARE(label("clock"), QStringLiteral("0.00 of 40.00 s"));
        QCOMPARE(time(0, TimesModel::What), QStringLiteral("One part"));
        QCOMPARE(time(0, TimesModel::Marking), QStringLiteral("40.000"));
        QCOMPARE(time(0, TimesModel::Jumps), QStringLiteral("0.000"));
        QCOMPARE(time(1, TimesModel::What), QStringLiteral("Pen 1"));
    }

    // The same plan twice: of 40 mm at 1 mm/s, then 80 mm at 2 mm/s.
    void times_areToldByPenObjectAndPass_andForManyParts()
    {
        auto *one = studio->addRect(0, 0);
        auto *two = studio->addRect(100, 0);
        two->setPenId(2);
        enter(0, PenModel::Speed, "1");
        enter(1, PenModel::Speed, "2");
        enter(1, PenModel::Passes, "2");
        QVERIFY(studio->run("job.preview"));
        QCOMPARE(times().rowCount(), 3);
        QCOMPARE(time(1, TimesModel::Marking), QStringLiteral("40.000"));
        QCOMPARE(time(2, TimesModel::Marking), QStringLiteral("40.000"));
        auto *by = planPanel().findChild<QComboBox *>(QStringLiteral("plan.by"));
        by->setFocus();
        QTest::keyClick(by, Qt::Key_Down);
        QCOMPARE(times().rowCount(), 3);
        QVERIFY2(time(1, TimesModel::What).startsWith(QStringLiteral("Rectangle")),
                 qPrintable(time(1, TimesModel::What)));
        studio->select({});
        auto *table = planPanel().findChild<QTableView *>(QStringLiteral("plan.times"));
        for (const int row : {1, 2}) {
            QTest::mouseClick(table->viewport(), Qt::LeftButton, {},
                              table->visualRect(times().index(row, 0)).center());
            const int picked = times().objectOf(row);
            QVERIFY(picked == 0 || picked == 1);
            const auto *item = preview()->plan().job()->request.items[picked].pen == 2 ? two : one;
            QCOMPARE(studio->selected(), QVector<int>{item->getShapeBase()->getId()});
        }
        QTest::keyClick(by, Qt::Key_Down);
        QCOMPARE(times().rowCount(), 3);
        QCOMPARE(time(1, TimesModel::What), QStringLiteral("Pass 1"));
        QCOMPARE(time(1, TimesModel::Marking), QStringLiteral("60.000"));
        QCOMPARE(time(2, TimesModel::Marking), QStringLiteral("20.000"));
        QCOMPARE(times().columnCount(), int(TimesModel::AllParts));
        auto *parts = planPanel().findChild<QSpinBox *>(QStringLiteral("plan.parts"));
        parts->setFocus();
        parts->selectAll();
        QTest::keyClicks(parts, QStringLiteral("50"));
        QTest::keyClick(parts, Qt::Key_Return);
        QCOMPARE(times().headerData(TimesModel::AllParts, Qt::Horizontal).toString(),
                 QStringLiteral("50 parts"));
        const studio::Job &job = *preview()->plan().job();
        const double all =
            jobkit::partsTime(job.plan, job.request.pens, job.request.machine, job.headMm(), 50)
                .totalS();
        QVERIFY(all > 4000.0);
        QCOMPARE(time(0, TimesModel::AllParts), QLocale().toString(all, 'f', 3));
    }

    // The canvas's place is the plan's as long as the preview lasts, whatever the panel was before.
    void preview_isAModeOfTheWindow_thatTheSameKeyAndEscapeLeave()
    {
        studio->addRect(0, 0);
        auto &panels = studio->window->panel();
        auto *tabs = panels.findChild<QTabWidget *>(QStringLiteral("panel.tabs"));
        QVERIFY(studio->view().isVisible() && !planPanel().isVisible());
        const int pageBefore = tabs->currentIndex();
        studio->key(Qt::Key_F5);
        QVERIFY(preview()->isVisible());
        QVERIFY(preview()->plan().hasFocus());
        QVERIFY(!studio->view().isVisible());
        QVERIFY(planPanel().isVisible());
        QVERIFY(preview()->window() == studio->window.get());
        QVERIFY(studio->window->commands().named("job.preview")->isChecked());
        QTest::keyClick(&preview()->plan(), Qt::Key_F5);
        QVERIFY(!preview()->isVisible() && studio->view().isVisible());
        QVERIFY(studio->view().hasFocus());
        QVERIFY(!planPanel().isVisible());
        QCOMPARE(tabs->currentIndex(), pageBefore);
        QVERIFY(!studio->window->commands().named("job.preview")->isChecked());

        panels.hide();
        studio->key(Qt::Key_F5);
        QVERIFY(preview()->isVisible() && planPanel().isVisible());
        auto *parts = planPanel().findChild<QSpinBox *>(QStringLiteral("plan.parts"));
        parts->setFocus();
        QTest::keyClick(parts, Qt::Key_Escape);
        QVERIFY(!preview()->isVisible() && studio->view().isVisible());
        QVERIFY(panels.isHidden());
        panels.show();
    }

    void aToolOrANewShape_leavesThePreview()
    {
        studio->addRect(0, 0);
        QVERIFY(studio->run("job.preview"));
        QTest::keyClick(&preview()->plan(), Qt::Key_R);
        QVERIFY(!preview()->isVisible() && studio->view().isVisible());
        QVERIFY(studio->run("job.preview"));
        QVERIFY(studio->run("create.rectangle"));
        QVERIFY(!preview()->isVisible());
        QVERIFY(studio->run("job.preview"));
        QVERIFY(studio->run("file.new"));
        QTRY_VERIFY(!preview()->isVisible() ||
                    studio->window->findChild<QMessageBox *>() != nullptr);
    }

    void zoomCommands_areThoseOfThePlan()
    {
        studio->addRect(0, 0);
        QVERIFY(studio->run("job.preview"));
        studio::PlanView &plan = preview()->plan();
        QVERIFY(studio->run("view.home"));
        const QTransform all = plan.transform();
        const QTransform canvas = studio->view().transform();
        QVERIFY(studio->run("view.zoomIn"));
        QVERIFY(plan.transform().m11() > all.m11() * 1.2);
        QVERIFY(studio->run("view.zoomOut"));
        QVERIFY(studio->run("view.zoomIn"));
        QVERIFY(studio->run("view.fitAll"));
        QCOMPARE(plan.transform(), all);
        QCOMPARE(studio->view().transform(), canvas);
    }

    void aFinding_showsItsPlaceAndItsObject()
    {
        studio->addRect(0, 0);
        auto *outside = studio->addRect(100000, 0);
        studio->select({});
        jobkit::setDrawingPens(studio->document(), jobkit::defaultPens());
        QVERIFY(studio->run("job.preview"));
        auto *list = planPanel().findChild<QListWidget *>(QStringLiteral("plan.findings"));
        QCOMPARE(list->count(), 1);
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                          list->visualItemRect(list->item(0)).center());
        QCOMPARE(studio->selected(), QVector<int>{outside->getShapeBase()->getId()});
        const QPointF at = preview()->plan().job()->findings.first().atMm;
        const QPointF shown = preview()->plan().transform().map(at);
        const QPointF middle(preview()->plan().width() / 2.0, preview()->plan().height() / 2.0);
        QVERIFY(std::hypot(shown.x() - middle.x(), shown.y() - middle.y()) < 1e-3);
    }

    // A frame is 33 ms of the job at pace 1.
    void frameByFrame_goesOnAndBack()
    {
        studio->addRect(0, 0);
        enter(0, PenModel::Speed, "1");
        QVERIFY(studio->run("job.preview"));
        QTest::keyClick(&preview()->plan(), Qt::Key_Period);
        QTest::keyClick(&preview()->plan(), Qt::Key_Period);
        QCOMPARE(preview()->plan().moment(), 0.066);
        QTest::keyClick(&preview()->plan(), Qt::Key_Comma);
        QCOMPARE(preview()->plan().moment(), 0.033);
        auto *pace = preview()->findChild<QComboBox *>(QStringLiteral("pace"));
        pace->setCurrentIndex(pace->count() - 1);
        QCOMPARE(pace->currentText(), QStringLiteral("100 x"));
        QTest::mouseClick(preview()->findChild<QToolButton *>(QStringLiteral("frameOn")),
                          Qt::LeftButton);
        QCOMPARE(preview()->plan().moment(), 3.333);
        pace->setCurrentIndex(0);
        QCOMPARE(pace->currentText(), QStringLiteral("0.1 x"));
        QTest::mouseClick(preview()->findChild<QToolButton *>(QStringLiteral("frameBack")),
                          Qt::LeftButton);
        QVERIFY(std::abs(preview()->plan().moment() - 3.3297) < 1e-9);
    }

    void signsOfTooManyPieces_areLeftOutAndThatIsSaid()
    {
        studio->addRect(0, 0);
        QVERIFY(studio->run("job.preview"));
        auto *note = preview()->findChild<QLabel *>(QStringLiteral("signsNote"));
        QVERIFY(!note->isVisible());
        const int many = studio::PlanPictures::kSignsAtMost + 1;
        preview()->setJob(jobOfSquares(many));
        preview()->plan().grab();
        QTRY_VERIFY(note->isVisible());
        QVERIFY2(note->text().contains(QStringLiteral("20,001")), qPrintable(note->text()));
        preview()->plan().zoomBy(4.0);
        preview()->plan().grab();
        QTRY_VERIFY(!note->isVisible());
    }

    // What another thread draws is what would be drawn at once.
    void aLargePlan_isDrawnAside_andIsTheSamePicture()
    {
        studio->addRect(0, 0);
        QVERIFY(studio->run("job.preview"));
        preview()->setJob(jobOfSquares(6000)); // 24,000 segments
        studio::PlanView &plan = preview()->plan();
        const double total = plan.job()->times.all.totalS();
        plan.setMoment(total);
        plan.grab();
        const QImage whole = plan.picture(plan.size());
        const auto inks = [](const QImage &image) {
            int count = 0;
            for (int y = 4; y < image.height() - 4; ++y) {
                for (int x = 4; x < image.width() - 4; ++x)
                    count += qGray(image.pixel(x, y)) < 200 ? 1 : 0;
            }
            return count;
        };
        const int expected = inks(whole);
        QVERIFY(expected > 5000);
        // The head and the field are drawn over it.
        QTRY_VERIFY(std::abs(inks(plan.grab().toImage()) - expected) < expected / 20);
        plan.setMoment(0.0);
        QTRY_VERIFY(inks(plan.grab().toImage()) < expected / 2);
    }

    void slider_movesTheHead_andEndsAtTheTotal()
    {
        studio->addRect(0, 0);
        enter(0, PenModel::Speed, "1");
        QVERIFY(studio->run("job.preview"));
        auto *slider = preview()->findChild<QSlider *>(QStringLiteral("slider"));
        const QImage before = preview()->plan().grab().toImage();
        QTest::keyClick(slider, Qt::Key_End);
        QCOMPARE(label("clock"), QStringLiteral("40.00 of 40.00 s"));
        const QImage after = preview()->plan().grab().toImage();
        QVERIFY(before != after);
        QTest::keyClick(slider, Qt::Key_Home);
        QCOMPARE(label("clock"), QStringLiteral("0.00 of 40.00 s"));
        QCOMPARE(preview()->plan().grab().toImage(), before);
    }

    void scrubbingBack_showsWhatPlayingShows()
    {
        for (int i = 0; i < 40; ++i)
            studio->addRect(i % 8 * 40, i / 8 * 40);
        QVERIFY(studio->run("job.preview"));
        auto *slider = preview()->findChild<QSlider *>(QStringLiteral("slider"));
        slider->setValue(30000);
        const QImage forward = preview()->plan().grab().toImage();
        slider->setValue(90000);
        preview()->plan().grab();
        slider->setValue(30000);
        QCOMPARE(preview()->plan().grab().toImage(), forward);
    }

    void space_playsToTheEnd()
    {
        studio->addRect(0, 0);
        QVERIFY(studio->run("job.preview"));
        QTest::keyClick(&preview()->plan(), Qt::Key_Space);
        QVERIFY(preview()->isPlaying());
        QTRY_VERIFY(!preview()->isPlaying());
        QCOMPARE(label("clock"), QStringLiteral("0.08 of 0.08 s"));
    }

    void click_namesThePiece_andSelectsTheShape()
    {
        studio->addRect(0, 0);
        const auto item = studio->addRect(200, 0);
        studio->select({});
        QVERIFY(studio->run("job.preview"));
        const QRectF boxMm =
            ZTCoord::getInstance()->getPix2MmTransform().mapRect(studio::sceneBox(*item));
        const QPointF place = preview()->plan().transform().map(boxMm.center());
        const double half = preview()->plan().transform().m11() * boxMm.width() / 2;
        QTest::mouseClick(&preview()->plan(), Qt::LeftButton, Qt::NoModifier,
                          (place + QPointF(0, half)).toPoint());
        QVERIFY2(label("plan.picked").contains(QStringLiteral("outline, pen 1, pass 1")),
                 qPrintable(label("plan.picked")));
        QCOMPARE(studio->selected(), QVector<int>{item->getShapeBase()->getId()});
    }

    // What is under the mouse stays there while it is enlarged, and comes along when it is dragged.
    void wheelAndDrag_zoomAndMove_andADoubleClickShowsAll()
    {
        studio->addRect(0, 0);
        QVERIFY(studio->run("job.preview"));
        studio::PlanView &plan = preview()->plan();
        const QTransform all = plan.transform();
        const QPointF at(plan.width() * 0.3, plan.height() * 0.6);
        const QPointF underMm = all.inverted().map(at);
        QWheelEvent wheel(at, plan.mapToGlobal(at.toPoint()), {}, {0, 360}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&plan, &wheel);
        const QTransform near = plan.transform();
        QVERIFY(near.m11() > all.m11() * 1.5);
        const QPointF stayed = near.map(underMm) - at;
        QVERIFY(std::hypot(stayed.x(), stayed.y()) < 1e-6);
        const QPoint from = at.toPoint();
        QTest::mousePress(&plan, Qt::LeftButton, {}, from);
        QMouseEvent drag(QEvent::MouseMove, from + QPoint(40, -25), Qt::LeftButton, Qt::LeftButton,
                         Qt::NoModifier);
        QApplication::sendEvent(&plan, &drag);
        QTest::mouseRelease(&plan, Qt::LeftButton, {}, from + QPoint(40, -25));
        const QPointF moved = plan.transform().map(underMm) - near.map(underMm);
        QVERIFY(std::hypot(moved.x() - 40.0, moved.y() + 25.0) < 1e-6);
        QVERIFY2(!label("plan.picked").contains(QStringLiteral("pen")), "a drag is no click");
        QTest::mouseDClick(&plan, Qt::LeftButton, {}, from);
        QCOMPARE(plan.transform(), all);
    }

    void anEdit_outdatesThePreview_whichIsNotExportedThen()
    {
        studio->addRect(0, 0);
        QVERIFY(studio->run("job.preview"));
        QVERIFY(!preview()->findChild<QLabel *>(QStringLiteral("outdated"))->isVisible());
        studio->edit().selectAll();
        studio->edit().nudge({1, 0});
        QVERIFY(preview()->findChild<QLabel *>(QStringLiteral("outdated"))->isVisible());
        QVERIFY(!planPanel().findChild<QPushButton *>(QStringLiteral("plan.export"))->isEnabled());
        preview()->findChild<QPushButton *>(QStringLiteral("update"))->click();
        QVERIFY(!preview()->findChild<QLabel *>(QStringLiteral("outdated"))->isVisible());
    }

    void pens_areEditedUndoneAndSaved()
    {
        studio->addRect(0, 0);
        QVERIFY(!jobkit::hasDrawingPens(studio->document()));
        enter(1, PenModel::Power, "33.5");
        enter(1, PenModel::Name, "engrave");
        QCOMPARE(studio->stack().count(), 2);
        QCOMPARE(jobkit::drawingPens(studio->document())[1].powerPercent, 33.5);
        studio->window->editor().actions().undo();
        QCOMPARE(jobkit::drawingPens(studio->document())[1].name, QString());
        studio->window->editor().actions().undo();
        QVERIFY(!jobkit::hasDrawingPens(studio->document()));
        studio->window->editor().actions().redo();
        const QString path = studio->path("pens.ztd");
        QVERIFY(studio->window->editor().files().saveTo(path));
        studio->window->editor().files().startNew();
        QTRY_VERIFY(!jobkit::hasDrawingPens(studio->document()));
        QVERIFY(studio->window->editor().openFiles({path}));
        QCOMPARE(jobkit::drawingPens(studio->document())[1].powerPercent, 33.5);
        QCOMPARE(pens().pens()[1].powerPercent, 33.5);
    }

    void aWrongValue_isRefusedWithItsRange()
    {
        enter(0, PenModel::Power, "140");
        QVERIFY2(told().contains(QStringLiteral("0 to 100")), qPrintable(told()));
        QCOMPARE(pens().pens()[0].powerPercent, 50.0);
        enter(0, PenModel::Passes, "1.5");
        QVERIFY2(told().contains(QStringLiteral("1.5")), qPrintable(told()));
        QCOMPARE(studio->stack().count(), 0);
    }

    void aPenThatIsOff_isLeftOutAndNamed()
    {
        studio->addRect(0, 0);
        studio->addRect(100, 0)->setPenId(2);
        const QModelIndex cell = pens().index(1, PenModel::On);
        QVERIFY(pens().setData(cell, Qt::Unchecked, Qt::CheckStateRole));
        QVERIFY(studio->run("job.preview"));
        QCOMPARE(times().rowCount(), 2);
        QVERIFY(planPanel().findChild<QListWidget *>(QStringLiteral("plan.findings"))->count() >=
                1);
    }

    void materials_areKeptAndApplied()
    {
        enter(0, PenModel::Speed, "123");
        panel().findChild<QPushButton *>(QStringLiteral("job.saveMaterial"))->click();
        auto *ask = panel().findChild<QInputDialog *>(QStringLiteral("materialDialog"));
        ask->setTextValue(QStringLiteral("steel/1"));
        ask->accept();
        QCoreApplication::processEvents();
        enter(0, PenModel::Speed, "500");
        auto *box = panel().findChild<QComboBox *>(QStringLiteral("job.material"));
        const int row = box->findText(QStringLiteral("steel/1"));
        QVERIFY(row > 0);
        box->setCurrentIndex(row);
        Q_EMIT box->activated(row);
        QCOMPARE(pens().pens()[0].speedMmPerS, 123.0);
    }

    void pens_goToAFile_andComeBack()
    {
        enter(1, PenModel::Power, "37");
        auto *box = panel().findChild<QComboBox *>(QStringLiteral("job.material"));
        box->setCurrentIndex(box->count() - 1);
        Q_EMIT box->activated(box->count() - 1);
        auto *dialog = panel().findChild<QFileDialog *>(QStringLiteral("materialExport"));
        QVERIFY(dialog != nullptr);
        const QString path = studio->path("brass.json");
        Q_EMIT dialog->fileSelected(path);
        dialog->reject();
        jobkit::Material material;
        QString error;
        QVERIFY2(studio::MaterialStore::readFile(path, &material, &error), qPrintable(error));
        QCOMPARE(material.name, QStringLiteral("brass"));
        QCOMPARE(material.pens, pens().pens());
    }

    void gcode_burnsTheRectangleAndNothingOnTheWay()
    {
        studio->addRect(0, 0);
        const QString path = studio->path("part.nc");
        QVERIFY(studio->window->editor().job().exporter().write({path, 1, false, {}}, settings()));
        double burnt = 0.0;
        QPointF at;
        bool isOn = false;
        const QStringList lines = QString::fromUtf8(StudioWindow::contentOf(path))
                                      .split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        for (const QString &line : lines) {
            isOn = (isOn || line.contains(QRegularExpression(QStringLiteral("\\bM[34]\\b")))) &&
                   !line.contains(QRegularExpression(QStringLiteral("\\bM5\\b|\\bS0\\b")));
            const QRegularExpressionMatch x =
                QRegularExpression(QStringLiteral("X(-?[0-9.]+)")).match(line);
            const QRegularExpressionMatch y =
                QRegularExpression(QStringLiteral("Y(-?[0-9.]+)")).match(line);
            const QPointF to(x.hasMatch() ? x.captured(1).toDouble() : at.x(),
                             y.hasMatch() ? y.captured(1).toDouble() : at.y());
            if (line.startsWith(QLatin1String("G1")))
                burnt += std::hypot(to.x() - at.x(), to.y() - at.y());
            at = to;
        }
        QCOMPARE(burnt, 40.0);
        QVERIFY(!isOn);
    }

    void parts_advanceTheNumberOnceEach()
    {
        ZTGraphicsTextItem *item = makeSerial(999);
        QAbstractItemModel *rows = studio->window->list().view().model();
        QCoreApplication::processEvents(); // what else makes the list follow is over
        const QSignalSpy isShown(rows, &QAbstractItemModel::dataChanged);
        const QSignalSpy isReset(rows, &QAbstractItemModel::modelReset);
        const JobExport wanted{studio->path("part.json"), 3, false, {}};
        QVERIFY(studio->window->editor().job().exporter().write(wanted, settings()));
        for (const char *name : {"part-0001.json", "part-0002.json", "part-0003.json"})
            QVERIFY2(QFile::exists(studio->path(name)), name);
        QVERIFY(StudioWindow::contentOf(studio->path("part-0001.json")) !=
                StudioWindow::contentOf(studio->path("part-0002.json")));
        QCOMPARE(item->text(), QStringLiteral("SN004"));
        QVERIFY(studio->window->isWindowModified());
        // The list of shapes tells the text that comes next, as the drawing does.
        QTRY_VERIFY(isShown.count() + isReset.count() > 0);
        QCOMPARE(rows->index(0, studio::ShapeListModel::Name).data().toString(),
                 QStringLiteral("SN004"));
    }

    void numbers_stay_whenAFileCannotBeWritten()
    {
        ZTGraphicsTextItem *item = makeSerial(999);
        const JobExport wanted{studio->path("none/part.json"), 3, false, {}};
        QVERIFY(!studio->window->editor().job().exporter().write(wanted, settings()));
        QCOMPARE(item->text(), QStringLiteral("SN001"));
        QCOMPARE(studio->messages->failures.size(), 1);
    }

    void moreParts_thanNumbers_areRefusedAndNothingIsWritten()
    {
        ZTGraphicsTextItem *item = makeSerial(2);
        const JobExport wanted{studio->path("part.json"), 3, false, {}};
        QVERIFY(!studio->window->editor().job().exporter().write(wanted, settings()));
        QCOMPARE(item->text(), QStringLiteral("SN001"));
        QVERIFY(!QFile::exists(studio->path("part-0001.json")));
        QVERIFY(studio->messages->failures.first().why.contains(QStringLiteral("After part 2")));
    }

    void theLastNumber_isMarkedOnce()
    {
        ZTGraphicsTextItem *item = makeSerial(2);
        studio::JobExporter &exporter = studio->window->editor().job().exporter();
        QVERIFY(exporter.write({studio->path("part.json"), 2, false, {}}, settings()));
        QCOMPARE(item->text(), QStringLiteral("SN002"));
        const QString again = studio->path("again.json");
        QVERIFY(!exporter.write({again, 1, false, {}}, settings()));
        QVERIFY(!QFile::exists(again));
        QVERIFY(studio->messages->failures.first().why.contains(QStringLiteral("SN002")));
        QVERIFY(
            exporter.write({studio->path("f.nc"), 1, false, jobkit::FrameKind::Box}, settings()));
    }

    void aNumberGivenAfterTheLast_isTheNext()
    {
        ZTGraphicsTextItem *item = makeSerial(2);
        studio::JobExporter &exporter = studio->window->editor().job().exporter();
        QVERIFY(exporter.write({studio->path("part.json"), 2, false, {}}, settings()));
        auto segments = item->getVariantText()->getSegments();
        std::get<ZTCounterSegment>(segments[1]).last = 9;
        QVERIFY(item->getVariantText()->setSegments(segments));
        QVERIFY(exporter.write({studio->path("more.json"), 1, false, {}}, settings()));
        QCOMPARE(item->text(), QStringLiteral("SN004"));
    }

    void aFrame_usesUpNoNumber()
    {
        ZTGraphicsTextItem *item = makeSerial(999);
        const JobExport wanted{studio->path("frame.nc"), 1, false, jobkit::FrameKind::Box};
        QVERIFY(studio->window->editor().job().exporter().write(wanted, settings()));
        QCOMPARE(item->text(), QStringLiteral("SN001"));
    }

    void exportDialog_writesWhatItSays()
    {
        studio->addRect(0, 0);
        jobkit::setDrawingPens(studio->document(), jobkit::defaultPens());
        QVERIFY(studio->run("job.export"));
        auto *dialog = studio->window->findChild<JobExportDialog *>();
        QVERIFY(dialog != nullptr);
        auto *path = dialog->findChild<QLineEdit *>(QStringLiteral("path"));
        QStringList order;
        path->setFocus();
        for (int i = 0; i < 4; ++i) {
            order << QApplication::focusWidget()->objectName();
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
        QCOMPARE(order.mid(2),
                 (QStringList{QStringLiteral("frame"), QStringLiteral("parts")})); // as they stand
        path->clear();
        QTest::keyClicks(path, studio->path("a.xyz"));
        QVERIFY(!dialog->findChild<QPushButton *>(QStringLiteral("export"))->isEnabled());
        path->clear();
        QTest::keyClicks(path, studio->path("a.nc"));
        dialog->findChild<QPushButton *>(QStringLiteral("export"))->click();
        QTRY_VERIFY(QFile::exists(studio->path("a.nc")));
    }

    void exportDialog_pathIsSelected_soThatTypingReplacesIt()
    {
        studio->addRect(0, 0);
        jobkit::setDrawingPens(studio->document(), jobkit::defaultPens());
        QVERIFY(studio->run("job.export"));
        auto *dialog = studio->window->findChild<JobExportDialog *>();
        auto *path = dialog->findChild<QLineEdit *>(QStringLiteral("path"));
        QCOMPARE(dialog->focusWidget(), path);
        QTest::keyClicks(path, QStringLiteral("a.nc"));
        QCOMPARE(path->text(), QStringLiteral("a.nc"));
        const auto *hint = dialog->findChild<QLabel *>(QStringLiteral("hint"));
        QCOMPARE(hint->text(), QStringLiteral("One file: a.nc."));
    }

    void exportThatFails_leavesTheDialogAsItWas_andSaysWhereAndWhy()
    {
        makeSerial(999);
        jobkit::setDrawingPens(studio->document(), jobkit::defaultPens());
        QVERIFY(studio->run("job.export"));
        QPointer<JobExportDialog> dialog = studio->window->findChild<JobExportDialog *>();
        auto *path = dialog->findChild<QLineEdit *>(QStringLiteral("path"));
        const QString folder = QFileInfo(studio->path("none/a.nc")).absolutePath();
        QTest::keyClicks(path, folder + QStringLiteral("/a.nc"));
        auto *parts = dialog->findChild<QSpinBox *>(QStringLiteral("parts"));
        parts->setFocus();
        parts->selectAll();
        QTest::keyClicks(parts, QStringLiteral("3"));
        auto *exporting = dialog->findChild<QPushButton *>(QStringLiteral("export"));
        QTest::mouseClick(exporting, Qt::LeftButton);
        QCoreApplication::processEvents();
        QCOMPARE(studio->messages->failures.size(), 1);
        const studio::Message told = studio->messages->failures.takeFirst();
        QCOMPARE(told.what, QStringLiteral("\"a.nc\" was not written."));
        QCOMPARE(told.why, QStringLiteral("Folder: %1\nReason: the folder does not exist.")
                               .arg(QDir::toNativeSeparators(folder)));
        QVERIFY(dialog && dialog->isVisible());
        QCOMPARE(path->text(), folder + QStringLiteral("/a.nc"));
        QCOMPARE(parts->value(), 3);
        QVERIFY(QDir().mkpath(folder));
        QTest::mouseClick(exporting, Qt::LeftButton);
        QTRY_VERIFY(!dialog);
        QVERIFY(QFile::exists(folder + QStringLiteral("/a.nc")));
        QVERIFY(studio->messages->failures.isEmpty());
    }

    // `ztmark job plate.ztd` writes the same bytes: the title and the order are the same.
    void export_ofASavedDrawing_isNamedAndTitledByIt()
    {
        const jobkit::OrderOptions commandLine;
        const studio::JobSettings first;
        QCOMPARE(first.isPenByPen, commandLine.isPenByPen);
        QCOMPARE(first.isInnerFirst, commandLine.isInnerFirst);
        QCOMPARE(first.hatchPlace, commandLine.hatchPlace);
        QCOMPARE(first.order, jobkit::OrderKind::Best);

        studio->addRect(0, 0);
        QVERIFY(studio->window->editor().files().saveTo(studio->path("plate 7.ztd")));
        QCoreApplication::processEvents();
        jobkit::setDrawingPens(studio->document(), jobkit::defaultPens());
        QVERIFY(studio->run("job.export"));
        auto *dialog = studio->window->findChild<JobExportDialog *>();
        auto *path = dialog->findChild<QLineEdit *>(QStringLiteral("path"));
        QCOMPARE(QFileInfo(path->text()).absolutePath(),
                 QFileInfo(studio->path("a")).absolutePath());
        QCOMPARE(QFileInfo(path->text()).completeBaseName(), QStringLiteral("plate 7"));
        path->setText(studio->path("a.nc"));
        dialog->findChild<QPushButton *>(QStringLiteral("export"))->click();
        QTRY_VERIFY(QFile::exists(studio->path("a.nc")));
        QVERIFY(StudioWindow::contentOf(studio->path("a.nc")).startsWith("; plate 7.ztd\n"));
    }

    // No pens of its own: the same speed, power and colours everywhere, and a word about it.
    void aDrawingWithoutPens_isWrittenAsByTheCommandLine_afterAWarning()
    {
        studio->addRect(0, 0)->setPenId(3);
        studio->addRect(300, 0)->setPenId(40);
        QVERIFY(studio->window->editor().files().saveTo(studio->path("plain.ztd")));
        studio::JobSettings chosen = settings();
        chosen.profile = QStringLiteral("grbl-diode");
        for (const char *form : {"nc", "json", "svg", "dxf", "plt", "csv"}) {
            const QString name = QStringLiteral("studio.") + QLatin1String(form);
            studio::JobExport wanted;
            wanted.path = studio->path(name.toLatin1());
            QVERIFY(studio->window->editor().job().exporter().write(wanted, chosen, nullptr));
            const QString other = QStringLiteral("line.") + QLatin1String(form);
            const ZtmarkRun run = runZtmark(
                {QStringLiteral("job"), QStringLiteral("plain.ztd"), QStringLiteral("-o"), other},
                QFileInfo(wanted.path).path());
            QVERIFY2(run.exitCode == 0, qPrintable(run.err));
            QVERIFY2(run.err.contains(QStringLiteral("warning: Pen 3 of ")), qPrintable(run.err));
            QVERIFY2(run.err.contains(QStringLiteral("it marks with 100 mm/s and 50 % power")),
                     qPrintable(run.err));
            QCOMPARE(StudioWindow::contentOf(wanted.path),
                     StudioWindow::contentOf(studio->path(other.toLatin1())));
        }
        const QByteArray gcode = StudioWindow::contentOf(studio->path("studio.nc"));
        QVERIFY(gcode.contains("; pen 40, 100 mm/s, 50 %"));
        QVERIFY(gcode.contains("F6000")); // 100 mm/s, the fastest of this machine

        QVERIFY(studio->run("job.export"));
        auto *box = studio->window->findChild<QMessageBox *>(QStringLiteral("jobQuestion"));
        QVERIFY(box != nullptr);
        QVERIFY2(box->informativeText().contains(QStringLiteral("was given no values: it marks "
                                                                "with 500 mm/s and 50 % power.")),
                 qPrintable(box->informativeText()));
        QVERIFY(studio->window->findChild<JobExportDialog *>() == nullptr);
        for (QAbstractButton *button : box->buttons()) {
            if (box->buttonRole(button) == QMessageBox::AcceptRole)
                QTest::mouseClick(button, Qt::LeftButton);
        }
        QVERIFY(studio->window->findChild<JobExportDialog *>() != nullptr);
    }

    // In steps to the end: the window stays awake, and whoever gives up late is heard, too.
    void gathering_goesInSteps_allTheWay()
    {
        for (int i = 0; i < 10; ++i)
            studio->addRect(i * 60, 0);
        QVector<int> told;
        studio::GatheredItems all;
        const auto note = [&told](int done, int total) {
            told << done;
            return total == 20;
        };
        QVERIFY(studio::gatherItems(studio->document(), &all, note, 0) == studio::Gathering::Done);
        QCOMPARE(all.items.size(), 10);
        QVERIFY(told.size() >= 19); // each shape twice, but for the last one gathered
        QVERIFY(std::is_sorted(told.begin(), told.end()));
        QCOMPARE(told.last(), 20);
        for (int i = 0; i < 10; ++i)
            QCOMPARE(all.items[i].object, i);
        studio::GatheredItems part;
        const auto giveUp = [](int done, int) { return done < 15; };
        QVERIFY(studio::gatherItems(studio->document(), &part, giveUp, 0) ==
                studio::Gathering::Cancelled);
    }

    void anExistingFile_isReplacedOnlyAfterAQuestion()
    {
        studio->addRect(0, 0);
        const QString path = studio->write("old.nc", "old");
        jobkit::setDrawingPens(studio->document(), jobkit::defaultPens());
        QVERIFY(studio->run("job.export"));
        auto *dialog = studio->window->findChild<JobExportDialog *>();
        dialog->findChild<QLineEdit *>(QStringLiteral("path"))->setText(path);
        dialog->findChild<QPushButton *>(QStringLiteral("export"))->click();
        auto *box = dialog->findChild<QMessageBox *>(QStringLiteral("replaceQuestion"));
        QVERIFY(box != nullptr);
        QCOMPARE(StudioWindow::contentOf(path), QByteArray("old"));
        box->reject();
        QCOMPARE(StudioWindow::contentOf(path), QByteArray("old"));
    }

    void shapesOutsideTheField_areAskedAbout()
    {
        studio->addRect(100000, 0);
        QVERIFY(studio->run("job.export"));
        auto *box = studio->window->findChild<QMessageBox *>(QStringLiteral("jobQuestion"));
        QVERIFY(box != nullptr);
        QVERIFY(box->informativeText().contains(QStringLiteral("reaches beyond the field")));
        box->reject();
        QVERIFY(studio->window->findChild<JobExportDialog *>() == nullptr);
    }

    // What was looked at is what the machine gets, point by point.
    void exportedPlan_isThatOfThePreview()
    {
        for (int i = 0; i < 30; ++i)
            studio->addRect(i % 7 * 31, i % 5 * 43);
        QVERIFY(studio->run("job.preview"));
        const std::shared_ptr<const studio::Job> shown = preview()->plan().job();
        studio::JobExport wanted;
        wanted.path = studio->path("plan.json");
        QVERIFY(studio->window->editor().job().exporter().write(wanted, settings(), shown));
        const QJsonObject plan =
            QJsonDocument::fromJson(StudioWindow::contentOf(wanted.path)).object();
        const QJsonArray pieces = plan[QStringLiteral("pieces")].toArray();
        QCOMPARE(pieces.size(), shown->plan.pieces.size());
        for (int i = 0; i < pieces.size(); ++i) {
            const QJsonArray points = pieces[i].toObject()[QStringLiteral("points")].toArray();
            const QPolygonF &expected = shown->plan.pieces[i].pointsMm;
            QCOMPARE(points.size(), expected.size());
            for (int k = 0; k < expected.size(); ++k) {
                QCOMPARE(points[k].toArray()[0].toDouble(), expected[k].x());
                QCOMPARE(points[k].toArray()[1].toDouble(), expected[k].y());
            }
        }
        // A search that was cut short does not come to the same order twice; so it is not made.
        auto other = std::make_shared<studio::Job>(*shown);
        std::reverse(other->plan.pieces.begin(), other->plan.pieces.end());
        QVERIFY(studio->window->editor().job().exporter().write(wanted, settings(), other));
        const QJsonArray turned = QJsonDocument::fromJson(StudioWindow::contentOf(wanted.path))
                                      .object()[QStringLiteral("pieces")]
                                      .toArray();
        QCOMPARE(turned[0].toObject()[QStringLiteral("object")].toInt(),
                 other->plan.pieces[0].object);
        // Of another drawing it is no plan.
        studio->addRect(400, 400);
        QVERIFY(studio->window->editor().job().exporter().write(wanted, settings(), other));
        QCOMPARE(QJsonDocument::fromJson(StudioWindow::contentOf(wanted.path))
                     .object()[QStringLiteral("pieces")]
                     .toArray()
                     .size(),
                 31);
    }

    void machine_isCopiedEditedKeptAndForgotten()
    {
        auto *machines = panel().findChild<QComboBox *>(QStringLiteral("job.machine"));
        QCOMPARE(machines->currentText(), QStringLiteral("galvo-fiber"));
        const int before = machines->count();
        QTest::mouseClick(panel().findChild<QPushButton *>(QStringLiteral("job.editMachine")),
                          Qt::LeftButton);
        auto *dialog = studio->window->findChild<studio::ProfileDialog *>();
        QVERIFY(dialog != nullptr);
        const auto field = [dialog](const char *name) {
            return dialog->findChild<QLineEdit *>(QLatin1String(name));
        };
        auto *keep = dialog->findChild<QPushButton *>(QStringLiteral("profile.keep"));
        auto *said = dialog->findChild<QLabel *>(QStringLiteral("profile.told"));
        QVERIFY(!field("profile.accelerationMmPerS2")->isEnabled());
        field("profile.jumpDelayUs")->selectAll();
        QTest::keyClicks(field("profile.jumpDelayUs"), QStringLiteral("20000000"));
        QVERIFY(!keep->isEnabled());
        QCOMPARE(said->text(),
                 QStringLiteral("Delay after a jump, µs: 0 to 10000000 is allowed, not 20000000"));
        field("profile.jumpDelayUs")->selectAll();
        QTest::keyClicks(field("profile.jumpDelayUs"), QStringLiteral("fast"));
        QVERIFY(!keep->isEnabled());
        field("profile.jumpDelayUs")->selectAll();
        QTest::keyClicks(field("profile.jumpDelayUs"), QStringLiteral("321"));
        field("profile.name")->selectAll();
        QTest::keyClicks(field("profile.name"), QStringLiteral("grbl-diode"));
        QVERIFY2(!keep->isEnabled(), "the name of a machine on board");
        field("profile.name")->selectAll();
        QTest::keyClicks(field("profile.name"), QStringLiteral("Line 3/a"));
        QTest::mouseClick(keep, Qt::LeftButton);
        QCoreApplication::processEvents();
        QCOMPARE(machines->currentText(), QStringLiteral("Line 3/a"));
        QCOMPARE(machines->count(), before + 1);
        jobkit::MachineProfile machine;
        QString error;
        QVERIFY(studio::JobSettings::load().readProfile(&machine, &error));
        QCOMPARE(machine.name, QStringLiteral("Line 3/a"));
        QCOMPARE(machine.jumpDelayUs, 321.0);
        jobkit::MachineProfile onBoard;
        QVERIFY(jobkit::profileOnBoard(QStringLiteral("galvo-fiber"), &onBoard));
        QVERIFY(onBoard.jumpDelayUs != 321.0);

        QTest::mouseClick(panel().findChild<QPushButton *>(QStringLiteral("job.editMachine")),
                          Qt::LeftButton);
        for (auto *open : studio->window->findChildren<studio::ProfileDialog *>()) {
            if (auto *remove = open->findChild<QPushButton *>(QStringLiteral("profile.remove")))
                QTest::mouseClick(remove, Qt::LeftButton);
        }
        QCoreApplication::processEvents();
        QCOMPARE(machines->count(), before);
        QCOMPARE(machines->currentText(), QStringLiteral("galvo-fiber"));
    }

    void furtherPens_areAdded_andUndone()
    {
        auto *add = panel().findChild<QPushButton *>(QStringLiteral("job.addPen"));
        QTest::mouseClick(add, Qt::LeftButton);
        QCOMPARE(pens().rowCount(), 17);
        QCOMPARE(pens().pens().last().number, 17);
        enter(16, PenModel::DotTime, "2.5");
        QCOMPARE(pens().pens().last().dotMs, 2.5);
        QVERIFY(studio->run("edit.undo"));
        QVERIFY(studio->run("edit.undo"));
        QCoreApplication::processEvents();
        QCOMPARE(pens().rowCount(), 16);
    }

    // Whatever happens between the files and the save: the next export takes other numbers.
    void numbersOfAnUnsavedDrawing_areNotedUntilItIsSaved()
    {
        ZTGraphicsTextItem *text = makeSerial(999);
        QCOMPARE(text->text(), QStringLiteral("SN001"));
        auto &files = studio->window->editor().files();
        const QString drawing = studio->path("serial.ztd");
        QVERIFY(files.saveTo(drawing));
        const QByteArray saved = StudioWindow::contentOf(drawing);
        auto &exporter = studio->window->editor().job().exporter();
        QVERIFY(exporter.write({studio->path("a.nc"), 3, true, {}}, settings()));
        QVERIFY(exporter.write({studio->path("b.nc"), 2, true, {}}, settings()));
        const auto note = jobkit::readJournal(drawing);
        QVERIFY(note.has_value());
        QCOMPARE(note->parts, 5);
        QCOMPARE(note->first, QStringLiteral("SN001"));
        QCOMPARE(note->last, QStringLiteral("SN005"));
        QCOMPARE(studio->messages->warnings.size(), 0);

        // A studio that was killed opens the drawing as it was saved.
        QVERIFY(files.load(drawing));
        QVERIFY(exporter.write({studio->path("c.nc"), 1, true, {}}, settings()));
        QCOMPARE(studio->messages->warnings.size(), 1);
        QCOMPARE(jobkit::readJournal(drawing)->last, QStringLiteral("SN006"));
        QCOMPARE(jobkit::readJournal(drawing)->parts, 6);
        QVERIFY(files.saveTo(drawing));
        QVERIFY(!jobkit::readJournal(drawing).has_value());
        studio->messages->warnings.clear();
        QVERIFY(exporter.write({studio->path("d.nc"), 1, true, {}}, settings()));
        QCOMPARE(jobkit::readJournal(drawing)->first, QStringLiteral("SN007"));
        QCOMPARE(studio->messages->warnings.size(), 0);
    }

    void unreadableNoteOfNumbers_stopsAnExport()
    {
        makeSerial(999);
        const QString drawing = studio->path("serial.ztd");
        QVERIFY(studio->window->editor().files().saveTo(drawing));
        QFile note(jobkit::journalPath(drawing));
        QVERIFY(note.open(QIODevice::WriteOnly));
        note.write("{ cut off");
        note.close();
        auto &exporter = studio->window->editor().job().exporter();
        QVERIFY(!exporter.write({studio->path("a.nc"), 1, true, {}}, settings()));
        QCOMPARE(studio->messages->failures.size(), 1);
        QVERIFY(studio->messages->failures.takeFirst().why.endsWith(QStringLiteral("remove it.")));
        QVERIFY(!QFile::exists(studio->path("a.nc")));
        QCOMPARE(StudioWindow::contentOf(jobkit::journalPath(drawing)), QByteArray("{ cut off"));
    }

    // In a window of 800 points height: nobody has to scroll for the buttons.
    void planPage_keepsItsButtonsInSight()
    {
        studio->addRect(0, 0);
        QVERIFY(studio->run("job.preview"));
        QCoreApplication::processEvents();
        for (const char *name : {"plan.report", "plan.export"}) {
            const auto *button = planPanel().findChild<QPushButton *>(QLatin1String(name));
            QCOMPARE(button->visibleRegion().boundingRect(), button->rect());
        }
    }

private:
    JobPreview *preview() { return &studio->window->editor().job().preview(); }
    studio::PlanPanel &planPanel() { return preview()->panel(); }
    TimesModel &times() { return *planPanel().findChild<TimesModel *>(); }
    QString time(int row, int column) { return times().index(row, column).data().toString(); }
    studio::JobPanel &panel() { return studio->window->editor().job().panel(); }
    PenModel &pens() { return *panel().findChild<PenModel *>(); }
    QString told() { return panel().findChild<QLabel *>(QStringLiteral("job.told"))->text(); }

    QString label(const char *name)
    {
        return studio->window->findChild<QLabel *>(QLatin1String(name))->text();
    }

    static studio::JobSettings settings()
    {
        studio::JobSettings settings;
        settings.profile = QStringLiteral("galvo-fiber");
        return settings;
    }

    ZTGraphicsTextItem *makeSerial(qint64 last)
    {
        ZTGraphicsTextItem *item = studio->addText(QStringLiteral("SN"));
        item->setEnableVariantText(true);
        *item->getVariantText() = serial(last);
        studio->run("text.nextPart");
        return item;
    }

    /** Types into a cell of the pens, as a user does. */
    void enter(int row, int column, const char *text)
    {
        auto *table = panel().findChild<QTableView *>(QStringLiteral("job.pens"));
        const QModelIndex cell = pens().index(row, column);
        table->setCurrentIndex(cell);
        table->edit(cell);
        auto *field = qobject_cast<QLineEdit *>(table->indexWidget(cell));
        QVERIFY(field != nullptr);
        field->selectAll();
        QTest::keyClicks(field, QString::fromLatin1(text));
        QTest::keyClick(field, Qt::Key_Return);
        QCoreApplication::processEvents();
    }

    std::unique_ptr<TextWindow> studio;
};

QTEST_MAIN(tst_studio_job)
#include "tst_studio_job.moc"
