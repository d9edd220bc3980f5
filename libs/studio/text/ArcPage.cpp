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
    : TextPage(parent), group(new QGroupBox(tr("Text on an &arc"), this)),
      startBox(new MeasureBox(kAngleDeg, tr(" °"), group)),
      spanBox(new MeasureBox(kAngleDeg, tr(" °"), group)),
      diameterBox(new MeasureBox(kDiameterMm, tr(" mm"), group))
{
    group->setObjectName(QStringLiteral("arc"));
    group->setCheckable(true);
    group->setChecked(settings.isOnArc);
    startBox->setObjectName(QStringLiteral("arcStart"));
    startBox->setToolTip(tr("Where the arc starts: 0° is at three o'clock, 270° at twelve"));
    startBox->setMeasure(settings.startDeg);
    spanBox->setObjectName(QStringLiteral("arcSpan"));
    spanBox->setToolTip(
        tr("Shared out among the characters; positive runs clockwise, negative anticlockwise"));
    spanBox->setMeasure(settings.spanDeg);
    diameterBox->setObjectName(QStringLiteral("arcDiameter"));
    diameterBox->setToolTip(tr("Of the circle on which the characters stand"));
    diameterBox->setMeasure(settings.diameterMm);

    auto *form = new QFormLayout(group);
    form->addRow(tr("&Start"), startBox);
    form->addRow(tr("S&pan"), spanBox);
    form->addRow(tr("&Diameter"), diameterBox);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(group);
    layout->addStretch(1);
    connect(group, &QGroupBox::toggled, this, [this](bool isOn) {
        if (isOn && startBox->measure() == 0.0 && spanBox->measure() == kNeverSetSpanDeg) {
            startBox->setMeasure(kUsualStartDeg);
            spanBox->setMeasure(kUsualSpanDeg);
        }
        Q_EMIT changed();
    });
    for (MeasureBox *box : {startBox, spanBox, diameterBox})
        connect(box, qOverload<double>(&QDoubleSpinBox::valueChanged), this, &TextPage::changed);
}

void ArcPage::read(TextSettings &settings) const
{
    settings.isOnArc = group->isChecked();
    settings.startDeg = startBox->measure();
    settings.spanDeg = spanBox->measure();
    settings.diameterMm = diameterBox->measure();
}

} // namespace studio
