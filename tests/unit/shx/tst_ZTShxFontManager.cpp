#include <support/OwnFolder.h>
#include <support/ShxWriter.h>
#include <support/WarningGuard.h>

#include <ZTDrawEngineLib/shx/ZTRegBigFontShxParser.h>
#include <ZTDrawEngineLib/shx/ZTShxFontManager.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <sys/inotify.h>
#include <unistd.h>

using testsupport::bytes;
using testsupport::ShxWriter;

namespace {

using Names = std::vector<std::string>;

/** A font whose file is larger the more filler it is given; "A" is two wide. */
ShxWriter writerOf(int filler)
{
    ShxWriter writer;
    writer.glyphs = {{65, bytes({0x20}), {}}, {66, QByteArray(filler, '\0'), {}}};
    return writer;
}

} // namespace

class tst_ZTShxFontManager : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        warnings.reset(new testsupport::WarningGuard);
        QVERIFY(fontFolder().removeRecursively());
        QVERIFY(QDir().mkpath(fontFolder().path()));
        ZTShxFontManager::release();
    }
    void cleanup() { warnings.reset(); }

    void presence_isToldWithoutLoading()
    {
        write("a.shx", writerOf(1).shapes());
        write("none.shx", "no font at all, whatever its name says");
        QVERIFY(!ZTShxFontManager::hasFont("a.shx")); // never scans by itself
        ZTShxFontManager::regFonts();
        QVERIFY(ZTShxFontManager::hasFont("a.shx"));
        QVERIFY(ZTShxFontManager::hasFont("none.shx")); // as getFont gives a parser for it
        QVERIFY(!ZTShxFontManager::hasFont("b.shx"));
        QVERIFY(ZTShxFontManager::loadedFonts().empty());
        ZTShxFontManager::getFont("a.shx", 10);
        QCOMPARE(ZTShxFontManager::loadedFonts(), Names{"a.shx"});
        ZTShxFontManager::release();
        QVERIFY(ZTShxFontManager::loadedFonts().empty());
        QVERIFY(!ZTShxFontManager::hasFont("a.shx"));
    }

    void lists_sortRegularFromBig_smallestFirst()
    {
        write("d-shapes.shx", writerOf(40).shapes());
        write("c-unifont.shx", writerOf(30).unifont());
        write("b-only.shx", writerOf(10).shapesOnly());
        write("e-big.shx", writerOf(60).bigfont());
        write("a-big.shx", writerOf(80).bigfont());
        write("none.shx", "no font at all, whatever its name says");
        write("shapes.txt", writerOf(1).shapes());
        QCOMPARE(ZTShxFontManager::regFonts(),
                 (Names{"b-only.shx", "c-unifont.shx", "d-shapes.shx"}));
        QCOMPARE(ZTShxFontManager::bigFonts(), (Names{"e-big.shx", "a-big.shx"}));
    }

    void lists_takeHiddenFiles_butNoLinksAndFolders()
    {
        write(".hidden.shx", writerOf(1).shapes());
        write("font.shx", writerOf(9).shapes());
        QVERIFY(QFile::link(path("font.shx"), path("link.shx")));
        QVERIFY(fontFolder().mkdir(QStringLiteral("folder.shx")));
        QCOMPARE(ZTShxFontManager::regFonts(), (Names{".hidden.shx", "font.shx"}));
    }

    void addedFolders_areScannedBehindTheFontFolder()
    {
        write("own.shx", writerOf(90).shapes());
        write("own-big.shx", writerOf(90).bigfont());
        QVERIFY(ZTShxFontManager::bigFonts() == Names{"own-big.shx"});
        const QTemporaryDir more;
        testsupport::writeFile(more.filePath(QStringLiteral("more.shx")), writerOf(1).shapes());
        testsupport::writeFile(more.filePath(QStringLiteral("more-big.shx")),
                               writerOf(1).bigfont());
        ZTShxFontManager::addFolder(more.path());
        QCOMPARE(ZTShxFontManager::regFonts(), (Names{"own.shx", "more.shx"}));
        QCOMPARE(ZTShxFontManager::bigFonts(), (Names{"own-big.shx", "more-big.shx"}));
        QVERIFY(ZTShxFontManager::getFont("more.shx", 1)->GetType() == SHX_TYPE::SHX_SHAPES);
        ZTShxFontManager::release();
        QCOMPARE(ZTShxFontManager::regFonts(), Names{"own.shx"});
    }

    void addedFolder_bringsTheFontThatIsLoaded_ofTwoWithOneName()
    {
        write("font.shx", writerOf(1).shapes());
        const QTemporaryDir more;
        testsupport::writeFile(more.filePath(QStringLiteral("font.shx")), writerOf(1).unifont());
        ZTShxFontManager::addFolder(more.path());
        QCOMPARE(ZTShxFontManager::regFonts(), (Names{"font.shx", "font.shx"}));
        QVERIFY(ZTShxFontManager::getFont("font.shx", 1)->GetType() == SHX_TYPE::SHX_UNIFONT);
    }

    void addedFolderThatIsMissing_addsNothing()
    {
        write("font.shx", writerOf(1).shapes());
        ZTShxFontManager::addFolder(QStringLiteral("/none"));
        QCOMPARE(ZTShxFontManager::regFonts(), Names{"font.shx"});
    }

    void missingFolder_givesEmptyLists_silently()
    {
        QVERIFY(fontFolder().removeRecursively());
        QVERIFY(ZTShxFontManager::regFonts().empty());
        QVERIFY(ZTShxFontManager::bigFonts().empty());
        QVERIFY(ZTShxFontManager::getFont("font.shx", 50) == nullptr);
    }

    void getInstance_scansNothing_andIsAlwaysTheSame()
    {
        write("font.shx", writerOf(1).shapes());
        ZTShxFontManager *manager = ZTShxFontManager::getInstance();
        QVERIFY(manager != nullptr);
        QCOMPARE(ZTShxFontManager::getInstance(), manager);
        QVERIFY(ZTShxFontManager::getFont("font.shx", 50) == nullptr);
    }

    void getFont_beforeAScan_isNull_andFoundAfterIt()
    {
        write("font.shx", writerOf(1).shapes());
        QVERIFY(ZTShxFontManager::getFont("font.shx", 50) == nullptr);
        ZTShxFontManager::bigFonts();
        ZTShxParser *font = ZTShxFontManager::getFont("font.shx", 50);
        QVERIFY(font != nullptr);
        QCOMPARE(font->GetType(), SHX_TYPE::SHX_SHAPES);
        QCOMPARE(font->getTextHeight(), 50.0);
        QCOMPARE(font->getTextExtent("A"), 100.0);
    }

    void getFont_again_isTheSameParser_andKeepsItsHeight()
    {
        write("font.shx", writerOf(1).shapes());
        ZTShxFontManager::regFonts();
        ZTShxParser *font = ZTShxFontManager::getFont("font.shx", 7);
        QCOMPARE(ZTShxFontManager::getFont("font.shx", 99), font);
        QCOMPARE(font->getTextHeight(), 7.0);
        font->setTextHeight(3.0);
        QCOMPARE(ZTShxFontManager::getFont("font.shx", 99)->getTextHeight(), 3.0);
    }

    void getFont_unknownName_isNull()
    {
        write("font.shx", writerOf(1).shapes());
        ZTShxFontManager::regFonts();
        QVERIFY(ZTShxFontManager::getFont("FONT.SHX", 50) == nullptr);
        QVERIFY(ZTShxFontManager::getFont("font", 50) == nullptr);
        QVERIFY(ZTShxFontManager::getFont("", 50) == nullptr);
    }

    void getFont_fileThatIsNoFont_isAParserOfNone()
    {
        write("font.shx", writerOf(1).shapes());
        write("none.shx", "no font");
        ZTShxFontManager::regFonts();
        ZTShxParser *font = ZTShxFontManager::getFont("none.shx", 50);
        QVERIFY(font != nullptr);
        QCOMPARE(font->GetType(), SHX_TYPE::SHX_NONE);
        QCOMPARE(ZTShxFontManager::getFont("none.shx", 50), font);
    }

    void missingKind_repeatsTheOtherAtEachCall_kept()
    {
        write("font.shx", writerOf(1).shapes());
        QCOMPARE(ZTShxFontManager::regFonts(), Names{"font.shx"});
        QVERIFY(ZTShxFontManager::bigFonts().empty());
        QCOMPARE(ZTShxFontManager::regFonts(), (Names{"font.shx", "font.shx"}));
        QVERIFY(ZTShxFontManager::bigFonts().empty());
        QCOMPARE(ZTShxFontManager::regFonts().size(), std::size_t(3));
    }

    void bothKinds_areScannedOnce()
    {
        write("font.shx", writerOf(1).shapes());
        write("big.shx", writerOf(1).bigfont());
        ZTShxFontManager::regFonts();
        write("later.shx", writerOf(1).shapes());
        QCOMPARE(ZTShxFontManager::bigFonts(), Names{"big.shx"});
        QCOMPARE(ZTShxFontManager::regFonts(), Names{"font.shx"});
    }

    void laterScan_seesNewAndChangedFiles()
    {
        write("font.shx", writerOf(1).shapes());
        write("turn.shx", "none yet");
        QVERIFY(ZTShxFontManager::bigFonts().empty());
        write("turn.shx", writerOf(200).bigfont());
        QCOMPARE(ZTShxFontManager::bigFonts(), Names{"turn.shx"});
    }

    void everyFile_isReadOnce()
    {
        write("font.shx", writerOf(1).shapes());
        const int watch = inotify_init1(IN_NONBLOCK);
        QVERIFY(watch >= 0);
        QVERIFY(inotify_add_watch(watch, path("font.shx").toLocal8Bit().constData(), IN_OPEN) >= 0);
        QCOMPARE(ZTShxFontManager::regFonts().size(), std::size_t(1));
        QCOMPARE(opens(watch), 1);
        QVERIFY(ZTShxFontManager::bigFonts().empty()); // scans anew, and knows the file
        QCOMPARE(ZTShxFontManager::regFonts().size(), std::size_t(2));
        QCOMPARE(opens(watch), 0);
        close(watch);
    }

    void release_forgetsFontsAndLists()
    {
        write("font.shx", writerOf(1).shapes());
        write("big.shx", writerOf(1).bigfont());
        ZTShxFontManager::regFonts();
        ZTShxFontManager::getFont("font.shx", 50);
        ZTShxFontManager::release();
        ZTShxFontManager::release();
        QVERIFY(ZTShxFontManager::getFont("font.shx", 50) == nullptr);
        QVERIFY(QFile::remove(path("big.shx")));
        write("other.shx", writerOf(9).shapes());
        QCOMPARE(ZTShxFontManager::regFonts(), (Names{"font.shx", "other.shx"}));
    }

    void release_leavesEveryPointerUsable()
    {
        write("font.shx", writerOf(1).shapes());
        write("big.shx", writerOf(1).bigfont());
        ZTShxFontManager *manager = ZTShxFontManager::getInstance();
        const Names &names = ZTShxFontManager::regFonts();
        ZTRegBigFontShxParser pair("font.shx", "big.shx");
        ZTShxParser *font = ZTShxFontManager::getFont("font.shx", 50);
        QVERIFY(pair.getTextExtent("A") > 0.0);
        ZTShxFontManager::release();
        QCOMPARE(ZTShxFontManager::getInstance(), manager);
        QVERIFY(names.empty());
        QCOMPARE(font->GetType(), SHX_TYPE::SHX_NONE);
        QCOMPARE(pair.getTextExtent("A"), 0.0);
        pair.setTextHeight(3.0);
        pair.cleanup();
        QCOMPARE(pair.getDescendHeight(), 0.0);
        ZTShxFontManager::regFonts();
        QCOMPARE(ZTShxFontManager::getFont("font.shx", 50), font);
        QCOMPARE(font->getTextExtent("A"), 100.0);
    }

    void copy_sharesParsers_andOutlivesARelease()
    {
        write("font.shx", writerOf(1).shapes());
        ZTShxFontManager::regFonts();
        ZTShxParser *font = ZTShxFontManager::getFont("font.shx", 50);
        {
            ZTShxFontManager copy(*ZTShxFontManager::getInstance());
            ZTShxFontManager other(copy);
            other = copy;
        }
        QCOMPARE(font->getTextExtent("A"), 100.0);
        ZTShxFontManager copy(*ZTShxFontManager::getInstance());
        ZTShxFontManager::release();
        *ZTShxFontManager::getInstance() = copy;
        QCOMPARE(ZTShxFontManager::regFonts(), Names{"font.shx"});
        QCOMPARE(ZTShxFontManager::getFont("font.shx", 50), font);
    }

    void namesAndPaths_areInTheLocal8BitEncoding()
    {
        const QString name = QStringLiteral("sch\u00F6n.shx");
        testsupport::writeFile(fontFolder().filePath(name), writerOf(1).shapes());
        const QByteArray local = name.toLocal8Bit();
        QCOMPARE(QString::fromLocal8Bit(local), name);
        QCOMPARE(ZTShxFontManager::regFonts(), Names{local.toStdString()});
        QVERIFY(ZTShxFontManager::getFont(local.toStdString(), 50) != nullptr);
    }

private:
    /** How often a watched file was opened since the last call. */
    static int opens(int watch)
    {
        inotify_event event;
        int count = 0;
        while (read(watch, &event, sizeof event) > 0)
            ++count;
        return count;
    }

    static QDir fontFolder()
    {
        return QDir(QCoreApplication::applicationDirPath() + QStringLiteral("/font"));
    }

    static QString path(const char *name) { return fontFolder().filePath(QLatin1String(name)); }

    static void write(const char *name, const QByteArray &content)
    {
        testsupport::writeFile(path(name), content);
    }

    QScopedPointer<testsupport::WarningGuard> warnings;
};

int main(int argc, char **argv)
{
    const int code = testsupport::runInOwnFolder(argc, argv);
    if (code >= 0)
        return code;
    QCoreApplication application(argc, argv);
    tst_ZTShxFontManager test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_ZTShxFontManager.moc"
