#include <studio/import/ImportDialog.h>

#include <studio/PenColors.h>
#include <studio/import/ImportNotes.h>
#include <studio/import/ImportPicture.h>
#include <studio/import/ImportSettings.h>

#include <QtCore/QFileInfo>
#include <QtCore/QLocale>
#include <QtCore/QSignalBlocker>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QDoubleSpinBox>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QTableWidget>

#include <set>

namespace studio {

namespace {

constexpr double kLeastMm = 0.001;
constexpr double kMostMm = 100000.0;
constexpr int kSizeDecimals = 3;
constexpr int kColumnPx = 420;
constexpr int kListPx = 110;

/** Limit: rows of the table of pens; further colours go to the pens nearest to them. */
constexpr int kMostColors = 100;

QString number(double value) { return QLocale().toString(value, 'g', 6); }

QString formatOf(const vectorkit::VectorDrawing &drawing)
{
    switch (drawing.format) {
    case vectorkit::VectorFormat::Hpgl:
        return drawing.formatVersion.isEmpty() ? QStringLiteral("HP-GL") : drawing.formatVersion;
    case vectorkit::VectorFormat::Svg:
        return QStringLiteral("SVG ") + drawing.formatVersion;
    case vectorkit::VectorFormat::Dxf:
        return QStringLiteral("DXF ") + drawing.formatVersion;
    default:
        return QString();
    }
}

/** Colours that have no pen of their own, in the order of their names. */
std::set<QRgb> colorsOf(const vectorkit::VectorDrawing &drawing)
{
    std::set<QRgb> colors;
    for (const vectorkit::VectorLayer &layer : drawing.layers) {
        for (const vectorkit::VectorShape &shape : layer.shapes) {
            if (shape.pen == 0 && shape.color.isValid())
                colors.insert(shape.color.rgb());
        }
        for (const vectorkit::VectorText &text : layer.texts) {
            if (text.pen == 0 && text.color.isValid())
                colors.insert(text.color.rgb());
        }
    }
    return colors;
}

} // namespace

ImportDialog::ImportDialog(const QString &path, const vectorkit::VectorDrawing &read,
                           QWidget *parent)
    : QDialog(parent), found(read), foundSizeMm(read.boundsMm().size()),
      first(rememberedImportOptions()), picture(new ImportPicture(this)),
      unitBox(new QComboBox(this)), widthBox(addSize(QStringLiteral("importWidth"))),
      heightBox(addSize(QStringLiteral("importHeight"))), proportionsBox(new QCheckBox(this)),
      splitBox(new QComboBox(this)), fillOpenBox(new QCheckBox(this)), pens(new QTableWidget(this)),
      notes(new QListWidget(this))
{
    setObjectName(QStringLiteral("importDialog"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("Import \"%1\"").arg(QFileInfo(path).fileName()));
    fillUnits();
    fillNotes();
    fillPens();
    layOut(path);
    picture->show(found);
    showSize(foundSizeMm);
    connect(unitBox, qOverload<int>(&QComboBox::activated), this, &ImportDialog::takeUnit);
    connect(widthBox, qOverload<double>(&QDoubleSpinBox::valueChanged), this,
            &ImportDialog::takeWidth);
    connect(heightBox, qOverload<double>(&QDoubleSpinBox::valueChanged), this,
            &ImportDialog::takeHeight);
}

QDoubleSpinBox *ImportDialog::addSize(const QString &name)
{
    auto *box = new QDoubleSpinBox(this);
    box->setObjectName(name);
    box->setDecimals(kSizeDecimals);
    box->setRange(kLeastMm, kMostMm);
    box->setSuffix(tr(" mm"));
    box->setKeyboardTracking(false);
    return box;
}

void ImportDialog::fillUnits()
{
    unitBox->setObjectName(QStringLiteral("importUnit"));
    unitBox->addItem(tr("As found: %1 mm").arg(number(found.unitMm)), found.unitMm);
    unitBox->addItem(tr("1 mm"), 1.0);
    unitBox->addItem(tr("1 cm"), 10.0);
    unitBox->addItem(tr("1 inch"), 25.4);
    unitBox->addItem(tr("1/96 inch (pixel)"), 25.4 / 96);
    unitBox->addItem(tr("1/72 inch (point)"), 25.4 / 72);
    unitBox->addItem(tr("0.025 mm (plotter)"), 0.025);
    unitBox->addItem(tr("1/1016 inch (plotter)"), 25.4 / 1016);
}

void ImportDialog::fillNotes()
{
    notes->setObjectName(QStringLiteral("importNotes"));
    notes->setMaximumHeight(kListPx);
    for (const vectorkit::VectorNote &note : qAsConst(found.notes))
        notes->addItem(noteText(note));
    if (found.notes.isEmpty())
        notes->addItem(tr("All of it was read."));
}

void ImportDialog::fillPens()
{
    pens->setObjectName(QStringLiteral("importPens"));
    pens->setMaximumHeight(kListPx);
    pens->setColumnCount(2);
    pens->setHorizontalHeaderLabels({tr("Color"), tr("Pen")});
    pens->verticalHeader()->hide();
    pens->horizontalHeader()->setStretchLastSection(true);
    for (const QRgb rgb : colorsOf(found)) {
        if (pens->rowCount() == kMostColors)
            break;
        const int row = pens->rowCount();
        pens->insertRow(row);
        auto *color = new QTableWidgetItem(QColor(rgb).name());
        color->setFlags(Qt::ItemIsEnabled);
        color->setData(Qt::DecorationRole, QColor(rgb));
        color->setData(Qt::UserRole, rgb);
        pens->setItem(row, 0, color);
        auto *box = new QComboBox(pens);
        for (int pen = 1; pen <= hostkit::kScreenPens; ++pen)
            box->addItem(penSwatch(pen), QString::number(pen));
        box->setCurrentIndex(hostkit::penForColor(QColor(rgb), first.pens) - 1);
        pens->setCellWidget(row, 1, box);
    }
}

void ImportDialog::layOut(const QString &path)
{
    splitBox->setObjectName(QStringLiteral("importSplit"));
    splitBox->addItems({tr("One shape"), tr("One shape a layer"), tr("One shape a color"),
                        tr("One shape an outline with its holes")});
    splitBox->setCurrentIndex(int(first.split));
    fillOpenBox->setObjectName(QStringLiteral("importFillOpen"));
    fillOpenBox->setText(tr("Hatch open outlines as if closed"));
    fillOpenBox->setChecked(first.fillsOpen);
    proportionsBox->setObjectName(QStringLiteral("importProportions"));
    proportionsBox->setText(tr("Keep proportions"));
    proportionsBox->setChecked(true);

    auto *form = new QFormLayout;
    const auto addText = [&](const QString &label, const QString &text, const QString &name) {
        auto *shown = new QLabel(text, this);
        shown->setObjectName(name);
        shown->setWordWrap(true);
        shown->setTextFormat(Qt::PlainText);
        form->addRow(label, shown);
    };
    addText(tr("File:"), QFileInfo(path).fileName(), QStringLiteral("importFile"));
    addText(tr("Format:"),
            found.producer.isEmpty() ? formatOf(found)
                                     : tr("%1, written by %2").arg(formatOf(found), found.producer),
            QStringLiteral("importFormat"));
    addText(tr("Holds:"),
            tr("%1 layers, %2 outlines, %3 texts")
                .arg(found.layers.size())
                .arg(found.pathCount())
                .arg(found.textCount()),
            QStringLiteral("importCounts"));
    addText(tr("Size as found:"),
            tr("%1 × %2 mm. %3")
                .arg(number(foundSizeMm.width()), number(foundSizeMm.height()), found.sizeReason),
            QStringLiteral("importFound"));
    form->addRow(tr("&Unit:"), unitBox);
    form->addRow(tr("&Width:"), widthBox);
    form->addRow(tr("&Height:"), heightBox);
    form->addRow(QString(), proportionsBox);
    form->addRow(tr("&Split:"), splitBox);
    form->addRow(QString(), fillOpenBox);
    form->addRow(tr("&Pens:"), pens);
    form->addRow(tr("&Left out or changed:"), notes);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setText(tr("&Import"));
    connect(buttons, &QDialogButtonBox::accepted, this, &ImportDialog::take);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *side = new QVBoxLayout;
    side->addLayout(form);
    side->addWidget(buttons);
    auto *column = new QWidget(this);
    column->setLayout(side);
    column->setMaximumWidth(kColumnPx);
    auto *all = new QHBoxLayout(this);
    all->addWidget(picture, 1);
    all->addWidget(column);
}

void ImportDialog::showSize(const QSizeF &sizeMm)
{
    const QSignalBlocker noWidth(widthBox);
    const QSignalBlocker noHeight(heightBox);
    widthBox->setValue(sizeMm.width());
    heightBox->setValue(sizeMm.height());
    // A straight line has but one side to measure.
    widthBox->setEnabled(foundSizeMm.width() > 0.0);
    heightBox->setEnabled(foundSizeMm.height() > 0.0);
}

void ImportDialog::takeUnit()
{
    showSize(foundSizeMm * (unitBox->currentData().toDouble() / found.unitMm));
}

void ImportDialog::takeWidth()
{
    if (proportionsBox->isChecked())
        showSize(foundSizeMm * (widthBox->value() / foundSizeMm.width()));
}

void ImportDialog::takeHeight()
{
    if (proportionsBox->isChecked())
        showSize(foundSizeMm * (heightBox->value() / foundSizeMm.height()));
}

vectorkit::VectorDrawing ImportDialog::drawing() const
{
    vectorkit::VectorDrawing sized = found;
    const double unitFactor = unitBox->currentData().toDouble() / found.unitMm;
    const auto isAt = [&](const QDoubleSpinBox *box, double sizeMm) {
        return qAbs(box->value() - sizeMm) < 0.5 / 1000;
    };
    // What only the unit has changed is not rounded to what the fields show.
    const bool isUnitAlone = isAt(widthBox, foundSizeMm.width() * unitFactor) &&
                             isAt(heightBox, foundSizeMm.height() * unitFactor);
    if (isUnitAlone || foundSizeMm.isNull()) {
        if (unitFactor != 1.0)
            sized.scale(unitFactor);
        return sized;
    }
    const bool isWidthAlone = proportionsBox->isChecked() && foundSizeMm.width() > 0.0;
    hostkit::fitDrawing(
        &sized, QSizeF(foundSizeMm.width() > 0.0 ? widthBox->value() : 0.0,
                       foundSizeMm.height() > 0.0 && !isWidthAlone ? heightBox->value() : 0.0));
    return sized;
}

hostkit::ImportOptions ImportDialog::options() const
{
    hostkit::ImportOptions chosenOptions = first;
    chosenOptions.split = static_cast<hostkit::ImportSplit>(splitBox->currentIndex());
    chosenOptions.fillsOpen = fillOpenBox->isChecked();
    for (int row = 0; row < pens->rowCount(); ++row) {
        const QRgb rgb = pens->item(row, 0)->data(Qt::UserRole).toUInt();
        const auto *box = qobject_cast<QComboBox *>(pens->cellWidget(row, 1));
        const int pen = box->currentIndex() + 1;
        // Only what differs is kept: the rest goes by its colour, today and later.
        if (pen == hostkit::penForColor(QColor(rgb), {}))
            chosenOptions.pens.remove(rgb);
        else
            chosenOptions.pens.insert(rgb, pen);
    }
    return chosenOptions;
}

void ImportDialog::take()
{
    rememberImportOptions(options());
    Q_EMIT chosen();
    accept();
}

} // namespace studio
