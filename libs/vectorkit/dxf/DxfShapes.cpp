#include <vectorkit/dxf/DxfEntities_p.h>

#include <QtCore/QtMath>

#include <algorithm>
#include <cmath>

namespace vectorkit::dxf {

namespace {

constexpr double kTurn = 2.0 * M_PI;

/** Adds the path when all of it lies where drawings may. */
Outcome finish(const PathPen &pen, EntityReader *out, double widthMm = 0.0)
{
    if (!pen.isSound() || !std::isfinite(widthMm))
        return Outcome::Damaged;
    if (!pen.path().isEmpty())
        out->addPath(pen, widthMm);
    return Outcome::Done;
}

struct Vertex
{
    Vec3 point;
    double bulge = 0.0;
    double startWidth = 0.0;
    double endWidth = 0.0;
};

Outcome drawVertices(const std::vector<Vertex> &vertices, bool isClosed, const Frame &frame,
                     EntityReader *out)
{
    if (vertices.size() < 2)
        return Outcome::Done; // a point, which is nothing that is drawn
    PathPen pen(frame);
    pen.moveTo(vertices.front().point);
    for (std::size_t i = 1; i < vertices.size(); ++i)
        pen.bulgeTo(vertices[i].point, vertices[i - 1].bulge);
    if (isClosed) {
        const Vec3 gap = vertices.front().point - vertices.back().point;
        if (std::hypot(gap.x, gap.y, gap.z) > 0.0)
            pen.bulgeTo(vertices.front().point, vertices.back().bulge);
        pen.close();
    }
    const double width = vertices.front().startWidth;
    const bool isEven = std::all_of(vertices.begin(), vertices.end(), [&](const Vertex &vertex) {
        return vertex.startWidth == width && vertex.endWidth == width;
    });
    if (!isEven)
        out->note(VectorNote::Kind::Changed,
                  QT_TRANSLATE_NOOP("vectorkit",
                                    "polylines of changing width: drawn as their middle line"));
    return finish(pen, out, isEven ? std::abs(width) * scaleOf(frame) : 0.0);
}

Outcome drawQuarters(const Record &record, const Frame &frame, EntityReader *out, double from,
                     double to)
{
    bool isSound = true;
    const Frame plane = frameOf(record, frame, &isSound);
    const Vec3 centre = pointOf(record, 10, &isSound);
    const double radius = record.number(40, 0.0, &isSound);
    if (!isSound || !(radius >= 0.0) || !record.has(40))
        return Outcome::Damaged;
    if (radius == 0.0) {
        out->note(VectorNote::Kind::Left,
                  QT_TRANSLATE_NOOP("vectorkit", "circles and arcs without a radius"));
        return Outcome::Done;
    }
    PathPen pen(plane);
    const Vec3 a{radius, 0.0, 0.0};
    const Vec3 b{0.0, radius, 0.0};
    pen.moveTo(centre + a * std::cos(from) + b * std::sin(from));
    pen.ellipseTo(centre, a, b, from, to);
    if (to - from >= kTurn)
        pen.close();
    return finish(pen, out);
}

/** The corners of a filled or empty four-sided figure, of which the fourth may be missing. */
bool cornersOf(const Record &record, std::vector<Vec3> *corners)
{
    bool isSound = true;
    for (const int code : {10, 11, 12})
        corners->push_back(pointOf(record, code, &isSound));
    corners->push_back(pointOr(record, 13, corners->back(), &isSound));
    return isSound;
}

bool isSame(const Vec3 &a, const Vec3 &b) { return length(b - a) == 0.0; }

} // namespace

void orderAngles(double *from, double *to)
{
    // Whole turns are told from none by more than what sums of decimals lose.
    const double sweep = std::fmod(*to - *from, kTurn);
    const bool isWhole = std::abs(sweep) < 1e-9 || std::abs(std::abs(sweep) - kTurn) < 1e-9;
    *from = std::fmod(*from, kTurn);
    *to = *from + (isWhole ? kTurn : sweep < 0.0 ? sweep + kTurn : sweep);
    if (isWhole)
        *to = *from + kTurn;
}

Outcome drawPoint(const Record &record, const Frame &sheet, EntityReader *out)
{
    // Those by which dimensions are held stand on a layer of their own.
    if (out->file().decoder.key(record.text(8)) == QLatin1String("DEFPOINTS"))
        return Outcome::Done;
    bool isSound = true;
    const Vec3 place = pointOf(record, 10, &isSound);
    if (!isSound)
        return Outcome::Damaged;
    PathPen pen(sheet);
    pen.moveTo(place);
    pen.lineTo(place);
    out->note(VectorNote::Kind::Changed, QT_TRANSLATE_NOOP("vectorkit", "points, taken as dots"));
    return finish(pen, out);
}

Outcome drawLine(const Record &record, const Frame &sheet, EntityReader *out)
{
    bool isSound = true;
    const Vec3 from = pointOf(record, 10, &isSound);
    const Vec3 to = pointOf(record, 11, &isSound);
    if (!isSound)
        return Outcome::Damaged;
    PathPen pen(sheet);
    pen.moveTo(from);
    pen.lineTo(to);
    return finish(pen, out);
}

Outcome drawCircle(const Record &record, const Frame &sheet, EntityReader *out)
{
    return drawQuarters(record, sheet, out, 0.0, kTurn);
}

Outcome drawArc(const Record &record, const Frame &sheet, EntityReader *out)
{
    bool isSound = record.has(50) && record.has(51);
    double from = qDegreesToRadians(record.number(50, 0.0, &isSound));
    double to = qDegreesToRadians(record.number(51, 0.0, &isSound));
    if (!isSound)
        return Outcome::Damaged;
    orderAngles(&from, &to);
    return drawQuarters(record, sheet, out, from, to);
}

Outcome drawEllipse(const Record &record, const Frame &sheet, EntityReader *out)
{
    bool isSound = record.has(40);
    const Vec3 centre = pointOf(record, 10, &isSound);
    const Vec3 major = pointOf(record, 11, &isSound);
    const double ratio = record.number(40, 1.0, &isSound);
    double from = record.number(41, 0.0, &isSound);
    double to = record.number(42, kTurn, &isSound);
    const Vec3 normal = pointOr(record, 210, {0.0, 0.0, 1.0}, &isSound);
    if (!isSound || !(length(major) > 0.0) || !(length(normal) > 0.0) || ratio == 0.0)
        return Outcome::Damaged;
    const Vec3 minor = cross(normal * (1.0 / length(normal)), major) * ratio;
    orderAngles(&from, &to);
    PathPen pen(sheet);
    pen.moveTo(centre + major * std::cos(from) + minor * std::sin(from));
    pen.ellipseTo(centre, major, minor, from, to);
    if (to - from >= kTurn)
        pen.close();
    return finish(pen, out);
}

Outcome drawLwPolyline(const Record &record, const Frame &sheet, EntityReader *out)
{
    constexpr int kClosed = 1;
    bool isSound = true;
    const Frame plane = frameOf(record, sheet, &isSound);
    const double height = record.number(38, 0.0, &isSound);
    const double width = record.number(43, 0.0, &isSound);
    std::vector<Vertex> vertices;
    bool hasY = true;
    for (const Tag &tag : record.tags) {
        if (tag.code == 10) {
            isSound = isSound && hasY;
            vertices.push_back({{0.0, 0.0, height}, 0.0, width, width});
            isSound = tag.read(&vertices.back().point.x) && isSound;
            hasY = false;
            continue;
        }
        if (vertices.empty())
            continue;
        Vertex &last = vertices.back();
        if (tag.code == 20) {
            isSound = tag.read(&last.point.y) && isSound;
            hasY = true;
        } else if (tag.code == 42) {
            isSound = tag.read(&last.bulge) && isSound;
        } else if (tag.code == 40) {
            isSound = tag.read(&last.startWidth) && isSound;
        } else if (tag.code == 41) {
            isSound = tag.read(&last.endWidth) && isSound;
        }
    }
    if (!isSound || !hasY || vertices.empty())
        return Outcome::Damaged;
    return drawVertices(vertices, (record.integer(70, 0) & kClosed) != 0, plane, out);
}

Outcome drawPolyline(const Record &record, const Frame &sheet, EntityReader *out)
{
    constexpr int kClosed = 1;
    constexpr int kInSpace = 8;
    constexpr int kMeshes = 16 | 64;
    constexpr int kFrameOfCurve = 16;
    const int flags = record.integer(70, 0);
    if ((flags & kMeshes) != 0) {
        out->note(VectorNote::Kind::Left, QT_TRANSLATE_NOOP("vectorkit", "meshes of surfaces"));
        return Outcome::Done;
    }
    bool isSound = true;
    const bool isInSpace = (flags & kInSpace) != 0;
    const Frame plane = isInSpace ? sheet : frameOf(record, sheet, &isSound);
    const double height = isInSpace ? 0.0 : record.number(30, 0.0, &isSound);
    const double startWidth = record.number(40, 0.0, &isSound);
    const double endWidth = record.number(41, 0.0, &isSound);
    std::vector<Vertex> vertices;
    for (const Record &part : record.parts) {
        if ((part.integer(70, 0) & kFrameOfCurve) != 0)
            continue;
        Vertex vertex;
        vertex.point = pointOf(part, 10, &isSound);
        if (!isInSpace) {
            vertex.point.z = height;
            vertex.bulge = part.number(42, 0.0, &isSound);
        }
        vertex.startWidth = part.number(40, startWidth, &isSound);
        vertex.endWidth = part.number(41, endWidth, &isSound);
        isSound = isSound && !part.isDamaged;
        vertices.push_back(vertex);
    }
    if (!isSound)
        return Outcome::Damaged;
    return drawVertices(vertices, (flags & kClosed) != 0, plane, out);
}

Outcome drawSpline(const Record &record, const Frame &sheet, EntityReader *out)
{
    constexpr int kClosed = 1;
    Spline spline;
    std::vector<Vec3> through;
    bool isSound = true;
    spline.degree = record.integer(71, 3, &isSound);
    for (const Tag &tag : record.tags) {
        double value = 0.0;
        const bool isPlace = (tag.code >= 10 && tag.code <= 31 && tag.code % 10 <= 1);
        if (!isPlace && tag.code != 40 && tag.code != 41)
            continue;
        isSound = tag.read(&value) && isSound;
        std::vector<Vec3> &points = tag.code % 10 == 0 ? spline.controls : through;
        if (tag.code == 40)
            spline.knots.push_back(value);
        else if (tag.code == 41)
            spline.weights.push_back(value);
        else if (tag.code < 20)
            points.push_back({value, std::nan(""), 0.0});
        else if (points.empty())
            isSound = false;
        else if (tag.code < 30)
            points.back().y = value;
        else
            points.back().z = value;
    }
    if (!isSound)
        return Outcome::Damaged;
    PathPen pen(sheet);
    const bool isClosed = (record.integer(70, 0) & kClosed) != 0;
    if (!spline.controls.empty()) {
        if (spline.knots.empty() && spline.degree > 0 &&
            spline.controls.size() > static_cast<std::size_t>(spline.degree))
            spline.knots = plainKnots(spline.degree, spline.controls.size());
        if (!vectorkit::dxf::isSound(spline))
            return Outcome::Damaged;
        addSpline(spline, false, &pen);
    } else {
        const Vec3 startTangent = pointOr(record, 12, {}, &isSound);
        const Vec3 endTangent = pointOr(record, 13, {}, &isSound);
        if (through.size() < 2 || !isSound)
            return Outcome::Damaged;
        addSplineThrough(through, startTangent, endTangent, isClosed, &pen);
    }
    // Where a closed curve ends is where it began, but for what decimals lose.
    const QPointF gap = pen.path().end() - pen.path().start();
    const QRectF box = pen.path().boundsMm();
    const double size = std::max(box.width(), box.height());
    if (!pen.path().isEmpty() && std::hypot(gap.x(), gap.y()) <= (isClosed ? 1e-6 : 1e-9) * size)
        pen.close(isClosed ? 1e-6 : 1e-9);
    return finish(pen, out);
}

Outcome drawHelix(const Record &record, const Frame &sheet, EntityReader *out)
{
    // The spline that shows it comes first; its own values, which begin with a release number,
    // would be taken for more of that.
    constexpr int kRelease = 90;
    Record spline = record;
    const auto own = std::find_if(spline.tags.begin(), spline.tags.end(),
                                  [](const Tag &tag) { return tag.code == kRelease; });
    spline.tags.erase(own, spline.tags.end());
    return drawSpline(spline, sheet, out);
}

Outcome drawSolid(const Record &record, const Frame &sheet, EntityReader *out)
{
    bool isSound = true;
    const Frame plane = frameOf(record, sheet, &isSound);
    std::vector<Vec3> corners;
    if (!cornersOf(record, &corners) || !isSound)
        return Outcome::Damaged;
    // The last two stand crosswise in the file.
    std::swap(corners[2], corners[3]);
    if (isSame(corners[2], corners[3]))
        corners.pop_back();
    PathPen pen(plane);
    pen.moveTo(corners.front());
    std::for_each(corners.begin() + 1, corners.end(),
                  [&](const Vec3 &corner) { pen.lineTo(corner); });
    pen.close();
    if (!pen.isSound())
        return Outcome::Damaged;
    VectorShape shape;
    shape.paths.append(pen.path());
    shape.isStroked = false;
    shape.isFilled = true;
    out->addShape(shape);
    return Outcome::Done;
}

Outcome drawFace(const Record &record, const Frame &sheet, EntityReader *out)
{
    std::vector<Vec3> corners;
    if (!cornersOf(record, &corners))
        return Outcome::Damaged;
    if (isSame(corners[2], corners[3]))
        corners.pop_back();
    const int hidden = record.integer(70, 0); // a bit an edge
    const std::size_t count = corners.size();
    PathPen pen(sheet);
    if (hidden == 0) {
        pen.moveTo(corners.front());
        for (std::size_t i = 1; i < count; ++i)
            pen.lineTo(corners[i]);
        pen.close();
        return finish(pen, out);
    }
    for (std::size_t edge = 0; edge < count; ++edge) {
        const std::size_t bit = edge == 2 && count == 3 ? 3 : edge;
        if ((hidden >> bit & 1) != 0)
            continue;
        pen.moveTo(corners[edge]);
        pen.lineTo(corners[(edge + 1) % count]);
        if (finish(pen, out) == Outcome::Damaged)
            return Outcome::Damaged;
    }
    return Outcome::Done;
}

Outcome drawLeader(const Record &record, const Frame &sheet, EntityReader *out)
{
    constexpr int kCurved = 1;
    bool isSound = true;
    std::vector<Vec3> points;
    for (const Tag &tag : record.tags) {
        if (tag.code != 10 && tag.code != 20 && tag.code != 30)
            continue;
        double value = 0.0;
        isSound = tag.read(&value) && isSound;
        if (tag.code == 10)
            points.push_back({value, std::nan(""), 0.0});
        else if (points.empty())
            isSound = false;
        else
            (tag.code == 20 ? points.back().y : points.back().z) = value;
    }
    if (!isSound || points.size() < 2)
        return Outcome::Damaged;
    PathPen pen(sheet);
    if (record.integer(72, 0) == kCurved) {
        addSplineThrough(points, {}, {}, false, &pen);
    } else {
        pen.moveTo(points.front());
        std::for_each(points.begin() + 1, points.end(),
                      [&](const Vec3 &point) { pen.lineTo(point); });
    }
    if (record.integer(71, 1) != 0)
        out->note(VectorNote::Kind::Left, QT_TRANSLATE_NOOP("vectorkit", "arrow heads of leaders"));
    return finish(pen, out);
}

} // namespace vectorkit::dxf
