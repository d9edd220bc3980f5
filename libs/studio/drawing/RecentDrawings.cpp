#include <studio/drawing/RecentDrawings.h>

#include <QtCore/QFileInfo>
#include <QtCore/QSettings>

namespace studio {

namespace {

const QString kRecentKey = QStringLiteral("drawing/recent");

/** One spelling a file, so that none is listed twice. */
QString keyOf(const QString &path) { return QFileInfo(path).absoluteFilePath(); }

} // namespace

QStringList RecentDrawings::paths()
{
    QStringList known = QSettings().value(kRecentKey).toStringList();
    known.removeAll(QString());
    known.removeDuplicates();
    return known.mid(0, kMost);
}

void RecentDrawings::add(const QString &path)
{
    QStringList known = paths();
    known.removeAll(keyOf(path));
    known.prepend(keyOf(path));
    QSettings().setValue(kRecentKey, QStringList(known.mid(0, kMost)));
}

void RecentDrawings::remove(const QString &path)
{
    QStringList known = paths();
    known.removeAll(keyOf(path));
    QSettings().setValue(kRecentKey, known);
}

void RecentDrawings::clear() { QSettings().remove(kRecentKey); }

} // namespace studio
