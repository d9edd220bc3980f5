// What is told of a stroke-font file: no input crashes or hangs, nothing is told of bytes that are
// not there, and a font that is refused leaves nothing behind but its problems.

#include <hostkit/text/ShxFontInfo.h>

#include <cstdint>
#include <cstdlib>

namespace {

void require(bool holds)
{
    if (!holds)
        std::abort();
}

void checkGlyphs(const hostkit::ShxFontInfo &info, int size)
{
    constexpr int kLeastRecord = 4; // of any form's index
    require(info.glyphs.size() <= size / kLeastRecord);
    int usable = 0;
    for (const hostkit::ShxGlyphInfo &glyph : info.glyphs) {
        require(glyph.code >= 0 && glyph.code <= 0xFFFF);
        require(glyph.length >= 0 && glyph.length <= 0xFFFF);
        require(!glyph.usable || glyph.length <= size);
        require(glyph.name.size() <= size);
        usable += glyph.usable ? 1 : 0;
    }
    require(info.usableGlyphs() == usable);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const auto bytes =
        QByteArray::fromRawData(reinterpret_cast<const char *>(data), static_cast<int>(size));
    hostkit::ShxFontInfo info;
    hostkit::Failure failure;
    const bool isFont = hostkit::readShxFontInfo(bytes, &info, &failure);
    require(isFont == failure.reason.isEmpty());
    require(isFont == !info.form().isEmpty());
    require(info.problems.size() <= hostkit::ShxFontInfo::kMaxProblems);
    require(info.problems.size() <= info.problemCount);
    checkGlyphs(info, bytes.size());
    return 0;
}
