#include <support/OwnFolder.h>
#include <support/SingletonGuard.h>
#include <support/TinyFonts.h>

#include <hostkit/text/FontPresence.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtTest/QTest>
#include <QtWidgets/QApplication>

class tst_FontPresence : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        guard.reset(new testsupport::SingletonGuard);
        testsupport::makeTinyFonts();
    }
    void cleanup() { guard.reset(); }

    void strokeFont_isFoundWithoutBeingLoaded()
    {
        ZTShxFontManager::release(); // nothing scanned yet
        QVERIFY(hostkit::hasStrokeFont(QStringLiteral("tiny.shx")));
        QVERIFY(hostkit::hasStrokeFont(QStringLiteral("tinybig.shx")));
        QVERIFY(!hostkit::hasStrokeFont(QStringLiteral("missing.shx")));
        QVERIFY(!hostkit::hasStrokeFont(QString()));
        QVERIFY(ZTShxFontManager::loadedFonts().empty());
    }

    void systemFont_data()
    {
        QTest::addColumn<QString>("family");
        QTest::addColumn<bool>("isThere");
        QTest::newRow("installed") << QStringLiteral("DejaVu Sans") << true;
        QTest::newRow("another case") << QStringLiteral("dejavu sans") << true;
        QTest::newRow("stands for one") << QStringLiteral("Sans Serif") << true;
        QTest::newRow("the program's own") << QApplication::font().family() << true;
        QTest::newRow("not installed") << QStringLiteral("No Such Font") << false;
        QTest::newRow("a part of a name") << QStringLiteral("DejaVu") << false;
    }
    void systemFont()
    {
        QFETCH(QString, family);
        QTEST(hostkit::hasSystemFont(family), "isThere");
    }

private:
    QScopedPointer<testsupport::SingletonGuard> guard;
};

int main(int argc, char **argv)
{
    const int code = testsupport::runInOwnFolder(argc, argv);
    if (code >= 0)
        return code;
    const QApplication application(argc, argv);
    tst_FontPresence test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_FontPresence.moc"
