#pragma once

#include <hostkit/files/Failure.h>

#include <ZTDrawEngineLib/ZTDrawEngineLib.h>

#include <QtCore/QByteArray>
#include <QtCore/QPair>
#include <QtCore/QStringList>
#include <QtCore/QVector>

namespace hostkit {

/** One record of a stroke font's index. */
struct ShxGlyphInfo
{
    int code = 0;        ///< of its character, as the font numbers it
    QString name;        ///< as the file tells it; may be empty
    int length = 0;      ///< of the definition, in bytes
    bool usable = false; ///< it has a code, stands whole in the file and is not hidden by another
};

/**
 * What is in a stroke-font file, read for people. Parsers draw what they can of a damaged file and
 * are silent about the rest.
 */
struct ShxFontInfo
{
    SHX_TYPE type = SHX_TYPE::SHX_NONE; ///< kind of font; none: it cannot be read
    QString name;                       ///< as the file tells it
    int above = 0;                      ///< of capitals over the base line, in font units
    int below = 0;                      ///< of tails under the base line, in font units
    QVector<QPair<int, int>> ranges;    ///< of lead bytes, ends included; big fonts only

    /** All records that the file has room for, in its order. */
    QVector<ShxGlyphInfo> glyphs;

    /** What is damaged, a sentence for each place; no more than `kMaxProblems` are told. */
    QStringList problems;
    int problemCount = 0;
    static constexpr int kMaxProblems = 20;

    /** Glyphs that a parser can draw. */
    int usableGlyphs() const;

    bool isBig() const { return type == SHX_TYPE::SHX_BIGFONT; } ///< with characters of two bytes

    /** The keyword of the file's form: "shapes", "unifont", "bigfont". */
    QString form() const;
};

/**
 * Reads a font file.
 *
 * Failure: false; `CannotRead`, or `OtherFormat` for what is no stroke font.
 */
bool readShxFontInfo(const QString &path, ShxFontInfo *info, Failure *failure);

/** The same of a font file's bytes. */
bool readShxFontInfo(const QByteArray &image, ShxFontInfo *info, Failure *failure);

/** A stroke-font file that was found in a folder. */
struct ShxFontFileInfo
{
    QString fileName; ///< without its folder
    QString folder;   ///< as it was asked for
    ShxFontInfo info; ///< what is in it
};

/** The stroke fonts in the folders, in the order of the folders and by name; others left out. */
QVector<ShxFontFileInfo> listShxFonts(const QStringList &folders);

} // namespace hostkit
