// Any bytes as a plotter file: a drawing within bounds, or a reason; the same each time.

#include <vectorkit/VectorReader.h>

#include <cmath>
#include <cstdlib>

namespace {

void require(bool condition)
{
    if (!condition)
        std::abort();
}

void requireSound(const vectorkit::VectorDrawing &drawing)
{
    require(!drawing.isEmpty());
    require(drawing.shapeCount() == 0 || drawing.pathCount() >= drawing.shapeCount());
    const QRectF box = drawing.boundsMm();
    for (const double edge : {box.left(), box.right(), box.top(), box.bottom()})
        require(std::abs(edge) <= 1e9 * (1.0 + 1e-9));
    for (const vectorkit::VectorLayer &layer : drawing.layers) {
        for (const vectorkit::VectorShape &shape : layer.shapes) {
            for (const vectorkit::VectorPath &path : shape.paths)
                require(!path.isEmpty() && std::isfinite(path.lengthMm()));
        }
        for (const vectorkit::VectorText &text : layer.texts)
            require(std::isfinite(text.positionMm.x()) && std::isfinite(text.positionMm.y()) &&
                    text.heightMm > 0.0 && std::isfinite(text.lengthMm) &&
                    std::isfinite(text.angleDeg));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<int>(size));
    vectorkit::ReadOptions options;
    options.mostPieces = 100000;
    vectorkit::VectorDrawing drawing;
    vectorkit::ReadFailure failure;
    if (vectorkit::readHpgl(bytes, options, &drawing, &failure)) {
        requireSound(drawing);
    } else {
        require(failure.kind != vectorkit::ReadFailure::Kind::None && !failure.reason.isEmpty());
        require(drawing.isEmpty());
    }
    return 0;
}
