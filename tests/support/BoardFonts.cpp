#include "BoardFonts.h"

#include "TinyFonts.h"

#include <ZTDrawEngineLib/shx/ZTShxFontManager.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtTest/QTest>

namespace testsupport {

namespace {
QDir buildFolder() { return QDir(QStringLiteral(ZT_FONT_DIR)); }
} // namespace

QStringList boardFonts()
{
    return buildFolder().entryList({QStringLiteral("*.shx")}, QDir::Files, QDir::Name);
}

bool hasChineseBoardFont() { return boardFonts().contains(QStringLiteral("gb-strokes.shx")); }

QByteArray boardFontPath(const QString &fileName)
{
    return QFile::encodeName(buildFolder().filePath(fileName));
}

void installBoardFonts()
{
    emptyFontFolder();
    const QDir own(QCoreApplication::applicationDirPath() + QStringLiteral("/font"));
    const QStringList names = buildFolder().entryList(QDir::Files);
    for (const QString &name : names)
        QVERIFY(QFile::copy(buildFolder().filePath(name), own.filePath(name)));
    ZTShxFontManager::regFonts();
}

} // namespace testsupport
