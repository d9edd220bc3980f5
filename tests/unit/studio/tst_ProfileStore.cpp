#include <studio/job/ProfileStore.h>

#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

using jobkit::MachineProfile;

/** The user's machines. */
class tst_ProfileStore : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void machines_areKeptUnderAnyName()
    {
        const QTemporaryDir folder;
        const studio::ProfileStore store(folder.filePath(QStringLiteral("new")));
        QVERIFY(store.paths().isEmpty());
        MachineProfile profile;
        QString error;
        for (const char *name : {"b", "A", "../../up", "\xe6\xbf\x80\xe5\x85\x89 1.5"}) {
            profile.name = QString::fromUtf8(name);
            profile.jumpDelayUs = 100.0;
            QVERIFY2(store.save(profile, &error), qPrintable(error));
            const QString path = store.pathOf(profile.name);
            QVERIFY(path.startsWith(folder.path()) && store.holds(path));
            MachineProfile read;
            QVERIFY(studio::ProfileStore::readFile(path, &read, &error));
            QVERIFY(read == profile);
        }
        QCOMPARE(store.paths().size(), 4);
        QVERIFY(store.paths().indexOf(store.pathOf(QStringLiteral("A"))) <
                store.paths().indexOf(store.pathOf(QStringLiteral("b"))));
        QVERIFY(store.remove(store.pathOf(QStringLiteral("b"))));
        QVERIFY(!store.remove(store.pathOf(QStringLiteral("b"))));
        QCOMPARE(store.paths().size(), 3);
    }

    void whatIsOutOfRange_isNotKept()
    {
        const QTemporaryDir folder;
        const studio::ProfileStore store(folder.path());
        MachineProfile profile;
        profile.name = QStringLiteral("x");
        profile.fieldWidthMm = 0.0;
        QString error;
        QVERIFY(!store.save(profile, &error));
        QVERIFY2(error.startsWith(QStringLiteral("fieldWidthMm")), qPrintable(error));
        QVERIFY(store.paths().isEmpty());
    }

    void otherFiles_areNotRemoved_andDamagedOnesNamed()
    {
        const QTemporaryDir folder;
        const studio::ProfileStore store(folder.filePath(QStringLiteral("machines")));
        const QString path = folder.filePath(QStringLiteral("elsewhere.json"));
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("{\"format\":\"job-profile\",\"version\":1,\"name\":\"x\",\"kind\":\"saw\"}");
        file.close();
        QVERIFY(!store.remove(path));
        QVERIFY(QFile::exists(path));
        MachineProfile profile;
        QString error;
        QVERIFY(!studio::ProfileStore::readFile(path, &profile, &error));
        QVERIFY2(error.startsWith(QStringLiteral("kind")), qPrintable(error));
    }
};

QTEST_GUILESS_MAIN(tst_ProfileStore)
#include "tst_ProfileStore.moc"
