#include <studio/paths/OffsetDialog.h>

#include <studio/measures/MeasureBox.h>

#include <vectorkit/edit/PainterPaths.h>

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

namespace studio {

namespace {

constexpr MeasureBox::Range kDistanceMm{-1000.0, 1000.0, 0.1, 3};

} // namespace

OffsetDialog::OffsetDialog(ZTGraphicsDocument &document, PathActions &actions, QWidget *parent)
    : QDialog(parent), m_actions(actions),
      m_preview(std::make_unique<ToolPreview>(*document.scene())),
      m_distanceBox(new MeasureBox(kDistanceMm, this)), m_cornerBox(new QComboBox(this)),
      m_keepBox(new QCheckBox(tr("&Keep the shape itself"), this)), m_hint(new QLabel(this))
{
    setObjectName(QStringLiteral("offsetDialog"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("Offset"));
    m_distanceBox->setObjectName(QStringLiteral("offsetDistance"));
    m_distanceBox->setMeasure(OffsetChoice().distanceMm);
    m_distanceBox->setToolTip(tr("Above 0 outside of the outline, below 0 inside"));
    m_cornerBox->setObjectName(QStringLiteral("offsetCorner"));
    m_cornerBox->addItem(tr("round"), int(vectorkit::OffsetCorner::Round));
    m_cornerBox->addItem(tr("pointed"), int(vectorkit::OffsetCorner::Miter));
    m_cornerBox->addItem(tr("cut off"), int(vectorkit::OffsetCorner::Square));
    m_keepBox->setObjectName(QStringLiteral("offsetKeep"));
    m_keepBox->setChecked(true);
    m_hint->setObjectName(QStringLiteral("offsetHint"));
    m_hint->setWordWrap(true);
    m_hint->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_hint->setMinimumHeight(2 * m_hint->fontMetrics().lineSpacing());
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
    connect(m_distanceBox, &MeasureBox::faultChanged, this, &OffsetDialog::refresh);
    connect(m_cornerBox, qOverload<int>(&QComboBox::activated), this, &OffsetDialog::refresh);
    refresh();
}

OffsetDialog::~OffsetDialog() = default;

OffsetChoice OffsetDialog::choice() const
{
    OffsetChoice chosen;
    chosen.distanceMm = m_distanceBox->measure();
    chosen.corner = static_cast<vectorkit::OffsetCorner>(m_cornerBox->currentData().toInt());
    chosen.keepsOriginal = m_keepBox->isChecked();
    return chosen;
}

void OffsetDialog::refresh()
{
    const QString &fault = m_distanceBox->fault();
    const bool isAsked = fault.isEmpty() && m_distanceBox->measure() != 0.0;
    const QVector<vectorkit::VectorPath> paths =
        isAsked ? m_actions.offsetOutlines(choice()) : QVector<vectorkit::VectorPath>();
    m_preview->showOutline(
        ZTCoord::getInstance()->getMm2pixTransform().map(vectorkit::painterPathOf(paths)));
    m_okButton->setEnabled(!paths.isEmpty());
    if (!fault.isEmpty())
        m_hint->setText(fault);
    else if (!isAsked)
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
