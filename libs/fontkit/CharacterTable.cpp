#include "CharacterTable.h"

#include <fontkit/GbStrokesFont.h>
#include <fontkit/HersheyFonts.h>
#include <fontkit/UnicodeStrokesFont.h>

#include <QtCore/QMap>

namespace fontkit {

namespace {

struct Block
{
    uint first;
    uint last;
    const char *name;
};

constexpr Block kBlocks[] = {
    {0x0020, 0x007E, "ASCII"},
    {0x00A0, 0x00FF, "Latin-1"},
    {0x0100, 0x017F, "Latin Extended-A"},
    {0x0180, 0x02FF, "Latin, further letters"},
    {0x0370, 0x03FF, "Greek"},
    {0x0400, 0x04FF, "Cyrillic"},
    {0x1E00, 0x1EFF, "Latin Extended Additional, Vietnamese"},
    {0x2000, 0x206F, "Punctuation"},
    {0x2070, 0x209F, "Raised and lowered figures"},
    {0x20A0, 0x20CF, "Money"},
    {0x2100, 0x214F, "Signs like letters"},
    {0x2150, 0x218F, "Fractions"},
    {0x2190, 0x21FF, "Arrows"},
    {0x2200, 0x22FF, "Calculation"},
    {0x2300, 0xFFFF, "Drawing, and others"},
};

const char *nameOf(CharacterOrigin origin)
{
    switch (origin) {
    case CharacterOrigin::Hershey:
        return "Hershey data";
    case CharacterOrigin::Hanzi:
        return "hanzi-writer-data";
    case CharacterOrigin::Drawn:
        return "drawn for it";
    case CharacterOrigin::Composed:
        break;
    }
    return "composed of others";
}

/** Characters of a table's row, by where they come from. */
using Row = QMap<CharacterOrigin, QString>;

/** As text between backticks, so that nothing in it is markup but the bar. */
QByteArray shown(QString characters)
{
    characters.replace(QLatin1Char('|'), QLatin1String("\\|"));
    const bool hasBacktick = characters.contains(QLatin1Char('`'));
    const QByteArray quote = hasBacktick ? "``" : "`";
    return quote + characters.toUtf8() + quote;
}

void append(QByteArray *table, const QByteArray &name, const Row &row)
{
    for (auto it = row.begin(); it != row.end(); ++it)
        *table += "| " + name + " | " + nameOf(it.key()) + " | " +
                  QByteArray::number(it.value().size()) + " | " + shown(it.value()) + " |\n";
}

QByteArray heading(const QString &fileName, int count)
{
    return "\n## " + fileName.toUtf8() + ": " + QByteArray::number(count) +
           " characters\n\n| where | from | | characters |\n|---|---|---|---|\n";
}

bool isBlank(uint character)
{
    return character == 0x20 || character == 0xA0 || character == 0x3000;
}

QByteArray unicodeTable(const DataFolder &hershey, QString *error)
{
    const auto all = UnicodeStrokesFont(hershey).characters(error);
    if (all.isEmpty())
        return {};
    QByteArray table = heading(UnicodeStrokesFont::fileName(), all.size());
    for (const Block &block : kBlocks) {
        Row row;
        for (const auto &[code, drawn] : all) {
            if (code >= block.first && code <= block.last && !isBlank(code))
                row[drawn.origin] += QChar(code);
        }
        append(&table, block.name, row);
    }
    return table + "\nBeside these U+0020 and U+00A0, which are blanks.\n";
}

QByteArray gbTable(const DataFolder &hershey, const DataFolder &hanzi, QString *error)
{
    GbStrokesFont font(hanzi, hershey);
    const QMap<int, DrawnCharacter> all = font.characters(error);
    if (all.isEmpty())
        return {};
    QMap<int, Row> rows;
    for (const auto &[code, text] : GbStrokesFont::codes()) {
        const QString character = QString::fromUtf8(text);
        const auto drawn = all.constFind(code);
        if (drawn != all.constEnd() && !isBlank(character.at(0).unicode()))
            rows[code >> 8][drawn->origin] += character;
    }
    QByteArray table = heading(GbStrokesFont::fileName(), all.size());
    for (auto row = rows.begin(); row != rows.end(); ++row)
        append(&table, "0x" + QByteArray::number(row.key(), 16).toUpper(), row.value());
    return table + "\nBeside these 0xA1A1, the blank of Chinese. \"Where\" is the first byte.\n";
}

QByteArray hersheyTable()
{
    QByteArray table = "\n## The Hershey fonts\n\n";
    for (const QString &name : HersheyFonts::fileNames())
        table += "- `" + name.toUtf8() + "`\n";
    return table + "\nEach has the 95 printable characters of ASCII, point for point from the "
                   "Hershey data; those of\nGreek and Cyrillic show other letters at these "
                   "codes: see [fonts](fonts.md).\n";
}

} // namespace

QByteArray characterTable(const DataFolder &hershey, const DataFolder &hanzi, QString *error)
{
    const QByteArray unicode = unicodeTable(hershey, error);
    const QByteArray gb = unicode.isEmpty() ? QByteArray() : gbTable(hershey, hanzi, error);
    if (gb.isEmpty())
        return {};
    return "# Characters of the fonts on board\n\n"
           "Every character that each stroke font draws, and what its strokes come from. Made from "
           "the fonts;\n`unit.fontkit.CharacterTable` compares.\n" +
           hersheyTable() + unicode + gb;
}

} // namespace fontkit
