#pragma once

#include <studio/measures/MeasureField.h>

#include <QtCore/QEvent>
#include <QtWidgets/QDoubleSpinBox>

namespace studio {

/**
 * A box with arrows for a measure. It takes units and sums as every field of the program does
 * (`1in`, `20+5`, `100/3`), and gives back the very number it was given or that was typed, however
 * it shows it rounded.
 *
 * An entry that is wrong is shown as wrong, with the reason and the permitted range, and changes
 * nothing: it stays until it is mended, taken back with Escape, out of sight, or another number is
 * shown. Return
 * then does nothing, so that no dialog goes on with the number from before.
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

    /** A box for a number behind which stands `suffix`; with a degree sign it is an angle. */
    MeasureBox(const Range &range, const QString &suffix, QWidget *parent = nullptr);

    /** A box for a length: the range in millimetres, shown and typed in the program's unit. */
    explicit MeasureBox(const Range &rangeMm, QWidget *parent = nullptr);

    /** Shows a number, a length in millimetres, which may lie outside the range, without telling.
     */
    void setMeasure(double number);
    double measure() const;

    /** What is wrong with the entry, for people; empty if nothing is. */
    const QString &fault() const { return m_fault; }

    /** The first box in a window whose entry is wrong; null if there is none. */
    static MeasureBox *wrongIn(const QWidget &window);

    /** What is wrong there, for people; empty if nothing is. */
    static QString faultIn(const QWidget &window);

    /**
     * What the window of a box gets when the entry becomes wrong, wrong in another way, or right:
     * for windows whose boxes come and go.
     */
    static QEvent::Type faultEvent();

    QValidator::State validate(QString &text, int &pos) const override;
    double valueFromText(const QString &text) const override;
    QString textFromValue(double value) const override;
    void stepBy(int steps) override;

Q_SIGNALS:
    /** The entry became wrong, wrong in another way, or right, which is an empty reason. */
    void faultChanged(const QString &reason);

protected:
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void watchEntry();
    void takeUnit();
    void check();
    void takeBack();
    void takeBackWrong();
    void goBack();
    void keepAsEntered();
    bool isShown(const QString &text) const;
    void setFault(const QString &reason);
    QString reasonAgainst(QString text, double *shownValue) const;

    Range m_range;
    MeasureField::Quantity m_quantity;
    double m_factor = 1.0; ///< of what is shown
    double m_given = 0.0;
    double m_shown = 0.0;   ///< as the box shows what it was given
    double m_entered = 0.0; ///< the measure before the present entry
    QString m_fault;
    QString m_hint; ///< tool tip while the entry is right
};

} // namespace studio
