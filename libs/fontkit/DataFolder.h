#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <optional>

namespace fontkit {

/**
 * A folder with the data that a font is made from.
 *
 * Names are bytes, as the file system has them: files named in Chinese are found whatever the
 * locale of the program is.
 */
class DataFolder
{
public:
    /** Limit: no file larger than this is read. */
    static constexpr int kMaxBytes = 16 * 1024 * 1024;

    explicit DataFolder(const QByteArray &path);

    /** All of a file; no value when there is no such file, or none that can be read. */
    std::optional<QByteArray> read(const QByteArray &name) const;

    /** The path of a file, or without a name that of the folder, to be shown. */
    QString shown(const QByteArray &name) const;

private:
    QByteArray m_path;
};

} // namespace fontkit
