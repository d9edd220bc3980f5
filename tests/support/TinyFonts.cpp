#include "TinyFonts.h"

#include "ShxWriter.h"

#include <ZTDrawEngineLib/shx/ZTShxFontManager.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtTest/QTest>

namespace testsupport {

namespace {

QString fontFolder() { return QCoreApplication::applicationDirPath() + QStringLiteral("/font"); }

/** Pen up, one along, pen down, the square, pen up, nine along. */
QByteArray square(int side)
{
    const int length = side << 4;
    return bytes(
        {2, 8, 1, 0, 1, length | 0x4, length | 0x0, length | 0xC, length | 0x8, 2, 8, 9, 0});
}

ShxWriter regularFont()
{
    ShxWriter writer;
    writer.above = 50;
    writer.glyphs = {{'A', square(8), {}},     {'W', square(8), {}},
                     {'B', square(4), {}},     {'?', square(2), {}},
                     {'L', bytes({0x40}), {}}, {' ', bytes({2, 8, 10, 0}), {}}};
    return writer;
}

ShxWriter bigFont()
{
    ShxWriter writer;
    writer.above = 50;
    writer.ranges = {{0x81, 0xFE}};
    writer.glyphs = {{0xC4E3, square(8), {}}, {0xBAC3, square(4), {}}};
    return writer;
}

} // namespace

void emptyFontFolder()
{
    QVERIFY(QDir(fontFolder()).removeRecursively());
    QVERIFY(QDir().mkpath(fontFolder()));
    ZTShxFontManager::release();
}

void writeTinyFonts(const QString &folder)
{
    writeFile(folder + QStringLiteral("/tiny.shx"), regularFont().shapes());
    writeFile(folder + QStringLiteral("/tinybig.shx"), bigFont().bigfont());
}

void makeTinyFonts()
{
    emptyFontFolder();
    writeTinyFonts(fontFolder());
    ZTShxFontManager::regFonts();
}

ZTShxFontParam tinyFont(double height)
{
    ZTShxFontParam param;
    param.enName = QStringLiteral("tiny.shx");
    param.zhName = QStringLiteral("tinybig.shx");
    param.height = height;
    param.parser.init("tiny.shx", "tinybig.shx");
    param.parser.setTextHeight(height);
    return param;
}

} // namespace testsupport
