#include "ZtmarkProcess.h"

#include <QtCore/QDir>
#include <QtCore/QTemporaryDir>

#include <memory>

namespace {

/** A font of two glyphs and its source as the program writes it. */
const QByteArray kFont = "ZT font 1.0shapes1.0" + QByteArray(8, '\x1A') +
                         QByteArray("\x03\0\0\0\x09\0\x41\0\x08\0\x42\0\x03\0", 14) +
                         QByteArray("demo\0\x06\x02\0\0", 9) +
                         QByteArray("uca\0\x42\x02\x10\0", 8) + QByteArray("\0\x0F\0", 3);
const QByteArray kSource = "form shapes\n"
                           "prefix \"ZT font 1.0\"\n"
                           "version \"1.0\"\n"
                           "name \"demo\"\n"
                           "above 6\n"
                           "below 2\n"
                           "modes 0\n"
                           "\n"
                           "glyph 0x41 \"uca\"  # A\n"
                           "  line ne 4\n"
                           "  up\n"
                           "  line e 1\n"
                           "  end\n"
                           "\n"
                           "glyph 0x42  # B\n"
                           "  raw 0F\n"
                           "  end\n";

} // namespace

/** The program that makes fonts, as users call it. */
class tst_Fontbuilder : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { folder = std::make_unique<QTemporaryDir>(); }
    void cleanup() { folder.reset(); }

    void help_isComplete_data()
    {
        QTest::addColumn<QString>("command");
        for (const char *command : {"compile", "decompile", "info"})
            QTest::newRow(command) << QString::fromLatin1(command);
    }

    void help_isComplete()
    {
        QFETCH(QString, command);
        const ZtmarkRun ended = run(command + QStringLiteral(" --help"));
        const QString file = QStringLiteral("fontbuilder-help-%1.txt").arg(command);
        QCOMPARE(ended.out, QString::fromUtf8(bytesOf(cliData(file))));
        QCOMPARE(ended.err, QString());
        QCOMPARE(ended.exitCode, 0);
        QVERIFY(run(QStringLiteral("--help")).out.contains(QStringLiteral("\n  ") + command));
    }

    void version_isToldEverywhere()
    {
        for (const char *command : {"", "compile ", "decompile ", "info "}) {
            const ZtmarkRun ended = run(QLatin1String(command) + QStringLiteral("--version"));
            QCOMPARE(ended.out, QStringLiteral("fontbuilder " ZT_VERSION "\n"));
            QCOMPARE(ended.exitCode, 0);
        }
    }

    void language_isChosen()
    {
        const ZtmarkRun help = run(QStringLiteral("info --language zh --help"));
        QVERIFY2(help.out.contains(QStringLiteral("说明字体文件的内容")), qPrintable(help.out));
        const ZtmarkRun wrong = run(QStringLiteral("info --language=zh"));
        QCOMPARE(wrong.err,
                 QStringLiteral("fontbuilder: 缺少 FONT（见 fontbuilder info --help）\n"));
        QCOMPARE(wrong.exitCode, 2);
    }

    void wrongUsage_isOneLineAndExitCode2_data()
    {
        QTest::addColumn<QString>("arguments");
        QTest::addColumn<QString>("complaint");
        const auto row = [](const char *arguments, const char *complaint) {
            QTest::newRow(*arguments == '\0' ? "nothing" : arguments)
                << QString::fromLatin1(arguments) << QString::fromLatin1(complaint);
        };
        row("", "a command is missing: compile, decompile, info, hershey or gb (see fontbuilder "
                "--help)");
        row("info a --language fr",
            "--language: \"fr\" is not among the choices (see fontbuilder info --help)");
        row("compile", "SOURCE is missing (see fontbuilder compile --help)");
        row("compile a.txt", "--output is missing (see fontbuilder compile --help)");
        row("compile a.txt -o", "--output: its value is missing (see fontbuilder compile --help)");
        row("decompile", "FONT is missing (see fontbuilder decompile --help)");
        row("info", "FONT is missing (see fontbuilder info --help)");
        row("info a b", "unknown argument b (see fontbuilder info --help)");
        row("compile a.txt -o a.txt", "a.txt: is the input, too");
        row("decompile a.txt -o ./a.txt", "./a.txt: is the input, too");
    }

    void wrongUsage_isOneLineAndExitCode2()
    {
        QFETCH(QString, arguments);
        QFETCH(QString, complaint);
        write("a.txt", kSource);
        const ZtmarkRun ended = run(arguments);
        QCOMPARE(ended.err, QStringLiteral("fontbuilder: %1\n").arg(complaint));
        QCOMPARE(ended.out, QString());
        QCOMPARE(ended.exitCode, 2);
        QCOMPARE(read("a.txt"), kSource);
    }

    void wrongCommand_namesThem()
    {
        const QString list = QStringLiteral("compile, decompile");
        ZtmarkRun ended = run({});
        QVERIFY(ended.err.startsWith(QStringLiteral("fontbuilder: a command is missing: ") + list));
        QCOMPARE(ended.exitCode, 2);
        ended = run(QStringLiteral("print"));
        QVERIFY(ended.err.startsWith(QStringLiteral("fontbuilder: unknown command \"print\": ") +
                                     list));
        QCOMPARE(ended.exitCode, 2);
    }

    void compile_writesTheFont()
    {
        write("a.txt", kSource);
        const ZtmarkRun ended = run(QStringLiteral("compile a.txt -o a.shx"));
        QCOMPARE(ended.err, QString());
        QCOMPARE(ended.out, QString());
        QCOMPARE(ended.exitCode, 0);
        QCOMPARE(read("a.shx").toHex(), kFont.toHex());
    }

    void compile_readsStandardInput()
    {
        QCOMPARE(run(QStringLiteral("compile - -o a.shx"), kSource).exitCode, 0);
        QCOMPARE(read("a.shx").toHex(), kFont.toHex());
    }

    void compile_wrongSource_namesFileAndLineAndLeavesTheOldFont()
    {
        write("a.txt", kSource + "lien e 3\n");
        write("a.shx", "old");
        const ZtmarkRun ended = run(QStringLiteral("compile a.txt -o a.shx"));
        QCOMPARE(ended.err,
                 QStringLiteral("fontbuilder: a.txt: line 18: \"lien\" is no statement\n"));
        QCOMPARE(ended.out, QString());
        QCOMPARE(ended.exitCode, 1);
        QCOMPARE(read("a.shx"), QByteArray("old"));
    }

    void decompile_writesTheSource()
    {
        write("a.shx", kFont);
        ZtmarkRun ended = run(QStringLiteral("decompile a.shx"));
        QCOMPARE(ended.err, QString());
        QCOMPARE(ended.out, QString::fromUtf8(kSource));
        QCOMPARE(ended.exitCode, 0);
        ended = run(QStringLiteral("decompile a.shx -o a.txt"));
        QCOMPARE(ended.out, QString());
        QCOMPARE(ended.exitCode, 0);
        QCOMPARE(read("a.txt"), kSource);
    }

    void info_tellsWhatIsInAFont()
    {
        write("a.shx", kFont);
        const ZtmarkRun ended = run(QStringLiteral("info a.shx"));
        QCOMPARE(ended.err, QString());
        QCOMPARE(ended.out, QStringLiteral("Form:              shapes\n"
                                           "Name:              demo\n"
                                           "Above:             6\n"
                                           "Below:             2\n"
                                           "Modes:             0\n"
                                           "Glyphs:            2\n"
                                           "Codes:             0x41 to 0x42\n"
                                           "Program bytes:     6\n"));
        QCOMPARE(ended.exitCode, 0);
    }

    void info_tellsWhatIsInABigfont()
    {
        write("a.txt", "form bigfont\nprefix \"ZT font 1.0\"\nrange 0x81 to 0xFE\n"
                       "range 0x0140 to 0x41\nempty 1\nglyph 5\nglyph 0xC4E3\nend\nglyph 5\n");
        QCOMPARE(run(QStringLiteral("compile a.txt -o a.shx")).exitCode, 0);
        QCOMPARE(run(QStringLiteral("info a.shx")).out,
                 QStringLiteral("Form:              bigfont\n"
                                "Font information:  none\n"
                                "Lead bytes:        0x81 to 0xFE\n"
                                "Lead bytes:        0x40 to 0x41\n"
                                "Glyphs:            3\n"
                                "Codes:             0x05 to 0xC4E3\n"
                                "Repeated codes:    1\n"
                                "Other records:     1\n"
                                "Program bytes:     1\n"));
    }

    void failedWork_isOneLineAndExitCode1_data()
    {
        QTest::addColumn<QString>("arguments");
        QTest::addColumn<QString>("complaint");
        const auto row = [](const char *arguments, const char *complaint) {
            QTest::newRow(arguments)
                << QString::fromLatin1(arguments) << QString::fromLatin1(complaint);
        };
        row("info none.shx", "none.shx: No such file or directory");
        row("compile none.txt -o a.shx", "none.txt: No such file or directory");
        row("info .", ".: is a folder");
        row("info cut.shx", "cut.shx: offset 59: the file ends within glyph 0x42");
        row("decompile cut.shx -o a.txt", "cut.shx: offset 59: the file ends within glyph 0x42");
        row("decompile text.shx",
            "text.shx: offset 11: neither shapes, bigfont nor unifont stands here");
        row("decompile whole.shx -o none/a.txt", "none/a.txt: No such file or directory");
    }

    void failedWork_isOneLineAndExitCode1()
    {
        QFETCH(QString, arguments);
        QFETCH(QString, complaint);
        write("whole.shx", kFont);
        write("cut.shx", kFont.left(kFont.size() - 1));
        write("text.shx", kSource);
        const ZtmarkRun ended = run(arguments);
        QCOMPARE(ended.err, QStringLiteral("fontbuilder: %1\n").arg(complaint));
        QCOMPARE(ended.out, QString());
        QCOMPARE(ended.exitCode, 1);
        QCOMPARE(QDir(folder->path()).entryList(QDir::Files).size(), 3);
    }

private:
    ZtmarkRun run(const QString &arguments, const QByteArray &input = {}) const
    {
        return runProgram(QStringLiteral(ZT_FONTBUILDER),
                          arguments.split(QLatin1Char(' '), Qt::SkipEmptyParts), folder->path(),
                          input);
    }

    QString path(const char *name) const { return folder->filePath(QLatin1String(name)); }

    QByteArray read(const char *name) const { return bytesOf(path(name)); }

    void write(const char *name, const QByteArray &content) const
    {
        QFile file(path(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(content), qint64(content.size()));
    }

    std::unique_ptr<QTemporaryDir> folder;
};

QTEST_GUILESS_MAIN(tst_Fontbuilder)
#include "tst_Fontbuilder.moc"
