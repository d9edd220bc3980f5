#pragma once

#include <vectorkit/VectorPath.h>

#include <vector>

namespace vectorkit::dxf {

/** A point or a direction in space, x and y as drawn, z towards the eye. */
struct Vec3
{
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};

Vec3 operator+(const Vec3 &a, const Vec3 &b);
Vec3 operator-(const Vec3 &a, const Vec3 &b);
Vec3 operator*(const Vec3 &a, double factor);
Vec3 cross(const Vec3 &a, const Vec3 &b);
double length(const Vec3 &a);

/** Axes and origin of one space in another. */
struct Frame
{
    Vec3 x{1.0, 0.0, 0.0};
    Vec3 y{0.0, 1.0, 0.0};
    Vec3 z{0.0, 0.0, 1.0};
    Vec3 origin;

    Vec3 direction(const Vec3 &local) const;
    Vec3 map(const Vec3 &local) const { return origin + direction(local); }

    /** Seen from above. */
    QPointF flat(const Vec3 &local) const;
    QPointF flatDirection(const Vec3 &local) const;
};

/** What `inner` places, placed by `outer`. */
Frame operator*(const Frame &outer, const Frame &inner);

/**
 * The frame of objects with this extrusion direction: its z axis along it, its x axis at right
 * angles to the world's y axis where the direction is within 1/64 of the world's z axis in x and y,
 * otherwise to the world's z axis.
 *
 * Failure: the world's own for a direction without a length.
 */
Frame objectFrame(const Vec3 &extrusion);

/** Draws a path in one space and gives it as it looks on the sheet. */
class PathPen
{
public:
    /** `sheet`: from the space that is drawn in to millimetres with y down; borrowed. */
    explicit PathPen(const Frame &sheet) : m_frame(sheet) {}

    void moveTo(const Vec3 &point);
    void lineTo(const Vec3 &point);
    void cubicTo(const Vec3 &control1, const Vec3 &control2, const Vec3 &point);

    /**
     * The points centre + a cos t + b sin t for t from `from` to `to` in radians, beginning where
     * the pen stands. An exact arc where the sheet shows a circle.
     */
    void ellipseTo(const Vec3 &centre, const Vec3 &a, const Vec3 &b, double from, double to);

    /**
     * An arc in the plane of x and y whose bulge is the tangent of a quarter of its angle, positive
     * for one that runs counter-clockwise.
     */
    void bulgeTo(const Vec3 &point, double bulge);

    /** Closes the path, whose end belongs on its start when it is within this share of its size. */
    void close(double nearShare = 0.0);

    const Vec3 &position() const { return m_at; }
    const Frame &sheet() const { return m_frame; }

    /** All coordinates were finite and within 1e9 mm. */
    bool isSound() const { return m_sound; }
    const VectorPath &path() const { return m_drawn; }

private:
    QPointF shown(const Vec3 &point);
    void ellipseTo(const Vec3 &centre, const Vec3 &a, const Vec3 &b, double from, double to,
                   const Vec3 &end);

    const Frame &m_frame;
    VectorPath m_drawn;
    Vec3 m_at;
    bool m_sound = true;
};

/** A curve of rational pieces over knots. */
struct Spline
{
    int degree = 3;
    std::vector<double> knots;
    std::vector<Vec3> controls;
    std::vector<double> weights; ///< empty: all 1
};

/** Limit: the degree of a spline. */
constexpr int kMostDegree = 25;

/** The spline has as many knots as its degree and points ask for, in order, and weights above 0. */
bool isSound(const Spline &spline);

/** Equal steps between knots, its ends on the first and last point. */
std::vector<double> plainKnots(int degree, std::size_t controlCount);

/**
 * Draws a sound spline from its beginning, where it moves or draws a line to: exactly up to the
 * third degree without weights, otherwise within a millionth of its size.
 */
void addSpline(const Spline &spline, bool isConnected, PathPen *pen);

/**
 * Draws the smoothest curve through points, which the pen moves to: cubic pieces over the lengths
 * of the chords. A tangent of no length leaves its end unbent.
 */
void addSplineThrough(std::vector<Vec3> points, const Vec3 &startTangent, const Vec3 &endTangent,
                      bool isClosed, PathPen *pen);

} // namespace vectorkit::dxf
