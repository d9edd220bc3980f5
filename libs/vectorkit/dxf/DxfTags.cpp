#include <vectorkit/dxf/DxfTags_p.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QtEndian>

#include <charconv>
#include <cmath>
#include <cstring>

namespace vectorkit::dxf {

namespace {

constexpr std::string_view kBinaryMark("AutoCAD Binary DXF\r\n\x1a\0", 22);

/** How a value is kept in binary data. */
enum class ValueKind : quint8 { Text, Double, Int16, Int32, Int64, Byte, Chunk };

struct CodeRange
{
    int last;
    ValueKind kind;
};

/** From the code after the last row's on. */
constexpr CodeRange kCodeRanges[] = {
    {9, ValueKind::Text},     {59, ValueKind::Double},   {79, ValueKind::Int16},
    {99, ValueKind::Int32},   {109, ValueKind::Text},    {149, ValueKind::Double},
    {159, ValueKind::Text},   {169, ValueKind::Int64},   {179, ValueKind::Int16},
    {209, ValueKind::Text},   {239, ValueKind::Double},  {269, ValueKind::Text},
    {289, ValueKind::Int16},  {299, ValueKind::Byte},    {309, ValueKind::Text},
    {319, ValueKind::Chunk},  {369, ValueKind::Text},    {389, ValueKind::Int16},
    {399, ValueKind::Text},   {409, ValueKind::Int16},   {419, ValueKind::Text},
    {429, ValueKind::Int32},  {439, ValueKind::Text},    {459, ValueKind::Int32},
    {469, ValueKind::Double}, {1003, ValueKind::Text},   {1004, ValueKind::Chunk},
    {1009, ValueKind::Text},  {1059, ValueKind::Double}, {1070, ValueKind::Int16},
    {1071, ValueKind::Int32},
};

ValueKind kindOf(int code)
{
    for (const CodeRange &range : kCodeRanges) {
        if (code <= range.last)
            return range.kind;
    }
    return ValueKind::Text;
}

std::size_t sizeOf(ValueKind kind)
{
    switch (kind) {
    case ValueKind::Byte:
        return 1;
    case ValueKind::Int16:
        return 2;
    case ValueKind::Int32:
        return 4;
    default:
        return 8;
    }
}

bool isBlank(char letter) { return letter == ' ' || letter == '\t' || letter == '\r'; }

template <class Number>
bool readText(std::string_view text, Number *number)
{
    std::string_view digits = trimmed(text);
    if (digits.size() > 1 && digits.front() == '+' && digits[1] != '-')
        digits.remove_prefix(1);
    Number value{};
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (error != std::errc() || end != digits.data() + digits.size())
        return false;
    *number = value;
    return true;
}

template <class Number>
Number littleEndian(std::string_view value)
{
    return qFromLittleEndian<Number>(value.data());
}

bool readWhole(const Tag &tag, qint64 *number)
{
    switch (kindOf(tag.code)) {
    case ValueKind::Byte:
        *number = static_cast<unsigned char>(tag.value.front());
        return true;
    case ValueKind::Int16:
        *number = littleEndian<qint16>(tag.value);
        return true;
    case ValueKind::Int32:
        *number = littleEndian<qint32>(tag.value);
        return true;
    case ValueKind::Int64:
        *number = littleEndian<qint64>(tag.value);
        return true;
    default:
        return false;
    }
}

/** Handles, owners and subclasses: nothing that is drawn hangs on them. */
bool isBookkeeping(int code)
{
    return code == 5 || code == 100 || code == 102 || code == 330 || code == 360 || code > 1000;
}

/** Entities and entries are named by letters, digits and a few signs. */
bool isTypeName(std::string_view text)
{
    bool hasLetter = false;
    for (const char letter : text) {
        const bool isLetter = (letter >= 'A' && letter <= 'Z') || (letter >= 'a' && letter <= 'z');
        const bool isOther = (letter >= '0' && letter <= '9') || letter == '_' || letter == '-';
        if (!isLetter && !isOther)
            return false;
        hasLetter = hasLetter || isLetter;
    }
    return hasLetter;
}

} // namespace

std::string_view trimmed(std::string_view text)
{
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

bool Tag::read(double *number) const
{
    double read = 0.0;
    if (!isBinary) {
        if (!readText(value, &read))
            return false;
    } else if (kindOf(code) == ValueKind::Double) {
        read = littleEndian<double>(value);
    } else {
        qint64 whole = 0;
        if (!readWhole(*this, &whole))
            return false;
        read = static_cast<double>(whole);
    }
    if (!std::isfinite(read))
        return false;
    *number = read;
    return true;
}

bool Tag::read(int *number) const
{
    if (!isBinary && readText(value, number))
        return true;
    double decimal = 0.0;
    if (!read(&decimal) || decimal != std::floor(decimal) || std::abs(decimal) > 2147483647.0)
        return false;
    *number = static_cast<int>(decimal);
    return true;
}

const Tag *Record::find(int code) const
{
    for (const Tag &tag : tags) {
        if (tag.code == code)
            return &tag;
    }
    return nullptr;
}

std::string_view Record::text(int code) const
{
    const Tag *tag = find(code);
    return tag ? tag->value : std::string_view();
}

double Record::number(int code, double fallback, bool *isSound) const
{
    const Tag *tag = find(code);
    if (tag && !tag->read(&fallback))
        *isSound = false;
    return fallback;
}

int Record::integer(int code, int fallback, bool *isSound) const
{
    const Tag *tag = find(code);
    if (tag && !tag->read(&fallback))
        *isSound = false;
    return fallback;
}

int Record::integer(int code, int fallback) const
{
    bool isSound = true;
    return integer(code, fallback, &isSound);
}

TagReader::TagReader(std::string_view drawing) : m_bytes(drawing)
{
    if (m_bytes.substr(0, kBinaryMark.size()) == kBinaryMark) {
        m_binary = true;
        m_at = kBinaryMark.size();
        m_hasWideCodes = m_at + 1 < m_bytes.size() && m_bytes[m_at + 1] == '\0';
        return;
    }
    if (m_bytes.substr(0, 3) == "\xef\xbb\xbf")
        m_at = 3;
    if (m_bytes.find('\n') == std::string_view::npos)
        m_lineEnd = '\r';
}

double TagReader::doneShare() const
{
    return m_bytes.empty() ? 1.0 : static_cast<double>(m_at) / static_cast<double>(m_bytes.size());
}

std::string_view TagReader::nextLine()
{
    const void *end = std::memchr(m_bytes.data() + m_at, m_lineEnd, m_bytes.size() - m_at);
    const std::size_t stop =
        end ? static_cast<std::size_t>(static_cast<const char *>(end) - m_bytes.data())
            : m_bytes.size();
    std::string_view text = m_bytes.substr(m_at, stop - m_at);
    while (!text.empty() && text.back() == '\r')
        text.remove_suffix(1);
    m_at = end ? stop + 1 : stop;
    ++m_line;
    return text;
}

TagReader::Found TagReader::nextText(Tag *tag)
{
    if (m_at >= m_bytes.size())
        return Found::End;
    const std::string_view code = nextLine();
    if (!readText(code, &tag->code)) {
        // Blank lines and the mark of old systems may follow the last tag.
        if (trimmed(code).empty() || code.front() == '\x1a') {
            if (m_bytes.find_first_not_of(" \t\r\n\x1a", m_at) == std::string_view::npos) {
                m_at = m_bytes.size();
                return Found::End;
            }
        }
        return Found::Damage;
    }
    // A last 0 still says that what stands before it is whole.
    if (m_at >= m_bytes.size() && tag->code != 0)
        return Found::End;
    tag->value = m_at < m_bytes.size() ? nextLine() : std::string_view();
    tag->isBinary = false;
    return Found::Tag;
}

TagReader::Found TagReader::nextBinary(Tag *tag)
{
    if (m_at >= m_bytes.size())
        return Found::End;
    const auto cutHere = [this] {
        m_at = m_bytes.size();
        return Found::End;
    };
    const bool isWide = m_hasWideCodes || m_bytes[m_at] == '\xff';
    const std::size_t codeAt = m_at + (isWide && !m_hasWideCodes ? 1 : 0);
    const std::size_t valueAt = codeAt + (isWide ? 2 : 1);
    if (valueAt > m_bytes.size())
        return cutHere();
    tag->code = isWide ? littleEndian<qint16>(m_bytes.substr(codeAt))
                       : static_cast<unsigned char>(m_bytes[codeAt]);
    const ValueKind kind = kindOf(tag->code);
    std::size_t size = sizeOf(kind);
    std::size_t skipped = 0;
    if (kind == ValueKind::Text) {
        const std::size_t end = m_bytes.find('\0', valueAt);
        if (end == std::string_view::npos)
            return cutHere();
        size = end - valueAt;
        skipped = 1;
    } else if (kind == ValueKind::Chunk) {
        if (valueAt >= m_bytes.size())
            return cutHere();
        size = 1 + static_cast<std::size_t>(static_cast<unsigned char>(m_bytes[valueAt]));
    }
    if (valueAt + size > m_bytes.size())
        return cutHere();
    tag->value = m_bytes.substr(valueAt, size);
    tag->isBinary = true;
    m_at = valueAt + size + skipped;
    return tag->code < 0 && tag->code != -666 ? Found::Damage : Found::Tag;
}

TagReader::Found TagReader::next(Tag *tag) { return m_binary ? nextBinary(tag) : nextText(tag); }

bool TagReader::nextInRecord(Tag *tag)
{
    if (m_hasPending)
        return false;
    const Place before{m_at, m_line};
    const Found found = next(tag);
    if (found == Found::Tag && tag->code != 0)
        return true;
    const bool isType =
        found == Found::Tag && (m_at >= m_bytes.size() || isTypeName(trimmed(tag->value)));
    if (isType) {
        m_pending = *tag;
        m_pendingPlace = before;
        m_hasPending = true;
    } else if (found != Found::End) {
        m_sawDamage = true;
        if (found == Found::Tag) { // codes and values have changed places
            m_at = before.at;
            m_line = before.line;
        }
        findNextRecord();
    }
    return false;
}

/** After something that is no tag: on to the next 0 with the name of an entity after it. */
void TagReader::findNextRecord()
{
    if (m_binary) {
        m_at = m_bytes.size(); // where one value is wrong, the next can't be found
        return;
    }
    Place before{m_at, m_line};
    bool isZero = false;
    while (m_at < m_bytes.size()) {
        const Place here{m_at, m_line};
        const std::string_view text = trimmed(nextLine());
        if (isZero && isTypeName(text)) {
            m_pending.code = 0;
            m_pending.isBinary = false;
            m_pending.value = text;
            m_pendingPlace = before;
            m_hasPending = true;
            return;
        }
        isZero = text == "0";
        before = here;
    }
}

std::string_view TagReader::peekType()
{
    Tag tag;
    while (!m_hasPending && nextInRecord(&tag)) {
    }
    return m_hasPending ? trimmed(m_pending.value) : std::string_view();
}

bool TagReader::readRecord(Record *record)
{
    record->type = peekType();
    record->tags.clear();
    record->parts.clear();
    if (!m_hasPending)
        return false;
    record->position = m_binary ? m_pendingPlace.at : m_pendingPlace.line;
    m_hasPending = false;
    m_sawDamage = false;
    Tag tag;
    bool isWanted = true;
    while (nextInRecord(&tag)) {
        // What an entity embeds has codes of its own, and programs add data of theirs.
        isWanted = isWanted && tag.code != 101;
        if (isWanted && !isBookkeeping(tag.code))
            record->tags.push_back(tag);
    }
    record->isDamaged = m_sawDamage;
    return true;
}

bool TagReader::readEntity(Record *record)
{
    if (!readRecord(record))
        return false;
    const std::string_view part = record->type == "POLYLINE" ? "VERTEX"
                                  : record->type == "INSERT" ? "ATTRIB"
                                                             : "";
    if (part.empty())
        return true;
    bool isFirst = true;
    while (peekType() == part) {
        record->parts.emplace_back();
        readRecord(&record->parts.back());
        isFirst = false;
    }
    Record end;
    if ((!isFirst || record->type == "POLYLINE") && peekType() == "SEQEND")
        readRecord(&end);
    return true;
}

void TagReader::skipRecord()
{
    peekType();
    m_hasPending = false;
    Tag tag;
    while (nextInRecord(&tag)) {
    }
}

TagReader::Place TagReader::place()
{
    peekType();
    return m_hasPending ? m_pendingPlace : Place{m_at, m_line};
}

void TagReader::goTo(const Place &place)
{
    m_at = place.at;
    m_line = place.line;
    m_hasPending = false;
}

QString TagReader::where(std::size_t position) const
{
    const QString words = m_binary ? QCoreApplication::translate("vectorkit", "byte %1")
                                   : QCoreApplication::translate("vectorkit", "line %1");
    return words.arg(position);
}

} // namespace vectorkit::dxf
