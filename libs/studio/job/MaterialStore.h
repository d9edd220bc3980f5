#pragma once

#include <studio/job/JsonFolder.h>

#include <jobkit/values/Material.h>

#include <QtCore/QStringList>

namespace studio {

/** The user's materials: one JSON file each, in a folder of the program's data. */
class MaterialStore
{
public:
    /** The materials of this user. */
    MaterialStore();
    explicit MaterialStore(const QString &folder);

    /** Names of the materials that can be read, in alphabetical order. */
    QStringList names() const;

    /** Failure: false, `error` says why in a translated sentence, and `material` stays. */
    bool read(const QString &name, jobkit::Material *material, QString *error) const;

    /** Keeps a material, in place of one of the same name. Failure: as of `read`. */
    bool save(const jobkit::Material &material, QString *error) const;

    /** Reads a file from anywhere. Failure: as of `read`. */
    static bool readFile(const QString &path, jobkit::Material *material, QString *error);

    /** Writes a file anywhere. Failure: false with the reason; what stood there stays. */
    static bool saveFile(const QString &path, const jobkit::Material &material, QString *error);

private:
    JsonFolder m_folder;
};

} // namespace studio
