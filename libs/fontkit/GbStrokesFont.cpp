#include "GbStrokesFont.h"

#include <fontkit/GbPunctuation.h>
#include <fontkit/HanziReader.h>
#include <fontkit/HersheyFonts.h>
#include <fontkit/StrokeSimplifier.h>

#include <QtCore/QTextCodec>

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
    "em "
    "of 256, converted to this format, punctuation and full-width forms added.";

bool fail(QString *error, const QString &what)
{
    if (error != nullptr)
        *error = what;
    return false;
}

QPoint onGrid(const QPointF &point)
{
    return {static_cast<int>(std::lround(point.x())), static_cast<int>(std::lround(point.y()))};
}

QVector<QPoint> onGrid(const QVector<QPointF> &stroke)
{
    QVector<QPoint> points;
    for (const QPointF &point : stroke) {
        const QPoint rounded = onGrid(point);
        if (points.isEmpty() || points.last() != rounded)
            points.append(rounded);
    }
    return points;
}

GridStrokes onGrid(const QVector<QVector<QPointF>> &strokes)
{
    GridStrokes result;
    for (const QVector<QPointF> &stroke : strokes)
        result.append(onGrid(stroke));
    return result;
}

/** A character of the simplex font in the middle of the width. */
GridStrokes widened(const HersheyCharacter &character)
{
    const int shift = (GbStrokesFont::kAdvance - kHersheyUnit * character.advance) / 2;
    GridStrokes result = character.strokes;
    for (QVector<QPoint> &stroke : result) {
        for (QPoint &point : stroke)
            point = kHersheyUnit * point + QPoint(shift, 0);
    }
    return result;
}

/** Our own marks, which are drawn for the whole em. */
QVector<QVector<QPointF>> trimmed(const QVector<QVector<QPointF>> &mark)
{
    QVector<QVector<QPointF>> result = mark;
    for (QVector<QPointF> &stroke : result) {
        for (QPointF &point : stroke)
            point.rx() -= kMargin;
    }
    return result;
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

GridStrokes GbStrokesFont::strokesOf(const QVector<QVector<QPointF>> &medians)
{
    const StrokeSimplifier simplifier{kSimplifying, kSmoothingReach, kCornerDeg};
    GridStrokes result;
    for (const QVector<QPointF> &median : medians) {
        QVector<QPointF> scaled;
        for (const QPointF &point : median)
            scaled.append(placed(point));
        result.append(onGrid(simplifier.apply(scaled)));
    }
    return result;
}

bool GbStrokesFont::make(FontFile *font, QString *error)
{
    QMap<int, GridStrokes> characters;
    if (!addHanzi(characters, error) || !addFullWidth(characters, error))
        return false;
    const auto &marks = gbPunctuation();
    for (auto it = marks.begin(); it != marks.end(); ++it)
        characters[it.key()] = onGrid(trimmed(it.value()));

    FontFile made;
    made.form = FontForm::Bigfont;
    made.information->name = kNotice;
    made.information->above = kAbove;
    made.information->below = kBelow;
    made.ranges = {{kFirstLead, kLastLead}};
    for (auto it = characters.begin(); it != characters.end(); ++it) {
        const GlyphProgram program = encodeStrokes(it.value(), kAdvance, FontForm::Bigfont);
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

bool GbStrokesFont::addHanzi(QMap<int, GridStrokes> &characters, QString *error)
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
        characters[code] = strokesOf(reader.strokes());
        ++m_hanziMade;
    }
    if (m_hanziMade == 0)
        return fail(error, m_hanziFolder.shown(QByteArray()) +
                               QStringLiteral(": no character of hanzi-writer-data"));
    return true;
}

bool GbStrokesFont::addFullWidth(QMap<int, GridStrokes> &characters, QString *error) const
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
    return true;
}

} // namespace fontkit
