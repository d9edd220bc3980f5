#include "RecoveryFolder.h"
#include "StudioTest.h"

#include <studio/drawing/DrawingSession.h>
#include <studio/drawing/RecoveryStore.h>

#include <hostkit/drawing/DrawingCapture.h>

#include <QtCore/QProcess>
#include <QtCore/QSysInfo>

using studio::RecoveryOrigin;
using studio::RecoverySlot;
using studio::RecoveryStore;

namespace {
const QDateTime kNoon(QDate(2024, 5, 6), QTime(12, 0), Qt::UTC);
}

class tst_RecoveryStore : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        studio = std::make_unique<DocumentTest>();
        folder = std::make_unique<RecoveryFolder>(studio->path("recovery"));
    }
    void cleanup() { studio.reset(); }

    void missingFolder_holdsNothing()
    {
        const auto found = RecoveryStore(studio->path("none")).find();
        QVERIFY(found.entries.isEmpty() && found.damaged.isEmpty());
        QVERIFY(!QDir(studio->path("none")).exists());
    }

    void find_tellsNameTimeShapesAndOrigin_latestFirst()
    {
        folder->leave({}, kNoon, drawing(1, false));
        folder->leave({QStringLiteral("/x/plate.ztd"), {123, 456}}, kNoon.addSecs(5),
                      drawing(2, true));
        const auto found = RecoveryStore(folder->path).find();
        QCOMPARE(found.entries.size(), 2);
        QCOMPARE(found.entries[0].name(), QStringLiteral("plate.ztd"));
        QCOMPARE(found.entries[0].origin.path, QStringLiteral("/x/plate.ztd"));
        QVERIFY(found.entries[0].origin.stamp == (studio::FileStamp{123, 456}));
        QCOMPARE(found.entries[0].savedAt, kNoon.addSecs(5));
        QCOMPARE(found.entries[0].shapes, 3);
        QVERIFY(!found.entries[0].preview.isNull());
        QCOMPARE(found.entries[1].name(), QStringLiteral("Unsaved drawing"));
        QCOMPARE(found.entries[1].shapes, 1);
        QVERIFY(found.entries[1].preview.isNull());
    }

    void slotInUse_isNotOffered()
    {
        folder->leave({}, kNoon, drawing(1, false));
        const RecoveryStore store(folder->path);
        auto first = store.find();
        QCOMPARE(first.entries.size(), 1);
        QVERIFY(store.find().entries.isEmpty());
        first.entries.clear();
        QCOMPARE(store.find().entries.size(), 1);
    }

    void lockOfADeadProcess_doesNotHinder()
    {
        const QString path = folder->leave({}, kNoon, drawing(1, false));
        QProcess ended;
        ended.start(QStringLiteral("true"), QStringList());
        QVERIFY(ended.waitForStarted());
        const qint64 deadPid = ended.processId();
        QVERIFY(ended.waitForFinished());
        lockAs(path, deadPid, QStringLiteral("true"));
        QCOMPARE(RecoveryStore(folder->path).find().entries.size(), 1);
    }

    void lockOfALivingProcess_isHeeded_howeverOld()
    {
        const QString path = folder->leave({}, kNoon, drawing(1, false));
        QProcess alive;
        alive.start(QStringLiteral("sleep"), {QStringLiteral("60")});
        QVERIFY(alive.waitForStarted());
        lockAs(path, alive.processId(), QStringLiteral("sleep"));
        QFile lock(path + QStringLiteral(".lock"));
        QVERIFY(lock.open(QIODevice::ReadWrite));
        lock.setFileTime(QDateTime::currentDateTime().addDays(-3),
                         QFileDevice::FileModificationTime);
        lock.close();
        QVERIFY(RecoveryStore(folder->path).find().entries.isEmpty());
        alive.kill();
        QVERIFY(alive.waitForFinished());
        QCOMPARE(RecoveryStore(folder->path).find().entries.size(), 1);
    }

    void damagedFile_isKeptUnderAnotherName()
    {
        const QString path = folder->leave({}, kNoon, drawing(1, false));
        QByteArray bytes = StudioTest::contentOf(path);
        bytes[bytes.size() / 2] = static_cast<char>(bytes[bytes.size() / 2] ^ 1);
        rewrite(path, bytes);
        const auto found = RecoveryStore(folder->path).find();
        QVERIFY(found.entries.isEmpty());
        QCOMPARE(found.damaged, QStringList{path + QStringLiteral(".damaged")});
        QCOMPARE(StudioTest::contentOf(found.damaged.first()), bytes);
        QVERIFY(RecoveryStore(folder->path).find().damaged.isEmpty());
    }

    void everyTruncation_isDamagedOrWhole()
    {
        const QString path = folder->leave({}, kNoon, drawing(1, false));
        const QByteArray whole = StudioTest::contentOf(path);
        for (int length = 0; length < whole.size(); length += 7) {
            rewrite(path, whole.left(length));
            const auto found = RecoveryStore(folder->path).find();
            QVERIFY(found.entries.isEmpty());
            QCOMPARE(found.damaged.size(), 1);
            QFile::remove(found.damaged.first());
        }
    }

    void fileOfANewerVersion_isLeftAlone()
    {
        const QString path = folder->leave({}, kNoon, drawing(1, false));
        // The version of the streams inside, behind magic and format version; checksum by hand.
        QByteArray bytes = StudioTest::contentOf(path);
        bytes[8] = 0x7f;
        const QByteArray sum = crcOf(bytes.left(28));
        rewrite(path, bytes.replace(28, 4, sum));
        const auto found = RecoveryStore(folder->path).find();
        QVERIFY(found.entries.isEmpty() && found.damaged.isEmpty());
        QVERIFY(QFile::exists(path));
    }

    void origin_comesBack()
    {
        hostkit::DrawingFile file;
        QVERIFY(studio::originOf(file).path.isEmpty());
        studio::setOrigin({QStringLiteral("/a/ü.ztd"), {7, 8}}, &file);
        const RecoveryOrigin origin = studio::originOf(file);
        QCOMPARE(origin.path, QStringLiteral("/a/ü.ztd"));
        QVERIFY(origin.stamp == (studio::FileStamp{7, 8}));
    }

    void folderThatCannotBeMade_givesNoSlot()
    {
        studio->write("file", "x");
        QString error;
        QVERIFY(!RecoverySlot::create(studio->path("file/recovery"), &error));
        QVERIFY(error.contains(studio->path("file/recovery")));
    }

private:
    hostkit::DrawingFile drawing(int shapes, bool withPreview)
    {
        for (int i = 0; i < shapes; ++i)
            studio->addRect(i * 50.0, 0);
        hostkit::DrawingFile file;
        hostkit::Failure error;
        hostkit::DrawingCapture wanted;
        wanted.withPreview = withPreview;
        if (!hostkit::captureDrawing(*studio->document, wanted, &file, &error))
            qFatal("the drawing cannot be taken");
        return file;
    }

    static void rewrite(const QString &path, const QByteArray &bytes)
    {
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("a recovery file cannot be changed");
    }

    /** Puts the lock of a process beside a recovery file, as that process does. */
    static void lockAs(const QString &path, qint64 pid, const QString &program)
    {
        rewrite(path + QStringLiteral(".lock"), QStringLiteral("%1\n%2\n%3\n")
                                                    .arg(pid)
                                                    .arg(program, QSysInfo::machineHostName())
                                                    .toUtf8());
    }

    /** CRC-32 of the usual kind, bit by bit, big-endian. */
    static QByteArray crcOf(const QByteArray &bytes)
    {
        quint32 sum = 0xffffffffU;
        for (const char byte : bytes) {
            sum ^= static_cast<quint8>(byte);
            for (int bit = 0; bit < 8; ++bit)
                sum = (sum >> 1) ^ ((sum & 1U) != 0U ? 0xedb88320U : 0U);
        }
        QByteArray out;
        for (int shift = 24; shift >= 0; shift -= 8)
            out.append(static_cast<char>((~sum >> shift) & 0xffU));
        return out;
    }

    std::unique_ptr<DocumentTest> studio;
    std::unique_ptr<RecoveryFolder> folder;
};

QTEST_MAIN(tst_RecoveryStore)
#include "tst_RecoveryStore.moc"
