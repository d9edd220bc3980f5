#include "TextWindow.h"

#include <cli/ZtmarkProcess.h>

#include <studio/drawing/DrawingFiles.h>
#include <studio/job/JobExporter.h>
#include <studio/job/JobTools.h>

#include <jobkit/marks/NumberJournal.h>
#include <jobkit/marks/NumberLock.h>

#include <QtCore/QDir>
#include <QtWidgets/QMessageBox>

#include <memory>

using studio::JobExport;

/** A drawing that is open here, and whose numbers others take as well. */
class tst_studio_sharedNumbers : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        QStandardPaths::setTestModeEnabled(true);
        studio = std::make_unique<TextWindow>();
        studio->addRect(0, 0);
        ZTGraphicsTextItem *item = studio->addText(QStringLiteral("SN"));
        ZTCounterSegment counter;
        counter.width = 3;
        item->setEnableVariantText(true);
        QVERIFY(item->getVariantText()->setSegments(
            {ZTFixedTextSegment{QStringLiteral("SN")}, counter}));
        studio->run("text.nextPart");
        drawing = studio->path("serial.ztd");
        QVERIFY(studio->window->editor().files().saveTo(drawing));
        QCOMPARE(shown(), QStringLiteral("SN001"));
    }
    void cleanup() { studio.reset(); }

    void numbersThatTheCommandLineTook_areNotGivenAgain()
    {
        const ZtmarkRun run = runZtmark(
            {QStringLiteral("job"), drawing, QStringLiteral("--outside"), QStringLiteral("--parts"),
             QStringLiteral("5"), QStringLiteral("-o"), studio->path("by-hand.nc")},
            studio->path(""));
        QCOMPARE(run.exitCode, 0);
        QVERIFY(!exporter().write(job("a.nc"), settings()));
        QVERIFY(!QFile::exists(studio->path("a.nc")));
        QCOMPARE(studio->messages->failures.size(), 1);
        QCOMPARE(studio->messages->failures.takeFirst().why,
                 QStringLiteral("\"serial.ztd\" was changed by another program since it was opened "
                                "here: its numbers may be taken. Open it again."));
        QCOMPARE(shown(), QStringLiteral("SN001"));
        studio->window->editor().files().open(drawing);
        QTRY_COMPARE(shown(), QStringLiteral("SN006"));
        QVERIFY(exporter().write(job("a.nc"), settings()));
        QCOMPARE(jobkit::readJournal(drawing)->first, QStringLiteral("SN006"));
    }

    void overwritingADrawingWithNumbers_warnsOfThem()
    {
        QFile file(drawing);
        QVERIFY(file.open(QIODevice::Append));
        file.write(" ");
        file.close();
        studio->addRect(0, 0);
        studio->window->editor().files().save();
        auto *asked = studio->window->findChild<QMessageBox *>(QStringLiteral("overwriteQuestion"));
        QVERIFY(asked != nullptr);
        QVERIFY2(asked->informativeText().endsWith(
                     QStringLiteral("Numbers that jobs took of it meanwhile would come again.")),
                 qPrintable(asked->informativeText()));
        asked->reject();
    }

    void numbersThatAreBeingTaken_areWaitedFor()
    {
        auto other = std::make_unique<jobkit::NumberLock>(drawing);
        QCOMPARE(other->take(), jobkit::NumberLock::Result::Taken);
        QVERIFY(!exporter().write(job("a.nc"), settings()));
        QVERIFY(!QFile::exists(studio->path("a.nc")));
        QCOMPARE(studio->messages->failures.takeFirst().why,
                 QStringLiteral("Another job takes numbers of the drawing, as \"serial.ztd.lock\" "
                                "says. Try again afterwards."));
        other.reset();
        QVERIFY(exporter().write(job("a.nc"), settings()));
        QVERIFY(!QFile::exists(drawing + QStringLiteral(".lock")));
    }

    // Somebody opens the drawing, changes a thing and saves it: the files of the job are still
    // there.
    void numbersOfAKilledJob_stayNotedWhenTheDrawingIsSaved()
    {
        jobkit::NumberJournal killed;
        killed.before = jobkit::partProgress(studio::shapeItemsOf(*studio->document().scene()));
        killed.parts = 5;
        killed.first = QStringLiteral("SN001");
        killed.last = QStringLiteral("SN005");
        QVERIFY(jobkit::writeJournal(drawing, killed, nullptr));
        studio->addRect(0, 0);
        QVERIFY(studio->window->editor().files().saveTo(drawing));
        QVERIFY(jobkit::readJournal(drawing).has_value());
        QVERIFY(exporter().write(job("a.nc"), settings()));
        QCOMPARE(jobkit::readJournal(drawing)->last, QStringLiteral("SN006"));
        QVERIFY(studio->window->editor().files().saveTo(drawing));
        QVERIFY(!jobkit::readJournal(drawing).has_value());
        QCOMPARE(shown(), QStringLiteral("SN007"));
    }

    void numbersGivenByHandAfterAnExport_areSettledByASave()
    {
        QVERIFY(exporter().write(job("a.nc", 3), settings()));
        auto segments = text()->getVariantText()->getSegments();
        std::get<ZTCounterSegment>(segments[1]).updates = 100;
        QVERIFY(text()->getVariantText()->setSegments(segments));
        studio->run("text.nextPart");
        QVERIFY(studio->window->editor().files().saveTo(drawing));
        QVERIFY(!jobkit::readJournal(drawing).has_value());
    }

    // Its number comes again: a machine that ran what there is would mark it twice.
    void jobThatIsNotWhole_leavesNoFile()
    {
        QVERIFY(QDir(studio->path(".")).mkdir(QStringLiteral("p-0002.json")));
        QVERIFY(!exporter().write({studio->path("p.json"), 3, false, {}}, settings()));
        QVERIFY(!QFile::exists(studio->path("p-0001.json")));
        QVERIFY(!QFile::exists(studio->path("p-0003.json")));
        QCOMPARE(shown(), QStringLiteral("SN001"));
        const QString why = studio->messages->failures.takeFirst().why;
        QVERIFY2(why.endsWith(QStringLiteral(
                     "The files before it were taken back, and no number is used up.")),
                 qPrintable(why));
        QVERIFY(!jobkit::readJournal(drawing).has_value());
    }

    // Saved on Friday with the date of that day, opened on Monday.
    void datesOfAJob_areThoseOfItsMoment()
    {
        ZTCounterSegment counter;
        counter.width = 3;
        ZTDateTimeSegment date;
        date.format = QStringLiteral(" HH:mm:ss.zzz");
        QVERIFY(text()->getVariantText()->setSegments({counter, date}));
        studio->run("text.nextPart");
        const QString before = shown();
        QVERIFY(before.startsWith(QStringLiteral("001 ")));
        QVERIFY(studio->window->editor().files().saveTo(drawing));
        QTest::qWait(5);
        QVERIFY(exporter().write(job("a.nc"), settings()));
        const QString marked = jobkit::readJournal(drawing)->first;
        QVERIFY2(marked.startsWith(QStringLiteral("001 ")) && marked > before, qPrintable(marked));
        QVERIFY(shown().startsWith(QStringLiteral("002 ")));
    }

    void datesOfAPreview_areThoseOfItsMoment()
    {
        ZTDateTimeSegment date;
        date.format = QStringLiteral("HH:mm:ss.zzz");
        QVERIFY(text()->getVariantText()->setSegments({date}));
        studio->run("text.nextPart");
        const QString before = shown();
        QTest::qWait(5);
        QVERIFY(studio->run("job.preview"));
        QVERIFY(shown() > before);
    }

    void listOfAJob_isAsItIsNow()
    {
        const QString names = studio->write("names.csv", "Anna\nBerta\n");
        ZTTextFileSegment rows;
        rows.path = names;
        QVERIFY(text()->getVariantText()->setSegments({rows}));
        studio->run("text.nextPart");
        QCOMPARE(shown(), QStringLiteral("Anna"));
        QVERIFY(studio->window->editor().files().saveTo(drawing));
        studio->write("names.csv", "Anne\nBerta\n");
        QVERIFY(exporter().write(job("a.nc"), settings()));
        QCOMPARE(jobkit::readJournal(drawing)->first, QStringLiteral("Anne"));
        QCOMPARE(shown(), QStringLiteral("Berta"));
        QVERIFY(QFile::remove(names));
        QVERIFY(!exporter().write(job("b.nc"), settings()));
        QVERIFY(!QFile::exists(studio->path("b.nc")));
        QCOMPARE(shown(), QStringLiteral("Berta")); // nothing is lost by the attempt
        QVERIFY(studio->messages->failures.takeFirst().why.startsWith(
            QStringLiteral("Part 1 cannot be made as asked for: ")));
    }

    // Two windows with one drawing, neither of which saves it.
    void numbersThatAnotherWindowTook_arePassedOver()
    {
        QVERIFY(exporter().write(job("a.nc", 3), settings()));
        auto note = jobkit::readJournal(drawing);
        QVERIFY(note.has_value());
        note->parts = 5; // the other one passed three over, and took two
        note->last = QStringLiteral("SN005");
        note->after = "whatever it is then";
        QVERIFY(jobkit::writeJournal(drawing, *note, nullptr));
        QVERIFY(exporter().write(job("b.nc"), settings()));
        QCOMPARE(studio->messages->warnings.size(), 1);
        QCOMPARE(studio->messages->warnings.first().why,
                 QStringLiteral("Another window took numbers up to SN005. They are passed over."));
        note = jobkit::readJournal(drawing);
        QCOMPARE(note->parts, 6);
        QCOMPARE(note->first, QStringLiteral("SN001"));
        QCOMPARE(note->last, QStringLiteral("SN006"));
        QCOMPARE(shown(), QStringLiteral("SN007"));
    }

    void frame_isWrittenWhateverOthersDo()
    {
        jobkit::NumberLock other(drawing);
        QCOMPARE(other.take(), jobkit::NumberLock::Result::Taken);
        QVERIFY(
            exporter().write({studio->path("f.nc"), 1, false, jobkit::FrameKind::Box}, settings()));
    }

private:
    studio::JobExporter &exporter() { return studio->window->editor().job().exporter(); }

    JobExport job(const char *name, int parts = 1) const
    {
        return {studio->path(name), parts, true, {}};
    }

    static studio::JobSettings settings()
    {
        studio::JobSettings settings;
        settings.profile = QStringLiteral("galvo-fiber");
        return settings;
    }

    /** The only text. */
    ZTGraphicsTextItem *text()
    {
        for (QGraphicsItem *candidate : studio->scene().items()) {
            if (auto *item = dynamic_cast<ZTGraphicsTextItem *>(candidate))
                return item;
        }
        return nullptr;
    }

    /** What it shows. */
    QString shown() { return text() != nullptr ? text()->text() : QString(); }

    std::unique_ptr<TextWindow> studio;
    QString drawing; ///< its file
};

QTEST_MAIN(tst_studio_sharedNumbers)
#include "tst_studio_sharedNumbers.moc"
