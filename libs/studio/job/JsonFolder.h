#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QStringList>

namespace studio {

/** A folder of the user's with a JSON file for each thing that has a name. */
class JsonFolder
{
public:
    explicit JsonFolder(const QString &folder) : m_folder(folder) {}

    /** The folder of that name in the program's data of this user. */
    static JsonFolder ofUser(const QString &name);

    /** Where the thing of a name stands, or would. Any name makes a file's name. */
    QString pathOf(const QString &name) const;

    /** Paths of the files that are there, by the names of their things in alphabetical order. */
    QStringList paths() const;

    /** Makes the folder, if need be. */
    void make() const;

    /** The bytes of a file from anywhere, 1 MiB and one at most. Failure: false, it cannot be read.
     */
    static bool read(const QString &path, QByteArray *json);

    /** Writes a file anywhere, whole. Failure: false with the reason; what stood there stays. */
    static bool write(const QString &path, const QByteArray &json, QString *error);

private:
    QString m_folder;
};

} // namespace studio
