#include <ZTDrawEngineLib/shx/ZTShxFontFile_p.h>
#include <ZTDrawEngineLib/shx/ZTShxParser.h>
#include <ZTDrawEngineLib/shx/ZTShxText_p.h>

#include <QtCore/QChar>

#include <cmath>

// Text drawing, and the walk over all glyphs of a file.

using ztshx::readU16;
using ztshx::readU32;

namespace {

constexpr qint64 kStepsPerDrawing = 2000000;
constexpr qint64 kStepsPerCharacter = 1000;

constexpr int kShortRecord = 4;
constexpr int kBigRecord = 8;

} // namespace

void ZTShxParser::setTextHeight(double height) { m_textHeight = height > 0 ? height : -height; }

double ZTShxParser::getTextHeight() const { return m_textHeight; }

double ZTShxParser::drawText(ZTAbstractGlyphCallback *cb, const char *text, double x, double y)
{
    switch (m_type) {
    case SHX_TYPE::SHX_UNIFONT:
        drawWide(cb, ztshx::toWide(text).c_str(), x, y);
        break;
    case SHX_TYPE::SHX_BIGFONT:
    case SHX_TYPE::SHX_SHAPES:
    case SHX_TYPE::SHX_SHAPE_ONLY:
        drawBytes(cb, text != nullptr ? text : "", x, y);
        break;
    case SHX_TYPE::SHX_NONE:
        break;
    }
    return m_x - x;
}

double ZTShxParser::drawText(ZTAbstractGlyphCallback *cb, const wchar_t *text, double x, double y)
{
    switch (m_type) {
    case SHX_TYPE::SHX_UNIFONT:
        drawWide(cb, text != nullptr ? text : L"", x, y);
        break;
    case SHX_TYPE::SHX_BIGFONT:
    case SHX_TYPE::SHX_SHAPES:
    case SHX_TYPE::SHX_SHAPE_ONLY:
        drawBytes(cb, ztshx::toBytes(text).c_str(), x, y);
        break;
    case SHX_TYPE::SHX_NONE:
        break;
    }
    return m_x - x;
}

double ZTShxParser::getTextExtent(const char *text) { return drawText(nullptr, text, 0.0, 0.0); }

double ZTShxParser::getTextExtent(const wchar_t *text) { return drawText(nullptr, text, 0.0, 0.0); }

/** Drawing units of one font unit; infinite for a font without ascender. */
double ZTShxParser::fontScale() const { return m_textHeight / m_above; }

/** Sets what every drawing call sets: scale, pen, no positions, and how much work it may be. */
void ZTShxParser::beginDrawing(double x, double y)
{
    m_scale = fontScale();
    m_x = x;
    m_y = y;
    m_posStack.clear();
    m_stepsLeft = kStepsPerDrawing;
    m_depth = 0;
}

/** Begins a text, and its first stroke where the text begins. */
void ZTShxParser::beginText(ZTAbstractGlyphCallback *cb, double x, double y)
{
    beginDrawing(x, y);
    if (cb == nullptr)
        return;
    cb->glBegin();
    emitVertex(cb, x, y);
}

void ZTShxParser::drawCharacter(ZTAbstractGlyphCallback *cb, int code)
{
    m_stepsLeft += kStepsPerCharacter;
    parseGlyph(cb, code);
}

/** The code at `text`, which is not at its end, and steps over its one or two bytes. */
int ZTShxParser::takeBigfontCode(const unsigned char *&text)
{
    const unsigned char byte = *text++;
    if (!isEscapeChar(byte))
        return byte;
    const int code = byte << 8 | *text;
    if (*text != 0) // a text may end in a lead byte
        ++text;
    return code;
}

/** Takes over the pen of the other font of a pair, and the scale that its glyphs changed. */
void ZTShxParser::continueFrom(const ZTShxParser &other)
{
    m_x = other.m_x;
    m_y = other.m_y;
    const double change = other.m_scale / other.fontScale();
    if (std::isfinite(change)) // a font without ascender or height has no change to tell
        m_scale = fontScale() * change;
}

void ZTShxParser::drawBytes(ZTAbstractGlyphCallback *cb, const char *text, double x, double y)
{
    beginText(cb, x, y);
    const auto *next = reinterpret_cast<const unsigned char *>(text);
    if (m_type == SHX_TYPE::SHX_BIGFONT) {
        while (*next != 0)
            drawCharacter(cb, takeBigfontCode(next));
    } else {
        while (*next != 0)
            drawCharacter(cb, *next++);
    }
    if (cb != nullptr)
        cb->glEnd();
}

void ZTShxParser::drawWide(ZTAbstractGlyphCallback *cb, const wchar_t *text, double x, double y)
{
    beginText(cb, x, y);
    for (; *text != L'\0'; ++text) {
        const auto code = static_cast<uint>(*text); // NOLINT(bugprone-signed-char-misuse): wide
        if (QChar::requiresSurrogates(code)) {      // codes are 16-bit units, surrogates unpaired
            drawCharacter(cb, QChar::highSurrogate(code));
            drawCharacter(cb, QChar::lowSurrogate(code));
        } else {
            drawCharacter(cb, static_cast<int>(code));
        }
    }
    if (cb != nullptr)
        cb->glEnd();
}

void ZTShxParser::resetNextGlyph()
{
    if (m_index == nullptr)
        return;
    switch (m_type) {
    case SHX_TYPE::SHX_UNIFONT:
        m_nextEntry = m_index;
        m_nextIndex = 0;
        break;
    case SHX_TYPE::SHX_BIGFONT:
        m_nextEntry = m_index + kBigRecord; // the first is the font information
        m_nextIndex = 1;
        break;
    case SHX_TYPE::SHX_SHAPES:
    case SHX_TYPE::SHX_SHAPE_ONLY:
        m_nextEntry = m_index;
        m_nextIndex = 0;
        m_nextDataOffset = 0;
        break;
    case SHX_TYPE::SHX_NONE:
        break;
    }
}

bool ZTShxParser::showNextGlyph(ZTAbstractGlyphCallback *cb, double x, double y)
{
    if (m_nextIndex <= m_glyphCount)
        ++m_nextIndex;
    beginDrawing(x, y);
    if (cb != nullptr)
        restartStroke(cb, x, y);
    if (m_nextEntry == nullptr)
        return false;
    switch (m_type) {
    case SHX_TYPE::SHX_UNIFONT:
        showUnifontGlyph(cb);
        break;
    case SHX_TYPE::SHX_BIGFONT:
        showBigfontGlyph(cb);
        break;
    case SHX_TYPE::SHX_SHAPES:
    case SHX_TYPE::SHX_SHAPE_ONLY:
        showShapesGlyph(cb);
        break;
    case SHX_TYPE::SHX_NONE:
        return false;
    }
    return m_nextIndex < m_glyphCount;
}

/** Whether the walk stands on a record of the index that the image holds whole. */
bool ZTShxParser::hasNextRecord(int size) const
{
    return m_nextIndex <= m_glyphCount && has(m_nextEntry, size);
}

void ZTShxParser::showUnifontGlyph(ZTAbstractGlyphCallback *cb)
{
    if (!hasNextRecord(kShortRecord))
        return;
    const int length = static_cast<int>(readU16(m_nextEntry + 2));
    const unsigned char *start = m_nextEntry + kShortRecord;
    m_nextEntry = start + qMin<qint64>(length, m_bufferEnd - start);
    parseDefinition(cb, start, length);
}

void ZTShxParser::showBigfontGlyph(ZTAbstractGlyphCallback *cb)
{
    if (!hasNextRecord(kBigRecord))
        return;
    const unsigned char *record = m_nextEntry;
    m_nextEntry += kBigRecord;
    const qint64 offset = readU32(record + 4);
    if (readU16(record) != 0 && offset < m_bufferEnd - m_buffer)
        parseDefinition(cb, m_buffer + offset, static_cast<int>(readU16(record + 2)));
}

void ZTShxParser::showShapesGlyph(ZTAbstractGlyphCallback *cb)
{
    if (!hasNextRecord(kShortRecord))
        return;
    const unsigned char *record = m_nextEntry;
    m_nextEntry += kShortRecord;
    const qint64 size = m_bufferEnd - m_buffer;
    const qint64 start =
        m_index - m_buffer + kShortRecord * qint64(m_glyphCount) + m_nextDataOffset;
    const int length = static_cast<int>(readU16(record + 2));
    // Once outside the image, the walk's place cannot come back in and need not grow.
    m_nextDataOffset = static_cast<qint32>(qMin(m_nextDataOffset + qint64(length), size));
    // Kept: only the low byte of the code is tested.
    if (record[0] != 0 && start < size)
        parseDefinition(cb, m_buffer + start, length);
}
