#include <studio/job/PlanPictures.h>

#include <QtGui/QPainter>

#include <algorithm>
#include <cmath>

namespace studio {

namespace {

constexpr int kStretch = 64; ///< segments
constexpr int kWaypoints = 8;
constexpr int kSmoothAtMost = 100000; ///< segments: more are drawn without anti-aliasing
constexpr double kBrightPx = 1.6;
constexpr double kSightPx = 8.0; ///< around the picture, for what lies half beyond it
constexpr double kLeastPx = 0.4; ///< points nearer than this to the last one say nothing
constexpr double kPaleShare = 0.27;
constexpr int kTooLight = 200;

/** Slow red, fast blue. */
QColor between(double share) { return QColor::fromHsvF(0.66 * qBound(0.0, share, 1.0), 0.9, 0.8); }

/** The colour on white paper with little of it. */
QColor paleOf(const QColor &color)
{
    const auto mixed = [](int part) { return qRound(255 - (255 - part) * kPaleShare); };
    return {mixed(color.red()), mixed(color.green()), mixed(color.blue())};
}

/** Boxes of straight lines are flat, which `QRectF::intersects` takes for nothing. */
bool overlap(const QRectF &a, const QRectF &b)
{
    return a.left() <= b.right() && b.left() <= a.right() && a.top() <= b.bottom() &&
           b.top() <= a.bottom();
}

/** Changes no pixel: Qt writes hairlines straight into a picture only where a rectangle clips. */
void clipToPicture(QPainter &painter, const QSize &size)
{
    painter.setClipRect(QRect(QPoint(0, 0), size));
}

void drawArrow(QPainter &painter, const QPointF &from, const QPointF &to)
{
    const QPointF way = to - from;
    const double length = std::hypot(way.x(), way.y());
    if (length < 8.0)
        return;
    const QPointF along = way / length;
    const QPointF across(-along.y(), along.x());
    const QPointF tip = (from + to) / 2 + 3.0 * along;
    painter.drawLine(tip, tip - 6.0 * along + 3.0 * across);
    painter.drawLine(tip, tip - 6.0 * along - 3.0 * across);
}

} // namespace

bool operator==(const PlanLook &a, const PlanLook &b)
{
    return a.colors == b.colors && a.hasJumps == b.hasJumps && a.hasArrows == b.hasArrows &&
           a.hasNumbers == b.hasNumbers && a.hasStarts == b.hasStarts;
}

bool operator==(const PlanScene &a, const PlanScene &b)
{
    return a.job == b.job && a.look == b.look && a.view == b.view && a.size == b.size &&
           a.pixelRatio == b.pixelRatio;
}

PlanStretches::PlanStretches(const jobkit::JobPlan &plan)
{
    m_firstOf.reserve(size_t(plan.pieces.size()) + 1);
    for (const jobkit::PlanPiece &piece : plan.pieces) {
        m_firstOf.push_back(m_all.size());
        const QPolygonF &points = piece.pointsMm;
        const int end = points.size() - 1;
        for (int first = 0; first == 0 || first < end; first += kStretch) {
            Stretch stretch;
            stretch.first = first;
            stretch.last = std::min(first + kStretch, end);
            QPointF least = points[first];
            QPointF most = least;
            for (int i = first + 1; i <= stretch.last; ++i) {
                least = {std::min(least.x(), points[i].x()), std::min(least.y(), points[i].y())};
                most = {std::max(most.x(), points[i].x()), std::max(most.y(), points[i].y())};
            }
            stretch.boxMm = QRectF(least, most);
            m_all.push_back(stretch);
        }
    }
    m_firstOf.push_back(m_all.size());
}

bool PlanStretches::touches(int piece, const QRectF &boxMm) const
{
    return std::any_of(begin(piece), end(piece),
                       [&boxMm](const Stretch &stretch) { return overlap(stretch.boxMm, boxMm); });
}

PlanPictures::PlanPictures(const PlanScene &scene) : m_scene(scene)
{
    if (!m_scene.job)
        return;
    m_isSmooth = m_scene.job->plan.segmentCount() <= kSmoothAtMost;
    m_sightMm = sightMm();
    double fastest = 1.0;
    for (const jobkit::PlanPiece &piece : m_scene.job->plan.pieces) {
        if (m_penColors.count(piece.pen) > 0)
            continue;
        const JobRequest &request = m_scene.job->request;
        const jobkit::Pen pen = jobkit::penOf(request.pens, piece.pen, request.machine);
        m_penColors[piece.pen] =
            pen.color.lightness() > kTooLight ? pen.color.darker(150) : pen.color;
        m_penSpeeds[piece.pen] = pen.speedMmPerS;
        fastest = std::max(fastest, pen.speedMmPerS);
    }
    for (auto &speed : m_penSpeeds)
        speed.second /= fastest;
}

QRectF PlanPictures::sightMm() const
{
    const QRectF px(QPointF(0, 0), QSizeF(m_scene.size));
    return m_scene.view.inverted().mapRect(px.adjusted(-kSightPx, -kSightPx, kSightPx, kSightPx));
}

QImage PlanPictures::blank() const
{
    QImage image(m_scene.size * m_scene.pixelRatio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(m_scene.pixelRatio);
    image.fill(Qt::transparent);
    return image;
}

QColor PlanPictures::colorOf(int piece) const
{
    if (m_scene.look.colors == PlanColors::ByOrder)
        return between(double(piece) / std::max(1, m_scene.job->plan.pieces.size() - 1));
    const int pen = m_scene.job->plan.pieces[piece].pen;
    if (m_scene.look.colors == PlanColors::BySpeed)
        return between(m_penSpeeds.at(pen));
    return m_penColors.at(pen);
}

void PlanPictures::draw(const std::atomic<bool> &isGivenUp)
{
    m_done = blank();
    m_doneVertices = 0;
    m_waypoints.clear();
    drawPale(isGivenUp);
    if (!isGivenUp)
        drawSigns();
}

void PlanPictures::drawSignsLike(const PlanLook &look)
{
    m_scene.look = look;
    drawSigns();
}

void PlanPictures::beginPainting(QPainter &painter, QImage &image) const
{
    painter.begin(&image);
    clipToPicture(painter, m_scene.size);
    painter.setRenderHint(QPainter::Antialiasing, m_isSmooth);
}

void PlanPictures::drawPale(const std::atomic<bool> &isGivenUp)
{
    m_pale = blank();
    if (!m_scene.job)
        return;
    QPainter painter;
    beginPainting(painter, m_pale);
    QColor color;
    for (int piece = 0; piece < m_scene.job->plan.pieces.size() && !isGivenUp; ++piece) {
        const QColor next = colorOf(piece);
        if (piece == 0 || next != color)
            painter.setPen(QPen(paleOf(next), 1.0));
        color = next;
        drawRange(painter, piece, 0, m_scene.job->plan.pieces[piece].pointsMm.size() - 1);
    }
}

/** The points `first` to `last` of a piece, as far as they are in sight. */
void PlanPictures::drawRange(QPainter &painter, int piece, int first, int last) const
{
    int from = -1; // of the stretches in sight that hang together
    int to = -1;
    const PlanStretches::Stretch *end = m_scene.stretches->end(piece);
    for (auto *stretch = m_scene.stretches->begin(piece); stretch != end; ++stretch) {
        if (stretch->last < first || stretch->first > last)
            continue;
        if (overlap(stretch->boxMm, m_sightMm)) {
            from = from < 0 ? std::max(first, stretch->first) : from;
            to = std::min(last, stretch->last);
        } else if (from >= 0) {
            drawRun(painter, piece, from, to);
            from = -1;
        }
    }
    if (from >= 0)
        drawRun(painter, piece, from, to);
}

void PlanPictures::drawRun(QPainter &painter, int piece, int first, int last) const
{
    const jobkit::PlanPiece &drawn = m_scene.job->plan.pieces[piece];
    if (drawn.isDot()) {
        painter.drawPoint(m_scene.view.map(drawn.pointsMm.first()));
        return;
    }
    if (last <= first)
        return;
    QPolygonF px;
    px.reserve(std::min(last - first + 1, 4 * kStretch));
    px.append(m_scene.view.map(drawn.pointsMm[first]));
    for (int i = first + 1; i <= last; ++i) {
        const QPointF next = m_scene.view.map(drawn.pointsMm[i]);
        const QPointF way = next - px.last();
        if (i == last || std::fabs(way.x()) > kLeastPx || std::fabs(way.y()) > kLeastPx)
            px.append(next);
    }
    painter.drawPolyline(px);
}

int PlanPictures::pieceOfVertex(qint64 vertex) const
{
    const std::vector<qint64> &first = m_scene.job->times.firstVertex;
    return int(std::upper_bound(first.begin(), first.end(), vertex) - first.begin()) - 1;
}

/** The ways that end at the vertices `from` up to, not including, `to`. */
void PlanPictures::drawDone(qint64 from, qint64 to)
{
    QPainter painter;
    beginPainting(painter, m_done);
    const std::vector<qint64> &first = m_scene.job->times.firstVertex;
    const QVector<jobkit::PlanPiece> &pieces = m_scene.job->plan.pieces;
    QColor color;
    for (int piece = pieceOfVertex(from); piece < pieces.size(); ++piece) {
        const qint64 begin = first[size_t(piece)];
        if (begin >= to)
            break;
        const QColor next = colorOf(piece);
        if (!color.isValid() || next != color)
            painter.setPen(QPen(next, m_isSmooth ? kBrightPx : 1.0));
        color = next;
        const qint64 end = std::min(to, first[size_t(piece) + 1]);
        drawRange(painter, piece, int(std::max<qint64>(0, from - 1 - begin)), int(end - 1 - begin));
    }
}

bool PlanPictures::advanceTo(qint64 vertex, qint64 most)
{
    if (!m_scene.job)
        return true;
    if (vertex < m_doneVertices) {
        const auto after = m_waypoints.upper_bound(vertex);
        const bool hasWaypoint = after != m_waypoints.begin();
        m_done = hasWaypoint ? std::prev(after)->second : blank();
        m_doneVertices = hasWaypoint ? std::prev(after)->first : 0;
    }
    const qint64 stride =
        std::max<qint64>(1, qint64(m_scene.job->times.vertexS.size()) / kWaypoints);
    const qint64 goal = std::min(vertex, m_doneVertices + most);
    while (m_doneVertices < goal) {
        const qint64 next = std::min(goal, (m_doneVertices / stride + 1) * stride);
        drawDone(m_doneVertices, next);
        m_doneVertices = next;
        if (next % stride == 0)
            m_waypoints.emplace(next, m_done);
    }
    return m_doneVertices >= vertex;
}

/** Jumps, arrows, order numbers and starting points of what is in sight. */
void PlanPictures::drawSigns()
{
    m_signs = blank();
    m_leftOut = 0;
    if (!m_scene.job || !m_scene.look.hasSigns())
        return;
    std::vector<int> inSight;
    for (int piece = 0; piece < m_scene.job->plan.pieces.size(); ++piece) {
        if (m_scene.stretches->touches(piece, m_sightMm))
            inSight.push_back(piece);
    }
    if (inSight.size() > size_t(kSignsAtMost)) {
        m_leftOut = int(inSight.size());
        return;
    }
    QPainter painter(&m_signs);
    clipToPicture(painter, m_scene.size);
    painter.setRenderHint(QPainter::Antialiasing);
    for (const int piece : inSight)
        drawSignsOf(painter, piece);
}

void PlanPictures::drawSignsOf(QPainter &painter, int piece) const
{
    const QVector<jobkit::PlanPiece> &pieces = m_scene.job->plan.pieces;
    const QPolygonF &points = pieces[piece].pointsMm;
    const QPointF start = m_scene.view.map(points.first());
    if (m_scene.look.hasJumps) {
        painter.setPen(QPen(QColor(0, 90, 200, 130), 1.0, Qt::DotLine));
        if (piece > 0)
            painter.drawLine(m_scene.view.map(pieces[piece - 1].pointsMm.last()), start);
        // The way on, where the piece that it leads to is out of sight and does not draw it.
        if (piece + 1 < pieces.size() && !m_scene.stretches->touches(piece + 1, m_sightMm))
            painter.drawLine(m_scene.view.map(points.last()),
                             m_scene.view.map(pieces[piece + 1].pointsMm.first()));
    }
    painter.setPen(QPen(colorOf(piece), 1.0));
    if (m_scene.look.hasArrows && points.size() > 1)
        drawArrow(painter, start, m_scene.view.map(points[1]));
    if (m_scene.look.hasStarts)
        painter.drawRect(QRectF(start - QPointF(2, 2), QSizeF(4, 4)));
    if (m_scene.look.hasNumbers)
        painter.drawText(start + QPointF(4, -4), QString::number(piece + 1));
}

void PlanPictures::paint(QPainter &painter, const QTransform &view) const
{
    if (isNull())
        return;
    painter.save();
    if (view != m_scene.view)
        painter.setTransform(m_scene.view.inverted() * view, true);
    painter.drawImage(0, 0, m_pale);
    painter.drawImage(0, 0, m_done);
    if (m_scene.look.hasSigns())
        painter.drawImage(0, 0, m_signs);
    painter.restore();
}

} // namespace studio
