#include <studio/MatrixDialog.h>

#include <studio/DocumentActions.h>

#include <QtGui/QGuiApplication>
#include <QtGui/QShowEvent>
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
    : QDialog(parent), document(edited), actions(editing),
      rowsBox(addCount(QStringLiteral("rows"), 3)),
      columnsBox(addCount(QStringLiteral("columns"), 4)),
      acrossBox(addGap(QStringLiteral("gapAcross"))), downBox(addGap(QStringLiteral("gapDown"))),
      hintLabel(new QLabel(this)), createButton(new QPushButton(this))
{
    setObjectName(QStringLiteral("matrixDialog"));
    layOut();
    retranslate();
    connect(document.scene(), &QGraphicsScene::selectionChanged, this, &MatrixDialog::follow);
    connect(document.undoStack(), &QUndoStack::indexChanged, this, &MatrixDialog::refresh);
}

MatrixDialog::~MatrixDialog() { delete preview; }

QSpinBox *MatrixDialog::addCount(const QString &name, int value)
{
    auto *box = new QSpinBox(this);
    box->setObjectName(name);
    box->setRange(1, kMostInARow);
    box->setValue(value);
    connect(box, qOverload<int>(&QSpinBox::valueChanged), this, &MatrixDialog::refresh);
    return box;
}

QDoubleSpinBox *MatrixDialog::addGap(const QString &name)
{
    auto *box = new QDoubleSpinBox(this);
    box->setObjectName(name);
    box->setRange(-kLargestGapMm, kLargestGapMm);
    box->setDecimals(3);
    box->setValue(kFirstGapMm);
    connect(box, qOverload<double>(&QDoubleSpinBox::valueChanged), this, &MatrixDialog::refresh);
    return box;
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
    rowsLabel->setText(tr("&Rows"));
    columnsLabel->setText(tr("C&olumns"));
    acrossLabel->setText(tr("Gap &across"));
    downLabel->setText(tr("Gap &down"));
    acrossBox->setSuffix(tr(" mm"));
    downBox->setSuffix(tr(" mm"));
    createButton->setText(tr("&Create"));
}

void MatrixDialog::layOut()
{
    hintLabel->setObjectName(QStringLiteral("hint"));
    hintLabel->setWordWrap(true);
    hintLabel->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    hintLabel->setMinimumHeight(2 * hintLabel->fontMetrics().lineSpacing());
    hintLabel->setMinimumWidth(hintLabel->fontMetrics().averageCharWidth() * 40);
    createButton->setObjectName(QStringLiteral("create"));
    createButton->setDefault(true);
    connect(createButton, &QPushButton::clicked, this, &MatrixDialog::create);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    buttons->addButton(createButton, QDialogButtonBox::ActionRole);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto *form = new QFormLayout(this);
    rowsLabel = addRow(*form, rowsBox);
    columnsLabel = addRow(*form, columnsBox);
    acrossLabel = addRow(*form, acrossBox);
    downLabel = addRow(*form, downBox);
    form->addRow(hintLabel);
    form->addRow(buttons);
}

void MatrixDialog::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    if (!event->spontaneous() && !hasBeenShown) {
        // Out of the way: the preview matters as much as the dialog.
        move(document.mapToGlobal(QPoint(kMarginPx, kMarginPx)));
        hasBeenShown = true;
    }
    if (!preview)
        preview = new MatrixPreview(*document.scene());
    follow();
}

void MatrixDialog::hideEvent(QHideEvent *event)
{
    QDialog::hideEvent(event);
    delete preview;
}

void MatrixDialog::follow()
{
    disconnect(following);
    if (const ShapeItem *item = source())
        following = connect(item, &ShapeItem::posChanged, this, &MatrixDialog::refresh);
    refresh();
}

void MatrixDialog::refresh()
{
    if (!preview)
        return;
    const ShapeItem *item = source();
    const MatrixGrid wanted = grid();
    const bool isPossible =
        item != nullptr && wanted.cells() > 1 && wanted.cells() <= DocumentActions::kMaxMatrix;
    preview->show(isPossible ? item : nullptr, wanted);
    createButton->setEnabled(isPossible);
    hintLabel->setText(hint(item, wanted));
}

MatrixGrid MatrixDialog::grid() const
{
    return {rowsBox->value(), columnsBox->value(), QSizeF(acrossBox->value(), downBox->value())};
}

ShapeItem *MatrixDialog::source() const
{
    const ShapeItems selected = selectedShapeItems(*document.scene());
    return selected.size() == 1 ? selected.first() : nullptr;
}

QString MatrixDialog::hint(const ShapeItem *item, const MatrixGrid &wanted) const
{
    if (item == nullptr)
        return tr("Select the one shape that is to be repeated.");
    if (wanted.cells() > DocumentActions::kMaxMatrix)
        return tr("%L1 shapes are too many; at most %L2 can be made at once.")
            .arg(wanted.cells())
            .arg(DocumentActions::kMaxMatrix);
    const QRectF boxPx = item->boundingRect();
    const QPointF pitchPx = wanted.pitchPx(boxPx);
    const ZTCoord &coord = *ZTCoord::getInstance();
    const double widthPx = boxPx.width() + qAbs((wanted.columns - 1) * pitchPx.x());
    const double heightPx = boxPx.height() + qAbs((wanted.rows - 1) * pitchPx.y());
    return tr("%L1 shapes on %2 by %3 mm")
        .arg(wanted.cells())
        .arg(coord.pix2mm(widthPx), 0, 'f', 2)
        .arg(coord.pix2mm(heightPx), 0, 'f', 2);
}

void MatrixDialog::create()
{
    const MatrixGrid wanted = grid();
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    actions.repeat(wanted.rows, wanted.columns, wanted.gapMm);
    QGuiApplication::restoreOverrideCursor();
}

} // namespace studio
