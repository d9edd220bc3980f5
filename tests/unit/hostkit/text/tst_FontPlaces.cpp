#include <support/OwnFolder.h>
#include <support/SingletonGuard.h>
#include <support/TinyFonts.h>

#include <hostkit/text/FontPlaces.h>
#include <hostkit/text/FontPresence.h>
#include <hostkit/text/StrokeFont.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>

#include <algorithm>
#include <vector>

class tst_FontPlaces : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        guard.reset(new testsupport::SingletonGuard);
        testsupport::makeTinyFonts();
        m_userData.reset(new QTemporaryDir);
        QVERIFY(m_userData->isValid());
        qputenv("XDG_DATA_HOME", QFile::encodeName(m_userData->path()));
    }
    void cleanup() { guard.reset(); }

    void folderBesideTheProgram_countsAlone()
    {
        const QString beside = QCoreApplication::applicationDirPath() + QStringLiteral("/font");
        QCOMPARE(hostkit::strokeFontFolder(), beside);
        QCOMPARE(hostkit::fontFolders(), QStringList{beside});
        QCOMPARE(hostkit::strokeFontPath(QStringLiteral("tiny.shx")),
                 beside + QStringLiteral("/tiny.shx"));
        QCOMPARE(hostkit::strokeFontPath(QStringLiteral("missing.shx")),
                 beside + QStringLiteral("/missing.shx"));
    }

    void folderOfTheUser_comesLast()
    {
        const QString own = userFolder();
        QVERIFY(QDir().mkpath(own));
        QVERIFY(QFile::copy(hostkit::strokeFontFolder() + QStringLiteral("/tiny.shx"),
                            own + QStringLiteral("/mine.shx")));
        QCOMPARE(hostkit::fontFolders(), (QStringList{hostkit::strokeFontFolder(), own}));
        QCOMPARE(hostkit::strokeFontPath(QStringLiteral("mine.shx")),
                 own + QStringLiteral("/mine.shx"));
        QCOMPARE(hostkit::strokeFontPath(QStringLiteral("tiny.shx")),
                 hostkit::strokeFontFolder() + QStringLiteral("/tiny.shx"));
        // Added once in a process: each font is listed once, whoever asks for it again.
        QVERIFY(!hostkit::hasStrokeFont(QStringLiteral("mine.shx")));
        hostkit::addFontFolders();
        hostkit::addFontFolders();
        QVERIFY(hostkit::hasStrokeFont(QStringLiteral("mine.shx")));
        const std::vector<std::string> &regular = ZTShxFontManager::regFonts();
        QCOMPARE(std::count(regular.begin(), regular.end(), "mine.shx"), std::ptrdiff_t{1});
        QCOMPARE(std::count(regular.begin(), regular.end(), "tiny.shx"), std::ptrdiff_t{1});
    }

private:
    QString userFolder() const { return m_userData->path() + QStringLiteral("/ztdrawengine/font"); }

    QScopedPointer<testsupport::SingletonGuard> guard;
    QScopedPointer<QTemporaryDir> m_userData;
};

int main(int argc, char **argv)
{
    const int code = testsupport::runInOwnFolder(argc, argv);
    if (code >= 0)
        return code;
    const QApplication application(argc, argv);
    tst_FontPlaces test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_FontPlaces.moc"
