#include "ZtmarkProcess.h"

#include <support/ShxWriter.h>
#include <support/TinyFonts.h>

#include <QtCore/QDir>
#include <QtCore/QTemporaryDir>
#include <QtGui/QImage>

class tst_FontCommand : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        folder.reset(new QTemporaryDir);
        QVERIFY(QDir(folder->path()).mkdir(QStringLiteral("fonts")));
        testsupport::writeTinyFonts(folder->filePath(QStringLiteral("fonts")));
    }

    void list_tellsTheStrokeFonts()
    {
        write("fonts/none.shx", "no font");
        const ZtmarkRun run = font("list --font-dir fonts");
        // The fonts beside the program come first, whichever there are.
        const int head = run.out.indexOf(QLatin1Char('\n'));
        QCOMPARE(run.out.left(head).simplified(), QStringLiteral("Font Kind Form Glyphs Folder"));
        QStringList lines = run.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        QCOMPARE(lines.takeLast().simplified(), QStringLiteral("tinybig.shx big bigfont 2 fonts"));
        QCOMPARE(lines.takeLast().simplified(), QStringLiteral("tiny.shx regular shapes 6 fonts"));
        QCOMPARE(run.err, QString());
        QCOMPARE(run.exitCode, 0);
        QVERIFY(!run.out.contains(QStringLiteral("none.shx")));
    }

    void list_refusesAFolderThatIsNone()
    {
        expectFailure(font("list --font-dir none"), "none: no such folder");
    }

    void list_tellsTheSystemFonts()
    {
        const ZtmarkRun run = font("list --system");
        QVERIFY(run.out.split(QLatin1Char('\n')).contains(QStringLiteral("DejaVu Sans")));
        QCOMPARE(run.exitCode, 0);
    }

    void info_tellsWhatIsInTheFont()
    {
        expect(font("info fonts/tiny.shx"), "Form:        shapes\n"
                                            "Kind:        regular\n"
                                            "Name:        font\n"
                                            "Above:       50\n"
                                            "Below:       0\n"
                                            "Glyphs:      6\n"
                                            "Codes:       0x20, 0x3F, 0x41 to 0x42, 0x4C, 0x57\n"
                                            "Damage:      0\n");
        expect(font("info tinybig.shx --font-dir fonts"), "Form:        bigfont\n"
                                                          "Kind:        big\n"
                                                          "Name:        big\n"
                                                          "Above:       50\n"
                                                          "Below:       0\n"
                                                          "Lead bytes:  0x81 to 0xFE\n"
                                                          "Glyphs:      2\n"
                                                          "Codes:       0xBAC3, 0xC4E3\n"
                                                          "Damage:      0\n");
    }

    void info_tellsTheDamage()
    {
        QByteArray tiny = bytesOf(folder->filePath(QStringLiteral("fonts/tiny.shx")));
        tiny.chop(1);
        write("cut.shx", tiny);
        const ZtmarkRun run = font("info cut.shx");
        QVERIFY2(
            run.out.endsWith(QStringLiteral("Glyphs:      5\n"
                                            "Codes:       0x3F, 0x41 to 0x42, 0x4C, 0x57\n"
                                            "Damage:      1\n"
                                            "  glyph 0x0020 reaches beyond the end of the file\n")),
            qPrintable(run.out));
        QCOMPARE(run.exitCode, 0);
    }

    void longLists_areCutShort()
    {
        testsupport::ShxWriter writer;
        for (int i = 0; i < 30; ++i) // every code twice, none beside another
            writer.glyphs.append({0x41 + i % 15 * 2, QByteArray("\x20"), {}});
        writer.glyphs += writer.glyphs;
        write("many.shx", writer.unifont());
        const ZtmarkRun run = font("info many.shx");
        QVERIFY2(run.out.contains(QStringLiteral("0x57, and 3 more\n")), qPrintable(run.out));
        QVERIFY2(run.out.endsWith(QStringLiteral("  and 25 more\n")), qPrintable(run.out));
    }

    void nameOfTheFont_staysOneLine()
    {
        testsupport::ShxWriter writer;
        writer.glyphs = {{0x41, QByteArray("\x20"), {}}};
        QByteArray file = writer.unifont();
        write("odd.shx", file.replace("unifont\n", "uni\x1B[m\x07\n"));
        const ZtmarkRun run = font("info odd.shx");
        QVERIFY2(run.out.contains(QStringLiteral("Name:        uni?[m?\n")), qPrintable(run.out));
    }

    void otherFiles_areRefused()
    {
        write("text.shx", "no font");
        for (const QByteArray command : {"info", "sheet -o a.svg"}) {
            expectFailure(font(command + " text.shx"), "text.shx: is no stroke font");
            expectFailure(font(command + " fonts"), "fonts: is no stroke font");
            expectFailure(font(command + " none.shx"),
                          "none.shx: cannot be read: No such file or directory");
        }
        QVERIFY(!QFile::exists(folder->filePath(QStringLiteral("a.svg"))));
    }

    void sheet_showsEveryGlyph()
    {
        expect(font("sheet tiny.shx --font-dir fonts -o a.svg -o a.png"),
               "Glyphs:      6\nGrid:        16 x 1 cells\n");
        const QByteArray svg = bytesOf(folder->filePath(QStringLiteral("a.svg")));
        QCOMPARE(svg.count("<path"), 5); // the blank has no stroke
        QVERIFY(svg.contains(">tiny.shx</text>"));
        QCOMPARE(QImage(folder->filePath(QStringLiteral("a.png"))).size(), QSize(1024, 128));
        expect(font("sheet fonts/tiny.shx -q -o b.svg"), "");
        QCOMPARE(bytesOf(folder->filePath(QStringLiteral("b.svg"))), svg);
    }

    void sheet_thatCannotBeWritten_isAFailure()
    {
        const ZtmarkRun run = font("sheet fonts/tiny.shx -q -o none/a.svg -o b.svg");
        expectFailure(run, "none/a.svg: the folder does not exist");
        QVERIFY(QFile::exists(folder->filePath(QStringLiteral("b.svg"))));
    }

    void sheet_doesNotOverwriteTheFont()
    {
        QVERIFY(QFile::copy(folder->filePath(QStringLiteral("fonts/tiny.shx")),
                            folder->filePath(QStringLiteral("tiny.svg"))));
        expectFailure(font("sheet tiny.svg -o ./tiny.svg"),
                      "./tiny.svg: would overwrite the font it shows");
        QCOMPARE(bytesOf(folder->filePath(QStringLiteral("tiny.svg"))),
                 bytesOf(folder->filePath(QStringLiteral("fonts/tiny.shx"))));
    }

    void everything_canBeSaidInChinese()
    {
        const ZtmarkRun run = font("info fonts/tiny.shx --language zh");
        QVERIFY2(run.out.startsWith(QStringLiteral("格式：       shapes\n种类：       常规\n")),
                 qPrintable(run.out));
        const ZtmarkRun list = font("list --font-dir fonts --language zh");
        QVERIFY2(list.out.startsWith(QStringLiteral("字体")), qPrintable(list.out));
    }

private:
    ZtmarkRun font(const QByteArray &arguments) const
    {
        return runShell("$ZTMARK font " + arguments, folder->path());
    }

    void write(const char *name, const QByteArray &content) const
    {
        testsupport::writeFile(folder->filePath(QString::fromLatin1(name)), content);
    }

    static void expect(const ZtmarkRun &run, const char *out)
    {
        QCOMPARE(run.err, QString());
        QCOMPARE(run.out, QString::fromUtf8(out));
        QCOMPARE(run.exitCode, 0);
    }

    static void expectFailure(const ZtmarkRun &run, const QByteArray &complaint)
    {
        QCOMPARE(run.err, QStringLiteral("ztmark: %1\n").arg(QString::fromUtf8(complaint)));
        QCOMPARE(run.out, QString());
        QCOMPARE(run.exitCode, 1);
    }

    QScopedPointer<QTemporaryDir> folder;
};

QTEST_GUILESS_MAIN(tst_FontCommand)
#include "tst_FontCommand.moc"
