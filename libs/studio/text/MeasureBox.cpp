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
    m_given = number;
    setValue(number);
    m_shown = value();
}

double MeasureBox::measure() const { return value() == m_shown ? m_given : value(); }

} // namespace studio
