#include <jobkit/marks/NumberJournal.h>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

using jobkit::NumberJournal;

/** The note of numbers that jobs took. */
class tst_NumberJournal : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void journal_comesBack_andGoes()
    {
        const QTemporaryDir folder;
        const QString drawing = folder.filePath(QStringLiteral("plate.ztd"));
        QVERIFY(!jobkit::readJournal(drawing));
        NumberJournal journal{"4 ;", "9 ;", 5, QStringLiteral("SN-\u00e4 004"),
                              QStringLiteral("SN 008")};
        hostkit::Failure failure;
        QVERIFY(jobkit::writeJournal(drawing, journal, &failure));
        const auto read = jobkit::readJournal(drawing);
        QVERIFY(read.has_value());
        QCOMPARE(read->before, journal.before);
        QCOMPARE(read->after, journal.after);
        QCOMPARE(read->parts, journal.parts);
        QCOMPARE(read->first, journal.first);
        QCOMPARE(read->last, journal.last);
        QVERIFY(!jobkit::readJournal(folder.filePath(QStringLiteral("other.ztd"))));
        jobkit::removeJournal(drawing);
        QVERIFY(!jobkit::readJournal(drawing));
    }

    /** By whatever name a drawing is reached, its numbers are taken once. */
    void drawingReachedByALink_hasTheSameJournal()
    {
        const QTemporaryDir folder;
        const QString drawing = folder.filePath(QStringLiteral("plate.ztd"));
        QVERIFY(QFile(drawing).open(QIODevice::WriteOnly));
        QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("links")));
        const QString link = folder.filePath(QStringLiteral("links/other.ztd"));
        QVERIFY(QFile::link(drawing, link));
        hostkit::Failure failure;
        QVERIFY(jobkit::writeJournal(link, {"4 ;", {}, 5, {}, {}}, &failure));
        const auto read = jobkit::readJournal(drawing);
        QVERIFY(read.has_value());
        QCOMPARE(read->parts, 5);
        jobkit::removeJournal(drawing);
        QVERIFY(!jobkit::readJournal(link));
    }

    void damagedJournal_isNone_data()
    {
        QTest::addColumn<QByteArray>("json");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("no parts") << QByteArray(R"({"format":"number-journal","version":1})");
        QTest::newRow("other") << QByteArray(R"({"format":"job-plan","version":1,"parts":3})");
        QTest::newRow("later") << QByteArray(
            R"({"format":"number-journal","version":2,"parts":3})");
    }

    void damagedJournal_isNone()
    {
        QFETCH(QByteArray, json);
        const QTemporaryDir folder;
        const QString drawing = folder.filePath(QStringLiteral("plate.ztd"));
        QFile file(jobkit::journalPath(drawing));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(json);
        file.close();
        QVERIFY(!jobkit::readJournal(drawing));
        // But it is not as if there had been none.
        hostkit::Failure failure;
        QVERIFY(!jobkit::readJournal(drawing, &failure));
        QVERIFY(failure.kind == hostkit::Failure::Kind::Damaged);
        QVERIFY2(
            failure.reason.startsWith(QStringLiteral("\"plate.ztd.numbers\" cannot be read: ")),
            qPrintable(failure.reason));
        QVERIFY(!failure.advice.isEmpty());
    }

    void noJournal_isNoFailure()
    {
        const QTemporaryDir folder;
        hostkit::Failure failure;
        QVERIFY(!jobkit::readJournal(folder.filePath(QStringLiteral("plate.ztd")), &failure));
        QVERIFY(failure.kind == hostkit::Failure::Kind::None);
    }

    /** Also of a drawing with so many counters that what is noted takes megabytes. */
    void longJournal_comesBack()
    {
        const QTemporaryDir folder;
        const QString drawing = folder.filePath(QStringLiteral("plate.ztd"));
        const NumberJournal journal{QByteArray(3000000, '1'),
                                    {},
                                    1,
                                    QString(3000000, QLatin1Char('a')),
                                    QStringLiteral("b")};
        hostkit::Failure failure;
        QVERIFY(jobkit::writeJournal(drawing, journal, &failure));
        const auto read = jobkit::readJournal(drawing, &failure);
        QVERIFY2(read.has_value(), qPrintable(failure.reason));
        QCOMPARE(read->before.size(), 3000000);
    }

    void noFolder_isAFailure()
    {
        hostkit::Failure failure;
        QVERIFY(!jobkit::writeJournal(QStringLiteral("/nowhere/at/all.ztd"), {{}, {}, 1, {}, {}},
                                      &failure));
        QVERIFY(!failure.reason.isEmpty());
    }
};

QTEST_MAIN(tst_NumberJournal)
#include "tst_NumberJournal.moc"
