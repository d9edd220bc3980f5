#include <ZTDrawEngineLib/shapes/ZTTdotShape.h>

#include <ZTDrawEngineLib/common/Exactly_p.h>
#include <ZTDrawEngineLib/common/MovableText_p.h>
#include <ZTDrawEngineLib/common/SystemText_p.h>

#include <QtCore/QString>
#include <QtGui/QFont>
#include <QtGui/QFontMetrics>

#include <array>
#include <memory>

namespace {

constexpr int kFirstSquareWithCircle = 4;
constexpr double kCircleShare = 0.8;

/** Nothing but a host or a drawing gives a figure another one. */
constexpr QRectF kUsualRect(0, 0, 100, 100);

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

QPainterPath squares()
{
    QPainterPath path;
    for (int i = 0; i < static_cast<int>(kSquares.size()); ++i) {
        path.addRect(kSquares[i]);
        if (i >= kFirstSquareWithCircle)
            path.addEllipse(circleBoxOf(kSquares[i]));
    }
    return path;
}

QFont labelFont()
{
    QFont font;
    font.setPointSize(5);
    return font;
}

/** A word whose middle comes to a given place. */
class Label
{
public:
    explicit Label(const QString &text)
        : m_text(labelFont(), text),
          m_middle(QRectF(QFontMetrics(labelFont()).boundingRect(text)).center())
    {
    }

    void addTo(QPainterPath &path, const QPointF &anchor) const
    {
        m_text.addTo(path, anchor - m_middle);
    }

private:
    ztoutline::MovableText m_text;
    QPointF m_middle;
};

/** The figure with labels in the program's font. */
class Figure
{
public:
    /** Laid out once for all shapes: letters cost most of a figure. */
    static const Figure &current()
    {
        thread_local std::unique_ptr<const Figure> figure;
        thread_local QFont font;
        thread_local int generation = 0;
        if (figure == nullptr || font != QFont() || generation != ztoutline::fontGeneration()) {
            font = QFont();
            generation = ztoutline::fontGeneration();
            figure = std::make_unique<const Figure>();
        }
        return *figure;
    }

    Figure() : m_squares(squares()), m_usual(laidOutOver(kUsualRect)) {}

    /** Figures over the usual rectangle share one path. */
    QPainterPath over(const QRectF &r) const
    {
        return isExactly(r, kUsualRect) ? m_usual : laidOutOver(r);
    }

private:
    QPainterPath laidOutOver(const QRectF &r) const
    {
        QPainterPath path;
        addFrameWithCentreLines(path, r);
        path.addPath(m_squares);
        addLabels(path, r);
        return path;
    }

    void addLabels(QPainterPath &path, const QRectF &r) const
    {
        const QPointF centre = r.center();
        m_up.addTo(path, {centre.x(), r.top() + 10});
        m_down.addTo(path, {centre.x(), r.bottom() - 10});
        m_left.addTo(path, {r.left() + 10, centre.y()});
        m_right.addTo(path, {r.right() - 10, centre.y()});
    }

    Label m_up{QStringLiteral("up")};
    Label m_down{QStringLiteral("down")};
    Label m_left{QStringLiteral("left")};
    Label m_right{QStringLiteral("right")};
    QPainterPath m_squares;
    QPainterPath m_usual;
};

} // namespace

ZTTdotShape::ZTTdotShape()
{
    setShapeType(ShapeType::TDOT);
    setUpdate(1);
    setRect(kUsualRect);
}

void ZTTdotShape::paint()
{
    if (!isUpdate())
        return;
    setUpdate(0);
    getPath() = Figure::current().over(getRect());
    path2Lines(true);
    fill();
}
