#include <vectorkit/hpgl/HpglFrame_p.h>

#include <algorithm>
#include <cmath>

namespace vectorkit {

namespace {

// A4 on a plotter for that size: what it can reach, and its scaling points.
const QSizeF kSheet(11040.0, 7721.0);
const QPointF kP1(250.0, 279.0);
const QPointF kP2(10250.0, 7479.0);

} // namespace

void HpglFrame::reset()
{
    sheet = kSheet;
    hasPage = false;
    turn = 0;
    scale.clear();
    setDefaultPoints();
}

void HpglFrame::setDefaultPoints()
{
    arePointsSaid = hasPage;
    p1 = hasPage ? QPointF(0.0, 0.0) : kP1;
    p2 = hasPage ? QPointF(turnedSheet().width(), turnedSheet().height()) : kP2;
    update();
}

QSizeF HpglFrame::turnedSheet() const { return turn % 180 == 0 ? sheet : sheet.transposed(); }

bool HpglFrame::setPoints(const std::vector<double> &numbers)
{
    if (numbers.empty()) {
        setDefaultPoints();
        return true;
    }
    if (numbers.size() != 2 && numbers.size() != 4)
        return false;
    const QPointF across = span();
    p1 = QPointF(numbers[0], numbers[1]);
    p2 = numbers.size() == 4 ? QPointF(numbers[2], numbers[3]) : p1 + across;
    arePointsSaid = arePointsSaid || numbers.size() == 4;
    update();
    return true;
}

bool HpglFrame::setPointsPercent(const std::vector<double> &numbers)
{
    std::vector<double> units = numbers;
    for (std::size_t i = 0; i < units.size(); ++i)
        units[i] *= (i % 2 == 0 ? turnedSheet().width() : turnedSheet().height()) / 100.0;
    const bool wasSaid = arePointsSaid;
    if (!setPoints(units))
        return false;
    arePointsSaid = wasSaid || hasPage;
    return true;
}

bool HpglFrame::setScale(const std::vector<double> &numbers)
{
    if (numbers.empty()) {
        scale.clear();
        update();
        return true;
    }
    const bool isByFactor = numbers.size() >= 5 && numbers[4] == 2.0;
    if (numbers.size() < 4)
        return false;
    if (isByFactor ? numbers[1] == 0.0 || numbers[3] == 0.0
                   : numbers[0] == numbers[1] || numbers[2] == numbers[3])
        return false;
    if (!isByFactor && (span().x() == 0.0 || span().y() == 0.0))
        return false;
    scale = numbers;
    wasGuessed = wasGuessed || (!isByFactor && !arePointsSaid);
    update();
    return true;
}

bool HpglFrame::setTurn(const std::vector<double> &numbers)
{
    const double angle = numbers.empty() ? 0.0 : numbers[0];
    if (angle != 0.0 && angle != 90.0 && angle != 180.0 && angle != 270.0)
        return false;
    turn = static_cast<int>(angle);
    update();
    return true;
}

bool HpglFrame::setPageSize(const std::vector<double> &numbers)
{
    if (numbers.empty())
        return true;
    const double width = numbers[0];
    const double height = numbers.size() > 1 ? numbers[1] : width;
    if (!(width > 0.0) || !(height > 0.0))
        return false;
    sheet = QSizeF(width, height);
    hasPage = true;
    setDefaultPoints();
    return true;
}

void HpglFrame::update()
{
    QTransform toUnits;
    if (!scale.empty()) {
        const bool isByFactor = scale.size() >= 5 && scale[4] == 2.0;
        const bool isEven = scale.size() >= 5 && scale[4] == 1.0;
        double across = isByFactor ? scale[1] : span().x() / (scale[1] - scale[0]);
        double up = isByFactor ? scale[3] : span().y() / (scale[3] - scale[2]);
        QPointF origin = p1;
        if (isEven) {
            const double even = std::min(std::abs(across), std::abs(up));
            const double left = scale.size() > 5 ? scale[5] / 100.0 : 0.5;
            const double bottom = scale.size() > 6 ? scale[6] / 100.0 : 0.5;
            across = std::copysign(even, across);
            up = std::copysign(even, up);
            origin += QPointF((span().x() - across * (scale[1] - scale[0])) * left,
                              (span().y() - up * (scale[3] - scale[2])) * bottom);
        }
        toUnits = QTransform(across, 0.0, 0.0, up, origin.x() - across * scale[0],
                             origin.y() - up * scale[2]);
    }
    static const QTransform kTurns[] = {
        {1, 0, 0, 1, 0, 0}, {0, 1, -1, 0, 0, 0}, {-1, 0, 0, -1, 0, 0}, {0, -1, 1, 0, 0, 0}};
    // A turned sheet has its origin in the corner that is now at the lower left.
    const double right = turn == 90 || turn == 180 ? sheet.width() : 0.0;
    const double top = turn == 180 || turn == 270 ? sheet.height() : 0.0;
    toMillimetres = toUnits * kTurns[turn / 90] * QTransform::fromTranslate(right, top) *
                    QTransform::fromScale(unitMm, -unitMm);
    fromMillimetres = toMillimetres.inverted();
    xx = toMillimetres.m11();
    xy = toMillimetres.m12();
    yx = toMillimetres.m21();
    yy = toMillimetres.m22();
    dx = toMillimetres.dx();
    dy = toMillimetres.dy();
}

} // namespace vectorkit
