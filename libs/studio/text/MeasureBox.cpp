#include <studio/text/MeasureBox.h>

#include <QtCore/QSignalBlocker>

namespace studio {

MeasureBox::MeasureBox(const Range &range, const QString &suffix, QWidget *parent)
    : QDoubleSpinBox(parent)
{
    setDecimals(range.decimals);
    setRange(range.least, range.most);
    setSingleStep(range.step);
    setSuffix(suffix);
    setMeasure(qBound(range.least, 0.0, range.most));
}

void MeasureBox::setMeasure(double number)
{
    const QSignalBlocker quiet(this);
    given = number;
    setValue(number);
    shown = value();
}

double MeasureBox::measure() const { return value() == shown ? given : value(); }

} // namespace studio
