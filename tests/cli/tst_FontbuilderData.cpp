#include "ZtmarkProcess.h"

#include <support/Skip.h>

#include <QtCore/QDir>
#include <QtCore/QTemporaryDir>

#include <memory>

/** The commands that make whole fonts from foreign data. */
class tst_FontbuilderData : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        folder = std::make_unique<QTemporaryDir>();
        QVERIFY(QDir(folder->path()).mkdir(QStringLiteral("data")));
    }
    void cleanup() { folder.reset(); }

    void help_isComplete_data()
    {
        QTest::addColumn<QString>("command");
        for (const char *command : {"hershey", "gb"})
            QTest::newRow(command) << QString::fromLatin1(command);
    }

    void help_isComplete()
    {
        QFETCH(QString, command);
        const ZtmarkRun ended = run({command, QStringLiteral("--help")});
        const QString file = QStringLiteral("fontbuilder-help-%1.txt").arg(command);
        QCOMPARE(ended.out, QString::fromUtf8(bytesOf(cliData(file))));
        QCOMPARE(ended.err, QString());
        QCOMPARE(ended.exitCode, 0);
    }

    void wrongUsage_isTold_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("told");
        const QString hershey = QStringLiteral("hershey");
        const QString gb = QStringLiteral("gb");
        QTest::newRow("no data") << QStringList{hershey, QStringLiteral("-o"),
                                                QStringLiteral("out")}
                                 << QStringLiteral(
                                        "DIR is missing (see fontbuilder hershey --help)");
        QTest::newRow("no output")
            << QStringList{gb, QStringLiteral("data")}
            << QStringLiteral("--output is missing (see fontbuilder gb --help)");
    }

    void wrongUsage_isTold()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, told);
        const ZtmarkRun ended = run(arguments);
        QCOMPARE(ended.err, QStringLiteral("fontbuilder: ") + told + QLatin1Char('\n'));
        QCOMPARE(ended.exitCode, 2);
    }

    void missingData_isTold()
    {
        const ZtmarkRun hershey = run(
            {QStringLiteral("hershey"), QStringLiteral("data"), QStringLiteral("-o"), output()});
        QCOMPARE(hershey.err, QStringLiteral("fontbuilder: data/futural.jhf: cannot be read\n"));
        QCOMPARE(hershey.exitCode, 1);
        const ZtmarkRun gb =
            run({QStringLiteral("gb"), QStringLiteral("data"), QStringLiteral("-o"), output()});
        QCOMPARE(gb.err, QStringLiteral("fontbuilder: data: no character of hanzi-writer-data\n"));
        QCOMPARE(gb.exitCode, 1);
        QVERIFY(!QDir(folder->filePath(output())).exists());
    }

    void outputThatIsNoFolder_isTold()
    {
        if (!QFile::exists(QStringLiteral(ZT_HERSHEY_DIR "/futural.jhf")))
            ZT_SKIP("the Hershey data is missing: install the package hershey-fonts-data");
        QFile file(folder->filePath(output()));
        QVERIFY(file.open(QIODevice::WriteOnly));
        const ZtmarkRun ended = run({QStringLiteral("hershey"), QStringLiteral(ZT_HERSHEY_DIR),
                                     QStringLiteral("-o"), output()});
        QCOMPARE(ended.err,
                 QStringLiteral("fontbuilder: fonts: is no folder, and none can be made\n"));
        QCOMPARE(ended.exitCode, 1);
    }

    void hershey_makesTheFontsOfTheBuild()
    {
        if (!QFile::exists(QStringLiteral(ZT_HERSHEY_DIR "/futural.jhf")))
            ZT_SKIP("the Hershey data is missing: install the package hershey-fonts-data");
        const ZtmarkRun ended = run({QStringLiteral("hershey"), QStringLiteral(ZT_HERSHEY_DIR),
                                     QStringLiteral("--output"), output()});
        QCOMPARE(ended.err + ended.out, QString());
        QCOMPARE(ended.exitCode, 0);
        const QStringList made = QDir(folder->filePath(output())).entryList(QDir::Files);
        QCOMPARE(made.size(), 15); // with the font of 16-bit codes
        for (const QString &name : made)
            QVERIFY2(isAsBuilt(name), qPrintable(name));
    }

    void gb_makesTheFontOfTheBuild_inAnyLocale()
    {
        if (!QFile::exists(QStringLiteral(ZT_HANZI_DIR "/package.json")))
            ZT_SKIP("the Chinese data is missing: tools/setup.sh build could not fetch it");
        const ZtmarkRun ended =
            run({QStringLiteral("gb"), QStringLiteral(ZT_HANZI_DIR), QStringLiteral("--hershey"),
                 QStringLiteral(ZT_HERSHEY_DIR), QStringLiteral("-o"), output()});
        QCOMPARE(ended.err + ended.out, QString());
        QCOMPARE(ended.exitCode, 0);
        QVERIFY(isAsBuilt(QStringLiteral("gb-strokes.shx")));
    }

private:
    static QString output() { return QStringLiteral("fonts"); }

    ZtmarkRun run(const QStringList &arguments) const
    {
        return runProgram(QStringLiteral(ZT_FONTBUILDER), arguments, folder->path());
    }

    bool isAsBuilt(const QString &name) const
    {
        return bytesOf(folder->filePath(output()) + QLatin1Char('/') + name) ==
               bytesOf(QStringLiteral(ZT_FONT_DIR "/") + name);
    }

    std::unique_ptr<QTemporaryDir> folder;
};

QTEST_GUILESS_MAIN(tst_FontbuilderData)
#include "tst_FontbuilderData.moc"

#include <support/Skip.h>
