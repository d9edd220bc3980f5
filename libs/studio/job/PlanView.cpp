#include <studio/job/PlanView.h>

#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <limits>

namespace studio {

namespace {

constexpr int kMarginPx = 16;
constexpr int kLarge = 5000;             ///< segments: more are drawn in another thread
constexpr qint64 kVerticesAPaint = 8000; ///< of a large plan; the rest follows with the next frame
constexpr int kLookMs = 5;               ///< how often a picture of another thread is looked for
constexpr double kPickPx = 6.0;
constexpr double kHeadPx = 5.0;
constexpr double kZoomStep = 1.25;
constexpr double kLeastZoom = 0.1;
constexpr double kMostZoom = 10000.0;
constexpr double kLeastSpanMm = 1e-3;
const QSize kLeast(320, 240);

double distanceTo(const QPointF &point, const QPointF &a, const QPointF &b)
{
    const QPointF way = b - a;
    const double length2 = QPointF::dotProduct(way, way);
    const double along =
        length2 > 0.0 ? qBound(0.0, QPointF::dotProduct(point - a, way) / length2, 1.0) : 0.0;
    const QPointF off = point - (a + along * way);
    return std::hypot(off.x(), off.y());
}

/** A box with a little room around it; that of flat jobs has an area then. */
QRectF roomy(const QRectF &box)
{
    const double spanMm = std::max({box.width(), box.height(), 1.0}) * 0.01;
    return box.adjusted(-spanMm, -spanMm, spanMm, spanMm);
}

} // namespace

PlanView::PlanView(QWidget *parent) : QWidget(parent)
{
    setMinimumSize(kLeast);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    m_drawnTimer.setInterval(kLookMs);
    connect(&m_drawnTimer, &QTimer::timeout, this, &PlanView::takeDrawn);
}

PlanView::~PlanView() { giveUpDrawing(); }

void PlanView::setJob(const std::shared_ptr<const Job> &job)
{
    giveUpDrawing();
    m_job = job;
    m_stretches.reset();
    m_boxMm = QRectF();
    m_pictures = PlanPictures();
    if (m_job) {
        m_boxMm = roomy(m_job->plan.boundsMm());
        m_stretches = std::make_shared<PlanStretches>(m_job->plan);
    }
    m_seconds = 0.0;
    fit();
}

void PlanView::setLook(const PlanLook &look)
{
    m_look = look;
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
    update();
}

void PlanView::showBox(const QRectF &boxMm)
{
    if (boxMm.isNull())
        return;
    const QRectF box = roomy(boxMm);
    const double share = std::min(m_boxMm.width() / std::max(box.width(), kLeastSpanMm),
                                  m_boxMm.height() / std::max(box.height(), kLeastSpanMm));
    m_zoom = qBound(kLeastZoom, share, kMostZoom);
    m_shift = {};
    m_shift = QPointF(width(), height()) / 2 - transform().map(box.center());
    update();
}

void PlanView::showPoint(const QPointF &pointMm)
{
    m_zoom = std::max(m_zoom, 4.0);
    m_shift = {};
    m_shift = QPointF(width(), height()) / 2 - transform().map(pointMm);
    update();
}

void PlanView::zoomBy(double factor) { zoomAbout(QPointF(width(), height()) / 2, factor); }

void PlanView::zoomAbout(const QPointF &pos, double factor)
{
    const QPointF under = transform().inverted().map(pos);
    m_zoom = qBound(kLeastZoom, m_zoom * factor, kMostZoom);
    m_shift += pos - transform().map(under);
    update();
}

QTransform PlanView::transformFor(const QSize &size) const
{
    return transformFor(size, m_zoom, m_shift);
}

QTransform PlanView::transformFor(const QSize &size, double zoom, const QPointF &shift) const
{
    const QRectF room =
        QRectF(QPointF(0, 0), QSizeF(size)).adjusted(kMarginPx, kMarginPx, -kMarginPx, -kMarginPx);
    const double scale =
        m_boxMm.isEmpty() || room.isEmpty()
            ? 1.0
            : std::min(room.width() / m_boxMm.width(), room.height() / m_boxMm.height());
    QTransform view;
    view.translate(room.center().x() + shift.x(), room.center().y() + shift.y());
    view.scale(scale * zoom, scale * zoom);
    view.translate(-m_boxMm.center().x(), -m_boxMm.center().y());
    return view;
}

bool PlanView::isLarge() const { return m_job->plan.segmentCount() > kLarge; }

PlanScene PlanView::wantedScene() const
{
    return {m_job, m_stretches, m_look, transform(), size(), devicePixelRatioF()};
}

/** Points that the head has come to by now. */
qint64 PlanView::verticesDone() const
{
    const std::vector<double> &whenS = m_job->times.vertexS;
    return std::upper_bound(whenS.begin(), whenS.end(), m_seconds) - whenS.begin();
}

/** Makes the pictures those of the present view, or has them made. */
void PlanView::bringUpToDate()
{
    const PlanScene wanted = wantedScene();
    if (m_pictures.isNull() || m_pictures.scene() != wanted) {
        if (isLarge()) {
            drawAside();
        } else {
            PlanScene other = m_pictures.scene();
            const bool isSignsAlone = !m_pictures.isNull() && other.look.colors == m_look.colors;
            other.look = m_look;
            if (isSignsAlone && other == wanted) {
                m_pictures.drawSignsLike(m_look);
            } else {
                m_pictures = PlanPictures(wanted);
                m_pictures.draw(false);
            }
            Q_EMIT signsChanged();
        }
    }
    const qint64 most = isLarge() ? kVerticesAPaint : std::numeric_limits<qint32>::max();
    if (!m_pictures.isNull() && !m_pictures.advanceTo(verticesDone(), most))
        update();
}

/** One at a time: what was asked for meanwhile is drawn next. */
void PlanView::drawAside()
{
    if (m_drawn.valid())
        return;
    m_isGivenUp = std::make_shared<std::atomic<bool>>(false);
    m_drawn = std::async(std::launch::async, [scene = wantedScene(), vertices = verticesDone(),
                                              isGivenUp = m_isGivenUp] {
        PlanPictures pictures(scene);
        pictures.draw(*isGivenUp);
        while (!*isGivenUp && !pictures.advanceTo(vertices, kVerticesAPaint)) {
        }
        return pictures;
    });
    m_drawnTimer.start();
}

void PlanView::takeDrawn()
{
    if (m_drawn.wait_for(std::chrono::seconds(0)) != std::future_status::ready)
        return;
    m_drawnTimer.stop();
    m_pictures = m_drawn.get();
    Q_EMIT signsChanged();
    update();
}

void PlanView::giveUpDrawing()
{
    m_drawnTimer.stop();
    if (!m_drawn.valid())
        return;
    *m_isGivenUp = true;
    m_drawn.get();
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
        painter.setPen(QPen(m_pictures.colorOf(head.piece), 1.6));
        painter.drawLine(view.map(points.value(head.segment)), view.map(head.pointMm));
    }
    const QPointF at = view.map(head.pointMm);
    painter.setPen(QPen(head.isMarking ? QColor(220, 0, 0) : QColor(0, 90, 200), 1.5));
    painter.setBrush(head.isMarking ? QColor(255, 80, 0, 160) : QColor(0, 0, 0, 0));
    painter.drawEllipse(at, kHeadPx, kHeadPx);
    painter.setBrush(Qt::NoBrush);
}

void PlanView::drawField(QPainter &painter, const QTransform &view) const
{
    painter.setPen(QPen(palette().mid().color(), 1.0, Qt::DashLine));
    painter.drawPolygon(view.map(QPolygonF(m_job->request.machine.fieldMm())));
}

void PlanView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    painter.setPen(palette().mid().color());
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    if (!m_job || m_job->plan.pieces.isEmpty())
        return;
    bringUpToDate();
    m_pictures.paint(painter, transform());
    painter.setRenderHint(QPainter::Antialiasing);
    drawField(painter, transform());
    if (!m_pictures.isNull())
        drawPresent(painter);
}

QImage PlanView::picture(const QSize &size) const
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    if (!m_job || m_job->plan.pieces.isEmpty())
        return image;
    const QTransform view = transformFor(size, 1.0, {});
    PlanPictures pictures({m_job, m_stretches, m_look, view, size, 1.0});
    pictures.draw(false);
    pictures.advanceTo(qint64(m_job->times.vertexS.size()), std::numeric_limits<qint32>::max());
    QPainter painter(&image);
    pictures.paint(painter, view);
    drawField(painter, view);
    return image;
}

void PlanView::wheelEvent(QWheelEvent *event)
{
    zoomAbout(event->position(), std::pow(kZoomStep, event->angleDelta().y() / 120.0));
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
    for (int piece = 0; piece < m_stretches->pieces(); ++piece) {
        const QPolygonF &points = m_job->plan.pieces[piece].pointsMm;
        for (auto *stretch = m_stretches->begin(piece); stretch != m_stretches->end(piece);
             ++stretch) {
            const QRectF reach = stretch->boxMm.adjusted(-nearest, -nearest, nearest, nearest);
            if (!reach.contains(pointMm))
                continue;
            for (int i = stretch->first; i <= stretch->last; ++i) {
                const double distance =
                    distanceTo(pointMm, points[i], points[std::max(stretch->first, i - 1)]);
                if (distance <= nearest) {
                    nearest = distance;
                    found = piece;
                }
            }
        }
    }
    return found;
}

} // namespace studio
