#include <studio/job/MaterialStore.h>

#include <hostkit/files/FileWriter.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QIODevice>
#include <QtCore/QStandardPaths>
#include <QtCore/QUrl>

namespace studio {

namespace {

constexpr qint64 kMostBytes = 1 << 20;

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(studio::MaterialStore)
};

} // namespace

MaterialStore::MaterialStore()
    : MaterialStore(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) +
                    QStringLiteral("/materials"))
{
}

MaterialStore::MaterialStore(const QString &folder) : m_folder(folder) {}

QString MaterialStore::fileOf(const QString &name) const
{
    // Any name makes a file's name so: no "/" and no ".." is left of it.
    const QString safe = QString::fromLatin1(QUrl::toPercentEncoding(name, {}, "."));
    return QStringLiteral("%1/%2.json").arg(m_folder, safe);
}

QStringList MaterialStore::names() const
{
    QStringList names;
    const QStringList files = QDir(m_folder).entryList({QStringLiteral("*.json")}, QDir::Files);
    for (const QString &file : files) {
        jobkit::Material material;
        QString ignored;
        if (readFile(m_folder + QLatin1Char('/') + file, &material, &ignored))
            names << material.name;
    }
    names.sort(Qt::CaseInsensitive);
    return names;
}

bool MaterialStore::read(const QString &name, jobkit::Material *material, QString *error) const
{
    return readFile(fileOf(name), material, error);
}

bool MaterialStore::readFile(const QString &path, jobkit::Material *material, QString *error)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        *error = Texts::tr("The material \"%1\" cannot be read.").arg(path);
        return false;
    }
    return jobkit::readMaterial(file.read(kMostBytes + 1), material, error);
}

bool MaterialStore::save(const jobkit::Material &material, QString *error) const
{
    QDir().mkpath(m_folder);
    return saveFile(fileOf(material.name), material, error);
}

bool MaterialStore::saveFile(const QString &path, const jobkit::Material &material, QString *error)
{
    *error = material.problem();
    if (!error->isEmpty())
        return false;
    hostkit::Failure failure;
    const QByteArray json = jobkit::writeMaterial(material);
    if (hostkit::saveWhole(
            path, [&json](QIODevice &device) { return device.write(json) == json.size(); },
            &failure))
        return true;
    *error = failure.reason;
    return false;
}

} // namespace studio
