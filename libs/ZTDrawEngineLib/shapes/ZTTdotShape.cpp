#include <ZTDrawEngineLib/shapes/ZTTdotShape.h>

#include <ZTDrawEngineLib/common/SystemText_p.h>

#include <QtGui/QFont>
#include <QtGui/QFontMetrics>

#include <array>

namespace {

constexpr int kFirstSquareWithCircle = 4;
constexpr double kCircleShare = 0.8;

// Kept: the square at (40, 40) stands twice, so that the middle is marked twice, circle included.
constexpr std::array<QRectF, 11> kSquares = {
    QRectF(0, 0, 20, 20),   QRectF(0, 80, 20, 20),  QRectF(80, 0, 20, 20),  QRectF(80, 80, 20, 20),
    QRectF(40, 40, 20, 20), QRectF(10, 10, 20, 20), QRectF(10, 70, 20, 20), QRectF(70, 10, 20, 20),
    QRectF(70, 70, 20, 20), QRectF(40, 40, 20, 20), QRectF(20, 20, 60, 60)};

void addStroke(QPainterPath &path, const QPointF &from, const QPointF &to)
{
    path.moveTo(from);
    path.lineTo(to);
}

void addFrameWithCentreLines(QPainterPath &path, const QRectF &r)
{
    path.addRect(r);
    addStroke(path, r.topLeft(), r.bottomRight());
    addStroke(path, r.topRight(), r.bottomLeft());
    addStroke(path, {r.left(), r.center().y()}, {r.right(), r.center().y()});
    addStroke(path, {r.center().x(), r.top()}, {r.center().x(), r.bottom()});
}

QRectF circleBoxOf(const QRectF &square)
{
    const QPointF centre = square.center();
    QTransform shrink;
    shrink.translate(centre.x(), centre.y());
    shrink.scale(kCircleShare, kCircleShare);
    shrink.translate(-centre.x(), -centre.y());
    return shrink.mapRect(square);
}

void addSquares(QPainterPath &path)
{
    for (int i = 0; i < static_cast<int>(kSquares.size()); ++i) {
        path.addRect(kSquares[i]);
        if (i >= kFirstSquareWithCircle)
            path.addEllipse(circleBoxOf(kSquares[i]));
    }
}

void addLabel(QPainterPath &path, const QPointF &anchor, const QString &text)
{
    QFont font;
    font.setPointSize(5);
    const QRectF box = QFontMetrics(font).boundingRect(text);
    ztoutline::addText(path, anchor - box.center(), font, text);
}

void drawLabels(QPainterPath &path, const QRectF &r)
{
    const QPointF centre = r.center();
    addLabel(path, {centre.x(), r.top() + 10}, QStringLiteral("up"));
    addLabel(path, {centre.x(), r.bottom() - 10}, QStringLiteral("down"));
    addLabel(path, {r.left() + 10, centre.y()}, QStringLiteral("left"));
    addLabel(path, {r.right() - 10, centre.y()}, QStringLiteral("right"));
}

/** Unlike the operator of the class, which takes nearly equal ones for equal. */
bool isExactly(const QRectF &a, const QRectF &b)
{
    return a.x() == b.x() && a.y() == b.y() && a.width() == b.width() && a.height() == b.height();
}

/** Adds the labels, drawn once for all figures of one rectangle: letters cost most of a figure. */
void addLabels(QPainterPath &path, const QRectF &r)
{
    thread_local QString drawnFont;
    thread_local QRectF drawnRect;
    thread_local QPainterPath labels;
    const QString font = QFont().key();
    if (font != drawnFont || !isExactly(r, drawnRect)) {
        labels = QPainterPath();
        drawLabels(labels, r);
        drawnFont = font;
        drawnRect = r;
    }
    path.addPath(labels);
}

} // namespace

ZTTdotShape::ZTTdotShape()
{
    setShapeType(ShapeType::TDOT);
    setUpdate(1);
    setRect(QRectF(0, 0, 100, 100));
}

void ZTTdotShape::paint()
{
    if (!isUpdate())
        return;
    setUpdate(0);
    QPainterPath path;
    addFrameWithCentreLines(path, getRect());
    addSquares(path);
    addLabels(path, getRect());
    getPath() = path;
    path2Lines(true);
    fill();
}
