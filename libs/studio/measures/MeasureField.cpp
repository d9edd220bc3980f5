#include <studio/measures/MeasureField.h>

#include <studio/choices/Units.h>
#include <studio/measures/TypedMeasure.h>

#include <QtCore/QEvent>
#include <QtGui/QFocusEvent>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QApplication>

#include <cmath>

namespace studio {

namespace {

constexpr int kInchDecimals = 6;
constexpr double kWrongShare = 0.35; ///< of red in a wrong entry's background

QColor mixed(const QColor &base, const QColor &over, double share)
{
    const auto mix = [share](double a, double b) { return a * (1.0 - share) + b * share; };
    return QColor::fromRgbF(mix(base.redF(), over.redF()), mix(base.greenF(), over.greenF()),
                            mix(base.blueF(), over.blueF()));
}

TypedMeasure readAs(MeasureField::Quantity quantity, const QString &text)
{
    switch (quantity) {
    case MeasureField::Quantity::Length:
        return readLength(text, units::unitMm());
    case MeasureField::Quantity::Angle:
        return readAngle(text);
    case MeasureField::Quantity::Percent:
    case MeasureField::Quantity::Count:
        return readNumber(text);
    }
    return {};
}

QString numberText(MeasureField::Quantity quantity, double value)
{
    const bool isInch =
        quantity == MeasureField::Quantity::Length && units::unit() == LengthUnit::Inch;
    return isInch ? measureText(value / units::unitMm(), kInchDecimals) : measureText(value);
}

QString rangeText(MeasureField::Quantity quantity, const MeasureField::Range &range)
{
    const QString least = numberText(quantity, range.least);
    const QString most = numberText(quantity, range.most);
    switch (quantity) {
    case MeasureField::Quantity::Length:
        return MeasureField::tr("%1 to %2 %3").arg(least, most, units::name());
    case MeasureField::Quantity::Angle:
        return MeasureField::tr("%1° to %2°").arg(least, most);
    case MeasureField::Quantity::Percent:
        return MeasureField::tr("%1 to %2 %").arg(least, most);
    case MeasureField::Quantity::Count:
        return MeasureField::tr("%1 to %2").arg(least, most);
    }
    return {};
}

} // namespace

QString MeasureField::reasonAgainst(const QString &text, Quantity quantity, const Range &range,
                                    double *value)
{
    const TypedMeasure typed = readAs(quantity, text);
    QString reason;
    if (!typed.isRight())
        reason = faultText(typed);
    else if (typed.value < range.least)
        reason = tr("Too small");
    else if (typed.value > range.most)
        reason = tr("Too large");
    else if (quantity == Quantity::Count && typed.value != std::floor(typed.value))
        reason = tr("Not a whole number");
    *value = typed.value;
    return reason.isEmpty() ? reason
                            : tr("%1. Permitted: %2").arg(reason, rangeText(quantity, range));
}

void MeasureField::colourFault(QWidget &field, bool isWrong)
{
    QPalette colours;
    if (isWrong) {
        const QColor base = QApplication::palette(&field).color(QPalette::Base);
        colours.setColor(QPalette::Base, mixed(base, Qt::red, kWrongShare));
    }
    field.setPalette(colours);
}

MeasureField::MeasureField(Quantity quantity, const Range &range, QWidget *parent)
    : QLineEdit(parent), m_quantity(quantity), m_range(range)
{
    setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("-9999.9999")));
    connect(this, &QLineEdit::textChanged, this, &MeasureField::check);
}

void MeasureField::showValue(double value)
{
    // Text that is typed belongs to the value that it was typed over.
    if (m_content != Content::Value || m_value != value || m_isCommitted)
        show(Content::Value, value);
}

void MeasureField::showDiffering()
{
    if (m_content != Content::Differing || m_isCommitted)
        show(Content::Differing, std::nullopt);
}

void MeasureField::showNothing() { show(Content::Nothing, std::nullopt); }

void MeasureField::show(Content content, std::optional<double> value)
{
    m_content = content;
    m_value = value;
    renew();
}

void MeasureField::renew()
{
    m_shownText = m_value ? numberText(m_quantity, *m_value) : QString();
    setPlaceholderText(m_content == Content::Differing ? tr("differs") : QString());
    m_isCommitted = false;
    setText(m_shownText);
    if (hasFocus())
        selectAll();
    setFault({});
}

void MeasureField::takeBack() { renew(); }

void MeasureField::setRange(const Range &range)
{
    m_range = range;
    check();
}

void MeasureField::refuse(const QString &reason)
{
    m_isCommitted = false;
    setFault(reason);
}

// No measure begins with a letter: over a value that is shown, one chooses a tool.
bool MeasureField::isForTheWindow(const QKeyEvent &key) const
{
    const bool isLetter = key.key() >= Qt::Key_A && key.key() <= Qt::Key_Z;
    return isLetter && key.modifiers() == Qt::NoModifier && selectedText() == text();
}

bool MeasureField::event(QEvent *event)
{
    // Undo is the drawing's, as long as there is nothing typed to be undone.
    if (event->type() == QEvent::ShortcutOverride && !isEdited()) {
        const auto *key = static_cast<QKeyEvent *>(event);
        if (key->matches(QKeySequence::Undo) || key->matches(QKeySequence::Redo) ||
            isForTheWindow(*key)) {
            event->ignore();
            return false;
        }
    }
    return QLineEdit::event(event);
}

void MeasureField::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        commit();
        event->accept();
        break;
    case Qt::Key_Escape:
        if (isEdited() || !m_fault.isEmpty()) {
            takeBack();
            event->accept();
        } else {
            event->ignore();
        }
        break;
    default:
        QLineEdit::keyPressEvent(event);
    }
}

void MeasureField::focusOutEvent(QFocusEvent *event)
{
    QLineEdit::focusOutEvent(event);
    // A menu or another program comes over the window for a moment only.
    if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason)
        commit();
}

void MeasureField::changeEvent(QEvent *event)
{
    QLineEdit::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    if (!isEdited()) {
        renew(); // the unit may be another
        return;
    }
    setPlaceholderText(m_content == Content::Differing ? tr("differs") : QString());
    check();
}

void MeasureField::commit()
{
    double value = 0.0;
    if (!isEdited() || m_isCommitted ||
        !reasonAgainst(text(), m_quantity, m_range, &value).isEmpty())
        return;
    // Until whoever listens shows what became of it.
    m_isCommitted = true;
    Q_EMIT committed(value);
}

void MeasureField::check()
{
    m_isCommitted = false;
    double value = 0.0;
    setFault(isEdited() ? reasonAgainst(text(), m_quantity, m_range, &value) : QString());
}

void MeasureField::setHint(const QString &hint)
{
    m_hint = hint;
    setToolTip(m_fault.isEmpty() ? m_hint : m_fault);
}

void MeasureField::setFault(const QString &reason)
{
    if (reason == m_fault)
        return;
    m_fault = reason;
    setToolTip(reason.isEmpty() ? m_hint : reason);
    setAccessibleDescription(reason);
    colourFault(*this, !m_fault.isEmpty());
    Q_EMIT faultChanged(reason);
}

} // namespace studio
