#include <support/DrawingBytes.h>
#include <support/SingletonGuard.h>

#include <hostkit/drawing/SampleDrawing.h>
#include <hostkit/setup/Factories.h>

#include <QtCore/QFile>
#include <QtCore/QRandomGenerator>
#include <QtCore/QTemporaryDir>
#include <QtTest/QTest>

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

using hostkit::DrawingFile;
using hostkit::Failure;

namespace {

constexpr int kKills = 400;
constexpr quint32 kLongestRunUs = 6000;

/** A process that saves two drawings in turn to one file, until it is killed. */
class Saver
{
public:
    Saver(const DrawingFile &one, const DrawingFile &other, const QString &path)
    {
        int ends[2];
        if (pipe(ends) != 0)
            return;
        process = fork();
        if (process == 0)
            saveForEver({&one, &other}, path, ends[1]);
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

    [[noreturn]] static void saveForEver(std::initializer_list<const DrawingFile *> drawings,
                                         const QString &path, int out)
    {
        const auto tell = [out](char byte) { return write(out, &byte, 1) == 1; };
        Failure error;
        bool isGood = true;
        while (isGood) {
            for (const DrawingFile *drawing : drawings)
                isGood =
                    isGood && tell(kBegins) && writeDrawing(*drawing, path, &error) && tell(kEnds);
        }
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

    void file_isTheOldOrTheNewDrawingWhenTheSavingProcessIsKilled()
    {
        ZTGraphicsDocument document;
        DrawingFile small = testsupport::captured(document);
        hostkit::buildSampleDrawing(document);
        DrawingFile large = testsupport::captured(document);
        large.extras.sections << hostkit::DrawingSection{"FILL", QByteArray(1'000'000, 'x')};
        const QByteArray smallBytes = drawingToBytes(small);
        const QByteArray largeBytes = drawingToBytes(large);

        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("a.ztd"));
        Failure error;
        QVERIFY(writeDrawing(small, path, &error));
        QRandomGenerator random(1);
        int smallOnes = 0;
        int amidSaving = 0;
        for (int i = 0; i < kKills; ++i) {
            Saver saver(large, small, path);
            usleep(random.bounded(kLongestRunUs));
            QVERIFY(saver.kill());
            const QByteArray bytes = contentOf(path);
            QVERIFY2(bytes == smallBytes || bytes == largeBytes, "neither the old nor the new one");
            smallOnes += bytes == smallBytes ? 1 : 0;
            amidSaving += saver.wasSaving() ? 1 : 0;
        }
        // The kills came at all kinds of moments, most of them amid a save.
        QVERIFY2(smallOnes > 0 && smallOnes < kKills, qPrintable(QString::number(smallOnes)));
        QVERIFY2(amidSaving > kKills / 2, qPrintable(QString::number(amidSaving)));
    }

private:
    QScopedPointer<testsupport::SingletonGuard> guard;
};

QTEST_MAIN(tst_DrawingKill)
#include "tst_DrawingKill.moc"
