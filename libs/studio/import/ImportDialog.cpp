#include <studio/import/ImportDialog.h>

#include <studio/choices/Units.h>
#include <studio/drawing/LongWork.h>
#include <studio/import/CleanForm.h>
#include <studio/import/ImportNotes.h>
#include <studio/import/ImportPicture.h>
#include <studio/import/ImportSettings.h>
#include <studio/measures/MeasureBox.h>
#include <studio/shapes/PenColors.h>

#include <QtCore/QFileInfo>
#include <QtCore/QLocale>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStyle>
#include <QtWidgets/QTabWidget>
#include <QtWidgets/QTableWidget>

#include <algorithm>
#include <cmath>
#include <set>

namespace studio {

namespace {

constexpr MeasureBox::Range kSizeMm{0.001, 100000.0, 1.0, 3};
constexpr int kColumnPx = 440;
constexpr int kListPx = 110;
constexpr int kSoonMs = 150;
constexpr int kSteps = 1000;

/** Limit: pieces of a drawing that is looked through for what cleaning would mend. */
constexpr int kMostLookedThrough = 200000;
constexpr double kNearMm = 0.05; ///< ends that look like one
constexpr double kSameMm = 0.01; ///< lines that look like one

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
            if ((shape.pen == 0 || !drawing.hasPens()) && shape.color.isValid())
                colors.insert(shape.color.rgb());
        }
        for (const vectorkit::VectorText &text : layer.texts) {
            if ((text.pen == 0 || !drawing.hasPens()) && text.color.isValid())
                colors.insert(text.color.rgb());
        }
    }
    return colors;
}

} // namespace

ImportDialog::ImportDialog(const QString &path, const vectorkit::VectorDrawing &read,
                           QWidget *parent)
    : QDialog(parent), m_found(read), m_foundSizeMm(hostkit::arrivingBoxMm(read).size()),
      m_first(rememberedImportOptions()), m_picture(new ImportPicture(this)),
      m_unitBox(new QComboBox(this)), m_widthBox(addSize(QStringLiteral("importWidth"))),
      m_heightBox(addSize(QStringLiteral("importHeight"))), m_proportionsBox(new QCheckBox(this)),
      m_splitBox(new QComboBox(this)), m_fillOpenBox(new QCheckBox(this)),
      m_pens(new QTableWidget(this)), m_notes(new QListWidget(this)), m_clean(new CleanForm(this))
{
    setObjectName(QStringLiteral("importDialog"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(tr("Import \"%1\"").arg(QFileInfo(path).fileName()));
    fillUnits();
    fillNotes();
    fillPens();
    layOut(path);
    showSize(m_foundSizeMm);
    m_clean->setOptions(rememberedCleaning());
    refresh();
    m_soon.setSingleShot(true);
    m_soon.setInterval(kSoonMs);
    connect(&m_soon, &QTimer::timeout, this, &ImportDialog::refresh);
    connect(m_clean, &CleanForm::changed, this, &ImportDialog::refreshSoon);
    connect(m_unitBox, qOverload<int>(&QComboBox::activated), this, &ImportDialog::takeUnit);
    connect(m_widthBox, qOverload<double>(&QDoubleSpinBox::valueChanged), this,
            &ImportDialog::takeWidth);
    connect(m_heightBox, qOverload<double>(&QDoubleSpinBox::valueChanged), this,
            &ImportDialog::takeHeight);
    for (const MeasureBox *box : {m_widthBox, m_heightBox})
        connect(box, &MeasureBox::faultChanged, this, &ImportDialog::refreshSoon);
}

MeasureBox *ImportDialog::addSize(const QString &name)
{
    auto *box = new MeasureBox(kSizeMm, this);
    box->setObjectName(name);
    box->setKeyboardTracking(false);
    return box;
}

void ImportDialog::fillUnits()
{
    m_unitBox->setObjectName(QStringLiteral("importUnit"));
    m_unitBox->addItem(tr("As found: %1 mm").arg(number(m_found.unitMm)), m_found.unitMm);
    m_unitBox->addItem(tr("1 mm"), 1.0);
    m_unitBox->addItem(tr("1 cm"), 10.0);
    m_unitBox->addItem(tr("1 inch"), 25.4);
    m_unitBox->addItem(tr("1/96 inch (pixel)"), 25.4 / 96);
    m_unitBox->addItem(tr("1/72 inch (point)"), 25.4 / 72);
    m_unitBox->addItem(tr("0.025 mm (plotter)"), 0.025);
    m_unitBox->addItem(tr("1/1016 inch (plotter)"), 25.4 / 1016);
}

void ImportDialog::fillNotes()
{
    m_notes->setObjectName(QStringLiteral("importNotes"));
    m_notes->setMaximumHeight(kListPx);
    m_notes->setWordWrap(true);
    m_notes->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_notes->setResizeMode(QListView::Adjust);
    for (const vectorkit::VectorNote &note : qAsConst(m_found.notes))
        m_notes->addItem(noteText(note));
    if (m_found.notes.isEmpty())
        m_notes->addItem(tr("All of it was read."));
}

void ImportDialog::fillPens()
{
    m_pens->setObjectName(QStringLiteral("importPens"));
    m_pens->setMaximumHeight(kListPx);
    m_pens->setColumnCount(2);
    m_pens->setHorizontalHeaderLabels({tr("Color"), tr("Pen")});
    m_pens->verticalHeader()->hide();
    m_pens->horizontalHeader()->setStretchLastSection(true);
    for (const QRgb rgb : colorsOf(m_found)) {
        if (m_pens->rowCount() == kMostColors)
            break;
        const int row = m_pens->rowCount();
        m_pens->insertRow(row);
        auto *color = new QTableWidgetItem(QColor(rgb).name());
        color->setFlags(Qt::ItemIsEnabled);
        color->setData(Qt::DecorationRole, QColor(rgb));
        color->setData(Qt::UserRole, rgb);
        m_pens->setItem(row, 0, color);
        auto *box = new QComboBox(m_pens);
        for (int pen = 1; pen <= hostkit::kScreenPens; ++pen)
            box->addItem(penSwatch(pen), QString::number(pen));
        box->setCurrentIndex(hostkit::penForColor(QColor(rgb), m_first.pens) - 1);
        m_pens->setCellWidget(row, 1, box);
    }
}

QWidget *ImportDialog::newDrawingPage(const QString &path)
{
    m_splitBox->setObjectName(QStringLiteral("importSplit"));
    m_splitBox->addItems({tr("One shape"), tr("One shape a layer"), tr("One shape a color"),
                          tr("One shape an outline with its holes")});
    m_splitBox->setCurrentIndex(int(m_first.split));
    m_fillOpenBox->setObjectName(QStringLiteral("importFillOpen"));
    m_fillOpenBox->setText(tr("Hatch open outlines as if closed"));
    m_fillOpenBox->setChecked(m_first.fillsOpen);
    m_proportionsBox->setObjectName(QStringLiteral("importProportions"));
    m_proportionsBox->setText(tr("Keep proportions"));
    m_proportionsBox->setChecked(true);

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
            m_found.producer.isEmpty()
                ? formatOf(m_found)
                : tr("%1, written by %2").arg(formatOf(m_found), m_found.producer),
            QStringLiteral("importFormat"));
    addText(tr("Holds:"),
            tr("layers: %1, outlines: %2, texts: %3")
                .arg(m_found.layers.size())
                .arg(m_found.pathCount())
                .arg(m_found.textCount()),
            QStringLiteral("importCounts"));
    addText(tr("Size as found:"),
            tr("%1 × %2 %3. %4")
                .arg(number(m_foundSizeMm.width() / units::unitMm()),
                     number(m_foundSizeMm.height() / units::unitMm()), units::name(),
                     m_found.sizeReason),
            QStringLiteral("importFound"));
    form->addRow(tr("&Unit:"), m_unitBox);
    form->addRow(tr("&Width:"), m_widthBox);
    form->addRow(tr("&Height:"), m_heightBox);
    form->addRow(QString(), m_proportionsBox);
    form->addRow(tr("&Split:"), m_splitBox);
    form->addRow(QString(), m_fillOpenBox);
    form->addRow(tr("&Pens:"), m_pens);
    auto *page = new QWidget(this);
    page->setLayout(form);
    return page;
}

/** First what there is to mend, then what to do about it. */
QWidget *ImportDialog::newCleaningPage()
{
    auto *needs = new QLabel(this);
    needs->setObjectName(QStringLiteral("importNeeds"));
    needs->setWordWrap(true);
    needs->setTextFormat(Qt::PlainText);
    auto *mend = new QPushButton(tr("&Mend this"), this);
    mend->setObjectName(QStringLiteral("importMend"));
    connect(mend, &QPushButton::clicked, this, &ImportDialog::mend);
    qint64 pieces = 0;
    for (const vectorkit::VectorLayer &layer : qAsConst(m_found.layers)) {
        for (const vectorkit::VectorShape &shape : layer.shapes) {
            for (const vectorkit::VectorPath &path : shape.paths)
                pieces += path.pieceCount();
        }
    }
    if (pieces <= kMostLookedThrough) {
        const QString found = cleanNeeds(vectorkit::cleaningNeeds(m_found, kNearMm, kSameMm));
        needs->setText(found.isEmpty() ? tr("There is nothing to mend.")
                                       : tr("To be mended: %1").arg(found));
        mend->setVisible(!found.isEmpty());
    } else {
        mend->hide();
        needs->setText(tr("%L1 pieces: choose what to clean, and see what it mends.").arg(pieces));
    }
    auto *page = new QWidget(this);
    auto *rows = new QVBoxLayout(page);
    rows->addWidget(needs);
    rows->addWidget(mend, 0, Qt::AlignLeft);
    rows->addWidget(m_clean, 1);
    return page;
}

void ImportDialog::mend()
{
    vectorkit::CleanOptions options = m_clean->options();
    options.joinMm = std::max(options.joinMm, kNearMm);
    options.dropDoubles = true;
    m_clean->setOptions(options);
    refresh();
}

void ImportDialog::layOut(const QString &path)
{
    auto *tabs = new QTabWidget(this);
    tabs->setObjectName(QStringLiteral("importTabs"));
    tabs->addTab(newDrawingPage(path), tr("Dra&wing"));
    tabs->addTab(newCleaningPage(), tr("&Cleaning"));
    const auto *needs = findChild<QLabel *>(QStringLiteral("importNeeds"));
    if (!findChild<QPushButton *>(QStringLiteral("importMend"))->isHidden())
        tabs->setTabIcon(1, style()->standardIcon(QStyle::SP_MessageBoxWarning));
    tabs->setTabToolTip(1, needs->text());
    auto *notesLabel = new QLabel(tr("&Left out or changed:"), this);
    notesLabel->setBuddy(m_notes);

    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    m_okButton = buttons->button(QDialogButtonBox::Ok);
    m_okButton->setText(tr("&Import"));
    connect(buttons, &QDialogButtonBox::accepted, this, &ImportDialog::take);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *side = new QVBoxLayout;
    side->addWidget(tabs, 1);
    side->addWidget(notesLabel);
    side->addWidget(m_notes);
    side->addWidget(buttons);
    auto *column = new QWidget(this);
    column->setLayout(side);
    column->setMaximumWidth(kColumnPx);
    auto *all = new QHBoxLayout(this);
    all->addWidget(m_picture, 1);
    all->addWidget(column);
}

void ImportDialog::showSize(const QSizeF &sizeMm)
{
    m_widthBox->setMeasure(sizeMm.width());
    m_heightBox->setMeasure(sizeMm.height());
    // A straight line has but one side to measure.
    m_widthBox->setEnabled(m_foundSizeMm.width() > 0.0);
    m_heightBox->setEnabled(m_foundSizeMm.height() > 0.0);
}

void ImportDialog::takeUnit()
{
    showSize(m_foundSizeMm * (m_unitBox->currentData().toDouble() / m_found.unitMm));
    refreshSoon();
}

void ImportDialog::takeWidth()
{
    if (m_proportionsBox->isChecked())
        showSize(m_foundSizeMm * (m_widthBox->measure() / m_foundSizeMm.width()));
    refreshSoon();
}

void ImportDialog::takeHeight()
{
    if (m_proportionsBox->isChecked())
        showSize(m_foundSizeMm * (m_heightBox->measure() / m_foundSizeMm.height()));
    refreshSoon();
}

void ImportDialog::refreshSoon() { m_soon.start(); }

// Lengths of the cleaning are true ones: what comes first is the size.
void ImportDialog::refresh()
{
    m_soon.stop();
    const QString fault = MeasureBox::faultIn(*this);
    if (!fault.isEmpty()) {
        m_okButton->setEnabled(false);
        m_clean->showWords(fault);
        return;
    }
    vectorkit::CleanOptions options = m_clean->options();
    const QSizeF scale = chosenScale();
    vectorkit::VectorDrawing drawing = m_found;
    if (scale != QSizeF(1.0, 1.0))
        hostkit::scaleDrawing(&drawing, scale.width(), scale.height());
    vectorkit::CleanReport report;
    bool isDone = false;
    {
        LongWork work(*this, tr("Cleaning..."), LongWork::Cancel::Possible);
        options.progress = [&work](double done) {
            return work.step(qRound(done * kSteps), kSteps);
        };
        isDone = vectorkit::cleanDrawing(&drawing, options, &report);
    }
    m_okButton->setEnabled(isDone);
    if (!isDone) {
        m_clean->showWords(tr("Given up: change what is to be cleaned."));
        return;
    }
    m_shown = drawing;
    m_scale = scale;
    m_clean->showReport(report);
    m_picture->show(m_shown);
}

/** Where there is no extent in a direction it is the other one's; in none, that of the unit. */
QSizeF ImportDialog::chosenScale() const
{
    const double unitFactor = m_unitBox->currentData().toDouble() / m_found.unitMm;
    const auto isAt = [&](const MeasureBox *box, double sizeMm) {
        return qAbs(box->measure() - sizeMm) < 0.5 / 1000;
    };
    // What only the unit has changed is not rounded to what the fields show.
    const bool isUnitAlone = isAt(m_widthBox, m_foundSizeMm.width() * unitFactor) &&
                             isAt(m_heightBox, m_foundSizeMm.height() * unitFactor);
    const bool hasWidth = m_foundSizeMm.width() > 0.0;
    const bool hasHeight = m_foundSizeMm.height() > 0.0;
    if (isUnitAlone || !(hasWidth || hasHeight))
        return {unitFactor, unitFactor};
    const double across = hasWidth ? m_widthBox->measure() / m_foundSizeMm.width() : 0.0;
    const double down = hasHeight ? m_heightBox->measure() / m_foundSizeMm.height() : 0.0;
    if (!std::isfinite(across) || !std::isfinite(down))
        return {unitFactor, unitFactor};
    if (hasWidth && (m_proportionsBox->isChecked() || !hasHeight))
        return {across, across};
    return {hasWidth ? across : down, down};
}

vectorkit::CleanOptions ImportDialog::cleaning() const { return m_clean->options(); }

hostkit::ImportOptions ImportDialog::options() const
{
    hostkit::ImportOptions chosenOptions = m_first;
    chosenOptions.split = static_cast<hostkit::ImportSplit>(m_splitBox->currentIndex());
    chosenOptions.fillsOpen = m_fillOpenBox->isChecked();
    for (int row = 0; row < m_pens->rowCount(); ++row) {
        const QRgb rgb = m_pens->item(row, 0)->data(Qt::UserRole).toUInt();
        const auto *box = qobject_cast<QComboBox *>(m_pens->cellWidget(row, 1));
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
    if (m_soon.isActive())
        refresh();
    if (!m_okButton->isEnabled())
        return;
    rememberImportOptions(options());
    rememberCleaning(m_clean->options());
    Q_EMIT chosen();
    accept();
}

} // namespace studio
