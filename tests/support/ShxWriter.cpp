#include "ShxWriter.h"

#include <QtCore/QFile>
#include <QtTest/QTest>

namespace testsupport {

namespace {

void append16(QByteArray &to, int number)
{
    to += static_cast<char>(number & 0xFF);
    to += static_cast<char>(number >> 8 & 0xFF);
}

void append32(QByteArray &to, int number)
{
    append16(to, number & 0xFFFF);
    append16(to, number >> 16 & 0xFFFF);
}

/** Prefix, keyword and filler, up to the first byte that means something. */
QByteArray header(const QByteArray &prefix, const char *keyword, int size)
{
    QByteArray bytes = prefix.leftJustified(11, ' ', true) + keyword;
    return bytes.leftJustified(size, '\x1A', true);
}

} // namespace

QByteArray ShxGlyph::definition() const { return name + '\0' + codes; }

QByteArray bytes(std::initializer_list<int> numbers)
{
    QByteArray result;
    for (const int number : numbers)
        result += static_cast<char>(number & 0xFF);
    return result;
}

QByteArray ShxWriter::shapes() const
{
    const ShxGlyph information{0, bytes({above, below, 0, 0}), QByteArrayLiteral("font")};
    return shapesOf(QVector<ShxGlyph>{information} + glyphs);
}

QByteArray ShxWriter::shapesOnly() const { return shapesOf(glyphs); }

QByteArray ShxWriter::shapesOf(const QVector<ShxGlyph> &records) const
{
    QByteArray file = header(prefix, "shapes", 28);
    append16(file, count < 0 ? records.size() : count);
    QByteArray data;
    for (const ShxGlyph &glyph : records) {
        append16(file, glyph.code);
        append16(file, glyph.definition().size());
        data += glyph.definition();
    }
    return file + data;
}

QByteArray ShxWriter::bigfont() const
{
    QByteArray file = header(prefix, "bigfont", 27);
    const ShxGlyph information{0, bytes({above, below, 0, 0}), QByteArrayLiteral("big")};
    const QVector<ShxGlyph> records = QVector<ShxGlyph>{information} + glyphs;
    append16(file, count < 0 ? records.size() : count);
    append16(file, rangeCount < 0 ? ranges.size() : rangeCount);
    for (const ShxRange &range : ranges)
        file += bytes({range.first, 0x55, range.last, 0xAA});
    const int dataArea = file.size() + 8 * records.size();
    QByteArray data;
    for (const ShxGlyph &glyph : records) {
        append16(file, glyph.code);
        append16(file, glyph.definition().size());
        append32(file, dataArea + data.size());
        data += glyph.definition();
    }
    return file + data;
}

QByteArray ShxWriter::unifont() const
{
    QByteArray file = header(prefix, "unifont", 25);
    append16(file, count < 0 ? glyphs.size() : count);
    file = file.leftJustified(31, '\x1A') + "unifont\n" + '\0';
    file += bytes({above, below, 0, 0, 0, 0});
    for (const ShxGlyph &glyph : glyphs) {
        append16(file, glyph.code);
        append16(file, glyph.definition().size());
        file += glyph.definition();
    }
    return file;
}

void writeFile(const QString &path, const QByteArray &content)
{
    QFile::remove(path); // some file systems flush a file that is cut and written anew
    QFile file(path);
    QVERIFY2(file.open(QIODevice::WriteOnly), qPrintable(path));
    QCOMPARE(file.write(content), qint64(content.size()));
}

} // namespace testsupport
