#pragma once

#include <ZTDrawEngineLib/shx/ZTShxParser.h>

#include <QtCore/QtGlobal>

#include <array>
#include <cstddef>
#include <memory>
#include <vector>

/** Where one glyph definition stands in the file image, its name included. */
struct ZTShxGlyph
{
    enum : qint32 { NoRecord = -2, OutsideImage = -1 };

    quint32 offset = 0;
    qint32 length = NoRecord; ///< in bytes, or one of the two marks

    bool isDrawable() const { return length >= 0; }
};

/** The glyph index as the header tells it: where it starts and how many records it claims. */
struct ZTShxIndex
{
    SHX_TYPE type = SHX_TYPE::SHX_NONE;
    std::size_t offset = 0;
    int count = 0;
};

/**
 * Finds a glyph by its code in two steps, whatever the size of the font.
 *
 * The same result as a search from the first record: the first record of a code counts, also when
 * its definition starts outside the image.
 */
class ZTShxGlyphTable
{
public:
    ZTShxGlyphTable(const std::vector<unsigned char> &image, const ZTShxIndex &index);

    const ZTShxGlyph &find(int code) const
    {
        const unsigned number = static_cast<unsigned>(code);
        if (number > 0xFFFFu)
            return m_pages.front().front();
        return m_pages[m_pageOf[number >> 8]][number & 0xFFu];
    }

private:
    using Page = std::array<ZTShxGlyph, 256>;

    void addUnifontRecords(const std::vector<unsigned char> &image, const ZTShxIndex &index);
    void addBigfontRecords(const std::vector<unsigned char> &image, const ZTShxIndex &index);
    void addShapesRecords(const std::vector<unsigned char> &image, const ZTShxIndex &index);
    void add(unsigned code, const ZTShxGlyph &glyph);

    std::array<quint16, 256> m_pageOf{}; ///< by the high byte of a code; page 0 has no glyph at all
    std::vector<Page> m_pages;
};

/** The image of one font file, never changed once read; copies of a parser share it. */
class ZTShxFontFile
{
public:
    /**
     * Reads a regular file whole; null for anything else, or when it cannot be opened.
     *
     * Limit: 256 MiB; a larger file counts as one that cannot be opened.
     */
    static std::shared_ptr<ZTShxFontFile> read(const char *path);

    const std::vector<unsigned char> &bytes() const { return m_image; }

    /** The glyphs of the image's index; built on the first call, the same index always. */
    const ZTShxGlyphTable &glyphs(const ZTShxIndex &index);

private:
    std::vector<unsigned char> m_image;
    std::unique_ptr<ZTShxGlyphTable> m_table;
};

namespace ztshx {

/** Little-endian number of the two bytes at `at`. */
inline unsigned readU16(const unsigned char *at) { return at[0] | unsigned(at[1]) << 8; }

/** Little-endian number of the four bytes at `at`. */
inline quint32 readU32(const unsigned char *at)
{
    return readU16(at) | static_cast<quint32>(readU16(at + 2)) << 16;
}

} // namespace ztshx
