#include <studio/arrange/CircleDialog.h>

#include <studio/arrange/ArrangeActions.h>
#include <studio/choices/Units.h>
#include <studio/measures/MeasureBox.h>

#include <QtGui/QShowEvent>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QUndoStack>

namespace studio {

namespace {

constexpr double kWholeTurnDeg = 360.0;
constexpr MeasureBox::Range kPlaceMm{-5000.0, 5000.0, 1.0, 3};
constexpr MeasureBox::Range kTurnDeg{-kWholeTurnDeg, kWholeTurnDeg, 1.0, 3};
constexpr MeasureBox::Range kPlaces{2.0, kMostOnCircle, 1.0, 0};
constexpr int kFirstCount = 8;
constexpr int kMarginPx = 24;
constexpr int kHintCharacters = 40;

} // namespace

CircleDialog::CircleDialog(ZTGraphicsDocument &document, ArrangeActions &actions, QWidget *parent)
    : QDialog(parent), m_document(document), m_actions(actions),
      m_countBox(new MeasureBox(kPlaces, QString(), this)),
      m_totalBox(new MeasureBox(kTurnDeg, QStringLiteral("°"), this)),
      m_acrossBox(new MeasureBox(kPlaceMm, this)), m_downBox(new MeasureBox(kPlaceMm, this)),
      m_turnBox(new QCheckBox(this)), m_hintLabel(new QLabel(this)),
      m_createButton(new QPushButton(this))
{
    setObjectName(QStringLiteral("circleDialog"));
    m_countBox->setMeasure(kFirstCount);
    m_turnBox->setObjectName(QStringLiteral("turn"));
    m_turnBox->setChecked(true);
    const QPointF middleMm =
        ZTCoord::getInstance()->getPix2MmTransform().map(m_actions.fieldPx().center());
    m_totalBox->setMeasure(kWholeTurnDeg);
    m_acrossBox->setMeasure(middleMm.x());
    showMiddleY(middleMm.y());
    watch(*m_countBox, "count");
    watch(*m_totalBox, "total");
    watch(*m_acrossBox, "centreX");
    watch(*m_downBox, "centreY");
    connect(m_turnBox, &QCheckBox::toggled, this, &CircleDialog::refresh);
    layOut();
    retranslate();
    connect(m_document.scene(), &QGraphicsScene::selectionChanged, this, &CircleDialog::refresh);
    connect(m_document.undoStack(), &QUndoStack::indexChanged, this, &CircleDialog::refresh);
}

CircleDialog::~CircleDialog() { delete m_preview; }

void CircleDialog::watch(MeasureBox &box, const char *name)
{
    box.setObjectName(QString::fromLatin1(name));
    connect(&box, qOverload<double>(&QDoubleSpinBox::valueChanged), this, &CircleDialog::refresh);
    connect(&box, &MeasureBox::faultChanged, this, &CircleDialog::refresh);
}

double CircleDialog::middleY() const
{
    return m_isYUp ? 0.0 - m_downBox->measure() : m_downBox->measure();
}

/** As people count it, who may come to count it the other way while the dialog stands. */
void CircleDialog::showMiddleY(double downMm)
{
    m_isYUp = units::isYUp();
    m_downBox->setMeasure(units::y(downMm));
}

QLabel *CircleDialog::addRow(QFormLayout &form, QWidget *box)
{
    auto *label = new QLabel(this);
    label->setBuddy(box);
    form.addRow(label, box);
    return label;
}

void CircleDialog::layOut()
{
    m_hintLabel->setObjectName(QStringLiteral("hint"));
    m_hintLabel->setWordWrap(true);
    m_hintLabel->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_hintLabel->setMinimumHeight(2 * m_hintLabel->fontMetrics().lineSpacing());
    m_hintLabel->setMinimumWidth(m_hintLabel->fontMetrics().averageCharWidth() * kHintCharacters);
    m_createButton->setObjectName(QStringLiteral("create"));
    m_createButton->setDefault(true);
    connect(m_createButton, &QPushButton::clicked, this, &CircleDialog::create);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    buttons->addButton(m_createButton, QDialogButtonBox::ActionRole);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *form = new QFormLayout(this);
    m_countLabel = addRow(*form, m_countBox);
    m_totalLabel = addRow(*form, m_totalBox);
    m_acrossLabel = addRow(*form, m_acrossBox);
    m_downLabel = addRow(*form, m_downBox);
    form->addRow(m_turnBox);
    form->addRow(m_hintLabel);
    form->addRow(buttons);
}

void CircleDialog::retranslate()
{
    setWindowTitle(tr("Circle"));
    m_countLabel->setText(tr("&Places on the circle"));
    m_totalLabel->setText(tr("&Angle from first to last"));
    m_acrossLabel->setText(tr("Middle &X"));
    m_downLabel->setText(units::isYUp() ? tr("Middle &Y, upward") : tr("Middle &Y, downward"));
    m_totalBox->setToolTip(tr("Positive is counter-clockwise; 360° goes all around"));
    m_turnBox->setText(tr("&Turn the copies with the circle"));
    m_createButton->setText(tr("&Create"));
    refresh();
}

void CircleDialog::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    showMiddleY(middleY());
    retranslate();
}

void CircleDialog::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    if (!event->spontaneous() && !m_hasBeenShown) {
        // Out of the way: the preview matters as much as the dialog.
        move(m_document.mapToGlobal(QPoint(kMarginPx, kMarginPx)));
        m_hasBeenShown = true;
    }
    // What is typed at once is the first number.
    m_countBox->setFocus();
    m_countBox->selectAll();
    if (!m_preview)
        m_preview = new CirclePreview(*m_document.scene());
    refresh();
}

void CircleDialog::hideEvent(QHideEvent *event)
{
    QDialog::hideEvent(event);
    delete m_preview;
}

CircleArray CircleDialog::circle() const
{
    CircleArray circle;
    circle.centrePx = ZTCoord::getInstance()->getMm2pixTransform().map(
        QPointF(m_acrossBox->measure(), middleY()));
    circle.count = qRound(m_countBox->measure());
    circle.totalDeg = m_totalBox->measure();
    circle.turns = m_turnBox->isChecked();
    return circle;
}

void CircleDialog::refresh()
{
    const ShapeItems sources = selectedShapeItems(*m_document.scene());
    const CircleArray wanted = circle();
    const QString fault = MeasureBox::faultIn(*this);
    const bool isPossible = fault.isEmpty() && !sources.isEmpty() && wanted.totalDeg != 0.0;
    if (m_preview)
        m_preview->show(isPossible ? sources : ShapeItems(), wanted);
    m_createButton->setEnabled(isPossible);
    if (!fault.isEmpty())
        m_hintLabel->setText(fault);
    else if (sources.isEmpty())
        m_hintLabel->setText(tr("Select what is to be repeated."));
    else if (!isPossible)
        m_hintLabel->setText(tr("With an angle of 0 all copies would lie upon each other."));
    else
        m_hintLabel->setText(tr("One every %1°").arg(wanted.stepDeg(), 0, 'f', 3));
}

void CircleDialog::create() { m_actions.repeatAround(circle()); }

} // namespace studio
