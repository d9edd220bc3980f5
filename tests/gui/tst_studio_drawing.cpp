#include "StudioWindow.h"

#include <studio/drawing/DrawingFiles.h>
#include <studio/drawing/RecentDrawings.h>
#include <studio/drawing/RecentMenu.h>
#include <studio/window/OrderMenu.h>

#include <QtCore/QThreadPool>
#include <QtCore/QTimer>
#include <QtCore/QUrl>
#include <QtTest/QSignalSpy>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QProgressDialog>
#include <QtWidgets/QPushButton>

#include <future>

#include <sys/stat.h>

using studio::RecentDrawings;

/** Drawings as files: everything that the file menu does with them. */
class tst_studio_drawing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { studio = std::make_unique<StudioWindow>(); }
    void cleanup() { studio.reset(); }

    void freshDrawing_ctrlS_asksForAName()
    {
        studio->run("create.rectangle");
        QCOMPARE(title(), QStringLiteral("Unnamed* - Studio"));
        studio->key(Qt::Key_S, Qt::ControlModifier);
        chooseFile("saveDialog", studio->path("plate"));
        QVERIFY(QFile::exists(studio->path("plate.ztd")));
        QCOMPARE(title(), QStringLiteral("plate.ztd - Studio"));
        QCOMPARE(studio->window->windowFilePath(), studio->path("plate.ztd"));
        QCOMPARE(RecentDrawings::paths(), QStringList{studio->path("plate.ztd")});
        QVERIFY(studio->messages->failures.isEmpty());
    }

    void savedDrawing_ctrlS_savesWithoutAQuestion()
    {
        const QString path = saveAs("plate.ztd", 1);
        const QByteArray before = StudioTest::contentOf(path);
        studio->run("create.rectangle");
        QCOMPARE(title(), QStringLiteral("plate.ztd* - Studio"));
        studio->key(Qt::Key_S, Qt::ControlModifier);
        QVERIFY(studio->window->findChild<QFileDialog *>() == nullptr);
        QCOMPARE(title(), QStringLiteral("plate.ztd - Studio"));
        QVERIFY(StudioTest::contentOf(path) != before);
    }

    void undoBackToWhatWasSaved_takesTheMarkAway()
    {
        saveAs("plate.ztd", 1);
        studio->run("create.rectangle");
        QVERIFY(studio->window->isWindowModified());
        studio->key(Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(!studio->window->isWindowModified());
        studio->key(Qt::Key_Z, Qt::ControlModifier);
        QVERIFY(studio->window->isWindowModified());
    }

    void saveAs_leavesTheOldFileAndGoesOnWithTheNew()
    {
        const QString first = saveAs("first.ztd", 1);
        const QByteArray before = StudioTest::contentOf(first);
        studio->run("create.rectangle");
        studio->key(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
        chooseFile("saveDialog", studio->path("second.ztd"));
        QCOMPARE(StudioTest::contentOf(first), before);
        QCOMPARE(files().session().path(), studio->path("second.ztd"));
        QCOMPARE(RecentDrawings::paths(), (QStringList{studio->path("second.ztd"), first}));
    }

    void nameWithoutTheExtension_getsIt_andReplacesNothingUnasked()
    {
        studio->run("create.rectangle");
        const QString path = studio->write("plate.v2.ztd", "old");
        studio->key(Qt::Key_S, Qt::ControlModifier);
        chooseFile("saveDialog", studio->path("plate.v2"));
        click("replaceQuestion", QMessageBox::Cancel);
        QCOMPARE(StudioTest::contentOf(path), QByteArray("old"));
        studio->key(Qt::Key_S, Qt::ControlModifier);
        chooseFile("saveDialog", studio->path("plate.v2"));
        clickRole("replaceQuestion", QMessageBox::DestructiveRole);
        QVERIFY(files().load(path));
        QVERIFY(!QFile::exists(studio->path("plate.v2")));
    }

    void nameWithTheSignOfTheMark_standsInTheTitleAsItIs()
    {
        saveAs("a[*]b.ztd", 1);
        QCOMPARE(title(), QStringLiteral("a[*]b.ztd - Studio"));
    }

    void openedDrawing_isTheSavedOne()
    {
        for (const char *id :
             {"create.rectangle", "create.ellipse", "create.polygon", "create.line"})
            studio->run(id);
        studio->edit().rotate(30.0);
        const DrawingSnapshot drawn = studio->snapshot();
        QVERIFY(files().saveTo(studio->path("all.ztd")));
        studio->run("file.new");
        QVERIFY(studio->ids().isEmpty());
        QCOMPARE(title(), QStringLiteral("Unnamed - Studio"));

        studio->key(Qt::Key_O, Qt::ControlModifier);
        chooseFile("openDialog", studio->path("all.ztd"));
        const DrawingSnapshot opened = studio->snapshot();
        QCOMPARE(opened.mark, drawn.mark);
        QCOMPARE(opened.rows, drawn.rows);
        QCOMPARE(title(), QStringLiteral("all.ztd - Studio"));
        QCOMPARE(studio->stack().count(), 0);
        const auto *tree = studio->window->findChild<ZTObjectTreeWidget *>();
        QCOMPARE(tree->model()->headerData(0, Qt::Horizontal).toString(), QStringLiteral("id"));
        studio->key(Qt::Key_A, Qt::ControlModifier);
        studio->key(Qt::Key_Right);
        QVERIFY(studio->window->isWindowModified());
    }

    void openingAfterAChange_savesDiscardsOrStays_data()
    {
        QTest::addColumn<int>("answer");
        QTest::newRow("save") << int(QMessageBox::Save);
        QTest::newRow("discard") << int(QMessageBox::Discard);
        QTest::newRow("cancel") << int(QMessageBox::Cancel);
    }

    void openingAfterAChange_savesDiscardsOrStays()
    {
        QFETCH(int, answer);
        const QString other = saveAs("other.ztd", 3);
        files().startNew();
        const QString path = saveAs("plate.ztd", 1);
        const QByteArray before = StudioTest::contentOf(path);
        studio->run("create.rectangle");
        files().open(other);
        QCOMPARE(question("lossQuestion")->text(),
                 QStringLiteral("Save the changes to \"plate.ztd\"?"));
        click("lossQuestion", QMessageBox::StandardButton(answer));
        const bool isStaying = answer == QMessageBox::Cancel;
        QCOMPARE(studio->ids().size(), isStaying ? 2 : 3);
        QCOMPARE(files().session().path(), isStaying ? path : other);
        QCOMPARE(StudioTest::contentOf(path) != before, answer == QMessageBox::Save);
    }

    void savingBeforeOpening_withTheNameRefused_staysWithTheDrawing()
    {
        const QString other = saveAs("other.ztd", 3);
        files().startNew();
        studio->run("create.rectangle");
        files().open(other);
        click("lossQuestion", QMessageBox::Save);
        auto *dialog = studio->window->findChild<QFileDialog *>(QStringLiteral("saveDialog"));
        QVERIFY(dialog != nullptr);
        QTest::keyClick(dialog, Qt::Key_Escape);
        QCOMPARE(studio->ids().size(), 1);
        QVERIFY(studio->window->isWindowModified());
    }

    void closing_withoutAChange_asksNothing()
    {
        saveAs("plate.ztd", 1);
        studio->window->close();
        QVERIFY(!studio->window->isVisible());
    }

    void closing_withAChange_savesDiscardsOrStays_data()
    {
        openingAfterAChange_savesDiscardsOrStays_data();
    }

    void closing_withAChange_savesDiscardsOrStays()
    {
        QFETCH(int, answer);
        const QString path = saveAs("plate.ztd", 1);
        const QByteArray before = StudioTest::contentOf(path);
        studio->run("create.rectangle");
        studio->key(Qt::Key_Q, Qt::ControlModifier);
        QVERIFY(studio->window->isVisible());
        click("lossQuestion", QMessageBox::StandardButton(answer));
        QCOMPARE(studio->window->isVisible(), answer == QMessageBox::Cancel);
        QCOMPARE(StudioTest::contentOf(path) != before, answer == QMessageBox::Save);
    }

    void closing_afterACancelledQuestion_asksAgain()
    {
        studio->run("create.rectangle");
        for (int i = 0; i < 2; ++i) {
            studio->window->close();
            click("lossQuestion", QMessageBox::Cancel);
            QVERIFY(studio->window->isVisible());
        }
    }

    void damagedFile_isNamedAndChangesNothing_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QString>("reason");
        QTest::newRow("other") << QByteArray("PU0 0;\nPD9 9;\n")
                               << QStringLiteral("The file is no drawing of the studio");
        QTest::newRow("empty") << QByteArray()
                               << QStringLiteral("The file is no drawing of the studio: it is "
                                                 "empty");
        QTest::newRow("short") << QByteArray("\x89ZTD\r\n\x1a\n", 8)
                               << QStringLiteral("The file is damaged");
    }

    void damagedFile_isNamedAndChangesNothing()
    {
        QFETCH(QByteArray, content);
        QFETCH(QString, reason);
        const QString path = saveAs("plate.ztd", 2);
        const DrawingSnapshot before = studio->snapshot();
        files().open(studio->write("bad.ztd", content));
        QCOMPARE(studio->messages->failures.size(), 1);
        QCOMPARE(studio->messages->failures.first().what,
                 QStringLiteral("\"bad.ztd\" was not opened."));
        const QString why = studio->messages->failures.first().why;
        QVERIFY2(why.startsWith(reason), qPrintable(why));
        COMPARE_DRAWINGS(studio->snapshot(), before);
        QCOMPARE(files().session().path(), path);
        QCOMPARE(studio->stack().count(), 2);
        QVERIFY(!studio->window->isWindowModified());
    }

    void everyBitOfAFile_decides()
    {
        const QString path = saveAs("plate.ztd", 1);
        QByteArray bytes = StudioTest::contentOf(path);
        for (int at = 0; at < bytes.size(); at += 97) {
            bytes[at] = static_cast<char>(bytes[at] ^ 0x10);
            QVERIFY(!files().load(studio->write("bad.ztd", bytes)));
            bytes[at] = static_cast<char>(bytes[at] ^ 0x10);
        }
        QVERIFY(files().load(studio->write("bad.ztd", bytes)));
    }

    void fileThatIsGone_isNamedAndForgotten()
    {
        const QString path = saveAs("plate.ztd", 1);
        QVERIFY(QFile::remove(path));
        files().open(path);
        QVERIFY(studio->messages->failures.first().why.contains(QStringLiteral("no such file")));
        QVERIFY(RecentDrawings::paths().isEmpty());
        QCOMPARE(studio->ids().size(), 1);
    }

    void revert_asksAndGoesBackToTheFile()
    {
        QVERIFY(!studio->isEnabled("file.revert"));
        saveAs("plate.ztd", 2);
        QVERIFY(!studio->isEnabled("file.revert"));
        studio->run("create.rectangle");
        QVERIFY(studio->run("file.revert"));
        click("revertQuestion", QMessageBox::Cancel);
        QCOMPARE(studio->ids().size(), 3);
        QVERIFY(studio->run("file.revert"));
        clickRole("revertQuestion", QMessageBox::DestructiveRole);
        QCOMPARE(studio->ids().size(), 2);
        QVERIFY(!studio->window->isWindowModified());
        QVERIFY(!studio->isEnabled("file.revert"));
    }

    void recentMenu_opensWhatItNames()
    {
        saveAs("first.ztd", 1);
        saveAs("second.ztd", 1);
        auto *menu = studio->window->findChild<studio::RecentMenu *>();
        Q_EMIT menu->aboutToShow();
        QCOMPARE(menu->actions().at(1)->text(), QStringLiteral("&2 first.ztd"));
        menu->actions().at(1)->trigger();
        QCOMPARE(title(), QStringLiteral("first.ztd - Studio"));
        QCOMPARE(RecentDrawings::paths().first(), studio->path("first.ztd"));
    }

    void droppedDrawing_isOpened_afterTheQuestion()
    {
        const QString path = saveAs("plate.ztd", 2);
        files().startNew();
        studio->run("create.rectangle");
        QVERIFY(drop({path}));
        click("lossQuestion", QMessageBox::Discard);
        QCOMPARE(studio->ids().size(), 2);
        QCOMPARE(title(), QStringLiteral("plate.ztd - Studio"));
    }

    void droppedDrawings_theFirstIsOpened_plotterFilesComeIntoIt()
    {
        const QString first = saveAs("first.ztd", 2);
        const QString second = saveAs("second.ztd", 3);
        const QString plot = studio->write("t.plt", "PU0 0;\nPD400 0;\nPD200 200;\n");
        files().startNew();
        QVERIFY(drop({plot, first, second}));
        auto *dialog = studio->window->findChild<QDialog *>(QStringLiteral("importDialog"));
        QVERIFY(dialog != nullptr);
        auto *buttons = dialog->findChild<QDialogButtonBox *>();
        QTest::mouseClick(buttons->button(QDialogButtonBox::Ok), Qt::LeftButton);
        QCOMPARE(studio->ids().size(), 3);
        QCOMPARE(title(), QStringLiteral("first.ztd* - Studio"));
        QCOMPARE(studio->messages->warnings.size(), 1);
        QVERIFY(studio->messages->warnings.first().why.contains(QStringLiteral("second.ztd")));
    }

    void drawing_isKnownByItsBeginning_whateverItsName()
    {
        const QString path = saveAs("plate.ztd", 1);
        QVERIFY(QFile::copy(path, studio->path("plate.backup")));
        QVERIFY(studio::DrawingFiles::isDrawing(studio->path("plate.backup")));
        QVERIFY(studio::DrawingFiles::isDrawing(QStringLiteral("/none/OLD.ZTD")));
        QVERIFY(!studio::DrawingFiles::isDrawing(studio->write("t.plt", "PU0 0;\n")));
        QVERIFY(!studio::DrawingFiles::isDrawing(QStringLiteral("/none/a.plt")));
        QVERIFY(!studio::DrawingFiles::isDrawing(QDir::tempPath()));
    }

    void fileChangedByAnother_isOverwrittenOnlyOnDemand()
    {
        const QString path = saveAs("plate.ztd", 1);
        studio->run("create.rectangle");
        studio->write("plate.ztd", "someone else's");
        studio->key(Qt::Key_S, Qt::ControlModifier);
        click("overwriteQuestion", QMessageBox::Cancel);
        QCOMPARE(StudioTest::contentOf(path), QByteArray("someone else's"));
        QVERIFY(studio->window->isWindowModified());

        studio->key(Qt::Key_S, Qt::ControlModifier);
        clickRole("overwriteQuestion", QMessageBox::AcceptRole);
        chooseFile("saveDialog", studio->path("mine.ztd"));
        QCOMPARE(StudioTest::contentOf(path), QByteArray("someone else's"));
        QCOMPARE(title(), QStringLiteral("mine.ztd - Studio"));

        studio->run("create.rectangle");
        studio->write("mine.ztd", "once more");
        studio->key(Qt::Key_S, Qt::ControlModifier);
        clickRole("overwriteQuestion", QMessageBox::DestructiveRole);
        QVERIFY(files().load(studio->path("mine.ztd")));
        QCOMPARE(studio->ids().size(), 3);
    }

    void fileRemovedByAnother_isSavedAgain()
    {
        const QString path = saveAs("plate.ztd", 1);
        QVERIFY(QFile::remove(path));
        studio->run("create.rectangle");
        studio->key(Qt::Key_S, Qt::ControlModifier);
        QVERIFY(QFile::exists(path));
        QVERIFY(studio->messages->failures.isEmpty());
    }

    void fileThatCannotBeWritten_isNamed_andTheDrawingStaysModified()
    {
        studio->run("create.rectangle");
        QVERIFY(!files().saveTo(studio->path("no/such/folder/a.ztd")));
        QCOMPARE(studio->messages->failures.size(), 1);
        QCOMPARE(studio->messages->failures.first().what,
                 QStringLiteral("\"a.ztd\" was not saved."));
        QVERIFY(studio->window->isWindowModified());
        QVERIFY(files().session().path().isEmpty());
        QVERIFY(RecentDrawings::paths().isEmpty());
    }

    void whatIsNoOrdinaryFile_isNotReplacedByOne()
    {
        studio->run("create.rectangle");
        const QString pipe = studio->path("pipe.ztd");
        QCOMPARE(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
        QVERIFY(!files().saveTo(pipe));
        QVERIFY(!QFileInfo(pipe).isFile());
        QVERIFY(!files().load(pipe));
        QVERIFY(QDir().mkdir(studio->path("folder.ztd")));
        QVERIFY(!files().saveTo(studio->path("folder.ztd")));
        QCOMPARE(studio->messages->failures.size(), 3);
        QVERIFY(studio->window->isWindowModified());
    }

    void sectionsOfOthers_areKeptThroughASave()
    {
        const QString path = saveAs("plate.ztd", 1);
        hostkit::DrawingFile file;
        hostkit::Failure error;
        QVERIFY(hostkit::readDrawing(path, &file, &error));
        file.extras.sections << hostkit::DrawingSection{QByteArrayLiteral("abcd"),
                                                        QByteArrayLiteral("of others")};
        QVERIFY(hostkit::writeDrawing(file, path, &error));
        QVERIFY(files().load(path));
        studio->run("create.rectangle");
        studio->key(Qt::Key_S, Qt::ControlModifier);
        QVERIFY(hostkit::readDrawing(path, &file, &error));
        QCOMPARE(file.extras.sections.size(), 1);
        QCOMPARE(file.extras.sections.first().bytes, QByteArrayLiteral("of others"));
        files().startNew();
        QVERIFY(files().saveTo(studio->path("new.ztd")));
        QVERIFY(hostkit::readDrawing(studio->path("new.ztd"), &file, &error));
        QVERIFY(file.extras.sections.isEmpty());
    }

    void missingFonts_areNamed_andTheDrawingIsOpenAllTheSame()
    {
        auto *text = qobject_cast<ZTGraphicsTextItem *>(
            studio->document().itemMag()->addShape(ShapeType::Text, {0, 0, 10, 10}));
        text->setText(QStringLiteral("AB"));
        text->setFont(QFont(QStringLiteral("No Such Family")));
        const QString path = saveAs("text.ztd", 1);
        files().startNew();
        QVERIFY(files().load(path));
        // A text begins in a stroke font, and there is none beside the tests.
        for (const QString &said : studio->takeWarnings())
            QVERIFY2(said.startsWith(QStringLiteral("ShxFont")), qPrintable(said));
        QCOMPARE(studio->ids().size(), 2);
        QCOMPARE(studio->messages->warnings.size(), 1);
        QCOMPARE(studio->messages->warnings.first().what,
                 QStringLiteral("Fonts of \"text.ztd\" are missing."));
        QVERIFY(studio->messages->warnings.first().why.contains(
            QStringLiteral("differently here: No Such Family. ")));
    }

    void orderOfMarking_belongsToTheDrawing()
    {
        auto *menu = studio->window->findChild<studio::OrderMenu *>();
        studio->run("create.rectangle");
        saveAs("plate.ztd", 0);
        menu->actions().at(2)->trigger();
        QVERIFY(studio->window->isWindowModified());
        QVERIFY(files().saveTo(studio->path("ordered.ztd")));
        QVERIFY(files().load(studio->path("plate.ztd")));
        QVERIFY(menu->actions().at(0)->isChecked());
        QVERIFY(files().load(studio->path("ordered.ztd")));
        QVERIFY(menu->actions().at(2)->isChecked());
        QVERIFY(files().load(studio->path("plate.ztd")));
        // A new drawing is marked in the order that the user chose last.
        studio->run("file.new");
        QVERIFY(menu->actions().at(2)->isChecked());
        QVERIFY(ZTPointSort::getInstance()->getShapeMarkSort() ==
                EShapeSortType::ShapeSortXFromMin);
        QVERIFY(!studio->window->isWindowModified());
    }

    void newDrawing_hasTheFirstFieldAgain()
    {
        const hostkit::DrawingSetup first = hostkit::DrawingSetup::of(studio->document());
        studio->run("create.rectangle");
        const QString path = saveAs("plate.ztd", 0);
        hostkit::DrawingFile file;
        hostkit::Failure error;
        QVERIFY(hostkit::readDrawing(path, &file, &error));
        file.meta.setup.workAreaMm = QRect(-50, -50, 100, 100);
        QVERIFY(hostkit::writeDrawing(file, path, &error));
        QVERIFY(files().load(path));
        QVERIFY(hostkit::DrawingSetup::of(studio->document()) != first);
        studio->run("file.new");
        QVERIFY(hostkit::DrawingSetup::of(studio->document()) == first);
    }

    void loading_canBeCancelled_andLeavesTheOpenDrawing()
    {
        for (int i = 0; i < 2000; ++i)
            studio->addRect(i % 50, i / 50);
        const QString large = saveAs("large.ztd", 1);
        files().startNew();
        const QString path = saveAs("small.ztd", 2);
        const DrawingSnapshot before = studio->snapshot();
        files().setQuietMs(0);
        int cancelled = 0;
        QTimer canceller;
        connect(&canceller, &QTimer::timeout, this, [&] {
            auto *progress = studio->window->findChild<QProgressDialog *>();
            if (progress == nullptr || progress->maximum() == 0 || cancelled > 0)
                return;
            ++cancelled;
            // Nothing else can begin meanwhile.
            QVERIFY(files().isBusy());
            QVERIFY(!files().load(path));
            QVERIFY(!files().saveTo(path));
            QVERIFY(!studio->window->close());
            QTest::mouseClick(progress->findChild<QPushButton *>(), Qt::LeftButton);
        });
        canceller.start(0);
        QVERIFY(!files().load(large));
        QCOMPARE(cancelled, 1);
        COMPARE_DRAWINGS(studio->snapshot(), before);
        QCOMPARE(files().session().path(), path);
        QVERIFY(studio->messages->failures.isEmpty());
        QVERIFY(studio->window->findChild<QProgressDialog *>() == nullptr);
        canceller.stop();
        QVERIFY(files().load(large));
        QCOMPARE(studio->ids().size(), 2001);
    }

    void editDuringASlowSave_isNotSaved()
    {
        const QString path = saveAs("slow.ztd", 1);
        QVERIFY(studio->run("create.ellipse"));
        files().setQuietMs(0);
        std::promise<void> mayWrite;
        const std::shared_future<void> writing = mayWrite.get_future().share();
        // The save waits behind other work in a pool of one thread.
        QThreadPool &pool = *QThreadPool::globalInstance();
        const int threads = pool.maxThreadCount();
        pool.setMaxThreadCount(1);
        pool.start([writing] { writing.wait(); });
        bool isEdited = false;
        QTimer editor;
        connect(&editor, &QTimer::timeout, this, [&] {
            auto *progress = studio->window->findChild<QProgressDialog *>();
            if (progress == nullptr || isEdited)
                return;
            isEdited = true;
            QTest::keyClick(progress, Qt::Key_Escape);
            QVERIFY(progress->isVisible());
            studio->edit().create(ShapeType::Line);
            mayWrite.set_value();
        });
        editor.start(0);
        QVERIFY(files().saveTo(path));
        editor.stop();
        pool.setMaxThreadCount(threads);
        QVERIFY(isEdited);
        QCOMPARE(title(), QStringLiteral("slow.ztd* - Studio"));
        QVERIFY(files().session().isModified());

        const DrawingSnapshot edited = studio->snapshot();
        QVERIFY(files().saveTo(path));
        QCOMPARE(title(), QStringLiteral("slow.ztd - Studio"));
        QVERIFY(files().load(path));
        QCOMPARE(studio->snapshot().mark, edited.mark);
    }

private:
    studio::DrawingFiles &files() { return studio->window->editor().files(); }

    /** The title as the window system shows it. */
    QString title() const
    {
        QString text = studio->window->windowTitle();
        const QString twice = QStringLiteral("[*][*]");
        const QString kept = QString(QChar(1));
        text.replace(twice, kept);
        text.replace(QStringLiteral("[*]"),
                     studio->window->isWindowModified() ? QStringLiteral("*") : QString());
        return text.replace(kept, QStringLiteral("[*]"));
    }

    /** Adds rectangles and saves the drawing; its path. */
    QString saveAs(const char *name, int rectangles)
    {
        for (int i = 0; i < rectangles; ++i)
            studio->run("create.rectangle");
        if (!files().saveTo(studio->path(name)))
            qFatal("a drawing cannot be saved");
        return studio->path(name);
    }

    /** Types a name into the file dialog on screen, and Return. */
    void chooseFile(const char *dialogName, const QString &path)
    {
        auto *dialog = studio->window->findChild<QFileDialog *>(QLatin1String(dialogName));
        QVERIFY2(dialog != nullptr, dialogName);
        auto *edit = dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"));
        // Without the keyboard the dialog would go on filling in names by itself.
        dialog->activateWindow();
        edit->setFocus();
        QTRY_VERIFY(edit->hasFocus());
        edit->selectAll();
        QTest::keyClicks(edit, path);
        QCOMPARE(edit->text(), path);
        QTest::keyClick(edit, Qt::Key_Return);
        closed();
        QVERIFY(studio->window->findChild<QFileDialog *>(QLatin1String(dialogName)) == nullptr);
    }

    /** After a dialog: it goes, and the window has the keyboard again. */
    void closed()
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        studio->window->activateWindow();
        QCoreApplication::processEvents();
    }

    QMessageBox *question(const char *name) const
    {
        auto *box = studio->window->findChild<QMessageBox *>(QLatin1String(name));
        if (box == nullptr)
            qFatal("the question %s is not asked", name);
        return box;
    }

    void press(QMessageBox *box, QAbstractButton *button)
    {
        QVERIFY(button != nullptr);
        const QPointer<QMessageBox> asked(box);
        QTest::mouseClick(button, Qt::LeftButton);
        QVERIFY(!asked || !asked->isVisible());
        closed();
    }

    void click(const char *name, QMessageBox::StandardButton answer)
    {
        press(question(name), question(name)->button(answer));
    }

    void clickRole(const char *name, QMessageBox::ButtonRole role)
    {
        for (QAbstractButton *button : question(name)->buttons()) {
            if (question(name)->buttonRole(button) == role) {
                press(question(name), button);
                return;
            }
        }
        QFAIL("no such answer");
    }

    bool drop(const QStringList &paths)
    {
        QList<QUrl> urls;
        for (const QString &path : paths)
            urls << QUrl::fromLocalFile(path);
        QMimeData data;
        data.setUrls(urls);
        return studio->drop(data, QPoint(200, 200));
    }

    std::unique_ptr<StudioWindow> studio;
};

QTEST_MAIN(tst_studio_drawing)
#include "tst_studio_drawing.moc"
