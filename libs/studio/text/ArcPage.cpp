#include <studio/text/ArcPage.h>

#include <studio/measures/MeasureBox.h>

#include <QtWidgets/QFormLayout>
#include <QtWidgets/QGroupBox>

namespace studio {

namespace {

constexpr MeasureBox::Range kAngleDeg{-3600.0, 3600.0, 5.0, 3};
constexpr MeasureBox::Range kDiameterMm{0.0, 100000.0, 1.0, 3};

} // namespace

ArcPage::ArcPage(const TextSettings &settings, QWidget *parent)
    : TextPage(parent), m_group(new QGroupBox(tr("Text on an &arc"), this)),
      m_startBox(new MeasureBox(kAngleDeg, tr(" °"), m_group)),
      m_spanBox(new MeasureBox(kAngleDeg, tr(" °"), m_group)),
      m_diameterBox(new MeasureBox(kDiameterMm, m_group))
{
    m_group->setObjectName(QStringLiteral("arc"));
    m_group->setCheckable(true);
    m_group->setChecked(settings.isOnArc);
    m_startBox->setObjectName(QStringLiteral("arcStart"));
    m_startBox->setToolTip(tr("Where the arc starts: 0° is at three o'clock, 90° at twelve"));
    m_startBox->setMeasure(0.0 - settings.startDeg);
    m_spanBox->setObjectName(QStringLiteral("arcSpan"));
    m_spanBox->setToolTip(
        tr("Shared out among the characters; positive runs anticlockwise, negative clockwise"));
    m_spanBox->setMeasure(0.0 - settings.spanDeg);
    m_diameterBox->setObjectName(QStringLiteral("arcDiameter"));
    m_diameterBox->setToolTip(tr("Of the circle on which the characters stand"));
    m_diameterBox->setMeasure(settings.diameterMm);

    auto *form = new QFormLayout(m_group);
    form->addRow(tr("&Start"), m_startBox);
    form->addRow(tr("S&pan"), m_spanBox);
    form->addRow(tr("&Diameter"), m_diameterBox);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_group);
    layout->addStretch(1);
    connect(m_group, &QGroupBox::toggled, this, [this](bool isOn) {
        TextSettings wanted;
        read(wanted);
        if (isOn)
            wanted.putOnArc();
        m_startBox->setMeasure(0.0 - wanted.startDeg);
        m_spanBox->setMeasure(0.0 - wanted.spanDeg);
        Q_EMIT changed();
    });
    for (MeasureBox *box : {m_startBox, m_spanBox, m_diameterBox})
        connect(box, qOverload<double>(&QDoubleSpinBox::valueChanged), this, &TextPage::changed);
}

void ArcPage::read(TextSettings &settings) const
{
    settings.isOnArc = m_group->isChecked();
    // The settings count clockwise.
    settings.startDeg = 0.0 - m_startBox->measure();
    settings.spanDeg = 0.0 - m_spanBox->measure();
    settings.diameterMm = m_diameterBox->measure();
}

} // namespace studio
