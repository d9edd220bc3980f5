#pragma once

#include <fontkit/GlyphRecipes.h>

#include <QtCore/QPointF>
#include <QtCore/QVector>

#include <functional>
#include <optional>

namespace fontkit {

/** Where the strokes of a character come from. */
enum class CharacterOrigin {
    Hershey,  ///< the Hershey data, point for point
    Hanzi,    ///< the medians of hanzi-writer-data
    Drawn,    ///< drawn by ourselves
    Composed, ///< made of other characters
};

/** One character. Frame: as in `RecipePiece`. */
struct DrawnCharacter
{
    QVector<QVector<QPointF>> strokes;
    double advance = 0.0;
    CharacterOrigin origin = CharacterOrigin::Drawn;
};

/**
 * Draws characters by their recipes, and composes what has none as Unicode's decompositions tell:
 * letters with marks, figures in circles and brackets, fractions, raised and lowered ones, forms
 * for vertical text.
 */
class CharacterMaker
{
public:
    /** Characters that are there without a recipe; no value for all others. */
    using Source = std::function<std::optional<DrawnCharacter>(uint character)>;

    /** How wide a character is that stands for several: as wide as they are, or one width. */
    enum class Width { Natural, OfTheBigFont };

    CharacterMaker(const GlyphRecipes &recipes, Source source, Width width = Width::Natural);

    /**
     * One character.
     *
     * Failure: no value where there is neither recipe nor source nor decomposition, or a part of it
     * cannot be made.
     */
    std::optional<DrawnCharacter> make(uint character) const;

private:
    using Made = std::optional<DrawnCharacter>;

    Made make(uint character, int depth) const;
    Made byRecipe(const Recipe &recipe, int depth) const;
    bool addPiece(const RecipePiece &piece, int depth, DrawnCharacter *drawn) const;
    Made composed(uint character, int depth) const;
    Made withMark(uint base, uint mark, int depth) const;
    Made inOneWidth(const QString &parts, int depth) const;
    Made row(const QString &parts, int depth) const;
    Made circled(const QString &parts, int depth) const;
    Made fraction(const QString &parts, int depth) const;
    Made fullWidth(const QString &part, int depth) const;

    GlyphRecipes m_recipes;
    Source m_source;
    Width m_width;
};

} // namespace fontkit
