#include <ZTDrawEngineLib/shx/ZTShxFontFile_p.h>

#include <exception>
#include <filesystem>
#include <fstream>

using ztshx::readU16;
using ztshx::readU32;

namespace {

constexpr std::streamoff kMaxFileBytes = 256 * 1024 * 1024;

constexpr std::size_t kShortRecord = 4; // code and length
constexpr std::size_t kBigRecord = 8;   // code, length and offset

/** A definition of `length` bytes at `offset`, marked if it starts outside an image of `size`. */
ZTShxGlyph glyphAt(quint64 offset, unsigned length, std::size_t size)
{
    ZTShxGlyph glyph;
    if (offset >= size) {
        glyph.length = ZTShxGlyph::OutsideImage;
        return glyph;
    }
    glyph.offset = static_cast<quint32>(offset);
    glyph.length = static_cast<qint32>(length);
    return glyph;
}

/** Whether a path names something that can be read to an end: no folder, pipe or device. */
bool isRegularFile(const char *path)
{
    std::error_code error;
    return std::filesystem::is_regular_file(std::filesystem::path(path), error) && !error;
}

/** The bytes of an open stream; what cannot be read is 0. False when there are too many. */
bool readAll(std::ifstream &stream, std::vector<unsigned char> &bytes)
{
    stream.seekg(0, std::ios::end);
    const std::streamoff size = stream.tellg();
    if (size < 0 || size > kMaxFileBytes)
        return false;
    stream.seekg(0, std::ios::beg);
    bytes.resize(static_cast<std::size_t>(size));
    if (size > 0)
        stream.read(reinterpret_cast<char *>(bytes.data()), size);
    return true;
}

} // namespace

ZTShxGlyphTable::ZTShxGlyphTable(const std::vector<unsigned char> &image, const ZTShxIndex &index)
    : m_pages(1)
{
    switch (index.type) {
    case SHX_TYPE::SHX_UNIFONT:
        addUnifontRecords(image, index);
        break;
    case SHX_TYPE::SHX_BIGFONT:
        addBigfontRecords(image, index);
        break;
    case SHX_TYPE::SHX_SHAPES:
    case SHX_TYPE::SHX_SHAPE_ONLY:
        addShapesRecords(image, index);
        break;
    case SHX_TYPE::SHX_NONE:
        break;
    }
}

void ZTShxGlyphTable::addUnifontRecords(const std::vector<unsigned char> &image,
                                        const ZTShxIndex &index)
{
    const std::size_t size = image.size();
    std::size_t at = index.offset;
    for (int i = 0; i < index.count && at + kShortRecord <= size; ++i) {
        const unsigned length = readU16(&image[at + 2]);
        add(readU16(&image[at]), glyphAt(at + kShortRecord, length, size));
        at += kShortRecord + length;
    }
}

void ZTShxGlyphTable::addBigfontRecords(const std::vector<unsigned char> &image,
                                        const ZTShxIndex &index)
{
    const std::size_t size = image.size();
    std::size_t at = index.offset;
    for (int i = 0; i < index.count && at + kBigRecord <= size; ++i, at += kBigRecord) {
        const unsigned length = readU16(&image[at + 2]);
        add(readU16(&image[at]), glyphAt(readU32(&image[at + 4]), length, size));
    }
}

void ZTShxGlyphTable::addShapesRecords(const std::vector<unsigned char> &image,
                                       const ZTShxIndex &index)
{
    const std::size_t size = image.size();
    std::size_t at = index.offset;
    quint64 start = at + kShortRecord * static_cast<std::size_t>(index.count);
    for (int i = 0; i < index.count && at + kShortRecord <= size; ++i, at += kShortRecord) {
        const unsigned length = readU16(&image[at + 2]);
        add(readU16(&image[at]), glyphAt(start, length, size));
        start += length;
    }
}

void ZTShxGlyphTable::add(unsigned code, const ZTShxGlyph &glyph)
{
    quint16 &page = m_pageOf[code >> 8];
    if (page == 0) {
        page = static_cast<quint16>(m_pages.size());
        m_pages.emplace_back();
    }
    ZTShxGlyph &entry = m_pages[page][code & 0xFFu];
    if (entry.length == ZTShxGlyph::NoRecord)
        entry = glyph;
}

std::shared_ptr<ZTShxFontFile> ZTShxFontFile::read(const char *path)
{
    try {
        if (!isRegularFile(path))
            return nullptr;
        std::ifstream stream(path, std::ios::in | std::ios::binary);
        if (!stream.is_open())
            return nullptr;
        auto file = std::make_shared<ZTShxFontFile>();
        return readAll(stream, file->m_image) ? file : nullptr;
    } catch (const std::exception &) { // no memory for the image
        return nullptr;
    }
}

const ZTShxGlyphTable &ZTShxFontFile::glyphs(const ZTShxIndex &index)
{
    if (!m_table)
        m_table = std::make_unique<ZTShxGlyphTable>(m_image, index);
    return *m_table;
}
