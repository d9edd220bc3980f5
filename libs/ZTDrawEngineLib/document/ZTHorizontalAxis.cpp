#include <ZTDrawEngineLib/document/ZTHorizontalAxis.h>

#include <QtGui/QFontMetrics>
#include <QtGui/QPainter>

namespace {

constexpr int kMajorTop = 10;
constexpr int kMinorTop = 15;
constexpr int kLabelBaseline = 9;

} // namespace

ZTHorizontalAxis::ZTHorizontalAxis(QWidget *parent) : ZTAbstractAxis(parent) {}

void ZTHorizontalAxis::paintEvent(QPaintEvent *)
{
    const int edge = height() - 1;
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    painter.drawLine(0, edge, width(), edge);
    const QFontMetrics metrics(painter.font());
    for (const Tick &tick : visibleTicks(width())) {
        const int x = static_cast<int>(tick.positionPx);
        painter.drawLine(x, tick.isMajor ? kMajorTop : kMinorTop, x, edge);
        if (!tick.isMajor)
            continue;
        const QString text = label(tick.number);
        const int labelWidth = metrics.boundingRect(text).width();
        painter.drawText(static_cast<int>(tick.positionPx - labelWidth * 0.5), kLabelBaseline,
                         text);
    }
}
