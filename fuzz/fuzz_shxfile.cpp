// A font file of any bytes: loading, text in both forms, the walk, copies and a second file.

#include "MemoryFile.h"

#include <ZTDrawEngineLib/shx/ZTShxParser.h>

#include <QtCore/QByteArray>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

constexpr std::size_t kMostBytes = 512;
constexpr std::ptrdiff_t kMostSubshapes = 1;
constexpr std::uint8_t kSubshape = 7;

/** Stops the fuzzer at a number that is not finite. */
class FiniteCallback : public ZTAbstractGlyphCallback
{
public:
    void glBegin() override {}
    void glVertex2d(double x, double y) override
    {
        if (!std::isfinite(x) || !std::isfinite(y))
            std::abort();
    }
    void glEnd() override {}
    void next() override {}
};

/** Text of the font's own codes: the first bytes of its data, and what is usual. */
void drawTexts(ZTShxParser &parser, const QByteArray &own)
{
    FiniteCallback callback;
    if (parser.GetType() == SHX_TYPE::SHX_UNIFONT) {
        std::wstring wide;
        for (int i = 0; i + 1 < own.size(); i += 2)
            wide += static_cast<wchar_t>(static_cast<unsigned char>(own[i]) |
                                         static_cast<unsigned char>(own[i + 1]) << 8);
        parser.drawText(&callback, wide.c_str(), 1.0, 2.0);
        parser.getTextExtent(L"AB");
        return;
    }
    parser.drawText(&callback, own.constData(), 1.0, 2.0);
    parser.drawText(&callback, L"AB", 0.0, 0.0);
    parser.getTextExtent(own.constData());
}

void walk(ZTShxParser &parser)
{
    FiniteCallback callback;
    parser.resetNextGlyph();
    for (int i = 0; i < 20 && parser.showNextGlyph(&callback, 0.0, 0.0); ++i) {
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    // Glyphs that call each other draw as much as the parser's bound on work allows, two million
    // pieces: a test looks at that, here it would only be slow.
    if (size > kMostBytes || std::count(data, data + size, kSubshape) > kMostSubshapes)
        return 0;
    static MemoryFile file;
    file.write(data, size);
    const QByteArray path = file.path();
    const QByteArray own(reinterpret_cast<const char *>(data + (size > 30 ? 30 : size)),
                         static_cast<int>(size > 40 ? 10 : 0));
    ZTShxParser parser(path.constData());
    drawTexts(parser, own);
    walk(parser);
    const ZTShxParser copy(parser);
    parser.init(path.constData());
    parser.cleanup();
    drawTexts(parser, own);
    parser = copy;
    walk(parser);
    return 0;
}
