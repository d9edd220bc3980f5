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
    explicit HpglFrame(double unitInMm) : unitMm(unitInMm) { reset(); }

    /** As a plotter is after IN. */
    void reset();

    // Each takes the parameters of its command; false when they make no sense.
    bool setPoints(const std::vector<double> &numbers);
    bool setPointsPercent(const std::vector<double> &numbers);
    bool setScale(const std::vector<double> &numbers);
    bool setTurn(const std::vector<double> &numbers);
    bool setPageSize(const std::vector<double> &numbers);

    /** A point of the file in millimetres. */
    QPointF toMm(double x, double y) const { return {x * xx + y * yx + dx, x * xy + y * yy + dy}; }
    const QTransform &transform() const { return toMillimetres; }
    QPointF fromMm(const QPointF &point) const { return fromMillimetres.map(point); }

    /** From P1 to P2, in plotter units. */
    QPointF span() const { return p2 - p1; }
    double unit() const { return unitMm; }
    int turnDeg() const { return turn; }

    /** Sheet in plotter units, as the file says it; empty when it does not. */
    QSizeF page() const { return hasPage ? sheet : QSizeF(); }

    /** Whether a scale hangs on a sheet that the file does not describe. */
    bool isGuessed() const { return wasGuessed; }

private:
    void setDefaultPoints();
    QSizeF turnedSheet() const;
    void update();

    double unitMm;
    QSizeF sheet;
    bool hasPage = false;
    QPointF p1;
    QPointF p2;
    bool arePointsSaid = false;
    bool wasGuessed = false;
    std::vector<double> scale; ///< parameters of SC; empty: off
    int turn = 0;              ///< degrees, counter-clockwise
    QTransform toMillimetres;
    QTransform fromMillimetres;
    double xx = 1.0, xy = 0.0, yx = 0.0, yy = 1.0, dx = 0.0, dy = 0.0;
};

} // namespace vectorkit
