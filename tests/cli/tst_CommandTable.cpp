#include "ZtmarkProcess.h"

#include <QtCore/QDir>
#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryDir>

/** Manual pages and shell completion: what is in the help is in them, and shells take them. */
class tst_CommandTable : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void manualPage_hasEveryOptionOfTheHelp_data() { programs(); }
    void manualPage_hasEveryOptionOfTheHelp()
    {
        QFETCH(QString, program);
        QFETCH(QStringList, calls);
        const QString page = output(program, {QStringLiteral("--man-page")});
        QVERIFY(page.startsWith(QStringLiteral(".TH ")));
        int options = 0;
        for (const QString &call : qAsConst(calls)) {
            const QString part = call.isEmpty() ? page : sectionOf(page, call);
            QVERIFY2(!part.isEmpty(), qPrintable(call));
            for (const QString &option : optionsOf(program, call)) {
                QVERIFY2(
                    part.contains(QString(option).replace(QLatin1Char('-'), QStringLiteral("\\-"))),
                    qPrintable(call + QLatin1Char(' ') + option));
                ++options;
            }
        }
        QVERIFY(options >= 3);
    }

    void manualPage_isTranslated()
    {
        const QString page =
            output(QStringLiteral(ZT_ZTMARK), {QStringLiteral("--language"), QStringLiteral("zh"),
                                               QStringLiteral("--man-page")});
        QVERIFY(page.contains(QStringLiteral(".SH 命令\n")));
        QVERIFY(page.contains(QStringLiteral("标刻")));
    }

    void manualPage_hasNoLineThatRoffTakesForItsOwn()
    {
        const QStringList known = lines(".TH;.SH;.SS;.TP;.PP;.nf;.fi;.br");
        const QString page = output(QStringLiteral(ZT_ZTMARK), {QStringLiteral("--man-page")});
        const QStringList lines = page.split(QLatin1Char('\n'));
        for (const QString &line : lines) {
            QVERIFY2(!line.startsWith(QLatin1Char('\'')), qPrintable(line));
            if (line.startsWith(QLatin1Char('.')))
                QVERIFY2(known.contains(line.section(QLatin1Char(' '), 0, 0)), qPrintable(line));
        }
    }

    void bash_completes_data()
    {
        QTest::addColumn<QString>("words");
        QTest::addColumn<QString>("offered");
        QTest::newRow("a command") << QStringLiteral("ztmark f") << QStringLiteral("font");
        QTest::newRow("a part of a command")
            << QStringLiteral("ztmark font s") << QStringLiteral("sheet");
        QTest::newRow("an option")
            << QStringLiteral("ztmark mark --hat") << QStringLiteral("--hatch");
        QTest::newRow("of a part")
            << QStringLiteral("ztmark font list --sy") << QStringLiteral("--system");
        QTest::newRow("not that of another")
            << QStringLiteral("ztmark info --hat") << QStringLiteral("");
        QTest::newRow("a value is a file")
            << QStringLiteral("ztmark mark -o --hat") << QStringLiteral("");
        QTest::newRow("after a flag")
            << QStringLiteral("ztmark mark -q --hat") << QStringLiteral("--hatch");
    }
    void bash_completes()
    {
        QFETCH(QString, words);
        const ZtmarkRun run = runShell(
            "source <(\"$ZTMARK\" --completion bash); COMP_WORDS=(" + words.toUtf8() +
                "); COMP_CWORD=$((${#COMP_WORDS[@]} - 1)); _ztmark; echo -n \"${COMPREPLY[*]}\"",
            QDir::tempPath());
        QCOMPARE(run.err, QString());
        QTEST(run.out, "offered");
    }

    void fish_completes_data()
    {
        QTest::addColumn<QString>("words");
        QTest::addColumn<QString>("offered");
        QTest::newRow("a command") << QStringLiteral("ztmark f") << QStringLiteral("font");
        QTest::newRow("a part of a command")
            << QStringLiteral("ztmark font s") << QStringLiteral("sheet");
        QTest::newRow("an option")
            << QStringLiteral("ztmark mark --hat") << QStringLiteral("--hatch");
        QTest::newRow("of a part")
            << QStringLiteral("ztmark font list --sy") << QStringLiteral("--system");
        QTest::newRow("not that of another")
            << QStringLiteral("ztmark info --hat") << QStringLiteral("");
    }
    void fish_completes()
    {
        QFETCH(QString, words);
        QTemporaryDir home;
        const ZtmarkRun run = runShell("HOME=" + home.path().toUtf8() +
                                           " fish -c '\"$ZTMARK\" --completion fish | source; "
                                           "complete -C \"" +
                                           words.toUtf8() + "\"' | cut -f 1",
                                       QDir::tempPath());
        QCOMPARE(run.err, QString());
        QTEST(run.out.trimmed(), "offered");
    }

    void zsh_completes_data()
    {
        QTest::addColumn<QString>("words");
        QTest::addColumn<QString>("offered");
        QTest::newRow("a command")
            << QStringLiteral("ztmark f") << QStringLiteral("font:Show which fonts there are");
        QTest::newRow("a part of a command")
            << QStringLiteral("ztmark font s") << QStringLiteral("sheet:Draw every glyph");
        QTest::newRow("an option")
            << QStringLiteral("ztmark mark --hat") << QStringLiteral("--hatch:Hatch style");
        QTest::newRow("a value is a file")
            << QStringLiteral("ztmark mark -o --hat") << QStringLiteral("FILES");
    }
    void zsh_completes()
    {
        QFETCH(QString, words);
        QFETCH(QString, offered);
        // What the shell would choose from: its own functions for that are replaced by prints.
        const ZtmarkRun run =
            runShell("\"$ZTMARK\" --completion zsh >script; zsh -f -c '_describe() { local a; for "
                     "a in \"$@\"; do :; done; print -l -- ${(P)a} }; _files() { print FILES }; "
                     "words=(" +
                         words.toUtf8() + "); CURRENT=$#words; source ./script'",
                     m_folder.path());
        QCOMPARE(run.err, QString());
        QVERIFY2((QLatin1Char('\n') + run.out).contains(QLatin1Char('\n') + offered),
                 qPrintable(run.out));
    }

    void unknownShell_isWrongUsage()
    {
        const ZtmarkRun run =
            runZtmark({QStringLiteral("--completion"), QStringLiteral("tcsh")}, QDir::tempPath());
        QCOMPARE(run.exitCode, 2);
        QCOMPARE(run.out, QString());
        QCOMPARE(run.err, QStringLiteral("ztmark: --completion: tcsh: bash, zsh or fish "
                                         "(see ztmark --help)\n"));
    }

private:
    static void programs()
    {
        QTest::addColumn<QString>("program");
        QTest::addColumn<QStringList>("calls");
        QTest::newRow("ztmark")
            << QStringLiteral(ZT_ZTMARK)
            << lines(";mark;text;code;font list;info;font sheet;profile list;job;render;convert");
        QTest::newRow("fontbuilder")
            << QStringLiteral(ZT_FONTBUILDER) << lines(";compile;decompile;gb");
        QTest::newRow("ztstudio") << QStringLiteral(ZT_ZTSTUDIO) << lines("");
    }

    static QStringList lines(const char *text)
    {
        return QString::fromLatin1(text).split(QLatin1Char(';'));
    }

    static QString output(const QString &program, const QStringList &arguments)
    {
        const ZtmarkRun run = runProgram(program, arguments, QDir::tempPath());
        return run.exitCode == 0 && run.err.isEmpty() ? run.out : QString();
    }

    /** The long names of the options that the help of a call tells. */
    static QStringList optionsOf(const QString &program, const QString &call)
    {
        const QString help = output(program, call.split(QLatin1Char(' '), Qt::SkipEmptyParts) +
                                                 QStringList{QStringLiteral("--help")});
        const QRegularExpression option(QStringLiteral("^  (?:-\\w,)?(--[a-z-]+)"),
                                        QRegularExpression::MultilineOption);
        QStringList names;
        QRegularExpressionMatchIterator matches = option.globalMatch(help);
        while (matches.hasNext())
            names << matches.next().captured(1);
        return names;
    }

    /** What a page says of one command. */
    static QString sectionOf(const QString &page, const QString &call)
    {
        const int start = page.indexOf(QRegularExpression(
            QStringLiteral("\\.SS \\w+ %1\n").arg(QRegularExpression::escape(call))));
        return start < 0 ? QString() : page.mid(start + 1).section(QStringLiteral("\n.SS "), 0, 0);
    }

    QTemporaryDir m_folder;
};

QTEST_GUILESS_MAIN(tst_CommandTable)

#include "tst_CommandTable.moc"
