#include "support/GcodeController.h"
#include "support/Skip.h"

#include <jobkit/plan/JobFrame.h>
#include <jobkit/writers/JobWriter.h>

#include <QtCore/QBuffer>
#include <QtCore/QFile>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QProcess>
#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryDir>
#include <QtGui/QImage>
#include <QtTest/QTest>

#include <cmath>
#include <random>

using namespace jobkit;
using testsupport::Burn;
using testsupport::Controller;

namespace {

JobPlan somePlan()
{
    JobPlan plan;
    const auto add = [&](const QVector<QPointF> &points, int pen) {
        PlanPiece piece;
        piece.pointsMm = points;
        piece.pen = pen;
        piece.object = plan.pieces.size();
        plan.pieces.append(piece);
    };
    add({{-10, -5}, {10, -5}, {10, 5}, {-10, 5}, {-10, -5}}, 1);
    add({{0, 0}, {0.123456, 3.5}}, 2);
    add({{0.123456, 3.5}, {7, 7}, {8, 7}}, 1);
    add({{5, 5}}, 1);
    return plan;
}

QVector<Pen> somePens()
{
    QVector<Pen> pens{defaultPen(1), defaultPen(2)};
    pens[0].name = QStringLiteral("cut; M3 (deep) \u00e4");
    pens[0].speedMmPerS = 20.0;
    pens[0].powerPercent = 80.0;
    pens[0].color = QColor(255, 10, 0);
    pens[1].speedMmPerS = 90.0;
    pens[1].powerPercent = 12.5;
    pens[1].powerMode = PowerMode::Constant;
    pens[1].color = QColor(0, 0, 200);
    return pens;
}

MachineProfile someProfile()
{
    MachineProfile profile;
    profileOnBoard(QStringLiteral("grbl-diode"), &profile);
    profile.decimals = 6;
    return profile;
}

QByteArray written(JobForm form, const JobFile &job)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    if (!writeJob(form, job, buffer))
        return {};
    return buffer.data();
}

QByteArray written(JobForm form)
{
    return written(form, {{somePlan()}, somePens(), someProfile(), QStringLiteral("a <job>"), {}});
}

bool isNear(const QPointF &a, const QPointF &b, double away)
{
    return std::hypot(a.x() - b.x(), a.y() - b.y()) <= away;
}

QString problemOf(const QByteArray &program, const JobPlan &plan, const JobFile &job)
{
    Controller controller;
    controller.run(program);
    if (!controller.fault.isEmpty())
        return controller.fault;
    if (controller.burns.size() != plan.pieces.size())
        return QStringLiteral("%1 pieces").arg(controller.burns.size());
    for (int i = 0; i < plan.pieces.size(); ++i) {
        const Burn &burn = controller.burns[i];
        QPolygonF expected = plan.pieces[i].pointsMm;
        if (expected.size() == 1)
            expected.append(expected.first());
        const Pen pen = penOf(job.pens, plan.pieces[i].pen, job.profile);
        if (burn.machineMm.size() != expected.size())
            return QStringLiteral("piece %1 has %2 points").arg(i).arg(burn.machineMm.size());
        for (int k = 0; k < expected.size(); ++k) {
            if (!isNear(burn.machineMm[k], job.profile.toMachine(expected[k]), 2e-5))
                return QStringLiteral("piece %1 is elsewhere").arg(i);
        }
        if (std::abs(burn.power - pen.powerPercent * job.profile.mostPower / 100.0) > 0.001)
            return QStringLiteral("piece %1 has power %2").arg(i).arg(burn.power);
        if (std::abs(burn.feedMmPerMin - pen.speedMmPerS * 60.0) > 0.05)
            return QStringLiteral("piece %1 has feed %2").arg(i).arg(burn.feedMmPerMin);
        const bool isDot = plan.pieces[i].isDot();
        if (std::abs(burn.dwellS - (isDot ? pen.dotMs / 1000.0 : 0.0)) > 1e-9)
            return QStringLiteral("piece %1 stands still for %2 s").arg(i).arg(burn.dwellS);
        if (burn.mode != (pen.powerMode == PowerMode::Dynamic && !isDot ? '4' : '3'))
            return QStringLiteral("piece %1 has mode %2").arg(i).arg(burn.mode);
    }
    return {};
}

/** Runs a program of another maker; what it says, or a null text where it fails. */
QString outputOf(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(60000) || process.exitCode() != 0) {
        qInfo("%s: %s", qPrintable(program), process.readAllStandardError().constData());
        return {};
    }
    return QString::fromLatin1(process.readAllStandardOutput() + process.readAllStandardError()) +
           QLatin1Char(' ');
}

QString save(const QTemporaryDir &folder, const QString &name, const QByteArray &bytes)
{
    const QString path = folder.filePath(name);
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() ? path : QString();
}

/** What an interpreter of another maker makes of a program: its polylines, and what was wrong. */
struct ReadProgram
{
    QVector<QPolygonF> burnsMm;
    QString fault;
};

/** Reads the canonical commands that rs274 says, a line each, behind "NUMBER N.....". */
ReadProgram readCanonical(const QString &said)
{
    static const QRegularExpression line(
        QStringLiteral("N\\.+ ([A-Z0-9_]+)\\(([^,)]*)(?:, ([^,)]*))?"));
    ReadProgram read;
    QPointF at;
    double power = 0.0;
    bool isOn = false;
    bool isBurning = false;
    auto commands = line.globalMatch(said);
    while (commands.hasNext()) {
        const auto command = commands.next();
        const QString name = command.captured(1);
        if (name == QLatin1String("SET_SPINDLE_SPEED"))
            power = command.captured(3).toDouble();
        else if (name.startsWith(QLatin1String("START_SPINDLE")))
            isOn = true;
        else if (name.startsWith(QLatin1String("STOP_SPINDLE")))
            isOn = false;
        if (!name.startsWith(QLatin1String("STRAIGHT_")))
            continue;
        const QPointF to(command.captured(2).toDouble(), command.captured(3).toDouble());
        const bool isJump = name == QLatin1String("STRAIGHT_TRAVERSE");
        if (isJump && isOn && power > 0.0)
            read.fault = QStringLiteral("burns during a jump");
        if (!isJump && !isBurning)
            read.burnsMm.append(QPolygonF(QVector<QPointF>{at}));
        if (!isJump)
            read.burnsMm.last().append(to);
        isBurning = !isJump;
        at = to;
    }
    if (isOn)
        read.fault = QStringLiteral("the laser is on at the end");
    return read;
}

} // namespace

class tst_JobWriter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void gcode_byHand();
    void gcode_isReadBackTheSame_data();
    void gcode_isReadBackTheSame();
    void gcode_neverBurnsInAJump_randomPlans();
    void gcode_partsHaveAPauseBetween();
    void gcode_hostileHeadIsSetRight();
    void hpgl_byHand();
    void hpgl_longLinesAreCut();
    void gcode_isReadByAnotherProgram();
    void hpgl_isReadByAnotherProgram();
    void dxf_isReadByAnotherProgram();
    void svg_isReadByAnotherProgram();
    void json_holdsPlanAndTimes();
    void csv_saysItsUnits();
    void names_pickTheForm();
    void notFiniteOrNoPart_isRefused();
    void fullDevice_isTold();
    void save_isWholeOrTold();
    void frame_boxAndHull();
    /** A drawing may ask for y upward where programs read it; what machines run stays. */
    void upwardY_isInTablesAlone_andSaid()
    {
        JobFile job{{somePlan()}, somePens(), someProfile(), QStringLiteral("a <job>"), {}};
        for (const JobForm form : {JobForm::Gcode, JobForm::Hpgl, JobForm::Dxf, JobForm::Svg}) {
            job.isYUp = false;
            const QByteArray down = written(form, job);
            job.isYUp = true;
            QCOMPARE(written(form, job), down);
        }
        const QVector<QPointF> points = job.parts.first().pieces.first().pointsMm;
        const QJsonObject file = QJsonDocument::fromJson(written(JobForm::Json, job)).object();
        QCOMPARE(file[QStringLiteral("yAxis")].toString(), QStringLiteral("up"));
        const QJsonArray shown =
            file[QStringLiteral("pieces")][0][QStringLiteral("points")].toArray();
        for (int i = 0; i < points.size(); ++i) {
            QCOMPARE(shown[i][0].toDouble(), points[i].x());
            QCOMPARE(shown[i][1].toDouble(), 0.0 - points[i].y());
        }
        const QList<QByteArray> rows = written(JobForm::Csv, job).split('\n');
        QVERIFY(rows[0].endsWith(",time_s,y_axis"));
        QVERIFY(rows[1].endsWith(",up"));
        QCOMPARE(rows[1].split(',')[7].toDouble(), 0.0 - points.first().y());
        job.isYUp = false;
        QVERIFY(!written(JobForm::Json, job).contains("yAxis"));
        QVERIFY(!written(JobForm::Csv, job).contains("y_axis"));
    }
};

void tst_JobWriter::gcode_byHand()
{
    JobPlan plan;
    plan.pieces.append(PlanPiece());
    plan.pieces[0].pointsMm = QVector<QPointF>{{0, 0}, {10, 0}, {10, 2.5}};
    MachineProfile profile = someProfile();
    profile.decimals = 3;
    profile.head = QStringLiteral("G54\n");
    // 400 x 400 with the origin at the bottom left: the middle is X200 Y200, y grows upward.
    QCOMPARE(QString::fromLatin1(
                 written(JobForm::Gcode, {{plan}, somePens(), profile, QStringLiteral("x"), {}})),
             QStringLiteral("; x\n; machine: grbl-diode\nM5 S0\nG54\nG21\nG90\nM5 S0\n"
                            "; pen 1 cut; M3 (deep) ?, 20 mm/s, 80 %, pass 1\n"
                            "M5 S0\nM4 S0\nG0 X200 Y200 S0\nG1 X210 Y200 F1200 S800\n"
                            "G1 X210 Y197.5\nM5 S0\nG0 X0 Y0\nM5 S0\nM2\n"));
}

void tst_JobWriter::gcode_isReadBackTheSame_data()
{
    QTest::addColumn<bool>("isLaserMode");
    QTest::addColumn<bool>("isInch");
    QTest::newRow("laser mode") << true << false;
    QTest::newRow("spindle mode") << false << false;
    QTest::newRow("inch") << true << true;
}

void tst_JobWriter::gcode_isReadBackTheSame()
{
    QFETCH(bool, isLaserMode);
    QFETCH(bool, isInch);
    JobFile job{{somePlan()}, somePens(), someProfile(), QString(), {}};
    job.profile.isLaserMode = isLaserMode;
    job.profile.unit = isInch ? LengthUnit::Inch : LengthUnit::Millimetre;
    QCOMPARE(problemOf(written(JobForm::Gcode, job), job.parts.first(), job), QString());
}

void tst_JobWriter::gcode_neverBurnsInAJump_randomPlans()
{
    std::mt19937 random(4);
    std::uniform_real_distribution<double> at(-180.0, 180.0);
    for (int round = 0; round < 300; ++round) {
        JobFile job{{JobPlan()}, somePens(), someProfile(), QString(), {}};
        job.profile.isLaserMode = random() % 2 == 0;
        job.profile.origin = static_cast<FieldOrigin>(random() % 5);
        job.profile.yDirection = static_cast<YDirection>(random() % 2);
        for (unsigned i = random() % 12; i > 0; --i) {
            PlanPiece piece;
            piece.pen = 1 + static_cast<int>(random() % 3);
            for (unsigned k = 1 + random() % 5; k > 0; --k)
                piece.pointsMm.append({at(random), at(random)});
            job.parts[0].pieces.append(piece);
        }
        QCOMPARE(problemOf(written(JobForm::Gcode, job), job.parts[0], job), QString());
    }
}

void tst_JobWriter::gcode_partsHaveAPauseBetween()
{
    const JobFile job{{somePlan(), somePlan(), somePlan()}, somePens(), someProfile(), {}, {}};
    Controller controller;
    controller.run(written(JobForm::Gcode, job));
    QCOMPARE(controller.fault, QString());
    QCOMPARE(controller.pauses, 2);
    QCOMPARE(controller.burns.size(), 3 * somePlan().pieces.size());
    QCOMPARE(controller.burns.last().power, 800.0);
    QVERIFY(canPause(JobForm::Gcode));
    QVERIFY(!canPause(JobForm::Dxf));
    QVERIFY(written(JobForm::Dxf, job).isEmpty());
}

void tst_JobWriter::gcode_hostileHeadIsSetRight()
{
    JobFile job{{somePlan()}, somePens(), someProfile(), QString(), {}};
    job.profile.head = QStringLiteral("G20\nM3 S900");
    job.profile.tail = QStringLiteral("G0 X0 Y0\nM3 S5");
    const QByteArray program = written(JobForm::Gcode, job);
    QCOMPARE(problemOf(program, job.parts.first(), job), QString());
}

void tst_JobWriter::hpgl_byHand()
{
    JobPlan plan = somePlan();
    plan.pieces.removeFirst();
    MachineProfile profile = someProfile();
    profile.origin = FieldOrigin::Centre;
    // 40 units a millimetre, y upward: 0.123456 mm are 4.9 units.
    QCOMPARE(
        QString::fromLatin1(written(JobForm::Hpgl, {{plan}, somePens(), profile, QString(), {}})),
        QStringLiteral("IN;\nPU;\nSP2;\nPU0,0;\nPD5,-140;\nPU;\n"
                       "SP1;\nPU5,-140;\nPD280,-280,320,-280;\nPU;\n"
                       "PU200,-200;\nPD200,-200;\nPU;\nPU;\nSP0;\n"));
}

void tst_JobWriter::hpgl_longLinesAreCut()
{
    JobPlan plan;
    plan.pieces.append(PlanPiece());
    for (int i = 0; i <= 120; ++i)
        plan.pieces[0].pointsMm.append({double(i), 0.0});
    const QByteArray text = written(JobForm::Hpgl, {{plan}, somePens(), someProfile(), {}, {}});
    const QList<QByteArray> lines = text.split('\n');
    QCOMPARE(std::count_if(lines.begin(), lines.end(),
                           [](const QByteArray &line) { return line.startsWith("PD"); }),
             3);
}

void tst_JobWriter::gcode_isReadByAnotherProgram()
{
    // Where tools/setup.sh puts it, beside the builds.
    const QString place = QCoreApplication::applicationDirPath() + QStringLiteral("/../../rs274");
    if (!QFile::exists(place + QStringLiteral("/bin/rs274")))
        ZT_SKIP("rs274 is missing: tools/setup.sh test fetches it");
    qputenv("LD_LIBRARY_PATH", QFile::encodeName(place + QStringLiteral("/lib")));
    const QTemporaryDir folder;
    const QString settings = save(folder, QStringLiteral("rs274.var"), {});
    JobFile job{{somePlan()}, somePens(), someProfile(), QStringLiteral("a"), {}};
    job.profile.decimals = 4; // as many as it says
    const QString path = save(folder, QStringLiteral("job.nc"), written(JobForm::Gcode, job));
    const QString said = outputOf(place + QStringLiteral("/bin/rs274"),
                                  {QStringLiteral("-g"), QStringLiteral("-v"), settings,
                                   QStringLiteral("-t"), settings, path});
    QVERIFY2(!said.isNull(), "rs274 failed");
    QVERIFY2(said.contains(QStringLiteral("PROGRAM_END")), qPrintable(said));
    QVERIFY2(said.contains(QStringLiteral("DWELL(0.0010)")), qPrintable(said));
    const ReadProgram read = readCanonical(said);
    QCOMPARE(read.fault, QString());
    const QVector<PlanPiece> &pieces = job.parts.first().pieces;
    QCOMPARE(read.burnsMm.size(), pieces.size());
    for (int i = 0; i < pieces.size(); ++i) {
        QPolygonF expected = pieces[i].pointsMm;
        if (pieces[i].isDot())
            expected = QPolygonF(QVector<QPointF>{expected.first(), expected.first()});
        QCOMPARE(read.burnsMm[i].size(), expected.size());
        for (int k = 0; k < expected.size(); ++k)
            QVERIFY(isNear(read.burnsMm[i][k], job.profile.toMachine(expected[k]), 1e-4));
    }
}

void tst_JobWriter::hpgl_isReadByAnotherProgram()
{
    const QTemporaryDir folder;
    const QString path = save(folder, QStringLiteral("job.plt"), written(JobForm::Hpgl));
    const QString svg = folder.filePath(QStringLiteral("job.svg"));
    const QString said =
        outputOf(QStringLiteral("hp2xx"), {QStringLiteral("-t"), QStringLiteral("-m"),
                                           QStringLiteral("svg"), QStringLiteral("-f"), svg, path});
    QVERIFY2(!said.isNull(), "hp2xx failed or is missing");
    // The extent in plotter units: x 190 to 210 mm, y 193 to 205 mm in the machine's frame.
    QVERIFY2(said.contains(QRegularExpression(QStringLiteral("7600[.0-9]*\\D+8400"))) ||
                 said.contains(QLatin1String("7600")),
             qPrintable(said));
    QVERIFY2(!said.contains(QLatin1String("Unknown"), Qt::CaseInsensitive), qPrintable(said));
    QFile file(svg);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(file.readAll().contains("<"));
}

void tst_JobWriter::dxf_isReadByAnotherProgram()
{
    const QTemporaryDir folder;
    const QString path = save(folder, QStringLiteral("job.dxf"), written(JobForm::Dxf));
    const QString script = QStringLiteral(
        "import ezdxf,sys\n"
        "d=ezdxf.readfile(sys.argv[1])\n"
        "assert not d.audit().has_errors\n"
        "print(d.dxfversion,d.layers.get('PEN_1').color,d.layers.get('PEN_2').color)\n"
        "for e in d.modelspace():\n"
        "  if e.dxftype()=='POINT': print('POINT',e.dxf.layer,'%g %g'%(e.dxf.location.x,"
        "e.dxf.location.y))\n"
        "  else: print(e.dxftype(),e.dxf.layer,int(e.is_closed),*['%g,%g'%(v.dxf.location[0],"
        "v.dxf.location[1]) for v in e.vertices])\n");
    const QString said =
        outputOf(QStringLiteral("/usr/bin/python3"), {QStringLiteral("-c"), script, path});
    QCOMPARE(said.trimmed(), QStringLiteral("AC1009 1 5\n"
                                            "POLYLINE PEN_1 1 -10,5 10,5 10,-5 -10,-5\n"
                                            "POLYLINE PEN_2 0 0,0 0.123456,-3.5\n"
                                            "POLYLINE PEN_1 0 0.123456,-3.5 7,-7 8,-7\n"
                                            "POINT PEN_1 5 -5"));
}

void tst_JobWriter::svg_isReadByAnotherProgram()
{
    const QByteArray text = written(JobForm::Svg);
    QVERIFY(text.contains("width=\"20.1mm\" height=\"12.1mm\" viewBox=\"-10.05 -5.05 20.1 12.1\""));
    QVERIFY(text.contains("<title>a &lt;job&gt;</title>"));
    QCOMPARE(text.count("<path"), 4);
    QCOMPARE(text.count("<g id=\"pen-"), 2);
    const QTemporaryDir folder;
    const QString path = save(folder, QStringLiteral("job.svg"), text);
    const QString png = folder.filePath(QStringLiteral("job.png"));
    // 40 pixels a millimetre.
    const QString said =
        outputOf(QStringLiteral("rsvg-convert"),
                 {QStringLiteral("-w"), QStringLiteral("804"), QStringLiteral("-h"),
                  QStringLiteral("484"), QStringLiteral("-o"), png, path});
    QVERIFY2(!said.isNull(), "rsvg-convert failed or is missing");
    const QImage picture(png);
    const auto at = [&](double x, double y) {
        return QColor(picture.pixelColor(int((x + 10.05) * 40.0), int((y + 5.05) * 40.0)));
    };
    QVERIFY(at(3.0, -5.0).alpha() > 200); // the outline's upper edge
    QVERIFY(at(3.0, -5.0).red() > 200);
    QCOMPARE(at(3.0, -4.5).alpha(), 0);
    QVERIFY(at(0.06, 1.75).blue() > 100); // the second piece
    QCOMPARE(at(-5.0, 2.0).alpha(), 0);   // no jump is drawn
    QCOMPARE(at(6.0, 3.0).alpha(), 0);
}

void tst_JobWriter::json_holdsPlanAndTimes()
{
    const JobFile job{{somePlan()}, somePens(), someProfile(), QStringLiteral("\"x\""), {}};
    QJsonParseError error{};
    const QJsonObject file = QJsonDocument::fromJson(written(JobForm::Json, job), &error).object();
    QCOMPARE(error.error, QJsonParseError::NoError);
    QCOMPARE(file[QStringLiteral("format")].toString(), QStringLiteral("job-plan"));
    QCOMPARE(file[QStringLiteral("title")].toString(), QStringLiteral("\"x\""));
    const QJsonArray pieces = file[QStringLiteral("pieces")].toArray();
    QCOMPARE(pieces.size(), 4);
    const JobTimes times = jobTimes(somePlan(), somePens(), someProfile());
    const QJsonObject sums = file[QStringLiteral("time")].toObject();
    QCOMPARE(sums[QStringLiteral("totalS")].toDouble(), times.all.totalS());
    const QJsonArray second = pieces[1].toObject()[QStringLiteral("points")].toArray();
    QCOMPARE(second[1].toArray()[0].toDouble(), 0.123456);
    QCOMPARE(second[1].toArray()[2].toDouble(), times.vertexS[6]);
    QCOMPARE(file[QStringLiteral("pens")].toArray().size(), 2);
}

void tst_JobWriter::csv_saysItsUnits()
{
    const QList<QByteArray> lines = written(JobForm::Csv).split('\n');
    QCOMPARE(lines[0], QByteArray("piece,object,pen,hatch,pass,point,x_mm,y_mm,time_s"));
    QCOMPARE(lines[1], QByteArray("0,0,1,0,1,0,-10,-5,0"));
    QCOMPARE(lines.size(), 1 + 5 + 2 + 3 + 1 + 1);
}

void tst_JobWriter::names_pickTheForm()
{
    QVERIFY(jobFormOf(QStringLiteral("a/b.NC")) == JobForm::Gcode);
    QVERIFY(jobFormOf(QStringLiteral("b.plt")) == JobForm::Hpgl);
    QVERIFY(jobFormOf(QStringLiteral("b.svg")) == JobForm::Svg);
    QVERIFY(!jobFormOf(QStringLiteral("b.txt")));
    QCOMPARE(jobExtensions().size(), 8);
}

void tst_JobWriter::notFiniteOrNoPart_isRefused()
{
    JobFile job{{somePlan()}, somePens(), someProfile(), QString(), {}};
    job.parts[0].pieces[2].pointsMm[1].setX(std::nan(""));
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    for (int form = 0; form < 6; ++form)
        QVERIFY(!writeJob(static_cast<JobForm>(form), job, buffer));
    job.parts.clear();
    QVERIFY(!writeJob(JobForm::Gcode, job, buffer));
    QVERIFY(buffer.data().isEmpty());
}

void tst_JobWriter::fullDevice_isTold()
{
    QFile full(QStringLiteral("/dev/full"));
    QVERIFY(full.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    const JobFile job{{somePlan()}, somePens(), someProfile(), QString(), {}};
    for (int form = 0; form < 6; ++form)
        QVERIFY(!writeJob(static_cast<JobForm>(form), job, full));
}

void tst_JobWriter::save_isWholeOrTold()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("a.nc"));
    JobFile job;
    job.parts = {somePlan(), somePlan()};
    hostkit::Failure failure;
    QVERIFY(saveJob(JobForm::Gcode, job, path, &failure));
    QBuffer expected;
    QVERIFY(expected.open(QIODevice::WriteOnly));
    QVERIFY(writeJob(JobForm::Gcode, job, expected));
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), expected.data());

    QVERIFY(!saveJob(JobForm::Svg, job, folder.filePath(QStringLiteral("a.svg")), &failure));
    QCOMPARE(failure.reason,
             QStringLiteral("several parts fit into G-code alone, which can pause"));
    job.parts = {somePlan()};
    job.parts[0].pieces[0].pointsMm[0].setX(std::nan(""));
    QVERIFY(!saveJob(JobForm::Svg, job, folder.filePath(QStringLiteral("a.svg")), &failure));
    QCOMPARE(failure.reason, QStringLiteral("a coordinate is no number"));
    job.parts.clear();
    QVERIFY(!saveJob(JobForm::Svg, job, folder.filePath(QStringLiteral("a.svg")), &failure));
    QVERIFY(!QFile::exists(folder.filePath(QStringLiteral("a.svg"))));
}

void tst_JobWriter::frame_boxAndHull()
{
    JobPlan plan;
    plan.pieces.append(PlanPiece());
    plan.pieces[0].pointsMm = QVector<QPointF>{{0, 0}, {10, 0}, {5, 1}, {5, 8}, {5, 4}};
    QCOMPARE(frameOf(plan, FrameKind::Box),
             QPolygonF(QVector<QPointF>{{0, 0}, {10, 0}, {10, 8}, {0, 8}, {0, 0}}));
    QCOMPARE(frameOf(plan, FrameKind::Hull),
             QPolygonF(QVector<QPointF>{{0, 0}, {10, 0}, {5, 8}, {0, 0}}));
    QCOMPARE(framePlan(plan, FrameKind::Hull).pieces.size(), 1);
    QCOMPARE(framePen().powerPercent, 0.0);
    plan.pieces[0].pointsMm = QVector<QPointF>{{1, 1}, {1, 1}, {4, 1}, {2, 1}};
    QCOMPARE(frameOf(plan, FrameKind::Box), QPolygonF(QVector<QPointF>{{1, 1}, {4, 1}, {1, 1}}));
    plan.pieces[0].pointsMm = QVector<QPointF>{{1, 1}};
    QCOMPARE(frameOf(plan, FrameKind::Hull), QPolygonF(QVector<QPointF>{{1, 1}}));
    QVERIFY(frameOf({}, FrameKind::Box).isEmpty());
    QVERIFY(framePlan({}, FrameKind::Hull).pieces.isEmpty());
}

QTEST_GUILESS_MAIN(tst_JobWriter)

#include "tst_JobWriter.moc"
