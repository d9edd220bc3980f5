#include <hostkit/text/FontPlaces.h>

#include <hostkit/text/StrokeFont.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QStandardPaths>

#include <dlfcn.h>

namespace hostkit {

namespace {

QString besideProgram() { return QCoreApplication::applicationDirPath() + QStringLiteral("/font"); }

/** The file that the library was loaded from; empty where the system cannot tell. */
QString libraryFile()
{
    // A pointer that the library itself stored: the address of one of its functions, taken here,
    // may be that of a jump in the program.
    const auto inLibrary = ZTAbstractGraphicsItem::staticMetaObject.d.static_metacall;
    Dl_info info{};
    if (dladdr(reinterpret_cast<const void *>(inLibrary), &info) == 0 || info.dli_fname == nullptr)
        return {};
    return QFile::decodeName(info.dli_fname);
}

/**
 * Where the fonts of the library's installation are; relative to it, so that it may be moved. From
 * its true place: the loader may have come to it by a link, as /lib is one to /usr/lib.
 */
QString installedFolder()
{
    const QFileInfo library(QFileInfo(libraryFile()).canonicalFilePath());
    return QDir::cleanPath(library.absolutePath() + QStringLiteral("/" ZT_LIBRARY_TO_FONTS));
}

QString userFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           QStringLiteral("/ztdrawengine/font");
}

} // namespace

QStringList fontFolders()
{
    QStringList folders{strokeFontFolder()};
    if (QFileInfo(userFolder()).isDir())
        folders << userFolder();
    return folders;
}

void addFontFolders()
{
    static bool isDone = false;
    if (isDone)
        return;
    isDone = true;
    const QStringList folders = fontFolders();
    for (const QString &folder : folders) {
        if (folder != besideProgram())
            ZTShxFontManager::addFolder(folder);
    }
}

QString strokeFontFolder()
{
    QString beside = besideProgram();
    if (QFileInfo(beside).isDir())
        return beside;
    const QString installed = installedFolder();
    return QFileInfo(installed).isDir() ? installed : beside;
}

QString strokeFontPath(const QString &fileName)
{
    const QString own = userFolder() + QLatin1Char('/') + fileName;
    return QFileInfo(own).isFile() ? own : strokeFontFolder() + QLatin1Char('/') + fileName;
}

} // namespace hostkit
