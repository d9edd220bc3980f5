#include <ZTDrawEngineLib/common/ZTEnumerations.h>

#include <array>

const char *ShapeType2String(ShapeType type)
{
    static constexpr std::array<const char *, 12> kNames = {
        "Rect",   "Line",    "Ellipse", "Point", "Polygon",  "Text",
        "QRCode", "BarCode", "Pixmap",  "TDOT",  "VecGraph", "None"};
    const auto index = static_cast<std::size_t>(type);
    return index < kNames.size() ? kNames[index] : "unknown";
}
