// Any bytes as an SVG drawing, or as a packed one: read or refused with a reason, all numbers
// within their range.

#include "DrawingReading.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const bool isPacked = size > 1 && data[0] == 0x1F && data[1] == 0x8B;
    return fuzz::requireDrawingOrReason(isPacked ? vectorkit::readDrawing : vectorkit::readSvg,
                                        data, size);
}
