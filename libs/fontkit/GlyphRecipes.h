#pragma once

#include <QtCore/QMap>
#include <QtCore/QPointF>
#include <QtCore/QString>
#include <QtCore/QVector>

namespace fontkit {

/** One step in drawing a character. Frame: tenths of a Hershey unit, y up, base line at y = 0. */
struct RecipePiece
{
    enum class Kind {
        Line,  ///< straight from point to point
        Curve, ///< smooth through the points; a turn of 100 degrees and more stays a corner
        Ring,  ///< an ellipse: its middle, then its two radii
        Dot,   ///< as the dot of the Hershey letters
        Use,   ///< another character
        Box    ///< the arms of a table's lines
    };

    Kind kind = Kind::Line;
    QVector<QPointF> points; ///< of lines, curves, rings and dots
    uint used = 0;           ///< character that is used
    QPointF scale{1.0, 1.0}; ///< of what is used, from its origin
    QPointF move;            ///< of what is used, after the scale
    bool isFlipped = false;  ///< left to right within its advance, before the scale
    QString arms;            ///< of a box: left, right, top, bottom, and a number of dashes
};

/** How a character is drawn, and how far the next one stands from it. */
struct Recipe
{
    double advance = 0.0;
    QVector<RecipePiece> pieces; ///< none: a blank
};

/**
 * Drawings of characters that no data has, read from text.
 *
 * A line is a character, its advance, a colon and pieces between semicolons:
 * `Ø 220: use O; line 25,-15 195,225`. A character that cannot be seen is written U+00A0. Pieces
 * are `line` and `curve` with points, `ring X,Y RX,RY`, `dot X,Y`, `box ARMS` (l light, h heavy,
 * d double, - none, then perhaps the dashes) and `use C` with `flip`, `scale X,Y` and `move X,Y`
 * as wanted. `frame SX,SY DX,DY` says how the points of the lines below it are scaled and moved.
 * `compose` lists characters that follow from others by Unicode's decompositions. `#` begins a
 * line of comment.
 */
class GlyphRecipes
{
public:
    /**
     * Adds a text to what is known; a character that is known already gets the new recipe.
     *
     * Failure: false, and `error` names the line: "line 12: …". What stood before it is known.
     */
    bool read(const QByteArray &text, QString *error);

    /** Letters, signs, marks and kana, as they are on board. */
    static GlyphRecipes alphabets();

    /** The same with all that is drawn for the width of the big font. */
    static GlyphRecipes bigFont();

    /** Null where there is none. The pointer is good until the next `read`. */
    const Recipe *of(uint character) const;

    /** Every character with a recipe, and every one that is to be composed, in ascending order. */
    QVector<uint> characters() const;

private:
    bool readLine(const QString &line, QString *problem);
    bool readFrame(const QStringList &words);
    bool readRecipe(const QString &line, QString *problem);
    bool readPiece(const QString &text, RecipePiece *piece) const;
    bool readUse(const QStringList &words, RecipePiece *piece) const;
    bool readPoints(const QStringList &words, QVector<QPointF> *points) const;
    void readOnBoard(const QStringList &names);

    QMap<uint, Recipe> m_recipes;
    QVector<uint> m_composed;
    QPointF m_frameScale{1.0, 1.0};
    QPointF m_frameMove;
};

} // namespace fontkit
