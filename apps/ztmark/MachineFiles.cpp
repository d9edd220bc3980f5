#include "MachineFiles.h"

#include "Console.h"
#include "InputFiles.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>

namespace machinefiles {

namespace {

constexpr qint64 kMostBytes = 1024 * 1024 + 1; // one more than a file may have

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(machinefiles)
};

bool readBytes(const std::string &name, QByteArray *bytes)
{
    QFile file(absolutePath(QString::fromStdString(name)));
    if (!QFileInfo(file.fileName()).isFile()) {
        console::complain(name, Texts::tr("no such file"));
        return false;
    }
    if (!file.open(QIODevice::ReadOnly)) {
        console::complain(name, Texts::tr("cannot be read: %1").arg(file.errorString()));
        return false;
    }
    *bytes = file.read(kMostBytes);
    return true;
}

} // namespace

bool readProfile(const std::string &nameOrFile, jobkit::MachineProfile *profile)
{
    const QString name = QString::fromStdString(nameOrFile);
    if (jobkit::profileOnBoard(name, profile))
        return true;
    if (!QFileInfo::exists(absolutePath(name))) {
        console::complain(nameOrFile,
                          Texts::tr("neither a file nor a profile on board, which are %1")
                              .arg(jobkit::profilesOnBoard().join(QStringLiteral(", "))));
        return false;
    }
    QByteArray bytes;
    QString error;
    if (!readBytes(nameOrFile, &bytes))
        return false;
    if (!jobkit::readProfile(bytes, profile, &error)) {
        console::complain(nameOrFile, error);
        return false;
    }
    return true;
}

bool readPens(const std::string &file, QVector<jobkit::Pen> *pens)
{
    QByteArray bytes;
    QString error;
    jobkit::Material material;
    if (!readBytes(file, &bytes))
        return false;
    if (!jobkit::readMaterial(bytes, &material, &error)) {
        console::complain(file, error);
        return false;
    }
    *pens = material.pens;
    return true;
}

} // namespace machinefiles
