#include <ZTDrawEngineLib/document/ZTVerticalAxis.h>

#include <QtGui/QFontMetrics>
#include <QtGui/QPainter>
#include <QtGui/QTransform>

namespace {

constexpr int kMajorLeft = 10;
constexpr int kMinorLeft = 15;
constexpr int kLabelBaseline = 9;

/** Draws text that reads upward, its baseline's start at `anchor`. */
void drawUpward(QPainter &painter, const QPoint &anchor, const QString &text)
{
    QTransform turn;
    turn.translate(anchor.x(), anchor.y());
    turn.rotate(-90.0, Qt::ZAxis);
    turn.translate(-anchor.x(), -anchor.y());
    painter.setTransform(turn);
    painter.drawText(anchor, text);
    painter.setTransform(QTransform());
}

} // namespace

ZTVerticalAxis::ZTVerticalAxis(QWidget *parent) : ZTAbstractAxis(parent) {}

void ZTVerticalAxis::setDownward(bool isDownward)
{
    m_isDownward = isDownward;
    update();
}

bool ZTVerticalAxis::isDownward() const { return m_isDownward; }

void ZTVerticalAxis::paintEvent(QPaintEvent *)
{
    const int edge = width() - 1;
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    painter.drawLine(edge, 0, edge, height());
    const QFontMetrics metrics(painter.font());
    for (const Tick &tick : visibleTicks(height())) {
        const int y = static_cast<int>(tick.positionPx);
        painter.drawLine(tick.isMajor ? kMajorLeft : kMinorLeft, y, edge, y);
        if (!tick.isMajor)
            continue;
        const QString text = label(m_isDownward ? tick.number : -tick.number);
        const int labelWidth = metrics.boundingRect(text).width();
        drawUpward(painter, {kLabelBaseline, static_cast<int>(tick.positionPx + labelWidth * 0.5)},
                   text);
    }
}
