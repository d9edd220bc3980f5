#include <ZTDrawEngineLib/shx/ZTShxFontFile_p.h>
#include <ZTDrawEngineLib/shx/ZTShxParser.h>

#include <cstring>

// The font file: which form it has, where its index stands, and its measures.

using ztshx::readU16;
using ztshx::readU32;

namespace {

constexpr int kKeyword = 11;

// "shapes": place of the count and of the index, bytes of a record.
constexpr int kShapesCount = 28;
constexpr int kShapesIndex = 30;
constexpr int kShortRecordBytes = 4;

// "bigfont": place of the counts and of the ranges, bytes of a range and of a record.
constexpr int kBigfontCount = 27;
constexpr int kBigfontRangeCount = 29;
constexpr int kBigfontRanges = 31;
constexpr int kRangeBytes = 4;
constexpr int kBigRecordBytes = 8;

// "unifont": place of the count and of the description, bytes of the measures after it.
constexpr int kUnifontCount = 25;
constexpr int kUnifontText = 31;
constexpr int kUnifontMeasures = 6;

bool hasKeyword(const std::vector<unsigned char> &image, const char *keyword)
{
    const std::size_t length = std::strlen(keyword);
    return image.size() >= kKeyword + length &&
           std::memcmp(image.data() + kKeyword, keyword, length) == 0;
}

/** The byte at an offset that the file gave, 0 outside the image. */
unsigned char byteAt(const std::vector<unsigned char> &image, qint64 offset)
{
    const bool inside = offset >= 0 && offset < static_cast<qint64>(image.size());
    return inside ? image[static_cast<std::size_t>(offset)] : 0;
}

} // namespace

ZTShxParser::ZTShxParser() = default;

ZTShxParser::ZTShxParser(const char *path) { init(path); }

ZTShxParser::ZTShxParser(const ZTShxParser &) = default;
ZTShxParser &ZTShxParser::operator=(const ZTShxParser &) = default;
ZTShxParser::~ZTShxParser() = default;

void ZTShxParser::init(const char *path)
{
    m_scale = 1.0;
    m_textHeight = 1.0;
    m_below = 0;
    m_penDown = true;
    m_x = 0.0;
    m_y = 0.0;
    m_index = nullptr;
    m_nextEntry = nullptr;
    m_type = SHX_TYPE::SHX_NONE;
    m_buffer = nullptr;
    m_bufferEnd = nullptr;
    m_file.reset();
    if (path == nullptr || *path == '\0')
        return;
    m_file = ZTShxFontFile::read(path);
    if (!m_file)
        return;

    const std::vector<unsigned char> &image = m_file->bytes();
    m_buffer = image.data();
    m_bufferEnd = m_buffer + image.size();
    m_filePath = path;
    if (hasKeyword(image, "unifont"))
        initUnifont();
    else if (hasKeyword(image, "bigfont"))
        initBigfont();
    else if (hasKeyword(image, "shapes"))
        initShapes();
}

void ZTShxParser::cleanup()
{
    if (m_filePath.empty())
        return;
    m_file.reset();
    m_buffer = nullptr;
    m_bufferEnd = nullptr;
    m_index = nullptr;
    m_nextEntry = nullptr;
}

SHX_TYPE ZTShxParser::GetType() { return m_type; }

void ZTShxParser::initShapes()
{
    const std::vector<unsigned char> &image = m_file->bytes();
    if (m_bufferEnd - m_buffer < kShapesIndex + kShortRecordBytes)
        return;
    m_glyphCount = static_cast<qint32>(readU16(m_buffer + kShapesCount));
    m_index = m_buffer + kShapesIndex;
    if (readU16(m_index) != 0) {
        m_type = SHX_TYPE::SHX_SHAPE_ONLY;
        m_above = 4;
        return;
    }
    m_type = SHX_TYPE::SHX_SHAPES;
    const qint64 dataArea = kShapesIndex + kShortRecordBytes * qint64(m_glyphCount);
    const qint64 infoEnd = dataArea + readU16(m_index + 2);
    m_above = byteAt(image, infoEnd - 4);
    m_below = byteAt(image, infoEnd - 3);
    if (m_above == 0)
        m_above = m_below;
}

void ZTShxParser::initBigfont()
{
    const std::vector<unsigned char> &image = m_file->bytes();
    const qint64 size = m_bufferEnd - m_buffer;
    if (size < kBigfontRanges)
        return;
    const qint64 ranges = readU16(m_buffer + kBigfontRangeCount);
    const qint64 index = kBigfontRanges + kRangeBytes * ranges;
    if (size < index + kBigRecordBytes)
        return;
    m_glyphCount = static_cast<qint32>(readU16(m_buffer + kBigfontCount));
    m_index = m_buffer + index;
    m_type = SHX_TYPE::SHX_BIGFONT;
    for (const unsigned char *at = m_buffer + kBigfontRanges; at != m_index; at += kRangeBytes)
        addEscapeRange(at[0], at[2]);
    // Kept: the first entry is the font information whatever its code, and has no descender.
    const qint64 infoEnd = qint64(readU32(m_index + 4)) + readU16(m_index + 2);
    m_above = byteAt(image, infoEnd - 4);
    if (m_above == 0)
        m_above = byteAt(image, infoEnd - 3);
    m_below = 0;
}

void ZTShxParser::initUnifont()
{
    const qint64 size = m_bufferEnd - m_buffer;
    if (size <= kUnifontText)
        return;
    const void *nul =
        std::memchr(m_buffer + kUnifontText, 0, static_cast<std::size_t>(size - kUnifontText));
    if (nul == nullptr)
        return;
    const unsigned char *measures = static_cast<const unsigned char *>(nul) + 1;
    if (!has(measures, kUnifontMeasures))
        return;
    m_glyphCount = static_cast<qint32>(readU16(m_buffer + kUnifontCount));
    m_index = measures + kUnifontMeasures;
    m_type = SHX_TYPE::SHX_UNIFONT;
    m_above = measures[0];
    m_below = measures[1];
    if (m_above == 0)
        m_above = m_below;
}

void ZTShxParser::addEscapeRange(unsigned char first, unsigned char last)
{
    m_escapeRanges.emplace_back(first, last);
    for (unsigned c = first; c <= last; ++c)
        m_leadBytes.set(c);
}

bool ZTShxParser::isEscapeChar(unsigned char c) { return m_leadBytes.test(c); }

bool ZTShxParser::has(const unsigned char *bytes, int count) const
{
    return m_bufferEnd - bytes >= count;
}
