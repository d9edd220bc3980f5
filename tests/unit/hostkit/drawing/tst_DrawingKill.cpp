#include <support/DrawingBytes.h>
#include <support/SingletonGuard.h>

#include <hostkit/drawing/SampleDrawing.h>
#include <hostkit/files/FileWriter.h>
#include <hostkit/marks/MarkGraphWriter.h>
#include <hostkit/setup/Factories.h>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QRandomGenerator>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <functional>

using hostkit::DrawingFile;

namespace {

constexpr quint32 kLongestRunUs = 6000;

/** How many processes are killed; ZT_KILLS asks for more. */
int killCount()
{
    constexpr int kFew = 300;
    const int wanted = qEnvironmentVariableIntValue("ZT_KILLS");
    return wanted > 0 ? wanted : kFew;
}

/** Saves one of two contents to a file. */
using Save = std::function<bool(int which, const QString &path)>;

/** A process that saves two contents in turn to one file, until it is killed. */
class Saver
{
public:
    Saver(const Save &save, const QString &path)
    {
        int ends[2];
        if (pipe(ends) != 0)
            return;
        process = fork();
        if (process == 0)
            saveForEver(save, path, ends[1]);
        close(ends[1]);
        news = ends[0];
        read(news, &lastNews, 1);
    }

    ~Saver() { close(news); }
    Saver(const Saver &) = delete;
    Saver &operator=(const Saver &) = delete;

    /** Whether it lived until the signal came. */
    bool kill()
    {
        int status = 0;
        const bool isKilled = process > 0 && ::kill(process, SIGKILL) == 0 &&
                              waitpid(process, &status, 0) == process && WIFSIGNALED(status);
        while (read(news, &lastNews, 1) == 1) {
        }
        return isKilled;
    }

    bool wasSaving() const { return lastNews == kBegins; }

private:
    static constexpr char kBegins = 'b';
    static constexpr char kEnds = 'e';

    [[noreturn]] static void saveForEver(const Save &save, const QString &path, int out)
    {
        const auto tell = [out](char byte) { return write(out, &byte, 1) == 1; };
        bool isGood = true;
        for (int which = 1; isGood; which = 1 - which)
            isGood = tell(kBegins) && save(which, path) && tell(kEnds);
        _exit(1);
    }

    pid_t process = -1;
    int news = -1;
    char lastNews = kEnds;
};

QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

/** Processes that are killed while they save. */
class tst_DrawingKill : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { hostkit::registerFactories(); }
    void init() { guard.reset(new testsupport::SingletonGuard); }
    void cleanup() { guard.reset(); }

    void drawing_isTheOldOrTheNewOneWhenTheSavingProcessIsKilled()
    {
        ZTGraphicsDocument document;
        DrawingFile drawings[2] = {testsupport::captured(document), {}};
        hostkit::buildSampleDrawing(document);
        drawings[1] = testsupport::captured(document);
        drawings[1].extras.sections << hostkit::DrawingSection{"FILL", QByteArray(1'000'000, 'x')};
        killAgainAndAgain(
            [&](int which, const QString &path) {
                return writeDrawing(drawings[which], path, nullptr);
            },
            QStringLiteral("a.ztd"));
    }

    void export_isTheOldOrTheNewOneWhenTheWritingProcessIsKilled()
    {
        ZTGraphicsDocument document;
        hostkit::buildSampleDrawing(document);
        ZTMarkGraph graphs[2] = {{}, document.itemMag()->getShapeLines()};
        graphs[0].objects = graphs[1].objects.mid(0, 1);
        graphs[0].rect = graphs[0].objects[0].rect;
        const hostkit::MarkUnits units = hostkit::MarkUnits::current();
        killAgainAndAgain(
            [&](int which, const QString &path) {
                return hostkit::saveMarkGraph(graphs[which], units, path, nullptr);
            },
            QStringLiteral("a.csv"));
    }

private:
    /** The file is one content or the other after every kill, and no other file stays. */
    static void killAgainAndAgain(const Save &save, const QString &name)
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(name);
        QByteArray contents[2];
        for (const int which : {1, 0}) {
            QVERIFY(save(which, path));
            contents[which] = contentOf(path);
            QVERIFY(!contents[which].isEmpty());
        }
        QRandomGenerator random(1);
        const int kills = killCount();
        int firstOnes = 0;
        int amidSaving = 0;
        int strays = 0;
        for (int i = 0; i < kills; ++i) {
            Saver saver(save, path);
            usleep(random.bounded(kLongestRunUs));
            QVERIFY(saver.kill());
            const QByteArray bytes = contentOf(path);
            QVERIFY2(bytes == contents[0] || bytes == contents[1],
                     "neither the old nor the new one");
            firstOnes += bytes == contents[0] ? 1 : 0;
            amidSaving += saver.wasSaving() ? 1 : 0;
            const int files = filesIn(folder.path()).size();
            QVERIFY2(files <= 2, "more than the last leftover"); // each save clears the one before
            strays += files - 1;
        }
        hostkit::removeLeftovers(folder.path()); // as the next start does
        QCOMPARE(filesIn(folder.path()), QStringList{name});
        qInfo("%d kills, %d amid saving, %d leftovers cleared", kills, amidSaving, strays);
        // The kills came at all kinds of moments, most of them amid a save.
        QVERIFY2(firstOnes > 0 && firstOnes < kills, qPrintable(QString::number(firstOnes)));
        QVERIFY2(amidSaving > kills / 2, qPrintable(QString::number(amidSaving)));
        QVERIFY(strays > 0);
    }

    static QStringList filesIn(const QString &folder)
    {
        return QDir(folder).entryList(QDir::Files | QDir::Hidden);
    }

    QScopedPointer<testsupport::SingletonGuard> guard;
};

QTEST_MAIN(tst_DrawingKill)
#include "tst_DrawingKill.moc"
