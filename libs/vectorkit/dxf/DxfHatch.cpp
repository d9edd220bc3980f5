#include <vectorkit/dxf/DxfEntities_p.h>

#include <QtCore/QtMath>

#include <algorithm>
#include <cmath>

namespace vectorkit::dxf {

namespace {

constexpr int kOutermost = 16;
constexpr int kExternal = 1;

/** One boundary with what the file says of its place among the others. */
struct Boundary
{
    QVector<VectorPath> loops;
    int flags = 0;
};

/** Walks over the tags of a hatch, in which the order alone tells what a code means. */
class HatchReader
{
public:
    HatchReader(const Record &hatch, const Frame &sheet) : m_record(hatch), m_frame(sheet) {}

    /** False when something is missing or wrong. */
    bool read(std::vector<Boundary> *boundaries)
    {
        m_height = takeHeight();
        const int count = takeInteger(91);
        for (int i = 0; i < count && m_sound; ++i)
            boundaries->push_back(boundary());
        return m_sound;
    }

private:
    using TagAt = std::vector<Tag>::const_iterator;

    double takeHeight()
    {
        double value = 0.0;
        for (; m_at != m_record.tags.end() && m_at->code != 91; ++m_at) {
            if (m_at->code == 30)
                m_sound = m_at->read(&value) && m_sound;
        }
        return value;
    }

    /** The next value of this code; what stands before it is passed over. */
    double take(int code)
    {
        double value = 0.0;
        while (m_at != m_record.tags.end() && m_at->code != code)
            ++m_at;
        if (m_at == m_record.tags.end() || !m_at->read(&value))
            m_sound = false;
        else
            ++m_at;
        return value;
    }

    int takeInteger(int code)
    {
        const double value = take(code);
        // Counts are bound by the tags that follow.
        if (!(std::abs(value) < 2147483648.0))
            m_sound = false;
        return m_sound ? static_cast<int>(value) : 0;
    }

    /** The value of a code if it is the next one. */
    double takeIfNext(int code, double fallback)
    {
        return m_at != m_record.tags.end() && m_at->code == code ? take(code) : fallback;
    }

    Vec3 takePoint(int code)
    {
        const double x = take(code);
        const double y = take(code + 10);
        return {x, y, m_height};
    }

    Boundary boundary()
    {
        constexpr int kPolyline = 2;
        Boundary taken;
        taken.flags = takeInteger(92);
        if ((taken.flags & kPolyline) != 0)
            addPolyline(&taken);
        else
            addEdges(&taken);
        return taken;
    }

    void addPolyline(Boundary *to)
    {
        takeInteger(72);
        takeIfNext(73, 1.0);
        const int count = takeInteger(93);
        PathPen pen(m_frame);
        double bulge = 0.0;
        Vec3 first;
        for (int i = 0; i < count && m_sound; ++i) {
            const Vec3 point = takePoint(10);
            const double next = takeIfNext(42, 0.0);
            if (i == 0) {
                pen.moveTo(point);
                first = point;
            } else {
                pen.bulgeTo(point, bulge);
            }
            bulge = next;
        }
        if (count > 1 && m_sound) {
            if (length(first - pen.position()) > 0.0)
                pen.bulgeTo(first, bulge);
            pen.close();
            to->loops.append(pen.path());
        }
        m_sound = m_sound && pen.isSound();
    }

    void addEdges(Boundary *to)
    {
        const int count = takeInteger(93);
        QVector<VectorPath> edges;
        for (int i = 0; i < count && m_sound; ++i) {
            PathPen pen(m_frame);
            addEdge(takeInteger(72), &pen);
            m_sound = m_sound && pen.isSound();
            if (!pen.path().isEmpty())
                edges.append(pen.path());
        }
        if (m_sound)
            to->loops = loopsOf(edges);
    }

    void addEdge(int kind, PathPen *pen)
    {
        enum { Line = 1, Arc = 2, Ellipse = 3, Curve = 4 };
        if (kind == Line) {
            pen->moveTo(takePoint(10));
            pen->lineTo(takePoint(11));
        } else if (kind == Arc) {
            const Vec3 centre = takePoint(10);
            const double radius = take(40);
            addTurn(centre, {radius, 0.0, 0.0}, {0.0, radius, 0.0}, 1.0, pen);
        } else if (kind == Ellipse) {
            const Vec3 centre = takePoint(10);
            Vec3 major = takePoint(11);
            major.z = 0.0;
            const double ratio = take(40);
            addTurn(centre, major, Vec3{-major.y, major.x, 0.0} * ratio, ratio, pen);
        } else if (kind == Curve) {
            addCurve(pen);
        } else {
            m_sound = false;
        }
    }

    /** The angles of a clockwise edge are measured clockwise. */
    void addTurn(const Vec3 &centre, const Vec3 &a, const Vec3 &b, double ratio, PathPen *pen)
    {
        double from = onEllipse(qDegreesToRadians(take(50)), ratio);
        double to = onEllipse(qDegreesToRadians(take(51)), ratio);
        const bool isForward = takeIfNext(73, 1.0) != 0.0;
        if (!m_sound || ratio == 0.0) {
            m_sound = false;
            return;
        }
        orderAngles(&from, &to);
        const Vec3 side = isForward ? b : b * -1.0;
        pen->moveTo(centre + a * std::cos(from) + side * std::sin(from));
        pen->ellipseTo(centre, a, side, from, to);
    }

    /** Angles at the centre of an ellipse to its own. */
    static double onEllipse(double angle, double ratio)
    {
        if (ratio == 1.0)
            return angle;
        const double turns = std::round(angle / (2.0 * M_PI)) * 2.0 * M_PI;
        return turns + std::atan2(std::sin(angle) / ratio, std::cos(angle));
    }

    void addCurve(PathPen *pen)
    {
        Spline spline;
        spline.degree = takeInteger(94);
        takeIfNext(73, 0.0);
        takeIfNext(74, 0.0);
        const int knots = takeInteger(95);
        const int controls = takeInteger(96);
        for (int i = 0; i < knots && m_sound; ++i)
            spline.knots.push_back(take(40));
        for (int i = 0; i < controls && m_sound; ++i) {
            spline.controls.push_back(takePoint(10));
            if (m_at != m_record.tags.end() && m_at->code == 42)
                spline.weights.push_back(take(42));
        }
        m_sound = m_sound && vectorkit::dxf::isSound(spline);
        if (m_sound)
            addSpline(spline, false, pen);
    }

    /** Edges stand one after the other, some of them the other way round. */
    static QVector<VectorPath> loopsOf(const QVector<VectorPath> &edges)
    {
        QVector<VectorPath> loops;
        VectorPath loop;
        const auto distance = [](const QPointF &a, const QPointF &b) {
            return std::hypot(b.x() - a.x(), b.y() - a.y());
        };
        double size = 0.0;
        for (const VectorPath &edge : edges) {
            const QRectF box = edge.boundsMm();
            size = std::max({size, box.width(), box.height()});
        }
        const double near = 1e-6 * size;
        for (int i = 0; i < edges.size(); ++i) {
            VectorPath edge = edges[i];
            const bool isClosed = !loop.isEmpty() && distance(loop.start(), loop.end()) <= near;
            if (isClosed) {
                loop.close(near);
                loops.append(loop);
                loop = VectorPath();
            }
            if (loop.isEmpty()) {
                // The end that the next edge touches is the end.
                const auto gapTo = [&](const QPointF &end) {
                    return std::min(distance(end, edges[i + 1].start()),
                                    distance(end, edges[i + 1].end()));
                };
                if (i + 1 < edges.size() && gapTo(edge.start()) < gapTo(edge.end()) &&
                    distance(edge.start(), edge.end()) > near)
                    edge = edge.reversed();
            } else if (distance(loop.end(), edge.end()) < distance(loop.end(), edge.start())) {
                edge = edge.reversed();
            }
            if (!loop.isEmpty() && distance(loop.end(), edge.start()) > near)
                loop.lineTo(edge.start());
            loop.append(edge);
        }
        if (!loop.isEmpty()) {
            loop.close(near);
            loops.append(loop);
        }
        return loops;
    }

    const Record &m_record;
    const Frame &m_frame;
    TagAt m_at = m_record.tags.begin();
    double m_height = 0.0;
    bool m_sound = true;
};

/** Leaves out what the style of islands leaves empty inside. */
void keepFilled(int style, std::vector<Boundary> *boundaries)
{
    enum { OutermostOnly = 1, WithoutIslands = 2 };
    if (style != OutermostOnly && style != WithoutIslands)
        return;
    const int kept = style == OutermostOnly ? kExternal | kOutermost : kExternal;
    const auto isKept = [&](const Boundary &boundary) { return (boundary.flags & kept) != 0; };
    const auto isExternal = [](const Boundary &boundary) {
        return (boundary.flags & kExternal) != 0;
    };
    // Programs that don't say which are outside mean all of them.
    if (!std::any_of(boundaries->begin(), boundaries->end(), isExternal))
        return;
    boundaries->erase(std::remove_if(boundaries->begin(), boundaries->end(),
                                     [&](const Boundary &boundary) { return !isKept(boundary); }),
                      boundaries->end());
}

} // namespace

Outcome drawHatch(const Record &record, const Frame &sheet, EntityReader *out)
{
    bool isSound = record.has(91);
    const Frame plane = frameOf(record, sheet, &isSound);
    std::vector<Boundary> boundaries;
    if (!isSound || !HatchReader(record, plane).read(&boundaries))
        return Outcome::Damaged;
    keepFilled(record.integer(75, 0), &boundaries);
    VectorShape shape;
    shape.isStroked = false;
    shape.isFilled = true;
    for (const Boundary &boundary : boundaries)
        shape.paths += boundary.loops;
    const bool isSolid = record.integer(70, 0) == 1;
    if (!isSolid)
        out->note(VectorNote::Kind::Changed,
                  QT_TRANSLATE_NOOP("vectorkit", "patterns of hatches: their areas are filled"));
    if (!shape.paths.isEmpty())
        out->addShape(shape);
    return Outcome::Done;
}

} // namespace vectorkit::dxf
