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
    m_sheet = kSheet;
    m_hasPage = false;
    m_turn = 0;
    m_scale.clear();
    setDefaultPoints();
}

void HpglFrame::setDefaultPoints()
{
    m_arePointsSaid = m_hasPage;
    m_p1 = m_hasPage ? QPointF(0.0, 0.0) : kP1;
    m_p2 = m_hasPage ? QPointF(turnedSheet().width(), turnedSheet().height()) : kP2;
    update();
}

QSizeF HpglFrame::turnedSheet() const { return m_turn % 180 == 0 ? m_sheet : m_sheet.transposed(); }

bool HpglFrame::setPoints(const std::vector<double> &numbers)
{
    if (numbers.empty()) {
        setDefaultPoints();
        return true;
    }
    if (numbers.size() != 2 && numbers.size() != 4)
        return false;
    const QPointF across = span();
    m_p1 = QPointF(numbers[0], numbers[1]);
    m_p2 = numbers.size() == 4 ? QPointF(numbers[2], numbers[3]) : m_p1 + across;
    m_arePointsSaid = m_arePointsSaid || numbers.size() == 4;
    update();
    return true;
}

bool HpglFrame::setPointsPercent(const std::vector<double> &numbers)
{
    std::vector<double> units = numbers;
    for (std::size_t i = 0; i < units.size(); ++i)
        units[i] *= (i % 2 == 0 ? turnedSheet().width() : turnedSheet().height()) / 100.0;
    const bool wasSaid = m_arePointsSaid;
    if (!setPoints(units))
        return false;
    m_arePointsSaid = wasSaid || m_hasPage;
    return true;
}

bool HpglFrame::setScale(const std::vector<double> &numbers)
{
    if (numbers.empty()) {
        m_scale.clear();
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
    m_scale = numbers;
    m_wasGuessed = m_wasGuessed || (!isByFactor && !m_arePointsSaid);
    update();
    return true;
}

bool HpglFrame::setTurn(const std::vector<double> &numbers)
{
    const double angle = numbers.empty() ? 0.0 : numbers[0];
    if (angle != 0.0 && angle != 90.0 && angle != 180.0 && angle != 270.0)
        return false;
    m_turn = static_cast<int>(angle);
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
    m_sheet = QSizeF(width, height);
    m_hasPage = true;
    setDefaultPoints();
    return true;
}

void HpglFrame::update()
{
    QTransform toUnits;
    if (!m_scale.empty()) {
        const bool isByFactor = m_scale.size() >= 5 && m_scale[4] == 2.0;
        const bool isEven = m_scale.size() >= 5 && m_scale[4] == 1.0;
        double across = isByFactor ? m_scale[1] : span().x() / (m_scale[1] - m_scale[0]);
        double up = isByFactor ? m_scale[3] : span().y() / (m_scale[3] - m_scale[2]);
        QPointF origin = m_p1;
        if (isEven) {
            const double even = std::min(std::abs(across), std::abs(up));
            const double left = m_scale.size() > 5 ? m_scale[5] / 100.0 : 0.5;
            const double bottom = m_scale.size() > 6 ? m_scale[6] / 100.0 : 0.5;
            across = std::copysign(even, across);
            up = std::copysign(even, up);
            origin += QPointF((span().x() - across * (m_scale[1] - m_scale[0])) * left,
                              (span().y() - up * (m_scale[3] - m_scale[2])) * bottom);
        }
        toUnits = QTransform(across, 0.0, 0.0, up, origin.x() - across * m_scale[0],
                             origin.y() - up * m_scale[2]);
    }
    static const QTransform kTurns[] = {
        {1, 0, 0, 1, 0, 0}, {0, 1, -1, 0, 0, 0}, {-1, 0, 0, -1, 0, 0}, {0, -1, 1, 0, 0, 0}};
    // A turned sheet has its origin in the corner that is now at the lower left.
    const double right = m_turn == 90 || m_turn == 180 ? m_sheet.width() : 0.0;
    const double top = m_turn == 180 || m_turn == 270 ? m_sheet.height() : 0.0;
    m_toMillimetres = toUnits * kTurns[m_turn / 90] * QTransform::fromTranslate(right, top) *
                      QTransform::fromScale(m_unitMm, -m_unitMm);
    m_fromMillimetres = m_toMillimetres.inverted();
    m_xx = m_toMillimetres.m11();
    m_xy = m_toMillimetres.m12();
    m_yx = m_toMillimetres.m21();
    m_yy = m_toMillimetres.m22();
    m_dx = m_toMillimetres.dx();
    m_dy = m_toMillimetres.dy();
}

} // namespace vectorkit
