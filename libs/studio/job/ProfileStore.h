#pragma once

#include <studio/job/JsonFolder.h>

#include <jobkit/values/MachineProfile.h>

#include <QtCore/QStringList>

namespace studio {

/** The user's machines: one JSON file each, in a folder of the program's data. */
class ProfileStore
{
public:
    /** The machines of this user. */
    ProfileStore();
    explicit ProfileStore(const QString &folder);

    /** Paths of the machines that are kept, by their names in alphabetical order. */
    QStringList paths() const { return m_folder.paths(); }

    /** Whether a path is that of a machine kept here. */
    bool holds(const QString &path) const;

    /** Where a machine of this name is kept, or would be. */
    QString pathOf(const QString &name) const { return m_folder.pathOf(name); }

    /**
     * Keeps a machine, in place of one of the same name. Failure: false, and `error` says why in a
     * translated sentence; a value out of its range is named with its field.
     */
    bool save(const jobkit::MachineProfile &profile, QString *error) const;

    /** Forgets a machine; false where it cannot. */
    bool remove(const QString &path) const;

    /** Reads a file from anywhere. Failure: false with the reason, and `profile` stays. */
    static bool readFile(const QString &path, jobkit::MachineProfile *profile, QString *error);

    /** Writes a file anywhere. Failure: false with the reason; what stood there stays. */
    static bool saveFile(const QString &path, const jobkit::MachineProfile &profile,
                         QString *error);

private:
    JsonFolder m_folder;
};

} // namespace studio
