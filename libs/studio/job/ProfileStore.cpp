#include <studio/job/ProfileStore.h>

#include <hostkit/files/FileWriter.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QIODevice>
#include <QtCore/QStandardPaths>
#include <QtCore/QUrl>

#include <algorithm>

namespace studio {

namespace {

constexpr qint64 kMostBytes = 1 << 20;

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(studio::ProfileStore)
};

QString nameIn(const QString &path)
{
    return QUrl::fromPercentEncoding(QFileInfo(path).completeBaseName().toLatin1());
}

} // namespace

ProfileStore::ProfileStore()
    : ProfileStore(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) +
                   QStringLiteral("/machines"))
{
}

ProfileStore::ProfileStore(const QString &folder) : m_folder(folder) {}

QString ProfileStore::pathOf(const QString &name) const
{
    // Any name makes a file's name so: no "/" and no ".." is left of it.
    const QString safe = QString::fromLatin1(QUrl::toPercentEncoding(name, {}, "."));
    return QStringLiteral("%1/%2.json").arg(m_folder, safe);
}

QStringList ProfileStore::paths() const
{
    QStringList paths;
    const QStringList files = QDir(m_folder).entryList({QStringLiteral("*.json")}, QDir::Files);
    for (const QString &file : files)
        paths << m_folder + QLatin1Char('/') + file;
    std::sort(paths.begin(), paths.end(), [](const QString &a, const QString &b) {
        return nameIn(a).compare(nameIn(b), Qt::CaseInsensitive) < 0;
    });
    return paths;
}

bool ProfileStore::holds(const QString &path) const { return paths().contains(path); }

bool ProfileStore::save(const jobkit::MachineProfile &profile, QString *error) const
{
    QDir().mkpath(m_folder);
    return saveFile(pathOf(profile.name), profile, error);
}

bool ProfileStore::remove(const QString &path) const { return holds(path) && QFile::remove(path); }

bool ProfileStore::readFile(const QString &path, jobkit::MachineProfile *profile, QString *error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        *error = Texts::tr("The machine profile \"%1\" cannot be read.").arg(path);
        return false;
    }
    return jobkit::readProfile(file.read(kMostBytes + 1), profile, error);
}

bool ProfileStore::saveFile(const QString &path, const jobkit::MachineProfile &profile,
                            QString *error)
{
    *error = profile.problem();
    if (!error->isEmpty())
        return false;
    hostkit::Failure failure;
    const QByteArray json = jobkit::writeProfile(profile);
    if (hostkit::saveWhole(
            path, [&json](QIODevice &device) { return device.write(json) == json.size(); },
            &failure))
        return true;
    *error = failure.reason;
    return false;
}

} // namespace studio
