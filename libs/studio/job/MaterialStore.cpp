#include <studio/job/MaterialStore.h>

#include <QtCore/QCoreApplication>

namespace studio {

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(studio::MaterialStore)
};

} // namespace

MaterialStore::MaterialStore() : m_folder(JsonFolder::ofUser(QStringLiteral("materials"))) {}

MaterialStore::MaterialStore(const QString &folder) : m_folder(folder) {}

QStringList MaterialStore::names() const
{
    QStringList names;
    for (const QString &path : m_folder.paths()) {
        jobkit::Material material;
        QString ignored;
        if (readFile(path, &material, &ignored))
            names << material.name;
    }
    names.sort(Qt::CaseInsensitive);
    return names;
}

bool MaterialStore::read(const QString &name, jobkit::Material *material, QString *error) const
{
    return readFile(m_folder.pathOf(name), material, error);
}

bool MaterialStore::readFile(const QString &path, jobkit::Material *material, QString *error)
{
    QByteArray json;
    if (JsonFolder::read(path, &json))
        return jobkit::readMaterial(json, material, error);
    *error = Texts::tr("The material \"%1\" cannot be read.").arg(path);
    return false;
}

bool MaterialStore::save(const jobkit::Material &material, QString *error) const
{
    m_folder.make();
    return saveFile(m_folder.pathOf(material.name), material, error);
}

bool MaterialStore::saveFile(const QString &path, const jobkit::Material &material, QString *error)
{
    *error = material.problem();
    return error->isEmpty() && JsonFolder::write(path, jobkit::writeMaterial(material), error);
}

} // namespace studio
