#pragma once

#include <vectorkit/VectorReader.h>

#include <cmath>
#include <cstdint>
#include <cstdlib>

namespace fuzz {

inline void require(bool condition)
{
    if (!condition)
        std::abort();
}

inline bool isInRange(const QPointF &point)
{
    return std::abs(point.x()) <= 1e9 && std::abs(point.y()) <= 1e9;
}

inline void requireSound(const vectorkit::VectorShape &shape)
{
    require(!shape.paths.isEmpty());
    for (const vectorkit::VectorPath &path : shape.paths) {
        require(!path.isEmpty() && isInRange(path.start()));
        require(!path.isClosed() || path.start() == path.end());
        path.forEach(
            [](const vectorkit::VectorPath::Piece &piece) { require(isInRange(piece.to)); });
    }
}

/**
 * Reads any bytes with one of the readers: a drawing that is whole, all numbers within their range,
 * or a reason and nothing read.
 */
template <class Reader>
int requireDrawingOrReason(Reader read, const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<int>(size));
    vectorkit::ReadOptions options;
    options.mostPieces = 20000;
    vectorkit::VectorDrawing drawing;
    vectorkit::ReadFailure failure;
    if (!read(bytes, options, &drawing, &failure)) {
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

} // namespace fuzz
