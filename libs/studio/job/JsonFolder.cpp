#include <studio/job/JsonFolder.h>

#include <hostkit/files/FileWriter.h>

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QIODevice>
#include <QtCore/QStandardPaths>
#include <QtCore/QUrl>

#include <algorithm>

namespace studio {

namespace {

constexpr qint64 kMostBytes = 1 << 20;

QString nameIn(const QString &path)
{
    return QUrl::fromPercentEncoding(QFileInfo(path).completeBaseName().toLatin1());
}

} // namespace

JsonFolder JsonFolder::ofUser(const QString &name)
{
    return JsonFolder(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation) +
                      QLatin1Char('/') + name);
}

QString JsonFolder::pathOf(const QString &name) const
{
    // No "/" and no ".." is left of it.
    const QString safe = QString::fromLatin1(QUrl::toPercentEncoding(name, {}, "."));
    return QStringLiteral("%1/%2.json").arg(m_folder, safe);
}

QStringList JsonFolder::paths() const
{
    QStringList paths;
    const QStringList files = QDir(m_folder).entryList({QStringLiteral("*.json")}, QDir::Files);
    for (const QString &file : files)
        paths << m_folder + QLatin1Char('/') + file;
    std::sort(paths.begin(), paths.end(), [](const QString &a, const QString &b) {
        return nameIn(a).compare(nameIn(b), Qt::CaseInsensitive) < 0;
    });
    return paths;
}

void JsonFolder::make() const { QDir().mkpath(m_folder); }

bool JsonFolder::read(const QString &path, QByteArray *json)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    *json = file.read(kMostBytes + 1);
    return true;
}

bool JsonFolder::write(const QString &path, const QByteArray &json, QString *error)
{
    hostkit::Failure failure;
    if (hostkit::saveWhole(
            path, [&json](QIODevice &device) { return device.write(json) == json.size(); },
            &failure))
        return true;
    *error = failure.reason;
    return false;
}

} // namespace studio
