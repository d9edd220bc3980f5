// Any paths through every step of cleaning: nothing grows, nothing leaves where it was.

#include <vectorkit/clean/DrawingCleaning.h>

#include <cmath>
#include <cstdlib>

namespace {

void require(bool condition)
{
    if (!condition)
        std::abort();
}

/** Small whole numbers, so that much meets and much is drawn twice. */
class Bytes
{
public:
    Bytes(const std::uint8_t *data, std::size_t size) : at(data), last(data + size) {}
    bool isEmpty() const { return at == last; }
    int next() { return isEmpty() ? 0 : *at++; }
    QPointF point() { return {double(next() % 32), double(next() % 32) / 2.0}; }

private:
    const std::uint8_t *at;
    const std::uint8_t *last;
};

vectorkit::VectorPath pathOf(Bytes *bytes)
{
    vectorkit::VectorPath path(bytes->point());
    const int pieces = bytes->next() % 6;
    for (int i = 0; i < pieces; ++i) {
        switch (bytes->next() % 4) {
        case 0:
            path.cubicTo(bytes->point(), bytes->point(), bytes->point());
            break;
        case 1:
            path.arcAbout(bytes->point(), bytes->next() * 3.0 + 1.0);
            break;
        default:
            path.lineTo(bytes->point());
        }
    }
    if (bytes->next() % 3 == 0)
        path.close();
    return path;
}

double lengthOf(const vectorkit::VectorDrawing &drawing)
{
    double length = 0.0;
    for (const vectorkit::VectorShape &shape : drawing.layers[0].shapes) {
        for (const vectorkit::VectorPath &path : shape.paths)
            length += path.lengthMm();
    }
    return length;
}

/** Paths with pieces: one without has no place that a box could tell. */
int drawnPaths(const vectorkit::VectorDrawing &drawing)
{
    int count = 0;
    for (const vectorkit::VectorShape &shape : drawing.layers[0].shapes) {
        for (const vectorkit::VectorPath &path : shape.paths)
            count += path.isEmpty() ? 0 : 1;
    }
    return count;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    Bytes bytes(data, size);
    const int wishes = bytes.next();
    vectorkit::VectorDrawing drawing;
    drawing.layers.resize(1);
    while (!bytes.isEmpty() && drawing.layers[0].shapes.size() < 200) {
        vectorkit::VectorShape shape;
        shape.paths = {pathOf(&bytes)};
        shape.isFilled = bytes.next() % 4 == 0;
        drawing.layers[0].shapes.append(shape);
    }
    vectorkit::CleanOptions options;
    options.dropZeroLength = (wishes & 1) != 0;
    options.dropDoubles = (wishes & 2) != 0;
    options.joinMm = (wishes & 4) != 0 ? 0.6 : -1.0;
    options.simplifyMm = (wishes & 8) != 0 ? 0.1 : 0.0;
    options.fitArcsMm = (wishes & 16) != 0 ? 0.1 : 0.0;
    options.weld = (wishes & 32) != 0;
    options.order = (wishes & 64) != 0;
    options.weldRule = (wishes & 128) != 0 ? Qt::WindingFill : Qt::OddEvenFill;

    const double before = lengthOf(drawing);
    const QRectF box = drawing.boundsMm();
    vectorkit::CleanReport report;
    require(vectorkit::cleanDrawing(&drawing, options, &report));
    require(report.pathsAfter == drawing.pathCount());
    const QRectF after = drawing.boundsMm();
    const double slack = 2.0; // joining, simplifying and fitting, each by its tolerance
    require(drawnPaths(drawing) == 0 ||
            (after.left() >= box.left() - slack && after.right() <= box.right() + slack &&
             after.top() >= box.top() - slack && after.bottom() <= box.bottom() + slack));
    const bool keepsLength = !options.weld && options.fitArcsMm == 0.0 && options.joinMm < 0.0;
    require(!keepsLength || lengthOf(drawing) <= before * (1.0 + 1e-5) + 1e-6);
    return 0;
}
