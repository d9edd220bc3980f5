#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <optional>
#include <vector>

/** Stroke fonts: what is in a file, and making one from text or from outline data. */
namespace fontkit {

/** Limit: bytes of a font file, several times those of any font there is. */
constexpr int kLargestFile = 64 << 20;

/** The three forms of a font file. */
enum class FontForm {
    Shapes,  ///< codes of one byte to a text's byte
    Bigfont, ///< codes of one or two bytes; a lead byte starts a code of two
    Unifont  ///< codes of 16 bits
};

/** What a font says about itself, in front of its glyphs. */
struct FontInformation
{
    QByteArray name;      ///< without a NUL
    quint8 above = 0;     ///< ascender in font units: what a text's height is measured by
    quint8 below = 0;     ///< descender in font units
    quint8 modes = 0;     ///< 0 for horizontal text only, 2 for vertical text as well
    quint8 encoding = 0;  ///< only in a "unifont"
    quint8 embedding = 0; ///< only in a "unifont"
    quint8 last = 0;      ///< what stands where a glyph has its end

    bool operator==(const FontInformation &other) const;
};

/** One glyph: its code and what draws it. */
struct GlyphDefinition
{
    quint16 code = 0;   ///< of a character of two bytes: the lead byte high
    QByteArray name;    ///< without a NUL
    QByteArray program; ///< code bytes as `GlyphProgram` makes them, with the 0 that ends them
    bool bare = false;  ///< no NUL, hence no name, stands before a program without any byte 0

    /**
     * Only in a "bigfont": place in the index, -1 for the next free one behind that of the glyph
     * before. The font information has place 0.
     */
    int slot = -1;
    QByteArray gapBefore; ///< only in a "bigfont": bytes of no definition that stand before it

    /** Name, NUL and code bytes, as they stand in a file. */
    QByteArray bytes() const;

    bool operator==(const GlyphDefinition &other) const;
};

/** Lead bytes of a "bigfont", both ends included. What stands in the high bytes has no meaning. */
struct LeadByteRange
{
    quint16 first = 0;
    quint16 last = 0;

    bool operator==(const LeadByteRange &other) const;
};

/** An index record of a "bigfont" that has no definition of its own: as a rule an empty one. */
struct IndexEntry
{
    int slot = 0; ///< place in the index
    quint16 code = 0;
    quint16 length = 0;
    quint32 offset = 0; ///< from the start of the file

    bool operator==(const IndexEntry &other) const;
};

/**
 * A font as its file holds it, byte for byte.
 *
 * Set the form, the information and the glyphs; a "bigfont" needs its ranges too. All the rest says
 * how a file of foreign make differs from what `writeFont` does by itself.
 */
struct FontFile
{
    FontForm form = FontForm::Shapes;

    /** In front of the glyphs. A "shapes" file without it is a plain shape file. */
    std::optional<FontInformation> information = FontInformation();

    std::vector<LeadByteRange> ranges;   ///< only in a "bigfont"
    std::vector<GlyphDefinition> glyphs; ///< in the order in which their definitions stand

    QByteArray prefix = QByteArrayLiteral("ZT font 1.0"); ///< before the keyword: 11 bytes
    QByteArray version;              ///< behind the keyword; filled up with bytes 1A
    std::vector<IndexEntry> entries; ///< only in a "bigfont"
    QByteArray trailing;             ///< behind the last definition

    /**
     * Only in a "unifont": the four bytes behind the count; empty for a 0 and the length of the
     * font information, as a record begins.
     */
    QByteArray unused;
    bool countsInformation = false; ///< only in a "unifont": the count has one for the information

    bool operator==(const FontFile &other) const;
};

/** The keyword of a form: "shapes", "bigfont" or "unifont". */
QByteArray keywordOf(FontForm form);

/** Bytes between the keyword and the first field of a form. */
int versionRoom(FontForm form);

/** Bytes of a font's name at most. */
int longestName(FontForm form);

/**
 * The slot of every glyph of a "bigfont", in the order of the glyphs.
 *
 * Failure: no value and a sentence in `error` when a slot is taken twice or one stays without a
 * record.
 */
std::optional<std::vector<int>> resolveSlots(const FontFile &font, QString *error);

/**
 * The bytes of a font file.
 *
 * Failure: an empty array and a sentence in `error` (may be null): more records than a file can
 * count, a definition longer than 65,535 bytes, a NUL in a name, a prefix that is not 11 bytes
 * long, slots that do not fit.
 */
QByteArray writeFont(const FontFile &font, QString *error = nullptr);

} // namespace fontkit
