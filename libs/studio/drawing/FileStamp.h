#pragma once

#include <QtCore/QString>

namespace studio {

/** What a file looked like at some time, to notice that another program wrote it since. */
struct FileStamp
{
    qint64 size = -1;       ///< bytes; -1: there was no file
    qint64 modifiedMs = -1; ///< since 1970, UTC

    /** What the file looks like now. */
    static FileStamp of(const QString &path);

    bool exists() const { return size >= 0; }
};

inline bool operator==(const FileStamp &a, const FileStamp &b)
{
    return a.size == b.size && a.modifiedMs == b.modifiedMs;
}

inline bool operator!=(const FileStamp &a, const FileStamp &b) { return !(a == b); }

} // namespace studio
