#include "StudioTest.h"

#include <studio/drawing/DrawingSession.h>

#include <hostkit/drawing/DrawingFile.h>

#include <QtCore/QFileInfo>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QUndoCommand>

using studio::FileStamp;

class tst_DrawingSession : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        studio = std::make_unique<DocumentTest>();
        session = std::make_unique<studio::DrawingSession>(*studio->document);
    }
    void cleanup()
    {
        session.reset();
        studio.reset();
    }

    void fresh_hasNoFileAndNothingToLose()
    {
        QVERIFY(!session->isModified());
        QVERIFY(session->path().isEmpty());
        QCOMPARE(session->name(), QStringLiteral("Unnamed"));
        QVERIFY(!session->isFileForeign());
    }

    void undoStep_modifies_andUndoingItDoesNot()
    {
        QSignalSpy states(session.get(), &studio::DrawingSession::stateChanged);
        QSignalSpy changes(session.get(), &studio::DrawingSession::changed);
        push();
        QVERIFY(session->isModified());
        QCOMPARE(states.count(), 1);
        QCOMPARE(changes.count(), 1);
        push();
        QCOMPARE(states.count(), 1);
        QCOMPARE(changes.count(), 2);
        studio->document->undoStack()->setIndex(0);
        QVERIFY(!session->isModified());
        QCOMPARE(states.count(), 2);
    }

    void everyStep_makesANewRevision()
    {
        push();
        const quint64 afterPush = session->revision();
        studio->document->undoStack()->undo();
        QVERIFY(session->revision() != afterPush);
        const quint64 afterUndo = session->revision();
        studio->document->undoStack()->redo();
        QVERIFY(session->revision() != afterUndo && session->revision() != afterPush);
    }

    void markChanged_modifiesUntilSaved_whateverIsUndone()
    {
        session->markChanged();
        push();
        studio->document->undoStack()->undo();
        QVERIFY(session->isModified());
        session->setSaved(studio->write("a.ztd", "x"), session->revision());
        QVERIFY(!session->isModified());
    }

    void saved_marksThisStepClean()
    {
        push();
        const QString path = studio->write("a.ztd", "x");
        session->setSaved(path, session->revision());
        QVERIFY(!session->isModified());
        QCOMPARE(session->path(), path);
        QCOMPARE(session->name(), QStringLiteral("a.ztd"));
        studio->document->undoStack()->undo();
        QVERIFY(session->isModified());
        studio->document->undoStack()->redo();
        QVERIFY(!session->isModified());
    }

    void relativePath_becomesAbsolute()
    {
        session->setOpened(QStringLiteral("b.ztd"), {}, {});
        QCOMPARE(session->path(), QFileInfo(QStringLiteral("b.ztd")).absoluteFilePath());
    }

    void recovered_isModifiedWithoutAStep()
    {
        session->setRecovered(studio->path("gone.ztd"), {}, {});
        QVERIFY(session->isModified());
        QCOMPARE(session->name(), QStringLiteral("gone.ztd"));
        session->startNew();
        QVERIFY(!session->isModified());
        QVERIFY(session->path().isEmpty());
    }

    void foreignFile_isOneWrittenSince_notOneThatIsGone()
    {
        const QString path = studio->write("a.ztd", "one");
        session->setOpened(path, FileStamp::of(path), {});
        QVERIFY(!session->isFileForeign());
        studio->write("a.ztd", "other");
        QVERIFY(session->isFileForeign());
        QFile::remove(path);
        QVERIFY(!session->isFileForeign());
        session->setOpened(path, FileStamp::of(path), {});
        studio->write("a.ztd", "new");
        QVERIFY(session->isFileForeign());
        session->setSaved(path, session->revision());
        QVERIFY(!session->isFileForeign());
    }

    void foreignFile_isSeenByItsTime_whereTheSizeIsTheSame()
    {
        const QString path = studio->write("a.ztd", "one");
        session->setOpened(path, FileStamp::of(path), {});
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.setFileTime(QDateTime::currentDateTime().addSecs(-100),
                                 QFileDevice::FileModificationTime));
        file.close();
        QVERIFY(session->isFileForeign());
    }

    void capture_takesAlongWhatCameWithTheFile()
    {
        studio->addRect(0, 0);
        const hostkit::DrawingSection foreign{QByteArrayLiteral("abcd"), QByteArrayLiteral("kept")};
        session->setOpened(studio->path("a.ztd"), {}, {foreign});
        hostkit::DrawingFile file;
        hostkit::DrawingError error;
        QVERIFY(session->capture(false, &file, &error));
        QCOMPARE(file.unknown.size(), 1);
        QCOMPARE(file.unknown.first().tag, foreign.tag);
        QCOMPARE(file.unknown.first().bytes, foreign.bytes);
        QVERIFY(file.previewPng.isEmpty());
        session->startNew();
        QVERIFY(session->capture(true, &file, &error));
        QVERIFY(file.unknown.isEmpty());
        QVERIFY(!file.previewPng.isEmpty());
    }

private:
    void push() { studio->document->undoStack()->push(new QUndoCommand); }

    std::unique_ptr<DocumentTest> studio;
    std::unique_ptr<studio::DrawingSession> session;
};

QTEST_MAIN(tst_DrawingSession)
#include "tst_DrawingSession.moc"
