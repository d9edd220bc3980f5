#include "TextWindow.h"

#include <studio/canvas/DrawingTools.h>
#include <studio/drawing/DrawingFiles.h>
#include <studio/preferences/PreferenceTools.h>
#include <studio/window/DialogManners.h>

#include <jobkit/marks/DrawingPens.h>

#include <QtGui/QKeySequence>
#include <QtGui/QScreen>
#include <QtWidgets/QDialog>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QTabWidget>
#include <QtWidgets/QVBoxLayout>

#include <set>

using studio::ShapeItem;

/** What all dialogs have in common. */
class tst_studio_dialogs : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        testsupport::makeTinyFonts();
        studio = std::make_unique<StudioWindow>();
    }
    void cleanup() { studio.reset(); }

    void everyButton_hasALetterOfItsOwn_data()
    {
        QTest::addColumn<QByteArray>("command");
        QTest::addColumn<int>("language");
        for (const char *command :
             {"edit.preferences", "arrange.matrix", "arrange.circle", "arrange.rotate",
              "text.settings", "tools.verifyCodes", "job.export", "help.about"}) {
            for (const auto language :
                 {studio::LanguageChoice::English, studio::LanguageChoice::Chinese})
                QTest::addRow("%s %d", command, int(language))
                    << QByteArray(command) << int(language);
        }
    }

    void everyButton_hasALetterOfItsOwn()
    {
        QFETCH(QByteArray, command);
        QFETCH(int, language);
        QVERIFY(studio->run("create.text"));
        jobkit::setDrawingPens(studio->document(), jobkit::defaultPens());
        studio::PreferenceEdit edit;
        edit.language = studio::LanguageChoice(language);
        edit.drawing = edit.user.newDrawing;
        studio->window->preferences().apply(edit);
        QCoreApplication::processEvents();
        QVERIFY(studio->run(command.constData()));
        QDialog *dialog = shownDialog();
        QVERIFY(dialog != nullptr);
        checkLetters(*dialog);
        dialog->close();
        studio->window->preferences().apply({}); // English again
    }

    void letters_followTheLanguage()
    {
        QVERIFY(studio->run("create.rectangle"));
        QVERIFY(studio->run("arrange.matrix"));
        QDialog *dialog = shownDialog();
        studio::PreferenceEdit edit;
        edit.language = studio::LanguageChoice::Chinese;
        studio->window->preferences().apply(edit);
        QTRY_COMPARE(dialog->windowTitle(), QStringLiteral("\u9635\u5217"));
        QTest::qWait(20); // letters come when all texts are there
        checkLetters(*dialog);
        edit.language = studio::LanguageChoice::English;
        studio->window->preferences().apply(edit);
        QTRY_COMPARE(dialog->windowTitle(), QStringLiteral("Matrix"));
        QTest::qWait(20); // letters come when all texts are there
        checkLetters(*dialog);
    }

    void letterOfAButton_pressesIt()
    {
        QVERIFY(studio->run("create.rectangle"));
        QVERIFY(studio->run("arrange.matrix"));
        QDialog *dialog = shownDialog();
        activate(*dialog);
        const QString close = QStringLiteral("Close");
        for (const QPushButton *button : dialog->findChildren<QPushButton *>()) {
            if (QString(button->text()).remove(QLatin1Char('&')) != close)
                continue;
            const int key = QKeySequence::mnemonic(button->text())[0] & ~Qt::KeyboardModifierMask;
            QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key),
                            Qt::AltModifier);
        }
        QTRY_VERIFY(!dialog->isVisible());
    }

    void undo_worksInADialogThatStaysOpen()
    {
        ShapeItem *item = studio->addRect(0, 0);
        studio->select({item});
        studio->key(Qt::Key_Right);
        QCOMPARE(studio->stack().index(), 1);
        QVERIFY(studio->run("arrange.matrix"));
        QDialog *dialog = shownDialog();
        activate(*dialog);
        auto *rows = dialog->findChild<QDoubleSpinBox *>(QStringLiteral("rows"));
        rows->setFocus();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(studio->stack().index(), 0);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Y, Qt::ControlModifier);
        QCOMPARE(studio->stack().index(), 1);
        // What is typed is the field's own.
        rows->findChild<QLineEdit *>()->selectAll();
        QTest::keyClicks(rows, QStringLiteral("12"));
        QTest::keyClick(rows, Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(studio->stack().index(), 1);
        dialog->close();
    }

    void keysOfCommands_workInADialogThatStaysOpen()
    {
        ShapeItem *item = studio->addRect(0, 0);
        studio->select({item});
        QVERIFY(studio->run("arrange.matrix"));
        QDialog *dialog = shownDialog();
        activate(*dialog);
        dialog->findChild<QDoubleSpinBox *>(QStringLiteral("rows"))->setFocus();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_D, Qt::ControlModifier);
        QCOMPARE(studio->ids().size(), 2); // a duplicate
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_S, Qt::ControlModifier);
        QTRY_VERIFY(studio->window->findChild<QFileDialog *>() != nullptr); // asks for a name
        studio->window->findChild<QFileDialog *>()->close();
        activate(*dialog);
        dialog->findChild<QDoubleSpinBox *>(QStringLiteral("rows"))->setFocus();
        // Letters are no tools here, and Del deletes digits.
        const QByteArray tool = studio->editor().tools().chosenId();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_R);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Delete);
        QCOMPARE(studio->editor().tools().chosenId(), tool);
        QCOMPARE(studio->ids().size(), 2);
        dialog->close();
    }

    void lettersOfButtons_areThoseOfTheirWords_onEveryPage()
    {
        QVERIFY(studio->run("create.text"));
        QVERIFY(studio->run("text.settings"));
        QDialog *dialog = shownDialog();
        auto *tabs = dialog->findChild<QTabWidget *>(QStringLiteral("tabs"));
        for (int page = 0; page < tabs->count(); ++page) {
            tabs->setCurrentIndex(page);
            QCoreApplication::processEvents();
            for (const QPushButton *button : dialog->findChildren<QPushButton *>()) {
                if (button->isVisible())
                    QVERIFY2(!button->text().contains(QLatin1Char('(')),
                             qPrintable(button->text()));
            }
            const auto *box = dialog->findChild<QDialogButtonBox *>();
            QVERIFY(box->button(QDialogButtonBox::Ok)->isDefault()); // Return presses it
        }
        dialog->close();
    }

    void okOfManyPages_takesTheLetterThatIsFree()
    {
        QDialog dialog(studio->window.get());
        auto *tabs = new QTabWidget(&dialog);
        auto *rows = new QVBoxLayout(&dialog);
        rows->addWidget(tabs);
        for (const char *label : {"&One", "&King", "Both &O and K"}) {
            auto *page = new QWidget(tabs);
            auto *form = new QFormLayout(page);
            form->addRow(QString::fromLatin1(label), new QLineEdit(page));
            if (label[0] == 'B')
                form->addRow(QStringLiteral("&Keep"), new QLineEdit(page));
            tabs->addTab(page, QString());
        }
        auto *box = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialog);
        rows->addWidget(box);
        dialog.show();
        const auto *ok = box->button(QDialogButtonBox::Ok);
        QTRY_COMPARE(ok->text(), QStringLiteral("O&K"));
        tabs->setCurrentIndex(1);
        QTRY_COMPARE(ok->text(), QStringLiteral("&OK"));
        tabs->setCurrentIndex(2);
        QTRY_COMPARE(ok->text(), QStringLiteral("OK")); // Return is its key
        QCOMPARE(box->button(QDialogButtonBox::Cancel)->text(), QStringLiteral("&Cancel"));
        tabs->setCurrentIndex(0);
        QTRY_COMPARE(ok->text(), QStringLiteral("O&K"));
    }

    void questions_haveTheProgramsTitle()
    {
        studio->addRect(0, 0);
        studio->window->editor().files().session().markChanged();
        QVERIFY(studio->run("file.new"));
        auto *box = studio->window->findChild<QMessageBox *>(QStringLiteral("lossQuestion"));
        QVERIFY(box != nullptr);
        QCOMPARE(box->windowTitle(), QStringLiteral("Studio"));
        checkLetters(*box);
        box->reject();
    }

    // A question with four buttons, in letters so large that they do not stand beside each other.
    void buttons_areNotCutOnASmallScreen()
    {
        const QFont usual = QApplication::font();
        QFont large = usual;
        large.setPointSizeF(30.0);
        QApplication::setFont(large);
        for (int i = 0; i < 12; ++i)
            studio->addRect(100000, i * 30); // all beyond the field: more than are named
        QVERIFY(studio->run("job.export"));
        auto *box = studio->window->findChild<QMessageBox *>(QStringLiteral("jobQuestion"));
        QVERIFY(box != nullptr);
        QVERIFY(QTest::qWaitForWindowExposed(box));
        QCOMPARE(box->buttons().size(), 4);
        checkButtons(*box);
        box->reject();
        QApplication::setFont(usual);
    }

    void fewButtons_standBesideEachOther_unlessThereIsNoRoom()
    {
        QMessageBox box(QMessageBox::Question, QString(), QStringLiteral("Words."),
                        QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel,
                        studio->window.get());
        const auto *row = box.findChild<QDialogButtonBox *>();
        studio::DialogManners::stackButtons(box, 800);
        QCOMPARE(row->orientation(), Qt::Horizontal);
        studio::DialogManners::stackButtons(box, 100);
        QCOMPARE(row->orientation(), Qt::Vertical);
        box.open();
        QVERIFY(QTest::qWaitForWindowExposed(&box));
        checkButtons(box);
    }

private:
    /** Every button has the whole of its text, within its dialog and clear of the others. */
    static void checkButtons(const QMessageBox &box)
    {
        QRegion taken;
        for (const QAbstractButton *button : box.buttons()) {
            const QRect place(button->mapTo(&box, QPoint(0, 0)), button->size());
            QVERIFY2(place.width() >= button->sizeHint().width() &&
                         place.height() >= button->sizeHint().height(),
                     qPrintable(button->text()));
            QVERIFY2(box.rect().contains(place), qPrintable(button->text()));
            QVERIFY2(!taken.intersects(place), qPrintable(button->text()));
            taken += place;
        }
        QVERIFY(box.width() <= box.screen()->availableGeometry().width());
    }

    static QDialog *shownDialog()
    {
        for (QWidget *widget : QApplication::topLevelWidgets()) {
            auto *dialog = qobject_cast<QDialog *>(widget);
            if (dialog != nullptr && dialog->isVisible())
                return dialog;
        }
        return nullptr;
    }

    /** As a window manager does. */
    static void activate(QDialog &dialog)
    {
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        QCoreApplication::processEvents();
        QApplication::setActiveWindow(&dialog);
    }

    /** Buttons that can be seen, each with a letter, no two of them with the same. */
    static void checkLetters(const QDialog &dialog)
    {
        std::set<QString> seen;
        for (const QPushButton *button : dialog.findChildren<QPushButton *>()) {
            if (!button->isVisible() || button->text().isEmpty())
                continue;
            const QString keys = QKeySequence::mnemonic(button->text()).toString();
            QVERIFY2(!keys.isEmpty(), qPrintable(button->text()));
            QVERIFY2(seen.insert(keys).second, qPrintable(button->text()));
        }
        QVERIFY(!seen.empty());
    }

    std::unique_ptr<StudioWindow> studio;
};

int main(int argc, char **argv) { return runTextTest<tst_studio_dialogs>(argc, argv); }
#include "tst_studio_dialogs.moc"
