#include "ZtmarkProcess.h"

#include <support/ShxWriter.h>
#include <support/TinyFonts.h>

#include <QtCore/QDate>
#include <QtCore/QDir>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTextCodec>
#include <QtGui/QImage>

namespace {

/** A summary as the program prints it; no jumps are told where there is one stroke. */
QString summary(const char *size, int objects, int polylines, const char *markLength,
                const char *jumpLength = "0.000")
{
    return QStringLiteral("Size:           %1 mm\n"
                          "Objects:        %2\n"
                          "Polylines:      %3\n"
                          "Hatch segments: 0\n"
                          "Mark length:    %4 mm\n"
                          "Jump length:    %5 mm before ordering, %5 mm after\n")
        .arg(QString::fromLatin1(size))
        .arg(objects)
        .arg(polylines)
        .arg(QString::fromLatin1(markLength), QString::fromLatin1(jumpLength));
}

/** A square's corners from its lower left one on, as a CSV file tells them. */
QByteArray square(int object, int piece, int left, int bottom, int side)
{
    const int corners[][2] = {{left, bottom},
                              {left, bottom - side},
                              {left + side, bottom - side},
                              {left + side, bottom},
                              {left, bottom}};
    QByteArray rows;
    for (const auto &corner : corners)
        rows += QStringLiteral("%1,1,outline,%2,%3,%4,,,500\n")
                    .arg(object)
                    .arg(piece)
                    .arg(corner[0])
                    .arg(corner[1])
                    .toLatin1();
    return rows;
}

/** Paths as a CSV file tells them, what the last bits of a number say left out. */
QByteArray rounded(const QByteArray &csv)
{
    QByteArray result;
    for (const QByteArray &row : csv.split('\n')) {
        QList<QByteArray> fields = row.split(',');
        for (QByteArray &field : fields) {
            bool isNumber = false;
            const double value = field.toDouble(&isNumber);
            if (isNumber)
                field = QByteArray::number(qRound64(value * 1e6) / 1e6, 'g', 12);
        }
        result += fields.join(',') + '\n';
    }
    result.chop(1);
    return result;
}

const QByteArray kCsvHead("object,pen,kind,piece,x1_mark,y1_mark,x2_mark,y2_mark,units_per_mm\n");

} // namespace

// In the tiny fonts "A" and the first Chinese character are squares of 8 units, "B" and the other
// one of 4; from one character to the next are 10 units. At a height of 8 mm, that of the capital
// "A", a unit is 1 mm, which is 500 mark units.
class tst_TextCommand : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        folder.reset(new QTemporaryDir);
        QVERIFY(QDir(folder->path()).mkdir(QStringLiteral("fonts")));
        testsupport::writeTinyFonts(folder->filePath(QStringLiteral("fonts")));
    }

    void mixedText_isMarkedInStrokes()
    {
        expect(strokes("'AB 你好' --height 4mm -o a.csv -o a.svg -o a.json -o a.png"),
               summary("22.000 x 4.000", 1, 4, "48.000", "20.000"));
        // A unit is 250 mark units; strokes come from right to left.
        QCOMPARE(writtenPaths("a.csv"),
                 kCsvHead + square(1, 1, 10000, 2000, 1000) + square(1, 2, 7500, 2000, 2000) +
                     square(1, 3, 2500, 2000, 1000) + square(1, 4, 0, 2000, 2000));
        QVERIFY(written("a.svg").contains("<svg"));
        QVERIFY(written("a.json").startsWith("{"));
        QVERIFY(!QImage(folder->filePath(QStringLiteral("a.png"))).isNull());
    }

    void lengths_takeUnits()
    {
        for (const char *height : {"10", "10mm", "1cm", "'1 cm'"})
            expect(strokes(QByteArray("A --height ") + height),
                   summary("10.000 x 10.000", 1, 1, "40.000"));
        expect(strokes("A --height 1in"), summary("25.400 x 25.400", 1, 1, "101.600"));
    }

    void spacing_isAdded()
    {
        expect(strokes("AA --char-spacing 2.5mm"),
               summary("20.500 x 8.000", 1, 2, "64.000", "12.500"));
        // From base to base: 8 mm of the first line and the spacing.
        expect(strokes("'A\\nA' --line-spacing 2mm -o a.csv"),
               summary("8.000 x 18.000", 1, 2, "64.000", "10.000"));
        expect(strokes("'A\\nA'"), summary("8.000 x 18.400", 1, 2, "64.000", "10.400"));
        expect(strokes("$'A\\nA'"), summary("8.000 x 18.400", 1, 2, "64.000", "10.400"));
    }

    void severalTexts_areObjectsSideBySide()
    {
        expect(strokes("A -o a.csv B --gap 3mm"),
               summary("15.000 x 8.000", 2, 2, "48.000", "11.705"));
        QCOMPARE(writtenPaths("a.csv"),
                 kCsvHead + square(1, 1, 0, 4000, 4000) + square(2, 1, 5500, 2000, 2000));
        expect(strokes("A B --gap 3mm --order x-max -q -o a.csv"), QString());
        QCOMPARE(writtenPaths("a.csv"),
                 kCsvHead + square(1, 1, 5500, 2000, 2000) + square(2, 1, 0, 4000, 4000));
    }

    void blankTexts_areLeftInPlaceByAnOrder()
    {
        expect(strokes("' ' B ' ' A --order nearest -o a.csv"),
               summary("16.000 x 8.000", 4, 2, "48.000", "8.944")); // the root of 8^2 + 4^2
        QCOMPARE(written("a.csv").count('\n'), 1 + 10);
    }

    void textsThatLookLikeSomethingElse_areTexts()
    {
        QCOMPARE(objectsOf("mark text font"), 3);
        QCOMPARE(objectsOf("'[A,B]'"), 1);
        QCOMPARE(objectsOf("'{A}' '\\\\{}'"), 2);
        QCOMPARE(objectsOf("-- -A --B"), 2);
    }

    void systemFont_isHatched()
    {
        const ZtmarkRun run =
            text("I --font 'DejaVu Sans' --hatch line --spacing 0.1mm -o a.csv --height 20mm");
        QCOMPARE(run.err, QString());
        QCOMPARE(run.exitCode, 0);
        QVERIFY(written("a.csv").count(",hatch,") > 100);
        const ZtmarkRun alone = text("I --hatch zigzag --no-outline -o b.csv --font 'dejavu sans'");
        QCOMPARE(alone.exitCode, 0);
        QVERIFY(!written("b.csv").contains("outline"));
    }

    void arc_bendsTheText()
    {
        // The line that runs to the right runs down at three o'clock.
        expect(strokes("L --arc 40mm --arc-start 0 --arc-span 0"),
               summary("0.000 x 4.000", 1, 1, "4.000"));
        // Centred at the top it stays as it is.
        expect(strokes("L --arc 40mm"), summary("4.000 x 0.000", 1, 1, "4.000"));
        // Two upper corners a right angle apart on a circle of this diameter; counter-clockwise the
        // letters change places and nothing else.
        const ZtmarkRun clockwise = strokes("AA --arc 40mm --arc-span 180");
        QCOMPARE(strokes("AA --arc 40mm --arc-span -180").out, clockwise.out);
        QVERIFY(clockwise.out != strokes("AA --arc 41mm --arc-span 180").out);
    }

    void parts_haveValuesOfTheirOwn_inFilesOfTheirOwn()
    {
        expect(strokes("'{serial}' --serial start=0,base=26 --count 2 -o a.csv"),
               QStringLiteral("Parts:          2\n"
                              "First part:     A\n"
                              "Last part:      B\n"
                              "Objects:        2\n"
                              "Polylines:      2\n"
                              "Hatch segments: 0\n"
                              "Mark length:    48.000 mm\n"
                              "Jump length:    0.000 mm before ordering, 0.000 mm after\n"));
        QCOMPARE(files(),
                 (QStringList{QStringLiteral("a-0001.csv"), QStringLiteral("a-0002.csv")}));
        QCOMPARE(writtenPaths("a-0001.csv"), kCsvHead + square(1, 1, 0, 4000, 4000));
        QCOMPARE(writtenPaths("a-0002.csv"), kCsvHead + square(1, 1, 0, 2000, 2000));
    }

    void manyParts_haveLongerNumbers()
    {
        const ZtmarkRun run =
            strokes("A --serial 0 --count 10000 --font-pair tiny.shx,tinybig.shx -q");
        QCOMPARE(run.exitCode, 0);
        QCOMPARE(strokes("'A{}' --count 3 -q -o a.b.csv -o a.b.json").exitCode, 0);
        QCOMPARE(files().size(), 6);
        QVERIFY(files().contains(QStringLiteral("a.b-0003.csv")));
    }

    void serial_standsInItsPlace_orAtTheEnd_data()
    {
        QTest::addColumn<QByteArray>("arguments");
        QTest::addColumn<QString>("last");
        QTest::newRow("place") << QByteArray("'A{serial}B' --count 2") << QStringLiteral("A2B");
        QTest::newRow("short place") << QByteArray("'{}' --count 3") << QStringLiteral("3");
        QTest::newRow("end") << QByteArray("A B --serial start=9 --count 2")
                             << QStringLiteral("A B10");
        QTest::newRow("no text") << QByteArray("--serial 7 --count 2") << QStringLiteral("8");
        QTest::newRow("width") << QByteArray("--serial width=4,step=-2,start=12 --count 2")
                               << QStringLiteral("0010");
        QTest::newRow("base 16") << QByteArray("--serial start=254,base=16 --count 2")
                                 << QStringLiteral("FF");
        QTest::newRow("two places") << QByteArray("'{}' '{}' --count 2") << QStringLiteral("2 2");
        QTest::newRow("lines") << QByteArray("'{}\\nX' --count 2") << QStringLiteral("2 X");
    }

    void serial_standsInItsPlace_orAtTheEnd()
    {
        QFETCH(QByteArray, arguments);
        QFETCH(QString, last);
        const ZtmarkRun run = text(arguments);
        QCOMPARE(run.err, QString());
        QVERIFY2(run.out.contains(QStringLiteral("Last part:      %1\n").arg(last)),
                 qPrintable(run.out));
    }

    void serialThatEnds_writesNothing()
    {
        expectFailure(text("--serial start=1,last=3 --count 4 -o a.svg"),
                      "the serial number ends after part 3 of 4");
        QCOMPARE(files(), QStringList());
        QCOMPARE(text("--serial start=1,last=3 --count 3 -q -o a.svg").exitCode, 0);
        QCOMPARE(files().size(), 3);
    }

    void date_isTheDayOfTheRun()
    {
        const QString before = QDate::currentDate().toString(QStringLiteral("yyyyMMdd"));
        const ZtmarkRun run = text("'{date:yyyyMMdd}{}' --serial 5 --count 2");
        const QString after = QDate::currentDate().toString(QStringLiteral("yyyyMMdd"));
        const QString label = QStringLiteral("First part:     ");
        QVERIFY(run.out.contains(label + before + QStringLiteral("5\n")) ||
                run.out.contains(label + after + QStringLiteral("5\n")));
    }

    void existingObstacle_isFoundBeforeAnythingIsWritten()
    {
        QVERIFY(QDir(folder->path()).mkdir(QStringLiteral("a-0002.svg")));
        expectFailure(text("'{}' --count 2 -o a.svg"), "a-0002.svg: is a folder");
        QVERIFY(!QFile::exists(folder->filePath(QStringLiteral("a-0001.svg"))));
        expectFailure(text("A -o none/a.svg"), "none/a.svg: the folder does not exist");
    }

    void missingFonts_areNamed_withThePlace()
    {
        const QByteArray own = QFileInfo(QStringLiteral(ZT_ZTMARK)).path().toUtf8() + "/font";
        expectFailure(text("A --font-pair none.shx,x.shx"), "no stroke font none.shx in " + own);
        expectFailure(text("A --font-dir fonts --font-pair none.shx,tinybig.shx"),
                      "no stroke font none.shx in " + own + ", fonts");
        expectFailure(text("A --font-dir fonts --font-pair tiny.shx,none.shx"),
                      "no stroke font none.shx in " + own + ", fonts");
        expectFailure(text("A --font-dir fonts --font-pair tinybig.shx,tiny.shx"),
                      "tinybig.shx is a big font, no regular one");
        expectFailure(text("A --font-dir none"), "none: no such folder");
        expectFailure(text("A --font 'No Such Font'"),
                      "no system font No Such Font, ztmark font list --system tells them");
    }

    /** The "W" of this font is 24 units wide and 21 high, and so are its other capitals. */
    void fontsBesideTheProgram_areFound()
    {
        const QString fonts = QFileInfo(QStringLiteral(ZT_ZTMARK)).path() + QStringLiteral("/font");
        const ZtmarkRun run = text("'ABC 你好' --font-pair hershey-simplex.shx,gb-strokes.shx "
                                   "--height 5mm -o out.csv");
        for (const QString &name :
             {QStringLiteral("hershey-simplex.shx"), QStringLiteral("gb-strokes.shx")}) {
            if (!QFile::exists(fonts + QLatin1Char('/') + name)) { // built without its data
                expectFailure(run,
                              QStringLiteral("no stroke font %1 in %2").arg(name, fonts).toUtf8());
                return;
            }
        }
        QCOMPARE(run.err, QString());
        QCOMPARE(run.exitCode, 0);
        QVERIFY2(run.out.contains(QStringLiteral(" x 5.000 mm\n")), qPrintable(run.out));
    }

    void missingCharacters_areNamed()
    {
        const ZtmarkRun run = strokes("'AC你吗😀C' -q");
        QCOMPARE(run.err, QStringLiteral("ztmark: warning: not among the characters of stroke "
                                         "fonts, marked as \"?\": \"😀\" (U+1F600)\n"
                                         "ztmark: warning: the font has no glyph for \"C\" "
                                         "(U+0043), \"吗\" (U+5417)\n"));
        QCOMPARE(run.exitCode, 0);
        const ZtmarkRun many = strokes("Aabcdefghijklmnopqrstuvw -q");
        QVERIFY2(many.err.endsWith(QStringLiteral("\"t\" (U+0074), and 3 more\n")),
                 qPrintable(many.err));
    }

    void nothingToMark_isAFailure()
    {
        expectFailure(text("' '"), "nothing to mark: the text leaves no strokes");
        expectFailure(text("''"), "nothing to mark: the text leaves no strokes");
    }

    void arguments_areUtf8InEveryLocale_data()
    {
        QTest::addColumn<QString>("locale");
        for (const char *locale : {"C", "C.UTF-8", "POSIX", "zh_CN.UTF-8", "de_DE.ISO-8859-1"})
            QTest::newRow(locale) << QString::fromLatin1(locale);
    }

    void arguments_areUtf8InEveryLocale()
    {
        QFETCH(QString, locale);
        const ZtmarkRun run =
            runShell("LC_ALL=" + locale.toLatin1() +
                         " $ZTMARK text '你好' --language en --font-pair tiny.shx,tinybig.shx "
                         "--font-dir fonts --height 8mm -o 文.csv",
                     folder->path());
        expect(run, summary("14.000 x 8.000", 1, 2, "48.000", "10.000"));
        QCOMPARE(rounded(bytesOf(folder->path() + QStringLiteral("/文.csv"))),
                 kCsvHead + square(1, 1, 5000, 4000, 2000) + square(1, 2, 0, 4000, 4000));
    }

    void argumentThatIsNoUtf8_isRefused_whereTheLocaleDoesNotKnowItEither()
    {
        const ZtmarkRun run = runShell("$ZTMARK text $'A\\xC4\\xE3'", folder->path());
        QVERIFY2(run.err.startsWith(QStringLiteral("ztmark: TEXT: \"A")), qPrintable(run.err));
        QVERIFY2(run.err.contains(QStringLiteral("is neither UTF-8 nor in the encoding of the "
                                                 "locale")),
                 qPrintable(run.err));
        QCOMPARE(run.exitCode, 2);
    }

    void chineseMessages_whereTheyAreAskedFor()
    {
        const ZtmarkRun run = text("A --font-dir none --language zh");
        QCOMPARE(run.err, QStringLiteral("ztmark: none: 文件夹不存在\n"));
        const ZtmarkRun done = strokes("AC --language zh");
        QCOMPARE(done.err,
                 QStringLiteral("ztmark: 警告：字体没有以下字符的字形：\"C\" (U+0043)\n"));
        QVERIFY(done.out.startsWith(QStringLiteral("尺寸：          8.000 x 8.000 mm\n")));
    }

private:
    /** A run whose arguments the shell takes apart. */
    ZtmarkRun text(const QByteArray &arguments) const
    {
        return runShell("$ZTMARK text " + arguments, folder->path());
    }

    ZtmarkRun strokes(const QByteArray &arguments) const
    {
        return text("--font-pair tiny.shx,tinybig.shx --font-dir fonts --height 8mm " + arguments);
    }

    int objectsOf(const QByteArray &arguments) const
    {
        const ZtmarkRun run = text("-q -o objects.svg " + arguments);
        return run.exitCode == 0 ? written("objects.svg").count("class=\"object\"") : -1;
    }

    static void expect(const ZtmarkRun &run, const QString &out)
    {
        QCOMPARE(run.err, QString());
        QCOMPARE(run.out, out);
        QCOMPARE(run.exitCode, 0);
    }

    static void expectFailure(const ZtmarkRun &run, const QByteArray &complaint)
    {
        QCOMPARE(run.err, QStringLiteral("ztmark: %1\n").arg(QString::fromUtf8(complaint)));
        QCOMPARE(run.out, QString());
        QCOMPARE(run.exitCode, 1);
    }

    QByteArray written(const char *name) const
    {
        return bytesOf(folder->filePath(QString::fromLatin1(name)));
    }

    QByteArray writtenPaths(const char *name) const { return rounded(written(name)); }

    QStringList files() const { return QDir(folder->path()).entryList(QDir::Files); }

    QScopedPointer<QTemporaryDir> folder;
};

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8")); // for names of files
    tst_TextCommand test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_TextCommand.moc"
