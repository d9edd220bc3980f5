#include "StudioWindow.h"

#include <studio/drawing/DrawingFiles.h>
#include <studio/export/Exporter.h>
#include <studio/export/PictureLookDialog.h>
#include <studio/import/ImportTools.h>
#include <studio/program/UndoTexts.h>
#include <studio/window/OrderMenu.h>

#include <hostkit/marks/MarkGraphBuilder.h>
#include <hostkit/marks/MarkGraphWriter.h>

#include <QtCore/QFileInfo>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QMimeData>
#include <QtCore/QUrl>
#include <QtTest/QSignalSpy>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QProgressDialog>
#include <QtWidgets/QPushButton>

using studio::ShapeItem;

namespace {

const QByteArray kTriangle = "PU0 0;\nPD400 0;\nPD200 200;\nPD0 0;\n";

/** A line without numbers among good ones. */
const QByteArray kLossy = "PU0 0;\nPD100,50;\nPDab cd;\nPD100 100;\n";

} // namespace

class tst_studio_files : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { studio = std::make_unique<StudioWindow>(); }
    void cleanup() { studio.reset(); }

    void import_centresTheDrawingAndSelectsIt()
    {
        const QString path = write("triangle.plt", kTriangle);
        QCOMPARE(studio->window->editor().import().importFiles({path}), 1);
        QCOMPARE(studio->snapshot().rows, QStringList{QStringLiteral("0 VecGraph")});
        QCOMPARE(studio->selected(), QVector<int>{0});
        const QRectF box = studio->document().scene()->getSelectionItemRect();
        const double mm = ZTCoord::getInstance()->mm2pix(1.0);
        QVERIFY(box.center().manhattanLength() < 1e-9);
        // 400 and 200 plotter units of 0.025 mm, and the pen around them.
        QVERIFY(qAbs(box.width() - 10 * mm) < 3);
        QVERIFY(qAbs(box.height() - 5 * mm) < 3);
        QCOMPARE(studio::readableUndoText(studio->stack().undoText()),
                 QStringLiteral("Import triangle.plt"));
        QVERIFY(studio->messages->failures.isEmpty() && studio->messages->warnings.isEmpty());
        const DrawingSnapshot after = studio->snapshot();
        studio->edit().undo();
        QVERIFY(studio->ids().isEmpty());
        studio->edit().redo();
        COMPARE_DRAWINGS(studio->snapshot(), after);
    }

    void import_severalFiles_standSideBySideAsOneStep()
    {
        const QStringList paths{write("a.plt", kTriangle), write("b.plt", kTriangle)};
        QCOMPARE(studio->window->editor().import().importFiles(paths), 2);
        const auto items = studio::selectedShapeItems(*studio->document().scene());
        const QRectF first = studio::sceneBox(*items[0]);
        const QRectF second = studio::sceneBox(*items[1]);
        const double mm = ZTCoord::getInstance()->mm2pix(1.0);
        QVERIFY(qAbs(second.left() - first.right() - 5 * mm) < 1e-9);
        QVERIFY(studio::sceneBox(items).center().manhattanLength() < 1e-9);
        QCOMPARE(studio->stack().count(), 1);
    }

    void import_ofWhatIsNoDrawing_saysWhy_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("reason");
        QTest::newRow("empty") << QByteArray() << QStringLiteral("is empty");
        QTest::newRow("text") << QByteArray("hello\nworld\n")
                              << QStringLiteral("none of the drawings");
        QTest::newRow("binary") << QByteArray("\x89PNG\0\0", 6) << QStringLiteral("PNG picture");
    }

    void import_ofWhatIsNoDrawing_saysWhy()
    {
        QFETCH(QByteArray, content);
        QFETCH(QString, reason);
        QCOMPARE(studio->window->editor().import().importFiles({write("bad.plt", content)}), 0);
        QCOMPARE(studio->messages->failures.size(), 1);
        const studio::Message message = studio->messages->failures.first();
        QCOMPARE(message.what, QStringLiteral("\"bad.plt\" was not imported."));
        QVERIFY2(message.why.contains(reason), qPrintable(message.why));
        QVERIFY(studio->ids().isEmpty());
        QCOMPARE(studio->stack().count(), 0);
    }

    void import_withIllFormedLines_listsThem()
    {
        QCOMPARE(studio->window->editor().import().importFiles({write("lossy.plt", kLossy)}), 1);
        QCOMPARE(studio->messages->warnings.size(), 1);
        const studio::Message message = studio->messages->warnings.first();
        QCOMPARE(message.what, QStringLiteral("\"lossy.plt\" was imported with losses."));
        QCOMPARE(message.details.size(), 2);
        QVERIFY2(message.details.first().contains(QStringLiteral("unknown command AB")),
                 qPrintable(message.details.first()));
    }

    void import_goodAndBadTogether_keepsTheGood()
    {
        const QStringList paths{studio->path("missing.plt"), write("good.plt", kTriangle)};
        QCOMPARE(studio->window->editor().import().importFiles(paths), 1);
        QCOMPARE(studio->messages->failures.size(), 1);
        QVERIFY(studio->messages->failures.first().why.contains(QStringLiteral("no such file")));
        QCOMPARE(studio->ids().size(), 1);
    }

    void importDialog_importsWhatIsChosen()
    {
        const QString path = write("chosen.plt", kTriangle);
        QVERIFY(studio->run("file.import"));
        auto *dialog = studio->window->findChild<QFileDialog *>();
        QVERIFY(dialog != nullptr);
        Q_EMIT dialog->filesSelected({path});
        dialog->close();
        acceptImport();
        QCOMPARE(studio->ids().size(), 1);
    }

    void drop_ofFiles_importsThemWhereTheyFall()
    {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(write("dropped.plt", kTriangle))});
        const QPoint at = studio->view().mapFromScene(120, 80);
        QVERIFY(drop(data, at));
        acceptImport();
        const QRectF box = studio->document().scene()->getSelectionItemRect();
        QVERIFY((box.center() - QPointF(120, 80)).manhattanLength() < 1e-6);
        QCOMPARE(studio->stack().count(), 1);
    }

    void drop_ofAnythingElse_isRefused()
    {
        QMimeData text;
        text.setText(QStringLiteral("PU0 0;"));
        QVERIFY(!drop(text, QPoint(50, 50)));
        QMimeData remote;
        remote.setUrls({QUrl(QStringLiteral("http://example.org/a.plt"))});
        QVERIFY(!drop(remote, QPoint(50, 50)));
        QVERIFY(studio->ids().isEmpty());
    }

    void exportOfAll_holdsTheSortedMarkData_data()
    {
        QTest::addColumn<QString>("extension");
        for (const char *extension : {"svg", "png", "json", "csv"})
            QTest::newRow(extension) << QString::fromLatin1(extension);
    }

    void exportOfAll_holdsTheSortedMarkData()
    {
        QFETCH(QString, extension);
        studio->run("file.sample");
        const QString path = studio->path("all.") + extension;
        QVERIFY(exportTo(path, false));
        QVERIFY(QFileInfo(path).size() > 100);
        QVERIFY(studio->messages->failures.isEmpty());
    }

    void exportOfSelection_holdsTheSelectionAlone()
    {
        studio->addRect(0, 0);
        ShapeItem *chosen = studio->addRect(100, 0);
        studio->addRect(200, 0);
        studio->select({chosen});
        const QString all = studio->path("all.csv");
        const QString one = studio->path("one.csv");
        QVERIFY(exportTo(all, false));
        QVERIFY(exportTo(one, true));
        QVERIFY(QFileInfo(one).size() < QFileInfo(all).size());
        QCOMPARE(contentOf(one).count('\n') - 1, (contentOf(all).count('\n') - 1) / 3);
    }

    void export_heedsTheDrawingsMarkScale()
    {
        studio->addRect(0, 0);
        studio->document().itemMag()->setScale(2.0F, 2.0F);
        const QString path = studio->path("scaled.json");
        QVERIFY(exportTo(path, false));
        const QJsonObject marks = QJsonDocument::fromJson(contentOf(path)).object();
        QCOMPARE(marks[QStringLiteral("unitsPerMm")].toDouble(), 2.0 * 900.0 / 193.0);
    }

    void export_withAnOrder_keepsHatchesWithoutOutline()
    {
        ZTFillParam fill;
        fill.fillType = FillType::Line;
        fill.isEnableBorder = false;
        for (int i = 0; i < 3; ++i)
            studio->addRect(i * 60.0, 0)->setFillParam(fill);
        studio->addRect(200, 0);
        ZTPointSort::getInstance()->setShapeMarkSort(EShapeSortType::ShapeSortXFromMin);
        const QString path = studio->path("ordered.json");
        QVERIFY(exportTo(path, false));
        const QJsonArray objects =
            QJsonDocument::fromJson(contentOf(path)).object()[QStringLiteral("objects")].toArray();
        QCOMPARE(objects.size(), 4);
        for (int i = 0; i < 3; ++i)
            QVERIFY(!objects[i].toObject()[QStringLiteral("hatch")].toArray().isEmpty());
    }

    void export_toWhereNothingCanBeWritten_saysWhyAndLeavesNothing()
    {
        studio->addRect(0, 0);
        QVERIFY(exportTo(studio->path("missing/folder/a.svg"), false));
        QCOMPARE(studio->messages->failures.size(), 1);
        QVERIFY(studio->messages->failures.first().why.contains(QStringLiteral("does not exist")));
        studio->window->editor().exporter().exportTo(studio->path("a.txt"), false);
        QCOMPARE(studio->messages->failures.size(), 2);
        QVERIFY(studio->messages->failures.last().why.contains(QStringLiteral(".svg")));
    }

    void export_throughALink_leavesTheLinkAndThePermissions()
    {
        studio->addRect(0, 0);
        const QString path = write("real.csv", "old");
        const QFile::Permissions mode = QFile::ReadOwner | QFile::WriteOwner;
        QVERIFY(QFile::setPermissions(path, mode));
        const QString link = studio->path("link.csv");
        QVERIFY(QFile::link(path, link));
        QVERIFY(exportTo(link, false));
        QVERIFY(QFileInfo(link).isSymLink());
        QVERIFY(contentOf(path).size() > 3);
        constexpr QFile::Permissions kOthers =
            QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
        QCOMPARE(QFile::permissions(path) & kOthers, QFile::Permissions());
    }

    void export_cancelled_leavesTheOldFile()
    {
        for (int i = 0; i < 3000; ++i)
            studio->addRect(i % 50, i / 50);
        const QString path = write("kept.json", "old");
        studio::ExportJob *job = new studio::ExportJob(studio->document(), false, path);
        QSignalSpy finished(job, &studio::ExportJob::finished);
        QPointer<studio::ExportJob> gone(job);
        QSignalSpy writing(job, &studio::ExportJob::writing);
        job->start(10000);
        QCOMPARE(writing.count(), 1);
        job->cancel();
        QTRY_VERIFY_WITH_TIMEOUT(gone.isNull(), 20000);
        QCOMPARE(contentOf(path), QByteArray("old"));
        QCOMPARE(folderEntries(path), 1);

        auto *early = new studio::ExportJob(studio->document(), false, path);
        gone = early;
        early->start(0);
        early->cancel();
        QTRY_VERIFY(gone.isNull());
        QCOMPARE(contentOf(path), QByteArray("old"));
    }

    void export_cancelledInTheDialog_ends()
    {
        for (int i = 0; i < 20000; ++i)
            studio->addRect(i % 200, i / 200);
        studio::Exporter &exporter = studio->window->editor().exporter();
        QSignalSpy ended(&exporter, &studio::Exporter::ended);
        exporter.exportTo(studio->path("big.svg"), false);
        QVERIFY(exporter.isBusy());
        auto *progress = studio->window->findChild<QProgressDialog *>();
        QVERIFY(progress != nullptr);
        Q_EMIT progress->canceled();
        QCOMPARE(ended.count(), 1);
        QVERIFY(!exporter.isBusy());
        QVERIFY(!QFileInfo::exists(studio->path("big.svg")));
    }

    void exportDialog_offersTheFourFormsAndRemembers()
    {
        studio->addRect(0, 0);
        QVERIFY(studio->run("file.exportAll"));
        auto *dialog = studio->window->findChild<QFileDialog *>();
        QVERIFY(dialog != nullptr);
        QCOMPARE(dialog->nameFilters().size(), 4);
        dialog->selectNameFilter(dialog->nameFilters().at(3));
        const QString path = studio->path("remembered.csv");
        QSignalSpy ended(&studio->window->editor().exporter(), &studio::Exporter::ended);
        Q_EMIT dialog->fileSelected(path);
        dialog->close();
        QVERIFY(ended.count() == 1 || ended.wait(20000));
        QVERIFY(QFileInfo::exists(path));
        QTRY_VERIFY(studio->window->findChild<QFileDialog *>() == nullptr);
        studio->run("file.exportAll");
        dialog = studio->window->findChild<QFileDialog *>();
        QVERIFY(dialog->selectedNameFilter().contains(QStringLiteral("csv")));
        dialog->close();
    }

    void export_isCalledAfterTheDrawing_besideIt()
    {
        studio->addRect(0, 0);
        QVERIFY(studio->run("file.exportAll"));
        auto *dialog = studio->window->findChild<QFileDialog *>();
        QCOMPARE(QFileInfo(dialog->selectedFiles().value(0)).completeBaseName(),
                 QStringLiteral("drawing"));
        dialog->close();
        QTRY_VERIFY(studio->window->findChild<QFileDialog *>() == nullptr);
        const QString path = studio->path("plate 7.ztd");
        QVERIFY(studio->editor().files().saveTo(path));
        QCoreApplication::processEvents();
        QVERIFY(studio->run("file.exportAll"));
        dialog = studio->window->findChild<QFileDialog *>();
        QCOMPARE(dialog->directory().absolutePath(), QFileInfo(path).absolutePath());
        QCOMPARE(QFileInfo(dialog->selectedFiles().value(0)).completeBaseName(),
                 QStringLiteral("plate 7"));
        dialog->close();
    }

    // What a picture shows is asked for; the switches are those of the next one too.
    void exportedPicture_showsWhatItIsToShow()
    {
        studio->addRect(0, 0);
        studio->addRect(100, 100);
        const hostkit::DrawingMarks marks = hostkit::drawingMarks(studio->document());
        hostkit::MarkPictureLook look;
        look.hasJumps = false;
        look.hasArrows = true;
        look.hasBackground = false;
        const QString expected = studio->path("expected.svg");
        QVERIFY(hostkit::saveMarkGraph(marks.graph, marks.units, expected, nullptr, look));
        const QString path = studio->path("picture.svg");
        QVERIFY(studio->run("file.exportAll"));
        auto *files = studio->window->findChild<QFileDialog *>();
        Q_EMIT files->fileSelected(path);
        files->close();
        auto *dialog = studio->window->findChild<studio::PictureLookDialog *>();
        QVERIFY(dialog != nullptr && !QFileInfo::exists(path));
        for (const char *name : {"jumps", "arrows", "background"}) {
            auto *box = dialog->findChild<QCheckBox *>(QLatin1String(name));
            QCOMPARE(box->isChecked(), QLatin1String(name) != QLatin1String("arrows"));
            QTest::mouseClick(box, Qt::LeftButton, {}, QPoint(8, box->height() / 2));
        }
        QSignalSpy ended(&studio->window->editor().exporter(), &studio::Exporter::ended);
        QTest::mouseClick(dialog->findChild<QPushButton *>(QStringLiteral("export")),
                          Qt::LeftButton);
        QVERIFY(ended.count() == 1 || ended.wait(20000));
        QCOMPARE(StudioWindow::contentOf(path), StudioWindow::contentOf(expected));
        QTRY_VERIFY(studio->window->findChild<studio::PictureLookDialog *>() == nullptr);
        const studio::PictureLookDialog next;
        QVERIFY(!next.look().hasJumps && next.look().hasArrows && !next.look().hasBackground);
    }

    void exportOfShapesOutsideTheField_namesThem_andGoesOnIfTold()
    {
        const ZTCoord &coord = *ZTCoord::getInstance();
        studio->addRect(0, 0);
        studio->document().view()->setWorkArea({-50, -50, 100, 100});
        QVERIFY(studio->run("file.exportAll"));
        QVERIFY(fieldQuestion() == nullptr);
        studio->window->findChild<QFileDialog *>()->close();
        QTRY_VERIFY(studio->window->findChild<QFileDialog *>() == nullptr);

        // Rectangles of 10 mm: one to the very edge of the field, and one beyond it.
        studio->addRect(coord.mm2pix(40.0), 0)->moveBy(1e-9, 0); // as sums of lengths come out
        QVERIFY(studio->run("file.exportAll"));
        QVERIFY(fieldQuestion() == nullptr);
        studio->window->findChild<QFileDialog *>()->close();
        QTRY_VERIFY(studio->window->findChild<QFileDialog *>() == nullptr);
        studio->addRect(0, coord.mm2pix(41.0));
        QVERIFY(studio->run("file.exportAll"));
        QVERIFY(fieldQuestion() != nullptr);
        QVERIFY(fieldQuestion()->informativeText().contains(QStringLiteral("Rectangle 2")));
        QVERIFY(!fieldQuestion()->informativeText().contains(QStringLiteral("Rectangle 1")));
        // Return takes nothing that may be wrong.
        QTest::keyClick(fieldQuestion(), Qt::Key_Return);
        QTRY_VERIFY(fieldQuestion() == nullptr);
        QVERIFY(studio->window->findChild<QFileDialog *>() == nullptr);

        QVERIFY(studio->run("file.exportAll"));
        const QList<QAbstractButton *> buttons = fieldQuestion()->buttons();
        for (QAbstractButton *button : buttons) {
            if (fieldQuestion()->buttonRole(button) == QMessageBox::AcceptRole) {
                QTest::mouseClick(button, Qt::LeftButton);
                break;
            }
        }
        QVERIFY(studio->window->findChild<QFileDialog *>() != nullptr);
        studio->window->findChild<QFileDialog *>()->close();
    }

    void exportOfTheSelection_looksAtTheSelectionAlone()
    {
        studio::ShapeItem *inside = studio->addRect(0, 0);
        studio->addRect(3000, 0);
        studio->select({inside});
        QVERIFY(studio->run("file.exportSelection"));
        QVERIFY(fieldQuestion() == nullptr);
        studio->window->findChild<QFileDialog *>()->close();
    }

    void order_isChosenInTheMenuAndRemembered()
    {
        const auto *menu = studio->window->findChild<studio::OrderMenu *>();
        QCOMPARE(menu->actions().size(), 6);
        QVERIFY(menu->actions().at(0)->isChecked());
        menu->actions().at(2)->trigger();
        QVERIFY(ZTPointSort::getInstance()->getShapeMarkSort() ==
                EShapeSortType::ShapeSortXFromMin);
        ZTPointSort::getInstance()->setShapeMarkSort(EShapeSortType::ShapeSortNone);
        const studio::OrderMenu later;
        QVERIFY(later.actions().at(2)->isChecked());
        QVERIFY(ZTPointSort::getInstance()->getShapeMarkSort() ==
                EShapeSortType::ShapeSortXFromMin);
    }

private:
    QMessageBox *fieldQuestion()
    {
        return studio->window->findChild<QMessageBox *>(QStringLiteral("fieldQuestion"));
    }

    QString write(const char *name, const QByteArray &content)
    {
        return studio->write(name, content);
    }

    static QByteArray contentOf(const QString &path) { return StudioTest::contentOf(path); }

    /** Files beside a file that have its extension, itself included. */
    static int folderEntries(const QString &path)
    {
        const QFileInfo info(path);
        return info.dir()
            .entryList({QStringLiteral("*.") + info.suffix()}, QDir::Files | QDir::Hidden)
            .size();
    }

    bool exportTo(const QString &path, bool selectionOnly)
    {
        studio::Exporter &exporter = studio->window->editor().exporter();
        QSignalSpy ended(&exporter, &studio::Exporter::ended);
        exporter.exportTo(path, selectionOnly);
        return ended.count() == 1 || (exporter.isBusy() && ended.wait(20000));
    }

    bool drop(const QMimeData &data, const QPoint &pos) { return studio->drop(data, pos); }

    void acceptImport()
    {
        auto *dialog = studio->window->findChild<QDialog *>(QStringLiteral("importDialog"));
        QVERIFY(dialog != nullptr);
        auto *buttons = dialog->findChild<QDialogButtonBox *>();
        QTest::mouseClick(buttons->button(QDialogButtonBox::Ok), Qt::LeftButton);
    }

    std::unique_ptr<StudioWindow> studio;
};

QTEST_MAIN(tst_studio_files)
#include "tst_studio_files.moc"
