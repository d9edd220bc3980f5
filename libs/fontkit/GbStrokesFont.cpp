#include "GbStrokesFont.h"

#include <fontkit/BoardCharacters.h>
#include <fontkit/GbPunctuation.h>
#include <fontkit/GlyphShapes_p.h>
#include <fontkit/HanziReader.h>
#include <fontkit/HersheyFonts.h>
#include <fontkit/StrokeEncoder.h>
#include <fontkit/StrokeSimplifier.h>

#include <QtCore/QTextCodec>

#include <algorithm>
#include <cmath>

namespace fontkit {

namespace {

constexpr int kFirstLead = 0x81;
constexpr int kLastLead = 0xFE;
constexpr int kFirstTrail = 0x40;
constexpr int kLastTrail = 0xFE;
constexpr int kFullWidthRow = 0xA300;
constexpr int kToFullWidth = 0x80; // from an ASCII code to the low byte of its full-width form

// Together with half a unit each way of rounding they stay below `kTolerance`.
constexpr double kSmoothingReach = 2.0;
constexpr double kSimplifying = 0.7;
constexpr double kCornerDeg = 60.0;

constexpr int kMargin = (GbStrokesFont::kEm - GbStrokesFont::kAdvance) / 2; // of the em, cut off
constexpr int kHersheyUnit = GbStrokesFont::kAbove / HersheyFonts::kCapHeight;

// The licence of the data asks for a notice in the file of what was changed, and when.
const char kNotice[] =
    "gb-strokes: Chinese single strokes derived from the Arphic fonts AR PL KaitiM GB and Big5 by "
    "way of Make Me A Hanzi and hanzi-writer-data 2.0.1; Arphic Public License, see ARPHICPL.TXT. "
    "Changed in November 2026: outlines left out, medians smoothed and simplified, reduced to an "
    "em of 256, converted to this format; all other characters added.";

bool fail(QString *error, const QString &what)
{
    if (error != nullptr)
        *error = what;
    return false;
}

/** A character of the simplex font in the middle of the width. */
DrawnCharacter widened(const HersheyCharacter &character)
{
    const int shift = (GbStrokesFont::kAdvance - kHersheyUnit * character.advance) / 2;
    DrawnCharacter drawn;
    drawn.advance = GbStrokesFont::kAdvance;
    drawn.origin = CharacterOrigin::Hershey;
    for (const QVector<QPoint> &stroke : character.strokes) {
        QVector<QPointF> points;
        for (const QPoint &point : stroke)
            points.append(kHersheyUnit * point + QPoint(shift, 0));
        drawn.strokes.append(points);
    }
    return drawn;
}

/** Letters keep the width that they have beside the regular fonts. */
bool isProportional(uint character)
{
    constexpr uint kFirstSign = 0x2000;
    const QChar::Script script = QChar::script(character);
    return character < kFirstSign &&
           (script == QChar::Script_Latin || script == QChar::Script_Greek ||
            script == QChar::Script_Cyrillic);
}

/** In the middle of the big font's width, made narrower where it is wider. */
DrawnCharacter inFullWidth(DrawnCharacter drawn)
{
    const double across = std::min(1.0, GbStrokesFont::kAdvance / drawn.advance);
    const double shift = (GbStrokesFont::kAdvance - across * drawn.advance) / 2.0;
    drawn.strokes = moved(scaled(drawn.strokes, {across, 1.0}), {shift, 0.0});
    drawn.advance = GbStrokesFont::kAdvance;
    return drawn;
}

} // namespace

GbStrokesFont::GbStrokesFont(const DataFolder &hanzi, const DataFolder &hershey)
    : m_hanziFolder(hanzi), m_hersheyFolder(hershey)
{
}

QString GbStrokesFont::fileName() { return QStringLiteral("gb-strokes.shx"); }

QVector<std::pair<int, QByteArray>> GbStrokesFont::codes()
{
    QVector<std::pair<int, QByteArray>> result;
    const QTextCodec *codec = QTextCodec::codecForName("GBK");
    for (int lead = kFirstLead; codec != nullptr && lead <= kLastLead; ++lead) {
        for (int trail = kFirstTrail; trail <= kLastTrail; ++trail) {
            const char bytes[] = {static_cast<char>(lead), static_cast<char>(trail)};
            const QString text = codec->toUnicode(bytes, 2);
            if (text.size() == 1 && text.at(0) != QChar::ReplacementCharacter)
                result.append({lead << 8 | trail, text.toUtf8()});
        }
    }
    return result;
}

QPointF GbStrokesFont::placed(const QPointF &pointInData)
{
    constexpr double kScale = static_cast<double>(kEm) / HanziReader::kEm;
    return kScale * pointInData - QPointF(kMargin, 0);
}

QVector<QVector<QPointF>> GbStrokesFont::strokesOf(const QVector<QVector<QPointF>> &medians)
{
    const StrokeSimplifier simplifier{kSimplifying, kSmoothingReach, kCornerDeg};
    QVector<QVector<QPointF>> result;
    for (const QVector<QPointF> &median : medians) {
        QVector<QPointF> scaled;
        for (const QPointF &point : median)
            scaled.append(placed(point));
        result.append(simplifier.apply(scaled));
    }
    return result;
}

bool GbStrokesFont::make(FontFile *font, QString *error)
{
    const QMap<int, DrawnCharacter> all = characters(error);
    if (all.isEmpty())
        return false;
    FontFile made;
    made.form = FontForm::Bigfont;
    made.information->name = kNotice;
    made.information->above = kAbove;
    made.information->below = kBelow;
    made.ranges = {{kFirstLead, kLastLead}};
    for (auto it = all.begin(); it != all.end(); ++it) {
        const GlyphProgram program = encodeStrokes(
            onGrid(it->strokes), static_cast<int>(std::lround(it->advance)), FontForm::Bigfont);
        if (!program.error().isEmpty())
            return fail(error, QStringLiteral("%1: %2").arg(fileName(), program.error()));
        GlyphDefinition glyph;
        glyph.code = static_cast<quint16>(it.key());
        glyph.program = program.bytes();
        made.glyphs.push_back(glyph);
    }
    *font = made;
    return true;
}

QMap<int, DrawnCharacter> GbStrokesFont::characters(QString *error)
{
    QMap<int, DrawnCharacter> all;
    BoardCharacters board;
    if (!addHanzi(all, error) || !board.read(m_hersheyFolder, error) || !addFullWidth(all, error))
        return {};
    QMap<uint, int> codeOf; // of the hanzi, to compose with
    const auto source = [&](uint character) -> std::optional<DrawnCharacter> {
        const auto code = codeOf.constFind(character);
        return code != codeOf.constEnd() ? all.value(*code) : board.of(character);
    };
    const CharacterMaker maker(GlyphRecipes::bigFont(), source,
                               CharacterMaker::Width::OfTheBigFont);
    QVector<std::pair<int, uint>> open;
    for (const auto &[code, text] : codes()) {
        const uint character = QString::fromUtf8(text).at(0).unicode();
        if (all.contains(code))
            codeOf.insert(character, code);
        else
            open.append({code, character});
    }
    QMap<int, DrawnCharacter> made;
    for (const auto &[code, character] : qAsConst(open)) {
        if (const auto drawn = maker.make(character))
            made.insert(code, isProportional(character) ? *drawn : inFullWidth(*drawn));
    }
    for (auto it = made.begin(); it != made.end(); ++it)
        all.insert(it.key(), it.value());
    return all;
}

bool GbStrokesFont::addHanzi(QMap<int, DrawnCharacter> &characters, QString *error)
{
    m_hanziMade = 0;
    for (const auto &[code, character] : codes()) {
        const QByteArray name = character + ".json";
        const auto content = m_hanziFolder.read(name);
        if (!content)
            continue;
        HanziReader reader;
        if (!reader.read(*content))
            return fail(error,
                        m_hanziFolder.shown(name) + QStringLiteral(": ") + reader.errorText());
        DrawnCharacter drawn;
        drawn.strokes = strokesOf(reader.strokes());
        drawn.advance = kAdvance;
        drawn.origin = CharacterOrigin::Hanzi;
        characters.insert(code, drawn);
        ++m_hanziMade;
    }
    if (m_hanziMade == 0)
        return fail(error, m_hanziFolder.shown(QByteArray()) +
                               QStringLiteral(": no character of hanzi-writer-data"));
    return true;
}

/** Full-width forms of ASCII, and the marks of row 3 that are drawn for the width. */
bool GbStrokesFont::addFullWidth(QMap<int, DrawnCharacter> &characters, QString *error) const
{
    HersheyFonts hershey(m_hersheyFolder);
    for (int ascii = '!'; ascii <= '~'; ++ascii) {
        HersheyCharacter character;
        if (!hershey.character(QStringLiteral("hershey-simplex.shx"), ascii, &character, error))
            return false;
        characters[kFullWidthRow | (ascii + kToFullWidth)] = widened(character);
    }
    // Row 3 has the yuan sign in the place of the dollar, which stands in row 1.
    characters[0xA1E7] = characters.value(kFullWidthRow | ('$' + kToFullWidth));
    const auto &marks = gbPunctuation();
    for (auto it = marks.begin(); it != marks.end(); ++it) {
        DrawnCharacter drawn;
        drawn.strokes = moved(it.value(), {-static_cast<double>(kMargin), 0.0});
        drawn.advance = kAdvance;
        characters.insert(it.key(), drawn);
    }
    return true;
}

} // namespace fontkit
