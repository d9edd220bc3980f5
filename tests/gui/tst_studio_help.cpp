#include "StudioWindow.h"

#include <studio/help/ManualWindow.h>
#include <studio/print/DrawingPrint.h>
#include <studio/print/PrintActions.h>
#include <studio/window/ShortcutSheet.h>

#include <QtCore/QBuffer>
#include <QtCore/QRegularExpression>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QTableWidget>
#include <QtWidgets/QTextBrowser>

/** The manual, the sheet of shortcuts, and the drawing on paper. */
class tst_studio_help : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { studio = std::make_unique<StudioWindow>(); }
    void cleanup() { studio.reset(); }

    void manual_isShownByF1_withItsChapters()
    {
        studio->key(Qt::Key_F1);
        auto *manual = studio->window->findChild<studio::ManualWindow *>();
        QVERIFY(manual != nullptr);
        QVERIFY(manual->isVisible());
        const auto *chapters = manual->findChild<QListWidget *>(QStringLiteral("chapters"));
        QVERIFY(!chapters->findItems(QStringLiteral("Mark paths"), Qt::MatchContains).isEmpty());
    }

    void manual_findsWords_andSaysWhenThereAreNone()
    {
        QVERIFY(studio->run("help.manual"));
        auto *manual = studio->window->findChild<studio::ManualWindow *>();
        auto *words = manual->findChild<QLineEdit *>(QStringLiteral("words"));
        const auto *text = manual->findChild<QTextBrowser *>(QStringLiteral("text"));
        QTest::keyClicks(words, QStringLiteral("recover"));
        QCOMPARE(text->textCursor().selectedText().toLower(), QStringLiteral("recover"));
        const int first = text->textCursor().position();
        QTest::keyClick(words, Qt::Key_Return);
        QVERIFY(text->textCursor().position() > first);
        QTest::keyClicks(words, QStringLiteral("zzzz"));
        QCOMPARE(manual->findChild<QLabel *>(QStringLiteral("found"))->text(),
                 QStringLiteral("Not found"));
    }

    void shortcuts_areThoseOfTheTable_andCanBeSearched()
    {
        QVERIFY(studio->run("help.shortcuts"));
        auto *sheet = studio->window->findChild<studio::ShortcutSheet *>();
        const auto *table = sheet->findChild<QTableWidget *>(QStringLiteral("shortcuts"));
        int expected = 0;
        for (const studio::Command &command : studio::commandTable())
            expected += *command.shortcuts != '\0' ? 1 : 0;
        QCOMPARE(table->rowCount(), expected);
        QTest::keyClicks(sheet->findChild<QLineEdit *>(QStringLiteral("words")),
                         QStringLiteral("Ctrl+Shift+S"));
        int shown = 0;
        for (int row = 0; row < table->rowCount(); ++row)
            shown += table->isRowHidden(row) ? 0 : 1;
        QCOMPARE(shown, 1);
    }

    // 100 x 10 mm with margins of 10 mm; a page is 60 mm high at least.
    void pdf_hasThePageOfTheTrueSize()
    {
        studio->addRect(0, 0);
        studio->addRect(ZTCoord::getInstance()->mm2pix(90.0), 0);
        const studio::DrawingPrint print(studio->document());
        QVERIFY(qAbs(print.boundsMm().width() - 100.0) < 1e-6);
        QVERIFY(qAbs(print.boundsMm().height() - 10.0) < 1e-6);
        QVERIFY(qAbs(print.pageMm().width() - 120.0) < 1e-6);
        QCOMPARE(print.pageMm().height(), 60.0);
        const QString path = studio->path("plate.pdf");
        QVERIFY(studio->window->editor().printing().writePdf(path));
        const QByteArray content = StudioWindow::contentOf(path);
        const QByteArray pdf = content.mid(content.indexOf("/MediaBox"), 80);
        const QRegularExpressionMatch box =
            QRegularExpression(QStringLiteral("MediaBox \\[0 0 ([0-9.]+) ([0-9.]+)\\]"))
                .match(QString::fromLatin1(pdf));
        QVERIFY(box.hasMatch());
        QVERIFY(qAbs(box.captured(1).toDouble() - 120 / 25.4 * 72) < 1.0);
        QVERIFY(qAbs(box.captured(2).toDouble() - 60 / 25.4 * 72) < 1.0);
    }

    void pdf_thatCannotBeWritten_isTold()
    {
        QVERIFY(!studio->window->editor().printing().writePdf(studio->path("empty.pdf")));
        QVERIFY(!QFile::exists(studio->path("empty.pdf")));
        studio->addRect(0, 0);
        QVERIFY(!studio->window->editor().printing().writePdf(studio->path("no/a.pdf")));
        QCOMPARE(studio->messages->failures.size(), 2);
    }

private:
    std::unique_ptr<StudioWindow> studio;
};

QTEST_MAIN(tst_studio_help)
#include "tst_studio_help.moc"
