#include <studio/canvas/ToolCursor.h>

#include <studio/program/Icons.h>

#include <QtGui/QPainter>
#include <QtGui/QPixmap>

namespace studio {

namespace {

constexpr int kSide = 32;
constexpr int kMiddle = 9;
constexpr int kReach = 8;
constexpr int kHole = 2; ///< the very place stays in sight
constexpr int kIcon = 16;
constexpr int kIconPlace = 15;

void drawCross(QPainter &painter)
{
    for (const int sign : {-1, 1}) {
        painter.drawLine(kMiddle + sign * kHole, kMiddle, kMiddle + sign * kReach, kMiddle);
        painter.drawLine(kMiddle, kMiddle + sign * kHole, kMiddle, kMiddle + sign * kReach);
    }
}

} // namespace

QCursor toolCursor(const char *iconName)
{
    QPixmap picture(kSide, kSide);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    // Dark on light, so that it is seen on paper and on everything that is drawn.
    painter.setPen(QPen(Qt::white, 3));
    drawCross(painter);
    painter.setPen(QPen(Qt::black, 1));
    drawCross(painter);
    painter.drawPixmap(kIconPlace, kIconPlace, icon(iconName).pixmap(kIcon));
    painter.end();
    return QCursor(picture, kMiddle, kMiddle);
}

} // namespace studio
