#include "StrokeEncoder.h"

#include <cmath>

#include <algorithm>
#include <cstdlib>

namespace fontkit {

namespace {

constexpr int kMostForward = 127; // of a signed byte
constexpr int kMostBackward = 128;
constexpr int kLongestVector = 15;
constexpr int kVectorBytes = 1;
constexpr int kLineBytes = 3;
constexpr int kListBytes = 3; // the code and the (0,0) behind the lines
constexpr int kListedBytes = 2;

using Steps = std::vector<QPoint>;

/** In how many pieces of whole units a way has to be, each within a signed byte. */
int piecesOf(int way)
{
    const int most = way < 0 ? kMostBackward : kMostForward;
    return std::max(1, (std::abs(way) + most - 1) / most);
}

/** The whole number nearest to part / all of a way, either way the same. */
int shareOf(int way, int part, int all)
{
    const int share = (2 * std::abs(way) * part + all) / (2 * all);
    return way < 0 ? -share : share;
}

/** Appends a way as steps that a signed byte holds. */
void appendSplit(Steps &steps, const QPoint &way)
{
    const int pieces = std::max(piecesOf(way.x()), piecesOf(way.y()));
    QPoint done;
    for (int i = 1; i <= pieces; ++i) {
        const QPoint reached(shareOf(way.x(), i, pieces), shareOf(way.y(), i, pieces));
        steps.push_back(reached - done);
        done = reached;
    }
}

/** Length and direction of the one-byte line that makes a step; no length if there is none. */
struct VectorStep
{
    int length = 0;
    int direction = 0;
};

VectorStep vectorOf(const QPoint &step)
{
    static const QPoint halves[16] = {{2, 0},  {2, 1},  {2, 2},  {1, 2},   {0, 2},   {-1, 2},
                                      {-2, 2}, {-2, 1}, {-2, 0}, {-2, -1}, {-2, -2}, {-1, -2},
                                      {0, -2}, {1, -2}, {2, -2}, {2, -1}};
    const int length = std::max(std::abs(step.x()), std::abs(step.y()));
    for (int direction = 0; length <= kLongestVector && direction < 16; ++direction) {
        if (halves[direction] * length == 2 * step)
            return {length, direction};
    }
    return {};
}

int costAlone(const QPoint &step) { return vectorOf(step).length > 0 ? kVectorBytes : kLineBytes; }

/**
 * Which steps stand in a list, so that the whole takes the fewest bytes: the costs of both choices
 * are carried from the last step to the first.
 */
std::vector<bool> chooseListed(const Steps &steps)
{
    const size_t count = steps.size();
    std::vector<int> alone(count + 1, 0);  // bytes from here on, no list being open
    std::vector<int> inList(count + 1, 0); // the same inside a list whose 3 bytes are counted
    for (size_t i = count; i-- > 0;) {
        const int listed = kListedBytes + inList[i + 1];
        alone[i] = std::min(costAlone(steps[i]) + alone[i + 1], kListBytes + listed);
        inList[i] = std::min(costAlone(steps[i]) + alone[i + 1], listed);
    }
    std::vector<bool> isListed(count, false);
    for (size_t i = 0; i < count; ++i) {
        const bool isOpen = i > 0 && isListed[i - 1];
        const int listed = kListedBytes + inList[i + 1] + (isOpen ? 0 : kListBytes);
        isListed[i] = listed < costAlone(steps[i]) + alone[i + 1];
    }
    return isListed;
}

void encodeAlone(GlyphProgram &program, const QPoint &step)
{
    const VectorStep vector = vectorOf(step);
    if (vector.length > 0)
        program.vector(vector.length, vector.direction);
    else
        program.line(step.x(), step.y());
}

/** Lines with the pen as it is. */
void encodeSteps(GlyphProgram &program, const Steps &steps)
{
    const std::vector<bool> isListed = chooseListed(steps);
    for (size_t i = 0; i < steps.size(); ++i) {
        if (!isListed[i]) {
            encodeAlone(program, steps[i]);
            continue;
        }
        Steps list;
        for (; i < steps.size() && isListed[i]; ++i)
            list.push_back(steps[i]);
        --i;
        program.lines(list);
    }
}

/** The steps along a stroke, repeated points left out. */
Steps stepsAlong(const QVector<QPoint> &stroke)
{
    Steps steps;
    for (int i = 1; i < stroke.size(); ++i) {
        if (stroke.at(i) != stroke.at(i - 1))
            appendSplit(steps, stroke.at(i) - stroke.at(i - 1));
    }
    return steps;
}

/** A way with the pen up, which is up from then on. */
void encodeMove(GlyphProgram &program, const QPoint &way)
{
    Steps steps;
    appendSplit(steps, way);
    program.penUp();
    encodeSteps(program, steps);
}

/** Has a stroke begin where the pen is: text drawing begins none between two glyphs. */
void encodeStart(GlyphProgram &program) { program.push().pop(); }

} // namespace

GridStrokes onGrid(const QVector<QVector<QPointF>> &strokes)
{
    GridStrokes result;
    for (const QVector<QPointF> &stroke : strokes) {
        QVector<QPoint> points;
        for (const QPointF &point : stroke) {
            const QPoint rounded(static_cast<int>(std::lround(point.x())),
                                 static_cast<int>(std::lround(point.y())));
            if (points.isEmpty() || points.last() != rounded)
                points.append(rounded);
        }
        result.append(points);
    }
    return result;
}

GlyphProgram encodeStrokes(const GridStrokes &strokes, int advance, FontForm form)
{
    GlyphProgram program(form);
    QPoint pen;
    bool isFirst = true;
    for (const QVector<QPoint> &stroke : strokes) {
        const Steps steps = stepsAlong(stroke);
        if (steps.empty())
            continue;
        if (stroke.first() != pen) {
            encodeMove(program, stroke.first() - pen);
            program.penDown();
        } else if (isFirst) {
            encodeStart(program);
        }
        encodeSteps(program, steps);
        pen = stroke.last();
        isFirst = false;
    }
    if (pen != QPoint(advance, 0))
        encodeMove(program, QPoint(advance, 0) - pen);
    return program.end();
}

} // namespace fontkit
