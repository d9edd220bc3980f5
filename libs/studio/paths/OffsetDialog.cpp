#include <studio/paths/OffsetDialog.h>

#include <vectorkit/edit/PainterPaths.h>

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

namespace studio {

namespace {

constexpr double kMostMm = 1000.0;

} // namespace

OffsetDialog::OffsetDialog(ZTGraphicsDocument &document, PathActions &actions, QWidget *parent)
    : QDialog(parent), m_actions(actions),
      m_preview(std::make_unique<ToolPreview>(*document.scene())),
      m_distanceBox(new QDoubleSpinBox(this)), m_cornerBox(new QComboBox(this)),
      m_keepBox(new QCheckBox(tr("&Keep the shape itself"), this)), m_hint(new QLabel(this))
{
    setObjectName(QStringLiteral("offsetDialog"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("Offset"));
    m_distanceBox->setObjectName(QStringLiteral("offsetDistance"));
    m_distanceBox->setRange(-kMostMm, kMostMm);
    m_distanceBox->setDecimals(3);
    m_distanceBox->setSingleStep(0.1);
    m_distanceBox->setValue(OffsetChoice().distanceMm);
    m_distanceBox->setSuffix(tr(" mm"));
    m_distanceBox->setToolTip(tr("Above 0 outside of the outline, below 0 inside"));
    m_cornerBox->setObjectName(QStringLiteral("offsetCorner"));
    m_cornerBox->addItem(tr("round"), int(vectorkit::OffsetCorner::Round));
    m_cornerBox->addItem(tr("pointed"), int(vectorkit::OffsetCorner::Miter));
    m_cornerBox->addItem(tr("cut off"), int(vectorkit::OffsetCorner::Square));
    m_keepBox->setObjectName(QStringLiteral("offsetKeep"));
    m_keepBox->setChecked(true);
    m_hint->setObjectName(QStringLiteral("offsetHint"));
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    m_okButton = buttons->button(QDialogButtonBox::Ok);
    connect(buttons, &QDialogButtonBox::accepted, this, &OffsetDialog::take);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *form = new QFormLayout(this);
    form->addRow(tr("&Distance, outward:"), m_distanceBox);
    form->addRow(tr("&Corners:"), m_cornerBox);
    form->addRow(m_keepBox);
    form->addRow(m_hint);
    form->addRow(buttons);
    connect(m_distanceBox, qOverload<double>(&QDoubleSpinBox::valueChanged), this,
            &OffsetDialog::refresh);
    connect(m_cornerBox, qOverload<int>(&QComboBox::activated), this, &OffsetDialog::refresh);
    refresh();
}

OffsetDialog::~OffsetDialog() = default;

OffsetChoice OffsetDialog::choice() const
{
    OffsetChoice chosen;
    chosen.distanceMm = m_distanceBox->value();
    chosen.corner = static_cast<vectorkit::OffsetCorner>(m_cornerBox->currentData().toInt());
    chosen.keepsOriginal = m_keepBox->isChecked();
    return chosen;
}

void OffsetDialog::refresh()
{
    const QVector<vectorkit::VectorPath> paths = m_distanceBox->value() == 0.0
                                                     ? QVector<vectorkit::VectorPath>()
                                                     : m_actions.offsetOutlines(choice());
    m_preview->showOutline(
        ZTCoord::getInstance()->getMm2pixTransform().map(vectorkit::painterPathOf(paths)));
    m_okButton->setEnabled(!paths.isEmpty());
    if (m_distanceBox->value() == 0.0)
        m_hint->setText(tr("At a distance of 0 it is the shape itself."));
    else if (paths.isEmpty())
        m_hint->setText(tr("No closed outline is left at this distance."));
    else
        m_hint->setText(tr("%1 outlines").arg(paths.size()));
}

void OffsetDialog::take()
{
    m_preview.reset();
    m_actions.offset(choice());
    accept();
}

} // namespace studio
