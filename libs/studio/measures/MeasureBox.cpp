#include <studio/measures/MeasureBox.h>

#include <studio/choices/Units.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QSignalBlocker>
#include <QtCore/QTimer>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QLineEdit>

#include <cmath>

namespace studio {

namespace {

using Quantity = MeasureField::Quantity;

constexpr int kMoreDecimalsOfInch = 2;
constexpr double kInchStep = 20.0; ///< so much finer are steps in inches: 1 mm becomes 0.05 in

Quantity quantityOf(const QString &suffix, int decimals)
{
    if (suffix.isEmpty() && decimals == 0)
        return Quantity::Count;
    return suffix.contains(QChar(0x00b0)) ? Quantity::Angle : Quantity::Percent;
}

} // namespace

MeasureBox::MeasureBox(const Range &range, const QString &suffix, QWidget *parent)
    : QDoubleSpinBox(parent), m_range(range), m_quantity(quantityOf(suffix, range.decimals))
{
    setDecimals(range.decimals);
    setRange(range.least, range.most);
    setSingleStep(range.step);
    setSuffix(suffix);
    setMeasure(qBound(range.least, 0.0, range.most));
    watchEntry();
}

MeasureBox::MeasureBox(const Range &rangeMm, QWidget *parent)
    : QDoubleSpinBox(parent), m_range(rangeMm), m_quantity(Quantity::Length),
      m_given(qBound(rangeMm.least, 0.0, rangeMm.most))
{
    takeUnit();
    watchEntry();
}

void MeasureBox::watchEntry()
{
    connect(lineEdit(), &QLineEdit::textChanged, this, &MeasureBox::check);
    connect(this, &QDoubleSpinBox::editingFinished, this, &MeasureBox::keepAsEntered);
}

void MeasureBox::setMeasure(double number)
{
    const QSignalBlocker quiet(this);
    m_given = number;
    setValue(number / m_factor);
    m_shown = value();
    m_entered = number;
    check();
}

// The box's own limits are those that it shows: the arrows may go a rounding beyond the range.
double MeasureBox::measure() const
{
    return value() == m_shown ? m_given : qBound(m_range.least, value() * m_factor, m_range.most);
}

MeasureBox *MeasureBox::wrongIn(const QWidget &window)
{
    for (MeasureBox *box : window.findChildren<MeasureBox *>()) {
        if (!box->fault().isEmpty())
            return box;
    }
    return nullptr;
}

QString MeasureBox::faultIn(const QWidget &window)
{
    const MeasureBox *wrong = wrongIn(window);
    return wrong != nullptr ? wrong->fault() : QString();
}

QEvent::Type MeasureBox::faultEvent()
{
    static const int kType = QEvent::registerEventType();
    return static_cast<QEvent::Type>(kType);
}

/** Whether a text is no entry: what was given may even lie outside the range. */
bool MeasureBox::isShown(const QString &text) const
{
    const bool isSpecial = value() == minimum() && !specialValueText().isEmpty();
    return text == (isSpecial ? specialValueText() : textFromValue(value()) + suffix());
}

QString MeasureBox::reasonAgainst(QString text, double *shownValue) const
{
    if (text.endsWith(suffix()))
        text.chop(suffix().size());
    double measured = 0.0;
    QString reason =
        MeasureField::reasonAgainst(text, m_quantity, {m_range.least, m_range.most}, &measured);
    *shownValue = measured / m_factor;
    return reason;
}

QValidator::State MeasureBox::validate(QString &text, int &) const
{
    double shownValue = 0.0;
    const bool isRight = isShown(text) || reasonAgainst(text, &shownValue).isEmpty();
    return isRight ? QValidator::Acceptable : QValidator::Intermediate;
}

// Of what is shown rounded the number itself is known.
double MeasureBox::valueFromText(const QString &text) const
{
    if (isShown(text))
        return value();
    double shownValue = 0.0;
    reasonAgainst(text, &shownValue);
    return shownValue;
}

QString MeasureBox::textFromValue(double value) const
{
    const QString text = QString::number(value, 'f', decimals());
    const bool isNothing = text.startsWith(QLatin1Char('-')) && text.toDouble() == 0.0;
    return isNothing ? text.mid(1) : text;
}

void MeasureBox::stepBy(int steps)
{
    if (!m_fault.isEmpty())
        takeBack();
    QDoubleSpinBox::stepBy(steps);
    keepAsEntered();
}

void MeasureBox::keepAsEntered()
{
    if (m_fault.isEmpty())
        m_entered = measure();
}

void MeasureBox::keyPressEvent(QKeyEvent *event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const bool isWrong = !m_fault.isEmpty();
    if (isWrong && isReturn) {
        event->accept();
    } else if (isWrong && event->key() == Qt::Key_Escape) {
        takeBack();
        event->accept();
    } else {
        QDoubleSpinBox::keyPressEvent(event);
    }
}

// A wrong entry stays to be seen: the base would put the number from before in its place.
void MeasureBox::focusOutEvent(QFocusEvent *event)
{
    if (m_fault.isEmpty()) {
        QDoubleSpinBox::focusOutEvent(event);
        return;
    }
    lineEdit()->event(event);
    // Not the next base: that is what this is not to do.
    QWidget::focusOutEvent(event); // NOLINT(bugprone-parent-virtual-call)
}

// What is out of sight is taken back: nobody would look for what is wrong there.
void MeasureBox::hideEvent(QHideEvent *event)
{
    QDoubleSpinBox::hideEvent(event);
    if (window()->isVisible()) {
        takeBackWrong();
        return;
    }
    // A window that goes may be on its way out, with those who listen here gone before it.
    QTimer::singleShot(0, this, &MeasureBox::takeBackWrong);
}

void MeasureBox::takeBackWrong()
{
    if (!m_fault.isEmpty())
        takeBack();
}

void MeasureBox::changeEvent(QEvent *event)
{
    QDoubleSpinBox::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    if (m_quantity == Quantity::Length) {
        m_given = measure();
        takeUnit();
    }
    check();
}

/** The number stays, and is shown in the unit of the program. */
void MeasureBox::takeUnit()
{
    const QSignalBlocker quiet(this);
    const bool isInch = units::unit() == LengthUnit::Inch;
    m_factor = units::unitMm();
    setDecimals(m_range.decimals + (isInch ? kMoreDecimalsOfInch : 0));
    const double finest = std::pow(10.0, -decimals());
    setRange(std::floor(m_range.least / m_factor / finest + 1e-9) * finest,
             std::ceil(m_range.most / m_factor / finest - 1e-9) * finest);
    setSingleStep(isInch ? m_range.step / kInchStep : m_range.step);
    setSuffix(units::suffix());
    setMeasure(m_given);
}

void MeasureBox::check()
{
    const QString text = lineEdit()->text();
    double shownValue = 0.0;
    setFault(isShown(text) ? QString() : reasonAgainst(text, &shownValue));
    if (!m_fault.isEmpty())
        goBack();
}

/** Of a wrong entry nothing stays but its text: what its beginning gave is taken back. */
void MeasureBox::goBack()
{
    if (measure() == m_entered)
        return;
    const QString entry = lineEdit()->text();
    const int cursor = lineEdit()->cursorPosition();
    {
        const QSignalBlocker quiet(this);
        const QSignalBlocker quietEntry(lineEdit());
        m_given = m_entered;
        setValue(m_given / m_factor);
        m_shown = value();
        lineEdit()->setText(entry);
        lineEdit()->setCursorPosition(cursor);
    }
    Q_EMIT valueChanged(value());
}

void MeasureBox::takeBack()
{
    lineEdit()->setText(textFromValue(value()) + suffix());
    selectAll();
    check();
}

void MeasureBox::setFault(const QString &reason)
{
    if (reason == m_fault)
        return;
    if (m_fault.isEmpty())
        m_hint = toolTip();
    m_fault = reason;
    setToolTip(reason.isEmpty() ? m_hint : reason);
    setAccessibleDescription(reason);
    MeasureField::colourFault(*this, !reason.isEmpty());
    Q_EMIT faultChanged(reason);
    QEvent told(faultEvent());
    QCoreApplication::sendEvent(window(), &told);
}

} // namespace studio
