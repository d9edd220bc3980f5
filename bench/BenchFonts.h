#pragma once

#include <support/ShxWriter.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QTextCodec>

#include <random>

/** Stroke fonts and texts in them, made by rule: the same in every run. */
namespace benchfonts {

constexpr int kBigGlyphs = 9500;

/** Strokes of a few points each, begun with the pen up, and a move to the next character. */
inline QByteArray strokes(std::mt19937 &random, int count, int points)
{
    std::uniform_int_distribution<int> step(-20, 20);
    QByteArray codes;
    for (int stroke = 0; stroke < count; ++stroke) {
        codes += testsupport::bytes({2, 8, step(random), step(random), 1, 9});
        for (int i = 1; i < points; ++i)
            codes += testsupport::bytes({step(random), step(random) | 1});
        codes += testsupport::bytes({0, 0});
    }
    return codes + testsupport::bytes({2, 8, 100, 0});
}

/** Vector codes as letters have them. */
inline QByteArray letter(std::mt19937 &random)
{
    std::uniform_int_distribution<int> code(0x10, 0xFF);
    QByteArray codes = testsupport::bytes({2, code(random), 1});
    for (int i = 0; i < 14; ++i)
        codes += testsupport::bytes({code(random)});
    return codes + testsupport::bytes({2, 0x60, 0});
}

/** A regular font of the printable ASCII codes. */
inline QByteArray latinFont()
{
    std::mt19937 random(1);
    testsupport::ShxWriter writer;
    writer.above = 21;
    for (int code = 32; code < 127; ++code)
        writer.glyphs.append({code, letter(random), {}});
    return writer.shapes();
}

/** The `i`th Chinese character, 0 to 20,901: all of them are characters of GBK. */
inline QChar chinese(int i) { return QChar(0x4E00 + i); }

inline QByteArray toGbk(const QString &text)
{
    return QTextCodec::codecForName("GBK")->fromUnicode(text);
}

/** A big font of the first Chinese characters, each of 40 points. */
inline QByteArray bigFont(int glyphs = kBigGlyphs)
{
    std::mt19937 random(2);
    testsupport::ShxWriter writer;
    writer.above = 100;
    writer.ranges = {{0x81, 0xFE}};
    for (int i = 0; i < glyphs; ++i) {
        const QByteArray code = toGbk(chinese(i));
        const auto byte = [&code](int at) { return static_cast<unsigned char>(code[at]); };
        writer.glyphs.append({byte(0) << 8 | byte(1), strokes(random, 8, 5), {}});
    }
    return writer.bigfont();
}

inline QString latinText(int characters)
{
    std::mt19937 random(3);
    QString text;
    for (int i = 0; i < characters; ++i)
        text += QChar(static_cast<ushort>(32 + random() % 95));
    return text;
}

/** Characters of a big font with so many glyphs. */
inline QString chineseText(int characters, int glyphs = kBigGlyphs)
{
    std::mt19937 random(4);
    QString text;
    for (int i = 0; i < characters; ++i)
        text += chinese(static_cast<int>(random() % static_cast<unsigned>(glyphs)));
    return text;
}

/** Puts a font into the folder that the font manager scans, and returns its path. */
inline QByteArray putFont(const char *name, const QByteArray &file)
{
    const QDir folder(QCoreApplication::applicationDirPath() + QStringLiteral("/font"));
    folder.mkpath(QStringLiteral("."));
    const QString path = folder.filePath(QLatin1String(name));
    testsupport::writeFile(path, file);
    return path.toLocal8Bit();
}

} // namespace benchfonts
