#include <hostkit/setup/WholeFile_p.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QSaveFile>

namespace hostkit {

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(hostkit::WholeFile)
};

bool fail(QString *error, const QString &reason)
{
    if (error != nullptr)
        *error = reason;
    return false;
}

QString cannotWrite(const QSaveFile &file)
{
    return Texts::tr("cannot be written: %1").arg(file.errorString());
}

} // namespace

bool saveWhole(const QString &path, const DeviceWriter &write, QString *error)
{
    // Asked first because a file saved through a temporary one names that one in its own reasons.
    const QFileInfo target(path);
    if (target.isDir())
        return fail(error, Texts::tr("is a folder"));
    if (!target.dir().exists())
        return fail(error, Texts::tr("the folder does not exist"));
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return fail(error, cannotWrite(file));
    const bool written = write(file);
    if (!written && file.error() == QFileDevice::NoError) {
        file.cancelWriting();
        return fail(error, Texts::tr("the picture could not be made"));
    }
    return file.commit() || fail(error, cannotWrite(file));
}

} // namespace hostkit
