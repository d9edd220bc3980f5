#include <QtPropertyBrowser/types/RowIcons_p.h>

#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtWidgets/QApplication>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOptionButton>

namespace rowtypes {

namespace {

constexpr int kIconSizePx = 16;
constexpr int kCheckerPx = 4;

bool canDraw() { return qobject_cast<QApplication *>(QCoreApplication::instance()) != nullptr; }

QPixmap emptyPicture(int sizePx)
{
    QPixmap picture(sizePx, sizePx);
    picture.fill(Qt::transparent);
    return picture;
}

QIcon drawnCheckBox(bool checked)
{
    const QStyle *style = QApplication::style();
    QStyleOptionButton option;
    option.state = QStyle::State_Enabled | (checked ? QStyle::State_On : QStyle::State_Off);
    option.rect = {0, 0, style->pixelMetric(QStyle::PM_IndicatorWidth),
                   style->pixelMetric(QStyle::PM_IndicatorHeight)};
    QPixmap picture = emptyPicture(qMax(option.rect.width(), option.rect.height()));
    QPainter painter(&picture);
    style->drawPrimitive(QStyle::PE_IndicatorCheckBox, &option, &painter);
    painter.end();
    return picture;
}

QPainterPath arrowPath()
{
    QPainterPath path;
    path.addPolygon(
        QPolygonF({{3, 1}, {3, 13}, {6, 10}, {8, 15}, {10, 14}, {8, 9}, {12, 9}, {3, 1}}));
    return path;
}

/** A line with a head at each end, through the middle, `angleDeg` from horizontal. */
QPainterPath doubleArrowPath(double angleDeg)
{
    QPainterPath path;
    path.addPolygon(QPolygonF({{-3, -3}, {-6, 0}, {-3, 3}}));
    path.addPolygon(QPolygonF({{3, -3}, {6, 0}, {3, 3}}));
    path.moveTo(-6, 0);
    path.lineTo(6, 0);
    return QTransform().translate(8, 8).rotate(angleDeg).map(path);
}

QPainterPath barPath()
{
    QPainterPath path;
    path.addPolygon(QPolygonF({{5, 2}, {8, 3}, {11, 2}}));
    path.addPolygon(QPolygonF({{5, 14}, {8, 13}, {11, 14}}));
    path.moveTo(8, 3);
    path.lineTo(8, 13);
    return path;
}

QPainterPath crossPath()
{
    QPainterPath path(QPointF(8, 2));
    path.lineTo(8, 14);
    path.moveTo(2, 8);
    path.lineTo(14, 8);
    return path;
}

QPainterPath ringPath()
{
    QPainterPath path;
    path.addEllipse(QPointF(8, 8), 6, 6);
    return path;
}

QPainterPath hourglassPath()
{
    QPainterPath path;
    path.addPolygon(QPolygonF({{4, 2}, {12, 2}, {4, 14}, {12, 14}, {4, 2}}));
    return path;
}

QPainterPath handPath()
{
    QPainterPath path;
    path.addRoundedRect(4, 7, 9, 7, 2, 2);
    path.addRoundedRect(5, 1, 3, 8, 1, 1);
    return path.simplified();
}

QPainterPath cursorPath(Qt::CursorShape shape)
{
    QPainterPath path;
    switch (shape) {
    case Qt::BlankCursor:
        return path;
    case Qt::UpArrowCursor:
        path.addPolygon(QPolygonF({{4, 6}, {8, 1}, {12, 6}}));
        path.moveTo(8, 1);
        path.lineTo(8, 15);
        return path;
    case Qt::CrossCursor:
        return crossPath();
    case Qt::IBeamCursor:
        return barPath();
    case Qt::WaitCursor:
        return hourglassPath();
    case Qt::SizeHorCursor:
    case Qt::SplitHCursor:
        return doubleArrowPath(0);
    case Qt::SizeVerCursor:
    case Qt::SplitVCursor:
        return doubleArrowPath(90);
    case Qt::SizeFDiagCursor:
        return doubleArrowPath(45);
    case Qt::SizeBDiagCursor:
        return doubleArrowPath(-45);
    case Qt::SizeAllCursor:
        path = doubleArrowPath(0);
        path.addPath(doubleArrowPath(90));
        return path;
    case Qt::PointingHandCursor:
    case Qt::OpenHandCursor:
    case Qt::ClosedHandCursor:
        return handPath();
    case Qt::ForbiddenCursor:
        path = ringPath();
        path.moveTo(4, 4);
        path.lineTo(12, 12);
        return path;
    default:
        return arrowPath();
    }
}

} // namespace

QIcon checkBoxIcon(bool checked) { return canDraw() ? drawnCheckBox(checked) : QIcon(); }

QIcon colorIcon(const QColor &color)
{
    if (!canDraw())
        return {};
    QPixmap picture = emptyPicture(kIconSizePx);
    QPainter painter(&picture);
    // Squares below a colour that lets through what lies behind it.
    painter.fillRect(picture.rect(), Qt::white);
    for (int y = 0; y < kIconSizePx; y += kCheckerPx) {
        for (int x = (y / kCheckerPx % 2) * kCheckerPx; x < kIconSizePx; x += 2 * kCheckerPx)
            painter.fillRect(x, y, kCheckerPx, kCheckerPx, Qt::lightGray);
    }
    painter.fillRect(picture.rect(), color);
    painter.setPen(Qt::darkGray);
    painter.drawRect(picture.rect().adjusted(0, 0, -1, -1));
    painter.end();
    return picture;
}

QIcon fontIcon(const QFont &font)
{
    if (!canDraw())
        return {};
    QPixmap picture = emptyPicture(kIconSizePx);
    QPainter painter(&picture);
    QFont small = font;
    small.setPixelSize(kIconSizePx - 3);
    painter.setFont(small);
    painter.setPen(QApplication::palette().color(QPalette::Text));
    painter.drawText(picture.rect(), Qt::AlignCenter, QStringLiteral("A"));
    painter.end();
    return picture;
}

QIcon cursorIcon(Qt::CursorShape shape)
{
    if (!canDraw())
        return {};
    QPixmap picture = emptyPicture(kIconSizePx);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QApplication::palette().color(QPalette::Text));
    painter.drawPath(cursorPath(shape));
    painter.end();
    return picture;
}

} // namespace rowtypes
