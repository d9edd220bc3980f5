#include <QtPropertyBrowser/editors/RowEditor_p.h>

#include <QtPropertyBrowser/types/RowTexts_p.h>

#include <QtCore/QSignalBlocker>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QSpinBox>

namespace roweditors {

namespace {

template <class Box, class Number>
class NumberEditor : public RowEditor
{
public:
    NumberEditor(const EditedRow &row, Box *spinBox) : RowEditor(row, spinBox), m_box(spinBox)
    {
        // Without this every keystroke would be an edit of its own.
        m_box->setKeyboardTracking(false);
        start();
        connect(m_box, QOverload<Number>::of(&Box::valueChanged), this,
                [this](Number entered) { write(entered); });
    }

protected:
    void showAttributes() override
    {
        const QSignalBlocker blocker(m_box);
        showDecimals();
        m_box->setRange(number(rowtypes::minimumName()), number(rowtypes::maximumName()));
        m_box->setSingleStep(number(rowtypes::singleStepName()));
    }

    void showValue() override
    {
        const QSignalBlocker blocker(m_box);
        m_box->setValue(value().template value<Number>());
    }

    void takeEntry() override { m_box->interpretText(); }

private:
    Number number(const QString &name) const { return attribute(name).template value<Number>(); }

    void showDecimals()
    {
        if constexpr (std::is_same_v<Box, QDoubleSpinBox>)
            m_box->setDecimals(attribute(rowtypes::decimalsName()).toInt());
    }

    Box *const m_box;
};

template <class Box, class Number>
QWidget *makeNumberEditor(const EditedRow &row, QWidget *parent)
{
    auto *box = new Box(parent);
    new NumberEditor<Box, Number>(row, box);
    return box;
}

} // namespace

void addNumberEditors(Makers *makers)
{
    makers->insert(QMetaType::Int, makeNumberEditor<QSpinBox, int>);
    makers->insert(QMetaType::Double, makeNumberEditor<QDoubleSpinBox, double>);
}

} // namespace roweditors
