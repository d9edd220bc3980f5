#include <ZTDrawEngineLib/document/ZTAbstractAxis.h>

#include <ZTDrawEngineLib/document/ZTCoord.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr int kMajorEvery = 10;
constexpr int kMaxTicks = 10000;
constexpr double kMaxTickNumber = 2e9;
/** A tick this far outside the strip cannot reach into it with its label either. */
constexpr double kMarginPx = 500.0;

} // namespace

ZTAbstractAxis::ZTAbstractAxis(QWidget *parent) : QWidget(parent)
{
    pixelsPerUnit = ZTCoord::getInstance()->mm2pix(1.0);
}

double ZTAbstractAxis::getOrigin() const { return origin; }

void ZTAbstractAxis::setOrigin(double v)
{
    origin = v / tickStep;
    update();
}

double ZTAbstractAxis::getLength() const { return length; }

void ZTAbstractAxis::setLength(double v)
{
    length = v / tickStep;
    update();
}

void ZTAbstractAxis::setPixelsPerUnit(double pixels)
{
    pixelsPerUnit = pixels;
    update();
}

double ZTAbstractAxis::getTickStep() const { return tickStep; }

void ZTAbstractAxis::setTickStep(double step) { tickStep = step; }

double ZTAbstractAxis::niceNumber(double v)
{
    static constexpr std::array<double, 5> kNice = {1.0, 2.0, 2.5, 5.0, 10.0};
    if (!(v > 0.0) || std::isinf(v))
        return 1.0;
    double magnitude = 1.0;
    for (; v >= 10.0; v /= 10.0)
        magnitude *= 10.0;
    for (; v < 1.0; v *= 10.0)
        magnitude /= 10.0;
    for (const double nice : kNice) {
        if (nice >= v)
            return nice * magnitude;
    }
    return magnitude;
}

void ZTAbstractAxis::paintEvent(QPaintEvent *) {}

QVector<ZTAbstractAxis::Tick> ZTAbstractAxis::visibleTicks(double extentPx) const
{
    const double scale = pixelsPerUnit / niceNumber(pixelsPerUnit);
    const double start = origin / scale;
    const double end = length / scale + start;
    QVector<Tick> ticks;
    const bool isDrawable = length > 0.0 && std::abs(start) < kMaxTickNumber && !std::isnan(end);
    if (!isDrawable)
        return ticks;
    const double last = std::min(end, kMaxTickNumber);
    const bool isGrowing = tickStep * scale >= 0.0;
    for (int i = static_cast<int>(start); i < last && ticks.size() < kMaxTicks; ++i) {
        const double position = i * tickStep * scale - start * tickStep * scale;
        const bool isBefore = position < -kMarginPx;
        const bool isBehind = position > extentPx + kMarginPx;
        if (std::isnan(position) || (isGrowing ? isBehind : isBefore))
            break;
        if (!isBefore && !isBehind)
            ticks.append({i, position, i % kMajorEvery == 0});
    }
    return ticks;
}

QString ZTAbstractAxis::label(int number) const
{
    return QString::number(number / niceNumber(pixelsPerUnit), 'g', 6);
}
