#include "ZtmarkProcess.h"

#include <support/GcodeController.h>
#include <support/SingletonGuard.h>

#include <hostkit/drawing/DrawingCapture.h>
#include <hostkit/drawing/DrawingExtras.h>
#include <hostkit/drawing/DrawingLoader.h>
#include <hostkit/items/ItemHatches.h>
#include <hostkit/items/PartTexts.h>
#include <hostkit/setup/Factories.h>

#include <jobkit/marks/DrawingPens.h>
#include <jobkit/plan/JobFrame.h>

#include <QtCore/QDir>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QLockFile>
#include <QtCore/QTemporaryDir>

#include <cmath>
#include <memory>
#include <vector>

namespace {

/** A galvo head without a speed limit that matters, and round figures. */
const QByteArray kGalvo =
    "{\"format\":\"job-profile\",\"version\":1,\"name\":\"head\",\"kind\":\"galvo\","
    "\"origin\":\"centre\",\"mostSpeedMmPerS\":1000,\"jumpSpeedMmPerS\":1000,"
    "\"jumpDelayUs\":300,\"markDelayUs\":200,\"cornerDelayUs\":100}";

/** A gantry that stops at every corner. */
const QByteArray kGantry =
    "{\"format\":\"job-profile\",\"version\":1,\"name\":\"axes\",\"kind\":\"gantry\","
    "\"origin\":\"centre\",\"mostSpeedMmPerS\":100,\"jumpSpeedMmPerS\":100,"
    "\"accelerationMmPerS2\":1000,\"junctionDeviationMm\":0}";

const QByteArray kPens = "{\"format\":\"job-pens\",\"version\":1,\"name\":\"steel\",\"pens\":["
                         "{\"number\":1,\"speedMmPerS\":50,\"powerPercent\":40,"
                         "\"powerMode\":\"constant\"}]}";

} // namespace

class tst_JobCommand : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { hostkit::registerFactories(); }
    void init()
    {
        m_guard = std::make_unique<testsupport::SingletonGuard>();
        hostkit::registerFactories();
        m_folder = std::make_unique<QTemporaryDir>();
        // A corner of 40 and 20 mm, closed nowhere; in the middle of the field from (-20, 10).
        put("corner.plt", "PU0,0;PD1600,0;PD1600,800;");
        put("galvo.json", kGalvo);
        put("gantry.json", kGantry);
        put("pens.json", kPens);
    }
    void cleanup() { m_guard.reset(); }

    void time_ofAGalvoHead_equalsTheOneByHand()
    {
        const QJsonObject times = json(job("corner.plt --profile galvo.json --pens pens.json "
                                           "--json"));
        const QJsonObject part = times.value(QStringLiteral("part")).toObject();
        // 60 mm at 50 mm/s; from the middle to either end; a right angle is half the corner delay.
        near(part, "markS", 1.2);
        near(part, "jumpS", std::hypot(20, 10) / 1000);
        near(part, "delayS", 0.0003 + 0.0002 + 0.00005);
        near(part, "totalS", 1.2 + std::hypot(20, 10) / 1000 + 0.00055);
        QCOMPARE(times.value(QStringLiteral("byPen")).toObject().keys(),
                 QStringList{QStringLiteral("1")});
    }

    void time_ofAGantry_equalsTheOneByHand()
    {
        const QJsonObject part = json(job("corner.plt --profile gantry.json --json"))
                                     .value(QStringLiteral("part"))
                                     .toObject();
        // At 100 mm/s, each move from rest to rest takes length / 100 + 100 / 1000.
        near(part, "markS", 0.4 + 0.1 + 0.2 + 0.1);
        near(part, "jumpS", std::hypot(20, 10) / 100 + 0.1);
        near(part, "delayS", 0.0);
    }

    void time_ofParts_goesOnFromEachToTheNext()
    {
        const QJsonObject total =
            json(job("corner.plt --profile galvo.json --pens pens.json --parts 3 --json"))
                .value(QStringLiteral("total"))
                .toObject();
        // Back from the other end twice: (20, -10) to (-20, 10).
        near(total, "markS", 3.6);
        near(total, "jumpS", (std::hypot(20, 10) + 2 * std::hypot(40, 20)) / 1000);
        near(total, "delayS", 3 * 0.00055);
    }

    void time_isATable()
    {
        const ZtmarkRun run = job("corner.plt --profile galvo.json --pens pens.json --time");
        QCOMPARE(run.err, QString());
        QCOMPARE(run.out,
                 QStringLiteral("Seconds              total    marking      jumps     delays\n"
                                "Part                 1.223      1.200      0.022      0.001\n"
                                "  pen 1              1.223      1.200      0.022      0.001\n"));
        QCOMPARE(run.exitCode, 0);
    }

    void gcode_isTheDrawing_withoutABurningJump()
    {
        const ZtmarkRun run = job("corner.plt --pens pens.json -o a.nc");
        QCOMPARE(run.err, QString());
        QCOMPARE(run.exitCode, 0);
        testsupport::Controller controller;
        controller.run(written("a.nc"));
        QCOMPARE(controller.fault, QString());
        QCOMPARE(controller.burns.size(), 1);
        // In the middle of 400 x 400 mm, from the lower left corner, which the head is nearer to.
        QCOMPARE(controller.burns[0].machineMm,
                 QPolygonF(QVector<QPointF>{{180, 190}, {220, 190}, {220, 210}}));
        QCOMPARE(controller.burns[0].power, 400.0); // of 1000
        QCOMPARE(controller.burns[0].feedMmPerMin, 3000.0);
        QCOMPARE(controller.burns[0].mode, '3');
    }

    void gcode_ofSeveralParts_pausesBetweenThem()
    {
        QCOMPARE(job("corner.plt --parts 3 -o a.nc").exitCode, 0);
        testsupport::Controller controller;
        controller.run(written("a.nc"));
        QCOMPARE(controller.fault, QString());
        QCOMPARE(controller.pauses, 2);
        QCOMPARE(controller.burns.size(), 3);
    }

    void parts_withoutAPause_areFiles()
    {
        QCOMPARE(job("corner.plt --parts 2 -o a.svg -o a.nc --separate").exitCode, 0);
        for (const char *name : {"a-0001.svg", "a-0002.svg", "a-0001.nc", "a-0002.nc"})
            QVERIFY2(QFile::exists(path(name)), name);
        QVERIFY(!QFile::exists(path("a.nc")));
    }

    void otherForms_areReadBackTheSame_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("plt") << QStringLiteral("a.plt");
        QTest::newRow("dxf") << QStringLiteral("a.dxf");
        QTest::newRow("svg") << QStringLiteral("a.svg");
    }

    void otherForms_areReadBackTheSame()
    {
        QFETCH(QString, name);
        QCOMPARE(job(QStringLiteral("corner.plt -o ") + name).exitCode, 0);
        const ZtmarkRun run = runZtmark({QStringLiteral("mark"), name}, m_folder->path());
        QVERIFY2(run.out.contains(QStringLiteral("Polylines:      1\n")), qPrintable(run.out));
        QVERIFY2(run.out.contains(QStringLiteral("Mark length:    60.000 mm\n")),
                 qPrintable(run.out));
    }

    void formOfTheProfile_isTakenForOtherNames()
    {
        QCOMPARE(job("corner.plt -o a.tap").exitCode, 0); // grbl-diode runs G-code
        QVERIFY(written("a.tap").contains("\nG21\n"));
    }

    void frame_isTheBoxWithoutPower()
    {
        QCOMPARE(job("corner.plt --frame box -o a.nc").exitCode, 0);
        testsupport::Controller controller;
        controller.run(written("a.nc"));
        QCOMPARE(controller.fault, QString());
        QCOMPARE(controller.burns.size(), 1);
        QCOMPARE(controller.burns[0].power, 0.0);
        QCOMPARE(controller.burns[0].machineMm.boundingRect(), QRectF(180, 190, 40, 20));
        // At 100 mm/s: 120 mm around, from the middle to a corner.
        const QJsonObject part = json(job("corner.plt --frame box --profile galvo.json --json"))
                                     .value(QStringLiteral("part"))
                                     .toObject();
        near(part, "markS", 1.2);
        near(part, "jumpS", std::hypot(20, 10) / 1000);
    }

    // Whichever pens there are, one with the frame's own number too.
    void frame_ofADrawingWithPens_hasNoPower()
    {
        ZTGraphicsDocument document;
        document.itemMag()->addShape(ShapeType::Rect, {0, 0, 10, 10});
        QVector<jobkit::Pen> pens = jobkit::defaultPens();
        pens[0].powerPercent = 80.0;
        jobkit::Pen loud = jobkit::defaultPen(jobkit::framePen().number);
        loud.powerPercent = 80.0;
        pens.append(loud);
        jobkit::setDrawingPens(document, pens);
        QVERIFY(hostkit::saveDrawing(document, {}, path("pens.ztd"), nullptr));
        for (const char *arguments :
             {"pens.ztd --frame box -o f.nc", "pens.ztd --frame hull -o f.nc"}) {
            QCOMPARE(job(arguments).exitCode, 0);
            testsupport::Controller controller;
            controller.run(written("f.nc"));
            QCOMPARE(controller.fault, QString());
            QCOMPARE(controller.burns.size(), 1);
            QCOMPARE(controller.burns[0].power, 0.0);
            QVERIFY(QFile::remove(path("f.nc")));
        }
    }

    void hatch_thatIsEmpty_isWarnedOf()
    {
        const ZtmarkRun run =
            job("corner.plt --pens pens.json --hatch line --time"); // nothing is closed
        QCOMPARE(run.err, QStringLiteral("ztmark: warning: the hatch is empty: no line meets the "
                                         "drawing\n"));
        QCOMPARE(run.exitCode, 0);
    }

    void optimize_ordersThePieces()
    {
        // Three strokes, the middle one drawn last.
        put("far.plt", "PU0,0;PD40,0;PU4000,0;PD4040,0;PU2000,0;PD2040,0;");
        const auto jumps = [this](const char *order) {
            return json(job(QStringLiteral("far.plt --profile galvo.json --json --optimize ") +
                            QLatin1String(order)))
                .value(QStringLiteral("part"))
                .toObject()
                .value(QStringLiteral("jumpS"))
                .toDouble();
        };
        // The outlines of a shape come from the right, each is run to the right; the best order
        // runs along the row.
        QVERIFY(qAbs(jumps("none") - (0.0495 + 2 * 0.051)) < 1e-9);
        QVERIFY(qAbs(jumps("best") - (0.0505 + 2 * 0.049)) < 1e-9);
    }

    void hatch_ofForeignDrawings_isMarked()
    {
        put("square.plt", "PU0,0;PD400,0;PD400,400;PD0,400;PD0,0;");
        const double outline =
            markS(job("square.plt --profile galvo.json --pens pens.json --json"));
        const double hatched = markS(job(
            "square.plt --profile galvo.json --pens pens.json --json --hatch line --spacing 1"));
        QVERIFY(qAbs(outline - 0.8) < 1e-9);
        QVERIFY2(hatched > outline + 1.5, qPrintable(QString::number(hatched))); // 8 lines at least
        const double alone = markS(job("square.plt --profile galvo.json --pens pens.json --json "
                                       "--hatch line --spacing 1 --no-outline"));
        QVERIFY(qAbs(hatched - outline - alone) < 1e-9);
    }

    void serialNumbers_advanceOnceAPart_andNoneComesTwice()
    {
        makeDrawing(100);
        const ZtmarkRun first = job("serial.ztd -o a.json --parts 2");
        QCOMPARE(first.err, QString());
        QCOMPARE(first.out, QStringLiteral("Parts:          2\n"
                                           "First part:     SN-0001\n"
                                           "Last part:      SN-0002\n"
                                           "Next part:      SN-0003\n"));
        QCOMPARE(first.exitCode, 0);
        QVERIFY(written("a-0001.json") != written("a-0002.json"));
        const ZtmarkRun second = job("serial.ztd -o b.nc");
        QCOMPARE(second.out, QStringLiteral("Part:           SN-0003\nNext part:      SN-0004\n"));
        QCOMPARE(textOf("serial.ztd"), QStringLiteral("SN-0004"));
        QVERIFY(!QFile::exists(path("serial.ztd.lock")));
    }

    void quiet_tellsWarningsAlone()
    {
        makeDrawing(100);
        const ZtmarkRun run = job("serial.ztd -q -o a.nc");
        QCOMPARE(run.out + run.err, QString());
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(textOf("serial.ztd"), QStringLiteral("SN-0002"));
        QVERIFY(job("serial.ztd -q -o a.nc --time").out.startsWith(QStringLiteral("Seconds")));
        QVERIFY(job("corner.plt -q -o a.nc").err.contains(QStringLiteral("was given no values")));
    }

    void serialNumbers_differInEachPartOfOneFile()
    {
        makeDrawing(100);
        QCOMPARE(job("serial.ztd -o a.nc --parts 3 --optimize none").exitCode, 0);
        testsupport::Controller controller;
        controller.run(written("a.nc"));
        QCOMPARE(controller.fault, QString());
        QCOMPARE(controller.pauses, 2);
        const QList<QByteArray> parts = written("a.nc").split('M'); // M0 is among what parts them
        QVERIFY(parts.size() > 3);
        QCOMPARE(textOf("serial.ztd"), QStringLiteral("SN-0004"));
    }

    void serialNumbers_stayForTimeAndFrame()
    {
        makeDrawing(100);
        const QByteArray before = written("serial.ztd");
        QCOMPARE(job("serial.ztd --time --parts 5").exitCode, 0);
        QCOMPARE(job("serial.ztd --frame hull -o f.nc").exitCode, 0);
        QCOMPARE(written("serial.ztd"), before);
    }

    void serialNumbers_stayWhenAFileFails_andNoneIsLeft()
    {
        makeDrawing(100);
        const QByteArray before = written("serial.ztd");
        QVERIFY(QFile::link(QStringLiteral("/dev/full"), path("b.nc")));
        const ZtmarkRun run = job("serial.ztd -o a.nc -o b.nc --parts 2");
        QCOMPARE(run.exitCode, 1);
        QVERIFY2(run.err.contains(QStringLiteral("ztmark: b.nc: ")), qPrintable(run.err));
        QVERIFY2(
            run.err.contains(QStringLiteral("ztmark: a.nc: taken back, as the job is not whole\n")),
            qPrintable(run.err));
        QVERIFY(!QFile::exists(path("a.nc")));
        QCOMPARE(written("serial.ztd"), before);
    }

    void serialNumbers_thatCannotBeKept_leaveNoFile()
    {
        makeDrawing(100);
        const QByteArray before = written("serial.ztd");
        // Files may grow to a block of 1 KiB, which the frame of a dot fits in, a drawing does not.
        const ZtmarkRun run = runShell("trap '' XFSZ; ulimit -f 4; \"$ZTMARK\" job serial.ztd "
                                       "--profile galvo.json -o a.csv",
                                       m_folder->path());
        QCOMPARE(run.exitCode, 1);
        QCOMPARE(written("serial.ztd"), before);
        QVERIFY(!QFile::exists(path("a.csv")));
    }

    void serialNumbers_thatEnd_areToldBeforeAnythingIsWritten()
    {
        makeDrawing(3);
        const ZtmarkRun run = job("serial.ztd -o a.nc --parts 4");
        QCOMPARE(run.err, QStringLiteral("ztmark: serial.ztd: the serial number ends after part 3 "
                                         "of 4\n"));
        QCOMPARE(run.exitCode, 1);
        QVERIFY(!QFile::exists(path("a.nc")));
    }

    void serialNumbers_theLastOne_isMarkedOnceAlone()
    {
        makeDrawing(3);
        const ZtmarkRun last = job("serial.ztd -o a.nc --parts 3");
        QVERIFY2(last.out.endsWith(QStringLiteral("Next part:      none, the numbers are used "
                                                  "up\n")),
                 qPrintable(last.out));
        const ZtmarkRun beyond = job("serial.ztd -o b.nc");
        QCOMPARE(beyond.err,
                 QStringLiteral("ztmark: serial.ztd: the serial number of \"SN-0003\" is "
                                "used up: SN-0003 was the last\n"));
        QCOMPARE(beyond.exitCode, 1);
        QVERIFY(!QFile::exists(path("b.nc")));
    }

    void serialNumbers_thatAreSharedByShapes_endTogether()
    {
        // Two shapes take turns: 1 and 2, 3 and 4; the fifth has no partner.
        makeDrawing(5, 0.0, 2);
        const ZtmarkRun first = job("serial.ztd -o a.nc --parts 2");
        QCOMPARE(first.err, QString());
        QCOMPARE(first.out, QStringLiteral("Parts:          2\n"
                                           "First part:     SN-0001 SN-0002\n"
                                           "Last part:      SN-0003 SN-0004\n"
                                           "Next part:      none, the numbers are used up\n"));
        QCOMPARE(job("serial.ztd -o b.nc").exitCode, 1);
        QCOMPARE(job("serial.ztd --time").exitCode, 1);
    }

    void serialNumbers_thatAreExtended_goOnWithTheNext()
    {
        makeDrawing(3);
        QCOMPARE(job("serial.ztd -o a.nc --parts 3").exitCode, 0);
        extendTo(9);
        const ZtmarkRun next = job("serial.ztd -o b.nc");
        QCOMPARE(next.err, QString());
        QCOMPARE(next.out, QStringLiteral("Part:           SN-0004\nNext part:      SN-0005\n"));
    }

    void serialNumbers_areTakenByOneJobAtATime()
    {
        makeDrawing(100);
        QLockFile other(path("serial.ztd.lock"));
        QVERIFY(other.tryLock());
        const ZtmarkRun run = job("serial.ztd -o a.nc");
        QCOMPARE(run.err, QStringLiteral("ztmark: serial.ztd: another job takes numbers of it, as "
                                         "\"serial.ztd.lock\" says: try again afterwards\n"));
        QCOMPARE(run.exitCode, 1);
        QVERIFY(!QFile::exists(path("a.nc")));
    }

    // One reads the drawing while the other one saves it: five of twelve rounds gave a number
    // twice.
    void serialNumbers_ofJobsAtOnce_comeOnce()
    {
        constexpr int kRounds = 4;
        constexpr int kJobs = 6;
        makeDrawing(1000);
        QStringList parts;
        for (int round = 0; round < kRounds; ++round) {
            std::vector<std::unique_ptr<QProcess>> jobs;
            for (int i = 0; i < kJobs; ++i)
                jobs.push_back(started(QStringLiteral("job-%1-%2.nc").arg(round).arg(i)));
            for (const auto &process : jobs) {
                QVERIFY(process->waitForFinished());
                const QByteArray told = process->readAllStandardOutput();
                if (process->exitCode() == 0)
                    parts << QString::fromUtf8(told.left(told.indexOf('\n')));
            }
        }
        QVERIFY(parts.size() > kRounds); // they wait for each other, for a while
        QCOMPARE(parts.removeDuplicates(), 0);
        QCOMPARE(textOf("serial.ztd"),
                 QStringLiteral("SN-%1").arg(parts.size() + 1, 4, 10, QLatin1Char('0')));
    }

    // As a power cut leaves it.
    void lockThatNamesNobody_isPassedOver_whenItIsOld()
    {
        makeDrawing(100);
        put("serial.ztd.lock", QByteArray());
        QCOMPARE(job("serial.ztd -o a.nc").exitCode, 1);
        QFile lock(path("serial.ztd.lock"));
        QVERIFY(lock.open(QIODevice::ReadWrite));
        QVERIFY(lock.setFileTime(QDateTime::currentDateTime().addSecs(-11),
                                 QFileDevice::FileModificationTime));
        lock.close();
        const ZtmarkRun run = job("serial.ztd -o a.nc");
        QCOMPARE(run.err, QString());
        QCOMPARE(run.exitCode, 0);
        QVERIFY(!QFile::exists(path("serial.ztd.lock")));
    }

    // Each is a name that a machine's file may have by its extension.
    void output_neverOverwritesWhatTheJobIsMadeOf()
    {
        put("names.csv", "Anna\nBerta\n");
        makeListDrawing("names.csv");
        QVERIFY(QFile::link(QStringLiteral("names.csv"), path("link.csv")));
        const auto refused = [this](const char *arguments, const char *output) {
            const ZtmarkRun run = job(arguments);
            QCOMPARE(run.err,
                     QStringLiteral("ztmark: %1: would overwrite a file that it is made of\n")
                         .arg(QLatin1String(output)));
            QCOMPARE(run.exitCode, 1);
        };
        refused("list.ztd -o names.csv", "names.csv");
        refused("list.ztd -o a.nc -o link.csv", "link.csv");
        refused("corner.plt --pens pens.json -o pens.json", "pens.json");
        refused("corner.plt --profile galvo.json -o ./galvo.json", "./galvo.json");
        QCOMPARE(written("names.csv"), QByteArray("Anna\nBerta\n"));
        QCOMPARE(written("pens.json"), kPens);
        QCOMPARE(written("galvo.json"), kGalvo);
        QVERIFY(!QFile::exists(path("a.nc")));
        const ZtmarkRun marked = runZtmark({QStringLiteral("mark"), QStringLiteral("list.ztd"),
                                            QStringLiteral("-o"), QStringLiteral("names.csv")},
                                           m_folder->path());
        QCOMPARE(marked.exitCode, 1);
        QCOMPARE(written("names.csv"), QByteArray("Anna\nBerta\n"));
        QCOMPARE(job("list.ztd -o b.csv").err, QString());
    }

    void output_neverHasTheNameOfADrawing()
    {
        makeDrawing(100);
        const QByteArray before = written("serial.ztd");
        for (const char *name : {"serial.ztd", "OTHER.ZTD", "a.ztd.numbers", "a.ztd.lock"}) {
            const ZtmarkRun run = job(QStringLiteral("corner.plt -o %1").arg(QLatin1String(name)));
            QCOMPARE(run.exitCode, 2);
            QVERIFY2(
                run.err.contains(QStringLiteral("\"%1\" names no job: .").arg(QLatin1String(name))),
                qPrintable(run.err));
        }
        QCOMPARE(written("serial.ztd"), before);
        QVERIFY(!QFile::exists(path("OTHER.ZTD")));
    }

    // Killed with files out that a machine may have run, before the drawing knows of it.
    void killedJob_usesUpItsNumbers_andTheNextOneSaysSo()
    {
        makeDrawing(5000);
        const QByteArray drawn = written("serial.ztd");
        killAfterTheFirstFile("k.svg");
        if (QTest::currentTestFailed())
            return;
        QCOMPARE(written("serial.ztd"), drawn);
        QVERIFY(QFile::exists(path("serial.ztd.numbers")));
        // A look at the time takes no number, and passes none over.
        QCOMPARE(job("serial.ztd --time").err, QString());
        // Killed once more, the numbers of both are gone.
        killAfterTheFirstFile("l.svg");
        if (QTest::currentTestFailed())
            return;
        const ZtmarkRun next = job("serial.ztd -o m.nc --parts 2");
        QCOMPARE(next.err,
                 QStringLiteral("ztmark: serial.ztd: warning: a job that was interrupted took "
                                "SN-0001 to SN-1000; they are passed over, for its files may have "
                                "been run\n"));
        QCOMPARE(next.out, QStringLiteral("Parts:          2\n"
                                          "First part:     SN-1001\n"
                                          "Last part:      SN-1002\n"
                                          "Next part:      SN-1003\n"));
        QVERIFY(!QFile::exists(path("serial.ztd.numbers")));
        QCOMPARE(job("serial.ztd -o n.nc").err, QString());
    }

    void killedJob_ofADrawingReachedByALink_usesUpItsNumbers()
    {
        makeDrawing(5000);
        QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("links")));
        QVERIFY(QFile::link(path("serial.ztd"), path("links/other.ztd")));
        killAfterTheFirstFile("k.svg", "links/other.ztd");
        if (QTest::currentTestFailed())
            return;
        const ZtmarkRun next = job("serial.ztd -o m.nc");
        QVERIFY2(next.out.contains(QStringLiteral("Part:           SN-0501\n")),
                 qPrintable(next.out));
        QVERIFY(next.err.contains(QStringLiteral("SN-0001 to SN-0500")));
    }

    // Somebody saves it in the studio while a long job runs.
    void drawingThatIsSavedDuringAJob_keepsWhatWasSaved()
    {
        makeDrawing(5000);
        const auto process = started(QStringLiteral("a.svg"), 500);
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(path("a-0001.svg")), 60000);
        extendTo(4000);
        const QByteArray saved = written("serial.ztd");
        QVERIFY(process->waitForFinished());
        QCOMPARE(process->exitCode(), 0);
        QVERIFY(written("serial.ztd") == saved);
        QVERIFY(process->readAllStandardError().contains(
            "another program changed it meanwhile; its next numbers stand in "
            "\"serial.ztd.numbers\""));
        QVERIFY(QFile::exists(path("a-0500.svg")));
        QVERIFY(
            job("serial.ztd -o m.nc").out.startsWith(QStringLiteral("Part:           SN-0501")));
    }

    void interruptedJob_andNumbersChangedSince_areTold()
    {
        makeDrawing(5000);
        killAfterTheFirstFile("k.svg");
        if (QTest::currentTestFailed())
            return;
        put("serial.ztd.numbers",
            written("serial.ztd.numbers").replace("\"before\": \"", "\"before\": \"9"));
        const ZtmarkRun next = job("serial.ztd -o m.nc");
        QCOMPARE(next.err, QStringLiteral("ztmark: serial.ztd: warning: a job that was interrupted "
                                          "took SN-0001 to SN-0500; the numbers of the drawing "
                                          "were changed since\n"));
        QVERIFY(next.out.startsWith(QStringLiteral("Part:           SN-0001\n")));
    }

    void unreadableNote_stopsAJob()
    {
        makeDrawing(5000);
        const QByteArray drawn = written("serial.ztd");
        put("serial.ztd.numbers", "{ cut off");
        const ZtmarkRun run = job("serial.ztd -o m.nc");
        QCOMPARE(run.exitCode, 1);
        QVERIFY2(run.err.startsWith(
                     QStringLiteral("ztmark: serial.ztd: \"serial.ztd.numbers\" cannot be read: ")),
                 qPrintable(run.err));
        QVERIFY2(run.err.endsWith(QStringLiteral(
                     "It told which numbers a job took. See to the drawing's next numbers, then "
                     "remove it.\n")),
                 qPrintable(run.err));
        QVERIFY(!QFile::exists(path("m.nc")));
        QCOMPARE(written("serial.ztd"), drawn);
        QCOMPARE(written("serial.ztd.numbers"), QByteArray("{ cut off"));
    }

    void interruptedJob_thatTookTheLastNumber_leavesNone()
    {
        makeDrawing(500);
        killAfterTheFirstFile("k.svg");
        if (QTest::currentTestFailed())
            return;
        const ZtmarkRun next = job("serial.ztd -o m.nc");
        QCOMPARE(next.exitCode, 1);
        QVERIFY2(next.err.contains(QStringLiteral("is used up: SN-0500 was the last")),
                 qPrintable(next.err));
        QVERIFY(!QFile::exists(path("m.nc")));
        QVERIFY(QFile::exists(path("serial.ztd.numbers")));
    }

    void failedJob_leavesTheNoteOfTheInterruptedOne()
    {
        makeDrawing(5000);
        killAfterTheFirstFile("k.svg");
        if (QTest::currentTestFailed())
            return;
        const QByteArray note = written("serial.ztd.numbers");
        QVERIFY(QFile::link(QStringLiteral("/dev/full"), path("b.nc")));
        QCOMPARE(job("serial.ztd -o b.nc").exitCode, 1);
        QCOMPARE(written("serial.ztd.numbers"), note);
    }

    // A square of 10 mm: a line in its middle, 8 mm long, and a ring 3 mm inside, 4 mm wide.
    void hatches_ofADrawing_areMarkedTimedAndTold()
    {
        ZTGraphicsDocument document;
        document.itemMag()->scene()->setSceneRect(QRectF(-5000, -5000, 10000, 10000));
        auto *item = document.itemMag()->addShape(ShapeType::Rect, {0, 0, 10, 10});
        QVERIFY(item != nullptr);
        item->setPos(0, 0);
        hostkit::ShapeHatch line;
        line.spacingMm = 5.0;
        line.insetMm = 1.0;
        line.moment = hostkit::HatchMoment::BeforeOutline;
        hostkit::ShapeHatch ring;
        ring.kind = hostkit::HatchKind::Contours;
        ring.spacingMm = 3.0;
        ring.pen = 2;
        ring.passes = 2;
        ZTFillParam fill = item->getFillParam();
        hostkit::ItemExtras extras;
        hostkit::setHatches({line, ring}, &fill, &extras);
        item->setFillParam(fill);
        hostkit::setItemExtras(*item, extras);
        jobkit::setDrawingPens(document, {jobkit::defaultPen(1), jobkit::defaultPen(2)});
        QVERIFY(hostkit::saveDrawing(document, {}, path("h.ztd"), nullptr));

        const ZtmarkRun told =
            runZtmark({QStringLiteral("info"), QStringLiteral("h.ztd")}, m_folder->path());
        QVERIFY2(told.out.contains(QStringLiteral(
                     "Hatches:           2\n"
                     "  contours, 3 mm, pen 2, passes: 2, shapes: 1\n"
                     "  single lines, 5 mm, 0 degrees, inset 1 mm, pen 1, before the outlines, "
                     "shapes: 1\n")),
                 qPrintable(told.out));
        const ZtmarkRun timed = job("h.ztd --profile galvo.json -o h.csv --time --json");
        QCOMPARE(timed.err, QString());
        const QJsonObject byPen = QJsonDocument::fromJson(timed.out.toUtf8())
                                      .object()[QStringLiteral("byPen")]
                                      .toObject();
        const auto markS = [&byPen](const char *pen) {
            return byPen[QLatin1String(pen)].toObject()[QStringLiteral("markS")].toDouble();
        };
        QVERIFY(std::abs(markS("1") - (40.0 + 8.0) / 500.0) < 1e-6);
        QVERIFY(std::abs(markS("2") - 2 * 16.0 / 500.0) < 1e-6);
        QStringList order;
        const QList<QByteArray> rows = written("h.csv").split('\n');
        for (const QByteArray &row : rows) {
            const QList<QByteArray> cells = row.split(',');
            if (cells.size() > 5 && cells[5] == "0")
                order << QString::fromLatin1(cells[3] + '/' + cells[2] + '/' + cells[4]);
        }
        // Hatch, pen and pass of each piece: the line first, the ring once more at the end.
        QCOMPARE(order.first(), QStringLiteral("1/1/1"));
        QCOMPARE(order.size(), 4);
        QCOMPARE(order.last(), QStringLiteral("2/2/2"));
        const ZtmarkRun marked = runZtmark({QStringLiteral("mark"), QStringLiteral("h.ztd"),
                                            QStringLiteral("-o"), QStringLiteral("h.json")},
                                           m_folder->path());
        QCOMPARE(marked.exitCode, 0);
        const QByteArray marks = written("h.json");
        QVERIFY(marks.contains("\"pen\": 2") || marks.contains("\"pen\":2"));
    }

    // What burns at values that nobody chose is said, and no faster than the machine.
    void pensWithoutValues_areToldAndMark()
    {
        const ZtmarkRun bare = job("corner.plt -o a.nc");
        QCOMPARE(bare.exitCode, 0);
        QVERIFY2(bare.err.startsWith(QStringLiteral("ztmark: corner.plt: warning: Pen 1 of ")),
                 qPrintable(bare.err));
        QVERIFY2(
            bare.err.endsWith(QStringLiteral(" was given no values: it marks with 100 mm/s and "
                                             "50 % power.\n")),
            qPrintable(bare.err));
        QVERIFY(written("a.nc").contains("F6000"));
        put("far.plt", "SP2;PU0,0;PD40,0;");
        const ZtmarkRun lacking = job("far.plt --pens pens.json --profile galvo.json -o b.nc");
        QCOMPARE(lacking.exitCode, 0);
        QVERIFY2(lacking.err.contains(QStringLiteral("warning: Pen 2 of ")),
                 qPrintable(lacking.err));
        QVERIFY2(lacking.err.contains(QStringLiteral("500 mm/s")), qPrintable(lacking.err));
        QCOMPARE(job("corner.plt --pens pens.json -o c.nc").err, QString());
        QCOMPARE(job("corner.plt --frame box -o d.nc").err, QString()); // has a pen of its own
    }

    void damagedPens_areToldWithTheField()
    {
        ZTGraphicsDocument document;
        document.itemMag()->addShape(ShapeType::Rect, {0, 0, 10, 10});
        hostkit::DrawingExtras extras;
        extras.fields.insert("pens", "{\"format\": 7}");
        hostkit::setDrawingExtras(document, extras);
        QVERIFY(hostkit::saveDrawing(document, {}, path("bad.ztd"), nullptr));
        const ZtmarkRun run = job("bad.ztd --profile galvo.json -o a.nc --outside");
        QVERIFY2(run.err.contains(QStringLiteral("warning: its pens cannot be read: format")),
                 qPrintable(run.err));
        QVERIFY2(run.err.contains(QStringLiteral("was given no values")), qPrintable(run.err));
    }

    void checks_areTold_withTheObject()
    {
        // A drawing as it lies: 500 mm to the right of the middle.
        makeDrawing(100, 500.0);
        const ZtmarkRun run = job("serial.ztd -o a.nc");
        QCOMPARE(run.err,
                 QStringLiteral("ztmark: serial.ztd: \"SN-0001\" reaches beyond the field.\n"
                                "ztmark: serial.ztd: nothing written\n"));
        QCOMPARE(run.exitCode, 1);
        QVERIFY(!QFile::exists(path("a.nc")));
        const ZtmarkRun told = job("serial.ztd -o a.nc --outside");
        QCOMPARE(told.err, QStringLiteral("ztmark: serial.ztd: warning: \"SN-0001\" reaches beyond "
                                          "the field.\n"));
        QCOMPARE(told.exitCode, 0);
    }

    void failures_areExitCode1_data()
    {
        QTest::addColumn<QString>("arguments");
        QTest::addColumn<QString>("complaint");
        const auto row = [](const char *arguments, const char *complaint) {
            QTest::newRow(arguments)
                << QString::fromLatin1(arguments) << QString::fromLatin1(complaint);
        };
        row("none.plt", "none.plt: no such file");
        row("corner.plt --profile mill", "mill: neither a file nor a profile on board, which are "
                                         "galvo-fiber, grbl-diode");
        row("corner.plt --pens none.json", "none.json: no such file");
        row("corner.plt -o none/a.nc", "none/a.nc: the folder does not exist");
        row("corner.plt -o corner.plt", "corner.plt: would overwrite the drawing it is made of");
    }

    void failures_areExitCode1()
    {
        QFETCH(QString, arguments);
        QFETCH(QString, complaint);
        const ZtmarkRun run = job(arguments);
        QCOMPARE(run.err, QStringLiteral("ztmark: %1\n").arg(complaint));
        QCOMPARE(run.exitCode, 1);
    }

    void wrongUsage_isExitCode2_data()
    {
        QTest::addColumn<QString>("arguments");
        for (const char *arguments :
             {"", "corner.plt --optimize fast", "corner.plt --parts 0", "corner.plt --parts 10001",
              "corner.plt --frame circle", "corner.plt --frame box --parts 2",
              "serial.ztd --hatch line", "serial.ztd --size 10x10", "corner.plt --separate"})
            QTest::newRow(*arguments == '\0' ? "nothing" : arguments)
                << QString::fromLatin1(arguments);
    }

    void wrongUsage_isExitCode2()
    {
        QFETCH(QString, arguments);
        makeDrawing(9);
        const ZtmarkRun run = job(arguments);
        QCOMPARE(run.exitCode, 2);
        QCOMPARE(run.err.count(QLatin1Char('\n')), 1);
    }

    void profiles_areListedShownAndChecked()
    {
        QVERIFY(profile("list").out.startsWith(QStringLiteral("galvo-fiber ")));
        const ZtmarkRun shown = profile("show grbl-diode");
        put("own.json", shown.out.toUtf8());
        QCOMPARE(profile("check own.json").out, QStringLiteral("grbl-diode: without fault\n"));
        put("own.json", kGantry.left(kGantry.size() - 1) + ",\"decimals\":9}");
        const ZtmarkRun faulty = profile("check own.json");
        QCOMPARE(faulty.exitCode, 1);
        QCOMPARE(faulty.err,
                 QStringLiteral("ztmark: own.json: decimals: 0 to 6 is allowed, not 9\n"));
        QCOMPARE(profile("check nothing").exitCode, 1);
        QCOMPARE(profile("").exitCode, 2);
    }

private:
    /** A job of 500 parts, a file each, that is killed as soon as the first is there. */
    void killAfterTheFirstFile(const char *output, const char *drawing = "serial.ztd")
    {
        const QString name = QString::fromLatin1(output);
        QProcess process;
        process.setWorkingDirectory(m_folder->path());
        process.start(QStringLiteral(ZT_ZTMARK),
                      {QStringLiteral("job"), QString::fromLatin1(drawing), QStringLiteral("-o"),
                       name, QStringLiteral("--parts"), QStringLiteral("500"),
                       QStringLiteral("--optimize"), QStringLiteral("none")});
        const QString first =
            m_folder->filePath(QString(name).replace(QLatin1String("."), QLatin1String("-0001.")));
        const QString last =
            m_folder->filePath(QString(name).replace(QLatin1String("."), QLatin1String("-0500.")));
        QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(first), 60000);
        process.kill();
        QVERIFY(process.waitForFinished());
        QCOMPARE(process.exitStatus(), QProcess::CrashExit);
        QVERIFY2(!QFile::exists(last), "the job was faster than its end");
    }

    /** A job of serial.ztd that runs. */
    std::unique_ptr<QProcess> started(const QString &output, int parts = 1) const
    {
        auto process = std::make_unique<QProcess>();
        process->setWorkingDirectory(m_folder->path());
        process->start(QStringLiteral(ZT_ZTMARK),
                       {QStringLiteral("job"), QStringLiteral("serial.ztd"), QStringLiteral("-o"),
                        output, QStringLiteral("--optimize"), QStringLiteral("none"),
                        QStringLiteral("--parts"), QString::number(parts)});
        return process;
    }

    void put(const char *name, const QByteArray &content)
    {
        QFile file(path(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(content), qint64(content.size()));
    }

    /**
     * A drawing with the text SN-0001, to be counted up to `last`, near the middle; or with several
     * below each other that share the numbers.
     */
    void makeDrawing(qint64 last, double leftMm = 0.0, int shapes = 1)
    {
        ZTGraphicsDocument document;
        document.itemMag()->scene()->setSceneRect(QRectF(-5000, -5000, 10000, 10000));
        for (int shape = 0; shape < shapes; ++shape)
            addText(document, last, QPointF(leftMm, 20.0 * shape), shape, shapes);
        jobkit::Pen pen = jobkit::defaultPen(1);
        pen.speedMmPerS = 80.0; // of which there is nothing to tell
        jobkit::setDrawingPens(document, {pen});
        QVERIFY(hostkit::saveDrawing(document, {}, path("serial.ztd"), nullptr));
    }

    /** list.ztd, whose text takes its rows from the file. */
    void makeListDrawing(const char *file)
    {
        ZTGraphicsDocument document;
        document.itemMag()->scene()->setSceneRect(QRectF(-5000, -5000, 10000, 10000));
        ZTGraphicsTextItem *item = newText(document);
        ZTTextFileSegment rows;
        rows.path = path(file);
        item->getVariantText()->setSegments({rows});
        hostkit::NextPart::make({item});
        jobkit::Pen pen = jobkit::defaultPen(1);
        pen.speedMmPerS = 80.0; // of which there is nothing to tell
        jobkit::setDrawingPens(document, {pen});
        QVERIFY(hostkit::saveDrawing(document, {}, path("list.ztd"), nullptr));
    }

    /** A variant text without segments. */
    static ZTGraphicsTextItem *newText(ZTGraphicsDocument &document)
    {
        auto *item = qobject_cast<ZTGraphicsTextItem *>(
            document.itemMag()->addShape(ShapeType::Text, {0, 0, 10, 10}));
        item->setEnableVariantText(true);
        return item;
    }

    void addText(ZTGraphicsDocument &document, qint64 last, const QPointF &placeMm, int shape,
                 int shapes)
    {
        ZTGraphicsTextItem *item = newText(document);
        ZTCounterSegment counter;
        counter.width = 4;
        counter.last = last;
        counter.updates = quint64(shape);
        item->getVariantText()->setSegments({ZTFixedTextSegment{QStringLiteral("SN-")}, counter});
        hostkit::NextPart::make({item});
        item->setPos(ZTCoord::getInstance()->getMm2pixTransform().map(placeMm));
        hostkit::ItemExtras extras = hostkit::itemExtras(*item);
        extras.valuesPerPart = shapes;
        hostkit::setItemExtras(*item, extras);
    }

    /** Lets the text of the drawing be counted up to `last`. */
    void extendTo(qint64 last)
    {
        hostkit::DrawingFile drawing;
        ZTGraphicsDocument document;
        QVERIFY(readDrawing(path("serial.ztd"), &drawing, nullptr));
        QVERIFY(applyDrawing(drawing, document, {}, nullptr, nullptr));
        for (QGraphicsItem *candidate : document.itemMag()->scene()->items()) {
            auto *item = dynamic_cast<ZTGraphicsTextItem *>(candidate);
            if (item == nullptr)
                continue;
            QVector<ZTVariantTextSegment> segments = item->getVariantText()->getSegments();
            std::get<ZTCounterSegment>(segments[1]).last = last;
            item->getVariantText()->setSegments(segments);
        }
        QVERIFY(hostkit::saveDrawing(document, {}, path("serial.ztd"), nullptr));
    }

    /** What the text of a drawing shows. */
    QString textOf(const char *name) const
    {
        hostkit::DrawingFile drawing;
        ZTGraphicsDocument document;
        if (!readDrawing(path(name), &drawing, nullptr) ||
            !applyDrawing(drawing, document, {}, nullptr, nullptr))
            return QStringLiteral("not loaded");
        for (QGraphicsItem *candidate : document.itemMag()->scene()->items()) {
            if (auto *item = dynamic_cast<ZTGraphicsTextItem *>(candidate))
                return item->text();
        }
        return QStringLiteral("no text");
    }

    ZtmarkRun job(const char *arguments) const { return job(QString::fromLatin1(arguments)); }

    ZtmarkRun job(const QString &arguments) const
    {
        return runZtmark(
            QStringLiteral("job %1").arg(arguments).split(QLatin1Char(' '), Qt::SkipEmptyParts),
            m_folder->path());
    }

    ZtmarkRun profile(const char *arguments) const
    {
        return runZtmark(QStringLiteral("profile %1")
                             .arg(QLatin1String(arguments))
                             .split(QLatin1Char(' '), Qt::SkipEmptyParts),
                         m_folder->path());
    }

    static QJsonObject json(const ZtmarkRun &run)
    {
        return QJsonDocument::fromJson(run.out.toUtf8()).object();
    }

    static double markS(const ZtmarkRun &run)
    {
        return json(run)
            .value(QStringLiteral("part"))
            .toObject()
            .value(QStringLiteral("markS"))
            .toDouble();
    }

    static void near(const QJsonObject &sums, const char *name, double expected)
    {
        const double actual = sums.value(QLatin1String(name)).toDouble(-1.0);
        QVERIFY2(qAbs(actual - expected) < 1e-9, qPrintable(QStringLiteral("%1: %2 instead of %3")
                                                                .arg(QLatin1String(name))
                                                                .arg(actual, 0, 'g', 12)
                                                                .arg(expected, 0, 'g', 12)));
    }

    QByteArray written(const char *name) const { return bytesOf(path(name)); }

    QString path(const char *name) const { return m_folder->filePath(QLatin1String(name)); }

    std::unique_ptr<testsupport::SingletonGuard> m_guard;
    std::unique_ptr<QTemporaryDir> m_folder;
};

QTEST_MAIN(tst_JobCommand)
#include "tst_JobCommand.moc"
