// Any bytes as a DXF drawing: read or refused with a reason, all numbers within their range.

#include <vectorkit/VectorReader.h>

#include <cmath>
#include <cstdlib>

namespace {

void require(bool condition)
{
    if (!condition)
        std::abort();
}

bool isInRange(const QPointF &point)
{
    return std::abs(point.x()) <= 1e9 && std::abs(point.y()) <= 1e9;
}

void requireSound(const vectorkit::VectorShape &shape)
{
    require(!shape.paths.isEmpty());
    for (const vectorkit::VectorPath &path : shape.paths) {
        require(!path.isEmpty() && isInRange(path.start()));
        require(!path.isClosed() || path.start() == path.end());
        path.forEach(
            [](const vectorkit::VectorPath::Piece &piece) { require(isInRange(piece.to)); });
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<int>(size));
    vectorkit::ReadOptions options;
    options.mostPieces = 20000;
    vectorkit::VectorDrawing drawing;
    vectorkit::ReadFailure failure;
    if (!vectorkit::readDxf(bytes, options, &drawing, &failure)) {
        require(failure.kind != vectorkit::ReadFailure::Kind::None && !failure.reason.isEmpty());
        require(drawing.isEmpty());
        return 0;
    }
    require(!drawing.isEmpty());
    for (const vectorkit::VectorLayer &layer : drawing.layers) {
        for (const vectorkit::VectorShape &shape : layer.shapes)
            requireSound(shape);
        for (const vectorkit::VectorText &text : layer.texts)
            require(isInRange(text.positionMm) && text.heightMm > 0.0);
    }
    return 0;
}
