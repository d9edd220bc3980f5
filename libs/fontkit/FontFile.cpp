#include "FontFile.h"

#include "CodeText_p.h"

#include <QtCore/QtEndian>

#include <algorithm>
#include <tuple>

namespace fontkit {

namespace {

constexpr int kPrefixSize = 11;
constexpr int kLargestNumber = 0xFFFF;

template <typename Number>
void append(QByteArray &to, Number number)
{
    const Number little = qToLittleEndian(number);
    to.append(reinterpret_cast<const char *>(&little), sizeof little);
}

void append16(QByteArray &to, size_t number) { append(to, static_cast<quint16>(number)); }

/** The information as a definition: in all forms a name, a NUL and figures. */
QByteArray bytesOf(const FontInformation &information, FontForm form)
{
    QByteArray bytes = information.name + '\0';
    for (const quint8 number : {information.above, information.below, information.modes})
        append(bytes, number);
    if (form == FontForm::Unifont) {
        append(bytes, information.encoding);
        append(bytes, information.embedding);
    }
    append(bytes, information.last);
    return bytes;
}

QString problemOf(const GlyphDefinition &glyph)
{
    if (glyph.name.contains('\0'))
        return QStringLiteral("glyph %1: a name holds no NUL").arg(codeText(glyph.code));
    if (glyph.bare && (!glyph.name.isEmpty() || glyph.program.contains('\0')))
        return QStringLiteral("glyph %1: a bare glyph has no name and no byte 0")
            .arg(codeText(glyph.code));
    if (glyph.name.size() + glyph.program.size() + (glyph.bare ? 0 : 1) > kLargestNumber)
        return QStringLiteral("glyph %1: longer than 65535 bytes").arg(codeText(glyph.code));
    return {};
}

/** What keeps the font information and the fields before it out of a file. */
QString problemOfHeader(const FontFile &font)
{
    if (font.prefix.size() != kPrefixSize)
        return QStringLiteral("the prefix has %1 bytes, not 11").arg(font.prefix.size());
    if (font.version.size() > versionRoom(font.form))
        return QStringLiteral("the version has %1 bytes, at most %2 in this form")
            .arg(font.version.size())
            .arg(versionRoom(font.form));
    if (font.form == FontForm::Unifont && !font.information)
        return QStringLiteral("a unifont needs its font information");
    if (font.information && font.information->name.contains('\0'))
        return QStringLiteral("the font's name holds a NUL");
    if (font.information && font.information->name.size() > longestName(font.form))
        return QStringLiteral("the font's name is too long");
    if (!font.unused.isEmpty() && font.unused.size() != 4)
        return QStringLiteral("there are 4 unused bytes, not %1").arg(font.unused.size());
    return {};
}

/** What a form has no place for. */
QString problemOfForm(const FontFile &font)
{
    const bool isBig = font.form == FontForm::Bigfont;
    const bool isUni = font.form == FontForm::Unifont;
    if (!isBig && !font.ranges.empty())
        return QStringLiteral("only a bigfont has ranges of lead bytes");
    const auto isPlaced = [](const GlyphDefinition &glyph) {
        return glyph.slot >= 0 || !glyph.gapBefore.isEmpty();
    };
    if (!isBig &&
        (!font.entries.empty() || std::any_of(font.glyphs.begin(), font.glyphs.end(), isPlaced)))
        return QStringLiteral("only a bigfont has slots and gaps");
    if (!isUni && (!font.unused.isEmpty() || font.countsInformation))
        return QStringLiteral("only a unifont has unused bytes and counts its information");
    return {};
}

QString problemOfCounts(const FontFile &font)
{
    const bool isOneMore =
        font.form == FontForm::Unifont ? font.countsInformation : font.information.has_value();
    const size_t records = font.glyphs.size() + font.entries.size() + (isOneMore ? 1 : 0);
    if (records > kLargestNumber)
        return QStringLiteral("%1 glyphs are too many, at most 65535").arg(records);
    if (font.ranges.size() > kLargestNumber)
        return QStringLiteral("%1 ranges are too many, at most 65535").arg(font.ranges.size());
    qint64 size = font.trailing.size();
    for (const GlyphDefinition &glyph : font.glyphs)
        size += glyph.gapBefore.size() + glyph.name.size() + glyph.program.size();
    return size > kLargestFile ? QStringLiteral("the file would be larger than 64 MiB") : QString();
}

QString problemOf(const FontFile &font)
{
    for (const auto check : {problemOfHeader, problemOfForm, problemOfCounts}) {
        QString problem = check(font);
        if (!problem.isEmpty())
            return problem;
    }
    for (const GlyphDefinition &glyph : font.glyphs) {
        QString problem = problemOf(glyph);
        if (!problem.isEmpty())
            return problem;
    }
    return {};
}

/** Everything up to the first count. */
QByteArray startOf(const FontFile &font)
{
    return font.prefix + keywordOf(font.form) +
           font.version.leftJustified(versionRoom(font.form), '\x1A');
}

QByteArray writeShapes(const FontFile &font)
{
    QByteArray file = startOf(font);
    QByteArray data;
    append16(file, font.glyphs.size() + (font.information ? 1 : 0));
    const auto appendRecord = [&](quint16 code, const QByteArray &definition) {
        append(file, code);
        append16(file, static_cast<size_t>(definition.size()));
        data += definition;
    };
    if (font.information)
        appendRecord(0, bytesOf(*font.information, font.form));
    for (const GlyphDefinition &glyph : font.glyphs)
        appendRecord(glyph.code, glyph.bytes());
    return file + data + font.trailing;
}

QByteArray writeUnifont(const FontFile &font)
{
    const QByteArray information = bytesOf(*font.information, font.form);
    QByteArray file = startOf(font);
    append16(file, font.glyphs.size() + (font.countsInformation ? 1 : 0));
    if (font.unused.isEmpty()) {
        append16(file, 0);
        append16(file, static_cast<size_t>(information.size()));
    }
    file += font.unused + information;
    for (const GlyphDefinition &glyph : font.glyphs) {
        const QByteArray definition = glyph.bytes();
        append(file, glyph.code);
        append16(file, static_cast<size_t>(definition.size()));
        file += definition;
    }
    return file + font.trailing;
}

QByteArray writeBigfont(const FontFile &font, const std::vector<int> &slotOfGlyph)
{
    QByteArray file = startOf(font);
    const size_t count = font.glyphs.size() + font.entries.size() + (font.information ? 1 : 0);
    append16(file, count);
    append16(file, font.ranges.size());
    for (const LeadByteRange &range : font.ranges) {
        append(file, range.first);
        append(file, range.last);
    }
    const qint64 dataStart = file.size() + 8 * static_cast<qint64>(count);
    std::vector<IndexEntry> index(count);
    for (const IndexEntry &entry : font.entries)
        index[static_cast<size_t>(entry.slot)] = entry;
    QByteArray data;
    const auto place = [&](int slot, quint16 code, const QByteArray &definition) {
        index[static_cast<size_t>(slot)] = {slot, code, static_cast<quint16>(definition.size()),
                                            static_cast<quint32>(dataStart + data.size())};
        data += definition;
    };
    if (font.information)
        place(0, 0, bytesOf(*font.information, font.form));
    for (size_t i = 0; i < font.glyphs.size(); ++i) {
        data += font.glyphs[i].gapBefore;
        place(slotOfGlyph[i], font.glyphs[i].code, font.glyphs[i].bytes());
    }
    for (const IndexEntry &entry : index) {
        append(file, entry.code);
        append(file, entry.length);
        append(file, entry.offset);
    }
    return file + data + font.trailing;
}

/** Notes that a slot is taken; a sentence if it cannot be. */
QString take(std::vector<bool> &taken, int slot)
{
    if (slot < 0 || static_cast<size_t>(slot) >= taken.size())
        return QStringLiteral("slot %1 is outside the index of %2 records")
            .arg(slot)
            .arg(taken.size());
    if (taken[static_cast<size_t>(slot)])
        return QStringLiteral("slot %1 is taken twice").arg(slot);
    taken[static_cast<size_t>(slot)] = true;
    return {};
}

/** Takes the slots that are told, those of the entries and of the glyphs with one. */
QString takeTold(std::vector<bool> &taken, const FontFile &font)
{
    QString problem = font.information ? take(taken, 0) : QString();
    for (size_t i = 0; problem.isEmpty() && i < font.entries.size(); ++i)
        problem = take(taken, font.entries[i].slot);
    for (size_t i = 0; problem.isEmpty() && i < font.glyphs.size(); ++i) {
        if (font.glyphs[i].slot >= 0)
            problem = take(taken, font.glyphs[i].slot);
    }
    return problem;
}

} // namespace

QByteArray GlyphDefinition::bytes() const { return bare ? program : name + '\0' + program; }

bool FontInformation::operator==(const FontInformation &other) const
{
    return std::tie(name, above, below, modes, encoding, embedding, last) ==
           std::tie(other.name, other.above, other.below, other.modes, other.encoding,
                    other.embedding, other.last);
}

bool GlyphDefinition::operator==(const GlyphDefinition &other) const
{
    return std::tie(code, name, program, bare, slot, gapBefore) ==
           std::tie(other.code, other.name, other.program, other.bare, other.slot, other.gapBefore);
}

bool LeadByteRange::operator==(const LeadByteRange &other) const
{
    return first == other.first && last == other.last;
}

bool IndexEntry::operator==(const IndexEntry &other) const
{
    return std::tie(slot, code, length, offset) ==
           std::tie(other.slot, other.code, other.length, other.offset);
}

bool FontFile::operator==(const FontFile &other) const
{
    return std::tie(form, information, ranges, glyphs, prefix, version, entries, trailing, unused,
                    countsInformation) == std::tie(other.form, other.information, other.ranges,
                                                   other.glyphs, other.prefix, other.version,
                                                   other.entries, other.trailing, other.unused,
                                                   other.countsInformation);
}

QByteArray keywordOf(FontForm form)
{
    switch (form) {
    case FontForm::Shapes:
        return QByteArrayLiteral("shapes");
    case FontForm::Bigfont:
        return QByteArrayLiteral("bigfont");
    case FontForm::Unifont:
        return QByteArrayLiteral("unifont");
    }
    return {};
}

int longestName(FontForm form)
{
    FontInformation nameless;
    return kLargestNumber - bytesOf(nameless, form).size();
}

int versionRoom(FontForm form)
{
    switch (form) {
    case FontForm::Shapes:
        return 11;
    case FontForm::Bigfont:
        return 9;
    case FontForm::Unifont:
        return 7;
    }
    return 0;
}

std::optional<std::vector<int>> resolveSlots(const FontFile &font, QString *error)
{
    const size_t count = font.glyphs.size() + font.entries.size() + (font.information ? 1 : 0);
    std::vector<bool> taken(count);
    QString problem = takeTold(taken, font);
    std::vector<int> result;
    size_t next = font.information ? 1 : 0;
    for (size_t i = 0; problem.isEmpty() && i < font.glyphs.size(); ++i) {
        int slot = font.glyphs[i].slot;
        if (slot < 0) {
            while (next < count && taken[next])
                ++next;
            slot = static_cast<int>(next);
            problem = take(taken, slot);
        }
        result.push_back(slot);
        next = static_cast<size_t>(slot) + 1;
    }
    if (problem.isEmpty())
        return result;
    if (error)
        *error = problem;
    return std::nullopt;
}

QByteArray writeFont(const FontFile &font, QString *error)
{
    QString problem = problemOf(font);
    if (problem.isEmpty() && font.form == FontForm::Bigfont) {
        const auto slotOfGlyph = resolveSlots(font, &problem);
        if (slotOfGlyph)
            return writeBigfont(font, *slotOfGlyph);
    }
    if (problem.isEmpty())
        return font.form == FontForm::Unifont ? writeUnifont(font) : writeShapes(font);
    if (error)
        *error = problem;
    return {};
}

} // namespace fontkit
