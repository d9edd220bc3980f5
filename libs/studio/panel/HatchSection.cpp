#include <studio/panel/HatchSection.h>

#include <studio/choices/Units.h>
#include <studio/panel/ChoiceBox.h>

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QLabel>

#include <algorithm>

namespace studio {

namespace {

constexpr MeasureField::Range kSpacingMm{0.005, 1000.0};
constexpr MeasureField::Range kAngleDeg{-360.0, 360.0};

FillType kindOf(const ShapeItem &item) { return item.getFillParam().fillType; }

/** Whether a hatch is wanted that cannot be made, too fine or too wide for its shape. */
bool lacksHatch(const ShapeItem *item)
{
    ZTShapeBase &shape = *item->getShapeBase();
    if (shape.getFillParam().fillType == FillType::None)
        return false;
    shape.paint();
    return shape.getFillLines().isEmpty();
}

} // namespace

HatchSection::HatchSection(ZTGraphicsDocument &document, QWidget *parent)
    : PanelSection(parent), m_edits(document), m_unit(new QLabel(this)),
      m_kindLabel(new QLabel(this)), m_kind(new ChoiceBox(this)), m_spacingLabel(new QLabel(this)),
      m_spacing(newField("panel.hatchSpacing", MeasureField::Quantity::Length, kSpacingMm)),
      m_angleLabel(new QLabel(this)),
      m_angle(newField("panel.hatchAngle", MeasureField::Quantity::Angle, kAngleDeg)),
      m_border(new QCheckBox(this)), m_hint(new QLabel(this))
{
    m_kind->setObjectName(QStringLiteral("panel.hatch"));
    for (const FillType kind : {FillType::None, FillType::Line, FillType::ULine})
        m_kind->addItem(QString(), int(kind));
    m_border->setObjectName(QStringLiteral("panel.border"));
    m_hint->setObjectName(QStringLiteral("panel.hatchHint"));
    m_hint->setWordWrap(true);
    layOut();
    connectFields();
    HatchSection::retranslate();
}

void HatchSection::connectFields()
{
    connect(m_kind, qOverload<int>(&QComboBox::activated), this, [this] {
        const auto kind = static_cast<FillType>(m_kind->currentData().toInt());
        m_edits.setHatch([kind](ZTFillParam &fill) { fill.fillType = kind; });
        Q_EMIT tried();
    });
    // The number in the record is the distance on the part already.
    connect(m_spacing, &MeasureField::committed, this, [this](double mm) {
        settle(*m_spacing, m_edits.setHatch([mm](ZTFillParam &fill) { fill.spac = mm; }));
    });
    // The record counts clockwise.
    connect(m_angle, &MeasureField::committed, this, [this](double deg) {
        settle(*m_angle, m_edits.setHatch([deg](ZTFillParam &fill) { fill.angle = 0.0 - deg; }));
    });
    connect(m_border, &QCheckBox::clicked, this, [this] {
        const bool isOn = m_border->checkState() == Qt::Checked;
        m_edits.setHatch([isOn](ZTFillParam &fill) { fill.isEnableBorder = isOn; });
        Q_EMIT tried();
    });
}

void HatchSection::layOut()
{
    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(m_kindLabel, 0, 0);
    grid->addWidget(m_kind, 0, 1, 1, 5);
    grid->addWidget(m_spacingLabel, 1, 0);
    grid->addWidget(m_spacing, 1, 1);
    grid->addWidget(m_unit, 1, 2);
    grid->addWidget(m_angleLabel, 1, 3);
    grid->addWidget(m_angle, 1, 4);
    grid->addWidget(new QLabel(QStringLiteral("°"), this), 1, 5);
    grid->addWidget(m_border, 2, 0, 1, 6);
    grid->addWidget(m_hint, 3, 0, 1, 6);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(4, 1);
    m_kindLabel->setBuddy(m_kind);
    m_spacingLabel->setBuddy(m_spacing);
    m_angleLabel->setBuddy(m_angle);
}

void HatchSection::retranslate()
{
    m_unit->setText(units::name());
    m_kindLabel->setText(tr("Hatch"));
    m_kind->setAccessibleName(tr("Hatch"));
    m_kind->setItemText(0, tr("none"));
    m_kind->setItemText(1, tr("single lines"));
    m_kind->setItemText(2, tr("zigzag"));
    m_spacingLabel->setText(tr("Spacing"));
    m_spacing->setAccessibleName(tr("Spacing of the hatch in %1").arg(units::name()));
    m_spacing->setHint(tr("Distance of the hatch lines on the part"));
    m_angleLabel->setText(tr("Angle"));
    m_angle->setAccessibleName(tr("Angle of the hatch in degrees"));
    m_angle->setHint(tr("0 is across, positive is anticlockwise"));
    m_border->setText(tr("Outline as well"));
    m_border->setToolTip(tr("Marks the outline, too"));
}

void HatchSection::follow(const ShapeItems &selected)
{
    ShapeItems areas;
    std::copy_if(selected.begin(), selected.end(), std::back_inserter(areas),
                 [](const ShapeItem *item) { return canBeHatched(*item); });
    setEnabled(!areas.isEmpty());
    const auto kind = commonValue(areas, &kindOf);
    m_kind->setPlaceholderText(areas.isEmpty() ? QString() : tr("differs"));
    m_kind->setCurrentIndex(kind ? m_kind->findData(int(*kind)) : -1);
    const bool isHatched = std::any_of(areas.begin(), areas.end(), [](const ShapeItem *item) {
        return kindOf(*item) != FillType::None;
    });
    for (QWidget *field : {static_cast<QWidget *>(m_spacing), static_cast<QWidget *>(m_angle)})
        field->setEnabled(isHatched);
    showCommon(*m_spacing, areas, [](const ShapeItem &item) { return item.getFillParam().spac; });
    showCommon(*m_angle, areas,
               [](const ShapeItem &item) { return 0.0 - item.getFillParam().angle; });
    showCommonFlag(*m_border, areas,
                   [](const ShapeItem &item) { return item.getFillParam().isEnableBorder; });
    m_hint->setText(hintFor(selected, areas));
    m_hint->setVisible(!m_hint->text().isEmpty());
}

QString HatchSection::hintFor(const ShapeItems &selected, const ShapeItems &areas) const
{
    if (areas.isEmpty() && !selected.isEmpty())
        return tr("Lines and stroke fonts have no inside to hatch.");
    const bool isNothingMarked = std::any_of(areas.begin(), areas.end(), [](const ShapeItem *item) {
        const ZTFillParam fill = item->getFillParam();
        return fill.fillType == FillType::None && !fill.isEnableBorder;
    });
    if (isNothingMarked)
        return tr("Neither outline nor hatch: nothing of it is marked.");
    if (std::any_of(areas.begin(), areas.end(), &lacksHatch))
        return tr("No hatch can be made: its spacing does not suit the size of the shape.");
    return {};
}

} // namespace studio
