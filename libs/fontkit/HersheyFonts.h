#pragma once

#include <fontkit/DataFolder.h>
#include <fontkit/FontFile.h>
#include <fontkit/HersheyReader.h>
#include <fontkit/StrokeEncoder.h>

#include <QtCore/QMap>
#include <QtCore/QStringList>

namespace fontkit {

/** Strokes of one character with its advance width. Frame: font units, as `GridStrokes`. */
struct HersheyCharacter
{
    GridStrokes strokes;
    int advance = 0;
};

/**
 * The regular fonts that are made from the Hershey data, point for point.
 *
 * Each is a font of byte codes with the printable ASCII characters, 32 to 126, at their codes. Its
 * ascender is the height of capitals, its descender what reaches lowest.
 *
 * Greek has its letters where Latin ones of like sound or shape are: A B G D E Z H Q I K L M N X O
 * P R S T U F C Y W is the alphabet from alpha to omega, small ones likewise; J, V, j, v are Latin.
 * Cyrillic has the 32 letters at 64 to 95, the small ones at 96 to 127, in the order of the
 * seven-bit KOI code, which follows the sound of Latin letters: A is A, B is Be, W is Ve. So
 * brackets, backslash, underline and the like are letters there, and 127 is one too.
 */
class HersheyFonts
{
public:
    static constexpr int kCapHeight = 21;

    explicit HersheyFonts(const DataFolder &folder);

    /** Names of the files that can be made, with ".shx". */
    static QStringList fileNames();

    /**
     * Makes the font of a file name; `error` gets a sentence if it cannot be.
     *
     * Failure: false for an unknown name, data that is missing or damaged, or a character that is
     * not in it.
     */
    bool make(const QString &fileName, FontFile *font, QString *error);

    /** One character of a font; the same failures. */
    bool character(const QString &fileName, int code, HersheyCharacter *result, QString *error);

private:
    const QVector<HersheyGlyph> *glyphsOf(const QByteArray &dataName, QString *error);

    DataFolder m_folder;
    QMap<QByteArray, QVector<HersheyGlyph>> m_loaded; ///< by name of the data
};

} // namespace fontkit
