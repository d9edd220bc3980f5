#pragma once

#include <QtCore/QFile>
#include <QtCore/QProcess>
#include <QtTest/QTest>

/** What a run of the program left behind. */
struct ZtmarkRun
{
    int exitCode = -1;
    QString out;
    QString err;
};

/** Runs a program with more settings "NAME=VALUE" of the environment; else as `runZtmark`. */
inline ZtmarkRun runProgram(const QString &program, const QStringList &arguments,
                            const QString &folder, const QByteArray &input,
                            const QStringList &environment)
{
    QProcess process;
    process.setWorkingDirectory(folder);
    process.setEnvironment(QProcess::systemEnvironment() + environment);
    process.start(program, arguments);
    process.write(input);
    process.closeWriteChannel();
    ZtmarkRun run;
    if (process.waitForFinished(60000) && process.exitStatus() == QProcess::NormalExit)
        run.exitCode = process.exitCode();
    run.out = QString::fromUtf8(process.readAllStandardOutput());
    run.err = QString::fromUtf8(process.readAllStandardError());
    return run;
}

/** Runs the built program in `folder`, feeding it `input`. A crash or a hang is exit code -1. */
inline ZtmarkRun runZtmark(const QStringList &arguments, const QString &folder,
                           const QByteArray &input = {}, const QStringList &environment = {})
{
    return runProgram(QStringLiteral(ZT_ZTMARK), arguments, folder, input, environment);
}

/**
 * Runs a line of the shell, byte for byte as it stands here, whatever the locale of the test.
 * "$ZTMARK" is the built program.
 */
inline ZtmarkRun runShell(const QByteArray &line, const QString &folder,
                          const QStringList &environment = {})
{
    return runProgram(QStringLiteral("bash"), {QStringLiteral("-s")}, folder, line + '\n',
                      environment + QStringList{QStringLiteral("ZTMARK=" ZT_ZTMARK)});
}

/** A file of the command line's test data. */
inline QString cliData(const QString &name = {})
{
    return QStringLiteral(ZT_TEST_DATA_DIR "/cli/") + name;
}

inline QByteArray bytesOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll()
                                          : QByteArray("cannot be read: ") + path.toUtf8();
}

inline void copyCliData(const QString &name, const QString &folder)
{
    QVERIFY2(QFile::copy(cliData(name), folder + QLatin1Char('/') + name), qPrintable(name));
}
