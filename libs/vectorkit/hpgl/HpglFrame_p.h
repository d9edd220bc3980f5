#pragma once

#include <QtCore/QPointF>
#include <QtCore/QSizeF>
#include <QtGui/QTransform>

#include <vector>

namespace vectorkit {

/**
 * From the numbers of a plotter file to millimetres: the scaling points P1 and P2, the scale
 * between them, the turn of the sheet.
 *
 * Frame: plotter units, x to the right and y up, within; millimetres with y down, outside.
 */
class HpglFrame
{
public:
    explicit HpglFrame(double unitInMm) : m_unitMm(unitInMm) { reset(); }

    /** As a plotter is after IN. */
    void reset();

    // Each takes the parameters of its command; false when they make no sense.
    bool setPoints(const std::vector<double> &numbers);
    bool setPointsPercent(const std::vector<double> &numbers);
    bool setScale(const std::vector<double> &numbers);
    bool setTurn(const std::vector<double> &numbers);
    bool setPageSize(const std::vector<double> &numbers);

    /** A point of the file in millimetres. */
    QPointF toMm(double x, double y) const
    {
        return {x * m_xx + y * m_yx + m_dx, x * m_xy + y * m_yy + m_dy};
    }
    const QTransform &transform() const { return m_toMillimetres; }
    QPointF fromMm(const QPointF &point) const { return m_fromMillimetres.map(point); }

    /** From P1 to P2, in plotter units. */
    QPointF span() const { return m_p2 - m_p1; }
    double unit() const { return m_unitMm; }
    int turnDeg() const { return m_turn; }

    /** Sheet in plotter units, as the file says it; empty when it does not. */
    QSizeF page() const { return m_hasPage ? m_sheet : QSizeF(); }

    /** Whether a scale hangs on a sheet that the file does not describe. */
    bool isGuessed() const { return m_wasGuessed; }

private:
    void setDefaultPoints();
    QSizeF turnedSheet() const;
    void update();

    double m_unitMm;
    QSizeF m_sheet;
    bool m_hasPage = false;
    QPointF m_p1;
    QPointF m_p2;
    bool m_arePointsSaid = false;
    bool m_wasGuessed = false;
    std::vector<double> m_scale; ///< parameters of SC; empty: off
    int m_turn = 0;              ///< degrees, counter-clockwise
    QTransform m_toMillimetres;
    QTransform m_fromMillimetres;
    double m_xx = 1.0, m_xy = 0.0, m_yx = 0.0, m_yy = 1.0, m_dx = 0.0, m_dy = 0.0;
};

} // namespace vectorkit
