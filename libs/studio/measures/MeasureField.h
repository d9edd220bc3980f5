#pragma once

#include <QtCore/QString>
#include <QtWidgets/QLineEdit>

#include <optional>

namespace studio {

/**
 * A field for a measure. It takes units and sums, and shows a wrong entry as wrong, with the
 * reason and the permitted range; nothing that was typed is rounded or clamped.
 *
 * Return commits, and so does leaving the field with an entry that is right. Escape takes an entry
 * back. A wrong entry changes nothing and stays until it is mended, taken back, or another value
 * is shown.
 *
 * Frame: millimetres, degrees or a plain number, by its quantity. Lengths are shown and typed in
 * the unit of the program.
 */
class MeasureField : public QLineEdit
{
    Q_OBJECT

public:
    enum class Quantity { Length, Angle, Percent, Count };

    /** Permitted values, both ends included. */
    struct Range
    {
        double least;
        double most;
    };

    /**
     * What is wrong with a typed text, with the permitted range, for people; empty if nothing is,
     * and `value` is what it says. Every widget for a measure reads by it.
     */
    static QString reasonAgainst(const QString &text, Quantity quantity, const Range &range,
                                 double *value);

    /** Shows a field as wrong, or as right. */
    static void colourFault(QWidget &field, bool isWrong);

    MeasureField(Quantity quantity, const Range &range, QWidget *parent = nullptr);

    /** Shows a value, unless it is shown already: then an entry under way stays. */
    void showValue(double value);

    /** Shows that several values stand behind the field. */
    void showDiffering();

    /** Empties the field, which has nothing to show. */
    void showNothing();

    /** What is shown, if it is one value. */
    std::optional<double> shown() const { return m_value; }

    void setRange(const Range &range);

    /** The tool tip while the entry is right. */
    void setHint(const QString &hint);

    /** Shows the entry as wrong for a reason that only its user knows. */
    void refuse(const QString &reason);

    /** Drops what was typed and not committed. */
    void takeBack();

    /** Tells an entry that is right and not committed yet, as Return does. */
    void commit();

    /** Whether something is typed that is not committed. */
    bool isEdited() const { return text() != m_shownText; }

    /** What is wrong with the entry, for people; empty if nothing is. */
    const QString &fault() const { return m_fault; }

Q_SIGNALS:
    /** The user entered a value within the range. */
    void committed(double value);

    /** The entry became wrong, wrong in another way, or right, which is an empty reason. */
    void faultChanged(const QString &reason);

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    enum class Content { Nothing, Value, Differing };

    void show(Content content, std::optional<double> value);
    void renew();
    bool isForTheWindow(const QKeyEvent &key) const;
    void check();
    void setFault(const QString &reason);

    const Quantity m_quantity;
    Range m_range;
    Content m_content = Content::Nothing;
    std::optional<double> m_value;
    QString m_shownText; ///< while nothing is typed
    QString m_fault;
    QString m_hint;             ///< tool tip while the entry is right
    bool m_isCommitted = false; ///< what is typed is told, and what became of it not shown yet
};

} // namespace studio
