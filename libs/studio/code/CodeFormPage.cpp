#include <studio/code/CodeFormPage.h>

#include <studio/measures/MeasureBox.h>

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QRadioButton>

namespace studio {

namespace {

using codekit::CodeStyle;

constexpr MeasureBox::Range kModuleMm{0.001, 1000.0, 0.05, 4};
constexpr MeasureBox::Range kLengthMm{0.01, 10000.0, 1.0, 3};
constexpr MeasureBox::Range kGrowthMm{0.0, 100.0, 0.01, 4};
constexpr MeasureBox::Range kDotPercent{1.0, 100.0, 5.0, 1};
constexpr double kPercent = 100.0;

QWidget *named(QWidget *widget, const char *name)
{
    widget->setObjectName(QString::fromLatin1(name));
    return widget;
}

/** A button that chooses a field, and the field. */
QHBoxLayout *choiceRow(QWidget *button, QWidget *box)
{
    auto *row = new QHBoxLayout;
    row->addWidget(button);
    row->addWidget(box, 1);
    return row;
}

void setRowVisible(const QFormLayout &form, QWidget *field, bool isVisible)
{
    field->setVisible(isVisible);
    form.labelForField(field)->setVisible(isVisible);
}

} // namespace

CodeFormPage::CodeFormPage(const CodeEdit &edit, QWidget *parent)
    : CodePage(parent), m_moduleButton(new QRadioButton(tr("&Module"), this)),
      m_widthButton(new QRadioButton(tr("&Width"), this)),
      m_moduleBox(new MeasureBox(kModuleMm, this)), m_widthBox(new MeasureBox(kLengthMm, this)),
      m_heightBox(new MeasureBox(kLengthMm, this)), m_styleBox(new QComboBox(this)),
      m_dotBox(new MeasureBox(kDotPercent, tr(" % of the module"), this)),
      m_growthBox(new MeasureBox(kGrowthMm, this)),
      m_inverseBox(new QCheckBox(tr("&Inverse: mark what is light, for dark material"), this)),
      m_quietBox(new QCheckBox(tr("Show the &quiet zone on the drawing"), this))
{
    named(m_moduleButton, "byModule");
    named(m_widthButton, "byWidth");
    named(m_moduleBox, "module")->setToolTip(tr("Width of the narrowest bar, or of one square"));
    named(m_widthBox, "width")->setToolTip(tr("Width of the code without its quiet zone"));
    named(m_heightBox, "barHeight");
    named(m_styleBox, "style")
        ->setToolTip(tr("A point is where the beam stays for a moment: one in each dark module"));
    named(m_dotBox, "dotShare");
    named(m_growthBox, "growth")
        ->setToolTip(tr("Width of the beam, taken off each dark area: the beam gives it back"));
    named(m_inverseBox, "inverse");
    named(m_quietBox, "showQuietZone")
        ->setToolTip(tr("The room that the code needs free around it; it is never marked"));
    fill(edit);
    layOut();
    tellChanges();
}

void CodeFormPage::fill(const CodeEdit &edit)
{
    const codekit::CodeForm &form = edit.code.form;
    (edit.code.isSizedByWidth ? m_widthButton : m_moduleButton)->setChecked(true);
    m_moduleBox->setMeasure(form.moduleMm);
    m_widthBox->setMeasure(edit.code.widthMm);
    m_heightBox->setMeasure(form.heightMm);
    m_dotBox->setMeasure(form.dotShare * kPercent);
    m_growthBox->setMeasure(form.growthMm);
    m_inverseBox->setChecked(form.isInverse);
    m_quietBox->setChecked(edit.code.showsQuietZone);
    fillStyles(form.style);
}

/** A bar of dots is none: bar codes are not offered them, nor points. */
void CodeFormPage::fillStyles(CodeStyle chosen)
{
    m_styleBox->clear();
    m_styleBox->addItem(tr("outlines of the dark areas"), int(CodeStyle::Merged));
    m_styleBox->addItem(tr("squares, one by one"), int(CodeStyle::Squares));
    if (!m_isLinear) {
        m_styleBox->addItem(tr("dots"), int(CodeStyle::Dots));
        m_styleBox->addItem(tr("points, one a module"), int(CodeStyle::Points));
    }
    m_styleBox->addItem(tr("bars"), int(CodeStyle::Bars));
    m_styleBox->addItem(tr("single lines"), int(CodeStyle::BarLines));
    m_styleBox->setCurrentIndex(qMax(0, m_styleBox->findData(int(chosen))));
}

void CodeFormPage::layOut()
{
    m_form = new QFormLayout(this);
    m_form->addRow(choiceRow(m_moduleButton, m_moduleBox));
    m_form->addRow(choiceRow(m_widthButton, m_widthBox));
    m_form->addRow(tr("&Height of the bars"), m_heightBox);
    m_form->addRow(tr("&Style"), m_styleBox);
    m_form->addRow(tr("&Diameter of a dot"), m_dotBox);
    m_form->addRow(tr("Print &growth"), m_growthBox);
    m_form->addRow(m_inverseBox);
    m_form->addRow(m_quietBox);
    showRows();
}

void CodeFormPage::showRows()
{
    m_moduleBox->setEnabled(m_moduleButton->isChecked());
    m_widthBox->setEnabled(m_widthButton->isChecked());
    setRowVisible(*m_form, m_heightBox, m_isLinear);
    const bool isDotted = m_styleBox->currentData().toInt() == int(CodeStyle::Dots);
    setRowVisible(*m_form, m_dotBox, isDotted);
}

void CodeFormPage::setKind(codekit::CodeKind kind)
{
    const auto chosen = CodeStyle(m_styleBox->currentData().toInt());
    m_isLinear = codekit::infoOf(kind).isLinear;
    fillStyles(chosen);
    showRows();
}

void CodeFormPage::tellChanges()
{
    const auto tell = [this] {
        showRows();
        Q_EMIT changed();
    };
    connect(m_moduleButton, &QRadioButton::toggled, this, tell);
    for (MeasureBox *box : {m_moduleBox, m_widthBox, m_heightBox, m_dotBox, m_growthBox})
        connect(box, qOverload<double>(&QDoubleSpinBox::valueChanged), this, tell);
    connect(m_styleBox, qOverload<int>(&QComboBox::activated), this, tell);
    for (QCheckBox *box : {m_inverseBox, m_quietBox})
        connect(box, &QCheckBox::toggled, this, tell);
}

void CodeFormPage::read(CodeEdit &edit) const
{
    codekit::CodeForm &form = edit.code.form;
    edit.code.isSizedByWidth = m_widthButton->isChecked();
    edit.code.widthMm = m_widthBox->measure();
    edit.code.showsQuietZone = m_quietBox->isChecked();
    form.moduleMm = m_moduleBox->measure();
    form.heightMm = m_heightBox->measure();
    form.growthMm = m_growthBox->measure();
    form.dotShare = m_dotBox->measure() / kPercent;
    form.isInverse = m_inverseBox->isChecked();
    form.style = CodeStyle(m_styleBox->currentData().toInt());
}

} // namespace studio
