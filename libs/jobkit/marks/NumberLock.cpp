#include <jobkit/marks/NumberLock.h>

#include <QtCore/QDateTime>
#include <QtCore/QDeadlineTimer>
#include <QtCore/QFileInfo>
#include <QtCore/QThread>

namespace jobkit {

namespace {

constexpr int kLockBegunS = 10; ///< by then whoever made a lock has put a name into it
constexpr int kAskAgainMs = 20;

QString lockPath(const QString &drawingPath)
{
    const QString path = QFileInfo(drawingPath).canonicalFilePath();
    return (path.isEmpty() ? drawingPath : path) + QStringLiteral(".lock");
}

} // namespace

NumberLock::NumberLock(const QString &drawingPath) : m_path(lockPath(drawingPath)), m_file(m_path)
{
    m_file.setStaleLockTime(0);
}

NumberLock::Result NumberLock::take(int waitMs)
{
    const QDeadlineTimer deadline(waitMs);
    // QLockFile itself asks at times that grow to seconds; jobs are often done sooner.
    while (!m_file.tryLock() && !takeAfterACrash()) {
        if (m_file.error() != QLockFile::LockFailedError)
            return Result::Impossible;
        if (deadline.hasExpired())
            return Result::Busy;
        QThread::msleep(kAskAgainMs);
    }
    return Result::Taken;
}

QString NumberLock::fileName() const { return QFileInfo(m_path).fileName(); }

/** A power cut can leave a lock that does not say whose it is. Of a running program, it does. */
bool NumberLock::takeAfterACrash()
{
    qint64 pid = 0;
    QString host;
    QString program;
    const bool isOld =
        QFileInfo(m_path).lastModified().secsTo(QDateTime::currentDateTime()) > kLockBegunS;
    return isOld && !m_file.getLockInfo(&pid, &host, &program) && m_file.removeStaleLockFile() &&
           m_file.tryLock();
}

} // namespace jobkit
