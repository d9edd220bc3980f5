#include <hostkit/drawing/DrawingFile.h>

#include <QtCore/QDateTime>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtGui/QImage>
#include <QtTest/QTest>

#include <csignal>
#include <memory>

/** The studio's program without a display. */
class tst_Studio : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { folder = std::make_unique<QTemporaryDir>(); }
    void cleanup() { folder.reset(); }

    void headless_withoutFile_writesTheSampleDrawing()
    {
        run({QStringLiteral("--out"), out()});
        QCOMPARE(exitCode, 0);
        QCOMPARE(stdoutText, QStringLiteral("Window:    %1/sample-window.png\n"
                                            "Mark data: %1/sample.svg\n"
                                            "Mark data: %1/sample.json\n")
                                 .arg(out()));
        const QImage window(out() + QStringLiteral("/sample-window.png"));
        QCOMPARE(window.size(), QSize(1400, 900));
        QFile json(out() + QStringLiteral("/sample.json"));
        QVERIFY(json.open(QIODevice::ReadOnly));
        QVERIFY(!QJsonDocument::fromJson(json.readAll()).object().isEmpty());
    }

    void headless_withFile_importsIt()
    {
        const QString drawing = write("PU0 0;\nPD100 0;\nPD100 100;\n");
        run({QStringLiteral("--headless"), QStringLiteral("--out"), out(), drawing});
        QCOMPARE(exitCode, 0);
        QVERIFY(QFile::exists(out() + QStringLiteral("/drawing.svg")));
        QVERIFY(QFile::exists(out() + QStringLiteral("/drawing-window.png")));
    }

    void headless_withBadFile_saysWhyAndFails()
    {
        run({QStringLiteral("--out"), out(), write("nothing\n")});
        QCOMPARE(exitCode, 1);
        QVERIFY(stderrText.contains(QStringLiteral("\"drawing.plt\" was not imported.")));
        QVERIFY(!QFile::exists(out() + QStringLiteral("/drawing.svg")));
    }

    void headless_whereNothingCanBeWritten_fails()
    {
        run({QStringLiteral("--out"), QStringLiteral("/proc/none")});
        QCOMPARE(exitCode, 1);
        QVERIFY(stderrText.contains(QStringLiteral("the folder cannot be made")));
    }

    void headless_withDrawing_opensIt()
    {
        // What was left behind is a drawing like any other.
        const QString drawing = leaveBehind(SIGKILL);
        run({QStringLiteral("--headless"), QStringLiteral("--out"), out(), drawing});
        QCOMPARE(exitCode, 0);
        const QString base = out() + QLatin1Char('/') + QFileInfo(drawing).completeBaseName();
        const QByteArray recovered = contentOf(base + QStringLiteral(".svg"));
        run({QStringLiteral("--headless"), QStringLiteral("--out"), out(),
             QStringLiteral("--sample")});
        QCOMPARE(recovered, contentOf(out() + QStringLiteral("/sample.svg")));
        QVERIFY(recovered.contains("<path"));
    }

    void headless_withShapesOutsideTheWorkArea_marksThemOnlyIfToldSo()
    {
        // 40 units are 1 mm: 800 mm wide.
        const QString drawing = write("PU0 0;\nPD32000 0;\nPD32000 800;\n");
        const QString paths = out() + QStringLiteral("/drawing.svg");
        run({QStringLiteral("--headless"), QStringLiteral("--out"), out(), drawing});
        QCOMPARE(exitCode, 1);
        QVERIFY2(stderrText.contains(QStringLiteral("warning: outside the work area: drawing (x ")),
                 qPrintable(stderrText));
        QVERIFY(!QFile::exists(paths));
        run({QStringLiteral("--headless"), QStringLiteral("--outside"), QStringLiteral("--out"),
             out(), drawing});
        QCOMPARE(exitCode, 0);
        QVERIFY(QFile::exists(paths));
    }

    void headless_withDamagedDrawing_saysWhyAndFails()
    {
        const QString drawing = leaveBehind(SIGKILL);
        QFile file(drawing);
        QVERIFY(file.resize(file.size() - 1));
        run({QStringLiteral("--headless"), QStringLiteral("--out"), out(), drawing});
        QCOMPARE(exitCode, 1);
        QVERIFY2(stderrText.contains(QStringLiteral("was not opened. The file is damaged")),
                 qPrintable(stderrText));
    }

    void killedStudio_leavesItsDrawingBehind_data()
    {
        QTest::addColumn<int>("signal");
        QTest::newRow("kill") << int(SIGKILL);
        QTest::newRow("crash") << int(SIGSEGV);
        QTest::newRow("end") << int(SIGTERM);
        QTest::newRow("interrupt") << int(SIGINT);
        QTest::newRow("hangup") << int(SIGHUP);
    }

    void killedStudio_leavesItsDrawingBehind()
    {
        QFETCH(int, signal);
        run({QStringLiteral("--list-recovery")});
        QCOMPARE(stdoutText, QString());
        const QString drawing = leaveBehind(signal);
        run({QStringLiteral("--list-recovery")});
        QCOMPARE(exitCode, 0);
        const QStringList columns = stdoutText.trimmed().split(QLatin1Char('\t'));
        QCOMPARE(columns.size(), 4);
        QCOMPARE(columns[0], QStringLiteral("Unsaved drawing"));
        const QDateTime savedAt = QDateTime::fromString(columns[1], Qt::ISODate);
        QVERIFY(qAbs(savedAt.secsTo(QDateTime::currentDateTimeUtc())) < 120);
        QCOMPARE(columns[2].toInt(), shapesIn(drawing));
        QCOMPARE(columns[3], drawing);
    }

    void runningStudio_keepsItsDrawingToItself()
    {
        setInterval(1);
        QProcess studio;
        startWindow(studio);
        QTRY_COMPARE_WITH_TIMEOUT(recoveryFiles("*.ztd").size(), 1, 30000);
        run({QStringLiteral("--list-recovery")});
        QCOMPARE(stdoutText, QString());
        studio.kill();
        QVERIFY(studio.waitForFinished());
        run({QStringLiteral("--list-recovery")});
        QCOMPARE(stdoutText.count(QLatin1Char('\n')), 1);
    }

    void terminatedBeforeTheInterval_savesAllTheSame()
    {
        setInterval(60);
        QProcess studio;
        startWindow(studio);
        QTRY_VERIFY_WITH_TIMEOUT(listens(studio), 30000);
        studio.terminate();
        QVERIFY(studio.waitForFinished(30000));
        QCOMPARE(studio.exitStatus(), QProcess::NormalExit);
        QCOMPARE(recoveryFiles("*.ztd").size(), 1);
    }

    void listRecovery_ofADamagedFile_namesAndKeepsIt()
    {
        QFile file(leaveBehind(SIGKILL));
        QVERIFY(file.resize(100));
        run({QStringLiteral("--list-recovery")});
        QCOMPARE(exitCode, 1);
        QCOMPARE(stdoutText, QString());
        QVERIFY2(stderrText.contains(file.fileName() + QStringLiteral(".damaged")),
                 qPrintable(stderrText));
        QVERIFY(QFile::exists(file.fileName() + QStringLiteral(".damaged")));
    }

    void options_helpAndVersion()
    {
        run({QStringLiteral("--version")});
        QCOMPARE(exitCode, 0);
        QCOMPARE(stdoutText, QStringLiteral("ztstudio " ZT_VERSION "\n"));
        run({QStringLiteral("--help")});
        QCOMPARE(exitCode, 0);
        for (const char *option : {"--headless", "--sample", "--out", "--list-recovery", "FILE"})
            QVERIFY2(stdoutText.contains(QLatin1String(option)), option);
        run({QStringLiteral("--nonsense")});
        QCOMPARE(exitCode, 2);
        QVERIFY(stdoutText.isEmpty());
    }

private:
    /** Shapes of a drawing file, as its pens tell; -1 for one that cannot be read. */
    static int shapesIn(const QString &path)
    {
        hostkit::DrawingFile drawing;
        hostkit::Failure failure;
        if (!hostkit::readDrawing(path, &drawing, &failure))
            return -1;
        int shapes = 0;
        for (const hostkit::DrawingPen &pen : qAsConst(drawing.meta.pens))
            shapes += pen.items;
        return shapes;
    }

    QString out() const { return folder->filePath(QStringLiteral("out")); }

    QString write(const QByteArray &content) const
    {
        QFile file(folder->filePath(QStringLiteral("drawing.plt")));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            qFatal("a test file cannot be written");
        return file.fileName();
    }

    QString plotterFile() const { return write("PU0 0;\nPD400 0;\nPD200 200;\nPD0 0;\n"); }

    static QByteArray contentOf(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    /** The user's settings and data stand in the test's folder. */
    QProcessEnvironment environment() const
    {
        QProcessEnvironment variables = QProcessEnvironment::systemEnvironment();
        variables.remove(QStringLiteral("DISPLAY"));
        variables.remove(QStringLiteral("WAYLAND_DISPLAY"));
        variables.insert(QStringLiteral("XDG_CONFIG_HOME"), folder->path());
        variables.insert(QStringLiteral("XDG_DATA_HOME"), folder->path());
        return variables;
    }

    QStringList recoveryFiles(const char *pattern) const
    {
        const QDir dir(folder->filePath(QStringLiteral("ZTDrawEngineLib/ztstudio/recovery")));
        QStringList paths;
        for (const QString &name : dir.entryList({QLatin1String(pattern)}, QDir::Files))
            paths << dir.filePath(name);
        return paths;
    }

    void setInterval(int seconds) const
    {
        const QString organisation = folder->filePath(QStringLiteral("ZTDrawEngineLib"));
        QFile file(organisation + QStringLiteral("/ztstudio.conf"));
        if (!QDir().mkpath(organisation) || !file.open(QIODevice::WriteOnly) ||
            file.write(QByteArray("[drawing]\nautosaveSeconds=") + QByteArray::number(seconds)) < 0)
            qFatal("the settings cannot be written");
    }

    /** A studio with a window, on no screen, that has just imported a file. */
    void startWindow(QProcess &studio) const
    {
        QProcessEnvironment variables = environment();
        variables.insert(QStringLiteral("DISPLAY"), QStringLiteral(":none"));
        variables.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        studio.setProcessEnvironment(variables);
        studio.start(QStringLiteral(ZT_ZTSTUDIO), {QStringLiteral("--sample")});
        if (!studio.waitForStarted(30000))
            qFatal("the studio does not start");
    }

    /** Whether a process catches SIGTERM, as /proc tells. */
    static bool listens(const QProcess &process)
    {
        const QByteArray status =
            contentOf(QStringLiteral("/proc/%1/status").arg(process.processId()));
        const int at = status.indexOf("SigCgt:");
        const quint64 caught = status.mid(at + 7, 18).trimmed().toULongLong(nullptr, 16);
        return at >= 0 && (caught >> (SIGTERM - 1) & 1U) != 0U;
    }

    /** Ends a studio by a signal once it saved a copy of a drawing; path of that copy. */
    QString leaveBehind(int signal) const
    {
        setInterval(1);
        QProcess studio;
        startWindow(studio);
        for (int i = 0; i < 3000 && recoveryFiles("*.ztd").isEmpty(); ++i)
            QTest::qWait(10);
        ::kill(static_cast<pid_t>(studio.processId()), signal);
        if (!studio.waitForFinished(30000) || recoveryFiles("*.ztd").size() != 1)
            qFatal("the studio left nothing behind");
        return recoveryFiles("*.ztd").first();
    }

    void run(const QStringList &arguments)
    {
        QProcess process;
        process.setProcessEnvironment(environment());
        process.start(QStringLiteral(ZT_ZTSTUDIO), arguments);
        QVERIFY(process.waitForFinished(60000));
        exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
        stdoutText = QString::fromUtf8(process.readAllStandardOutput());
        stderrText = QString::fromUtf8(process.readAllStandardError());
    }

    std::unique_ptr<QTemporaryDir> folder;
    int exitCode = -1;
    QString stdoutText;
    QString stderrText;
};

QTEST_MAIN(tst_Studio)
#include "tst_Studio.moc"
