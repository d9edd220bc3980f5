// Hatches outlines made of any bytes: it must end, stay in bounds, and equal the plain way.

#include <support/oracle/PlainHatch.h>

#include <ZTDrawEngineLib/shapes/ZTShapeBase.h>

#include <QtCore/QLoggingCategory>

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace {

// The plain way costs points times scan lines; the tests hatch large outlines.
constexpr std::size_t kMostBytes = 512;
constexpr int kMostPoints = 40;
constexpr double kMostScanLines = 80.0;
constexpr double kRefused = 1e8; ///< far more scan lines than the library lays out

class GivenShape : public ZTShapeBase
{
public:
    explicit GivenShape(const QPainterPath &outline)
    {
        setLines(outline);
        getPath() = outline;
    }
    void paint() override {}
};

class Bytes
{
public:
    Bytes(const std::uint8_t *data_, std::size_t size_) : data(data_), size(size_) {}

    bool atEnd() const { return at >= size; }
    std::uint8_t byte() { return atEnd() ? 0 : data[at++]; }

    double number()
    {
        std::uint8_t raw[sizeof(double)];
        for (std::uint8_t &value : raw)
            value = byte();
        double result;
        std::memcpy(&result, raw, sizeof result);
        return result;
    }

private:
    const std::uint8_t *data;
    std::size_t size;
    std::size_t at = 0;
};

/** Each point: what it is, then its place on a lattice, near the last point, or any two numbers. */
QPainterPath outlineFrom(Bytes *bytes)
{
    QPainterPath path;
    QPointF last;
    for (int i = 0; i < kMostPoints && !bytes->atEnd(); ++i) {
        const int kind = bytes->byte();
        QPointF point(bytes->byte() % 16 * 6.25, bytes->byte() % 16 * 6.25);
        if (kind % 8 == 1)
            point = last + QPointF(point.x() - 50.0, point.y() - 50.0) * 1e-14;
        else if (kind % 8 == 2)
            point = {bytes->number(), bytes->number()};
        else if (kind % 8 == 3)
            point = last + (point - last) / 3.0;
        if (kind >= 224 || path.elementCount() == 0)
            path.moveTo(0.0, 0.0);
        else
            path.lineTo(i + 1.0, -1.0);
        // Set afterwards: a path refuses coordinates that are not finite, but can hold them.
        path.setElementPositionAt(path.elementCount() - 1, point.x(), point.y());
        last = point;
    }
    return path;
}

double angleFrom(Bytes *bytes)
{
    const double angles[] = {0.0, 90.0, -90.0, 180.0, 45.0, 30.0, -75.0, 360.0};
    const int kind = bytes->byte();
    return kind < 240 ? angles[kind % 8] + kind / 64 * 0.5 : bytes->number();
}

/** Extent of the scan lines, roughly. A subpath of one point has none. */
double extentOf(const QPainterPath &outline)
{
    QRectF box;
    for (const QPolygonF &polygon : outline.toSubpathPolygons(QTransform()))
        box |= polygon.boundingRect();
    return 1.5 * std::fmax(box.width(), box.height()) + 20.0;
}

/** Any spacing, but none between few scan lines and so many that they are refused at once. */
double spacingFrom(Bytes *bytes, const QPainterPath &outline)
{
    const int kind = bytes->byte();
    const double spac = kind < 200 ? (kind + 1) / 16.0 : bytes->number();
    const double count = extentOf(outline) / spac;
    return count > kMostScanLines && count < kRefused ? extentOf(outline) / kMostScanLines : spac;
}

void check(bool holds)
{
    if (!holds)
        std::abort();
}

bool areSameToTheBit(const QVector<QLineF> &a, const QVector<QLineF> &b)
{
    return a.size() == b.size() &&
           (a.isEmpty() || std::memcmp(a.constData(), b.constData(),
                                       static_cast<std::size_t>(a.size()) * sizeof(QLineF)) == 0);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const bool isQuiet = [] {
        QLoggingCategory::setFilterRules(QStringLiteral("ZTDrawEngineLib.Hatch=false"));
        return true;
    }();
    Q_UNUSED(isQuiet)
    if (size > kMostBytes)
        return 0;
    Bytes bytes(data, size);
    const FillType type = bytes.byte() % 2 ? FillType::ULine : FillType::Line;
    const double angle = angleFrom(&bytes);
    Bytes rest = bytes; // the outline comes after the spacing, which looks at it
    spacingFrom(&rest, {});
    const QPainterPath outline = outlineFrom(&rest);
    const double spac = spacingFrom(&bytes, outline);

    GivenShape shape(outline);
    shape.fillULine(type, spac, angle);
    if (extentOf(outline) / spac >= kRefused)
        check(shape.getFillLines().isEmpty());
    else
        check(areSameToTheBit(shape.getFillLines(),
                              testsupport::plainHatch(outline, type, spac, angle)));

    ZTFillParam param;
    param.spac = spac;
    shape.setFillParam(param);
    shape.fillLine();
    return 0;
}
