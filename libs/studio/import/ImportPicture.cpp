#include <studio/import/ImportPicture.h>

#include <hostkit/import/DrawingImport.h>

#include <QtGui/QPainter>

#include <algorithm>
#include <cmath>

namespace studio {

namespace {

constexpr int kMarginPx = 8;
constexpr int kTint = 24;       ///< of 255
constexpr int kMostEnds = 4000; ///< ends that are shown
constexpr double kEndPx = 4.0;
const QColor kEndColor(0xd0, 0x30, 0x20);
const QSize kLeast(360, 300);

/** A colour that can be seen on paper. */
QColor inkOf(const QColor &color)
{
    if (!color.isValid())
        return Qt::black;
    return color.lightness() > 220 ? color.darker(150) : color;
}

} // namespace

ImportPicture::ImportPicture(QWidget *parent) : QWidget(parent)
{
    setMinimumSize(kLeast);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void ImportPicture::show(const vectorkit::VectorDrawing &drawing)
{
    m_parts.clear();
    m_texts.clear();
    m_endsMm.clear();
    QVector<QPainterPath> letters;
    m_boxMm = hostkit::arrivingBoxMm(drawing, &letters);
    for (const vectorkit::VectorLayer &layer : drawing.layers) {
        for (const vectorkit::VectorShape &shape : layer.shapes) {
            const QColor ink = inkOf(shape.color);
            if (m_parts.isEmpty() || m_parts.last().color != ink)
                m_parts.append({QPainterPath(), QPainterPath(), ink});
            for (const vectorkit::VectorPath &path : shape.paths)
                take(path, &m_parts.last());
        }
        for (const vectorkit::VectorText &text : layer.texts)
            m_texts.append({letters[m_texts.size()], inkOf(text.color)});
    }
    update();
}

void ImportPicture::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    // Changes no pixel: Qt writes hairlines straight into a picture only where a rectangle clips.
    painter.setClipRect(rect());
    painter.fillRect(rect(), Qt::white);
    painter.setPen(palette().mid().color());
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    const QRectF room = QRectF(rect()).adjusted(kMarginPx, kMarginPx, -kMarginPx, -kMarginPx);
    const double widthScale = m_boxMm.width() > 0.0 ? room.width() / m_boxMm.width() : HUGE_VAL;
    const double heightScale = m_boxMm.height() > 0.0 ? room.height() / m_boxMm.height() : HUGE_VAL;
    const double scale = std::min(widthScale, heightScale);
    if (!std::isfinite(scale))
        return;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(room.center());
    painter.scale(scale, scale);
    painter.translate(-m_boxMm.center());
    for (const Part &part : qAsConst(m_parts)) {
        QPen pen(part.color, 1.0);
        pen.setCosmetic(true);
        QColor tint = part.color;
        tint.setAlpha(kTint);
        painter.fillPath(part.closed, tint);
        painter.strokePath(part.closed, pen);
        painter.strokePath(part.open, pen);
    }
    if (m_endsMm.size() <= kMostEnds) {
        QPen dot(kEndColor, kEndPx, Qt::SolidLine, Qt::RoundCap);
        dot.setCosmetic(true);
        painter.setPen(dot);
        painter.drawPoints(m_endsMm.constData(), m_endsMm.size());
    }
    for (const Text &text : qAsConst(m_texts))
        painter.fillPath(text.letters, text.color);
}

void ImportPicture::take(const vectorkit::VectorPath &path, Part *part)
{
    path.addTo(path.isClosed() ? &part->closed : &part->open);
    if (!path.isClosed() && !path.isEmpty() && m_endsMm.size() <= kMostEnds)
        m_endsMm << path.start() << path.end();
}

} // namespace studio
