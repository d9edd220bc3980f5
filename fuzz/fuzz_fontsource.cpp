// Any bytes as a font source and as a font file: what is taken comes back byte by byte.

#include <fontkit/FontReader.h>
#include <fontkit/FontSource.h>

#include <cstdint>
#include <cstdlib>

namespace {

void demand(bool holds)
{
    if (!holds)
        std::abort();
}

/** File, font, source, font, file. */
void checkFile(const QByteArray &file)
{
    QString error;
    const auto font = fontkit::readFont(file, &error);
    demand(font.has_value() == error.isEmpty());
    if (!font)
        return;
    demand(fontkit::writeFont(*font) == file);
    const QByteArray source = fontkit::decompileFont(*font);
    const auto again = fontkit::compileFont(source);
    demand(again.has_value() && *again == *font);
    demand(fontkit::decompileFont(*again) == source);
}

/** Whatever compiles can be written, and read as a file. */
void checkSource(const QByteArray &source)
{
    QString error;
    const auto font = fontkit::compileFont(source, &error);
    demand(font.has_value() ? error.isEmpty() : error.startsWith(QStringLiteral("line ")));
    if (!font)
        return;
    const QByteArray file = fontkit::writeFont(*font);
    demand(!file.isEmpty());
    checkFile(file);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<int>(size));
    checkFile(bytes);
    checkSource(bytes);
    return 0;
}
