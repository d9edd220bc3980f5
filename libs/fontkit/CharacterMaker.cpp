#include "CharacterMaker.h"

#include <fontkit/GlyphShapes_p.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace fontkit {

namespace {

constexpr int kDeepest = 8; // of characters that are made of others

// Places in the frame of letters.
constexpr double kSmallTop = 140.0;
constexpr double kGapAbove = 28.0;     // between a letter and its first mark
constexpr double kGapBetween = 12.0;   // between two marks
constexpr double kHornBelowTop = 25.0; // of a letter's ink
constexpr double kScript = 0.58;       // size of raised and lowered figures
constexpr double kRaised = 90.0;
constexpr double kLowered = -50.0;

// Places in the width of the big font.
constexpr double kWidth = 240.0;
constexpr QPointF kMiddle(120.0, 97.0);
constexpr double kCircle = 104.0;
constexpr double kInCircle = 124.0; // width and height of what stands in a circle

/** What marks do with the letter that they belong to. */
enum class MarkPlace { Above, Below, Horn, Fixed, None };

MarkPlace placeOf(uint mark)
{
    switch (mark) {
    case 0x0323:
    case 0x0326:
    case 0x0327:
    case 0x0328:
    case 0x0331:
        return MarkPlace::Below;
    case 0x031B:
        return MarkPlace::Horn;
    case 0x3099:
    case 0x309A:
        return MarkPlace::Fixed;
    default:
        return mark >= 0x0300 && mark <= 0x0314 ? MarkPlace::Above : MarkPlace::None;
    }
}

/** Letters that lose their dot under a mark. */
uint withoutDot(uint letter)
{
    switch (letter) {
    case 'i':
    case 0x0456: // Cyrillic
        return 0x0131;
    case 'j':
        return 0x0237;
    default:
        return letter;
    }
}

/** Baltic letters and Romanian ones have a comma where the tables say cedilla. */
uint markBelow(uint letter, uint mark)
{
    constexpr uint kCedilla = 0x0327;
    constexpr uint kComma = 0x0326;
    const bool isComma = QStringLiteral("GKLNRgklnrDd").contains(QChar(letter));
    return mark == kCedilla && isComma ? kComma : mark;
}

/** Where the origin of a mark goes; `isFirst`: the letter carries no other one. */
QPointF markOrigin(const StrokeBox &letter, uint mark, bool isFirst)
{
    const double middle = (letter.left + letter.right) / 2.0;
    switch (placeOf(mark)) {
    case MarkPlace::Above:
        return {middle, std::max(letter.top, kSmallTop) + (isFirst ? kGapAbove : kGapBetween)};
    case MarkPlace::Below:
        return {middle, std::min(letter.bottom, 0.0)};
    case MarkPlace::Horn:
        return {letter.right, std::min(letter.top, 210.0) - kHornBelowTop};
    case MarkPlace::Fixed:
    case MarkPlace::None:
        break;
    }
    return {};
}

/** Made narrower about the middle where it is wider than the big font. */
Strokes withinWidth(const Strokes &strokes)
{
    const StrokeBox box = boxOf(strokes);
    const double across = kWidth / std::max(box.right - box.left, kWidth);
    return moved(scaled(strokes, {across, 1.0}), {(1.0 - across) * kMiddle.x(), 0.0});
}

void append(DrawnCharacter *drawn, const Strokes &strokes) { drawn->strokes += strokes; }

} // namespace

CharacterMaker::CharacterMaker(const GlyphRecipes &recipes, Source source, Width width)
    : m_recipes(recipes), m_source(std::move(source)), m_width(width)
{
}

std::optional<DrawnCharacter> CharacterMaker::make(uint character) const
{
    return make(character, 0);
}

CharacterMaker::Made CharacterMaker::make(uint character, int depth) const
{
    if (depth > kDeepest)
        return std::nullopt;
    if (const Recipe *recipe = m_recipes.of(character))
        return byRecipe(*recipe, depth);
    if (auto found = m_source(character))
        return found;
    return composed(character, depth);
}

CharacterMaker::Made CharacterMaker::byRecipe(const Recipe &recipe, int depth) const
{
    DrawnCharacter drawn;
    drawn.advance = recipe.advance;
    const bool usesOnly = !recipe.pieces.isEmpty() &&
                          std::all_of(recipe.pieces.begin(), recipe.pieces.end(), [](auto &piece) {
                              return piece.kind == RecipePiece::Kind::Use;
                          });
    drawn.origin = usesOnly ? CharacterOrigin::Composed : CharacterOrigin::Drawn;
    for (const RecipePiece &piece : recipe.pieces) {
        if (!addPiece(piece, depth, &drawn))
            return std::nullopt;
    }
    return drawn;
}

bool CharacterMaker::addPiece(const RecipePiece &piece, int depth, DrawnCharacter *drawn) const
{
    using Kind = RecipePiece::Kind;
    switch (piece.kind) {
    case Kind::Line:
        append(drawn, {piece.points});
        return true;
    case Kind::Curve:
        append(drawn, {smoothCurve(piece.points)});
        return true;
    case Kind::Ring:
        append(drawn, {ellipse(piece.points.at(0), piece.points.at(1))});
        return true;
    case Kind::Dot:
        append(drawn, {diamond(piece.points.at(0))});
        return true;
    case Kind::Box:
        append(drawn, boxLines(piece.arms));
        return true;
    case Kind::Use:
        break;
    }
    const Made used = make(piece.used, depth + 1);
    if (!used)
        return false;
    const Strokes strokes = piece.isFlipped ? flipped(used->strokes, used->advance) : used->strokes;
    append(drawn, moved(scaled(strokes, piece.scale), piece.move));
    return true;
}

CharacterMaker::Made CharacterMaker::composed(uint character, int depth) const
{
    const QString parts = QChar::decomposition(character);
    Made made;
    switch (QChar::decompositionTag(character)) {
    case QChar::NoDecomposition:
        return std::nullopt;
    case QChar::Canonical:
        made = parts.size() == 2 ? withMark(parts.at(0).unicode(), parts.at(1).unicode(), depth)
                                 : row(parts, depth);
        break;
    case QChar::Super:
    case QChar::Sub:
        made = row(parts, depth);
        if (made) {
            const bool isRaised = QChar::decompositionTag(character) == QChar::Super;
            made->strokes = moved(scaled(made->strokes, {kScript, kScript}),
                                  {0.0, isRaised ? kRaised : kLowered});
            made->advance *= kScript;
        }
        break;
    case QChar::Fraction:
        made = fraction(parts, depth);
        break;
    case QChar::Circle:
        made = circled(parts, depth);
        break;
    case QChar::Vertical:
        made = fullWidth(parts, depth);
        if (made)
            made->strokes = withinWidth(quarterTurned(made->strokes, kMiddle));
        break;
    case QChar::Small:
        made = fullWidth(parts, depth);
        if (made)
            made->strokes = moved(scaled(made->strokes, {0.65, 0.65}), {42.0, 20.0});
        break;
    case QChar::Narrow:
        made = make(parts.at(0).unicode(), depth + 1);
        if (made) {
            made->strokes = scaled(made->strokes, {0.5, 1.0});
            made->advance *= 0.5;
        }
        break;
    default:
        made = m_width == Width::OfTheBigFont ? inOneWidth(parts, depth) : row(parts, depth);
    }
    if (made)
        made->origin = CharacterOrigin::Composed;
    return made;
}

CharacterMaker::Made CharacterMaker::withMark(uint base, uint mark, int depth) const
{
    const bool isAbove = placeOf(mark) == MarkPlace::Above;
    Made letter = make(isAbove ? withoutDot(base) : base, depth + 1);
    const Recipe *recipe = m_recipes.of(markBelow(base, mark));
    if (!letter || recipe == nullptr || placeOf(mark) == MarkPlace::None)
        return std::nullopt;
    const Made drawn = byRecipe(*recipe, depth + 1);
    if (!drawn)
        return std::nullopt;
    const bool isFirst = QChar::decompositionTag(base) != QChar::Canonical;
    append(&*letter, moved(drawn->strokes, markOrigin(boxOf(letter->strokes), mark, isFirst)));
    return letter;
}

/** The characters one beside the other. */
CharacterMaker::Made CharacterMaker::row(const QString &parts, int depth) const
{
    DrawnCharacter drawn;
    for (const QChar part : parts) {
        const Made made = make(part.unicode(), depth + 1);
        if (!made)
            return std::nullopt;
        append(&drawn, moved(made->strokes, {drawn.advance, 0.0}));
        drawn.advance += made->advance;
    }
    return drawn;
}

/** The characters in the width of one; of several, narrower ones, and less so, lower ones. */
CharacterMaker::Made CharacterMaker::inOneWidth(const QString &parts, int depth) const
{
    constexpr double kCapitals = 210.0;
    Made made = row(parts, depth);
    if (!made)
        return made;
    if (made->advance > kWidth) {
        const double across = kWidth / made->advance;
        const double down = std::sqrt(across);
        made->strokes =
            moved(scaled(made->strokes, {across, down}), {0.0, kCapitals * (1.0 - down) / 2.0});
    } else {
        made->strokes = moved(made->strokes, {(kWidth - made->advance) / 2.0, 0.0});
    }
    made->advance = kWidth;
    return made;
}

CharacterMaker::Made CharacterMaker::circled(const QString &parts, int depth) const
{
    Made made = row(parts, depth);
    if (!made)
        return made;
    const StrokeBox box = boxOf(made->strokes);
    const double widest = std::max({box.right - box.left, box.top - box.bottom, 1.0});
    const double size = std::min(kInCircle / widest, 0.6);
    const QPointF middle((box.left + box.right) / 2.0, (box.bottom + box.top) / 2.0);
    made->strokes = moved(scaled(made->strokes, {size, size}), kMiddle - size * middle);
    append(&*made, {ellipse(kMiddle, {kCircle, kCircle})});
    made->advance = kWidth;
    return made;
}

CharacterMaker::Made CharacterMaker::fraction(const QString &parts, int depth) const
{
    const QChar kSlash(0x2044);
    constexpr double kSize = 0.55;
    constexpr double kUp = 95.0;
    constexpr double kOverlap = 20.0; // of the line with the figures beside it
    constexpr double kLineWidth = 110.0;
    const Made above = row(parts.section(kSlash, 0, 0), depth);
    const Made below = row(parts.section(kSlash, 1), depth);
    if (!above || !below)
        return std::nullopt;
    DrawnCharacter drawn;
    append(&drawn, moved(scaled(above->strokes, {kSize, kSize}), {0.0, kUp}));
    const double line = kSize * above->advance - kOverlap;
    append(&drawn, {{{line + kLineWidth, 218.0}, {line, -8.0}}});
    const double second = line + kLineWidth - kOverlap;
    append(&drawn, moved(scaled(below->strokes, {kSize, kSize}), {second, 0.0}));
    drawn.advance = second + kSize * below->advance;
    return drawn;
}

/** The full-width form of a character of ASCII, any other as it is. */
CharacterMaker::Made CharacterMaker::fullWidth(const QString &part, int depth) const
{
    constexpr uint kToFullWidth = 0xFEE0;
    const uint character = part.at(0).unicode();
    const bool isAscii = character > ' ' && character <= '~';
    Made made = make(isAscii ? character + kToFullWidth : character, depth + 1);
    return made ? made : make(character, depth + 1);
}

} // namespace fontkit
