#include <studio/text/ArcPage.h>

#include <studio/text/MeasureBox.h>

#include <QtWidgets/QFormLayout>
#include <QtWidgets/QGroupBox>

namespace studio {

namespace {

// A new text has the arc from three o'clock down to six; the upper half is what people expect.
constexpr double kNeverSetSpanDeg = 90.0;
constexpr double kUsualStartDeg = 180.0;
constexpr double kUsualSpanDeg = 180.0;

constexpr MeasureBox::Range kAngleDeg{-3600.0, 3600.0, 5.0, 3};
constexpr MeasureBox::Range kDiameterMm{0.0, 100000.0, 1.0, 3};

} // namespace

ArcPage::ArcPage(const TextSettings &settings, QWidget *parent)
    : TextPage(parent), m_group(new QGroupBox(tr("Text on an &arc"), this)),
      m_startBox(new MeasureBox(kAngleDeg, tr(" °"), m_group)),
      m_spanBox(new MeasureBox(kAngleDeg, tr(" °"), m_group)),
      m_diameterBox(new MeasureBox(kDiameterMm, tr(" mm"), m_group))
{
    m_group->setObjectName(QStringLiteral("arc"));
    m_group->setCheckable(true);
    m_group->setChecked(settings.isOnArc);
    m_startBox->setObjectName(QStringLiteral("arcStart"));
    m_startBox->setToolTip(tr("Where the arc starts: 0° is at three o'clock, 270° at twelve"));
    m_startBox->setMeasure(settings.startDeg);
    m_spanBox->setObjectName(QStringLiteral("arcSpan"));
    m_spanBox->setToolTip(
        tr("Shared out among the characters; positive runs clockwise, negative anticlockwise"));
    m_spanBox->setMeasure(settings.spanDeg);
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
        if (isOn && m_startBox->measure() == 0.0 && m_spanBox->measure() == kNeverSetSpanDeg) {
            m_startBox->setMeasure(kUsualStartDeg);
            m_spanBox->setMeasure(kUsualSpanDeg);
        }
        Q_EMIT changed();
    });
    for (MeasureBox *box : {m_startBox, m_spanBox, m_diameterBox})
        connect(box, qOverload<double>(&QDoubleSpinBox::valueChanged), this, &TextPage::changed);
}

void ArcPage::read(TextSettings &settings) const
{
    settings.isOnArc = m_group->isChecked();
    settings.startDeg = m_startBox->measure();
    settings.spanDeg = m_spanBox->measure();
    settings.diameterMm = m_diameterBox->measure();
}

} // namespace studio
