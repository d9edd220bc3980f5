#include <hostkit/files/FileWriter.h>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

using hostkit::Failure;

namespace {

bool save(const QString &path, const QByteArray &bytes, Failure *failure)
{
    return hostkit::saveWhole(
        path, [&](QIODevice &device) { return device.write(bytes) == bytes.size(); }, failure);
}

} // namespace

class tst_FileWriter : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { folder.reset(new QTemporaryDir); }

    void newAndOldFiles_holdWhatWasWritten()
    {
        Failure failure;
        for (const char *content : {"one", "", "another one"}) {
            QVERIFY2(save(at("a.txt"), content, &failure), qPrintable(failure.reason));
            QCOMPARE(contentOf("a.txt"), QByteArray(content));
        }
        QCOMPARE(names(), QStringList{QStringLiteral("a.txt")});
    }

    void whatCannotBeMade_leavesTheOldFileAlone()
    {
        put("a.txt", "old");
        Failure failure;
        const auto half = [](QIODevice &device) {
            device.write("half");
            return false;
        };
        QVERIFY(!hostkit::saveWhole(at("a.txt"), half, &failure));
        QCOMPARE(failure.kind, Failure::Kind::NotPossible);
        QCOMPARE(contentOf("a.txt"), QByteArray("old"));
        QCOMPARE(names(), QStringList{QStringLiteral("a.txt")});
    }

    void whatIsNotWantedAnyMore_leavesTheOldFileAlone()
    {
        put("a.txt", "old");
        const auto write = [](QIODevice &device) { return device.write("new") == 3; };
        bool wasComplete = false;
        const auto isWanted = [&] {
            const QStringList beside = names();
            wasComplete = beside.size() == 2 && contentOf(qPrintable(beside.last())) == "new";
            return false;
        };
        Failure failure;
        QVERIFY(!hostkit::saveWhole(at("a.txt"), write, &failure, isWanted));
        QVERIFY(wasComplete); // asked at the last moment
        QCOMPARE(failure.kind, Failure::Kind::Cancelled);
        QCOMPARE(contentOf("a.txt"), QByteArray("old"));
        QCOMPARE(names(), QStringList{QStringLiteral("a.txt")});
        QVERIFY(hostkit::saveWhole(at("a.txt"), write, &failure, [] { return true; }));
        QCOMPARE(contentOf("a.txt"), QByteArray("new"));
    }

    void exception_leavesTheOldFileAlone()
    {
        put("a.txt", "old");
        const auto noMemory = [](QIODevice &) -> bool { throw std::bad_alloc(); };
        QVERIFY_EXCEPTION_THROWN(hostkit::saveWhole(at("a.txt"), noMemory, nullptr),
                                 std::bad_alloc);
        QCOMPARE(contentOf("a.txt"), QByteArray("old"));
        QCOMPARE(names(), QStringList{QStringLiteral("a.txt")});
    }

    void impossiblePlaces_areNamed_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("reason");
        QTest::newRow("folder") << QStringLiteral(".") << QStringLiteral("is a folder");
        QTest::newRow("no folder")
            << QStringLiteral("none/a.txt") << QStringLiteral("the folder does not exist");
        QTest::newRow("pipe") << QStringLiteral("pipe") << QStringLiteral("is no ordinary file");
    }
    void impossiblePlaces_areNamed()
    {
        QFETCH(QString, name);
        QFETCH(QString, reason);
        QCOMPARE(mkfifo(QFile::encodeName(at("pipe")).constData(), 0600), 0);
        Failure failure;
        QVERIFY(!save(folder->filePath(name), "x", &failure));
        QCOMPARE(failure.kind, Failure::Kind::CannotWrite);
        QCOMPARE(failure.reason, reason);
    }

    void longNames_areWrittenToo()
    {
        const QString name(250, QLatin1Char('n'));
        Failure failure;
        QVERIFY2(save(folder->filePath(name), "x", &failure), qPrintable(failure.reason));
        QCOMPARE(names(), QStringList{name});
    }

    void leftoverOfAKilledProcess_goesWithTheNextSaveOfTheSameFile()
    {
        leaveBehind("a.txt");
        leaveBehind("b.txt");
        QCOMPARE(names().size(), 2);
        Failure failure;
        QVERIFY(save(at("a.txt"), "new", &failure));
        QCOMPARE(names().size(), 2);
        QVERIFY(names().contains(QStringLiteral("a.txt")));
        QVERIFY(names().last().startsWith(QLatin1String("b.txt.zt-part-")));
    }

    void removeLeftovers_leavesWhatIsBeingWrittenAndWhatIsNobodysLeftover()
    {
        leaveBehind("a.txt");
        const QStringList others{
            QStringLiteral("a.txt.zt-part-"), QStringLiteral("a.txt.zt-part-12345678.bak"),
            QStringLiteral("a.txt.zt-part-nothexed"), QStringLiteral(".zt-part-12345678"),
            QStringLiteral("a.txt.123456")};
        for (const QString &name : others)
            put(qPrintable(name), "somebody's");
        QStringList during;
        const auto write = [&](QIODevice &device) {
            hostkit::removeLeftovers(folder->path());
            during = names();
            return device.write("mine") == 4;
        };
        Failure failure;
        QVERIFY2(hostkit::saveWhole(at("c.txt"), write, &failure), qPrintable(failure.reason));
        QCOMPARE(during.size(), others.size() + 1); // with the one that was being written
        QCOMPARE(contentOf("c.txt"), QByteArray("mine"));
        for (const QString &name : others)
            QCOMPARE(contentOf(qPrintable(name)), QByteArray("somebody's"));
        QCOMPARE(names().size(), others.size() + 1);
    }

private:
    QString at(const char *name) const { return folder->filePath(QString::fromUtf8(name)); }

    QStringList names() const
    {
        return QDir(folder->path()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
    }

    void put(const char *name, const QByteArray &bytes) const
    {
        QFile file(at(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        QCOMPARE(file.write(bytes), qint64(bytes.size()));
    }

    QByteArray contentOf(const char *name) const
    {
        QFile file(at(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("not there");
    }

    /** A process that is killed while it writes. */
    void leaveBehind(const char *name) const
    {
        const pid_t process = fork();
        if (process == 0) {
            hostkit::saveWhole(
                at(name), [](QIODevice &) { return raise(SIGKILL) == 0; }, nullptr);
            _exit(1);
        }
        int status = 0;
        QCOMPARE(waitpid(process, &status, 0), process);
        QVERIFY(WIFSIGNALED(status));
    }

    QScopedPointer<QTemporaryDir> folder;
};

QTEST_GUILESS_MAIN(tst_FileWriter)
#include "tst_FileWriter.moc"
