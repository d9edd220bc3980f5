#include <jobkit/marks/NumberLock.h>

#include <QtCore/QDateTime>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <QtCore/QThread>
#include <QtTest/QTest>

#include <memory>
#include <thread>

using jobkit::NumberLock;
using Result = jobkit::NumberLock::Result;

/** One program at a time takes numbers of a drawing. */
class tst_NumberLock : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_folder = std::make_unique<QTemporaryDir>();
        put(path("plate.ztd"));
    }

    void lock_isOfOneAlone_andGoesWithIt()
    {
        auto first = std::make_unique<NumberLock>(path("plate.ztd"));
        QCOMPARE(first->fileName(), QStringLiteral("plate.ztd.lock"));
        QCOMPARE(first->take(), Result::Taken);
        NumberLock second(path("plate.ztd"));
        QCOMPARE(second.take(), Result::Busy);
        first.reset();
        QVERIFY(!QFile::exists(path("plate.ztd.lock")));
        QCOMPARE(second.take(), Result::Taken);
    }

    void lockThatIsGivenBack_isWaitedFor()
    {
        auto first = std::make_unique<NumberLock>(path("plate.ztd"));
        QCOMPARE(first->take(), Result::Taken);
        NumberLock second(path("plate.ztd"));
        std::thread other([&first] {
            QThread::msleep(100);
            first.reset();
        });
        const Result result = second.take(60000);
        other.join();
        QCOMPARE(result, Result::Taken);
    }

    void drawingReachedByALink_hasTheSameLock()
    {
        QVERIFY(QFile::link(QStringLiteral("plate.ztd"), path("link.ztd")));
        NumberLock first(path("link.ztd"));
        QCOMPARE(first.take(), Result::Taken);
        QVERIFY(QFile::exists(path("plate.ztd.lock")));
        NumberLock second(path("plate.ztd"));
        QCOMPARE(second.take(), Result::Busy);
    }

    // As a power cut leaves it; one that was begun just now may get its name yet.
    void emptyLock_countsWhileItIsYoung()
    {
        put(path("plate.ztd.lock"));
        NumberLock lock(path("plate.ztd"));
        QCOMPARE(lock.take(), Result::Busy);
        QFile file(path("plate.ztd.lock"));
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.setFileTime(QDateTime::currentDateTime().addSecs(-11),
                                 QFileDevice::FileModificationTime));
        file.close();
        QCOMPARE(lock.take(), Result::Taken);
    }

    void drawingThatIsNotThere_isLockedInItsPlace()
    {
        NumberLock lock(path("none.ztd"));
        QCOMPARE(lock.take(), Result::Taken);
        QVERIFY(QFile::exists(path("none.ztd.lock")));
    }

    void folderThatTakesNoFile_isTold()
    {
        NumberLock lock(QStringLiteral("/proc/self/status"));
        QCOMPARE(lock.take(), Result::Impossible);
    }

private:
    QString path(const char *name) const { return m_folder->filePath(QLatin1String(name)); }

    static void put(const QString &name)
    {
        QFile file(name);
        QVERIFY(file.open(QIODevice::WriteOnly));
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

QTEST_GUILESS_MAIN(tst_NumberLock)
#include "tst_NumberLock.moc"
