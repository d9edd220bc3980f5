#include "UnicodeStrokesFont.h"

#include <fontkit/BoardCharacters.h>
#include <fontkit/StrokeEncoder.h>

#include <algorithm>
#include <cmath>

namespace fontkit {

namespace {

const char kNotice[] = "Unicode Strokes: Hershey Simplex, with letters and signs drawn to match";

bool fail(QString *error, const QString &what)
{
    if (error != nullptr)
        *error = what;
    return false;
}

/** Kana belong to the big font; marks alone are parts of letters. */
bool isForThisFont(uint character, const Recipe *recipe)
{
    const bool isKana = character >= 0x3000 && character < 0x3100;
    const bool isMark = recipe != nullptr && recipe->advance == 0.0;
    return !isKana && !isMark;
}

} // namespace

UnicodeStrokesFont::UnicodeStrokesFont(const DataFolder &hershey) : m_hersheyFolder(hershey) {}

QString UnicodeStrokesFont::fileName() { return QStringLiteral("unicode-strokes.shx"); }

QVector<std::pair<uint, DrawnCharacter>> UnicodeStrokesFont::characters(QString *error) const
{
    BoardCharacters board;
    if (!board.read(m_hersheyFolder, error))
        return {};
    const GlyphRecipes recipes = GlyphRecipes::alphabets();
    const CharacterMaker maker(recipes, [&board](uint character) { return board.of(character); });
    QVector<uint> codes = recipes.characters();
    for (uint code = 0x20; code < 0x0400; ++code) {
        const bool isPunctuation = code > '~' && code < 0x0370; // of the big font's width
        if (!isPunctuation && board.of(code))
            codes.append(code);
    }
    std::sort(codes.begin(), codes.end());
    codes.erase(std::unique(codes.begin(), codes.end()), codes.end());
    QVector<std::pair<uint, DrawnCharacter>> all;
    for (const uint code : qAsConst(codes)) {
        if (!isForThisFont(code, recipes.of(code)))
            continue;
        const auto drawn = maker.make(code);
        if (!drawn) {
            fail(error, QStringLiteral("%1: U+%2 cannot be composed")
                            .arg(fileName(), QString::number(code, 16).toUpper()));
            return {};
        }
        all.append({code, *drawn});
    }
    return all;
}

bool UnicodeStrokesFont::make(FontFile *font, QString *error) const
{
    const auto all = characters(error);
    if (all.isEmpty())
        return false;
    FontFile made;
    made.form = FontForm::Unifont;
    made.information->name = kNotice;
    made.information->above = kAbove;
    made.information->below = kBelow;
    for (const auto &[code, drawn] : all) {
        const GlyphProgram program = encodeStrokes(
            onGrid(drawn.strokes), static_cast<int>(std::lround(drawn.advance)), FontForm::Unifont);
        if (!program.error().isEmpty())
            return fail(error, QStringLiteral("%1: %2").arg(fileName(), program.error()));
        GlyphDefinition glyph;
        glyph.code = static_cast<quint16>(code);
        glyph.program = program.bytes();
        made.glyphs.push_back(glyph);
    }
    *font = made;
    return true;
}

} // namespace fontkit
