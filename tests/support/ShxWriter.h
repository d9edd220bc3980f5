#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QVector>

#include <initializer_list>

namespace testsupport {

/** One glyph of a stroke font to be written: its code, its name and its code bytes. */
struct ShxGlyph
{
    int code = 0;
    QByteArray codes;
    QByteArray name;

    /** Name, NUL and code bytes, as they stand in a file. */
    QByteArray definition() const;
};

/** Lead bytes of a big font, both ends included. */
struct ShxRange
{
    int first = 0;
    int last = 0;
};

/** Bytes out of numbers; only the low eight bits of each count, so that -3 can be written. */
QByteArray bytes(std::initializer_list<int> numbers);

/**
 * Writes stroke-font files byte by byte.
 *
 * Set the fields, then call one of the three writers. The counts in the header are those of the
 * glyphs unless a field says otherwise, so that tests can write files that lie.
 */
class ShxWriter
{
public:
    QByteArray prefix = QByteArrayLiteral("ZT font 1.0"); ///< first eleven bytes, free
    int above = 1;
    int below = 0;
    QVector<ShxGlyph> glyphs;
    QVector<ShxRange> ranges; ///< big fonts only
    int count = -1;           ///< records as the header claims; negative: as many as there are
    int rangeCount = -1;      ///< ranges as the header claims; negative: as many as there are

    /** A "shapes" file with the font information as glyph 0 before the glyphs. */
    QByteArray shapes() const;

    /** A "shapes" file of the glyphs alone. */
    QByteArray shapesOnly() const;

    /** A "bigfont" file with the font information as first entry. */
    QByteArray bigfont() const;

    /** A "unifont" file. */
    QByteArray unifont() const;

private:
    QByteArray shapesOf(const QVector<ShxGlyph> &records) const;
};

/** Writes bytes to a file; fails the test when that does not work. */
void writeFile(const QString &path, const QByteArray &content);

} // namespace testsupport
