#include "StudioWindow.h"

#include <studio/choices/Units.h>
#include <studio/drawing/DrawingFiles.h>
#include <studio/import/ImportDialog.h>
#include <studio/import/ImportNotes.h>
#include <studio/import/ImportPicture.h>
#include <studio/import/ImportSettings.h>
#include <studio/import/ImportTools.h>
#include <studio/import/Importer.h>
#include <studio/program/UndoTexts.h>
#include <studio/shapes/ShapeKinds.h>

#include <hostkit/items/GraphicItems.h>
#include <hostkit/items/ItemExtras.h>
#include <hostkit/marks/MarkFindings.h>

#include <QtCore/QFile>
#include <QtCore/QMimeData>
#include <QtCore/QSettings>
#include <QtCore/QTimer>
#include <QtCore/QUrl>
#include <QtGui/QClipboard>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QLabel>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QProgressDialog>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QTabWidget>
#include <QtWidgets/QTableWidget>

namespace {

/** A red square of 40 mm and a blue line of 60 mm, both on one layer, and a picture. */
const QByteArray kPlate =
    "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"100mm\" height=\"100mm\" "
    "viewBox=\"0 0 100 100\">"
    "<rect x=\"10\" y=\"10\" width=\"40\" height=\"40\" fill=\"none\" stroke=\"red\"/>"
    "<path d=\"M10 90H70\" fill=\"none\" stroke=\"blue\"/>"
    "<image width=\"5\" height=\"5\"/></svg>";

} // namespace

class tst_studio_import : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        QSettings().remove(QStringLiteral("import"));
        studio = std::make_unique<StudioWindow>();
    }
    void cleanup()
    {
        studio.reset();
        QSettings().remove(QStringLiteral("import"));
    }

    void importFiles_keepsTrueSizeAndColors()
    {
        QCOMPARE(studio->window->editor().import().importFiles({plate()}), 1);
        const auto items = studio::shapeItemsOf(*studio->document().scene());
        QCOMPARE(items.size(), 2);
        QCOMPARE(items[0]->getPenId(), 12);
        QCOMPARE(items[1]->getPenId(), 2);
        QVERIFY(hasSize(*items[0], QSizeF(40, 40)));
        QVERIFY(hasSize(*items[1], QSizeF(60, 0)));
        QCOMPARE(studio->messages->warnings.size(), 1);
        const studio::Message told = studio->messages->warnings.first();
        QCOMPARE(told.what, QStringLiteral("\"plate.svg\" was imported with losses."));
        QCOMPARE(told.details,
                 QStringList{QStringLiteral("left out: pictures (bitmaps) (1), first at line 1")});
        QCOMPARE(studio->stack().count(), 1);
        studio->edit().undo();
        QVERIFY(studio->ids().isEmpty());
        studio->edit().redo();
        QCOMPARE(studio->ids().size(), 2);
    }

    void inInches_sizesAndFiguresAreInches()
    {
        studio::units::choose(studio::LengthUnit::Inch, false);
        studio::ImportDialog *dialog = offer();
        QVERIFY2(textOf(dialog, "importFound").startsWith(QStringLiteral("2.3622 × 3.14961 in. ")),
                 qPrintable(textOf(dialog, "importFound")));
        QCOMPARE(size(dialog, "importWidth")->text(), QStringLiteral("2.36220 in"));
        enter(size(dialog, "importWidth"), "1");
        QTRY_VERIFY(qAbs(dialog->drawing().boundsMm().width() - 25.4) < 1e-9);
        enter(size(dialog, "importWidth"), "30mm");
        QTRY_VERIFY(qAbs(dialog->drawing().boundsMm().width() - 30.0) < 1e-9);
        // A wrong size lets nothing in.
        enter(size(dialog, "importWidth"), "0");
        const auto *ok = dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok);
        QTRY_VERIFY(!ok->isEnabled());
        QVERIFY(textOf(dialog, "cleanFigures").contains(QStringLiteral("Too small")));
        enter(size(dialog, "importWidth"), "30mm");
        QTRY_VERIFY(ok->isEnabled());
        auto *length = size(dialog, "cleanJoinLength");
        QVERIFY(length->text().endsWith(QStringLiteral(" in")));
        dialog->reject();
        studio::units::choose(studio::LengthUnit::Millimetre, false);
    }

    void dialog_showsWhatWasFound()
    {
        studio::ImportDialog *dialog = offer();
        QCOMPARE(dialog->windowTitle(), QStringLiteral("Import \"plate.svg\""));
        QVERIFY(textOf(dialog, "importFound").startsWith(QStringLiteral("60 × 80 mm. ")));
        QVERIFY(textOf(dialog, "importFound").contains(QStringLiteral("100 × 100 mm")));
        QCOMPARE(textOf(dialog, "importCounts"),
                 QStringLiteral("layers: 1, outlines: 2, texts: 0"));
        auto *notes = dialog->findChild<QListWidget *>(QStringLiteral("importNotes"));
        QCOMPARE(notes->count(), 1);
        QVERIFY(notes->item(0)->text().contains(QStringLiteral("pictures")));
        QCOMPARE(size(dialog, "importWidth")->value(), 60.0);
        QCOMPARE(size(dialog, "importHeight")->value(), 80.0);
        // The outlines can be seen.
        const QImage image = dialog->findChild<studio::ImportPicture *>()->grab().toImage();
        int red = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                red += image.pixelColor(x, y).red() > 200 && image.pixelColor(x, y).blue() < 80;
        }
        QVERIFY(red > 100);
        QVERIFY(studio->ids().isEmpty());
    }

    void dialog_takenAsItIs_isOneUndoStep()
    {
        press(offer(), QDialogButtonBox::Ok);
        QCOMPARE(studio->ids().size(), 2);
        QCOMPARE(studio->stack().count(), 1);
        QCOMPARE(studio::readableUndoText(studio->stack().undoText()),
                 QStringLiteral("Import plate.svg"));
        QVERIFY(hasSize(*studio::shapeItemsOf(*studio->document().scene())[0], QSizeF(40, 40)));
    }

    void dialog_givenUp_changesNothing()
    {
        press(offer(), QDialogButtonBox::Cancel);
        QVERIFY(studio->ids().isEmpty());
        QCOMPARE(studio->stack().count(), 0);
    }

    void dialog_width_keepsProportions()
    {
        studio::ImportDialog *dialog = offer();
        enter(size(dialog, "importWidth"), "30");
        QCOMPARE(size(dialog, "importHeight")->value(), 40.0);
        press(dialog, QDialogButtonBox::Ok);
        const auto items = studio::shapeItemsOf(*studio->document().scene());
        QVERIFY(hasSize(*items[0], QSizeF(20, 20)));
        QVERIFY(hasSize(*items[1], QSizeF(30, 0)));
    }

    void dialog_withoutProportions_stretches()
    {
        studio::ImportDialog *dialog = offer();
        dialog->findChild<QCheckBox *>(QStringLiteral("importProportions"))->click();
        enter(size(dialog, "importHeight"), "160");
        QCOMPARE(size(dialog, "importWidth")->value(), 60.0);
        press(dialog, QDialogButtonBox::Ok);
        QVERIFY(hasSize(*studio::shapeItemsOf(*studio->document().scene())[0], QSizeF(40, 80)));
    }

    void dialog_unit_changesTheSize()
    {
        studio::ImportDialog *dialog = offer();
        auto *unit = dialog->findChild<QComboBox *>(QStringLiteral("importUnit"));
        QCOMPARE(unit->currentText(), QStringLiteral("As found: 1 mm"));
        const int centimetres = unit->findText(QStringLiteral("1 cm"));
        unit->setFocus();
        for (int step = 0; step < centimetres; ++step)
            QTest::keyClick(unit, Qt::Key_Down);
        QCOMPARE(size(dialog, "importWidth")->value(), 600.0);
        press(dialog, QDialogButtonBox::Ok);
        QVERIFY(hasSize(*studio::shapeItemsOf(*studio->document().scene())[0], QSizeF(400, 400)));
    }

    void dialog_splitAndPens_areRemembered()
    {
        studio::ImportDialog *dialog = offer();
        auto *split = dialog->findChild<QComboBox *>(QStringLiteral("importSplit"));
        QCOMPARE(split->currentIndex(), int(hostkit::ImportSplit::Color));
        QTest::keyClick(split, Qt::Key_Down); // an outline
        auto *pens = dialog->findChild<QTableWidget *>(QStringLiteral("importPens"));
        QCOMPARE(pens->rowCount(), 2); // blue, red
        QCOMPARE(pens->item(1, 0)->text(), QStringLiteral("#ff0000"));
        QTest::keyClick(pens->cellWidget(1, 1), Qt::Key_Home); // pen 1
        press(dialog, QDialogButtonBox::Ok);
        const auto items = studio::shapeItemsOf(*studio->document().scene());
        QCOMPARE(items.size(), 2);
        QVector<int> numbers{items[0]->getPenId(), items[1]->getPenId()};
        std::sort(numbers.begin(), numbers.end());
        QCOMPARE(numbers, (QVector<int>{1, 2}));
        const hostkit::ImportOptions kept = studio::rememberedImportOptions();
        QCOMPARE(kept.split, hostkit::ImportSplit::Outline);
        QCOMPARE(kept.pens.size(), 1);
        QCOMPARE(kept.pens.value(QColor(Qt::red).rgb()), 1);
    }

    void cleaning_isShownAtOnce_andRemembered()
    {
        // Three sides of a triangle apart, one of them drawn twice.
        const QByteArray loose =
            "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"50mm\" height=\"50mm\" "
            "viewBox=\"0 0 50 50\" fill=\"none\" stroke=\"red\"><path d=\"M0 0H40\"/>"
            "<path d=\"M0 30L0 0\"/><path d=\"M40 0.02L0 30\"/><path d=\"M10 0H20\"/></svg>";
        studio->window->editor().offerFile(studio->write("loose.svg", loose));
        auto *dialog = studio->window->findChild<studio::ImportDialog *>();
        QVERIFY(textOf(dialog, "importNeeds").contains(QStringLiteral("Outlines closed: 1")));
        QVERIFY(textOf(dialog, "cleanFigures").contains(QStringLiteral("Outlines: 4 → 4")));
        dialog->findChild<QTabWidget *>()->setCurrentIndex(1);
        QTest::mouseClick(dialog->findChild<QCheckBox *>(QStringLiteral("cleanJoin")),
                          Qt::LeftButton, {}, QPoint(5, 8));
        QTRY_VERIFY(textOf(dialog, "cleanFigures").contains(QStringLiteral("Outlines: 4 → 2")));
        QTest::mouseClick(dialog->findChild<QCheckBox *>(QStringLiteral("cleanDoubles")),
                          Qt::LeftButton, {}, QPoint(5, 8));
        QTRY_VERIFY(textOf(dialog, "cleanFigures").contains(QStringLiteral("Outlines: 4 → 1")));
        QVERIFY(
            textOf(dialog, "cleanFigures").contains(QStringLiteral("Drawn twice: 1 pieces, 10")));
        press(dialog, QDialogButtonBox::Ok);
        const auto items = studio::shapeItemsOf(*studio->document().scene());
        QCOMPARE(items.size(), 1);
        const QVector<vectorkit::VectorPath> outlines = hostkit::outlinesOf(*items.first());
        QCOMPARE(outlines.size(), 1);
        QVERIFY(outlines.first().isClosed());
        QCOMPARE(studio->stack().count(), 1);
        const vectorkit::CleanOptions kept = studio::rememberedCleaning();
        QCOMPARE(kept.joinMm, 0.05);
        QVERIFY(kept.dropDoubles && !kept.weld && !kept.order);
        // What comes in without the dialog is cleaned as well.
        studio->edit().undo();
        QVERIFY(studio->ids().isEmpty());
        QCOMPARE(studio->window->editor().import().importFiles({studio->path("loose.svg")}), 1);
        QCOMPARE(studio->ids().size(), 1);
    }

    void mendButton_mendsWhatWasFound()
    {
        const QByteArray loose =
            "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"50mm\" height=\"50mm\" "
            "viewBox=\"0 0 50 50\" fill=\"none\" stroke=\"red\"><path d=\"M0 0H40V30\"/>"
            "<path d=\"M40 30L0 0\"/><path d=\"M10 0H20\"/></svg>";
        studio->window->editor().offerFile(studio->write("loose.svg", loose));
        QCoreApplication::processEvents();
        auto *dialog = studio->window->findChild<studio::ImportDialog *>();
        dialog->findChild<QTabWidget *>()->setCurrentIndex(1);
        auto *mend = dialog->findChild<QPushButton *>(QStringLiteral("importMend"));
        QVERIFY(mend->isVisible());
        QTest::mouseClick(mend, Qt::LeftButton);
        QVERIFY(textOf(dialog, "cleanFigures").contains(QStringLiteral("Outlines: 3 → 1")));
        QVERIFY(dialog->findChild<QCheckBox *>(QStringLiteral("cleanJoin"))->isChecked());
        press(dialog, QDialogButtonBox::Cancel);
        // A drawing that is well has no such button.
        studio->window->editor().offerFile(plate());
        QCoreApplication::processEvents();
        for (const auto *other : studio->window->findChildren<studio::ImportDialog *>())
            QVERIFY(other == dialog ||
                    other->findChild<QPushButton *>(QStringLiteral("importMend"))->isHidden());
    }

    void cleaning_followsTheSize()
    {
        // Ends 0.2 mm apart: too far at true size, near enough at a tenth of it.
        const QByteArray gap =
            "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"50mm\" height=\"50mm\" "
            "viewBox=\"0 0 50 50\" fill=\"none\" stroke=\"red\"><path d=\"M0 0H40V30\"/>"
            "<path d=\"M40 30.2L0 30V0\"/></svg>";
        vectorkit::CleanOptions join;
        join.joinMm = 0.05;
        studio::rememberCleaning(join);
        studio->window->editor().offerFile(studio->write("gap.svg", gap));
        QCoreApplication::processEvents();
        auto *dialog = studio->window->findChild<studio::ImportDialog *>();
        QVERIFY(textOf(dialog, "cleanFigures").contains(QStringLiteral("Outlines: 2 → 1")));
        QVERIFY(!textOf(dialog, "cleanFigures").contains(QStringLiteral("closed")));
        enter(size(dialog, "importWidth"), "4");
        press(dialog, QDialogButtonBox::Ok); // at once: it must not take what stood there before
        const auto items = studio::shapeItemsOf(*studio->document().scene());
        QCOMPARE(items.size(), 1);
        QVERIFY(hostkit::outlinesOf(*items.first()).first().isClosed());
    }

    void reimport_followsTheFile_andKeepsWhatWasSet()
    {
        // At half its size, moved, turned into another pen and hatched.
        studio::ImportDialog *dialog = offer();
        enter(size(dialog, "importWidth"), "30");
        press(dialog, QDialogButtonBox::Ok);
        studio::ShapeItem *red = itemOfPen(12);
        studio::ShapeItem *blue = itemOfPen(2);
        QVERIFY(red != nullptr && blue != nullptr);
        const QPointF way(37, 91);
        red->setPos(red->pos() + way);
        red->setTransformParam(QTransform::fromScale(2, 2));
        red->setPenId(5);
        ZTFillParam hatch;
        hatch.fillType = FillType::Line;
        red->setFillParam(hatch);
        const QPointF corner = hostkit::outlinesOf(*red).first().boundsMm().topLeft();
        const DrawingSnapshot before = studio->snapshot();

        // The red square is 50 by 40 now and begins 4 mm farther left; the blue line is gone, a
        // green one new.
        QByteArray changed = kPlate;
        changed.replace("x=\"10\" y=\"10\" width=\"40\"", "x=\"6\" y=\"10\" width=\"50\"");
        changed.replace("<path d=\"M10 90H70\" fill=\"none\" stroke=\"blue\"/>",
                        "<path d=\"M10 60V80\" fill=\"none\" stroke=\"green\"/>");
        studio->write("plate.svg", changed);
        studio->select({red});
        QVERIFY(studio->run("file.reimport"));
        const QRectF box = hostkit::outlinesOf(*red).first().boundsMm();
        // Half of the file's size, twice as large.
        QVERIFY(std::abs(box.width() - 50) + std::abs(box.height() - 40) < 1e-6);
        QVERIFY(std::abs(box.left() - (corner.x() - 4)) < 1e-6);
        QVERIFY(std::abs(box.top() - corner.y()) < 1e-6);
        QCOMPARE(red->getPenId(), 5);
        QCOMPARE(red->getFillParam().fillType, FillType::Line);
        QVERIFY(itemOfPen(2) == nullptr);
        const studio::ShapeItem *green = itemOfPen(6);
        QVERIFY(green != nullptr);
        // 4 mm from the old left side, 50 below the old top, 20 long: at full size beside the red.
        const QRectF line = hostkit::outlinesOf(*green).first().boundsMm();
        QVERIFY(std::abs(line.left() - corner.x()) < 1e-6);
        QVERIFY(std::abs(line.top() - (corner.y() + 50)) < 1e-6);
        QVERIFY(std::abs(line.height() - 20) < 1e-6);
        const DrawingSnapshot after = studio->snapshot();
        QCOMPARE(studio->stack().count(), 2);
        COMPARE_UNDO_AND_REDO(studio->document(), before, after);
    }

    void reimport_ofADrawingFarAway_keepsPlaces()
    {
        // 20 m from the origin, as drawings of sites have it. The circle grows to the left, which
        // leaves the square where it is, although the middle of the whole is another one.
        const QByteArray far =
            "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"100mm\" height=\"100mm\" "
            "viewBox=\"0 0 100 100\"><g transform=\"translate(20000 -30000)\" fill=\"none\">"
            "<rect x=\"50\" y=\"10\" width=\"40\" height=\"40\" stroke=\"red\"/>"
            "<circle cx=\"30\" cy=\"30\" r=\"10\" stroke=\"blue\"/></g></svg>";
        studio->write("far.svg", far);
        QCOMPARE(studio->window->editor().import().importFiles({studio->path("far.svg")}), 1);
        const auto boxOf = [this](int pen) {
            return hostkit::outlinesOf(*itemOfPen(pen)).first().boundsMm();
        };
        const QRectF red = boxOf(12);
        const QRectF blue = boxOf(2);
        // The circle ends 10 mm before the square, on its middle line.
        QVERIFY(std::abs(red.left() - blue.right() - 10) < 1e-6);
        QVERIFY(std::abs(red.center().y() - blue.center().y()) < 1e-6);
        QByteArray changed = far;
        changed.replace("cx=\"30\" cy=\"30\" r=\"10\"", "cx=\"10\" cy=\"30\" r=\"30\"");
        studio->write("far.svg", changed);
        studio->select({itemOfPen(12)});
        QVERIFY(studio->run("file.reimport"));
        QVERIFY((boxOf(12).topLeft() - red.topLeft()).manhattanLength() < 1e-6);
        QVERIFY(std::abs(boxOf(2).width() - 60) < 1e-6);
        QVERIFY(std::abs(boxOf(12).left() - boxOf(2).right() - 10) < 1e-6);
    }

    void reimport_ofALostFile_changesNothing()
    {
        QCOMPARE(studio->window->editor().import().importFiles({plate()}), 1);
        const DrawingSnapshot before = studio->snapshot();
        QVERIFY(QFile::remove(studio->path("plate.svg")));
        QVERIFY(studio->run("file.reimport"));
        QVERIFY(studio->snapshot() == before);
        QCOMPARE(studio->messages->failures.size(), 1);
        QCOMPARE(studio->stack().count(), 1);
    }

    void reimport_isPossibleAfterSavingAndLoading()
    {
        QCOMPARE(studio->window->editor().import().importFiles({plate()}), 1);
        const QString saved = studio->path("plate.ztd");
        QVERIFY(studio->window->editor().files().saveTo(saved));
        QVERIFY(studio->window->editor().files().load(saved));
        QByteArray changed = kPlate;
        changed.replace("width=\"40\"", "width=\"20\"");
        studio->write("plate.svg", changed);
        studio->select(studio::shapeItemsOf(*studio->document().scene()));
        QVERIFY(studio->run("file.reimport"));
        QVERIFY(hasSize(*itemOfPen(12), QSizeF(20, 40)));
        QCOMPARE(studio->ids().size(), 2);
    }

    void reimport_ofShapesOfTheirOwn_isSaid()
    {
        studio->select({studio->addRect(0, 0)});
        QVERIFY(studio->run("file.reimport"));
        QCOMPARE(studio->stack().count(), 0);
    }

    void clipboard_svg_isOffered()
    {
        QGuiApplication::clipboard()->setText(QString::fromUtf8(kPlate));
        QVERIFY(studio->run("file.importClipboard"));
        auto *dialog = studio->window->findChild<studio::ImportDialog *>();
        QVERIFY(dialog != nullptr);
        press(dialog, QDialogButtonBox::Ok);
        QCOMPARE(studio->ids().size(), 2);
    }

    void clipboard_ofAnythingElse_isRefused()
    {
        QGuiApplication::clipboard()->setText(QStringLiteral("hello"));
        QVERIFY(studio->run("file.importClipboard"));
        QVERIFY(studio->window->findChild<studio::ImportDialog *>() == nullptr);
        QCOMPARE(studio->messages->failures.size(), 1);
    }

    void whatHasNoName_goesByItsFile()
    {
        const QString film = studio->write("film.plt", "IN;SP1;PU0,0;PD400,0;SP2;PU0,400;PD;PU;");
        QCOMPARE(studio->window->editor().import().importFiles({film}), 1);
        const auto items = studio::shapeItemsOf(*studio->document().scene());
        QCOMPARE(items.size(), 2);
        for (const studio::ShapeItem *item : items)
            QCOMPARE(hostkit::shapeName(*item), QStringLiteral("film"));
        // The second pen drew a dot alone.
        QVERIFY(hasSize(*items[1], QSizeF(0.01, 0)));
    }

    void longImport_canBeCancelled_andLeavesNothing()
    {
        QByteArray film = "IN;SP1;";
        for (int i = 0; i < 150000; ++i) {
            const QByteArray x = QByteArray::number(i % 400 * 100);
            const QByteArray y = QByteArray::number(i / 400 * 100);
            film += "PU" + x + ',' + y + ";PD" + x + ',' + y + ',' + x + "9," + y + "9;";
        }
        vectorkit::CleanOptions cleaning;
        cleaning.joinMm = 0.05;
        cleaning.dropDoubles = true;
        cleaning.weld = cleaning.order = true;
        studio::rememberCleaning(cleaning);
        bool isCancelled = false;
        QTimer poll;
        connect(&poll, &QTimer::timeout, this, [&] {
            auto *progress = studio->window->findChild<QProgressDialog *>();
            auto *button = progress != nullptr ? progress->findChild<QPushButton *>() : nullptr;
            if (isCancelled || button == nullptr ||
                !progress->labelText().startsWith(QStringLiteral("Cleaning film.plt")))
                return;
            isCancelled = true;
            QTest::mouseClick(button, Qt::LeftButton);
        });
        poll.start(10);
        const QString small = plate();
        QCOMPARE(
            studio->window->editor().import().importFiles({small, studio->write("film.plt", film)}),
            0);
        QVERIFY(isCancelled);
        QVERIFY(studio->ids().isEmpty());
        QCOMPARE(studio->stack().count(), 0);
        QVERIFY(studio->messages->failures.isEmpty());
    }

    void drop_ofOneDrawing_offersIt_whereItFell()
    {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(plate())});
        QVERIFY(studio->drop(data, studio->view().mapFromScene(120, 80)));
        auto *dialog = studio->window->findChild<studio::ImportDialog *>();
        QVERIFY(dialog != nullptr);
        press(dialog, QDialogButtonBox::Ok);
        const QRectF box = studio->document().scene()->getSelectionItemRect();
        QVERIFY((box.center() - QPointF(120, 80)).manhattanLength() < 3);
    }

    void drop_ofSeveral_asksWhereTheSizeIsAGuess()
    {
        // 10 by 5 of a unit that nothing tells.
        const QByteArray dxf =
            "0\nSECTION\n2\nENTITIES\n0\nLINE\n8\n0\n10\n0\n20\n0\n11\n10\n21\n5\n"
            "0\nENDSEC\n0\nEOF\n";
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(studio->write("one.dxf", dxf)),
                      QUrl::fromLocalFile(plate()),
                      QUrl::fromLocalFile(studio->write("other.dxf", dxf))});
        QVERIFY(studio->drop(data, studio->view().rect().center()));

        // The plate tells its size and is there; the others are asked about, one after the other.
        QCOMPARE(studio->ids().size(), 2);
        auto *first = openDialog();
        QVERIFY(first != nullptr && first->windowTitle().contains(QStringLiteral("one.dxf")));
        auto *unit = first->findChild<QComboBox *>(QStringLiteral("importUnit"));
        const int inch = unit->findText(QStringLiteral("1 inch"));
        unit->setFocus();
        for (int step = 0; step < inch; ++step)
            QTest::keyClick(unit, Qt::Key_Down);
        press(first, QDialogButtonBox::Ok);
        QCOMPARE(studio->ids().size(), 3);
        QVERIFY(
            hasSize(*studio::shapeItemsOf(*studio->document().scene()).last(), QSizeF(254, 127)));

        auto *second = openDialog();
        QVERIFY(second != nullptr && second->windowTitle().contains(QStringLiteral("other.dxf")));
        press(second, QDialogButtonBox::Cancel);
        QVERIFY(openDialog() == nullptr);
        QCOMPARE(studio->ids().size(), 3);
        QCOMPARE(studio->stack().count(), 2);
    }

private:
    /** The one that can be seen. */
    studio::ImportDialog *openDialog()
    {
        QCoreApplication::processEvents();
        for (auto *dialog : studio->window->findChildren<studio::ImportDialog *>()) {
            if (dialog->isVisible())
                return dialog;
        }
        return nullptr;
    }

    studio::ShapeItem *itemOfPen(int pen)
    {
        for (studio::ShapeItem *item : studio::shapeItemsOf(*studio->document().scene())) {
            if (item->getPenId() == pen)
                return item;
        }
        return nullptr;
    }

    QString plate() { return studio->write("plate.svg", kPlate); }

    studio::ImportDialog *offer()
    {
        studio->window->editor().offerFile(plate());
        QCoreApplication::processEvents();
        return studio->window->findChild<studio::ImportDialog *>();
    }

    static void press(studio::ImportDialog *dialog, QDialogButtonBox::StandardButton button)
    {
        QTest::mouseClick(dialog->findChild<QDialogButtonBox *>()->button(button), Qt::LeftButton);
        QCoreApplication::processEvents();
    }

    static QDoubleSpinBox *size(studio::ImportDialog *dialog, const char *name)
    {
        return dialog->findChild<QDoubleSpinBox *>(QLatin1String(name));
    }

    static void enter(QDoubleSpinBox *box, const char *text)
    {
        box->setFocus();
        box->selectAll();
        QTest::keyClicks(box, QLatin1String(text));
        QTest::keyClick(box, Qt::Key_Tab);
    }

    static QString textOf(studio::ImportDialog *dialog, const char *name)
    {
        return dialog->findChild<QLabel *>(QLatin1String(name))->text();
    }

    static bool hasSize(const studio::ShapeItem &item, const QSizeF &sizeMm)
    {
        const QRectF linesPx = item.getShapeBase()->getLines().boundingRect();
        const QSizeF isMm = linesPx.size() * ZTCoord::getInstance()->pix2mm(1.0);
        return qAbs(isMm.width() - sizeMm.width()) < 1e-6 &&
               qAbs(isMm.height() - sizeMm.height()) < 1e-6;
    }

    std::unique_ptr<StudioWindow> studio;
};

QTEST_MAIN(tst_studio_import)
#include "tst_studio_import.moc"
