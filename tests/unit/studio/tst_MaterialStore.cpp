#include <studio/job/MaterialStore.h>

#include <QtCore/QDir>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

using jobkit::Material;
using studio::MaterialStore;

class tst_MaterialStore : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aMaterial_comesBackUnderItsName_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("plain") << QStringLiteral("steel");
        QTest::newRow("folders") << QStringLiteral("../steel/1");
        QTest::newRow("dots") << QStringLiteral("..");
        QTest::newRow("chinese") << QString::fromUtf8("不锈钢 0.5");
    }

    void aMaterial_comesBackUnderItsName()
    {
        QFETCH(const QString, name);
        const QTemporaryDir folder;
        const MaterialStore store(folder.filePath(QStringLiteral("inside")));
        Material material{name, {jobkit::defaultPen(2)}};
        material.pens[0].powerPercent = 12.5;
        QString error;
        QVERIFY2(store.save(material, &error), qPrintable(error));
        QCOMPARE(store.names(), QStringList{name});
        Material read;
        QVERIFY2(store.read(name, &read, &error), qPrintable(error));
        QCOMPARE(read, material);
        QCOMPARE(QDir(folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
                 QStringList{QStringLiteral("inside")});
    }

    void aDamagedFile_isPassedOver_andToldWhenAskedFor()
    {
        const QTemporaryDir folder;
        QFile file(folder.filePath(QStringLiteral("bad.json")));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("{");
        file.close();
        const MaterialStore store(folder.path());
        QVERIFY(store.names().isEmpty());
        Material material{QStringLiteral("kept"), {}};
        QString error;
        QVERIFY(!store.read(QStringLiteral("bad"), &material, &error));
        QVERIFY(!error.isEmpty());
        QCOMPARE(material.name, QStringLiteral("kept"));
    }

    void aNameThatIsNone_isRefused()
    {
        const QTemporaryDir folder;
        QString error;
        QVERIFY(!MaterialStore(folder.path()).save({QString(), {}}, &error));
        QVERIFY(!error.isEmpty());
    }
};

QTEST_MAIN(tst_MaterialStore)
#include "tst_MaterialStore.moc"
