#include <vectorkit/clean/PathDoubles.h>

#include <vectorkit/clean/PointGrid_p.h>

#include <QtGui/QPolygonF>

#include <algorithm>
#include <cmath>

namespace vectorkit {

namespace {

using Piece = VectorPath::Piece;

double distance(const QPointF &a, const QPointF &b)
{
    return std::hypot(a.x() - b.x(), a.y() - b.y());
}

void append(VectorPath *path, const Piece &piece)
{
    if (piece.kind == PieceKind::Line)
        path->lineTo(piece.to);
    else if (piece.kind == PieceKind::Cubic)
        path->cubicTo(piece.control1, piece.control2, piece.to);
    else
        path->arcTo(piece.control1, piece.sweepDeg, piece.to);
}

bool hasLength(const Piece &piece, double withinMm)
{
    if (distance(piece.from, piece.to) > withinMm)
        return true;
    if (piece.kind == PieceKind::Cubic)
        return distance(piece.from, piece.control1) > withinMm ||
               distance(piece.from, piece.control2) > withinMm;
    return piece.kind == PieceKind::Arc && distance(piece.from, piece.control1) > withinMm &&
           std::abs(piece.sweepDeg) > 180.0;
}

/** A part of a line, from 0 to 1. */
struct Part
{
    double from;
    double to;
};

/** What is left of a whole line without these parts. */
std::vector<Part> remains(std::vector<Part> covered)
{
    std::sort(covered.begin(), covered.end(),
              [](const Part &a, const Part &b) { return a.from < b.from; });
    std::vector<Part> left;
    double at = 0.0;
    for (const Part &part : covered) {
        if (part.from > at)
            left.push_back({at, part.from});
        at = std::max(at, part.to);
    }
    if (at < 1.0)
        left.push_back({at, 1.0});
    return left;
}

/** All lines of some paths, the longest first, and what is left of each. */
class LineSieve
{
public:
    LineSieve(std::vector<Piece> allLines, double withinMm)
        : m_lines(std::move(allLines)), m_within(withinMm), m_left(m_lines.size()),
          m_cells(m_lines.size() * 3, cellFor(m_lines, withinMm)), m_lastSeen(m_lines.size(), -1)
    {
    }

    /** False when cancelled. */
    bool run(DoubleFigures *figures, const std::function<bool(double)> &progress)
    {
        std::vector<double> lengths(m_lines.size());
        std::vector<int> order(m_lines.size());
        for (std::size_t i = 0; i < m_lines.size(); ++i) {
            lengths[i] = distance(m_lines[i].from, m_lines[i].to);
            order[i] = static_cast<int>(i);
        }
        std::stable_sort(order.begin(), order.end(), [&](int a, int b) {
            return lengths[static_cast<std::size_t>(a)] > lengths[static_cast<std::size_t>(b)];
        });
        constexpr std::size_t kEvery = 1024;
        for (std::size_t done = 0; done < order.size(); ++done) {
            if (done % kEvery == 0 && progress && !progress(double(done) / double(order.size())))
                return false;
            sieve(order[done], lengths[static_cast<std::size_t>(order[done])], figures);
        }
        return true;
    }

    const std::vector<Part> &leftOf(std::size_t line) const { return m_left[line]; }

private:
    /** The mean length, so that a line lies in few cells and a cell holds few lines. */
    static double cellFor(const std::vector<Piece> &all, double withinMm)
    {
        double length = 0.0;
        for (const Piece &line : all)
            length += distance(line.from, line.to);
        const double mean = all.empty() ? 1.0 : length / double(all.size());
        return std::max({mean, withinMm * 8.0, 1e-6});
    }

    /** Of two lines on each other, places this near together lie in neighbouring cells. */
    static constexpr double kStride = 0.8;

    template <class Visit>
    void forCellsOf(const Piece &line, double length, Visit visit) const
    {
        const int steps =
            static_cast<int>(std::min(std::ceil(length / (m_cells.cellMm() * kStride)), 1e6));
        GridCell last{0, 0};
        for (int step = 0; step <= steps; ++step) {
            const GridCell cell = m_cells.cellOf(
                line.from + (line.to - line.from) * (double(step) / std::max(steps, 1)));
            if (step == 0 || cell.column != last.column || cell.row != last.row)
                visit(cell);
            last = cell;
        }
    }

    /** The part of a line that another one covers; empty when it covers none. */
    Part coveredPart(const Piece &line, double length, const Piece &other) const
    {
        const QPointF along = (line.to - line.from) / length;
        const QPointF toFrom = other.from - line.from;
        const QPointF toEnd = other.to - line.from;
        double t1 = QPointF::dotProduct(toFrom, along);
        double t2 = QPointF::dotProduct(toEnd, along);
        double off1 = along.x() * toFrom.y() - along.y() * toFrom.x();
        double off2 = along.x() * toEnd.y() - along.y() * toEnd.x();
        if (t1 > t2) {
            std::swap(t1, t2);
            std::swap(off1, off2);
        }
        // Ends that stand over by less than the tolerance count as level.
        const double from = t1 <= m_within ? 0.0 : t1;
        const double to = t2 >= length - m_within ? length : t2;
        if (to - from <= m_within || t2 - t1 <= 0.0)
            return {0.0, 0.0};
        const auto offAt = [&](double t) {
            const double place = std::clamp(t, t1, t2);
            return std::abs(off1 + (off2 - off1) * (place - t1) / (t2 - t1));
        };
        if (offAt(from) > m_within || offAt(to) > m_within)
            return {0.0, 0.0};
        return {from / length, to / length};
    }

    void sieve(int index, double length, DoubleFigures *figures)
    {
        const Piece &line = m_lines[static_cast<std::size_t>(index)];
        std::vector<Part> covered;
        if (length > m_within) {
            forCellsOf(line, length, [&](const GridCell &cell) {
                m_cells.forCellsAround(cell, [&](int other) {
                    if (m_lastSeen[static_cast<std::size_t>(other)] == index)
                        return;
                    m_lastSeen[static_cast<std::size_t>(other)] = index;
                    const Part part =
                        coveredPart(line, length, m_lines[static_cast<std::size_t>(other)]);
                    if (part.to > part.from)
                        covered.push_back(part);
                });
            });
        }
        const bool isCovered = !covered.empty();
        std::vector<Part> rest = remains(std::move(covered));
        double restMm = 0.0;
        for (const Part &part : rest)
            restMm += (part.to - part.from) * length;
        if (isCovered) {
            ++figures->doubled;
            figures->doubledMm += length - restMm;
        }
        m_left[static_cast<std::size_t>(index)] = std::move(rest);
        forCellsOf(line, length, [&](const GridCell &cell) { m_cells.insert(cell, index); });
    }

    std::vector<Piece> m_lines;
    double m_within;
    std::vector<std::vector<Part>> m_left;
    CellTable m_cells;
    std::vector<int> m_lastSeen;
};

/** Curves that were met before, either way round. */
class CurveSieve
{
public:
    CurveSieve(std::size_t count, double withinMm)
        : m_within(withinMm), m_cells(count, std::max(withinMm * 2.0, 1e-6))
    {
    }

    bool isDouble(const Piece &curve)
    {
        const Seen seen = seenOf(curve);
        bool found = false;
        const GridCell cell = m_cells.cellOf(seen.key);
        m_cells.forCellsAround(
            cell, [&](int index) { found = found || isSame(m_known[std::size_t(index)], seen); });
        if (found)
            return true;
        m_cells.insert(cell, static_cast<int>(m_known.size()));
        m_known.push_back(seen);
        return false;
    }

private:
    struct Seen
    {
        bool isCircle;
        QPointF key; ///< the middle; a circle's centre
        QPointF ends[2];
        QPointF quarters[2];
        double radius;
    };

    static QPointF at(const Piece &curve, double t)
    {
        VectorPath path(curve.from);
        if (curve.kind == PieceKind::Arc) {
            path.arcAbout(curve.control1, curve.sweepDeg * t);
            return path.end();
        }
        const double s = 1.0 - t;
        return curve.from * (s * s * s) + curve.control1 * (3.0 * s * s * t) +
               curve.control2 * (3.0 * s * t * t) + curve.to * (t * t * t);
    }

    static Seen seenOf(const Piece &curve)
    {
        const bool isCircle = curve.kind == PieceKind::Arc && std::abs(curve.sweepDeg) >= 360.0;
        return {isCircle,
                isCircle ? curve.control1 : at(curve, 0.5),
                {curve.from, curve.to},
                {at(curve, 0.25), at(curve, 0.75)},
                isCircle ? distance(curve.from, curve.control1) : 0.0};
    }

    bool isSame(const Seen &a, const Seen &b) const
    {
        const auto isNear = [&](const QPointF &p, const QPointF &q) {
            return distance(p, q) <= m_within;
        };
        if (a.isCircle != b.isCircle || !isNear(a.key, b.key))
            return false;
        if (a.isCircle)
            return std::abs(a.radius - b.radius) <= m_within;
        const auto isSameWith = [&](int first) {
            return isNear(a.ends[0], b.ends[first]) && isNear(a.ends[1], b.ends[1 - first]) &&
                   isNear(a.quarters[0], b.quarters[first]) &&
                   isNear(a.quarters[1], b.quarters[1 - first]);
        };
        return isSameWith(0) || isSameWith(1);
    }

    double m_within;
    CellTable m_cells;
    std::vector<Seen> m_known;
};

/** Collects runs of what is kept of one path. */
class Runs
{
public:
    explicit Runs(QVector<VectorPath> *collected) : m_target(collected) {}

    void begin(bool isClosed)
    {
        m_first = m_target->size();
        m_isWhole = isClosed;
        m_isRunning = false;
    }

    void add(const Piece &piece)
    {
        if (!m_isRunning)
            m_run = VectorPath(piece.from);
        m_isRunning = true;
        append(&m_run, piece);
    }

    void breakRun()
    {
        if (m_isRunning)
            m_target->append(m_run);
        m_isRunning = false;
        m_isWhole = false;
    }

    /** `startsWhole`: the path's first piece is kept from its beginning. */
    void end(bool wasClosed, bool startsWhole)
    {
        if (m_isRunning && m_isWhole && wasClosed) {
            m_run.close();
            m_target->append(m_run);
        } else if (m_isRunning && wasClosed && startsWhole && m_target->size() > m_first) {
            m_run.append((*m_target)[m_first]); // over the start of the outline
            (*m_target)[m_first] = m_run;
        } else if (m_isRunning) {
            m_target->append(m_run);
        }
        m_isRunning = false;
    }

private:
    QVector<VectorPath> *m_target; ///< borrowed from the caller
    int m_first = 0;
    VectorPath m_run;
    bool m_isRunning = false;
    bool m_isWhole = false;
};

} // namespace

QVector<VectorPath> withoutZeroLength(const QVector<VectorPath> &paths, double withinMm,
                                      DoubleFigures *figures)
{
    DoubleFigures unheard;
    DoubleFigures *counted = figures ? figures : &unheard;
    QVector<VectorPath> kept;
    for (const VectorPath &path : paths) {
        VectorPath longer(path.start());
        qint64 dropped = 0;
        path.forEach([&](Piece piece) {
            piece.from = longer.end(); // over what was dropped
            if (hasLength(piece, withinMm))
                append(&longer, piece);
            else
                ++dropped;
        });
        counted->zeroLength += dropped;
        if (longer.isEmpty())
            continue;
        if (path.isClosed())
            longer.close();
        kept.append(dropped > 0 ? longer : path);
    }
    return kept;
}

QVector<VectorPath> withoutDoubles(const QVector<VectorPath> &paths, double withinMm,
                                   DoubleFigures *figures,
                                   const std::function<bool(double)> &progress)
{
    DoubleFigures found;
    std::vector<Piece> lines;
    std::size_t curveCount = 0;
    for (const VectorPath &path : paths) {
        path.forEach([&](const Piece &piece) {
            if (piece.kind == PieceKind::Line)
                lines.push_back(piece);
            else
                ++curveCount;
        });
    }
    LineSieve lineSieve(std::move(lines), withinMm);
    if (!lineSieve.run(&found, progress))
        return paths;

    QVector<VectorPath> kept;
    Runs runs(&kept);
    CurveSieve curves(curveCount, withinMm);
    std::size_t line = 0;
    for (const VectorPath &path : paths) {
        runs.begin(path.isClosed());
        bool isFirst = true;
        bool startsWhole = false;
        path.forEach([&](const Piece &piece) {
            std::vector<Part> parts;
            if (piece.kind == PieceKind::Line) {
                parts = lineSieve.leftOf(line++);
            } else if (!curves.isDouble(piece)) {
                parts = {{0.0, 1.0}};
            } else {
                ++found.doubled;
                VectorPath alone(piece.from);
                append(&alone, piece);
                found.doubledMm += alone.lengthMm();
            }
            if (isFirst)
                startsWhole = !parts.empty() && parts.front().from == 0.0;
            isFirst = false;
            double reached = 0.0;
            for (const Part &part : parts) {
                if (part.from > reached)
                    runs.breakRun();
                Piece rest = piece;
                if (piece.kind == PieceKind::Line) {
                    const QPointF along = piece.to - piece.from;
                    rest.from = part.from == 0.0 ? piece.from : piece.from + along * part.from;
                    rest.to = part.to == 1.0 ? piece.to : piece.from + along * part.to;
                }
                runs.add(rest);
                reached = part.to;
            }
            if (reached < 1.0)
                runs.breakRun();
        });
        runs.end(path.isClosed(), startsWhole);
    }
    if (figures) {
        figures->doubled += found.doubled;
        figures->doubledMm += found.doubledMm;
    }
    return kept;
}

} // namespace vectorkit
