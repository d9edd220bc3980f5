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

    /** A box for a length: the range in millimetres, shown and typed in the program's unit. */
    explicit MeasureBox(const Range &rangeMm, QWidget *parent = nullptr);

    /** Shows a number, a length in millimetres, which may lie outside the range, without telling.
     */
    void setMeasure(double number);
    double measure() const;

protected:
    void changeEvent(QEvent *event) override;

private:
    void takeUnit();

    Range m_range;
    bool m_isLength = false;
    double m_factor = 1.0; ///< of what is shown
    double m_given = 0.0;
    double m_shown = 0.0; ///< as the box shows what it was given
};

} // namespace studio
