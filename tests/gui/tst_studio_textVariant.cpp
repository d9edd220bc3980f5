#include "TextWindow.h"

#include "support/ShxWriter.h"

#include <studio/drawing/DrawingFiles.h>

#include <QtCore/QDateTime>
#include <QtCore/QTimer>
#include <QtWidgets/QMenu>
#include <QtWidgets/QToolButton>

using studio::TextState;

namespace {

constexpr auto kOk = QDialogButtonBox::Ok;
constexpr auto kCancel = QDialogButtonBox::Cancel;
enum Kind { Fixed, Counter, Date, List };

ZTVariantText serial(qint64 start, qint64 last = 999)
{
    ZTCounterSegment counter;
    counter.start = start;
    counter.last = last;
    counter.width = 3;
    ZTVariantText text;
    text.setSegments({ZTFixedTextSegment{QStringLiteral("SN")}, counter});
    return text;
}

} // namespace

class tst_studio_textVariant : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        studio = std::make_unique<TextWindow>();
        item = studio->addText(QStringLiteral("SN"));
        ZTVariantText::setClock([] { return QDateTime({2026, 11, 20}, {23, 30}); });
    }
    void cleanup()
    {
        studio.reset();
        ZTVariantText::setClock({});
    }

    void counter_isAddedFromTheMenu_andShowsTheNextTen()
    {
        QVERIFY(openVariant());
        QCOMPARE(segments(), QStringList{QStringLiteral("Text: SN")});
        addByKeyboard(Counter);
        QCOMPARE(segments(),
                 (QStringList{QStringLiteral("Text: SN"), QStringLiteral("Counter: 0001")}));
        QCOMPARE(preview().size(), 10);
        QCOMPARE(preview().first(), QStringLiteral("SN0001"));
        QCOMPARE(preview().last(), QStringLiteral("SN0010"));
        QTRY_COMPARE(item->text(), QStringLiteral("SN0001"));
        studio->close(kOk);
        QCOMPARE(item->text(), QStringLiteral("SN0001"));
        QCOMPARE(studio->stack().count(), 1);
        QCOMPARE(item->getFixedText(), QStringLiteral("SN"));
    }

    void nextPart_goesOn_fromThePartThatShows()
    {
        makeSerial();
        const QByteArray before = studio->snapshot().mark;
        QVERIFY(studio->run("text.nextPart"));
        QCOMPARE(item->text(), QStringLiteral("SN0002"));
        QCOMPARE(studio->inTree(), QStringLiteral("SN0002"));
        QVERIFY(studio->frameFits());
        QVERIFY(studio->snapshot().mark != before);
        studio->key(Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(item->text(), QStringLiteral("SN0003"));
        QVERIFY(studio->messages->failures.isEmpty());
        QVERIFY(studio->messages->warnings.isEmpty());
    }

    void lookingAtIt_movesNothing()
    {
        makeSerial();
        QVERIFY(studio->run("text.nextPart"));
        for (const auto button : {kOk, kCancel}) {
            QVERIFY(studio->openDialog(0));
            QCOMPARE(preview().first(), QStringLiteral("SN0002"));
            studio->close(button);
            QCOMPARE(item->text(), QStringLiteral("SN0002"));
        }
        QVERIFY(studio->run("text.nextPart"));
        QCOMPARE(item->text(), QStringLiteral("SN0003"));
    }

    void composingAnew_keepsThePresentNumber()
    {
        makeSerial();
        QVERIFY(studio->run("text.nextPart"));
        QVERIFY(studio->openDialog(0));
        QTest::keyClicks(studio->box<QPlainTextEdit>("segmentText"), QStringLiteral("X"));
        QCOMPARE(preview().first(), QStringLiteral("XSN0002"));
        studio->close(kOk);
        QCOMPARE(item->text(), QStringLiteral("XSN0002"));
        QVERIFY(studio->run("text.nextPart"));
        QCOMPARE(item->text(), QStringLiteral("XSN0003"));
    }

    void nextPart_isNoStep_butTheDrawingIsChanged()
    {
        makeSerial();
        studio->window->editor().files().session().setSaved(
            QStringLiteral("serial.ztd"), studio->window->editor().files().session().revision());
        const int steps = studio->stack().count();
        QVERIFY(studio->run("text.nextPart"));
        QCOMPARE(studio->stack().count(), steps);
        QVERIFY(studio->window->isWindowModified());
    }

    void undoOfOtherEdits_leavesTheCounterAlone()
    {
        makeSerial();
        QVERIFY(studio->openDialog(1));
        studio->enter("height", "20");
        studio->close(kOk);
        QVERIFY(studio->run("text.nextPart"));
        QVERIFY(studio->run("text.nextPart"));
        QVERIFY(studio->run("edit.undo"));
        QCOMPARE(item->text(), QStringLiteral("SN0003"));
        QVERIFY(studio->run("edit.redo"));
        QVERIFY(studio->run("text.nextPart"));
        QCOMPARE(item->text(), QStringLiteral("SN0004"));
    }

    void undoAndRedoOfComposing_goOnWithTheCounter()
    {
        makeSerial();
        QVERIFY(studio->run("text.nextPart"));
        QVERIFY(studio->run("text.nextPart"));
        QVERIFY(studio->run("edit.undo"));
        QCOMPARE(item->text(), QStringLiteral("SN"));
        QVERIFY(!item->isEnableVariantText());
        QVERIFY(studio->run("edit.redo"));
        QCOMPARE(item->text(), QStringLiteral("SN0003"));
        QVERIFY(studio->run("text.nextPart"));
        QCOMPARE(item->text(), QStringLiteral("SN0004"));
    }

    void allSettingsOfACounter_work()
    {
        QVERIFY(openVariant());
        add(Counter);
        studio->enter("counterStart", "10");
        studio->enter("counterStep", "5");
        QCOMPARE(preview().mid(0, 3),
                 (QStringList{QStringLiteral("SN0010"), QStringLiteral("SN0015"),
                              QStringLiteral("SN0020")}));
        studio->enter("counterPresent", "20");
        QCOMPARE(preview().first(), QStringLiteral("SN0020"));
        studio->enter("counterPresent", "21");
        QVERIFY(!studio->box<QLabel>("counterProblem")->text().isEmpty());
        QCOMPARE(preview().first(), QStringLiteral("SN0020"));
        studio->enter("counterRepeat", "2");
        studio->check("counterHasLast");
        studio->enter("counterLast", "25");
        choose("counterEnd", 1);
        QCOMPARE(preview().mid(0, 6),
                 (QStringList{QStringLiteral("SN0020"), QStringLiteral("SN0020"),
                              QStringLiteral("SN0025"), QStringLiteral("SN0025"),
                              QStringLiteral("SN0010"), QStringLiteral("SN0010")}));
        studio->enter("counterWidth", "3");
        choose("counterPad", 1);
        choose("counterRadix", 1); // 20 is 14 in hexadecimal
        QCOMPARE(preview().first(), QStringLiteral("SN 14"));
        choose("counterRadix", 2); // 20 is U in letters
        QCOMPARE(preview().first(), QStringLiteral("SN  U"));
        choose("counterPad", 2);
        QCOMPARE(preview().first(), QStringLiteral("SN--U"));
        choose("counterPad", 0);
        QCOMPARE(preview().first(), QStringLiteral("SNAAU"));
    }

    void settingsFromElsewhere_areShownAndKept()
    {
        ZTCounterSegment counter;
        counter.pad = u'#';
        counter.width = 3;
        ZTDateTimeSegment date;
        date.locale = QStringLiteral("it_IT");
        date.format = QStringLiteral("MMMM");
        ZTVariantText text;
        text.setSegments({counter, date});
        text.update();
        studio::textShapeOf(*item).cloneVariantText(&text);
        item->setEnableVariantText(true);
        QVERIFY(studio->openDialog(0));
        QCOMPARE(studio->box<QComboBox>("counterPad")->currentText(), QStringLiteral("#"));
        studio->box<QListWidget>("segments")->setCurrentRow(1);
        QCOMPARE(studio->box<QComboBox>("dateLocale")->currentText(), QStringLiteral("it_IT"));
        QCOMPARE(preview().first(), QStringLiteral("##1novembre"));
        studio->enter("dateDays", "30");
        QCOMPARE(preview().first(), QStringLiteral("##1dicembre"));
    }

    void date_showsTheMomentWithItsOffset()
    {
        QVERIFY(openVariant());
        add(Date);
        QCOMPARE(preview().first(), QStringLiteral("SN2026-11-20"));
        auto *format = studio->box<QComboBox>("dateFormat");
        format->setEditText(QStringLiteral("d MMM yyyy HH:mm"));
        studio->enter("dateMinutes", "45");
        QCOMPARE(preview().first(), QStringLiteral("SN21 Nov 2026 00:15"));
        choose("dateContent", 3); // day of the year: 325 for 21 November
        QCOMPARE(preview().first(), QStringLiteral("SN325"));
        QVERIFY(!format->isEnabled());
    }

    void list_goesRowByRow_withColumnAndWrap()
    {
        const QString path = studio->path("list.csv");
        testsupport::writeFile(path, QByteArrayLiteral("name;code\nann;A1\nbob;B2\n"));
        QVERIFY(openVariant());
        add(List);
        auto *pathField = studio->box<QLineEdit>("listPath");
        pathField->setFocus();
        QTest::keyClicks(pathField, path);
        studio->enter("listFirst", "2");
        studio->enter("listColumn", "2");
        choose("listSeparator", 1);
        choose("listEnd", 1);
        QVERIFY(studio->box<QLabel>("variantProblem")->text().isEmpty());
        QCOMPARE(preview().mid(0, 3), (QStringList{QStringLiteral("SNA1"), QStringLiteral("SNB2"),
                                                   QStringLiteral("SNA1")}));
        studio->close(kOk);
        QCOMPARE(item->text(), QStringLiteral("SNA1"));
        for (const char *expected : {"SNB2", "SNA1", "SNB2"}) {
            QVERIFY(studio->run("text.nextPart"));
            QCOMPARE(item->text(), QString::fromLatin1(expected));
        }
        QVERIFY(studio->openDialog(0));
        QCOMPARE(preview().first(), QStringLiteral("SNB2"));
    }

    void missingList_isTold_whenComposingAndWhenMarking()
    {
        QVERIFY(openVariant());
        add(List);
        studio->box<QLineEdit>("listPath")->setText(QStringLiteral("/nowhere/list.txt"));
        auto *problem = studio->box<QLabel>("variantProblem");
        QVERIFY(problem->isVisible());
        QVERIFY(problem->text().contains(QStringLiteral("/nowhere/list.txt")));
        studio->close(kOk);
        QVERIFY(studio->run("text.nextPart"));
        QCOMPARE(studio->messages->failures.size(), 1);
        QVERIFY(studio->messages->failures.first().details.first().contains(
            QStringLiteral("/nowhere/list.txt")));
    }

    void segments_areMovedAndRemoved()
    {
        QVERIFY(openVariant());
        add(Counter);
        studio->check("segmentUp");
        QCOMPARE(preview().first(), QStringLiteral("0001SN"));
        QVERIFY(!studio->box<QToolButton>("segmentUp")->isEnabled());
        studio->check("segmentDown");
        QCOMPARE(preview().first(), QStringLiteral("SN0001"));
        studio->check("removeSegment");
        QCOMPARE(preview().first(), QStringLiteral("SN"));
        studio->check("removeSegment");
        QVERIFY(preview().isEmpty());
        QVERIFY(!studio->box<QToolButton>("removeSegment")->isEnabled());
        add(Fixed);
        QTest::keyClicks(studio->box<QPlainTextEdit>("segmentText"), QStringLiteral("new"));
        QCOMPARE(preview().first(), QStringLiteral("new"));
    }

    void switchingBack_showsTheTypedText_andForgetsNothing()
    {
        makeSerial();
        QVERIFY(studio->run("text.nextPart"));
        QVERIFY(studio->openDialog(0));
        studio->check("fixedText");
        studio->close(kOk);
        QCOMPARE(item->text(), QStringLiteral("SN"));
        QVERIFY(studio->run("text.nextPart"));
        QCOMPARE(item->text(), QStringLiteral("SN"));
        QVERIFY(studio->openDialog(0));
        studio->check("variantText");
        studio->close(kOk);
        QCOMPARE(item->text(), QStringLiteral("SN0002"));
    }

    void doubleClick_onAVariantText_opensTheDialog()
    {
        makeSerial();
        studio->driver->doubleClick(studio::sceneBox(*item).center());
        QVERIFY(studio->editor() == nullptr);
        QVERIFY(studio->dialog() != nullptr && studio->dialog()->isVisible());
    }

    void allVariantTexts_goOn_eachByItself()
    {
        ZTVariantText first = serial(5);
        first.update();
        studio::textShapeOf(*item).cloneVariantText(&first);
        item->setEnableVariantText(true);
        studio->select({item});
        QVERIFY(studio->run("edit.duplicate"));
        auto *copy = dynamic_cast<ZTGraphicsTextItem *>(studio->document().scene()->getItemById(1));
        QVERIFY(copy != nullptr);
        ZTGraphicsTextItem *fixed = studio->addText(QStringLiteral("fixed"), 0, 100);
        QVERIFY(studio->run("text.nextPart"));
        QCOMPARE(item->text(), QStringLiteral("SN006"));
        QCOMPARE(copy->text(), QStringLiteral("SN006"));
        QCOMPARE(fixed->text(), QStringLiteral("fixed"));
    }

    void usedUpText_isTold()
    {
        ZTVariantText last = serial(7, 8);
        last.update();
        studio::textShapeOf(*item).cloneVariantText(&last);
        item->setEnableVariantText(true);
        QVERIFY(studio->run("text.nextPart"));
        QCOMPARE(item->text(), QStringLiteral("SN008"));
        QVERIFY(studio->messages->warnings.isEmpty());
        QVERIFY(studio->run("text.nextPart"));
        QCOMPARE(item->text(), QStringLiteral("SN008"));
        QCOMPARE(studio->messages->warnings.size(), 1);
        QCOMPARE(studio->messages->warnings.first().details, QStringList{QStringLiteral("SN008")});
    }

    void noVariantText_leavesTheDrawingClean()
    {
        QVERIFY(!studio->window->isWindowModified());
        QVERIFY(studio->run("text.nextPart"));
        QVERIFY(!studio->window->isWindowModified());
        QCOMPARE(item->text(), QStringLiteral("SN"));
    }

private:
    bool openVariant()
    {
        if (!studio->openDialog(0))
            return false;
        studio->check("variantText");
        return true;
    }

    void makeSerial()
    {
        QVERIFY(openVariant());
        add(Counter);
        studio->close(kOk);
        QCOMPARE(item->text(), QStringLiteral("SN0001"));
    }

    void add(Kind kind)
    {
        studio->box<QToolButton>("addSegment")->menu()->actions().at(kind)->trigger();
        QCoreApplication::processEvents();
    }

    /** Opens the menu of the button and goes down to the kind, as a user does. */
    void addByKeyboard(Kind kind)
    {
        QTimer::singleShot(0, this, [kind] {
            QWidget *menu = QApplication::activePopupWidget();
            QVERIFY(menu != nullptr);
            for (int step = 0; step <= kind; ++step)
                QTest::keyClick(menu, Qt::Key_Down);
            QTest::keyClick(menu, Qt::Key_Return);
        });
        QTest::mouseClick(studio->box<QToolButton>("addSegment"), Qt::LeftButton);
        QCoreApplication::processEvents();
    }

    /** Chooses an entry of a box as a user does, by keys. */
    void choose(const char *name, int index)
    {
        auto *box = studio->box<QComboBox>(name);
        box->setFocus();
        TextWindow::key(box, Qt::Key_Home);
        for (int step = 0; step < index; ++step)
            TextWindow::key(box, Qt::Key_Down);
    }

    QStringList rowsOf(const char *name)
    {
        QStringList rows;
        const auto *list = studio->box<QListWidget>(name);
        for (int row = 0; row < list->count(); ++row)
            rows << list->item(row)->text();
        return rows;
    }

    QStringList segments() { return rowsOf("segments"); }
    QStringList preview() { return rowsOf("preview"); }

    std::unique_ptr<TextWindow> studio;
    ZTGraphicsTextItem *item = nullptr;
};

int main(int argc, char **argv) { return runTextTest<tst_studio_textVariant>(argc, argv); }
#include "tst_studio_textVariant.moc"
