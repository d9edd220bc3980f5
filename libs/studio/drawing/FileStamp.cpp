#include <studio/drawing/FileStamp.h>

#include <QtCore/QDateTime>
#include <QtCore/QFileInfo>

namespace studio {

FileStamp FileStamp::of(const QString &path)
{
    const QFileInfo info(path);
    if (path.isEmpty() || !info.exists())
        return {};
    return {info.size(), info.lastModified().toMSecsSinceEpoch()};
}

} // namespace studio
