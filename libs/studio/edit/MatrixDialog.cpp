#include <studio/edit/MatrixDialog.h>

#include <studio/choices/Units.h>
#include <studio/edit/DocumentActions.h>
#include <studio/measures/MeasureBox.h>
#include <studio/text/SharedCounter.h>

#include <QtGui/QGuiApplication>
#include <QtGui/QShowEvent>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QUndoStack>

namespace studio {

namespace {

constexpr int kMostInARow = 10000;
constexpr double kLargestGapMm = 1000.0;
constexpr double kFirstGapMm = 2.0;
constexpr int kMarginPx = 24;

} // namespace

MatrixDialog::MatrixDialog(ZTGraphicsDocument &edited, DocumentActions &editing, QWidget *parent)
    : QDialog(parent), m_document(edited), m_actions(editing),
      m_rowsBox(addCount(QStringLiteral("rows"), 3)),
      m_columnsBox(addCount(QStringLiteral("columns"), 4)),
      m_acrossBox(addGap(QStringLiteral("gapAcross"))),
      m_downBox(addGap(QStringLiteral("gapDown"))), m_numberBox(new QCheckBox(this)),
      m_hintLabel(new QLabel(this)), m_createButton(new QPushButton(this))
{
    setObjectName(QStringLiteral("matrixDialog"));
    layOut();
    retranslate();
    connect(m_document.scene(), &QGraphicsScene::selectionChanged, this, &MatrixDialog::follow);
    connect(m_document.undoStack(), &QUndoStack::indexChanged, this, &MatrixDialog::refresh);
}

MatrixDialog::~MatrixDialog() { delete m_preview; }

MeasureBox *MatrixDialog::addCount(const QString &name, int value)
{
    auto *box = new MeasureBox({1.0, kMostInARow, 1.0, 0}, QString(), this);
    watch(*box, name, value);
    return box;
}

MeasureBox *MatrixDialog::addGap(const QString &name)
{
    auto *box = new MeasureBox({-kLargestGapMm, kLargestGapMm, 1.0, 3}, this);
    watch(*box, name, kFirstGapMm);
    return box;
}

void MatrixDialog::watch(MeasureBox &box, const QString &name, double first)
{
    box.setObjectName(name);
    box.setMeasure(first);
    connect(&box, qOverload<double>(&QDoubleSpinBox::valueChanged), this, &MatrixDialog::refresh);
    connect(&box, &MeasureBox::faultChanged, this, &MatrixDialog::refresh);
}

QLabel *MatrixDialog::addRow(QFormLayout &form, QWidget *box)
{
    auto *label = new QLabel(this);
    label->setBuddy(box);
    form.addRow(label, box);
    return label;
}

void MatrixDialog::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    retranslate();
    refresh();
}

void MatrixDialog::retranslate()
{
    setWindowTitle(tr("Matrix"));
    m_rowsLabel->setText(tr("&Rows"));
    m_columnsLabel->setText(tr("C&olumns"));
    m_acrossLabel->setText(tr("Gap &across"));
    m_downLabel->setText(tr("Gap &down"));
    m_createButton->setText(tr("&Create"));
    m_numberBox->setText(tr("&Number the copies: each has the next value"));
    m_numberBox->setToolTip(tr("The next part then goes on behind the values of all of them"));
}

void MatrixDialog::layOut()
{
    m_hintLabel->setObjectName(QStringLiteral("hint"));
    m_hintLabel->setWordWrap(true);
    m_hintLabel->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_hintLabel->setMinimumHeight(2 * m_hintLabel->fontMetrics().lineSpacing());
    m_hintLabel->setMinimumWidth(m_hintLabel->fontMetrics().averageCharWidth() * 40);
    m_createButton->setObjectName(QStringLiteral("create"));
    m_createButton->setDefault(true);
    connect(m_createButton, &QPushButton::clicked, this, &MatrixDialog::create);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    buttons->addButton(m_createButton, QDialogButtonBox::ActionRole);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto *form = new QFormLayout(this);
    m_rowsLabel = addRow(*form, m_rowsBox);
    m_columnsLabel = addRow(*form, m_columnsBox);
    m_acrossLabel = addRow(*form, m_acrossBox);
    m_downLabel = addRow(*form, m_downBox);
    m_numberBox->setObjectName(QStringLiteral("numbered"));
    m_numberBox->setChecked(true);
    // Its room stays: the buttons below may not move under the mouse.
    QSizePolicy room = m_numberBox->sizePolicy();
    room.setRetainSizeWhenHidden(true);
    m_numberBox->setSizePolicy(room);
    form->addRow(m_numberBox);
    form->addRow(m_hintLabel);
    form->addRow(buttons);
}

void MatrixDialog::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    if (!event->spontaneous() && !m_hasBeenShown) {
        // Out of the way: the preview matters as much as the dialog.
        move(m_document.mapToGlobal(QPoint(kMarginPx, kMarginPx)));
        m_hasBeenShown = true;
    }
    // What is typed at once is the first number.
    m_rowsBox->setFocus();
    m_rowsBox->selectAll();
    if (!m_preview)
        m_preview = new MatrixPreview(*m_document.scene());
    follow();
}

void MatrixDialog::hideEvent(QHideEvent *event)
{
    QDialog::hideEvent(event);
    delete m_preview;
}

void MatrixDialog::follow()
{
    disconnect(m_following);
    const ShapeItems sources = selectedShapeItems(*m_document.scene());
    if (!sources.isEmpty())
        m_following =
            connect(sources.first(), &ShapeItem::posChanged, this, &MatrixDialog::refresh);
    refresh();
}

void MatrixDialog::refresh()
{
    if (!m_preview)
        return;
    const ShapeItems sources = selectedShapeItems(*m_document.scene());
    const MatrixGrid wanted = grid();
    const QString fault = MeasureBox::faultIn(*this);
    const bool isPossible = fault.isEmpty() && !sources.isEmpty() && wanted.cells() > 1 &&
                            wanted.cells() * sources.size() <= DocumentActions::kMaxMatrix;
    m_numberBox->setVisible(isNumberable());
    m_preview->show(isPossible ? sources : ShapeItems(), wanted);
    m_createButton->setEnabled(isPossible);
    m_hintLabel->setText(fault.isEmpty() ? hint(sources, wanted) : fault);
}

MatrixGrid MatrixDialog::grid() const
{
    return {qRound(m_rowsBox->measure()), qRound(m_columnsBox->measure()),
            QSizeF(m_acrossBox->measure(), m_downBox->measure())};
}

bool MatrixDialog::isNumberable() const
{
    const ShapeItems sources = selectedShapeItems(*m_document.scene());
    const ZTAbstractGraphicsTextItem *words =
        sources.size() == 1 ? wordsItem(sources.first()) : nullptr;
    return words != nullptr && words->isEnableVariantText();
}

QString MatrixDialog::hint(const ShapeItems &sources, const MatrixGrid &wanted) const
{
    if (sources.isEmpty())
        return tr("Select what is to be repeated.");
    const qint64 shapes = wanted.cells() * sources.size();
    if (shapes > DocumentActions::kMaxMatrix)
        return tr("%L1 shapes are too many; at most %L2 can be made at once.")
            .arg(shapes)
            .arg(DocumentActions::kMaxMatrix);
    const QRectF boxPx = sceneBox(sources);
    const QPointF pitchPx = wanted.pitchPx(boxPx);
    const ZTCoord &coord = *ZTCoord::getInstance();
    const double widthPx = boxPx.width() + qAbs((wanted.columns - 1) * pitchPx.x());
    const double heightPx = boxPx.height() + qAbs((wanted.rows - 1) * pitchPx.y());
    return tr("Shapes: %L1, on %2 by %3 %4")
        .arg(shapes)
        .arg(units::number(coord.pix2mm(widthPx)), units::number(coord.pix2mm(heightPx)),
             units::name());
}

void MatrixDialog::create()
{
    const MatrixGrid wanted = grid();
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    m_actions.repeat(wanted.rows, wanted.columns, wanted.gapMm,
                     isNumberable() && m_numberBox->isChecked());
    QGuiApplication::restoreOverrideCursor();
}

} // namespace studio
