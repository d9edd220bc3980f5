#include <ZTDrawEngineLib/shapes/PltCheck.h>

#include <QtTest/QTest>

namespace {

/** The problem that one line has, empty for none. */
QString problemOf(const QByteArray &line)
{
    const PltReport report = PltCheck::inspect(line + '\n');
    if (report.illFormedLines != report.problems.size())
        return QStringLiteral("count and list differ");
    return report.problems.isEmpty() ? QString() : report.problems.first().text;
}

} // namespace

class tst_PltCheck : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void inspect_nothing_givesZeros()
    {
        const PltReport report = PltCheck::inspect({});
        QCOMPARE(report.lines, 0);
        QCOMPARE(report.penUpLines, 0);
        QCOMPARE(report.penDownLines, 0);
        QCOMPARE(report.skippedLines, 0);
        QCOMPARE(report.illFormedLines, 0);
        QCOMPARE(report.points, 0);
        QCOMPARE(report.polylines, 0);
        QVERIFY(report.extent.isNull());
        QVERIFY(report.problems.isEmpty());
        QVERIFY(report.skipped.isEmpty());
    }

    void inspect_drawing_countsEverything()
    {
        const PltReport report = PltCheck::inspect("IN;\r\n"
                                                   "SP1;\r\n"
                                                   "PU0 -5;\r\n"
                                                   "PD10 0;\r\n"
                                                   "PD10,20;\r\n"
                                                   "\r\n"
                                                   "PU;\r\n"
                                                   "PU20 20;\r\n"
                                                   "PD30 x;\r\n"
                                                   "PU90 40;");
        QCOMPARE(report.lines, 10);
        QCOMPARE(report.penUpLines, 4);
        QCOMPARE(report.penDownLines, 3);
        QCOMPARE(report.skippedLines, 3);
        QCOMPARE(report.illFormedLines, 2);
        QCOMPARE(report.points, 5);
        QCOMPARE(report.polylines, 2);
        QCOMPARE(report.extent, QRectF(0, -5, 90, 45));
        QCOMPARE(report.problems.size(), 2);
        QCOMPARE(report.problems.at(0).line, 5);
        QCOMPARE(report.problems.at(0).text, QStringLiteral("no point in \"PD10,20;\""));
        QCOMPARE(report.problems.at(1).line, 9);
        QCOMPARE(report.problems.at(1).text,
                 QStringLiteral("not a whole number, taken as 0, in \"PD30 x;\""));
        QCOMPARE(report.skipped.size(), 2);
        QCOMPARE(report.skipped.at(0).line, 1);
        QCOMPARE(report.skipped.at(0).text, QStringLiteral("skipped \"IN;\""));
        QCOMPARE(report.skipped.at(1).line, 2);
    }

    void inspect_line_tellsWhatIsLost_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<QString>("text");
        const auto row = [](const QByteArray &line, const QString &text = QString()) {
            QTest::newRow(line.toPercentEncoding().constData()) << line << text;
        };
        const QString noNumber = QStringLiteral("not a whole number, taken as 0, in ");
        const QString firstPoint = QStringLiteral("only the first point is read of ");
        const QString firstCommand = QStringLiteral("only the first command is read of ");
        row("PU10 20;");
        row("PD10 20");
        row("PD-10 20;\r");
        row("PU;");
        row("PD");
        row("PD10 20 ;");
        row("PD\t10 20;");
        row("PD2147483647 -2147483648;");
        row("PU10,20;", QStringLiteral("no point in \"PU10,20;\""));
        row("PU10;", QStringLiteral("no point in \"PU10;\""));
        row("PD 10 20;", noNumber + QStringLiteral("\"PD 10 20;\""));
        row("PD1.5 2;", noNumber + QStringLiteral("\"PD1.5 2;\""));
        row("PD2147483648 2;", noNumber + QStringLiteral("\"PD2147483648 2;\""));
        row("PD1 2 3 4;", firstPoint + QStringLiteral("\"PD1 2 3 4;\""));
        row("PD1 2;PD3 4;", firstCommand + QStringLiteral("\"PD1 2;PD3 4;\""));
        row("PU;PD3 4;", firstCommand + QStringLiteral("\"PU;PD3 4;\""));
    }

    void inspect_line_tellsWhatIsLost()
    {
        QFETCH(QByteArray, line);
        QFETCH(QString, text);
        QCOMPARE(problemOf(line), text);
        QCOMPARE(PltCheck::inspect(line).lines, 1);
    }

    void inspect_flatDrawing_hasAnExtentWithoutHeight()
    {
        const PltReport report = PltCheck::inspect("PU0 5;\nPD10 5;\n");
        QCOMPARE(report.polylines, 1);
        QCOMPARE(report.extent, QRectF(0, 5, 10, 0));
    }

    void inspect_manyProblems_countsAllAndListsTheFirst()
    {
        const PltReport report = PltCheck::inspect(QByteArray("PU1,2;\nSP1;\n").repeated(1000), 3);
        QCOMPARE(report.illFormedLines, 1000);
        QCOMPARE(report.skippedLines, 1000);
        QCOMPARE(report.problems.size(), 3);
        QCOMPARE(report.problems.last().line, 5);
        QCOMPARE(report.skipped.size(), 3);
        QCOMPARE(report.skipped.last().line, 6);
    }

    void inspect_noneListed_stillCounts()
    {
        for (const int maxListed : {0, -1}) {
            const PltReport report = PltCheck::inspect("PU1,2;\nSP1;\n", maxListed);
            QCOMPARE(report.illFormedLines, 1);
            QVERIFY(report.problems.isEmpty());
            QVERIFY(report.skipped.isEmpty());
        }
    }

    void inspect_longOrBinaryLine_isShownShortAndInOneRow()
    {
        const PltReport longLine = PltCheck::inspect("PU" + QByteArray(1000, '1') + ";");
        QCOMPARE(longLine.problems.first().text, QStringLiteral("no point in \"PU") +
                                                     QString(58, QLatin1Char('1')) +
                                                     QStringLiteral("...\""));
        const PltReport binary = PltCheck::inspect("a\x1b\t\x07z\n");
        const QChar unknown(QChar::ReplacementCharacter);
        QCOMPARE(binary.skipped.first().text,
                 QStringLiteral("skipped \"a") + QString(3, unknown) + QStringLiteral("z\""));
    }
};

QTEST_GUILESS_MAIN(tst_PltCheck)
#include "tst_PltCheck.moc"
