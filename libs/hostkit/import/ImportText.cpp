#include <hostkit/import/ImportText_p.h>

#include <QtGui/QFontMetricsF>

#include <cmath>

namespace hostkit {

namespace {

using vectorkit::TextAnchor;
using vectorkit::VectorText;

constexpr int kFontPx = 100;
constexpr double kDegPerRad = 180.0 / M_PI;

/** How far the first letter stands before the anchor, in units of the font. */
double shiftOf(TextAnchor anchor, double advance)
{
    switch (anchor) {
    case TextAnchor::Middle:
        return -advance / 2.0;
    case TextAnchor::Right:
        return -advance;
    case TextAnchor::Left:
        break;
    }
    return 0.0;
}

QTransform formOf(const VectorText &text, double size)
{
    QTransform form(1.0, 0.0, -std::tan(text.slantDeg / kDegPerRad), 1.0, 0.0, 0.0);
    form = QTransform::fromScale(size * text.widthFactor, size) * form;
    form *= QTransform::fromScale(text.isMirrored ? -1.0 : 1.0, 1.0);
    QTransform turned;
    turned.rotate(-text.angleDeg);
    return form * turned;
}

} // namespace

ImportText importText(const VectorText &text)
{
    ImportText made;
    if (!text.fontFamily.isEmpty())
        made.font.setFamily(text.fontFamily);
    made.font.setPixelSize(kFontPx);
    const QFontMetricsF metrics(made.font);
    QPainterPath letters;
    letters.addText(0.0, 0.0, made.font, text.text);
    if (letters.isEmpty() || !(metrics.capHeight() > 0.0) || !(text.heightMm > 0.0))
        return made;
    made.form = formOf(text, text.heightMm / metrics.capHeight());
    letters.translate(shiftOf(text.anchor, metrics.horizontalAdvance(text.text)), 0.0);
    const QPointF &placeMm = text.positionMm;
    made.lettersMm = (made.form * QTransform::fromTranslate(placeMm.x(), placeMm.y())).map(letters);
    return made;
}

// Along the base line and upright to it: both as they are after the stretch, taken apart anew.
void stretchText(VectorText *text, const QTransform &larger)
{
    const double turnRad = -text->angleDeg / kDegPerRad;
    const QPointF along = larger.map(QPointF(std::cos(turnRad), std::sin(turnRad)));
    const QPointF down = larger.map(QPointF(-std::sin(turnRad), std::cos(turnRad)));
    const double length = std::hypot(along.x(), along.y());
    const QPointF alongNow = along / length;
    const double height = QPointF::dotProduct(down, QPointF(-alongNow.y(), alongNow.x()));
    const double lean = QPointF::dotProduct(down, alongNow) * (text->isMirrored ? -1.0 : 1.0);
    const double slant = std::tan(text->slantDeg / kDegPerRad);
    text->slantDeg = std::atan((slant * length - lean) / height) * kDegPerRad;
    text->angleDeg = 0.0 - std::atan2(alongNow.y(), alongNow.x()) * kDegPerRad;
    text->heightMm *= height;
    text->widthFactor *= length / height;
    text->lengthMm *= length;
    text->positionMm = larger.map(text->positionMm);
}

} // namespace hostkit
