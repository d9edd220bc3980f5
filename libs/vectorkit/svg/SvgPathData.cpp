#include <vectorkit/svg/SvgPathData_p.h>

#include <vectorkit/svg/SvgScan_p.h>

#include <QtCore/QtMath>

#include <cmath>

namespace vectorkit {

namespace {

/** Where a command leaves the pen, and what the next one needs of it. */
class PathBuilder
{
public:
    explicit PathBuilder(QVector<VectorPath> *target) : m_paths(target) {}

    /** One command with its numbers, relative ones already made absolute. */
    void moveTo(const QPointF &to)
    {
        finish();
        m_path = VectorPath(to);
        m_start = m_current = to;
        m_isBegun = true;
        forget();
    }

    void lineTo(const QPointF &to)
    {
        begin();
        m_path.lineTo(to);
        m_current = to;
        forget();
    }

    void cubicTo(const QPointF &c1, const QPointF &c2, const QPointF &to)
    {
        begin();
        m_path.cubicTo(c1, c2, to);
        m_current = to;
        m_lastCubic = c2;
        m_lastQuadratic = to;
    }

    void quadraticTo(const QPointF &c, const QPointF &to)
    {
        const QPointF from = m_current;
        cubicTo(from + (c - from) * (2.0 / 3.0), to + (c - to) * (2.0 / 3.0), to);
        m_lastCubic = to;
        m_lastQuadratic = c;
    }

    void arcTo(const double *n, bool isLarge, bool isClockwise, const QPointF &to)
    {
        begin();
        addSvgArc(&m_path, n[0], n[1], n[2], isLarge, isClockwise, to);
        m_current = to;
        forget();
    }

    void close()
    {
        if (m_isBegun)
            m_path.close();
        finish();
        m_current = m_start;
        forget();
    }

    void finish()
    {
        if (m_isBegun && !m_path.isEmpty()) {
            if (m_path.start() == m_path.end())
                m_path.close();
            m_paths->append(m_path);
        }
        m_isBegun = false;
        m_path = VectorPath();
    }

    QPointF at() const { return m_current; }
    QPointF smoothCubic() const { return m_current * 2.0 - m_lastCubic; }
    QPointF smoothQuadratic() const { return m_current * 2.0 - m_lastQuadratic; }

private:
    void begin()
    {
        if (!m_isBegun) {
            m_path = VectorPath(m_current);
            m_isBegun = true;
        }
    }
    void forget() { m_lastCubic = m_lastQuadratic = m_current; }

    QVector<VectorPath> *m_paths;
    VectorPath m_path;
    bool m_isBegun = false;
    QPointF m_start;
    QPointF m_current;
    QPointF m_lastCubic;
    QPointF m_lastQuadratic;
};

/** How many numbers a command takes; -1: it is none. */
int argumentsOf(char upper)
{
    switch (upper) {
    case 'Z':
        return 0;
    case 'H':
    case 'V':
        return 1;
    case 'M':
    case 'L':
    case 'T':
        return 2;
    case 'S':
    case 'Q':
        return 4;
    case 'C':
        return 6;
    case 'A':
        return 7;
    default:
        return -1;
    }
}

/** Reads the numbers of one command; those of an arc have two flags among them. */
bool scanNumbers(SvgScan *scan, char upper, int count, double *numbers)
{
    for (int index = 0; index < count; ++index) {
        if (index > 0)
            scan->skipSeparator();
        bool flag = false;
        if (upper == 'A' && (index == 3 || index == 4)) {
            if (!scan->flag(&flag))
                return false;
            numbers[index] = flag ? 1.0 : 0.0;
        } else if (!scan->number(&numbers[index])) {
            return false;
        }
    }
    return true;
}

void apply(PathBuilder *builder, char upper, bool isRelative, const double *n)
{
    const QPointF from = isRelative ? builder->at() : QPointF();
    const auto point = [&](int index) { return from + QPointF(n[index], n[index + 1]); };
    switch (upper) {
    case 'M':
        builder->moveTo(point(0));
        break;
    case 'L':
        builder->lineTo(point(0));
        break;
    case 'H':
        builder->lineTo(QPointF(from.x() + n[0], builder->at().y()));
        break;
    case 'V':
        builder->lineTo(QPointF(builder->at().x(), from.y() + n[0]));
        break;
    case 'C':
        builder->cubicTo(point(0), point(2), point(4));
        break;
    case 'S':
        builder->cubicTo(builder->smoothCubic(), point(0), point(2));
        break;
    case 'Q':
        builder->quadraticTo(point(0), point(2));
        break;
    case 'T':
        builder->quadraticTo(builder->smoothQuadratic(), point(0));
        break;
    case 'A':
        builder->arcTo(n, n[3] != 0.0, n[4] != 0.0, point(5));
        break;
    default:
        break;
    }
}

/** The centre of an ellipse through two points, and where on it they lie. */
struct CentredArc
{
    QPointF centre;
    double radiusX = 0.0;
    double radiusY = 0.0;
    double startRad = 0.0;
    double sweepRad = 0.0; ///< positive runs clockwise on the screen
};

CentredArc centredArc(const QPointF &from, const QPointF &to, double radiusX, double radiusY,
                      double turnRad, bool isLarge, bool isClockwise)
{
    const double cosTurn = std::cos(turnRad);
    const double sinTurn = std::sin(turnRad);
    const QPointF half = (from - to) * 0.5;
    // In the frame of the ellipse, about the middle of both points.
    const double x = cosTurn * half.x() + sinTurn * half.y();
    const double y = -sinTurn * half.x() + cosTurn * half.y();
    const double reach = std::hypot(x / radiusX, y / radiusY);
    CentredArc arc;
    arc.radiusX = reach > 1.0 ? radiusX * reach : radiusX;
    arc.radiusY = reach > 1.0 ? radiusY * reach : radiusY;
    const double u = x / arc.radiusX;
    const double v = y / arc.radiusY;
    const double square = u * u + v * v;
    double away = square > 0.0 ? std::sqrt(std::max(0.0, 1.0 / square - 1.0)) : 0.0;
    if (reach >= 1.0)
        away = 0.0;
    if (isLarge == isClockwise)
        away = -away;
    const double centreU = away * v;
    const double centreV = -away * u;
    const double centreX = centreU * arc.radiusX;
    const double centreY = centreV * arc.radiusY;
    arc.centre =
        QPointF(cosTurn * centreX - sinTurn * centreY, sinTurn * centreX + cosTurn * centreY) +
        (from + to) * 0.5;
    arc.startRad = std::atan2(v - centreV, u - centreU);
    arc.sweepRad = std::atan2(-v - centreV, -u - centreU) - arc.startRad;
    if (isClockwise && arc.sweepRad <= 0.0)
        arc.sweepRad += 2.0 * M_PI;
    else if (!isClockwise && arc.sweepRad >= 0.0)
        arc.sweepRad -= 2.0 * M_PI;
    return arc;
}

/** Cubics along an ellipse; an eighth of a turn each is within a millionth of the radius. */
void addEllipseCubics(VectorPath *path, const CentredArc &arc, double turnRad, const QPointF &to)
{
    const int count = std::max(1, int(std::ceil(std::abs(arc.sweepRad) / (M_PI / 6.0))));
    const double step = arc.sweepRad / count;
    const double handle = 4.0 / 3.0 * std::tan(step / 4.0);
    const double cosTurn = std::cos(turnRad);
    const double sinTurn = std::sin(turnRad);
    const auto map = [&](double u, double v) {
        const double x = u * arc.radiusX;
        const double y = v * arc.radiusY;
        return arc.centre + QPointF(cosTurn * x - sinTurn * y, sinTurn * x + cosTurn * y);
    };
    for (int index = 0; index < count; ++index) {
        const double a = arc.startRad + step * index;
        const double b = arc.startRad + step * (index + 1);
        const QPointF end = index == count - 1 ? to : map(std::cos(b), std::sin(b));
        path->cubicTo(map(std::cos(a) - handle * std::sin(a), std::sin(a) + handle * std::cos(a)),
                      map(std::cos(b) + handle * std::sin(b), std::sin(b) - handle * std::cos(b)),
                      end);
    }
}

} // namespace

void addSvgArc(VectorPath *path, double radiusX, double radiusY, double turnDeg, bool isLarge,
               bool isClockwise, const QPointF &to)
{
    const QPointF from = path->end();
    if (from == to)
        return;
    const double rx = std::abs(radiusX);
    const double ry = std::abs(radiusY);
    if (rx == 0.0 || ry == 0.0) {
        path->lineTo(to);
        return;
    }
    const double turnRad = qDegreesToRadians(std::fmod(turnDeg, 360.0));
    const CentredArc arc = centredArc(from, to, rx, ry, turnRad, isLarge, isClockwise);
    if (!std::isfinite(arc.sweepRad) || !std::isfinite(arc.centre.x()) ||
        !std::isfinite(arc.centre.y())) {
        path->lineTo(to);
    } else if (rx == ry) {
        path->arcTo(arc.centre, -qRadiansToDegrees(arc.sweepRad), to);
    } else {
        addEllipseCubics(path, arc, turnRad, to);
    }
}

VectorPath svgEllipse(const QPointF &centre, double radiusX, double radiusY)
{
    VectorPath path(centre + QPointF(radiusX, 0.0));
    if (radiusX == radiusY) {
        path.arcTo(centre, -360.0, path.start());
    } else {
        CentredArc arc;
        arc.centre = centre;
        arc.radiusX = radiusX;
        arc.radiusY = radiusY;
        arc.sweepRad = 2.0 * M_PI;
        addEllipseCubics(&path, arc, 0.0, path.start());
    }
    path.close();
    return path;
}

VectorPath svgRect(const QRectF &rect, double radiusX, double radiusY)
{
    const double rx = std::min(radiusX, rect.width() / 2.0);
    const double ry = std::min(radiusY, rect.height() / 2.0);
    if (!(rx > 0.0 && ry > 0.0)) {
        return VectorPath::polyline(
            {rect.topLeft(), rect.topRight(), rect.bottomRight(), rect.bottomLeft()}, true);
    }
    VectorPath path(QPointF(rect.left() + rx, rect.top()));
    const auto corner = [&](const QPointF &before, const QPointF &after) {
        if (path.end() != before)
            path.lineTo(before);
        addSvgArc(&path, rx, ry, 0.0, false, true, after);
    };
    corner({rect.right() - rx, rect.top()}, {rect.right(), rect.top() + ry});
    corner({rect.right(), rect.bottom() - ry}, {rect.right() - rx, rect.bottom()});
    corner({rect.left() + rx, rect.bottom()}, {rect.left(), rect.bottom() - ry});
    corner({rect.left(), rect.top() + ry}, path.start());
    path.close();
    return path;
}

bool parseSvgPath(const QString &data, QVector<VectorPath> *paths, int *damageAt)
{
    const QByteArray bytes = data.toLatin1();
    SvgScan scan(bytes);
    PathBuilder builder(paths);
    char command = '\0';
    bool isGood = true;
    scan.skipSpaces();
    while (isGood && !scan.atEnd()) {
        const char next = scan.peek();
        const char upperNext = next >= 'a' && next <= 'z' ? char(next - 'a' + 'A') : next;
        if (argumentsOf(upperNext) >= 0) {
            isGood = command != '\0' || upperNext == 'M';
            command = next;
            if (isGood) {
                scan.step();
                scan.skipSpaces();
            }
        } else {
            // Numbers alone go on with the command before them.
            isGood = command != '\0' && command != 'Z' && command != 'z';
        }
        const bool isRelative = command >= 'a' && command <= 'z';
        const char upper = isRelative ? char(command - 'a' + 'A') : command;
        double numbers[7] = {};
        isGood = isGood && scanNumbers(&scan, upper, argumentsOf(upper), numbers);
        if (!isGood)
            break;
        if (upper == 'Z')
            builder.close();
        else
            apply(&builder, upper, isRelative, numbers);
        if (upper == 'M')
            command = isRelative ? 'l' : 'L';
        scan.skipSeparator();
    }
    builder.finish();
    if (!isGood)
        *damageAt = scan.position();
    return isGood;
}

} // namespace vectorkit
