#include "GbPunctuation.h"

#include <QtCore/QtMath>

#include <cmath>

namespace fontkit {

namespace {

using Stroke = QVector<QPointF>;
using Strokes = QVector<Stroke>;

constexpr double kEm = 256.0;
constexpr double kMargin = 8.0;  // a line that joins the next one ends here
constexpr double kMiddle = 97.0; // of the em's height
constexpr double kTop = 214.0;   // of brackets
constexpr double kBottom = -20.0;
constexpr double kDotRadius = 9.0;

struct Ellipse
{
    QPointF centre;
    double radiusX;
    double radiusY;
};

/** Part of an ellipse, in pieces of at most 22.5 degrees of its circle. */
Stroke arc(const Ellipse &ellipse, double startDeg, double sweepDeg)
{
    const int pieces = qCeil(std::abs(sweepDeg) / 22.5);
    Stroke stroke;
    for (int i = 0; i <= pieces; ++i) {
        const double angle = qDegreesToRadians(startDeg + sweepDeg * i / pieces);
        stroke.append(ellipse.centre + QPointF(ellipse.radiusX * std::cos(angle),
                                               ellipse.radiusY * std::sin(angle)));
    }
    return stroke;
}

Stroke circle(const QPointF &centre, double radius)
{
    return arc({centre, radius, radius}, 90, 360);
}

Stroke dot(double x, double y) { return circle({x, y}, kDotRadius); }

/** A comma's dot with its tail. */
Stroke comma(double x, double y)
{
    Stroke stroke = arc({{x, y}, kDotRadius, kDotRadius}, 0, 360);
    stroke += {{x + 8, y - 12}, {x + 1, y - 23}, {x - 10, y - 33}};
    return stroke;
}

/** Turned by half a circle. */
Strokes turned(const Strokes &strokes, const QPointF &about)
{
    Strokes result = strokes;
    for (Stroke &stroke : result) {
        for (QPointF &point : stroke)
            point = 2 * about - point;
    }
    return result;
}

/** A closing bracket from the opening one. */
Strokes mirrored(const Strokes &strokes)
{
    Strokes result = strokes;
    for (Stroke &stroke : result) {
        for (QPointF &point : stroke)
            point.setX(kEm - point.x());
    }
    return result;
}

/** The left edge of a bracket that bends from `x` at its ends to the left by `depth`. */
Stroke bentEdge(double x, double depth)
{
    const double radiusY = (kTop - kBottom) / 2;
    // Three quarters of the half ellipse: ends that are not quite level.
    return arc(
        {{x + depth * 0.6, kMiddle}, depth * 1.6, radiusY / std::sin(qDegreesToRadians(68.0))}, 112,
        136);
}

Stroke angleBracket(double x) { return {{x + 52, kTop}, {x, kMiddle}, {x + 52, kBottom}}; }

Strokes closingQuote(double x) { return {comma(x, 204)}; }

Strokes openingQuote(double x) { return turned(closingQuote(x), {x, 192}); }

Strokes exclamationMark() { return {{{64, 214}, {64, 54}}, dot(64, 6)}; }

Strokes questionMark()
{
    Stroke hook = arc({{64, 166}, 44, 46}, 180, -225);
    hook += {{74, 106}, {66, 88}, {64, 54}};
    return {hook, dot(64, 6)};
}

Strokes yuanSign()
{
    return {{{62, 224}, {128, 118}, {194, 224}},
            {{128, 118}, {128, 0}},
            {{74, 106}, {182, 106}},
            {{74, 58}, {182, 58}}};
}

Strokes wave()
{
    Stroke stroke;
    for (int i = 0; i <= 24; ++i) {
        const double angle = 2 * M_PI * i / 24;
        stroke.append({26 + 204.0 * i / 24, kMiddle + 22 * std::sin(angle)});
    }
    return {stroke};
}

Strokes degreesCelsius() { return {circle({52, 190}, 26), arc({{170, 112}, 70, 112}, 45, 270)}; }

/** Dark by a line more between its edges. */
Strokes lenticularBracket()
{
    constexpr double kHalf = (kTop - kBottom) / 2;
    return {{{222, kTop}, {176, kTop}, {176, kBottom}, {222, kBottom}},
            arc({{222, kMiddle}, 24, kHalf}, 90, 180),
            arc({{208, kMiddle}, 21, kHalf}, 90, 180)};
}

Strokes tortoiseBracket() { return {{{222, kTop}, {184, 186}, {184, 8}, {222, kBottom}}}; }

Strokes cornerBracket() { return {{{230, kTop}, {166, kTop}, {166, 40}}}; }

Strokes whiteCornerBracket()
{
    return {{{234, kTop}, {158, kTop}, {158, 34}, {180, 34}, {180, 192}, {234, 192}, {234, kTop}}};
}

Strokes ring(double x, double y) { return {circle({x, y}, 24)}; }

Strokes times() { return {{{64, 33}, {192, 161}}, {{64, 161}, {192, 33}}}; }

Strokes dividedBy()
{
    return {{{32, kMiddle}, {224, kMiddle}}, dot(128, kMiddle + 62), dot(128, kMiddle - 62)};
}

Strokes plusMinus()
{
    return {{{32, 112}, {224, 112}}, {{128, 208}, {128, 16}}, {{32, -8}, {224, -8}}};
}

Strokes operator+(const Strokes &a, const Stroke &b)
{
    Strokes sum = a;
    sum.append(b);
    return sum;
}

void addMarks(QMap<int, Strokes> &marks)
{
    marks[0xA1A1] = {};
    marks[0xA1A2] = {{{38, 44}, {60, 24}, {76, -4}}};
    marks[0xA1A3] = ring(56, 14);
    marks[0xA1A4] = {dot(128, kMiddle)};
    marks[0xA1AA] = {{{kMargin, kMiddle}, {kEm - kMargin, kMiddle}}};
    marks[0xA1AB] = wave();
    marks[0xA1AD] = Strokes{dot(48, kMiddle), dot(128, kMiddle)} + dot(208, kMiddle);
    marks[0xA3A1] = exclamationMark();
    marks[0xA3AC] = {comma(56, 14)};
    marks[0xA3AE] = {dot(56, 6)};
    marks[0xA3BA] = {dot(64, 122), dot(64, 14)};
    marks[0xA3BB] = {dot(64, 122), comma(64, 14)};
    marks[0xA3BF] = questionMark();
}

void addPairs(QMap<int, Strokes> &marks)
{
    const QMap<int, Strokes> opening = {
        {0xA1B2, tortoiseBracket()},
        {0xA1B4, {angleBracket(166)}},
        {0xA1B6, {angleBracket(138), angleBracket(180)}},
        {0xA1BE, lenticularBracket()},
        {0xA3A8, {bentEdge(186, 30)}},
    };
    for (auto it = opening.begin(); it != opening.end(); ++it) {
        marks[it.key()] = it.value();
        marks[it.key() + 1] = mirrored(it.value());
    }
    const QPointF middle(kEm / 2, kMiddle);
    marks[0xA1B8] = cornerBracket();
    marks[0xA1B9] = turned(cornerBracket(), middle);
    marks[0xA1BA] = whiteCornerBracket();
    marks[0xA1BB] = turned(whiteCornerBracket(), middle);
    marks[0xA1AE] = openingQuote(210);
    marks[0xA1AF] = closingQuote(46);
    marks[0xA1B0] = openingQuote(170) + openingQuote(214).constFirst();
    marks[0xA1B1] = closingQuote(42) + closingQuote(86).constFirst();
}

void addSigns(QMap<int, Strokes> &marks)
{
    marks[0xA1C0] = plusMinus();
    marks[0xA1C1] = times();
    marks[0xA1C2] = dividedBy();
    marks[0xA1E3] = {circle({56, 190}, 26)};
    marks[0xA1E6] = degreesCelsius();
    marks[0xA3A4] = yuanSign();
    marks[0xA3FE] = {{{kMargin, 218}, {kEm - kMargin, 218}}};
}

} // namespace

const QMap<int, QVector<QVector<QPointF>>> &gbPunctuation()
{
    static const QMap<int, Strokes> marks = [] {
        QMap<int, Strokes> result;
        addMarks(result);
        addPairs(result);
        addSigns(result);
        return result;
    }();
    return marks;
}

} // namespace fontkit
