#include "FontReader.h"

#include "CodeText_p.h"

#include <QtCore/QtEndian>

#include <algorithm>

namespace fontkit {

namespace {

constexpr int kKeywordOffset = 11;
constexpr int kFiguresSize = 4;        // behind the name, in "shapes" and "bigfont"
constexpr int kUnifontFiguresSize = 6; // behind the name, in a "unifont"

/** A place in the file and what is wrong there. Thrown and caught in this source. */
struct Damage
{
    qint64 offset;
    QString what;
};

/** Takes a file's bytes from front to back. */
class Cursor
{
public:
    explicit Cursor(const QByteArray &image) : m_bytes(image) {}

    int position() const { return m_at; }
    int left() const { return m_bytes.size() - m_at; }

    QByteArray take(qint64 size, const QString &what)
    {
        if (size > left())
            throw Damage{m_at, QStringLiteral("the file ends within %1").arg(what)};
        QByteArray taken = m_bytes.mid(m_at, static_cast<int>(size));
        m_at += taken.size();
        return taken;
    }

    quint16 take16(const QString &what)
    {
        const QByteArray taken = take(2, what);
        return qFromLittleEndian<quint16>(taken.constData());
    }

    quint32 take32(const QString &what)
    {
        const QByteArray taken = take(4, what);
        return qFromLittleEndian<quint32>(taken.constData());
    }

    /** Bytes up to the next NUL, and past it. */
    QByteArray takeText(const QString &what)
    {
        const int end = m_bytes.indexOf('\0', m_at);
        if (end < 0)
            throw Damage{m_at, QStringLiteral("%1 has no end").arg(what)};
        QByteArray text = m_bytes.mid(m_at, end - m_at);
        m_at = end + 1;
        return text;
    }

    QByteArray takeRest() { return take(left(), {}); }

private:
    const QByteArray &m_bytes;
    int m_at = 0;
};

quint8 byteAt(const QByteArray &bytes, int index) { return static_cast<quint8>(bytes[index]); }

FontForm formOf(const QByteArray &bytes)
{
    for (const FontForm form : {FontForm::Unifont, FontForm::Bigfont, FontForm::Shapes}) {
        const QByteArray keyword = keywordOf(form);
        if (bytes.mid(kKeywordOffset, keyword.size()) == keyword)
            return form;
    }
    throw Damage{kKeywordOffset, QStringLiteral("neither shapes, bigfont nor unifont stands here")};
}

GlyphDefinition glyphOf(quint16 code, const QByteArray &definition)
{
    GlyphDefinition glyph;
    glyph.code = code;
    const int nameEnd = definition.indexOf('\0');
    glyph.bare = nameEnd < 0;
    glyph.name = definition.left(std::max(nameEnd, 0));
    glyph.program = definition.mid(nameEnd + 1);
    return glyph;
}

QString glyphText(quint16 code) { return QStringLiteral("glyph ") + codeText(code); }

/** The font information in a glyph's dress; no value where it is an ordinary glyph. */
std::optional<FontInformation> informationOf(const GlyphDefinition &glyph)
{
    if (glyph.code != 0 || glyph.bare || glyph.program.size() != kFiguresSize)
        return std::nullopt;
    FontInformation information;
    information.name = glyph.name;
    information.above = byteAt(glyph.program, 0);
    information.below = byteAt(glyph.program, 1);
    information.modes = byteAt(glyph.program, 2);
    information.last = byteAt(glyph.program, 3);
    return information;
}

/** Makes the font information of the first glyph, where it is that. */
void splitInformation(FontFile &font)
{
    font.information = font.glyphs.empty() ? std::nullopt : informationOf(font.glyphs.front());
    if (font.information)
        font.glyphs.erase(font.glyphs.begin());
}

void readShapes(FontFile &font, Cursor &file)
{
    struct Record
    {
        quint16 code;
        quint16 length;
    };
    const int count = file.take16(QStringLiteral("the count of glyphs"));
    const QString what = QStringLiteral("the index of %1 glyphs").arg(count);
    std::vector<Record> index;
    for (int i = 0; i < count; ++i) {
        const quint16 code = file.take16(what);
        index.push_back({code, file.take16(what)});
    }
    for (const Record &record : index)
        font.glyphs.push_back(
            glyphOf(record.code, file.take(record.length, glyphText(record.code))));
    splitInformation(font);
    font.trailing = file.takeRest();
}

FontInformation readUnifontInformation(Cursor &file)
{
    FontInformation information;
    const int start = file.position();
    information.name = file.takeText(QStringLiteral("the font's name"));
    if (information.name.size() > longestName(FontForm::Unifont))
        throw Damage{start, QStringLiteral("the font's name is %1 bytes long, at most %2")
                                .arg(information.name.size())
                                .arg(longestName(FontForm::Unifont))};
    const QByteArray figures =
        file.take(kUnifontFiguresSize, QStringLiteral("the font information"));
    information.above = byteAt(figures, 0);
    information.below = byteAt(figures, 1);
    information.modes = byteAt(figures, 2);
    information.encoding = byteAt(figures, 3);
    information.embedding = byteAt(figures, 4);
    information.last = byteAt(figures, 5);
    return information;
}

/** The unused bytes as `writeFont` makes them by itself. */
QByteArray usualUnused(const FontInformation &information)
{
    const int size = information.name.size() + 1 + kUnifontFiguresSize;
    QByteArray bytes(4, '\0');
    qToLittleEndian(static_cast<quint16>(size), bytes.data() + 2);
    return bytes;
}

/**
 * Whether the count has one for the font information: files of some makes count it, too. Nothing
 * but the few bytes of an end mark can then stand where the last record would.
 */
bool isCountOfInformation(const FontFile &font, const Cursor &file, size_t missing)
{
    return missing == 1 && file.left() < 4 && font.unused.isEmpty();
}

void readUnifont(FontFile &font, Cursor &file)
{
    const size_t count = file.take16(QStringLiteral("the count of glyphs"));
    font.unused = file.take(4, QStringLiteral("the header"));
    font.information = readUnifontInformation(file);
    if (font.unused == usualUnused(*font.information))
        font.unused.clear();
    while (font.glyphs.size() < count) {
        font.countsInformation = isCountOfInformation(font, file, count - font.glyphs.size());
        if (font.countsInformation)
            break;
        const QString what =
            QStringLiteral("record %1 of %2").arg(font.glyphs.size() + 1).arg(count);
        const quint16 code = file.take16(what);
        const quint16 length = file.take16(what);
        font.glyphs.push_back(glyphOf(code, file.take(length, glyphText(code))));
    }
    font.trailing = file.takeRest();
}

void readRanges(FontFile &font, Cursor &file, int count)
{
    const QString what = QStringLiteral("the %1 lead-byte ranges").arg(count);
    for (int i = 0; i < count; ++i) {
        const quint16 first = file.take16(what);
        font.ranges.push_back({first, file.take16(what)});
    }
}

/** A definition may lie anywhere, yet not outside the file. */
void demandInside(const std::vector<IndexEntry> &index, const Cursor &file)
{
    constexpr int kRecordSize = 8;
    constexpr int kOffsetInRecord = 4;
    const int size = file.position() + file.left();
    const int indexStart = file.position() - kRecordSize * static_cast<int>(index.size());
    for (const IndexEntry &entry : index) {
        const qint64 end = static_cast<qint64>(entry.offset) + entry.length;
        if (entry.length > 0 && end > size)
            throw Damage{indexStart + kRecordSize * entry.slot + kOffsetInRecord,
                         QStringLiteral("%1 lies at %2 to %3, the file has %4 bytes")
                             .arg(glyphText(entry.code))
                             .arg(entry.offset)
                             .arg(end)
                             .arg(size)};
    }
}

std::vector<IndexEntry> readIndex(FontFile &font, Cursor &file)
{
    const int count = file.take16(QStringLiteral("the count of glyphs"));
    readRanges(font, file, file.take16(QStringLiteral("the count of lead-byte ranges")));
    const QString what = QStringLiteral("the index of %1 glyphs").arg(count);
    std::vector<IndexEntry> index;
    for (int i = 0; i < count; ++i) {
        IndexEntry entry;
        entry.slot = i;
        entry.code = file.take16(what);
        entry.length = file.take16(what);
        entry.offset = file.take32(what);
        index.push_back(entry);
    }
    demandInside(index, file);
    return index;
}

/** Takes slots away that a glyph has anyway, coming right behind the one before. */
void forgetUsualSlots(FontFile &font, size_t count)
{
    std::vector<bool> taken(count);
    for (const IndexEntry &entry : font.entries)
        taken[static_cast<size_t>(entry.slot)] = true;
    size_t next = font.information ? 1 : 0;
    for (GlyphDefinition &glyph : font.glyphs) {
        while (next < count && taken[next])
            ++next;
        const auto slot = static_cast<size_t>(glyph.slot);
        if (slot == next)
            glyph.slot = -1;
        next = slot + 1;
    }
}

bool isEarlier(const IndexEntry &one, const IndexEntry &other)
{
    return one.offset != other.offset ? one.offset < other.offset : one.slot < other.slot;
}

bool hasEarlierSlot(const IndexEntry &one, const IndexEntry &other)
{
    return one.slot < other.slot;
}

/** Every byte of the data goes to the first definition that begins at or before it, or to a gap. */
void readBigfont(FontFile &font, Cursor &file)
{
    std::vector<IndexEntry> index = readIndex(font, file);
    std::sort(index.begin(), index.end(), isEarlier);
    for (const IndexEntry &entry : index) {
        if (entry.length == 0 || entry.offset < static_cast<quint32>(file.position())) {
            font.entries.push_back(entry);
            continue;
        }
        const QByteArray gap = file.take(entry.offset - file.position(), glyphText(entry.code));
        font.glyphs.push_back(glyphOf(entry.code, file.take(entry.length, glyphText(entry.code))));
        font.glyphs.back().gapBefore = gap;
        font.glyphs.back().slot = entry.slot;
    }
    std::sort(font.entries.begin(), font.entries.end(), hasEarlierSlot);
    font.information = std::nullopt;
    if (!font.glyphs.empty() && font.glyphs[0].slot == 0 && font.glyphs[0].gapBefore.isEmpty())
        splitInformation(font);
    forgetUsualSlots(font, index.size());
    font.trailing = file.takeRest();
}

QByteArray withoutFilling(QByteArray version)
{
    while (version.endsWith('\x1A'))
        version.chop(1);
    return version;
}

FontFile readForm(const QByteArray &bytes)
{
    FontFile font;
    font.form = formOf(bytes);
    Cursor file(bytes);
    font.prefix = file.take(kKeywordOffset, {});
    file.take(keywordOf(font.form).size(), {});
    font.version = withoutFilling(file.take(versionRoom(font.form), QStringLiteral("the header")));
    if (font.form == FontForm::Unifont)
        readUnifont(font, file);
    else if (font.form == FontForm::Bigfont)
        readBigfont(font, file);
    else
        readShapes(font, file);
    return font;
}

} // namespace

std::optional<FontFile> readFont(const QByteArray &bytes, QString *error)
{
    QString problem;
    if (bytes.size() > kLargestFile) {
        problem = QStringLiteral("the file is larger than 64 MiB");
    } else {
        try {
            return readForm(bytes);
        } catch (const Damage &damage) {
            problem = QStringLiteral("offset %1: %2").arg(damage.offset).arg(damage.what);
        }
    }
    if (error)
        *error = problem;
    return std::nullopt;
}

} // namespace fontkit
