#include <studio/job/ProfileStore.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>

namespace studio {

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(studio::ProfileStore)
};

} // namespace

ProfileStore::ProfileStore() : m_folder(JsonFolder::ofUser(QStringLiteral("machines"))) {}

ProfileStore::ProfileStore(const QString &folder) : m_folder(folder) {}

bool ProfileStore::holds(const QString &path) const { return paths().contains(path); }

bool ProfileStore::save(const jobkit::MachineProfile &profile, QString *error) const
{
    m_folder.make();
    return saveFile(pathOf(profile.name), profile, error);
}

bool ProfileStore::remove(const QString &path) const { return holds(path) && QFile::remove(path); }

bool ProfileStore::readFile(const QString &path, jobkit::MachineProfile *profile, QString *error)
{
    QByteArray json;
    if (JsonFolder::read(path, &json))
        return jobkit::readProfile(json, profile, error);
    *error = Texts::tr("The machine profile \"%1\" cannot be read.").arg(path);
    return false;
}

bool ProfileStore::saveFile(const QString &path, const jobkit::MachineProfile &profile,
                            QString *error)
{
    *error = profile.problem();
    return error->isEmpty() && JsonFolder::write(path, jobkit::writeProfile(profile), error);
}

} // namespace studio
