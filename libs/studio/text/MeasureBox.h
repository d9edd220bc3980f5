#pragma once

#include <QtWidgets/QDoubleSpinBox>

namespace studio {

/**
 * A box for a number that it shows rounded: it gives back the very number it was given, in full,
 * until the user changes it.
 */
class MeasureBox : public QDoubleSpinBox
{
    Q_OBJECT

public:
    /** Limits of the numbers that can be entered, and how many decimals. */
    struct Range
    {
        double least;
        double most;
        double step;
        int decimals;
    };

    MeasureBox(const Range &range, const QString &suffix, QWidget *parent = nullptr);

    /** Shows a number, which may lie outside the range, without telling. */
    void setMeasure(double number);
    double measure() const;

private:
    double m_given = 0.0;
    double m_shown = 0.0; ///< as the box shows what it was given
};

} // namespace studio
