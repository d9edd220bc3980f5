#include <support/DrawingBytes.h>
#include <support/KilledProcess.h>
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

#include <unistd.h>

#include <functional>

using hostkit::DrawingFile;

namespace {

constexpr int kFewKills = 300;
constexpr quint32 kLongestRunUs = 6000;

/** Saves one of two contents to a file. */
using Save = std::function<bool(int which, const QString &path)>;

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
        const int kills = testsupport::killCount(kFewKills);
        int firstOnes = 0;
        int amidSaving = 0;
        int strays = 0;
        for (int i = 0; i < kills; ++i) {
            testsupport::KilledProcess saver([&](int round) { return save(1 - round % 2, path); });
            usleep(random.bounded(kLongestRunUs));
            QVERIFY(saver.kill());
            const QByteArray bytes = contentOf(path);
            QVERIFY2(bytes == contents[0] || bytes == contents[1],
                     "neither the old nor the new one");
            firstOnes += bytes == contents[0] ? 1 : 0;
            amidSaving += saver.wasAtWork() ? 1 : 0;
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
