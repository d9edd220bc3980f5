#include <ZTDrawEngineLib/common/LetterOutlines_p.h>

#include <ZTDrawEngineLib/common/Exactly_p.h>
#include <ZTDrawEngineLib/common/MovedOutline_p.h>

#include <QtGui/QGlyphRun>
#include <QtGui/QRawFont>
#include <QtGui/QTextLayout>

#include <algorithm>

namespace ztoutline {

namespace {

/** Limit: so many texts of a font are laid out before its letters are; few gain nothing by them. */
constexpr int kTextsBeforeLetters = 32;

/** The letters of `text` with the fonts that they are taken from, fonts that stand in included. */
QList<QGlyphRun> glyphRunsOf(const QFont &font, const QString &text)
{
    QTextLayout layout(text, font);
    layout.beginLayout();
    while (layout.createLine().isValid()) {
        // All lines: separators inside the text begin further ones.
    }
    layout.endLayout();
    return layout.glyphRuns();
}

/**
 * Lets the font file of `rawFont` forget where the last letter was painted.
 *
 * Letters are painted at fractions of a pixel. The rasteriser keeps that shift with the file, for
 * all sizes, and adds it to outlines that are asked for next. Opening the file at another size
 * sets the shift to zero.
 */
void forgetLastPainted(QRawFont rawFont) { rawFont.setPixelSize(rawFont.pixelSize() + 1.0); }

bool isPlain(const QString &text)
{
    return std::all_of(text.begin(), text.end(),
                       [](QChar c) { return c.unicode() >= 0x20 && c.unicode() < 0x7F; });
}

/** Whether the text is one glyph a character in one font, beginning on a step. */
bool isInSingleGlyphs(const QString &text, const QPointF &position, const QList<QGlyphRun> &runs)
{
    return isPlain(text) && isNear(position) && position == onStep(position) && runs.size() == 1 &&
           runs.first().glyphIndexes().size() == text.size();
}

} // namespace

QPainterPath LetterOutlines::outlineOf(const QString &text, const QPointF &position)
{
    const QList<QGlyphRun> runs = glyphRunsOf(m_font, text);
    if (!m_composes || ++m_textCount <= kTextsBeforeLetters)
        return laidOut(text, position, runs);
    const QVector<Placed> letters = placedLetters(text, position, runs);
    if (letters.isEmpty())
        return laidOut(text, position, runs);

    QPainterPath path;
    bool isTrusted = true;
    for (const Placed &placed : letters) {
        if (!placed.letter->outline.isEmpty()) // a blank leaves a point where nothing follows
            addMoved(path, placed.letter->outline, placed.by);
        isTrusted = isTrusted && (placed.letter->isTrusted || placed.by.isNull());
    }
    if (isTrusted && !path.isEmpty())
        return path;
    const QPainterPath plain = laidOut(text, position, runs);
    if (path.isEmpty())
        return plain;
    m_composes = isExactly(path, plain);
    for (const Placed &placed : letters) {
        // One that was not moved has shown nothing.
        if (!placed.by.isNull())
            placed.letter->isTrusted = m_composes;
    }
    return plain;
}

QPainterPath LetterOutlines::laidOut(const QString &text, const QPointF &position,
                                     const QList<QGlyphRun> &runs)
{
    ++m_layoutCount;
    for (const QGlyphRun &run : runs)
        forgetLastPainted(run.rawFont());
    QPainterPath path;
    path.addText(position, m_font, text);
    return path;
}

LetterOutlines::Letter &LetterOutlines::letterOf(QChar character)
{
    const auto found = m_letters.find(character);
    if (found != m_letters.end())
        return *found;
    Letter letter;
    const QList<QGlyphRun> runs = glyphRunsOf(m_font, character);
    if (isInSingleGlyphs(character, {}, runs)) {
        letter.outline = laidOut(character, {}, runs);
        letter.glyphPos = runs.first().positions().constFirst();
        letter.glyph = runs.first().glyphIndexes().constFirst();
        letter.isFound = isMovable(letter.outline);
    }
    return *m_letters.insert(character, letter);
}

/** None where the text is no row of single letters. */
QVector<LetterOutlines::Placed> LetterOutlines::placedLetters(const QString &text,
                                                              const QPointF &position,
                                                              const QList<QGlyphRun> &runs)
{
    if (!isInSingleGlyphs(text, position, runs))
        return {};
    for (const QChar character : text)
        letterOf(character); // all of them first: a new one moves the others in memory
    const QVector<quint32> glyphs = runs.first().glyphIndexes();
    const QVector<QPointF> positions = runs.first().positions();
    QVector<Placed> placed;
    placed.reserve(text.size());
    for (int i = 0; i < text.size(); ++i) {
        Letter &letter = letterOf(text[i]);
        if (!letter.isFound || letter.glyph != glyphs[i])
            return {};
        placed.append({&letter, position + (positions[i] - letter.glyphPos)});
    }
    return placed;
}

} // namespace ztoutline
