#include <vectorkit/hpgl/HpglLettering_p.h>

#include <QtCore/QTextCodec>
#include <QtCore/QtMath>

#include <cmath>

namespace vectorkit {

namespace {

/** Of the stick letters: the letter takes two thirds of its cell, and half of the line. */
constexpr double kCellOfWidth = 1.5;
constexpr double kLineOfHeight = 2.0;
constexpr double kOwnWidthOfHeight = 0.187 / 0.269;

QString textOf(const QByteArray &bytes)
{
    QTextCodec::ConverterState state;
    const QString text =
        QTextCodec::codecForMib(106 /* UTF-8 */)->toUnicode(bytes, bytes.size(), &state);
    return state.invalidChars == 0 && state.remainingChars == 0 ? text : QString::fromLatin1(bytes);
}

} // namespace

struct HpglLettering::Measure
{
    double widthMm;
    double heightMm;
    double cellMm;
    double lineMm;
    double angleDeg;
    bool isMirrored;
    QPointF along; ///< unit vectors of the base line and of the way up, on the screen
    QPointF up;
};

bool HpglLettering::setSize(const std::vector<double> &numbers)
{
    if (!numbers.empty() && (numbers.size() < 2 || numbers[0] == 0.0 || numbers[1] == 0.0))
        return false;
    m_width = numbers.empty() ? 0.187 : numbers[0];
    m_height = numbers.empty() ? 0.269 : numbers[1];
    m_isRelativeSize = false;
    return true;
}

bool HpglLettering::setRelativeSize(const std::vector<double> &numbers)
{
    if (!numbers.empty() && (numbers.size() < 2 || numbers[0] == 0.0 || numbers[1] == 0.0))
        return false;
    m_width = numbers.empty() ? 0.75 : numbers[0];
    m_height = numbers.empty() ? 1.5 : numbers[1];
    m_isRelativeSize = true;
    return true;
}

bool HpglLettering::setDirection(const std::vector<double> &numbers, const HpglFrame *relativeTo)
{
    if (numbers.empty()) {
        m_angle = 0.0;
        return true;
    }
    if (numbers.size() < 2 || (numbers[0] == 0.0 && numbers[1] == 0.0))
        return false;
    const double run = relativeTo ? numbers[0] * relativeTo->span().x() : numbers[0];
    const double rise = relativeTo ? numbers[1] * relativeTo->span().y() : numbers[1];
    m_angle = qRadiansToDegrees(std::atan2(rise, run));
    return true;
}

bool HpglLettering::setSlant(const std::vector<double> &numbers)
{
    m_slantDeg = numbers.empty() ? 0.0 : qRadiansToDegrees(std::atan(numbers[0]));
    return true;
}

bool HpglLettering::setOrigin(const std::vector<double> &numbers)
{
    const double number = numbers.empty() ? 1.0 : numbers[0];
    const bool isKnown = (number >= 1.0 && number <= 9.0) || (number >= 11.0 && number <= 19.0);
    if (!isKnown || number != std::floor(number))
        return false;
    m_origin = static_cast<int>(number);
    return true;
}

bool HpglLettering::setExtraSpace(const std::vector<double> &numbers)
{
    m_extraLetter = numbers.empty() ? 0.0 : numbers[0];
    m_extraLine = numbers.size() > 1 ? numbers[1] : 0.0;
    return true;
}

HpglLettering::Measure HpglLettering::measure(const HpglFrame &frame) const
{
    double acrossMm = m_width * 10.0;
    double upMm = m_height * 10.0;
    if (m_isRelativeSize) {
        acrossMm = m_width / 100.0 * frame.span().x() * frame.unit();
        upMm = m_height / 100.0 * frame.span().y() * frame.unit();
    } else {
        acrossMm *= frame.unit() / 0.025;
        upMm *= frame.unit() / 0.025;
    }
    Measure measure{};
    measure.widthMm = std::abs(acrossMm);
    measure.heightMm = std::abs(upMm);
    measure.cellMm = measure.widthMm * kCellOfWidth * (1.0 + m_extraLetter);
    measure.lineMm = measure.heightMm * kLineOfHeight * (1.0 + m_extraLine);
    // Upside down is mirrored and turned by half.
    measure.angleDeg = m_angle + frame.turnDeg() + (upMm < 0.0 ? 180.0 : 0.0);
    measure.isMirrored = (acrossMm < 0.0) != (upMm < 0.0);
    const double radians = qDegreesToRadians(measure.angleDeg);
    measure.up = QPointF(-std::sin(radians), -std::cos(radians));
    measure.along = QPointF(std::cos(radians), -std::sin(radians));
    if (measure.isMirrored)
        measure.along = -measure.along;
    return measure;
}

QPointF HpglLettering::moved(const QPointF &at, const HpglFrame &frame, double letters,
                             double lines) const
{
    const Measure size = measure(frame);
    return at + size.along * (letters * size.cellMm) + size.up * (lines * size.lineMm);
}

VectorText HpglLettering::line(const QString &text, const Measure &size, const QPointF &at) const
{
    VectorText placed;
    placed.text = text;
    placed.heightMm = size.heightMm;
    placed.angleDeg = std::remainder(size.angleDeg, 360.0);
    placed.widthFactor = size.widthMm / (size.heightMm * kOwnWidthOfHeight);
    // The gap after the last letter is not the label's.
    placed.lengthMm = text.size() * size.cellMm - (size.cellMm - size.widthMm);
    placed.slantDeg = m_slantDeg;
    placed.isMirrored = size.isMirrored;
    const int column = (m_origin % 10 - 1) / 3;
    const int row = (m_origin % 10 - 1) % 3;
    placed.anchor = column == 0   ? TextAnchor::Left
                    : column == 1 ? TextAnchor::Middle
                                  : TextAnchor::Right;
    QPointF offset = size.up * (-size.heightMm * row / 2.0);
    if (m_origin > 10) { // off the point by half a letter
        offset += size.along * (size.widthMm / 2.0 * (1 - column));
        offset += size.up * (size.heightMm / 2.0 * (1 - row));
    }
    placed.positionMm = at + offset;
    return placed;
}

QVector<VectorText> HpglLettering::place(const QByteArray &label, const HpglFrame &frame,
                                         QPointF *at, QPointF *lineStart) const
{
    const Measure size = measure(frame);
    QVector<VectorText> texts;
    QByteArray run;
    const auto endRun = [&] {
        if (run.isEmpty())
            return;
        const QString text = textOf(run);
        if (!text.trimmed().isEmpty())
            texts.append(line(text, size, *at));
        const bool isLeft = m_origin % 10 <= 3; // other labels leave the pen where it was
        *at += size.along * (isLeft ? text.size() * size.cellMm : 0.0);
        run.clear();
    };
    for (const char byte : label) {
        if (static_cast<unsigned char>(byte) >= ' ') {
            run.append(byte);
            continue;
        }
        endRun();
        if (byte == '\r') {
            *at = *lineStart;
        } else if (byte == '\n') {
            *at -= size.up * size.lineMm;
            *lineStart -= size.up * size.lineMm;
        } else if (byte == '\b') {
            *at -= size.along * size.cellMm;
        } else if (byte == '\t') {
            *at += size.along * (size.cellMm / 2.0);
        }
    }
    endRun();
    return texts;
}

VectorText HpglLettering::symbol(char letter, const HpglFrame &frame, const QPointF &at) const
{
    const Measure size = measure(frame);
    HpglLettering centred = *this;
    centred.m_origin = 5;
    return centred.line(QString(QLatin1Char(letter)), size, at);
}

} // namespace vectorkit
