#include <studio/text/MeasureBox.h>

#include <studio/choices/Units.h>

#include <QtCore/QEvent>
#include <QtCore/QSignalBlocker>

namespace studio {

namespace {

constexpr int kMoreDecimalsOfInch = 2;
constexpr double kInchStep = 20.0; ///< so much finer are steps in inches: 1 mm becomes 0.05 in

} // namespace

MeasureBox::MeasureBox(const Range &range, const QString &suffix, QWidget *parent)
    : QDoubleSpinBox(parent), m_range(range)
{
    setDecimals(range.decimals);
    setRange(range.least, range.most);
    setSingleStep(range.step);
    setSuffix(suffix);
    setMeasure(qBound(range.least, 0.0, range.most));
}

MeasureBox::MeasureBox(const Range &rangeMm, QWidget *parent)
    : QDoubleSpinBox(parent), m_range(rangeMm), m_isLength(true),
      m_given(qBound(rangeMm.least, 0.0, rangeMm.most))
{
    takeUnit();
}

void MeasureBox::setMeasure(double number)
{
    const QSignalBlocker quiet(this);
    m_given = number;
    setValue(number / m_factor);
    m_shown = value();
}

double MeasureBox::measure() const { return value() == m_shown ? m_given : value() * m_factor; }

void MeasureBox::changeEvent(QEvent *event)
{
    QDoubleSpinBox::changeEvent(event);
    if (event->type() != QEvent::LanguageChange || !m_isLength)
        return;
    m_given = measure();
    takeUnit();
}

/** The number stays, and is shown in the unit of the program. */
void MeasureBox::takeUnit()
{
    const QSignalBlocker quiet(this);
    const bool isInch = units::unit() == LengthUnit::Inch;
    m_factor = units::unitMm();
    setDecimals(m_range.decimals + (isInch ? kMoreDecimalsOfInch : 0));
    setRange(m_range.least / m_factor, m_range.most / m_factor);
    setSingleStep(isInch ? m_range.step / kInchStep : m_range.step);
    setSuffix(units::suffix());
    setMeasure(m_given);
}

} // namespace studio
