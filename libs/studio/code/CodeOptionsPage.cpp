#include <studio/code/CodeOptionsPage.h>

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QSpinBox>

namespace studio {

namespace {

using codekit::CodeCharset;
using codekit::CodeKind;

/** Chooses the entry with a number; the first where there is none. */
void choose(QComboBox &box, int number) { box.setCurrentIndex(qMax(0, box.findData(number))); }

void setRowVisible(const QFormLayout &form, QWidget *field, bool isVisible)
{
    field->setVisible(isVisible);
    if (QWidget *label = form.labelForField(field))
        label->setVisible(isVisible);
}

/** A combo box of another kind counts from its default again. */
int kept(const QComboBox &box, int otherwise)
{
    return box.count() > 0 ? box.currentData().toInt() : otherwise;
}

} // namespace

CodeOptionsPage::CodeOptionsPage(const CodeEdit &edit, QWidget *parent)
    : CodePage(parent), m_initial(edit.code.spec), m_levelBox(new QComboBox(this)),
      m_sizeBox(new QComboBox(this)), m_maskBox(new QComboBox(this)),
      m_columnsBox(new QSpinBox(this)), m_charsetBox(new QComboBox(this)),
      m_rectangularBox(new QCheckBox(tr("&Rectangular, not square"), this)),
      m_checkDigitBox(new QCheckBox(tr("Add the &check digit"), this)),
      m_escapesBox(
          new QCheckBox(tr("&Escapes: \\n, \\t, \\G, \\x1D stand for control characters"), this)),
      m_limits(new QLabel(this))
{
    m_levelBox->setObjectName(QStringLiteral("level"));
    m_sizeBox->setObjectName(QStringLiteral("symbolSize"));
    m_maskBox->setObjectName(QStringLiteral("mask"));
    m_columnsBox->setObjectName(QStringLiteral("columns"));
    m_columnsBox->setSpecialValueText(tr("automatic"));
    m_columnsBox->setRange(0, m_initial.columns); // each kind brings its own end
    m_columnsBox->setValue(m_initial.columns);
    m_charsetBox->setObjectName(QStringLiteral("charset"));
    m_charsetBox->addItem(tr("automatic"), int(CodeCharset::Automatic));
    m_charsetBox->addItem(QStringLiteral("UTF-8"), int(CodeCharset::Utf8));
    m_charsetBox->addItem(QStringLiteral("GBK"), int(CodeCharset::Gbk));
    choose(*m_charsetBox, int(m_initial.charset));
    m_rectangularBox->setObjectName(QStringLiteral("rectangular"));
    m_rectangularBox->setChecked(m_initial.isRectangular);
    m_checkDigitBox->setObjectName(QStringLiteral("checkDigit"));
    m_checkDigitBox->setChecked(m_initial.hasCheckDigit);
    m_escapesBox->setObjectName(QStringLiteral("escapes"));
    m_escapesBox->setChecked(m_initial.hasEscapes);
    m_limits->setObjectName(QStringLiteral("limits"));
    m_limits->setWordWrap(true);
    layOut();
    for (QComboBox *box : {m_levelBox, m_sizeBox, m_maskBox, m_charsetBox})
        connect(box, qOverload<int>(&QComboBox::activated), this, &CodePage::changed);
    connect(m_columnsBox, qOverload<int>(&QSpinBox::valueChanged), this, &CodePage::changed);
    for (QCheckBox *box : {m_rectangularBox, m_checkDigitBox, m_escapesBox})
        connect(box, &QCheckBox::toggled, this, &CodePage::changed);
}

void CodeOptionsPage::layOut()
{
    m_form = new QFormLayout(this);
    m_form->addRow(tr("Error c&orrection"), m_levelBox);
    m_form->addRow(tr("&Size"), m_sizeBox);
    m_form->addRow(tr("&Mask"), m_maskBox);
    m_form->addRow(tr("Co&lumns"), m_columnsBox);
    m_form->addRow(tr("C&haracter set"), m_charsetBox);
    m_form->addRow(m_rectangularBox);
    m_form->addRow(m_checkDigitBox);
    m_form->addRow(m_escapesBox);
    m_form->addRow(m_limits);
}

void CodeOptionsPage::setKind(CodeKind kind)
{
    const codekit::CodeKindInfo &info = codekit::infoOf(kind);
    const bool isFirst = m_levelBox->count() == 0;
    fillLevels(info, isFirst ? m_initial.level : kept(*m_levelBox, 0));
    fillSizes(info, isFirst ? m_initial.version : 0);
    fillMasks(info, isFirst ? m_initial.mask : -1);
    m_columnsBox->setMaximum(info.mostColumns);
    setRowVisible(*m_form, m_levelBox, !info.levels.isEmpty());
    setRowVisible(*m_form, m_sizeBox, info.mostVersion > 0);
    setRowVisible(*m_form, m_maskBox, info.mostMask >= 0);
    setRowVisible(*m_form, m_columnsBox, info.mostColumns > 0);
    setRowVisible(*m_form, m_charsetBox, info.hasCharsets);
    m_rectangularBox->setVisible(info.canBeRectangular);
    m_checkDigitBox->setVisible(info.hasCheckChoice);
    m_escapesBox->setVisible(info.hasControls);
    m_limits->setText(tr("%1 holds %2.").arg(QLatin1String(info.label), codekit::limitsOf(kind)));
}

void CodeOptionsPage::fillLevels(const codekit::CodeKindInfo &info, int level)
{
    m_levelBox->clear();
    m_levelBox->addItem(tr("automatic"), 0);
    for (const codekit::CodeLevel &offered : info.levels)
        m_levelBox->addItem(offered.name, offered.number);
    choose(*m_levelBox, level);
}

void CodeOptionsPage::fillSizes(const codekit::CodeKindInfo &info, int version)
{
    m_sizeBox->clear();
    m_sizeBox->addItem(tr("the smallest that holds the content"), 0);
    for (int number = 1; number <= info.mostVersion; ++number) {
        const QSize modules = codekit::symbolSize(info.kind, number);
        m_sizeBox->addItem(tr("%1 x %2").arg(modules.width()).arg(modules.height()), number);
    }
    choose(*m_sizeBox, version);
}

void CodeOptionsPage::fillMasks(const codekit::CodeKindInfo &info, int mask)
{
    m_maskBox->clear();
    m_maskBox->addItem(tr("the best"), -1);
    for (int number = 0; number <= info.mostMask; ++number)
        m_maskBox->addItem(QString::number(number), number);
    choose(*m_maskBox, mask);
}

void CodeOptionsPage::read(CodeEdit &edit) const
{
    codekit::CodeSpec &spec = edit.code.spec;
    spec.level = m_levelBox->currentData().toInt();
    spec.version = m_sizeBox->currentData().toInt();
    spec.mask = m_maskBox->currentData().toInt();
    spec.columns = m_columnsBox->value();
    spec.charset = CodeCharset(m_charsetBox->currentData().toInt());
    spec.isRectangular = m_rectangularBox->isChecked();
    spec.hasCheckDigit = m_checkDigitBox->isChecked();
    spec.hasEscapes = m_escapesBox->isChecked();
}

} // namespace studio
