#include "ZtmarkProcess.h"

class tst_InfoCommand : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void drawing_isDescribed()
    {
        const ZtmarkRun run = info(QStringLiteral("corner.plt"));
        QCOMPARE(run.out,
                 QStringLiteral("Format:            HP-GL\n"
                                "Unit:              0.025 mm. A plotter's unit is 0.025 mm.\n"
                                "Size:              2.5 x 1.25 mm\n"
                                "Layer:             \"\", 1 shape, 0 texts\n"
                                "Pens:              1\n"
                                "Outlines:          0 closed, 1 open\n"
                                "Pieces:            2 lines, 0 arcs, 0 curves\n"
                                "Texts:             0\n"
                                "Cleaning mends:    nothing\n"));
        QCOMPARE(run.err, QString());
        QCOMPARE(run.exitCode, 0);
    }

    void standardInput_isDescribed()
    {
        const ZtmarkRun run = runZtmark({QStringLiteral("info"), QStringLiteral("-")}, cliData(),
                                        bytesOf(cliData(QStringLiteral("corner.plt"))));
        QCOMPARE(run.out, info(QStringLiteral("corner.plt")).out);
        QCOMPARE(run.exitCode, 0);
    }

    void whatCleaningMends_isCounted()
    {
        // Three sides of a square as loose lines that meet, the second drawn twice.
        const ZtmarkRun run =
            runZtmark({QStringLiteral("info"), QStringLiteral("-")}, cliData(),
                      "PU0,0;PD400,0;PU400,0;PD400,400;PU400,0;PD400,400;PU400,400;PD0,400;");
        QVERIFY2(run.out.contains(QStringLiteral(
                     "Cleaning mends:    2 pairs of loose ends, doubled pieces: 1, 10 mm "
                     "(--clean join=0.05mm,duplicates,zero)\n")),
                 qPrintable(run.out));
        QCOMPARE(run.exitCode, 0);
    }

    void chinese_isSpoken()
    {
        const ZtmarkRun run = runZtmark(
            {QStringLiteral("info"), QStringLiteral("corner.plt"), QStringLiteral("--language=zh")},
            cliData());
        QVERIFY2(run.out.contains(QStringLiteral("清理可修复：")), qPrintable(run.out));
        QVERIFY2(run.out.contains(QStringLiteral("1 个图形, 0 个文字")), qPrintable(run.out));
        QCOMPARE(run.exitCode, 0);
    }

    void dialectOfCommas_isDescribedAtTrueSize()
    {
        // One pen stroke of 100 units, 0.025 mm each.
        const ZtmarkRun run = info(QStringLiteral("commas.plt"));
        QCOMPARE(run.out,
                 QStringLiteral("Format:            HP-GL\n"
                                "Unit:              0.025 mm. A plotter's unit is 0.025 mm.\n"
                                "Size:              2.5 x 0 mm\n"
                                "Layer:             \"\", 1 shape, 0 texts\n"
                                "Pens:              1\n"
                                "Outlines:          0 closed, 1 open\n"
                                "Pieces:            1 line, 0 arcs, 0 curves\n"
                                "Texts:             0\n"
                                "Cleaning mends:    nothing\n"));
        QCOMPARE(run.err, QString());
        QCOMPARE(run.exitCode, 0);
    }

    void unreadableFiles_failInOneLine_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("why");
        QTest::newRow("missing") << QStringLiteral("none.plt") << QStringLiteral("no such file");
        QTest::newRow("empty") << QStringLiteral("empty.plt") << QStringLiteral("is empty");
        QTest::newRow("no drawing") << QStringLiteral("pointless.plt")
                                    << QStringLiteral("This is none of the drawings that can be "
                                                      "read. Drawings are read as HP-GL, SVG and "
                                                      "DXF.");
        QTest::newRow("folder") << QStringLiteral(".") << QStringLiteral("is a folder");
    }

    void unreadableFiles_failInOneLine()
    {
        QFETCH(QString, file);
        QFETCH(QString, why);
        const ZtmarkRun run = info(file);
        QCOMPARE(run.err, QStringLiteral("ztmark: %1: %2\n").arg(file, why));
        QCOMPARE(run.out, QString());
        QCOMPARE(run.exitCode, 1);
    }

    void fullDisk_behindStandardOutput_fails_data()
    {
        QTest::addColumn<QString>("arguments");
        QTest::newRow("info") << QStringLiteral("info corner.plt");
        QTest::newRow("code list") << QStringLiteral("code --list");
        QTest::newRow("code kind") << QStringLiteral("code --list qr");
    }

    void fullDisk_behindStandardOutput_fails()
    {
        QFETCH(QString, arguments);
        QProcess process;
        process.setWorkingDirectory(cliData());
        process.setStandardOutputFile(QStringLiteral("/dev/full"));
        process.start(QStringLiteral(ZT_ZTMARK), arguments.split(QLatin1Char(' ')));
        QVERIFY(process.waitForFinished());
        QCOMPARE(process.readAllStandardError(),
                 QByteArray("ztmark: standard output: cannot be written\n"));
        QCOMPARE(process.exitCode(), 1);
    }

private:
    static ZtmarkRun info(const QString &file)
    {
        return runZtmark({QStringLiteral("info"), file}, cliData());
    }
};

QTEST_GUILESS_MAIN(tst_InfoCommand)
#include "tst_InfoCommand.moc"
