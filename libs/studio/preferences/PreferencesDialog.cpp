#include <studio/preferences/PreferencesDialog.h>

#include <studio/shapes/PenColors.h>

#include <QtCore/QEvent>
#include <QtCore/QSignalBlocker>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QFormLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QSpinBox>
#include <QtWidgets/QTabWidget>
#include <QtWidgets/QVBoxLayout>

#include <algorithm>
#include <array>

namespace studio {

namespace {

using namespace preferencerange;
using Quantity = MeasureField::Quantity;

constexpr double kFirstGridMm = 1.0;

/** Where the origin stands in the field: a share of its width and height. */
struct Origin
{
    int halvesAcross;
    int halvesDown;
};
constexpr std::array<Origin, 5> kOrigins = {{{1, 1}, {0, 0}, {2, 0}, {0, 2}, {2, 2}}};
constexpr int kElsewhere = 5;

QPoint topLeftOf(const Origin &origin, const QSize &sizeMm)
{
    return {-sizeMm.width() * origin.halvesAcross / 2, -sizeMm.height() * origin.halvesDown / 2};
}

void choose(QComboBox &box, int data) { box.setCurrentIndex(box.findData(data)); }

int chosenIn(const QComboBox &box) { return box.currentData().toInt(); }

/** What a field shows or has been typed into it. */
double valueOf(const MeasureField &field, double usual) { return field.shown().value_or(usual); }

} // namespace

PreferencesDialog::PreferencesDialog(const PreferenceEdit &shown, QWidget *parent)
    : QDialog(parent), m_shown(shown), m_pages(new QTabWidget(this)),
      m_buttons(new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Apply |
                                         QDialogButtonBox::Cancel |
                                         QDialogButtonBox::RestoreDefaults,
                                     this)),
      m_message(new QLabel(this))
{
    setObjectName(QStringLiteral("preferencesDialog"));
    m_message->setObjectName(QStringLiteral("message"));
    m_message->setWordWrap(true);
    m_pages->setUsesScrollButtons(false);
    buildProgramPage();
    buildCanvasPage();
    buildShapePage();
    buildDrawingPage();
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_pages);
    layout->addWidget(m_message);
    layout->addWidget(m_buttons);
    const auto apply = [this] {
        takeEntries();
        refresh();
        if (m_buttons->button(QDialogButtonBox::Ok)->isEnabled())
            Q_EMIT chosen(edited());
    };
    connect(m_buttons->button(QDialogButtonBox::Apply), &QPushButton::clicked, this, apply);
    connect(m_buttons, &QDialogButtonBox::accepted, this, [this, apply] {
        apply();
        if (m_buttons->button(QDialogButtonBox::Ok)->isEnabled())
            accept();
    });
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_buttons->button(QDialogButtonBox::RestoreDefaults), &QPushButton::clicked, this,
            &PreferencesDialog::restoreDefaults);
    retranslate();
    showEdit(shown);
}

QFormLayout *PreferencesDialog::newPage()
{
    auto *page = new QWidget(m_pages);
    m_pages->addTab(page, QString());
    return new QFormLayout(page);
}

void PreferencesDialog::addRow(QFormLayout &form, QWidget *field, const char *label)
{
    auto *text = new QLabel(this);
    text->setBuddy(field);
    form.addRow(text, field);
    m_labels << text;
    m_labelTexts << label;
}

void PreferencesDialog::addWide(QFormLayout &form, QWidget *field) { form.addRow(field); }

QComboBox *PreferencesDialog::newChoice(const char *name, const std::vector<int> &entries)
{
    auto *box = new QComboBox(this);
    box->setObjectName(QString::fromLatin1(name));
    for (const int one : entries)
        box->addItem(QString(), one);
    connect(box, qOverload<int>(&QComboBox::activated), this, &PreferencesDialog::refresh);
    return box;
}

QCheckBox *PreferencesDialog::newCheck(const char *name)
{
    auto *box = new QCheckBox(this);
    box->setObjectName(QString::fromLatin1(name));
    connect(box, &QCheckBox::clicked, this, &PreferencesDialog::refresh);
    return box;
}

MeasureField *PreferencesDialog::newField(const char *name, Quantity quantity,
                                          const MeasureField::Range &range)
{
    auto *field = new MeasureField(quantity, range, this);
    field->setObjectName(QString::fromLatin1(name));
    connect(field, &MeasureField::committed, this, [this, field](double value) {
        field->showValue(value);
        refresh();
    });
    connect(field, &MeasureField::faultChanged, this, &PreferencesDialog::refresh);
    return field;
}

QSpinBox *PreferencesDialog::newSpin(const char *name, int least, int most)
{
    auto *box = new QSpinBox(this);
    box->setObjectName(QString::fromLatin1(name));
    box->setRange(least, most);
    connect(box, qOverload<int>(&QSpinBox::valueChanged), this, &PreferencesDialog::refresh);
    return box;
}

void PreferencesDialog::buildProgramPage()
{
    QFormLayout *form = newPage();
    m_language = newChoice(
        "preferences.language",
        {int(LanguageChoice::System), int(LanguageChoice::English), int(LanguageChoice::Chinese)});
    addRow(*form, m_language, QT_TR_NOOP("&Language"));
    m_theme =
        newChoice("preferences.theme", {int(Theme::System), int(Theme::Light), int(Theme::Dark)});
    addRow(*form, m_theme, QT_TR_NOOP("&Theme"));
    m_unit = newChoice("preferences.unit", {int(LengthUnit::Millimetre), int(LengthUnit::Inch)});
    addRow(*form, m_unit, QT_TR_NOOP("&Unit of lengths"));
    m_direction = newChoice("preferences.direction", {0, 1});
    addRow(*form, m_direction, QT_TR_NOOP("Y cou&nts"));
    m_autosave = newSpin("preferences.autosave", kLeastAutosaveSeconds, kMostAutosaveSeconds);
    addRow(*form, m_autosave, QT_TR_NOOP("&Recovery copy after"));
}

void PreferencesDialog::buildCanvasPage()
{
    QFormLayout *form = newPage();
    m_gridShown = newCheck("preferences.gridShown");
    m_gridFixed = newCheck("preferences.gridFixed");
    m_grid = newField("preferences.grid", Quantity::Length, {kFinestGridMm, kCoarsestGridMm});
    addWide(*form, m_gridShown);
    form->addRow(m_gridFixed, m_grid);
    m_snapShapes = newCheck("preferences.snapShapes");
    m_snapGuides = newCheck("preferences.snapGuides");
    m_snapGrid = newCheck("preferences.snapGrid");
    m_keepTool = newCheck("preferences.keepTool");
    for (QCheckBox *box : {m_snapShapes, m_snapGuides, m_snapGrid, m_keepTool})
        addWide(*form, box);
}

void PreferencesDialog::buildShapePage()
{
    QFormLayout *form = newPage();
    m_pen = newChoice("preferences.pen", {});
    for (int pen = 1; pen <= kPenCount; ++pen)
        m_pen->addItem(penSwatch(pen), QString(), pen);
    addRow(*form, m_pen, QT_TR_NOOP("&Pen"));
    m_hatch = newChoice("preferences.hatch",
                        {int(FillType::None), int(FillType::Line), int(FillType::ULine)});
    addRow(*form, m_hatch, QT_TR_NOOP("&Hatch"));
    m_hatchSpacing =
        newField("preferences.hatchSpacing", Quantity::Length, {kFinestHatchMm, kCoarsestHatchMm});
    addRow(*form, m_hatchSpacing, QT_TR_NOOP("&Spacing"));
    m_hatchAngle = newField("preferences.hatchAngle", Quantity::Angle, {-3600.0, 3600.0});
    addRow(*form, m_hatchAngle, QT_TR_NOOP("&Angle, anticlockwise"));
    m_border = newCheck("preferences.border");
    addWide(*form, m_border);
}

void PreferencesDialog::buildDrawingPage()
{
    QFormLayout *form = newPage();
    m_fieldWidth = newSpin("preferences.fieldWidth", kLeastFieldMm, kMostFieldMm);
    addRow(*form, m_fieldWidth, QT_TR_NOOP("&Width of the field"));
    m_fieldHeight = newSpin("preferences.fieldHeight", kLeastFieldMm, kMostFieldMm);
    addRow(*form, m_fieldHeight, QT_TR_NOOP("&Height of the field"));
    m_origin = newChoice("preferences.origin", {0, 1, 2, 3, 4, kElsewhere});
    addRow(*form, m_origin, QT_TR_NOOP("&Origin"));
    m_fieldLeft = newSpin("preferences.fieldLeft", -kMostFieldMm, kMostFieldMm);
    addRow(*form, m_fieldLeft, QT_TR_NOOP("&Left edge at X"));
    m_fieldTop = newSpin("preferences.fieldTop", -kMostFieldMm, kMostFieldMm);
    addRow(*form, m_fieldTop, QT_TR_NOOP("&Top edge at Y, downward"));
    m_tolerant = newCheck("preferences.tolerant");
    m_tolerance = newField("preferences.tolerance", Quantity::Length,
                           {kFinestToleranceMm, kCoarsestToleranceMm});
    form->addRow(m_tolerant, m_tolerance);
    m_exportDirection = newChoice("preferences.exportDirection", {0, 1});
    addRow(*form, m_exportDirection, QT_TR_NOOP("E&xported Y counts"));
    m_forNew = newCheck("preferences.forNew");
    addWide(*form, m_forNew);
}

void PreferencesDialog::showEdit(const PreferenceEdit &shown)
{
    const Preferences &user = shown.user;
    choose(*m_language, int(shown.language));
    choose(*m_theme, int(user.theme));
    choose(*m_unit, int(user.unit));
    choose(*m_direction, int(user.isYUp));
    m_autosave->setValue(user.autosaveSeconds);
    m_gridShown->setChecked(user.isGridShown);
    m_gridFixed->setChecked(user.gridMm > 0.0);
    m_grid->showValue(user.gridMm > 0.0 ? user.gridMm : kFirstGridMm);
    m_snapShapes->setChecked(shown.snap.toShapes);
    m_snapGuides->setChecked(shown.snap.toGuides);
    m_snapGrid->setChecked(shown.snap.toGrid);
    m_keepTool->setChecked(user.isToolKept);
    choose(*m_pen, user.newShape.pen);
    choose(*m_hatch, int(user.newShape.hatch.fillType));
    m_hatchSpacing->showValue(user.newShape.hatch.spac);
    m_hatchAngle->showValue(0.0 - user.newShape.hatch.angle); // the record counts clockwise
    m_border->setChecked(user.newShape.hatch.isEnableBorder);
    showField(shown.drawing.fieldMm);
    const double toleranceMm = shown.drawing.curveToleranceMm;
    m_tolerant->setChecked(toleranceMm > 0.0);
    m_tolerance->showValue(toleranceMm > 0.0 ? toleranceMm : ZTCurveTolerance::kUsualMm);
    choose(*m_exportDirection, int(shown.drawing.isExportYUp));
    m_forNew->setChecked(shown.isForNewDrawings);
    refresh();
}

void PreferencesDialog::showField(const QRect &fieldMm)
{
    m_fieldWidth->setValue(fieldMm.width());
    m_fieldHeight->setValue(fieldMm.height());
    m_fieldLeft->setValue(fieldMm.x());
    m_fieldTop->setValue(fieldMm.y());
    choose(*m_origin, originOf(fieldMm));
}

int PreferencesDialog::originOf(const QRect &fieldMm) const
{
    const auto *found = std::find_if(kOrigins.begin(), kOrigins.end(), [&](const Origin &origin) {
        return topLeftOf(origin, fieldMm.size()) == fieldMm.topLeft();
    });
    return static_cast<int>(found - kOrigins.begin());
}

QRect PreferencesDialog::fieldMm() const
{
    return {m_fieldLeft->value(), m_fieldTop->value(), m_fieldWidth->value(),
            m_fieldHeight->value()};
}

/** The edges of the field where the origin is one of its marked points. */
void PreferencesDialog::followOrigin()
{
    const int origin = chosenIn(*m_origin);
    m_fieldLeft->setEnabled(origin == kElsewhere);
    m_fieldTop->setEnabled(origin == kElsewhere);
    if (origin == kElsewhere)
        return;
    const QPoint topLeft =
        topLeftOf(kOrigins.at(static_cast<std::size_t>(origin)), fieldMm().size());
    const QSignalBlocker quietLeft(m_fieldLeft);
    const QSignalBlocker quietTop(m_fieldTop);
    m_fieldLeft->setValue(topLeft.x());
    m_fieldTop->setValue(topLeft.y());
}

/** Entries count that were typed and not committed yet. */
void PreferencesDialog::takeEntries()
{
    for (MeasureField *field : findChildren<MeasureField *>())
        field->commit();
}

void PreferencesDialog::refresh()
{
    if (m_forNew == nullptr)
        return; // still being built
    followOrigin();
    m_grid->setEnabled(m_gridFixed->isChecked());
    m_tolerance->setEnabled(m_tolerant->isChecked());
    const bool isHatched = chosenIn(*m_hatch) != int(FillType::None);
    m_hatchSpacing->setEnabled(isHatched);
    m_hatchAngle->setEnabled(isHatched);
    QString fault;
    for (const MeasureField *field : findChildren<MeasureField *>()) {
        if (fault.isEmpty())
            fault = field->fault();
    }
    m_message->setText(fault);
    m_message->setVisible(!fault.isEmpty());
    for (const auto which : {QDialogButtonBox::Ok, QDialogButtonBox::Apply})
        m_buttons->button(which)->setEnabled(fault.isEmpty());
}

PreferenceEdit PreferencesDialog::edited() const
{
    PreferenceEdit edit = m_shown;
    Preferences &user = edit.user;
    edit.language = static_cast<LanguageChoice>(chosenIn(*m_language));
    user.theme = static_cast<Theme>(chosenIn(*m_theme));
    user.unit = static_cast<LengthUnit>(chosenIn(*m_unit));
    user.isYUp = chosenIn(*m_direction) != 0;
    user.autosaveSeconds = m_autosave->value();
    user.isGridShown = m_gridShown->isChecked();
    user.gridMm = m_gridFixed->isChecked() ? valueOf(*m_grid, kFirstGridMm) : 0.0;
    edit.snap = {m_snapShapes->isChecked(), m_snapGuides->isChecked(), m_snapGrid->isChecked()};
    user.isToolKept = m_keepTool->isChecked();
    user.newShape.pen = chosenIn(*m_pen);
    ZTFillParam &hatch = user.newShape.hatch;
    hatch.fillType = static_cast<FillType>(chosenIn(*m_hatch));
    hatch.spac = valueOf(*m_hatchSpacing, hatch.spac);
    hatch.angle = 0.0 - valueOf(*m_hatchAngle, 0.0);
    hatch.isEnableBorder = m_border->isChecked();
    edit.drawing.fieldMm = fieldMm();
    edit.drawing.curveToleranceMm =
        m_tolerant->isChecked() ? valueOf(*m_tolerance, ZTCurveTolerance::kUsualMm) : 0.0;
    edit.drawing.isExportYUp = chosenIn(*m_exportDirection) != 0;
    edit.isForNewDrawings = m_forNew->isChecked();
    return edit;
}

/** As after the first start. The drawing keeps what it has. */
void PreferencesDialog::restoreDefaults()
{
    PreferenceEdit usual;
    usual.drawing = m_shown.drawing;
    showEdit(usual);
}

void PreferencesDialog::changeEvent(QEvent *event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void PreferencesDialog::retranslate()
{
    setWindowTitle(tr("Preferences"));
    const QStringList pages = {tr("Program"), tr("Canvas"), tr("New shapes"), tr("This drawing")};
    for (int page = 0; page < m_pages->count(); ++page)
        m_pages->setTabText(page, pages.value(page));
    const QString unit = QStringLiteral(" (%1)").arg(units::name());
    for (int label = 0; label < m_labels.size(); ++label) {
        const bool isLength = m_labels[label]->buddy() == m_hatchSpacing;
        m_labels[label]->setText(tr(m_labelTexts[label]) + (isLength ? unit : QString()));
    }
    const auto name = [](QComboBox &box, const QStringList &texts) {
        for (int i = 0; i < texts.size(); ++i)
            box.setItemText(i, texts[i]);
    };
    name(*m_language,
         {tr("As the system"), QStringLiteral("English"), QStringLiteral("\u4e2d\u6587")});
    name(*m_theme, {tr("As the system"), tr("Light"), tr("Dark")});
    name(*m_unit, {tr("Millimetres"), tr("Inches")});
    name(*m_direction, {tr("Downward"), tr("Upward")});
    m_direction->setToolTip(tr("In fields, on rulers and in the status bar"));
    name(*m_exportDirection, {tr("Downward"), tr("Upward")});
    m_exportDirection->setToolTip(
        tr("In JSON and CSV, of mark paths and of jobs. Pictures, DXF, HP-GL and G-code count as "
           "their form or the machine does"));
    m_autosave->setSuffix(tr(" s"));
    m_autosave->setToolTip(tr("So much work a crash may cost at most"));
    m_gridShown->setText(tr("Show the &grid"));
    m_gridFixed->setText(tr("Grid lines e&very") + unit);
    m_gridFixed->setToolTip(tr("Otherwise their distance follows the zoom"));
    m_grid->setAccessibleName(tr("Distance of the grid lines"));
    m_snapShapes->setText(tr("Snap to &shapes"));
    m_snapGuides->setText(tr("Snap to g&uides"));
    m_snapGrid->setText(tr("Snap to the g&rid"));
    m_keepTool->setText(tr("Keep the t&ool after a shape was drawn"));
    for (int pen = 1; pen <= kPenCount; ++pen)
        m_pen->setItemText(pen - 1, QStringLiteral("%1  %2").arg(pen).arg(penName(pen)));
    name(*m_hatch, {tr("none"), tr("single lines"), tr("zigzag")});
    m_border->setText(tr("&Outline as well"));
    m_border->setToolTip(tr("Marks the outline of hatched shapes, too"));
    for (QSpinBox *box : {m_fieldWidth, m_fieldHeight, m_fieldLeft, m_fieldTop}) {
        box->setSuffix(tr(" mm"));
        box->setToolTip(tr("Fields have whole millimetres"));
    }
    name(*m_origin, {tr("Middle of the field"), tr("Top left corner"), tr("Top right corner"),
                     tr("Bottom left corner"), tr("Bottom right corner"), tr("Elsewhere")});
    m_tolerant->setText(tr("&Curves within") + unit);
    m_tolerant->setToolTip(
        tr("How far marked lines may lie from the curve that they stand for. Switched off, curves "
           "are as coarse as in drawings of earlier versions"));
    m_tolerance->setAccessibleName(tr("Tolerance of curves"));
    m_forNew->setText(tr("&New drawings have the same"));
    // Its keys clash with none of those above.
    m_buttons->button(QDialogButtonBox::RestoreDefaults)->setText(tr("Restore &defaults"));
    m_buttons->button(QDialogButtonBox::Ok)->setText(tr("O&K"));
    m_buttons->button(QDialogButtonBox::Cancel)->setText(tr("Canc&el"));
    m_buttons->button(QDialogButtonBox::Apply)->setText(tr("Appl&y"));
    refresh();
}

} // namespace studio
