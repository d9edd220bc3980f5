#include <studio/text/HatchPage.h>

#include <studio/text/MeasureBox.h>

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
    : TextPage(parent), typeBox(new QComboBox(this)),
      spacingBox(new MeasureBox(kSpacingMm, tr(" mm"), this)),
      angleBox(new MeasureBox(kAngleDeg, tr(" °"), this)),
      borderBox(new QCheckBox(tr("&Outlines as well"), this)), hint(new QLabel(this))
{
    typeBox->setObjectName(QStringLiteral("hatchType"));
    typeBox->addItem(tr("none"), int(FillType::None));
    typeBox->addItem(tr("single lines"), int(FillType::Line));
    typeBox->addItem(tr("zigzag"), int(FillType::ULine));
    typeBox->setCurrentIndex(typeBox->findData(int(settings.fill.fillType)));
    spacingBox->setObjectName(QStringLiteral("hatchSpacing"));
    spacingBox->setMeasure(settings.fill.spac);
    angleBox->setObjectName(QStringLiteral("hatchAngle"));
    angleBox->setMeasure(settings.fill.angle);
    borderBox->setObjectName(QStringLiteral("hatchBorder"));
    borderBox->setToolTip(tr("Marks the outlines of the letters, too"));
    borderBox->setChecked(settings.fill.isEnableBorder);
    hint->setObjectName(QStringLiteral("hatchHint"));
    hint->setText(tr("Stroke fonts are single lines: there is nothing to hatch."));
    hint->setWordWrap(true);

    auto *form = new QFormLayout(this);
    form->addRow(tr("&Lines"), typeBox);
    form->addRow(tr("&Spacing"), spacingBox);
    form->addRow(tr("&Direction"), angleBox);
    form->addRow(QString(), borderBox);
    form->addRow(hint);
    setKind(settings.kind);
    connect(typeBox, qOverload<int>(&QComboBox::activated), this, &TextPage::changed);
    for (MeasureBox *box : {spacingBox, angleBox})
        connect(box, qOverload<double>(&QDoubleSpinBox::valueChanged), this, &TextPage::changed);
    connect(borderBox, &QCheckBox::toggled, this, &TextPage::changed);
}

void HatchPage::setKind(FontType kind)
{
    const bool isOutline = kind != FontType::singleLine;
    for (QWidget *box : {static_cast<QWidget *>(typeBox), static_cast<QWidget *>(spacingBox),
                         static_cast<QWidget *>(angleBox), static_cast<QWidget *>(borderBox)})
        box->setEnabled(isOutline);
    hint->setVisible(!isOutline);
}

void HatchPage::read(TextSettings &settings) const
{
    settings.fill.fillType = FillType(typeBox->currentData().toInt());
    settings.fill.spac = spacingBox->measure();
    settings.fill.angle = angleBox->measure();
    settings.fill.isEnableBorder = borderBox->isChecked();
}

} // namespace studio
