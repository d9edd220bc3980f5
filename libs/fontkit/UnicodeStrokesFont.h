#pragma once

#include <fontkit/CharacterMaker.h>
#include <fontkit/DataFolder.h>
#include <fontkit/FontFile.h>

#include <utility>

namespace fontkit {

/**
 * The font "unicode-strokes.shx": letters and signs in single strokes, by codes of 16 bits.
 *
 * Latin of Europe and of Vietnam, Greek, Cyrillic, signs of money, measure, calculation and
 * drawing, fractions, raised and lowered figures. ASCII and most of Greek are the plain Hershey
 * fonts point for point; everything else is drawn by ourselves or composed of the two.
 *
 * Ten units are one of the Hershey fonts, as in the big font: capitals are 210 units high.
 */
class UnicodeStrokesFont
{
public:
    static constexpr int kAbove = 210; ///< ascender: height of capitals
    static constexpr int kBelow = 70;

    /** Hershey data in folder `hershey`. */
    explicit UnicodeStrokesFont(const DataFolder &hershey);

    static QString fileName();

    /** Makes the font; false, and a sentence in `error`, for data that is missing or damaged. */
    bool make(FontFile *font, QString *error) const;

    /** All characters of the font in ascending order; the same failures, and none are told. */
    QVector<std::pair<uint, DrawnCharacter>> characters(QString *error) const;

private:
    DataFolder m_hersheyFolder;
};

} // namespace fontkit
