#include <studio/program/Icons.h>

#include <studio/program/IconShapes_p.h>

#include <QtGui/QGuiApplication>
#include <QtGui/QIconEngine>
#include <QtGui/QPainter>
#include <QtGui/QPalette>
#include <QtWidgets/QApplication>

namespace studio {

namespace {

constexpr double kFieldSize = 24.0;
constexpr double kLineWidth = 1.6;

/** Fits the field of a drawing into a rectangle, centred. */
void enterField(QPainter &painter, const QRect &rect)
{
    const double side = qMin(rect.width(), rect.height());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(QRectF(rect).center());
    painter.scale(side / kFieldSize, side / kFieldSize);
    painter.translate(-kFieldSize / 2, -kFieldSize / 2);
}

/** An engine that paints anew for each size, so that nothing is ever scaled. */
class PaintedIconEngine : public QIconEngine
{
public:
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap painted(size);
        painted.fill(Qt::transparent);
        QPainter painter(&painted);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return painted;
    }
};

class ShapeIconEngine final : public PaintedIconEngine
{
public:
    explicit ShapeIconEngine(const IconShape &drawn)
        : m_shape(drawn), m_lines(iconPath(drawn.lines)), m_areas(iconPath(drawn.areas))
    {
    }

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State) override
    {
        const QPalette palette = QApplication::palette();
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        // On a selected row the accent is the ground: there all of it is as the words beside it.
        const QColor &ink = palette.color(group, mode == QIcon::Selected ? QPalette::HighlightedText
                                                                         : QPalette::ButtonText);
        const QColor accent = mode == QIcon::Normal || mode == QIcon::Active
                                  ? palette.color(group, QPalette::Highlight)
                                  : ink;
        painter->save();
        enterField(*painter, rect);
        painter->fillPath(m_areas, accent);
        painter->strokePath(m_lines,
                            QPen(ink, kLineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter->restore();
    }

    QIconEngine *clone() const override { return new ShapeIconEngine(m_shape); }

private:
    const IconShape &m_shape; ///< borrowed from the table of drawings
    QPainterPath m_lines;
    QPainterPath m_areas;
};

/** A beam that writes a mark on a plate. */
class ProgramIconEngine final : public PaintedIconEngine
{
public:
    void paint(QPainter *painter, const QRect &rect, QIcon::Mode, QIcon::State) override
    {
        painter->save();
        enterField(*painter, rect);
        painter->setPen(Qt::NoPen);
        painter->setBrush(QColor(0x1f, 0x2d, 0x3d));
        painter->drawRoundedRect(QRectF(1, 1, 22, 22), 4, 4);
        painter->setBrush(QColor(0xd7, 0xde, 0xe6));
        painter->drawRoundedRect(QRectF(4, 13, 16, 7), 1, 1);
        painter->strokePath(iconPath("M 6 18 L 8.5 15 L 11 18 L 13.5 15"), line(0x1f2d3d, 1.2));
        painter->strokePath(iconPath("M 13.5 15 L 18 3.5"), line(0xff4d3d, 1.8));
        painter->setPen(Qt::NoPen);
        painter->setBrush(QColor(0xff, 0xc1, 0x45));
        painter->drawEllipse(QPointF(13.5, 15), 1.6, 1.6);
        painter->restore();
    }

    QIconEngine *clone() const override { return new ProgramIconEngine(*this); }

private:
    static QPen line(QRgb color, double width)
    {
        return QPen(QColor(color), width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    }
};

} // namespace

QIcon icon(const char *name)
{
    const IconShape *shape = findIconShape(name);
    return shape != nullptr ? QIcon(new ShapeIconEngine(*shape)) : QIcon();
}

QIcon pictureIcon(const QPixmap &picture)
{
    QIcon made(picture);
    made.addPixmap(picture, QIcon::Selected);
    return made;
}

QIcon programIcon() { return QIcon(new ProgramIconEngine); }

} // namespace studio
