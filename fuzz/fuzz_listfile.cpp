// List files of variant texts: no input crashes or hangs, a preview shows what the updates bring,
// and no row is longer than the limit. The first four bytes choose how the file is read.

#include "MemoryFile.h"

#include <ZTMarkDataManager/ZTVariantText.h>

#include <QtCore/QFile>

#include <cstdint>
#include <cstdlib>

namespace {

constexpr int kChoices = 4;
constexpr int kParts = 4;
constexpr int kLongestRow = 16384;

/** A segment that reads the file as the choices say. */
ZTTextFileSegment segmentOf(const std::uint8_t *choices, const QString &path)
{
    static const char *const kEncodings[] = {"", "UTF-8", "GBK", "UTF-16LE", "no such encoding"};
    static constexpr char16_t kSeparators[] = {u',', u';', u'\t', u'"'};
    ZTTextFileSegment segment;
    segment.path = path;
    segment.column = choices[0] % 5 - 1;
    segment.separator = QChar(kSeparators[choices[1] % 4]);
    segment.encoding = QLatin1String(kEncodings[choices[1] / 4 % 5]);
    segment.firstRow = choices[2] % 4;
    segment.nextRow = segment.firstRow + choices[3] % 4;
    segment.atEnd = choices[3] >= 128 ? ZTVariantTextEnd::Wrap : ZTVariantTextEnd::Stop;
    return segment;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static MemoryFile file;
    if (size < kChoices)
        return 0;
    file.write(data + kChoices, size - kChoices);
    ZTVariantText text;
    if (!text.setSegments({segmentOf(data, QFile::decodeName(file.path()))}))
        return 0;
    const QStringList expected = text.preview(kParts);
    for (const QString &next : expected) {
        text.update();
        if (text.getText() != next || next.size() > kLongestRow)
            std::abort();
    }
    text.isExhausted();
    return 0;
}
