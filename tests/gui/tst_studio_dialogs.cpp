#include "TextWindow.h"

#include <studio/drawing/DrawingFiles.h>
#include <studio/preferences/PreferenceTools.h>
#include <studio/window/DialogManners.h>

#include <QtGui/QKeySequence>
#include <QtWidgets/QDialog>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSpinBox>

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
        checkLetters(*dialog);
        edit.language = studio::LanguageChoice::English;
        studio->window->preferences().apply(edit);
        QTRY_COMPARE(dialog->windowTitle(), QStringLiteral("Matrix"));
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
        auto *rows = dialog->findChild<QSpinBox *>(QStringLiteral("rows"));
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

private:
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
