// Any bytes as a DXF drawing: read or refused with a reason, all numbers within their range.

#include "DrawingReading.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    return fuzz::requireDrawingOrReason(vectorkit::readDxf, data, size);
}
