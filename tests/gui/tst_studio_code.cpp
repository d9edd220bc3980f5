#include "StudioWindow.h"

#include <codekit/shape/CodeItem.h>
#include <hostkit/drawing/DrawingCapture.h>
#include <studio/code/CodeDialog.h>
#include <studio/code/CodeEdit.h>
#include <studio/code/CodeTools.h>
#include <studio/code/VerifyDialog.h>
#include <studio/export/Exporter.h>
#include <studio/job/JobExporter.h>
#include <studio/job/JobTools.h>
#include <studio/text/TextTools.h>

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QTabWidget>
#include <QtWidgets/QToolButton>
#include <QtWidgets/QTreeWidget>

using codekit::CodeItem;
using codekit::CodeKind;

namespace {

constexpr auto kOk = QDialogButtonBox::Ok;
constexpr auto kCancel = QDialogButtonBox::Cancel;
enum Tab { Content, Form, Options, Text, Hatch };

/** Words between commas. */
QStringList list(const char *words)
{
    return QString::fromLatin1(words).split(QStringLiteral(", "));
}

/** The studio with a user who makes codes. */
class CodeWindow : public StudioWindow
{
public:
    studio::CodeDialog *dialog() { return window->findChild<studio::CodeDialog *>(); }

    template <class Widget>
    Widget *box(const char *name)
    {
        return dialog()->findChild<Widget *>(QString::fromLatin1(name));
    }

    void showTab(Tab tab)
    {
        box<QTabWidget>("tabs")->setCurrentIndex(tab);
        QCoreApplication::processEvents();
    }

    void type(const QString &content)
    {
        auto *words = box<QPlainTextEdit>("words");
        words->setFocus();
        words->selectAll();
        QTest::keyClicks(words, content);
        QCoreApplication::processEvents();
    }

    void enter(const char *name, const char *number)
    {
        auto *field = box<QAbstractSpinBox>(name);
        field->setFocus();
        field->selectAll();
        QTest::keyClicks(field, QString::fromLatin1(number));
        QCoreApplication::processEvents();
    }

    void check(const char *name)
    {
        auto *button = box<QWidget>(name);
        button->setFocus();
        QTest::keyClick(button, Qt::Key_Space);
        QCoreApplication::processEvents();
    }

    /** Chooses an entry by typing its beginning, as people do in a closed list. */
    void choose(const char *name, const char *entry)
    {
        auto *list = box<QComboBox>(name);
        list->setFocus();
        QTest::keyClick(list, Qt::Key_Home);
        for (int step = 0; step < list->count() && list->currentText() != QLatin1String(entry);
             ++step)
            QTest::keyClick(list, Qt::Key_Down);
        QCoreApplication::processEvents();
    }

    QString status() { return box<QLabel>("codeStatus")->text(); }
    QString problem() { return box<QLabel>("codeProblem")->text(); }

    void close(QDialogButtonBox::StandardButton button)
    {
        QTest::mouseClick(dialog()->findChild<QDialogButtonBox *>()->button(button),
                          Qt::LeftButton);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        window->activateWindow(); // as a window manager does
        QCoreApplication::processEvents();
    }

    /** A new code, its dialog open. */
    CodeItem *create(const char *command = "create.code")
    {
        run(command);
        const auto items = studio::selectedShapeItems(*document().scene());
        return items.isEmpty() ? nullptr : codekit::codeItem(items.first());
    }

    QByteArray bytes()
    {
        hostkit::DrawingCapture how;
        how.savedAt = QDateTime(QDate(2024, 5, 6), QTime(7, 8), Qt::UTC);
        how.withPreview = false;
        hostkit::DrawingFile drawing;
        hostkit::captureDrawing(document(), how, &drawing, nullptr);
        drawing.counters.clear(); // ids that were given once are never given again
        return hostkit::drawingToBytes(drawing);
    }

    QString inTree() { return document().itemMag()->itemModel()->index(0, 1).data().toString(); }
};

} // namespace

class tst_studio_code : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { studio = std::make_unique<CodeWindow>(); }
    void cleanup() { studio.reset(); }

    void newCode_opensItsDialog_andSaysWhatItReads()
    {
        CodeItem *item = studio->create();
        QVERIFY(item != nullptr);
        QVERIFY(studio->dialog() != nullptr && studio->dialog()->isVisible());
        // S, N, - and two pairs of digits: what 12 by 12 holds, 0.5 mm each.
        QCOMPARE(studio->status(), QStringLiteral("12 x 12, 6.0 mm, reads: SN-0001"));
        QVERIFY(studio->problem().isEmpty());
        studio->close(kOk);
        QCOMPARE(studio->stack().count(), 1);
        QCOMPARE(studio->stack().undoText(), QStringLiteral("Create code"));
        QVERIFY(studio->run("edit.undo"));
        QVERIFY(studio->ids().isEmpty());
        QVERIFY(studio->run("edit.redo"));
        QCOMPARE(studio->ids().size(), 1);
    }

    void barCode_hasACommandOfItsOwn()
    {
        CodeItem *item = studio->create("create.barcode");
        QVERIFY(item != nullptr);
        QVERIFY(item->settings().spec.kind == CodeKind::Code128);
        QCOMPARE(studio->box<QComboBox>("kind")->currentText(), QStringLiteral("Code 128"));
    }

    void keyAndClick_makeACodeThere_andADragTellsItsSize()
    {
        studio->key(Qt::Key_C);
        studio->driver->click(QPointF(100, 60));
        QVERIFY(studio->dialog() != nullptr && studio->dialog()->isVisible());
        QCOMPARE(studio->status(), QStringLiteral("12 x 12, 6.0 mm, reads: SN-0001"));
        studio->close(kOk);
        QCOMPARE(studio->ids().size(), 1);
        studio->key(Qt::Key_C);
        const double sidePx = ZTCoord::getInstance()->mm2pix(24.0);
        studio->driver->drag(QPointF(-200, -200), QPointF(-200 + sidePx, -200 + sidePx));
        QVERIFY(studio->dialog() != nullptr);
        const auto drawn = studio::selectedShapeItems(*studio->document().scene());
        const QSizeF sizeMm =
            drawn.first()->boundingRect().size() / ZTCoord::getInstance()->mm2pix(1.0);
        QVERIFY(qAbs(sizeMm.width() - 24.0) < 0.5); // a mouse has whole pixels
        QCOMPARE(sizeMm.width(), sizeMm.height());
        studio->close(kOk);
    }

    void changes_showAtOnce_andAreOneStep()
    {
        CodeItem *item = studio->create();
        studio->close(kOk);
        const QByteArray before = studio->bytes();
        QVERIFY(studio->run("code.settings"));
        studio->type(QStringLiteral("PART 42"));
        QTRY_COMPARE(item->text(), QStringLiteral("PART 42"));
        studio->showTab(Form);
        studio->enter("module", "0.4");
        studio->enter("growth", "0.05");
        studio->check("inverse");
        QTRY_VERIFY(item->settings().form.isInverse);
        QCOMPARE(item->settings().form.growthMm, 0.05);
        // P A R T, blank, one pair of digits: six codewords, so 14 by 14.
        QCOMPARE(studio->status(), QStringLiteral("14 x 14, 5.6 mm, reads: PART 42"));
        studio->close(kOk);
        QCOMPARE(studio->stack().count(), 2);
        QCOMPARE(studio->stack().undoText(), QStringLiteral("Change code"));
        QCOMPARE(studio->inTree(), QStringLiteral("PART 42"));
        const QByteArray after = studio->bytes();
        QVERIFY(studio->run("edit.undo"));
        QCOMPARE(studio->bytes(), before);
        QCOMPARE(studio->inTree(), QStringLiteral("SN-0001"));
        QVERIFY(studio->run("edit.redo"));
        QCOMPARE(studio->bytes(), after);
        QVERIFY(studio->run("edit.undo"));
        QCOMPARE(studio->bytes(), before);
        QVERIFY(studio->frameFits());
    }

    void cancel_bringsEverythingBack_andOkWithoutChangeIsNoStep()
    {
        studio->create();
        studio->close(kOk);
        const QByteArray before = studio->bytes();
        QVERIFY(studio->run("code.settings"));
        studio->choose("kind", "QR Code");
        studio->type(QStringLiteral("else"));
        studio->close(kCancel);
        QCOMPARE(studio->bytes(), before);
        QVERIFY(studio->run("code.settings"));
        studio->close(kOk);
        QCOMPARE(studio->stack().count(), 1);
        QCOMPARE(studio->bytes(), before);
    }

    void doubleClick_andContextMenu_openTheDialog()
    {
        CodeItem *item = studio->create();
        studio->close(kOk);
        const QPointF middle = item->mapToScene(item->boundingRect().center());
        studio->driver->doubleClick(middle);
        QVERIFY(studio->dialog() != nullptr);
        studio->close(kCancel);
        QContextMenuEvent asked(
            QContextMenuEvent::Mouse, studio->view().mapFromScene(middle),
            studio->view().viewport()->mapToGlobal(studio->view().mapFromScene(middle)));
        QCoreApplication::sendEvent(studio->view().viewport(), &asked);
        auto *menu = studio->view().findChild<QMenu *>(QStringLiteral("shapeMenu"));
        QVERIFY(menu != nullptr);
        QAction *command = studio->window->commands().named("code.settings");
        QVERIFY(menu->actions().contains(command));
        QVERIFY(command->isEnabled());
        menu->close();
    }

    void kindWithItsOptions_isChosenByKeyboard()
    {
        CodeItem *item = studio->create();
        studio->choose("kind", "QR Code");
        QTRY_VERIFY(item->settings().spec.kind == CodeKind::Qr);
        studio->showTab(Options);
        QVERIFY(studio->box<QComboBox>("mask")->isVisible());
        QVERIFY(!studio->box<QCheckBox>("rectangular")->isVisible());
        studio->choose("symbolSize", "25 x 25");
        QTRY_COMPARE(item->settings().spec.version, 2);
        QCOMPARE(item->code().symbol().columns, 25);
        studio->choose("level", "H");
        QTRY_COMPARE(item->settings().spec.level, 4);
        QVERIFY(item->getShapeType() == ShapeType::QRCode);
        studio->choose("kind", "EAN-13");
        studio->showTab(Content);
        studio->type(QStringLiteral("400638133393"));
        QTRY_COMPARE(studio->problem(), QString());
        QVERIFY(item->getShapeType() == ShapeType::BarCode);
        QVERIFY2(studio->status().endsWith(QStringLiteral("reads: 4006381333931")),
                 qPrintable(studio->status()));
    }

    void contentThatCannotBeEncoded_isSaid_andTheLastGoodCodeStays()
    {
        CodeItem *item = studio->create();
        studio->choose("kind", "Code 39");
        studio->type(QStringLiteral("AB12"));
        QTRY_COMPARE(item->code().symbol().reads, QStringLiteral("AB12"));
        const QPainterPath good = item->code().getLines();
        studio->type(QStringLiteral("ab"));
        QTRY_COMPARE(studio->problem(),
                     QStringLiteral("Cannot be made: Code 39 has no small letters: use Code 128"));
        QVERIFY2(studio->status().contains(QStringLiteral("still shows the last good code")),
                 qPrintable(studio->status()));
        QVERIFY(studio->status().endsWith(QStringLiteral("reads: AB12")));
        QCOMPARE(item->code().getLines(), good);
        QVERIFY(item->childItems().first()->isVisible()); // crossed out
        studio->close(kOk);
        QCOMPARE(item->code().symbol().reads, QStringLiteral("AB12"));
        QCOMPARE(item->text(), QStringLiteral("ab"));
    }

    void badCode_stopsAnExport_unlessToldOtherwise()
    {
        CodeItem *item = studio->create();
        studio->close(kOk);
        item->setFixedText(QString());
        const QString path = studio->path("marks.json");
        studio->window->editor().exporter().exportTo(path, false);
        auto *asked = studio->window->findChild<QMessageBox *>(QStringLiteral("notReadyBox"));
        QVERIFY(asked != nullptr);
        QVERIFY(asked->informativeText().contains(QStringLiteral("Code 0: ")));
        QTest::keyClick(asked, Qt::Key_Return); // what is offered first writes nothing
        QVERIFY(!studio->window->editor().exporter().isBusy());
        QVERIFY(!QFile::exists(path));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        studio->window->editor().exporter().exportTo(path, false);
        asked = studio->window->findChild<QMessageBox *>(QStringLiteral("notReadyBox"));
        for (QAbstractButton *button : asked->buttons()) {
            if (asked->buttonRole(button) == QMessageBox::AcceptRole)
                QTest::mouseClick(button, Qt::LeftButton);
        }
        QTRY_VERIFY(QFile::exists(path));
        QTRY_VERIFY(!studio->window->editor().exporter().isBusy());
    }

    void jobOfParts_isNotWrittenWhereACodeOfOneCannotBeMade()
    {
        studio->create("create.barcode");
        studio->choose("kind", "Interleaved 2 of 5");
        studio->check("variantText");
        studio->box<QToolButton>("removeSegment")->click(); // what was typed
        studio->box<QToolButton>("addSegment")->menu()->actions().at(1)->trigger();
        studio->enter("counterWidth", "0");
        studio->enter("counterStart", "98");
        studio->close(kOk);
        studio::JobExporter &exporter = studio->window->editor().job().exporter();
        studio::JobExport wanted;
        wanted.path = studio->path("job.nc");
        wanted.isOneFile = true;
        wanted.parts = 3; // 98, 99, and 100, which leaves a digit over
        QVERIFY(!exporter.write(wanted, studio::JobSettings::load()));
        QVERIFY(!QFile::exists(wanted.path));
        auto *asked = studio->window->findChild<QMessageBox *>(QStringLiteral("notReadyBox"));
        QVERIFY(asked != nullptr);
        QVERIFY2(asked->text().contains(QStringLiteral("Part 3 cannot be made")),
                 qPrintable(asked->text()));
        QVERIFY2(
            asked->informativeText().contains(QStringLiteral("Interleaved 2 of 5 holds pairs")),
            qPrintable(asked->informativeText()));
        QTest::keyClick(asked, Qt::Key_Return); // what is offered first writes nothing
        QVERIFY(!QFile::exists(wanted.path));
        QCOMPARE(texts(), list("98"));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        studio::JobExport two = wanted;
        two.parts = 2;
        two.path = studio->path("two.nc");
        QVERIFY(exporter.write(two, studio::JobSettings::load()));
        QVERIFY(QFile::exists(two.path));
    }

    void jobOfParts_isWrittenAsShownWhereTheUserSaysSo()
    {
        CodeItem *item = studio->create();
        studio->close(kOk);
        item->setFixedText(QString()); // leaves the last good code
        studio::JobExport wanted;
        wanted.path = studio->path("job.nc");
        QVERIFY(
            !studio->window->editor().job().exporter().write(wanted, studio::JobSettings::load()));
        QVERIFY(!QFile::exists(wanted.path));
        auto *asked = studio->window->findChild<QMessageBox *>(QStringLiteral("notReadyBox"));
        QVERIFY(asked != nullptr);
        for (QAbstractButton *button : asked->buttons()) {
            if (asked->buttonRole(button) == QMessageBox::AcceptRole)
                QTest::mouseClick(button, Qt::LeftButton);
        }
        QTRY_VERIFY(QFile::exists(wanted.path));
    }

    void variantContent_showsTheNextParts_andMovesOn()
    {
        CodeItem *item = studio->create();
        studio->type(QStringLiteral("P-"));
        studio->check("variantText");
        auto *add = studio->box<QToolButton>("addSegment");
        add->menu()->actions().at(1)->trigger(); // a counter of four digits
        QTRY_COMPARE(item->text(), QStringLiteral("P-0001"));
        studio->close(kOk);
        QCOMPARE(item->code().symbol().reads, QStringLiteral("P-0001"));
        QVERIFY(studio->run("text.nextPart"));
        QCOMPARE(item->code().symbol().reads, QStringLiteral("P-0002"));
        QCOMPARE(studio->inTree(), QStringLiteral("P-0002"));
        // What was marked is marked: undo gives no number out again.
        QVERIFY(studio->run("code.settings"));
        studio->showTab(Form);
        studio->enter("module", "0.3");
        studio->close(kOk);
        QVERIFY(studio->run("text.nextPart"));
        QVERIFY(studio->run("edit.undo"));
        QCOMPARE(item->code().symbol().reads, QStringLiteral("P-0003"));
        QCOMPARE(item->settings().form.moduleMm, 0.5);
    }

    void matrix_givesEachCopyTheNextNumber_andTheNextPartGoesOnBehindThem()
    {
        addSerial();
        const QByteArray before = studio->bytes();
        QVERIFY(studio->run("arrange.matrix"));
        auto *matrix = studio->window->findChild<QDialog *>(QStringLiteral("matrixDialog"));
        matrix->findChild<QDoubleSpinBox *>(QStringLiteral("rows"))->setValue(2);
        matrix->findChild<QDoubleSpinBox *>(QStringLiteral("columns"))->setValue(3);
        QVERIFY(matrix->findChild<QCheckBox *>(QStringLiteral("numbered"))->isVisible());
        QTest::mouseClick(matrix->findChild<QPushButton *>(QStringLiteral("create")),
                          Qt::LeftButton);
        matrix->close();
        QCOMPARE(texts(), list("1, 2, 3, 4, 5, 6"));
        const QByteArray after = studio->bytes();
        QVERIFY(studio->run("edit.undo"));
        QCOMPARE(studio->bytes(), before);
        QVERIFY(studio->run("edit.redo"));
        QCOMPARE(studio->bytes(), after);
        QVERIFY(studio->run("text.nextPart"));
        QCOMPARE(texts(), list("7, 8, 9, 10, 11, 12"));
        studio->select({studio::shapeItemsOf(*studio->document().scene()).at(1)});
        QVERIFY(studio->run("code.settings"));
        const auto *preview = studio->box<QListWidget>("preview");
        QCOMPARE(preview->item(0)->text(), QStringLiteral("8"));
        QCOMPARE(preview->item(1)->text(), QStringLiteral("14"));
        studio->close(kCancel);
    }

    void shapesShareACounter_andUndoGivesThemBackTheirWords()
    {
        addSerial();
        studio->run("create.code");
        studio->close(kOk);
        const QByteArray before = studio->bytes();
        QVERIFY(studio->run("edit.selectAll"));
        QVERIFY(studio->run("text.shareCounter"));
        QCOMPARE(texts(), list("1, 2"));
        const QByteArray after = studio->bytes();
        QVERIFY(studio->run("edit.undo"));
        QCOMPARE(texts(), list("1, SN-0001"));
        QCOMPARE(studio->bytes(), before);
        QVERIFY(studio->run("edit.redo"));
        QCOMPARE(studio->bytes(), after);
        QVERIFY(studio->run("text.nextPart"));
        QCOMPARE(texts(), list("3, 4"));
    }

    void laterPartThatCannotBeEncoded_isToldBefore()
    {
        studio->create("create.barcode");
        studio->choose("kind", "Interleaved 2 of 5");
        studio->check("variantText");
        studio->box<QToolButton>("removeSegment")->click(); // what was typed
        studio->box<QToolButton>("addSegment")->menu()->actions().at(1)->trigger();
        studio->enter("counterWidth", "0");
        studio->enter("counterStart", "98");
        // 98 and 99 are pairs of digits; 100 leaves one over.
        QTRY_VERIFY2(
            studio->problem().startsWith(QStringLiteral("A later part, \"100\", cannot be made")),
            qPrintable(studio->problem()));
        QVERIFY(studio->status().endsWith(QStringLiteral("reads: 98")));
    }

    void resizedCode_showsTheModuleThatIsMarked()
    {
        CodeItem *item = studio->create();
        studio->close(kOk);
        item->scale(2.0, 2.0);
        const QRectF before = item->boundingRect();
        QVERIFY(studio->run("code.settings"));
        studio->showTab(Form);
        QCOMPARE(studio->status(), QStringLiteral("12 x 12, 12.0 mm, reads: SN-0001"));
        auto *module = studio->box<QDoubleSpinBox>("module");
        QCOMPARE(module->value(), 1.0);
        studio->enter("growth", "0.1");
        QTRY_COMPARE(item->settings().form.growthMm, 0.1);
        QCOMPARE(item->settings().form.moduleMm, 1.0);
        QVERIFY(item->getTransformParam().isIdentity());
        studio->close(kOk);
        const double growthPx = ZTCoord::getInstance()->mm2pix(0.1);
        QVERIFY(qAbs(item->boundingRect().width() - (before.width() - growthPx)) < 1e-6);
    }

    void lastGoodCode_keepsItsSize_whateverIsAskedForNext()
    {
        CodeItem *item = studio->create();
        studio->close(kOk);
        item->scale(2.0, 2.0);
        item->setFixedText(QString()); // cannot be made
        const QRectF before = item->boundingRect();
        studio::CodeEdit edit = studio::CodeEdit::of(*item);
        edit.code.form.growthMm = 0.1;
        edit.applyTo(*item);
        QCOMPARE(item->boundingRect(), before);
        QCOMPARE(studio::CodeEdit::of(*item).code.form.growthMm, 0.1);
        item->setFixedText(QStringLiteral("SN-0001"));
        const double growthPx = ZTCoord::getInstance()->mm2pix(0.1);
        QVERIFY(qAbs(item->boundingRect().width() - (before.width() - growthPx)) < 1e-6);
    }

    void panel_tellsOfTheCode_andSetsTheModuleOfAll()
    {
        CodeItem *first = studio->create();
        studio->close(kOk);
        CodeItem *second = studio->create();
        studio->close(kOk);
        const auto inPanel = [this](const char *name) {
            return studio->window->findChild<QWidget *>(QString::fromLatin1(name));
        };
        auto *summary = static_cast<QLabel *>(inPanel("panel.codeSummary"));
        QTRY_COMPARE(summary->text(), QStringLiteral("12 x 12, 6.0 mm, reads: SN-0001"));
        second->scale(2.0, 2.0);
        studio->select({first, second});
        QTRY_COMPARE(summary->text(), QStringLiteral("2 codes"));
        QVERIFY(!inPanel("panel.codeSettings")->isEnabled());
        const QByteArray before = studio->bytes();
        const int steps = studio->stack().count();
        auto *module = static_cast<QLineEdit *>(inPanel("panel.module"));
        module->setFocus();
        module->selectAll();
        QTest::keyClicks(module, QStringLiteral("0.4"));
        QTest::keyClick(module, Qt::Key_Return);
        QTRY_COMPARE(studio->stack().count(), steps + 1);
        QCOMPARE(first->moduleMm(), 0.4);
        QCOMPARE(second->moduleMm(), 0.4);
        QVERIFY(studio->run("edit.undo"));
        QCOMPARE(studio->bytes(), before);
        studio->select({first});
        QTRY_VERIFY(inPanel("panel.codeSettings")->isEnabled());
        QTest::mouseClick(inPanel("panel.codeSettings"), Qt::LeftButton);
        QVERIFY(studio->dialog() != nullptr && studio->dialog()->isVisible());
        studio->close(kCancel);
    }

    void mirroredCode_isWarnedOf_inPanelAndDialog()
    {
        CodeItem *item = studio->create();
        studio->close(kOk);
        auto *problem = studio->window->findChild<QLabel *>(QStringLiteral("panel.codeProblem"));
        QCOMPARE(problem->text(), QString());
        QVERIFY(studio->run("arrange.mirrorHorizontal"));
        QTRY_VERIFY2(problem->text().startsWith(QStringLiteral("The code is mirrored")),
                     qPrintable(problem->text()));
        studio->select({item});
        QVERIFY(studio->run("code.settings"));
        QVERIFY2(studio->problem().startsWith(QStringLiteral("The code is mirrored")),
                 qPrintable(studio->problem()));
        studio->close(kCancel);
    }

    void options_ofPdf417_andPointsOfAMatrix_areChosenInTheDialog()
    {
        CodeItem *item = studio->create();
        studio->showTab(Form);
        studio->choose("style", "points, one a module");
        QTRY_VERIFY(item->settings().form.style == codekit::CodeStyle::Points);
        // A point has no width for a beam to be taken off, and nothing to hatch.
        QCOMPARE(item->code().getFillLines().size(), 0);
        studio->choose("kind", "PDF417");
        studio->showTab(Options);
        studio->enter("columns", "3");
        studio->choose("level", "5");
        studio->choose("charset", "GBK");
        QTRY_VERIFY(item->settings().spec.charset == codekit::CodeCharset::Gbk);
        QCOMPARE(item->settings().spec.columns, 3);
        QCOMPARE(item->settings().spec.level, 5);
        QCOMPARE(item->code().symbol().columns, 3 * 17 + 69);
        studio->choose("kind", "Code 128");
        studio->showTab(Form);
        auto *styles = studio->box<QComboBox>("style");
        QVERIFY(styles->findText(QStringLiteral("dots")) < 0);
        QVERIFY(styles->findText(QStringLiteral("points, one a module")) < 0);
        studio->close(kOk);
        QVERIFY(item->settings().form.style == codekit::CodeStyle::Merged);
        QCOMPARE(item->settings().spec.columns, 0);
    }

    void escapes_areDecodedInTheDialog_andWrongOnesSaid()
    {
        CodeItem *item = studio->create();
        studio->showTab(Options);
        studio->check("escapes");
        studio->showTab(Content);
        studio->type(QStringLiteral("A\\GB"));
        QTRY_COMPARE(item->code().symbol().reads, QStringLiteral("A\x1D"
                                                                 "B"));
        studio->type(QStringLiteral("A\\q"));
        QTRY_VERIFY2(studio->problem().contains(QStringLiteral("\"\\q\" is no escape")),
                     qPrintable(studio->problem()));
        studio->close(kCancel);
    }

    void verify_readsEveryCode_theTroubledFirst()
    {
        CodeItem *good = studio->create();
        studio->close(kOk);
        CodeItem *mirrored = studio->create();
        studio->close(kOk);
        mirrored->setFixedText(QStringLiteral("MIRROR"));
        mirrored->setTransformParam(QTransform::fromScale(-1.0, 1.0));
        CodeItem *bad = studio->create("create.barcode");
        studio->close(kOk);
        bad->setFixedText(QString());
        QVERIFY(studio->run("tools.verifyCodes"));
        auto *dialog = studio->window->findChild<studio::VerifyDialog *>();
        QVERIFY(dialog != nullptr && dialog->isVisible());
        QTRY_VERIFY(!dialog->isRunning());
        auto *list = dialog->findChild<QTreeWidget *>(QStringLiteral("verifyList"));
        QCOMPARE(list->topLevelItemCount(), 3);
        QVERIFY(list->topLevelItem(0)->text(1).startsWith(QStringLiteral("is mirrored")));
        QVERIFY(list->topLevelItem(1)->text(1).startsWith(QStringLiteral("does not show")));
        QCOMPARE(list->topLevelItem(2)->text(1), QStringLiteral("reads: SN-0001"));
        QCOMPARE(dialog->findChild<QLabel *>(QStringLiteral("verifySummary"))->text(),
                 QStringLiteral("Codes that read as they are to: 1 of 3."));
        list->setCurrentItem(list->topLevelItem(2));
        QVERIFY(good->isSelected() && !mirrored->isSelected());
    }

    void verify_seesWhatLiesOverACode()
    {
        CodeItem *under = studio->create();
        studio->close(kOk);
        CodeItem *over = studio->create();
        studio->close(kOk);
        over->setFixedText(QStringLiteral("OTHER"));
        over->setPos(under->pos() + QPointF(4.0, 4.0));
        QVERIFY(studio->run("tools.verifyCodes"));
        auto *dialog = studio->window->findChild<studio::VerifyDialog *>();
        QTRY_VERIFY(!dialog->isRunning());
        QCOMPARE(dialog->findChild<QLabel *>(QStringLiteral("verifySummary"))->text(),
                 QStringLiteral("Codes that read as they are to: 0 of 2."));
        over->setPos(under->pos() + QPointF(80.0, 0.0));
        QTest::mouseClick(dialog->findChild<QPushButton *>(QStringLiteral("verifyStart")),
                          Qt::LeftButton);
        QTRY_VERIFY(!dialog->isRunning());
        QCOMPARE(dialog->findChild<QLabel *>(QStringLiteral("verifySummary"))->text(),
                 QStringLiteral("Codes that read as they are to: 2 of 2."));
    }

    void verify_canBeStopped_andOutlivesDeletedCodes()
    {
        CodeItem *item = studio->create();
        studio->close(kOk);
        studio->document().itemMag()->addMatrix(10, 30, 5.0, 5.0);
        QVERIFY(item->isSelected());
        QVERIFY(studio->run("tools.verifyCodes"));
        auto *dialog = studio->window->findChild<studio::VerifyDialog *>();
        auto *button = dialog->findChild<QPushButton *>(QStringLiteral("verifyStart"));
        QTest::mouseClick(button, Qt::LeftButton);
        QVERIFY(!dialog->isRunning());
        const QString summary =
            dialog->findChild<QLabel *>(QStringLiteral("verifySummary"))->text();
        QVERIFY2(summary.startsWith(QStringLiteral("Stopped. Read as they are to: ")),
                 qPrintable(summary));
        QTest::mouseClick(button, Qt::LeftButton); // again
        studio->document().itemMag()->clear();
        QTRY_VERIFY(!dialog->isRunning());
    }

private:
    /** A code of a counter from 1, without leading zeros. */
    void addSerial()
    {
        studio->create();
        studio->check("variantText");
        studio->box<QToolButton>("removeSegment")->click(); // what was typed
        studio->box<QToolButton>("addSegment")->menu()->actions().at(1)->trigger();
        studio->enter("counterWidth", "0");
        studio->close(kOk);
    }

    /** What the codes read, lowest first. */
    QStringList texts()
    {
        QStringList found;
        for (studio::ShapeItem *item : studio::shapeItemsOf(*studio->document().scene()))
            found << codekit::codeItem(item)->code().symbol().reads;
        return found;
    }

    std::unique_ptr<CodeWindow> studio;
};

QTEST_MAIN(tst_studio_code)

#include "tst_studio_code.moc"
