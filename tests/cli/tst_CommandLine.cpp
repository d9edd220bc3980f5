#include "ZtmarkProcess.h"

#include <QtCore/QDir>
#include <QtCore/QTemporaryDir>

class tst_CommandLine : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void help_isComplete_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("file");
        const QString help = QStringLiteral("--help");
        QTest::newRow("ztmark") << QStringList{help} << QStringLiteral("help.txt");
        QTest::newRow("mark") << QStringList{QStringLiteral("mark"), help}
                              << QStringLiteral("help-mark.txt");
        QTest::newRow("info") << QStringList{QStringLiteral("info"), help}
                              << QStringLiteral("help-info.txt");
    }

    void help_isComplete()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, file);
        const ZtmarkRun run = runZtmark(arguments, QDir::tempPath());
        QCOMPARE(run.out, QString::fromUtf8(bytesOf(cliData(file))));
        QCOMPARE(run.err, QString());
        QCOMPARE(run.exitCode, 0);
    }

    void version_isToldEverywhere()
    {
        for (const char *command : {"--version", "mark --version", "info --version"}) {
            const QStringList arguments = QString::fromLatin1(command).split(QLatin1Char(' '));
            const ZtmarkRun run = runZtmark(arguments, QDir::tempPath());
            QCOMPARE(run.out, QStringLiteral("ztmark " ZT_VERSION "\n"));
            QCOMPARE(run.err, QString());
            QCOMPARE(run.exitCode, 0);
        }
    }

    void wrongUsage_isOneLineAndExitCode2_data()
    {
        QTest::addColumn<QString>("arguments");
        QTest::addColumn<QString>("complaint");
        const auto row = [](const char *arguments, const char *complaint) {
            QTest::newRow(*arguments == '\0' ? "nothing" : arguments)
                << QString::fromUtf8(arguments) << QString::fromUtf8(complaint);
        };
        row("", "a command is missing: mark or info (see ztmark --help)");
        row("print", "unknown command \"print\": mark or info (see ztmark --help)");
        row("mark", "FILE is missing (see ztmark mark --help)");
        row("info", "FILE is missing (see ztmark info --help)");
        row("info a.plt b.plt", "unknown argument b.plt (see ztmark info --help)");
        row("mark a.plt --fast", "unknown argument --fast (see ztmark mark --help)");
        row("mark a.plt -o", "--output: its value is missing (see ztmark mark --help)");
        row("mark a.plt --hatch", "--hatch: its value is missing (see ztmark mark --help)");
        row("mark - -", "FILE: standard input can be read only once (see ztmark mark --help)");
        row("mark a.plt --no-outline", "--no-outline: nothing to mark without --hatch line or "
                                       "zigzag (see ztmark mark --help)");
        row("mark a.plt -o a.pdf", "--output: \"a.pdf\" must end in one of .svg, .png, .json, "
                                   ".csv (see ztmark mark --help)");
    }

    void wrongUsage_isOneLineAndExitCode2()
    {
        QFETCH(QString, arguments);
        QFETCH(QString, complaint);
        expectWrongUsage(arguments.split(QLatin1Char(' '), Qt::SkipEmptyParts), complaint);
    }

    void nonsenseValues_areRefused_data()
    {
        QTest::addColumn<QString>("option");
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("why");
        const auto row = [](const char *option, const char *value, const char *why) {
            QTest::addRow("%s %s", option, value)
                << QString::fromUtf8(option) << QString::fromUtf8(value) << QString::fromUtf8(why);
        };
        const char *noLength = "is not a length, write a number with mm, cm or in behind it";
        row("--hatch", "dots", "is not among the choices");
        row("--order", "up", "is not among the choices");
        row("--spacing", "", noLength);
        row("--spacing", "nan", noLength);
        row("--spacing", "inf", noLength);
        row("--spacing", "1e999", noLength);
        row("--spacing", "wide", noLength);
        row("--spacing", "1,5", "has an unknown unit, lengths take mm, cm or in");
        row("--spacing", "0x10", "has an unknown unit, lengths take mm, cm or in");
        row("--spacing", "3ft", "has an unknown unit, lengths take mm, cm or in");
        row("--spacing", "-1mm", "is negative");
        row("--spacing", "0", "must be greater than 0");
        row("--spacing", "1001cm", "is too long, at most 10000 mm are allowed");
        row("--angle", "nan", "is not a number");
        row("--angle", "45deg", "is not a number");
        row("--angle", "361", "is out of range, it must be from -360 to 360");
        row("--rotate", "-1e9", "is out of range, it must be from -360 to 360");
        row("--scale", "0", "is out of range, it must be from 0.001 to 1000");
        row("--scale", "-2", "is out of range, it must be from 0.001 to 1000");
        row("--scale", "inf", "is not a number");
        row("--gap", "-2mm", "is negative");
        row("--matrix", "3", "is no matrix, write columns x rows such as 3x4");
        row("--matrix", "3x", "is no matrix, write columns x rows such as 3x4");
        row("--matrix", "3x4x5", "is no matrix, write columns x rows such as 3x4");
        row("--matrix", "1.5x2", "is no matrix, write columns x rows such as 3x4");
        row("--matrix", "0x0", "is no matrix, columns and rows must be at least 1");
        row("--matrix", "-3x4", "is no matrix, columns and rows must be at least 1");
        row("--matrix", "1001x1000", "is too large, at most 1000000 copies can be made");
        row("--matrix", "99999999999x1", "is too large, at most 1000000 copies can be made");
    }

    void nonsenseValues_areRefused()
    {
        QFETCH(QString, option);
        QFETCH(QString, value);
        QFETCH(QString, why);
        expectWrongUsage(
            {QStringLiteral("mark"), QStringLiteral("a.plt"), option, value},
            QStringLiteral("%1: \"%2\" %3 (see ztmark mark --help)").arg(option, value, why));
    }

    void gap_ofTwoLengths_namesTheWrongOne()
    {
        expectWrongUsage({QStringLiteral("mark"), QStringLiteral("a.plt"), QStringLiteral("--gap"),
                          QStringLiteral("2mm,3ells")},
                         QStringLiteral("--gap: \"3ells\" has an unknown unit, lengths take mm, cm "
                                        "or in (see ztmark mark --help)"));
    }

private:
    static void expectWrongUsage(const QStringList &arguments, const QString &complaint)
    {
        const QTemporaryDir folder;
        const ZtmarkRun run = runZtmark(arguments, folder.path());
        QCOMPARE(run.err, QStringLiteral("ztmark: %1\n").arg(complaint));
        QCOMPARE(run.out, QString());
        QCOMPARE(run.exitCode, 2);
        QVERIFY(QDir(folder.path()).isEmpty());
    }
};

QTEST_GUILESS_MAIN(tst_CommandLine)
#include "tst_CommandLine.moc"
