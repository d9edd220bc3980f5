#include <studio/job/PlanView.h>

#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>

#include <algorithm>
#include <cmath>

namespace studio {

namespace {

constexpr int kMarginPx = 16;
constexpr int kWaypoints = 8;
constexpr int kSmoothAtMost = 100000; ///< segments: more are drawn without anti-aliasing
constexpr int kSignsAtMost = 20000;   ///< arrows, numbers and starts beyond would be a grey mass
constexpr double kPickPx = 6.0;
constexpr double kHeadPx = 5.0;
constexpr double kZoomStep = 1.25;
constexpr double kMostZoom = 10000.0;
constexpr int kPaleAlpha = 60;
const QSize kLeast(420, 320);

QPen cosmetic(const QColor &color, double widthPx = 1.0)
{
    QPen pen(color, widthPx);
    pen.setCosmetic(true);
    return pen;
}

/** Slow red, fast blue. */
QColor between(double share) { return QColor::fromHsvF(0.66 * qBound(0.0, share, 1.0), 0.9, 0.8); }

double distanceTo(const QPointF &point, const QPointF &a, const QPointF &b)
{
    const QPointF way = b - a;
    const double length2 = QPointF::dotProduct(way, way);
    const double along =
        length2 > 0.0 ? qBound(0.0, QPointF::dotProduct(point - a, way) / length2, 1.0) : 0.0;
    const QPointF off = point - (a + along * way);
    return std::hypot(off.x(), off.y());
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

PlanView::PlanView(QWidget *parent) : QWidget(parent)
{
    setMinimumSize(kLeast);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void PlanView::setJob(const std::shared_ptr<const Job> &job)
{
    m_job = job;
    m_boxMm = QRectF();
    m_fastest = 1.0;
    if (m_job) {
        const QRectF box = m_job->plan.boundsMm();
        // Flat jobs have a box without an area, which uniting would leave out.
        const double spanMm = std::max({box.width(), box.height(), 1.0}) * 0.01;
        m_boxMm = box.adjusted(-spanMm, -spanMm, spanMm, spanMm);
        for (const jobkit::Pen &pen : m_job->request.pens)
            m_fastest = std::max(m_fastest, pen.speedMmPerS);
    }
    m_seconds = 0.0;
    fit();
}

void PlanView::setLook(const Look &look)
{
    const bool isRecolored = look.colors != m_look.colors;
    m_look = look;
    m_signs = QImage();
    if (isRecolored)
        forgetPictures();
    update();
}

void PlanView::setMoment(double seconds)
{
    m_seconds = m_job ? qBound(0.0, seconds, m_job->times.all.totalS()) : 0.0;
    update();
}

void PlanView::fit()
{
    m_zoom = 1.0;
    m_shift = {};
    forgetPictures();
    update();
}

void PlanView::showPoint(const QPointF &pointMm)
{
    m_zoom = std::max(m_zoom, 4.0);
    m_shift = {};
    m_shift = QPointF(width(), height()) / 2 - transform().map(pointMm);
    forgetPictures();
    update();
}

QTransform PlanView::transform() const
{
    const QRectF room = QRectF(rect()).adjusted(kMarginPx, kMarginPx, -kMarginPx, -kMarginPx);
    const double scale =
        m_boxMm.isEmpty() || room.isEmpty()
            ? 1.0
            : std::min(room.width() / m_boxMm.width(), room.height() / m_boxMm.height());
    QTransform view;
    view.translate(room.center().x() + m_shift.x(), room.center().y() + m_shift.y());
    view.scale(scale * m_zoom, scale * m_zoom);
    view.translate(-m_boxMm.center().x(), -m_boxMm.center().y());
    return view;
}

QImage PlanView::blank() const
{
    QImage image(size() * devicePixelRatioF(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(devicePixelRatioF());
    image.fill(Qt::transparent);
    return image;
}

void PlanView::forgetPictures()
{
    m_pale = QImage();
    m_signs = QImage();
    m_done = QImage();
    m_doneVertices = 0;
    m_waypoints.clear();
}

QColor PlanView::colorOf(int piece) const
{
    const jobkit::PlanPiece &shown = m_job->plan.pieces[piece];
    if (m_look.colors == Colors::ByOrder)
        return between(double(piece) / std::max(1, m_job->plan.pieces.size() - 1));
    const jobkit::Pen pen = jobkit::penOf(m_job->request.pens, shown.pen);
    if (m_look.colors == Colors::BySpeed)
        return between(pen.speedMmPerS / m_fastest);
    return pen.color.lightness() > 200 ? pen.color.darker(150) : pen.color;
}

void PlanView::drawPiece(QPainter &painter, int piece, int first, int last) const
{
    const QPolygonF &points = m_job->plan.pieces[piece].pointsMm;
    if (m_job->plan.pieces[piece].isDot())
        painter.drawPoint(points.first());
    else if (last > first)
        painter.drawPolyline(points.constData() + first, last - first + 1);
}

void PlanView::drawPale()
{
    m_pale = blank();
    QPainter painter(&m_pale);
    painter.setRenderHint(QPainter::Antialiasing, m_job->plan.segmentCount() <= kSmoothAtMost);
    painter.setTransform(transform(), true);
    for (int piece = 0; piece < m_job->plan.pieces.size(); ++piece) {
        QColor color = colorOf(piece);
        color.setAlpha(kPaleAlpha);
        painter.setPen(cosmetic(color));
        drawPiece(painter, piece, 0, m_job->plan.pieces[piece].pointsMm.size() - 1);
    }
}

/** Points that the head has come to by now. */
qint64 PlanView::verticesDone() const
{
    const std::vector<double> &whenS = m_job->times.vertexS;
    return std::upper_bound(whenS.begin(), whenS.end(), m_seconds) - whenS.begin();
}

int PlanView::pieceOfVertex(qint64 vertex) const
{
    const std::vector<qint64> &first = m_job->times.firstVertex;
    return int(std::upper_bound(first.begin(), first.end(), vertex) - first.begin()) - 1;
}

/** The ways that end at the vertices `from` up to, not including, `to`. */
void PlanView::drawSegments(QPainter &painter, qint64 from, qint64 to) const
{
    if (from >= to)
        return;
    const std::vector<qint64> &first = m_job->times.firstVertex;
    for (int piece = pieceOfVertex(from); piece < m_job->plan.pieces.size(); ++piece) {
        const qint64 begin = first[size_t(piece)];
        if (begin >= to)
            break;
        const qint64 end = std::min(to, first[size_t(piece) + 1]);
        painter.setPen(cosmetic(colorOf(piece), 1.6));
        drawPiece(painter, piece, int(std::max<qint64>(0, from - 1 - begin)), int(end - 1 - begin));
    }
}

void PlanView::drawUpTo(qint64 vertex)
{
    if (m_done.isNull() || vertex < m_doneVertices) {
        const auto after = m_waypoints.upper_bound(vertex);
        const bool hasWaypoint = after != m_waypoints.begin();
        m_done = hasWaypoint ? std::prev(after)->second : blank();
        m_doneVertices = hasWaypoint ? std::prev(after)->first : 0;
    }
    const qint64 stride = std::max<qint64>(1, qint64(m_job->times.vertexS.size()) / kWaypoints);
    while (m_doneVertices < vertex) {
        const qint64 next = std::min(vertex, (m_doneVertices / stride + 1) * stride);
        QPainter painter(&m_done);
        painter.setRenderHint(QPainter::Antialiasing, m_job->plan.segmentCount() <= kSmoothAtMost);
        painter.setTransform(transform(), true);
        drawSegments(painter, m_doneVertices, next);
        painter.end();
        m_doneVertices = next;
        if (next % stride == 0)
            m_waypoints.emplace(next, m_done);
    }
}

/** The way on which the head is, and the head. */
void PlanView::drawPresent(QPainter &painter) const
{
    const jobkit::HeadPlace head = jobkit::headAt(m_job->plan, m_job->times, m_seconds);
    if (head.piece < 0)
        return;
    const QTransform view = transform();
    if (head.isMarking) {
        const QPolygonF &points = m_job->plan.pieces[head.piece].pointsMm;
        painter.setPen(QPen(colorOf(head.piece), 1.6));
        painter.drawLine(view.map(points.value(head.segment)), view.map(head.pointMm));
    }
    const QPointF at = view.map(head.pointMm);
    painter.setPen(QPen(head.isMarking ? QColor(220, 0, 0) : QColor(0, 90, 200), 1.5));
    painter.setBrush(head.isMarking ? QColor(255, 80, 0, 160) : QColor(0, 0, 0, 0));
    painter.drawEllipse(at, kHeadPx, kHeadPx);
    painter.setBrush(Qt::NoBrush);
}

/** Jumps, arrows, order numbers and starting points. */
void PlanView::drawSigns()
{
    m_signs = blank();
    const QVector<jobkit::PlanPiece> &pieces = m_job->plan.pieces;
    if (pieces.size() > kSignsAtMost)
        return;
    QPainter painter(&m_signs);
    painter.setRenderHint(QPainter::Antialiasing);
    const QTransform view = transform();
    for (int piece = 0; piece < pieces.size(); ++piece) {
        const QPolygonF &points = pieces[piece].pointsMm;
        const QPointF start = view.map(points.first());
        if (m_look.hasJumps && piece > 0) {
            painter.setPen(QPen(QColor(0, 90, 200, 130), 1.0, Qt::DotLine));
            painter.drawLine(view.map(pieces[piece - 1].pointsMm.last()), start);
        }
        painter.setPen(QPen(colorOf(piece), 1.0));
        if (m_look.hasArrows && points.size() > 1)
            drawArrow(painter, start, view.map(points[1]));
        if (m_look.hasStarts)
            painter.drawRect(QRectF(start - QPointF(2, 2), QSizeF(4, 4)));
        if (m_look.hasNumbers)
            painter.drawText(start + QPointF(4, -4), QString::number(piece + 1));
    }
}

void PlanView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    painter.setPen(palette().mid().color());
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    if (!m_job || m_job->plan.pieces.isEmpty())
        return;
    if (m_pale.isNull())
        drawPale();
    if (m_signs.isNull())
        drawSigns();
    drawUpTo(verticesDone());
    painter.drawImage(0, 0, m_pale);
    painter.drawImage(0, 0, m_done);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette().mid().color(), 1.0, Qt::DashLine));
    painter.drawPolygon(transform().map(QPolygonF(m_job->request.machine.fieldMm())));
    painter.drawImage(0, 0, m_signs);
    drawPresent(painter);
}

void PlanView::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    forgetPictures();
}

void PlanView::wheelEvent(QWheelEvent *event)
{
    const QPointF under = transform().inverted().map(event->position());
    const double factor = std::pow(kZoomStep, event->angleDelta().y() / 120.0);
    m_zoom = qBound(0.1, m_zoom * factor, kMostZoom);
    m_shift += event->position() - transform().map(under);
    forgetPictures();
    update();
    event->accept();
}

void PlanView::mousePressEvent(QMouseEvent *event)
{
    m_pressedAt = event->localPos();
    m_shiftAtPress = m_shift;
    m_isDragging = false;
}

void PlanView::mouseMoveEvent(QMouseEvent *event)
{
    if (event->buttons() == Qt::NoButton)
        return;
    const QPointF way = event->localPos() - m_pressedAt;
    m_isDragging = m_isDragging || way.manhattanLength() > 4.0;
    if (!m_isDragging)
        return;
    m_shift = m_shiftAtPress + way;
    forgetPictures();
    update();
}

void PlanView::mouseReleaseEvent(QMouseEvent *event)
{
    if (!m_isDragging && event->button() == Qt::LeftButton)
        Q_EMIT picked(pieceAt(event->localPos()));
    m_isDragging = false;
}

void PlanView::mouseDoubleClickEvent(QMouseEvent *) { fit(); }

int PlanView::pieceAt(const QPointF &pos) const
{
    if (!m_job)
        return -1;
    const QTransform view = transform();
    const QPointF pointMm = view.inverted().map(pos);
    double nearest = kPickPx / view.m11();
    int found = -1;
    for (int piece = 0; piece < m_job->plan.pieces.size(); ++piece) {
        const QPolygonF &points = m_job->plan.pieces[piece].pointsMm;
        for (int i = 0; i < points.size(); ++i) {
            const double distance = distanceTo(pointMm, points[i], points[std::max(0, i - 1)]);
            if (distance <= nearest) {
                nearest = distance;
                found = piece;
            }
        }
    }
    return found;
}

} // namespace studio
