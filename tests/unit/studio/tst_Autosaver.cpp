#include "RecoveryFolder.h"
#include "StudioTest.h"

#include <studio/drawing/Autosaver.h>
#include <studio/drawing/DrawingSession.h>

#include <QtCore/QFileInfo>
#include <QtTest/QSignalSpy>
#include <QtWidgets/QUndoCommand>

using studio::Autosaver;

namespace {
constexpr int kSoonMs = 20;
constexpr int kNeverMs = 1000000;
} // namespace

class tst_Autosaver : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        studio = std::make_unique<DocumentTest>();
        folder = std::make_unique<RecoveryFolder>(studio->path("recovery"));
        session = std::make_unique<studio::DrawingSession>(*studio->document);
    }
    void cleanup()
    {
        saver.reset();
        session.reset();
        studio.reset();
        messages = {};
    }

    void unchangedDrawing_isNotSaved()
    {
        start(kSoonMs);
        QTest::qWait(5 * kSoonMs);
        QVERIFY(!QDir(folder->path).exists());
        QVERIFY(saver->recoveryPath().isEmpty());
    }

    void changedDrawing_isSavedAfterTheInterval_once()
    {
        start(kSoonMs);
        QSignalSpy saved(saver.get(), &Autosaver::autosaved);
        studio->addRect(3, 4);
        push();
        QVERIFY(saved.wait());
        hostkit::DrawingFile file;
        hostkit::DrawingError error;
        QVERIFY2(hostkit::readDrawing(saver->recoveryPath(), &file, &error),
                 qPrintable(error.reason));
        QCOMPARE(file.meta.pens.first().items, 1);
        QTest::qWait(5 * kSoonMs);
        QCOMPARE(saved.count(), 1);
        push();
        QVERIFY(saved.wait());
        QCOMPARE(folder->names("*.ztd").size(), 1);
    }

    void intervalRunsFromTheFirstChange_howeverManyFollow()
    {
        start(200);
        QSignalSpy saved(saver.get(), &Autosaver::autosaved);
        QElapsedTimer clock;
        clock.start();
        while (saved.isEmpty() && clock.elapsed() < 20000) {
            push();
            QTest::qWait(10);
        }
        QVERIFY(!saved.isEmpty());
    }

    void savedOrUndoneDrawing_needsNoRecoveryFile()
    {
        start(kSoonMs);
        for (const bool isUndone : {true, false}) {
            QSignalSpy saved(saver.get(), &Autosaver::autosaved);
            push();
            QVERIFY(saved.wait());
            QCOMPARE(folder->names("*").size(), 2);
            if (isUndone)
                studio->document->undoStack()->undo();
            else
                session->setSaved(studio->write("a.ztd", "x"), session->revision());
            QVERIFY(folder->names("*").isEmpty());
            QVERIFY(saver->recoveryPath().isEmpty());
        }
    }

    void endOfTheProgram_leavesTheFileAndFreesIt()
    {
        start(kSoonMs);
        QSignalSpy saved(saver.get(), &Autosaver::autosaved);
        push();
        QVERIFY(saved.wait());
        QVERIFY(studio::RecoveryStore(folder->path).find().entries.isEmpty());
        saver.reset();
        QCOMPARE(studio::RecoveryStore(folder->path).find().entries.size(), 1);
    }

    void endWhileWriting_waitsForTheFile()
    {
        start(0);
        studio->addRect(0, 0);
        push();
        QTRY_VERIFY(folder->names("*.lock").size() == 1);
        saver.reset();
        QCOMPARE(studio::RecoveryStore(folder->path).find().entries.size(), 1);
    }

    void saveNow_doesNotWaitForTheInterval()
    {
        start(kNeverMs);
        saver->saveNow();
        QVERIFY(folder->names("*").isEmpty());
        push();
        saver->saveNow();
        QCOMPARE(folder->names("*.ztd").size(), 1);
        QSignalSpy saved(saver.get(), &Autosaver::autosaved);
        saver->saveNow();
        QCOMPARE(saved.count(), 0);
        push();
        saver->saveNow();
        QCOMPARE(saved.count(), 1);
    }

    void recoveryFile_knowsWhereTheDrawingBelongs()
    {
        const QString path = studio->write("plate.ztd", "x");
        session->setOpened(path, studio::FileStamp::of(path), {});
        start(kNeverMs);
        push();
        saver->saveNow();
        saver.reset();
        const auto found = studio::RecoveryStore(folder->path).find();
        QCOMPARE(found.entries.size(), 1);
        QCOMPARE(found.entries.first().origin.path, path);
        QVERIFY(found.entries.first().origin.stamp == studio::FileStamp::of(path));
    }

    void failure_isToldOnce_andTriedAgain()
    {
        studio->write("recovery", "in the way");
        start(kSoonMs);
        push();
        QTRY_COMPARE(messages.warnings.size(), 1);
        QVERIFY(messages.warnings.first().why.contains(folder->path));
        push();
        QTest::qWait(5 * kSoonMs);
        QCOMPARE(messages.warnings.size(), 1);
        QSignalSpy saved(saver.get(), &Autosaver::autosaved);
        QVERIFY(QFile::remove(folder->path));
        QVERIFY(saved.wait());
    }

    void failedWrite_isNotTakenForASavedOne()
    {
        start(kNeverMs);
        push();
        saver->saveNow();
        const QString path = saver->recoveryPath();
        QVERIFY(QFile::remove(path));
        QVERIFY(QDir().mkdir(path)); // nothing can be written over a folder
        push();
        saver->saveNow();
        QCOMPARE(messages.warnings.size(), 1);
        QVERIFY(QDir().rmdir(path));
        saver->saveNow();
        QVERIFY(QFileInfo(path).isFile());
    }

    void adopted_isKeptUntilTheDrawingIsSaved()
    {
        hostkit::DrawingFile file;
        hostkit::DrawingError error;
        QVERIFY(session->capture(false, &file, &error));
        const QString path = folder->leave({}, QDateTime::currentDateTimeUtc(), file);
        const QByteArray before = StudioTest::contentOf(path);
        start(kNeverMs);
        auto found = studio::RecoveryStore(folder->path).find();
        session->setRecovered({}, {}, {});
        saver->adopt(found.entries.first().slot);
        found.entries.clear();
        QCOMPARE(saver->recoveryPath(), path);
        saver->saveNow();
        QCOMPARE(StudioTest::contentOf(path), before);
        push();
        saver->saveNow();
        QVERIFY(StudioTest::contentOf(path) != before);
        session->setSaved(studio->write("a.ztd", "x"), session->revision());
        QVERIFY(folder->names("*").isEmpty());
    }

    void twoWindows_haveAFileEach()
    {
        start(kNeverMs);
        SecondDrawing other(folder->path, messages);
        push();
        saver->saveNow();
        other.session.markChanged();
        other.saver.saveNow();
        QCOMPARE(folder->names("*.ztd").size(), 2);
        saver->discard();
        QCOMPARE(folder->names("*.ztd").size(), 1);
        QVERIFY(QFile::exists(other.saver.recoveryPath()));
    }

private:
    /** A second drawing in the same process. */
    struct SecondDrawing
    {
        SecondDrawing(const QString &folder, studio::Messages &messages)
            : session(document), saver(session, messages, folder, kNeverMs)
        {
        }
        ZTGraphicsDocument document;
        studio::DrawingSession session;
        Autosaver saver;
    };

    void start(int intervalMs)
    {
        saver = std::make_unique<Autosaver>(*session, messages, folder->path, intervalMs);
    }

    void push() { studio->document->undoStack()->push(new QUndoCommand); }

    RecordedMessages messages;
    std::unique_ptr<DocumentTest> studio;
    std::unique_ptr<RecoveryFolder> folder;
    std::unique_ptr<studio::DrawingSession> session;
    std::unique_ptr<Autosaver> saver;
};

QTEST_MAIN(tst_Autosaver)
#include "tst_Autosaver.moc"
