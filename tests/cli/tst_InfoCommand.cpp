#include "ZtmarkProcess.h"

class tst_InfoCommand : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void drawing_isDescribed()
    {
        const ZtmarkRun run = info(QStringLiteral("corner.plt"));
        QCOMPARE(run.out, QStringLiteral("Lines:             3\n"
                                         "Pen-up lines:      1\n"
                                         "Pen-down lines:    2\n"
                                         "Points:            3\n"
                                         "Polylines:         1\n"
                                         "Plotter units:     x 0 to 100, y 0 to 50\n"
                                         "Size as imported:  40 x 20 mm\n"
                                         "Skipped lines:     0\n"
                                         "Ill-formed lines:  0\n"));
        QCOMPARE(run.err, QString());
        QCOMPARE(run.exitCode, 0);
    }

    void lostLines_areListed()
    {
        const ZtmarkRun run = info(QStringLiteral("half.plt"));
        QCOMPARE(run.out, QStringLiteral(
                              "Lines:             6\n"
                              "Pen-up lines:      2\n"
                              "Pen-down lines:    3\n"
                              "Points:            4\n"
                              "Polylines:         2\n"
                              "Plotter units:     x 0 to 100, y 0 to 50\n"
                              "Size as imported:  40 x 20 mm\n"
                              "Skipped lines:     1\n"
                              "  line 1: skipped \"IN;\"\n"
                              "Ill-formed lines:  2\n"
                              "  line 4: no point in \"PU10,20;\"\n"
                              "  line 6: only the first command is read of \"PD50 50;PD1 2;\"\n"));
        QCOMPARE(run.err, QString());
        QCOMPARE(run.exitCode, 0);
    }

    void lostLines_areListedInChinese()
    {
        const ZtmarkRun run = runZtmark(
            {QStringLiteral("info"), QStringLiteral("half.plt"), QStringLiteral("--language=zh")},
            cliData());
        QVERIFY2(run.out.contains(QStringLiteral("  第 1 行：已跳过 \"IN;\"\n")),
                 qPrintable(run.out));
        QVERIFY2(run.out.contains(QStringLiteral("  第 4 行：没有坐标点：\"PU10,20;\"\n")),
                 qPrintable(run.out));
        QCOMPARE(run.exitCode, 0);
    }

    void manyLostLines_areListedInPart()
    {
        QByteArray drawing("PU0 0;\nPD100 50;\n");
        for (int i = 0; i < 35; ++i)
            drawing += "PD1,1;\n";
        const ZtmarkRun run =
            runZtmark({QStringLiteral("info"), QStringLiteral("-")}, cliData(), drawing);
        QVERIFY2(run.out.contains(QStringLiteral("Ill-formed lines:  35\n  line 3: no point in "
                                                 "\"PD1,1;\"\n")),
                 qPrintable(run.out));
        QVERIFY2(run.out.endsWith(QStringLiteral("  line 22: no point in \"PD1,1;\"\n"
                                                 "  and 15 more\n")),
                 qPrintable(run.out));
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
                                "Layer:             \"\", 1 shapes, 0 texts\n"
                                "Pens:              1\n"
                                "Outlines:          0 closed, 1 open\n"
                                "Pieces:            1 lines, 0 arcs, 0 curves\n"
                                "Texts:             0\n"));
        QCOMPARE(run.err, QString());
        QCOMPARE(run.exitCode, 0);
    }

    void fileWithNothingToDraw_isDescribedAndFails()
    {
        const ZtmarkRun run = info(QStringLiteral("pointless.plt"));
        QCOMPARE(run.out, QStringLiteral("Lines:             2\n"
                                         "Pen-up lines:      1\n"
                                         "Pen-down lines:    1\n"
                                         "Points:            0\n"
                                         "Polylines:         0\n"
                                         "Skipped lines:     0\n"
                                         "Ill-formed lines:  2\n"
                                         "  line 1: no point in \"PU?;\"\n"
                                         "  line 2: no point in \"PDx;\"\n"));
        QCOMPARE(run.err,
                 QStringLiteral("ztmark: pointless.plt: no plotter drawing: not one PU or PD line "
                                "with a point (line 1: no point in \"PU?;\")\n"));
        QCOMPARE(run.exitCode, 1);
    }

    void unreadableFiles_failInOneLine_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("why");
        QTest::newRow("missing") << QStringLiteral("none.plt") << QStringLiteral("no such file");
        QTest::newRow("empty") << QStringLiteral("empty.plt") << QStringLiteral("is empty");
        QTest::newRow("binary") << QStringLiteral("binary.plt")
                                << QStringLiteral("holds binary data, not a plotter drawing");
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

    void fullDisk_behindStandardOutput_fails()
    {
        QProcess process;
        process.setWorkingDirectory(cliData());
        process.setStandardOutputFile(QStringLiteral("/dev/full"));
        process.start(QStringLiteral(ZT_ZTMARK),
                      {QStringLiteral("info"), QStringLiteral("corner.plt")});
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
