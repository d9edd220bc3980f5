#include <studio/text/HatchPage.h>

#include <studio/measures/MeasureBox.h>

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QLabel>

namespace studio {

namespace {

constexpr MeasureBox::Range kAngleDeg{-3600.0, 3600.0, 5.0, 3};
constexpr MeasureBox::Range kSpacingMm{0.01, 1000.0, 0.1, 3};

} // namespace

HatchPage::HatchPage(const TextSettings &settings, QWidget *parent)
    : TextPage(parent), m_typeBox(new QComboBox(this)),
      m_spacingBox(new MeasureBox(kSpacingMm, this)),
      m_angleBox(new MeasureBox(kAngleDeg, tr(" °"), this)),
      m_borderBox(new QCheckBox(tr("&Outlines as well"), this)), m_hint(new QLabel(this))
{
    m_typeBox->setObjectName(QStringLiteral("hatchType"));
    m_typeBox->addItem(tr("none"), int(FillType::None));
    m_typeBox->addItem(tr("single lines"), int(FillType::Line));
    m_typeBox->addItem(tr("zigzag"), int(FillType::ULine));
    m_typeBox->setCurrentIndex(m_typeBox->findData(int(settings.fill.fillType)));
    m_spacingBox->setObjectName(QStringLiteral("hatchSpacing"));
    m_spacingBox->setMeasure(settings.fill.spac);
    m_angleBox->setObjectName(QStringLiteral("hatchAngle"));
    m_angleBox->setMeasure(0.0 - settings.fill.angle);
    m_angleBox->setToolTip(tr("0° is across, positive is anticlockwise"));
    m_borderBox->setObjectName(QStringLiteral("hatchBorder"));
    m_borderBox->setToolTip(tr("Marks the outlines of the letters, too"));
    m_borderBox->setChecked(settings.fill.isEnableBorder);
    m_hint->setObjectName(QStringLiteral("hatchHint"));
    m_hint->setText(tr("Stroke fonts are single lines: there is nothing to hatch."));
    m_hint->setWordWrap(true);

    auto *form = new QFormLayout(this);
    form->addRow(tr("&Lines"), m_typeBox);
    form->addRow(tr("&Spacing"), m_spacingBox);
    form->addRow(tr("&Direction"), m_angleBox);
    form->addRow(QString(), m_borderBox);
    form->addRow(m_hint);
    setKind(settings.kind);
    connect(m_typeBox, qOverload<int>(&QComboBox::activated), this, &TextPage::changed);
    for (MeasureBox *box : {m_spacingBox, m_angleBox})
        connect(box, qOverload<double>(&QDoubleSpinBox::valueChanged), this, &TextPage::changed);
    connect(m_borderBox, &QCheckBox::toggled, this, &TextPage::changed);
}

void HatchPage::setKind(FontType kind)
{
    const bool isOutline = kind != FontType::singleLine;
    for (QWidget *box : {static_cast<QWidget *>(m_typeBox), static_cast<QWidget *>(m_spacingBox),
                         static_cast<QWidget *>(m_angleBox), static_cast<QWidget *>(m_borderBox)})
        box->setEnabled(isOutline);
    m_hint->setVisible(!isOutline);
}

void HatchPage::read(TextSettings &settings) const
{
    settings.fill.fillType = FillType(m_typeBox->currentData().toInt());
    settings.fill.spac = m_spacingBox->measure();
    // The record counts clockwise.
    settings.fill.angle = 0.0 - m_angleBox->measure();
    settings.fill.isEnableBorder = m_borderBox->isChecked();
}

} // namespace studio
