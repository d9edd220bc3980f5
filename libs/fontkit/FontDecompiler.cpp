#include "CodeText_p.h"
#include "FontSource.h"
#include "GlyphStatements_p.h"

namespace fontkit {

namespace {

/** A byte of a text: everything but plain ASCII as an escape, so that any bytes come back. */
QByteArray escaped(char c)
{
    switch (c) {
    case '"':
        return "\\\"";
    case '\\':
        return "\\\\";
    case '\n':
        return "\\n";
    case '\r':
        return "\\r";
    case '\t':
        return "\\t";
    default:
        break;
    }
    const QByteArray byte(1, c);
    return c >= 0x20 && c < 0x7F ? byte : "\\x" + byte.toHex().toUpper();
}

QByteArray quoted(const QByteArray &bytes)
{
    QByteArray text = "\"";
    for (const char c : bytes)
        text += escaped(c);
    return text + '"';
}

void addLine(QByteArray &text, const QByteArray &keyword, const QByteArray &value)
{
    text += keyword + ' ' + value + '\n';
}

void addNumber(QByteArray &text, const QByteArray &keyword, int number)
{
    addLine(text, keyword, QByteArray::number(number));
}

void addBytes(QByteArray &text, const QByteArray &keyword, const QByteArray &bytes)
{
    for (const QByteArray &line : hexLines(keyword, bytes))
        text += line + '\n';
}

void addInformation(QByteArray &text, const FontInformation &information)
{
    addLine(text, "name", quoted(information.name));
    addNumber(text, "above", information.above);
    addNumber(text, "below", information.below);
    addNumber(text, "modes", information.modes);
    if (information.encoding != 0)
        addNumber(text, "encoding", information.encoding);
    if (information.embedding != 0)
        addNumber(text, "embedding", information.embedding);
    if (information.last != 0)
        addNumber(text, "last", information.last);
}

QByteArray codeBytes(quint16 code) { return codeText(code).toLatin1(); }

void addHeader(QByteArray &text, const FontFile &font)
{
    addLine(text, "form", keywordOf(font.form));
    addLine(text, "prefix", quoted(font.prefix));
    if (!font.version.isEmpty())
        addLine(text, "version", quoted(font.version));
    if (font.information)
        addInformation(text, *font.information);
    addBytes(text, "unused", font.unused);
    if (font.countsInformation)
        text += "counts-information\n";
    for (const LeadByteRange &range : font.ranges)
        addLine(text, "range", codeBytes(range.first) + " to " + codeBytes(range.last));
}

bool isEmpty(const IndexEntry &entry)
{
    return entry.code == 0 && entry.length == 0 && entry.offset == 0;
}

void addEntries(QByteArray &text, const std::vector<IndexEntry> &entries)
{
    for (size_t i = 0; i < entries.size(); ++i) {
        const IndexEntry &entry = entries[i];
        if (!isEmpty(entry)) {
            addLine(text, "entry",
                    QByteArray::number(entry.slot) + " code " + codeBytes(entry.code) + " length " +
                        QByteArray::number(entry.length) + " offset " +
                        QByteArray::number(entry.offset));
            continue;
        }
        size_t last = i;
        while (last + 1 < entries.size() && isEmpty(entries[last + 1]) &&
               entries[last + 1].slot == entries[last].slot + 1)
            ++last;
        addLine(text, "empty",
                QByteArray::number(entry.slot) +
                    (last > i ? " to " + QByteArray::number(entries[last].slot) : QByteArray()));
        i = last;
    }
}

void addGlyph(QByteArray &text, const GlyphDefinition &glyph, FontForm form)
{
    text += '\n';
    addBytes(text, "gap", glyph.gapBefore);
    text += "glyph " + codeBytes(glyph.code);
    if (!glyph.name.isEmpty())
        text += ' ' + quoted(glyph.name);
    if (glyph.bare)
        text += " bare";
    if (glyph.slot >= 0)
        text += " slot " + QByteArray::number(glyph.slot);
    const QString character = characterOf(glyph.code, form);
    if (!character.isEmpty())
        text += "  # " + character.toUtf8();
    text += '\n';
    for (const QByteArray &statement : statementsOf(glyph.program, form))
        text += "  " + statement + '\n';
}

} // namespace

QByteArray decompileFont(const FontFile &font)
{
    QByteArray text;
    addHeader(text, font);
    addEntries(text, font.entries);
    for (const GlyphDefinition &glyph : font.glyphs)
        addGlyph(text, glyph, font.form);
    if (!font.trailing.isEmpty()) {
        text += '\n';
        addBytes(text, "trailing", font.trailing);
    }
    return text;
}

} // namespace fontkit
