#include "ZtmarkProcess.h"

#include <QtCore/QDir>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QTemporaryDir>

#include <memory>

class tst_CodeCommand : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        folder = std::make_unique<QTemporaryDir>();
        QVERIFY(folder->isValid());
    }

    void list_namesAllSymbologiesWithLimits()
    {
        const ZtmarkRun run = code("--list");
        QCOMPARE(run.err, QString());
        QCOMPARE(run.exitCode, 0);
        QStringList names;
        for (const QString &line : run.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
            names << line.section(QLatin1Char(' '), 0, 0);
            QVERIFY2(!line.section(QStringLiteral(": "), 1).isEmpty(), qPrintable(line));
        }
        for (const char *name : {"qr", "microqr", "datamatrix", "aztec", "pdf417", "micropdf417",
                                 "code128", "code39", "code93", "codabar", "i25", "itf14", "ean13",
                                 "ean8", "upca", "upce", "gs1-128", "gs1-datamatrix"})
            QCOMPARE(names.count(QLatin1String(name)), 1);
        // The largest sizes of their standards, and what the check digit needs.
        QVERIFY(run.out.contains(QStringLiteral("7,089 digits")));
        QVERIFY(run.out.contains(QStringLiteral("3,116 digits")));
        QVERIFY(run.out.contains(QStringLiteral("EAN-13: 12 digits")));
    }

    void list_ofOne_tellsItsOptions()
    {
        const ZtmarkRun run = code("--list qr");
        QCOMPARE(run.out,
                 QStringLiteral("Code:             QR Code\n"
                                "Holds:            any text; up to 7,089 digits, 4,296 capitals or "
                                "2,953 bytes\n"
                                "Levels:           L, M, Q, H\n"
                                "Sizes:            1 to 40\n"
                                "Rectangular:      no\n"
                                "Columns:          none\n"
                                "Masks:            0 to 7\n"
                                "Check digit:      by itself\n"
                                "Character sets:   auto, utf8, gbk\n"
                                "Escapes:          yes\n"
                                "Quiet zone:       4 modules left, 4 right, 4 above and below\n"
                                "Can be verified:  yes\n"));
        QCOMPARE(run.exitCode, 0);
        QVERIFY(code("--list code128").out.contains(QStringLiteral("Levels:           none\n")));
    }

    void verify_ofALaterPart_failsBeforeAnythingIsWritten()
    {
        // Part 1 has modules of 0.3 mm, part 2 of 3 / 16: the beam leaves 0.05 mm between them, too
        // little to be read.
        const ZtmarkRun run = code("datamatrix A{} --serial start=9,step=999999999999999990 "
                                   "--parts 2 --width 3mm --hatch line --spacing 0.05mm "
                                   "--beam 0.14mm --verify -o a.svg");
        QCOMPARE(run.exitCode, 1);
        QVERIFY2(run.err.endsWith(QStringLiteral(
                     "ztmark: part 2 of 2 is not as it should be: nothing written\n")),
                 qPrintable(run.err));
        QCOMPARE(entries(), QStringList());
    }

    void dataMatrix_isMarkedVerifiedAndWritten()
    {
        // "S", "N", "-", "00" and "01" are five codewords, the most that 12 x 12 modules hold.
        const ZtmarkRun run = code("datamatrix SN-0001 --module 0.5mm --hatch line --spacing "
                                   "0.05mm --verify -o a.svg -o a.json");
        QCOMPARE(run.err, QString());
        QCOMPARE(run.exitCode, 0);
        const QString head = QStringLiteral("Code:           Data Matrix, 12 x 12 modules\n"
                                            "Verified:       SN-0001\n"
                                            "Size:           6.000 x 6.000 mm\n"
                                            "Module:         0.500 mm\n"
                                            "Objects:        1\n");
        QCOMPARE(run.out.left(head.size()), head);
        QCOMPARE(entries(), QStringList({QStringLiteral("a.json"), QStringLiteral("a.svg")}));
        QVERIFY(bytesOf(path("a.svg")).contains("<svg"));
        const QJsonObject graph = json("a.json");
        QCOMPARE(extentMm(graph, "width"), 6.0);
        QCOMPARE(extentMm(graph, "height"), 6.0);
        QVERIFY(
            !objectsOf(graph).at(0).toObject().value(QLatin1String("hatch")).toArray().isEmpty());
    }

    void width_isThatOfTheWholeCode()
    {
        // 10 x 10 modules over 8 mm.
        const ZtmarkRun run = code("datamatrix A --width 8mm -o a.json");
        QCOMPARE(run.exitCode, 0);
        QVERIFY2(run.out.contains(QStringLiteral("Module:         0.800 mm\n")),
                 qPrintable(run.out));
        QCOMPARE(extentMm(json("a.json"), "width"), 8.0);
        QCOMPARE(extentMm(json("a.json"), "height"), 8.0);
    }

    void barCode_getsItsCheckDigit()
    {
        // 4+0+0+3*6+3+3*8+1+3*3+3+3*3+9+3*3 = 89, one short of 90; 95 modules of 0.2 mm.
        const ZtmarkRun run = code("ean13 400638133393 --module 0.2mm --height 12mm --hatch line "
                                   "--spacing 0.05mm --verify -o a.json");
        QCOMPARE(run.err, QString());
        QCOMPARE(run.exitCode, 0);
        QVERIFY2(run.out.contains(QStringLiteral("Verified:       4006381333931\n"
                                                 "Size:           19.000 x 12.000 mm\n")),
                 qPrintable(run.out));
        QCOMPARE(extentMm(json("a.json"), "width"), 19.0);
        QCOMPARE(extentMm(json("a.json"), "height"), 12.0);
    }

    void failures_areOneLineAndWriteNothing_data()
    {
        QTest::addColumn<QString>("arguments");
        QTest::addColumn<QString>("complaint");
        const auto row = [](const char *arguments, const char *complaint) {
            QTest::newRow(arguments)
                << QString::fromLatin1(arguments) << QString::fromLatin1(complaint);
        };
        row("code39 abc", "Code 39 has no small letters: use Code 128");
        row("code39 ABC{}z --serial start=8 --parts 2",
            "part 1, \"ABC8z\": Code 39 has no small letters: use Code 128");
        row("datamatrix A --verify",
            "the marks read as nothing: outlines alone are no code, give --hatch");
        row("qr A --verify --style points",
            "the marks read as nothing: dots are as wide as the beam, give --beam");
        // Lines two modules apart and as wide leave no light between them.
        row("datamatrix A --verify --hatch line --spacing 1mm",
            "the marks read as nothing: try a larger module or a closer hatch");
        row("datamatrix A{} --serial start=8,last=9 --parts 3",
            "the serial number ends after part 2 of 3");
        row("datamatrix A -o none/b.svg", "none/b.svg: the folder does not exist");
        row("datamatrix A --size 31", "the size of Data Matrix is 1 to 30, not 31");
        row("micropdf417 A --columns 5", "the number of columns of Micro PDF417 is 1 to 4, not 5");
        row("microqr A --mask 4", "the mask of Micro QR is 0 to 3, not 4");
        row("datamatrix A\\q --escapes", "\"\\q\" is no escape: \\n \\r \\t \\e \\G \\R \\E "
                                         "\\xHH \\uHHHH are, and \\\\ is a backslash");
        row("gs1-128 [01]04012345678900", "the check digit of (01) is 1, not 0");
        row("qr A --text below --font NoSuchFont",
            "no system font NoSuchFont, ztmark font list --system tells them");
    }

    void failures_areOneLineAndWriteNothing()
    {
        QFETCH(QString, arguments);
        QFETCH(QString, complaint);
        const ZtmarkRun run = code(arguments + QStringLiteral(" -o a.svg -o a.json"));
        QCOMPARE(run.err, QStringLiteral("ztmark: %1\n").arg(complaint));
        QCOMPARE(run.out, QString());
        QCOMPARE(run.exitCode, 1);
        QCOMPARE(entries(), QStringList());
    }

    void aLaterPartThatCannotBeEncoded_writesNoneBefore()
    {
        // Nine digits and a tenth make an even number of them; part 2 has eleven.
        const ZtmarkRun run = code("i25 123456789{} --serial start=9 --parts 2 -o a.svg");
        QCOMPARE(run.exitCode, 1);
        QCOMPARE(run.err.count(QLatin1Char('\n')), 1);
        QVERIFY2(run.err.startsWith(QStringLiteral("ztmark: part 2, \"12345678910\": ")),
                 qPrintable(run.err));
        QCOMPARE(entries(), QStringList());
    }

    void wrongUsage_isExitCode2_data()
    {
        QTest::addColumn<QString>("arguments");
        QTest::addColumn<QString>("complaint");
        const auto row = [](const char *arguments, const char *complaint) {
            QTest::newRow(*arguments == '\0' ? "nothing" : arguments)
                << QString::fromLatin1(arguments) << QString::fromLatin1(complaint);
        };
        row("", "SYMBOLOGY is missing");
        row("datamatrix", "TEXT is missing");
        row("barcode A", "SYMBOLOGY: \"barcode\" is no symbology, ztmark code --list tells them");
        row("qr A B", "unknown argument B");
        row("datamatrix A --width 5mm --module 1mm",
            "--width: cannot be given together with --module");
        row("datamatrix A --parts 2",
            "--parts: all parts would be the same without --serial or {serial}");
        row("datamatrix A --module 0", "--module: \"0\" must be greater than 0");
        row("datamatrix A --growth -1", "--growth: \"-1\" is negative");
        row("datamatrix A --style round", "--style: \"round\" is not among the choices");
        row("datamatrix A --text left", "--text: \"left\" is not among the choices");
        row("datamatrix A{} --parts 10001",
            "--parts: \"10001\" is out of range, it must be from 1 to 10000");
        row("pdf417 A --level 10",
            "--level: \"10\" is none of PDF417's: 1, 2, 3, 4, 5, 6, 7, 8, 9");
        row("qr A --level 5", "--level: \"5\" is none of QR Code's: L, M, Q, H");
        row("microqr A --level H", "--level: \"H\" is none of Micro QR's: L, M, Q");
        row("qr A --columns 3", "--columns: QR Code has no number of columns to choose");
        row("aztec A --mask 3", "--mask: Aztec has no masks");
        row("qr A --mask 8", "--mask: \"8\" is out of range, it must be from 0 to 7");
        row("code128 A --charset gbk", "--charset: Code 128 leaves no choice of a character set");
        row("qr A --charset latin", "--charset: \"latin\" is not among the choices");
        row("i25 12 --escapes", "--escapes: Interleaved 2 of 5 has no control characters, so that "
                                "there is nothing to escape");
        row("code39 A --style points", "--style: Code 39 has bars, which are no dots");
        row("qr A --dot 50", "--dot: nothing without --style dots");
        row("qr A --style dots --dot 0", "--dot: \"0\" is out of range, it must be from 1 to 100");
        row("qr A --font-pair tiny.shx", "--font-pair: nothing without --text");
        row("qr A --text below --font-pair tiny.shx --font Sans",
            "--font: cannot be given together with --font-pair");
        row("qr A --style points --no-outline --hatch line",
            "--no-outline: single lines, points and stroke fonts have no hatch");
        row("datamatrix A --no-outline",
            "--no-outline: nothing to mark without --hatch line or zigzag");
        row("datamatrix A -o a.pdf",
            "--output: \"a.pdf\" must end in one of .svg, .png, .json, .csv, .dxf");
        row("code128 A --level 2", "--level: Code 128 has no levels of error correction");
        row("ean13 400638133393 --size 3",
            "--size: EAN-13 has no sizes: it is as large as its content makes it");
        row("qr A --rectangular",
            "--rectangular: QR Code has one form; a Data Matrix can be rectangular");
        row("qr A --check-digit", "--check-digit: QR Code leaves no choice of a check digit");
        row("qr A --height 5mm", "--height: QR Code has no bars, it is as high as its modules");
        row("code39 A --style dots", "--style: Code 39 has bars, which are no dots");
        row("datamatrix A --size 5 --rectangular",
            "--rectangular: cannot be given together with --size");
        row("datamatrix A --beam 0.1mm", "--beam: nothing without --verify");
        row("datamatrix A --text-height 3mm", "--text-height: nothing without --text");
        row("--list barcode",
            "SYMBOLOGY: \"barcode\" is no symbology, ztmark code --list tells them");
    }

    void wrongUsage_isExitCode2()
    {
        QFETCH(QString, arguments);
        QFETCH(QString, complaint);
        const ZtmarkRun run = code(arguments);
        QCOMPARE(run.err, QStringLiteral("ztmark: %1 (see ztmark code --help)\n").arg(complaint));
        QCOMPARE(run.out, QString());
        QCOMPARE(run.exitCode, 2);
        QCOMPARE(entries(), QStringList());
    }

    void parts_haveTheirOwnNumbersAndFiles()
    {
        const ZtmarkRun run = code("datamatrix SN- --serial start=1,width=4 --parts 3 --hatch line "
                                   "--spacing 0.05mm --verify -o sn.csv -o sn.json");
        QCOMPARE(run.err, QString());
        QCOMPARE(run.exitCode, 0);
        const QString head = QStringLiteral("Code:           Data Matrix, 12 x 12 modules\n"
                                            "Parts:          3\n"
                                            "Verified:       SN-0003\n"
                                            "Size:           6.000 x 6.000 mm\n");
        QCOMPARE(run.out.left(head.size()), head);
        QStringList expected;
        for (const char *number : {"0001", "0002", "0003"}) {
            const QString name = QStringLiteral("sn-%1.").arg(QLatin1String(number));
            expected << name + QStringLiteral("csv") << name + QStringLiteral("json");
        }
        QCOMPARE(entries(), expected);
        // Each part is what its own content gives alone.
        for (const char *number : {"0001", "0002", "0003"}) {
            const QString single = QStringLiteral("datamatrix SN-%1 --hatch line --spacing 0.05mm "
                                                  "--verify -q -o one.csv");
            QCOMPARE(code(single.arg(QLatin1String(number))).exitCode, 0);
            const QByteArray part = bytesOf(path(QByteArray("sn-") + number + ".csv"));
            QVERIFY(part.startsWith("object,pen,"));
            QVERIFY2(part == bytesOf(path("one.csv")), number);
        }
        QVERIFY(bytesOf(path("sn-0001.csv")) != bytesOf(path("sn-0002.csv")));
    }

    void options_makeTheCodeThatIsAskedFor_data()
    {
        QTest::addColumn<QString>("arguments");
        QTest::addColumn<QString>("head");
        const auto row = [](const char *arguments, const char *head) {
            QTest::newRow(arguments) << QString::fromUtf8(arguments) << QString::fromUtf8(head);
        };
        // Version 4 is 33 modules wide; H by its letter and by its number.
        row("qr SN-1 --size 4 --level H --mask 3",
            "QR Code, 33 x 33 modules\nVerified:       SN-1\n");
        row("qr SN-1 --size 4 --level 4", "QR Code, 33 x 33 modules\nVerified:       SN-1\n");
        row("qr \u5e8f\u5217\u53f7 --charset gbk",
            "QR Code, 21 x 21 modules\nVerified:       \u5e8f\u5217\u53f7\n");
        row("datamatrix ABCDEFGH --rectangular",
            "Data Matrix, 32 x 8 modules\nVerified:       ABCDEFGH\n");
        // Start, stop and two indicators are 69 modules, each column 17.
        row("pdf417 SN-1 --columns 2", "PDF417, 103 x ");
        row("datamatrix A\\x42\\u0043\\\\ --escapes",
            "Data Matrix, 12 x 12 modules\nVerified:       ABC\\\n");
        // A and B are 10 and 11, 21 is L; with start and stop five characters of 12 and a gap.
        row("code39 AB --check-digit", "Code 39, 64 x 1 modules\nVerified:       ABL\n");
        row("datamatrix SN-1 --style dots --dot 90",
            "Data Matrix, 12 x 12 modules\nVerified:       SN-1\n");
        row("datamatrix SN-1 --style squares",
            "Data Matrix, 12 x 12 modules\nVerified:       SN-1\n");
        row("datamatrix SN-1 --rotate 33 --matrix 2x2",
            "Data Matrix, 12 x 12 modules\nVerified:       SN-1\n");
        row("code128 SN-1 --rotate 33 --matrix 2x2 --gap 6mm",
            "Code 128, 79 x 1 modules\nVerified:       SN-1\n");
    }

    void options_makeTheCodeThatIsAskedFor()
    {
        QFETCH(QString, arguments);
        QFETCH(QString, head);
        const ZtmarkRun run =
            code(arguments + QStringLiteral(" --hatch line --spacing 0.05mm --verify"));
        QCOMPARE(run.err, QString());
        QCOMPARE(run.exitCode, 0);
        head.prepend(QStringLiteral("Code:           "));
        QCOMPARE(run.out.left(head.size()), head);
    }

    void pointsAndLines_areMarkedWithoutAHatch()
    {
        ZtmarkRun run = code("datamatrix SN-1 --style points --verify --beam 0.5mm -o a.json");
        QCOMPARE(run.err, QString());
        QCOMPARE(run.exitCode, 0);
        // 12 x 12 modules: from the middle of the first to that of the last are 11.
        QCOMPARE(extentMm(json("a.json"), "width"), 5.5);
        run = code("datamatrix SN-1 --style lines --growth 0.5mm --verify -o a.json");
        QCOMPARE(run.err, QString());
        QCOMPARE(run.exitCode, 0);
    }

    void codeTooNearToAnother_isNotVerified()
    {
        const ZtmarkRun run = code("code128 SN-1 --matrix 2x1 --gap 0mm --hatch line --spacing "
                                   "0.05mm --verify -o a.svg");
        QCOMPARE(run.exitCode, 1);
        QVERIFY2(run.err.startsWith(QStringLiteral("ztmark: the marks read as nothing")),
                 qPrintable(run.err));
        QCOMPARE(entries(), QStringList());
    }

    void matrix_marksEachCopy()
    {
        // 10 x 10 modules of 0.5 mm twice, 2 mm between them.
        const ZtmarkRun run = code("datamatrix A --matrix 2x1 --hatch line -o a.json");
        QCOMPARE(run.err, QString());
        QCOMPARE(run.exitCode, 0);
        QVERIFY2(run.out.contains(QStringLiteral("Objects:        2\n")), qPrintable(run.out));
        const QJsonObject graph = json("a.json");
        QCOMPARE(objectsOf(graph).size(), 2);
        QCOMPARE(extentMm(graph, "width"), 12.0);
        QCOMPARE(extentMm(graph, "height"), 5.0);
        QCOMPARE(extentMm(objectsOf(graph).at(1).toObject(), "x"), 7.0);
    }

    void text_standsBesideTheQuietZone_data()
    {
        QTest::addColumn<QString>("place");
        QTest::newRow("below") << QStringLiteral("below");
        QTest::newRow("above") << QStringLiteral("above");
    }

    void text_standsBesideTheQuietZone()
    {
        QFETCH(QString, place);
        QCOMPARE(code("datamatrix H -q -o plain.json").exitCode, 0);
        QCOMPARE(extentMm(json("plain.json"), "height"), 5.0);
        // A module of quiet zone, a module of space and a flat capital letter of 3 mm.
        const ZtmarkRun run = code(
            QStringLiteral("datamatrix H --text %1 --text-height 3mm -q -o text.json").arg(place));
        QCOMPARE(run.err, QString());
        QCOMPARE(run.exitCode, 0);
        const QJsonObject graph = json("text.json");
        QVERIFY2(qAbs(extentMm(graph, "height") - 9.0) < 0.02,
                 qPrintable(QString::number(extentMm(graph, "height"))));
        QCOMPARE(extentMm(graph, "width"), 5.0);
    }

    void inverse_marksTheQuietZoneAndIsRead()
    {
        // 21 x 21 modules of 0.5 mm and four modules of quiet zone on each side.
        const ZtmarkRun run = code("qr A --inverse --hatch line --spacing 0.05mm --verify "
                                   "-o a.json");
        QCOMPARE(run.err, QString());
        QCOMPARE(run.exitCode, 0);
        QVERIFY2(run.out.startsWith(QStringLiteral("Code:           QR Code, 21 x 21 modules\n"
                                                   "Verified:       A\n"
                                                   "Size:           10.500 x 10.500 mm\n")),
                 qPrintable(run.out));
        QCOMPARE(extentMm(json("a.json"), "width"), 14.5);
    }

    void refusal_speaksChinese()
    {
        const ZtmarkRun run = code("datamatrix A --verify --language zh -o a.svg");
        QCOMPARE(run.err, QStringLiteral("ztmark: 标刻结果无法读出：只有轮廓不成条码，请给出 "
                                         "--hatch\n"));
        QCOMPARE(run.exitCode, 1);
        QCOMPARE(entries(), QStringList());
    }

private:
    ZtmarkRun code(const QString &arguments) const
    {
        return runZtmark(QStringList{QStringLiteral("code")} +
                             arguments.split(QLatin1Char(' '), Qt::SkipEmptyParts),
                         folder->path());
    }

    ZtmarkRun code(const char *arguments) const { return code(QString::fromLatin1(arguments)); }

    QString path(const QByteArray &name) const
    {
        return folder->filePath(QString::fromLatin1(name));
    }

    QStringList entries() const
    {
        return QDir(folder->path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    }

    QJsonObject json(const char *name) const
    {
        return QJsonDocument::fromJson(bytesOf(path(name))).object();
    }

    static QJsonArray objectsOf(const QJsonObject &graph)
    {
        return graph.value(QLatin1String("objects")).toArray();
    }

    /** A side of the extent of a graph or an object, to a thousandth of a millimetre. */
    static double extentMm(const QJsonObject &of, const char *side)
    {
        constexpr double kUnitsPerMm = 500.0;
        const QJsonObject extent = of.value(QLatin1String("extent")).toObject();
        return qRound(extent.value(QLatin1String(side)).toDouble() / kUnitsPerMm * 1000.0) / 1000.0;
    }

    std::unique_ptr<QTemporaryDir> folder;
};

QTEST_GUILESS_MAIN(tst_CodeCommand)
#include "tst_CodeCommand.moc"
