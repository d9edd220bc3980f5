// Any bytes as data that fonts are made from: what is read can be drawn, and draws as it was read.

#include "MemoryFile.h"

#include <fontkit/FontFile.h>
#include <fontkit/GbStrokesFont.h>
#include <fontkit/HanziReader.h>
#include <fontkit/HersheyReader.h>
#include <fontkit/StrokeEncoder.h>

#include <ZTDrawEngineLib/shx/ZTShxParser.h>

#include <cmath>
#include <cstdint>
#include <cstdlib>

namespace {

constexpr int kMaxRecords = 10000;

void require(bool condition)
{
    if (!condition)
        std::abort();
}

/** Writes the strokes into a font as "A", and measures it there. */
void requireAdvance(const fontkit::GridStrokes &strokes, int advance)
{
    const fontkit::GlyphProgram program = fontkit::encodeStrokes(strokes, advance);
    require(program.error().isEmpty());
    fontkit::FontFile font;
    font.information->above = 1;
    fontkit::GlyphDefinition glyph;
    glyph.code = 'A';
    glyph.program = program.bytes();
    font.glyphs = {glyph};
    const QByteArray bytes = fontkit::writeFont(font);
    if (bytes.isEmpty())
        return; // longer than a definition may be
    static MemoryFile file;
    file.write(bytes.constData(), static_cast<std::size_t>(bytes.size()));
    ZTShxParser parser(file.path().constData());
    require(parser.getTextExtent("A") == advance);
}

/** A glyph as a record in one line. */
QByteArray recordOf(const fontkit::HersheyGlyph &glyph)
{
    const auto letter = [](int coordinate) { return static_cast<char>('R' + coordinate); };
    QByteArray pairs = QByteArray(1, letter(glyph.left)) + letter(glyph.right);
    for (int i = 0; i < glyph.strokes.size(); ++i) {
        pairs += i > 0 ? " R" : "";
        for (const QPoint &point : glyph.strokes.at(i))
            pairs += QByteArray(1, letter(point.x())) + letter(point.y());
    }
    return QByteArray::number(glyph.number).rightJustified(5) +
           QByteArray::number(pairs.size() / 2).rightJustified(3) + pairs + '\n';
}

void readHershey(const QByteArray &bytes)
{
    fontkit::HersheyReader reader;
    require(reader.read(bytes) == !reader.glyphs().isEmpty());
    require(reader.glyphs().size() <= kMaxRecords);
    QByteArray written;
    for (const fontkit::HersheyGlyph &glyph : reader.glyphs())
        written += recordOf(glyph);
    fontkit::HersheyReader again;
    again.read(written);
    require(again.glyphs().size() == reader.glyphs().size());
    for (int i = 0; i < reader.glyphs().size(); ++i) {
        const fontkit::HersheyGlyph &glyph = reader.glyphs().at(i);
        require(again.glyphs().at(i).strokes == glyph.strokes);
        if (i < 100)
            requireAdvance(glyph.strokes, glyph.right - glyph.left);
    }
}

void readHanzi(const QByteArray &bytes)
{
    fontkit::HanziReader reader;
    const bool isRead = reader.read(bytes);
    require(isRead == reader.errorText().isEmpty() && isRead == !reader.strokes().isEmpty());
    const fontkit::GridStrokes strokes =
        fontkit::onGrid(fontkit::GbStrokesFont::strokesOf(reader.strokes()));
    require(strokes.size() == reader.strokes().size());
    for (int i = 0; i < strokes.size(); ++i) {
        const QPointF first = fontkit::GbStrokesFont::placed(reader.strokes().at(i).first());
        require(std::abs(strokes.at(i).first().x() - first.x()) <= 0.5);
        require(std::abs(strokes.at(i).first().y() - first.y()) <= 0.5);
    }
    requireAdvance(strokes, fontkit::GbStrokesFont::kAdvance);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<int>(size));
    readHershey(bytes);
    readHanzi(bytes);
    return 0;
}
