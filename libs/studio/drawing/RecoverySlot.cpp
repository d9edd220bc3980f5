#include <studio/drawing/RecoverySlot.h>

#include <QtCore/QDataStream>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QUuid>

#include <algorithm>

namespace studio {

namespace {

const QByteArray kOriginTag = QByteArrayLiteral("rcvr");
constexpr quint32 kOriginVersion = 1;

QString lockPathOf(const QString &filePath) { return filePath + QStringLiteral(".lock"); }

} // namespace

// A lock is never too old: only the end of the process that holds it makes it void.
RecoverySlot::RecoverySlot(const QString &path) : filePath(path), lock(lockPathOf(path))
{
    lock.setStaleLockTime(0);
}

std::unique_ptr<RecoverySlot> RecoverySlot::create(const QString &folder, QString *error)
{
    if (!QDir().mkpath(folder)) {
        *error = QStringLiteral("the folder %1 cannot be made").arg(folder);
        return nullptr;
    }
    const QString name = QUuid::createUuid().toString(QUuid::WithoutBraces);
    std::unique_ptr<RecoverySlot> slot(
        new RecoverySlot(QDir(folder).filePath(name + QStringLiteral(".ztd"))));
    if (slot->lock.tryLock(0))
        return slot;
    *error = QStringLiteral("nothing can be written to the folder %1").arg(folder);
    return nullptr;
}

std::unique_ptr<RecoverySlot> RecoverySlot::claim(const QString &path)
{
    std::unique_ptr<RecoverySlot> slot(new RecoverySlot(path));
    return slot->lock.tryLock(0) ? std::move(slot) : nullptr;
}

void RecoverySlot::discard()
{
    QFile::remove(filePath);
    lock.unlock();
}

QString RecoverySlot::setAside()
{
    const QString aside = filePath + QStringLiteral(".damaged");
    return QFile::rename(filePath, aside) ? aside : QString();
}

void addOrigin(const RecoveryOrigin &origin, hostkit::DrawingFile *drawing)
{
    hostkit::DrawingSection section{kOriginTag, {}};
    QDataStream stream(&section.bytes, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_5_15);
    stream << kOriginVersion << origin.path << origin.stamp.size << origin.stamp.modifiedMs;
    drawing->unknown << section;
}

RecoveryOrigin takeOrigin(hostkit::DrawingFile *drawing)
{
    const auto found = std::find_if(drawing->unknown.begin(), drawing->unknown.end(),
                                    [](const auto &section) { return section.tag == kOriginTag; });
    if (found == drawing->unknown.end())
        return {};
    QDataStream stream(found->bytes);
    stream.setVersion(QDataStream::Qt_5_15);
    quint32 version = 0;
    RecoveryOrigin origin;
    stream >> version >> origin.path >> origin.stamp.size >> origin.stamp.modifiedMs;
    const bool isGood = stream.status() == QDataStream::Ok && version == kOriginVersion;
    drawing->unknown.erase(found);
    return isGood ? origin : RecoveryOrigin();
}

} // namespace studio
