#pragma once

#include <fontkit/CharacterMaker.h>
#include <fontkit/DataFolder.h>
#include <fontkit/FontFile.h>

#include <QtCore/QMap>
#include <QtCore/QPointF>
#include <QtCore/QString>

#include <utility>

namespace fontkit {

/**
 * The big font "gb-strokes.shx": Chinese in single strokes, by GBK codes.
 *
 * Characters come from the medians of "hanzi-writer-data", smoothed and simplified; full-width
 * forms of ASCII and Greek from the simplex Hershey fonts; everything else is our own: kana,
 * Cyrillic, bopomofo, punctuation, signs, lines of tables, and what is composed of all these. All
 * are of one width, a little less than the em of the data, whose margins are those of a brush; but
 * Latin, Greek and Cyrillic letters are as wide as beside the regular fonts. Ten units are one of
 * the regular Hershey fonts: at the same text height, and with "W" and a Chinese character of the
 * same width as well, both have capitals of one size.
 *
 * Every lead byte of GBK, 0x81 to 0xFE, announces two bytes; a code without a glyph draws nothing.
 */
class GbStrokesFont
{
public:
    static constexpr int kEm = 256;      ///< units of the em of the data
    static constexpr int kAdvance = 240; ///< width of every character
    static constexpr int kAbove = 210;   ///< ascender: height of full-width capitals
    static constexpr int kBelow = 31;

    /**
     * How far a drawn stroke may be from its source and a source from what is drawn, in units:
     * smoothing, simplifying and the grid together. It is 1.4% of the em.
     */
    static constexpr double kTolerance = 3.5;

    /** Characters in folder `hanzi`, Hershey data for full-width forms in folder `hershey`. */
    GbStrokesFont(const DataFolder &hanzi, const DataFolder &hershey);

    static QString fileName();

    /**
     * Makes the font; `error` gets a sentence if it cannot be.
     *
     * Failure: false when data is damaged, or not one character is there. Single characters that
     * are missing are left out.
     */
    bool make(FontFile *font, QString *error);

    /** Every character that the font draws, by its code; empty where `make` fails. */
    QMap<int, DrawnCharacter> characters(QString *error);

    /** Of the font made last: how many glyphs have their strokes from the data. */
    int hanziCount() const { return m_hanziMade; }

    /** The GBK codes that stand for one character each, in ascending order, with it in UTF-8. */
    static QVector<std::pair<int, QByteArray>> codes();

    /** Where a point of the data stands in the font. */
    static QPointF placed(const QPointF &pointInData);

    /** The strokes of the data as the font has them, but for the rounding to whole units. */
    static QVector<QVector<QPointF>> strokesOf(const QVector<QVector<QPointF>> &medians);

private:
    bool addHanzi(QMap<int, DrawnCharacter> &characters, QString *error);
    bool addFullWidth(QMap<int, DrawnCharacter> &characters, QString *error) const;

    DataFolder m_hanziFolder;
    DataFolder m_hersheyFolder;
    int m_hanziMade = 0;
};

} // namespace fontkit
