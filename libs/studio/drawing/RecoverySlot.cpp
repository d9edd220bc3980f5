#include <studio/drawing/RecoverySlot.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QUuid>

namespace studio {

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(studio::RecoverySlot)
};

QString lockPathOf(const QString &filePath) { return filePath + QStringLiteral(".lock"); }

} // namespace

// A lock is never too old: only the end of the process that holds it makes it void.
RecoverySlot::RecoverySlot(const QString &path) : m_filePath(path), m_lock(lockPathOf(path))
{
    m_lock.setStaleLockTime(0);
}

std::unique_ptr<RecoverySlot> RecoverySlot::create(const QString &folder, QString *error)
{
    if (!QDir().mkpath(folder)) {
        *error = Texts::tr("the folder %1 cannot be made").arg(folder);
        return nullptr;
    }
    const QString name = QUuid::createUuid().toString(QUuid::WithoutBraces);
    std::unique_ptr<RecoverySlot> slot(
        new RecoverySlot(QDir(folder).filePath(name + QStringLiteral(".ztd"))));
    if (slot->m_lock.tryLock(0))
        return slot;
    *error = Texts::tr("nothing can be written to the folder %1").arg(folder);
    return nullptr;
}

std::unique_ptr<RecoverySlot> RecoverySlot::claim(const QString &path)
{
    std::unique_ptr<RecoverySlot> slot(new RecoverySlot(path));
    return slot->m_lock.tryLock(0) ? std::move(slot) : nullptr;
}

void RecoverySlot::discard()
{
    QFile::remove(m_filePath);
    m_lock.unlock();
}

QString RecoverySlot::setAside()
{
    const QString aside = m_filePath + QStringLiteral(".damaged");
    return QFile::rename(m_filePath, aside) ? aside : QString();
}

void setOrigin(const RecoveryOrigin &origin, hostkit::DrawingFile *drawing)
{
    drawing->origin = {origin.path, origin.stamp.size, origin.stamp.modifiedMs};
}

RecoveryOrigin originOf(const hostkit::DrawingFile &drawing)
{
    if (!drawing.origin)
        return {};
    RecoveryOrigin origin;
    origin.path = drawing.origin->path;
    origin.stamp.size = drawing.origin->size;
    origin.stamp.modifiedMs = drawing.origin->modifiedMs;
    return origin;
}

} // namespace studio
