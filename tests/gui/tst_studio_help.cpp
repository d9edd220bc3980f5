#include "StudioWindow.h"

#include <studio/help/DocumentationWindow.h>
#include <studio/help/ManualWindow.h>
#include <studio/print/DrawingPrint.h>
#include <studio/print/PrintActions.h>
#include <studio/window/ShortcutSheet.h>

#include <QtCore/QBuffer>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QLibraryInfo>
#include <QtCore/QProcess>
#include <QtCore/QRegularExpression>
#include <QtGui/QImage>
#include <QtGui/QTextBlock>
#include <QtGui/QTextDocument>
#include <QtWidgets/QAbstractItemView>
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

    void manual_isThatOfTheLanguage_andKeepsItsChapter()
    {
        QVERIFY(studio->run("help.manual"));
        auto *manual = studio->window->findChild<studio::ManualWindow *>();
        auto *chapters = manual->findChild<QListWidget *>(QStringLiteral("chapters"));
        const auto *text = manual->findChild<QTextBrowser *>(QStringLiteral("text"));
        const QStringList english = namesOf(*chapters);
        chapters->setCurrentItem(
            chapters->findItems(QStringLiteral("Exact values"), Qt::MatchContains).first());
        const int chapter = chapters->currentRow();
        chooseLanguage("chinese");
        const QStringList chinese = namesOf(*chapters);
        QCOMPARE(chinese.size(), english.size());
        QCOMPARE(chapters->currentRow(), chapter);
        QCOMPARE(chapters->currentItem()->text().trimmed(), QStringLiteral("精确数值"));
        QVERIFY(text->textCursor().block().text().contains(QStringLiteral("精确数值")));
        // No blank stands where the file only ends a line.
        QVERIFY(
            !text->toPlainText().contains(QRegularExpression(QStringLiteral("\\p{Han} \\p{Han}"))));
        chooseLanguage("english");
        QCOMPARE(namesOf(*chapters), english);
        QVERIFY(text->toPlainText().contains(QStringLiteral("status bar")));
    }

    /** Pictures of the window in the reader's own language, none wider than the page. */
    void manual_hasItsPictures_inItsLanguage()
    {
        QVERIFY(studio->run("help.manual"));
        auto *manual = studio->window->findChild<studio::ManualWindow *>();
        auto *text = manual->findChild<QTextBrowser *>(QStringLiteral("text"));
        for (const char *language : {"english", "chinese"}) {
            chooseLanguage(language);
            const QString prefix = QStringLiteral("images/manual-%1-")
                                       .arg(QLatin1String(language[0] == 'e' ? "en" : "zh"));
            const QStringList names = picturesIn(*text->document());
            QCOMPARE(names.size(), 5);
            for (const QString &name : names) {
                QVERIFY2(name.startsWith(prefix), qPrintable(name));
                const QImage image = text->document()
                                         ->resource(QTextDocument::ImageResource, QUrl(name))
                                         .value<QImage>();
                QVERIFY2(image.width() >= 250, qPrintable(name));
                QVERIFY2(image.width() <= 600, qPrintable(name));
            }
        }
        chooseLanguage("english");
    }

    void documentation_comesFromTheHelpMenu_once()
    {
        QVERIFY(studio->run("help.documentation"));
        auto *pages = studio->window->findChild<studio::DocumentationWindow *>();
        QVERIFY(pages != nullptr);
        QVERIFY(pages->isVisible());
        QVERIFY(studio->run("help.documentation"));
        QCOMPARE(studio->window->findChildren<studio::DocumentationWindow *>().size(), 1);
        QVERIFY(studio->messages->failures.isEmpty());
    }

    void documentation_thatIsNotInstalled_saysHowToGetIt()
    {
        for (const QString &file : {QString(), studio->path("none.qch")}) {
            studio::DocumentationWindow pages(file);
            pages.show();
            QVERIFY(!pages.hasPages());
            const auto *text = pages.findChild<QTextBrowser *>(QStringLiteral("text"));
            QVERIFY(text->toPlainText().contains(QStringLiteral("libztdrawengine-doc")));
            chooseLanguage("chinese");
            QVERIFY(text->toPlainText().contains(QStringLiteral("未安装")));
            chooseLanguage("english");
        }
    }

    void documentation_showsItsFirstPage_andWhatTheIndexFinds()
    {
        const QString file = makeHelp();
        QVERIFY(!file.isEmpty());
        studio::DocumentationWindow pages(file);
        pages.show();
        QVERIFY(pages.hasPages());
        const auto *text = pages.findChild<QTextBrowser *>(QStringLiteral("text"));
        QVERIFY(text->toPlainText().contains(QStringLiteral("first page")));
        auto *index = pages.findChild<QAbstractItemView *>(QStringLiteral("index"));
        QTRY_COMPARE(index->model()->rowCount(), 3);
        auto *words = pages.findChild<QLineEdit *>(QStringLiteral("words"));
        QTest::keyClicks(words, QStringLiteral("ZTC"));
        QCOMPARE(index->model()->rowCount(), 1);
        QTest::keyClick(words, Qt::Key_Return);
        QVERIFY(text->toPlainText().contains(QStringLiteral("millimetres and pixels")));
        // A name of two pages: a list of both.
        words->clear();
        QTest::keyClicks(words, QStringLiteral("Units"));
        QTest::keyClick(words, Qt::Key_Return);
        QVERIFY2(text->toPlainText().startsWith(QStringLiteral("Units\n")),
                 qPrintable(text->toPlainText()));
        QVERIFY(text->toHtml().contains(QStringLiteral("index.html")));
        QVERIFY(text->toHtml().contains(QStringLiteral("coord.html")));
    }

    void documentation_isLookedForWhereItIsInstalledAndWhereItIsBuilt()
    {
        const QDir root(studio->path("tree"));
        for (const char *folder :
             {"usr/bin", "usr/share/doc/libztdrawengine-doc", "build/docs", "build/dev/bin"})
            QVERIFY(root.mkpath(QLatin1String(folder)));
        QCOMPARE(studio::documentationFile(root.filePath(QStringLiteral("usr/bin"))), QString());
        const QString name = QStringLiteral("/ztdrawengine.qch");
        const QString installed =
            root.filePath(QStringLiteral("usr/share/doc/libztdrawengine-doc")) + name;
        const QString built = root.filePath(QStringLiteral("build/docs")) + name;
        write(installed, "installed");
        write(built, "built");
        QCOMPARE(studio::documentationFile(root.filePath(QStringLiteral("usr/bin"))),
                 QFileInfo(installed).canonicalFilePath());
        QCOMPARE(studio::documentationFile(root.filePath(QStringLiteral("build/dev/bin"))),
                 QFileInfo(built).canonicalFilePath());
    }

    /** A manual that says less in one language would leave its readers alone. */
    void manuals_haveTheSamePlan()
    {
        const QStringList english = planOf(QStringLiteral(":/studio/user-manual.md"));
        const QStringList chinese = planOf(QStringLiteral(":/studio/user-manual.zh.md"));
        QVERIFY(english.size() > 150);
        for (int i = 0; i < qMin(english.size(), chinese.size()); ++i)
            QCOMPARE(chinese[i], english[i]);
        QCOMPARE(chinese.size(), english.size());
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
    static QStringList picturesIn(const QTextDocument &document)
    {
        QStringList names;
        for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
            for (auto part = block.begin(); !part.atEnd(); ++part) {
                if (part.fragment().charFormat().isImageFormat())
                    names << part.fragment().charFormat().toImageFormat().name();
            }
        }
        return names;
    }

    static QStringList namesOf(const QListWidget &list)
    {
        QStringList names;
        for (int row = 0; row < list.count(); ++row)
            names << list.item(row)->text();
        return names;
    }

    static void write(const QString &path, const QByteArray &content)
    {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(content), static_cast<qint64>(content.size()));
    }

    /** A help of two pages, as the documentation's is made; empty where it cannot be. */
    QString makeHelp()
    {
        write(studio->path("index.html"),
              "<html><head><title>Start</title></head><body><p>The first page</p></body></html>");
        write(studio->path("coord.html"), "<html><head><title>Coord</title></head><body><p>Between "
                                          "millimetres and pixels</p></body></html>");
        write(studio->path("help.qhp"),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>"
              "<QtHelpProject version=\"1.0\"><namespace>a.help</namespace>"
              "<virtualFolder>doc</virtualFolder><filterSection>"
              "<toc><section title=\"Help\" ref=\"index.html\"/></toc><keywords>"
              "<keyword name=\"Start\" id=\"Start\" ref=\"index.html\"/>"
              "<keyword name=\"Units\" id=\"Start::Units\" ref=\"index.html\"/>"
              "<keyword name=\"Units\" id=\"ZTCoord::Units\" ref=\"coord.html\"/>"
              "<keyword name=\"ZTCoord\" id=\"ZTCoord\" ref=\"coord.html\"/></keywords>"
              "<files><file>index.html</file><file>coord.html</file></files>"
              "</filterSection></QtHelpProject>");
        const QString made = studio->path("help.qch");
        const int result = QProcess::execute(
            QLibraryInfo::location(QLibraryInfo::BinariesPath) + QStringLiteral("/qhelpgenerator"),
            {studio->path("help.qhp"), QStringLiteral("-o"), made, QStringLiteral("-s")});
        return result == 0 && QFile::exists(made) ? made : QString();
    }

    void chooseLanguage(const char *name)
    {
        studio->window->findChild<QAction *>(QStringLiteral("language.") + QLatin1String(name))
            ->trigger();
        QCoreApplication::processEvents();
    }

    /** Headings, rows of tables, points of lists and commands of a manual, without their words. */
    static QStringList planOf(const QString &path)
    {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            return {};
        QStringList plan;
        bool isCode = false;
        for (const QString &line : QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'))) {
            const bool isFence = line.startsWith(QLatin1String("```"));
            if (isFence || isCode)
                plan << line;
            else if (line.startsWith(QLatin1Char('#')))
                plan << line.left(line.indexOf(QLatin1Char(' ')));
            else if (line.startsWith(QLatin1Char('|')))
                plan << QStringLiteral("row of %1").arg(line.count(QLatin1Char('|')));
            else if (line.startsWith(QLatin1String("![")))
                plan << QStringLiteral("picture");
            else if (line.startsWith(QLatin1String("- ")))
                plan << QStringLiteral("point");
            isCode = isCode != isFence;
        }
        return plan;
    }

    std::unique_ptr<StudioWindow> studio;
};

QTEST_MAIN(tst_studio_help)
#include "tst_studio_help.moc"
