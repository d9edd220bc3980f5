#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtGui/QImage>
#include <QtTest/QTest>

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

    void options_helpAndVersion()
    {
        run({QStringLiteral("--version")});
        QCOMPARE(exitCode, 0);
        QCOMPARE(stdoutText, QStringLiteral("ztstudio " ZT_VERSION "\n"));
        run({QStringLiteral("--help")});
        QCOMPARE(exitCode, 0);
        for (const char *option : {"--headless", "--sample", "--out", "FILE"})
            QVERIFY2(stdoutText.contains(QLatin1String(option)), option);
        run({QStringLiteral("--nonsense")});
        QCOMPARE(exitCode, 2);
        QVERIFY(stdoutText.isEmpty());
    }

private:
    QString out() const { return folder->filePath(QStringLiteral("out")); }

    QString write(const QByteArray &content) const
    {
        QFile file(folder->filePath(QStringLiteral("drawing.plt")));
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            qFatal("a test file cannot be written");
        return file.fileName();
    }

    void run(const QStringList &arguments)
    {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.remove(QStringLiteral("DISPLAY"));
        environment.remove(QStringLiteral("WAYLAND_DISPLAY"));
        environment.insert(QStringLiteral("XDG_CONFIG_HOME"), folder->path());
        process.setProcessEnvironment(environment);
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
