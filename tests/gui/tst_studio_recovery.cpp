#include "TextWindow.h"

#include "unit/studio/RecoveryFolder.h"

#include <studio/drawing/CrashGuard.h>
#include <studio/drawing/DrawingFiles.h>
#include <studio/drawing/RecoveryDialog.h>
#include <studio/drawing/RecoveryStore.h>
#include <studio/import/ImportDialog.h>
#include <studio/preferences/PreferenceTools.h>
#include <studio/program/Messages.h>

#include <hostkit/drawing/DrawingCapture.h>

#include <QtCore/QFileInfo>
#include <QtTest/QSignalSpy>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QTreeWidget>

#include <csignal>
#include <cstddef>

using studio::RecoveryDialog;

namespace {
const QDateTime kNoon(QDate(2024, 5, 6), QTime(12, 0), Qt::UTC);
constexpr int kNeverMs = 1000000;
} // namespace

/** Drawings that a studio left behind, as the user meets them. */
class tst_studio_recovery : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        testsupport::makeTinyFonts();
        studio = std::make_unique<StudioWindow>();
        folder = std::make_unique<RecoveryFolder>(studio->path("recovery"));
    }
    void cleanup() { studio.reset(); }

    void nothingLeftBehind_offersNothing_theCommandSaysSo()
    {
        guard();
        QVERIFY(dialog() == nullptr);
        QVERIFY(studio->run("file.recover"));
        QVERIFY(dialog() != nullptr);
        QCOMPARE(list()->topLevelItemCount(), 0);
        QVERIFY(!button("recover")->isEnabled());
        QVERIFY(!button("discard")->isEnabled());
    }

    void leftBehind_isOfferedByNameTimeAndShapes()
    {
        leave(studio->path("plate.ztd"), 2, kNoon);
        leave({}, 1, kNoon.addSecs(60));
        guard();
        QVERIFY(dialog() != nullptr);
        QCOMPARE(list()->topLevelItemCount(), 2);
        const QStringList newest = list()->topLevelItem(0)->text(0).split(QLatin1Char('\n'));
        QCOMPARE(newest.first(), QStringLiteral("Unsaved drawing"));
        const QStringList plate = list()->topLevelItem(1)->text(0).split(QLatin1Char('\n'));
        QCOMPARE(plate.size(), 3);
        QCOMPARE(plate[0], QStringLiteral("plate.ztd"));
        QCOMPARE(plate[1], QLocale().toString(kNoon.toLocalTime(), QLocale::ShortFormat) +
                               QStringLiteral(", shapes: 2"));
        QCOMPARE(plate[2], studio->path("plate.ztd"));
        const QIcon picture = list()->topLevelItem(1)->icon(0);
        QVERIFY(!picture.isNull());
        QCOMPARE(picture.pixmap(QSize(96, 96), QIcon::Selected).toImage(),
                 picture.pixmap(QSize(96, 96), QIcon::Normal).toImage());
    }

    void leftBehind_isDatedInTheLanguageOfTheTexts()
    {
        leave({}, 1, kNoon);
        guard();
        studio::PreferenceEdit edit;
        edit.drawing = edit.user.newDrawing;
        edit.language = studio::LanguageChoice::Chinese;
        studio->window->preferences().apply(edit);
        const QString when = QLocale(QLocale::Chinese, QLocale::China)
                                 .toString(kNoon.toLocalTime(), QLocale::ShortFormat);
        const QString expected = when + QString::fromUtf8("，图形：1");
        QTRY_COMPARE(list()->topLevelItem(0)->text(0).section(QLatin1Char('\n'), 1), expected);
        QVERIFY(!when.contains(QLatin1String("May")));
        edit.language = studio::LanguageChoice::English;
        studio->window->preferences().apply(edit);
        QTRY_VERIFY(list()->topLevelItem(0)->text(0).endsWith(QStringLiteral(", shapes: 1")));
        QVERIFY(list()->topLevelItem(0)->text(0).contains(
            QLocale().toString(kNoon.toLocalTime(), QLocale::ShortFormat)));
    }

    void recovered_isModifiedAndSavesToItsFile()
    {
        const QString path = studio->path("plate.ztd");
        const QString file = leave(path, 2, kNoon);
        guard();
        QTest::mouseClick(button("recover"), Qt::LeftButton);
        QCOMPARE(studio->ids().size(), 2);
        QVERIFY(studio->window->isWindowModified());
        QCOMPARE(studio->window->windowFilePath(), path);
        QVERIFY(QFile::exists(file));
        studio->window->activateWindow();
        studio->key(Qt::Key_S, Qt::ControlModifier);
        QVERIFY(QFile::exists(path));
        QVERIFY(!studio->window->isWindowModified());
        QVERIFY(folder->names("*").isEmpty());
        hostkit::DrawingFile saved;
        hostkit::Failure error;
        QVERIFY(hostkit::readDrawing(path, &saved, &error));
        QVERIFY(saved.extras.sections.isEmpty());
    }

    void recovered_whoseFileChangedSince_asksBeforeOverwriting()
    {
        const QString path = studio->write("plate.ztd", "before the crash");
        leave(path, 2, kNoon);
        studio->write("plate.ztd", "someone wrote it after the crash");
        guard();
        QTest::mouseClick(button("recover"), Qt::LeftButton);
        studio->window->activateWindow();
        studio->key(Qt::Key_S, Qt::ControlModifier);
        QVERIFY(box("overwriteQuestion") != nullptr);
        QCOMPARE(StudioTest::contentOf(path), QByteArray("someone wrote it after the crash"));
    }

    void recoveredAndNotSaved_isOfferedAgain()
    {
        leave({}, 2, kNoon);
        guard();
        QTest::mouseClick(button("recover"), Qt::LeftButton);
        QCOMPARE(studio->ids().size(), 2);
        studio->window.reset(); // as if the program ended
        QCOMPARE(studio::RecoveryStore(folder->path).find().entries.size(), 1);
    }

    void recoveredAndDiscarded_isGone()
    {
        leave({}, 2, kNoon);
        guard();
        QTest::mouseClick(button("recover"), Qt::LeftButton);
        studio->window->close();
        QTest::mouseClick(box("lossQuestion")->button(QMessageBox::Discard), Qt::LeftButton);
        QVERIFY(folder->names("*").isEmpty());
    }

    void recovering_asksForTheOpenDrawingFirst()
    {
        leave({}, 2, kNoon);
        studio->run("create.rectangle");
        guard();
        QTest::mouseClick(button("recover"), Qt::LeftButton);
        QTest::mouseClick(box("lossQuestion")->button(QMessageBox::Cancel), Qt::LeftButton);
        QCOMPARE(studio->ids().size(), 1);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(studio::RecoveryStore(folder->path).find().entries.size(), 1);
    }

    void later_keepsAll_andOffersThemNextTime()
    {
        leave({}, 1, kNoon);
        guard();
        QTest::mouseClick(button("later"), Qt::LeftButton);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(dialog() == nullptr);
        QVERIFY(studio->run("file.recover"));
        QCOMPARE(list()->topLevelItemCount(), 1);
    }

    void offer_waitsForTheDialogOfAnImport()
    {
        leave({}, 1, kNoon);
        const QString drawing = studio->write(
            "a.svg", "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"9mm\" height=\"9mm\" "
                     "viewBox=\"0 0 9 9\"><path d=\"M1 1H5\" stroke=\"red\"/></svg>");
        studio->window->editor().offerFile(drawing);
        QCoreApplication::processEvents();
        auto *import = studio->window->findChild<studio::ImportDialog *>();
        QVERIFY(import != nullptr && import->isVisible());
        guard();
        QVERIFY(dialog() == nullptr);
        QTest::mouseClick(import->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok),
                          Qt::LeftButton);
        QTRY_VERIFY(dialog() != nullptr);
        QCOMPARE(studio->ids().size(), 1);
        QCOMPARE(list()->topLevelItemCount(), 1);
    }

    void offer_waitsForMessages_eachOfWhichComesAlone()
    {
        leave({}, 1, kNoon);
        studio::DialogMessages messages(studio->window.get());
        messages.warning({QStringLiteral("one"), {}, {}});
        messages.warning({QStringLiteral("two"), {}, {}});
        guard();
        for (const char *text : {"one", "two"}) {
            QCoreApplication::processEvents();
            QCOMPARE(shownBoxes(), QStringList{QLatin1String(text)});
            QVERIFY(dialog() == nullptr);
            for (QMessageBox *box : studio->window->findChildren<QMessageBox *>()) {
                if (box->isVisible())
                    QTest::mouseClick(box->button(QMessageBox::Ok), Qt::LeftButton);
            }
        }
        QTRY_VERIFY(dialog() != nullptr);
        QVERIFY(shownBoxes().isEmpty());
    }

    void missingFonts_ofAFileAndOfWhatIsLeftOfIt_areToldOnce()
    {
        const QString path = studio->path("plate.ztd");
        auto *text = qobject_cast<ZTGraphicsTextItem *>(
            studio->document().itemMag()->addShape(ShapeType::Text, {0, 0, 10, 10}));
        text->setFont(QFont(QStringLiteral("No Such Family")));
        QVERIFY(studio->window->editor().files().saveTo(path));
        hostkit::DrawingFile file;
        hostkit::Failure error;
        QVERIFY(hostkit::captureDrawing(studio->document(), {}, &file, &error));
        folder->leave({path, studio::FileStamp::of(path)}, kNoon, file);
        studio->window->editor().offerFile(path);
        QCOMPARE(studio->messages->warnings.size(), 1);
        guard();
        QTest::mouseClick(button("recover"), Qt::LeftButton);
        QCOMPARE(studio->ids().size(), 1);
        QVERIFY(studio->window->isWindowModified());
        QCOMPARE(studio->messages->warnings.size(), 1);
        // The file alone tells it again.
        QVERIFY(studio->window->editor().files().load(path));
        QCOMPARE(studio->messages->warnings.size(), 2);
    }

    void discard_asksAndRemovesWhatIsSelected()
    {
        leave({}, 1, kNoon);
        const QString older = leave({}, 1, kNoon.addSecs(-60));
        guard();
        QTest::mouseClick(button("discard"), Qt::LeftButton);
        QTest::mouseClick(box("discardQuestion")->button(QMessageBox::Cancel), Qt::LeftButton);
        QCOMPARE(list()->topLevelItemCount(), 2);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QTest::mouseClick(button("discard"), Qt::LeftButton);
        QTest::mouseClick(box("discardQuestion")->button(QMessageBox::Discard), Qt::LeftButton);
        QCOMPARE(list()->topLevelItemCount(), 1);
        QCOMPARE(folder->names("*.ztd"), QStringList{QFileInfo(older).fileName()});
    }

    void damagedRecoveryFile_isNamedAndKept()
    {
        const QString file = leave({}, 1, kNoon);
        QFile cut(file);
        QVERIFY(cut.resize(cut.size() - 5));
        guard();
        QVERIFY(dialog() == nullptr);
        QCOMPARE(studio->messages->failures.size(), 1);
        QVERIFY(studio->messages->failures.first().why.contains(QFileInfo(file).fileName() +
                                                                QStringLiteral(".damaged")));
        QCOMPARE(folder->names("*.damaged").size(), 1);
    }

    void changedDrawing_isThereAfterTheInterval_andGoneAfterACleanEnd()
    {
        guard(10);
        studio->run("create.rectangle");
        QTRY_COMPARE(folder->names("*.ztd").size(), 1);
        studio->window->close();
        QTest::mouseClick(box("lossQuestion")->button(QMessageBox::Discard), Qt::LeftButton);
        QVERIFY(folder->names("*").isEmpty());
    }

    void terminationSignal_savesAtOnceAndQuits()
    {
        guard();
        studio->run("create.rectangle");
        QSignalSpy quits(qApp, &QCoreApplication::aboutToQuit);
        QTimer::singleShot(0, qApp, [] { std::raise(SIGTERM); });
        QTimer::singleShot(20000, qApp, [] { QCoreApplication::exit(1); });
        QCOMPARE(QCoreApplication::exec(), 0);
        QCOMPARE(quits.count(), 1);
        QCOMPARE(folder->names("*.ztd").size(), 1);
    }

    void endOfTheSession_savesAtOnce()
    {
        guard();
        studio->run("create.rectangle");
        QVERIFY(folder->names("*.ztd").isEmpty());
        // There is no session manager outside a session, and nobody looks at it.
        alignas(std::max_align_t) char manager[64] = {};
        void *arguments[] = {nullptr, manager};
        const int request =
            qApp->metaObject()->indexOfSignal("commitDataRequest(QSessionManager&)");
        QVERIFY(request >= 0);
        qApp->qt_metacall(QMetaObject::InvokeMetaMethod, request, arguments);
        QCOMPARE(folder->names("*.ztd").size(), 1);
    }

    void intervalInTheSettings_isBounded_data()
    {
        QTest::addColumn<QVariant>("setting");
        QTest::addColumn<int>("expectedMs");
        QTest::newRow("none") << QVariant() << 45000;
        QTest::newRow("shorter") << QVariant(5) << 5000;
        QTest::newRow("longest") << QVariant(60) << 60000;
        QTest::newRow("too long") << QVariant(3600) << 60000;
        QTest::newRow("negative") << QVariant(-1) << 45000;
        QTest::newRow("nonsense") << QVariant(QStringLiteral("soon")) << 45000;
    }

    void intervalInTheSettings_isBounded()
    {
        QFETCH(QVariant, setting);
        QFETCH(int, expectedMs);
        QSettings().setValue(QStringLiteral("drawing/autosaveSeconds"), setting);
        QCOMPARE(studio::CrashGuardSetup::ofUser().intervalMs, expectedMs);
    }

private:
    void guard(int intervalMs = kNeverMs)
    {
        studio->window->guardAgainstCrashes({folder->path, intervalMs});
        QCoreApplication::processEvents();
    }

    /** A drawing of rectangles, left behind by another studio. */
    QString leave(const QString &path, int rectangles, const QDateTime &savedAt)
    {
        ZTGraphicsDocument other;
        for (int i = 0; i < rectangles; ++i)
            other.itemMag()->addShape(ShapeType::Rect, {1.0 + i, 1.0, 10.0, 10.0});
        hostkit::DrawingFile file;
        hostkit::Failure error;
        if (!hostkit::captureDrawing(other, {}, &file, &error))
            qFatal("a drawing cannot be taken");
        return folder->leave({path, studio::FileStamp::of(path)}, savedAt, file);
    }

    QStringList shownBoxes() const
    {
        QStringList texts;
        for (const QMessageBox *box : studio->window->findChildren<QMessageBox *>()) {
            if (box->isVisible())
                texts << box->text();
        }
        return texts;
    }

    RecoveryDialog *dialog() const { return studio->window->findChild<RecoveryDialog *>(); }

    QTreeWidget *list() const { return dialog()->findChild<QTreeWidget *>(); }

    QPushButton *button(const char *name) const
    {
        return dialog()->findChild<QPushButton *>(QLatin1String(name));
    }

    QMessageBox *box(const char *name) const
    {
        auto *found = studio->window->findChild<QMessageBox *>(QLatin1String(name));
        if (found == nullptr)
            qFatal("the question %s is not asked", name);
        return found;
    }

    std::unique_ptr<StudioWindow> studio;
    std::unique_ptr<RecoveryFolder> folder;
};

int main(int argc, char **argv) { return runTextTest<tst_studio_recovery>(argc, argv); }
#include "tst_studio_recovery.moc"
