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
        const auto row = [](const char *command, const char *file) {
            QTest::newRow(command) << words(command) + QStringList{QStringLiteral("--help")}
                                   << QString::fromLatin1(file);
        };
        row("", "help.txt");
        row("mark", "help-mark.txt");
        row("text", "help-text.txt");
        row("code", "help-code.txt");
        row("font", "help-font.txt");
        row("font list", "help-font-list.txt");
        row("font info", "help-font-info.txt");
        row("font sheet", "help-font-sheet.txt");
        row("info", "help-info.txt");
        row("render", "help-render.txt");
        row("convert", "help-convert.txt");
        row("job", "help-job.txt");
        row("profile", "help-profile.txt");
        row("--language zh", "help-zh.txt");
        row("text --language=zh", "help-text-zh.txt");
        row("code --language=zh", "help-code-zh.txt");
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
        for (const char *command :
             {"--version", "mark --version", "info --version", "text --version", "code --version",
              "font --version", "font sheet --version"}) {
            const ZtmarkRun run = runZtmark(words(command), QDir::tempPath());
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
        row("", "a command is missing: mark, text, code, font, info, render, convert, job or "
                "profile (see ztmark --help)");
        row("print", "unknown command \"print\": mark, text, code, font, info, render, convert, "
                     "job or profile (see ztmark --help)");
        row("font", "a command is missing: list, info or sheet (see ztmark font --help)");
        row("font show", "unknown command \"show\": list, info or sheet (see ztmark font --help)");
        row("font info", "FILE is missing (see ztmark font info --help)");
        row("font sheet a.shx", "--output is missing (see ztmark font sheet --help)");
        row("font sheet a.shx -o a.json",
            "--output: \"a.json\" must end in one of .svg, .png (see ztmark font sheet --help)");
        row("text", "TEXT is missing (see ztmark text --help)");
        row("text --count 2", "TEXT is missing (see ztmark text --help)");
        row("text A --fast", "unknown argument --fast (see ztmark text --help)");
        row("text A --font F --font-pair R,B",
            "--font: cannot be given together with --font-pair (see ztmark text --help)");
        row("text A --font-pair R,B --hatch line",
            "--hatch: stroke fonts are not hatched (see ztmark text --help)");
        row("text A --no-outline", "--no-outline: nothing to mark without --hatch line or "
                                   "zigzag (see ztmark text --help)");
        row("text A --arc-span 90",
            "--arc-start, --arc-span: nothing without --arc (see ztmark text --help)");
        row("text A --arc 9 --char-spacing 1", "--char-spacing: nothing on an arc, --arc-span "
                                               "spreads the text (see ztmark text --help)");
        row("text A --arc 9 --line-spacing 1", "--line-spacing: nothing on an arc, its text is one "
                                               "line (see ztmark text --help)");
        row("text A --count 2", "--count: all parts would be the same without --serial or "
                                "{serial} (see ztmark text --help)");
        row("text A -o a.svg -o ./a.svg",
            "--output: \"./a.svg\" is named twice (see ztmark text --help)");
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
                                   ".csv, .dxf (see ztmark mark --help)");
        row("mark a.plt -o a.png --marks-only", "--marks-only: nothing without an output .svg or "
                                                ".dxf (see ztmark mark --help)");
        row("mark a.plt -o a.csv --no-jumps", "--no-jumps: nothing without an output .svg or .png "
                                              "(see ztmark mark --help)");
        row("mark a.plt --clean mend", "--clean: \"mend\": cleaning takes join, duplicates, zero, "
                                       "simplify, arcs, weld and order, not \"mend\" (see ztmark "
                                       "mark --help)");
        row("mark a.plt --clean simplify", "--clean: \"simplify\": simplify needs a length, as in "
                                           "simplify=0.02mm (see ztmark mark --help)");
        row("mark a.plt --clean weld=1",
            "--clean: \"weld=1\": weld takes no value (see ztmark mark "
            "--help)");
        row("profile", "a command is missing: list, show or check (see ztmark profile --help)");
    }

    void wrongUsage_isOneLineAndExitCode2()
    {
        QFETCH(QString, arguments);
        QFETCH(QString, complaint);
        expectWrongUsage(words(arguments), complaint);
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

    void nonsenseOfTexts_isRefused_data()
    {
        QTest::addColumn<QString>("option");
        QTest::addColumn<QString>("value");
        QTest::addColumn<QString>("why");
        const auto row = [](const char *option, const char *value, const char *why) {
            QTest::addRow("%s %s", option, value)
                << QString::fromUtf8(option) << QString::fromUtf8(value) << QString::fromUtf8(why);
        };
        row("--height", "0", "must be greater than 0");
        row("--height", "tall", "is not a length, write a number with mm, cm or in behind it");
        row("--char-spacing", "-1", "is negative");
        row("--line-spacing", "1ft", "has an unknown unit, lengths take mm, cm or in");
        row("--arc", "0", "must be greater than 0");
        row("--arc-start", "361", "is out of range, it must be from -360 to 360");
        row("--arc-span", "wide", "is not a number");
        row("--font", "", "names no font");
        row("--font-pair", ",b.shx", "names no font, write REGULAR.shx,BIG.shx");
        row("--count", "0", "is out of range, it must be from 1 to 10000");
        row("--count", "10001", "is out of range, it must be from 1 to 10000");
        row("--count", "1.5", "is not a whole number");
        const char *keys = "is no serial number, write start=1,step=1,last=99,width=4,base=10 or "
                           "some of them";
        row("--serial", "first=1", keys);
        row("--serial", "start=1,=2", keys);
        row("--serial", "", "is no serial number: \"\" is not a whole number");
        row("--serial", "start=one", "is no serial number: \"one\" is not a whole number");
        row("--serial", "start=9223372036854775808",
            "is no serial number: \"9223372036854775808\" is not a whole number");
        row("--serial", "base=2", "is no serial number: base is 10, 16 or 26 (letters)");
        row("--serial", "width=257", "is no serial number: width must be from 0 to 256");
        row("--serial", "width=-1", "is no serial number: width must be from 0 to 256");
        row("--language", "fr", "is not among the choices");
    }

    void nonsenseOfTexts_isRefused()
    {
        QFETCH(QString, option);
        QFETCH(QString, value);
        QFETCH(QString, why);
        expectWrongUsage(
            {QStringLiteral("text"), QStringLiteral("A"), option, value},
            QStringLiteral("%1: \"%2\" %3 (see ztmark text --help)").arg(option, value, why));
    }

    void language_isTheEnvironments_unlessTold_data()
    {
        QTest::addColumn<QStringList>("environment");
        QTest::addColumn<QString>("arguments");
        QTest::addColumn<bool>("isChinese");
        const auto row = [](const char *name, const QStringList &environment, const char *arguments,
                            bool isChinese) {
            QTest::newRow(name) << environment << QString::fromLatin1(arguments) << isChinese;
        };
        const QString none = QStringLiteral("LC_ALL=");
        const QString chinese = QStringLiteral("zh_CN.UTF-8");
        row("none", {none}, "info", false);
        row("LC_ALL", {QStringLiteral("LC_ALL=") + chinese}, "info", true);
        row("LC_MESSAGES", {none, QStringLiteral("LC_MESSAGES=") + chinese}, "info", true);
        row("LANG", {none, QStringLiteral("LANG=zh")}, "info", true);
        row("LANG behind LC_ALL", {QStringLiteral("LC_ALL=C"), QStringLiteral("LANG=") + chinese},
            "info", false);
        row("LANG behind LC_MESSAGES",
            {none, QStringLiteral("LC_MESSAGES=de_DE"), QStringLiteral("LANG=") + chinese}, "info",
            false);
        row("another language", {QStringLiteral("LC_ALL=zhx_XX")}, "info", false);
        row("told", {QStringLiteral("LC_ALL=") + chinese}, "info --language en", false);
        row("told behind the command", {none}, "info --language zh", true);
        row("told before the command", {none}, "--language=zh info", true);
        row("told twice", {none}, "--language zh info --language en", false);
    }

    void language_isTheEnvironments_unlessTold()
    {
        QFETCH(QStringList, environment);
        QFETCH(QString, arguments);
        QFETCH(bool, isChinese);
        const ZtmarkRun run = runZtmark(words(arguments), QDir::tempPath(), {}, environment);
        QCOMPARE(run.err, isChinese ? QStringLiteral("ztmark: 缺少 FILE（见 ztmark info --help）\n")
                                    : QStringLiteral("ztmark: FILE is missing (see ztmark info "
                                                     "--help)\n"));
        QCOMPARE(run.exitCode, 2);
    }

    void gap_ofTwoLengths_namesTheWrongOne()
    {
        expectWrongUsage({QStringLiteral("mark"), QStringLiteral("a.plt"), QStringLiteral("--gap"),
                          QStringLiteral("2mm,3ells")},
                         QStringLiteral("--gap: \"3ells\" has an unknown unit, lengths take mm, cm "
                                        "or in (see ztmark mark --help)"));
    }

private:
    static QStringList words(const QString &line)
    {
        return line.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    }

    static QStringList words(const char *line) { return words(QString::fromLatin1(line)); }

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
