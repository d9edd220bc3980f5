#include <hostkit/files/FileWriter.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QRandomGenerator>
#include <QtCore/QRegularExpression>

#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace hostkit {

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(hostkit::FileWriter)
};

constexpr int kMaxNameBytes = 220; // leaves room for the ending below in any file system
const QString kEnding = QStringLiteral(".zt-part-");

/** What the names of unfinished files beside `target` begin with. */
QString beginningOf(const QFileInfo &target)
{
    QString name = target.fileName();
    while (QFile::encodeName(name).size() > kMaxNameBytes)
        name.chop(1);
    return name + kEnding;
}

/** Whether a name is one that `newName` makes. */
bool isUnfinishedName(const QString &name)
{
    static const QRegularExpression kForm(QStringLiteral("^.+\\.zt-part-[0-9a-f]{8}$"),
                                          QRegularExpression::DotMatchesEverythingOption);
    return kForm.match(name).hasMatch();
}

QString newName(const QFileInfo &target)
{
    const auto number = QRandomGenerator::global()->generate();
    return target.path() + QLatin1Char('/') + beginningOf(target) +
           QString::number(number, 16).rightJustified(8, QLatin1Char('0'));
}

/**
 * Every process locks the file that it writes for as long as it does: what can be locked was left
 * behind. It is removed under the lock, so that its writer, should it be about to lock it, sees.
 */
void removeUnlessWritten(const QString &path)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || QFileInfo(path).isSymLink() || !file.open(QIODevice::ReadOnly))
        return;
    if (flock(file.handle(), LOCK_EX | LOCK_NB) == 0)
        QFile::remove(path);
}

/** Removes those unfinished files of a folder whose names begin so. */
void removeUnfinished(const QDir &folder, const QString &beginning)
{
    const QStringList names = folder.entryList(QDir::Files | QDir::Hidden | QDir::System);
    for (const QString &name : names) {
        if (name.startsWith(beginning) && isUnfinishedName(name))
            removeUnlessWritten(folder.filePath(name));
    }
}

bool cannotWrite(const QString &why, Failure *failure)
{
    return fail(failure, Failure::Kind::CannotWrite, Texts::tr("cannot be written: %1").arg(why));
}

/** A new file beside the target, locked; removed again unless it takes the target's place. */
class UnfinishedFile
{
public:
    explicit UnfinishedFile(const QFileInfo &replaced) : m_target(replaced) {}
    ~UnfinishedFile()
    {
        if (file.isOpen())
            QFile::remove(file.fileName());
    }
    UnfinishedFile(const UnfinishedFile &) = delete;
    UnfinishedFile &operator=(const UnfinishedFile &) = delete;

    bool open()
    {
        constexpr int kTries = 100;
        for (int i = 0; i < kTries; ++i) {
            file.setFileName(newName(m_target));
            if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly)) {
                if (!QFileInfo::exists(file.fileName()))
                    return false;
                continue;
            }
            // A file system without locks has none for those who clear up either.
            flock(file.handle(), LOCK_EX);
            struct stat state = {};
            if (fstat(file.handle(), &state) == 0 && state.st_nlink > 0)
                return true;
            file.close();
        }
        return false;
    }

    /** Whether all that was written so far found room. */
    bool takeAll()
    {
        if (file.error() == QFileDevice::NoError && file.flush())
            return true;
        // Qt forgets why a write stopped half way: only a step that writes nothing knows it.
        if (::write(file.handle(), "", 1) != 1)
            m_problem = qt_error_string(errno);
        return false;
    }

    /** All that was written is on the disk. */
    bool reachDisk()
    {
        if (m_target.exists())
            file.setPermissions(m_target.permissions());
        if (fsync(file.handle()) == 0)
            return true;
        m_problem = qt_error_string(errno);
        return false;
    }

    bool replaceTarget()
    {
        if (std::rename(QFile::encodeName(file.fileName()).constData(),
                        QFile::encodeName(m_target.filePath()).constData()) != 0) {
            m_problem = qt_error_string(errno);
            return false;
        }
        file.close();
        return true;
    }

    QString reason() const { return m_problem.isEmpty() ? file.errorString() : m_problem; }

    QFile file;

private:
    QFileInfo m_target;
    QString m_problem;
};

/** Where a path leads in the end, also when nothing stands there. */
QFileInfo targetOf(const QString &path)
{
    constexpr int kMostLinks = 40; // a loop of links ends somewhere, and writing to it fails
    QFileInfo target(QFileInfo(path).absoluteFilePath());
    for (int i = 0; i < kMostLinks && target.isSymLink(); ++i)
        target = QFileInfo(target.symLinkTarget());
    return target;
}

/** Why nothing can stand at a place, where that can be told beforehand. */
QString objectionTo(const QString &path, const QFileInfo &target)
{
    if (path.isEmpty())
        return Texts::tr("is no file name");
    if (target.isDir())
        return Texts::tr("is a folder");
    if (!target.dir().exists())
        return Texts::tr("the folder does not exist");
    // A pipe or a device would be replaced by a file.
    if (target.exists() && !target.isFile())
        return Texts::tr("is no ordinary file");
    if (target.exists() && !target.isWritable())
        return Texts::tr("the file is write-protected");
    return {};
}

} // namespace

bool saveWhole(const QString &path, const DeviceWriter &write, Failure *failure,
               const StillWanted &isWanted)
{
    const QFileInfo target = targetOf(path);
    const QString objection = objectionTo(path, target);
    if (!objection.isEmpty())
        return fail(failure, Failure::Kind::CannotWrite, objection);
    removeUnfinished(target.dir(), beginningOf(target));
    UnfinishedFile unfinished(target);
    if (!unfinished.open())
        return cannotWrite(unfinished.reason(), failure);
    const bool isWritten = write(unfinished.file);
    if (!unfinished.takeAll())
        return cannotWrite(unfinished.reason(), failure);
    if (!isWritten)
        return fail(failure, Failure::Kind::NotPossible,
                    Texts::tr("the picture could not be made"));
    if (!unfinished.reachDisk())
        return cannotWrite(unfinished.reason(), failure);
    if (isWanted && !isWanted())
        return fail(failure, Failure::Kind::Cancelled, Texts::tr("cancelled"));
    return unfinished.replaceTarget() || cannotWrite(unfinished.reason(), failure);
}

void removeLeftovers(const QString &folder) { removeUnfinished(QDir(folder), QString()); }

} // namespace hostkit
